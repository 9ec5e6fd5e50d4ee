#include "stats/Moments.h"

#include <cstring>

// The totals are combined in extended precision where the platform has it;
// the compensated sums already hold them to about twice double precision.
// Once a sum is infinite its carry is NaN and means nothing.

namespace {

long double Total(double sum, double carry) {
    return std::isfinite(sum) ? static_cast<long double>(sum) + carry : sum;
}

// s2 - s1^2 / n for s1 = a1 + b1 and s2 = a2 + b2 (sums and their carries),
// in double-double arithmetic: the subtraction cancels up to log2(n) bits,
// which extended precision alone would take from the last digit when the
// shift lies far from the mean. A negative result (rounding) is 0, NaN stays.
long double SquaredDeviations(long n, double a1, double b1, double a2, double b2) {
    if (n == 0) return 0.0L;
    if (!std::isfinite(a1) || !std::isfinite(a2)) {
        const long double s1 = Total(a1, b1);
        const long double m2 = Total(a2, b2) - s1 * s1 / n;
        return m2 < 0 ? 0.0L : m2;
    }
    // The carry of a sum of both signs may rival the sum: s1 is renormalised
    // (two-sum) so that the square's low part 2 h l covers all but l^2.
    const double h = a1 + b1;
    const double hb = h - a1;
    const double l = (a1 - (h - hb)) + (b1 - hb);
    const double dn = static_cast<double>(n);
    const double square = h * h;
    const double squareLow = std::fma(h, h, -square) + 2.0 * h * l;
    const double q = square / dn;
    const double qLow = (std::fma(-q, dn, square) + squareLow) / dn;
    const double high = a2 - q;
    const double back = high - a2;
    const double err = (a2 - (high - back)) - (q + back);
    const long double m2 = static_cast<long double>(high) + (err + (b2 - qLow));
    return m2 < 0 ? 0.0L : m2;
}

}  // namespace

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define OPROC_LANES 1
#include <immintrin.h>

namespace {

// Four interleaved sums (value i goes to lane i mod 4) with their extremes:
// the same compensated sums as Add, four at a time. Their totals differ from
// one running sum only far below the last bit of a double, which is why the
// order of the terms does not show in any result.
struct LaneTotals {
    double s1[4], c1[4], s2[4], c2[4], min[4], max[4];
};

typedef double V4 __attribute__((vector_size(32)));

__attribute__((target("avx2,fma"))) void SumLanes(const double* x, std::size_t n, double ref, LaneTotals* out) {
    const V4 shift = {ref, ref, ref, ref};
    V4 s1 = {}, c1 = {}, s2 = {}, c2 = {};
    V4 lo = {HUGE_VAL, HUGE_VAL, HUGE_VAL, HUGE_VAL};
    V4 hi = -lo;
    for (std::size_t i = 0; i + 4 <= n; i += 4) {
        V4 v;
        std::memcpy(&v, x + i, sizeof v);
        const V4 d = v - shift;
        V4 t = s1 + d;
        V4 back = t - s1;
        c1 += (s1 - (t - back)) + (d - back);
        s1 = t;
        const V4 square = d * d;
        t = s2 + square;
        back = t - s2;
        c2 += (s2 - (t - back)) + (square - back);
        s2 = t;
        c2 += V4(_mm256_fmsub_pd(__m256d(d), __m256d(d), __m256d(square)));
        lo = v < lo ? v : lo;
        hi = v > hi ? v : hi;
    }
    std::memcpy(out->s1, &s1, sizeof s1);
    std::memcpy(out->c1, &c1, sizeof c1);
    std::memcpy(out->s2, &s2, sizeof s2);
    std::memcpy(out->c2, &c2, sizeof c2);
    std::memcpy(out->min, &lo, sizeof lo);
    std::memcpy(out->max, &hi, sizeof hi);
}

bool HasLanes() {
    static const bool has = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma");
    return has;
}

// The first of the values equal to the least (or, with greater, the
// greatest) in order: what a running minimum keeps, signed zero included.
template <bool greater>
double FirstExtreme(const double* x, std::size_t n) {
    double e = greater ? -HUGE_VAL : HUGE_VAL;
    for (std::size_t i = 0; i < n; ++i)
        if (greater ? x[i] > e : x[i] < e) e = x[i];
    return e;
}

// Of the lanes' extremes, the one a running extreme over the values would
// keep. They differ only when they are zeros of both signs, and then the
// values tell which came first.
template <bool greater>
double MergeExtremes(const double* lanes, const double* x, std::size_t n) {
    double e = lanes[0];
    for (int k = 1; k < 4; ++k)
        if (greater ? lanes[k] > e : lanes[k] < e) e = lanes[k];
    if (e != 0.0) return e;
    for (int k = 0; k < 4; ++k)
        if (lanes[k] == 0.0 && std::signbit(lanes[k]) != std::signbit(e)) return FirstExtreme<greater>(x, n);
    return e;
}

__attribute__((target("avx2"))) void ExtremeLanes(const double* x, std::size_t n, double* min, double* max) {
    V4 lo = {HUGE_VAL, HUGE_VAL, HUGE_VAL, HUGE_VAL};
    V4 hi = -lo;
    for (std::size_t i = 0; i + 4 <= n; i += 4) {
        V4 v;
        std::memcpy(&v, x + i, sizeof v);
        lo = v < lo ? v : lo;
        hi = v > hi ? v : hi;
    }
    std::memcpy(min, &lo, sizeof lo);
    std::memcpy(max, &hi, sizeof hi);
}

}  // namespace
#endif

