// st_NormalQuantile: z with P(Z > z) = p for the standard normal.
//
// Method: a closed-form start from the logarithm of 4q(1 - q) (a rational fit
// of the normal quantile in the style of Hastings, Approximations for Digital
// Computers, 1955), good to about 1e-3, then at most ten steps that solve the
// second-order Taylor expansion of Q(z) - q in the step (Halley-type,
// cubically convergent) using st_NormalUpperTail.
//
// Accuracy: the loop stops once a step is no larger than tol; since the last
// step has already been applied, the result is usually good to 1e-9 or better
// for tol = 0.001. p must lie strictly between 0 and 1.
#include <cmath>

#include "stats/Distributions.h"

namespace {

constexpr double kInvSqrtTwoPi = 0.3989422804014327;
constexpr int kMaxSteps = 10;

}  // namespace

double st_NormalQuantile(double p, double tol) {
    if (p == 0.5) return 0.0;
    const double q = p < 0.5 ? p : 1.0 - p;

    const double y = -std::log(4.0 * q * (1.0 - q));
    double z = std::sqrt(y * (2.0611786 - 5.7262204 / (y + 11.640595)));

    for (int step = 0; step < kMaxSteps; ++step) {
        const double phi = kInvSqrtTwoPi * std::exp(-0.5 * z * z);
        const double dphi = -z * phi;
        const double r = q - st_NormalUpperTail(z);
        const double d = phi * phi - 2.0 * r * dphi;
        // The root of r + phi h + (phi'/2) h^2 = 0 nearer zero, written so that
        // it does not cancel; without a real root fall back to the extremum.
        const double h = d > 0.0 ? 2.0 * r / (-phi - std::sqrt(d)) : -phi / dphi;
        z += h;
        if (std::fabs(h) - tol <= 0.0) break;
    }
    return p > 0.5 ? -z : z;
}
