// The plain read pass over a data file: the floor that every analysis of a
// large file is measured against.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <vector>

#include "BenchData.h"
#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "datafile/SingleDoc.h"

namespace {

void BM_ReadPass(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0));
    for (auto _ : state) {
        CRecordReader in;
        in.Open(path);
        in.Start(1);
        double t = 0, v = 0, sum = 0;
        while (in.NextObs(&t, &v)) sum += v;
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ReadPass)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

// Opening a single-file document and asking for its replication count: one
// pass that counts and indexes together (an analysis's own pass does it on
// the way instead).
void BM_OpenSingleDoc(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0), 10);
    for (auto _ : state) {
        CSingleDoc doc;
        benchmark::DoNotOptimize(doc.OnOpenDocument(path.c_str()));
        benchmark::DoNotOptimize(doc.RepCount());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_OpenSingleDoc)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

}  // namespace

namespace {

// The floor: the same file read in 1 MiB blocks by a plain C loop that sums
// the values, skipping the header by its Ctrl-Z.
void BM_PlainBlockLoop(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0));
    std::vector<char> block(1 << 20);
    for (auto _ : state) {
        FILE* f = std::fopen(path.c_str(), "rb");
        std::size_t headerEnd = 0;
        std::size_t got = std::fread(block.data(), 1, block.size(), f);
        while (headerEnd < got && block[headerEnd] != 26) ++headerEnd;
        std::size_t offset = headerEnd + 1;
        double sum = 0;
        for (;;) {
            std::size_t records = (got - offset) / 16;
            const char* p = block.data() + offset;
            for (std::size_t i = 0; i < records; ++i) {
                double rec[2];
                std::memcpy(rec, p + 16 * i, 16);
                if (rec[0] >= 0) sum += rec[1];
            }
            std::size_t rest = got - offset - records * 16;
            std::memmove(block.data(), block.data() + offset + records * 16, rest);
            std::size_t more = std::fread(block.data() + rest, 1, block.size() - rest, f);
            if (more == 0) break;
            got = rest + more;
            offset = 0;
        }
        std::fclose(f);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_PlainBlockLoop)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
