// st_ChiSquareUpperTail: P(X > x) for chi-square with df degrees of freedom
// into *tail, and the density at x as the result.
//
// Method: up to kSeriesLimit degrees of freedom, the finite series for whole
// df (Abramowitz and Stegun, Handbook of Mathematical Functions, 1964, 26.4.4
// and 26.4.5), st_ChiSquareTailSeries: from the closed form for df 1 (twice
// the normal tail at sqrt(x)) or df 2 (exp(-x/2)), add the terms 2 f(x; k + 2)
// for k rising by two. The terms are kept as logarithms, and those below
// exp(-50) are dropped, which keeps large x from underflowing.
//
// The series costs df/2 logarithms and exponentials, 1.6 s for the two
// quantiles of a standard deviation interval at 10^7 degrees of freedom.
// Above the limit the same tail is Q(df/2, x/2), taken from
// st_IncompleteGamma in about sqrt(df) terms, and the density from the same
// kernel. At the limit the two agree to about 1e-11 relative; beyond it the
// series drifts as it accumulates df/2 rounded logarithms (4e-7 at 10^7,
// 4e-6 at 10^8, where the incomplete gamma still agrees with independent
// values to 1e-14), which moves its quantiles by at most 2e-8 relative: the
// limits of the reports print alike (ChiSquareTest).
//
// Accuracy: that of st_NormalUpperTail for odd df, close to machine precision
// for even df; about 1e-13 relative above the limit.
#include <cmath>

#include "stats/Distributions.h"
#include "stats/IncompleteFunctions.h"

namespace {

constexpr double kLogHalfPi = 0.4515827052894549;
constexpr double kNegligibleLogTerm = -50.0;
// At 10^4 df a call of the series costs about 25 us, the two quantiles of an
// interval 0.25 ms; above, the incomplete gamma takes 20 to 300 us for both
// up to 10^8 df, against 0.24 s for the series at 10^7 (bench/ChiSquareBench.cpp).
constexpr int kSeriesLimit = 10000;

}  // namespace

double st_ChiSquareTailSeries(int df, double x, double* tail) {
    if (x <= 0.0) {
        *tail = 1.0;
        return 0.0;
    }
    double q;
    double logTerm;
    int k;
    if (df % 2 != 0) {
        q = 2.0 * st_NormalUpperTail(std::sqrt(x));
        logTerm = -0.5 * (std::log(x) + x + kLogHalfPi);
        k = 1;
    } else {
        q = std::exp(-x / 2.0);
        logTerm = -x / 2.0;
        k = 2;
    }
    while (k <= df - 2) {
        logTerm += std::log(x / k);
        if (logTerm - kNegligibleLogTerm > 0.0) q += std::exp(logTerm);
        k += 2;
    }
    *tail = q;
    return 0.5 * std::exp(logTerm);
}

double st_ChiSquareUpperTail(int df, double x, double* tail) {
    if (df <= kSeriesLimit || x <= 0.0) return st_ChiSquareTailSeries(df, x, tail);
    const double a = df / 2.0;
    double lower;
    st_IncompleteGamma(a, x / 2.0, &lower, tail);
    return std::exp(st_GammaLogKernel(a, x / 2.0)) / x;
}
