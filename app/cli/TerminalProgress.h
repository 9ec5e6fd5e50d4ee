// The progress line of long work on a terminal's stderr: it appears once the
// command has been at work for half a second (OPROC_PROGRESS_DELAY_MS sets
// another delay), is redrawn in place at most every 100 ms, and is erased
// when the work reaches its end or anything else is about to be written.
//
//     big.dat   45%  212 MB/s  0:03 left
#pragma once

#include <chrono>
#include <iosfwd>
#include <string>

#include "framework/Host.h"

class TerminalProgress {
public:
    explicit TerminalProgress(std::ostream& err);

    void Report(const char* what, double done, double total, ProgressUnit unit);
    // Erases the line if it shows.
    void Erase();

private:
    using Clock = std::chrono::steady_clock;

    std::ostream& m_err;
    Clock::duration m_delay;
    bool m_started = false;
    Clock::time_point m_first;  // the first report of the command
    bool m_shown = false;
    Clock::time_point m_drawn;

    // The piece of work under way: one pass over one file.
    std::string m_what;
    double m_startDone = 0;
    double m_lastDone = 0;
    Clock::time_point m_start;
};
