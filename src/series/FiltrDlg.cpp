#include "series/FiltrDlg.h"

#include <unistd.h>

#include <cctype>

#include "datafile/DataFile.h"
#include "datafile/RepChecks.h"
#include "framework/FileName.h"
#include "framework/Messages.h"

namespace {

void Limit(std::string& text, std::size_t limit) {
    if (text.size() > limit) text.resize(limit);
}

}  // namespace

int CFiltrDlg::Fail(int id, const char* control) {
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
    if (op_ParseNumber(m_strTrunc.c_str(), &m_dTrunc)) return Fail(IDS_INVALID_NUMBER, kFiltrTruncControl);
    if (!(m_dTrunc >= kRealMin && m_dTrunc <= kRealMax)) return Fail(IDP_REAL_RANGE_0_999999, kFiltrTruncControl);
    if (op_ParseNumber(m_strBatchSize.c_str(), &m_dBatchSize))
        return Fail(IDS_INVALID_NUMBER, kFiltrBatchSizeControl);
    if (!(m_dBatchSize >= kRealMin && m_dBatchSize <= kRealMax))
        return Fail(IDP_REAL_RANGE_0_999999, kFiltrBatchSizeControl);
    return 0;
}

int CFiltrDlg::Validate(int* failingIndex) {
    SetFocusControl("");
    if (failingIndex) *failingIndex = -1;
    if (int rc = DoDataExchange()) return rc;

    if (m_strFile.empty()) return Fail(IDS_SOURCE_NOT_SPECIFIED, kFiltrFileControl);
    if (::access(m_strFile.c_str(), F_OK) != 0) return Fail(IDS_FILE_NOT_FOUND, kFiltrFileControl);
    if (!m_strOutFile.empty() && fn_SameFile(m_strOutFile, m_strFile))
        return Fail(IDS_SAME_OUTPUT_FILE, kFiltrOutputControl);

    int kind = 0, reinit = 0, count = 0;
    std::string title;
    int rc = op_CheckFileHdr(m_strFile.c_str(), &kind, &reinit, &count, &title, 2);
    if (rc == IDS_INVALID_HEADER) return Fail(IDS_INVALID_DATA_FILE, kFiltrFileControl);
    if (rc) return Fail(rc == IDS_NO_FILE_OPEN ? IDS_FILE_NOT_FOUND : rc, kFiltrFileControl);

    if (int r = rep_CheckTreatmentText(m_strReps, &m_nTreatment)) return Fail(r, kFiltrRepsControl);
    if (int r = rep_CheckEnoughReps(m_strFile.c_str(), m_nTreatment)) return Fail(r, kFiltrRepsControl);
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
