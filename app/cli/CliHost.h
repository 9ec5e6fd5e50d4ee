// The terminal host: messages go to stderr (and make the exit status 1),
// progress of long work is shown on stderr when it is a terminal. Nobody can
// fill in a dialog here, so the command being run fills it from its command
// line; a document window is "shown" by printing its reports.
#pragma once

#include <functional>
#include <iosfwd>

#include "framework/Host.h"

class CDocFrame;

class CliHost : public IHost {
public:
    explicit CliHost(std::ostream& err);
    CliHost(std::ostream& out, std::ostream& err);
    int ShowMessage(int id, const std::string& text, unsigned style) override;
    void Progress(const char* what, double done, double total) override;
    // Fills the dialog with the command line's values, then validates it as
    // pressing OK would; a failed check is shown and cancels.
    int RunDialog(CDialog& dlg) override;
    // Prints the report views of the window (or hands it to the command's handler).
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override;

    // The command's way of filling its dialog; false cancels.
    void SetDialogFiller(std::function<bool(CDialog&)> filler) { m_filler = std::move(filler); }
    // Replaces the printing of reports for the command being run (for graphs).
    void SetFrameHandler(std::function<void(CDocFrame&, std::ostream&)> handler) { m_frameHandler = std::move(handler); }

    bool MessageShown() const { return m_shown; }
    void Reset() { m_shown = false; }

private:
    std::ostream* m_out;
    std::ostream* m_err;
    bool m_shown = false;
    bool m_terminal;
    int m_lastPercent = -1;
    std::function<bool(CDialog&)> m_filler;
    std::function<void(CDocFrame&, std::ostream&)> m_frameHandler;
};

// The host installed by cli_Run for the command being run.
CliHost& cli_Host();
