#include "stats/SdIntDoc.h"

#include <cmath>
#include <iterator>

#include "datafile/RecordReader.h"
#include "framework/Messages.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"
#include "stats/Moments.h"

int CSdIntDoc::ComputeRow(CRecordReader& in, IntervalRow& row, double alpha) {
    CMoments sample;
    double values[4096];
    while (const std::size_t got = in.NextObsRun(nullptr, values, std::size(values))) sample.AddAll(values, got);
    const long n = sample.Count();
    if (n == 0) return IDS_NO_OBSERVATIONS;

    double v = sample.Variance();
    if (!(v > 0.0)) v = 0.0;  // NaN from infinite data included
    const int df = static_cast<int>(n - 1);
    const double qHigh = st_ChiSquareQuantile(df, alpha / 2.0);
    const double qLow = st_ChiSquareQuantile(df, 1.0 - alpha / 2.0);
    const double scaled = static_cast<double>(n - 1) * v;
    const double s = std::sqrt(v);
    const double lower = std::sqrt(scaled / qHigh);
    const double upper = std::sqrt(scaled / qLow);
    if (!st_IntervalHolds(s, s, lower, upper)) return IDS_SD_INTERVAL_ERROR;

    row.average = sample.Mean();
    row.stdDev = s;
    row.lower = lower;
    row.upper = upper;
    row.min = sample.Min();
    row.max = sample.Max();
    row.range = row.max - row.min;
    row.numObs = n;
    row.computed = true;
    WidenGraphRange(row.lower, row.upper);
    return 0;
}
