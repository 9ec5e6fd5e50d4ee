#include "stats/PairViews.h"

#include "framework/Messages.h"
#include "stats/ComprDoc.h"
#include "stats/VarDoc.h"

namespace {

// One interval per pair, named by its first file.
std::vector<IntervalItem> PairItems(const PairResults& results) {
    std::vector<IntervalItem> items;
    for (const PairRow& row : results.rows) {
        IntervalItem item;
        item.name = row.ident;
        item.estimate = row.estimate;
        item.lower = row.lower;
        item.upper = row.upper;
        items.push_back(std::move(item));
    }
    return items;
}

}  // namespace

int CComprView::DrawGraph(CDC& dc) {
    chart_DrawIntervals(dc, m_chart);
    return 0;
}

void CComprView::SetPairs(const std::vector<IntervalItem>& pairs, bool paired, double low, double high, double alpha,
                          bool scale) {
    m_chart.items = pairs;
    m_chart.low = low;
    m_chart.high = high;
    m_chart.title = msg_Text(paired ? 15957 : 15958);
    m_chart.estimateLabel = msg_Text(15959);
    m_chart.legend = chart_LegendText(alpha);
    m_chart.hasReference = true;
    m_chart.reference = 0.0;
    m_chart.scale = scale;
}

void CComprView::OnInitialUpdate() {
    CBaseScrollView::OnInitialUpdate();
    if (auto* doc = dynamic_cast<CComprDoc*>(m_pDocument))
        SetPairs(PairItems(doc->Results()), doc->m_nMethod == CComprDoc::METHOD_PAIRED, doc->Results().low,
                 doc->Results().high, doc->m_dAlpha, doc->m_bScale);
}

void CVarView::OnInitialUpdate() {
    CBaseScrollView::OnInitialUpdate();
    if (auto* doc = dynamic_cast<CVarDoc*>(m_pDocument))
        SetPairs(PairItems(doc->Results()), doc->Results().low, doc->Results().high, doc->m_dAlpha, doc->m_bScale);
}

int CVarView::DrawGraph(CDC& dc) {
    chart_DrawIntervals(dc, m_chart);
    return 0;
}

void CVarView::SetPairs(const std::vector<IntervalItem>& pairs, double low, double high, double alpha, bool scale) {
    m_chart.items = pairs;
    m_chart.low = low;
    m_chart.high = high;
    m_chart.title = msg_Text(15976);
    m_chart.estimateLabel = msg_Text(16043);
    m_chart.legend = chart_LegendText(alpha);
    m_chart.hasReference = true;
    m_chart.reference = 1.0;
    m_chart.scale = scale;
}
