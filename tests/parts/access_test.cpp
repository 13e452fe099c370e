// Screen readers: what they are answered about a window, and what they can do.
#include "parts/access.h"

#include <memory>
#include <string>
#include <vector>

#include "parts/access_object.h"
#include "parts/classes.h"
#include "tests/support/reader.h"
#include "tests/support/window.h"

namespace galdren_test {
namespace {

/// A window whose controls are listed, and that writes down what is done to them.
class Panel final : public Part_Window {
  public:
    explicit Panel(HWND shown_in) : window(shown_in) {}

    template <class Control>
    Part_Owner& Add(Control& control, const char* description = nullptr) {
        owners.push_back({&control, &Parts_Of(&control), description, 0, ++last_serial, true, true});
        return owners.back();
    }

    HWND Window() const override { return window; }
    int Count() const override { return static_cast<int>(owners.size()); }
    Part_Owner Owner(int number) const override { return owners[static_cast<std::size_t>(number)]; }
    int Number_Of(unsigned serial) const override {
        for (int number = 0; number < Count(); ++number)
            if (Owner(number).serial == serial) return number;
        return -1;
    }
    int Control_At(POINT place) const override {
        for (int number = Count() - 1; number >= 0; --number) {
            const Part_Owner owner = Owner(number);
            if (owner.shown && PtInRect(&owner.control->Rect, place)) return number;
        }
        return -1;
    }
    Part_Place Focus() const override { return focus; }
    bool Set_Focus(Part_Place place) override {
        focus = place;
        return true;
    }
    bool Press(Part_Place place) override {
        Note("press", place);
        return true;
    }
    bool Step(Part_Place, Part_Move) override { return false; }
    bool Set_Value(Part_Place place, const char* text) override {
        const Part_Owner owner = Owner(place.control);
        return owner.parts->Set_Value(*owner.control, place.part, text);
    }

    void Note(const char* what, Part_Place place) {
        log += std::string(what) + ' ' + std::to_string(place.control) + '.' + std::to_string(place.part) + ' ';
    }

    HWND window;
    std::vector<Part_Owner> owners;
    unsigned last_serial = 0;
    Part_Place focus;
    std::string log;
};

TEST(Smoke, Reads) {
    Test_Window window(400, 300);
    Panel panel(window);
    Buttons b; b.X = 10; b.Y = 10; b.Width = 80; b.Height = 24; b.Name = "Apply"; b.Init(window);
    panel.Add(b);
    Lists l; l.X = 100; l.Y = 10; l.Width = 80; l.Height = 100; l.Name = "Formats"; l.Grow(3, 0); l.Flag = FLAG_VERTICAL; l.Item[0]->Name = "PNG"; l.Item[1]->Name = "GIF"; l.Item[2]->Name = "BMP"; l.Init(window);
    panel.Add(l);
    static Access* server; static WNDPROC before;
    Access access(panel); server = &access;
    before = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(static_cast<WNDPROC>([](HWND w, UINT m, WPARAM a, LPARAM q) -> LRESULT {
        LRESULT r = 0; if (server->Message(m, a, q, r)) return r; return CallWindowProcA(before, w, m, a, q); }))));
    puts(Read_Aloud(Spoken(window)).c_str());
    printf("alive %ld\n", galdren::Access_Object::Alive());
    Spoken s(window);
    printf("act %lx\n", s.Child(1).Act()); Pump(); puts(panel.log.c_str());
    puts(s.Child(2).Child(2).At_Middle().Line().c_str());
    window.Close();
}

}  // namespace
}  // namespace galdren_test
