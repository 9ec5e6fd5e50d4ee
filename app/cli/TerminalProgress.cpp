#include "TerminalProgress.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ostream>

namespace {

constexpr auto kRedraw = std::chrono::milliseconds(100);
constexpr std::size_t kWhatWidth = 40;
// Below this the rate is still mostly the start-up of the read.
constexpr double kRateAfter = 0.2;

std::chrono::milliseconds DelayFromEnvironment() {
    if (const char* text = std::getenv("OPROC_PROGRESS_DELAY_MS")) {
        char* end = nullptr;
        const long ms = std::strtol(text, &end, 10);
        if (end != text && *end == '\0' && ms >= 0) return std::chrono::milliseconds(ms);
    }
    return std::chrono::milliseconds(500);
}

std::string Duration(double seconds) {
    const long s = std::lround(seconds);
    char text[32];
    if (s >= 3600)
        std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", s / 3600, s / 60 % 60, s % 60);
    else
        std::snprintf(text, sizeof text, "%ld:%02ld", s / 60, s % 60);
    return text;
}

// The line for done of total, with the rate of the work since startDone
// when its time, seconds, is above 0.
std::string Line(const std::string& what, double done, double total, ProgressUnit unit, double startDone,
                 double seconds) {
    std::string line = what.size() > kWhatWidth ? "..." + what.substr(what.size() - kWhatWidth + 3) : what;
    char text[64];
    const int percent = static_cast<int>(std::floor(100.0 * done / total));
    std::snprintf(text, sizeof text, "  %3d%%", percent < 0 ? 0 : percent > 99 ? 99 : percent);
    line += text;
    const double rate = seconds > 0 ? (done - startDone) / seconds : 0;
    if (rate > 0) {
        if (unit == ProgressUnit::Bytes) {
            const double mb = rate / 1e6;
            std::snprintf(text, sizeof text, mb < 10 ? "  %.1f MB/s" : "  %.0f MB/s", mb);
            line += text;
        }
        line += "  " + Duration((total - done) / rate) + " left";
    }
    return line;
}

}  // namespace

TerminalProgress::TerminalProgress(std::ostream& err) : m_err(err), m_delay(DelayFromEnvironment()) {}

void TerminalProgress::Report(const char* what, double done, double total, ProgressUnit unit) {
    // A clock read per report is nothing: reports come once per block read.
    const Clock::time_point now = Clock::now();
    if (!m_started) {
        m_started = true;
        m_first = now;
    }
    if (m_what != what || done < m_lastDone) {
        // Another file, or the same one read again.
        m_what = what;
        m_startDone = done;
        m_start = now;
    }
    m_lastDone = done;
    if (done >= total) {
        Erase();
        m_what.clear();
        m_lastDone = 0;
        return;
    }
    if (now - m_first < m_delay || (m_shown && now - m_drawn < kRedraw)) return;
    const double seconds = std::chrono::duration<double>(now - m_start).count();
    m_err << '\r' << Line(m_what, done, total, unit, m_startDone, seconds >= kRateAfter ? seconds : 0) << "\033[K"
          << std::flush;
    m_shown = true;
    m_drawn = now;
}

void TerminalProgress::Erase() {
    if (!m_shown) return;
    m_err << "\r\033[K" << std::flush;
    m_shown = false;
}
