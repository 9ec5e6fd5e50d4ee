// Simultaneous intervals for every difference of two means, mean_i - mean_j,
// with se = sqrt(MSW (1/n_i + 1/n_j)) from the pooled within-group variance:
//  - Tukey-Kramer: half-width q(alpha; k, N - k) / sqrt(2) se (C. Y. Kramer,
//    Biometrics 12 (1956) 307-310, for unequal sizes; conservative there,
//    A. J. Hayter, Ann. Statist. 12 (1984) 61-75);
//  - Scheffe: sqrt((k - 1) F(alpha; k - 1, N - k)) se;
//  - Bonferroni: t(alpha / (2m); N - k) se over the m = k(k - 1)/2 pairs.
// With unequal variances, Games-Howell (P. A. Games and J. F. Howell,
// J. Educ. Statist. 1 (1976) 113-125): se = sqrt(s_i^2/n_i + s_j^2/n_j) and
// q at the pair's Welch-Satterthwaite degrees of freedom, truncated to a whole
// number as the two-sample t truncates them.
//
// The studentized range table holds three levels to two decimals. The level
// is matched within 1e-9, since 1 - 0.95 is not the double 0.05; anything
// the table lacks is computed from the distribution.
#include <climits>
#include <cmath>
#include <map>
#include <utility>

#include "stats/Distributions.h"
#include "stats/Oneway.h"

namespace {

constexpr double kTableLevels[] = {0.01, 0.05, 0.10};
constexpr double kLevelMatch = 1e-9;
constexpr int kTableMaxMeans = 10;

int ClampDf(long df) { return df > INT_MAX ? INT_MAX : static_cast<int>(df); }

OnewayComparison Interval(int method, int i, int j, double difference, double halfWidth) {
    OnewayComparison c;
    c.method = method;
    c.i = i;
    c.j = j;
    c.difference = difference;
    c.halfWidth = halfWidth;
    c.lower = difference - halfWidth;
    c.upper = difference + halfWidth;
    c.significant = c.lower > 0.0 || c.upper < 0.0;
    return c;
}

}  // namespace

double oneway_RangePoint(int k, long df, double alpha, bool* fromTable) {
    *fromTable = false;
    if (k <= kTableMaxMeans && df >= 1) {
        for (double level : kTableLevels) {
            if (std::fabs(alpha - level) < kLevelMatch) {
                const double q = LookupStudentizedRange(k - 1, ClampDf(df), level);
                if (q > 0.0) {
                    *fromTable = true;
                    return q;
                }
            }
        }
    }
    return st_StudentizedRangeQuantile(k, static_cast<double>(df), alpha);
}

std::vector<OnewayComparison> oneway_Compare(const std::vector<OnewayGroup>& groups, const OnewayTable& table,
                                             double alpha, int method) {
    std::vector<OnewayComparison> out;
    const int k = static_cast<int>(groups.size());
    if (k < 2) return out;
    const int df = ClampDf(table.dfWithin);
    const double pairs = 0.5 * k * (k - 1.0);

    // The pooled methods share one critical value.
    double factor = 0.0;
    bool fromTable = false;
    double q = 0.0;
    if (method == ONEWAY_TUKEY) {
        q = oneway_RangePoint(k, table.dfWithin, alpha, &fromTable);
        factor = q / std::sqrt(2.0);
    } else if (method == ONEWAY_SCHEFFE) {
        factor = std::sqrt((k - 1.0) * st_FQuantile(k - 1, df, alpha));
    } else if (method == ONEWAY_BONFERRONI) {
        factor = st_TQuantile(df, alpha / (2.0 * pairs));
    }

    // Games-Howell pairs often share their truncated df; a computed point
    // costs some thousand range integrals.
    std::map<long, std::pair<double, bool>> points;
    for (int i = 0; i < k; ++i) {
        for (int j = i + 1; j < k; ++j) {
            const OnewayGroup& a = groups[i];
            const OnewayGroup& b = groups[j];
            const double difference = a.meanOffset - b.meanOffset;
            if (method != ONEWAY_GAMES_HOWELL) {
                const double se = std::sqrt(table.msWithin * (1.0 / a.n + 1.0 / b.n));
                OnewayComparison c = Interval(method, i, j, difference, factor * se);
                c.critical = factor;
                c.q = q;
                c.qFromTable = fromTable;
                c.df = table.dfWithin;
                out.push_back(c);
                continue;
            }
            const double va = a.sumSqDev / (a.n - 1.0) / a.n;
            const double vb = b.sumSqDev / (b.n - 1.0) / b.n;
            const double v = va + vb;
            const double dfExact = v * v / (va * va / (a.n - 1.0) + vb * vb / (b.n - 1.0));
            // NaN only when both samples are constant, which Welch's test refuses.
            const long dfPair = !(dfExact >= 1.0) ? 1 : dfExact >= INT_MAX ? INT_MAX : static_cast<long>(dfExact);
            auto known = points.find(dfPair);
            if (known == points.end()) {
                bool table = false;
                const double point = oneway_RangePoint(k, dfPair, alpha, &table);
                known = points.emplace(dfPair, std::make_pair(point, table)).first;
            }
            const double qPair = known->second.first;
            const bool pairFromTable = known->second.second;
            OnewayComparison c = Interval(method, i, j, difference, qPair / std::sqrt(2.0) * std::sqrt(v));
            c.critical = qPair / std::sqrt(2.0);
            c.q = qPair;
            c.qFromTable = pairFromTable;
            c.df = dfPair;
            out.push_back(c);
        }
    }
    return out;
}

double oneway_MeanHalfWidth(const OnewayGroup& group, const OnewayTable& table, double alpha, bool unequal) {
    if (unequal) {
        if (group.n < 2) return 0.0;
        const long df = group.n - 1;
        return st_TQuantile(ClampDf(df), alpha / 2.0) * group.sd / std::sqrt(static_cast<double>(group.n));
    }
    return st_TQuantile(ClampDf(table.dfWithin), alpha / 2.0) * std::sqrt(table.msWithin / group.n);
}
