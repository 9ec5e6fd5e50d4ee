// The scaling steps: size classes and plot rectangle, label format, tick steps.
// Expected values are worked out by hand from the layout rules.
#include <cmath>

#include <gtest/gtest.h>

#include "GraphTestUtil.h"

namespace {

TEST(LayoutPlotArea, PrintingScalesByWholePrinterUnitsPerWindowUnit) {
    struct Case {
        int horz, vert, w, h;
        double scale;
        int left, right, top, bottom;
    };
    const Case cases[] = {
        // Landscape window: 5000 / 800 = 6 (whole-number division); margins 300.
        {5000, 7000, 800, 600, 6.0, 300, 4500, 300, 3300},
        // Portrait window: by height, 5000 / 500 = 10; margins 500.
        {3000, 5000, 400, 500, 10.0, 500, 3500, 500, 4500},
    };
    for (const Case& c : cases) {
        CRecordingDC dc(c.horz, c.vert, true);
        test_Layout(dc, c.w, c.h);
        const GraphLayout& L = g_Layout;
        EXPECT_EQ(L.scale, c.scale);
        EXPECT_EQ(L.hClass, static_cast<int>(c.scale));
        EXPECT_EQ(L.vClass2, static_cast<int>(c.scale));
        EXPECT_EQ(L.hMargin, static_cast<int>(50 * c.scale));
        EXPECT_EQ(L.left, c.left);
        EXPECT_EQ(L.right, c.right);
        EXPECT_EQ(L.top, c.top);
        EXPECT_EQ(L.bottom, c.bottom);
    }
}

TEST(LayoutPlotArea, WindowSizeClassesFollowTheirThresholds) {
    // Width thresholds are inclusive at the low class, height thresholds exclusive.
    struct Case {
        int w, h, hClass, hClass2, vClass, vClass2;
    };
    const Case cases[] = {
        {1000, 299, 1, 1, 1, 1}, {1001, 300, 2, 1, 2, 1}, {1200, 500, 2, 1, 2, 2},
        {1201, 750, 2, 2, 2, 2}, {2001, 751, 3, 2, 3, 2}, {2401, 801, 3, 3, 3, 3},
    };
    for (const Case& c : cases) {
        CRecordingDC dc;
        g_Layout = GraphLayout{};
        g_Layout.winWidth = static_cast<std::int16_t>(c.w);
        g_Layout.winHeight = static_cast<std::int16_t>(c.h);
        LayoutPlotArea(CRect{0, 0, 800, 600}, dc);
        EXPECT_EQ(g_Layout.hClass, c.hClass) << c.w;
        EXPECT_EQ(g_Layout.hClass2, c.hClass2) << c.w;
        EXPECT_EQ(g_Layout.vClass, c.vClass) << c.h;
        EXPECT_EQ(g_Layout.vClass2, c.vClass2) << c.h;
    }
}

TEST(ComputeLabelFormat, WidthAndExponentCodeFromTheLargerMagnitudeEnd) {
    struct Case {
        double mn, mx;
        int width, code;
    };
    // E from the end with more digits; q = E / 3 toward zero; width |3q - E| + 4; code -3q.
    const Case cases[] = {
        {0.001, 0.009, 4, 3},      // Lmin -3 (dMin 6) beats Lmax -2 (dMax 5): E -3, q -1
        {0.0, 1000.0, 4, -3},      // min 0 gives L 0; Lmax 3: E 3, q 1
        {0.0, 10.0, 5, 0},         // E 1, q 0
        {-50.0, 50.0, 5, 0},       // equal ends: E from the minimum, 1
        {0.0, 123456.0, 6, -3},    // E 5, q 1
        {-2500.0, 10.0, 4, -3},    // Lmin 3 beats Lmax 1
        {0.5, 0.7, 4, 0},          // both logs truncate to 0
        {0.00002, 0.00005, 5, 3},  // E -4, q -1
    };
    for (const Case& c : cases) {
        ComputeLabelFormat(c.mn, c.mx, 0.0, 1.0);
        EXPECT_EQ(g_Layout.xLabelWidth, c.width) << c.mn << ".." << c.mx;
        EXPECT_EQ(g_Layout.xExponentCode, c.code) << c.mn << ".." << c.mx;
        ComputeLabelFormat(0.0, 1.0, c.mn, c.mx);
        EXPECT_EQ(g_Layout.yLabelWidth, c.width);
        EXPECT_EQ(g_Layout.yExponentCode, c.code);
    }
}

TEST(SetDataRange, StoresRangesIndentAndPixelsPerUnit) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    SetDataRange(1, 10.0, 45.0, -5.0, 45.0);
    EXPECT_EQ(g_Layout.xRange, 35.0);
    EXPECT_EQ(g_Layout.yRange, 50.0);
    EXPECT_EQ(g_Layout.yTitleIndent, 32);
    EXPECT_EQ(g_Layout.xPerUnit, 20.0);  // 700 / 35
    EXPECT_EQ(g_Layout.yPerUnit, 10.0);  // 500 / 50
}

