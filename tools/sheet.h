/// @file
/// Sheets: pictures that stand in for a rectangle of a window until what was painted goes there in one copy.
#pragma once

#include <windows.h>

#include <memory>

#include "tools/area.h"
#include "tools/picture.h"

namespace galdren {

/// A context that a sheet reads from and goes to.
struct Target {
    HDC dc = nullptr;  ///< null, for nothing
    LONG mapped_height =
        0;  ///< of the client area, for a context with y upward; 0 for one in pixels, y downward

    LONG Top(LONG y) const { return mapped_height ? mapped_height - 1 - y : y; }
};

/// Rectangles are in pixels of the client area, y downward.
class Sheet : public Picture {
  public:
    explicit Sheet(SIZE room) : Picture(room) {}

    HWND window = nullptr;
    RECT place{};    ///< what it stands for
    RECT counts{};   ///< as far as it goes to the window
    RECT painted{};  ///< what has not gone there yet
    int users = 0;   ///< who paints on it, or holds it

    /// Stands for `where` of `owner` from now on, with nothing painted.
    void Stand_For(HWND owner, const RECT& where);

    /// Notes what was painted.
    void Note(const RECT& area) {
        if (!Is_Empty(area)) Include(painted, area);
    }

    /// Takes over what `source`, a context of the window, shows of a rectangle.
    void Read(const Target& source, const RECT& area);

    /// Copies a rectangle to a context of the window.
    void Copy_To(const Target& target, const RECT& area);

    /// Copies all of it into a rectangle of any context, in its logical units.
    /// @return false when nothing was copied
    bool Stretch_To(HDC target, const RECT& where);

    /// Copies what was painted to a context of the window, or to a sheet that has it inside.
    void Show(const Target& target);
    void Show(Sheet& target);

    /// Moves what the whole sheet shows up, or down when negative, by less than its height. The rows that
    /// come in hold anything. On a sheet of twice the height most moves cost next to nothing.
    void Raise(int rows);

    /// Where a place of the client area is on the pixels.
    POINT Origin() const { return {place.left, place.top - first_row}; }

  private:
    int first_row = 0;
};

/// A sheet for a rectangle, whose user counts itself in at once; null when there is no memory. The library
/// keeps a small one, which stays in the processor's cache, and a large one; nested paints get others.
Sheet* Free_Sheet(HWND window, const RECT& place);

/// Takes one user away.
void Release_Sheet(Sheet* sheet);

/// A sheet for its caller to keep; null without memory.
std::unique_ptr<Sheet> Make_Sheet(SIZE room);

/// Frees such a sheet, as soon as nobody paints on it any more.
void Retire_Sheet(std::unique_ptr<Sheet> sheet);

}  // namespace galdren
