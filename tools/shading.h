/// @file
/// The shading of bodies, shared by all controls of equal size, border and colour.
#pragma once

namespace galdren {

/// What a shading buffer depends on.
struct Shading {
    int width;            ///< at least 1
    int height;           ///< at least 1
    int border;           ///< not negative
    unsigned long color;  ///< pixel form

    bool operator<(const Shading& other) const;
};

/// Makes the buffer for its caller alone. Null when the memory cannot be had, or would be more than any
/// display needs.
unsigned long* Make_Shading(const Shading& shading);

/// The buffer shared by all holders; null as for `Make_Shading`.
unsigned long* Acquire_Shading(const Shading& shading);

}  // namespace galdren
