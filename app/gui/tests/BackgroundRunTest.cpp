// Long work off the GUI thread: the work's messages and windows reach the
// program's host on the GUI thread; Cancel in the progress dialog stops the
// core's read where it stands and the work ends quietly; and the program then
// runs an analysis as before.
#include <QAbstractButton>
#include <QApplication>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>
#include <QtTest>

#include <string>
#include <vector>

#include "BackgroundRun.h"
#include "TestFiles.h"
#include "datafile/RecordReader.h"
#include "dialog/FileDialogs.h"
#include "framework/Frame.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "group/CommandTable.h"
#include "group/Commands.h"
#include "group/Session.h"

namespace {

// The program's host as the test sees it: what reached it, and whether all of
// it came on the GUI thread.
class Program : public IHost {
public:
    int ShowMessage(int, const std::string& text, unsigned) override {
        Seen();
        messages.push_back(text);
        return IDOK;
    }
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override {
        Seen();
        captions.push_back(frame->GetWindowText());
    }
    std::vector<std::string> messages;
    std::vector<std::string> captions;
    bool onGuiThread = true;

private:
    void Seen() { onGuiThread = onGuiThread && QThread::currentThread() == QCoreApplication::instance()->thread(); }
};

// Plays the user who presses Cancel as soon as the progress dialog shows.
class Canceller : public QObject {
public:
    Canceller() {
        connect(&m_timer, &QTimer::timeout, this, [] {
            for (QWidget* w : QApplication::topLevelWidgets())
                if (auto* dialog = qobject_cast<QProgressDialog*>(w); dialog && dialog->isVisible())
                    if (auto* button = dialog->findChild<QAbstractButton*>()) button->click();
        });
        m_timer.start(5);
    }

private:
    QTimer m_timer;
};

}  // namespace

class BackgroundRunTest : public QObject {
    Q_OBJECT
private slots:
    void cancelsALongReadAndRunsTheNext();
};

void BackgroundRunTest::cancelsALongReadAndRunsTheNext() {
    TempDir dir;
    const std::string path = dir.Path("long.dat");
    // 200 000 observations: 3.2 MB, four blocks of the reader, each a report.
    std::vector<Rec> records;
    for (int i = 0; i < 200000; ++i) records.push_back({static_cast<double>(i), static_cast<double>(i % 7)});
    records.push_back({-1.0, -1.0});
    test_WriteDataFile(path, HeaderFields{}, records);

    Program program;
    CSession session(program);

    // A read that only the user stops: pass after pass over the file (the
    // bound turns a cancel that never arrives into a failure, not a hang).
    constexpr int kMaxPasses = 20000;
    int passes = 0;
    bool readFailed = false, cancelled = false;
    int rc = 0;
    {
        Canceller user;
        rc = gui_RunInBackground(
            nullptr,
            [&] {
                AfxMessageBox("Reading long.dat");
                CRecordReader in;
                if (in.Open(path)) return -1;
                for (; passes < kMaxPasses && !in.Failed(); ++passes) {
                    in.Start(1);
                    in.SkipPass();
                }
                readFailed = in.Failed();
                // What a document says after a failed read: nobody is to see it.
                AfxMessageBox(IDS_READ_ERROR);
                return readFailed ? IDS_READ_ERROR : 0;
            },
            BackgroundOptions{0}, &cancelled);
    }
    QVERIFY(cancelled);
    QVERIFY(readFailed);
    QVERIFY(passes < kMaxPasses);
    QCOMPARE(rc, IDS_READ_ERROR);
    QCOMPARE(program.messages, std::vector<std::string>{"Reading long.dat"});
    QCOMPARE(&host_Get(), static_cast<IHost*>(&program));

    // The next command runs to its window, made on the worker and shown here.
    const GroupCommand* interval = grp_FindCommand("g_OnInterval");
    QVERIFY(interval);
    std::unique_ptr<CDialog> dlg = interval->make.createDialog();
    dynamic_cast<CBaseMultiDlg&>(*dlg).AddFile(path, "All");
    rc = gui_RunInBackground(nullptr, [&] { return grp_OpenAnalysis(*interval, *dlg); }, {}, &cancelled);
    QCOMPARE(rc, 0);
    QVERIFY(!cancelled);
    QCOMPARE(program.captions.size(), std::size_t{1});
    QVERIFY(program.captions[0].starts_with(msg_Text(interval->titleId)));
    QCOMPARE(program.messages.size(), std::size_t{1});
    QVERIFY(program.onGuiThread);
}

QTEST_MAIN(BackgroundRunTest)
#include "BackgroundRunTest.moc"
