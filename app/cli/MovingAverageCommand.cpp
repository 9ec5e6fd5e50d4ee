// oproc movingaverage FILE[@REPS] --window W [--method centred|trailing]
// [--out PATH]: a moving average of a data file's series (Welch's series
// under All) with the MSER-5 warm-up suggestion; oproc warmup FILE[@REPS]...:
// just the suggestion, one line per file.
#include <cstdio>
#include <ostream>

#include "Command.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "datafile/DataFile.h"
#include "framework/Host.h"
#include "group/Commands.h"
#include "series/MoveDlg.h"
#include "series/Warmup.h"

namespace {

struct Options {
    std::string file;
    std::string title;
    std::string window;
    std::string method = "centred";
    std::string out;
    bool noWarmup = false;
    CliGroup group;
    SvgOptions svg;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("movingaverage", "Moving average of a data file, with a warm-up suggestion");
    sub->add_option("FILE", g_opt.file,
                    "Data file: FILE or FILE@REPS (REPS: a replication number, All for Welch's series across "
                    "the replications, Lumped; #N: of the --group)")
        ->required();
    sub->add_option("--window", g_opt.window, "Window w, 1 to 999999: centred averages span 2w + 1 observations, "
                                              "trailing ones w")
        ->required();
    sub->add_option("--method", g_opt.method, "centred (smoothing) or trailing (forecasting)")
        ->check(CLI::IsMember({"centred", "centered", "trailing"}))
        ->capture_default_str();
    sub->add_option("--title", g_opt.title, "Title of the summary, the graph and the saved file");
    sub->add_option("--out", g_opt.out, "Save the smoothed series in this data file (.dat added when no extension)");
    sub->add_flag("--no-warmup", g_opt.noWarmup, "Leave out the MSER-5 warm-up suggestion");
    g_opt.group.AddOption(sub);
    cli_AddSvgOptions(sub, g_opt.svg, false);
    return sub;
}

int Run(CliIO&) {
    FileArg file = g_opt.group.ParseFileArg(g_opt.file);
    cli_Host().SetSvgOutput(&g_opt.svg);
    return cli_RunEntry<CMoveDlg>(g_OnMovingAverage, g_opt.group, [&](CMoveDlg& dlg) {
        dlg.m_strFile = file.path;
        dlg.m_strReps = file.reps;
        dlg.m_strTitle = g_opt.title;
        dlg.m_strWindow = g_opt.window;
        dlg.m_strMethod = g_opt.method == "trailing" ? "Trailing" : "Centred";
        dlg.m_strOutFile = g_opt.out;
        dlg.m_bWarmup = !g_opt.noWarmup;
    });
}

struct WarmupOptions {
    std::vector<std::string> files;
    CliGroup group;
};
WarmupOptions g_warm;

CLI::App* SetupWarmup(CLI::App& app) {
    g_warm = WarmupOptions{};
    CLI::App* sub = app.add_subcommand("warmup", "MSER-5 warm-up suggestion of data files");
    sub->add_option("FILE", g_warm.files, "Data files: FILE or FILE@REPS (All: Welch's series; #N: of the --group)")
        ->required();
    g_warm.group.AddOption(sub);
    return sub;
}

int RunWarmup(CliIO& io) {
    std::vector<FileArg> files = g_warm.group.ParseFileArgs(g_warm.files);
    if (int rc = g_warm.group.Open()) return cli_Status(rc);
    io.out << "FILE                             REPS   OBSERVATIONS  WARM-UP (MSER-5)\n";
    int first = 0;
    for (const FileArg& f : files) {
        WarmupResult r;
        const int rc = warmup_OfFile(f.path, op_ParseRepTreatment(f.reps.c_str()), &r);
        if (rc) {
            AfxMessageBox(rc);
            if (!first) first = rc;
            continue;
        }
        char line[256];
        std::snprintf(line, sizeof line, "%-32s %-6s %12ld  ", f.path.c_str(), f.reps.empty() ? "1" : f.reps.c_str(),
                      r.n);
        io.out << line;
        if (r.mser.truncation >= 0)
            io.out << r.mser.truncation << " observations\n";
        else
            io.out << "too few observations\n";
    }
    return cli_Status(first);
}

CommandRegistrar g_reg(340, Setup, Run);
CommandRegistrar g_regWarmup(350, SetupWarmup, RunWarmup);

DemoRegistrar g_demoWelch({560,
                           "Welch's procedure: the waits averaged across replications, smoothed, with the MSER-5 "
                           "warm-up",
                           {"movingaverage", "waits.dat@All", "--window", "25", "--title", "Waits, Welch's series",
                            "--svg", "movingaverage.svg"},
                           "movingaverage.svg"});
DemoRegistrar g_demoForecast({561,
                              "Trailing moving average of replication 1's waits: the next forecast and its errors",
                              {"movingaverage", "waits.dat@1", "--window", "10", "--method", "trailing",
                               "--no-warmup", "--out", "waits_forecast"},
                              ""});
DemoRegistrar g_demoWarmup({562, "MSER-5 warm-up of the waits: Welch's series and each replication",
                            {"warmup", "waits.dat@All", "waits.dat@1", "waits.dat@2"},
                            ""});

}  // namespace
