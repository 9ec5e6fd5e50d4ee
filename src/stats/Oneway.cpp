// The one-way ANOVA table and Welch's test.
//
// Between-group sums are taken from each group's mean offset from the first
// group's mean (exact to rounding of the offset itself) rather than from the
// rounded means: on data at 10^9 the means carry only about seven digits of
// their differences, the offsets all sixteen. Within-group sums come from the
// groups' own centred sums of squares.
#include "stats/Oneway.h"

#include <climits>
#include <cmath>

#include "framework/Messages.h"
#include "stats/Distributions.h"
#include "stats/Moments.h"

namespace {

int ClampDf(long df) { return df > INT_MAX ? INT_MAX : static_cast<int>(df); }

}  // namespace

std::vector<OnewayGroup> oneway_Groups(const std::vector<CMoments>& sums) {
    std::vector<OnewayGroup> groups;
    if (sums.empty()) return groups;
    const double origin = sums[0].Mean();
    for (const CMoments& s : sums) {
        OnewayGroup g;
        g.n = s.Count();
        g.mean = s.Mean();
        g.sd = std::sqrt(s.Variance());
        g.minimum = s.Min();
        g.maximum = s.Max();
        g.sumSqDev = s.SumSqDev();
        g.meanOffset = s.MeanFrom(origin);
        groups.push_back(g);
    }
    return groups;
}

int oneway_Table(const std::vector<OnewayGroup>& groups, double alpha, OnewayTable* table) {
    *table = OnewayTable();
    const long k = static_cast<long>(groups.size());
    if (k < 2) return IDS_ANOVA_TWO_FILES;
    long total = 0;
    long double offsetSum = 0.0L;
    long double ssWithin = 0.0L;
    for (const OnewayGroup& g : groups) {
        total += g.n;
        offsetSum += static_cast<long double>(g.n) * g.meanOffset;
        ssWithin += g.sumSqDev;
    }
    if (total - k < 1) return IDS_ANOVA_NO_ERROR_DF;
    const long double grandOffset = offsetSum / total;
    long double ssBetween = 0.0L;
    for (const OnewayGroup& g : groups) {
        const long double d = g.meanOffset - grandOffset;
        ssBetween += g.n * d * d;
    }

    OnewayTable& t = *table;
    t.dfBetween = k - 1;
    t.dfWithin = total - k;
    t.ssBetween = static_cast<double>(ssBetween);
    t.ssWithin = static_cast<double>(ssWithin);
    t.msBetween = t.ssBetween / t.dfBetween;
    t.msWithin = t.ssWithin / t.dfWithin;
    t.grandMean = static_cast<double>(groups[0].mean + grandOffset);
    if (t.msWithin == 0.0) return IDS_ANOVA_NO_VARIATION;
    t.f = t.msBetween / t.msWithin;
    t.fCritical = st_FQuantile(ClampDf(t.dfBetween), ClampDf(t.dfWithin), alpha);
    t.pValue = st_FUpperProbability(t.dfBetween, t.dfWithin, t.f);
    t.equalRejected = t.f > t.fCritical;
    return 0;
}

int oneway_Welch(const std::vector<OnewayGroup>& groups, double alpha, OnewayWelch* welch) {
    *welch = OnewayWelch();
    const long k = static_cast<long>(groups.size());
    if (k < 2) return IDS_ANOVA_TWO_FILES;
    for (const OnewayGroup& g : groups) {
        if (g.n < 2) return IDS_ANOVA_TWO_OBSERVATIONS;
        if (!(g.sumSqDev > 0.0)) return IDS_ANOVA_CONSTANT_FILE;
    }
    // Weights n / s^2 and the weighted mean of the offsets.
    std::vector<double> weight;
    long double weightSum = 0.0L;
    long double weightedOffset = 0.0L;
    for (const OnewayGroup& g : groups) {
        const double w = static_cast<double>(g.n) * (g.n - 1) / g.sumSqDev;
        weight.push_back(w);
        weightSum += w;
        weightedOffset += w * static_cast<long double>(g.meanOffset);
    }
    const long double centre = weightedOffset / weightSum;
    long double spread = 0.0L;
    long double lambda = 0.0L;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const long double d = groups[i].meanOffset - centre;
        spread += weight[i] * d * d;
        const long double share = 1.0L - weight[i] / weightSum;
        lambda += share * share / (groups[i].n - 1);
    }
    const double kk = static_cast<double>(k);
    OnewayWelch& w = *welch;
    w.dfBetween = k - 1;
    w.f = static_cast<double>(spread / (k - 1) / (1.0L + 2.0L * (kk - 2.0) * lambda / (kk * kk - 1.0)));
    w.dfWithinExact = static_cast<double>((kk * kk - 1.0) / (3.0L * lambda));
    w.dfWithin = w.dfWithinExact >= static_cast<double>(INT_MAX) ? INT_MAX : static_cast<long>(w.dfWithinExact);
    w.fCritical = st_FQuantile(ClampDf(w.dfBetween), ClampDf(w.dfWithin), alpha);
    w.pValue = st_FUpperProbability(w.dfBetween, w.dfWithin, w.f);
    w.equalRejected = w.f > w.fCritical;
    return 0;
}
