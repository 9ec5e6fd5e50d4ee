#include "framework/DocTemplate.h"

#include <algorithm>

#include "framework/Dialog.h"
#include "framework/Messages.h"

CDocTemplate::CDocTemplate(int idResource, std::string docClass, std::string frameClass, std::string viewClass)
    : m_idResource(idResource),
      m_menu(idResource),
      m_docClass(std::move(docClass)),
      m_frameClass(std::move(frameClass)),
      m_viewClass(std::move(viewClass)) {}

bool CDocTemplate::GetDocString(std::string& out, DocStringIndex index) const {
    const std::string& text = msg_Text(m_idResource);
    std::size_t start = 0;
    for (int i = 0; i < index && start != std::string::npos; ++i) {
        start = text.find('\n', start);
        if (start != std::string::npos) ++start;
    }
    out.clear();
    if (start == std::string::npos) return false;
    out = text.substr(start, text.find('\n', start) - start);
    return !out.empty();
}

std::unique_ptr<CDocFrame> CDocTemplate::CreateNewFrame(std::unique_ptr<CDocument> doc) {
    std::vector<std::unique_ptr<CObject>> views;
    if (doc) views = CreateViews(*doc);
    return std::make_unique<CDocFrame>(m_frameClass, std::move(doc), std::move(views));
}

namespace {
CWinApp* g_app = nullptr;
}

CWinApp::CWinApp() : m_previous(g_app) { g_app = this; }

CWinApp::~CWinApp() {
    // Dialogs may point into documents or views; they go before the templates.
    ReleaseDialogs();
    m_templates.clear();
    if (g_app == this) g_app = m_previous;
}

CDocTemplate* CWinApp::AddDocTemplate(std::unique_ptr<CDocTemplate> tmpl) {
    m_templates.push_back(std::move(tmpl));
    return m_templates.back().get();
}

void CWinApp::RemoveDocTemplate(const CDocTemplate* tmpl) {
    std::erase_if(m_templates, [tmpl](const std::unique_ptr<CDocTemplate>& t) { return t.get() == tmpl; });
}

std::vector<CDocTemplate*> CWinApp::GetDocTemplates() const {
    std::vector<CDocTemplate*> all;
    for (const auto& t : m_templates) all.push_back(t.get());
    return all;
}

CDocTemplate* CWinApp::FindDocTemplate(const std::string& name) const {
    std::string docName;
    for (const auto& t : m_templates)
        if (t->GetDocString(docName, CDocTemplate::docName) && docName == name) return t.get();
    return nullptr;
}

CDialog* CWinApp::GetDialog(const std::string& key) const {
    for (const auto& [k, d] : m_dialogs)
        if (k == key) return d.get();
    return nullptr;
}

CDialog& CWinApp::KeepDialog(const std::string& key, std::unique_ptr<CDialog> dlg) {
    for (auto& [k, d] : m_dialogs) {
        if (k == key) {
            d = std::move(dlg);
            return *d;
        }
    }
    m_dialogs.emplace_back(key, std::move(dlg));
    return *m_dialogs.back().second;
}

void CWinApp::ReleaseDialogs() { m_dialogs.clear(); }

CWinApp* AfxGetApp() { return g_app; }
