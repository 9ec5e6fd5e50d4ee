#include "framework/SafeOutput.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

CSafeOutput::CSafeOutput(std::string target) : m_target(std::move(target)) {
    if (m_target.empty()) return;
    fs::path t(m_target);
    std::string pattern = (t.parent_path() / ("." + t.filename().string() + ".XXXXXX")).string();
    std::vector<char> buf(pattern.begin(), pattern.end());
    buf.push_back('\0');
    int fd = ::mkstemp(buf.data());
    if (fd >= 0) {
        // mkstemp makes the file private; give it the permissions of any new file.
        mode_t mask = ::umask(0);
        ::umask(mask);
        ::fchmod(fd, 0666 & ~mask);
        ::close(fd);
        m_temp = buf.data();
    } else {
        // Unwritable folder: the writer's own open fails on this name and reports it.
        m_temp = pattern;
    }
}

CSafeOutput::~CSafeOutput() {
    if (!m_committed && !m_temp.empty()) std::remove(m_temp.c_str());
}

bool CSafeOutput::Commit() {
    if (m_temp.empty()) return false;
    std::error_code ec;
    fs::rename(m_temp, m_target, ec);
    m_committed = !ec;
    return m_committed;
}
