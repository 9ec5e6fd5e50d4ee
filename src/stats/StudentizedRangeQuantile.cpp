// st_StudentizedRangeQuantile: q with P(Q > q) = p for the studentized range
// of k means with df error degrees of freedom (upper-tail convention).
//
// Method: a root of st_StudentizedRangeUpperTail, which falls from 1 at
// q = 0 to 0. The root is bracketed from q = 4 by doubling or halving, then
// found by regula falsi with the Illinois modification (M. Dowell and P.
// Jarratt, BIT 11 (1971) 168-174), which keeps the bracket and converges
// superlinearly. R's qtukey uses a plain secant step from the start of
// Lund and Lund (Appl. Statist. 32 (1983), AS 190.2); the bracket costs a few
// more evaluations and cannot step out of range.
//
// Accuracy: q to about 1e-9 relative, within that of the tail probability.
// Arguments outside 0 < p < 1, k >= 2, df >= 1 give NaN.
#include <cmath>
#include <limits>

#include "stats/Distributions.h"

namespace {

constexpr double kStart = 4.0;
constexpr int kMaxBracketSteps = 60;
constexpr int kMaxSteps = 100;
constexpr double kRelativeTolerance = 1e-10;

}  // namespace

double st_StudentizedRangeQuantile(int k, double df, double p) {
    if (!(p > 0.0 && p < 1.0) || k < 2 || !(df >= 1.0)) return std::numeric_limits<double>::quiet_NaN();

    // f(q) = tail(q) - p falls through 0 at the root.
    auto f = [&](double q) { return st_StudentizedRangeUpperTail(q, k, df) - p; };

    double lo = kStart;
    double flo = f(lo);
    double hi = lo;
    double fhi = flo;
    for (int i = 0; i < kMaxBracketSteps && flo * fhi > 0.0; ++i) {
        if (flo > 0.0) {
            lo = hi;
            flo = fhi;
            hi = 2.0 * lo;
            fhi = f(hi);
        } else {
            hi = lo;
            fhi = flo;
            lo = 0.5 * hi;
            flo = f(lo);
        }
    }
    if (flo == 0.0) return lo;
    if (fhi == 0.0) return hi;
    if (flo * fhi > 0.0) return std::numeric_limits<double>::quiet_NaN();

    int lastSide = 0;
    double q = lo;
    for (int i = 0; i < kMaxSteps; ++i) {
        q = hi - fhi * (hi - lo) / (fhi - flo);
        const double fq = f(q);
        if (fq == 0.0) return q;
        if ((fq > 0.0) == (flo > 0.0)) {
            lo = q;
            flo = fq;
            if (lastSide == -1) fhi *= 0.5;
            lastSide = -1;
        } else {
            hi = q;
            fhi = fq;
            if (lastSide == 1) flo *= 0.5;
            lastSide = 1;
        }
        if (hi - lo <= kRelativeTolerance * q) break;
    }
    return q;
}
