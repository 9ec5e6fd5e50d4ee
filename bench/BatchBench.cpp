// Batch/Truncate over 10^7 records, by observations and by time: the batching
// pass should cost little more than the plain read pass (BM_ReadPass).
#include <benchmark/benchmark.h>

#include <filesystem>

#include "BenchData.h"
#include "datafile/FileGlobals.h"
#include "series/FiltrDoc.h"

namespace {

// The document is opened (counted and indexed) once; each iteration is one
// full computation over the file.
void RunBatching(benchmark::State& state, const std::string& path, int batchUnit, bool toFile) {
    CFiltrDoc doc;
    doc.SetPathName(path, false);
    if (!doc.OnOpenDocument(path.c_str())) {
        state.SkipWithError("cannot open the benchmark file");
        return;
    }
    doc.m_nTreatment = 1;
    doc.truncUnit = batchUnit;
    doc.truncAmount = 1000.0;
    doc.batchUnit = batchUnit;
    doc.batchSize = 1000.0;
    if (toFile) doc.batchFileName = (std::filesystem::temp_directory_path() / "oproc-bench" / "batched.flt").string();
    for (auto _ : state) {
        if (doc.Compute() != 0) {
            state.SkipWithError("computation failed");
            break;
        }
        benchmark::DoNotOptimize(doc.Results().covEstimate);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_BatchByObservations(benchmark::State& state) {
    RunBatching(state, bench_TallyFile(state.range(0)), 1, false);
}
BENCHMARK(BM_BatchByObservations)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

void BM_BatchByTime(benchmark::State& state) { RunBatching(state, bench_DstatFile(state.range(0)), 0, false); }
BENCHMARK(BM_BatchByTime)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

// With the 10^4 batch means written to a .flt file.
void BM_BatchByTimeToFile(benchmark::State& state) {
    RunBatching(state, bench_DstatFile(state.range(0)), 0, true);
}
BENCHMARK(BM_BatchByTimeToFile)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
