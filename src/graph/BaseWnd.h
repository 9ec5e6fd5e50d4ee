// The frame rules of the analysis windows, free of any windowing system: the
// caption a frame shows and how a split frame divides its client area between
// the graph (first pane) and the second view.
#pragma once

#include <memory>
#include <string>

#include "framework/DC.h"
#include "framework/View.h"

class CDocument;

class CBaseWnd : public CObject {
public:
    // Loads the base caption from the string table and refreshes the caption.
    virtual void SetFrameCaption(int stringId, bool appendDocumentTitle);
    // Rebuilds the caption when the frame adds the document's title to it.
    virtual void OnUpdateFrameTitle(bool addToTitle);

    void SetTitleTrailer(const std::string& trailer) { m_strTrailer = trailer; }
    void SetActiveDocument(CDocument* doc) { m_pActiveDoc = doc; }
    const std::string& GetWindowText() const { return m_strCaption; }

    bool m_bAddToTitleStyle = true;  // the frame style that lets a document title in

protected:
    std::string m_strBaseCaption;
    int m_bAppendTitle = 0;
    std::string m_strTrailer;
    CDocument* m_pActiveDoc = nullptr;
    std::string m_strCaption;
};

// A split frame: the graph above the second view (frame_Panes lays them out).
class CBaseWndSplit : public CBaseWnd {
public:
    // 40 % of the height, raised to the document's minimum when the frame is tall enough for it.
    static int FirstPaneHeight(int clientHeight, int minFirstPane);
};
