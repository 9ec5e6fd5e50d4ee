#include "graph/BarchartView.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "graph/BarchDlg.h"
#include "graph/BarchDoc.h"
#include "graph/PlotView.h"

namespace {

// Colours of the plot's table: the bars take its blue, the mean line its red.
constexpr std::size_t kBarColour = 2;
constexpr std::size_t kMeanColour = 0;
// Numbers are written over the bars while there is room for them.
constexpr int kLabelRoom = 14;

// A bar in device units: columns [x0, x1) and rows [top, bottom).
struct DeviceBar {
    int x0, x1, top, bottom;
};

}  // namespace

bool CBarchartView::CanGraph() { return view_PlotAreaFits(101); }

int CBarchartView::DrawGraph(CDC& dc) {
    const auto* doc = dynamic_cast<const CBarchDoc*>(m_pDocument);
    if (!doc) return 0;
    const BarchResults& r = doc->Results();
    const bool reps = r.bars == BARS_REPLICATIONS;
    std::string title = r.title.empty() ? r.fileTitle : r.title;
    if (!r.ident.empty()) title = r.ident + (title.empty() ? "" : ": " + title);
    DrawGraphFrame(dc, doc->Range(), reps ? "Replication" : "Time", reps ? "Mean" : "Value", title, m_nGraphKind,
                   &m_ticks);

    const double base = std::clamp(0.0, doc->YMin(), doc->YMax());
    std::int16_t x = 0, y = 0, baseY = 0;
    MapToDevice(doc->XMin(), base, &x, &baseY);
    const double s = g_Layout.scale;
    const COLORREF colour = plot_Colour(kBarColour);
    CPen oldPen = dc.SelectObject(CPen{PS_SOLID, plot_PenWidth(s), colour});
    CBrush oldBrush = dc.SelectObject(CBrush{false, colour});
    // An observation of a tally is a bar of no width: give it a width that
    // leaves gaps between neighbours while they are sparse.
    const long n = static_cast<long>(r.bar.size());
    const int thin = std::clamp(static_cast<int>(g_Layout.plotWidth / std::max(2L * n, 1L)), 1, 12);

    bool open = false;
    DeviceBar cur{};
    auto flush = [&]() {
        if (open) dc.Rectangle(cur.x0, cur.top, cur.x1, cur.bottom);
        open = false;
    };
    for (const BarchBar& b : r.bar) {
        std::int16_t x0 = 0, x1 = 0, yLow = 0, yHigh = 0;
        MapToDevice(b.x0, b.high, &x0, &yHigh);
        MapToDevice(b.x1, b.low, &x1, &yLow);
        int left = x0, right = x1;
        if (b.x0 == b.x1) {
            left = x0 - thin / 2;
            right = left + thin;
        } else if (right <= left) {
            right = left + 1;
        }
        const int top = std::min<int>({yHigh, yLow, baseY});
        const int bottom = std::max<int>({yHigh, yLow, baseY}) + 1;
        // Bars of one column become one bar over all of them.
        if (open && left == cur.x0 && right == cur.x1) {
            cur.top = std::min(cur.top, top);
            cur.bottom = std::max(cur.bottom, bottom);
            continue;
        }
        flush();
        cur = {left, right, top, bottom};
        open = true;
    }
    flush();

    if (reps) {
        CFont oldFont = dc.SelectObject(CFont{static_cast<int>(std::trunc(12 * s)), FW_NORMAL, ""});
        int oldBk = dc.SetBkMode(TRANSPARENT);
        unsigned oldAlign = dc.SetTextAlign(TA_CENTER | TA_BOTTOM);
        std::int16_t x0 = 0, x1 = 0;
        MapToDevice(1.0, base, &x0, &y);
        MapToDevice(2.0, base, &x1, &y);
        const bool room = x1 - x0 >= kLabelRoom * s;
        for (const BarchBar& b : r.bar) {
            if (!room) break;
            MapToDevice(b.replication, std::max(b.high, base), &x, &y);
            dc.TextOut(x, y - 1, std::to_string(b.replication));
        }
        dc.SetTextAlign(oldAlign);
        dc.SetBkMode(oldBk);
        dc.SelectObject(oldFont);
        dc.SelectObject(CPen{PS_DASH, plot_PenWidth(s), plot_Colour(kMeanColour)});
        MapToDevice(doc->XMin(), r.meanOfBars, &x, &y);
        dc.MoveTo(g_Layout.left, y);
        dc.LineTo(g_Layout.right, y);
    }
    dc.SelectObject(oldBrush);
    dc.SelectObject(oldPen);
    return 0;
}