void st_AddExtremes(const double* x, std::size_t n, double* min, double* max) {
    std::size_t i = 0;
#ifdef OPROC_LANES
    const std::size_t whole = n & ~std::size_t{3};
    if (whole >= 64 && HasLanes()) {
        double lo[4], hi[4];
        ExtremeLanes(x, whole, lo, hi);
        const double low = MergeExtremes<false>(lo, x, whole);
        const double high = MergeExtremes<true>(hi, x, whole);
        if (low < *min) *min = low;
        if (high > *max) *max = high;
        i = whole;
    }
#endif
    for (; i < n; ++i) {
        if (x[i] < *min) *min = x[i];
        if (x[i] > *max) *max = x[i];
    }
}

void CMoments::AddAll(const double* x, std::size_t n) {
    std::size_t i = 0;
    // Values up to the first finite one, which becomes the shift.
    while (i < n && !m_hasRef) Add(x[i++]);
#ifdef OPROC_LANES
    const std::size_t whole = (n - i) & ~std::size_t{3};
    if (whole >= 64 && HasLanes()) {
        LaneTotals lanes;
        SumLanes(x + i, whole, m_ref, &lanes);
        for (int k = 0; k < 4; ++k) {
            TwoSum(m_s1, m_c1, lanes.s1[k]);
            m_c1 += lanes.c1[k];
            TwoSum(m_s2, m_c2, lanes.s2[k]);
            m_c2 += lanes.c2[k];
        }
        const double low = MergeExtremes<false>(lanes.min, x + i, whole);
        const double high = MergeExtremes<true>(lanes.max, x + i, whole);
        if (low < m_min) m_min = low;
        if (high > m_max) m_max = high;
        m_n += static_cast<long>(whole);
        i += whole;
    }
#endif
    CMoments local = *this;
    for (; i < n; ++i) local.Add(x[i]);
    *this = local;
}

void CMoments::AddInSeries(double x) {
    if (m_n > 0) {
        // The step and its rounding error e: (step + e)^2 = step^2 + 2 step e
        // to far below the step's own last bit, e^2 being smaller still.
        const double step = x - m_prev;
        const double back = step - x;
        const double e = (x - (step - back)) - (m_prev + back);
        const double square = step * step;
        TwoSum(m_d, m_cd, square);
        m_cd += std::fma(step, step, -square) + 2.0 * step * e;
    }
    m_prev = x;
    Add(x);
}

double CMoments::Sum() const { return static_cast<double>(m_n * static_cast<long double>(m_ref) + Total(m_s1, m_c1)); }

double CMoments::SumOfSquares() const {
    const long double r = m_ref;
    return static_cast<double>(m_n * r * r + 2 * r * Total(m_s1, m_c1) + Total(m_s2, m_c2));
}

double CMoments::Mean() const {
    if (m_n == 0) return 0.0;
    return static_cast<double>(m_ref + Total(m_s1, m_c1) / m_n);
}

double CMoments::MeanFrom(double origin) const {
    if (m_n == 0) return 0.0;
    return static_cast<double>((m_ref - static_cast<long double>(origin)) + Total(m_s1, m_c1) / m_n);
}

double CMoments::SumSqDev() const { return static_cast<double>(SquaredDeviations(m_n, m_s1, m_c1, m_s2, m_c2)); }

double CMoments::SumSqSteps() const { return static_cast<double>(Total(m_d, m_cd)); }

double CMoments::Variance() const {
    if (m_n < 2) return 0.0;
    return static_cast<double>(SquaredDeviations(m_n, m_s1, m_c1, m_s2, m_c2) / (m_n - 1));
}
