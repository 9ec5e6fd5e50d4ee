#include "convert/DiffDoc.h"

#include <cmath>
#include <memory>
#include <vector>

#include "convert/ConvertDlgs.h"
#include "convert/TextNumbers.h"
#include "convert/TextOutput.h"
#include "framework/Messages.h"

namespace {

// The cells of a DIF file. Every item is a pair of lines: a type and number
// line, then a keyword or a quoted string. Lines end in CR LF, as the
// format's first readers expected.
class DifWriter {
public:
    DifWriter(CTextOutput& out, bool single) : m_out(out), m_single(single) {}

    // A header item: its topic, the vector (0: the whole table), a number and a string.
    void Header(const char* topic, long number, const std::string& text) {
        Line(topic);
        Line("0," + std::to_string(number));
        Line(Quoted(text));
    }
    void BeginTuple() { Pair("-1,0", "BOT"); }
    void End() { Pair("-1,0", "EOD"); }
    void Text(const std::string& text) { Pair("1,0", Quoted(text)); }
    void Empty() { Pair("1,0", "\"\""); }
    // A number is valid (V); the format has no NaN or infinity, only "not
    // available" and "error", each with the number 0.
    void Number(double x) {
        if (std::isnan(x)) return Pair("0,0", "NA");
        if (std::isinf(x)) return Pair("0,0", "ERROR");
        char text[kNumberTextMax + 2] = "0,";
        const std::size_t n = conv_FormatNumber(text + 2, x, m_single);
        m_out.Write(text, n + 2);
        m_out.Write("\r\nV\r\n", 5);
    }

private:
    void Line(const std::string& text) {
        m_out.Write(text);
        m_out.Write("\r\n", 2);
    }
    void Pair(const char* first, const std::string& second) {
        Line(first);
        Line(second);
    }
    // A quote inside a string is doubled.
    static std::string Quoted(const std::string& text) {
        std::string q = "\"";
        for (char c : text) {
            if (c == '"') q += '"';
            q += c;
        }
        return q + '"';
    }

    CTextOutput& m_out;
    bool m_single;
};

// The observations of one replication (or of all lumped), in order.
struct Column {
    std::vector<double> times;
    std::vector<double> values;
};

}  // namespace

int CDiffDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CDiffDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    m_results = DiffResults{};
    m_results.source = dlg->m_strFile;
    m_results.destination = dlg->m_strOutFile.empty() ? conv_DefaultOutput(dlg->m_strFile, "dif") : dlg->m_strOutFile;
    m_results.reps = dlg->m_strReps;
    if (int rc = conv_OpenSource(*this, *dlg, m_results.destination)) return rc;
    m_results.title = dlg->m_strTitle.empty() ? m_strTitle : dlg->m_strTitle;
    return Write(m_nTreatment);
}

int CDiffDoc::Write(int treatment) {
    // The header counts the rows, so the observations are read first.
    CRecordReader& in = Reader();
    if (int rc = in.Start(treatment)) return rc;
    std::vector<Column> columns(1);
    std::size_t longest = 0;
    for (;;) {
        Column& c = columns.back();
        double t, v;
        while (in.NextObs(&t, &v)) {
            c.times.push_back(t);
            c.values.push_back(v);
        }
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
        m_results.observations += static_cast<long>(c.values.size());
        if (c.values.size() > longest) longest = c.values.size();
        if (treatment != REP_ALL || !in.NextReplication()) break;
        columns.emplace_back();
    }
    const bool byNumber = treatment == REP_ALL;
    m_results.replications = byNumber ? static_cast<int>(columns.size()) : 1;
    m_results.columns = byNumber ? 1 + static_cast<long>(columns.size()) : 2;
    m_results.rows = 1 + static_cast<long>(byNumber ? longest : columns.front().values.size());

    CTextOutput out(m_results.destination);
    if (int rc = out.Open()) return rc;
    DifWriter dif(out, !m_nIsDouble);
    dif.Header("TABLE", 1, m_results.title);
    dif.Header("VECTORS", m_results.columns, "");
    dif.Header("TUPLES", m_results.rows, "");
    dif.Header("DATA", 0, "");
    dif.BeginTuple();
    if (byNumber) {
        dif.Text("Observation");
        for (std::size_t r = 1; r <= columns.size(); ++r) dif.Text("Replication " + std::to_string(r));
        for (std::size_t i = 0; i < longest; ++i) {
            dif.BeginTuple();
            dif.Number(static_cast<double>(i + 1));
            for (const Column& c : columns) {
                if (i < c.values.size())
                    dif.Number(c.values[i]);
                else
                    dif.Empty();
            }
        }
    } else {
        dif.Text(msg_Text(IDS_TIME_LABEL));
        dif.Text(msg_Text(IDS_VALUE_LABEL));
        const Column& c = columns.front();
        for (std::size_t i = 0; i < c.values.size(); ++i) {
            dif.BeginTuple();
            dif.Number(c.times[i]);
            dif.Number(c.values[i]);
        }
    }
    dif.End();
    return out.Commit();
}

ConversionSummary CDiffDoc::Summary() const {
    return ConversionSummary(IDS_DIF_SUMMARY, m_results.source, m_results.destination)
        .Text(0, "reps", m_results.reps, true)
        .Text(0, "title", m_results.title, true)
        .Count(IDS_REPLICATIONS, "replications", m_results.replications)
        .Count(IDS_OBSERVATIONS, "observations", m_results.observations)
        .Count(0, "columns", m_results.columns)
        .Count(0, "rows", m_results.rows);
}
