// oproc-gui: the desktop program. Starts the core, opens the data groups
// named on the command line and runs the main window.
#include <QApplication>
#include <QCommandLineParser>
#include <QSettings>
#include <QTimer>

#include <cstdio>

#include "AppIcon.h"
#include "DialogSettings.h"
#include "MainWindow.h"
#include "QtHost.h"
#include "ScreenshotTour.h"
#include "group/Session.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("oproc"));
    QApplication::setApplicationName(QStringLiteral("oproc-gui"));
    QApplication::setApplicationDisplayName(QStringLiteral("oproc"));
    QApplication::setApplicationVersion(QStringLiteral("0.1"));
    QApplication::setDesktopFileName(QStringLiteral("oproc-gui"));
    QApplication::setWindowIcon(gui_AppIcon());

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("oproc: output processor for discrete-event simulation."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("GROUP"), QStringLiteral("Data groups (.dgr) to open"), QStringLiteral("[GROUP...]"));
    QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                  QStringLiteral("Save PNG pictures of the window, its menus and four analyses into DIR, then quit"),
                                  QStringLiteral("DIR"));
    parser.addOption(screenshot);
    parser.process(app);

    QtHost host;
    CSession session(host);
    {
        QSettings settings;
        gui_RestoreDialogs(session.App(), settings);
    }
    int status = 0;
    {
        MainWindow window;
        host.SetParentWindow(&window);
        host.SetFrameSink([&window](std::unique_ptr<CDocFrame> frame) { window.AddFrame(std::move(frame)); });
        if (parser.isSet(screenshot)) window.resize(1100, 720);
        window.show();
        for (const QString& path : parser.positionalArguments()) window.OpenGroup(path);
        if (parser.isSet(screenshot)) {
            QString folder = parser.value(screenshot);
            QTimer::singleShot(300, &window, [&window, folder] {
                if (!gui_ScreenshotTour(window, folder)) std::fprintf(stderr, "oproc-gui: cannot save screenshots\n");
                QApplication::quit();
            });
        }
        status = QApplication::exec();
        host.SetFrameSink(nullptr);
    }
    return status;
}
