#include "graph/PlotDlg.h"

#include "datafile/DataFile.h"
#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

namespace {

// An empty time means "from the data" (-1); a given one must be a number >= 0.
bool ParseTime(const std::string& text, double* out) {
    if (text.empty()) {
        *out = -1.0;
        return true;
    }
    return op_ParseNumber(text.c_str(), out) == 0 && *out >= 0.0;
}

bool ParseValue(const std::string& text, double* out) {
    if (text.empty()) return true;
    return op_ParseNumber(text.c_str(), out) == 0;
}

}  // namespace

CPlotDlg::CPlotDlg() : m_strXLabel(msg_Text(IDS_TIME_LABEL)), m_strYLabel(msg_Text(IDS_VALUE_LABEL)) {}

int CPlotDlg::Fail(int id, DlgControl control) {
    SetFocusControl(control);
    return id;
}

int CPlotDlg::Validate(int* failingIndex) {
    m_dBeginTime = m_dEndTime = m_dMinValue = m_dMaxValue = 0.0;
    SetFocusControl(DlgControl::None);
    if (m_strXLabel.size() > kMaxLabel) m_strXLabel.resize(kMaxLabel);
    if (m_strYLabel.size() > kMaxLabel) m_strYLabel.resize(kMaxLabel);

    if (m_items.empty()) return Fail(IDS_NO_FILES, DlgControl::FileList);
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (failingIndex) *failingIndex = static_cast<int>(i);
        DataFileCheck file{m_items[i].m_strPath, m_items[i].m_strReps};
        if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists, FileCheck::Header}))
            return Fail(rc, rc == IDS_FILE_NOT_FOUND ? DlgControl::FileList : DlgControl::None);
    }
    if (!ParseTime(m_strBeginTime, &m_dBeginTime)) return Fail(IDS_BAD_BEGIN_TIME, DlgControl::BeginTime);
    if (!ParseTime(m_strEndTime, &m_dEndTime)) return Fail(IDS_BAD_END_TIME, DlgControl::EndTime);
    if (!ParseValue(m_strMinValue, &m_dMinValue)) return Fail(IDS_BAD_MIN_VALUE, DlgControl::MinValue);
    if (!ParseValue(m_strMaxValue, &m_dMaxValue)) return Fail(IDS_BAD_MAX_VALUE, DlgControl::MaxValue);
    // The two range checks answer with each other's message, and the focus
    // follows the message: the time check lands on the maximum value.
    if (!m_strBeginTime.empty() && !m_strEndTime.empty() && m_dEndTime <= m_dBeginTime) return Fail(IDS_ENDING_VALUE, DlgControl::MaxValue);
    if (!m_strMinValue.empty() && !m_strMaxValue.empty() && m_dMaxValue <= m_dMinValue)
        return Fail(IDS_ENDING_TIME, DlgControl::EndTime);
    return 0;
}

std::vector<DlgField> CPlotDlg::Fields() {
    return {dlg_TitleField(m_strTitle),
            dlg_TextField("xLabel", "&X-Axis Label:", DlgControl::None, m_strXLabel, kMaxLabel),
            dlg_TextField("yLabel", "&Y-Axis Label:", DlgControl::None, m_strYLabel, kMaxLabel),
            dlg_TextField("beginTime", "D&isplay Time from:", DlgControl::BeginTime, m_strBeginTime, 0),
            dlg_TextField("endTime", "&to:", DlgControl::EndTime, m_strEndTime, 0),
            dlg_TextField("minValue", "P&lot Values from:", DlgControl::MinValue, m_strMinValue, 0),
            dlg_TextField("maxValue", "t&o:", DlgControl::MaxValue, m_strMaxValue, 0)};
}
