#include "host/field_menu.h"

#include <memory>
#include <type_traits>

#include "../tools/keyboard.h"

namespace galdren {

namespace {

struct Entry_Text {
    const char* text;  // null for a line between entries
    int key;
};

constexpr Entry_Text Entries[] = {
    {"&Undo\tCtrl+Z", KEY_CONTROL | 'Z'},
    {"&Redo\tCtrl+Y", KEY_CONTROL | 'Y'},
    {nullptr, 0},
    {"Cu&t\tCtrl+X", KEY_CONTROL | 'X'},
    {"&Copy\tCtrl+C", KEY_CONTROL | 'C'},
    {"&Paste\tCtrl+V", KEY_CONTROL | 'V'},
    {"&Delete\tDel", KEY_NAVIGATION | VK_DELETE},
    {nullptr, 0},
    {"Select &all\tCtrl+A", KEY_CONTROL | 'A'},
};

struct Destroy_Menu {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using Menu = std::unique_ptr<std::remove_pointer_t<HMENU>, Destroy_Menu>;

}  // namespace

int Ask_Field_Menu(HWND window, POINT screen, Texts& field) {
    const Menu menu(CreatePopupMenu());
    if (!menu) return 0;
    for (const auto& [text, key] : Entries) {
        const UINT kind = text ? MF_STRING : MF_SEPARATOR;
        const UINT state = !text || field.Can_Take(key) ? MF_ENABLED : MF_GRAYED;
        AppendMenuA(menu.get(), kind | state, static_cast<UINT_PTR>(key), text);
    }
    return TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, window,
                          nullptr);
}

}  // namespace galdren
