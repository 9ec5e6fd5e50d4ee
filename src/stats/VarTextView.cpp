#include "stats/VarTextView.h"

#include "framework/Messages.h"
#include "stats/PairReport.h"
#include "stats/VarDoc.h"

void CVarTextView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CVarDoc*>(GetDocument());
    if (!doc) return;
    std::fprintf(f, msg_Text(15997).c_str(), doc->m_strTitle.c_str());
    std::fputs(msg_Text(15998).c_str(), f);
    std::fprintf(f, msg_Text(15999).c_str(), 1.0 - doc->m_dAlpha, 1.0 - doc->m_dAlpha);
    std::fputs(msg_Text(16000).c_str(), f);
    std::fputs(msg_Text(15998).c_str(), f);
    for (int i = 0; i < doc->PairCount(); ++i) {
        const CMultiFileItem& a = doc->PairA(i);
        const CMultiFileItem& b = doc->PairB(i);
        const std::string& ident = doc->PairIdentifier(i);
        // The column headed UPPER carries the lower limit, followed by a
        // percent sign, and the one headed LOWER the upper limit: the layout
        // analysts' listings have always had.
        std::fprintf(f, msg_Text(16001).c_str(), ident.c_str(), a.m_dAverage, a.m_dLower, a.m_dUpper, a.m_dMin,
                     a.m_dMax, a.m_lNumObs);
        pair_WriteSecondLine(f, ident, 16002, 16042, b.m_dMin, b.m_dMax, b.m_lNumObs);
        bool reject = 1.0 < a.m_dLower || 1.0 > a.m_dUpper;
        std::fprintf(f, msg_Text(reject ? 16004 : 16003).c_str(), doc->m_dAlpha);
    }
}
