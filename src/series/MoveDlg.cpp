#include "series/MoveDlg.h"

#include <cctype>

#include "dialog/DataFileCheck.h"
#include "framework/IntField.h"
#include "framework/Messages.h"

MoveMethod CMoveDlg::MethodCode(const std::string& text) {
    if (!text.empty() && std::toupper(static_cast<unsigned char>(text[0])) == 'T') return MOVE_TRAILING;
    return MOVE_CENTRED;
}

bool CMoveDlg::ExchangeFields(std::string* message) {
    if (ddx_IntField(m_strWindow, 1, kWindowLimit, &m_nWindow, message)) return true;
    SetFocusControl(DlgControl::Window);
    return false;
}

int CMoveDlg::Validate(int*) {
    auto fail = [this](int id, DlgControl control) {
        SetFocusControl(control);
        return id;
    };
    SetFocusControl(DlgControl::None);
    if (m_strFile.empty()) return fail(IDS_SOURCE_NOT_SPECIFIED, DlgControl::DataFile);
    DataFileCheck file{m_strFile, m_strReps};
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Exists})) return fail(rc, DlgControl::DataFile);
    if (dlg_SameFileName(m_strOutFile, m_strFile)) return fail(IDS_SAME_OUTPUT_FILE, DlgControl::OutputFile);
    if (int rc = dlg_CheckDataFile(file, {FileCheck::Header, FileCheck::Treatment, FileCheck::EnoughReps,
                                          FileCheck::NotTimePersistent}))
        return fail(rc, dlg_FileFocus(file.failed));
    return 0;
}
