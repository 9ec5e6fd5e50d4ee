#include "framework/FileProgress.h"

#include <filesystem>
#include <system_error>

#include "framework/Host.h"

void CFileProgress::Start(const std::string& path) {
    m_path = path;
    m_size = -1;
}

bool CFileProgress::Report(std::int64_t done) {
    if (m_size < 0) {
        std::error_code ec;
        const std::uintmax_t size = std::filesystem::file_size(m_path, ec);
        m_size = ec ? 0.0 : static_cast<double>(size);
    }
    // Without a size the host shows nothing but can still stop the work.
    return host_Get().Progress(m_path.c_str(), static_cast<double>(done), m_size, ProgressUnit::Bytes);
}
