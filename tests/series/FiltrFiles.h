// Batch/Truncate tests: data files written and read back through the data-file
// layer, and one run of the dialog and the document.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "TestFiles.h"
#include "datafile/DataFile.h"
#include "framework/Config.h"

namespace filtr_test {

struct Pair {
    double t;
    double v;
};

// Writes the precision the test asks for and puts the setting back after.
class ScopedPrecision {
public:
    explicit ScopedPrecision(int value) : m_old(cfg_GetDoublePrecOutput()) { cfg_SetDoublePrecOutput(value); }
    ~ScopedPrecision() { cfg_SetDoublePrecOutput(m_old); }

private:
    int m_old;
};

inline void WriteDataFile(const std::string& path, int kind, const std::vector<Pair>& records,
                          const char* ident = "IDENT", const std::string& title = "Test data", int reinit = 1,
                          int doublePrecision = 1) {
    ScopedPrecision precision(doublePrecision);
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 4, false);
    op_WriteFileHdr(f, false, kind, op_KindText(kind), reinit, 1, 0, 0, ident, title);
    for (const Pair& p : records) op_WritePair(f, &p.t, &p.v);
    std::fclose(f);
}

// The records of a data file after its header (8- or 4-byte as the header says).
inline std::vector<Pair> ReadRecords(const std::string& path) {
    std::vector<Pair> out;
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path.c_str(), 2, true);
    if (!f) return out;
    DataFileHeader h;
    if (op_ReadFileHdr(f, false, &h) == 0) {
        for (;;) {
            Pair p{};
            op_ReadPair(f, h.isDouble, &p.t, &p.v);
            if (std::feof(f) || std::ferror(f)) break;
            out.push_back(p);
        }
    }
    std::fclose(f);
    return out;
}

}  // namespace filtr_test

#include "series/FiltrDlg.h"
#include "series/FiltrDoc.h"

namespace filtr_test {

// The dialog texts of one Batch/Truncate run.
struct BatchArgs {
    std::string file = {};
    std::string reps = {};
    std::string truncType = {};
    std::string trunc = {};
    std::string batchType = {};
    std::string batchSize = {};
    std::string out = {};
    std::string title = {};
};

// Dialog checks, then the document, as the command does. 0 or a message id.
inline int RunBatch(CFiltrDoc& doc, const BatchArgs& a) {
    CFiltrDlg d;
    d.m_strFile = a.file;
    d.m_strReps = a.reps;
    d.m_strTruncType = a.truncType;
    d.m_strTrunc = a.trunc;
    d.m_strBatchType = a.batchType;
    d.m_strBatchSize = a.batchSize;
    d.m_strOutFile = a.out;
    d.m_strTitle = a.title;
    if (int rc = d.Validate(nullptr)) return rc;
    return doc.InitFromDialog(d);
}

}  // namespace filtr_test
