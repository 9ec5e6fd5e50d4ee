#include "framework/Dialog.h"

#include "framework/Host.h"

int CDialog::DoModal() { return host_Get().RunDialog(*this); }

int dlg_ValidateOnOK(CDialog& dlg, int* failingIndex) {
    if (failingIndex) *failingIndex = -1;
    std::string message;
    if (!dlg.ExchangeFields(&message)) {
        host_SetSubjectControl(dlg.FocusControl());
        AfxMessageBox(message);
        host_SetSubjectControl(DlgControl::None);
        return -1;
    }
    int row = -1;
    int rc = dlg.Validate(&row);
    if (rc && failingIndex) *failingIndex = row;
    if (rc) {
        host_SetSubjectControl(dlg.FocusControl());
        AfxMessageBox(rc < 0 ? -rc : rc);
        host_SetSubjectControl(DlgControl::None);
    }
    return rc;
}
