// Minimal document base: a path, a title, a modified flag and the open/new/close
// hooks that the document classes override.
#pragma once

#include <string>

#include "framework/Object.h"

class CArchive;

class CDocument : public CObject {
public:
    CDocument() = default;
    ~CDocument() override = default;
    CDocument(const CDocument&) = delete;
    CDocument& operator=(const CDocument&) = delete;

    virtual bool OnNewDocument();
    virtual bool OnOpenDocument(const char* path);
    virtual void OnCloseDocument();
    virtual void Serialize(CArchive& ar);
    virtual void DeleteContents() {}

    // addToMRU is kept for the framework's signature; there is no recent-file list.
    void SetPathName(const std::string& path, bool addToMRU = true);
    const std::string& GetPathName() const { return m_path; }
    void SetTitle(const std::string& title) { m_title = title; }
    const std::string& GetTitle() const { return m_title; }
    void SetModifiedFlag(bool modified = true) { m_modified = modified; }
    bool IsModified() const { return m_modified; }

private:
    std::string m_path;
    std::string m_title;
    bool m_modified = false;
};
