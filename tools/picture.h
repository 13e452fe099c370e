/// @file
/// A picture off screen: pixels in memory, with a context for text and for what an application paints.
#pragma once

#include <windows.h>

#include "tools/pixels.h"

namespace galdren {

/// Loops paint on its pixels and GDI writes text through its context, each when it is its turn. Made, used
/// and destroyed under the lock.
class Picture {
  public:
    /// Without memory it is not `Usable`.
    explicit Picture(SIZE room);
    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    bool Usable() const { return bitmap_before != nullptr; }
    SIZE Room() const { return room; }
    bool Has_Room(SIZE size) const { return size.cx <= room.cx && size.cy <= room.cy; }

    /// The pixels, once GDI has painted what it still holds back.
    const Raster& Pixels() {
        if (gdi_is_ahead) GdiFlush();
        gdi_is_ahead = false;
        return raster;
    }

    /// The context, with the font in place; null means the stock system font.
    HDC With_Font(HFONT font);
    /// The context for a text in this font and colour, in the GDI form.
    HDC With_Text(HFONT font, unsigned long color);
    /// The context for any other painting of GDI.
    HDC For_GDI() {
        gdi_is_ahead = true;
        return dc;
    }

    /// The context as the system makes it, for an application; `Take_Back` ends its use.
    /// @return what `Take_Back` needs
    int Lend();
    void Take_Back(int lent);

  private:
    friend void Put_Away_Font(HFONT gone);

    SIZE room;
    HDC dc;
    HBITMAP bitmap = nullptr;
    HGDIOBJ bitmap_before = nullptr;
    Raster raster{};
    HGDIOBJ font;
    unsigned long text_color = 0;
    bool gdi_is_ahead = false;
    Picture* next;  // of all pictures
    Picture* before = nullptr;
};

/// Takes a font off all pictures before it is deleted.
void Put_Away_Font(HFONT gone);

}  // namespace galdren
