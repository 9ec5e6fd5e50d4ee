#ifndef _WIN32

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <chrono>
#include <cstdio>
#include <random>

#include "platform/Files.h"

namespace {

// pread until n bytes, the end of the file or an error.
std::size_t ReadFully(int fd, void* buffer, std::size_t n, std::int64_t offset, bool* failed) {
    char* at = static_cast<char*>(buffer);
    std::size_t got = 0;
    *failed = false;
    while (got < n) {
        ssize_t r = ::pread(fd, at + got, n - got, static_cast<off_t>(offset) + static_cast<off_t>(got));
        if (r > 0) {
            got += static_cast<std::size_t>(r);
        } else if (r == 0) {
            break;
        } else if (errno != EINTR) {
            *failed = true;
            break;
        }
    }
    return got;
}

}  // namespace

// One thread per file, made on the first read-ahead: the system copies the
// next block while the caller works through the one before.
struct PlatReadFile::Worker {
    std::mutex lock;
    std::condition_variable wake;
    int fd;
    void* buffer = nullptr;
    std::size_t size = 0;
    std::int64_t offset = 0;
    bool asked = false;        // a request waits for the thread
    bool outstanding = false;  // a request was made and not yet waited for
    bool done = false;
    bool stop = false;
    std::size_t got = 0;
    bool failed = false;
    std::thread thread;

    explicit Worker(int descriptor) : fd(descriptor), thread([this] { Run(); }) {}

    void Run() {
        std::unique_lock<std::mutex> hold(lock);
        for (;;) {
            wake.wait(hold, [this] { return asked || stop; });
            if (asked) {
                asked = false;
                void* into = buffer;
                const std::size_t n = size;
                const std::int64_t from = offset;
                hold.unlock();
                bool bad = false;
                const std::size_t read = ReadFully(fd, into, n, from, &bad);
                hold.lock();
                got = read;
                failed = bad;
                done = true;
                wake.notify_all();
            } else {
                return;
            }
        }
    }
};

PlatReadFile::PlatReadFile() = default;

PlatReadFile::~PlatReadFile() { Close(); }

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
    if (m_worker) {
        if (m_worker->outstanding) WaitReadAhead();
        {
            std::lock_guard<std::mutex> hold(m_worker->lock);
            m_worker->stop = true;
        }
        m_worker->wake.notify_all();
        m_worker->thread.join();
        delete m_worker;
        m_worker = nullptr;
    }
    if (m_handle != kClosed) ::close(static_cast<int>(m_handle));
    m_handle = kClosed;
}

std::size_t PlatReadFile::ReadAt(void* buffer, std::size_t n, std::int64_t offset) {
    if (m_handle == kClosed || offset < 0) {
        m_failed = true;
        return 0;
    }
    return ReadFully(static_cast<int>(m_handle), buffer, n, offset, &m_failed);
}

void PlatReadFile::ReadAhead(void* buffer, std::size_t n, std::int64_t offset) {
    if (m_handle == kClosed || offset < 0) return;
    if (!m_worker) m_worker = new Worker(static_cast<int>(m_handle));
    {
        std::lock_guard<std::mutex> hold(m_worker->lock);
        m_worker->buffer = buffer;
        m_worker->size = n;
        m_worker->offset = offset;
        m_worker->asked = true;
        m_worker->outstanding = true;
        m_worker->done = false;
    }
    m_worker->wake.notify_all();
}

std::size_t PlatReadFile::WaitReadAhead() {
    if (!m_worker || !m_worker->outstanding) {
        m_failed = true;
        return 0;
    }
    std::unique_lock<std::mutex> hold(m_worker->lock);
    m_worker->wake.wait(hold, [this] { return m_worker->done; });
    m_worker->outstanding = false;
    m_failed = m_worker->failed;
    return m_worker->got;
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
