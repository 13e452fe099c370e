// The context menu of text fields.
#include "widgets/text_menu.h"

#include <memory>
#include <new>
#include <type_traits>

#include "tools/base.h"
#include "tools/keyboard.h"
#include "util/wide.h"
#include "widgets/text.h"

using namespace galdren;

namespace {

struct Menu_Row {
    const char* Text_Menu::*word;  // null for a line between entries
    int key;                       // that does the same
};

constexpr Menu_Row Rows[] = {
    {&Text_Menu::Undo, KEY_CONTROL | 'Z'},
    {&Text_Menu::Redo, KEY_CONTROL | 'Y'},
    {nullptr, 0},
    {&Text_Menu::Cut, KEY_CONTROL | 'X'},
    {&Text_Menu::Copy, KEY_CONTROL | 'C'},
    {&Text_Menu::Paste, KEY_CONTROL | 'V'},
    {&Text_Menu::Delete, KEY_NAVIGATION | VK_DELETE},
    {nullptr, 0},
    {&Text_Menu::Select_All, KEY_CONTROL | 'A'},
};

Text_Menu Words;

struct Destroy_Menu {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using Menu = std::unique_ptr<std::remove_pointer_t<HMENU>, Destroy_Menu>;

/// The menu, with what a field can do now; null without memory.
Menu Make_Menu(Texts& field) {
    Menu menu(CreatePopupMenu());
    if (!menu) return menu;
    for (const auto& [word, key] : Rows) {
        if (!word) {
            AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
            continue;
        }
        const UINT state = field.Can_Take(key) ? MF_ENABLED : MF_GRAYED;
        AppendMenuW(menu.get(), MF_STRING | state, static_cast<UINT_PTR>(key), To_Wide(Words.*word).c_str());
    }
    return menu;
}

}  // namespace

void Set_Text_Menu(const Text_Menu& words) { Words = words; }

int Texts::Ask_Menu(POINT screen) {
    if (!Has_Flag(*this, TEXT_EDITING)) return 0;
    const HWND window = Window;
    try {
        const Menu menu = Make_Menu(*this);
        return menu ? TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0,
                                     window, nullptr)
                    : 0;
    } catch (const std::bad_alloc&) {
        return 0;
    }
}
