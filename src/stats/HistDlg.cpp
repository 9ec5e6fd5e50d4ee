#include "stats/HistDlg.h"

#include "datafile/DataFile.h"
#include "dialog/DataFileCheck.h"
#include "framework/IntField.h"
#include "framework/Messages.h"
#include "stats/Histogram.h"

namespace {

constexpr int kWidthNotPositive = 16080;

}  // namespace

bool CHistDlg::ExchangeFields(std::string* message) {
    m_nCells = 0;
    if (m_strCells.empty() || ddx_IntField(m_strCells, 1, kHistMaxCells, &m_nCells, message)) return true;
    SetFocusControl(DlgControl::CellCount);
    return false;
}

std::vector<DlgField> CHistDlg::Fields() {
    std::vector<DlgField> fields = CBaseDlg::Fields();
    fields.push_back(dlg_TextField("cellStart", "First Cell &Starts at:", DlgControl::CellStart, m_strStart));
    fields.push_back(dlg_TextField("cellWidth", "Cell &Width:", DlgControl::CellWidth, m_strWidth));
    fields.push_back(dlg_TextField("cellCount", "&Number of Cells:", DlgControl::CellCount, m_strCells));
    return fields;
}

int CHistDlg::Validate(int*) {
    auto fail = [this](int id, DlgControl control) {
        SetFocusControl(control);
        return id;
    };
    SetFocusControl(DlgControl::None);
    if (m_strFile.empty()) return fail(IDS_SOURCE_NOT_SPECIFIED, DlgControl::DataFile);
    DataFileCheck file{m_strFile, m_strReps};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists, FileCheck::Header, FileCheck::Treatment,
                                          FileCheck::EnoughReps}))
        return fail(rc, dlg_FileFocus(file.failed));
    if (!m_strStart.empty() && op_ParseNumber(m_strStart.c_str(), &m_dStart) != 0)
        return fail(IDS_INVALID_NUMBER, DlgControl::CellStart);
    if (!m_strWidth.empty()) {
        if (op_ParseNumber(m_strWidth.c_str(), &m_dWidth) != 0) return fail(IDS_INVALID_NUMBER, DlgControl::CellWidth);
        if (!(m_dWidth > 0.0)) return fail(kWidthNotPositive, DlgControl::CellWidth);
    }
    return 0;
}
