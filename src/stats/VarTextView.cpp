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
    for (const PairRow& row : doc->Results().rows) {
        const std::string& ident = row.ident;
        // The column headed UPPER carries the lower limit, followed by a
        // percent sign, and the one headed LOWER the upper limit: listings
        // already filed are read by column, so the layout stays.
        std::fprintf(f, msg_Text(16001).c_str(), ident.c_str(), row.estimate, row.lower, row.upper, row.a.min,
                     row.a.max, row.a.numObs);
        pair_WriteSecondLine(f, ident, 16002, 16042, row.b.min, row.b.max, row.b.numObs);
        bool reject = 1.0 < row.lower || 1.0 > row.upper;
        std::fprintf(f, msg_Text(reject ? 16004 : 16003).c_str(), doc->m_dAlpha);
    }
}
