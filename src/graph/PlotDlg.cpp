#include "graph/PlotDlg.h"

#include <unistd.h>

#include "datafile/DataFile.h"
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

CPlotDlg::CPlotDlg() : m_strXLabel(msg_Text(15840)), m_strYLabel(msg_Text(15839)) {}

int CPlotDlg::Fail(int id, const char* control) {
    SetFocusControl(control);
    return id;
}

int CPlotDlg::Validate(int* failingIndex) {
    m_dBeginTime = m_dEndTime = m_dMinValue = m_dMaxValue = 0.0;
    SetFocusControl("");
    if (m_strXLabel.size() > kMaxLabel) m_strXLabel.resize(kMaxLabel);
    if (m_strYLabel.size() > kMaxLabel) m_strYLabel.resize(kMaxLabel);

    if (m_items.empty()) return Fail(IDS_NO_FILES, "files");
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (failingIndex) *failingIndex = static_cast<int>(i);
        const char* path = m_items[i].m_strPath.c_str();
        if (access(path, F_OK) != 0) return Fail(IDS_FILE_NOT_FOUND, "files");
        int kind = 0, reinit = 0, count = 0;
        std::string title;
        if (op_CheckFileHdr(path, &kind, &reinit, &count, &title, 2) == IDS_INVALID_HEADER)
            return Fail(IDS_INVALID_DATA_FILE, "");
    }
    if (!ParseTime(m_strBeginTime, &m_dBeginTime)) return Fail(15817, "begin");
    if (!ParseTime(m_strEndTime, &m_dEndTime)) return Fail(15818, "end");
    if (!ParseValue(m_strMinValue, &m_dMinValue)) return Fail(15819, "min");
    if (!ParseValue(m_strMaxValue, &m_dMaxValue)) return Fail(15820, "max");
    // The two range checks answer with each other's message, and the focus
    // follows the message: the time check lands on the maximum value.
    if (!m_strBeginTime.empty() && !m_strEndTime.empty() && m_dEndTime <= m_dBeginTime) return Fail(15829, "max");
    if (!m_strMinValue.empty() && !m_strMaxValue.empty() && m_dMaxValue <= m_dMinValue)
        return Fail(IDS_ENDING_TIME, "end");
    return 0;
}
