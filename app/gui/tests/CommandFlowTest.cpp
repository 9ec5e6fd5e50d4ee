// Commands run as a user runs them: the Analysis menu's action, the dialog
// (filled here as a user would type), OK, and the window the command opens.
// The dialog's entries must reach the core's dialog object, the window must
// show the report the core writes for those entries, a bad entry must give
// the system's message with the focus on the field, and the dialog must open
// again with the last entries, in this run and in the next.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <deque>
#include <functional>
#include <sstream>

#include "CommandDialog.h"
#include "DialogSettings.h"
#include "FileListWidget.h"
#include "FrameWidget.h"
#include "GroupWindow.h"
#include "MainWindow.h"
#include "QtHost.h"
#include "TestFiles.h"
#include "dialog/FileDialogs.h"
#include "framework/Frame.h"
#include "group/CommandTable.h"
#include "group/Commands.h"
#include "group/Session.h"
#include "report/PagedReport.h"
#include "report/TextView.h"
#include "convert/ConvertDlgs.h"
#include "stats/IntrvlDlg.h"

namespace {

using Step = std::function<void(CommandDialog&)>;

// Plays the user at the modal windows: each time a command dialog comes up the
// next step edits it (and presses OK or Cancel); message boxes are read and
// closed with OK.
class User : public QObject {
public:
    explicit User(std::deque<Step> steps) : m_steps(std::move(steps)) {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                messages << box->text();
                box->button(QMessageBox::Ok)->click();
            } else if (auto* dialog = qobject_cast<CommandDialog*>(modal); dialog && dialog != m_busy) {
                // The step runs outside this timer's slot: a message box it
                // brings up must find the timer running.
                m_busy = dialog;
                QMetaObject::invokeMethod(
                    dialog,
                    [this, dialog] {
                        m_busy = nullptr;
                        if (m_steps.empty()) {
                            dialog->reject();
                            return;
                        }
                        Step step = std::move(m_steps.front());
                        m_steps.pop_front();
                        step(*dialog);
                    },
                    Qt::QueuedConnection);
            }
        });
        m_timer.start(5);
    }
    QStringList messages;

private:
    std::deque<Step> m_steps;
    QTimer m_timer;
    CommandDialog* m_busy = nullptr;
};

void SetText(CommandDialog& d, const char* key, const QString& text) {
    QWidget* w = d.FieldWidget(QString::fromLatin1(key));
    QVERIFY2(w, key);
    if (auto* box = qobject_cast<QComboBox*>(w)) box->setEditText(text);
    if (auto* edit = qobject_cast<QLineEdit*>(w)) edit->setText(text);
}

QString Text(CommandDialog& d, const char* key) {
    QWidget* w = d.FieldWidget(QString::fromLatin1(key));
    if (auto* box = qobject_cast<QComboBox*>(w)) return box->currentText();
    if (auto* edit = qobject_cast<QLineEdit*>(w)) return edit->text();
    return {};
}

FileListWidget* FileList(CommandDialog& d) { return static_cast<FileListWidget*>(d.FieldWidget(QStringLiteral("files"))); }

void SetRows(CommandDialog& d, const QList<QStringList>& rows) { FileList(d)->SetRows(rows); }

QList<QStringList> Rows(CommandDialog& d) { return FileList(d)->Rows(); }

QString FocusName(CommandDialog& d) {
    QWidget* w = d.focusWidget();
    // A combo box's line edit stands for the combo box; a table for its list.
    while (w && w->objectName().isEmpty()) w = w->parentWidget();
    return w ? w->objectName() : QString();
}

QAction* MenuAction(MainWindow& window, const char* exportName) {
    for (QAction* a : window.AnalysisMenu()->actions())
        if (a->data().toString() == QLatin1String(exportName)) return a;
    return nullptr;
}

}  // namespace

class CommandFlowTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase();
    void runsFromTheMenu_data();
    void runsFromTheMenu();
    void reopensWithTheLastEntries();
    void everyCommandHasItsMenuItem();

private:
    // The group window of the test's files, in a fresh main window.
    GroupWindow* OpenGroup(MainWindow& window);

    TempDir m_dir;
    QString m_a, m_b, m_damaged, m_text, m_exported;
    QtHost m_host;
    std::unique_ptr<CSession> m_session;
    MainWindow* m_window = nullptr;
};

