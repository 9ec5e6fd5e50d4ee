#include "convert/TextOutput.h"

#include "framework/Messages.h"
#include "framework/SafeOutput.h"
#include "platform/Files.h"

CTextOutput::CTextOutput(const std::string& target) : m_target(target) {}

CTextOutput::~CTextOutput() {
    if (m_file && m_file != stdout) std::fclose(m_file);
}

int CTextOutput::Open() {
    if (IsStandardOutput(m_target)) {
        m_file = stdout;
        return 0;
    }
    m_safe = std::make_unique<CSafeOutput>(m_target);
    // Binary: the formats' lines end in a bare LF on every system.
    m_file = plat_OpenStream(m_safe->TempPath().c_str(), "wb");
    return m_file ? 0 : IDS_OPEN_ERROR;
}

int CTextOutput::Commit() {
    if (!m_file) return IDS_WRITE_ERROR;
    if (m_file == stdout) return std::fflush(stdout) != 0 || std::ferror(stdout) ? IDS_WRITE_ERROR : 0;
    bool failed = std::ferror(m_file) != 0;
    failed = std::fclose(m_file) != 0 || failed;
    m_file = nullptr;
    if (failed || !m_safe->Commit()) return IDS_WRITE_ERROR;
    return 0;
}
