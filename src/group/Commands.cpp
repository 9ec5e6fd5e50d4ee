#include "group/Commands.h"

#include <filesystem>

#include "framework/DocTemplate.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "dialog/FileDialogs.h"
#include "group/AnalysisFactory.h"
#include "group/OutputView.h"
#include "group/Templates.h"

namespace {

const GroupCommand kCommands[] = {
    {"g_OnPlot", "Plot", 16019, nullptr, g_OnPlot},
    {"g_OnComparison", "Comparison", 16020, nullptr, g_OnComparison},
    {"g_OnInterval", "Intervals", 16021, nullptr, g_OnInterval},
    {"g_OnOneway", "OnewayVariance", 16022, nullptr, g_OnOneway},
    {"g_OnSdinterval", "SdIntervals", 16023, nullptr, g_OnSdinterval},
    {"g_OnStdinterval", "StdInterval", 16024, nullptr, g_OnStdinterval},
    {"g_OnTable", "Table", 16025, nullptr, g_OnTable},
    {"g_OnVartest", "Vartest", 16026, nullptr, g_OnVartest},
    {"g_OnAppend", "Append", 16027, "dat", g_OnAppend},
    {"g_OnDiffile", "Diffile", 16028, "dif", g_OnDiffile},
    {"g_OnExport", "Export", 16029, "dax", g_OnExport},
    {"g_OnFilter", "BatchTruncate", 16030, "flt", g_OnFilter},
    {"g_OnBarchart", "Barchart", 16031, nullptr, g_OnBarchart},
    {"g_OnCorrelogram", "Correlogram", 16032, "cor", g_OnCorrelogram},
    {"g_OnHistogram", "Histogram", 16033, nullptr, g_OnHistogram},
    {"g_OnImport", "Import", 16034, "dat", g_OnImport},
    {"g_OnLoad", "Load", 16035, "dat", g_OnLoad},
    {"g_OnMovingAverage", "MovingAverage", 16036, nullptr, g_OnMovingAverage},
};

int Run(int index, COutputView* view) { return grp_RunCommand(kCommands[index], view); }

// The analysis's name for messages: its title prefix without the " - ".
std::string CommandName(const GroupCommand& command) {
    std::string name = msg_Text(command.titleId);
    if (name.size() >= 3 && name.ends_with(" - ")) name.resize(name.size() - 3);
    return name;
}

void PrepareFromSelection(CDialog& dlg, COutputView* view) {
    std::string selected = view ? view->SelectedPath() : std::string();
    if (selected.empty()) return;
    if (auto* single = dynamic_cast<CBaseDlg*>(&dlg)) single->m_strFile = selected;
    if (auto* multi = dynamic_cast<CBaseMultiDlg*>(&dlg); multi && multi->m_items.empty()) multi->AddFile(selected, "");
    if (auto* pairs = dynamic_cast<CBasePairsDlg*>(&dlg); pairs && pairs->m_pairs.empty())
        pairs->AddPair({selected, ""}, {});
}

void AddDefaultExtension(std::string& name, const char* ext) {
    if (name.empty() || !ext || std::filesystem::path(name).has_extension()) return;
    name += '.';
    name += ext;
}

}  // namespace

std::span<const GroupCommand> grp_Commands() { return kCommands; }

int grp_RunCommand(const GroupCommand& command, COutputView* view) {
    CWinApp* app = AfxGetApp();
    auto* tmpl = app ? dynamic_cast<CAnalysisTemplate*>(app->FindDocTemplate(command.templateName)) : nullptr;
    if (!tmpl) {
        AfxMessageBox("The output processor is not started: " + CommandName(command) + " cannot be run.");
        return -1;
    }
    const AnalysisFactory* f = tmpl->Factory();
    if (!f) {
        AfxMessageBox(CommandName(command) + " is not available in this version of oproc.");
        return -1;
    }
    CDialog* dlg = app->GetDialog(command.templateName);
    if (!dlg) dlg = &app->KeepDialog(command.templateName, f->createDialog());
    if (f->prepare)
        f->prepare(*dlg, view);
    else
        PrepareFromSelection(*dlg, view);
    if (dlg->DoModal() != IDOK) return 0;
    if (f->outputFile)
        if (std::string* out = f->outputFile(*dlg)) AddDefaultExtension(*out, command.defaultExt);
    return tmpl->OpenAnalysis(*dlg, msg_Text(command.titleId));
}

int g_OnPlot(COutputView* view) { return Run(0, view); }
int g_OnComparison(COutputView* view) { return Run(1, view); }
int g_OnInterval(COutputView* view) { return Run(2, view); }
int g_OnOneway(COutputView* view) { return Run(3, view); }
int g_OnSdinterval(COutputView* view) { return Run(4, view); }
int g_OnStdinterval(COutputView* view) { return Run(5, view); }
int g_OnTable(COutputView* view) { return Run(6, view); }
int g_OnVartest(COutputView* view) { return Run(7, view); }
int g_OnAppend(COutputView* view) { return Run(8, view); }
int g_OnDiffile(COutputView* view) { return Run(9, view); }
int g_OnExport(COutputView* view) { return Run(10, view); }
int g_OnFilter(COutputView* view) { return Run(11, view); }
int g_OnBarchart(COutputView* view) { return Run(12, view); }
int g_OnCorrelogram(COutputView* view) { return Run(13, view); }
int g_OnHistogram(COutputView* view) { return Run(14, view); }
int g_OnImport(COutputView* view) { return Run(15, view); }
int g_OnLoad(COutputView* view) { return Run(16, view); }
int g_OnMovingAverage(COutputView* view) { return Run(17, view); }
