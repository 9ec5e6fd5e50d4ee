// The interval charts and the correlogram, drawn from results set by hand.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "GraphTestUtil.h"
#include "series/CorrView.h"
#include "stats/IntrvlView.h"
#include "stats/PairViews.h"
#include "series/StdIntView.h"
#include "series/CorrDoc.h"
#include "stats/ComprDoc.h"

namespace {

TEST(IntervalChart, LegendIsTheLevelInWholePercent) {
    EXPECT_EQ(chart_LegendText(0.05), "95% CL");
    EXPECT_EQ(chart_LegendText(0.10), "90% CL");
    EXPECT_EQ(chart_LegendText(0.005), "100% CL");  // 99.5 rounds up
    EXPECT_EQ(chart_LegendText(0.985), " 2% CL");   // "%2ld"
}

// Results of two files: (average, s, lower, upper, min, max) and one row
// without observations.
IntervalResults TwoRows() {
    IntervalResults r;
    r.rows.resize(3);
    r.rows[0] = {"a", 1, 5.0, 1.0, 0.0, 4.0, 6.0, 0.0, 10.0, 0.0, 5, true};
    r.rows[1] = {"empty", 1};
    r.rows[2] = {"b", 1, 3.0, 2.0, 0.0, 2.5, 4.0, 92.0, 93.0, 0.0, 5, true};
    r.graphLow = 0.0;
    r.graphHigh = 10.0;
    return r;
}

TEST(IntervalChart, ViewsTakeTheComputedRows) {
    CIntrvlView mean;
    mean.SetResults(TwoRows(), 0.05, false);
    ASSERT_EQ(mean.m_chart.items.size(), 2u);
    EXPECT_EQ(mean.m_chart.items[1].name, "b");
    EXPECT_EQ(mean.m_chart.items[1].estimate, 3.0);
    EXPECT_EQ(mean.m_chart.items[1].minimum, 92.0);
    EXPECT_TRUE(mean.m_chart.items[1].extremes);
    EXPECT_EQ(mean.m_chart.title, "Observation Intervals");
    // The standard deviation's chart marks s within its limits, without extremes.
    CSdIntView sd;
    sd.SetResults(TwoRows(), 0.05, false);
    EXPECT_EQ(sd.m_chart.items[1].estimate, 2.0);
    EXPECT_EQ(sd.m_chart.items[1].upper, 4.0);
    EXPECT_FALSE(sd.m_chart.items[1].extremes);
    EXPECT_EQ(sd.m_chart.title, "Standard Deviation Intervals");
    EXPECT_EQ(CStdIntView().m_chart.title, "");
}

TEST(IntervalChart, MarksSitAtTheirValues) {
    IntervalResults one = TwoRows();
    one.rows.resize(1);
    one.rows[0].ident = "waits.dat";
    CIntrvlView view;
    view.SetResults(one, 0.10, false);
    view.SetClientRect(CRect{0, 0, 800, 600});
    CRecordingDC dc;
    view.OnDraw(dc);
    // Range 0..10 padded by 8 % on each side: -0.8..10.8 over 500 units.
    auto mapY = [](double v) { return static_cast<int>(550 - std::lround((v + 0.8) * 500 / 11.6)); };
    ASSERT_NE(dc.FindText("90% CL"), nullptr);
    ASSERT_NE(dc.FindText("Observation Intervals"), nullptr);
    ASSERT_NE(dc.FindText("Avg 5"), nullptr);
    ASSERT_NE(dc.FindText("Max 10"), nullptr);
    ASSERT_NE(dc.FindText("Min 0"), nullptr);
    ASSERT_NE(dc.FindText("waits.dat"), nullptr);
    EXPECT_EQ(dc.FindText("waits.dat")->from.x, 400);  // the one column's centre
    // The interval itself: a vertical line at the centre from lower to upper.
    std::vector<DrawOp> lines = dc.Lines();
    auto bar = std::find_if(lines.begin(), lines.end(), [](const DrawOp& op) {
        return op.from.x == 400 && op.to.x == 400 && op.pen.color == RGB(0, 0, 255) && op.pen.width > 1;
    });
    ASSERT_NE(bar, lines.end());
    EXPECT_EQ(bar->from.y, mapY(4.0));
    EXPECT_EQ(bar->to.y, mapY(6.0));
    // No numeric scale without the flag: no labels right-aligned left of the frame.
    for (const DrawOp& op : dc.Texts()) EXPECT_FALSE(op.align == (TA_RIGHT | TA_TOP) && op.from.x < 50) << op.text;
}

TEST(ComparisonCharts, TheReferenceValueIsMarked) {
    CComprView means;
    means.SetPairs({{"a.dat", 1.0, 0.5, 1.5, 0, 0, false}}, false, 0.0, 1.5, 0.05, false);
    EXPECT_EQ(means.m_chart.title, "Two-sample-t Comparison of Means");
    means.SetClientRect(CRect{0, 0, 800, 600});
    CRecordingDC dc;
    means.OnDraw(dc);
    ASSERT_NE(dc.FindText("Diff 1"), nullptr);
    std::vector<DrawOp> lines = dc.Lines();
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const DrawOp& op) {
        return op.pen.style == PS_DASH && op.from.x == 50 && op.to.x == 750;
    }));

    CVarView ratio;
    ratio.SetPairs({{"a.dat", 2.0, 1.2, 3.1, 0, 0, false}}, 1.0, 3.1, 0.05, true);
    EXPECT_EQ(ratio.m_chart.title, "Comparison of Variances");
    EXPECT_EQ(ratio.m_chart.estimateLabel, "Ratio");
    EXPECT_EQ(ratio.m_chart.reference, 1.0);
    ratio.SetClientRect(CRect{0, 0, 800, 600});
    dc.Clear();
    ratio.OnDraw(dc);
    ASSERT_NE(dc.FindText("Ratio 2"), nullptr);
    // With the scale flag the value axis carries tick labels.
    int labels = 0;
    for (const DrawOp& op : dc.Texts())
        if (op.align == (TA_RIGHT | TA_TOP) && op.from.x < 50) ++labels;
    EXPECT_GT(labels, 2);
}

