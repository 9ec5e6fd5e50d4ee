#include "stats/SdIntDoc.h"

#include <cmath>

#include "datafile/DataFile.h"
#include "framework/Messages.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"
#include "stats/Moments.h"
#include "stats/ObsStream.h"

int CSdIntDoc::ComputeRow(CObsStream& in, CMultiFileItem& row, double alpha) {
    CMoments sample;
    double time = 0.0, value = 0.0;
    while (in.Next(&time, &value)) sample.Add(value);
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

    row.m_dAverage = sample.Mean();
    row.m_dStdDev = s;
    row.m_dLower = lower;
    row.m_dUpper = upper;
    row.m_dMin = sample.Min();
    row.m_dMax = sample.Max();
    row.m_dRange = row.m_dMax - row.m_dMin;
    row.m_lNumObs = n;
    row.m_bComputed = true;
    WidenGraphRange(row.m_dLower, row.m_dUpper);
    return 0;
}

int CSdIntDoc::WriteGraphRecord(int row, const CMultiFileItem& item) {
    const int at = GraphRecordOffset(row);
    if (at < 0 || at + 5 > MAX_POINTS) return IDS_BUFFER_EXCEEDED;
    g_WorkTable[at] = item.m_dStdDev;
    g_WorkTable[at + 1] = item.m_dLower;
    g_WorkTable[at + 2] = item.m_dUpper;
    g_WorkTable[at + 3] = item.m_dMin;
    g_WorkTable[at + 4] = item.m_dMax;
    return 0;
}
