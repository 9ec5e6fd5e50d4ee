// Sums of lagged products of a centred series:
//     acc[k] = sum over t = 1 .. n - k of y[t] * y[t + k],   k = 1 .. L,
// every pair (t, t + k) inside the series counted once. The values arrive in
// series order, so the series is never held whole.
//
// Two methods give the same sums:
// - direct: each new value is multiplied into the L before it, costing n * L
//   products; the sum of each lag is built in the order of t, exactly as a
//   ring buffer over the series builds it.
// - blocked FFT: the series is cut into blocks of B >= L values and each block
//   is correlated with itself and its successor through transforms of length
//   2B, with the products summed in the frequency domain and one inverse
//   transform at the end (the overlap idea of Stockham 1966, "High-speed
//   convolution and correlation"). Cost about n * log2(2B), so it wins for
//   long lag ranges. Rounding error stays below about 1e-14 of acc[0], the
//   sum of squares.
// A series centred on a rounded mean is off by the mean's rounding residual r
// (its sum is n r, not 0). Finish(r) takes it out exactly, from the sums of
// the first and last L values:
//     sum (y[t] - r)(y[t+k] - r) = acc[k] + r (head[k] + tail[k]) - (n + k) r^2,
// which on data with a large offset is worth several percent of a covariance.
#pragma once

#include <memory>
#include <vector>

class CLagProducts {
public:
    enum class Method { Direct, Fft };

    // The faster method for n values and L lags; the direct sum also keeps
    // small work where the time is negligible either way.
    static Method Choose(int maxLag, long count);

    CLagProducts(int maxLag, Method method);
    ~CLagProducts();
    CLagProducts(const CLagProducts&) = delete;
    CLagProducts& operator=(const CLagProducts&) = delete;

    void Add(const double* values, std::size_t count);
    // acc[k] for k = 1 .. L of the values less residual; acc[0] (left 0 by the
    // direct method) is the sum of squares of the values as given.
    std::vector<double> Finish(double residual = 0.0);

    class Engine;

private:
    std::unique_ptr<Engine> m_engine;
    std::size_t m_lags;
    long m_count = 0;
    std::vector<double> m_head;  // the first L values
    std::vector<double> m_tail;  // the last L values, a ring whose oldest is at m_tailAt
    std::size_t m_tailAt = 0;
};
