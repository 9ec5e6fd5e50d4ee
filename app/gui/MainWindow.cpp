#include "MainWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QSettings>
#include <QStatusBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include <fstream>

#include "BackgroundRun.h"
#include "CommandDialog.h"
#include "DialogSettings.h"
#include "FrameOutput.h"
#include "FrameWidget.h"
#include "GroupWindow.h"
#include "framework/Dialog.h"
#include "framework/Frame.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "group/CommandTable.h"
#include "group/Commands.h"
#include "group/OutputView.h"

namespace {

constexpr int kMaxRecent = 8;
const char* const kRecentKey = "recentGroups";
const char* const kTabbedKey = "tabbedWindows";

// The Analysis menu's sections, by the command's template.
struct Section {
    const char* title;
    std::vector<const char*> templates;
};
const std::vector<Section>& Sections() {
    static const std::vector<Section> sections{
        {"Statistics", {"Intervals", "Comparison", "Vartest", "SdIntervals", "OnewayVariance"}},
        {"Time Series", {"BatchTruncate", "Correlogram", "StdInterval", "MovingAverage", "Histogram"}},
        {"Graphs", {"Plot", "Barchart", "Table"}},
        {"Conversions", {"Append", "Diffile", "Export", "Import", "Load"}},
    };
    return sections;
}

// The command's name: its window title prefix without the " - ".
QString CommandName(const GroupCommand& command) {
    QString name = QString::fromStdString(msg_Text(command.titleId));
    if (name.endsWith(QStringLiteral(" - "))) name.chop(3);
    return name;
}

// The program's host while a command runs: its parameter dialog is shown on
// screen; everything else goes to the program's host.
class DialogHost : public IHost {
public:
    DialogHost(IHost& inner, std::function<int(CDialog&)> run) : m_inner(inner), m_run(std::move(run)) {}
    int ShowMessage(int id, const std::string& text, unsigned style) override {
        return m_inner.ShowMessage(id, text, style);
    }
    int ShowCaptionedMessage(int id, const std::string& text, const std::string& caption, unsigned style) override {
        return m_inner.ShowCaptionedMessage(id, text, caption, style);
    }
    bool Progress(const char* what, double done, double total, ProgressUnit unit) override {
        return m_inner.Progress(what, done, total, unit);
    }
    int RunDialog(CDialog& dlg) override { return m_run(dlg); }
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override { m_inner.ShowFrame(std::move(frame)); }
    std::string AskOpenFileName(const std::string& defaultExt, const std::string& filter) override {
        return m_inner.AskOpenFileName(defaultExt, filter);
    }

private:
    IHost& m_inner;
    std::function<int(CDialog&)> m_run;
};

QString PlainMenuTitle(const QMenu* menu) { return menu->title().remove(u'&'); }

// A file name made from a window caption.
QString FileStem(const QString& caption) {
    QString stem;
    for (QChar c : caption) stem += (c.isLetterOrNumber() || c == u'-' || c == u'_') ? c : u'_';
    while (stem.contains(QStringLiteral("__"))) stem.replace(QStringLiteral("__"), QStringLiteral("_"));
    return stem.isEmpty() ? QStringLiteral("graph") : stem;
}

}  // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), m_area(new QMdiArea) {
    setWindowTitle(QApplication::applicationDisplayName());
    setAcceptDrops(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setTabsClosable(true);
    m_area->setTabsMovable(true);
    setCentralWidget(m_area);
    connect(m_area, &QMdiArea::subWindowActivated, this, [this](QMdiSubWindow* window) {
        if (auto* group = window ? qobject_cast<GroupWindow*>(window->widget()) : nullptr) {
            m_group = group;
            group->Refresh();
        }
        UpdateActions();
    });
    CreateActions();
    CreateMenus();
    statusBar();

    QSettings settings;
    restoreGeometry(settings.value("geometry").toByteArray());
    SetTabbed(settings.value(kTabbedKey, false).toBool());
    UpdateActions();
}

MainWindow::~MainWindow() {
    // Closing the windows activates others: the actions are gone by then.
    disconnect(m_area, nullptr, this, nullptr);
}

