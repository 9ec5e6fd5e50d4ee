#include "stats/IntrvlDoc.h"

#include <cmath>

#include "datafile/DataFile.h"
#include "framework/Messages.h"
#include "framework/WholeNumber.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"
#include "stats/IntrvlDlg.h"
#include "stats/Moments.h"
#include "stats/ObsStream.h"

int CIntrvlDoc::InitFromDialog(CDialog& dlg) {
    auto* d = dynamic_cast<CIntrvlDlg*>(&dlg);
    if (!d) return IDS_NO_FILES;
    m_strTitle = d->m_strTitle;
    m_bScale = d->m_bScale;
    m_items = d->m_items;
    m_dAlpha = intrvl_AlphaFromLevel(d->m_strLevel);
    return Compute(m_dAlpha);
}

long CIntrvlDoc::LegendPercent() const { return std::lround((1.0 - m_dAlpha) * 100.0); }

int CIntrvlDoc::Compute(double alpha) {
    m_dAlpha = alpha;
    m_dGraphLow = 1e20;
    m_dGraphHigh = -1e20;
    std::vector<CMultiFileItem> rows;
    int noObs = 0;
    for (const CMultiFileItem& entry : m_items) {
        if (int rc = ComputeEntry(entry, rows, alpha, &noObs)) {
            m_items = std::move(rows);
            return rc;
        }
    }
    m_items = std::move(rows);
    return noObs;
}

int CIntrvlDoc::ComputeEntry(const CMultiFileItem& entry, std::vector<CMultiFileItem>& rows, double alpha,
                             int* noObs) {
    CObsStream in;
    if (int rc = in.Open(entry.m_strPath, entry.m_nTreatment)) return rc;
    do {
        CMultiFileItem row = entry;
        if (entry.m_nTreatment == REP_ALL) {
            row.m_strIdent = entry.Identifier() + "@" + std::to_string(in.Replication());
            row.m_nTreatment = in.Replication();
        }
        const int index = static_cast<int>(rows.size());
        int rc = ComputeRow(in, row, alpha);
        if (rc == 0) rc = WriteGraphRecord(index, row);
        rows.push_back(row);
        if (rc == IDS_NO_OBSERVATIONS && !StopOnEmptyRow()) {
            *noObs = rc;
        } else if (rc) {
            return rc;
        }
        in.SkipRow();
    } while (entry.m_nTreatment == REP_ALL && in.NextReplication());
    return 0;
}

int CIntrvlDoc::ComputeRow(CObsStream& in, CMultiFileItem& row, double alpha) {
    // Time-persistent data count the time each value was held; the dialog
    // refuses such files, so n is a plain count in practice.
    const bool timeWeighted = op_IsTimePersistent(in.Kind());
    CMoments sample;
    double n = 0.0, previousTime = 0.0, time = 0.0, value = 0.0;
    while (in.Next(&time, &value)) {
        sample.Add(value);
        if (timeWeighted) {
            n += time - previousTime;
            previousTime = time;
        }
    }
    if (!timeWeighted) n = static_cast<double>(sample.Count());
    if (!(n > 0.0)) return IDS_NO_OBSERVATIONS;

    double average = sample.Mean();
    double variance = sample.Variance();
    if (timeWeighted) {
        average = sample.Sum() / n;
        variance = n < 2.0 ? 0.0 : (sample.SumOfSquares() - average * n * average) / (n - 1.0);
        if (variance < 0.0) variance = 0.0;
    }
    const double stdDev = std::sqrt(variance);
    int df = WholeInt(n - 1.0);
    if (n - 1.0 == 0.0) df = 1;
    const double halfWidth = st_TQuantile(df, alpha / 2.0) * stdDev / std::sqrt(n);
    if (!st_IntervalHolds(average, stdDev, average - halfWidth, average + halfWidth)) return IDS_INTERVAL_ERROR;

    row.m_dAverage = average;
    row.m_dStdDev = stdDev;
    row.m_dHalfWidth = halfWidth;
    row.m_dLower = average - halfWidth;
    row.m_dUpper = average + halfWidth;
    row.m_dMin = sample.Min();
    row.m_dMax = sample.Max();
    row.m_lNumObs = WholeLong(n);
    row.m_bComputed = true;
    WidenGraphRange(row.m_dMin, row.m_dMax);
    WidenGraphRange(row.m_dLower, row.m_dUpper);
    return 0;
}

int CIntrvlDoc::WriteGraphRecord(int row, const CMultiFileItem& item) {
    const int at = GraphRecordOffset(row);
    if (at < 0 || at + 5 > MAX_POINTS) return IDS_BUFFER_EXCEEDED;
    g_WorkTable[at] = item.m_dAverage;
    g_WorkTable[at + 1] = item.m_dLower;
    g_WorkTable[at + 2] = item.m_dUpper;
    g_WorkTable[at + 3] = item.m_dMin;
    g_WorkTable[at + 4] = item.m_dMax;
    return 0;
}

void CIntrvlDoc::WidenGraphRange(double low, double high) {
    if (low < m_dGraphLow) m_dGraphLow = low;
    if (high > m_dGraphHigh) m_dGraphHigh = high;
}
