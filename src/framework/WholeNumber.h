// Whole part of a double, cut toward zero, as x86-64's truncating conversion
// gives it: NaN and values outside the target's range give the type's minimum.
// Counts typed as reals and printed whole numbers all go through here, so a
// damaged file or an absurd entry gives a defined number instead of undefined
// behaviour.
#pragma once

#include <climits>
#include <limits>

inline int WholeInt(double x) {
    if (!(x > -2147483649.0 && x < 2147483648.0)) return INT_MIN;
    return static_cast<int>(x);
}

// Reports print these with %ld: 64 bits on Linux and macOS, 32 on Windows.
inline long WholeLong(double x) {
    constexpr double kLimit = static_cast<double>(1ULL << std::numeric_limits<long>::digits);
    if (!(x >= -kLimit && x < kLimit)) return LONG_MIN;
    return static_cast<long>(x);
}
