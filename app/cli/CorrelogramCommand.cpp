// oproc correlogram FILE [--reps TEXT] [--title TEXT] [--max-lags INT] [--out PATH]:
// autocovariances and autocorrelations of a data file's observations.
#include "Command.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "MessageSubject.h"
#include "OptionChecks.h"
#include "ResultFormat.h"
#include "group/Commands.h"
#include "series/CorrDlg.h"

namespace {

struct Options {
    std::string file;
    std::string reps;
    std::string title;
    std::string maxLags;
    std::string out;
    CliGroup group;
    SvgOptions svg;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("correlogram", "Autocovariances and autocorrelations of a data file");
    sub->add_option("FILE", g_opt.file, "Data file (observations: Tally, Output or Filtered; #N: of the --group)")
        ->required();
    sub->add_option("--reps", g_opt.reps, "Replications: a number, All or Lumped")
        ->check(cli_RepsText)
        ->type_name("REPS")
        ->default_str("1");
    sub->add_option("--title", g_opt.title, "Title of the summary and of the saved file");
    cli_AddInt(sub, "--max-lags", g_opt.maxLags, "Largest lag, 1 to 9999")->default_str("10 log10 n, at most n - 1");
    sub->add_option("--out", g_opt.out, "Save the correlations in this data file (.cor added when no extension)");
    g_opt.group.AddOption(sub);
    cli_AddFormatOption(sub);
    cli_AddSvgOptions(sub, g_opt.svg, false);
    return sub;
}

// The dialog's fields from the command line; the command entry does the rest,
// the ".cor" of an output name included, so that both hosts write the same file.
int Run(CliIO&) {
    std::string file = g_opt.group.Resolve(g_opt.file);
    if (g_opt.reps.empty()) cli_Host().Note(cli_ReplicationNote(file, "--reps "));
    std::string maxLags = g_opt.maxLags;
    if (maxLags.empty()) {
        // A file that cannot be read is the dialog's to report, in its own order.
        const int lags = corr_DefaultMaxLags(file, g_opt.reps);
        maxLags = std::to_string(lags > 0 ? lags : 1);
    }
    cli_Host().SetSvgOutput(&g_opt.svg);
    return cli_RunEntry<CCorrDlg>(g_OnCorrelogram, g_opt.group, [&](CCorrDlg& dlg) {
        dlg.m_strFile = file;
        dlg.m_strReps = g_opt.reps;
        dlg.m_strTitle = g_opt.title;
        dlg.m_strMaxLags = maxLags;
        dlg.m_strOutFile = g_opt.out;
    });
}

CommandRegistrar g_reg(320, Setup, Run);

DemoRegistrar g_demo({540,
                      "Correlogram of the waits in replication 1, saved as waits.cor",
                      {"correlogram", "--group", "samples.dgr", "#1", "--reps", "1", "--title", "Waits, replication 1",
                       "--max-lags", "50", "--out", "waits", "--svg", "correlogram.svg"},
                      "correlogram.svg"});

}  // namespace
