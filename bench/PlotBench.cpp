// The plot of a large file: loading its points (one pass: the range scan
// keeps the points it reads) and drawing them into an SVG whose size stays
// bounded; and ten files of a tenth of the size.
#include <benchmark/benchmark.h>

#include "BenchData.h"
#include "framework/SvgDC.h"
#include "graph/PlotDlg.h"
#include "graph/PlotDoc.h"
#include "graph/PlotView.h"

namespace {

void BM_PlotLoad(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0));
    for (auto _ : state) {
        CPlotDlg dlg;
        dlg.AddFile(path, "");
        dlg.Validate(nullptr);
        CPlotDoc doc;
        benchmark::DoNotOptimize(doc.InitFromDialog(dlg));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_PlotLoad)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->Iterations(2);

// Ten files of 10^6 records (one file ten times: each is opened and read on its own).
void BM_PlotLoadTenFiles(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0) / 10);
    for (auto _ : state) {
        CPlotDlg dlg;
        for (int i = 0; i < 10; ++i) dlg.AddFile(path, "");
        dlg.Validate(nullptr);
        CPlotDoc doc;
        benchmark::DoNotOptimize(doc.InitFromDialog(dlg));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_PlotLoadTenFiles)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->Iterations(2);

// Drawing alone: the curve of every point through the SVG writer.
void BM_PlotDrawSvg(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0));
    CPlotDlg dlg;
    dlg.AddFile(path, "");
    dlg.Validate(nullptr);
    CPlotDoc doc;
    doc.InitFromDialog(dlg);
    std::size_t bytes = 0;
    long points = 0;
    for (auto _ : state) {
        CSvgDC dc(800, 600);
        CPlotView view;
        view.SetDocument(&doc);
        view.SetClientRect(CRect{0, 0, 800, 450});
        view.OnDraw(dc);
        points = dc.PathPoints();
        bytes = dc.Finish().size();
    }
    state.counters["svg_bytes"] = static_cast<double>(bytes);
    state.counters["path_points"] = static_cast<double>(points);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_PlotDrawSvg)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
