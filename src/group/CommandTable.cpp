#include "group/CommandTable.h"

#include "graph/BarchDlg.h"
#include "graph/BarchDoc.h"
#include "graph/BarchartView.h"
#include "convert/ConvertDlgs.h"
#include "convert/ConvertViews.h"
#include "convert/ExprtDoc.h"
#include "convert/ImprtDoc.h"
#include "convert/LoadDoc.h"
#include "graph/PlotDlg.h"
#include "graph/PlotDoc.h"
#include "graph/PlotView.h"
#include "graph/TableDlg.h"
#include "graph/TableDoc.h"
#include "graph/TableView.h"
#include "series/CorrDlg.h"
#include "series/CorrDoc.h"
#include "series/CorrTextView.h"
#include "series/CorrView.h"
#include "series/FiltrDlg.h"
#include "series/FiltrDoc.h"
#include "series/FiltrView.h"
#include "series/MovTextView.h"
#include "series/MovView.h"
#include "series/MoveDlg.h"
#include "series/MoveDoc.h"
#include "series/SeriesExport.h"
#include "series/StdInDlg.h"
#include "series/StdIntTextView.h"
#include "series/StdIntView.h"
#include "series/StdIntrvlDoc.h"
#include "stats/ComprDoc.h"
#include "stats/ComprTextView.h"
#include "stats/HistDlg.h"
#include "stats/HistDoc.h"
#include "stats/HistTextView.h"
#include "stats/HistView.h"
#include "stats/IntervalExport.h"
#include "stats/IntrvlDlg.h"
#include "stats/IntrvlDoc.h"
#include "stats/IntrvlTextView.h"
#include "stats/IntrvlView.h"
#include "stats/OnewyDlg.h"
#include "stats/OnewayExport.h"
#include "stats/OnewyDoc.h"
#include "stats/OnewyTextView.h"
#include "stats/OnewyView.h"
#include "stats/PairDialogs.h"
#include "stats/PairExport.h"
#include "stats/PairViews.h"
#include "stats/SdIntDoc.h"
#include "stats/SdIntTextView.h"
#include "stats/VarDoc.h"
#include "stats/VarTextView.h"

