#include "graph/TableDlg.h"

#include <cmath>

#include "datafile/DataFile.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

namespace {

bool ParseTime(const std::string& text, double* out) {
    if (text.empty()) {
        *out = -1.0;
        return true;
    }
    return op_ParseNumber(text.c_str(), out) == 0 && *out >= 0.0;
}

// A whole number of 1 or more; a fraction is cut off, as counts always are.
bool ParseRowNumber(const std::string& text, std::int64_t* out) {
    double v = 0.0;
    if (op_ParseNumber(text.c_str(), &v) != 0 || !(v >= 1.0) || v > 9.2e18) return false;
    *out = static_cast<std::int64_t>(std::trunc(v));
    return true;
}

}  // namespace

int CTableDlg::Fail(int id, DlgControl control) {
    SetFocusControl(control);
    return id;
}

int CTableDlg::Validate(int* failingIndex) {
    m_dBeginTime = m_dEndTime = -1.0;
    m_nFirst = 1;
    m_nCount = 0;
    SetFocusControl(DlgControl::None);
    if (m_items.empty()) return Fail(IDS_NO_FILES, DlgControl::FileList);
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (failingIndex) *failingIndex = static_cast<int>(i);
        DataFileCheck file{m_items[i].m_strPath, m_items[i].m_strReps};
        if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists, FileCheck::Treatment, FileCheck::Header}))
            return Fail(rc, DlgControl::FileList);
    }
    if (!ParseTime(m_strBeginTime, &m_dBeginTime)) return Fail(15817, DlgControl::BeginTime);
    if (!ParseTime(m_strEndTime, &m_dEndTime)) return Fail(15818, DlgControl::EndTime);
    if (!m_strBeginTime.empty() && !m_strEndTime.empty() && m_dEndTime <= m_dBeginTime)
        return Fail(IDS_ENDING_TIME, DlgControl::EndTime);
    if (!m_strFirst.empty() && !ParseRowNumber(m_strFirst, &m_nFirst))
        return Fail(IDS_INVALID_NUMBER, DlgControl::FirstRecord);
    if (!m_strCount.empty() && !ParseRowNumber(m_strCount, &m_nCount))
        return Fail(IDS_INVALID_NUMBER, DlgControl::RecordCount);
    return 0;
}
