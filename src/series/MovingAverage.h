// Moving averages of a series as it is read, for smoothing (centred, with
// Welch's shortened windows at the start) and for forecasting (trailing, with
// the one-step forecast errors).
//
// Centred (Welch 1983): for i = 1 .. n - w the average of Y(i-w) .. Y(i+w),
// and of Y(1) .. Y(2i-1) while i <= w; the last w points have no full window
// and are not smoothed. Trailing: M(i) = average of Y(i-w+1) .. Y(i) for
// i = w .. n, which is the forecast of Y(i+1).
//
// Only the window is held (a ring of 2w + 1 or w values), so a series of any
// length streams through. The window sum slides by the difference of the
// value entering and the one leaving, taken exactly (Knuth's two-sum) into a
// compensated sum (Neumaier's), so that the error does not grow with n: a
// plain running sum over 10^7 points loses digits at every step.
#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

enum MoveMethod { MOVE_CENTRED = 0, MOVE_TRAILING = 1 };

// The observation number of the first smoothed value.
inline long move_FirstSmoothed(int window, MoveMethod method) { return method == MOVE_TRAILING ? window : 1; }

// One-step errors of the trailing forecasts F(i+1) = M(i), i = w .. n - 1.
struct ForecastErrors {
    long count = 0;
    double mad = 0.0;   // mean absolute deviation
    double mse = 0.0;   // mean squared error
    double mape = 0.0;  // mean absolute percentage error; NaN when an actual value is 0
};

class CMovingAverage {
public:
    // window at least 1.
    CMovingAverage(int window, MoveMethod method);

    // Takes the next observations of the series and appends to out the
    // smoothed values they settle, in order from observation number
    // move_FirstSmoothed.
    void Add(const double* y, std::size_t n, std::vector<double>& out);
    // The series has ended: appends what only its length settles (the start
    // of a centred average of a series shorter than 2w).
    void Finish(std::vector<double>& out);

    long Observations() const { return m_n; }
    // Trailing: the errors of the forecasts compared so far (NaN measures
    // when none); the last value given is the next forecast.
    ForecastErrors Errors() const;

    // Neumaier's compensated sum: s + c carries the exact sum's digits.
    struct Sum {
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
        // Adds a - b, its rounding error taken exactly (Knuth's two-sum)
        // into the compensation: one addition on each chain per point.
        void AddDifference(double a, double b) {
            const double hi = a - b;
            const double bv = hi - a;
            const double lo = (a - (hi - bv)) + (-b - bv);
            const double t = s + hi;
            const double e = std::fabs(s) >= std::fabs(hi) ? (s - t) + hi : (hi - t) + s;
            c += e + lo;
            s = t;
        }
        double Value() const { return s + c; }
    };

private:
    void AddCentred(const double* y, std::size_t n, std::vector<double>& out);
    void AddTrailing(const double* y, std::size_t n, std::vector<double>& out);

    long m_w;
    MoveMethod m_method;
    std::vector<double> m_ring;  // the last values in the window
    std::size_t m_slot = 0;      // where the next value goes
    long m_n = 0;                // observations taken
    Sum m_sum;
    // Centred: the start's values, held until the series is known to reach 2w.
    std::vector<double> m_start;
    // Trailing: the last average, which forecasts the next observation.
    double m_last = 0.0;
    long m_compared = 0;
    Sum m_abs, m_sq, m_pct;
    bool m_zero = false;
};

// The whole series at once: the smoothed values, and the trailing forecasts' errors.
std::vector<double> move_Smooth(const std::vector<double>& y, int window, MoveMethod method);
ForecastErrors move_ForecastErrors(const std::vector<double>& y, int window);
