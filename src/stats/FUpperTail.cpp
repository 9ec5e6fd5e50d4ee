// st_FUpperTail: the regularised incomplete beta function I_x(a/2, b/2) for
// whole a and b, and its density, as used for the upper tail of F.
//
// Method: the exact finite series for integer degrees of freedom (Abramowitz
// and Stegun, Handbook of Mathematical Functions, 1964, 26.6.4 to 26.6.8):
// start from the closed form for a and b of 1 or 2 by parity, raise the first
// parameter two at a time, then the second. The running term ends as the
// density times x(1 - x), so the density comes for free.
//
// Accuracy: close to machine precision for moderate degrees of freedom; the
// alternating sum loses digits as a and b grow into the thousands. Costs
// (a + b)/2 terms, each a chain of two products and a division: 60 ms for a
// t quantile at 10^7 degrees of freedom. Above kSeriesLimit the same function
// comes from st_IncompleteBeta in a few hundred terms at most; at the limit
// the two agree to about 1e-13 relative, and the quantiles found on either
// print alike (TQuantileTest). x must lie in (0, 1); a and b at least 1.
#include <cmath>

#include "stats/Distributions.h"
#include "stats/IncompleteFunctions.h"

namespace {

constexpr double kTwoOverPi = 0.6366197723675814;
constexpr double kOneOverPi = 0.3183098861837907;
constexpr int kSeriesLimit = 10000;

}  // namespace

double st_FUpperTail(int a, int b, double x, double* prob) {
    if (a <= kSeriesLimit - b) return st_FTailSeries(a, b, x, prob);
    const double y = 1.0 - x;
    double q;
    st_IncompleteBeta(a / 2.0, b / 2.0, x, y, prob, &q);
    return std::exp(st_BetaLogKernel(a / 2.0, b / 2.0, x, y)) / (x * y);
}

double st_FTailSeries(int a, int b, double x, double* prob) {
    const double s = std::sqrt(1.0 - x);
    const int i0 = a % 2 == 0 ? 2 : 1;
    const int j0 = b % 2 == 0 ? 2 : 1;

    double p;
    double t;
    if (j0 == 1) {
        if (i0 == 2) {
            p = 1.0 - s;
            t = 0.5 * x * s;
        } else {
            p = 1.0 - kTwoOverPi * std::atan(s / std::sqrt(x));
            t = std::sqrt(x) * s * kOneOverPi;
        }
    } else {
        if (i0 == 2) {
            p = x;
            t = x * (1.0 - x);
        } else {
            p = std::sqrt(x);
            t = 0.5 * std::sqrt(x) * (1.0 - x);
        }
    }

    for (int i = i0; i <= a - 2; i += 2) {
        p -= (2.0 / i) * t;
        t = t * x * (i + j0) / i;
    }
    for (int j = j0; j <= b - 2; j += 2) {
        p += (2.0 / j) * t;
        t = t * (1.0 - x) * (a + j) / j;
    }
    *prob = p;
    return t / (x * (1.0 - x));
}
