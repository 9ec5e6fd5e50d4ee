#include "stats/IntrvlTextView.h"

#include "framework/Messages.h"
#include "stats/IntrvlDoc.h"

namespace {
constexpr std::size_t kIdentWidth = 20;
}

CIntrvlTextView::CIntrvlTextView() : m_nTitleId(15899), m_nHeader1Id(15919), m_nHeader2Id(15920) {}

void CIntrvlTextView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CIntrvlDoc*>(GetDocument());
    if (!doc) return;
    std::fprintf(f, "%50s\n", msg_Text(m_nTitleId).c_str());
    if (!doc->m_strTitle.empty()) std::fprintf(f, "%50s\n", doc->m_strTitle.c_str());
    std::fprintf(f, "\n");
    std::fprintf(f, msg_Text(m_nHeader1Id).c_str(), 1.0 - doc->m_dAlpha);
    std::fputs(msg_Text(m_nHeader2Id).c_str(), f);
    for (const IntervalRow& row : doc->Results().rows) {
        const std::string& ident = row.ident;
        std::fprintf(f, "%-20.20s %10.3g %10.3g   %10.3g %10.3g %10.3g %7ld\n", ident.c_str(), row.average,
                     row.stdDev, row.halfWidth, row.min, row.max, row.numObs);
        if (ident.size() > kIdentWidth) std::fprintf(f, "%-s\n", ident.c_str() + kIdentWidth);
    }
}
