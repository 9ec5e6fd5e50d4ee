// Discrete Fourier transform of a power-of-two length, in place on separate
// real and imaginary arrays.
//
// Iterative radix-2 decimation in time (Cooley and Tukey 1965) after a
// bit-reversal permutation. Each stage reads its own table of twiddle factors,
// computed directly with cos and sin rather than by recurrence, so that the
// rounding error grows only with log2 of the length (about 1e-16 * log2(n)
// relative to the size of the transform).
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

class CFft {
public:
    // size: a power of two, at least 2.
    explicit CFft(std::size_t size);

    std::size_t Size() const { return m_size; }
    // X[f] = sum over t of x[t] exp(-2 pi i f t / n).
    void Forward(double* re, double* im) const;
    // x[t] = sum over f of X[f] exp(+2 pi i f t / n), without the 1/n.
    void Inverse(double* re, double* im) const { Forward(im, re); }
    // Forward for input already placed in bit-reversed order: x[t] at
    // position Reversed(t). Filling so spares the permutation's scattered swaps.
    void ForwardReversed(double* re, double* im) const;
    std::size_t Reversed(std::size_t t) const { return m_reverse[t]; }
    // ForwardReversed after its first stage: each pair of places 2j, 2j + 1
    // already holds a + b and a - b. Where b is 0 (a zero padding on the odd
    // places) that is a + 0.0 and a, which the filling can write at once.
    void ForwardReversedPaired(double* re, double* im) const;

private:
    // The butterflies of the stage with half-length h >= 4.
    void Stage(double* re, double* im, std::size_t h) const;

    std::size_t m_size;
    std::vector<std::uint32_t> m_reverse;
    // Stage with half-length h uses entries h .. 2h - 1: exp(-pi i j / h).
    std::vector<double> m_wr;
    std::vector<double> m_wi;
};
