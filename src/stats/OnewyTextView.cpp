#include "stats/OnewyTextView.h"

#include <cstdio>
#include <string>

#include "framework/Messages.h"
#include "stats/OnewayResult.h"
#include "stats/OnewyDoc.h"

namespace {

constexpr std::size_t kIdentWidth = 20;

std::string Printed(const char* format, double v) {
    char text[64];
    std::snprintf(text, sizeof text, format, v);
    return text;
}

const char* MethodTitle(int method) {
    switch (method) {
        case ONEWAY_TUKEY: return "TUKEY-KRAMER";
        case ONEWAY_SCHEFFE: return "SCHEFFE";
        case ONEWAY_BONFERRONI: return "BONFERRONI";
        default: return "GAMES-HOWELL";
    }
}

}  // namespace

void COnewyTextView::WriteTest(FILE* out, double f, double critical, double p, bool rejected, double alpha) {
    std::fprintf(out, m_szLabelFmt, "F");
    std::fprintf(out, m_szRealFmt, f);
    std::fprintf(out, m_szLabelFmt, Printed("Critical F at %.3g level", alpha).c_str());
    std::fprintf(out, m_szRealFmt, critical);
    std::fprintf(out, m_szLabelFmt, "P-value");
    std::fprintf(out, m_szRealFmt, p);
    std::fprintf(out, rejected ? "         REJECT H0 => MEANS ARE NOT ALL EQUAL AT %5.3g LEVEL\n"
                               : "         FAIL TO REJECT H0 => MEANS ARE EQUAL AT %5.3g LEVEL\n",
                 alpha);
}

void COnewyTextView::WriteComparisons(FILE* out, const OnewayResult& r, int method) {
    const int k = static_cast<int>(r.groups.size());
    std::fprintf(out, "\n%s %5.3f SIMULTANEOUS INTERVALS ON DIFFERENCES OF MEANS\n", MethodTitle(method), 1.0 - r.alpha);
    const OnewayComparison* first = nullptr;
    for (const OnewayComparison& c : r.comparisons)
        if (c.method == method) {
            first = &c;
            break;
        }
    if (!first) return;
    // The pooled methods share one critical value; Games-Howell has one per pair.
    if (method == ONEWAY_TUKEY) {
        std::fprintf(out, m_szLabelFmt, first->qFromTable ? "Studentized range q (table)" : "Studentized range q (computed)");
        std::fprintf(out, m_szRealFmt, first->q);
    } else if (method == ONEWAY_SCHEFFE) {
        std::fprintf(out, m_szLabelFmt, "sqrt((k - 1) F)");
        std::fprintf(out, m_szRealFmt, first->critical);
    } else if (method == ONEWAY_BONFERRONI) {
        std::fprintf(out, m_szLabelFmt, Printed("t at %.3g", r.alpha / (k * (k - 1.0))).c_str());
        std::fprintf(out, m_szRealFmt, first->critical);
    }
    const bool perPair = method == ONEWAY_GAMES_HOWELL;
    std::fputs(perPair ? "   PAIR    DIFFERENCE       LOWER       UPPER      DF           Q\n"
                       : "   PAIR    DIFFERENCE       LOWER       UPPER\n",
               out);
    bool computed = false;
    for (const OnewayComparison& c : r.comparisons) {
        if (c.method != method) continue;
        char line[160];
        int n = std::snprintf(line, sizeof line, "%3d -%3d  %11.4g %11.4g %11.4g", c.i + 1, c.j + 1, c.difference,
                              c.lower, c.upper);
        if (perPair) {
            n += std::snprintf(line + n, sizeof line - n, " %7ld %11.4g%s", c.df, c.q, c.qFromTable ? " " : "+");
            computed = computed || !c.qFromTable;
        }
        std::string text(line);
        if (c.significant) text += "  *";
        text.erase(text.find_last_not_of(' ') + 1);
        std::fprintf(out, "%s\n", text.c_str());
    }
    std::fprintf(out, "   * INTERVAL EXCLUDES 0: THE MEANS DIFFER AT %5.3g LEVEL\n", r.alpha);
    if (computed) std::fputs("   + Q COMPUTED FROM THE STUDENTIZED RANGE DISTRIBUTION\n", out);
}

void COnewyTextView::WriteReport(FILE* out) {
    if (const auto* doc = dynamic_cast<const COnewyDoc*>(GetDocument())) WriteResult(out, doc->Result());
}

void COnewyTextView::WriteResult(FILE* out, const OnewayResult& r) {
    std::fprintf(out, "%50s\n", msg_Text(IDS_ANOVA_REPORT_TITLE).c_str());
    if (!r.title.empty()) std::fprintf(out, "%50s\n", r.title.c_str());
    std::fputs("\n", out);
    std::fputs("  # IDENTIFIER            NUMBER     AVERAGE    STANDARD\n", out);
    std::fputs("                         OF OBS.               DEVIATION\n", out);
    for (std::size_t i = 0; i < r.groups.size(); ++i) {
        const OnewayGroupResult& g = r.groups[i];
        std::fprintf(out, "%3d %-20.20s %7ld %11.4g %11.4g\n", static_cast<int>(i + 1), g.ident.c_str(), g.stats.n,
                     g.stats.mean, g.stats.sd);
        if (g.ident.size() > kIdentWidth) std::fprintf(out, "    %-s\n", g.ident.c_str() + kIdentWidth);
    }

    const OnewayTable& t = r.table;
    std::fputs("\nSOURCE             DF      SUM OF        MEAN", out);
    std::fputs(r.unequalVariances ? "\n" : "           F\n", out);
    std::fputs("                          SQUARES      SQUARE\n", out);
    std::fprintf(out, "%-10s %10ld %11.4g %11.4g", "Between", t.dfBetween, t.ssBetween, t.msBetween);
    if (r.unequalVariances) {
        std::fputs("\n", out);
    } else {
        std::fprintf(out, " %11.4g\n", t.f);
    }
    std::fprintf(out, "%-10s %10ld %11.4g %11.4g\n", "Within", t.dfWithin, t.ssWithin, t.msWithin);
    std::fprintf(out, "%-10s %10ld %11.4g\n\n", "Total", t.dfBetween + t.dfWithin, t.ssBetween + t.ssWithin);

    if (r.unequalVariances) {
        const OnewayWelch& w = r.welch;
        std::fputs("WELCH'S TEST FOR UNEQUAL VARIANCES\n", out);
        std::fprintf(out, m_szLabelFmt, "Numerator DF");
        std::fprintf(out, m_szIntFmt, w.dfBetween);
        std::fprintf(out, m_szLabelFmt, "Denominator DF");
        std::fprintf(out, m_szRealFmt, w.dfWithinExact);
        std::fprintf(out, m_szLabelFmt, "Denominator DF used");
        std::fprintf(out, m_szIntFmt, w.dfWithin);
        WriteTest(out, w.f, w.fCritical, w.pValue, w.equalRejected, r.alpha);
    } else {
        WriteTest(out, t.f, t.fCritical, t.pValue, t.equalRejected, r.alpha);
    }
    for (int method : oneway_Methods(r)) WriteComparisons(out, r, method);
}
