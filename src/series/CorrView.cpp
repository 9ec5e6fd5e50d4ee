#include "series/CorrView.h"

#include <algorithm>

#include "framework/Messages.h"
#include "series/CorrDoc.h"

void CCorrView::SetLags(const std::vector<double>& correlations, int maxLags, const std::string& title) {
    m_correlations = correlations;
    m_nMaxLags = maxLags;
    m_strTitle = title;
}

void CCorrView::OnInitialUpdate() {
    CBaseView::OnInitialUpdate();
    auto* doc = dynamic_cast<CCorrDoc*>(m_pDocument);
    if (!doc) return;
    // Under "all" the list holds every replication's lags; the chart shows the first.
    std::vector<double> r;
    const std::vector<CCovarData>& lags = doc->Results().lags;
    for (std::size_t i = 0; i < lags.size() && static_cast<int>(i) < doc->m_nMaxLags; ++i)
        r.push_back(lags[i].correlation);
    SetLags(r, doc->m_nMaxLags, doc->m_strCorrTitle.empty() ? std::string("Correlogram") : doc->m_strCorrTitle);
}

int CCorrView::DrawGraph(CDC& dc) {
    const int lags = std::min(m_nMaxLags, static_cast<int>(m_correlations.size()));
    const double range[4] = {0.0, static_cast<double>(std::max(m_nMaxLags, 1)), -1.0001, 1.0001};
    DrawGraphFrame(dc, range, msg_Text(16069), msg_Text(16070), m_strTitle, m_nGraphKind, &m_ticks);
    CBrush oldBrush = dc.GetCurrentBrush();
    CPen oldPen = dc.SelectObject(CPen{PS_SOLID, 0, RGB(0, 0, 0)});
    for (int k = 1; k <= lags; ++k) {
        double r = m_correlations[static_cast<std::size_t>(k - 1)];
        std::int16_t x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        MapToDevice(k - 1, 0.0, &x1, &y1);
        MapToDevice(k, r, &x2, &y2);
        // Many lags on a narrow plot: keep every bar at least a pixel wide.
        if (x2 <= x1) x2 = static_cast<std::int16_t>(x1 + 1);
        COLORREF colour = r >= 0.0 ? kCorrPositive : kCorrNegative;
        dc.SelectObject(CBrush{false, colour});
        dc.SelectObject(CPen{PS_SOLID, 0, lags > 100 ? colour : RGB(0, 0, 0)});
        DrawBox(dc, x1, y1, x2, y2 == y1 ? y1 + 1 : y2);
    }
    dc.SelectObject(oldPen);
    dc.SelectObject(oldBrush);
    return 0;
}
