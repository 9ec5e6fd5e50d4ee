// One-way analysis of variance over k groups (one per entry of the analysis):
// the ANOVA table, Welch's test for unequal variances, and simultaneous
// comparisons of every pair of means. Free functions over per-group summaries;
// each returns 0 or a message id.
#pragma once

#include <vector>

class CMoments;

struct OnewayGroup {
    long n = 0;
    double mean = 0.0;
    double sd = 0.0;  // 0 below two observations
    double minimum = 0.0;
    double maximum = 0.0;
    double sumSqDev = 0.0;  // sum of (x - mean)^2
    // mean - the first group's mean, free of the rounding of either mean, so
    // that the spread of the means survives a large common offset.
    double meanOffset = 0.0;
};

// The groups' summaries from their accumulators (the first gives the origin
// of meanOffset).
std::vector<OnewayGroup> oneway_Groups(const std::vector<CMoments>& sums);

// The classical table. Total = Between + Within.
struct OnewayTable {
    long dfBetween = 0;  // k - 1
    long dfWithin = 0;   // N - k
    double ssBetween = 0.0;
    double ssWithin = 0.0;
    double msBetween = 0.0;
    double msWithin = 0.0;
    double f = 0.0;
    double fCritical = 0.0;  // F(alpha; k - 1, N - k)
    double pValue = 1.0;
    bool equalRejected = false;  // f above fCritical
    double grandMean = 0.0;
};

// Fewer than 2 groups: IDS_ANOVA_TWO_FILES; N - k < 1: IDS_ANOVA_NO_ERROR_DF;
// no variation within the groups (the F ratio 0/0 or x/0):
// IDS_ANOVA_NO_VARIATION.
int oneway_Table(const std::vector<OnewayGroup>& groups, double alpha, OnewayTable* table);

// Welch's test (B. L. Welch, Biometrika 38 (1951) 330-336). Its denominator
// degrees of freedom are fractional; the critical value and the p-value use
// them truncated, as the two-sample t does.
struct OnewayWelch {
    long dfBetween = 0;
    double dfWithinExact = 0.0;
    long dfWithin = 0;
    double f = 0.0;
    double fCritical = 0.0;
    double pValue = 1.0;
    bool equalRejected = false;
};

// Fewer than 2 groups: IDS_ANOVA_TWO_FILES; a group of fewer than two
// observations: IDS_ANOVA_TWO_OBSERVATIONS; a group with no spread:
// IDS_ANOVA_CONSTANT_FILE.
int oneway_Welch(const std::vector<OnewayGroup>& groups, double alpha, OnewayWelch* welch);

enum OnewayMethod : int {
    ONEWAY_CLASSICAL = -1,  // Tukey, Scheffe and Bonferroni together
    ONEWAY_TUKEY,
    ONEWAY_SCHEFFE,
    ONEWAY_BONFERRONI,
    ONEWAY_GAMES_HOWELL,
};

// One pair i < j (0-based entries) by one method: difference = mean_i - mean_j,
// the interval difference -+ halfWidth, significant when it excludes 0.
struct OnewayComparison {
    int method = ONEWAY_TUKEY;
    int i = 0;
    int j = 0;
    double difference = 0.0;
    double halfWidth = 0.0;
    double lower = 0.0;
    double upper = 0.0;
    bool significant = false;
    double critical = 0.0;  // halfWidth / se: q / sqrt(2), sqrt((k - 1) F) or t
    double q = 0.0;         // Tukey and Games-Howell: the studentized range point
    bool qFromTable = false;
    long df = 0;  // error degrees of freedom of the critical value
};

// q(alpha; k, df) from the table where it has the level (0.01, 0.05, 0.10),
// k (up to 10) and df; otherwise from the studentized range distribution.
double oneway_RangePoint(int k, long df, double alpha, bool* fromTable);

// Every pair by the method; the pooled methods read the table's MSW and N - k.
std::vector<OnewayComparison> oneway_Compare(const std::vector<OnewayGroup>& groups, const OnewayTable& table,
                                             double alpha, int method);

// Half-width of a group mean's interval: pooled, t(alpha/2; N - k) sqrt(MSW / n);
// with unequal variances its own, t(alpha/2; n - 1) sd / sqrt(n).
double oneway_MeanHalfWidth(const OnewayGroup& group, const OnewayTable& table, double alpha, bool unequal);
