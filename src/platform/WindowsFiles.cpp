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
    if (m_handle != kClosed) std::fclose(Stream(m_handle));
    m_handle = kClosed;
}

std::size_t PlatReadFile::Read(void* buffer, std::size_t n) {
    if (m_handle == kClosed) {
        m_failed = true;
        return 0;
    }
    std::size_t got = std::fread(buffer, 1, n, Stream(m_handle));
    if (got < n && std::ferror(Stream(m_handle))) m_failed = true;
    return got;
}

bool PlatReadFile::Seek(std::int64_t offset) {
    if (m_handle == kClosed || offset < 0) return false;
    return ::_fseeki64(Stream(m_handle), offset, SEEK_SET) == 0;
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
