// The text conversions on large inputs: load ASCII of 10^7 lines (the target
// is under 2 s), and export and import of a 10^7-record file.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <random>
#include <string>

#include "BenchData.h"
#include "convert/ConvertDlgs.h"
#include "convert/ExprtDoc.h"
#include "convert/ImprtDoc.h"
#include "convert/LoadDoc.h"

namespace {

std::string BenchPath(const std::string& name) {
    auto dir = std::filesystem::temp_directory_path() / "oproc-bench";
    std::filesystem::create_directories(dir);
    return (dir / name).string();
}

// Lines as a user's tool writes them: a time with three decimals, a value
// with about ten significant digits, one blank between.
const std::string& TextFile(long lines) {
    static std::string path;
    if (!path.empty()) return path;
    path = BenchPath("load_" + std::to_string(lines) + ".txt");
    if (std::filesystem::exists(path)) return path;
    FILE* f = std::fopen((path + ".part").c_str(), "w");
    std::mt19937_64 rng(11);
    std::exponential_distribution<double> wait(1.0);
    for (long i = 0; i < lines; ++i) std::fprintf(f, "%.3f %.10g\n", static_cast<double>(i) * 0.25, wait(rng));
    std::fclose(f);
    std::filesystem::rename(path + ".part", path);
    return path;
}

void BM_LoadAscii(benchmark::State& state) {
    const std::string& text = TextFile(state.range(0));
    const std::string out = BenchPath("loaded.dat");
    for (auto _ : state) {
        CLoadDlg dlg;
        dlg.m_strFile = text;
        dlg.m_strOutFile = out;
        dlg.m_nPrecision = 1;
        CLoadDoc doc;
        if (doc.InitFromDialog(dlg)) state.SkipWithError("load failed");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_LoadAscii)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Export(benchmark::State& state) {
    const std::string& data = bench_TallyFile(state.range(0));
    const std::string out = BenchPath("exported.dax");
    for (auto _ : state) {
        CExprtDlg dlg;
        dlg.m_strFile = data;
        dlg.m_strOutFile = out;
        CExprtDoc doc;
        if (doc.InitFromDialog(dlg)) state.SkipWithError("export failed");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Export)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_Import(benchmark::State& state) {
    const std::string text = BenchPath("exported.dax");
    if (!std::filesystem::exists(text)) {
        CExprtDlg dlg;
        dlg.m_strFile = bench_TallyFile(state.range(0));
        dlg.m_strOutFile = text;
        CExprtDoc doc;
        doc.InitFromDialog(dlg);
    }
    const std::string out = BenchPath("imported.dat");
    for (auto _ : state) {
        CImprtDlg dlg;
        dlg.m_strFile = text;
        dlg.m_strOutFile = out;
        dlg.m_nPrecision = 1;
        CImprtDoc doc;
        if (doc.InitFromDialog(dlg)) state.SkipWithError("import failed");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Import)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
