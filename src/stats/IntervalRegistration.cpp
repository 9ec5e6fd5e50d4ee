// The interval analyses in the command spine. Their charts take their rows
// from the work table through SetRecords, which nothing calls from a document
// yet; until a chart reads its document on initial update, the windows hold
// the reports only.
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
    grp_SetAnalysis("Intervals", grp_MakeAnalysis<CIntrvlDlg, CIntrvlDoc, CIntrvlTextView>());
    grp_SetAnalysis("SdIntervals", grp_MakeAnalysis<CSdIntDlg, CSdIntDoc, CSdIntTextView>());
    grp_SetAnalysis("StdInterval", grp_MakeAnalysis<CStdInDlg, CStdIntrvlDoc, CStdIntTextView>());
}