namespace {

constexpr FrameKind kSingle = FrameKind::Single;
constexpr FrameKind kSplit = FrameKind::Split;

// export, template, template string, title prefix, extension, document, view, frame, factory
const GroupCommand kCommands[] = {
    {"g_OnAppend", "Append", 16393, 16027, "dat", "CAppendDoc", "CAppendView", kSingle, {}},
    {"g_OnBarchart", "Barchart", 16381, 16031, nullptr, "CBarchDoc", "CBarchartView", kSingle,
     grp_Analysis<CBarchDlg, CBarchDoc, CBarchartView>()},
    {"g_OnComparison", "Comparison", 16382, 16020, nullptr, "CComprDoc", "CComprView", kSplit,
     grp_Analysis<CComprDlg, CComprDoc, CComprView, CComprTextView>(nullptr,
                                                                     grp_Results<CComprDoc, st_CompareRecord>)},
    {"g_OnCorrelogram", "Correlogram", 16383, 16032, "cor", "CCorrDoc", "CCorrView", kSplit,
     grp_Analysis<CCorrDlg, CCorrDoc, CCorrView, CCorrTextView>(grp_OutputField<CCorrDlg, &CCorrDlg::m_strOutFile>,
                                                                grp_Results<CCorrDoc, corr_ResultRecord>)},
    {"g_OnDiffile", "Diffile", 16394, 16028, "dif", "CDiffDoc", "CDiffView", kSingle, {}},
    {"g_OnExport", "Export", 16392, 16029, "dax", "CExprtDoc", "CExprtView", kSingle,
     grp_Analysis<CExprtDlg, CExprtDoc, CExprtView>(grp_OutputField<CExprtDlg, &CExprtDlg::m_strOutFile>)},
    {"g_OnFilter", "BatchTruncate", 16395, 16030, "flt", "CFiltrDoc", "CFiltrView", kSingle,
     grp_Analysis<CFiltrDlg, CFiltrDoc, CFiltrView>(grp_OutputField<CFiltrDlg, &CFiltrDlg::m_strOutFile>,
                                                    grp_Results<CFiltrDoc, filtr_ResultRecord>)},
    {"g_OnHistogram", "Histogram", 16384, 16033, nullptr, "CHistDoc", "CHistView", kSplit,
     grp_Analysis<CHistDlg, CHistDoc, CHistView, CHistTextView>()},
    {"g_OnImport", "Import", 16396, 16034, "dat", "CImprtDoc", "CImprtView", kSingle,
     grp_Analysis<CImprtDlg, CImprtDoc, CImprtView>(grp_OutputField<CImprtDlg, &CImprtDlg::m_strOutFile>)},
    {"g_OnInterval", "Intervals", 16385, 16021, nullptr, "CIntrvlDoc", "CIntrvlView", kSplit,
     grp_Analysis<CIntrvlDlg, CIntrvlDoc, CIntrvlView, CIntrvlTextView>(
         nullptr, grp_Results<CIntrvlDoc, st_IntervalRecord>)},
    {"g_OnLoad", "Load", 16397, 16035, "dat", "CLoadDoc", "CLoadView", kSingle,
     grp_Analysis<CLoadDlg, CLoadDoc, CLoadView>(grp_OutputField<CLoadDlg, &CLoadDlg::m_strOutFile>)},
    {"g_OnMovingAverage", "MovingAverage", 16386, 16036, "dat", "CMoveDoc", "CMovView", kSplit,
     grp_Analysis<CMoveDlg, CMoveDoc, CMovView, CMovTextView>(grp_OutputField<CMoveDlg, &CMoveDlg::m_strOutFile>)},
    {"g_OnOneway", "OnewayVariance", 16387, 16022, nullptr, "COnewyDoc", "COnewyView", kSplit,
     grp_Analysis<COnewyDlg, COnewyDoc, COnewyView, COnewyTextView>(nullptr,
                                                                     grp_Results<COnewyDoc, st_OnewayRecord>)},
    {"g_OnPlot", "Plot", 16388, 16019, nullptr, "CPlotDoc", "CPlotView", kSplit,
     grp_Analysis<CPlotDlg, CPlotDoc, CPlotView, CPlotLegendView>()},
    {"g_OnSdinterval", "SdIntervals", 16389, 16023, nullptr, "CSdIntDoc", "CSdIntView", kSplit,
     grp_Analysis<CSdIntDlg, CSdIntDoc, CSdIntView, CSdIntTextView>(nullptr,
                                                                     grp_Results<CIntrvlDoc, st_SdIntervalRecord>)},
    {"g_OnStdinterval", "StdInterval", 16399, 16024, nullptr, "CStdIntrvlDoc", "CStdIntView", kSplit,
     grp_Analysis<CStdInDlg, CStdIntrvlDoc, CStdIntView, CStdIntTextView>(
         nullptr, grp_Results<CIntrvlDoc, st_StdIntervalRecord>)},
    {"g_OnTable", "Table", 16398, 16025, nullptr, "CTableDoc", "CTableView", kSingle,
     grp_Analysis<CTableDlg, CTableDoc, CTableView>()},
    {"g_OnVartest", "Vartest", 16390, 16026, nullptr, "CVarDoc", "CVarView", kSplit,
     grp_Analysis<CVarDlg, CVarDoc, CVarView, CVarTextView>(nullptr, grp_Results<CVarDoc, st_VartestRecord>)},
};

}  // namespace

const char* grp_FrameClass(FrameKind kind) { return kind == FrameKind::Split ? "CBaseWndSplit" : "CBaseWnd"; }

std::span<const GroupCommand> grp_Commands() { return kCommands; }

const GroupCommand* grp_FindCommand(const CDocument& doc) {
    for (const GroupCommand& c : kCommands)
        if (c.make.docType && *c.make.docType == typeid(doc)) return &c;
    return nullptr;
}

std::optional<ResultRecord> grp_DocumentResults(const CDocument& doc) {
    const GroupCommand* command = grp_FindCommand(doc);
    if (!command || !command->make.results) return std::nullopt;
    return command->make.results(static_cast<const CBaseFileDoc&>(doc));
}

const GroupCommand* grp_FindCommand(const std::string& name) {
    for (const GroupCommand& c : kCommands)
        if (name == c.exportName || name == c.templateName) return &c;
    return nullptr;
}
