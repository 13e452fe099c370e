#include "popup/owner_window.h"

namespace galdren {

namespace {

/// What a window keeps for its dialogs.
constexpr char Scale_Name[] = "Galdren_Dialog_Scale";
constexpr char Look_Name[] = "Galdren_Dialog_Look";

/// Has a window keep a value under a name; null keeps none.
void Keep(HWND window, const char* name, const void* value) {
    if (value) {
        SetPropA(window, name, const_cast<void*>(value));
    } else {
        RemovePropA(window, name);
    }
}

}  // namespace

Dress Dress_Of(HWND window) {
    for (; window; window = GetParent(window)) {
        const HANDLE scale = GetPropA(window, Scale_Name);
        const HANDLE look = GetPropA(window, Look_Name);
        if (!scale && !look) continue;
        return {static_cast<unsigned short>(reinterpret_cast<UINT_PTR>(scale)),
                static_cast<const Theme*>(look)};
    }
    return {};
}

void Keep_Dress(HWND window, const Dress& dress) {
    Keep(window, Scale_Name, reinterpret_cast<const void*>(UINT_PTR{dress.scale}));
    Keep(window, Look_Name, dress.look);
}

}  // namespace galdren
