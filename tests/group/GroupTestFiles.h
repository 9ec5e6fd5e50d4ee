// Data files for the data group tests.
#pragma once

#include <filesystem>
#include <string>

#include "TestFiles.h"

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
