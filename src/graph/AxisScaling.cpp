// Layout, label format and tick steps of the graph frame.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "graph/AxisInternal.h"
#include "graph/GraphLayout.h"

GraphLayout g_Layout;

namespace {

int TruncLog10(double magnitude) {
    double l = std::trunc(std::log10(magnitude));
    if (!(l == l)) return 0;
    return static_cast<int>(std::clamp(l, -400.0, 400.0));
}

std::int16_t SizeClass(int extent, int first, int second, bool inclusive) {
    if (inclusive) return extent <= first ? 1 : (extent <= second ? 2 : 3);
    return extent < first ? 1 : (extent <= second ? 2 : 3);
}

void AxisFormat(double mn, double mx, std::int16_t* width, std::int16_t* code) {
    double r = mx - mn;
    int lr = r > 1e-5 ? TruncLog10(std::fabs(r)) : 0;
    int lmin = std::fabs(mn) > 1e-5 ? TruncLog10(std::fabs(mn)) : 0;
    int lmax = std::fabs(mx) > 1e-5 ? TruncLog10(std::fabs(mx)) : 0;
    int dR = std::abs(lr) + 5;
    int dMin = std::abs(lmin) + 3;
    int dMax = std::abs(lmax) + 3;
    int n = std::max({dR, dMin, dMax});
    // The factor comes from the end of larger magnitude, in steps of 10^3.
    int e = dMax > dMin ? lmax : lmin;
    int q = e / 3;
    if (n <= 0) {
        *width = 4;
        *code = 0;
        return;
    }
    *width = static_cast<std::int16_t>(std::abs(3 * q - e) + 4);
    *code = static_cast<std::int16_t>(-3 * q);
}

void FillTables() {
    GraphLayout& L = g_Layout;
    const double major[5] = {0.0, 1.0, 2.0, 5.0, 10.0};
    const double minor[5] = {0.0, 0.25, 0.5, 1.0, 2.0};
    std::copy(major, major + 5, L.majorMult);
    std::copy(minor, minor + 5, L.minorMult);
    std::copy(major, major + 5, L.histMult);
    L.tablesFilled = true;
}

struct Steps {
    double major;
    double minor;
    int decimals;  // decimals of the step in data units: code - m
};

// Walks 1, 2, 5, 10 times rising powers of ten from a hundredth of the
// displayed unit until labelled ticks are further apart than minSpacing.
Steps SearchSteps(int extent, double range, int code, int minSpacing) {
    const GraphLayout& L = g_Layout;
    int k = 1;
    int m = -2;
    double s = 1.0 / IntPower(10.0, code + 2);
    Steps out{};
    // A finite range ends the walk within a few dozen steps; an infinite or
    // NaN one (a value of inf in the data) never would, so the walk is bounded
    // by the decades a double spans and then takes the last resort below.
    for (int walked = 0;; ++walked) {
        std::int16_t spacing = axis_To16(extent / (range / s + 1.0));
        if (spacing > minSpacing) {
            out.major = s;
            out.decimals = code - m;
            break;
        }
        if (++k > 4) {
            k = 1;
            ++m;
        }
        s = L.majorMult[k] / IntPower(10.0, code - m);
        // The 16-bit limit applies to the step as labelled; in data units it
        // would stop every axis past 32767 with overlapping labels.
        if (s * IntPower(10.0, code) > 32767.0 || walked > 4 * 700) {
            out.major = range / minSpacing;
            out.decimals = code - m;
            break;
        }
    }
    out.minor = L.minorMult[k] / IntPower(10.0, out.decimals);
    return out;
}

// Label decimals of the y axis: the search's count moved from data units to
// displayed units (it equals the count itself when no factor is shown), kept
// within what a label of the axis's width can show.
int YLabelDecimals(int dataDecimals) {
    const GraphLayout& L = g_Layout;
    return std::clamp(dataDecimals - L.yExponentCode, 0, std::max(L.yLabelWidth - 2, 0));
}

}  // namespace

