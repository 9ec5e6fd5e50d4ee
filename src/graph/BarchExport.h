// The bar chart's results for scripts: its bars and the mean of the bars.
#pragma once

#include "report/ResultValue.h"

class CBarchDoc;

// "bars": per replication {replication, height}; per observation {x, height}
// for a tally, {x, x_end, height} for a step of a time-persistent quantity,
// and for a column reduced from many observations {x, x_end, low, high,
// height} with height the highest. "mean_of_bars" is null but for bars of
// replications. The CSV table is one row per bar.
ResultRecord barch_ResultRecord(const CBarchDoc& doc);
