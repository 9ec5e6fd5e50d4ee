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
    for (const CMultiFileItem& row : doc->m_items) {
        const std::string& ident = row.Identifier();
        std::fprintf(f, "%-20.20s %10.3g %10.3g   %10.3g %10.3g %10.3g %7ld\n", ident.c_str(), row.m_dAverage,
                     row.m_dStdDev, row.m_dHalfWidth, row.m_dMin, row.m_dMax, row.m_lNumObs);
        if (ident.size() > kIdentWidth) std::fprintf(f, "%-s\n", ident.c_str() + kIdentWidth);
    }
}
