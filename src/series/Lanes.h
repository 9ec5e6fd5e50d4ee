// Short vectors of doubles for the transform's loops. Each lane does exactly
// the operations of the scalar loop, in the same order and with no fused
// multiply-add, so every width gives the same bits; only the speed differs.
// On x86 two lanes are SSE2, which every x86-64 has, and four lanes AVX,
// looked for at run time (functions marked OPROC_AVX). Elsewhere one lane.
#pragma once

#include <cstddef>
#include <cstring>

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define OPROC_LANES_X86 1
#define OPROC_AVX __attribute__((target("avx")))
typedef double Lanes2 __attribute__((vector_size(16)));
typedef double Lanes4 __attribute__((vector_size(32)));

inline bool lanes_HaveAvx() {
    static const bool has = __builtin_cpu_supports("avx");
    return has;
}

inline void lanes_Reverse(Lanes2& x) { x = __builtin_shufflevector(x, x, 1, 0); }
inline void lanes_Reverse(Lanes4& x) { x = __builtin_shufflevector(x, x, 3, 2, 1, 0); }
#endif

struct Lanes1 {
    double x;
    Lanes1 operator*(Lanes1 o) const { return {x * o.x}; }
    Lanes1 operator+(Lanes1 o) const { return {x + o.x}; }
    Lanes1 operator-(Lanes1 o) const { return {x - o.x}; }
};
inline Lanes1 operator*(double a, Lanes1 b) { return {a * b.x}; }
inline void lanes_Reverse(Lanes1&) {}

// Loads and stores go through references: a four-lane value passed or
// returned by value outside an AVX function would change the calling convention.
template <typename L>
inline void lanes_Load(L& x, const double* p) {
    std::memcpy(&x, p, sizeof x);
}

template <typename L>
inline void lanes_Store(double* p, const L& x) {
    std::memcpy(p, &x, sizeof x);
}

template <typename L>
constexpr std::size_t kLaneCount = sizeof(L) / sizeof(double);
