#include "series/FiltrDlg.h"

#include <cctype>

#include "datafile/DataFile.h"
#include "dialog/DataFileCheck.h"
#include "framework/FileName.h"
#include "framework/Messages.h"

namespace {

void Limit(std::string& text, std::size_t limit) {
    if (text.size() > limit) text.resize(limit);
}

}  // namespace

int CFiltrDlg::Fail(int id, DlgControl control) {
    SetFocusControl(control);
    return id;
}

int CFiltrDlg::DoDataExchange() {
    Limit(m_strFile, kFileLimit);
    Limit(m_strReps, kComboLimit);
    Limit(m_strTitle, kTitleLimit);
    Limit(m_strTruncType, kComboLimit);
    Limit(m_strBatchType, kComboLimit);
    Limit(m_strOutFile, kFileLimit);

    // The exchange walks the controls in tab order: truncation before batch size.
    if (op_ParseNumber(m_strTrunc.c_str(), &m_dTrunc)) return Fail(IDS_INVALID_NUMBER, DlgControl::Truncation);
    if (!(m_dTrunc >= kRealMin && m_dTrunc <= kRealMax)) return Fail(IDP_REAL_RANGE_0_999999, DlgControl::Truncation);
    if (op_ParseNumber(m_strBatchSize.c_str(), &m_dBatchSize))
        return Fail(IDS_INVALID_NUMBER, DlgControl::BatchSize);
    if (!(m_dBatchSize >= kRealMin && m_dBatchSize <= kRealMax))
        return Fail(IDP_REAL_RANGE_0_999999, DlgControl::BatchSize);
    return 0;
}

int CFiltrDlg::Validate(int* failingIndex) {
    SetFocusControl(DlgControl::None);
    if (failingIndex) *failingIndex = -1;
    if (int rc = DoDataExchange()) return rc;

    if (m_strFile.empty()) return Fail(IDS_SOURCE_NOT_SPECIFIED, DlgControl::DataFile);
    DataFileCheck file{m_strFile, m_strReps};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists})) return Fail(rc, DlgControl::DataFile);
    if (!m_strOutFile.empty() && fn_SameFile(m_strOutFile, m_strFile))
        return Fail(IDS_SAME_OUTPUT_FILE, DlgControl::OutputFile);
    int rc = dlg_CheckDataFile(file, {FileCheck::HeaderReadable, FileCheck::Treatment, FileCheck::EnoughReps});
    m_nTreatment = file.treatment;
    if (rc) return Fail(rc, dlg_FileFocus(file.failed));
    return 0;
}

int CFiltrDlg::UnitCode(const std::string& text) {
    if (text.empty()) return -1;
    switch (std::toupper(static_cast<unsigned char>(text[0]))) {
        case 'O': return 1;
        case 'T': return 0;
        default: return -1;
    }
}

double CFiltrDlg::BatchSizeTaken(double size) { return size > 0.0 ? size : -1.0; }

std::vector<DlgField> CFiltrDlg::Fields() {
    std::vector<DlgField> fields = CBaseDlg::Fields();
    fields.front().maxLength = kTitleLimit;
    DlgField truncType = dlg_TextField("truncType", "Truncation Ty&pe:", DlgControl::None, m_strTruncType, kComboLimit);
    truncType.items = {"Time", "Observation"};
    DlgField batchType = dlg_TextField("batchType", "Batch Typ&e:", DlgControl::None, m_strBatchType, kComboLimit);
    batchType.items = truncType.items;
    DlgField out = dlg_TextField("outFile", "Save Batch &Means in File:", DlgControl::OutputFile, m_strOutFile, kFileLimit);
    out.kind = DlgField::Kind::SaveFile;
    out.filter = msg_Text(16064);
    fields.push_back(truncType);
    fields.push_back(dlg_TextField("trunc", "&Initial Obs/Time:", DlgControl::Truncation, m_strTrunc, 0));
    fields.push_back(batchType);
    fields.push_back(dlg_TextField("batchSize", "&Size:", DlgControl::BatchSize, m_strBatchSize, 0));
    fields.push_back(out);
    return fields;
}
