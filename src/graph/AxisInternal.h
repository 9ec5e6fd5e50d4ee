// Helpers shared by the axis machinery's source files.
#pragma once

#include <cstdint>

// Truncates to the 16-bit device range; not-a-number gives 0.
std::int16_t axis_To16(double v);
