// oproc interval | sdinterval | stdinterval [--level TEXT] [--title TEXT]
// [--scale] FILE[@REPS]...: confidence intervals on the mean, on the standard
// deviation, and standardized time series intervals on the mean.
#include <ostream>

#include "Command.h"
#include "FileArgs.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "OptionChecks.h"
#include "ResultFormat.h"
#include "group/Commands.h"
#include "series/StdInDlg.h"
#include "stats/IntrvlDlg.h"

namespace {

struct Options {
    std::vector<std::string> files;
    std::string level = "0.95";
    std::string title;
    bool scale = false;
    SvgOptions svg;
    CliGroup group;
};

Options g_mean, g_sd, g_std;

CLI::App* AddCommand(CLI::App& app, const char* name, const char* about, Options& opt) {
    opt = Options{};
    CLI::App* sub = app.add_subcommand(name, about);
    sub->add_option("FILE", opt.files, "Data files, each FILE or FILE@REPS (REPS: a replication number, All, Lumped)")
        ->required();
    cli_AddNumber(sub, "--level", opt.level, "Confidence level: a fraction (0.95) or a percentage (95)")
        ->capture_default_str();
    sub->add_option("--title", opt.title, "Title printed under the report title");
    sub->add_flag("--scale", opt.scale, "Show the scale on the chart");
    cli_AddSvgOptions(sub, opt.svg, false);
    opt.group.AddOption(sub);
    cli_AddFormatOption(sub);
    return sub;
}

void FillDialog(CIntrvlDlg& dlg, const Options& opt, const std::vector<FileArg>& files) {
    dlg.m_items.clear();
    for (const FileArg& f : files) dlg.AddFile(f.path, f.reps);
    // The level box takes no more than this typed in.
    dlg.m_strLevel = opt.level.substr(0, CIntrvlDlg::kLevelTextLimit);
    dlg.m_strTitle = opt.title;
    dlg.m_bScale = opt.scale;
}

// The flow every interval analysis shares, through its command entry.
template <class Dlg>
int RunAnalysis(int (*entry)(COutputView*), Options& opt) {
    std::vector<FileArg> files = opt.group.ParseFileArgs(opt.files);
    cli_Host().SetSvgOutput(&opt.svg);
    return cli_RunEntry<Dlg>(entry, opt.group, [&](Dlg& dlg) { FillDialog(dlg, opt, files); });
}

CLI::App* SetupMean(CLI::App& app) {
    return AddCommand(app, "interval", "Classical confidence intervals on the mean", g_mean);
}
int RunMean(CliIO&) { return RunAnalysis<CIntrvlDlg>(g_OnInterval, g_mean); }

CLI::App* SetupSd(CLI::App& app) {
    return AddCommand(app, "sdinterval", "Confidence intervals on the standard deviation", g_sd);
}
int RunSd(CliIO&) { return RunAnalysis<CSdIntDlg>(g_OnSdinterval, g_sd); }

CLI::App* SetupStd(CLI::App& app) {
    return AddCommand(app, "stdinterval", "Standardized time series confidence intervals on the mean", g_std);
}
int RunStd(CliIO&) { return RunAnalysis<CStdInDlg>(g_OnStdinterval, g_std); }

CommandRegistrar g_regMean(200, SetupMean, RunMean);
CommandRegistrar g_regSd(210, SetupSd, RunSd);
CommandRegistrar g_regStd(220, SetupStd, RunStd);

DemoRegistrar g_demoMean({200,
                          "Classical confidence intervals on the mean: each replication of the waits, "
                          "and the replication averages pooled",
                          {"interval", "--title", "Waiting time in queue", "--group", "samples.dgr", "#1@All",
                           "#5@Lumped", "--svg", "interval.svg"},
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
