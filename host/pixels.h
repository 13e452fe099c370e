/// @file
/// Pictures as pixels: read from files, made larger and smaller, and shown by controls of the application's
/// own.
#pragma once

#include <windows.h>

#include <vector>

#include "../tools/tools.h"

/// A picture in the pixel form (see `Colors::get_invert`), as `Tools::Blit` and images of controls take it.
/// The highest byte of a pixel is its opacity, which only `Scale_Pixels` heeds.
struct Pixels {
    int width = 0;                    ///< pixels of a row; 0 of a picture that is empty
    int height = 0;                   ///< number of rows
    std::vector<unsigned long> data;  ///< `width` * `height` pixels, rows from the top down

    bool Is_Empty() const { return data.empty(); }  ///< whether there is no pixel
};

/// Reads a picture from a file, opaque all over.
/// @param file  a Targa image when its name ends with ".tga" in letters of any size, else an SGI image; in
/// the
///              code page of texts
/// @return an empty picture when it cannot be read, with the reason in errno, and reported as by
///         `IGB_Read_Image`
Pixels Read_Pixels(const char* file);

/// The largest size in a room in which a picture keeps its proportions; at least 1 x 1. Nothing for one that
/// is empty, and where there is no room.
SIZE Fit_Pixels(const Pixels& picture, SIZE room);

/// A part of a picture at another size: each pixel is the mean of what it covers.
/// @param size    of the whole picture then
/// @param part    what of that is wanted, y downward; it may reach beyond
/// @param ground  pixel of what lies beyond
/// @return a picture of the size of `part`; empty when that is empty, or there is no memory (reported at
///         level 1)
Pixels Scale_Pixels(const Pixels& picture, SIZE size, const RECT& part, unsigned long ground = 0);
/// The whole of a picture at another size.
Pixels Scale_Pixels(const Pixels& picture, SIZE size);

/// What controls of the application's own begin with that show pixels in a sunken frame.
class Pixel_Frame : public Tools {
  public:
    /// Binds the control to a window; see `Tools::Prepare`.
    void Init(HWND window) { Prepare(window); }

  protected:
    /// The size of what is inside of the frame; at least 1 x 1.
    SIZE Room() const;
    /// Where the pointer is, from the top-left corner of that room, y downward.
    POINT Pointer() const;
    /// Paints the frame, and a picture in the top-left corner of the room.
    void Paint(const Pixels& picture);

  private:
    int Rings() const;
    int Inset() const;
};
