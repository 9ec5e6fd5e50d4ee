#ifdef _WIN32

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdio>
#include <random>
#include <string>

#include "platform/Files.h"

namespace {

// Paths are UTF-8 throughout the core; the wide calls take UTF-16.
std::wstring Wide(const char* text) {
    int n = ::MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
    if (n <= 0) return std::wstring();
    std::wstring out(static_cast<std::size_t>(n), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text, -1, out.data(), n);
    out.resize(static_cast<std::size_t>(n - 1));
    return out;
}

FILE* Stream(std::intptr_t handle) { return reinterpret_cast<FILE*>(handle); }

}  // namespace

// No background thread here: the read-ahead is done when it is asked for,
// and its result kept for the wait.
struct PlatReadFile::Worker {
    std::size_t got = 0;
    bool failed = false;
    bool outstanding = false;
};

PlatReadFile::PlatReadFile() = default;

PlatReadFile::~PlatReadFile() { Close(); }

bool PlatReadFile::Open(const char* path) {
    Close();
    FILE* f = ::_wfopen(Wide(path).c_str(), L"rb");
    if (!f) return false;
    // The caller reads whole blocks; a stream buffer would only copy them twice.
    std::setvbuf(f, nullptr, _IONBF, 0);
    m_handle = reinterpret_cast<std::intptr_t>(f);
    m_failed = false;
    return true;
}

void PlatReadFile::Close() {
    delete m_worker;
    m_worker = nullptr;
    if (m_handle != kClosed) std::fclose(Stream(m_handle));
    m_handle = kClosed;
}

std::size_t PlatReadFile::ReadAt(void* buffer, std::size_t n, std::int64_t offset) {
    m_failed = true;
    if (m_handle == kClosed || offset < 0 || ::_fseeki64(Stream(m_handle), offset, SEEK_SET) != 0) return 0;
    std::size_t got = std::fread(buffer, 1, n, Stream(m_handle));
    m_failed = got < n && std::ferror(Stream(m_handle));
    std::clearerr(Stream(m_handle));
    return got;
}

void PlatReadFile::ReadAhead(void* buffer, std::size_t n, std::int64_t offset) {
    if (!m_worker) m_worker = new Worker;
    m_worker->got = ReadAt(buffer, n, offset);
    m_worker->failed = m_failed;
    m_worker->outstanding = true;
}

std::size_t PlatReadFile::WaitReadAhead() {
    if (!m_worker || !m_worker->outstanding) {
        m_failed = true;
        return 0;
    }
    m_worker->outstanding = false;
    m_failed = m_worker->failed;
    return m_worker->got;
}

FILE* plat_OpenStream(const char* path, const char* mode) { return ::_wfopen(Wide(path).c_str(), Wide(mode).c_str()); }

bool plat_Exists(const char* path) { return ::GetFileAttributesW(Wide(path).c_str()) != INVALID_FILE_ATTRIBUTES; }

std::string plat_CreateTempBeside(const std::string& target) {
    // The name goes after the last separator of either kind; the text stays UTF-8.
    const std::size_t cut = target.find_last_of("/\\:") + 1;  // npos + 1 is 0
    const std::string stem = target.substr(0, cut) + "." + target.substr(cut) + ".";
    static const char kLetters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    static std::mt19937_64 rng(std::random_device{}() ^ static_cast<std::uint64_t>(::GetTickCount64()) ^
                               static_cast<std::uint64_t>(::GetCurrentProcessId()));
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name = stem;
        for (int i = 0; i < 6; ++i) name += kLetters[rng() % (sizeof kLetters - 1)];
        HANDLE h = ::CreateFileW(Wide(name.c_str()).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
        if (h != INVALID_HANDLE_VALUE) {
            ::CloseHandle(h);
            return name;
        }
        if (::GetLastError() != ERROR_FILE_EXISTS) break;
    }
    return stem + "XXXXXX";
}

bool plat_ReplaceFile(const std::string& from, const std::string& to) {
    return ::MoveFileExW(Wide(from.c_str()).c_str(), Wide(to.c_str()).c_str(),
                         MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

bool plat_RemoveFile(const std::string& path) { return ::DeleteFileW(Wide(path.c_str()).c_str()) != 0; }

#endif
