// The terminal host: messages go to stderr (and make the exit status 1),
// progress of long work is shown on stderr when it is a terminal.
#pragma once

#include <iosfwd>

#include "framework/Host.h"

class CliHost : public IHost {
public:
    explicit CliHost(std::ostream& err);
    int ShowMessage(int id, const std::string& text, unsigned style) override;
    void Progress(const char* what, double done, double total) override;

    bool MessageShown() const { return m_shown; }
    void Reset() { m_shown = false; }

private:
    std::ostream* m_err;
    bool m_shown = false;
    bool m_terminal;
    int m_lastPercent = -1;
};

// The host installed by cli_Run for the command being run.
CliHost& cli_Host();
