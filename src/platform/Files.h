// The little the core needs from the operating system beyond the standard
// library: files opened by UTF-8 path, large unbuffered sequential reads, unique
// temporary names and an atomic replace. One implementation per system
// (PosixFiles.cpp, WindowsFiles.cpp); nothing above this folder calls the
// system directly.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

// A file read in large blocks straight from the system, with no stream buffer
// of its own: the reader above keeps its blocks and copies nothing twice.
// Reads name their offset. One read may run ahead in the background while
// the caller works on the block before it; where the system offers no cheap
// way to do that, the read-ahead is done at once.
class PlatReadFile {
public:
    PlatReadFile();
    ~PlatReadFile();
    PlatReadFile(const PlatReadFile&) = delete;
    PlatReadFile& operator=(const PlatReadFile&) = delete;

    // Opens for reading and tells the system that the reads run forward.
    bool Open(const char* path);
    // Waits for a read-ahead still running, then closes.
    void Close();
    bool IsOpen() const { return m_handle != kClosed; }
    // Reads up to n bytes from offset; fewer only at the end of the file or
    // on an error, which Failed() then tells.
    std::size_t ReadAt(void* buffer, std::size_t n, std::int64_t offset);
    // Starts reading up to n bytes from offset into buffer, which the caller
    // leaves alone until WaitReadAhead. One at a time.
    void ReadAhead(void* buffer, std::size_t n, std::int64_t offset);
    // The bytes the read-ahead read; Failed() tells about it.
    std::size_t WaitReadAhead();
    bool Failed() const { return m_failed; }

    struct Worker;  // the background reader, per system

private:
    static constexpr std::intptr_t kClosed = -1;
    std::intptr_t m_handle = kClosed;  // a descriptor, or a stream on Windows
    bool m_failed = false;
    Worker* m_worker = nullptr;  // made on the first read-ahead
};

// std::fopen for a UTF-8 path.
FILE* plat_OpenStream(const char* path, const char* mode);
// Whether anything exists under the path.
bool plat_Exists(const char* path);
// Creates a new, empty file of a unique name beside target (".NAME.xxxxxx" in
// target's folder) with the permissions of any new file, and returns its
// name; when none can be made, the name pattern, whose own open then fails.
std::string plat_CreateTempBeside(const std::string& target);
// Renames from onto to, replacing an existing file in one step. False on failure.
bool plat_ReplaceFile(const std::string& from, const std::string& to);
// Removes a file; false when it could not be removed.
bool plat_RemoveFile(const std::string& path);
