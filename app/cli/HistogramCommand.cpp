// oproc histogram FILE[@REPS] [--start X] [--width W] [--cells N]: counts of a
// data file's observations per cell, or the proportion of time a
// time-persistent quantity spends in each.
#include "Command.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "ResultFormat.h"
#include "group/Commands.h"
#include "stats/HistDlg.h"

namespace {

struct Options {
    std::string file;
    std::string title;
    std::string start;
    std::string width;
    std::string cells;
    CliGroup group;
    SvgOptions svg;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("histogram", "Histogram of a data file (time-weighted for time-persistent data)");
    sub->add_option("FILE", g_opt.file,
                    "Data file: FILE or FILE@REPS (REPS: a replication number, All or Lumped; #N: of the --group)")
        ->required();
    sub->add_option("--title", g_opt.title, "Title of the summary and of the graph");
    sub->add_option("--start", g_opt.start, "Lower bound of the first cell (default: a multiple of the width)");
    sub->add_option("--width", g_opt.width, "Cell width (default: the Freedman-Diaconis rule, made 1, 2 or 5 x 10^k)");
    sub->add_option("--cells", g_opt.cells, "Number of cells, 1 to 200 (default: enough to reach the maximum)");
    g_opt.group.AddOption(sub);
    cli_AddSvgOptions(sub, g_opt.svg, false);
    cli_AddFormatOption(sub);
    return sub;
}

int Run(CliIO&) {
    FileArg file = g_opt.group.ParseFileArg(g_opt.file);
    cli_Host().SetSvgOutput(&g_opt.svg);
    return cli_RunEntry<CHistDlg>(g_OnHistogram, g_opt.group, [&](CHistDlg& dlg) {
        dlg.m_strFile = file.path;
        dlg.m_strReps = file.reps;
        dlg.m_strTitle = g_opt.title;
        dlg.m_strStart = g_opt.start;
        dlg.m_strWidth = g_opt.width;
        dlg.m_strCells = g_opt.cells;
    });
}

CommandRegistrar g_reg(330, Setup, Run);

DemoRegistrar g_demoTally({550,
                           "Histogram of every customer's wait, all replications pooled",
                           {"histogram", "waits.dat@All", "--svg", "histogram.svg"},
                           "histogram.svg"});
DemoRegistrar g_demoQueue({551,
                           "Time-weighted histogram of the queue length: the share of time at each length",
                           {"histogram", "queue.dat@All", "--title", "Customers waiting", "--svg",
                            "histogram_queue.svg"},
                           "histogram_queue.svg"});

}  // namespace
