// Start-up's templates and the common flow of the command entries, run with a
// stand-in analysis installed into real templates.
#include <gtest/gtest.h>

#include <cstdio>

#include "framework/DocTemplate.h"
#include "framework/Messages.h"
#include "dialog/FileDialogs.h"
#include "group/CommandTable.h"
#include "group/Commands.h"
#include "group/OutputDoc.h"
#include "group/OutputView.h"
#include "group/RecordingHost.h"
#include "group/Startup.h"
#include "report/TextView.h"

namespace {

TEST(Startup, RegistersNineteenTemplatesInOrder) {
    struct Expected {
        int id;
        const char* name;
        const char* doc;
        const char* frame;
        const char* view;
        const char* exportName;  // the command of the template, with its title prefix
        int titleId;
        const char* prefix;
    };
    // The registration table of the component, in its order.
    const Expected expected[] = {
        {16380, "Output", "COutputDoc", "COutputViewFrame", "COutputView", nullptr, 0, ""},
        {16393, "Append", "CAppendDoc", "CBaseWnd", "CAppendView", "g_OnAppend", 16027, "Append - "},
        {16381, "Barchart", "CBarchDoc", "CBaseWnd", "CBarchartView", "g_OnBarchart", 16031, "Barchart - "},
        {16382, "Comparison", "CComprDoc", "CBaseWndSplit", "CComprView", "g_OnComparison", 16020, "Compare Means - "},
        {16383, "Correlogram", "CCorrDoc", "CBaseWndSplit", "CCorrView", "g_OnCorrelogram", 16032, "Correlogram - "},
        {16394, "Diffile", "CDiffDoc", "CBaseWnd", "CDiffView", "g_OnDiffile", 16028, "DIF File - "},
        {16392, "Export", "CExprtDoc", "CBaseWnd", "CExprtView", "g_OnExport", 16029, "Export - "},
        {16395, "BatchTruncate", "CFiltrDoc", "CBaseWnd", "CFiltrView", "g_OnFilter", 16030, "Batch/Truncate - "},
        {16384, "Histogram", "CHistDoc", "CBaseWndSplit", "CHistView", "g_OnHistogram", 16033, "Histogram - "},
        {16396, "Import", "CImprtDoc", "CBaseWnd", "CImprtView", "g_OnImport", 16034, "Import File - "},
        {16385, "Intervals", "CIntrvlDoc", "CBaseWndSplit", "CIntrvlView",
         "g_OnInterval", 16021, "Classical C.I. On Mean - "},
        {16397, "Load", "CLoadDoc", "CBaseWnd", "CLoadView", "g_OnLoad", 16035, "ASCII Load File - "},
        {16386, "MovingAverage", "CMoveDoc", "CBaseWndSplit", "CMovView",
         "g_OnMovingAverage", 16036, "Moving Average - "},
        {16387, "OnewayVariance", "COnewyDoc", "CBaseWndSplit", "COnewyView", "g_OnOneway", 16022, "One-Way ANOVA - "},
        {16388, "Plot", "CPlotDoc", "CBaseWndSplit", "CPlotView", "g_OnPlot", 16019, "Plot - "},
        {16389, "SdIntervals", "CSdIntDoc", "CBaseWndSplit", "CSdIntView",
         "g_OnSdinterval", 16023, "Standard Deviation Intervals - "},
        {16399, "StdInterval", "CStdIntrvlDoc", "CBaseWndSplit", "CStdIntView",
         "g_OnStdinterval", 16024, "Standardized Time Series Intervals - "},
        {16398, "Table", "CTableDoc", "CBaseWnd", "CTableView", "g_OnTable", 16025, "Tables - "},
        {16390, "Vartest", "CVarDoc", "CBaseWndSplit", "CVarView", "g_OnVartest", 16026, "Compare Variances - "},
    };
    CWinApp app;
    InitOutputProcessor2(&app);
    std::vector<CDocTemplate*> templates = app.GetDocTemplates();
    ASSERT_EQ(templates.size(), std::size(expected));
    EXPECT_EQ(grp_Commands().size(), templates.size() - 1);
    for (std::size_t i = 0; i < templates.size(); ++i) {
        const CDocTemplate& t = *templates[i];
        const Expected& e = expected[i];
        std::string name;
        EXPECT_EQ(t.GetResourceId(), e.id) << i;
        EXPECT_TRUE(t.GetDocString(name, CDocTemplate::docName));
        EXPECT_EQ(name, e.name);
        if (i > 0) {
            const GroupCommand* c = grp_FindCommand(e.exportName);
            ASSERT_NE(c, nullptr) << e.exportName;
            EXPECT_EQ(grp_FindCommand(e.name), c);
            EXPECT_EQ(c->titleId, e.titleId);
            EXPECT_EQ(msg_Text(c->titleId), e.prefix);
        }
        EXPECT_EQ(t.DocClass(), e.doc);
        EXPECT_EQ(t.FrameClass(), e.frame);
        EXPECT_EQ(t.ViewClass(), e.view);
        // Every window shows the data group's menu.
        EXPECT_EQ(t.GetMenu(), 16380) << e.name;
        if (i > 0) {
            std::string field;
            EXPECT_FALSE(t.GetDocString(field, CDocTemplate::filterExt)) << e.name;
            EXPECT_FALSE(t.GetDocString(field, CDocTemplate::fileNewName)) << e.name;
            EXPECT_FALSE(t.GetDocString(field, CDocTemplate::filterName)) << e.name;
        }
    }
    struct Field {
        CDocTemplate::DocStringIndex index;
        const char* text;
    };
    const Field fields[] = {
        {CDocTemplate::windowTitle, ""},
        {CDocTemplate::docName, "Output"},
        {CDocTemplate::fileNewName, "Output Processor Window"},
        {CDocTemplate::filterName, "Output Processor Files (*.dgr)"},
        {CDocTemplate::filterExt, ".dgr"},
        {CDocTemplate::regFileTypeId, "MolvexOutput.Document"},
        {CDocTemplate::regFileTypeName, "Molvex Output Processor Document"},
    };
    for (const Field& f : fields) {
        std::string text;
        templates[0]->GetDocString(text, f.index);
        EXPECT_EQ(text, f.text);
    }

    // A second start-up replaces the templates; shutdown removes them all.
    InitOutputProcessor2(&app);
    EXPECT_EQ(app.GetDocTemplates().size(), 19u);
    ShutdownOutputProcessor();
    EXPECT_TRUE(app.GetDocTemplates().empty());
}

TEST(Startup, EveryBuiltAnalysisMakesDialogDocumentAndViews) {
    int built = 0;
    for (const GroupCommand& c : grp_Commands()) {
        if (!c.make.Built()) continue;
        ++built;
        std::unique_ptr<CDialog> dlg = c.make.createDialog();
        std::unique_ptr<CBaseFileDoc> doc = c.make.createDocument();
        ASSERT_TRUE(dlg && doc && c.make.createViews) << c.templateName;
        auto views = c.make.createViews(*doc);
        // A split frame has two panes; a single one holds its report.
        ASSERT_EQ(views.size(), c.frame == FrameKind::Split ? 2u : 1u) << c.templateName;
        auto* report = dynamic_cast<CTextView*>(views.back().get());
        if (report) {
            EXPECT_EQ(report->GetDocument(), doc.get()) << c.templateName;
        }
        // A split frame's first pane is the graph; a single frame holds a report, or the bar chart's graph.
        const bool graphOnly = std::string(c.viewClass) == "CBarchartView";
        EXPECT_EQ(dynamic_cast<CTextView*>(views.front().get()) != nullptr, c.frame == FrameKind::Single && !graphOnly)
            << c.templateName;
        // A command that writes a file names the field its extension goes to.
        if (c.make.outputFile) {
            EXPECT_NE(c.make.outputFile(*dlg), nullptr) << c.templateName;
            EXPECT_NE(c.defaultExt, nullptr) << c.templateName;
        }
    }
    EXPECT_EQ(built, 16);
}

// The stand-in analysis: a single-file dialog with an output file, a document
// whose initialiser result the test chooses, and a report view.
struct Script {
    int validate = 0;
    int initResult = 0;
    bool docShowsOwnMessage = false;
    int documentsMade = 0;
    int documentsAlive = 0;
};
Script g_script;

class CStandInDlg : public CBaseDlg {
public:
    int Validate(int*) override { return g_script.validate; }
    std::string m_strOutput;
};

class CStandInDoc : public CBaseFileDoc {
public:
    CStandInDoc() {
        ++g_script.documentsMade;
        ++g_script.documentsAlive;
    }
    ~CStandInDoc() override { --g_script.documentsAlive; }
    int InitFromDialog(CDialog& dlg) override {
        if (auto* d = dynamic_cast<CStandInDlg*>(&dlg)) {
            m_file = d->m_strFile;
            m_output = d->m_strOutput;
        }
        if (g_script.initResult && g_script.docShowsOwnMessage) AfxMessageBox(g_script.initResult);
        return g_script.initResult;
    }
    std::string m_file, m_output;
};

class CStandInView : public CTextView {
public:
    void WriteReport(FILE* stream) override {
        auto* doc = static_cast<CStandInDoc*>(GetDocument());
        std::fprintf(stream, "report on %s into %s\n", doc->m_file.c_str(), doc->m_output.c_str());
    }
};

class CStandInListDlg : public CBaseMultiDlg {
public:
    int Validate(int*) override { return 0; }
};

// Rows of the command table with the stand-in analysis in place of their own.
GroupCommand StandIn(const char* exportName, AnalysisFactory make) {
    GroupCommand row = *grp_FindCommand(exportName);
    row.make = make;
    return row;
}

class CommandFlow : public ::testing::Test {
protected:
    void SetUp() override {
        g_script = Script{};
        InitOutputProcessor2(&m_app);
        m_host.onDialog = [this](CDialog& d) {
            if (auto* dlg = dynamic_cast<CStandInDlg*>(&d)) {
                m_seenFile = dlg->m_strFile;
                if (!m_file.empty()) dlg->m_strFile = m_file;
                if (!m_output.empty()) dlg->m_strOutput = m_output;
            }
            return dlg_ValidateOnOK(d) == 0 ? IDOK : IDCANCEL;
        };
    }
    void TearDown() override { ShutdownOutputProcessor(); }

