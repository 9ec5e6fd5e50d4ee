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

std::vector<DlgField> COnewyDlg::Fields() {
    std::vector<DlgField> fields = CIntrvlDlg::Fields();
    DlgField method;
    method.kind = DlgField::Kind::Choice;
    method.key = "method";
    method.label = "&Comparisons:";
    method.value = &m_nMethod;
    method.items = {"Tukey, Scheffe and Bonferroni", "Tukey", "Scheffe", "Bonferroni"};
    method.values = {ONEWAY_CLASSICAL, ONEWAY_TUKEY, ONEWAY_SCHEFFE, ONEWAY_BONFERRONI};
    DlgField unequal;
    unequal.kind = DlgField::Kind::Check;
    unequal.key = "unequal";
    unequal.label = "&Unequal variances (Welch, Games-Howell)";
    unequal.check = &m_bUnequalVariances;
    fields.insert(fields.begin() + 2, {method, unequal});
    return fields;
}
