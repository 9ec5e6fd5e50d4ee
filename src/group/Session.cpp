#include "group/Session.h"

#include <filesystem>

#include "framework/Dialog.h"
#include "framework/Frame.h"
#include "framework/Messages.h"
#include "group/CommandTable.h"
#include "group/Commands.h"
#include "group/OutputDoc.h"
#include "group/OutputView.h"
#include "group/Startup.h"

namespace {

// The session's host with the dialog filled in rather than shown.
class FillingHost : public IHost {
public:
    FillingHost(IHost& inner, const DialogFiller& fill) : m_inner(inner), m_fill(fill) {}
    int ShowMessage(int id, const std::string& text, unsigned style) override {
        return m_inner.ShowMessage(id, text, style);
    }
    int ShowCaptionedMessage(int id, const std::string& text, const std::string& caption, unsigned style) override {
        return m_inner.ShowCaptionedMessage(id, text, caption, style);
    }
    void Progress(const char* what, double done, double total) override { m_inner.Progress(what, done, total); }
    int RunDialog(CDialog& dlg) override {
        if (!m_fill(dlg)) return IDCANCEL;
        return dlg_ValidateOnOK(dlg) == 0 ? IDOK : IDCANCEL;
    }
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override { m_inner.ShowFrame(std::move(frame)); }
    std::string AskOpenFileName(const std::string& defaultExt, const std::string& filter) override {
        return m_inner.AskOpenFileName(defaultExt, filter);
    }

private:
    IHost& m_inner;
    const DialogFiller& m_fill;
};

}  // namespace

CSession::CSession(IHost& host) : m_scope(&host), m_host(host) { InitOutputProcessor2(&m_app); }

CSession::~CSession() { ShutdownOutputProcessor(); }

void CSession::EnsureGroup() {
    if (m_doc) return;
    m_doc = std::make_unique<COutputDoc>();
    m_view = std::make_unique<COutputView>(m_doc.get());
    m_doc->OnNewDocument();
}

int CSession::OpenGroup(const std::string& path) {
    m_view.reset();
    m_doc.reset();
    if (path.empty()) {
        EnsureGroup();
        return 0;
    }
    auto doc = std::make_unique<COutputDoc>();
    host_SetSubjectFile(path);
    std::error_code ec;
    if (!std::filesystem::is_regular_file(path, ec)) {
        AfxMessageBox(IDS_FILE_NOT_FOUND);
        return IDS_FILE_NOT_FOUND;
    }
    if (!doc->OnOpenDocument(path.c_str())) return IDS_BAD_FORMAT;
    m_doc = std::move(doc);
    m_view = std::make_unique<COutputView>(m_doc.get());
    m_view->OnUpdate();
    return 0;
}

COutputDoc& CSession::Group() {
    EnsureGroup();
    return *m_doc;
}

COutputView& CSession::GroupView() {
    EnsureGroup();
    return *m_view;
}

int CSession::RunCommand(const std::string& exportName, const DialogFiller& fill) {
    const GroupCommand* command = grp_FindCommand(exportName);
    if (!command) return -1;
    if (!fill) return grp_RunCommand(*command, &GroupView());
    FillingHost filling(m_host, fill);
    ScopedHost scope(&filling);
    return grp_RunCommand(*command, &GroupView());
}

int CSession::RunCommand(int (*entry)(COutputView*), const DialogFiller& fill) {
    if (!fill) return entry(&GroupView());
    FillingHost filling(m_host, fill);
    ScopedHost scope(&filling);
    return entry(&GroupView());
}
