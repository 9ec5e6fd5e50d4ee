// The one accumulator of the analyses: count, sum and sum of squared
// deviations of a sample, its extremes and, for a series, the sum of squared
// steps between successive values.
//
// The textbook form (sum of squares - n * mean^2) cancels catastrophically
// when the values sit on a large offset: 10^9 plus noise of size 10^-6 leaves
// no correct digit of the variance in double precision. Values are therefore
// taken relative to a shift (the first finite value: a member of the sample,
// so the mean's distance from it is bounded by the spread), and the sums of
// the differences and of their squares are compensated (Knuth's two-sum and
// an exact fused product, Ogita, Rump and Oishi 2005, "Accurate sum and dot
// product"), which makes their error independent of the number of values.
// The results are those of exact arithmetic on the stored doubles, rounded
// once; infinite or NaN data give what the textbook formulas give (an
// infinite mean, a NaN spread).
#pragma once

#include <cmath>
#include <cstddef>

// The least and greatest of x[0 .. n) folded into *min and *max as running
// extremes keep them (the first of equal values, signed zeros included),
// four lanes at a time where the processor has them.
void st_AddExtremes(const double* x, std::size_t n, double* min, double* max);

class CMoments {
public:
    // Inline: analyses call it once per record.
    void Add(double x) {
        if (!m_hasRef && std::isfinite(x)) {
            // Values before it were not finite and the sums are already so.
            m_ref = x;
            m_hasRef = true;
        }
        const double d = x - m_ref;
        TwoSum(m_s1, m_c1, d);
        const double square = d * d;
        TwoSum(m_s2, m_c2, square);
        m_c2 += std::fma(d, d, -square);
        ++m_n;
        if (x < m_min) m_min = x;
        if (x > m_max) m_max = x;
    }
    // Add for each value, four at a time in vector registers where the
    // processor has them (AVX2 and FMA). The compensated sums hold their
    // totals far below the last bit of a double in either order, so the
    // results are the same; the extremes are those a running one keeps.
    void AddAll(const double* x, std::size_t n);
    // Add, and the squared step from the value added before (none for the
    // first): the successive differences of batch means.
    void AddInSeries(double x);
    void Reset() { *this = CMoments(); }

    long Count() const { return m_n; }
    double Sum() const;
    double SumOfSquares() const;
    // Sum / n; 0 for an empty sample.
    double Mean() const;
    // Mean - origin without first rounding the mean: on data with a large
    // offset the difference of two means, or of the mean and a value near
    // it, keeps its digits.
    double MeanFrom(double origin) const;
    // Sum of (x - mean)^2; never negative, NaN when the data are not finite.
    double SumSqDev() const;
    // SumSqDev / (n - 1); 0 below two values.
    double Variance() const;
    // Sum of (x[i] - x[i - 1])^2 over the values given to AddInSeries.
    double SumSqSteps() const;
    // Start at +1e20 and -1e20, the bounds the analyses search from.
    double Min() const { return m_min; }
    double Max() const { return m_max; }

private:
    // sum += x, with the rounding error of the addition added to carry.
    static void TwoSum(double& sum, double& carry, double x) {
        const double t = sum + x;
        const double back = t - sum;
        carry += (sum - (t - back)) + (x - back);
        sum = t;
    }

    long m_n = 0;
    bool m_hasRef = false;
    double m_ref = 0.0;
    double m_s1 = 0.0, m_c1 = 0.0;  // sum of x - ref, and its carry
    double m_s2 = 0.0, m_c2 = 0.0;  // sum of (x - ref)^2, and its carry
    double m_min = 1e20;
    double m_max = -1e20;
    double m_prev = 0.0;            // the last value given to AddInSeries
    double m_d = 0.0, m_cd = 0.0;   // sum of squared steps, and its carry
};
