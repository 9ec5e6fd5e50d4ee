#include "series/MovView.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "framework/Messages.h"
#include "series/MoveDoc.h"

namespace {

constexpr int kObservationNumber = 16085;

void Polyline(CDC& dc, const std::vector<double>& xs, const std::vector<double>& ys) {
    for (std::size_t i = 0; i < xs.size(); ++i) {
        std::int16_t x = 0, y = 0;
        MapToDevice(xs[i], ys[i], &x, &y);
        if (i == 0)
            dc.MoveTo(x, y);
        else
            dc.LineTo(x, y);
    }
}

}  // namespace

int CMovView::DrawGraph(CDC& dc) {
    const auto* doc = dynamic_cast<const CMoveDoc*>(m_pDocument);
    if (!doc || doc->Results().rawX.empty()) return 0;
    const MoveResults& r = doc->Results();
    double low = r.low, high = r.high;
    // A constant series still needs a value range to draw in.
    if (!(high > low)) {
        low -= 1.0;
        high += 1.0;
    }
    const double range[4] = {1.0, std::max(2.0, static_cast<double>(r.n)), low, high};
    const std::string& title = doc->m_strMoveTitle.empty() ? doc->m_strTitle : doc->m_strMoveTitle;
    DrawGraphFrame(dc, range, msg_Text(kObservationNumber), doc->m_strIdent, title, m_nGraphKind, &m_ticks);

    const int thin = g_Layout.scale > 1.0 ? static_cast<int>(std::trunc(g_Layout.scale)) : 0;
    const int bold = 2 * std::max(thin, 1);
    CPen oldPen = dc.SelectObject(CPen{PS_SOLID, thin, kMovRaw});
    Polyline(dc, r.rawX, r.rawY);
    dc.SelectObject(CPen{PS_SOLID, bold, kMovSmoothed});
    Polyline(dc, r.smoothX, r.smoothY);
    if (r.warmupRun && r.mser.truncation > 0) {
        dc.SelectObject(CPen{PS_DASH, thin, kMovWarmup});
        std::int16_t x = 0, yLow = 0, yHigh = 0;
        MapToDevice(static_cast<double>(r.mser.truncation), low, &x, &yLow);
        MapToDevice(static_cast<double>(r.mser.truncation), high, &x, &yHigh);
        dc.MoveTo(x, yLow);
        dc.LineTo(x, yHigh);
    }
    dc.SelectObject(oldPen);
    return 0;
}