void MainWindow::CreateActions() {
    auto make = [this](const QString& text, const QKeySequence& key, auto slot) {
        auto* action = new QAction(text, this);
        if (!key.isEmpty()) action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    m_newAct = make(tr("&New Data Group"), QKeySequence::New, [this] { NewGroup(); });
    m_openAct = make(tr("&Open Data Group..."), QKeySequence::Open, [this] { OpenGroupFromDialog(); });
    m_saveAct = make(tr("&Save Data Group"), QKeySequence::Save, [this] {
        if (m_group) m_group->Save();
    });
    m_saveAsAct = make(tr("Save Data Group &As..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), [this] {
        if (m_group) m_group->SaveAs();
    });
    m_closeAct = make(tr("&Close Window"), QKeySequence(Qt::CTRL | Qt::Key_W), [this] { m_area->closeActiveSubWindow(); });
    m_printAct = make(tr("&Print..."), QKeySequence::Print, [this] { Print(); });
    m_previewAct = make(tr("Print Pre&view..."), {}, [this] { PrintPreview(); });
    m_pngAct = make(tr("Export Graph as &PNG..."), {}, [this] { ExportGraph(QStringLiteral("png")); });
    m_svgAct = make(tr("Export Graph as S&VG..."), {}, [this] { ExportGraph(QStringLiteral("svg")); });
    m_pdfAct = make(tr("Export Graph as P&DF..."), {}, [this] { ExportGraph(QStringLiteral("pdf")); });
    m_saveReportAct = make(tr("Save &Report as Text..."), {}, [this] { SaveReport(); });
    m_exitAct = make(tr("E&xit"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });

    m_addAct = make(tr("&Add Files..."), QKeySequence(Qt::Key_Insert), [this] {
        if (GroupWindow* group = ActiveGroupWindow()) group->AddFilesFromDialog();
    });
    m_removeAct = make(tr("&Remove File"), QKeySequence::Delete, [this] {
        if (GroupWindow* group = ActiveGroupWindow()) group->RemoveSelected();
    });
    m_copyReportAct = make(tr("Copy &Report"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), [this] { CopyReport(); });
    m_copyGraphAct = make(tr("Copy &Graph"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_G), [this] { CopyGraph(); });

    m_tileAct = make(tr("&Tile"), {}, [this] { m_area->tileSubWindows(); });
    m_cascadeAct = make(tr("&Cascade"), {}, [this] { m_area->cascadeSubWindows(); });
    m_nextAct = make(tr("Ne&xt"), QKeySequence::NextChild, [this] { m_area->activateNextSubWindow(); });
    m_previousAct = make(tr("Pre&vious"), QKeySequence::PreviousChild, [this] { m_area->activatePreviousSubWindow(); });
    m_tabbedAct = make(tr("Ta&bbed Windows"), {}, [this](bool on) { SetTabbed(on); });
    m_tabbedAct->setCheckable(true);

    m_shortcutsAct = make(tr("&Keyboard Shortcuts"), QKeySequence::HelpContents, [this] { ShowShortcuts(); });
    m_aboutAct = make(tr("&About oproc"), {}, [this] { ShowAbout(); });
}

void MainWindow::CreateMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(m_newAct);
    file->addAction(m_openAct);
    file->addAction(m_saveAct);
    file->addAction(m_saveAsAct);
    file->addAction(m_closeAct);
    file->addSeparator();
    m_recentMenu = file->addMenu(tr("Recent &Groups"));
    connect(m_recentMenu, &QMenu::aboutToShow, this, [this] { UpdateRecentMenu(); });
    file->addSeparator();
    file->addAction(m_printAct);
    file->addAction(m_previewAct);
    file->addAction(m_pngAct);
    file->addAction(m_svgAct);
    file->addAction(m_pdfAct);
    file->addAction(m_saveReportAct);
    file->addSeparator();
    file->addAction(m_exitAct);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    edit->addAction(m_addAct);
    edit->addAction(m_removeAct);
    edit->addSeparator();
    edit->addAction(m_copyReportAct);
    edit->addAction(m_copyGraphAct);

    // Every command of the core's table, in sections; a command of a template
    // the sections do not name goes at the end.
    m_analysisMenu = menuBar()->addMenu(tr("&Analysis"));
    std::span<const GroupCommand> commands = grp_Commands();
    std::vector<bool> placed(commands.size(), false);
    auto add = [this, commands, &placed](std::size_t i) {
        const GroupCommand& command = commands[i];
        QAction* action = m_analysisMenu->addAction(CommandName(command) + QStringLiteral("..."));
        action->setData(QString::fromLatin1(command.exportName));
        connect(action, &QAction::triggered, this, [this, &command] { RunCommand(command); });
        m_commandActions.push_back(action);
        placed[i] = true;
    };
    for (const Section& section : Sections()) {
        m_analysisMenu->addSection(tr(section.title));
        for (std::size_t i = 0; i < commands.size(); ++i)
            for (const char* name : section.templates)
                if (!placed[i] && std::string_view(commands[i].templateName) == name) add(i);
    }
    if (std::find(placed.begin(), placed.end(), false) != placed.end()) {
        m_analysisMenu->addSection(tr("More"));
        for (std::size_t i = 0; i < commands.size(); ++i)
            if (!placed[i]) add(i);
    }

    m_windowMenu = menuBar()->addMenu(tr("&Window"));
    connect(m_windowMenu, &QMenu::aboutToShow, this, [this] { UpdateWindowMenu(); });
    UpdateWindowMenu();

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(m_shortcutsAct);
    help->addAction(m_aboutAct);
}

