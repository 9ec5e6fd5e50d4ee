#include "stats/IntrvlDlg.h"

#include <unistd.h>

#include "datafile/DataFile.h"
#include "datafile/RepChecks.h"
#include "framework/Messages.h"

const char* const CIntrvlDlg::kLevels[3] = {"0.99", "0.95", "0.90"};

int CIntrvlDlg::Fail(int id, int row) {
    switch (id) {
        case IDS_SOURCE_NOT_SPECIFIED:
        case IDS_INVALID_REP_TREATMENT:
        case IDS_TIME_PERSISTENT:
        case IDS_FILE_NOT_FOUND:
            SetFocusControl(kFileListControl);
            m_nSelected = row;
            break;
        case IDS_BAD_CONFIDENCE_LEVEL:
            SetFocusControl(kLevelControl);
            break;
        default:
            break;
    }
    return id;
}

int CIntrvlDlg::OnChange(int selectedRow) const {
    constexpr int kNoItemSelected = 15841;
    return (selectedRow < 0 || selectedRow >= static_cast<int>(m_items.size())) ? kNoItemSelected : 0;
}

int CIntrvlDlg::Validate(int* failingIndex) {
    SetFocusControl("");
    m_nSelected = -1;
    if (m_items.empty()) return Fail(IDS_NO_FILES, -1);

    double level = 0.0;
    if (op_ParseNumber(m_strLevel.c_str(), &level) != 0 || level < 0.0 || level > 100.0)
        return Fail(IDS_BAD_CONFIDENCE_LEVEL, -1);

    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const int row = static_cast<int>(i);
        if (failingIndex) *failingIndex = row;
        CMultiFileItem& item = m_items[i];
        item.m_nTreatment = op_ParseRepTreatment(item.m_strReps.c_str());
        const char* path = item.m_strPath.c_str();
        if (::access(path, F_OK) != 0) return Fail(IDS_FILE_NOT_FOUND, row);
        if (rep_CheckTreatment(item.m_nTreatment)) return Fail(IDS_INVALID_REP_TREATMENT, row);
        int kind = 0, reinit = 0, count = 0;
        std::string title;
        if (op_CheckFileHdr(path, &kind, &reinit, &count, &title, 2) == IDS_INVALID_HEADER)
            return Fail(IDS_INVALID_DATA_FILE, row);
        // Only the replication means of time-persistent data would be
        // observations, and the treatment check above already refuses them.
        if (op_IsTimePersistent(kind) && item.m_nTreatment != REP_REPMEANS) return Fail(IDS_TIME_PERSISTENT, row);
    }
    return 0;
}

double intrvl_AlphaFromLevel(const std::string& level) {
    double value = 0.0;
    op_ParseNumber(level.c_str(), &value);
    return value > 1.0 ? 1.0 - value / 100.0 : 1.0 - value;
}
