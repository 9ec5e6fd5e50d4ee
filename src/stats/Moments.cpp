#include "stats/Moments.h"

// The totals are combined in extended precision where the platform has it;
// the compensated sums already hold them to about twice double precision.
// Once a sum is infinite its carry is NaN and means nothing.

namespace {

long double Total(double sum, double carry) {
    return std::isfinite(sum) ? static_cast<long double>(sum) + carry : sum;
}

// (s2 - s1^2 / n); a negative result (rounding) is 0, NaN stays NaN.
long double SquaredDeviations(long n, long double s1, long double s2) {
    if (n == 0) return 0.0L;
    const long double m2 = s2 - s1 * s1 / n;
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

double CMoments::SumSqDev() const {
    return static_cast<double>(SquaredDeviations(m_n, Total(m_s1, m_c1), Total(m_s2, m_c2)));
}

double CMoments::Variance() const {
    if (m_n < 2) return 0.0;
    return static_cast<double>(SquaredDeviations(m_n, Total(m_s1, m_c1), Total(m_s2, m_c2)) / (m_n - 1));
}
