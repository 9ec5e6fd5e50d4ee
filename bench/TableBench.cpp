// The table of a large file written whole, as `oproc table --format csv` writes
// it, to /dev/null: against BM_ReadPass (the same file read once) this shows
// what the rows and the number formatting add to the read.
#include <benchmark/benchmark.h>

#include <fstream>

#include "BenchData.h"
#include "graph/TableDlg.h"
#include "graph/TableDoc.h"
#include "graph/TableView.h"

namespace {

void TableToNull(benchmark::State& state, ReportFormat format) {
    const std::string path = bench_TallyFile(state.range(0));
    for (auto _ : state) {
        CTableDlg dlg;
        dlg.AddFile(path, "");
        dlg.Validate(nullptr);
        CTableDoc doc;
        doc.InitFromDialog(dlg);
        CTableView view;
        view.SetDocument(&doc);
        std::ofstream out("/dev/null", std::ios::binary);
        benchmark::DoNotOptimize(view.WriteAll(out, format));
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_TableCsv(benchmark::State& state) { TableToNull(state, ReportFormat::Csv); }
BENCHMARK(BM_TableCsv)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->Iterations(3);

// The rows alone, without formatting: the cost of the side-by-side reading.
void BM_TableRows(benchmark::State& state) {
    const std::string path = bench_TallyFile(state.range(0));
    for (auto _ : state) {
        CTableDlg dlg;
        dlg.AddFile(path, "");
        dlg.Validate(nullptr);
        CTableDoc doc;
        doc.InitFromDialog(dlg);
        CTableRows& rows = doc.Rows();
        TableRow row;
        double sum = 0;
        while (rows.Next(&row)) sum += row.cells[0].value;
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_TableRows)->Arg(10'000'000)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
