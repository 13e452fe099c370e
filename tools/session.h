/// @file
/// What is open on the thread that holds the lock: pairs of `Begin_Draw` and `End_Draw`, batches, and held
/// windows; and the sheet that members of a window paint on because of these.
#pragma once

#include <windows.h>

#include <algorithm>
#include <list>
#include <memory>
#include <optional>
#include <vector>

#include "tools/sheet.h"
#include "tools/window.h"

namespace galdren {

/// A pair of an application.
struct Pair {
    HWND window;
    HDC dc;
    SIZE client;   ///< size of the client area that `dc` is mapped for
    Sheet* sheet;  ///< what `dc` belongs to; null for a context of the window
    bool own;      ///< `dc` was taken, or lent, for this pair
    int lent;      ///< see `Picture::Lend`
    int depth;     ///< pairs that go on with it
};

/// A batch. Those inside another one of the same window share its sheet.
struct Batch {
    HWND window;
    Sheet* sheet;  ///< null without memory: what is painted goes to the window
    bool outermost;
};

/// A window whose picture is held.
struct Hold {
    HWND window = nullptr;
    int count = 1;
    std::unique_ptr<Sheet> sheet;           ///< null until something is painted, or without memory
    std::optional<Window_Context> context;  ///< kept from paint to paint

    bool Has_Picture_Of(SIZE client) const {
        return sheet && sheet->place.right == client.cx && sheet->place.bottom == client.cy;
    }
};

/// All that is open, innermost last.
struct Sessions {
    Sessions();
    std::vector<Pair> pairs;
    std::vector<Batch> batches;
    std::list<Hold> holds;
};

/// The last of them that is of a window; null when there is none.
template <class All>
typename All::value_type* Last_Of(All& sessions, HWND window) {
    const auto found = std::find_if(sessions.rbegin(), sessions.rend(),
                                    [&](const auto& session) { return session.window == window; });
    return found == sessions.rend() ? nullptr : &*found;
}

/// The pair of a window that is inside its batch, if it has one of these; else null.
const Pair* Pair_Of(HWND window);

/// The sheet of the batch of a window; null when there is none.
Sheet* Batch_Sheet(HWND window);

/// The held picture of a window at its present size.
/// @param covered  what is about to be painted all over; the rest has to show what the window does
/// @return null when the window is not held, or there is no memory
Sheet* Held_Sheet(HWND window, SIZE client, const RECT& covered);

/// Brings what was painted on the sheet of a batch or of a held window to the window.
void Show_Now(Sheet& sheet);

/// The same, unless a batch goes on painting.
void Show_When_Done(Sheet& sheet);

/// Lets go of held windows that are gone, before the next paint that has to look at a window.
void Forget_Dead_Windows();

}  // namespace galdren