void CommandFlowTest::initTestCase() {
    QStandardPaths::setTestModeEnabled(true);
    QSettings().clear();
    // Two tally files of two replications; their figures do not matter here.
    auto reps = [](double base) {
        std::vector<std::vector<Rec>> r(2);
        for (int i = 0; i < 30; ++i) {
            r[0].push_back({i + 1.0, base + (i * 7 % 11)});
            r[1].push_back({i + 1.0, base + (i * 5 % 13)});
        }
        return test_Replications(r);
    };
    m_a = QString::fromStdString(m_dir.Path("a.dat"));
    m_b = QString::fromStdString(m_dir.Path("b.dat"));
    m_damaged = QString::fromStdString(m_dir.Path("damaged.dat"));
    test_WriteDataFile(m_a.toStdString(), HeaderFields{}, reps(10.0));
    test_WriteDataFile(m_b.toStdString(), HeaderFields{}, reps(12.0));
    test_WriteBytes(m_damaged.toStdString(), "not a data file\n");
    // The sources of the two conversions that read text.
    m_text = QString::fromStdString(m_dir.Path("arrivals.txt"));
    test_WriteBytes(m_text.toStdString(), "1 4\n2.5 6\n4 5\n\n1 3\n2 7\n");
    m_exported = QString::fromStdString(m_dir.Path("b.dax"));
    m_session = std::make_unique<CSession>(m_host);
    CExprtDlg exportB;
    exportB.m_strFile = m_b.toStdString();
    exportB.m_strOutFile = m_exported.toStdString();
    m_host.SetFrameSink([](std::unique_ptr<CDocFrame>) {});
    QCOMPARE(grp_OpenAnalysis(*grp_FindCommand("g_OnExport"), exportB), 0);
    m_window = new MainWindow;
    m_host.SetParentWindow(m_window);
    m_host.SetFrameSink([this](std::unique_ptr<CDocFrame> frame) { m_window->AddFrame(std::move(frame)); });
    m_window->show();
    GroupWindow* group = m_window->NewGroup();
    User user({});
    group->AddFiles({m_a, m_b, m_damaged});
}

void CommandFlowTest::cleanupTestCase() {
    m_host.SetFrameSink(nullptr);
    delete m_window;
    m_session.reset();
}

void CommandFlowTest::runsFromTheMenu_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("badEntry");       // a step that OK refuses...
    QTest::addColumn<QString>("message");        // ...with this message
    QTest::addColumn<QString>("focus");          // ...and the focus here ("" where it stays)
    QTest::addColumn<QString>("caption");        // the window after the good entries (%a: file a)
    // The bad entries and their messages and focus come from the dialogs' checks.
    QTest::newRow("interval") << "g_OnInterval" << "level:abc"
                              << "Confidence level value must be >= 0 and <= 100"
                              << "level"
                              << "Classical C.I. On Mean - Waits";
    QTest::newRow("interval of a damaged file")
        << "g_OnInterval" << "files:damaged"
        << "Invalid data file.\n\nPossible causes:\n    Not an Molvex/ZEMIQ-generated data file;\n"
           "    Empty file caused by abnormal exit of Molvex/ZEMIQ."
        << ""
        << "Classical C.I. On Mean - Waits";
    QTest::newRow("interval of a missing file") << "g_OnInterval" << "files:missing" << "File not found"
                                                << "files"
                                                << "Classical C.I. On Mean - Waits";
    QTest::newRow("comparison") << "g_OnComparison" << "level:2"
                                << "Confidence level value must be >= 0 and <= 100"
                                << "level"
                                << "Compare Means - Waits";
    QTest::newRow("variances") << "g_OnVartest" << "level:2" << "Confidence level value must be >= 0 and <= 100"
                               << "level"
                               << "Compare Variances - Waits";
    QTest::newRow("anova") << "g_OnOneway" << "level:abc" << "Confidence level value must be >= 0 and <= 100"
                           << "level"
                           << "One-Way ANOVA - Waits";
    QTest::newRow("sd intervals") << "g_OnSdinterval" << "level:abc" << "Confidence level value must be >= 0 and <= 100"
                                  << "level"
                                  << "Standard Deviation Intervals - Waits";
    QTest::newRow("standardized") << "g_OnStdinterval" << "level:-1"
                                  << "Confidence level value must be >= 0 and <= 100"
                                  << "level"
                                  << "Standardized Time Series Intervals - Waits";
    QTest::newRow("correlogram") << "g_OnCorrelogram" << "maxLags:0" << "Maximum Lags must be greater than 0"
                                 << "maxLags"
                                 << "Correlogram - a.dat";
    QTest::newRow("plot") << "g_OnPlot" << "endTime:-3"
                          << "Invalid ending time.\nMust be non-negative numeric quantity."
                          << "endTime"
                          << "Plot - %a";
    QTest::newRow("batch/truncate") << "g_OnFilter" << "reps:many" << "Invalid replication treatment"
                                    << "reps"
                                    << "Batch/Truncate - a.dat";
    QTest::newRow("histogram") << "g_OnHistogram" << "cellCount:0" << "Please enter an integer between 1 and 200."
                               << "cellCount"
                               << "Histogram - a.dat";
    QTest::newRow("moving average") << "g_OnMovingAverage" << "window:1.5" << "Please enter an integer."
                                    << "window"
                                    << "Moving Average - a.dat";
    QTest::newRow("table") << "g_OnTable" << "first:0" << "Invalid numeric field"
                           << "first"
                           << "Tables - Waits";
    QTest::newRow("barchart") << "g_OnBarchart" << "beginTime:-2"
                              << "Invalid beginning time.\nMust be non-negative numeric quantity."
                              << "beginTime"
                              << "Barchart - %a";
    QTest::newRow("export") << "g_OnExport" << "outFile:%a"
                            << "Invalid output file specified.  Output file can't be the same as the input file."
                            << "outFile"
                            << "Export - a.dat";
    QTest::newRow("import") << "g_OnImport" << "source:missing.dax" << "File not found"
                            << "source"
                            << "Import File - b.dax";
    QTest::newRow("load") << "g_OnLoad" << "kind:8" << "Data kind must be a whole number from 1 to 7."
                          << "kind"
                          << "ASCII Load File - arrivals.txt";
    QTest::newRow("dif") << "g_OnDiffile" << "outFile:%a"
                         << "Invalid output file specified.  Output file can't be the same as the input file."
                         << "outFile"
                         << "DIF File - a.dat";
    // Last: it extends file b.
    QTest::newRow("append") << "g_OnAppend" << "outFile:missing.dat" << "File not found"
                            << "outFile"
                            << "Append - a.dat";
}

