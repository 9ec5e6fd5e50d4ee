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
    auto* doc = dynamic_cast<CIntrvlDoc*>(m_pDocument);
    if (!doc) return;
    // A row without observations wrote no record: it is left out.
    std::vector<std::string> names;
    std::vector<int> offsets;
    for (std::size_t i = 0; i < doc->m_items.size(); ++i) {
        if (!doc->m_items[i].m_bComputed) continue;
        names.push_back(doc->m_items[i].Identifier());
        offsets.push_back(doc->GraphRecordOffset(static_cast<int>(i)));
    }
    SetRecords(names, offsets, doc->m_dGraphLow, doc->m_dGraphHigh, doc->m_dAlpha, doc->m_bScale);
}

void CIntrvlView::SetRecords(const std::vector<std::string>& names, const std::vector<int>& offsets, double low,
                             double high, double alpha, bool scale) {
    chart_ReadRecords(m_chart, names, offsets, ShowsExtremes());
    m_chart.low = low;
    m_chart.high = high;
    m_chart.title = msg_Text(m_nTitleId);
    m_chart.estimateLabel = ShowsExtremes() ? msg_Text(15956) : "";
    m_chart.legend = chart_LegendText(alpha);
    m_chart.scale = scale;
}
