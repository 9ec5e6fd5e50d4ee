#include "series/MovTextView.h"

#include <cmath>

#include "framework/Messages.h"
#include "series/MoveDoc.h"
#include "stats/HistTextView.h"

namespace {

constexpr int kTitle = 16084;

// A word the shell reads as itself, or the word in single quotes.
std::string ShellWord(const std::string& word) {
    const bool plain = !word.empty() && word.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"
                                                               "0123456789._/@:+-=,") == std::string::npos;
    if (plain) return word;
    std::string quoted = "'";
    for (char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

}  // namespace

std::string move_BatchCommand(const std::string& file, const std::string& reps, long truncation) {
    std::string line = "oproc batch " + ShellWord(file);
    if (!reps.empty()) line += " --reps " + ShellWord(reps);
    return line + " --trunc-type O --trunc " + std::to_string(truncation);
}

// The labels of this summary are longer than the shared layout allows for.
CMovTextView::CMovTextView() {
    m_szTitleFmt = "%50s\n";
    m_szLabelFmt = "%45s :";
}

void CMovTextView::WriteReport(FILE* f) {
    const auto* doc = dynamic_cast<const CMoveDoc*>(GetDocument());
    if (!doc) return;
    const MoveResults& r = doc->Results();
    auto label = [&](const char* text) { std::fprintf(f, m_szLabelFmt, text); };
    auto whole = [&](const char* text, long x) {
        label(text);
        std::fprintf(f, m_szIntFmt, x);
    };
    auto real = [&](const char* text, double x) {
        label(text);
        std::fprintf(f, m_szRealFmt, x);
    };
    auto string = [&](const char* text, const std::string& s) {
        label(text);
        std::fprintf(f, m_szStringFmt, s.c_str());
    };

    std::fprintf(f, m_szTitleFmt, msg_Text(kTitle).c_str());
    if (!doc->m_strMoveTitle.empty()) std::fprintf(f, m_szTitleFmt, doc->m_strMoveTitle.c_str());
    std::fputs("\n", f);
    string("Data file", doc->m_strFile);
    string("Replication treatment", hist_TreatmentName(doc->m_nTreatment));
    if (r.reps > 1) whole("Replications averaged (Welch's series)", r.reps);
    whole("Window", r.window);
    string("Method", r.method == MOVE_TRAILING ? "Trailing (forecasting)" : "Centred (smoothing)");
    whole("Number of observations", r.n);
    whole("Smoothed values", static_cast<long>(r.smoothed.size()));
    if (!doc->m_strOutFile.empty()) string("Smoothed series stored in file", doc->m_strOutFile);

    if (r.method == MOVE_TRAILING) {
        std::fputs("\n", f);
        real("Next forecast", r.forecast);
        if (r.errors.count > 0) {
            whole("One-step forecasts compared", r.errors.count);
            real("Mean absolute deviation", r.errors.mad);
            real("Mean squared error", r.errors.mse);
            if (std::isnan(r.errors.mape))
                string("Mean absolute percentage error", "omitted: an observation is 0");
            else
                real("Mean absolute percentage error", r.errors.mape);
        }
    }

    if (r.warmupRun) {
        std::fputs("\n", f);
        if (r.mser.bestD < 0) {
            string("Suggested warm-up (MSER-5)", "too few observations (10 needed)");
            return;
        }
        whole("Suggested warm-up (MSER-5), observations", r.mser.truncation);
        whole("Batches of 5 truncated", r.mser.bestD);
        whole("Batches of 5 in the series", r.mser.batches);
        if (r.mser.truncation > 0)
            std::fprintf(f, "\nTo truncate it: %s\n",
                         move_BatchCommand(doc->m_strFile, doc->m_strReps, r.mser.truncation).c_str());
        else
            std::fputs("\nMSER-5 finds no warm-up to truncate.\n", f);
    }
}
