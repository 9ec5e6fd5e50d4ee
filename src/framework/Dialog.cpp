#include "framework/Dialog.h"

#include "framework/Host.h"

int CDialog::DoModal() { return host_Get().RunDialog(*this); }

int dlg_ValidateOnOK(CDialog& dlg) {
    int row = -1;
    int rc = dlg.Validate(&row);
    if (rc) AfxMessageBox(rc < 0 ? -rc : rc);
    return rc;
}
