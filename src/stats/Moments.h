// Running count, sum and sum of squared deviations of a sample, with its
// minimum and maximum.
//
// The textbook form (sum of squares - n * mean^2) cancels catastrophically
// when the values sit on a large offset: 10^7 plus noise of size 0.1 leaves
// no correct digit of the variance in double precision. Values are therefore
// taken relative to the first one (a member of the sample, so the mean's
// distance from it is bounded by the spread) and the sums of the differences
// are held in extended precision. The results equal the textbook formulas in
// exact arithmetic.
#pragma once

class CMoments {
public:
    void Add(double x);
    void Reset() { *this = CMoments(); }

    long Count() const { return m_n; }
    double Sum() const;
    double SumOfSquares() const;
    // Sum / n; 0 for an empty sample.
    double Mean() const;
    // Sum of (x - mean)^2; never negative.
    double SumSqDev() const;
    // SumSqDev / (n - 1); 0 below two values.
    double Variance() const;
    // Start at +1e20 and -1e20, the bounds the analyses search from.
    double Min() const { return m_min; }
    double Max() const { return m_max; }

private:
    long double M2() const;

    long m_n = 0;
    double m_ref = 0.0;
    long double m_s1 = 0.0L;  // sum of x - ref
    long double m_s2 = 0.0L;  // sum of (x - ref)^2
    double m_min = 1e20;
    double m_max = -1e20;
};
