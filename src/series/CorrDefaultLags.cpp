// The maximum lag a correlogram takes when none is asked for: floor(10 log10 n)
// for n observations, at most n - 1, the default of R's acf (Venables and
// Ripley, Modern Applied Statistics with S, 4th ed., 2002, section 14.1),
// which keeps the lags to those the sample estimates with some precision.
// Under All each replication is its own series; the shortest one decides, so
// that the same maximum suits them all.
#include <algorithm>
#include <cmath>

#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "series/CorrDlg.h"

int corr_DefaultMaxLags(const std::string& path, const std::string& reps) {
    CRecordReader in;
    if (in.Open(path)) return 0;
    const int treatment = op_ParseRepTreatment(reps.c_str());
    long n = 0;
    if (treatment >= 1) {
        if (!in.HasEntry(treatment)) return 0;
        n = in.EntryObsCount(treatment);
    } else if (treatment == REP_LUMPED || treatment == REP_ALL) {
        in.CompleteIndex();
        const std::vector<RepSpan>& index = in.Index();
        // The -1.0 marker opens an entry after the last replication that holds nothing.
        std::size_t reps = index.size();
        if (reps > 1 && index.back().obsCount == 0) --reps;
        long shortest = -1;
        for (std::size_t r = 0; r < reps; ++r) {
            n += index[r].obsCount;
            if (shortest < 0 || index[r].obsCount < shortest) shortest = index[r].obsCount;
        }
        if (treatment == REP_ALL) n = shortest;
    } else {
        return 0;
    }
    if (n < 2) return 1;
    const long lags = std::min(static_cast<long>(std::floor(10.0 * std::log10(static_cast<double>(n)))), n - 1);
    return static_cast<int>(std::clamp(lags, 1L, static_cast<long>(CCorrDlg::kMaxLagsLimit)));
}
