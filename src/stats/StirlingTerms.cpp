// The logarithmic kernels of the incomplete beta and gamma functions,
// x^a y^b / B(a, b) and x^a e^-x / Gamma(a), in a form that stays accurate
// when the parameters run into the millions.
//
// Method: written directly, a ln x + b ln y - ln B(a, b) subtracts numbers of
// size a ln a from each other and keeps only about 16 - log10(a ln a) digits.
// Instead Stirling's series is taken out of every log-gamma, which leaves
//   ln(x^a y^b / B) = -a d(e_a) - b d(e_b) + ln(ab / (2 pi (a + b)))/2
//                     - (r(a) + r(b) - r(a + b)),
// with x0 = a/(a + b), e_a = x/x0 - 1, e_b = y/(1 - x0) - 1,
// d(e) = e - ln(1 + e) and r the remainder of Stirling's series; likewise
//   ln(x^a e^-x / Gamma(a)) = ln(a / (2 pi))/2 - r(a) - a d(x/a - 1).
// Every term is now of the size of the result. d is summed as a series in e
// where e is small, and otherwise taken from the ratio 1 + e formed directly
// (x/x0 far below 1 is not 1 plus a number near -1). This is the form of
// A. R. DiDonato and A. H. Morris, Algorithm 708, ACM TOMS 18 (1992) 360-373
// (brcomp), as R's nmath uses it; the remainder is the asymptotic series
// 1/(12z) - 1/(360z^3) + ... (Abramowitz and Stegun, Handbook of
// Mathematical Functions, 1964, 6.1.41) from z = 15 on, lgamma below.
//
// Accuracy: a few units in 1e-15 absolute in the logarithm.
#include <cmath>

#include "stats/IncompleteFunctions.h"

namespace {

constexpr double kHalfLogTwoPi = 0.91893853320467274178;
constexpr double kTwoPi = 6.28318530717958647693;
constexpr double kSeriesFrom = 15.0;  // next Stirling term below 1e-16 here

}  // namespace

double st_Log1pDeviation(double e, double ratio) {
    if (std::fabs(e) > 0.1) return e - std::log(ratio);
    // e^2 (1/2 - e/3 + e^2/4 - ...)
    double sum = 0.0, power = 1.0;
    for (int k = 2; k < 40; ++k) {
        const double term = power / k;
        sum += term;
        if (std::fabs(term) <= 1e-17 * std::fabs(sum)) break;
        power *= -e;
    }
    return e * e * sum;
}

double st_StirlingRemainder(double z) {
    if (z < kSeriesFrom) return std::lgamma(z) - ((z - 0.5) * std::log(z) - z + kHalfLogTwoPi);
    const double w = 1.0 / (z * z);
    return (1.0 / 12.0 -
            w * (1.0 / 360.0 - w * (1.0 / 1260.0 - w * (1.0 / 1680.0 - w * (1.0 / 1188.0 - w * 691.0 / 360360.0))))) /
           z;
}

double st_BetaLogKernel(double a, double b, double x, double y) {
    if (x <= 0.0 || y <= 0.0) return -INFINITY;
    // lambda = a - (a + b) x = (a + b) y - b, from whichever of x, y is small.
    const double lambda = x <= 0.5 ? a - (a + b) * x : (a + b) * y - b;
    const double spread = a * st_Log1pDeviation(-lambda / a, x * (a + b) / a) +
                          b * st_Log1pDeviation(lambda / b, y * (a + b) / b);
    const double remainder = st_StirlingRemainder(a) + st_StirlingRemainder(b) - st_StirlingRemainder(a + b);
    return 0.5 * std::log(a * b / (kTwoPi * (a + b))) - spread - remainder;
}

double st_GammaLogKernel(double a, double x) {
    if (x <= 0.0) return -INFINITY;
    return 0.5 * std::log(a / kTwoPi) - st_StirlingRemainder(a) - a * st_Log1pDeviation((x - a) / a, x / a);
}
