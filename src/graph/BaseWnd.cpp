#include "graph/BaseWnd.h"

#include "framework/Document.h"
#include "framework/Messages.h"
#include "graph/GraphDoc.h"

void CBaseWnd::SetFrameCaption(int stringId, bool appendDocumentTitle) {
    m_strBaseCaption = msg_Text(stringId);
    m_bAppendTitle = appendDocumentTitle ? 1 : 0;
    OnUpdateFrameTitle(true);
}

void CBaseWnd::OnUpdateFrameTitle(bool addToTitle) {
    if (!m_bAddToTitleStyle || !addToTitle || !m_pActiveDoc) return;
    std::string caption = m_strBaseCaption;
    if (m_bAppendTitle) caption += m_pActiveDoc->GetTitle();
    caption += m_strTrailer;
    m_strCaption = caption;
}

int CBaseWndSplit::FirstPaneHeight(int clientHeight, int minFirstPane) {
    int first = static_cast<int>(0.4 * clientHeight);
    if (clientHeight >= minFirstPane && first < minFirstPane) first = minFirstPane;
    return first;
}

bool CBaseWndSplit::OnCreateClient(const CRect& client, std::unique_ptr<CView> (*firstView)(), CGraphDoc& doc,
                                   SplitPanes* panes) {
    int w = client.Width();
    int h = client.Height();
    int first = FirstPaneHeight(h, doc.m_nMinFirstPane);
    if (!firstView || !doc.m_pSecondView) return false;
    panes->firstView = firstView();
    panes->secondView = doc.m_pSecondView();
    if (!panes->firstView || !panes->secondView) return false;
    panes->first = CRect{0, 0, w, first};
    panes->second = CRect{0, 0, w, h - first};
    panes->firstView->SetDocument(&doc);
    panes->secondView->SetDocument(&doc);
    panes->firstView->SetClientRect(panes->first);
    panes->secondView->SetClientRect(panes->second);
    return true;
}
