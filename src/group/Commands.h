// The command entries: one per analysis, called by the host's menu commands
// with the active data group view. Each shows the analysis's parameter dialog
// (kept for the whole run, so it shows the previous entries) and, on OK, opens
// the analysis through its template. Result: 0 when done or cancelled, -1 when
// the analysis cannot be made, else the id of the message that was shown.
#pragma once

#include <span>

class COutputView;

int g_OnAppend(COutputView* view);
int g_OnBarchart(COutputView* view);
int g_OnComparison(COutputView* view);
int g_OnCorrelogram(COutputView* view);
int g_OnDiffile(COutputView* view);
int g_OnExport(COutputView* view);
int g_OnFilter(COutputView* view);
int g_OnHistogram(COutputView* view);
int g_OnImport(COutputView* view);
int g_OnInterval(COutputView* view);
int g_OnLoad(COutputView* view);
int g_OnMovingAverage(COutputView* view);
int g_OnOneway(COutputView* view);
int g_OnPlot(COutputView* view);
int g_OnSdinterval(COutputView* view);
int g_OnStdinterval(COutputView* view);
int g_OnTable(COutputView* view);
int g_OnVartest(COutputView* view);

struct GroupCommand {
    const char* exportName;    // "g_OnPlot"
    const char* templateName;  // document name of its template, "Plot"
    int titleId;               // window title prefix, "Plot - "
    const char* defaultExt;    // given to an output file name without extension; null when none
    int (*entry)(COutputView* view);
};

// The command table, in the order of the product's command list.
std::span<const GroupCommand> grp_Commands();
// The common flow of every command entry.
int grp_RunCommand(const GroupCommand& command, COutputView* view);
