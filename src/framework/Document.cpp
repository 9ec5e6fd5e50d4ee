#include "framework/Document.h"

#include <filesystem>

bool CDocument::OnNewDocument() {
    DeleteContents();
    m_modified = false;
    return true;
}

bool CDocument::OnOpenDocument(const char*) {
    DeleteContents();
    m_modified = false;
    return true;
}

void CDocument::OnCloseDocument() { DeleteContents(); }

void CDocument::Serialize(CArchive&) {}

void CDocument::SetPathName(const std::string& path, bool) {
    m_path = path;
    m_title = std::filesystem::path(path).filename().string();
}
