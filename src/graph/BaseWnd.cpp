#include "graph/BaseWnd.h"

#include "framework/Document.h"
#include "framework/Messages.h"

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
