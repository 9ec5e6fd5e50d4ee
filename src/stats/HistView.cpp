#include "stats/HistView.h"

#include <algorithm>
#include <cstdio>

#include "framework/Messages.h"
#include "stats/HistDoc.h"

namespace {

constexpr int kRelativeFrequency = 16082;
constexpr int kProportionOfTime = 16083;

// The y steps of this kind are fixed at 0.4 and 0.05: the top is the first
// of 0.4, 0.8 and 1 that holds the tallest bar, so at least one labelled
// step shows.
double Top(const HistogramResult& r) {
    double tallest = 0.0;
    for (const HistogramCell& c : r.cells) tallest = std::max(tallest, c.relative);
    return tallest <= 0.4 ? 0.4 : (tallest <= 0.8 ? 0.8 : 1.0);
}

std::string Percent(double share) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3g%%", share * 100.0);
    return text;
}

}  // namespace

int CHistView::DrawGraph(CDC& dc) {
    if (const auto* doc = dynamic_cast<const CHistDoc*>(m_pDocument))
        DrawResult(dc, doc->Results(), doc->m_strHistTitle.empty() ? doc->m_strTitle : doc->m_strHistTitle,
                   doc->m_strIdent);
    return 0;
}

void CHistView::DrawResult(CDC& dc, const HistogramResult& r, const std::string& title, const std::string& xTitle) {
    if (r.cells.empty()) return;
    std::string graphTitle = title;
    if (r.below > 0.0 || r.above > 0.0)
        graphTitle += "  (below: " + Percent(r.belowRelative) + ", above: " + Percent(r.aboveRelative) + ")";
    const double range[4] = {r.edges.start, r.edges.Edge(r.edges.count), 0.0, Top(r)};
    // Kind 2 steps the x axis in multiples of the cell width, read from here.
    g_Layout.ticks.xMinor = r.edges.width;
    DrawGraphFrame(dc, range, xTitle, msg_Text(r.timeWeighted ? kProportionOfTime : kRelativeFrequency), graphTitle,
                   m_nGraphKind, &m_ticks);
    CBrush oldBrush = dc.SelectObject(CBrush{false, kHistBar});
    CPen oldPen = dc.SelectObject(CPen{PS_SOLID, 0, RGB(0, 0, 0)});
    for (const HistogramCell& c : r.cells) {
        if (c.relative <= 0.0) continue;
        std::int16_t x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        MapToDevice(c.lower, 0.0, &x1, &y1);
        MapToDevice(c.upper, c.relative, &x2, &y2);
        DrawBox(dc, x1, y1, x2, y2 == y1 ? y1 - 1 : y2);
    }
    dc.SelectObject(oldPen);
    dc.SelectObject(oldBrush);
}
