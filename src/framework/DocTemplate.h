// Document templates and the application object that owns them. A template
// ties a document class to its frame and views and carries the template string
// (window title, document name, file filter and extension, registry names); the
// application keeps the templates and the parameter dialogs for the whole run.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/Frame.h"

class CDialog;

class CDocTemplate {
public:
    // Fields of the template string, separated by '\n' in that order.
    enum DocStringIndex { windowTitle, docName, fileNewName, filterName, filterExt, regFileTypeId, regFileTypeName };

    CDocTemplate(int idResource, std::string docClass, std::string frameClass, std::string viewClass);
    virtual ~CDocTemplate() = default;
    CDocTemplate(const CDocTemplate&) = delete;
    CDocTemplate& operator=(const CDocTemplate&) = delete;

    int GetResourceId() const { return m_idResource; }
    // A field of the template string; false (and out empty) when it is empty.
    bool GetDocString(std::string& out, DocStringIndex index) const;
    const std::string& DocClass() const { return m_docClass; }
    const std::string& FrameClass() const { return m_frameClass; }
    const std::string& ViewClass() const { return m_viewClass; }

    // The menu shown while one of the template's documents is active: the
    // template's own resource unless it shares another template's.
    int GetMenu() const { return m_menu; }
    void ShareMenuOf(const CDocTemplate& other) { m_menu = other.m_menu; }

    // A new, empty document; null when the template cannot make one.
    virtual std::unique_ptr<CDocument> CreateNewDocument() { return nullptr; }
    // A frame over doc holding the template's views.
    std::unique_ptr<CDocFrame> CreateNewFrame(std::unique_ptr<CDocument> doc);
    // Lets the views fill themselves from the document before the frame is shown.
    virtual void InitialUpdateFrame(CDocFrame&) {}

protected:
    virtual std::vector<std::unique_ptr<CObject>> CreateViews(CDocument&) { return {}; }

private:
    int m_idResource;
    int m_menu;
    std::string m_docClass;
    std::string m_frameClass;
    std::string m_viewClass;
};

class CWinApp {
public:
    // The newest application object is the current one (AfxGetApp) until it goes.
    CWinApp();
    virtual ~CWinApp();
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;

    CDocTemplate* AddDocTemplate(std::unique_ptr<CDocTemplate> tmpl);
    void RemoveDocTemplate(const CDocTemplate* tmpl);
    // In the order they were added.
    std::vector<CDocTemplate*> GetDocTemplates() const;
    // The template whose document name is name; null when none.
    CDocTemplate* FindDocTemplate(const std::string& name) const;

    // Parameter dialogs kept for the life of the application, by key, so that a
    // dialog shows the user's previous entries when its command is used again.
    CDialog* GetDialog(const std::string& key) const;
    CDialog& KeepDialog(const std::string& key, std::unique_ptr<CDialog> dlg);
    void ReleaseDialogs();

private:
    CWinApp* m_previous;
    std::vector<std::unique_ptr<CDocTemplate>> m_templates;
    std::vector<std::pair<std::string, std::unique_ptr<CDialog>>> m_dialogs;
};

// The current application object; null when there is none.
CWinApp* AfxGetApp();
