// The chi-square quantile at large degrees of freedom: the tail from the
// incomplete gamma function (above 10^4 df) against the finite series it
// replaced there, whose cost grows with df. A standard deviation interval
// takes two quantiles at n - 1 df.
#include <benchmark/benchmark.h>

#include "stats/Distributions.h"

namespace {

void BM_ChiSquareQuantile(benchmark::State& state) {
    const int df = static_cast<int>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(st_ChiSquareQuantile(df, 0.025));
        benchmark::DoNotOptimize(st_ChiSquareQuantile(df, 0.975));
    }
}
BENCHMARK(BM_ChiSquareQuantile)->RangeMultiplier(10)->Range(10'000, 100'000'000)->Unit(benchmark::kMicrosecond);

void BM_ChiSquareQuantileBySeries(benchmark::State& state) {
    const int df = static_cast<int>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(st_ChiSquareQuantileBySeries(df, 0.025));
        benchmark::DoNotOptimize(st_ChiSquareQuantileBySeries(df, 0.975));
    }
}
BENCHMARK(BM_ChiSquareQuantileBySeries)->RangeMultiplier(10)->Range(10'000, 10'000'000)->Unit(benchmark::kMillisecond);

// The F quantiles of a comparison of variances of two such files.
void BM_FQuantilePair(benchmark::State& state) {
    const int df = static_cast<int>(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(st_FQuantile(df, df, 0.025));
        benchmark::DoNotOptimize(st_FQuantile(df, df, 0.025));
    }
}
BENCHMARK(BM_FQuantilePair)->RangeMultiplier(10)->Range(10'000, 10'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace
