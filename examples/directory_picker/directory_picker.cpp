// A directory that is chosen in a browser or typed, and a question before the program takes it: whichever of
// the two changed, `Show` brings the other in line, and the browser alone knows what is chosen.
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string>

#include "Galdren_Host.h"
#include "Galdren_Tools.h"

struct Picker {
    HWND window;
    DirTrees tree;
    Labels chosen, typed_label;
    Texts typed;
    Buttons ok, cancel;
    Host host;

    explicit Picker(HWND served) : window(served), host(served) {
        tree.Name = "Directory";
        chosen.Flag = typed_label.Flag = FLAG_TEXT_LEFT;
        typed_label.Name = "Path";
        typed.Flag = TEXT_SINGLE_LINE | TEXT_EDITING, typed.Color = Colors(222, 225, 230);
        ok.Name = "OK", cancel.Name = "Cancel";
        Serve_Screen_Readers(host);
        host.Add(tree, [this](DirTrees&, const Host_Event& event) {
            if (event.answer == 2) Show();  // 1 is a branch opened, or a bar moved
        });
        host.Add(chosen);
        host.Add(typed_label);
        host.Add(typed, [this](Texts& entry, const Host_Event& event) {
            if (event.kind == Host_Event::Key && event.answer) Go_To(entry.Line);
        });
        host.Add(ok, [this](Buttons&) { Confirm(); });
        host.Add(cancel, [this](Buttons&) { Close(); });
        host.Set_Cancel(&cancel);
        host.Set_Mnemonic(typed_label, 'P');
        host.Set_Mnemonic(ok, 'O');
        host.Set_Mnemonic(cancel, 'C');
        for (Tools* control :
             std::initializer_list<Tools*>{&tree, &chosen, &typed_label, &typed, &ok, &cancel})
            control->Font_Name = "Arial", control->Font_Size = 10, control->Border = 2;
        host.Follow_Dpi();
        host.Follow_System_Theme();
        Lay_Out();
        host.Focus(&typed);
        Go_To(std::getenv("USERPROFILE"));
    }

    /// Opens the tree down to a directory, as far as there is one; null is the drives alone.
    void Go_To(const char* path) {
        tree.Set(path);
        host.Refresh(tree);
        Show();
    }

    /// The label and the entry field say what the browser answers.
    void Show() {
        const char* path = tree.Read();
        chosen.Set_Name("%s", path ? path : "No directory is chosen");
        host.Refresh(chosen);
        host.Tell_Changed(chosen);
        typed.Read("%s", path ? path : typed.Line);
        host.Tell_Changed(typed);
    }

    void Confirm() {
        if (!tree.Read()) return;
        const std::string path = tree.Read();
        std::string question = "Work in this directory?\n" + path;
        if (PopUp_Querry("Directory picker", "Directory", question.data(), 360, 0) != 1) return;
        std::puts(path.c_str());
        Close();
    }

    void Close() { PostMessageA(window, WM_CLOSE, 0, 0); }

    /// The tree takes what the rows below it leave.
    void Lay_Out() {
        using namespace Layout;
        const Item path = Row(4, {Fixed(typed_label, 40), Stretch(typed)});
        const Item buttons = Row(8, {Space(), Fixed(cancel, 100), Fixed(ok, 100)});
        Layout::Lay_Out(host,
                        Margin(12, Column(8, {Stretch(Least(tree, 0, 160)), Fixed(Least(chosen, 240, 0), 24),
                                              Fixed(path, 26), Fixed(buttons, 34)})));
    }
};

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int show) {
    Set_Text_Code_Page(CP_UTF8);
    Main_Window window("Directory picker", 452, 493);
    Picker picker(window.Handle());
    return window.Run(picker.host, show);
}
