// oproc plot: a line plot of data files, each under its own replications,
// with its legend below, written as an SVG.
#include <ostream>

#include "CliHost.h"
#include "Command.h"
#include "FileArgs.h"
#include "GraphOutput.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "graph/BaseWnd.h"
#include "graph/PlotDlg.h"
#include "graph/PlotDoc.h"
#include "graph/PlotView.h"

namespace {

struct Options {
    std::vector<std::string> files;
    std::string title, xLabel, yLabel, from, to, min, max;
    bool xGiven = false, yGiven = false;
    SvgOptions svg;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("plot", "Line plot of data files (time on x, value on y) with a legend");
    sub->add_option("FILE", g_opt.files, "Data files, each FILE or FILE@REPS (a number, All or Lumped)")->required();
    sub->add_option("--title", g_opt.title, "Graph title");
    sub->add_option("--x-label", g_opt.xLabel, "Title of the x axis (default Time)");
    sub->add_option("--y-label", g_opt.yLabel, "Title of the y axis (default Value)");
    sub->add_option("--from", g_opt.from, "First time shown (default: from the data)");
    sub->add_option("--to", g_opt.to, "Last time shown (default: from the data)");
    sub->add_option("--min", g_opt.min, "Lowest value shown (default: from the data)");
    sub->add_option("--max", g_opt.max, "Highest value shown (default: from the data)");
    cli_AddSvgOptions(sub, g_opt.svg, true);
    sub->footer(
        "Each curve has its own colour and line style, named in the legend under the graph.\n"
        "Times and values left out are taken from the data of all files.");
    return sub;
}

int Plot(const Options& opt) {
    CPlotDlg dlg;
    for (const std::string& arg : opt.files) {
        FileArg f = cli_ParseFileArg(arg);
        dlg.AddFile(f.path, f.reps);
    }
    dlg.m_strTitle = opt.title;
    if (!opt.xLabel.empty()) dlg.m_strXLabel = opt.xLabel;
    if (!opt.yLabel.empty()) dlg.m_strYLabel = opt.yLabel;
    dlg.m_strBeginTime = opt.from;
    dlg.m_strEndTime = opt.to;
    dlg.m_strMinValue = opt.min;
    dlg.m_strMaxValue = opt.max;
    int index = 0;
    if (int rc = dlg.Validate(&index)) return AfxMessageBox(rc), rc;

    CPlotDoc doc;
    if (int rc = doc.InitFromDialog(dlg)) {
        if (!cli_Host().MessageShown()) AfxMessageBox(rc);
        return rc;
    }
    CPlotView graph;
    graph.SetDocument(&doc);
    CPlotLegendView legend;
    legend.SetDocument(&doc);
    CBaseWnd frame;
    frame.SetActiveDocument(&doc);
    frame.SetFrameCaption(16019, true);
    int first = CBaseWndSplit::FirstPaneHeight(opt.svg.height, doc.m_nMinFirstPane);
    return cli_WriteSvg(opt.svg, frame.GetWindowText(), {{&graph, first}, {&legend, 0}});
}

int Run(CliIO&) { return cli_Status(Plot(g_opt)); }

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
