// The plain read pass over a data file: the floor that every analysis of a
// large file is measured against.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "BenchData.h"
#include "datafile/DataFile.h"
#include "datafile/SingleDoc.h"

namespace {

void BM_ReadPass(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0));
    for (auto _ : state) {
        int err = 0;
        FILE* f = op_OpenDataFile(&err, path.c_str(), 2, true);
        DataFileHeader h;
        op_ReadFileHdr(f, false, &h);
        double t = 0, v = 0, sum = 0;
        for (;;) {
            op_ReadObs(f, h.isDouble, 1, h.kind, &t, &v);
            if (t < 0) break;
            sum += v;
        }
        std::fclose(f);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ReadPass)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

// Opening a single-file document counts the replications and indexes them:
// two passes over the file before any analysis starts.
void BM_OpenSingleDoc(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0), 10);
    for (auto _ : state) {
        CSingleDoc doc;
        benchmark::DoNotOptimize(doc.OnOpenDocument(path.c_str()));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_OpenSingleDoc)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
