#include "stats/HistTextView.h"

#include "datafile/DataFile.h"
#include "framework/Messages.h"
#include "framework/WholeNumber.h"
#include "stats/HistDoc.h"

namespace {

constexpr int kTitle = 16081;

}  // namespace

std::string hist_TreatmentName(int treatment) {
    if (treatment == REP_ALL) return "All";
    if (treatment == REP_LUMPED) return "Lumped";
    return std::to_string(treatment);
}

void CHistTextView::WriteReport(FILE* f) {
    if (const auto* doc = dynamic_cast<const CHistDoc*>(GetDocument()))
        WriteResult(f, doc->Results(), doc->m_strFile, doc->m_nTreatment, doc->m_strHistTitle);
}

void CHistTextView::WriteResult(FILE* f, const HistogramResult& r, const std::string& file, int treatment,
                                const std::string& title) {
    auto label = [&](const char* text) { std::fprintf(f, m_szLabelFmt, text); };
    auto real = [&](const char* text, double x) {
        label(text);
        std::fprintf(f, m_szRealFmt, x);
    };
    // Observations are counted; time is a real, with the digits of a run length.
    auto amount = [&](const char* text, double x) {
        label(text);
        if (r.timeWeighted)
            std::fprintf(f, " %11.6g\n", x);
        else
            std::fprintf(f, m_szIntFmt, WholeLong(x));
    };

    std::fprintf(f, m_szTitleFmt, msg_Text(kTitle).c_str());
    if (!title.empty()) std::fprintf(f, m_szTitleFmt, title.c_str());
    std::fputs("\n", f);
    label("Data file");
    std::fprintf(f, m_szStringFmt, file.c_str());
    label("Replication treatment");
    std::fprintf(f, m_szStringFmt, hist_TreatmentName(treatment).c_str());
    if (r.timeWeighted) {
        amount("Total time", r.n);
        real("Time-weighted mean", r.mean);
        real("Time-weighted standard deviation", r.sd);
    } else {
        amount("Number of observations", r.n);
        real("Mean", r.mean);
        real("Standard deviation", r.sd);
    }
    real("Minimum", r.min);
    real("Maximum", r.max);
    amount(r.timeWeighted ? "Time below first cell" : "Observations below first cell", r.below);
    amount(r.timeWeighted ? "Time at or above last cell" : "Observations at or above last cell", r.above);
    std::fputs("\n", f);
    if (r.timeWeighted)
        std::fputs("Time-weighted: each value counts for the time it holds, until the next change.\n\n", f);
    std::fprintf(f, "        LOWER        UPPER  %10s    RELATIVE  CUMULATIVE\n", r.timeWeighted ? "TIME" : "COUNT");
    for (const HistogramCell& c : r.cells) {
        std::fprintf(f, " %12.6g %12.6g", c.lower, c.upper);
        if (r.timeWeighted)
            std::fprintf(f, " %11.4g", c.count);
        else
            std::fprintf(f, " %11ld", WholeLong(c.count));
        std::fprintf(f, " %11.4g %11.4g\n", c.relative, c.cumulative);
    }
}
