#include "group/OutputView.h"

#include <memory>

#include "framework/Host.h"
#include "framework/Messages.h"
#include "group/OutputDoc.h"

namespace {
constexpr int IDS_DAT_EXTENSION = 15914;
constexpr int IDS_DATA_FILE_FILTER = 15937;
constexpr int IDS_CONFIRM_REMOVE = 15842;
constexpr int IDS_REMOVE_CAPTION = 15843;
}  // namespace

void COutputView::OnInitialUpdate() {
    if (m_pDocument)
        for (int i = 0; i < m_pDocument->GetItemCount(); ++i) m_pDocument->DescribeItem(i, true);
    OnUpdate();
}

void COutputView::OnUpdate() {
    int selection = m_list.GetCurSel();
    m_list.ResetContent();
    if (m_pDocument) m_pDocument->FillList(m_list);
    m_list.SetCurSel(selection);
}

std::string COutputView::SelectedPath() const {
    return m_pDocument ? m_pDocument->ItemPath(GetSelection()) : std::string();
}

int COutputView::OnAddFile() {
    std::string path = host_Get().AskOpenFileName(msg_Text(IDS_DAT_EXTENSION), msg_Text(IDS_DATA_FILE_FILTER));
    return path.empty() ? 0 : AddFile(path);
}

int COutputView::AddFile(const std::string& path) {
    if (!m_pDocument) return 0;
    if (m_pDocument->FindItem(path) >= 0) {
        AfxMessageBox(IDS_ALREADY_IN_GROUP);
        return IDS_ALREADY_IN_GROUP;
    }
    int index = m_pDocument->GetItemCount();
    m_pDocument->InsertItem(index, std::make_unique<CDGItem>(path));
    // One line more: refilling the list would copy every line for each file
    // added, quadratic in a large group.
    if (m_list.GetCount() == index)
        m_list.AddString(m_pDocument->GetItem(index)->m_strDescription);
    else
        OnUpdate();
    SetSelection(index);
    return 0;
}

int COutputView::OnRemoveFile() {
    int index = GetSelection();
    if (!m_pDocument || !m_pDocument->GetItem(index)) {
        AfxMessageBox(IDS_NO_SELECTION);
        return IDS_NO_SELECTION;
    }
    if (AfxMessageBox(IDS_CONFIRM_REMOVE, IDS_REMOVE_CAPTION, MB_YESNO | MB_ICONQUESTION) != IDYES) return 0;
    m_pDocument->RemoveItem(index);
    SetSelection(LB_ERR);
    OnUpdate();
    return 0;
}
