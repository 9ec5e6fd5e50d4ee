// oproc correlogram FILE [--reps TEXT] [--title TEXT] --max-lags TEXT [--out PATH]:
// autocovariances and autocorrelations of a data file's observations.
#include <filesystem>
#include <ostream>

#include "Command.h"
#include "framework/Host.h"
#include "report/TextView.h"
#include "series/CorrDlg.h"
#include "series/CorrDoc.h"
#include "series/CorrTextView.h"

namespace {

struct Options {
    std::string file;
    std::string reps;
    std::string title;
    std::string maxLags;
    std::string out;
};
Options g_opt;

CLI::App* Setup(CLI::App& app) {
    g_opt = Options{};
    CLI::App* sub = app.add_subcommand("correlogram", "Autocovariances and autocorrelations of a data file");
    sub->add_option("FILE", g_opt.file, "Data file (observations: Tally, Output or Filtered)")->required();
    sub->add_option("--reps", g_opt.reps, "Replications: a number, \"All\" or \"Lumped\" (empty: the first)");
    sub->add_option("--title", g_opt.title, "Title of the summary and of the saved file");
    sub->add_option("--max-lags", g_opt.maxLags, "Largest lag, 1 to 9999")->required();
    sub->add_option("--out", g_opt.out, "Save the correlations in this data file (.cor added when no extension)");
    return sub;
}

// The dialog's fields from the command line, then the same exchange,
// validation and document as in the desktop program.
int Correlogram(const Options& o, CliIO& io) {
    CCorrDlg dlg;
    dlg.m_strFile = o.file;
    dlg.m_strReps = o.reps;
    dlg.m_strTitle = o.title;
    dlg.m_strMaxLags = o.maxLags;
    dlg.m_strOutFile = o.out;
    if (!dlg.m_strOutFile.empty() && !std::filesystem::path(dlg.m_strOutFile).has_extension())
        dlg.m_strOutFile += ".cor";
    std::string fieldMessage;
    if (!dlg.ExchangeFields(&fieldMessage)) {
        AfxMessageBox(fieldMessage);
        return cli_Status(1);
    }
    int index = 0;
    if (int id = dlg.Validate(&index)) {
        AfxMessageBox(id);
        return cli_Status(id);
    }
    CCorrDoc doc;
    if (int rc = doc.InitFromDialog(dlg)) {
        if (rc != CCorrDoc::kOpenFailed) AfxMessageBox(rc);
        return cli_Status(rc);
    }
    CCorrTextView view;
    view.SetDocument(&doc);
    io.out << txt_ReportText(view);
    return cli_Status(0);
}

int Run(CliIO& io) { return Correlogram(g_opt, io); }

CommandRegistrar g_reg(320, Setup, Run);

DemoRegistrar g_demo({540,
                      "Correlogram of the waits in replication 1, saved as waits.cor",
                      {"correlogram", "waits.dat", "--reps", "1", "--title", "Waits, replication 1", "--max-lags",
                       "50", "--out", "waits.cor"},
                      ""});

}  // namespace
