#include "convert/TextLines.h"

#include <cstring>

#include "framework/Messages.h"
#include "platform/Files.h"

namespace {

// Large enough that the reads cost nothing beside the parsing.
constexpr std::size_t kBlock = std::size_t{1} << 20;

}  // namespace

CTextLines::~CTextLines() {
    if (m_owned && m_file) std::fclose(m_file);
}

int CTextLines::Open(const std::string& path) {
    if (path == "-") {
        m_file = stdin;
        m_owned = false;
    } else {
        if (!plat_Exists(path.c_str())) return IDS_FILE_NOT_FOUND;
        m_file = plat_OpenStream(path.c_str(), "rb");
        if (!m_file) return IDS_OPEN_ERROR;
        m_owned = true;
    }
    m_capacity = kBlock;
    m_buffer = std::make_unique<char[]>(m_capacity);
    m_cur = m_end = m_buffer.get();
    return 0;
}

// Moves the unread rest of the buffer to its start and reads after it,
// growing the buffer when one line fills it.
bool CTextLines::Fill() {
    if (m_eof || !m_file) return false;
    const std::size_t rest = static_cast<std::size_t>(m_end - m_cur);
    if (rest == m_capacity) {
        auto bigger = std::make_unique<char[]>(m_capacity * 2);
        std::memcpy(bigger.get(), m_cur, rest);
        m_buffer = std::move(bigger);
        m_capacity *= 2;
    } else if (rest) {
        std::memmove(m_buffer.get(), m_cur, rest);
    }
    char* base = m_buffer.get();
    const std::size_t got = std::fread(base + rest, 1, m_capacity - rest, m_file);
    if (got < m_capacity - rest) {
        m_eof = true;
        m_failed = std::ferror(m_file) != 0;
    }
    m_cur = base;
    m_end = base + rest + got;
    return got > 0;
}

bool CTextLines::Next(std::string_view* line) {
    if (m_failed) return false;
    const char* nl;
    while (!(nl = static_cast<const char*>(std::memchr(m_cur, '\n', static_cast<std::size_t>(m_end - m_cur))))) {
        if (!Fill()) {
            if (m_failed || m_cur == m_end) return false;
            // The last line, without its LF.
            *line = std::string_view(m_cur, static_cast<std::size_t>(m_end - m_cur));
            if (!line->empty() && line->back() == '\r') line->remove_suffix(1);
            m_cur = m_end;
            m_open = true;
            ++m_line;
            return true;
        }
    }
    std::size_t n = static_cast<std::size_t>(nl - m_cur);
    if (n && m_cur[n - 1] == '\r') --n;
    *line = std::string_view(m_cur, n);
    m_cur = nl + 1;
    ++m_line;
    return true;
}
