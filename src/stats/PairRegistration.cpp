// The pair analyses in the command spine: comparison of means and of
// variances, each a split window of its chart above its report.
#include "graph/IntervalViews.h"
#include "group/AnalysisFactory.h"
#include "stats/ComprDoc.h"
#include "stats/ComprTextView.h"
#include "stats/PairDialogs.h"
#include "stats/VarDoc.h"
#include "stats/VarTextView.h"

void grp_RegisterPairs() {
    grp_SetAnalysis("Comparison", grp_MakeAnalysis<CComprDlg, CComprDoc, CComprView, CComprTextView>());
    grp_SetAnalysis("Vartest", grp_MakeAnalysis<CVarDlg, CVarDoc, CVarView, CVarTextView>());
}
