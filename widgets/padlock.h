/// @file
/// The padlock on the thumb of a locked valuator.
#pragma once

namespace galdren {

/// A square picture, rows top-down.
struct Padlock {
    static constexpr int Largest = 16;
    int size;  ///< 0 when there is none
    const unsigned char* greys;
};

/// The largest padlock that fits in `room` pixels.
Padlock Padlock_For(int room);

}  // namespace galdren
