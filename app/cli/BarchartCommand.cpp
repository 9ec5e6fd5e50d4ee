// oproc barchart FILE[@REPS] [--bars replications|observations] [--from T]
// [--to T] [--min V] [--max V] --svg PATH: a bar per replication (its mean)
// or per observation, written as an SVG.
#include "CliHost.h"
#include "Command.h"
#include "FileArgs.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "graph/BarchDlg.h"
#include "group/Commands.h"

namespace {

struct Options {
    std::string file, bars, title, from, to, min, max;
    SvgOptions svg;
    CliGroup group;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("barchart", "Bar chart of a data file: the mean of each replication, or each observation");
    sub->add_option("FILE", g_opt.file, "Data file, FILE or FILE@REPS (a number, All or Lumped)")->required();
    sub->add_option("--bars", g_opt.bars, "What a bar is: replications (a replication's mean) or observations")
        ->check(CLI::IsMember({"replications", "observations"}));
    sub->add_option("--title", g_opt.title, "Graph title (default: the file's title)");
    sub->add_option("--from", g_opt.from, "First time shown, or taken into the means (default: from the data)");
    sub->add_option("--to", g_opt.to, "Last time shown, or taken into the means (default: from the data)");
    sub->add_option("--min", g_opt.min, "Lowest value shown (default: from the data and 0)");
    sub->add_option("--max", g_opt.max, "Highest value shown (default: from the data and 0)");
    cli_AddSvgOptions(sub, g_opt.svg, true);
    g_opt.group.AddOption(sub);
    sub->footer(
        "Bars are replications by default when the file holds more than one and REPS is All or Lumped.\n"
        "Means of time-persistent kinds are weighted by time over the replication's span, by the step\n"
        "rule (DSTAT, Counter, Frequency) or the linear rule (CSTAT) that Batch/Truncate uses.");
    return sub;
}

int Run(CliIO&) {
    std::vector<FileArg> files = g_opt.group.ParseFileArgs({g_opt.file});
    cli_Host().SetSvgOutput(&g_opt.svg);
    return cli_RunEntry<CBarchDlg>(g_OnBarchart, g_opt.group, [&](CBarchDlg& dlg) {
        dlg.m_strFile = files.front().path;
        dlg.m_strReps = files.front().reps;
        dlg.m_strTitle = g_opt.title;
        dlg.m_nBars = g_opt.bars.empty() ? BARS_DEFAULT
                                         : (g_opt.bars == "replications" ? BARS_REPLICATIONS : BARS_OBSERVATIONS);
        dlg.m_strBeginTime = g_opt.from;
        dlg.m_strEndTime = g_opt.to;
        dlg.m_strMinValue = g_opt.min;
        dlg.m_strMaxValue = g_opt.max;
    });
}

CommandRegistrar g_reg(610, Setup, Run);

DemoRegistrar g_demo1({612, "Bar chart: average wait of each replication, with the mean of the replications",
                       {"barchart", "waits.dat@All", "--svg", "barchart-reps.svg"},
                       "barchart-reps.svg"});
DemoRegistrar g_demo2({614, "Bar chart: number in queue over the first 100 time units of replication 1 (step area)",
                       {"barchart", "queue.dat@1", "--to", "100", "--svg", "barchart-queue.svg"},
                       "barchart-queue.svg"});

}  // namespace
