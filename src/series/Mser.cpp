#include "series/Mser.h"

#include <utility>

MserResult mser_Five(const std::vector<double>& y) {
    CMserBatches batches;
    batches.Add(y.data(), y.size());
    return batches.Finish();
}

void CMserBatches::Add(const double* y, std::size_t n) {
    std::size_t i = 0;
    while (i < n && m_in > 0) {
        m_sum += y[i++];
        if (++m_in == kMserBatch) {
            m_means.push_back(m_sum / kMserBatch);
            m_sum = 0.0;
            m_in = 0;
        }
    }
    // Whole batches straight from the run.
    for (; i + kMserBatch <= n; i += kMserBatch) {
        double s = 0.0;
        for (int k = 0; k < kMserBatch; ++k) s += y[i + static_cast<std::size_t>(k)];
        m_means.push_back(s / kMserBatch);
    }
    for (; i < n; ++i, ++m_in) m_sum += y[i];
}

MserResult mser_FromBatchMeans(std::vector<double> z) {
    MserResult r;
    const long m = static_cast<long>(z.size());
    r.batches = m;
    if (m < 2) return r;
    const long dMax = m / 2;
    double mean = 0.0, m2 = 0.0;
    long count = 0;
    // MSER(d) takes the place of Z(d + 1), which is not read again: the
    // curve needs no memory of its own.
    for (long d = m - 1; d >= 0; --d) {
        const double x = z[static_cast<std::size_t>(d)];
        ++count;
        const double delta = x - mean;
        mean += delta / static_cast<double>(count);
        m2 += delta * (x - mean);
        if (d <= dMax) z[static_cast<std::size_t>(d)] = m2 / (static_cast<double>(count) * count);
    }
    z.resize(static_cast<std::size_t>(dMax + 1));
    r.curve = std::move(z);
    r.bestD = 0;
    for (long d = 1; d <= dMax; ++d)
        if (r.curve[static_cast<std::size_t>(d)] < r.curve[static_cast<std::size_t>(r.bestD)]) r.bestD = d;
    r.truncation = r.bestD * kMserBatch;
    return r;
}