GroupWindow* MainWindow::ActiveGroup() const { return m_group; }

GroupWindow* MainWindow::ActiveGroupWindow() const {
    QMdiSubWindow* window = m_area->currentSubWindow();
    return window ? qobject_cast<GroupWindow*>(window->widget()) : nullptr;
}

FrameWidget* MainWindow::ActiveFrame() const {
    QMdiSubWindow* window = m_area->currentSubWindow();
    return window ? qobject_cast<FrameWidget*>(window->widget()) : nullptr;
}

void MainWindow::UpdateActions() {
    if (!m_group) {
        // The group that was active last, if one is still open.
        const QList<QMdiSubWindow*> history = m_area->subWindowList(QMdiArea::ActivationHistoryOrder);
        for (auto it = history.rbegin(); it != history.rend() && !m_group; ++it)
            m_group = qobject_cast<GroupWindow*>((*it)->widget());
    }
    bool group = m_group != nullptr;
    m_saveAct->setEnabled(group);
    m_saveAsAct->setEnabled(group);
    // Files are added to and removed from the group window in front only.
    m_addAct->setEnabled(ActiveGroupWindow() != nullptr);
    m_removeAct->setEnabled(ActiveGroupWindow() != nullptr);
    for (QAction* a : m_commandActions) a->setEnabled(group);
    m_closeAct->setEnabled(m_area->currentSubWindow() != nullptr);

    FrameWidget* frame = ActiveFrame();
    bool graph = frame && frame->HasGraph();
    bool report = frame && frame->HasReport();
    m_printAct->setEnabled(graph || report);
    m_previewAct->setEnabled(graph || report);
    m_pngAct->setEnabled(graph);
    m_svgAct->setEnabled(graph);
    m_pdfAct->setEnabled(graph);
    m_copyGraphAct->setEnabled(graph);
    m_saveReportAct->setEnabled(report);
    m_copyReportAct->setEnabled(report);
}

void MainWindow::UpdateWindowMenu() {
    m_windowMenu->clear();
    m_windowMenu->addAction(m_tileAct);
    m_windowMenu->addAction(m_cascadeAct);
    m_windowMenu->addAction(m_nextAct);
    m_windowMenu->addAction(m_previousAct);
    m_windowMenu->addSeparator();
    m_windowMenu->addAction(m_tabbedAct);
    const QList<QMdiSubWindow*> windows = m_area->subWindowList();
    bool any = !windows.isEmpty();
    for (QAction* a : {m_tileAct, m_cascadeAct, m_nextAct, m_previousAct}) a->setEnabled(any);
    if (any) m_windowMenu->addSeparator();
    int n = 0;
    for (QMdiSubWindow* window : windows) {
        QString title = window->windowTitle().replace(QStringLiteral("[*]"), window->isWindowModified() ? "*" : "");
        QString text = ++n < 10 ? QStringLiteral("&%1 %2").arg(n).arg(title) : title;
        QAction* action = m_windowMenu->addAction(text, this, [this, window] { m_area->setActiveSubWindow(window); });
        action->setCheckable(true);
        action->setChecked(window == m_area->currentSubWindow());
    }
}

