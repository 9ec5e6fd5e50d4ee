// The correlogram's lagged sums: the direct method against the blocked FFT,
// on series held in memory, and the whole analysis on a 10^7-record file.
#include <benchmark/benchmark.h>

#include <optional>
#include <random>
#include <vector>

#include "series/LagProducts.h"

namespace {

const std::vector<double>& Series(long n) {
    static std::vector<double> y;
    if (static_cast<long>(y.size()) != n) {
        std::mt19937_64 rng(99);
        std::normal_distribution<double> noise(0.0, 1.0);
        y.resize(static_cast<std::size_t>(n));
        double x = 0.0;
        for (double& v : y) v = x = 0.9 * x + noise(rng);
    }
    return y;
}

void Lagged(benchmark::State& state, CLagProducts::Method method) {
    const long n = state.range(0);
    const int lags = static_cast<int>(state.range(1));
    const std::vector<double>& y = Series(n);
    for (auto _ : state) {
        CLagProducts p(lags, method);
        p.Add(y.data(), y.size());
        benchmark::DoNotOptimize(p.Finish());
    }
    state.SetItemsProcessed(state.iterations() * n);
}

void BM_LagDirect(benchmark::State& state) { Lagged(state, CLagProducts::Method::Direct); }
void BM_LagFft(benchmark::State& state) { Lagged(state, CLagProducts::Method::Fft); }

BENCHMARK(BM_LagDirect)->ArgsProduct({{1'000'000}, {8, 32, 64, 128, 256, 1024}})->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LagFft)->ArgsProduct({{1'000'000}, {8, 32, 64, 128, 256, 1024, 9999}})->Unit(benchmark::kMillisecond);
// The long lag range directly: 10^5 values, 10^9 products.
BENCHMARK(BM_LagDirect)->Args({100'000, 9999})->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_LagFft)->Args({100'000, 9999})->Unit(benchmark::kMillisecond);

}  // namespace

#include "BenchData.h"
#include "series/CorrDoc.h"

namespace {

// The whole analysis: open, two passes over 10^7 records, the lagged sums.
void Correlogram(benchmark::State& state, std::optional<CLagProducts::Method> method) {
    const std::string& path = bench_TallyFile(10'000'000);
    for (auto _ : state) {
        CCorrDoc doc;
        doc.OnOpenDocument(path.c_str());
        doc.m_nMaxLags = static_cast<int>(state.range(0));
        doc.m_forceMethod = method;
        if (doc.Compute() != 0) state.SkipWithError("correlogram failed");
        benchmark::DoNotOptimize(doc.Results().weightedSum);
    }
    state.SetItemsProcessed(state.iterations() * 10'000'000);
}

void BM_CorrelogramAuto(benchmark::State& state) { Correlogram(state, std::nullopt); }
void BM_CorrelogramDirect(benchmark::State& state) { Correlogram(state, CLagProducts::Method::Direct); }
void BM_CorrelogramFft(benchmark::State& state) { Correlogram(state, CLagProducts::Method::Fft); }

BENCHMARK(BM_CorrelogramAuto)->Arg(10)->Arg(50)->Arg(9999)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_CorrelogramDirect)->Arg(10)->Arg(50)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_CorrelogramFft)->Arg(10)->Arg(50)->Arg(200)->Arg(9999)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