    int Filter(COutputView* view = nullptr) { return grp_RunCommand(m_filter, view); }

    const AnalysisFactory m_single = grp_Analysis<CStandInDlg, CStandInDoc, CStandInView>(
        grp_OutputField<CStandInDlg, &CStandInDlg::m_strOutput>);
    const GroupCommand m_filter = StandIn("g_OnFilter", m_single);
    const GroupCommand m_append = StandIn("g_OnAppend", m_single);
    const GroupCommand m_table = StandIn("g_OnTable", grp_Analysis<CStandInListDlg, CStandInDoc>());
    CWinApp m_app;
    RecordingHost m_host;
    ScopedHost m_scope{&m_host};
    std::string m_file = "/data/waits.dat", m_output, m_seenFile;
};

TEST_F(CommandFlow, SuccessMakesOneTitledFrameWithTheReport) {
    m_output = "batched.flt";
    EXPECT_EQ(Filter(), 0);
    ASSERT_EQ(m_host.frames.size(), 1u);
    const CDocFrame& frame = *m_host.frames[0];
    EXPECT_EQ(frame.GetWindowText(), "Batch/Truncate - waits.dat");
    EXPECT_EQ(frame.FrameClass(), "CBaseWnd");
    ASSERT_EQ(frame.Views().size(), 1u);
    auto* view = dynamic_cast<CTextView*>(frame.Views()[0].get());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetText(), "report on /data/waits.dat into batched.flt\n");
    EXPECT_TRUE(m_host.messages.empty());
    m_host.frames.clear();
    EXPECT_EQ(g_script.documentsAlive, 0);
}

TEST_F(CommandFlow, FailingInitialiserShowsItsMessageOnceAndMakesNoWindow) {
    for (bool docShows : {false, true}) {
        m_host.messages.clear();
        g_script.initResult = 15931;
        g_script.docShowsOwnMessage = docShows;
        EXPECT_EQ(Filter(), 15931);
        ASSERT_EQ(m_host.messages.size(), 1u) << docShows;
        EXPECT_EQ(m_host.messages[0].text, "No observations found");
        EXPECT_TRUE(m_host.frames.empty());
        EXPECT_EQ(g_script.documentsAlive, 0);
    }
}

TEST_F(CommandFlow, DialogKeepsItsEntriesForTheWholeRun) {
    m_output = "first.flt";
    EXPECT_EQ(Filter(), 0);
    CDialog* first = m_app.GetDialog("BatchTruncate");
    ASSERT_NE(first, nullptr);
    m_file.clear();
    m_output.clear();
    EXPECT_EQ(Filter(), 0);
    EXPECT_EQ(m_app.GetDialog("BatchTruncate"), first);
    EXPECT_EQ(m_seenFile, "/data/waits.dat");
    EXPECT_EQ(static_cast<CStandInDlg*>(first)->m_strOutput, "first.flt");
    // Another command has a dialog of its own.
    EXPECT_EQ(grp_RunCommand(m_append, nullptr), 0);
    EXPECT_NE(m_app.GetDialog("Append"), first);
}

