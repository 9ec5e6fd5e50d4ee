#include <cmath>

#include "framework/Messages.h"
#include "stats/IntervalCheck.h"
#include "stats/Moments.h"
#include "stats/OnewayResult.h"

std::vector<int> oneway_Methods(const OnewayResult& result) {
    if (result.unequalVariances) return {ONEWAY_GAMES_HOWELL};
    if (result.method == ONEWAY_CLASSICAL) return {ONEWAY_TUKEY, ONEWAY_SCHEFFE, ONEWAY_BONFERRONI};
    return {result.method};
}

int oneway_Analyse(const std::vector<CMoments>& sums, OnewayResult* result) {
    OnewayResult& r = *result;
    r.comparisons.clear();
    r.graphLow = 1e20;
    r.graphHigh = -1e20;
    const std::vector<OnewayGroup> groups = oneway_Groups(sums);
    r.groups.resize(groups.size());
    for (std::size_t i = 0; i < groups.size(); ++i) r.groups[i].stats = groups[i];

    // With unequal variances Welch's conditions come first; the classical
    // table is then only descriptive and cannot fail.
    if (r.unequalVariances) {
        if (int rc = oneway_Welch(groups, r.alpha, &r.welch)) return rc;
    }
    if (int rc = oneway_Table(groups, r.alpha, &r.table)) return rc;

    // An interval from a critical value that failed is never a result.
    const double spread = r.table.msWithin;
    for (int method : oneway_Methods(r)) {
        for (const OnewayComparison& c : oneway_Compare(groups, r.table, r.alpha, method)) {
            if (!st_IntervalHolds(c.difference, spread, c.lower, c.upper)) {
                r.comparisons.clear();
                return IDS_INTERVAL_ERROR;
            }
            r.comparisons.push_back(c);
        }
    }
    for (OnewayGroupResult& g : r.groups) {
        g.halfWidth = oneway_MeanHalfWidth(g.stats, r.table, r.alpha, r.unequalVariances);
        if (!st_IntervalHolds(g.stats.mean, spread, g.stats.mean - g.halfWidth, g.stats.mean + g.halfWidth)) {
            r.comparisons.clear();
            return IDS_INTERVAL_ERROR;
        }
        r.graphLow = std::fmin(r.graphLow, g.stats.mean - g.halfWidth);
        r.graphHigh = std::fmax(r.graphHigh, g.stats.mean + g.halfWidth);
    }
    r.graphLow = std::fmin(r.graphLow, r.table.grandMean);
    r.graphHigh = std::fmax(r.graphHigh, r.table.grandMean);
    return 0;
}
