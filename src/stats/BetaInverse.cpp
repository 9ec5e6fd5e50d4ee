// st_BetaInverse: x with I_x(a, b) = p, and y = 1 - x, for real a, b > 0.
//
// Method: a start from the normal approximation of A&S 26.5.22 when a and b
// are at least 1 (Abramowitz and Stegun, Handbook of Mathematical Functions,
// 1964), otherwise from the leading power of either tail; then Halley steps
// on st_IncompleteBeta, each checked against a bracket of the root that every
// evaluation narrows, with bisection (geometric once the bracket spans
// orders of magnitude) whenever a step would leave it. This is the scheme of
// W. H. Press et al., Numerical Recipes, 3rd ed., 2007, 6.14 (invbetai) and
// of Boost.Math's ibeta_inv, safeguarded as in R's nmath qbeta.
//
// The unknown is whichever of x and y the start puts below 1/2, and the
// residual is taken in whichever of p and q is smaller, so that a root close
// to 0 or to 1 keeps its full relative precision in the small variable.
//
// Accuracy: about 1e-14 relative in the smaller of x and y.
#include <algorithm>
#include <cmath>
#include <utility>

#include "stats/Distributions.h"
#include "stats/IncompleteFunctions.h"

namespace {

constexpr int kMaxSteps = 200;
constexpr double kRelativeStop = 1e-15;

double Start(double a, double b, double p) {
    if (a >= 1.0 && b >= 1.0) {
        const double z = st_NormalQuantile(p, 1e-9);  // upper-tail point at p
        const double lambda = (z * z - 3.0) / 6.0;
        const double h = 2.0 / (1.0 / (2.0 * a - 1.0) + 1.0 / (2.0 * b - 1.0));
        const double w = z * std::sqrt(h + lambda) / h -
                         (1.0 / (2.0 * b - 1.0) - 1.0 / (2.0 * a - 1.0)) * (lambda + 5.0 / 6.0 - 2.0 / (3.0 * h));
        return a / (a + b * std::exp(2.0 * w));
    }
    // Near 0, I_x ~ x^a / (a B); near 1, 1 - I_x ~ y^b / (b B).
    const double lnB = std::lgamma(a) + std::lgamma(b) - std::lgamma(a + b);
    const double t = std::exp(a * std::log(a / (a + b)) - lnB) / a;
    const double u = std::exp(b * std::log(b / (a + b)) - lnB) / b;
    if (p < t / (t + u)) return std::pow(a * (t + u) * p, 1.0 / a);
    return 1.0 - std::pow(b * (t + u) * (1.0 - p), 1.0 / b);
}

}  // namespace

double st_BetaInverse(double a, double b, double p, double q, double* y) {
    double x = Start(a, b, p);
    const bool swapped = !(x <= 0.5);
    if (swapped) {
        std::swap(a, b);
        std::swap(p, q);
        x = 1.0 - x;
    }
    if (!(x > 0.0 && x <= 0.5)) x = 0.5;  // a start lost to rounding; the bracket finds the root

    double lo = 0.0, hi = 1.0;
    for (int i = 0; i < kMaxSteps; ++i) {
        const double w = 1.0 - x;
        double pp, qq;
        st_IncompleteBeta(a, b, x, w, &pp, &qq);
        const double f = p <= q ? pp - p : q - qq;
        if (f == 0.0) break;
        (f < 0.0 ? lo : hi) = x;

        const double density = std::exp(st_BetaLogKernel(a, b, x, w)) / (x * w);
        const double u = f / density;
        const double curvature = (a - 1.0) / x - (b - 1.0) / w;
        // Halley's correction while it is one; far from the root (where it
        // would shrink the step to nothing) Newton's step, or the bracket.
        const double uc = u * curvature;
        const double step = std::fabs(uc) < 1.0 ? u / (1.0 - 0.5 * uc) : u;
        // A step at the level of rounding ends it; taken into the bracket's
        // arithmetic it would only bounce between the ends.
        if (std::fabs(step) <= kRelativeStop * x) {
            x -= step;
            break;
        }
        double next = x - step;
        if (!(next > lo && next < hi)) {
            next = lo > 0.0 && hi > 4.0 * lo ? std::sqrt(lo * hi) : lo == 0.0 ? hi / 8.0 : 0.5 * (lo + hi);
        }
        x = next;
        if (hi - lo <= kRelativeStop * lo) break;
    }
    double w = 1.0 - x;
    if (swapped) std::swap(x, w);
    *y = w;
    return x;
}
