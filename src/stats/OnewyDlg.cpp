#include "stats/OnewyDlg.h"

#include "dialog/DataFileCheck.h"
#include "framework/Messages.h"

int COnewyDlg::Validate(int* failingIndex) {
    if (int rc = CIntrvlDlg::Validate(failingIndex)) return rc;
    // An interval at 0 or 100 percent has no critical value to draw on.
    const double alpha = dlg_AlphaFromLevel(m_strLevel);
    if (!(alpha > 0.0 && alpha < 1.0)) {
        SetFocusControl(DlgControl::Level);
        return IDS_BAD_CONFIDENCE_LEVEL;
    }
    return 0;
}
