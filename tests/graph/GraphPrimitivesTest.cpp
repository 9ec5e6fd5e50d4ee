// Number formatting, rounding, mapping and the drawing primitives, with
// values worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "GraphTestUtil.h"

namespace {

std::string Format(double v, int width, int decimals, bool isReal) {
    char out[32];
    FormatAxisNumber(v, width, decimals, isReal, out);
    return out;
}

TEST(FormatAxisNumber, RealAndWholeLabels) {
    struct Case {
        double v;
        int width, decimals;
        bool real;
        const char* text;
    };
    const Case cases[] = {
        {1.5, 4, 2, true, "1.50"},          // "%-4.2f"
        {0.2, 4, 1, true, "0.2"},           // "0.2 " padded, cut at the blank
        {-1.26, 4, 1, true, "-1.3"},
        {10.0, 5, 1, true, "10.0"},
        {12345.678, 4, 2, true, "12345."},  // "12345.68" kept to width + 2 = 6 characters
        {7.0, 4, 0, true, "7"},
        {2.9999999999, 4, 0, false, "3"},   // nudged by 1e-9 before truncation
        {-2.9999999999, 2, 0, false, "-3"},
        {7.9, 1, 0, false, "7"},            // whole numbers are truncated
        {3.0, 1, 0, false, "3"},
        {-12.0, 2, 0, false, "-12"},
    };
    for (const Case& c : cases) EXPECT_EQ(Format(c.v, c.width, c.decimals, c.real), c.text) << c.v;
}

TEST(DecimalsForStep, DigitsOfTheDisplayedStepBoundedByTheLabel) {
    struct Case {
        double step;
        int code, width, decimals;
    };
    const Case cases[] = {
        {0.5, 0, 4, 1},   {0.05, 0, 4, 2},  {2.0, 0, 5, 0},   {0.25, 0, 6, 2},
        {200.0, -3, 4, 1},  // shown as 0.2
        {0.0005, 3, 4, 1},  // shown as 0.5
        {0.001, 0, 4, 2},   // three digits wanted, two fit a label of width 4
        {5000.0, -3, 4, 0},
    };
    for (const Case& c : cases) EXPECT_EQ(DecimalsForStep(c.step, c.code, c.width), c.decimals) << c.step;
}

TEST(RoundHalfAway, HalvesGoAwayFromZero) {
    EXPECT_EQ(RoundHalfAway(2.5), 3);
    EXPECT_EQ(RoundHalfAway(-2.5), -3);
    EXPECT_EQ(RoundHalfAway(2.4999), 2);
    EXPECT_EQ(RoundHalfAway(-0.5), -1);
    EXPECT_EQ(RoundHalfAway(0.49), 0);
    EXPECT_EQ(RoundHalfAway(-0.49), 0);
    EXPECT_EQ(RoundHalfAway(std::nan("")), 0);
}

TEST(IntPower, SquareAndMultiplyOnWholeExponents) {
    EXPECT_EQ(IntPower(2.0, 10), 1024.0);
    EXPECT_EQ(IntPower(10.0, -3), 1.0 / 1000.0);
    EXPECT_EQ(IntPower(-2.0, 3), -8.0);
    EXPECT_EQ(IntPower(5.0, 0), 1.0);
    EXPECT_EQ(IntPower(0.5, -2), 4.0);
    EXPECT_EQ(IntPower(10.0, 5), 100000.0);
}

TEST(BreakAtSpace, LastBlankAtOrBeforeTheLimit) {
    EXPECT_EQ(BreakAtSpace("abc", 5), 5);         // fits: the limit itself
    EXPECT_EQ(BreakAtSpace("abcdefgh", 3), 3);    // no blank
    EXPECT_EQ(BreakAtSpace("a bcdefgh", 4), 1);
    EXPECT_EQ(BreakAtSpace(" bcdefgh", 4), 4);    // a blank in front does not count
    EXPECT_EQ(BreakAtSpace("abc defgh", 3), 3);   // the blank at the limit
    EXPECT_EQ(BreakAtSpace("ab cd efgh", 6), 5);
}

TEST(MapToDevice, RoundsAndClampsIntoThePlot) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    SetDataRange(1, 0.0, 700.0, 0.0, 500.0);  // one unit a pixel
    std::int16_t x = 0, y = 0;
    MapToDevice(2.5, 0.5, &x, &y);
    EXPECT_EQ(x, 53);   // 50 + round(2.5)
    EXPECT_EQ(y, 549);  // 550 - round(0.5)
    MapToDevice(-10.0, 900.0, &x, &y);
    EXPECT_EQ(x, 50);
    EXPECT_EQ(y, 50);
    MapToDevice(1e9, -1e9, &x, &y);
    EXPECT_EQ(x, 750);
    EXPECT_EQ(y, 550);
}

