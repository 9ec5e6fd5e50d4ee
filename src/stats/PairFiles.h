// Files of the pair analyses (comparison of means and of variances): reading a
// file's observations under its treatment, and turning the dialog's pairs into
// the pairs that are computed.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "datafile/FileGlobals.h"
#include "dialog/FileDialogs.h"
#include "stats/ShiftedSums.h"

// Observations of one data file under one treatment: -2.0 markers are passed
// over, a -1.0 marker (or the end of the file) ends the data, and any other
// marker ends it too unless the treatment is lumped.
class CObsReader {
public:
    CObsReader() = default;
    ~CObsReader();
    CObsReader(const CObsReader&) = delete;
    CObsReader& operator=(const CObsReader&) = delete;

    // Opens the file and positions it at the treatment's first record. The
    // treatment is a replication number or lumped. 0 or a message id.
    int Open(const std::string& path, int treatment);
    // The next observation's value; false once the data have ended.
    bool Next(double* value);
    // 15834 when the stream failed while reading, else 0.
    int ReadError() const;
    void Close();

private:
    FILE* m_file = nullptr;
    int m_isDouble = 1;
    int m_kind = 0;
    int m_treatment = 1;
    bool m_ended = false;
};

// What a file's observations give: the sums and the extremes, which start from
// the layer's bound as the other analyses do.
struct CFileSample {
    CShiftedSums sums;
    double min = BIG_VALUE;
    double max = -BIG_VALUE;

    void Add(double v) {
        sums.Add(v);
        if (v < min) min = v;
        if (v > max) max = v;
    }
    void AddExtremes(double v) {
        if (v < min) min = v;
        if (v > max) max = v;
    }
};

// Reads every observation of an entry (path and treatment). 0 or a message id.
int pair_ReadSample(const CMultiFileItem& item, CFileSample* sample);

// Expands the dialog's pairs into the computed pairs. A pair whose files both
// say "All" becomes one pair per replication, up to the smaller replication
// count, A's identifier followed by "@i"; other pairs are copied. Treatments
// are taken from m_nTreatment. 0 or a message id.
int pair_Expand(const std::vector<CFilePairItem>& dialogPairs, std::vector<CFilePairItem>* pairs);
