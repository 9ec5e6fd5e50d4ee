// The observations of one data file, row by row as the interval analyses see
// them: one replication (a number), every replication read as one stream
// (lumped: replication boundaries are passed over, the data end at the -1.0
// marker or the end of the file), or each replication in turn (all).
#pragma once

#include <cstdio>
#include <string>

#include "datafile/DataFile.h"

class CObsStream {
public:
    CObsStream() = default;
    ~CObsStream();
    CObsStream(const CObsStream&) = delete;
    CObsStream& operator=(const CObsStream&) = delete;

    // Opens the file and positions at the first record of the first row.
    // 0, 15811 (file gone), 15832, 15821 (bad header), 15804 (no such
    // replication) or 15834.
    int Open(const std::string& path, int treatment);

    // The next observation of the current row; false when the row's data end.
    // Inline: it runs once per record.
    bool Next(double* time, double* value) {
        if (!m_rowEnded) {
            op_ReadObs(m_file, m_isDouble, m_treatment, m_kind, time, value);
            if (*time >= 0.0) return true;
            EndOrPass(*value);
        }
        return NextAfterMarker(time, value);
    }
    // Reads the rest of the current row.
    void SkipRow();
    // Under "all": after the current row has ended, starts the next
    // replication if any record follows. False otherwise.
    bool NextReplication();
    // Back to the first record of the current row.
    void RewindRow();

    int Kind() const { return m_kind; }
    int Replication() const { return m_rep; }

private:
    // A marker (op_ReadObs has passed over -2.0 markers and gives (-1, -1) at
    // the end of the file): ends the data, the row, or under lumped nothing.
    void EndOrPass(double value);
    bool NextAfterMarker(double* time, double* value);

    FILE* m_file = nullptr;
    int m_isDouble = 1;
    int m_kind = 0;
    int m_treatment = 1;
    int m_rep = 1;           // replication of the current row
    long m_rowStart = 0;     // offset of the current row's first record
    bool m_rowEnded = false;
    bool m_dataEnded = false;  // the -1.0 marker or the end of the file was read
};
