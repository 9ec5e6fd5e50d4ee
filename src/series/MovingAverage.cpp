#include "series/MovingAverage.h"

#include <algorithm>
#include <limits>

CMovingAverage::CMovingAverage(int window, MoveMethod method)
    : m_w(std::max(window, 1)),
      m_method(method),
      m_ring(static_cast<std::size_t>(method == MOVE_TRAILING ? m_w : 2 * m_w + 1)) {}

void CMovingAverage::Add(const double* y, std::size_t n, std::vector<double>& out) {
    if (m_method == MOVE_TRAILING)
        AddTrailing(y, n, out);
    else
        AddCentred(y, n, out);
}

void CMovingAverage::AddCentred(const double* y, std::size_t n, std::vector<double>& out) {
    const long span = 2 * m_w + 1;
    std::size_t i = 0;
    // The start: windows Y(1) .. Y(j) for odd j, which a series shorter than
    // 2w cuts short; from j = 2w on every one of them is wanted.
    for (; i < n && m_n < span; ++i) {
        m_sum.Add(y[i]);
        m_ring[static_cast<std::size_t>(m_n)] = y[i];
        const long j = ++m_n;
        if (j % 2 == 1 && j < span) m_start.push_back(m_sum.Value() / static_cast<double>(j));
        if (j == 2 * m_w) {
            out.insert(out.end(), m_start.begin(), m_start.end());
            m_start.clear();
        }
        if (j == span) out.push_back(m_sum.Value() / static_cast<double>(span));
    }
    if (i == n) return;
    // Full windows: Y(j) comes in, Y(j - 2w - 1) goes out, in that order.
    const double size = static_cast<double>(span);
    double* ring = m_ring.data();
    std::size_t slot = m_slot;
    const std::size_t ringSize = m_ring.size();
    const std::size_t base = out.size();
    out.resize(base + (n - i));
    double* o = out.data() + base;
    // A local sum: stores to the ring and out could otherwise alias it and
    // keep it in memory, which would lengthen the chain of additions.
    Sum sum = m_sum;
    for (; i < n; ++i) {
        sum.AddDifference(y[i], ring[slot]);
        ring[slot] = y[i];
        if (++slot == ringSize) slot = 0;
        *o++ = sum.Value() / size;
    }
    m_sum = sum;
    m_slot = slot;
    m_n += static_cast<long>(o - (out.data() + base));
}

void CMovingAverage::AddTrailing(const double* y, std::size_t n, std::vector<double>& out) {
    std::size_t i = 0;
    for (; i < n && m_n < m_w; ++i) {
        m_sum.Add(y[i]);
        m_ring[static_cast<std::size_t>(m_n)] = y[i];
        if (++m_n == m_w) {
            m_last = m_sum.Value() / static_cast<double>(m_w);
            out.push_back(m_last);
        }
    }
    if (i == n) return;
    const double size = static_cast<double>(m_w);
    double* ring = m_ring.data();
    const std::size_t ringSize = m_ring.size();
    std::size_t slot = m_slot;
    Sum sum = m_sum, abs = m_abs, sq = m_sq, pct = m_pct;
    double last = m_last;
    bool zero = false;
    const std::size_t base = out.size();
    out.resize(base + (n - i));
    double* o = out.data() + base;
    for (std::size_t k = i; k < n; ++k) {
        // Y(j) against its forecast M(j - 1), then the window moves on.
        const double actual = y[k];
        const double err = actual - last;
        abs.Add(std::fabs(err));
        sq.Add(err * err);
        if (actual == 0.0)
            zero = true;
        else
            pct.Add(std::fabs(err / actual));
        sum.AddDifference(actual, ring[slot]);
        ring[slot] = actual;
        if (++slot == ringSize) slot = 0;
        last = sum.Value() / size;
        *o++ = last;
    }
    m_sum = sum;
    m_abs = abs;
    m_sq = sq;
    m_pct = pct;
    m_last = last;
    m_slot = slot;
    m_zero = m_zero || zero;
    m_compared += static_cast<long>(n - i);
    m_n += static_cast<long>(n - i);
}

void CMovingAverage::Finish(std::vector<double>& out) {
    if (m_method != MOVE_CENTRED || m_n >= 2 * m_w) return;
    // Windows centred past n - w would reach beyond the series.
    const long keep = std::max(0L, m_n - m_w);
    out.insert(out.end(), m_start.begin(), m_start.begin() + std::min(keep, static_cast<long>(m_start.size())));
    m_start.clear();
}

ForecastErrors CMovingAverage::Errors() const {
    ForecastErrors e;
    e.count = m_compared;
    if (e.count == 0) {
        e.mad = e.mse = e.mape = std::numeric_limits<double>::quiet_NaN();
        return e;
    }
    const double n = static_cast<double>(e.count);
    e.mad = m_abs.Value() / n;
    e.mse = m_sq.Value() / n;
    e.mape = m_zero ? std::numeric_limits<double>::quiet_NaN() : 100.0 * m_pct.Value() / n;
    return e;
}

std::vector<double> move_Smooth(const std::vector<double>& y, int window, MoveMethod method) {
    std::vector<double> out;
    if (window < 1) return out;
    CMovingAverage average(window, method);
    average.Add(y.data(), y.size(), out);
    average.Finish(out);
    return out;
}

ForecastErrors move_ForecastErrors(const std::vector<double>& y, int window) {
    std::vector<double> out;
    CMovingAverage average(window, MOVE_TRAILING);
    average.Add(y.data(), y.size(), out);
    return average.Errors();
}
