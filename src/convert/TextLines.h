// Lines of a text file read in large blocks, for the conversions that read
// text (import, load): no stream per number and no copy per line. "-" reads
// standard input.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

class CTextLines {
public:
    CTextLines() = default;
    ~CTextLines();
    CTextLines(const CTextLines&) = delete;
    CTextLines& operator=(const CTextLines&) = delete;

    // 0, 15811 (no such file) or 15832 (it cannot be opened).
    int Open(const std::string& path);
    // The next line without its LF (and without a CR before it); false at the
    // end of the file or on a read error (Failed). The view lasts until the
    // next call.
    bool Next(std::string_view* line);
    // The number of the line last returned, from 1.
    long LineNumber() const { return m_line; }
    // The last line returned ended at the end of the file, not at an LF.
    bool LastLineOpen() const { return m_open; }
    bool Failed() const { return m_failed; }

private:
    bool Fill();

    FILE* m_file = nullptr;
    bool m_owned = false;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_capacity = 0;
    const char* m_cur = nullptr;
    const char* m_end = nullptr;
    bool m_eof = false;
    bool m_failed = false;
    bool m_open = false;
    long m_line = 0;
};
