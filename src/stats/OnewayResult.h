// What a one-way analysis of variance finds: the groups with their summaries,
// the table (or Welch's test), the comparisons and the chart's range. The
// report, the chart and the results for scripts all read this record.
#pragma once

#include <string>
#include <vector>

#include "stats/Oneway.h"

class CMoments;

struct OnewayGroupResult {
    std::string file;  // the path as entered
    std::string reps;  // the treatment text ("", "All", "Lumped", "3")
    int treatment = 1;
    std::string ident;  // the identifier the report and chart show
    OnewayGroup stats;
    double halfWidth = 0.0;  // of the mean's interval on the chart
};

struct OnewayResult {
    // Parameters.
    std::string title;
    double alpha = 0.05;
    bool unequalVariances = false;  // Welch's test and Games-Howell intervals
    int method = ONEWAY_CLASSICAL;  // or one of Tukey, Scheffe, Bonferroni

    // Results.
    std::vector<OnewayGroupResult> groups;
    OnewayTable table;  // with unequal variances its F, critical value and
                        // p-value are not the test's; welch holds those
    OnewayWelch welch;
    std::vector<OnewayComparison> comparisons;  // by method, then pair
    double graphLow = 1e20;
    double graphHigh = -1e20;
};

// The methods a result's comparisons use, in report order.
std::vector<int> oneway_Methods(const OnewayResult& result);

// Fills the groups' summaries from sums (one per group, in order, the groups'
// names already set) and computes everything else from the parameters.
// 0 or a message id; on a message the result holds no comparisons.
int oneway_Analyse(const std::vector<CMoments>& sums, OnewayResult* result);