TEST(Primitives, PlusMarkerArrowAndBox) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);
    DrawPlusMarker(dc, 100, 100, RGB(255, 0, 0));
    DrawArrowMark(dc, 200, 50, true, 10, 3, RGB(0, 0, 255));
    DrawArrowMark(dc, 300, 50, false, 10, 3, RGB(0, 0, 255));
    DrawBox(dc, 10, 20, 5, 2);
    std::vector<DrawOp> lines = dc.Lines();
    ASSERT_EQ(lines.size(), 8u);
    auto seg = [&](int i, int x1, int y1, int x2, int y2) {
        EXPECT_EQ(lines[i].from.x, x1) << i;
        EXPECT_EQ(lines[i].from.y, y1) << i;
        EXPECT_EQ(lines[i].to.x, x2) << i;
        EXPECT_EQ(lines[i].to.y, y2) << i;
    };
    seg(0, 97, 100, 104, 100);
    seg(1, 100, 97, 100, 104);
    EXPECT_EQ(lines[0].pen.color, RGB(255, 0, 0));
    seg(2, 200, 50, 200, 60);
    seg(3, 200, 50, 197, 53);
    seg(4, 200, 50, 203, 53);
    seg(5, 300, 50, 300, 40);
    seg(6, 300, 50, 297, 47);
    seg(7, 300, 50, 303, 47);
    EXPECT_EQ(dc.GetCurrentPen(), CPen{});  // pens restored
    ASSERT_EQ(dc.Rects().size(), 1u);
    EXPECT_EQ(dc.Rects()[0].rect.left, 5);
    EXPECT_EQ(dc.Rects()[0].rect.top, 2);
    EXPECT_EQ(dc.Rects()[0].rect.right, 10);
    EXPECT_EQ(dc.Rects()[0].rect.bottom, 20);
}

TEST(Primitives, PlusMarkerGrowsWithThePrintScale) {
    CRecordingDC dc(4800, 3600, true);
    test_Layout(dc, 800, 600);  // scale 6
    DrawPlusMarker(dc, 1000, 1000, RGB(0, 0, 0));
    std::vector<DrawOp> lines = dc.Lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].from.x, 1000 - 18);
    EXPECT_EQ(lines[0].to.x, 1000 + 24);
}

TEST(DrawTextFitted, DropsCharactersUntilTheTextFitsLeftOfTheRightEdge) {
    CRecordingDC dc;
    test_Layout(dc, 800, 600);  // right edge 750; 7 units a character at height 14
    dc.SelectObject(CFont{14, FW_NORMAL, ""});
    const std::string text(120, 'a');
    DrawTextFitted(dc, text.c_str(), 0, 0, 0);
    DrawTextFitted(dc, text.c_str(), 0, 0, 50);
    DrawTextFitted(dc, "short", 0, 0, 0);
    std::vector<DrawOp> texts = dc.Texts();
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0].text.size(), 107u);  // 749 <= 750
    EXPECT_EQ(texts[1].text.size(), 100u);  // 700 + 50 <= 750
    EXPECT_EQ(texts[2].text, "short");
}

}  // namespace
