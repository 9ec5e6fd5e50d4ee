// The interval analyses in the command spine, each a split window of its
// chart above its report.
#include "graph/IntervalViews.h"
#include "group/AnalysisFactory.h"
#include "series/StdInDlg.h"
#include "series/StdIntTextView.h"
#include "series/StdIntrvlDoc.h"
#include "stats/IntrvlDlg.h"
#include "stats/IntrvlDoc.h"
#include "stats/IntrvlTextView.h"
#include "stats/SdIntDoc.h"
#include "stats/SdIntTextView.h"

void grp_RegisterIntervals() {
    grp_SetAnalysis("Intervals", grp_MakeAnalysis<CIntrvlDlg, CIntrvlDoc, CIntrvlView, CIntrvlTextView>());
    grp_SetAnalysis("SdIntervals", grp_MakeAnalysis<CSdIntDlg, CSdIntDoc, CSdIntView, CSdIntTextView>());
    grp_SetAnalysis("StdInterval", grp_MakeAnalysis<CStdInDlg, CStdIntrvlDoc, CStdIntView, CStdIntTextView>());
}
