// The correlogram in the command spine: its chart above its report; the
// output file takes ".cor" when typed without extension.
#include "graph/CorrView.h"
#include "group/AnalysisFactory.h"
#include "series/CorrDlg.h"
#include "series/CorrDoc.h"
#include "series/CorrTextView.h"

void grp_RegisterCorrelogram() {
    AnalysisFactory f = grp_MakeAnalysis<CCorrDlg, CCorrDoc, CCorrView, CCorrTextView>();
    f.outputFile = [](CDialog& dlg) { return &static_cast<CCorrDlg&>(dlg).m_strOutFile; };
    grp_SetAnalysis("Correlogram", f);
}
