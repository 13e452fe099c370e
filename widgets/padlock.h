/// @file
/// The padlock on the thumb of a locked valuator.
#pragma once

namespace galdren {

/// A square picture, pixel form, rows top-down.
struct Padlock {
    int size;  ///< 0 when there is none
    const unsigned long* pixels;
};

/// The largest padlock that fits in `room` pixels.
Padlock Padlock_For(int room);

}  // namespace galdren
