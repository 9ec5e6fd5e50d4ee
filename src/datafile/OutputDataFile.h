// A data file that an analysis or a conversion writes, written whole or not
// at all: header and records go to a temporary file beside the target, which
// replaces the target only on Commit. A writer destroyed without a commit
// closes and removes its temporary file and leaves the target as it was.
#pragma once

#include <cstdio>
#include <string>

#include "datafile/DataFile.h"
#include "framework/SafeOutput.h"

class COutputDataFile {
public:
    // An empty target writes nothing: every call then succeeds and does nothing.
    explicit COutputDataFile(const std::string& target);
    ~COutputDataFile();
    COutputDataFile(const COutputDataFile&) = delete;
    COutputDataFile& operator=(const COutputDataFile&) = delete;

    bool Active() const { return !m_safe.Target().empty(); }
    // Creates the temporary file. 0, or the data-file open's id (15832).
    int Open();
    // The binary header of a file of the kind, count field 1. 0 or 15833.
    int WriteHeader(int kind, int reinit, const std::string& ident, const std::string& title);
    // One record, in the precision the configuration asks for now.
    void Put(double time, double value) { op_WritePair(m_file, &time, &value); }
    // Finishes writing: 0, or 15833 when a write or the close failed.
    int Close();
    // Closes the file if still open and renames it onto the target. 0, or
    // 15833 when a write, the close or the rename failed (the target is then
    // untouched).
    int Commit();

private:
    CSafeOutput m_safe;
    FILE* m_file = nullptr;
    bool m_failed = false;
};