void CommandFlowTest::runsFromTheMenu() {
    QFETCH(QString, command);
    QFETCH(QString, badEntry);
    QFETCH(QString, message);
    QFETCH(QString, focus);
    QFETCH(QString, caption);
    const QString badKey = badEntry.section(u':', 0, 0);
    const QString badText = badEntry.section(u':', 1).replace(QStringLiteral("%a"), m_a);

    // The entries of a user who wants the waits of both files (or of file a),
    // or who converts the text files into new data files.
    auto good = [this, &command](CommandDialog& d) {
        auto has = [&d](const char* key) { return d.FieldWidget(QString::fromLatin1(key)) != nullptr; };
        if (has("source")) {
            SetText(d, "source", has("kind") ? m_text : m_exported);
            SetText(d, "outFile", QFileInfo(m_text).dir().filePath(has("kind") ? "loaded.dat" : "imported.dat"));
            if (has("kind")) SetText(d, "kind", QStringLiteral("3"));
        } else if (has("file")) {
            SetText(d, "file", m_a);
            if (has("reps")) SetText(d, "reps", QStringLiteral("1"));
            if (has("outFile")) SetText(d, "outFile", command == QStringLiteral("g_OnAppend") ? m_b : QString());
        } else if (FileList(d)->Table()->columnCount() == 4) {
            SetRows(d, {{m_a, QStringLiteral("All"), m_b, QStringLiteral("All")}});
        } else {
            SetRows(d, {{m_a, QStringLiteral("All")}, {m_b, QStringLiteral("Lumped")}});
        }
        if (has("title") && !has("source")) SetText(d, "title", QStringLiteral("Waits"));
        for (const char* key : {"cellCount", "first", "beginTime"})
            if (has(key)) SetText(d, key, QString());
        if (has("window")) SetText(d, "window", QStringLiteral("3"));
        if (d.FieldWidget(QStringLiteral("maxLags"))) SetText(d, "maxLags", QStringLiteral("5"));
        if (d.FieldWidget(QStringLiteral("level"))) SetText(d, "level", QStringLiteral("0.95"));
        if (d.FieldWidget(QStringLiteral("endTime"))) SetText(d, "endTime", QString());
    };
    QString focused;
    int failingRow = -1;
    User user({[&](CommandDialog& d) {
                   good(d);
                   if (badKey == QStringLiteral("files"))
                       SetRows(d, {{m_a, QStringLiteral("All")}, {QFileInfo(m_damaged).dir().filePath(badText + ".dat"), QString()}});
                   else
                       SetText(d, qPrintable(badKey), badText);
                   d.accept();
               },
               [&](CommandDialog& d) {
                   focused = FocusName(d);
                   if (badKey == QStringLiteral("files")) failingRow = FileList(d)->Table()->currentRow();
                   good(d);
                   d.accept();
               }});
    const int before = m_window->Area()->subWindowList().size();
    m_window->Area()->setActiveSubWindow(m_window->Area()->subWindowList().first());
    QAction* action = MenuAction(*m_window, qPrintable(command));
    QVERIFY(action && action->isEnabled());
    action->trigger();

    QCOMPARE(user.messages, QStringList{message});
    if (!focus.isEmpty()) QCOMPARE(focused, focus);
    if (focus == QStringLiteral("files")) QCOMPARE(failingRow, 1);
    const QList<QMdiSubWindow*> windows = m_window->Area()->subWindowList();
    QCOMPARE(windows.size(), before + 1);
    auto* frame = qobject_cast<FrameWidget*>(windows.last()->widget());
    QVERIFY(frame);
    // The subject is the core's choice: the title, the file's name or its path.
    QCOMPARE(frame->Caption(), QString(caption).replace(QStringLiteral("%a"), m_a));

    // A second run of append would extend file b again: its summary is the document's test.
    if (command == QStringLiteral("g_OnAppend")) {
        QVERIFY(frame->ReportText().find("Append Summary") != std::string::npos);
        return;
    }
    // The window shows what the core reports for the entries the dialog object now holds.
    const GroupCommand* row = grp_FindCommand(command.toStdString());
    CDialog* dlg = m_session->App().GetDialog(row->templateName);
    QVERIFY(dlg);
    std::string coreReport;
    m_host.SetFrameSink([&](std::unique_ptr<CDocFrame> f) {
        // As the terminal prints it: a table's window holds only its heading.
        std::ostringstream out;
        for (const auto& v : f->Views()) {
            if (auto* paged = dynamic_cast<CPagedReport*>(v.get()))
                QCOMPARE(paged->WriteAll(out, ReportFormat::Text), 0);
            else if (const auto* text = dynamic_cast<const CTextView*>(v.get()))
                out << text->GetText();
        }
        coreReport = out.str();
    });
    QCOMPARE(grp_OpenAnalysis(*row, *dlg), 0);
    m_host.SetFrameSink([this](std::unique_ptr<CDocFrame> f) { m_window->AddFrame(std::move(f)); });
    QCOMPARE(frame->ReportText(), coreReport);
    // Split windows hold a graph; of the single ones only the bar chart draws.
    QCOMPARE(frame->HasGraph(), row->frame == FrameKind::Split || command == QStringLiteral("g_OnBarchart"));
    if (command == QStringLiteral("g_OnTable")) QVERIFY(frame->Table());
    // Copy Report takes the whole of it, a table's rows included.
    if (frame->HasReport()) {
        m_window->Area()->setActiveSubWindow(windows.last());
        m_window->CopyReport();
        QCOMPARE(QApplication::clipboard()->text().toStdString(), coreReport);
    }
}

