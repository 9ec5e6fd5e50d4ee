#include "graph/TableView.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <ostream>

#include "datafile/FileGlobals.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "graph/TableDoc.h"

namespace {

constexpr int kObsWidth = 10;
constexpr int kCellWidth = 12;  // each of time and value, "%12.6g"
// Output is handed on in pieces of about this size.
constexpr std::size_t kChunk = std::size_t{1} << 20;

std::string Head(const TableFileResult& f) {
    if (!f.ident.empty()) return f.ident;
    const std::size_t slash = f.path.find_last_of("/\\");
    return slash == std::string::npos ? f.path : f.path.substr(slash + 1);
}

std::string TreatmentText(const TableFileResult& f) {
    if (f.treatment == REP_ALL) return "All";
    if (f.treatment == REP_LUMPED) return "Lumped";
    return std::to_string(f.treatment);
}

std::string Printed(double v) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", v);
    return text;
}

void TrimRight(std::string& line, std::size_t from) {
    std::size_t end = line.size();
    while (end > from && line[end - 1] == ' ') --end;
    line.resize(end);
}

// The shortest text that reads back to the stored number, in the precision of
// the file it came from.
void AppendNumber(std::string& out, double v, bool isDouble) {
    char text[32];
    // Whole numbers (simulation clocks often are) print the same through the
    // integer conversion, at a fraction of the cost of the shortest-digits search.
    if (v == std::trunc(v) && std::fabs(v) < 1e15 && !(v == 0.0 && std::signbit(v))) {
        out.append(text, std::to_chars(text, text + sizeof text, static_cast<std::int64_t>(v)).ptr);
        return;
    }
    std::to_chars_result r = isDouble ? std::to_chars(text, text + sizeof text, v)
                                      : std::to_chars(text, text + sizeof text, static_cast<float>(v));
    out.append(text, r.ptr);
}

void AppendJsonNumber(std::string& out, double v, bool isDouble) {
    if (std::isfinite(v))
        AppendNumber(out, v, isDouble);
    else
        out += "null";
}

void AppendJsonOptional(std::string& out, bool given, double v, bool isDouble = true) {
    if (given)
        AppendJsonNumber(out, v, isDouble);
    else
        out += "null";
}

void AppendJsonString(std::string& out, const std::string& s) {
    out += '"';
    for (unsigned char c : s) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c < 0x20) {
            char esc[8];
            std::snprintf(esc, sizeof esc, "\\u%04x", c);
            out += esc;
        } else {
            out += static_cast<char>(c);
        }
    }
    out += '"';
}

void Flush(std::ostream& out, std::string& buf, bool force) {
    if (!force && buf.size() < kChunk) return;
    out.write(buf.data(), static_cast<std::streamsize>(buf.size()));
    buf.clear();
}

}  // namespace

CTableDoc* CTableView::Doc() const { return dynamic_cast<CTableDoc*>(m_pDocument); }

void CTableView::WriteReport(FILE* out) {
    CTableDoc* doc = Doc();
    if (!doc) return;
    const TableResults& r = doc->Results();
    std::fprintf(out, m_szTitleFmt, "Table of Observations");
    if (!r.title.empty()) std::fprintf(out, m_szTitleFmt, r.title.c_str());
    std::fprintf(out, "\n");
    bool repEnds = false;
    for (std::size_t i = 0; i < r.files.size(); ++i) {
        const TableFileResult& f = r.files[i];
        std::fprintf(out, "File %zu: %s\n", i + 1, f.path.c_str());
        std::fprintf(out, "    Identifier:   %s\n", f.ident.c_str());
        std::fprintf(out, "    Title:        %s\n", f.title.c_str());
        std::fprintf(out, "    Kind:         %s\n", op_KindText(f.kind));
        std::fprintf(out, "    Replications: %s\n", TreatmentText(f).c_str());
        if (f.treatment == REP_ALL) repEnds = true;
    }
    const TableWindow& w = r.window;
    if (r.timesGiven[0] || r.timesGiven[1]) {
        std::fprintf(out, "Times from %s to %s\n", r.timesGiven[0] ? Printed(w.from).c_str() : "the first",
                     r.timesGiven[1] ? Printed(w.to).c_str() : "the last");
    }
    if (w.first > 1 || w.count != TableWindow{}.count) {
        std::fprintf(out, "Rows from %lld", static_cast<long long>(w.first));
        if (w.count != TableWindow{}.count) std::fprintf(out, ", at most %lld", static_cast<long long>(w.count));
        std::fprintf(out, "\n");
    }
    if (repEnds) std::fprintf(out, "A row of dashes ends a replication.\n");
    std::fprintf(out, "\n");

    std::string line(kObsWidth - 3, ' ');
    line += "Obs";
    for (const TableFileResult& f : r.files) {
        char cell[64];
        std::snprintf(cell, sizeof cell, "  %-*.*s", 2 * kCellWidth + 1, 2 * kCellWidth + 1, Head(f).c_str());
        line += cell;
    }
    TrimRight(line, 0);
    std::fprintf(out, "%s\n", line.c_str());
    line.assign(kObsWidth, ' ');
    for (std::size_t i = 0; i < r.files.size(); ++i) {
        char cell[64];
        std::snprintf(cell, sizeof cell, "  %*s %*s", kCellWidth, "Time", kCellWidth, "Value");
        line += cell;
    }
    std::fprintf(out, "%s\n", line.c_str());
}

