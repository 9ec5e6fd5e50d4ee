// oproc load TEXT [--out PATH] [--kind K] [--ident ID] [--title T] [--single]:
// a text file of time/value pairs into a data file ("-" reads standard input).
#include "Command.h"
#include "GroupArgs.h"
#include "convert/ConvertDlgs.h"
#include "group/Commands.h"

namespace {

struct Options {
    std::string file;
    std::string out;
    std::string kind;
    std::string ident;
    std::string title;
    bool isDouble = false;
    bool single = false;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("load", "Load a text file of time/value pairs into a data file");
    sub->add_option("TEXT", g_opt.file, "Text file (- standard input)")->required();
    sub->add_option("--out", g_opt.out, "Data file (.dat added when there is no extension; default TEXT with .dat)");
    sub->add_option("--kind", g_opt.kind, "Data kind 1 to 7 (default 3, Tally)");
    sub->add_option("--ident", g_opt.ident, "Identifier, up to 24 characters (default the text file's name)");
    sub->add_option("--title", g_opt.title, "Title, up to 60 characters (default the text file's name)");
    CLI::Option* d = sub->add_flag("--double", g_opt.isDouble, "Write 8-byte records (default: the setting)");
    sub->add_flag("--single", g_opt.single, "Write 4-byte records")->excludes(d);
    sub->footer(
        "Each line holds a time and a value, separated by blanks or tabs, or by one comma or semicolon;\n"
        "# starts a comment; a blank line or a line \"end\" closes a replication. Numbers take a decimal point.");
    return sub;
}

int Run(CliIO&) {
    CliGroup none;
    return cli_RunEntry<CLoadDlg>(g_OnLoad, none, [&](CLoadDlg& dlg) {
        dlg.m_strFile = g_opt.file;
        dlg.m_strOutFile = g_opt.out;
        dlg.m_strKind = g_opt.kind;
        dlg.m_strIdent = g_opt.ident;
        dlg.m_strTitle = g_opt.title;
        dlg.m_nPrecision = g_opt.isDouble ? 1 : g_opt.single ? 0 : -1;
    });
}

CommandRegistrar g_reg(430, Setup, Run);

}  // namespace
