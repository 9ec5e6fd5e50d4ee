// The SVG writer: metrics of the face it names, the document it writes, and
// the reduction of dense curves, checked by drawing both into a pixel grid.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "framework/FontMetrics.h"
#include "framework/SvgDC.h"

namespace {

TEST(FontMetrics, LiberationSansAdvancesFromItsFontFile) {
    const FontFace& regular = font_Face(false);
    EXPECT_EQ(regular.unitsPerEm, 2048);
    // Widths of the face (as published for the metric-compatible faces):
    // digits 1139, space 569, 'i' 455, 'm' 1706, 'T' 1251, 'W' 1933.
    EXPECT_EQ(font_TextUnits(regular, "0123456789"), 11390);
    EXPECT_EQ(font_TextUnits(regular, " "), 569);
    EXPECT_EQ(font_TextUnits(regular, "Time"), 1251 + 455 + 1706 + 1139);
    EXPECT_EQ(font_TextUnits(regular, "W"), 1933);
    // Bold is wider for most letters: 'b' 1251 against 1139.
    EXPECT_EQ(font_TextUnits(font_Face(true), "b"), 1251);
    EXPECT_EQ(font_TextUnits(regular, "b"), 1139);
}

TEST(SvgDC, TextExtentInDeviceUnits) {
    CSvgDC dc(800, 600);
    dc.SelectObject(CFont{14, FW_NORMAL, ""});
    // Cell height 14 is an em of 14 x 2048 / (1854 + 434) = 12.53 units.
    // "Time": 4551 units -> 4551 x 12.53 / 2048 = 27.85 -> 28.
    CSize ext = dc.GetTextExtent("Time");
    EXPECT_EQ(ext.cx, 28);
    EXPECT_EQ(ext.cy, 14);
    // Ten digits: 11390 units -> 69.7 -> 70.
    EXPECT_EQ(dc.GetTextExtent("0123456789").cx, 70);
    EXPECT_EQ(dc.GetDeviceCaps(HORZRES), 800);
    EXPECT_EQ(dc.GetDeviceCaps(VERTRES), 600);
}

TEST(SvgDC, WritesTextLinesAndRectangles) {
    CSvgDC dc(200, 100, "A <plot>");
    dc.SetTextAlign(TA_CENTER | TA_TOP);
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(100, 10, "x & y");
    dc.SelectObject(CPen{PS_DASH, 0, RGB(255, 0, 0)});
    dc.MoveTo(0, 50);
    dc.LineTo(100, 50);
    dc.LineTo(100, 90);
    dc.SelectStockObject(NULL_BRUSH);
    dc.Rectangle(10, 20, 30, 40);
    std::string svg = dc.Finish();
    EXPECT_NE(svg.find("width=\"200\" height=\"100\""), std::string::npos);
    EXPECT_NE(svg.find("<title>A &lt;plot&gt;</title>"), std::string::npos);
    EXPECT_NE(svg.find("text-anchor=\"middle\""), std::string::npos);
    EXPECT_NE(svg.find(">x &amp; y</text>"), std::string::npos);
    EXPECT_NE(svg.find("stroke=\"#ff0000\" stroke-dasharray=\"18,6\" d=\"M0 50L100 50L100 90\""), std::string::npos);
    // Rectangle(10, 20, 30, 40) covers pixels 10..29 and 20..39.
    EXPECT_NE(svg.find("<rect x=\"10\" y=\"20\" width=\"19\" height=\"19\" fill=\"none\""), std::string::npos);
    EXPECT_EQ(svg.substr(svg.size() - 7), "</svg>\n");
}

// Pixels of a polyline, by a DDA of the test's own: every segment stepped
// along its longer axis, both ends included.
void Rasterise(const std::vector<std::pair<int, int>>& pts, std::set<std::pair<int, int>>& out) {
    for (std::size_t i = 1; i < pts.size(); ++i) {
        auto [x0, y0] = pts[i - 1];
        auto [x1, y1] = pts[i];
        int n = std::max(std::abs(x1 - x0), std::abs(y1 - y0));
        for (int k = 0; k <= n; ++k) {
            double f = n ? static_cast<double>(k) / n : 0.0;
            out.insert({static_cast<int>(std::lround(x0 + f * (x1 - x0))), static_cast<int>(std::lround(y0 + f * (y1 - y0)))});
        }
    }
}

std::vector<std::pair<int, int>> PathPoints(const std::string& svg) {
    std::vector<std::pair<int, int>> pts;
    std::regex point("[ML](-?\\d+) (-?\\d+)");
    for (auto it = std::sregex_iterator(svg.begin(), svg.end(), point); it != std::sregex_iterator(); ++it)
        pts.push_back({std::stoi((*it)[1]), std::stoi((*it)[2])});
    return pts;
}

TEST(SvgDC, ADenseCurveKeepsFourPointsAColumnAndTheSamePixels) {
    // A random walk of 200000 points over 200 columns: 1000 points a column.
    std::mt19937 rng(7);
    std::uniform_int_distribution<int> step(-3, 3);
    std::vector<std::pair<int, int>> all;
    int y = 300;
    for (int i = 0; i < 200000; ++i) {
        y = std::clamp(y + step(rng), 0, 599);
        all.push_back({10 + i / 1000, y});
    }
    CSvgDC dc(400, 600);
    dc.MoveTo(all[0].first, all[0].second);
    for (std::size_t i = 1; i < all.size(); ++i) dc.LineTo(all[i].first, all[i].second);
    std::string svg = dc.Finish();
    // Given in runs through PolylineTo, the same lines make the same document.
    std::vector<CPoint> rest;
    for (std::size_t i = 1; i < all.size(); ++i) rest.push_back({all[i].first, all[i].second});
    CSvgDC runs(400, 600);
    runs.MoveTo(all[0].first, all[0].second);
    for (std::size_t at = 0; at < rest.size(); at += 777)
        runs.PolylineTo(rest.data() + at, std::min<std::size_t>(777, rest.size() - at));
    EXPECT_EQ(runs.Finish(), svg);
    std::vector<std::pair<int, int>> kept = PathPoints(svg);
    EXPECT_LE(kept.size(), 4u * 200);
    EXPECT_EQ(kept.front(), all.front());
    EXPECT_EQ(kept.back(), all.back());
    std::set<std::pair<int, int>> full, reduced;
    Rasterise(all, full);
    Rasterise(kept, reduced);
    EXPECT_EQ(full, reduced);
}

TEST(SvgDC, SeparateSegmentsStartSubpathsAndANewPenANewPath) {
    CSvgDC dc(100, 100);
    dc.MoveTo(0, 0);
    dc.LineTo(0, 5);
    dc.MoveTo(10, 0);
    dc.LineTo(10, 5);
    dc.SelectObject(CPen{PS_SOLID, 0, RGB(0, 0, 255)});
    dc.MoveTo(20, 0);
    dc.LineTo(20, 5);
    std::string svg = dc.Finish();
    EXPECT_NE(svg.find("d=\"M0 0L0 5M10 0L10 5\""), std::string::npos);
    EXPECT_NE(svg.find("stroke=\"#0000ff\" d=\"M20 0L20 5\""), std::string::npos);
}

}  // namespace
