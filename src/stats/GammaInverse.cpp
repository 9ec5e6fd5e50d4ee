// st_GammaInverse: x with P(a, x) = p (and Q(a, x) = q = 1 - p), real a > 0.
//
// Method: a start from the Wilson-Hilferty cube-root normal approximation
// (E. B. Wilson and M. M. Hilferty, Proc. Natl. Acad. Sci. 17 (1931)
// 684-688) for a of 1 or more, otherwise from the leading terms of either
// tail; then Halley steps on st_IncompleteGamma within a bracket of the root
// that every evaluation narrows, with bisection whenever a step would leave
// it. This is the scheme of W. H. Press et al., Numerical Recipes, 3rd ed.,
// 2007, 6.2 (invgammp) and of Boost.Math's gamma_p_inv, safeguarded as in
// R's nmath qgamma. The residual is taken in the smaller of p and q.
//
// Accuracy: about 1e-14 relative.
#include <algorithm>
#include <cmath>

#include "stats/Distributions.h"
#include "stats/IncompleteFunctions.h"

namespace {

constexpr int kMaxSteps = 200;
constexpr double kRelativeStop = 1e-15;

double Start(double a, double p, double q) {
    if (a >= 1.0) {
        const double z = st_NormalQuantile(q, 1e-9);  // upper-tail point at q
        const double c = 1.0 / (9.0 * a);
        const double r = 1.0 - c + z * std::sqrt(c);
        if (r > 0.0) return a * r * r * r;
    }
    const double t = 1.0 - a * (0.253 + a * 0.12);
    if (p < t) return std::pow(p / t, 1.0 / a);
    return 1.0 - std::log(q / (1.0 - t));
}

}  // namespace

double st_GammaInverse(double a, double p, double q) {
    double x = Start(a, p, q);
    if (!(x > 0.0) || !std::isfinite(x)) x = a;
    double lo = 0.0, hi = INFINITY;
    for (int i = 0; i < kMaxSteps; ++i) {
        double pp, qq;
        st_IncompleteGamma(a, x, &pp, &qq);
        const double f = p <= q ? pp - p : q - qq;
        if (f == 0.0) break;
        (f < 0.0 ? lo : hi) = x;

        const double density = std::exp(st_GammaLogKernel(a, x)) / x;
        const double u = f / density;
        const double curvature = (a - 1.0) / x - 1.0;
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
            if (hi == INFINITY) {
                next = 2.0 * x;
            } else if (lo == 0.0) {
                next = hi / 8.0;
            } else {
                next = hi > 4.0 * lo ? std::sqrt(lo * hi) : 0.5 * (lo + hi);
            }
        }
        x = next;
        if (hi - lo <= kRelativeStop * lo) break;
    }
    return x;
}
