// A host's session: start-up and shutdown around it, the data group opened
// without moving the current folder, and a command run with a dialog filler
// handing its window to the host.
#include "group/Session.h"

#include <gtest/gtest.h>

#include "group/GroupTestFiles.h"
#include "group/OutputDoc.h"
#include "group/RecordingHost.h"
#include "report/TextView.h"
#include "stats/IntrvlDlg.h"

namespace {

TEST(Session, RunsACommandWithAFillerAndHandsOverItsWindow) {
    TempDir dir;
    std::string data = dir.Path("w.dat");
    grp_test_WriteDataFile(data, 3, 2, "Waits");
    RecordingHost host;
    {
        CSession session(host);
        EXPECT_EQ(session.App().GetDocTemplates().size(), 19u);
        auto fill = [&data](CDialog& d) {
            dynamic_cast<CIntrvlDlg&>(d).AddFile(data, "All");
            return true;
        };
        ASSERT_EQ(session.RunCommand("g_OnInterval", fill), 0);
        ASSERT_EQ(host.frames.size(), 1u);
        const CDocFrame& frame = *host.frames[0];
        EXPECT_EQ(frame.GetWindowText(), "Classical C.I. On Mean - w.dat");
        EXPECT_EQ(frame.FrameClass(), "CBaseWndSplit");
        ASSERT_EQ(frame.Views().size(), 2u);
        EXPECT_NE(dynamic_cast<CTextView&>(*frame.Views()[1]).GetText().find("w.dat@2"), std::string::npos);

        // A filler that gives up cancels; a failed check is shown and cancels too.
        EXPECT_EQ(session.RunCommand("g_OnInterval", [](CDialog&) { return false; }), 0);
        EXPECT_EQ(session.RunCommand("g_OnSdinterval", [](CDialog&) { return true; }), 0);
        EXPECT_EQ(host.frames.size(), 1u);
        ASSERT_EQ(host.messages.size(), 1u);
        EXPECT_EQ(host.messages[0].id, 15814);
        EXPECT_EQ(session.RunCommand("g_OnNothing"), -1);
    }
    // Shutdown took the templates and the host away.
    EXPECT_EQ(AfxGetApp(), nullptr);
    EXPECT_NE(&host_Get(), &host);
}

TEST(Session, OpensAGroupWhereItIs) {
    KeepCurrentDir keep;
    TempDir dir;
    std::filesystem::create_directories(dir.Dir() / "runs");
    grp_test_WriteDataFile(dir.Path("runs/w.dat"), 3, 2, "Waits");
    RecordingHost host;
    CSession session(host);
    {
        COutputDoc doc;
        doc.OnNewDocument();
        doc.InsertItem(0, std::make_unique<CDGItem>());
        doc.GetItem(0)->m_strPath = "w.dat";
        ASSERT_TRUE(doc.OnSaveDocument(dir.Path("runs/g.dgr").c_str()));
    }
    std::filesystem::current_path(dir.Dir());
    ASSERT_EQ(session.OpenGroup("runs/g.dgr"), 0);
    EXPECT_EQ(std::filesystem::current_path(), std::filesystem::canonical(dir.Dir()));
    // The item keeps its relative path and is read from the group's folder.
    EXPECT_EQ(session.Group().DescribeItem(0, true), 0);
    EXPECT_EQ(session.Group().GetItem(0)->m_strDescription, "w.dat, 2, Tally, Waits");
    EXPECT_EQ(session.OpenGroup("none.dgr"), 15811);
    ASSERT_EQ(host.messages.size(), 1u);
}

}  // namespace