void MainWindow::UpdateRecentMenu() {
    m_recentMenu->clear();
    const QStringList recent = QSettings().value(kRecentKey).toStringList();
    int n = 0;
    for (const QString& path : recent) {
        QString text = QStringLiteral("&%1 %2").arg(++n).arg(QDir::toNativeSeparators(path));
        m_recentMenu->addAction(text, this, [this, path] { OpenGroup(path); });
    }
    if (recent.isEmpty()) m_recentMenu->addAction(tr("(none)"))->setEnabled(false);
}

void MainWindow::RememberGroup(const QString& path) {
    QSettings settings;
    QStringList recent = settings.value(kRecentKey).toStringList();
    QString full = QFileInfo(path).absoluteFilePath();
    recent.removeAll(full);
    recent.prepend(full);
    while (recent.size() > kMaxRecent) recent.removeLast();
    settings.setValue(kRecentKey, recent);
}

void MainWindow::SetTabbed(bool tabbed) {
    m_area->setViewMode(tabbed ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
    m_tabbedAct->setChecked(tabbed);
    QSettings().setValue(kTabbedKey, tabbed);
}

QMdiSubWindow* MainWindow::AddSubWindow(QWidget* widget) {
    QMdiSubWindow* window = m_area->addSubWindow(widget);
    connect(widget, &QObject::destroyed, this, [this] { QMetaObject::invokeMethod(this, [this] { UpdateActions(); }, Qt::QueuedConnection); });
    return window;
}

QMdiSubWindow* MainWindow::FindGroupWindow(const QString& path) const {
    QString full = QFileInfo(path).absoluteFilePath();
    for (QMdiSubWindow* window : m_area->subWindowList())
        if (auto* group = qobject_cast<GroupWindow*>(window->widget()); group && group->Path() == full) return window;
    return nullptr;
}

GroupWindow* MainWindow::NewGroup() {
    auto* group = new GroupWindow;
    group->NewGroup(QStringLiteral("Output%1").arg(++m_newGroups));
    connect(group, &GroupWindow::Changed, this, [this] { UpdateActions(); });
    connect(group, &GroupWindow::Saved, this, [this](const QString& path) { RememberGroup(path); });
    QMdiSubWindow* window = AddSubWindow(group);
    window->resize(700, 320);
    window->show();
    return group;
}

GroupWindow* MainWindow::OpenGroup(const QString& path) {
    if (QMdiSubWindow* open = FindGroupWindow(path)) {
        m_area->setActiveSubWindow(open);
        return qobject_cast<GroupWindow*>(open->widget());
    }
    auto* group = new GroupWindow;
    if (!group->Open(path)) {
        delete group;
        return nullptr;
    }
    connect(group, &GroupWindow::Changed, this, [this] { UpdateActions(); });
    connect(group, &GroupWindow::Saved, this, [this](const QString& saved) { RememberGroup(saved); });
    RememberGroup(group->Path());
    QMdiSubWindow* window = AddSubWindow(group);
    window->resize(700, 320);
    window->show();
    return group;
}

void MainWindow::OpenGroupFromDialog() {
    QString folder = m_group && !m_group->Path().isEmpty() ? QFileInfo(m_group->Path()).absolutePath() : QDir::currentPath();
    QString path = QFileDialog::getOpenFileName(this, tr("Open Data Group"), folder,
                                                tr("Output Processor Files (*.dgr);;All Files (*)"));
    if (!path.isEmpty()) OpenGroup(path);
}

FrameWidget* MainWindow::AddFrame(std::unique_ptr<CDocFrame> frame) {
    auto* widget = new FrameWidget(std::move(frame));
    QMdiSubWindow* window = AddSubWindow(widget);
    window->resize(m_area->viewMode() == QMdiArea::TabbedView ? m_area->size() : QSize(800, 600).boundedTo(m_area->size()));
    window->show();
    return widget;
}

void MainWindow::RunCommand(const GroupCommand& command) {
    GroupWindow* group = m_group;
    if (!group) return;
    // The command runs in the group's folder: its files are offered as the
    // group names them there, which is how reports identify them.
    QDir folder = group->Path().isEmpty() ? QDir::current() : QFileInfo(group->Path()).absoluteDir();
    QDir::setCurrent(folder.absolutePath());
    auto name = [&folder](const std::string& path) {
        QString full = QString::fromStdString(path);
        QString relative = folder.relativeFilePath(full);
        return full.isEmpty() || relative.startsWith(QStringLiteral("..")) ? full : relative;
    };
    QStringList files;
    const COutputDoc& doc = group->Document();
    for (int i = 0; i < doc.GetItemCount(); ++i) files << name(doc.ItemPath(i));
    QString selected = name(group->View().SelectedPath());
    QString templateName = QString::fromLatin1(command.templateName);
    DialogHost host(host_Get(), [&](CDialog& dlg) {
        int answer = gui_RunCommandDialog(dlg, CommandName(command), files, selected, this);
        if (answer == IDOK) {
            QSettings settings;
            gui_SaveDialog(templateName, dlg, settings);
        }
        return answer;
    });
    ScopedHost scope(&host);
    // The reading and the analysis run off this thread; the dialog, the
    // messages and the window come back to it.
    gui_RunInBackground(this, [&] { return grp_RunCommand(command, &group->View()); });
}

void MainWindow::Print() {
    FrameWidget* frame = ActiveFrame();
    if (!frame) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(frame->Caption());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    std::optional<std::string> report = ReportToOutput(*frame, tr("Print"));
    if (!report) return;
    out_Print(frame->GraphPanes(), *report, out_ReportFont(frame->Frame()), printer);
}

void MainWindow::PrintPreview() {
    FrameWidget* frame = ActiveFrame();
    if (!frame) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(frame->Caption());
    std::optional<std::string> report = ReportToOutput(*frame, tr("Preview"));
    if (!report) return;
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this, [frame, &report](QPrinter* p) {
        out_Print(frame->GraphPanes(), *report, out_ReportFont(frame->Frame()), *p);
    });
    preview.exec();
}

