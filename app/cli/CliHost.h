// The terminal host: messages go to stderr (and make the exit status 1),
// progress of long work is shown on stderr when it is a terminal. A document
// window is "shown" by printing its reports and, when the command was given
// --svg, by drawing its graphs into that file.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "framework/Host.h"

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

    // A line on stderr that is not a message of the system: it leaves the
    // exit status alone, and --quiet drops it. Notes wait for the end of the
    // command (FlushNotes), so that a message is always stderr's first line.
    void Note(const std::string& text);
    void FlushNotes();
    void SetQuiet(bool quiet) { m_quiet = quiet; }

    bool MessageShown() const { return m_shown; }
    void Reset() { m_shown = false; }

private:
    std::ostream* m_out;
    std::ostream* m_err;
    bool m_shown = false;
    bool m_terminal;
    bool m_quiet = false;
    std::vector<std::string> m_notes;
    int m_lastPercent = -1;
    const SvgOptions* m_svg = nullptr;
};

class CSession;

// The host and the session cli_Run made for the command being run.
CliHost& cli_Host();
CSession& cli_Session();
