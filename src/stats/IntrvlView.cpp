#include "stats/IntrvlView.h"

#include "framework/Messages.h"
#include "stats/IntrvlDoc.h"

CIntrvlView::CIntrvlView(int titleId) : m_nTitleId(titleId) {}

int CIntrvlView::DrawGraph(CDC& dc) {
    chart_DrawIntervals(dc, m_chart);
    return 0;
}

void CIntrvlView::OnInitialUpdate() {
    CBaseScrollView::OnInitialUpdate();
    if (auto* doc = dynamic_cast<CIntrvlDoc*>(m_pDocument)) SetResults(doc->Results(), doc->m_dAlpha, doc->m_bScale);
}

void CIntrvlView::SetResults(const IntervalResults& results, double alpha, bool scale) {
    m_chart.items.clear();
    // A row without observations has nothing to draw.
    for (const IntervalRow& row : results.rows) {
        if (!row.computed) continue;
        IntervalItem item;
        item.name = row.ident;
        item.estimate = Estimate(row);
        item.lower = row.lower;
        item.upper = row.upper;
        item.extremes = ShowsExtremes();
        if (item.extremes) {
            item.minimum = row.min;
            item.maximum = row.max;
        }
        m_chart.items.push_back(std::move(item));
    }
    m_chart.low = results.graphLow;
    m_chart.high = results.graphHigh;
    m_chart.title = msg_Text(m_nTitleId);
    m_chart.estimateLabel = ShowsExtremes() ? msg_Text(15956) : "";
    m_chart.legend = chart_LegendText(alpha);
    m_chart.scale = scale;
}
