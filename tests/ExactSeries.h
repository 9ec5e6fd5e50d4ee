// Series of small binary fractions on an offset, for checking sums against
// exact arithmetic: every value is offset + k * 2^-bits with an integer k, so
// the values are exact in a double and their true sums are integers (held in
// 128 bits) scaled by a power of two.
#pragma once

#include <cstdint>
#include <vector>

using i128 = __int128;

// Integers of roughly normal spread: the sum of `terms` uniform draws from
// [-half, half] (xorshift, the same on every machine).
inline std::vector<std::int64_t> test_IntNoise(int n, std::int64_t half, int terms = 4,
                                               std::uint64_t seed = 88172645463325252ULL) {
    std::vector<std::int64_t> ks;
    std::uint64_t state = seed;
    for (int i = 0; i < n; ++i) {
        std::int64_t k = 0;
        for (int j = 0; j < terms; ++j) {
            state ^= state << 13;
            state ^= state >> 7;
            state ^= state << 17;
            k += static_cast<std::int64_t>(state % static_cast<std::uint64_t>(2 * half + 1)) - half;
        }
        ks.push_back(k);
    }
    return ks;
}

// The same noise filtered as an AR(1) series k[t] = 0.9 k[t - 1] + noise,
// in integers.
inline std::vector<std::int64_t> test_IntAr1(int n, std::int64_t half) {
    std::vector<std::int64_t> ks = test_IntNoise(n, half);
    for (std::size_t t = 1; t < ks.size(); ++t) ks[t] += ks[t - 1] * 9 / 10;
    return ks;
}

// 2^-bits as a double.
inline double test_Ulp(int bits) {
    double u = 1.0;
    for (int i = 0; i < bits; ++i) u /= 2.0;
    return u;
}
