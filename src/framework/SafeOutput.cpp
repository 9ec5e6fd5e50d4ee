#include "framework/SafeOutput.h"

#include "platform/Files.h"

CSafeOutput::CSafeOutput(std::string target) : m_target(std::move(target)) {
    if (!m_target.empty()) m_temp = plat_CreateTempBeside(m_target);
}

CSafeOutput::~CSafeOutput() {
    if (!m_committed && !m_temp.empty()) plat_RemoveFile(m_temp);
}

bool CSafeOutput::Commit() {
    if (m_temp.empty()) return false;
    m_committed = plat_ReplaceFile(m_temp, m_target);
    return m_committed;
}
