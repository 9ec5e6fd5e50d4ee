// oproc export FILE [--out PATH]: a data file as text (.dax), and
// oproc import FILE.dax [--out PATH] [--double|--single]: such text back to a
// data file. "-" writes the export to standard output (its summary then goes
// to standard error) and reads the import from standard input.
#include <iostream>

#include "Command.h"
#include "GroupArgs.h"
#include "convert/ConvertDlgs.h"
#include "group/Commands.h"

namespace {

struct ExportOptions {
    std::string file;
    std::string out;
    CliGroup group;
};
ExportOptions g_export;

CLI::App* SetupExport(CLI::App& app) {
    g_export = ExportOptions{};
    CLI::App* sub = app.add_subcommand("export", "Write a data file as text (.dax) that import reads back");
    sub->add_option("FILE", g_export.file, "Data file (#N: of the --group)")->required();
    sub->add_option("--out", g_export.out,
                    "Text file (.dax added when there is no extension; default FILE with .dax; - standard output)");
    g_export.group.AddOption(sub);
    return sub;
}

int RunExport(CliIO& io) {
    std::string file = g_export.group.Resolve(g_export.file);
    if (g_export.out == "-") cli_Host().SetReportStream(&io.err);
    return cli_RunEntry<CExprtDlg>(g_OnExport, g_export.group, [&](CExprtDlg& dlg) {
        dlg.m_strFile = file;
        dlg.m_strOutFile = g_export.out;
    });
}

struct ImportOptions {
    std::string file;
    std::string out;
    bool isDouble = false;
    bool single = false;
};
ImportOptions g_import;

CLI::App* SetupImport(CLI::App& app) {
    g_import = ImportOptions{};
    CLI::App* sub = app.add_subcommand("import", "Make a data file from the text that export writes");
    sub->add_option("FILE", g_import.file, "Export text (.dax; - standard input)")->required();
    sub->add_option("--out", g_import.out, "Data file (.dat added when there is no extension; default FILE with .dat)");
    CLI::Option* d = sub->add_flag("--double", g_import.isDouble, "Write 8-byte records (default: the setting)");
    sub->add_flag("--single", g_import.single, "Write 4-byte records")->excludes(d);
    return sub;
}

int RunImport(CliIO&) {
    CliGroup none;
    return cli_RunEntry<CImprtDlg>(g_OnImport, none, [&](CImprtDlg& dlg) {
        dlg.m_strFile = g_import.file;
        dlg.m_strOutFile = g_import.out;
        dlg.m_nPrecision = g_import.isDouble ? 1 : g_import.single ? 0 : -1;
    });
}

CommandRegistrar g_regExport(400, SetupExport, RunExport);
CommandRegistrar g_regImport(410, SetupImport, RunImport);

DemoRegistrar g_demoExport({700, "Export of the waits to text", {"export", "waits.dat", "--out", "waits.dax"}, ""});
DemoRegistrar g_demoImport({710, "Import of that text back to a data file",
                              {"import", "waits.dax", "--out", "waits-copy.dat"}, ""});

}  // namespace
