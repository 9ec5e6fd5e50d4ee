// st_FQuantile: F with P(F(m, n) > F) = p, m numerator and n denominator
// degrees of freedom.
//
// Method: the beta form x = n / (n + m F), whose upper tail in F is
// I_x(n/2, m/2) (Abramowitz and Stegun, Handbook of Mathematical Functions,
// 1964, 26.6.2); x from st_FBetaQuantile with the denominator first, then
// F = (1 - x) n / (x m).
//
// Accuracy: about six significant digits at every level and degree of
// freedom (st_FBetaQuantile falls back on the exact inverse where its
// iteration does not hold); 1 - x comes with x, so that an x close to 1 does
// not cost F its digits.
#include "stats/Distributions.h"

double st_FQuantile(int m, int n, double p) {
    double y;
    const double x = st_FBetaQuantile(n, m, p, kFQuantileTolerance, &y);
    return y * n / (x * m);
}
