// The frame as drawn: titles, factor, box, ticks and labels, checked on the
// recorded operations. The recorder's text is 7 units a character and 14
// high in the frame's 14-unit font.
#include <gtest/gtest.h>

#include <algorithm>

#include "GraphTestUtil.h"

namespace {

std::vector<std::string> LabelsLeftOfAxis(const CRecordingDC& dc) {
    std::vector<std::string> out;
    for (const DrawOp& op : dc.Texts())
        if (op.align == (TA_RIGHT | TA_TOP)) out.push_back(op.text);
    return out;
}

std::vector<std::string> LabelsUnderAxis(const CRecordingDC& dc, int bottom) {
    std::vector<std::string> out;
    for (const DrawOp& op : dc.Texts())
        if (op.align == (TA_CENTER | TA_TOP) && op.from.y > bottom && op.from.y < bottom + 15) out.push_back(op.text);
    return out;
}

int TicksBelow(const CRecordingDC& dc, int bottom) {
    int n = 0;
    for (const DrawOp& op : dc.Lines())
        if (op.from.y == bottom && op.to.y > bottom) ++n;
    return n;
}

TEST(DrawGraphFrame, OrdinaryFrameOnTheScreen) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    const double range[4] = {0.0, 10.0, 0.0, 10.0};
    DrawGraphFrame(dc, range, "Time", "Value", "Title", GK_ORDINARY, nullptr);

    const DrawOp* title = dc.FindText("Title");
    ASSERT_NE(title, nullptr);
    EXPECT_EQ(title->font.weight, FW_BOLD);
    EXPECT_EQ(title->font.height, 14);
    EXPECT_EQ(title->from.x, 400);
    const DrawOp* xTitle = dc.FindText("Time");
    ASSERT_NE(xTitle, nullptr);
    EXPECT_EQ(xTitle->font.weight, FW_NORMAL);
    EXPECT_EQ(xTitle->align, TA_CENTER | TA_TOP);
    EXPECT_EQ(xTitle->bkMode, TRANSPARENT);
    EXPECT_EQ(xTitle->from.x, 400);
    EXPECT_EQ(xTitle->from.y, 550 - 30 + 50);
    const DrawOp* yTitle = dc.FindText("Value");
    ASSERT_NE(yTitle, nullptr);
    EXPECT_EQ(yTitle->from.x, 50 + 10 - 32);
    EXPECT_EQ(yTitle->from.y, 20);

    // The frame: Rectangle(left, bottom + 1, right + 1, top) with the null brush;
    // on the screen every size class is 1 and the margins 50 units.
    ASSERT_EQ(dc.Rects().size(), 1u);
    const DrawOp box = dc.Rects()[0];
    EXPECT_EQ(box.rect.left, 50);
    EXPECT_EQ(box.rect.top, 50);
    EXPECT_EQ(box.rect.right, 751);
    EXPECT_EQ(box.rect.bottom, 551);
    EXPECT_TRUE(box.brush.hollow);

    // y: major 0.5, minor 0.1 -> 21 labels with one decimal.
    std::vector<std::string> y = LabelsLeftOfAxis(dc);
    ASSERT_EQ(y.size(), 21u);
    EXPECT_EQ(y.front(), "0.0");
    EXPECT_EQ(y[1], "0.5");
    EXPECT_EQ(y.back(), "10.0");
    // x: major 2, minor 0.5 -> 21 ticks, labels 0, 2, ..., 10.
    EXPECT_EQ(LabelsUnderAxis(dc, 550), (std::vector<std::string>{"0", "2", "4", "6", "8", "10"}));
    EXPECT_EQ(TicksBelow(dc, 550), 21);

    // "0.5" sits left of the axis, centred on y = 550 - 25.
    for (const DrawOp& op : dc.Texts()) {
        if (op.text == "0.5") {
            EXPECT_EQ(op.from.y, 525 - 7);
            EXPECT_LT(op.from.x, 50);
        }
    }
    // No factor on either axis.
    EXPECT_EQ(dc.FindText(" (X10"), nullptr);
    EXPECT_EQ(dc.FindText("(X10"), nullptr);
    // The context's state is as before.
    EXPECT_EQ(dc.GetTextAlign(), TA_LEFT | TA_TOP);
    EXPECT_EQ(dc.GetBkMode(), OPAQUE);
    EXPECT_EQ(dc.GetCurrentFont(), CFont{});
}

