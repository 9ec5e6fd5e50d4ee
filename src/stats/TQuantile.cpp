// st_TQuantile: t with P(T > t) = p for Student t with df degrees of freedom.
//
// Method: through the beta form, since t^2 with df degrees of freedom is
// F(1, df): x = I^-1(df/2, 1/2) at 2p from st_FBetaQuantile, then
// t = sqrt(df (1 - x) / x). Closed forms for df 1 and 2; the Cornish-Fisher
// start and refinement otherwise (see st_FBetaQuantile).
//
// Accuracy: about six significant digits at every level and degree of
// freedom, through st_FBetaQuantile. An inner root of exactly 0 gives
// kQuantileFailure, the one defined failure result.
#include <cmath>

#include "stats/Distributions.h"

namespace {

double TQuantileOn(FTail tail, int df, double p) {
    double y;
    const double x = st_FBetaQuantileOn(tail, df, 1, 2.0 * p, kTQuantileTolerance, &y);
    if (x == 0.0) return kQuantileFailure;
    const double t = std::sqrt(df * y / x);
    return p > 0.5 ? -t : t;
}

}  // namespace

double st_TQuantile(int df, double p) { return TQuantileOn(st_FUpperTail, df, p); }

double st_TQuantileBySeries(int df, double p) { return TQuantileOn(st_FTailSeries, df, p); }
