// st_FUpperProbability: P(F(m, n) > f), the p-value of an F ratio with m
// numerator and n denominator degrees of freedom (either may be fractional,
// as Welch's test gives).
//
// Method: P(F > f) = I_x(n/2, m/2) with x = n / (n + m f) (Abramowitz and
// Stegun, Handbook of Mathematical Functions, 1964, 26.6.2), from
// st_IncompleteBeta, with 1 - x formed as m f / (n + m f) rather than by
// subtraction: at large n, x lies within 1e-6 of 1 and the subtraction would
// keep only ten digits of it.
//
// st_FUpperTail's finite series is exact for small whole degrees of freedom
// but sums terms of alternating effect: a p-value of 1e-30 comes out as
// rounding noise, and it costs n/2 terms. The incomplete beta keeps the
// smaller tail's relative precision and costs O(sqrt(max(m, n))) terms.
//
// Arguments: m, n > 0; f <= 0 gives 1, f = infinity gives 0, NaN gives NaN.
#include <cmath>
#include <limits>

#include "stats/Distributions.h"
#include "stats/IncompleteFunctions.h"

double st_FUpperProbability(double m, double n, double f) {
    if (std::isnan(f) || std::isnan(m) || std::isnan(n) || m <= 0.0 || n <= 0.0)
        return std::numeric_limits<double>::quiet_NaN();
    if (f <= 0.0) return 1.0;
    const double ratio = m * f / n;  // y / x
    if (std::isinf(ratio)) return 0.0;
    double p = 0.0, q = 0.0;
    st_IncompleteBeta(0.5 * n, 0.5 * m, 1.0 / (1.0 + ratio), ratio / (1.0 + ratio), &p, &q);
    return p;
}
