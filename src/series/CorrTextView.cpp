#include "series/CorrTextView.h"

#include "framework/Messages.h"
#include "series/CorrDoc.h"

void CCorrTextView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CCorrDoc*>(GetDocument());
    if (!doc) return;
    std::fprintf(f, m_szTitleFmt, msg_Text(15852).c_str());
    if (!doc->m_strCorrTitle.empty()) std::fprintf(f, m_szTitleFmt, doc->m_strCorrTitle.c_str());
    std::fputs("\n", f);
    std::fprintf(f, m_szLabelFmt, msg_Text(15853).c_str());
    const CorrResults& res = doc->Results();
    std::fprintf(f, m_szRealFmt, res.mean);
    std::fprintf(f, m_szLabelFmt, msg_Text(15854).c_str());
    std::fprintf(f, m_szRealFmt, res.variance);
    std::fprintf(f, m_szLabelFmt, msg_Text(15855).c_str());
    std::fprintf(f, m_szIntFmt, static_cast<long>(res.size));
    std::fprintf(f, m_szLabelFmt, msg_Text(15856).c_str());
    std::fprintf(f, m_szRealFmt, res.weightedSum);
    std::fputs("\n", f);
    std::fprintf(f, m_szTitleFmt, msg_Text(15857).c_str());
    std::fputs("\n", f);
    std::fprintf(f, " %7s", msg_Text(15858).c_str());
    std::fprintf(f, " %12s", msg_Text(15859).c_str());
    std::fprintf(f, " %12s\n", msg_Text(15860).c_str());
    // Under "All" the list holds every replication's lags; the first
    // replication's are shown.
    const int count = static_cast<int>(res.lags.size());
    int lines = count < doc->m_nMaxLags ? count : doc->m_nMaxLags;
    for (int i = 0; i < lines; ++i) {
        const CCovarData& c = res.lags[static_cast<std::size_t>(i)];
        std::fprintf(f, " %7ld", static_cast<long>(i + 1));
        std::fprintf(f, " %12.5g", c.covariance);
        std::fprintf(f, " %12.5g\n", c.correlation);
    }
}
