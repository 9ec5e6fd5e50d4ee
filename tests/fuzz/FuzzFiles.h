// What the fuzz targets share: the readers under test take paths, so each
// input goes to one file of the process's own, rewritten for every input.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

// A path of this process's own, in memory where the machine offers it: the
// fuzzer writes it thousands of times a second.
inline std::string fuzz_TempPath(const char* extension) {
    std::error_code ec;
    std::filesystem::path dir = std::filesystem::is_directory("/dev/shm", ec)
                                    ? std::filesystem::path("/dev/shm")
                                    : std::filesystem::temp_directory_path();
    return (dir / ("oproc-fuzz-" + std::to_string(getpid()) + extension)).string();
}

inline void fuzz_WriteFile(const std::string& path, const std::uint8_t* data, std::size_t size) {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) std::abort();  // the machine, not the input: stop rather than test nothing
    if (size && std::fwrite(data, 1, size, f) != size) std::abort();
    std::fclose(f);
}

inline std::string fuzz_ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline bool fuzz_Exists(const std::string& path) {
    std::error_code ec;
    return std::filesystem::exists(path, ec);
}

inline void fuzz_Remove(const std::string& path) {
    std::error_code ec;
    std::filesystem::remove(path, ec);
}
