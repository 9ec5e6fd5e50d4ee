#include "stats/Moments.h"

// The totals are combined in extended precision where the platform has it;
// the compensated sums already hold them to about twice double precision.

double CMoments::Sum() const {
    const long double s1 = static_cast<long double>(m_s1) + m_c1;
    return static_cast<double>(m_n * static_cast<long double>(m_ref) + s1);
}

double CMoments::SumOfSquares() const {
    const long double r = m_ref;
    const long double s1 = static_cast<long double>(m_s1) + m_c1;
    const long double s2 = static_cast<long double>(m_s2) + m_c2;
    return static_cast<double>(m_n * r * r + 2 * r * s1 + s2);
}

double CMoments::Mean() const {
    if (m_n == 0) return 0.0;
    return static_cast<double>(m_ref + (static_cast<long double>(m_s1) + m_c1) / m_n);
}

namespace {

// (s2 - s1^2 / n), never negative.
long double SquaredDeviations(long n, double s1, double c1, double s2, double c2) {
    if (n == 0) return 0.0L;
    const long double sum = static_cast<long double>(s1) + c1;
    const long double m2 = (static_cast<long double>(s2) - sum * sum / n) + c2;
    return m2 > 0 ? m2 : 0.0L;
}

}  // namespace

double CMoments::SumSqDev() const { return static_cast<double>(SquaredDeviations(m_n, m_s1, m_c1, m_s2, m_c2)); }

double CMoments::Variance() const {
    if (m_n < 2) return 0.0;
    return static_cast<double>(SquaredDeviations(m_n, m_s1, m_c1, m_s2, m_c2) / (m_n - 1));
}
