// The interval analyses on files of about 10^7 records, to compare with
// BM_ReadPass: each analysis is one pass over its rows.
#include <benchmark/benchmark.h>

#include "BenchData.h"
#include "series/StdInDlg.h"
#include "series/StdIntrvlDoc.h"
#include "stats/IntrvlDlg.h"
#include "stats/IntrvlDoc.h"
#include "stats/SdIntDoc.h"

namespace {

template <class Dlg, class Doc>
void RunAnalysis(benchmark::State& state, const std::string& path, const char* reps, long records) {
    Dlg dlg;
    dlg.AddFile(path, reps);
    for (auto _ : state) {
        Doc doc;
        const int rc = doc.InitFromDialog(dlg);
        if (rc) state.SkipWithError("analysis failed");
        benchmark::DoNotOptimize(doc.Results().rows.data());
    }
    state.SetItemsProcessed(state.iterations() * records);
}

void BM_Interval(benchmark::State& state) {
    RunAnalysis<CIntrvlDlg, CIntrvlDoc>(state, bench_TallyFile(state.range(0)), "", state.range(0));
}
BENCHMARK(BM_Interval)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

// One row per replication: 1000 rows of 10^4 observations.
void BM_IntervalAll(benchmark::State& state) {
    RunAnalysis<CIntrvlDlg, CIntrvlDoc>(state, bench_TallyFile(state.range(0), 1000), "All", state.range(0));
}
BENCHMARK(BM_IntervalAll)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

void BM_SdInterval(benchmark::State& state) {
    RunAnalysis<CSdIntDlg, CSdIntDoc>(state, bench_TallyFile(state.range(0)), "Lumped", state.range(0));
}
BENCHMARK(BM_SdInterval)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

// Batches of two allow at most 9999 observations per row and the chart 1000
// rows: 1000 replications of 9999 observations is the largest input.
void BM_StdInterval(benchmark::State& state) {
    RunAnalysis<CStdInDlg, CStdIntrvlDoc>(state, bench_TallyFile(state.range(0), 1000), "All", state.range(0));
}
BENCHMARK(BM_StdInterval)->Arg(9'999'000)->Unit(benchmark::kMillisecond);

}  // namespace
