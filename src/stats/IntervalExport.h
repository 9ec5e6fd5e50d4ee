// The interval analyses' results for scripts: one entry per row of the report,
// under the names a script reads ("mean", "half_width", ...).
#pragma once

#include "report/ResultValue.h"

class CIntrvlDoc;

// Classical intervals on the mean.
ResultRecord st_IntervalRecord(const CIntrvlDoc& doc);
// Intervals on the standard deviation: "sd", "lower", "upper" are those of
// the standard deviation, and "range" is added.
ResultRecord st_SdIntervalRecord(const CIntrvlDoc& doc);
// Standardized time series intervals: "sd" is sqrt(A/N), "batches" is added.
ResultRecord st_StdIntervalRecord(const CIntrvlDoc& doc);

// The parameters every multi-file analysis shares: the entries (file and
// treatment as typed), the title and the level as a fraction.
ResultValue st_MultiFileParameters(const CIntrvlDoc& doc);
