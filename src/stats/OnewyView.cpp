#include "stats/OnewyView.h"

#include "stats/OnewayChart.h"
#include "stats/OnewyDoc.h"

int COnewyView::DrawGraph(CDC& dc) {
    if (const auto* doc = dynamic_cast<const COnewyDoc*>(m_pDocument)) oneway_DrawChart(dc, doc->Result(), &m_ticks);
    return 0;
}
