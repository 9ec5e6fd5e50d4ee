#ifndef _WIN32

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <random>

#include "platform/Files.h"

bool PlatReadFile::Open(const char* path) {
    Close();
    int fd = ::open(path, O_RDONLY | O_CLOEXEC);
    if (fd < 0) return false;
#ifdef POSIX_FADV_SEQUENTIAL
    // Doubles the read-ahead window on Linux; only a hint, so its result is ignored.
    (void)::posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
#endif
    m_handle = fd;
    m_failed = false;
    return true;
}

void PlatReadFile::Close() {
    if (m_handle != kClosed) ::close(static_cast<int>(m_handle));
    m_handle = kClosed;
}

std::size_t PlatReadFile::Read(void* buffer, std::size_t n) {
    if (m_handle == kClosed) {
        m_failed = true;
        return 0;
    }
    char* at = static_cast<char*>(buffer);
    std::size_t got = 0;
    while (got < n) {
        ssize_t r = ::read(static_cast<int>(m_handle), at + got, n - got);
        if (r > 0) {
            got += static_cast<std::size_t>(r);
        } else if (r == 0) {
            break;
        } else if (errno != EINTR) {
            m_failed = true;
            break;
        }
    }
    return got;
}

bool PlatReadFile::Seek(std::int64_t offset) {
    if (m_handle == kClosed || offset < 0) return false;
    return ::lseek(static_cast<int>(m_handle), static_cast<off_t>(offset), SEEK_SET) == static_cast<off_t>(offset);
}

FILE* plat_OpenStream(const char* path, const char* mode) { return std::fopen(path, mode); }

bool plat_Exists(const char* path) {
    struct stat st;
    return ::stat(path, &st) == 0;
}

std::string plat_CreateTempBeside(const std::string& target) {
    const std::size_t cut = target.rfind('/') + 1;  // npos + 1 is 0
    const std::string stem = target.substr(0, cut) + "." + target.substr(cut) + ".";
    static const char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    static std::mt19937_64 rng(std::random_device{}() ^
                               static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
                               static_cast<std::uint64_t>(::getpid()));
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name = stem;
        for (int i = 0; i < 6; ++i) name += kLetters[rng() % (sizeof kLetters - 1)];
        // O_EXCL makes the name ours; mode 0666 under the umask is what any new file gets.
        int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0) {
            ::close(fd);
            return name;
        }
        if (errno != EEXIST) break;
    }
    return stem + "XXXXXX";
}

bool plat_ReplaceFile(const std::string& from, const std::string& to) {
    return std::rename(from.c_str(), to.c_str()) == 0;
}

bool plat_RemoveFile(const std::string& path) { return std::remove(path.c_str()) == 0; }

#endif
