// Data files and folders for the data group tests.
#pragma once

#include <filesystem>
#include <string>

// A fresh folder under the system's temporary folder, removed with its contents.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    std::string File(const std::string& name) const { return (m_dir / name).string(); }
    const std::filesystem::path& Path() const { return m_dir; }

private:
    std::filesystem::path m_dir;
};

// Writes a data file of kind with reps replications of two observations each;
// without complete the final end-of-data marker is left off.
void grp_test_WriteDataFile(const std::string& path, int kind, int reps, const std::string& title,
                            bool complete = true);

// Puts the current directory back when the test ends.
class KeepCurrentDir {
public:
    KeepCurrentDir() : m_dir(std::filesystem::current_path()) {}
    ~KeepCurrentDir() { std::filesystem::current_path(m_dir); }

private:
    std::filesystem::path m_dir;
};
