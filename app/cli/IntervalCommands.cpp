// oproc interval | sdinterval | stdinterval [--level TEXT] [--title TEXT]
// [--scale] FILE[@REPS]...: confidence intervals on the mean, on the standard
// deviation, and standardized time series intervals on the mean.
#include <ostream>

#include "Command.h"
#include "FileArgs.h"
#include "GraphOutput.h"
#include "graph/IntervalViews.h"
#include "framework/Host.h"
#include "series/StdInDlg.h"
#include "series/StdIntTextView.h"
#include "series/StdIntrvlDoc.h"
#include "stats/IntrvlDlg.h"
#include "stats/IntrvlDoc.h"
#include "stats/IntrvlTextView.h"
#include "stats/SdIntDoc.h"
#include "stats/SdIntTextView.h"

namespace {

struct Options {
    std::vector<std::string> files;
    std::string level = "0.95";
    std::string title;
    bool scale = false;
    SvgOptions svg;
};

Options g_mean, g_sd, g_std;

CLI::App* AddCommand(CLI::App& app, const char* name, const char* about, Options& opt) {
    opt = Options{};
    CLI::App* sub = app.add_subcommand(name, about);
    // No file at all is the dialog's own check, so the list is not required here.
    sub->add_option("FILE", opt.files, "Data files, each FILE or FILE@REPS (REPS: a replication number, All, Lumped)");
    sub->add_option("--level", opt.level, "Confidence level: a fraction (0.95) or a percentage (95)")
        ->capture_default_str();
    sub->add_option("--title", opt.title, "Title printed under the report title");
    sub->add_flag("--scale", opt.scale, "Show the scale on the chart");
    cli_AddSvgOptions(sub, opt.svg, false);
    return sub;
}

void FillDialog(CIntrvlDlg& dlg, const Options& opt) {
    for (const std::string& f : opt.files) {
        FileArg a = cli_ParseFileArg(f);
        dlg.AddFile(a.path, a.reps);
    }
    // The level box takes no more than this typed in.
    dlg.m_strLevel = opt.level.substr(0, CIntrvlDlg::kLevelTextLimit);
    dlg.m_strTitle = opt.title;
    dlg.m_bScale = opt.scale;
}

// The flow every interval analysis shares: validate, compute, report.
template <class Dlg, class Doc, class View, class Graph>
int RunAnalysis(const Options& opt, int captionId, CliIO& io) {
    Dlg dlg;
    FillDialog(dlg, opt);
    int row = -1;
    if (int rc = dlg.Validate(&row)) {
        AfxMessageBox(rc);
        return cli_Status(rc);
    }
    Doc doc;
    if (int rc = doc.InitFromDialog(dlg)) {
        AfxMessageBox(rc);
        return cli_Status(rc);
    }
    View view;
    view.SetDocument(&doc);
    io.out << txt_ReportText(view);
    Graph graph;
    graph.SetDocument(&doc);
    return cli_Status(cli_WriteGraphSvg(opt.svg, captionId, doc.m_strTitle, graph));
}

CLI::App* SetupMean(CLI::App& app) {
    return AddCommand(app, "interval", "Classical confidence intervals on the mean", g_mean);
}
int RunMean(CliIO& io) { return RunAnalysis<CIntrvlDlg, CIntrvlDoc, CIntrvlTextView, CIntrvlView>(g_mean, 16021, io); }

CLI::App* SetupSd(CLI::App& app) {
    return AddCommand(app, "sdinterval", "Confidence intervals on the standard deviation", g_sd);
}
int RunSd(CliIO& io) { return RunAnalysis<CSdIntDlg, CSdIntDoc, CSdIntTextView, CSdIntView>(g_sd, 16023, io); }

CLI::App* SetupStd(CLI::App& app) {
    return AddCommand(app, "stdinterval", "Standardized time series confidence intervals on the mean", g_std);
}
int RunStd(CliIO& io) { return RunAnalysis<CStdInDlg, CStdIntrvlDoc, CStdIntTextView, CStdIntView>(g_std, 16024, io); }

CommandRegistrar g_regMean(200, SetupMean, RunMean);
CommandRegistrar g_regSd(210, SetupSd, RunSd);
CommandRegistrar g_regStd(220, SetupStd, RunStd);

DemoRegistrar g_demoMean({200,
                          "Classical confidence intervals on the mean: each replication of the waits, "
                          "and the replication averages pooled",
                          {"interval", "--title", "Waiting time in queue", "--scale", "waits.dat@All", "meanwait.dat@Lumped",
                           "--svg", "interval.svg"},
                          "interval.svg"});
DemoRegistrar g_demoSd({210,
                        "Confidence intervals on the standard deviation at 90%",
                        {"sdinterval", "--level", "90", "waits.dat@All", "meanwait.dat@Lumped", "--svg", "sdinterval.svg"},
                        "sdinterval.svg"});
DemoRegistrar g_demoStd({220,
                         "Standardized time series intervals on the mean wait, allowing for correlation",
                         {"stdinterval", "--scale", "waits.dat@All", "waits.dat@Lumped", "--svg", "stdinterval.svg"},
                         "stdinterval.svg"});

}  // namespace