TEST(CorrView, BarsInTwoColoursFromLagToLag) {
    CCorrView view;
    view.SetLags({0.5, -0.25, 0.1, 0.9}, 3, "Lags");
    view.SetClientRect(CRect{0, 0, 800, 600});
    CRecordingDC dc;
    view.OnDraw(dc);
    std::vector<DrawOp> rects = dc.Rects();
    ASSERT_EQ(rects.size(), 4u);  // the frame, then the first three lags
    // x 0..3 over 700 units; y -1.0001..1.0001 over 500.
    auto mapY = [](double v) { return static_cast<int>(550 - std::lround((v + 1.0001) * 500 / 2.0002)); };
    EXPECT_EQ(rects[1].rect.left, 50);
    EXPECT_EQ(rects[1].rect.right, 50 + 233);
    EXPECT_EQ(rects[1].rect.top, mapY(0.5));
    EXPECT_EQ(rects[1].rect.bottom, mapY(0.0));
    EXPECT_EQ(rects[1].brush.color, kCorrPositive);
    EXPECT_EQ(rects[2].brush.color, kCorrNegative);
    EXPECT_EQ(rects[2].rect.top, mapY(0.0));
    EXPECT_EQ(rects[2].rect.bottom, mapY(-0.25));
    EXPECT_EQ(rects[3].rect.right, 750);
    ASSERT_NE(dc.FindText("Lag Number"), nullptr);
    ASSERT_NE(dc.FindText("Correlation"), nullptr);
}

}  // namespace

namespace {

// Documents whose results a test sets.
struct MeansDoc : CComprDoc {
    using CComprDoc::m_results;
};
struct LagsDoc : CCorrDoc {
    using CCorrDoc::m_results;
};

TEST(ChartViews, TakeTheirDocumentsResults) {
    MeansDoc means;
    means.m_nMethod = CComprDoc::METHOD_PAIRED;
    means.m_dAlpha = 0.1;
    means.m_results.low = -1.0;
    means.m_results.high = 3.0;
    means.m_results.rows.resize(1);
    means.m_results.rows[0].ident = "a.dat";
    means.m_results.rows[0].estimate = 1.0;
    means.m_results.rows[0].lower = -1.0;
    means.m_results.rows[0].upper = 3.0;
    CComprView view;
    view.SetDocument(&means);
    view.OnInitialUpdate();
    ASSERT_EQ(view.m_chart.items.size(), 1u);  // one interval per pair
    EXPECT_EQ(view.m_chart.items[0].name, "a.dat");
    EXPECT_EQ(view.m_chart.items[0].upper, 3.0);
    EXPECT_EQ(view.m_chart.legend, "90% CL");
    EXPECT_EQ(view.m_chart.title, "Paired-t Comparison of Means");
    EXPECT_EQ(view.m_chart.low, -1.0);

    LagsDoc corr;
    corr.m_nMaxLags = 2;
    // Under "all" the list holds each replication's lags; the chart takes the first L.
    for (double r : {0.5, 0.25, 0.9, 0.8}) corr.m_results.lags.push_back({1, 0.0, r});
    CCorrView bars;
    bars.SetDocument(&corr);
    bars.OnInitialUpdate();
    EXPECT_EQ(bars.m_correlations, (std::vector<double>{0.5, 0.25}));
    EXPECT_EQ(bars.m_nMaxLags, 2);
    EXPECT_EQ(bars.m_strTitle, "Correlogram");
}

}  // namespace
