// st_FQuantile: F with P(F(m, n) > F) = p, m numerator and n denominator
// degrees of freedom.
//
// Method: the beta form x = n / (n + m F), whose upper tail in F is
// I_x(n/2, m/2) (Abramowitz and Stegun, Handbook of Mathematical Functions,
// 1964, 26.6.2); x from st_FBetaQuantile with the denominator first, then
// F = (1 - x) n / (x m).
//
// Accuracy: about six significant digits at the usual levels.
#include "stats/Distributions.h"

double st_FQuantile(int m, int n, double p) {
    const double x = st_FBetaQuantile(n, m, p, kFQuantileTolerance);
    return (1.0 - x) * n / (x * m);
}
