// The terminal host: messages go to stderr (and make the exit status 1),
// progress of long work is shown on stderr when it is a terminal. A document
// window is "shown" by printing its reports and, when the command was given
// --svg, by drawing its graphs into that file.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ResultFormat.h"
#include "framework/Host.h"
#include "report/PagedReport.h"
#include "report/ResultValue.h"

class CDocFrame;
struct SvgOptions;

class CliHost : public IHost {
public:
    explicit CliHost(std::ostream& err);
    CliHost(std::ostream& out, std::ostream& err);
    int ShowMessage(int id, const std::string& text, unsigned style) override;
    void Progress(const char* what, double done, double total) override;
    // Nobody can fill in a dialog here: without a filler it is cancelled.
    int RunDialog(CDialog& dlg) override;
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override;

    // Where the graphs of the windows shown go (--svg, --size); null: nowhere.
    void SetSvgOutput(const SvgOptions* svg) { m_svg = svg; }
    // How a report too long to hold is written: it streams in this format.
    void SetPagedFormat(ReportFormat format) { m_pagedFormat = format; }

    // Where the reports of the windows shown go: standard output unless a
    // command writes its data there ("-").
    void SetReportStream(std::ostream* out) { m_out = out; }

    // A line on stderr that is not a message of the system: it leaves the
    // exit status alone, and --quiet drops it. Notes wait for the end of the
    // command (FlushNotes), so that a message is always stderr's first line.
    void Note(const std::string& text);
    void FlushNotes();
    void SetQuiet(bool quiet) { m_quiet = quiet; }

    bool MessageShown() const { return m_shown; }
    void Reset() { m_shown = false; }

    // Under a format other than text a window shown gives its results rather
    // than its report; messages are kept for the results either way.
    void SetFormat(ResultFormat format) { m_format = format; }
    ResultFormat Format() const { return m_format; }
    void SetResults(ResultRecord record) { m_results = std::move(record); }
    const std::optional<ResultRecord>& Results() const { return m_results; }
    const std::vector<std::pair<int, std::string>>& Messages() const { return m_messages; }

private:
    std::ostream* m_out;
    std::ostream* m_err;
    bool m_shown = false;
    bool m_terminal;
    bool m_quiet = false;
    std::vector<std::string> m_notes;
    int m_lastPercent = -1;
    const SvgOptions* m_svg = nullptr;
    ReportFormat m_pagedFormat = ReportFormat::Text;
    ResultFormat m_format = ResultFormat::Text;
    std::optional<ResultRecord> m_results;
    std::vector<std::pair<int, std::string>> m_messages;
};

class CSession;

// The host and the session cli_Run made for the command being run.
CliHost& cli_Host();
CSession& cli_Session();
