/// @file
/// The shading of bodies, shared by all controls of equal size, border and colour.
#pragma once

namespace galdren {

/// The frame around a body.
enum class Frame_Look : unsigned char { None, Raised, Sunken };

/// What a shading buffer depends on.
struct Shading {
    int width;                  ///< at least 1
    int height;                 ///< at least 1
    int border;                 ///< not negative
    unsigned long color;        ///< of the body, pixel form
    Frame_Look frame;           ///< of the picture made beside the buffer
    unsigned long frame_color;  ///< pixel form; 0 without a frame

    bool operator<(const Shading& other) const;
};

/// Makes the buffer for its caller alone. Null when the memory cannot be had, or would be more than any
/// display needs.
unsigned long* Make_Shading(const Shading& shading);

/// The buffer shared by all holders; null as for `Make_Shading`.
unsigned long* Acquire_Shading(const Shading& shading);

/// What a buffer from `Acquire_Shading` was made for; null for any other.
const Shading* Made_For(const void* buffer);

/// Body and frame as one picture of (width + 1) x (height + 1) pixels, rows top-down, rim included.
/// @param buffer  a buffer from `Acquire_Shading`, or any other
/// @param wanted  the frame it has to show; the colour of the body does not count
/// @return null when none was made with this buffer
const unsigned long* Framed_Picture(const unsigned long* buffer, const Shading& wanted);

}  // namespace galdren
