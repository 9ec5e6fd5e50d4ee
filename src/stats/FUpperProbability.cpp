// st_FUpperProbability: P(F(m, n) > f), the p-value of an F ratio with m
// numerator and n denominator degrees of freedom (either may be fractional,
// as Welch's test gives).
//
// Method: P(F > f) = I_x(n/2, m/2) with x = n / (n + m f) (Abramowitz and
// Stegun, Handbook of Mathematical Functions, 1964, 26.6.2). The regularised
// incomplete beta I_x(a, b) is the continued fraction of A&S 26.5.8, evaluated
// by the modified Lentz method (I. J. Thompson and A. R. Barnett, J. Comput.
// Phys. 64 (1986) 490-509), on the side x < (a + 1)/(a + b + 2) where it
// converges fast, else through I_x(a, b) = 1 - I_(1-x)(b, a). Its prefactor
// x^a (1-x)^b / B(a, b) is taken in logarithms, with log B from Stirling's
// series differenced term by term once an argument reaches 10, so that the
// log-gammas of a sample of 10^7 never cancel.
//
// st_FUpperTail's finite series is exact for small whole degrees of freedom
// but sums terms of alternating effect: a p-value of 1e-30 comes out as
// rounding noise, and it costs n/2 terms. This one costs O(sqrt(max(m, n)))
// terms and keeps about 13 significant digits down to the underflow limit, at
// n up to 10^7 (checked against mpmath's betainc); where long double is only
// a double, about 10 digits at n = 10^7.
//
// Arguments: m, n > 0; f <= 0 gives 1, f = infinity gives 0, NaN gives NaN.
#include <cmath>
#include <limits>

#include "stats/Distributions.h"

namespace {

constexpr double kHalfLog2Pi = 0.9189385332046728;
constexpr double kStirlingFrom = 10.0;
constexpr int kMaxTerms = 1000000;
constexpr double kTiny = 1e-300;
constexpr double kEpsilon = 1e-16;

// log Gamma(z) - ((z - 1/2) log z - z + log(2 pi)/2) for z >= 10: the
// Stirling series, whose next term is below 2e-14 there.
double StirlingError(double z) {
    const double r = 1.0 / z;
    const double r2 = r * r;
    return r * (1.0 / 12 - r2 * (1.0 / 360 - r2 * (1.0 / 1260 - r2 * (1.0 / 1680 - r2 / 1188))));
}

// log B(a, b).
double LogBeta(double a, double b) {
    const double p = std::fmin(a, b);
    const double q = std::fmax(a, b);
    const double share = p / (p + q);
    if (p >= kStirlingFrom) {
        const double corr = StirlingError(p) + StirlingError(q) - StirlingError(p + q);
        return kHalfLog2Pi - 0.5 * std::log(q) + corr + (p - 0.5) * std::log(share) + q * std::log1p(-share);
    }
    if (q >= kStirlingFrom) {
        const double corr = StirlingError(q) - StirlingError(p + q);
        return std::lgamma(p) + corr + p - p * std::log(p + q) + (q - 0.5) * std::log1p(-share);
    }
    return std::lgamma(p) + std::lgamma(q) - std::lgamma(p + q);
}

// The continued fraction of A&S 26.5.8 at x, for x < (a + 1)/(a + b + 2),
// with y = 1 - x. For large a and x near 1 each step 1 + a_m d nearly cancels
// (by about a y); extended precision, where the platform has it, keeps that
// from costing more than a digit or two of a double.
long double BetaFraction(long double a, long double b, long double x, long double y) {
    long double c = 1.0L;
    // 1 - (a + b) x / (a + 1), written so that neither x near 1 nor a large b
    // cancels.
    long double d = 0.0L;
    long double h = 1.0L;
    // One Lentz step with the partial numerator t; the first has no c.
    auto step = [&](long double t, bool first) {
        d = first ? t : 1.0L + t * d;
        if (std::fabs(d) < kTiny) d = kTiny;
        d = 1.0L / d;
        if (!first) {
            c = 1.0L + t / c;
            if (std::fabs(c) < kTiny) c = kTiny;
        }
        const long double delta = d * c;
        h *= delta;
        return delta;
    };
    step(y + (1.0L - b) * x / (a + 1.0L), true);
    for (int m = 1; m <= kMaxTerms; ++m) {
        const long double m2 = 2.0L * m;
        step(m * (b - m) * x / ((a + m2 - 1.0L) * (a + m2)), false);
        const long double delta = step(-(a + m) * (a + b + m) * x / ((a + m2) * (a + m2 + 1.0L)), false);
        if (std::fabs(delta - 1.0L) < kEpsilon) break;
    }
    return h;
}

}  // namespace

double st_FUpperProbability(double m, double n, double f) {
    if (std::isnan(f) || std::isnan(m) || std::isnan(n) || m <= 0.0 || n <= 0.0)
        return std::numeric_limits<double>::quiet_NaN();
    if (f <= 0.0) return 1.0;
    if (std::isinf(f)) return 0.0;

    const double a = 0.5 * n;
    const double b = 0.5 * m;
    const long double ratio = static_cast<long double>(m) * f / n;  // y / x
    if (std::isinf(ratio)) return 0.0;
    const long double x = 1.0L / (1.0L + ratio);
    const long double y = ratio / (1.0L + ratio);
    const double logX = -std::log1p(static_cast<double>(ratio));
    const double logY = std::log(static_cast<double>(ratio)) + logX;
    // x^a y^b / B(a, b), with y = 1 - x taken from the ratio, not by subtraction.
    const double front = std::exp(a * logX + b * logY - LogBeta(a, b));
    if (x < (a + 1.0) / (a + b + 2.0)) return static_cast<double>(front * BetaFraction(a, b, x, y) / a);
    const double p = static_cast<double>(1.0L - front * BetaFraction(b, a, y, x) / b);
    return p > 0.0 ? p : 0.0;
}
