// oproc compare [--method paired|two-sample] [--level TEXT] [--title TEXT] A B [A B ...]
// oproc vartest [--level TEXT] [--title TEXT] A B [A B ...]
// Pairs of data files (FILE or FILE@REPS): a confidence interval on the
// difference of the means, or on the ratio of the variances, pair by pair.
#include <ostream>

#include "Command.h"
#include "FileArgs.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "OptionChecks.h"
#include "ResultFormat.h"
#include "group/Commands.h"
#include "stats/PairDialogs.h"

namespace {

struct Options {
    std::string method = "paired";
    std::string level = "0.95";
    std::string title;
    bool scale = false;
    std::vector<std::string> files;
    CliGroup group;
    SvgOptions svg;
};
Options g_compare;
Options g_vartest;

const char* const kFilesHelp =
    "Data files in pairs, A B A B ...; each FILE or FILE@REPS with REPS a replication number, \"All\" or "
    "\"Lumped\". A pair of two \"All\" files compares replication i with replication i.";

void AddCommon(CLI::App* sub, Options& o) {
    cli_AddNumber(sub, "--level", o.level, "Confidence level: a fraction (0.95) or a percentage (95)")
        ->capture_default_str();
    sub->add_option("--title", o.title, "Title of the report");
    sub->add_flag("--scale", o.scale, "Show the scale on the chart");
    sub->add_option("FILE", o.files, kFilesHelp)->required();
    o.group.AddOption(sub);
    cli_AddSvgOptions(sub, o.svg, false);
    cli_AddFormatOption(sub);
}

// The pair list as the dialog takes it; an odd count is a usage error.
std::vector<FileArg> PairFiles(Options& o) {
    if (o.files.size() % 2 != 0)
        throw CLI::ValidationError("FILE", "files come in pairs (A B); " + std::to_string(o.files.size()) +
                                               " files were given");
    return o.group.ParseFileArgs(o.files);
}

void FillPairs(CBasePairsDlg& dlg, const Options& o, const std::vector<FileArg>& files) {
    dlg.m_strLevel = o.level;
    dlg.m_strTitle = o.title;
    dlg.m_bScale = o.scale;
    dlg.m_pairs.clear();
    for (std::size_t i = 0; i + 1 < files.size(); i += 2)
        dlg.AddPair({files[i].path, files[i].reps}, {files[i + 1].path, files[i + 1].reps});
}

CLI::App* SetupCompare(CLI::App& app) {
    g_compare = Options{};
    CLI::App* sub = app.add_subcommand("compare", "Compare the means of pairs of data files (paired-t or two-sample-t)");
    sub->add_option("--method", g_compare.method, "paired or two-sample")
        ->check(CLI::IsMember({"paired", "two-sample"}))
        ->capture_default_str();
    AddCommon(sub, g_compare);
    return sub;
}

int RunCompare(CliIO&) {
    std::vector<FileArg> files = PairFiles(g_compare);
    cli_Host().SetSvgOutput(&g_compare.svg);
    return cli_RunEntry<CComprDlg>(g_OnComparison, g_compare.group, [&](CComprDlg& dlg) {
        FillPairs(dlg, g_compare, files);
        dlg.m_nMethod = g_compare.method == "two-sample" ? CComprDlg::METHOD_TWO_SAMPLE : CComprDlg::METHOD_PAIRED;
    });
}

CLI::App* SetupVartest(CLI::App& app) {
    g_vartest = Options{};
    CLI::App* sub = app.add_subcommand("vartest", "Compare the variances of pairs of data files (F interval)");
    AddCommon(sub, g_vartest);
    return sub;
}

int RunVartest(CliIO&) {
    std::vector<FileArg> files = PairFiles(g_vartest);
    cli_Host().SetSvgOutput(&g_vartest.svg);
    return cli_RunEntry<CVarDlg>(g_OnVartest, g_vartest.group,
                                 [&](CVarDlg& dlg) { FillPairs(dlg, g_vartest, files); });
}

CommandRegistrar g_regCompare(300, SetupCompare, RunCompare);
CommandRegistrar g_regVartest(310, SetupVartest, RunVartest);

DemoRegistrar g_demoDesign({500,
                            "A second design with a faster server, for the comparisons",
                            {"sample", "faster", "--service-rate", "1.1"},
                            ""});
DemoRegistrar g_demoPaired({510,
                            "Paired-t: average wait per replication, sample system against the faster server",
                            {"compare", "--title", "Faster server", "--group", "samples.dgr", "#5@Lumped",
                             "faster/meanwait.dat@Lumped", "--svg", "compare-paired.svg"},
                            "compare-paired.svg"});
DemoRegistrar g_demoTwoSample({520,
                               "Two-sample-t: the waits of replication 1 against replication 2, and every "
                               "replication of the two designs",
                               {"compare", "--method", "two-sample", "--title", "Waits", "waits.dat@1",
                                "waits.dat@2", "waits.dat@All", "faster/waits.dat@All", "--scale", "--svg",
                                "compare-two-sample.svg"},
                               "compare-two-sample.svg"});
DemoRegistrar g_demoVartest({530,
                             "Comparison of variances: replication averages and single replications",
                             {"vartest", "--title", "Spread of the waits", "meanwait.dat@Lumped",
                              "faster/meanwait.dat@Lumped", "waits.dat@1", "waits.dat@2", "--svg", "vartest.svg"},
                             "vartest.svg"});

}  // namespace
