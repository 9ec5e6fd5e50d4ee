// oproc anova [--level TEXT] [--title TEXT] [--method M] [--unequal-variances]
// [--svg PATH] [--size WxH] FILE[@REPS]...: one-way analysis of variance of
// the files (each entry a group; under All each replication a group), with
// simultaneous intervals on every difference of two means.
#include <map>

#include "Command.h"
#include "FileArgs.h"
#include "GraphOutput.h"
#include "GroupArgs.h"
#include "ResultFormat.h"
#include "OptionChecks.h"
#include "group/Commands.h"
#include "stats/OnewyDlg.h"

namespace {

struct Options {
    std::vector<std::string> files;
    std::string level = "0.95";
    std::string title;
    std::string method = "all";
    bool unequal = false;
    SvgOptions svg;
    CliGroup group;
};

Options g_opt;

const std::map<std::string, int> kMethods = {
    {"all", ONEWAY_CLASSICAL},
    {"tukey", ONEWAY_TUKEY},
    {"scheffe", ONEWAY_SCHEFFE},
    {"bonferroni", ONEWAY_BONFERRONI},
};

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("anova", "One-way analysis of variance with Tukey, Scheffe and Bonferroni intervals");
    // Fewer than two groups is the analysis's own message; none at all is a usage error.
    sub->add_option("FILE", g_opt.files,
                    "Data files, one group each: FILE or FILE@REPS (REPS: a replication number, All for a group "
                    "per replication, Lumped)")
        ->required();
    cli_AddNumber(sub, "--level", g_opt.level, "Confidence level: a fraction (0.95) or a percentage (95)")
        ->capture_default_str();
    sub->add_option("--title", g_opt.title, "Title printed under the report title");
    CLI::Option* method =
        sub->add_option("--method", g_opt.method, "Comparisons: all, tukey, scheffe or bonferroni")
            ->check(CLI::IsMember({"all", "tukey", "scheffe", "bonferroni"}))
            ->capture_default_str();
    sub->add_flag("--unequal-variances", g_opt.unequal, "Welch's test and Games-Howell intervals")->excludes(method);
    cli_AddSvgOptions(sub, g_opt.svg, false);
    g_opt.group.AddOption(sub);
    cli_AddFormatOption(sub);
    return sub;
}

int Run(CliIO&) {
    std::vector<FileArg> files = g_opt.group.ParseFileArgs(g_opt.files);
    cli_Host().SetSvgOutput(&g_opt.svg);
    return cli_RunEntry<COnewyDlg>(g_OnOneway, g_opt.group, [&](COnewyDlg& dlg) {
        dlg.m_items.clear();
        for (const FileArg& f : files) dlg.AddFile(f.path, f.reps);
        // The level box takes no more than this typed in.
        dlg.m_strLevel = g_opt.level.substr(0, COnewyDlg::kLevelTextLimit);
        dlg.m_strTitle = g_opt.title;
        dlg.m_nMethod = kMethods.at(g_opt.method);
        dlg.m_bUnequalVariances = g_opt.unequal;
    });
}

CommandRegistrar g_reg(230, Setup, Run);

DemoRegistrar g_demoDesign({535,
                            "A third design with a still faster server, for the analysis of variance",
                            {"sample", "fastest", "--service-rate", "1.25"},
                            ""});
DemoRegistrar g_demo({536,
                      "One-way analysis of variance: average wait per replication under three service rates",
                      {"anova", "--title", "Three service rates", "meanwait.dat@Lumped", "faster/meanwait.dat@Lumped",
                       "fastest/meanwait.dat@Lumped", "--svg", "anova.svg"},
                      "anova.svg"});

}  // namespace
