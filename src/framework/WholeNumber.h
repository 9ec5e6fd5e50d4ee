// Whole part of a double, cut toward zero, as x86-64's truncating conversion
// gives it: NaN and values outside the target's range give the type's minimum.
// Counts typed as reals and printed whole numbers all go through here, so a
// damaged file or an absurd entry gives a defined number instead of undefined
// behaviour.
#pragma once

#include <climits>

inline int WholeInt(double x) {
    if (!(x > -2147483649.0 && x < 2147483648.0)) return INT_MIN;
    return static_cast<int>(x);
}

inline long WholeLong(double x) {
    static_assert(sizeof(long) == 8, "printed whole numbers are 64-bit longs");
    if (!(x >= -9223372036854775808.0 && x < 9223372036854775808.0)) return LONG_MIN;
    return static_cast<long>(x);
}
