#include "stats/IntrvlDoc.h"

#include <cmath>

#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"
#include "framework/WholeNumber.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"
#include "stats/IntrvlDlg.h"
#include "stats/Moments.h"

namespace {

// Values go to the sums a block at a time.
constexpr std::size_t kChunk = 4096;

}  // namespace

int CIntrvlDoc::InitFromDialog(CDialog& dlg) {
    auto* d = dynamic_cast<CIntrvlDlg*>(&dlg);
    if (!d) return IDS_NO_FILES;
    m_strTitle = d->m_strTitle;
    m_bScale = d->m_bScale;
    m_items = d->m_items;
    m_dAlpha = dlg_AlphaFromLevel(d->m_strLevel);
    return Compute(m_dAlpha);
}

long CIntrvlDoc::LegendPercent() const { return std::lround((1.0 - m_dAlpha) * 100.0); }

int CIntrvlDoc::Compute(double alpha) {
    m_dAlpha = alpha;
    m_results = IntervalResults{};
    int noObs = 0;
    for (const CMultiFileItem& entry : m_items)
        if (int rc = ComputeEntry(entry, alpha, &noObs)) return rc;
    return noObs;
}

int CIntrvlDoc::ComputeEntry(const CMultiFileItem& entry, double alpha, int* noObs) {
    CRecordReader in;
    if (int rc = in.Open(entry.m_strPath)) {
        if (rc == IDS_NO_FILE_OPEN) return IDS_FILE_NOT_FOUND;
        return rc == IDS_INVALID_HEADER ? IDS_INVALID_DATA_FILE : rc;
    }
    if (int rc = in.Start(entry.m_nTreatment)) return rc;
    std::vector<IntervalRow>& rows = m_results.rows;
    do {
        IntervalRow row;
        row.ident = entry.Identifier();
        row.entry = static_cast<int>(&entry - m_items.data());
        row.treatment = entry.m_nTreatment;
        if (entry.m_nTreatment == REP_ALL) {
            // Appended piecewise: GCC 12 at -O3 warns falsely (-Wrestrict) on
            // a literal plus a temporary string.
            row.ident += '@';
            row.ident += std::to_string(in.Replication());
            row.treatment = in.Replication();
        }
        const int index = static_cast<int>(rows.size());
        int rc = ComputeRow(in, row, alpha);
        if (rc == 0) rc = CheckGraphRoom(index);
        rows.push_back(row);
        if (rc == IDS_NO_OBSERVATIONS && !StopOnEmptyRow()) {
            *noObs = rc;
        } else if (rc) {
            return rc;
        }
        in.SkipPass();
    } while (entry.m_nTreatment == REP_ALL && in.NextReplication());
    return 0;
}

int CIntrvlDoc::ComputeRow(CRecordReader& in, IntervalRow& row, double alpha) {
    // Time-persistent data count the time each value was held; the dialog
    // refuses such files, so n is a plain count in practice.
    const bool timeWeighted = op_IsTimePersistent(in.Kind());
    CMoments sample;
    double n = 0.0, previousTime = 0.0;
    double times[kChunk], values[kChunk];
    while (const std::size_t got = in.NextObsRun(timeWeighted ? times : nullptr, values, kChunk)) {
        sample.AddAll(values, got);
        if (timeWeighted) {
            for (std::size_t i = 0; i < got; ++i) {
                n += times[i] - previousTime;
                previousTime = times[i];
            }
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

    row.average = average;
    row.stdDev = stdDev;
    row.halfWidth = halfWidth;
    row.lower = average - halfWidth;
    row.upper = average + halfWidth;
    row.min = sample.Min();
    row.max = sample.Max();
    row.numObs = WholeLong(n);
    row.computed = true;
    WidenGraphRange(row.min, row.max);
    WidenGraphRange(row.lower, row.upper);
    return 0;
}

int CIntrvlDoc::CheckGraphRoom(int row) const {
    const int at = GraphRecordOffset(row);
    return (at < 0 || at + 5 > MAX_POINTS) ? IDS_BUFFER_EXCEEDED : 0;
}

void CIntrvlDoc::WidenGraphRange(double low, double high) {
    if (low < m_results.graphLow) m_results.graphLow = low;
    if (high > m_results.graphHigh) m_results.graphHigh = high;
}
