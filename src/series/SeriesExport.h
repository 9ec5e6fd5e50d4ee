// Results for scripts of the single-file series analyses: Batch/Truncate and
// the correlogram.
#pragma once

#include "report/ResultValue.h"

class CCorrDoc;
class CFiltrDoc;

// "batch_means" holds the means of the pass the estimate comes from, at most
// 10^5 of them ("batch_means_omitted" says whether more were formed); "z" is
// null under 8 batches; "rejected" is "positive", "nonzero" or null. The CSV
// table is one row per batch mean.
ResultRecord filtr_ResultRecord(const CFiltrDoc& doc);

// The report's summary and lags; under "All" also "replications", each with
// its own summary and lags. The CSV table is one row per lag of every pass.
ResultRecord corr_ResultRecord(const CCorrDoc& doc);
