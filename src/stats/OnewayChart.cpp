#include "stats/OnewayChart.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "framework/Messages.h"
#include "stats/OnewayResult.h"

namespace {

const COLORREF kIntervalColour = RGB(0, 0, 255);
const COLORREF kMeanColour = RGB(255, 0, 0);
const COLORREF kGrandMeanColour = RGB(0, 128, 0);
// The frame of the analysis-of-variance kind keeps its titles clear of this
// much on the right; the key lives there.
constexpr int kKeyInset = 150;
// Below this the key is left out and the groups take the whole width.
constexpr int kLeastGroupArea = 100;

int Scaled(double units) { return static_cast<int>(std::trunc(units * g_Layout.scale)); }

int DeviceX(double x) {
    std::int16_t dx = 0, dy = 0;
    MapToDevice(x, g_Layout.yMin, &dx, &dy);
    return dx;
}

int DeviceY(double y) {
    std::int16_t dx = 0, dy = 0;
    MapToDevice(g_Layout.xMin, y, &dx, &dy);
    return dy;
}

void Text(CDC& dc, unsigned align, int x, int y, const std::string& text) {
    dc.SetTextAlign(align);
    dc.TextOut(x, y, text);
}

std::string Legend(double alpha) {
    char text[32];
    std::snprintf(text, sizeof text, "%2ld%% CL", std::lround((1.0 - alpha) * 100.0));
    return text;
}

// The key: "1 name" per group from the top of the inset while lines fit,
// then the dashed grand-mean line and the level. Text is cut to end short of
// the frame (the fitting measures against the frame's right edge).
void DrawKey(CDC& dc, const OnewayResult& r, int left, int lineHeight) {
    const GraphLayout& L = g_Layout;
    const int x = left + Scaled(8);
    const int reserve = x + Scaled(4);
    int y = L.top + Scaled(4);
    const int lastLine = L.bottom - 3 * lineHeight;
    dc.SetTextAlign(TA_LEFT | TA_TOP);
    for (std::size_t i = 0; i < r.groups.size(); ++i) {
        if (y > lastLine) {
            dc.TextOut(x, y, "...");
            y += lineHeight;
            break;
        }
        const std::string line = std::to_string(i + 1) + " " + r.groups[i].ident;
        DrawTextFitted(dc, line.c_str(), x, y, reserve);
        y += lineHeight;
    }
    y += lineHeight / 2;
    CPen old = dc.SelectObject(CPen{PS_DASH, 0, kGrandMeanColour});
    dc.MoveTo(x, y + lineHeight / 2);
    dc.LineTo(x + Scaled(24), y + lineHeight / 2);
    dc.SelectObject(old);
    DrawTextFitted(dc, "grand mean", x + Scaled(30), y, reserve + Scaled(30));
    y += lineHeight;
    DrawTextFitted(dc, Legend(r.alpha).c_str(), x, y, reserve);
}

}  // namespace

void oneway_DrawChart(CDC& dc, const OnewayResult& r, TickBlock* ticks) {
    const GraphLayout& L = g_Layout;
    const int k = static_cast<int>(r.groups.size());
    if (k == 0 || !(r.graphLow <= r.graphHigh) || !std::isfinite(r.graphLow) || !std::isfinite(r.graphHigh)) return;

    // Groups at x = 1..k, half a slot free at either end; the key's inset
    // lies beyond x = k + 1/2.
    const int inset = L.plotWidth - Scaled(kKeyInset) >= Scaled(kLeastGroupArea) ? Scaled(kKeyInset) : 0;
    const double groupArea = L.plotWidth - inset;
    const double xMax = 0.5 + k * L.plotWidth / groupArea;
    double pad = (r.graphHigh - r.graphLow) * 0.08;
    if (pad == 0.0) pad = r.graphLow != 0.0 ? std::fabs(r.graphLow) * 0.1 : 0.1;
    const double range[4] = {0.5, xMax, r.graphLow - pad, r.graphHigh + pad};
    DrawGraphFrame(dc, range, "", msg_Text(IDS_VALUE_LABEL), msg_Text(IDS_ANOVA_GRAPH_TITLE), GK_ANOVA, ticks);

    const unsigned oldAlign = dc.GetTextAlign();
    const int oldBk = dc.SetBkMode(TRANSPARENT);
    CFont oldFont = dc.SelectObject(CFont{Scaled(14), FW_NORMAL, ""});
    const int lineHeight = dc.GetTextExtent("0").cy;

    // The grand mean under the intervals.
    const int keyLeft = DeviceX(k + 0.5);
    CPen oldPen = dc.SelectObject(CPen{PS_DASH, 0, kGrandMeanColour});
    dc.MoveTo(L.left, DeviceY(r.table.grandMean));
    dc.LineTo(inset ? keyLeft : L.right, DeviceY(r.table.grandMean));

    // Each group's interval with caps, and its mean marked; its number under
    // the frame where the slots leave room for it.
    const double slot = groupArea / k;
    const int capWidth = std::max(1, std::min(Scaled(8), static_cast<int>(slot / 4)));
    const int numberWidth = dc.GetTextExtent(std::to_string(k)).cx + Scaled(6);
    const int every = std::max(1, static_cast<int>(std::ceil(numberWidth / slot)));
    for (int i = 0; i < k; ++i) {
        const OnewayGroupResult& g = r.groups[i];
        const int x = DeviceX(i + 1);
        const int yLow = DeviceY(g.stats.mean - g.halfWidth);
        const int yHigh = DeviceY(g.stats.mean + g.halfWidth);
        dc.SelectObject(CPen{PS_SOLID, Scaled(2) > 1 ? Scaled(2) : 2, kIntervalColour});
        dc.MoveTo(x, yLow);
        dc.LineTo(x, yHigh);
        dc.SelectObject(CPen{PS_SOLID, 0, kIntervalColour});
        dc.MoveTo(x - capWidth, yHigh);
        dc.LineTo(x + capWidth + 1, yHigh);
        dc.MoveTo(x - capWidth, yLow);
        dc.LineTo(x + capWidth + 1, yLow);
        DrawPlusMarker(dc, x, DeviceY(g.stats.mean), kMeanColour);
        if ((i + 1) % every == 0 || every == 1) Text(dc, TA_CENTER | TA_TOP, x, L.bottom + Scaled(4), std::to_string(i + 1));
    }
    dc.SelectObject(oldPen);

    if (inset) {
        CPen thin = dc.SelectObject(CPen{PS_SOLID, 0, RGB(0, 0, 0)});
        dc.MoveTo(keyLeft, L.top);
        dc.LineTo(keyLeft, L.bottom + 1);
        dc.SelectObject(thin);
        DrawKey(dc, r, keyLeft, lineHeight);
    }
    dc.SelectObject(oldFont);
    dc.SetBkMode(oldBk);
    dc.SetTextAlign(oldAlign);
}
