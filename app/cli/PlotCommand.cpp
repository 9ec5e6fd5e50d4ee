// oproc plot: a line plot of data files, each under its own replications,
// with its legend below, written as an SVG.
#include <ostream>

#include "CliHost.h"
#include "Command.h"
#include "FileArgs.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "OptionChecks.h"
#include "graph/PlotDlg.h"
#include "group/Commands.h"

namespace {

struct Options {
    std::vector<std::string> files;
    std::string title, xLabel, yLabel, from, to, min, max;
    bool xGiven = false, yGiven = false;
    SvgOptions svg;
    CliGroup group;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("plot", "Line plot of data files (time on x, value on y) with a legend");
    sub->add_option("FILE", g_opt.files, "Data files, each FILE or FILE@REPS (a number, All or Lumped)")->required();
    sub->add_option("--title", g_opt.title, "Graph title");
    sub->add_option("--x-label", g_opt.xLabel, "Title of the x axis (default Time)");
    sub->add_option("--y-label", g_opt.yLabel, "Title of the y axis (default Value)");
    cli_AddNumber(sub, "--from", g_opt.from, "First time shown")->default_str("from the data");
    cli_AddNumber(sub, "--to", g_opt.to, "Last time shown")->default_str("from the data");
    cli_AddNumber(sub, "--min", g_opt.min, "Lowest value shown")->default_str("from the data");
    cli_AddNumber(sub, "--max", g_opt.max, "Highest value shown")->default_str("from the data");
    cli_AddSvgOptions(sub, g_opt.svg, true);
    g_opt.group.AddOption(sub);
    sub->footer(
        "Each curve has its own colour and line style, named in the legend under the graph.\n"
        "Times and values left out are taken from the data of all files.");
    return sub;
}

// The dialog's fields from the command line; the command entry makes the
// window, graph above legend, and the SVG is drawn from it.
int Run(CliIO&) {
    std::vector<FileArg> files = g_opt.group.ParseFileArgs(g_opt.files);
    cli_Host().SetSvgOutput(&g_opt.svg);
    return cli_RunEntry<CPlotDlg>(g_OnPlot, g_opt.group, [&](CPlotDlg& dlg) {
        dlg.m_items.clear();
        for (const FileArg& f : files) dlg.AddFile(f.path, f.reps);
        dlg.m_strTitle = g_opt.title;
        if (!g_opt.xLabel.empty()) dlg.m_strXLabel = g_opt.xLabel;
        if (!g_opt.yLabel.empty()) dlg.m_strYLabel = g_opt.yLabel;
        dlg.m_strBeginTime = g_opt.from;
        dlg.m_strEndTime = g_opt.to;
        dlg.m_strMinValue = g_opt.min;
        dlg.m_strMaxValue = g_opt.max;
    });
}

CommandRegistrar g_reg(600, Setup, Run);

DemoRegistrar g_demo1({600, "Plot: wait in queue of three replications",
                       {"plot", "--title", "Wait in queue", "--y-label", "Wait", "waits.dat@1", "waits.dat@2",
                        "waits.dat@3", "--svg", "plot-waits.svg"},
                       "plot-waits.svg"});
DemoRegistrar g_demo2({610, "Plot: number in queue and unfinished work, first 200 time units",
                       {"plot", "--title", "Queue and workload, replication 1", "--to", "200", "queue.dat@1",
                        "workload.dat@1", "--svg", "plot-queue.svg"},
                       "plot-queue.svg"});

}  // namespace
