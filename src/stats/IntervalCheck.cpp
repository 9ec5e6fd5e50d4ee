#include "stats/IntervalCheck.h"

#include <cmath>

bool st_IntervalHolds(double estimate, double spread, double lower, double upper) {
    if (!std::isfinite(estimate) || !std::isfinite(spread)) return true;
    return std::isfinite(lower) && std::isfinite(upper) && lower <= upper;
}
