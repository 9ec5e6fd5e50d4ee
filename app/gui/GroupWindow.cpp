#include "GroupWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "BackgroundRun.h"
#include "QtHost.h"
#include "ReportWidget.h"
#include "datafile/FileInfo.h"
#include "framework/DocTemplate.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "report/TextView.h"

namespace {

constexpr int IDS_DATA_FILE_FILTER = 15937;
constexpr int IDS_GROUP_TEMPLATE = 16380;

QString Q(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

std::string Utf8(const QString& s) {
    QByteArray bytes = s.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

// The group files' filter from the data group's template string.
QString GroupFilter() {
    CDocTemplate group(IDS_GROUP_TEMPLATE, "COutputDoc", "COutputViewFrame", "COutputView");
    std::string name, ext;
    group.GetDocString(name, CDocTemplate::filterName);
    group.GetDocString(ext, CDocTemplate::filterExt);
    return QtHost::QtFileFilter(name + "|*" + ext + "||");
}

}  // namespace

GroupWindow::GroupWindow(QWidget* parent) : QWidget(parent), m_view(&m_doc), m_list(new QListWidget) {
    setAcceptDrops(true);
    m_list->setFont(ReportWidget::ToQFont(ReportFont{}));
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setUniformItemSizes(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    connect(m_list, &QListWidget::currentRowChanged, this, [this](int row) { m_view.SetSelection(row); });
    connect(m_list, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { ShowInfo(m_list->row(item)); });
    m_refreshTimer.setSingleShot(true);
    m_refreshTimer.setInterval(500);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_refreshTimer, qOverload<>(&QTimer::start));
    connect(&m_refreshTimer, &QTimer::timeout, this, [this] {
        // A command reading the group's files on another thread comes first.
        if (gui_BackgroundBusy()) return m_refreshTimer.start();
        Refresh();
        WatchFiles();  // a file replaced by a new one drops out of the watch
    });
}

GroupWindow::~GroupWindow() = default;

QString GroupWindow::Path() const { return Q(m_doc.GetPathName()); }
QString GroupWindow::Title() const { return Q(m_doc.GetTitle()); }

void GroupWindow::NewGroup(const QString& title) {
    m_doc.OnNewDocument();
    m_doc.SetTitle(Utf8(title));
    Reload();
    UpdateCaption();
}

bool GroupWindow::Open(const QString& path) {
    if (!m_doc.OnOpenDocument(Utf8(QFileInfo(path).absoluteFilePath()).c_str())) return false;
    Refresh();
    WatchFiles();
    UpdateCaption();
    return true;
}

bool GroupWindow::Save() { return Path().isEmpty() ? SaveAs() : SaveTo(Path()); }

bool GroupWindow::SaveAs() {
    QString suggested = Path().isEmpty() ? Title() + QStringLiteral(".dgr") : Path();
    QString path = QFileDialog::getSaveFileName(this, tr("Save Data Group As"), suggested, GroupFilter());
    if (path.isEmpty()) return false;
    if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".dgr");
    return SaveTo(path);
}

bool GroupWindow::SaveTo(const QString& path) {
    if (!m_doc.OnSaveDocument(Utf8(QFileInfo(path).absoluteFilePath()).c_str())) return false;
    UpdateCaption();
    emit Saved(Path());
    return true;
}

bool GroupWindow::MaybeSave() {
    if (!m_doc.IsModified()) return true;
    QMessageBox::StandardButton answer =
        QMessageBox::question(this, QApplication::applicationDisplayName(), tr("Save changes to %1?").arg(Title()),
                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Cancel) return false;
    return answer == QMessageBox::Discard || Save();
}

void GroupWindow::AddFiles(const QStringList& paths) {
    for (const QString& path : paths) {
        int index = m_doc.GetItemCount();
        if (m_view.AddFile(Utf8(QFileInfo(path).absoluteFilePath())) != 0 || m_doc.GetItemCount() == index) continue;
        // The file stays in the group with its error line; say why.
        if (int rc = m_doc.GetItem(index)->Describe(false)) AfxMessageBox(rc);
    }
    Reload();
    WatchFiles();
    UpdateCaption();
}

void GroupWindow::AddFilesFromDialog() {
    QString folder = Path().isEmpty() ? QDir::currentPath() : QFileInfo(Path()).absolutePath();
    QStringList paths = QFileDialog::getOpenFileNames(this, tr("Add Files"), folder,
                                                      QtHost::QtFileFilter(msg_Text(IDS_DATA_FILE_FILTER)));
    if (!paths.isEmpty()) AddFiles(paths);
}

void GroupWindow::RemoveSelected() {
    m_view.SetSelection(m_list->currentRow());
    m_view.OnRemoveFile();
    Reload();
    WatchFiles();
    UpdateCaption();
}

void GroupWindow::ShowInfo(int row) {
    const CDGItem* item = m_doc.GetItem(row);
    if (!item) return;
    std::string text;
    if (int rc = op_DescribeDataFile(m_doc.ItemPath(row), text)) {
        AfxMessageBox(rc);
        return;
    }
    QDialog dialog(this);
    dialog.setWindowTitle(QFileInfo(Q(item->m_strPath)).fileName());
    auto* view = new QPlainTextEdit(Q(text));
    view->setReadOnly(true);
    view->setLineWrapMode(QPlainTextEdit::NoWrap);
    view->setFont(ReportWidget::ToQFont(ReportFont{}));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(view);
    layout->addWidget(buttons);
    dialog.resize(560, 420);
    dialog.exec();
}

void GroupWindow::Refresh() {
    m_view.OnInitialUpdate();
    Reload();
}

void GroupWindow::Reload() {
    QSignalBlocker block(m_list);
    int selection = m_view.GetSelection();
    m_list->clear();
    const CListBox& lines = m_view.List();
    for (int i = 0; i < lines.GetCount(); ++i) m_list->addItem(Q(lines.GetText(i)));
    if (selection >= 0 && selection < m_list->count()) m_list->setCurrentRow(selection);
}

void GroupWindow::UpdateCaption() {
    setWindowTitle(Title() + QStringLiteral("[*]"));
    setWindowModified(m_doc.IsModified());
    emit Changed();
}

void GroupWindow::WatchFiles() {
    if (!m_watcher.files().isEmpty()) m_watcher.removePaths(m_watcher.files());
    QStringList paths;
    for (int i = 0; i < m_doc.GetItemCount(); ++i) {
        QString path = QFileInfo(Q(m_doc.ItemPath(i))).absoluteFilePath();
        if (QFileInfo::exists(path)) paths << path;
    }
    if (!paths.isEmpty()) m_watcher.addPaths(paths);
}

void GroupWindow::closeEvent(QCloseEvent* event) {
    if (MaybeSave())
        event->accept();
    else
        event->ignore();
}

QStringList GroupWindow::DroppedDataFiles(const QMimeData* data) {
    static const QStringList kDataSuffixes{QStringLiteral("dat"), QStringLiteral("flt"), QStringLiteral("cor")};
    QStringList paths;
    if (!data || !data->hasUrls()) return paths;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile() && kDataSuffixes.contains(QFileInfo(url.toLocalFile()).suffix(), Qt::CaseInsensitive))
            paths << url.toLocalFile();
    return paths;
}

void GroupWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedDataFiles(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void GroupWindow::dropEvent(QDropEvent* event) {
    QStringList paths = DroppedDataFiles(event->mimeData());
    if (paths.isEmpty()) return;
    event->acceptProposedAction();
    AddFiles(paths);
}
