#include "stats/ComprTextView.h"

#include "framework/Messages.h"
#include "stats/ComprDoc.h"
#include "stats/PairReport.h"

void CComprTextView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CComprDoc*>(GetDocument());
    if (!doc) return;
    int titleFmt = doc->m_nMethod == CComprDoc::METHOD_PAIRED ? 15977 : 15978;
    std::fprintf(f, msg_Text(titleFmt).c_str(), doc->m_strTitle.c_str());
    std::fprintf(f, msg_Text(15979).c_str(), 1.0 - doc->m_dAlpha);
    std::fputs(msg_Text(15980).c_str(), f);
    std::fputs(msg_Text(15981).c_str(), f);
    for (int i = 0; i < doc->PairCount(); ++i) {
        const CMultiFileItem& a = doc->PairA(i);
        const CMultiFileItem& b = doc->PairB(i);
        const std::string& ident = doc->PairIdentifier(i);
        std::fprintf(f, msg_Text(15982).c_str(), ident.c_str(), a.m_dAverage, a.m_dStdDev, a.m_dHalfWidth, a.m_dMin,
                     a.m_dMax, a.m_lNumObs);
        pair_WriteSecondLine(f, ident, 15983, 16041, b.m_dMin, b.m_dMax, b.m_lNumObs);
        // 0 on the closed interval means the data do not reject equal means.
        bool reject = a.m_dLower > 0.0 || a.m_dUpper < 0.0;
        std::fprintf(f, msg_Text(reject ? 15985 : 15984).c_str(), doc->m_dAlpha);
    }
}
