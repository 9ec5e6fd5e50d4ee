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
    // The binary header with every field given: kind, type text, reinit, count,
    // identifier and title (a file rebuilt from its export). 0 or 15833.
    int WriteHeader(const DataFileHeader& h);
    // Header and records from now on in this precision (1 doubles, 0 floats)
    // whatever the configuration says: a conversion that keeps a file's own
    // precision, or that was told one. -1 follows the configuration again.
    void SetPrecision(int isDouble) { m_fixed = isDouble; }
    // One record, in the precision the configuration asks for now (or the one set).
    void Put(double time, double value) {
        if (m_fixed < 0)
            op_WritePair(m_file, &time, &value);
        else
            PutFixed(time, value);
    }
    // Bytes copied as they are: the unchanged part of a file being extended.
    void PutBytes(const void* bytes, std::size_t n);
    // Finishes writing: 0, or 15833 when a write or the close failed.
    int Close();
    // Closes the file if still open and renames it onto the target. 0, or
    // 15833 when a write, the close or the rename failed (the target is then
    // untouched).
    int Commit();

private:
    void PutFixed(double time, double value);

    CSafeOutput m_safe;
    int m_fixed = -1;
    FILE* m_file = nullptr;
    bool m_failed = false;
};
