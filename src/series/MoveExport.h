// Results for scripts of the moving average and of the warm-up rule.
#pragma once

#include <string>

#include "report/ResultValue.h"

class CMoveDoc;
struct WarmupResult;

// At most 10^5 smoothed values and MSER points go to a script;
// "smoothed_omitted" and "mser_curve_omitted" say whether there were more.

// "n", "window", "method", "warmup_observations" (null when not run or too
// few observations), "mser_best_d" (its batches of 5), "mser_curve" (each d, value), "forecast", "mad", "mse",
// "mape" (null but for trailing averages; mape also when an observation is
// 0), "smoothed" from observation number "first_smoothed". The CSV table is
// one row per smoothed value given.
ResultRecord move_ResultRecord(const CMoveDoc& doc);

// One file's warm-up suggestion as an entry of `oproc warmup`'s results.
ResultValue warmup_Entry(const std::string& file, const std::string& reps, const WarmupResult& r);