TEST(DrawGraphFrame, ThousandsShowAFactorAfterTheTitleLength) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    const double range[4] = {0.0, 1000.0, 0.0, 10.0};
    DrawGraphFrame(dc, range, "Time", "Value", "", GK_ORDINARY, nullptr);
    // Ticks every 200 shown as thousands: 0.0 .. 1.0.
    EXPECT_EQ(LabelsUnderAxis(dc, 550), (std::vector<std::string>{"0.0", "0.2", "0.4", "0.6", "0.8", "1.0"}));
    // " (X10" at centre + 4 characters x 8, then "3" raised by 4, then ")".
    const DrawOp* factor = dc.FindText(" (X10");
    ASSERT_NE(factor, nullptr);
    EXPECT_EQ(factor->from.x, 400 + 4 * 8);
    EXPECT_EQ(factor->from.y, 570);
    const DrawOp* exponent = dc.FindText("3");
    ASSERT_NE(exponent, nullptr);
    EXPECT_EQ(exponent->from.x, 432 + 5 * 7);
    EXPECT_EQ(exponent->from.y, 566);
    const DrawOp* close = dc.FindText(")");
    ASSERT_NE(close, nullptr);
    EXPECT_EQ(close->from.x, 467 + 7);
    EXPECT_EQ(close->from.y, 570);
}

TEST(DrawGraphFrame, MillionsOfTimeUnitsKeepReadableSteps) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    // E 7, code -6: candidates in millions, 700 / (10 / 2 + 1) = 116 > 100 at 2 million.
    const double range[4] = {0.0, 1e7, 0.0, 10.0};
    DrawGraphFrame(dc, range, "Time", "", "", GK_ORDINARY, nullptr);
    EXPECT_EQ(LabelsUnderAxis(dc, 550), (std::vector<std::string>{"0", "2", "4", "6", "8", "10"}));
    EXPECT_NE(dc.FindText("6"), nullptr);
}

TEST(DrawGraphFrame, ThousandthsOnYShowANegativeFactorUnderTheTitle) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    const double range[4] = {0.0, 10.0, 0.001, 0.009};
    DrawGraphFrame(dc, range, "Time", "Rate", "", GK_ORDINARY, nullptr);
    std::vector<std::string> y = LabelsLeftOfAxis(dc);
    ASSERT_EQ(y.size(), 17u);  // 1.0, 1.5, ..., 9.0
    EXPECT_EQ(y.front(), "1.0");
    EXPECT_EQ(y[1], "1.5");
    EXPECT_EQ(y.back(), "9.0");
    const DrawOp* factor = dc.FindText("(X10");
    ASSERT_NE(factor, nullptr);
    EXPECT_EQ(factor->from.x, 28);
    EXPECT_EQ(factor->from.y, 20 + 11);
    const DrawOp* exponent = dc.FindText("-3");  // width 2 leaves room for the sign
    ASSERT_NE(exponent, nullptr);
    EXPECT_EQ(exponent->from.x, 28 + 4 * 7);
    EXPECT_EQ(exponent->from.y, 31 - 3);
}

TEST(DrawGraphFrame, ANegativeMinimumStartsOnItsMultiple) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    const double range[4] = {0.0, 10.0, -1.0, 1.0};
    DrawGraphFrame(dc, range, "", "", "", GK_ORDINARY, nullptr);
    std::vector<std::string> y = LabelsLeftOfAxis(dc);
    // Step 0.1 reached as 10 hundredths: two decimals; -1 is the first tick.
    ASSERT_EQ(y.size(), 21u);
    EXPECT_EQ(y.front(), "-1.00");
    EXPECT_EQ(y[10], "0.00");
    EXPECT_EQ(y.back(), "1.00");
}

TEST(DrawYTicks, MinusOneWithHalfStepsTicksAtMinusOne) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    ComputeLabelFormat(0.0, 1.0, -1.0, 0.3);
    SetDataRange(1, 0.0, 1.0, -1.0, 0.3);
    g_Layout.ticks.yMajor = 0.5;
    g_Layout.ticks.yMinor = 0.1;
    g_Layout.ticks.work[1] = 1;
    DrawYTicks(dc);
    // -1 / 0.5 x 1.00000001 keeps -2 whole parts: the exact multiple -1 is the first.
    EXPECT_EQ(LabelsLeftOfAxis(dc), (std::vector<std::string>{"-1.0", "-0.5", "0.0"}));
    EXPECT_DOUBLE_EQ(g_Layout.ticks.work[3], -1.0);
    // A minimum just above a multiple starts at the next one.
    dc.Clear();
    SetDataRange(1, 0.0, 1.0, -0.75, 0.3);
    DrawYTicks(dc);
    EXPECT_EQ(LabelsLeftOfAxis(dc), (std::vector<std::string>{"-0.5", "0.0"}));
}

