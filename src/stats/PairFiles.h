// Files of the pair analyses (comparison of means and of variances): reading a
// file's observations under its treatment, and turning the dialog's pairs into
// the pairs that are computed.
#pragma once

#include <string>
#include <vector>

#include "datafile/FileGlobals.h"
#include "dialog/FileDialogs.h"
#include "stats/Moments.h"

class CRecordReader;

// Opens a file of a pair and starts the pass of its treatment, a replication
// number or lumped: -2.0 markers are passed over, a -1.0 marker (or the end of
// the file) ends the data, and any other marker ends it too unless the
// treatment is lumped. 0 or a message id.
int pair_OpenFile(CRecordReader& in, const std::string& path, int treatment);
// 15834 when a read error ended the pass, else 0.
int pair_ReadError(const CRecordReader& in);

// The extremes of a file's values in a paired pass, whose sums are those of
// the differences; they start from the layer's bound as the other analyses do.
struct CExtremes {
    double min = BIG_VALUE;
    double max = -BIG_VALUE;
};

// Reads observations of the pass into values until max or the pass's end;
// their count.
std::size_t pair_Fill(CRecordReader& in, double* values, std::size_t max);

// Reads every observation of an entry (path and treatment). 0 or a message id.
int pair_ReadSample(const CMultiFileItem& item, CMoments* sample);

// Expands the dialog's pairs into the computed pairs. A pair whose files both
// say "All" becomes one pair per replication, up to the smaller replication
// count, A's identifier followed by "@i"; other pairs are copied. Treatments
// are taken from m_nTreatment. 0 or a message id.
int pair_Expand(const std::vector<CFilePairItem>& dialogPairs, std::vector<CFilePairItem>* pairs);
