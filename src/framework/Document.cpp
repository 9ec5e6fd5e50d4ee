#include "framework/Document.h"

#include <cstdio>
#include <filesystem>

#include "framework/Archive.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "framework/SafeOutput.h"

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

bool CDocument::OnSaveDocument(const char* path) {
    if (int rc = WriteArchiveFile(path)) {
        AfxMessageBox(rc);
        return false;
    }
    SetPathName(path);
    m_modified = false;
    return true;
}

int CDocument::ReadArchiveFile(const char* path) {
    DeleteContents();
    std::FILE* f = std::fopen(path, "rb");
    if (!f) {
        std::error_code ec;
        return std::filesystem::exists(path, ec) ? IDS_FAILED_TO_OPEN_DOC : IDS_FILE_NOT_FOUND;
    }
    CArchive ar(f, CArchive::load);
    Serialize(ar);
    std::fclose(f);
    switch (ar.GetCause()) {
        case CArchive::none: return 0;
        case CArchive::genericException: return IDS_FAILED_TO_OPEN_DOC;
        default: return IDS_BAD_FORMAT;
    }
}

int CDocument::WriteArchiveFile(const char* path) {
    CSafeOutput out(path);
    std::FILE* f = std::fopen(out.TempPath().c_str(), "wb");
    if (!f) return IDS_FAILED_TO_SAVE_DOC;
    CArchive ar(f, CArchive::store);
    Serialize(ar);
    ar.Flush();
    bool closed = std::fclose(f) == 0;
    if (!ar.IsOk() || !closed || !out.Commit()) return IDS_FAILED_TO_SAVE_DOC;
    return 0;
}

bool CDocument::LoadArchive(const char* path) {
    if (int rc = ReadArchiveFile(path)) {
        DeleteContents();
        AfxMessageBox(rc);
        return false;
    }
    m_modified = false;
    return true;
}
