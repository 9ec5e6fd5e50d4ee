// The plot in the command spine: the graph above its legend.
#include "graph/PlotDlg.h"
#include "graph/PlotDoc.h"
#include "graph/PlotView.h"
#include "group/AnalysisFactory.h"

void grp_RegisterPlot() { grp_SetAnalysis("Plot", grp_MakeAnalysis<CPlotDlg, CPlotDoc, CPlotView, CPlotLegendView>()); }
