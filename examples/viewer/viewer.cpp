// An application of the common kind: a tree of folders, thumbnails, a picture that is zoomed and dragged, a
// histogram, a log and a page of settings, in a window of any size, scale and theme.
#include "Galdren_Host.h"
#include "Galdren_Util.h"

#include <commdlg.h>
#include <shellapi.h>

#include <cerrno>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "controls.h"

using Path = std::filesystem::path;

/// Texts of the library are UTF-8.
std::string To_Text(const Path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// The pictures of a folder by name; none when it cannot be listed.
std::vector<Path> Pictures_In(const Path& folder) {
    constexpr const char* known[] = {".bw", ".rgb", ".rgba", ".sgi", ".tga"};
    std::vector<Path> files;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        std::string extension = To_Text(entry.path().extension());
        if (std::ranges::count(known, std::string(Str_To_Lower(extension.data())))) files.push_back(entry);
    }
    std::ranges::sort(files);
    return files;
}

struct Viewer {
    Main_Window& window;
    std::vector<Path> files;  // of the thumbnails
    DirTrees tree;
    Histogram histogram;
    Boxs page;  // where the pages of the tabs are
    Tabs tabs;
    Picture_View picture;
    Thumbnails thumbnails;
    Valuators zoom;
    Selects theme, scale;
    Texts log;
    Labels status;
    Buttons fit, open, about;
    Host host;

    explicit Viewer(Main_Window& served) : window(served), host(served.Handle()) {
        Serve_Screen_Readers(host);
        host.Set_Background(Colors(76, 81, 90));
        host.Set_On_Paint([this] { tabs.Page(short(tabs.Y + tabs.Height - page.Y)); });
        host.Set_On_Key([this](int key) { return Take_Key(key); });
        window.Set_On_Message([this](UINT message, WPARAM, LPARAM, LRESULT&) {
            if (message == WM_SIZE) Show_Zoom();  // of a picture that fits
            return message == WM_TIMER && Read_Thumbnail();
        });
        Add(tree, "Directory", 0, [this](DirTrees&, const Host_Event& event) {
            if (event.answer == 2 && tree.Read())
                Show_Folder(std::u8string(reinterpret_cast<const char8_t*>(tree.Read())));
        });
        Add(histogram, "Histogram", 0);
        Add(page, nullptr, FLAG_NO_BODY | FLAG_PASSIVE);
        Add(tabs, nullptr, 0);
        Name_Items(tabs, {"Pictures", "Settings"});
        Add_Pictures();
        Add_Settings();
        Add(log, "Log", TEXT_V_BAR | SLIDER_KEEP_GRAB);
        Add(status, nullptr, FLAG_TEXT_LEFT);
        Add(open, "Open", 0, [this](Buttons&) { Open(); });
        Add(about, "About", 0, [](Buttons&) { About(); });
        host.Describe(tabs, "Pages");
        host.Follow_Dpi();
        Lay_Out();
    }

    void Add_Pictures() {
        Add(picture, "Picture", 0, [this](Picture_View&, const Host_Event&) { Show_Zoom(); });
        Add(thumbnails, nullptr, FLAG_VERTICAL | SLIDER_KEEP_GRAB | FLAG_TEXT_BOTTOM | FLAG_TEXT_LEFT,
            [this](Thumbnails&, const Host_Event&) { Show_Picture(thumbnails.Current); });
        thumbnails.Item_Height = 96;
        Add(zoom, "Zoom", VALUATOR_LOG_10 | SLIDER_KEEP_GRAB | FLAG_TEXT_LEFT,
            [this](Valuators&, const Host_Event&) { picture.Set_Zoom(double(zoom.Val) / 100); });
        zoom.Start_Val = 2, zoom.End_Val = 3200, zoom.Format = "%.0f %%", zoom.Num_Width = NUM_DIM;
        Add(fit, "Fit", 0, [this](Buttons&) { picture.Fit(), Show_Zoom(); });
        host.Describe(thumbnails, "Thumbnails");
        host.Set_Page(tabs, 0, picture, thumbnails, zoom, fit);
    }

    void Add_Settings() {
        constexpr unsigned long left = FLAG_TEXT_MIDDLE | FLAG_TEXT_LEFT;
        Add(theme, "Theme", left, [this](Selects&, const Host_Event&) { Wear(); });
        Name_Items(theme, {"Plain", "Dark", "System"});
        Add(scale, "Scale", left, [this](Selects&, const Host_Event&) { Scale(); });
        Name_Items(scale, {"As the display", "100 %", "150 %", "200 %"});
        theme.Value_Width = scale.Value_Width = 220;
        host.Set_Page(tabs, 1, theme, scale);
    }

    void Wear() {
        const Theme dark = Dark_Theme();
        if (theme.Current == 2) return host.Follow_System_Theme();
        host.Set_Theme(theme.Current == 1 ? &dark : nullptr);
    }

    void Scale() {
        if (scale.Current == 0) return host.Follow_Dpi();
        host.Scale_Window(std::stoi(scale.Item[scale.Current]->Name));
    }

    /// Shows the pictures of a folder, large the first or the one that is wanted. Thumbnails come one by one,
    /// so that the window answers meanwhile.
    void Show_Folder(const Path& folder, const Path& wanted = {}) {
        files = Pictures_In(folder);
        thumbnails.Pictures.clear();
        thumbnails.Grow(0, 0);
        thumbnails.Grow(int(files.size()), 0);
        for (std::size_t i = 0; i < files.size(); ++i)
            thumbnails.Item[i]->Set_Name("%s", To_Text(files[i].filename()).c_str());
        host.Init(thumbnails);
        host.Refresh(thumbnails);
        log.Write("%s: %d pictures", To_Text(folder).c_str(), int(files.size()));
        SetTimer(window.Handle(), 1, 1, nullptr);
        const auto found = std::ranges::find(files, wanted);
        Show_Picture(found == files.end() ? 0 : int(found - files.begin()));
    }

