#include "convert/LoadDoc.h"

#include <cstdio>
#include <filesystem>
#include <string_view>

#include "convert/ConvertDlgs.h"
#include "convert/TextLines.h"
#include "convert/TextNumbers.h"
#include "datafile/OutputDataFile.h"
#include "framework/Config.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

constexpr std::size_t kIdentMax = 24;
constexpr std::size_t kTitleMax = 60;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

const char* SkipBlanks(const char* p, const char* end) {
    while (p != end && IsBlank(*p)) ++p;
    return p;
}

// What a line of the text is.
enum class LineKind { Pair, Close, Skip, Bad, DecimalComma, NegativeTime };

// The rest of a line after a field: blanks, then a comment or nothing.
bool RestIsEmpty(const char* p, const char* end) {
    p = SkipBlanks(p, end);
    return p == end || *p == '#';
}

// "1,5" between digits: someone wrote a decimal comma.
bool HasDecimalComma(std::string_view line) {
    for (std::size_t i = 1; i + 1 < line.size(); ++i)
        if (line[i] == ',' && IsDigit(line[i - 1]) && IsDigit(line[i + 1])) return true;
    return false;
}

LineKind Classify(std::string_view line, bool single, double* t, double* v) {
    const char* p = line.data();
    const char* end = p + line.size();
    p = SkipBlanks(p, end);
    if (p == end) return LineKind::Close;
    if (*p == '#') return LineKind::Skip;
    if (end - p >= 3 && (p[0] | 0x20) == 'e' && (p[1] | 0x20) == 'n' && (p[2] | 0x20) == 'd' && RestIsEmpty(p + 3, end))
        return LineKind::Close;
    const char* q = conv_ParseNumber(p, end, single, t);
    if (q) {
        // One separator: blanks, with at most one comma or semicolon among them.
        const char* s = SkipBlanks(q, end);
        if (s != end && (*s == ',' || *s == ';')) s = SkipBlanks(s + 1, end);
        q = s != q ? conv_ParseNumber(s, end, single, v) : nullptr;
    }
    if (!q || !RestIsEmpty(q, end)) return HasDecimalComma(line) ? LineKind::DecimalComma : LineKind::Bad;
    // A negative time would be read as a marker.
    if (!(*t >= 0.0)) return LineKind::NegativeTime;
    return LineKind::Pair;
}

int LineFailure(int id, long line) {
    AfxMessageBox(id, msg_Format(id, line));
    return id;
}

}  // namespace

int CLoadDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CLoadDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    m_results = LoadResults{};
    m_results.source = dlg->m_strFile;
    m_results.destination = dlg->m_strOutFile.empty() ? conv_DefaultOutput(dlg->m_strFile, "dat") : dlg->m_strOutFile;
    const std::string name =
        dlg->m_strFile == "-" ? std::string("stdin") : std::filesystem::path(dlg->m_strFile).filename().string();
    SetTitle(name);
    const std::string ident = (dlg->m_strIdent.empty() ? name : dlg->m_strIdent).substr(0, kIdentMax);
    const std::string title = (dlg->m_strTitle.empty() ? name : dlg->m_strTitle).substr(0, kTitleMax);

    CTextLines in;
    if (int rc = in.Open(m_results.source)) return rc;
    COutputDataFile out(m_results.destination);
    const int isDouble = dlg->m_nPrecision >= 0 ? dlg->m_nPrecision : (cfg_GetDoublePrecOutput() != 0);
    out.SetPrecision(isDouble);
    if (int rc = out.Open()) return rc;
    m_results.kind = dlg->m_nKind;
    m_results.isDouble = isDouble;
    // Replications of a loaded file are taken as independent runs.
    DataFileHeader h;
    h.kind = dlg->m_nKind;
    std::snprintf(h.type, sizeof h.type, "%s", op_KindText(h.kind));
    h.reinit = 1;
    std::snprintf(h.ident, sizeof h.ident, "%s", ident.c_str());
    h.title = title;
    if (int rc = out.WriteHeader(h)) return rc;

    // A replication's closing marker is written when the next one starts, so
    // that the last can be the end marker.
    int reps = 0;
    bool open = false;
    bool closePending = false;
    std::string_view line;
    while (in.Next(&line)) {
        double t, v;
        switch (Classify(line, !isDouble, &t, &v)) {
            case LineKind::Pair:
                if (!open) {
                    if (closePending) out.Put(-static_cast<double>(reps), MARK_REPEND);
                    closePending = false;
                    open = true;
                    ++reps;
                }
                out.Put(t, v);
                ++m_results.observations;
                break;
            case LineKind::Close:
                if (open) closePending = true;
                open = false;
                break;
            case LineKind::Skip: break;
            case LineKind::Bad: return LineFailure(IDS_LINE_NOT_A_PAIR, in.LineNumber());
            case LineKind::DecimalComma: return LineFailure(IDS_LINE_DECIMAL_COMMA, in.LineNumber());
            case LineKind::NegativeTime: return LineFailure(IDS_LINE_NEGATIVE_TIME, in.LineNumber());
        }
    }
    if (in.Failed()) return IDS_READ_ERROR;
    m_results.lines = in.LineNumber();
    if (reps == 0) return IDS_TEXT_NO_OBSERVATIONS;
    out.Put(-static_cast<double>(reps), MARK_END);
    m_results.replications = reps;
    return out.Commit();
}
