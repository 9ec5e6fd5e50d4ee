// The graph frame: titles with their power-of-ten factors, the box, and the
// tick marks with their labels.
#include <cmath>
#include <cstring>

#include "graph/AxisInternal.h"
#include "graph/GraphLayout.h"

namespace {

// More minor ticks than this on one axis only happen with a fallback step
// that no longer divides the range sensibly; stop rather than draw them all.
constexpr int kMaxTicks = 5000;

int Scaled(double units) { return static_cast<int>(std::trunc(units * g_Layout.scale)); }

double FirstTick(double mn, double step) {
    double whole = 0.0;
    std::modf(mn / step * 1.00000001, &whole);
    double v = whole * step;
    if (mn >= 0.0 && v < 0.99999999 * mn) v += step;
    if (mn < 0.0 && v < 1.00000001 * mn) v += step;
    return v;
}

// A label value; the accumulated walk leaves dust where it crosses zero,
// which would print as "-0.0".
double LabelValue(double t, double major, int code) {
    if (std::fabs(t) < 1e-9 * std::fabs(major)) t = 0.0;
    return t * IntPower(10.0, code);
}

// " (X10" exponent ")" with the exponent raised by lift, starting at (x, y).
void DrawFactor(CDC& dc, const char* lead, int code, int x, int y, int lift) {
    char exponent[16];
    int e = -code;
    FormatAxisNumber(e, e < 0 ? 2 : 1, 0, false, exponent);
    dc.TextOut(x, y, lead, static_cast<int>(std::strlen(lead)));
    x += dc.GetTextExtent(lead, static_cast<int>(std::strlen(lead))).cx;
    dc.TextOut(x, y - lift, exponent, static_cast<int>(std::strlen(exponent)));
    x += dc.GetTextExtent(exponent, static_cast<int>(std::strlen(exponent))).cx;
    dc.TextOut(x, y, ")", 1);
}

bool Walkable(double major, double minor, double mn, double mx) {
    return major > 0.0 && minor > 0.0 && std::isfinite(major) && std::isfinite(minor) && std::isfinite(mn) &&
           std::isfinite(mx);
}

}  // namespace

void DrawYTicks(CDC& dc) {
    GraphLayout& L = g_Layout;
    double major = L.ticks.yMajor;
    double minor = L.ticks.yMinor;
    if (!Walkable(major, minor, L.yMin, L.yMax)) return;
    int decimals = static_cast<int>(L.ticks.work[1]);
    int shortLen = Scaled(3);
    int longLen = Scaled(6);
    unsigned oldAlign = dc.SetTextAlign(TA_RIGHT | TA_TOP);
    L.ticks.work[3] = FirstTick(L.yMin, major);
    L.ticks.work[5] = FirstTick(L.yMin, minor);
    L.ticks.nextYMajor = L.ticks.work[3];
    double t = L.ticks.work[5];
    for (int n = 0; t <= L.yMax + 0.05 * minor && n < kMaxTicks; ++n, t += minor) {
        std::int16_t x = 0, y = 0;
        MapToDevice(L.xMin, t, &x, &y);
        dc.MoveTo(x, y);
        if (t <= L.ticks.nextYMajor - 0.05 * major) {
            dc.LineTo(x - shortLen, y);
            continue;
        }
        dc.LineTo(x - longLen, y);
        char label[32];
        FormatAxisNumber(LabelValue(t, major, L.yExponentCode), L.yLabelWidth, decimals, true, label);
        int len = static_cast<int>(std::strlen(label));
        CSize ext = dc.GetTextExtent(label, len);
        dc.TextOut(x - longLen - Scaled(2), y - ext.cy / 2, label, len);
        L.ticks.nextYMajor += major;
    }
    dc.SetTextAlign(oldAlign);
}

