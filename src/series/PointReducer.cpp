#include "series/PointReducer.h"

#include <algorithm>
#include <cmath>
#include <limits>

void CPointReducer::Add(const double* v, std::size_t n) {
    std::size_t i = 0;
    while (i < n) {
        if (m_in == 0) {
            m_cur = {v[i], v[i], m_next, m_next};
            ++i;
            ++m_next;
            m_in = 1;
        }
        const std::size_t take = std::min(n - i, static_cast<std::size_t>(m_length - m_in));
        // A local run: nothing in the loop can then alias it.
        Run r = m_cur;
        for (std::size_t k = i; k < i + take; ++k) {
            // Strict comparisons keep the first of equal extremes; new
            // extremes soon become rare in a run, so the branches are cheap.
            if (v[k] < r.low) {
                r.low = v[k];
                r.lowAt = m_next + static_cast<long>(k - i);
            }
            if (v[k] > r.high) {
                r.high = v[k];
                r.highAt = m_next + static_cast<long>(k - i);
            }
        }
        m_cur = r;
        i += take;
        m_next += static_cast<long>(take);
        m_in += static_cast<long>(take);
        if (m_in == m_length) Close();
    }
}

void CPointReducer::Close() {
    m_runs.push_back(m_cur);
    m_in = 0;
    if (m_runs.size() < kMaxRuns) return;
    // Pairs of runs become runs twice as long.
    for (std::size_t k = 0; k < kMaxRuns / 2; ++k) {
        const Run& a = m_runs[2 * k];
        const Run& b = m_runs[2 * k + 1];
        Run merged = a;
        if (b.low < a.low) {
            merged.low = b.low;
            merged.lowAt = b.lowAt;
        }
        if (b.high > a.high) {
            merged.high = b.high;
            merged.highAt = b.highAt;
        }
        m_runs[k] = merged;
    }
    m_runs.resize(kMaxRuns / 2);
    m_length *= 2;
}

void CPointReducer::Points(std::vector<double>* xs, std::vector<double>* ys) const {
    xs->clear();
    ys->clear();
    auto put = [&](long at, double y) {
        xs->push_back(m_first + static_cast<double>(at));
        ys->push_back(y);
    };
    auto runPoints = [&](const Run& r) {
        if (r.lowAt <= r.highAt) {
            put(r.lowAt, r.low);
            if (r.highAt != r.lowAt) put(r.highAt, r.high);
        } else {
            put(r.highAt, r.high);
            put(r.lowAt, r.low);
        }
    };
    for (const Run& r : m_runs) runPoints(r);
    if (m_in > 0) runPoints(m_cur);
}

double CPointReducer::Low() const {
    double low = m_in > 0 ? m_cur.low : std::numeric_limits<double>::quiet_NaN();
    for (const Run& r : m_runs) low = std::isnan(low) || r.low < low ? r.low : low;
    return low;
}

double CPointReducer::High() const {
    double high = m_in > 0 ? m_cur.high : std::numeric_limits<double>::quiet_NaN();
    for (const Run& r : m_runs) high = std::isnan(high) || r.high > high ? r.high : high;
    return high;
}
