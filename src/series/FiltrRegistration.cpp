// Batch/Truncate in the command spine: a window of its summary; the file of
// batch means takes ".flt" when typed without extension.
#include "group/AnalysisFactory.h"
#include "series/FiltrDlg.h"
#include "series/FiltrDoc.h"
#include "series/FiltrView.h"

void grp_RegisterFilter() {
    AnalysisFactory f = grp_MakeAnalysis<CFiltrDlg, CFiltrDoc, CFiltrView>();
    f.outputFile = [](CDialog& dlg) { return &static_cast<CFiltrDlg&>(dlg).m_strOutFile; };
    grp_SetAnalysis("BatchTruncate", f);
}
