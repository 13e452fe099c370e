/// @file
/// Conversions that are defined for every input.
#pragma once

#include <algorithm>

namespace galdren {

/// `value` truncated toward zero, held within the range of int; 0 for NaN.
inline int Truncate(double value) {
    constexpr double Lowest = -2147483648.0;
    constexpr double Highest = 2147483647.0;
    if (!(value > Lowest)) return value <= Lowest ? -2147483647 - 1 : 0;
    return value < Highest ? static_cast<int>(value) : 2147483647;
}

/// The low 16 bits of `value`.
inline short Low_16(int value) { return static_cast<short>(value); }

/// `value` held within 16 bits.
inline short Within_16(int value) { return static_cast<short>(std::clamp(value, -32768, 32767)); }

/// `value` without its sign; the widest range keeps the most negative 16-bit number in range.
inline int Magnitude(short value) { return value < 0 ? -int{value} : int{value}; }

}  // namespace galdren
