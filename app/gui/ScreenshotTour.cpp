#include "ScreenshotTour.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>
#include <functional>

#include "CommandDialog.h"
#include "FileListWidget.h"
#include "GroupWindow.h"
#include "MainWindow.h"

namespace {

struct Run {
    const char* exportName;
    const char* picture;
    std::function<void(CommandDialog&)> fill;
};

void SetText(CommandDialog& d, const char* key, const QString& text) {
    QWidget* w = d.FieldWidget(QString::fromLatin1(key));
    if (auto* box = qobject_cast<QComboBox*>(w)) box->setEditText(text);
    if (auto* edit = qobject_cast<QLineEdit*>(w)) edit->setText(text);
}

void SetRows(CommandDialog& d, const QList<QStringList>& rows) {
    if (auto* list = qobject_cast<FileListWidget*>(d.FieldWidget(QStringLiteral("files")))) list->SetRows(rows);
}

const Run kRuns[] = {
    {"g_OnInterval", "interval",
     [](CommandDialog& d) {
         SetRows(d, {{("waits.dat"), "All"}, {("meanwait.dat"), "Lumped"}});
         SetText(d, "title", QStringLiteral("Waiting time in queue"));
     }},
    {"g_OnComparison", "comparison",
     [](CommandDialog& d) {
         SetRows(d, {{("waits.dat"), "1", ("waits.dat"), "2"},
                     {("meanwait.dat"), "Lumped", ("faster/meanwait.dat"), "Lumped"}});
         SetText(d, "title", QStringLiteral("Waits"));
     }},
    {"g_OnCorrelogram", "correlogram",
     [](CommandDialog& d) {
         SetText(d, "file", ("waits.dat"));
         SetText(d, "reps", QStringLiteral("1"));
         SetText(d, "title", QStringLiteral("Waits, replication 1"));
         SetText(d, "maxLags", QStringLiteral("50"));
     }},
    {"g_OnPlot", "plot",
     [](CommandDialog& d) {
         SetRows(d, {{("waits.dat"), "1"}, {("waits.dat"), "2"}});
         SetText(d, "title", QStringLiteral("Wait in queue"));
         SetText(d, "yLabel", QStringLiteral("Wait"));
     }},
};

}  // namespace

bool gui_ScreenshotTour(MainWindow& window, const QString& folder) {
    bool ok = window.SaveScreenshots(folder);
    // The demo's files, as the group names them from its folder.
    if (!window.ActiveGroup()) return ok;
    QDir out(folder);
    for (const Run& run : kRuns) {
        QAction* action = nullptr;
        for (QAction* a : window.AnalysisMenu()->actions())
            if (a->data().toString() == QLatin1String(run.exportName)) action = a;
        if (!action) continue;
        // The dialog comes up inside the action: fill it, take its picture, press OK.
        QTimer timer;
        bool filled = false;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            QWidget* modal = QApplication::activeModalWidget();
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                std::fprintf(stderr, "oproc-gui: %s\n", qPrintable(box->text()));
                ok = false;
                box->accept();
                if (auto* dialog = qobject_cast<CommandDialog*>(QApplication::activeModalWidget())) dialog->reject();
            } else if (auto* dialog = qobject_cast<CommandDialog*>(modal)) {
                if (filled) return;
                filled = true;
                run.fill(*dialog);
                QApplication::processEvents();
                ok = dialog->grab().save(out.filePath(QStringLiteral("dialog-%1.png").arg(run.picture))) && ok;
                // Outside the timer's slot, so that a message box finds the timer running.
                QMetaObject::invokeMethod(dialog, [dialog] { dialog->accept(); }, Qt::QueuedConnection);
            }
        });
        timer.start(50);
        int before = static_cast<int>(window.Area()->subWindowList().size());
        window.Area()->setActiveSubWindow(window.Area()->subWindowList().first());
        action->trigger();
        timer.stop();
        const QList<QMdiSubWindow*> windows = window.Area()->subWindowList();
        if (windows.size() <= before) {
            ok = false;
            continue;
        }
        // The window with its caption, as large as the area holds it.
        windows.last()->setGeometry(QRect(QPoint(0, 0), window.Area()->viewport()->size()));
        QApplication::processEvents();
        ok = windows.last()->grab().save(out.filePath(QStringLiteral("window-%1.png").arg(run.picture))) && ok;
    }
    window.Area()->tileSubWindows();
    QApplication::processEvents();
    return window.grab().save(out.filePath(QStringLiteral("main-window-analyses.png"))) && ok;
}
