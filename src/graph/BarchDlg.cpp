#include "graph/BarchDlg.h"

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

bool ParseValue(const std::string& text, double* out) {
    *out = 0.0;
    return text.empty() || op_ParseNumber(text.c_str(), out) == 0;
}

}  // namespace

int CBarchDlg::Fail(int id, DlgControl control) {
    SetFocusControl(control);
    return id;
}

int CBarchDlg::Validate(int*) {
    SetFocusControl(DlgControl::None);
    DataFileCheck file{m_strFile, m_strReps};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists, FileCheck::Treatment, FileCheck::Header}))
        return Fail(rc, dlg_FileFocus(file.failed));
    if (!ParseTime(m_strBeginTime, &m_dBeginTime)) return Fail(15817, DlgControl::BeginTime);
    if (!ParseTime(m_strEndTime, &m_dEndTime)) return Fail(15818, DlgControl::EndTime);
    if (!ParseValue(m_strMinValue, &m_dMinValue)) return Fail(15819, DlgControl::MinValue);
    if (!ParseValue(m_strMaxValue, &m_dMaxValue)) return Fail(15820, DlgControl::MaxValue);
    if (!m_strBeginTime.empty() && !m_strEndTime.empty() && m_dEndTime <= m_dBeginTime)
        return Fail(IDS_ENDING_TIME, DlgControl::EndTime);
    if (!m_strMinValue.empty() && !m_strMaxValue.empty() && m_dMaxValue <= m_dMinValue)
        return Fail(IDS_VALUE_RANGE, DlgControl::MaxValue);
    return 0;
}