void LayoutPlotArea(const CRect& client, CDC& dc) {
    GraphLayout& L = g_Layout;
    L.hClass = SizeClass(L.winWidth, 1000, 2000, true);
    L.hClass2 = SizeClass(L.winWidth, 1200, 2400, true);
    L.vClass = SizeClass(L.winHeight, 300, 750, false);
    L.vClass2 = SizeClass(L.winHeight, 500, 800, false);
    L.scale = 1.0;
    L.hMargin = 50;
    L.vMargin = 50;
    if (dc.IsPrinting()) {
        int s = 1;
        if (client.Width() < client.Height())
            s = client.Height() > 0 ? dc.GetDeviceCaps(VERTRES) / client.Height() : 1;
        else
            s = client.Width() > 0 ? dc.GetDeviceCaps(HORZRES) / client.Width() : 1;
        L.scale = s;
        L.hMargin = static_cast<std::int32_t>(L.hMargin * L.scale);
        L.vMargin = static_cast<std::int32_t>(L.vMargin * L.scale);
        L.hClass = axis_To16(L.hClass * L.scale);
        L.hClass2 = axis_To16(L.hClass2 * L.scale);
        L.vClass = axis_To16(L.vClass * L.scale);
        L.vClass2 = axis_To16(L.vClass2 * L.scale);
    }
    L.left = axis_To16(std::trunc(client.left * L.scale) + L.hMargin);
    L.right = axis_To16(std::trunc(client.right * L.scale) - L.hMargin);
    L.top = axis_To16(std::trunc(client.top * L.scale) + L.vMargin);
    L.bottom = axis_To16(std::trunc(client.bottom * L.scale) - L.vMargin);
    L.plotWidth = static_cast<std::int16_t>(L.right - L.left);
    L.plotHeight = static_cast<std::int16_t>(L.bottom - L.top);
}

void ComputeLabelFormat(double xMin, double xMax, double yMin, double yMax) {
    GraphLayout& L = g_Layout;
    AxisFormat(xMin, xMax, &L.xLabelWidth, &L.xExponentCode);
    AxisFormat(yMin, yMax, &L.yLabelWidth, &L.yExponentCode);
}

void SetDataRange(int indentMultiplier, double xMin, double xMax, double yMin, double yMax) {
    GraphLayout& L = g_Layout;
    L.xMin = xMin;
    L.xMax = xMax;
    L.xRange = xMax - xMin;
    L.yMin = yMin;
    L.yMax = yMax;
    L.yRange = yMax - yMin;
    L.yTitleIndent = static_cast<std::int16_t>(32 * L.vClass * indentMultiplier);
    L.xPerUnit = L.plotWidth / L.xRange;
    L.yPerUnit = L.plotHeight / L.yRange;
}

void ChooseTickSteps() {
    GraphLayout& L = g_Layout;
    if (!L.tablesFilled) FillTables();
    int xMinSpacing = std::max((L.xLabelWidth + 2) * L.hClass * 8, L.plotWidth / 7);
    // The divisor is negative on purpose: the text-line rule always decides.
    int yMinSpacing = std::max((L.vClass + 1) * 8, L.plotHeight / -7);
    Steps x = SearchSteps(L.plotWidth, L.xRange, L.xExponentCode, xMinSpacing);
    Steps y = SearchSteps(L.plotHeight, L.yRange, L.yExponentCode, yMinSpacing);
    L.ticks.xMajor = x.major;
    L.ticks.xMinor = x.minor;
    L.ticks.yMajor = y.major;
    L.ticks.yMinor = y.minor;
    L.ticks.work[1] = YLabelDecimals(y.decimals);
}

void ChooseHistogramSteps() {
    GraphLayout& L = g_Layout;
    if (!L.tablesFilled) FillTables();
    int minSpacing = std::max((L.xLabelWidth + 2) * L.hClass * 8, L.plotWidth / 7);
    double cell = L.ticks.xMinor;
    L.ticks.yMajor = 0.4;
    L.ticks.yMinor = 0.05;
    L.ticks.work[1] = DecimalsForStep(0.4, L.yExponentCode, L.yLabelWidth);
    double step = L.xRange / minSpacing;
    if (cell > 0.0 && std::isfinite(cell)) {
        int k = 2;
        double decade = 1.0;
        for (;;) {
            double s = L.histMult[k] * decade * cell;
            if (s > 32767.0) break;
            if (L.plotWidth / (L.xRange / s + 1.0) > minSpacing) {
                step = s;
                break;
            }
            if (++k > 4) {
                k = 1;
                decade *= 10.0;
            }
        }
    }
    L.ticks.xMajor = step;
}