void DrawXTicks(CDC& dc) {
    GraphLayout& L = g_Layout;
    double major = L.ticks.xMajor;
    double minor = L.ticks.xMinor;
    if (!Walkable(major, minor, L.xMin, L.xMax)) return;
    int decimals = DecimalsForStep(major, L.xExponentCode, L.xLabelWidth);
    L.ticks.work[0] = decimals;
    int shortLen = Scaled(3);
    int longLen = Scaled(6);
    unsigned oldAlign = dc.SetTextAlign(TA_CENTER | TA_TOP);
    L.ticks.work[2] = FirstTick(L.xMin, major);
    L.ticks.work[4] = FirstTick(L.xMin, minor);
    L.ticks.nextXMajor = L.ticks.work[2];
    double t = L.ticks.work[4];
    for (int n = 0; t <= L.xMax + 0.05 * minor && n < kMaxTicks; ++n, t += minor) {
        std::int16_t x = 0, y = 0;
        MapToDevice(t, L.yMin, &x, &y);
        dc.MoveTo(x, y);
        if (t <= L.ticks.nextXMajor - 0.05 * major) {
            dc.LineTo(x, y + shortLen);
            continue;
        }
        dc.LineTo(x, y + longLen);
        char label[32];
        FormatAxisNumber(LabelValue(t, major, L.xExponentCode), L.xLabelWidth, decimals, true, label);
        dc.TextOut(x, y + longLen + Scaled(1), label, static_cast<int>(std::strlen(label)));
        L.ticks.nextXMajor += major;
    }
    dc.SetTextAlign(oldAlign);
}

void DrawGraphFrame(CDC& dc, const double* range, const std::string& xTitle, const std::string& yTitle,
                    const std::string& graphTitle, int kind, TickBlock* ticks) {
    GraphLayout& L = g_Layout;
    L.xTitle = xTitle;
    L.yTitle = yTitle;
    L.graphTitle = graphTitle;
    ComputeLabelFormat(range[0], range[1], range[2], range[3]);
    SetDataRange(1, range[0], range[1], range[2], range[3]);

    const int inset = kind == GK_ANOVA ? 150 : 0;
    const int fontHeight = Scaled(14);
    const int centre = (L.left + L.right) / 2;
    unsigned oldAlign = dc.GetTextAlign();
    int oldBk = dc.GetBkMode();

    CFont oldFont = dc.SelectObject(CFont{fontHeight, FW_BOLD, ""});
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextAlign(TA_CENTER | TA_TOP);
    DrawTextFitted(dc, L.graphTitle.c_str(), (L.left + L.right - inset) / 2, Scaled(2), inset);
    dc.SelectObject(oldFont);

    dc.SelectObject(CFont{fontHeight, FW_NORMAL, ""});
    int xTitleY = L.bottom - Scaled(30) + L.vMargin;
    DrawTextFitted(dc, L.xTitle.c_str(), centre, xTitleY, 0);
    dc.SetTextAlign(TA_LEFT | TA_TOP);
    if (L.xExponentCode != 0) {
        // Placed after the title's full length from the centre; the gap is wanted.
        int x = centre + static_cast<int>(L.xTitle.size()) * L.hClass * 8;
        DrawFactor(dc, " (X10", L.xExponentCode, x, xTitleY, 4 * L.vClass);
    }
    int yTitleX = L.left + 10 * L.vClass - L.yTitleIndent;
    int yTitleY = Scaled(20);
    DrawTextFitted(dc, L.yTitle.c_str(), yTitleX, yTitleY, inset >= 51 ? inset - 50 : inset);
    if (L.yExponentCode != 0) DrawFactor(dc, "(X10", L.yExponentCode, yTitleX, yTitleY + 11 * L.vClass, 3 * L.vClass);

    CBrush oldBrush = dc.SelectStockObject(NULL_BRUSH);
    int t = static_cast<int>(std::trunc(L.scale));
    dc.Rectangle(L.left, L.bottom + t, L.right + t, L.top);
    dc.SelectObject(oldBrush);

    if (kind == GK_HISTOGRAM) {
        ChooseHistogramSteps();
    } else {
        ChooseTickSteps();
        if (kind == GK_CORRELOGRAM) {
            if (L.ticks.xMajor < 1.0) L.ticks.xMajor = 1.0;
            if (L.ticks.xMinor < 1.0) L.ticks.xMinor = 1.0;
            L.ticks.yMajor = 0.5;
            L.ticks.yMinor = 0.1;
            L.ticks.work[1] = DecimalsForStep(0.5, L.yExponentCode, L.yLabelWidth);
        }
    }
    if (ticks) {
        if (dc.IsPrinting())
            L.ticks = *ticks;
        else
            *ticks = L.ticks;
    }
    DrawYTicks(dc);
    if (kind != GK_ANOVA) DrawXTicks(dc);

    dc.SelectObject(oldFont);
    dc.SetTextAlign(oldAlign);
    dc.SetBkMode(oldBk);
}
