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
    // Saves through Serialize, reporting a failure; on success the document
    // takes path as its name and is no longer modified.
    virtual bool OnSaveDocument(const char* path);
    virtual void OnCloseDocument();
    void Serialize(CArchive& ar) override;
    virtual void DeleteContents() {}

    // addToMRU is kept for the framework's signature; there is no recent-file list.
    void SetPathName(const std::string& path, bool addToMRU = true);
    const std::string& GetPathName() const { return m_path; }
    void SetTitle(const std::string& title) { m_title = title; }
    const std::string& GetTitle() const { return m_title; }
    void SetModifiedFlag(bool modified = true) { m_modified = modified; }
    bool IsModified() const { return m_modified; }

    // Replaces the contents with what Serialize reads from the archive file at
    // path. 0 or the message id to show; nothing is shown here.
    int ReadArchiveFile(const char* path);
    // Writes the archive file through Serialize; the file at path is replaced
    // only when the whole archive was written. 0 or the message id to show.
    int WriteArchiveFile(const char* path);

protected:
    // The framework's load for documents kept in archive files: a failure is
    // reported and leaves the document empty.
    bool LoadArchive(const char* path);

private:
    std::string m_path;
    std::string m_title;
    bool m_modified = false;
};
