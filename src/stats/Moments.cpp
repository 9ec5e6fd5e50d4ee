#include "stats/Moments.h"

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
#define OPROC_FMA_DISPATCH 1

namespace {

// The same loop compiled for processors with FMA; the state is a local copy
// so that it stays in registers.
__attribute__((target("fma"))) void AddAllFused(CMoments& m, const double* x, std::size_t n) {
    CMoments local = m;
    for (std::size_t i = 0; i < n; ++i) local.Add(x[i]);
    m = local;
}

bool HasFma() {
    static const bool has = __builtin_cpu_supports("fma");
    return has;
}

}  // namespace
#endif

void CMoments::AddAll(const double* x, std::size_t n) {
#ifdef OPROC_FMA_DISPATCH
    if (HasFma()) {
        AddAllFused(*this, x, n);
        return;
    }
#endif
    CMoments local = *this;
    for (std::size_t i = 0; i < n; ++i) local.Add(x[i]);
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
