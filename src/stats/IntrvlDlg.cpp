#include "stats/IntrvlDlg.h"

#include "datafile/DataFile.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

const char* const CIntrvlDlg::kLevels[3] = {"0.99", "0.95", "0.90"};

int CIntrvlDlg::Fail(int id, int row) {
    switch (id) {
        case IDS_SOURCE_NOT_SPECIFIED:
        case IDS_INVALID_REP_TREATMENT:
        case IDS_TIME_PERSISTENT:
        case IDS_FILE_NOT_FOUND:
            SetFocusControl(DlgControl::FileList);
            m_nSelected = row;
            break;
        case IDS_BAD_CONFIDENCE_LEVEL:
            SetFocusControl(DlgControl::Level);
            break;
        default:
            break;
    }
    return id;
}

int CIntrvlDlg::OnChange(int selectedRow) const {
    return (selectedRow < 0 || selectedRow >= static_cast<int>(m_items.size())) ? IDS_NO_SELECTION : 0;
}

int CIntrvlDlg::Validate(int* failingIndex) {
    SetFocusControl(DlgControl::None);
    m_nSelected = -1;
    if (m_items.empty()) return Fail(IDS_NO_FILES, -1);

    double level = 0.0;
    if (op_ParseNumber(m_strLevel.c_str(), &level) != 0 || level < 0.0 || level > 100.0)
        return Fail(IDS_BAD_CONFIDENCE_LEVEL, -1);

    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const int row = static_cast<int>(i);
        if (failingIndex) *failingIndex = row;
        CMultiFileItem& item = m_items[i];
        DataFileCheck file{item.m_strPath, item.m_strReps};
        int rc = dlg_CheckDataFile(file, {FileCheck::Exists, FileCheck::Treatment, FileCheck::Header,
                                          FileCheck::NotTimePersistent});
        item.m_nTreatment = file.treatment;
        if (rc) return Fail(rc, row);
    }
    return 0;
}
