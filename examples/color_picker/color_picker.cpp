// One value with several views: two editors and a text show a colour, each change of it goes through `Show`,
// and that brings all of them in line.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "Galdren_Host.h"
#include "Galdren_Tools.h"

constexpr unsigned long first_colors[] = {0xFFB47832, 0xFF3C3CC8, 0xFF28A0E6, 0xFF46C8DC,
                                          0xFF5AA046, 0xFFC8A050, 0xFFA05096, 0xFFE6E6E6};

void Copy_To_Clipboard(HWND window, const char* text) {
    if (!OpenClipboard(window)) return;
    EmptyClipboard();
    const std::size_t size = std::strlen(text) + 1;
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    if (void* copy = block ? GlobalLock(block) : nullptr) {
        std::memcpy(copy, text, size);
        GlobalUnlock(block);
        if (SetClipboardData(CF_TEXT, block)) block = nullptr;  // the clipboard's from now on
    }
    GlobalFree(block);
    CloseClipboard();
}

/// @param color  with red in its lowest byte
std::string Text_Of(unsigned long color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02lX%02lX%02lX", color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
    return text;
}

struct Picker {
    HWND window;
    Color_Edit channels;
    Hue_Edit hue;
    Labels text, recent_label;
    Buttons copy;
    Buttons recent[std::size(first_colors)];  // the latest first
    unsigned long recent_value[std::size(first_colors)];
    Host host;

    explicit Picker(HWND served) : window(served), host(served) {
        const auto take = [this](auto& editor, const Host_Event&) { Show(editor.Value); };
        std::copy(std::begin(first_colors), std::end(first_colors), recent_value);
        channels.Name = "Colour", channels.Flag = COLOR_EDIT_MODE_BUTTON | SLIDER_KEEP_GRAB | FLAG_TEXT_RIGHT;
        hue.Flag = SLIDER_KEEP_GRAB, hue.Value = channels.Value = recent_value[0];
        text.Flag = recent_label.Flag = FLAG_TEXT_LEFT;
        recent_label.Name = "Recent colours", copy.Name = "Copy";
        Serve_Screen_Readers(host);
        host.Set_Background(Colors(76, 81, 90));
        host.Add(channels, take);
        host.Add(hue, take);
        host.Describe(hue, "Hue");
        host.Add(recent_label);
        for (Buttons& button : recent)
            button.Border = 2,
            host.Add(button, [this](Buttons& pressed) { Show(recent_value[&pressed - recent]); });
        host.Add(text);
        host.Add(copy, [this](Buttons&) { Copy(); });
        host.Set_Default(&copy);
        host.Set_Mnemonic(copy, 'C');
        host.Set_Mnemonic(recent_label, 'R');
        for (Tools* control : std::initializer_list<Tools*>{&channels, &hue, &text, &recent_label, &copy})
            control->Font_Name = "Arial", control->Font_Size = 10, control->Border = 2;
        host.Follow_Dpi();
        Lay_Out();
        Show_Recent();
        Show(recent_value[0]);
    }

    /// All views show a colour.
    void Show(unsigned long value) {
        channels.Value = hue.Value = value;
        channels.Adjust();
        if (value == hue.Last_Value) host.Refresh(hue);  // which `Adjust` takes for painted
        hue.Adjust();
        text.Set_Name("%s", Text_Of(value).c_str());
        host.Refresh(text);
        host.Tell_Changed(text);
    }

    void Copy() {
        Copy_To_Clipboard(window, text.Name);
        // To the front, from where it stood before or in place of the last.
        const auto place = std::find(recent_value, std::end(recent_value) - 1, channels.Value);
        std::rotate(recent_value, place, place + 1);
        recent_value[0] = channels.Value;
        Show_Recent();
    }

    void Show_Recent() {
        for (std::size_t i = 0; i < std::size(recent); ++i) {
            const unsigned long value = recent_value[i];
            // Black would mean grey to a button.
            recent[i].Color = value & 0xFFFFFF ? Colors(unsigned(value)) : Colors(1, 1, 1);
            recent[i].Init(window);
            host.Refresh(recent[i]);
            host.Describe(recent[i], Text_Of(value).c_str());
        }
    }

    /// The channels take the height that the rows below them leave.
    void Lay_Out() {
        using namespace Layout;
        std::vector<Item> colors;
        for (Buttons& button : recent)
            colors.push_back(Stretch(Least(button, 24, 0)));
        const Item last = Row(8, {Stretch(Least(text, 80, 0)), Fixed(copy, 100)});
        Layout::Lay_Out(host, Margin(12, Column(8, {Stretch(Least(channels, 280, 100)), Fixed(hue, 36),
                                                    Fixed(recent_label, 22), Fixed(Row(8, colors), 34),
                                                    Fixed(last, 34)})));
    }
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    Set_Text_Code_Page(CP_UTF8);
    Main_Window window("Colour picker", 452, 373);
    Picker picker(window.Handle());
    return window.Run(picker.host, show);
}
