#include "group/Templates.h"

#include <filesystem>

#include "datafile/SingleDoc.h"
#include "framework/Dialog.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "framework/View.h"
#include "dialog/FileDialogs.h"
#include "group/AnalysisFactory.h"
#include "group/OutputDoc.h"
#include "group/OutputView.h"
#include "group/Startup.h"
#include "report/TextView.h"

namespace {

constexpr int IDR_OUTPUT = 16380;

struct TemplateEntry {
    int stringId;
    const char* doc;
    const char* frame;
    const char* view;
};

// Registration order: the analyses' order is the host's list of templates.
constexpr TemplateEntry kAnalysisTemplates[] = {
    {16393, "CAppendDoc", "CBaseWnd", "CAppendView"},
    {16381, "CBarchDoc", "CBaseWnd", "CBarchartView"},
    {16382, "CComprDoc", "CBaseWndSplit", "CComprView"},
    {16383, "CCorrDoc", "CBaseWndSplit", "CCorrView"},
    {16394, "CDiffDoc", "CBaseWnd", "CDiffView"},
    {16392, "CExprtDoc", "CBaseWnd", "CExprtView"},
    {16395, "CFiltrDoc", "CBaseWnd", "CFiltrView"},
    {16384, "CHistDoc", "CBaseWndSplit", "CHistView"},
    {16396, "CImprtDoc", "CBaseWnd", "CImprtView"},
    {16385, "CIntrvlDoc", "CBaseWndSplit", "CIntrvlView"},
    {16397, "CLoadDoc", "CBaseWnd", "CLoadView"},
    {16386, "CMoveDoc", "CBaseWndSplit", "CMovView"},
    {16387, "COnewyDoc", "CBaseWndSplit", "COnewyView"},
    {16388, "CPlotDoc", "CBaseWndSplit", "CPlotView"},
    {16389, "CSdIntDoc", "CBaseWndSplit", "CSdIntView"},
    {16399, "CStdIntrvlDoc", "CBaseWndSplit", "CStdIntView"},
    {16398, "CTableDoc", "CBaseWnd", "CTableView"},
    {16390, "CVarDoc", "CBaseWndSplit", "CVarView"},
};

// Removes the component's templates and the dialogs from app.
void Release(CWinApp& app) {
    app.ReleaseDialogs();
    for (CDocTemplate* t : app.GetDocTemplates())
        if (dynamic_cast<COutputTemplate*>(t) || dynamic_cast<CAnalysisTemplate*>(t)) app.RemoveDocTemplate(t);
}

std::string FileName(const std::string& path) { return std::filesystem::path(path).filename().string(); }

// The document's title, as a frame shows it; a document without one is named
// by its dialog: the data file, or the title or first file of a list.
std::string DefaultSubject(const CDialog& dlg, const CBaseFileDoc& doc) {
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

COutputTemplate::COutputTemplate() : CDocTemplate(IDR_OUTPUT, "COutputDoc", "COutputViewFrame", "COutputView") {}

std::unique_ptr<CDocument> COutputTemplate::CreateNewDocument() { return std::make_unique<COutputDoc>(); }

std::vector<std::unique_ptr<CObject>> COutputTemplate::CreateViews(CDocument& doc) {
    std::vector<std::unique_ptr<CObject>> views;
    views.push_back(std::make_unique<COutputView>(static_cast<COutputDoc*>(&doc)));
    return views;
}

void COutputTemplate::InitialUpdateFrame(CDocFrame& frame) {
    for (const auto& v : frame.Views())
        if (auto* view = dynamic_cast<COutputView*>(v.get())) view->OnInitialUpdate();
}

int COutputTemplate::OpenDocumentFile(const char* path) {
    std::unique_ptr<CDocument> doc = CreateNewDocument();
    bool ok = path ? doc->OnOpenDocument(path) : doc->OnNewDocument();
    if (!ok) return -1;
    std::unique_ptr<CDocFrame> frame = CreateNewFrame(std::move(doc));
    frame->SetWindowText(frame->GetActiveDocument()->GetTitle());
    InitialUpdateFrame(*frame);
    host_Get().ShowFrame(std::move(frame));
    return 0;
}

std::string CAnalysisTemplate::Name() const {
    std::string name;
    GetDocString(name, docName);
    return name;
}

const AnalysisFactory* CAnalysisTemplate::Factory() const { return grp_FindAnalysis(Name()); }

std::unique_ptr<CDocument> CAnalysisTemplate::CreateNewDocument() {
    const AnalysisFactory* f = Factory();
    return f ? f->createDocument() : nullptr;
}

std::vector<std::unique_ptr<CObject>> CAnalysisTemplate::CreateViews(CDocument& doc) {
    const AnalysisFactory* f = Factory();
    auto* fileDoc = dynamic_cast<CBaseFileDoc*>(&doc);
    if (!f || !f->createViews || !fileDoc) return {};
    return f->createViews(*fileDoc);
}

void CAnalysisTemplate::InitialUpdateFrame(CDocFrame& frame) {
    for (const auto& v : frame.Views()) {
        if (auto* text = dynamic_cast<CTextView*>(v.get())) text->SetText(txt_ReportText(*text));
        if (auto* view = dynamic_cast<CView*>(v.get())) view->OnInitialUpdate();
    }
}

int CAnalysisTemplate::OpenAnalysis(CDialog& dlg, const std::string& prefix) {
    std::unique_ptr<CDocument> made = CreateNewDocument();
    auto* doc = dynamic_cast<CBaseFileDoc*>(made.get());
    if (!doc) return -1;
    unsigned long shownBefore = host_MessageCount();
    if (int rc = doc->InitFromDialog(dlg)) {
        ReportFailure(rc, shownBefore);
        doc->OnCloseDocument();
        return rc;
    }
    const AnalysisFactory* f = Factory();
    std::string subject = (f && f->subject) ? f->subject(dlg, *doc) : DefaultSubject(dlg, *doc);
    std::unique_ptr<CDocFrame> frame = CreateNewFrame(std::move(made));
    frame->SetWindowText(prefix + subject);
    InitialUpdateFrame(*frame);
    host_Get().ShowFrame(std::move(frame));
    return 0;
}

void InitOutputProcessor2(CWinApp* app) {
    if (!app) return;
    // A second start-up replaces the first rather than doubling the templates.
    Release(*app);
    const CDocTemplate* group = app->AddDocTemplate(std::make_unique<COutputTemplate>());
    for (const TemplateEntry& t : kAnalysisTemplates) {
        CDocTemplate* tmpl = app->AddDocTemplate(std::make_unique<CAnalysisTemplate>(t.stringId, t.doc, t.frame, t.view));
        tmpl->ShareMenuOf(*group);
    }
    grp_RegisterAnalyses();
}

void ShutdownOutputProcessor() {
    if (CWinApp* app = AfxGetApp()) Release(*app);
}
