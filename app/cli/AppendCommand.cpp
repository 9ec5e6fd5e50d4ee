// oproc append SRC DEST [--reps REPS]: the replications of SRC added to the
// end of DEST, a data file of the same kind. DEST is the one file changed;
// it is rewritten beside itself and renamed into place, so that an
// interrupted append leaves it as it was.
#include "Command.h"
#include "GroupArgs.h"
#include "OptionChecks.h"
#include "ResultFormat.h"
#include "convert/ConvertDlgs.h"
#include "group/Commands.h"

namespace {

struct Options {
    std::string source;
    std::string dest;
    std::string reps;
    CliGroup group;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("append", "Append the replications of a data file to another of the same kind");
    sub->add_option("SRC", g_opt.source, "Data file appended (#N: of the --group); it is only read")->required();
    sub->add_option("DEST", g_opt.dest, "Data file extended (.dat added when there is no extension; #N: of the --group)")->required();
    // Appending a whole run is the common case; a single replication is asked for.
    sub->add_option("--reps", g_opt.reps, "Replications of SRC: All (each its own), Lumped (all as one) or a number")
        ->check(cli_RepsText)
        ->type_name("REPS")
        ->default_str("All");
    g_opt.group.AddOption(sub);
    cli_AddFormatOption(sub);
    sub->footer(
        "A reinitialised DEST (flag Y) takes replications one by one (All or a number);\n"
        "one that is not takes the source lumped.");
    return sub;
}

int Run(CliIO&) {
    std::string source = g_opt.group.Resolve(g_opt.source);
    std::string dest = g_opt.group.Resolve(g_opt.dest);
    // DEST is an argument: messages about it name the file.
    cli_Host().SetOutputOption(nullptr);
    return cli_RunEntry<CAppendDlg>(g_OnAppend, g_opt.group, [&](CAppendDlg& dlg) {
        dlg.m_strFile = source;
        dlg.m_strReps = g_opt.reps.empty() ? "All" : g_opt.reps;
        dlg.m_strOutFile = dest;
    });
}

CommandRegistrar g_reg(420, Setup, Run);

DemoRegistrar g_demoAppend({740, "Append of the third day to the first two",
                            {"append", "counter-day3.dat", "counter.dat"}, ""});

}  // namespace
