// A text file that a conversion writes (an export, a DIF file): written under
// a temporary name beside the target and renamed into place when complete, as
// data files are, so that a failed run leaves no half file. "-" writes to
// standard output instead, as it goes.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

class CSafeOutput;

class CTextOutput {
public:
    explicit CTextOutput(const std::string& target);
    ~CTextOutput();
    CTextOutput(const CTextOutput&) = delete;
    CTextOutput& operator=(const CTextOutput&) = delete;

    static bool IsStandardOutput(const std::string& target) { return target == "-"; }

    // 0, or 15832 when the temporary file cannot be made.
    int Open();
    FILE* File() const { return m_file; }
    void Write(const char* text, std::size_t n) { std::fwrite(text, 1, n, m_file); }
    void Write(const std::string& text) { Write(text.data(), text.size()); }
    // Finishes the file and renames it onto the target. 0, or 15833 when a
    // write, the close or the rename failed (the target is then untouched).
    int Commit();

private:
    std::string m_target;
    std::unique_ptr<CSafeOutput> m_safe;
    FILE* m_file = nullptr;
};
