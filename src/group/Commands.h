// The command entries: one per analysis, called by the host's menu commands
// with the active data group view. Each shows the analysis's parameter dialog
// (kept for the whole run, so it shows the previous entries) and, on OK, opens
// the analysis in a frame handed to the host. Result: 0 when done or
// cancelled, -1 when the analysis cannot be made, else the id of the message
// that was shown.
#pragma once

class COutputView;
class CDialog;
struct GroupCommand;

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

// The common flow of every command entry, for the command's row.
int grp_RunCommand(const GroupCommand& command, COutputView* view);

// Makes the command's document, initialises it from dlg and, only when that
// succeeds, hands the host a frame captioned with the command's title prefix
// and subject, its views filled. -1 when no document can be made; else the
// initialiser's result, its message shown exactly once.
int grp_OpenAnalysis(const GroupCommand& command, CDialog& dlg);
