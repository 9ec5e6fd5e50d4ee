// oproc dif FILE[@REPS] [--out PATH] [--title T]: a data file as a Data
// Interchange Format spreadsheet (.dif). "-" writes it to standard output
// (the summary then goes to standard error).
#include "Command.h"
#include "GroupArgs.h"
#include "ResultFormat.h"
#include "convert/ConvertDlgs.h"
#include "group/Commands.h"

namespace {

struct Options {
    std::string file;
    std::string out;
    std::string title;
    CliGroup group;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("dif", "Write a data file as a DIF spreadsheet file (.dif)");
    sub->add_option("FILE", g_opt.file,
                    "Data file, with @REPS: a replication number (default 1), All (a column each) or Lumped "
                    "(#N: of the --group)")
        ->required();
    sub->add_option("--out", g_opt.out,
                    "DIF file (.dif added when there is no extension; default FILE with .dif; - standard output)");
    sub->add_option("--title", g_opt.title, "Title of the table (default the data file's title)");
    g_opt.group.AddOption(sub);
    cli_AddFormatOption(sub);
    return sub;
}

int Run(CliIO& io) {
    // ParseFileArgs notes a file of several replications read as its first.
    FileArg file = g_opt.group.ParseFileArgs({g_opt.file}).front();
    // The data and the results for scripts cannot share standard output.
    if (g_opt.out == "-" && cli_Format() != ResultFormat::Text)
        throw CLI::ValidationError("--format", "needs --out to name a file: the DIF file goes to standard output");
    if (g_opt.out == "-") cli_Host().SetReportStream(&io.err);
    return cli_RunEntry<CDiffDlg>(g_OnDiffile, g_opt.group, [&](CDiffDlg& dlg) {
        dlg.m_strFile = file.path;
        dlg.m_strReps = file.reps;
        dlg.m_strOutFile = g_opt.out;
        dlg.m_strTitle = g_opt.title;
    });
}

CommandRegistrar g_reg(405, Setup, Run);

DemoRegistrar g_demoDif({750, "DIF spreadsheet file of the three days, a column each",
                         {"dif", "counter.dat@All", "--out", "counter.dif"}, ""});
DemoRegistrar g_demoDifWaits({760, "DIF spreadsheet file of the waits of replication 1",
                              {"dif", "waits.dat", "--out", "waits.dif"}, ""});

}  // namespace