TEST(DrawGraphFrame, AnovaKindDrawsNoXTicksAndInsetsItsTitles) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    const double range[4] = {0.0, 10.0, 0.0, 10.0};
    const std::string longTitle(100, 'T');
    DrawGraphFrame(dc, range, "x", std::string(100, 'Y'), longTitle, GK_ANOVA, nullptr);
    EXPECT_EQ(TicksBelow(dc, 550), 0);
    EXPECT_TRUE(LabelsUnderAxis(dc, 550).empty());
    // Title fitted so that 7n + 150 <= 750: 85 characters, centred left of the inset.
    const DrawOp title = dc.Texts().front();
    EXPECT_EQ(title.text.size(), 85u);
    EXPECT_EQ(title.from.x, (50 + 750 - 150) / 2);
    // The y title's reserve is the inset less 50: 7n + 100 <= 750 -> 92.
    for (const DrawOp& op : dc.Texts())
        if (!op.text.empty() && op.text[0] == 'Y') {
            EXPECT_EQ(op.text.size(), 92u);
        }

    dc.Clear();
    DrawGraphFrame(dc, range, "x", "y", longTitle, GK_ORDINARY, nullptr);
    EXPECT_EQ(dc.Texts().front().text.size(), 100u);
}

TEST(DrawGraphFrame, CorrelogramKindUsesWholeLagsAndFixedYSteps) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    // x 0..3 alone would tick every 1 with minors of 0.2; kind 3 raises the minor to 1.
    const double range[4] = {0.0, 3.0, -1.0001, 1.0001};
    DrawGraphFrame(dc, range, "Lag Number", "Correlation", "", GK_CORRELOGRAM, nullptr);
    EXPECT_EQ(LabelsUnderAxis(dc, 550), (std::vector<std::string>{"0", "1", "2", "3"}));
    EXPECT_EQ(TicksBelow(dc, 550), 4);
    EXPECT_DOUBLE_EQ(g_Layout.ticks.yMajor, 0.5);
    EXPECT_DOUBLE_EQ(g_Layout.ticks.yMinor, 0.1);
    EXPECT_EQ(LabelsLeftOfAxis(dc), (std::vector<std::string>{"-1.0", "-0.5", "0.0", "0.5", "1.0"}));
}

TEST(DrawGraphFrame, HistogramKindStepsInCellWidths) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    g_Layout.ticks.xMinor = 0.5;
    const double range[4] = {0.0, 10.0, 0.0, 1.0};
    DrawGraphFrame(dc, range, "", "", "", GK_HISTOGRAM, nullptr);
    // 2 x 0.5 = 1: 700 / 11 = 63.6; 5 x 0.5 = 2.5: 700 / 5 = 140 > 100.
    EXPECT_EQ(LabelsUnderAxis(dc, 550), (std::vector<std::string>{"0.0", "2.5", "5.0", "7.5", "10.0"}));
    EXPECT_DOUBLE_EQ(g_Layout.ticks.xMinor, 0.5);
    EXPECT_DOUBLE_EQ(g_Layout.ticks.yMinor, 0.05);
    EXPECT_EQ(LabelsLeftOfAxis(dc), (std::vector<std::string>{"0.0", "0.4", "0.8"}));
}

TEST(DrawGraphFrame, PrintingScalesFontsAndFrame) {
    CRecordingDC dc(4800, 3600, true);
    test_Layout(dc, 800, 600);  // scale 6
    const double range[4] = {0.0, 10.0, 0.0, 10.0};
    DrawGraphFrame(dc, range, "Time", "Value", "Title", GK_ORDINARY, nullptr);
    EXPECT_EQ(dc.FindText("Title")->font.height, 84);
    EXPECT_EQ(dc.FindText("Time")->from.y, 3300 - 180 + 300);
    const DrawOp box = dc.Rects()[0];
    EXPECT_EQ(box.rect.left, 300);
    EXPECT_EQ(box.rect.top, 300);
    EXPECT_EQ(box.rect.right, 4506);
    EXPECT_EQ(box.rect.bottom, 3306);
}

TEST(DrawGraphFrame, APrintoutReusesTheTicksSavedOnTheScreen) {
    const double range[4] = {0.0, 10.0, 0.0, 10.0};
    TickBlock saved;
    {
        CRecordingDC screen;
        test_Layout(screen, 800, 600);
        DrawGraphFrame(screen, range, "", "", "", GK_ORDINARY, &saved);
    }
    EXPECT_DOUBLE_EQ(saved.xMajor, 2.0);
    EXPECT_DOUBLE_EQ(saved.yMajor, 0.5);
    // A block that differs from what the page would choose shows which one is drawn.
    saved.xMajor = 5.0;
    saved.xMinor = 1.0;
    CRecordingDC printer(4800, 3600, true);
    test_Layout(printer, 800, 600);
    DrawGraphFrame(printer, range, "", "", "", GK_ORDINARY, &saved);
    std::vector<std::string> x;
    for (const DrawOp& op : printer.Texts())
        if (op.align == (TA_CENTER | TA_TOP) && op.from.y > 3300) x.push_back(op.text);
    EXPECT_EQ(x, (std::vector<std::string>{"0", "5", "10"}));
    EXPECT_DOUBLE_EQ(saved.xMajor, 5.0);  // printing never overwrites the block
}

}  // namespace
