/// @file
/// Words for messages, as the inspector and the gallery show them.
#pragma once

#include <windows.h>

namespace galdren {

/// Word for an event that is counted; null for a message that is none.
inline const char* Event_Name(UINT message) {
    switch (message) {
        case WM_MOUSEMOVE:
            return "pointer";
        case WM_MOUSELEAVE:
            return "pointer gone";
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL:
            return "wheel";
        case WM_LBUTTONUP:
        case WM_MBUTTONUP:
        case WM_RBUTTONUP:
            return "release";
        default:
            if (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) return "press";
            return message >= WM_KEYFIRST && message <= WM_KEYLAST ? "key" : nullptr;
    }
}

}  // namespace galdren