void CommandFlowTest::reopensWithTheLastEntries() {
    // In this run: the dialog object is kept, the window shows its entries.
    QList<QStringList> seen;
    QString title, level;
    User user({[&](CommandDialog& d) {
                   SetRows(d, {{m_b, QStringLiteral("2")}});
                   SetText(d, "title", QStringLiteral("Second run"));
                   SetText(d, "level", QStringLiteral("90"));
                   d.accept();
               },
               [&](CommandDialog& d) {
                   seen = Rows(d);
                   title = Text(d, "title");
                   level = Text(d, "level");
                   d.reject();
               }});
    m_window->Area()->setActiveSubWindow(m_window->Area()->subWindowList().first());
    MenuAction(*m_window, "g_OnInterval")->trigger();
    MenuAction(*m_window, "g_OnInterval")->trigger();
    QCOMPARE(seen, (QList<QStringList>{{m_b, QStringLiteral("2")}}));
    QCOMPARE(title, QStringLiteral("Second run"));
    QCOMPARE(level, QStringLiteral("90"));

    // In the next run: a new program's dialog object starts from the saved entries.
    CIntrvlDlg next;
    QSettings settings;
    gui_LoadDialog(QStringLiteral("Intervals"), next, settings);
    QCOMPARE(next.m_items.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(next.m_items[0].m_strPath), m_b);
    QCOMPARE(next.m_items[0].m_nTreatment, 2);
    QCOMPARE(next.m_strTitle, std::string("Second run"));
    QCOMPARE(next.m_strLevel, std::string("90"));
}

void CommandFlowTest::everyCommandHasItsMenuItem() {
    m_window->Area()->setActiveSubWindow(m_window->Area()->subWindowList().first());
    for (const GroupCommand& command : grp_Commands()) {
        QAction* action = MenuAction(*m_window, command.exportName);
        QVERIFY2(action && action->isEnabled(), command.exportName);
        if (command.make.Built()) continue;  // the rows above run them
        // A command the core does not have yet says so, and opens nothing.
        User user({});
        const auto before = m_window->Area()->subWindowList().size();
        action->trigger();
        QCOMPARE(user.messages.size(), 1);
        QVERIFY2(user.messages[0].contains(QStringLiteral("not available")), qPrintable(user.messages[0]));
        QCOMPARE(m_window->Area()->subWindowList().size(), before);
    }
}

QTEST_MAIN(CommandFlowTest)
#include "CommandFlowTest.moc"
