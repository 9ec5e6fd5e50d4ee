#include "group/Commands.h"

#include <filesystem>

#include "dialog/FileDialogs.h"
#include "framework/DocTemplate.h"
#include "framework/Frame.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "framework/View.h"
#include "group/CommandTable.h"
#include "group/OutputView.h"
#include "report/TextView.h"

namespace {

int Run(const char* exportName, COutputView* view) {
    const GroupCommand* command = grp_FindCommand(exportName);
    return command ? grp_RunCommand(*command, view) : -1;
}

// The analysis's name for messages: its title prefix without the " - ".
std::string CommandName(const GroupCommand& command) {
    std::string name = msg_Text(command.titleId);
    if (name.size() >= 3 && name.ends_with(" - ")) name.resize(name.size() - 3);
    return name;
}

// A single-file dialog takes the selected file, a file list (or pairs list)
// that is empty starts with it.
void PrepareFromSelection(CDialog& dlg, COutputView* view) {
    std::string selected = view ? view->SelectedPath() : std::string();
    if (selected.empty()) return;
    if (auto* single = dynamic_cast<CBaseDlg*>(&dlg)) single->m_strFile = selected;
    if (auto* multi = dynamic_cast<CBaseMultiDlg*>(&dlg); multi && multi->m_items.empty()) multi->AddFile(selected, "");
    if (auto* pairs = dynamic_cast<CBasePairsDlg*>(&dlg); pairs && pairs->m_pairs.empty())
        pairs->AddPair({selected, ""}, {});
}

void AddDefaultExtension(std::string& name, const char* ext) {
    // "-" is standard output, not a file name.
    if (name.empty() || name == "-" || !ext || std::filesystem::path(name).has_extension()) return;
    name += '.';
    name += ext;
}

std::string FileName(const std::string& path) { return std::filesystem::path(path).filename().string(); }

// The document's title, as a frame shows it; a document without one is named
// by its dialog: the data file, or the title or first file of a list.
std::string Subject(const CDialog& dlg, const CBaseFileDoc& doc) {
    if (!doc.GetTitle().empty()) return doc.GetTitle();
    if (const auto* single = dynamic_cast<const CBaseDlg*>(&dlg); single && !single->m_strFile.empty())
        return FileName(single->m_strFile);
    if (const auto* multi = dynamic_cast<const CBaseMultiDlg*>(&dlg)) {
        if (!multi->m_strTitle.empty()) return multi->m_strTitle;
        if (!multi->m_items.empty()) return FileName(multi->m_items.front().m_strPath);
    }
    if (const auto* pairs = dynamic_cast<const CBasePairsDlg*>(&dlg)) {
        if (!pairs->m_strTitle.empty()) return pairs->m_strTitle;
        if (!pairs->m_pairs.empty()) return FileName(pairs->m_pairs.front().a.m_strPath);
    }
    return {};
}

// Shows the initialiser's message unless the document already did.
void ReportFailure(int rc, unsigned long shownBefore) {
    int id = rc < 0 ? -rc : rc;
    if (host_MessageCount() != shownBefore && host_LastMessageId() == id) return;
    if (msg_Has(id)) AfxMessageBox(id);
}

}  // namespace

int grp_RunCommand(const GroupCommand& command, COutputView* view) {
    CWinApp* app = AfxGetApp();
    if (!app || !app->FindDocTemplate(command.templateName)) {
        AfxMessageBox("The output processor is not started: " + CommandName(command) + " cannot be run.");
        return -1;
    }
    const AnalysisFactory& f = command.make;
    if (!f.Built()) {
        AfxMessageBox(CommandName(command) + " is not available in this version of oproc.");
        return -1;
    }
    CDialog* dlg = app->GetDialog(command.templateName);
    if (!dlg) dlg = &app->KeepDialog(command.templateName, f.createDialog());
    PrepareFromSelection(*dlg, view);
    if (dlg->DoModal() != IDOK) return 0;
    if (f.outputFile)
        if (std::string* out = f.outputFile(*dlg)) AddDefaultExtension(*out, command.defaultExt);
    return grp_OpenAnalysis(command, *dlg);
}

int grp_OpenAnalysis(const GroupCommand& command, CDialog& dlg) {
    std::unique_ptr<CBaseFileDoc> doc = command.make.createDocument ? command.make.createDocument() : nullptr;
    if (!doc) return -1;
    unsigned long shownBefore = host_MessageCount();
    if (int rc = doc->InitFromDialog(dlg)) {
        ReportFailure(rc, shownBefore);
        doc->OnCloseDocument();
        return rc;
    }
    std::string caption = msg_Text(command.titleId) + Subject(dlg, *doc);
    std::vector<std::unique_ptr<CObject>> views;
    if (command.make.createViews) views = command.make.createViews(*doc);
    auto frame = std::make_unique<CDocFrame>(grp_FrameClass(command.frame), std::move(doc), std::move(views));
    frame->SetWindowText(caption);
    // Every report view takes its report; the graph views take their data.
    for (const auto& v : frame->Views()) {
        if (auto* text = dynamic_cast<CTextView*>(v.get())) text->SetText(txt_ReportText(*text));
        if (auto* graph = dynamic_cast<CView*>(v.get())) graph->OnInitialUpdate();
    }
    host_Get().ShowFrame(std::move(frame));
    return 0;
}

int g_OnPlot(COutputView* view) { return Run("g_OnPlot", view); }
int g_OnComparison(COutputView* view) { return Run("g_OnComparison", view); }
int g_OnInterval(COutputView* view) { return Run("g_OnInterval", view); }
int g_OnOneway(COutputView* view) { return Run("g_OnOneway", view); }
int g_OnSdinterval(COutputView* view) { return Run("g_OnSdinterval", view); }
int g_OnStdinterval(COutputView* view) { return Run("g_OnStdinterval", view); }
int g_OnTable(COutputView* view) { return Run("g_OnTable", view); }
int g_OnVartest(COutputView* view) { return Run("g_OnVartest", view); }
int g_OnAppend(COutputView* view) { return Run("g_OnAppend", view); }
int g_OnDiffile(COutputView* view) { return Run("g_OnDiffile", view); }
int g_OnExport(COutputView* view) { return Run("g_OnExport", view); }
int g_OnFilter(COutputView* view) { return Run("g_OnFilter", view); }
int g_OnBarchart(COutputView* view) { return Run("g_OnBarchart", view); }
int g_OnCorrelogram(COutputView* view) { return Run("g_OnCorrelogram", view); }
int g_OnHistogram(COutputView* view) { return Run("g_OnHistogram", view); }
int g_OnImport(COutputView* view) { return Run("g_OnImport", view); }
int g_OnLoad(COutputView* view) { return Run("g_OnLoad", view); }
int g_OnMovingAverage(COutputView* view) { return Run("g_OnMovingAverage", view); }
