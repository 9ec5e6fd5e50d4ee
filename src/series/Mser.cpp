#include "series/Mser.h"

MserResult mser_Five(const std::vector<double>& y) {
    const long m = static_cast<long>(y.size()) / kMserBatch;
    std::vector<double> z(static_cast<std::size_t>(m));
    for (long j = 0; j < m; ++j) {
        double s = 0.0;
        for (int k = 0; k < kMserBatch; ++k) s += y[static_cast<std::size_t>(j * kMserBatch + k)];
        z[static_cast<std::size_t>(j)] = s / kMserBatch;
    }
    return mser_FromBatchMeans(std::move(z));
}

MserResult mser_FromBatchMeans(std::vector<double> z) {
    MserResult r;
    const long m = static_cast<long>(z.size());
    r.batches = m;
    if (m < 2) return r;
    const long dMax = m / 2;
    r.curve.assign(static_cast<std::size_t>(dMax + 1), 0.0);
    double mean = 0.0, m2 = 0.0;
    long count = 0;
    for (long d = m - 1; d >= 0; --d) {
        const double x = z[static_cast<std::size_t>(d)];
        ++count;
        const double delta = x - mean;
        mean += delta / static_cast<double>(count);
        m2 += delta * (x - mean);
        if (d <= dMax) r.curve[static_cast<std::size_t>(d)] = m2 / (static_cast<double>(count) * count);
    }
    r.bestD = 0;
    for (long d = 1; d <= dMax; ++d)
        if (r.curve[static_cast<std::size_t>(d)] < r.curve[static_cast<std::size_t>(r.bestD)]) r.bestD = d;
    r.truncation = r.bestD * kMserBatch;
    return r;
}
