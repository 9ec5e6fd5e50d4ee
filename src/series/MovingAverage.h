// Moving averages of a series held in memory, for smoothing (centred, with
// Welch's shortened windows at the start) and for forecasting (trailing, with
// the one-step forecast errors).
//
// Centred (Welch 1983): for i = 1 .. n - w the average of Y(i-w) .. Y(i+w),
// and of Y(1) .. Y(2i-1) while i <= w; the last w points have no full window
// and are not smoothed. Trailing: M(i) = average of Y(i-w+1) .. Y(i) for
// i = w .. n, which is the forecast of Y(i+1).
//
// The window sum slides by one addition and one subtraction per point, both
// compensated (Neumaier's two-sum), so that the error does not grow with n:
// a plain running sum over 10^7 points loses digits at every step.
#pragma once

#include <vector>

enum MoveMethod { MOVE_CENTRED = 0, MOVE_TRAILING = 1 };

// The smoothed values, in order: centred ones for observation numbers
// 1 .. n - w, trailing ones for w .. n. Empty when w < 1 or n <= w.
std::vector<double> move_Smooth(const std::vector<double>& y, int window, MoveMethod method);
// The observation number of the first smoothed value.
inline long move_FirstSmoothed(int window, MoveMethod method) { return method == MOVE_TRAILING ? window : 1; }

// One-step errors of the trailing forecasts F(i+1) = M(i), i = w .. n - 1.
struct ForecastErrors {
    long count = 0;
    double mad = 0.0;   // mean absolute deviation
    double mse = 0.0;   // mean squared error
    double mape = 0.0;  // mean absolute percentage error; NaN when an actual value is 0
};
// trailing holds M(w) .. M(n) as move_Smooth gives them.
ForecastErrors move_ForecastErrors(const std::vector<double>& y, const std::vector<double>& trailing, int window);

// The points a graph of v needs when v is plotted against the observation
// numbers first, first + 1, ...: at most buckets runs of consecutive points,
// each kept as its lowest and highest point in their order, which draw the
// same pixels as the whole run once a run is no wider than a pixel column.
void move_GraphPoints(const std::vector<double>& v, long first, std::size_t buckets, std::vector<double>* xs,
                      std::vector<double>* ys);
