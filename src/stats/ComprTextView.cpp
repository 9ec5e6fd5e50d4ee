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
    for (const PairRow& row : doc->Results().rows) {
        const std::string& ident = row.ident;
        std::fprintf(f, msg_Text(15982).c_str(), ident.c_str(), row.estimate, row.stdDev, row.halfWidth, row.a.min,
                     row.a.max, row.a.numObs);
        pair_WriteSecondLine(f, ident, 15983, 16041, row.b.min, row.b.max, row.b.numObs);
        // 0 on the closed interval means the data do not reject equal means.
        bool reject = row.lower > 0.0 || row.upper < 0.0;
        std::fprintf(f, msg_Text(reject ? 15985 : 15984).c_str(), doc->m_dAlpha);
    }
}
