#include "convert/ConvertDlgs.h"

#include <filesystem>

#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

namespace {

// The checks of a text source that every text-reading conversion makes.
int CheckTextSource(const std::string& file, const std::string& out, DlgControl* focus) {
    *focus = DlgControl::DataFile;
    if (file.empty()) return IDS_SOURCE_NOT_SPECIFIED;
    if (file != "-") {
        std::error_code ec;
        if (!std::filesystem::exists(file, ec)) return IDS_FILE_NOT_FOUND;
    }
    *focus = DlgControl::OutputFile;
    if (file == "-" && out.empty()) return IDS_DEST_NOT_SPECIFIED;
    if (dlg_SameFileName(out, file)) return IDS_SAME_OUTPUT_FILE;
    *focus = DlgControl::None;
    return 0;
}

}  // namespace

std::string conv_DefaultOutput(const std::string& source, const char* ext) {
    if (source.empty() || source == "-") return {};
    return std::filesystem::path(source).replace_extension(ext).string();
}

int CExprtDlg::Validate(int*) {
    SetFocusControl(DlgControl::DataFile);
    if (m_strFile.empty()) return IDS_SOURCE_NOT_SPECIFIED;
    DataFileCheck file{m_strFile, ""};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists})) return rc;
    if (dlg_SameFileName(m_strOutFile, m_strFile)) {
        SetFocusControl(DlgControl::OutputFile);
        return IDS_SAME_OUTPUT_FILE;
    }
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Header})) return rc;
    SetFocusControl(DlgControl::None);
    return 0;
}

int CImprtDlg::Validate(int*) {
    DlgControl focus;
    int rc = CheckTextSource(m_strFile, m_strOutFile, &focus);
    SetFocusControl(focus);
    return rc;
}

int CLoadDlg::Validate(int*) {
    DlgControl focus;
    int rc = CheckTextSource(m_strFile, m_strOutFile, &focus);
    SetFocusControl(focus);
    if (rc) return rc;
    m_nKind = KIND_TALLY;
    if (!m_strKind.empty()) {
        if (m_strKind.size() != 1 || m_strKind[0] < '1' || m_strKind[0] > '7') return IDS_BAD_DATA_KIND;
        m_nKind = m_strKind[0] - '0';
    }
    return 0;
}
