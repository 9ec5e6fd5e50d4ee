// Helpers shared by the axis machinery's source files.
#pragma once

#include <cstdint>

// Truncates to the 16-bit device range; not-a-number gives 0. Inline: the
// plot maps every point through it.
inline std::int16_t axis_To16(double v) {
    if (!(v == v)) return 0;
    if (v > 32767.0) return 32767;
    if (v < -32768.0) return -32768;
    return static_cast<std::int16_t>(v);  // the conversion cuts toward zero
}