TEST_F(CommandFlow, OutputNameWithoutExtensionGetsTheCommandsOwn) {
    struct Case {
        const GroupCommand& command;
        const char* typed;
        const char* used;
    };
    const Case cases[] = {
        {m_filter, "means", "means.flt"},
        {m_append, "all", "all.dat"},
        {m_filter, "means.out", "means.out"},
        {m_filter, "dir.v2/means", "dir.v2/means.flt"},
    };
    for (const Case& c : cases) {
        m_output = c.typed;
        ASSERT_EQ(grp_RunCommand(c.command, nullptr), 0);
        auto* view = dynamic_cast<CTextView*>(m_host.frames.back()->Views()[0].get());
        EXPECT_EQ(view->GetText(), "report on /data/waits.dat into " + std::string(c.used) + "\n");
    }
}

TEST_F(CommandFlow, DialogStartsFromTheGroupsSelection) {
    COutputDoc doc;
    doc.OnNewDocument();
    auto item = std::make_unique<CDGItem>();
    item->m_strPath = "/runs/queue.dat";
    doc.InsertItem(0, std::move(item));
    COutputView view(&doc);
    view.OnUpdate();
    view.SetSelection(0);
    m_file.clear();
    EXPECT_EQ(Filter(&view), 0);
    EXPECT_EQ(m_seenFile, "/runs/queue.dat");
    EXPECT_EQ(m_host.frames.back()->GetWindowText(), "Batch/Truncate - queue.dat");
}

TEST_F(CommandFlow, FileListCaptionIsTheTitleOrTheFirstFile) {
    m_host.onDialog = [](CDialog& d) {
        auto& dlg = dynamic_cast<CStandInListDlg&>(d);
        dlg.m_items.clear();
        dlg.AddFile("/x/served.dat", "All");
        dlg.AddFile("/x/waits.dat", "");
        return IDOK;
    };
    EXPECT_EQ(grp_RunCommand(m_table, nullptr), 0);
    EXPECT_EQ(m_host.frames.back()->GetWindowText(), "Tables - served.dat");
    static_cast<CStandInListDlg*>(m_app.GetDialog("Table"))->m_strTitle = "Busy period";
    m_host.onDialog = [](CDialog&) { return IDOK; };
    EXPECT_EQ(grp_RunCommand(m_table, nullptr), 0);
    EXPECT_EQ(m_host.frames.back()->GetWindowText(), "Tables - Busy period");
    EXPECT_EQ(m_host.frames.back()->FrameClass(), "CBaseWnd");
}

TEST_F(CommandFlow, AnalysisNotBuiltSaysSoAndRunsNothing) {
    EXPECT_EQ(g_OnDiffile(nullptr), -1);
    EXPECT_EQ(m_host.dialogsRun, 0);
    ASSERT_EQ(m_host.messages.size(), 1u);
    EXPECT_EQ(m_host.messages[0].text, "DIF File is not available in this version of oproc.");
}

TEST_F(CommandFlow, WithoutStartUpNothingRuns) {
    ShutdownOutputProcessor();
    EXPECT_EQ(Filter(), -1);
    EXPECT_EQ(m_host.dialogsRun, 0);
    EXPECT_EQ(m_host.messages.size(), 1u);
}

}  // namespace
