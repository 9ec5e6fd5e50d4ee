// st_ChiSquareUpperTail: P(X > x) for chi-square with df degrees of freedom
// into *tail, and the density at x as the result.
//
// Method: the finite series for whole df (Abramowitz and Stegun, Handbook of
// Mathematical Functions, 1964, 26.4.4 and 26.4.5): from the closed form for
// df 1 (twice the normal tail at sqrt(x)) or df 2 (exp(-x/2)), add the terms
// 2 f(x; k + 2) for k rising by two. The terms are kept as logarithms, and
// those below exp(-50) are dropped, which keeps large x from underflowing.
//
// Accuracy: that of st_NormalUpperTail for odd df, close to machine precision
// for even df; df/2 terms.
#include <cmath>

#include "stats/Distributions.h"

namespace {

constexpr double kLogHalfPi = 0.4515827052894549;
constexpr double kNegligibleLogTerm = -50.0;

}  // namespace

double st_ChiSquareUpperTail(int df, double x, double* tail) {
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
