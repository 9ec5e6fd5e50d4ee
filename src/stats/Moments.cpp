#include "stats/Moments.h"

void CMoments::Add(double x) {
    if (m_n == 0) m_ref = x;
    const long double d = static_cast<long double>(x) - m_ref;
    m_s1 += d;
    m_s2 += d * d;
    ++m_n;
    if (x < m_min) m_min = x;
    if (x > m_max) m_max = x;
}

double CMoments::Sum() const { return static_cast<double>(m_n * static_cast<long double>(m_ref) + m_s1); }

double CMoments::SumOfSquares() const {
    const long double r = m_ref;
    return static_cast<double>(m_n * r * r + 2 * r * m_s1 + m_s2);
}

double CMoments::Mean() const {
    if (m_n == 0) return 0.0;
    return static_cast<double>(m_ref + m_s1 / m_n);
}

long double CMoments::M2() const {
    if (m_n == 0) return 0.0L;
    const long double m2 = m_s2 - m_s1 * m_s1 / m_n;
    return m2 > 0 ? m2 : 0.0L;
}

double CMoments::SumSqDev() const { return static_cast<double>(M2()); }

double CMoments::Variance() const { return m_n < 2 ? 0.0 : static_cast<double>(M2() / (m_n - 1)); }
