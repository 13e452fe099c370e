/// @file
/// An icon in memory.
#pragma once

namespace galdren {

/// One icon in memory, rows top-down. A file that could not be read leaves an entry without pixels.
struct Icon_Entry {
    char* name;              ///< as it was asked for
    unsigned short width;    ///< pixels per row
    unsigned short height;   ///< number of rows
    unsigned long* pixels;   ///< blue in the low byte, then green, red and the weight, 255 opaque
    unsigned long* swapped;  ///< the same with red in the low byte and blue in the third
};

}  // namespace galdren
