// The report fill: report into the temporary file, back into the view, file
// deleted; the cut on hosts whose edit control holds 32767 characters.
#include "report/TextView.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <vector>

#include "framework/Config.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "series/FiltrFiles.h"

namespace {

namespace fs = std::filesystem;

class RecordingHost : public IHost {
public:
    int ShowMessage(int id, const std::string&, unsigned) override {
        ids.push_back(id);
        return IDOK;
    }
    std::vector<int> ids;
};

class FixedView : public CTextView {
public:
    explicit FixedView(std::string text) : m_report(std::move(text)) {}
    void WriteReport(FILE* f) override { std::fwrite(m_report.data(), 1, m_report.size(), f); }

private:
    std::string m_report;
};

// Every case runs in its own folder: the temporary name is fixed, and test
// processes may run side by side.
class TextFill : public ::testing::Test {
protected:
    void SetUp() override {
        m_old = fs::current_path();
        fs::current_path(m_dir.path());
    }
    void TearDown() override {
        fs::current_path(m_old);
        cfg_SetWin95ForTesting(0);
    }
    bool TempFileLeft() const { return fs::exists(m_dir.path() / kReportTempFile); }

    filtr_test::ScratchDir m_dir;
    fs::path m_old;
    RecordingHost m_host;
    ScopedHost m_scope{&m_host};
};

std::string Lines(std::size_t bytes) {
    // 40-byte lines numbered so that a shifted or repeated piece shows.
    std::string text;
    for (int i = 0; text.size() < bytes; ++i) {
        char line[41];
        std::snprintf(line, sizeof line, "%039d\n", i);
        text += line;
    }
    text.resize(bytes);
    return text;
}

// A host whose control holds 32767 characters takes exactly that much without
// a message and cuts a longer report with one; the file is always deleted.
TEST_F(TextFill, ReportWholeOrCutByHost) {
    struct Case {
        int limitedHost;
        std::size_t size, shown;
        std::vector<int> messages;
    } cases[] = {
        {0, 0, 0, {}},
        {0, 40000, 40000, {}},
        {1, 32767, 32767, {}},
        {1, 40000, 32767, {IDS_TEXT_TOO_LONG}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.size);
        m_host.ids.clear();
        cfg_SetWin95ForTesting(c.limitedHost);
        const std::string report = Lines(c.size);
        FixedView view(report);
        EXPECT_EQ(view.OnInitialUpdate(), c.messages.empty() ? 0 : c.messages[0]);
        EXPECT_EQ(view.GetText(), report.substr(0, c.shown));
        EXPECT_EQ(m_host.ids, c.messages);
        EXPECT_FALSE(TempFileLeft());
    }
}

TEST_F(TextFill, TemporaryFileBlockedGives15945AndEmptyView) {
    // A folder under the temporary name cannot be opened for writing, even by root.
    fs::create_directory(kReportTempFile);
    FixedView view("some report\n");
    EXPECT_EQ(view.OnInitialUpdate(), IDS_TEMP_FILE_ERROR);
    EXPECT_EQ(view.GetText(), "");
    EXPECT_EQ(m_host.ids, std::vector<int>{IDS_TEMP_FILE_ERROR});
    EXPECT_TRUE(fs::is_directory(kReportTempFile));
}

TEST_F(TextFill, ReadOnlyCurrentFolderGives15945) {
    fs::permissions(m_dir.path(), fs::perms::owner_read | fs::perms::owner_exec);
    if (::access(".", W_OK) == 0) GTEST_SKIP() << "permissions do not bind this user";
    FixedView view("some report\n");
    EXPECT_EQ(view.OnInitialUpdate(), IDS_TEMP_FILE_ERROR);
    EXPECT_EQ(view.GetText(), "");
    EXPECT_EQ(m_host.ids, std::vector<int>{IDS_TEMP_FILE_ERROR});
}

TEST_F(TextFill, UserFileOfTheTemporaryNameIsReplacedAndRemoved) {
    { std::ofstream(kReportTempFile) << "a user's own file that is much longer than the report\n"; }
    FixedView view("short\n");
    view.OnInitialUpdate();
    EXPECT_EQ(view.GetText(), "short\n");
    EXPECT_FALSE(TempFileLeft());
}

TEST_F(TextFill, FilledTextEqualsTheStreamedReport) {
    // The command line streams the report; the window goes through the file.
    FixedView view(Lines(1000) + "last line without end");
    view.OnInitialUpdate();
    EXPECT_TRUE(view.IsReadOnly());
    EXPECT_EQ(view.GetText(), txt_ReportText(view));
}

}  // namespace
