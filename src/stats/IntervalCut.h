// Whole part of a double as x86-64's truncating conversion gives it: NaN and
// values outside the target's range give the type's minimum.
#pragma once

#include <climits>
#include <cmath>

inline int intrvl_CutInt(double x) {
    if (!(x > -2147483649.0 && x < 2147483648.0)) return INT_MIN;
    return static_cast<int>(x);
}

inline long intrvl_CutLong(double x) {
    if (!(x >= -9223372036854775808.0 && x < 9223372036854775808.0)) return LONG_MIN;
    return static_cast<long>(x);
}
