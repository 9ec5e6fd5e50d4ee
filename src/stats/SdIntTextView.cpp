#include "stats/SdIntTextView.h"

#include "framework/Messages.h"
#include "stats/SdIntDoc.h"

CSdIntTextView::CSdIntTextView() {
    m_nTitleId = 16037;
    m_nHeader1Id = 15923;
    m_nHeader2Id = 15924;
}

void CSdIntTextView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CIntrvlDoc*>(GetDocument());
    if (!doc) return;
    std::fprintf(f, "%50s\n", msg_Text(m_nTitleId).c_str());
    if (!doc->m_strTitle.empty()) std::fprintf(f, "%50s\n", doc->m_strTitle.c_str());
    std::fprintf(f, "\n");
    const double level = 1.0 - doc->m_dAlpha;
    std::fprintf(f, msg_Text(m_nHeader1Id).c_str(), level, level);
    std::fputs(msg_Text(m_nHeader2Id).c_str(), f);
    for (const IntervalRow& row : doc->Results().rows)
        std::fprintf(f, "%-16.16s %10.3g    %10.3g    %10.3g %10.3g   %7ld\n", row.ident.c_str(), row.stdDev,
                     row.lower, row.upper, row.range, row.numObs);
}
