// The analyses built into this program. Each one's registration function is
// defined beside its classes; an analysis not called here keeps its template
// and its command reports that it is not available.
#include "group/Startup.h"

void grp_RegisterPairs();        // stats/PairRegistration.cpp: Comparison, Vartest
void grp_RegisterCorrelogram();  // series/CorrRegistration.cpp
void grp_RegisterFilter();       // series/FiltrRegistration.cpp: BatchTruncate
void grp_RegisterIntervals();    // stats/IntervalRegistration.cpp: Intervals, SdIntervals, StdInterval
void grp_RegisterPlot();         // graph/PlotRegistration.cpp

void grp_RegisterAnalyses() {
    grp_RegisterPairs();
    grp_RegisterCorrelogram();
    grp_RegisterFilter();
    grp_RegisterIntervals();
    grp_RegisterPlot();
}