struct StepCase {
    double xMin, xMax, yMin, yMax;
    double xMajor, xMinor, yMajor, yMinor;
    int yLabelDecimals;
};

TEST(ChooseTickSteps, NiceStepsOnAnEightHundredBySixHundredWindow) {
    // Plot 700 x 500. x needs labelled ticks more than max(8 (width + 2), 100)
    // apart, y more than 16 (the -7 divisor never wins).
    const StepCase cases[] = {
        // x 0..10: 700 / (10/s + 1) > 100 first at s = 2; minor 0.5.
        // y 0..10: 500 / (10/s + 1) > 16 first at s = 0.5 (k 3, m -1); decimals 1, minor 0.1.
        {0, 10, 0, 10, 2.0, 0.5, 0.5, 0.1, 1},
        // x 0..1000 (code -3): candidates 10, 20, 50, 100, 100, 200: 700 / 6 = 116 > 100.
        // y -1..1: 0.1 reached as 10 / 10^2 (k 4, m -2): 500 / 21 = 23; minor 2 / 10^2.
        {0, 1000, -1, 1, 200.0, 50.0, 0.1, 0.02, 2},
        // y 0.001..0.009 (code 3): from 1e-5 up to 5e-4, 500 / 17 = 29; decimals 4, minor 1e-4;
        // the labels show thousandths, one decimal.
        {0, 10, 0.001, 0.009, 2.0, 0.5, 0.0005, 0.0001, 1},
    };
    for (const StepCase& c : cases) {
        CRecordingDC dc;
        test_Layout(dc, 800, 600);
        ComputeLabelFormat(c.xMin, c.xMax, c.yMin, c.yMax);
        SetDataRange(1, c.xMin, c.xMax, c.yMin, c.yMax);
        ChooseTickSteps();
        EXPECT_DOUBLE_EQ(g_Layout.ticks.xMajor, c.xMajor) << c.xMin << ".." << c.xMax;
        EXPECT_DOUBLE_EQ(g_Layout.ticks.xMinor, c.xMinor) << c.xMin << ".." << c.xMax;
        EXPECT_DOUBLE_EQ(g_Layout.ticks.yMajor, c.yMajor) << c.yMin << ".." << c.yMax;
        EXPECT_DOUBLE_EQ(g_Layout.ticks.yMinor, c.yMinor) << c.yMin << ".." << c.yMax;
        EXPECT_EQ(g_Layout.ticks.work[1], c.yLabelDecimals) << c.yMin << ".." << c.yMax;
    }
}

TEST(ChooseTickSteps, AStepPastTheSixteenBitLimitFallsBackToRangeOverSpacing) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    // A huge range with code 0 forced: every candidate up to 32767 is too dense.
    g_Layout.xExponentCode = 0;
    g_Layout.xLabelWidth = 4;
    g_Layout.yExponentCode = 0;
    g_Layout.yLabelWidth = 4;
    SetDataRange(1, 0.0, 1e9, 0.0, 1.0);
    ChooseTickSteps();
    // Minimum x spacing max(48, 100) = 100.
    EXPECT_DOUBLE_EQ(g_Layout.ticks.xMajor, 1e9 / 100);

    // An infinite value in the data makes the range infinite: the search must
    // still end (it once walked the decades forever).
    ComputeLabelFormat(0.0, 10.0, -HUGE_VAL, HUGE_VAL);
    SetDataRange(1, 0.0, 10.0, -HUGE_VAL, HUGE_VAL);
    ChooseTickSteps();
    EXPECT_DOUBLE_EQ(g_Layout.ticks.xMajor, 2.0);
}

}  // namespace
