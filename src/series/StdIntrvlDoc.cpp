#include "series/StdIntrvlDoc.h"

#include <cmath>

#include "datafile/RecordReader.h"
#include "framework/Messages.h"
#include "framework/WholeNumber.h"
#include "stats/Distributions.h"
#include "stats/IntervalCheck.h"

namespace {

constexpr int kTooManyBatches = 15906;  // "Error calculating standard deviation interval."

// Batch means of the row being computed, relative to its first observation.
// Module-wide like the work table; the computation is not re-entered.
double s_batchMeans[MAX_POINTS];

long CountRow(CRecordReader& in) {
    long n = 0;
    double t = 0.0, v = 0.0;
    while (in.NextObs(&t, &v)) ++n;
    return n;
}

}  // namespace

int CStdIntrvlDoc::ComputeRow(CRecordReader& in, IntervalRow& row, double alpha) {
    long m = m_nBatchSize;
    if (m == MAX_SHORT) {
        m = CountRow(in);
        if (m <= 0) return IDS_NO_OBSERVATIONS;
        in.RewindPass();
    }
    const double h = static_cast<double>(m + 1) / 2.0;

    // Sums are kept relative to the row's first observation. The weights of a
    // batch sum to zero (but for a batch of one), so the weighted sums do not
    // depend on that shift and lose no digits to a large offset.
    double ref = 0.0, low = 1e20, high = -1e20, time = 0.0, x = 0.0;
    bool hasRef = false;
    long double area = 0.0L;
    int b = 0;
    for (bool more = true; more;) {
        long double weighted = 0.0L, total = 0.0L, weights = 0.0L;
        double batchLow = low, batchHigh = high;
        long j = 1;
        for (; j <= m; ++j) {
            if (!in.NextObs(&time, &x)) break;
            if (!hasRef && std::isfinite(x)) {
                // A batch holding a value before it is not finite in any case.
                ref = x;
                hasRef = true;
            }
            const double w = h == 1.0 ? 1.0 : static_cast<double>(j) - h;
            const long double d = static_cast<long double>(x) - ref;
            weighted += w * d;
            weights += w;
            total += d;
            if (x < batchLow) batchLow = x;
            if (x > batchHigh) batchHigh = x;
        }
        if (j <= m) break;  // the trailing part batch is not used
        if (++b >= MAX_POINTS) return kTooManyBatches;
        s_batchMeans[b] = static_cast<double>(total / m);
        weighted += weights * ref;
        area += weighted * weighted;
        low = batchLow;
        high = batchHigh;
        more = m_nBatchSize != MAX_SHORT;
    }
    if (b <= 0) return IDS_NO_OBSERVATIONS;

    long double meanOfMeans = 0.0L;
    for (int k = 1; k <= b; ++k) meanOfMeans += s_batchMeans[k];
    meanOfMeans /= b;
    long double spread = 0.0L;
    for (int k = 1; k <= b; ++k) {
        const long double e = s_batchMeans[k] - meanOfMeans;
        spread += e * e;
    }
    const long double dm = static_cast<long double>(m);
    double v = static_cast<double>(12.0L * area / ((dm * dm - dm) * b * (dm * dm + dm)) + spread / b);
    if (v < 0.0) v = 0.0;

    const double average = static_cast<double>(ref + meanOfMeans);
    const double root = std::sqrt(v);
    int d = 2 * b - 1;
    if (d == 0) d = 1;
    const double halfWidth = st_TQuantile(d, alpha / 2.0) * (root / std::sqrt(static_cast<double>(d)));
    if (!st_IntervalHolds(average, root, average - halfWidth, average + halfWidth)) return IDS_INTERVAL_ERROR;

    row.average = average;
    row.stdDev = root;
    row.halfWidth = halfWidth;
    row.lower = average - halfWidth;
    row.upper = average + halfWidth;
    row.min = low;
    row.max = high;
    row.numObs = WholeLong(static_cast<double>(b) * static_cast<double>(m));
    row.batches = b;
    row.computed = true;
    WidenGraphRange(row.min, row.max);
    WidenGraphRange(row.lower, row.upper);
    return 0;
}