void MainWindow::ExportGraph(const QString& format) {
    FrameWidget* frame = ActiveFrame();
    if (!frame || !frame->HasGraph()) return;
    QString filter = format.toUpper() + tr(" files (*.%1)").arg(format);
    QString path = QFileDialog::getSaveFileName(this, tr("Export Graph"), FileStem(frame->Caption()) + u'.' + format, filter);
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += u'.' + format;
    std::vector<GraphPane> panes = frame->GraphPanes();
    out_WriteFile(path, [&](const QString& temp) {
        if (format == QStringLiteral("png")) return out_GraphImage(panes).save(temp, "PNG");
        if (format == QStringLiteral("svg")) {
            std::string svg = out_GraphSvg(panes, frame->Caption().toStdString());
            std::ofstream out(temp.toStdString(), std::ios::binary);
            return static_cast<bool>(out.write(svg.data(), static_cast<std::streamsize>(svg.size())).flush());
        }
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(temp);
        printer.setDocName(frame->Caption());
        out_Print(panes, std::string(), nullptr, printer);
        return QFileInfo(temp).size() > 0;
    });
}

void MainWindow::SaveReport() {
    FrameWidget* frame = ActiveFrame();
    if (!frame || !frame->HasReport()) return;
    QString path = QFileDialog::getSaveFileName(this, tr("Save Report as Text"), FileStem(frame->Caption()) + ".txt",
                                                tr("Text files (*.txt);;All Files (*)"));
    if (path.isEmpty()) return;
    out_WriteFile(path, [&](const QString& temp) {
        std::ofstream out(temp.toStdString(), std::ios::binary);
        return frame->WriteReport(out);
    });
}

void MainWindow::CopyReport() {
    FrameWidget* frame = ActiveFrame();
    if (!frame || !frame->HasReport()) return;
    if (std::optional<std::string> report = ReportToOutput(*frame, tr("Copy")))
        QApplication::clipboard()->setText(QString::fromStdString(*report));
}

