/// @file
/// Where members paint: in memory, as long as there is any, and what was painted goes to the window in one
/// copy. Everything nests in any way on one thread, under the lock.
#pragma once

#include <windows.h>

#include <optional>

#include "tools/area.h"
#include "tools/sheet.h"
#include "tools/window.h"

namespace galdren {

/// What a member is about to paint.
struct Reach {
    Area area;                    ///< all that it may paint, edges included
    Area covered{0, -1, 0, -1};   ///< where it leaves nothing to be seen of what is there
    unsigned* picture = nullptr;  ///< see `View`
    bool is_part = false;         ///< of whatever is being painted
};

/// The surface of one member while it paints.
///
/// It is where the control that it is a part of paints, in the batch that is open or the picture that is
/// held, or else a sheet of its own, which starts with what the window shows, where that is not covered.
///
/// A member that repaints only what changed gives the number of the picture that it painted last. The library
/// keeps that of the last one that asked. The number becomes that of the picture in use; 0, none is kept.
class View {
  public:
    View(HWND window, const Reach& reach);
    ~View();
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    /// Fills a box of the client area that lies within the clip.
    void Fill(const RECT& box, unsigned long color);

    Sheet* sheet = nullptr;  ///< pixels and a context for text; null without memory
    HDC dc = nullptr;    ///< without a sheet, for everything, in pixels of the client area; null, for nothing
    POINT origin{};      ///< where the sheet begins in the client area
    RECT clip{};         ///< what may be painted of the client area, y downward
    RECT nested_clip{};  ///< what may be painted by views inside this one; at first, the same
    RECT painted{};      ///< what was painted of the client area
    SIZE client{};       ///< size of the client area
    bool kept = false;   ///< the sheet still holds what was painted on it

  private:
    friend class Shared_Context;
    friend HWND Window_In_Use();
    friend std::optional<POINT> Pointer_In_Paint(HWND window);
    friend bool Is_Painting(HWND window);

    explicit View(HWND window);

    static View* Innermost_Of(HWND window);
    void Use(Sheet& used);
    bool Join(const Reach& reach);
    void Begin(const Reach& reach);
    void Find_Target(const RECT& covered);
    bool Keep(unsigned& picture);
    void Compose(const RECT& covered);
    void Count();
    void Show();

    static View* Innermost;

    HWND window;
    View* before;            ///< the view that this one is inside of
    View* outer;             ///< the innermost of the same window; null when there is none
    Sheet* under = nullptr;  ///< what the sheet is part of: of a batch, or of a held window
    Target target;           ///< what the sheet is copied to at the end; mapped, it is a pair's
    std::optional<Window_Context> context;  ///< taken for this view, and for those inside it
    int saved = 0;                          ///< state of a context that is painted on directly
    std::optional<POINT> asked_for;         ///< the place on the screen that was looked for
    std::optional<POINT> pointer;           ///< where that is in the window
};

/// Has paints beside each other in one window share its context for a scope.
class Shared_Context : View {
  public:
    explicit Shared_Context(HWND window);
};

/// Makes the kept picture hold nothing, for a control that does not know any more what is on it.
void Forget_Kept_Picture();

/// `Find_Pointer`, which a paint of many parts asks once.
std::optional<POINT> Pointer_In_Paint(HWND window);

/// Whether this thread, which has the lock, is inside of a member that paints in a window.
bool Is_Painting(HWND window);

/// The window that this thread is painting in; null when it paints in none.
HWND Window_In_Use();

}  // namespace galdren
