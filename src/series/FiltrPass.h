// One pass of Batch/Truncate over a replication (or, lumped, over the data from
// replication 1 on): truncation, batching by time or by count, the batch means
// written out, and the lag-1 correlation estimate of the means with its test.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

class COutputDataFile;
class CRecordReader;

struct FiltrParams {
    int truncUnit;       // 0 time, 1 observations, -1 not given
    double truncAmount;
    int batchUnit;       // 0 time, 1 observations, -1 no batching
    double batchSize;    // not positive: not given
    int kind;            // data kind of the source
    int treatment;       // replication number, REP_ALL or REP_LUMPED
};

// What a pass stores; an empty field leaves the document's value as it was.
struct FiltrResults {
    std::optional<double> truncUsed;
    std::optional<double> batchUsed;
    std::optional<int> numBatches;
    std::optional<int> trailingObs;
    std::optional<double> trailingTime;
    std::optional<double> covEstimate;
    std::optional<int> rejectPositive;
    std::optional<int> rejectNonZero;
    std::optional<double> z;  // the test statistic, from 8 batches on
    // The batch means of the pass, the first kMaxKeptMeans of them.
    std::vector<double> means;
    bool meansOmitted = false;
    static constexpr std::size_t kMaxKeptMeans = 100000;
};

// Fills what the user left open, from the replication at the reader's
// position: the truncation unit from the data kind, and a batch size that
// forms ten batches of its time span or observation count. Moves the reader.
void filtr_SettleDefaults(CRecordReader& in, FiltrParams* p);

// Runs the pass of replication rep from the reader's position (its first
// record), writing batch means (and, under all, the end marker met) to out,
// which may write nothing. Returns 0 or a message id.
int filtr_RunPass(CRecordReader& in, const FiltrParams& p, int rep, COutputDataFile& out, FiltrResults* res);
