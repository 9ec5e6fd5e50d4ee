#include "graph/IntervalChart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "graph/BaseView.h"
#include "framework/Messages.h"
#include "graph/GraphLayout.h"

namespace {

const COLORREF kIntervalColour = RGB(0, 0, 255);
const COLORREF kEstimateColour = RGB(255, 0, 0);
const COLORREF kExtremeColour = RGB(0, 128, 0);

int Scaled(double units) { return static_cast<int>(std::trunc(units * g_Layout.scale)); }

std::string Number(const char* format, double v) {
    char text[64];
    std::snprintf(text, sizeof text, format, v);
    std::string s = text;
    // Padding only shifts text that is aligned to its other end.
    std::size_t first = s.find_first_not_of(' ');
    s.erase(0, first == std::string::npos ? s.size() : first);
    s.erase(s.find_last_not_of(' ') + 1);
    return s;
}

int MapY(double v) {
    std::int16_t x = 0, y = 0;
    MapToDevice(g_Layout.xMin, v, &x, &y);
    return y;
}

void Text(CDC& dc, unsigned align, int x, int y, const std::string& text) {
    dc.SetTextAlign(align);
    dc.TextOut(x, y, text);
}

// The value axis: the document's range with a margin, so that marks at its
// ends stay clear of the frame.
bool ValueRange(const IntervalChart& chart, double* lo, double* hi) {
    double a = chart.low, b = chart.high;
    if (!(a <= b) || !std::isfinite(a) || !std::isfinite(b)) return false;
    double pad = (b - a) * 0.08;
    if (pad == 0.0) pad = a != 0.0 ? std::fabs(a) * 0.1 : 0.1;
    *lo = a - pad;
    *hi = b + pad;
    return true;
}

void DrawItem(CDC& dc, const IntervalItem& item, const std::string& label, int cx, int capWidth, int textHeight) {
    const int gap = Scaled(3);
    const int yLower = MapY(item.lower);
    const int yUpper = MapY(item.upper);
    const int yEst = MapY(item.estimate);
    if (item.extremes) {
        const int yMin = MapY(item.minimum);
        const int yMax = MapY(item.maximum);
        CPen old = dc.SelectObject(CPen{PS_DOT, 0, kExtremeColour});
        dc.MoveTo(cx, yUpper);
        dc.LineTo(cx, yMax);
        dc.MoveTo(cx, yLower);
        dc.LineTo(cx, yMin);
        dc.SelectObject(old);
        const int head = Scaled(4);
        DrawArrowMark(dc, cx, yMax, true, Scaled(10), head, kExtremeColour);
        DrawArrowMark(dc, cx, yMin, false, Scaled(10), head, kExtremeColour);
        // Kept clear of the limits' numbers when the extremes lie close to them.
        Text(dc, TA_LEFT | TA_BOTTOM, cx + head + gap, std::min(yMax + textHeight / 2, yUpper - textHeight), msg_Text(15955) + " " + Number("%-10.3g", item.maximum));
        Text(dc, TA_LEFT | TA_TOP, cx + head + gap, std::max(yMin - textHeight / 2, yLower + textHeight), msg_Text(15954) + " " + Number("%-10.3g", item.minimum));
    }
    CPen old = dc.SelectObject(CPen{PS_SOLID, Scaled(2) > 1 ? Scaled(2) : 2, kIntervalColour});
    dc.MoveTo(cx, yLower);
    dc.LineTo(cx, yUpper);
    dc.SelectObject(CPen{PS_SOLID, 0, kIntervalColour});
    dc.MoveTo(cx - capWidth, yUpper);
    dc.LineTo(cx + capWidth + 1, yUpper);
    dc.MoveTo(cx - capWidth, yLower);
    dc.LineTo(cx + capWidth + 1, yLower);
    dc.SelectObject(CPen{PS_SOLID, 0, kEstimateColour});
    dc.MoveTo(cx - capWidth, yEst);
    dc.LineTo(cx + capWidth + 1, yEst);
    dc.SelectObject(old);
    DrawPlusMarker(dc, cx, yEst, kEstimateColour);

    const int right = cx + capWidth + gap;
    Text(dc, TA_LEFT | TA_BOTTOM, right, yUpper, Number("%-10.3g", item.upper));
    Text(dc, TA_LEFT | TA_TOP, right, yLower, Number("%-10.3g", item.lower));
    // The estimate's label and number go left of it, clear of the limits.
    Text(dc, TA_RIGHT | TA_TOP, cx - capWidth - gap, yEst - textHeight / 2, label + " " + Number("%10.3g", item.estimate));
}

}  // namespace

std::string chart_LegendText(double alpha) {
    char text[32];
    long percent = std::lround((1.0 - alpha) * 100.0);
    std::snprintf(text, sizeof text, "%2ld%% CL", percent);
    return text;
}

void chart_DrawIntervals(CDC& dc, const IntervalChart& chart) {
    GraphLayout& L = g_Layout;
    const int n = static_cast<int>(chart.items.size());
    const int fontHeight = Scaled(14);
    unsigned oldAlign = dc.GetTextAlign();
    int oldBk = dc.SetBkMode(TRANSPARENT);
    CFont oldFont = dc.SelectObject(CFont{fontHeight, FW_BOLD, ""});
    Text(dc, TA_CENTER | TA_TOP, (L.left + L.right) / 2, Scaled(2), chart.title);
    dc.SelectObject(CFont{fontHeight, FW_NORMAL, ""});
    Text(dc, TA_RIGHT | TA_TOP, L.right, Scaled(20), chart.legend);

    CBrush oldBrush = dc.SelectStockObject(NULL_BRUSH);
    DrawBox(dc, L.left, L.top, L.right + 1, L.bottom + 1);
    dc.SelectObject(oldBrush);

    double lo = 0.0, hi = 0.0;
    if (n > 0 && ValueRange(chart, &lo, &hi)) {
        ComputeLabelFormat(0.0, n, lo, hi);
        SetDataRange(1, 0.0, n, lo, hi);
        if (chart.scale) {
            ChooseTickSteps();
            DrawYTicks(dc);
        }
        const int textHeight = dc.GetTextExtent("0").cy;
        if (chart.hasReference && chart.reference >= lo && chart.reference <= hi) {
            int y = MapY(chart.reference);
            CPen old = dc.SelectObject(CPen{PS_DASH, 0, RGB(128, 128, 128)});
            dc.MoveTo(L.left, y);
            dc.LineTo(L.right, y);
            dc.SelectObject(old);
            if (!chart.scale) Text(dc, TA_RIGHT | TA_TOP, L.left - Scaled(3), y - textHeight / 2, Number("%10.3g", chart.reference));
        }
        const int column = L.plotWidth / n;
        const int capWidth = std::clamp(column / 8, Scaled(2), Scaled(10));
        const int charWidth = std::max(dc.GetTextExtent("0").cx, 1);
        for (int i = 0; i < n; ++i) {
            const int cx = L.left + column * i + column / 2;
            const IntervalItem& item = chart.items[static_cast<std::size_t>(i)];
            DrawItem(dc, item, chart.estimateLabel, cx, capWidth, textHeight);
            // The name under the frame, centred and wrapped to the column.
            CBaseScrollView wrap;
            dc.SetTextAlign(TA_CENTER | TA_TOP);
            wrap.DrawWrappedText(dc, item.name.c_str(), cx, L.bottom + Scaled(4), std::max(column / charWidth - 1, 1));
        }
    }
    dc.SelectObject(oldFont);
    dc.SetTextAlign(oldAlign);
    dc.SetBkMode(oldBk);
}
