#include "convert/ImprtDoc.h"

#include <cctype>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <string_view>

#include "convert/ConvertDlgs.h"
#include "convert/TextLines.h"
#include "convert/TextNumbers.h"
#include "datafile/DataFile.h"
#include "datafile/OutputDataFile.h"
#include "framework/Config.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

constexpr int kHeaderLines = 4;
constexpr long kIdentMax = 24;
// The layer reads header lines into a buffer of 80: a longer line would be
// read as two.
constexpr std::size_t kHeaderLineMax = 78;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// A whole number after optional blanks; null when there is none.
const char* ParseLong(const char* p, const char* end, long* out) {
    while (p != end && IsBlank(*p)) ++p;
    std::from_chars_result r = std::from_chars(p, end, *out);
    return r.ec == std::errc() ? r.ptr : nullptr;
}

// Line 2: count, identifier length and title length, and nothing else.
bool CountsLineValid(std::string_view line) {
    const char* p = line.data();
    const char* end = p + line.size();
    long values[3];
    for (long& v : values)
        if (!(p = ParseLong(p, end, &v)) || v < 0) return false;
    while (p != end && IsBlank(*p)) ++p;
    return p == end && values[1] <= kIdentMax;
}

// A record line: time, blanks, value; blanks may follow.
bool ParseRecord(std::string_view line, bool single, double* t, double* v) {
    const char* p = line.data();
    const char* end = p + line.size();
    while (p != end && IsBlank(*p)) ++p;
    if (!(p = conv_ParseNumber(p, end, single, t))) return false;
    if (p == end || !IsBlank(*p)) return false;
    while (p != end && IsBlank(*p)) ++p;
    if (!(p = conv_ParseNumber(p, end, single, v))) return false;
    while (p != end && IsBlank(*p)) ++p;
    return p == end;
}

// The type field is read by columns, so on a short first line it ends in
// the line end, which would split the data file's header line in two.
std::string TrimBoth(const char* text) {
    auto space = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    std::string_view s(text);
    while (!s.empty() && space(s.front())) s.remove_prefix(1);
    while (!s.empty() && space(s.back())) s.remove_suffix(1);
    return std::string(s);
}

}  // namespace

int CImprtDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CImprtDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    m_results = ImportResults{};
    m_results.source = dlg->m_strFile;
    m_results.destination = dlg->m_strOutFile.empty() ? conv_DefaultOutput(dlg->m_strFile, "dat") : dlg->m_strOutFile;
    SetTitle(std::filesystem::path(m_results.source == "-" ? m_results.destination : m_results.source)
                 .filename()
                 .string());

    CTextLines in;
    if (int rc = in.Open(m_results.source)) return rc;

    // The header through the data-file layer's own reader; the checks here
    // only find the line to blame.
    std::string header;
    std::string_view line;
    for (int i = 1; i <= kHeaderLines; ++i) {
        if (!in.Next(&line) || in.LastLineOpen()) {
            if (in.Failed()) return IDS_READ_ERROR;
            return conv_LineFailure(IDS_LINE_BAD_HEADER, i);
        }
        if (line.size() > kHeaderLineMax || (i == 2 && !CountsLineValid(line)))
            return conv_LineFailure(IDS_LINE_BAD_HEADER, i);
        header.append(line).push_back('\n');
    }
    DataFileHeader h;
    std::size_t used = 0;
    if (op_ParseExportHdr(header.data(), header.size(), &h, &used) || h.kind < KIND_DSTAT || h.kind > KIND_FREQUENCY)
        return conv_LineFailure(IDS_LINE_BAD_HEADER, 1);
    // The export header's type text is right-aligned; the data file's is left-aligned.
    const std::string type = TrimBoth(h.type);
    std::strncpy(h.type, type.c_str(), sizeof h.type - 1);
    // A data file's reader drops trailing blanks of the identifier and the
    // title, so they are dropped here too: otherwise the file would differ
    // from the one its own export imports back to.
    op_TrimRight(h.ident);
    while (!h.title.empty() && std::isspace(static_cast<unsigned char>(h.title.back()))) h.title.pop_back();

    COutputDataFile out(m_results.destination);
    const int isDouble = dlg->m_nPrecision >= 0 ? dlg->m_nPrecision : (cfg_GetDoublePrecOutput() != 0);
    out.SetPrecision(isDouble);
    if (int rc = out.Open()) return rc;
    if (int rc = out.WriteHeader(h)) return rc;
    m_results.kind = h.kind;
    m_results.isDouble = isDouble;

    while (in.Next(&line)) {
        double t, v;
        if (!ParseRecord(line, !isDouble, &t, &v)) return conv_LineFailure(IDS_LINE_NOT_A_PAIR, in.LineNumber());
        if (in.LastLineOpen()) return conv_LineFailure(IDS_TEXT_CUT_SHORT, in.LineNumber());
        out.Put(t, v);
        m_results.copied.Add(t, v);
    }
    if (in.Failed()) return IDS_READ_ERROR;
    if (!m_results.copied.Whole(h.kind)) return conv_LineFailure(IDS_TEXT_CUT_SHORT, in.LineNumber());
    return out.Commit();
}

ConversionSummary CImprtDoc::Summary() const {
    const RecordTally& c = m_results.copied;
    return ConversionSummary(IDS_IMPORT_SUMMARY, m_results.source, m_results.destination)
        .Kind(m_results.kind)
        .Precision(m_results.isDouble)
        .Count(IDS_REPLICATIONS, "replications", c.replications)
        .Count(IDS_OBSERVATIONS, "observations", c.observations)
        .Count(IDS_RECORDS, "records", c.records);
}
