#include "series/MovingAverage.h"

#include <cmath>
#include <algorithm>
#include <limits>

namespace {

// Neumaier's compensated sum: s + c carries the exact sum's digits.
struct CompensatedSum {
    double s = 0.0;
    double c = 0.0;

    void Add(double x) {
        const double t = s + x;
        if (std::fabs(s) >= std::fabs(x))
            c += (s - t) + x;
        else
            c += (x - t) + s;
        s = t;
    }
    double Value() const { return s + c; }
};

}  // namespace

std::vector<double> move_Smooth(const std::vector<double>& y, int window, MoveMethod method) {
    std::vector<double> out;
    const long n = static_cast<long>(y.size());
    const long w = window;
    if (w < 1 || n <= w) return out;
    out.reserve(static_cast<std::size_t>(method == MOVE_TRAILING ? n - w + 1 : n - w));
    CompensatedSum sum;
    // The window holds y[lo] .. y[hi - 1] (0-based).
    long lo = 0, hi = 0;
    auto slide = [&](long newLo, long newHi) {
        while (hi < newHi) sum.Add(y[static_cast<std::size_t>(hi++)]);
        while (lo < newLo) sum.Add(-y[static_cast<std::size_t>(lo++)]);
        return sum.Value() / static_cast<double>(hi - lo);
    };
    if (method == MOVE_TRAILING) {
        for (long i = w; i <= n; ++i) out.push_back(slide(i - w, i));
    } else {
        for (long i = 1; i <= n - w; ++i) out.push_back(i <= w ? slide(0, 2 * i - 1) : slide(i - w - 1, i + w));
    }
    return out;
}

ForecastErrors move_ForecastErrors(const std::vector<double>& y, const std::vector<double>& trailing, int window) {
    ForecastErrors e;
    CompensatedSum abs, sq, pct;
    bool zero = false;
    // trailing[k] = M(w + k) forecasts y(w + k + 1), 0-based y[w + k].
    for (std::size_t k = 0; k + 1 < trailing.size(); ++k) {
        const double actual = y[static_cast<std::size_t>(window) + k];
        const double err = actual - trailing[k];
        abs.Add(std::fabs(err));
        sq.Add(err * err);
        if (actual == 0.0)
            zero = true;
        else
            pct.Add(std::fabs(err / actual));
        ++e.count;
    }
    if (e.count == 0) {
        e.mad = e.mse = e.mape = std::numeric_limits<double>::quiet_NaN();
        return e;
    }
    const double n = static_cast<double>(e.count);
    e.mad = abs.Value() / n;
    e.mse = sq.Value() / n;
    e.mape = zero ? std::numeric_limits<double>::quiet_NaN() : 100.0 * pct.Value() / n;
    return e;
}

void move_GraphPoints(const std::vector<double>& v, long first, std::size_t buckets, std::vector<double>* xs,
                      std::vector<double>* ys) {
    xs->clear();
    ys->clear();
    const std::size_t n = v.size();
    if (n == 0 || buckets == 0) return;
    const std::size_t run = (n + buckets - 1) / buckets;
    auto put = [&](std::size_t i) {
        xs->push_back(static_cast<double>(first) + static_cast<double>(i));
        ys->push_back(v[i]);
    };
    for (std::size_t lo = 0; lo < n; lo += run) {
        const std::size_t hi = std::min(n, lo + run);
        // The extremes first, without branches and four apart so that the
        // comparisons do not wait on each other; then where they are.
        double low[4], high[4];
        for (int j = 0; j < 4; ++j) low[j] = high[j] = v[lo];
        std::size_t i = lo;
        for (; i + 4 <= hi; i += 4)
            for (int j = 0; j < 4; ++j) {
                low[j] = std::min(low[j], v[i + j]);
                high[j] = std::max(high[j], v[i + j]);
            }
        for (; i < hi; ++i) {
            low[0] = std::min(low[0], v[i]);
            high[0] = std::max(high[0], v[i]);
        }
        const double lowest = std::min(std::min(low[0], low[1]), std::min(low[2], low[3]));
        const double highest = std::max(std::max(high[0], high[1]), std::max(high[2], high[3]));
        std::size_t at = lo;
        while (at < hi && v[at] != lowest && v[at] != highest) ++at;
        if (at == hi) at = lo;  // NaN extremes: the run's first point
        put(at);
        const double other = v[at] == lowest ? highest : lowest;
        if (other != v[at]) {
            std::size_t second = at + 1;
            while (second < hi && v[second] != other) ++second;
            if (second < hi) put(second);
        }
    }
}
