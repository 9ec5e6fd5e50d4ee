#include "group/Templates.h"

#include "framework/Host.h"
#include "group/CommandTable.h"
#include "group/OutputDoc.h"
#include "group/OutputView.h"
#include "group/Startup.h"

namespace {

constexpr int IDR_OUTPUT = 16380;

// Removes the component's templates and the dialogs from app.
void Release(CWinApp& app) {
    app.ReleaseDialogs();
    for (CDocTemplate* t : app.GetDocTemplates())
        if (dynamic_cast<COutputTemplate*>(t) || dynamic_cast<CAnalysisTemplate*>(t)) app.RemoveDocTemplate(t);
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

CAnalysisTemplate::CAnalysisTemplate(const GroupCommand& command)
    : CDocTemplate(command.templateId, command.docClass, grp_FrameClass(command.frame), command.viewClass),
      m_command(command) {}

std::unique_ptr<CDocument> CAnalysisTemplate::CreateNewDocument() {
    if (!m_command.make.createDocument) return nullptr;
    return m_command.make.createDocument();
}

std::vector<std::unique_ptr<CObject>> CAnalysisTemplate::CreateViews(CDocument& doc) {
    auto* fileDoc = dynamic_cast<CBaseFileDoc*>(&doc);
    if (!m_command.make.createViews || !fileDoc) return {};
    return m_command.make.createViews(*fileDoc);
}

void InitOutputProcessor2(CWinApp* app) {
    if (!app) return;
    // A second start-up replaces the first rather than doubling the templates.
    Release(*app);
    const CDocTemplate* group = app->AddDocTemplate(std::make_unique<COutputTemplate>());
    for (const GroupCommand& command : grp_Commands()) {
        CDocTemplate* tmpl = app->AddDocTemplate(std::make_unique<CAnalysisTemplate>(command));
        tmpl->ShareMenuOf(*group);
    }
}

void ShutdownOutputProcessor() {
    if (CWinApp* app = AfxGetApp()) Release(*app);
}
