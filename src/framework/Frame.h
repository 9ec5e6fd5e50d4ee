// A document window: the frame the host shows for one document, holding the
// document and its views (the graph above the report in a split frame).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "framework/Document.h"

class CDocFrame : public CObject {
public:
    CDocFrame(std::string frameClass, std::unique_ptr<CDocument> doc, std::vector<std::unique_ptr<CObject>> views);

    void SetWindowText(std::string caption) { m_caption = std::move(caption); }
    const std::string& GetWindowText() const { return m_caption; }
    // The class of frame the template asked for ("CBaseWnd", "CBaseWndSplit", ...).
    const std::string& FrameClass() const { return m_frameClass; }
    CDocument* GetActiveDocument() const { return m_doc.get(); }
    const std::vector<std::unique_ptr<CObject>>& Views() const { return m_views; }

private:
    std::string m_frameClass;
    std::string m_caption;
    // Views are declared last so they go first: a view may look at its document
    // while it is destroyed.
    std::unique_ptr<CDocument> m_doc;
    std::vector<std::unique_ptr<CObject>> m_views;
};