std::optional<std::string> MainWindow::ReportToOutput(FrameWidget& frame, const QString& verb) {
    // Pages of a table past this many rows are of no use on paper or in an
    // editor pasted into, and the text is held whole: the user may take the start.
    const std::int64_t rows = frame.BodyRows();
    if (rows <= kMaxOutputRows) return frame.ReportText();
    const QString limit = QLocale().toString(static_cast<qlonglong>(kMaxOutputRows));
    QMessageBox::StandardButton answer = QMessageBox::question(
        this, verb,
        tr("The table has %1 rows. %2 only the first %3 rows?")
            .arg(QLocale().toString(static_cast<qlonglong>(rows)), verb, limit),
        QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Yes);
    if (answer != QMessageBox::Yes) return std::nullopt;
    return frame.ReportText(kMaxOutputRows);
}

void MainWindow::CopyGraph() {
    if (FrameWidget* frame = ActiveFrame(); frame && frame->HasGraph())
        QApplication::clipboard()->setImage(out_GraphImage(frame->GraphPanes()));
}

void MainWindow::ShowShortcuts() {
    QDialog dialog(this);
    dialog.setWindowTitle(tr("Keyboard Shortcuts"));
    auto* table = new QTableWidget(0, 2);
    table->setHorizontalHeaderLabels({tr("Command"), tr("Keys")});
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    for (QAction* menuAction : menuBar()->actions()) {
        QMenu* menu = menuAction->menu();
        for (QAction* a : menu ? menu->actions() : QList<QAction*>{}) {
            if (a->shortcut().isEmpty()) continue;
            int row = table->rowCount();
            table->insertRow(row);
            table->setItem(row, 0, new QTableWidgetItem(PlainMenuTitle(menu) + QStringLiteral(" > ") + a->text().remove(u'&')));
            table->setItem(row, 1, new QTableWidgetItem(a->shortcut().toString(QKeySequence::NativeText)));
        }
    }
    table->resizeColumnsToContents();
    table->horizontalHeader()->setStretchLastSection(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(table);
    layout->addWidget(buttons);
    dialog.resize(460, 420);
    dialog.exec();
}

void MainWindow::ShowAbout() {
    QMessageBox::about(this, tr("About oproc"),
                       tr("<h3>oproc %1</h3><p>Output processor for discrete-event simulation: data groups of "
                          "simulation output files, statistical analyses, graphs and conversions.</p>"
                          "<p>The command-line program <code>oproc</code> runs the same analyses.</p>")
                           .arg(QApplication::applicationVersion()));
}

void MainWindow::closeEvent(QCloseEvent* event) {
    m_area->closeAllSubWindows();
    for (QMdiSubWindow* window : m_area->subWindowList())
        if (window->isVisible()) {
            event->ignore();  // a group whose user chose to keep it
            return;
        }
    QSettings().setValue("geometry", saveGeometry());
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    // Data files dropped beside the group windows go to the active group.
    if (m_group && !GroupWindow::DroppedDataFiles(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
        return;
    }
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile() && url.toLocalFile().endsWith(QStringLiteral(".dgr"), Qt::CaseInsensitive)) {
            event->acceptProposedAction();
            return;
        }
}

void MainWindow::dropEvent(QDropEvent* event) {
    if (QStringList files = GroupWindow::DroppedDataFiles(event->mimeData()); m_group && !files.isEmpty())
        m_group->AddFiles(files);
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile() && url.toLocalFile().endsWith(QStringLiteral(".dgr"), Qt::CaseInsensitive))
            OpenGroup(url.toLocalFile());
    event->acceptProposedAction();
}

bool MainWindow::SaveScreenshots(const QString& folder) {
    if (!QDir().mkpath(folder)) return false;
    QDir dir(folder);
    bool ok = grab().save(dir.filePath(QStringLiteral("main-window.png")));
    for (QAction* menuAction : menuBar()->actions()) {
        QMenu* menu = menuAction->menu();
        if (!menu) continue;
        QPoint at = menuBar()->mapTo(this, menuBar()->actionGeometry(menuAction).bottomLeft());
        menu->popup(mapToGlobal(at));
        QApplication::processEvents();
        QPixmap shot = grab();
        QPainter painter(&shot);
        painter.drawPixmap(at, menu->grab());
        painter.end();
        menu->hide();
        QString name = QStringLiteral("menu-%1.png").arg(PlainMenuTitle(menu).toLower().replace(u' ', u'-'));
        ok = shot.save(dir.filePath(name)) && ok;
    }
    return ok;
}
