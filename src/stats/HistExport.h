// The histogram's results for scripts: the statistics beside it and one entry
// per cell, under the names a script reads ("count", "relative", ...).
#pragma once

#include "report/ResultValue.h"

class CHistDoc;

// "cells" (each lower, upper, count, relative, cumulative), "below", "above"
// and their shares, "time_weighted", "n" (the total time when time-weighted),
// "mean", "sd", "min", "max", and the cells used ("start", "width"). The CSV
// table is one row per cell.
ResultRecord hist_ResultRecord(const CHistDoc& doc);
