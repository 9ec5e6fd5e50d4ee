// A host's session: start-up and shutdown around it, and a command run with a
// dialog filler handing its window to the host.
#include "group/Session.h"

#include <gtest/gtest.h>

#include "group/GroupTestFiles.h"
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
        ASSERT_FALSE(host.messages.empty());
        EXPECT_EQ(host.messages[0].id, 15814);
        EXPECT_EQ(session.RunCommand("g_OnNothing"), -1);
        EXPECT_EQ(session.OpenGroup(dir.Path("none.dgr")), 15811);
    }
    // Shutdown took the templates and the host away.
    EXPECT_EQ(AfxGetApp(), nullptr);
    EXPECT_NE(&host_Get(), &host);
}

}  // namespace
