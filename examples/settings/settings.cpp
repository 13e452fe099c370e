// A dialog as a view of a structure: `Show` fills the controls from the structure, `Read_Back` makes one of
// what they hold, and in between every control keeps its value itself.
#include <cstdlib>
#include <string>

#include "Galdren_Host.h"
#include "Galdren_Tools.h"

constexpr const char* formats[] = {"PNG", "JPEG", "TIFF", "Targa"};
constexpr const char* sizes[] = {"640 x 480", "1280 x 720", "1920 x 1080", "2560 x 1440", "3840 x 2160"};
constexpr const char* extras[] = {"Grid", "Axes", "Legend", "Time stamp", nullptr};

struct Settings {
    std::string title = "Harbour at dawn";
    int copies = 1;
    short size = 2;    // index in `sizes`
    short format = 0;  // index in `formats`
    float quality = 85;
    int extras = 0b0011;  // a bit for each of `extras`
    bool replace = false;
};

struct Dialog {
    Boxs panel;
    Labels title_label, copies_label, size_label;
    Texts title, copies, summary;
    Lists size;
    Selects format;
    Valuators quality;
    CheckLists extra;
    Buttons replace, reset, ok;
    Host host;

    explicit Dialog(HWND window) : host(window) {
        Serve_Screen_Readers(host);
        host.Follow_Dpi();
        host.Follow_System_Theme();
        Add(panel, nullptr, FLAG_STATIC | FLAG_PASSIVE);
        Add_Entry(title_label, "Title", title, 0);
        Add_Entry(copies_label, "Copies", copies, TEXT_INTEGER);
        Add(format, "Format", FLAG_TEXT_MIDDLE | FLAG_TEXT_LEFT);
        format.Value_Width = 208;
        Name_Items(format, formats);
        Add(quality, "Quality", SLIDER_KEEP_GRAB | FLAG_TEXT_LEFT);
        quality.Start_Val = 1, quality.End_Val = 100, quality.Format = "%.0f %%", quality.Num_Width = NUM_DIM;
        Add(extra, "Extras", CHECKLIST_NAME_LEFT);
        extra.List = extras;
        Add(size_label, "Size in pixels", FLAG_TEXT_LEFT);
        Add(size, nullptr, FLAG_VERTICAL | SLIDER_KEEP_GRAB);
        Name_Items(size, sizes);
        Add(replace, "Replace old pictures", BUTTON_LAMP);
        Add(reset, "Defaults", 0, [this](Buttons&) { Show({}); });
        Add(ok, "OK", 0, [this](Buttons&) { Report(Read_Back()); });
        Add(summary, "What the program got", TEXT_V_BAR | SLIDER_KEEP_GRAB);
        summary.Color = Colors(196, 200, 206);
        Lay_Out();
        host.Focus(&title);
        host.Set_Default(&ok);
        Show({});
    }

    void Show(const Settings& settings) {
        title.Read("%s", settings.title.c_str());
        copies.Read("%d", settings.copies);
        size.Current = settings.size, size.Adjust();
        format.Current = settings.format, format.Adjust();
        quality.Val = settings.quality, quality.Adjust();
        extra.Value = settings.extras, extra.Adjust();
        replace.Lamp = replace.Value = settings.replace, replace.Adjust();
    }

    Settings Read_Back() const {
        return {title.Line,  std::atoi(copies.Line), size.Current, format.Current, quality.Val,
                extra.Value, replace.Value != 0};
    }

    void Report(const Settings& settings) {
        summary.Write("\xF1%s\xF0, %d x %s, %s at %.0f %%, %s the old pictures", settings.title.c_str(),
                      settings.copies, sizes[settings.size], formats[settings.format],
                      double{settings.quality}, settings.replace ? "replaces" : "keeps");
        for (int i = 0; extras[i]; ++i)
            if (settings.extras & 1 << i) summary.Write("%c    with %s", TEXT_BLUE, extras[i]);
    }

    /// What is set stands in two columns on the panel, and what became of it below.
    void Lay_Out() {
        using namespace Layout;
        const Item left =
            Column(10, {Fixed(Row(4, {Fixed(title_label, 60), Stretch(title)}), 26),
                        Fixed(Row(4, {Fixed(copies_label, 60), Stretch(copies)}), 26), Fixed(format, 32),
                        Fixed(quality, VAL_DIM), Stretch(Least(extra, 272, 72))});
        const Item right =
            Column(8, {Fixed(size_label, 26), Stretch(Least(size, 172, 120)), Fixed(replace, 36)});
        const Item buttons = Row(16, {Space(), Fixed(reset, 100), Fixed(ok, 100)});
        Layout::Lay_Out(
            host, Margin(12, Column(12, {Stretch(Stack({panel, Margin(16, Row(20, {Stretch(left), right}))})),
                                         Fixed(buttons, 34), Fixed(summary, 108)})));
    }

    /// Fields that all have. Alt and the first letter of the name go to the control; a field or a list
    /// without a name has the label before it.
    void Add(auto& control, const char* name, unsigned long flag, auto... handlers) {
        control.Name = name, control.Flag = flag;
        control.Font_Name = "Arial", control.Font_Size = 10, control.Border = 2;
        host.Add(control, handlers...);
        if (name) host.Set_Mnemonic(control, *name);
    }

    void Add_Entry(Labels& label, const char* name, Texts& field, unsigned long flag) {
        Add(label, name, FLAG_TEXT_LEFT);
        Add(field, nullptr, flag | TEXT_SINGLE_LINE | TEXT_EDITING);
        field.Color = Colors(222, 225, 230);
    }

    static void Name_Items(auto& list, const auto& names) {
        list.Grow(int(std::size(names)), 0);
        for (std::size_t i = 0; i < std::size(names); ++i)
            list.Item[i]->Name = names[i];
    }
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    Set_Text_Code_Page(CP_UTF8);
    Main_Window window("Settings", 532, 453);
    Dialog dialog(window.Handle());
    return window.Run(dialog.host, show);
}
