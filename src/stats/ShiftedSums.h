// Sum and centred sum of squares of a sample, kept so that they do not lose
// their digits on data with a large offset.
//
// The plain sums of x and x^2 cancel catastrophically for data such as 10^7
// plus noise of size 0.1. Here both are kept about a shift (the first finite
// value) with Neumaier's compensated summation (Neumaier 1974, "Rundungsfehler-
// analyse einiger Verfahren zur Summation endlicher Summen"). Because the shift
// is one of the data, (shift - mean)^2 never exceeds the centred sum of squares,
// so at most log10(n) digits are lost in the final subtraction; the results
// equal sum / n and (sum of squares - mean * n * mean) in exact arithmetic.
#pragma once

#include <cmath>
#include <cstddef>

// Compensated running sum.
class CKeptSum {
public:
    void Add(double x) {
        double t = m_sum + x;
        // The larger addend first; chosen by selection rather than a branch,
        // which sums near zero would mispredict.
        const bool sumLarger = std::fabs(m_sum) >= std::fabs(x);
        const double large = sumLarger ? m_sum : x;
        const double small = sumLarger ? x : m_sum;
        m_comp += (large - t) + small;
        m_sum = t;
    }
    // An infinite sum makes the compensation NaN; the sum alone is the answer.
    double Value() const { return std::isfinite(m_sum) ? m_sum + m_comp : m_sum; }

private:
    double m_sum = 0.0;
    double m_comp = 0.0;
};

class CShiftedSums {
public:
    void Add(double x) {
        if (m_n == 0 && std::isfinite(x)) m_shift = x;
        double d = x - m_shift;
        m_s1.Add(d);
        m_s2.Add(d * d);
        ++m_n;
    }
    // Add for each value in order, on a copy that stays in registers.
    void AddAll(const double* x, std::size_t n) {
        CShiftedSums local = *this;
        for (std::size_t i = 0; i < n; ++i) local.Add(x[i]);
        *this = local;
    }
    long Count() const { return m_n; }
    // sum / n; meaningless for an empty sample.
    double Mean() const { return m_shift + m_s1.Value() / static_cast<double>(m_n); }
    // sum of squares - mean * n * mean; never below 0 (it cannot be in exact
    // arithmetic). NaN stays NaN.
    double CentredSquares() const {
        double s1 = m_s1.Value();
        double v = m_s2.Value() - s1 * (s1 / static_cast<double>(m_n));
        return v < 0.0 ? 0.0 : v;
    }

private:
    long m_n = 0;
    double m_shift = 0.0;
    CKeptSum m_s1;
    CKeptSum m_s2;
};
