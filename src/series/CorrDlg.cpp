#include "series/CorrDlg.h"

#include <unistd.h>

#include <filesystem>

#include "datafile/DataFile.h"
#include "datafile/RepChecks.h"
#include "framework/IntField.h"
#include "framework/Messages.h"

namespace fs = std::filesystem;

bool corr_SameFileName(const std::string& a, const std::string& b) {
    if (a.empty() || b.empty()) return false;
    std::error_code ec;
    if (fs::equivalent(a, b, ec)) return true;
    fs::path pa = fs::weakly_canonical(fs::absolute(a, ec), ec);
    fs::path pb = fs::weakly_canonical(fs::absolute(b, ec), ec);
    return pa == pb;
}

bool CCorrDlg::ExchangeFields(std::string* message) {
    if (ddx_IntField(m_strMaxLags, 0, kMaxLagsLimit, &m_nMaxLags, message)) return true;
    SetFocusControl(IDC_MAXLAGS);
    return false;
}

int CCorrDlg::Validate(int*) {
    auto fail = [this](int id, const char* control) {
        SetFocusControl(control);
        return id;
    };
    SetFocusControl("");
    if (m_strFile.empty()) return fail(IDS_SOURCE_NOT_SPECIFIED, IDC_DATAFILE);
    if (::access(m_strFile.c_str(), F_OK) != 0) return fail(IDS_FILE_NOT_FOUND, IDC_DATAFILE);
    if (corr_SameFileName(m_strOutFile, m_strFile)) return fail(IDS_SAME_OUTPUT_FILE, IDC_OUTFILE);
    int kind = 0, reinit = 0, count = 0;
    std::string title;
    if (op_CheckFileHdr(m_strFile.c_str(), &kind, &reinit, &count, &title, 2) == IDS_INVALID_HEADER)
        return fail(IDS_INVALID_DATA_FILE, IDC_DATAFILE);
    int treatment = 0;
    if (rep_CheckTreatmentText(m_strReps, &treatment)) return fail(IDS_INVALID_REP_TREATMENT, IDC_REPLICATIONS);
    if (m_nMaxLags <= 0) return fail(IDS_MAX_LAGS_POSITIVE, IDC_MAXLAGS);
    if (rep_CheckEnoughReps(m_strFile.c_str(), treatment)) return fail(IDS_NOT_ENOUGH_REPS, IDC_REPLICATIONS);
    if (op_IsTimePersistent(kind)) return fail(IDS_TIME_PERSISTENT, IDC_DATAFILE);
    return 0;
}