    bool Read_Thumbnail() {
        const std::size_t next = thumbnails.Pictures.size();
        if (next == files.size()) return KillTimer(window.Handle(), 1);
        const Pixels picture = Read_Pixels(To_Text(files[next]).c_str());
        thumbnails.Pictures.push_back(Scale_Pixels(picture, Fit_Pixels(picture, {160, 160})));
        host.Init(thumbnails);
        host.Refresh(thumbnails);
        return true;
    }

    void Show_Picture(int number) {
        if (number < 0 || number >= int(files.size())) return;
        const Path& file = files[std::size_t(number)];
        const std::string name = To_Text(file.filename());
        const Pixels image = Read_Pixels(To_Text(file).c_str());
        if (image.Is_Empty()) return Report(name, errno);
        thumbnails.Current = short(number), thumbnails.Adjust(), thumbnails.Bring_Into_View(number);
        window.Set_Title((name + " - Viewer").c_str());
        status.Set_Name("%s   %d x %d", name.c_str(), image.width, image.height);
        host.Refresh(status);
        log.Write("%s", status.Name);
        histogram.Count(image), picture.Show(image);
        Show_Zoom();
    }

    void Report(const std::string& name, int fault) {
        std::string text = fault == EINVAL ? "This kind of picture is not read" : Error_Perror(fault);
        log.Write("%c%s: %s", TEXT_RED, name.c_str(), text.c_str());
        if (!IsWindowVisible(window.Handle())) return;  // at the start the log has to do
        PopUp_Message("This picture cannot be read", name.c_str(), text.data(), 0, 0);
    }

    void Show_Zoom() {
        zoom.Val = float(100 * picture.Zoom()), zoom.Adjust();
        host.Tell_Changed(zoom);
    }

    /// A folder, or a picture and the folder that it is in.
    void Show_Path(const Path& path) {
        const Path folder = std::filesystem::is_directory(path) ? path : path.parent_path();
        tree.Set(To_Text(folder).c_str());
        host.Refresh(tree);
        Show_Folder(folder, path);
    }

    void Open() {
        wchar_t name[2048] = L"";
        OPENFILENAMEW dialog{};
        dialog.lStructSize = sizeof dialog;
        dialog.hwndOwner = window.Handle();
        dialog.lpstrFilter = L"Pictures\0*.bw;*.rgb;*.rgba;*.sgi;*.tga\0";
        dialog.lpstrFile = name, dialog.nMaxFile = DWORD(std::size(name));
        dialog.Flags = OFN_FILEMUSTEXIST | OFN_NOCHANGEDIR;
        if (GetOpenFileNameW(&dialog)) Show_Path(name);
    }

    static void About() {
        char text[] =
            "Drag and wheel move and zoom a picture, as do arrows,\n+ and -. Page keys show others.";
        PopUp_Message("Viewer", "About", text, 380, 0);
    }

    bool Take_Key(int key) {
        if (key == (KEY_CONTROL | 'O')) return Open(), true;
        if (key == (KEY_NAVIGATION | VK_PRIOR)) return Show_Picture(thumbnails.Current - 1), true;
        if (key == (KEY_NAVIGATION | VK_NEXT)) return Show_Picture(thumbnails.Current + 1), true;
        return false;
    }

    void Lay_Out() {
        using namespace Layout;
        const Item zooming = Row(8, {Stretch(Least(zoom, 200, 0)), Fixed(fit, 80)});
        const Item pictures =
            Row(8, {Stretch(Column(8, {Stretch(Least(picture, 200, 120)), Fixed(zooming, VAL_DIM)})),
                    Fixed(thumbnails, 150)});
        const Item settings =
            Row(0, {Fixed(Column(12, {Fixed(theme, 36), Fixed(scale, 36), Space()}), 380), Space()});
        const Item paged = Stack({page, Margin(12, Stack({pictures, settings}))});
        const Item left = Column(8, {Stretch(Least(tree, 0, 200)), Fixed(histogram, 110)});
        const Item right =
            Column(8, {Stretch(Column(0, {Fixed(tabs, 28), Stretch(paged)})), Fixed(log, 110)});
        const Item bottom = Row(8, {Stretch(Least(status, 100, 0)), Fixed(open, 100), Fixed(about, 100)});
        const Item all = Column(8, {Stretch(Row(10, {Fixed(left, 260), Stretch(right)})), Fixed(bottom, 32)});
        Layout::Lay_Out(host, Margin(10, all));
    }

    /// Fields that all have. Alt and the first letter of the name go to the control.
    void Add(auto& control, const char* name, unsigned long flag, auto... handlers) {
        control.Name = name, control.Flag = flag;
        control.Font_Name = "Arial", control.Font_Size = 9, control.Border = 2;
        host.Add(control, handlers...);
        if (name) host.Set_Mnemonic(control, *name);
    }

    static void Name_Items(auto& owner, std::initializer_list<const char*> names) {
        owner.Grow(int(names.size()), 0);
        auto item = owner.Item;
        for (const char* name : names)
            (*item++)->Name = name;
    }
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    Set_Text_Code_Page(CP_UTF8);
    Main_Window window("Viewer", 940, 640);
    Viewer viewer(window);
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    viewer.Show_Path(count > 1 ? Path(words[1]) : std::filesystem::current_path());
    LocalFree(words);
    return window.Run(viewer.host, show);
}
