// What the interval charts draw: one vertical interval per file (or pair) on a
// common value axis, its estimate marked, and for the observation intervals
// the minimum and maximum beside it. The analyses' views hand their results
// over in this form.
#pragma once

#include <string>
#include <vector>

#include "framework/DC.h"

struct IntervalItem {
    std::string name;
    double estimate = 0.0;
    double lower = 0.0;
    double upper = 0.0;
    double minimum = 0.0;
    double maximum = 0.0;
    bool extremes = false;  // minimum and maximum are shown
};

struct IntervalChart {
    std::vector<IntervalItem> items;
    double low = 1e20;    // the document's graph range
    double high = -1e20;
    std::string title;
    std::string estimateLabel;  // "Avg", "Diff", "Ratio"
    std::string legend;         // "95% CL"
    bool hasReference = false;  // a line at the value the test compares with
    double reference = 0.0;
    bool scale = false;         // a numeric scale on the value axis
};

// "95% CL": the level in whole percent, (1 - alpha) x 100 to the nearest.
std::string chart_LegendText(double alpha);

// Draws the chart into the plot area laid out in g_Layout.
void chart_DrawIntervals(CDC& dc, const IntervalChart& chart);