void CTableView::AppendTextLine(const TableRow& row, std::string& out) const {
    const std::size_t start = out.size();
    char cell[96];
    if (row.IsRepEnd()) {
        out.append(kObsWidth, '-');
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            out += "  ";
            out.append(kCellWidth, '-');
            out += ' ';
            out.append(kCellWidth, '-');
        }
    } else {
        std::snprintf(cell, sizeof cell, "%*lld", kObsWidth, static_cast<long long>(row.obs));
        out += cell;
        for (const TableCell& c : row.cells) {
            if (c.filled) {
                std::snprintf(cell, sizeof cell, "  %*.6g %*.6g", kCellWidth, c.time, kCellWidth, c.value);
                out += cell;
            } else {
                out.append(2 * kCellWidth + 3, ' ');
            }
        }
        TrimRight(out, start);
    }
    out += '\n';
}

std::int64_t CTableView::BodyLineCount() {
    CTableDoc* doc = Doc();
    return doc ? doc->RowCount() : 0;
}

std::string CTableView::BodyLines(std::int64_t first, std::int64_t count) {
    std::string text;
    CTableDoc* doc = Doc();
    if (!doc) return text;
    std::vector<TableRow> rows;
    doc->FetchRows(first, count, &rows);
    for (const TableRow& row : rows) AppendTextLine(row, text);
    return text;
}

int CTableView::WriteAll(std::ostream& out, ReportFormat format) {
    CTableDoc* doc = Doc();
    if (!doc) return 0;
    const TableResults& r = doc->Results();
    const std::size_t n = r.files.size();
    std::string buf;
    buf.reserve(kChunk + 4096);

    if (format == ReportFormat::Text) {
        buf = GetText();
    } else if (format == ReportFormat::Csv) {
        buf += "obs";
        for (std::size_t i = 1; i <= n; ++i) buf += ",time_" + std::to_string(i) + ",value_" + std::to_string(i);
        buf += '\n';
    } else {
        buf += "{\"command\":\"table\",\"parameters\":{\"title\":";
        AppendJsonString(buf, r.title);
        buf += ",\"from\":";
        AppendJsonOptional(buf, r.timesGiven[0], r.window.from);
        buf += ",\"to\":";
        AppendJsonOptional(buf, r.timesGiven[1], r.window.to);
        buf += ",\"first\":" + std::to_string(r.window.first) + ",\"count\":";
        buf += r.window.count == TableWindow{}.count ? "null" : std::to_string(r.window.count);
        buf += "},\"results\":{\"files\":[";
        for (std::size_t i = 0; i < n; ++i) {
            const TableFileResult& f = r.files[i];
            buf += i ? ",{\"file\":" : "{\"file\":";
            AppendJsonString(buf, f.path);
            buf += ",\"reps\":";
            AppendJsonString(buf, f.reps);
            buf += ",\"identifier\":";
            AppendJsonString(buf, f.ident);
            buf += ",\"title\":";
            AppendJsonString(buf, f.title);
            buf += ",\"kind\":";
            AppendJsonString(buf, op_KindText(f.kind));
            buf += '}';
        }
        buf += "],\"rows\":[";
    }

    std::vector<char> isDouble(n);
    for (std::size_t i = 0; i < n; ++i) isDouble[i] = r.files[i].isDouble;
    CTableRows& rows = doc->Rows();
    TableRow row;
    bool firstRow = true;
    char num[24];
    while (rows.Next(&row)) {
        if (format == ReportFormat::Text) {
            AppendTextLine(row, buf);
        } else if (format == ReportFormat::Csv) {
            // A replication end is a row without a number.
            if (!row.IsRepEnd()) buf.append(num, std::to_chars(num, num + sizeof num, row.obs).ptr);
            for (std::size_t i = 0; i < n; ++i) {
                const TableCell& c = row.cells[i];
                buf += ',';
                if (c.filled) AppendNumber(buf, c.time, isDouble[i]);
                buf += ',';
                if (c.filled) AppendNumber(buf, c.value, isDouble[i]);
            }
            buf += '\n';
        } else {
            // [obs, time_1, value_1, ...] with null for an empty cell; [] for a replication end.
            buf += firstRow ? "\n[" : ",\n[";
            firstRow = false;
            if (!row.IsRepEnd()) {
                buf.append(num, std::to_chars(num, num + sizeof num, row.obs).ptr);
                for (std::size_t i = 0; i < n; ++i) {
                    const TableCell& c = row.cells[i];
                    buf += ',';
                    AppendJsonOptional(buf, c.filled, c.time, isDouble[i]);
                    buf += ',';
                    AppendJsonOptional(buf, c.filled, c.value, isDouble[i]);
                }
            }
            buf += ']';
        }
        Flush(out, buf, false);
    }
    const int rc = rows.Error();
    if (format == ReportFormat::Json) {
        buf += "]},\"messages\":[";
        if (rc) {
            buf += "{\"id\":" + std::to_string(rc) + ",\"text\":";
            AppendJsonString(buf, msg_Text(rc));
            buf += '}';
        }
        buf += "]}\n";
    }
    Flush(out, buf, true);
    out.flush();
    if (rc) AfxMessageBox(rc);
    return rc;
}
