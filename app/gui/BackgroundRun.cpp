#include "BackgroundRun.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <exception>
#include <memory>
#include <mutex>
#include <string>

#include "framework/Frame.h"
#include "framework/Host.h"

namespace {

// The progress dialog follows the reports at this pace, not at theirs.
constexpr int kTickMs = 100;

bool g_busy = false;

// What the worker reported last, for the GUI thread to pick up.
struct Report {
    std::mutex lock;
    std::string what;
    double done = 0;
    double total = 0;
    bool fresh = false;
};

// The host while the work runs: every call but Progress is made on the GUI
// thread by the program's host, the worker waiting for the answer. Once the
// user has cancelled, nothing more reaches the user: questions are answered
// no, windows dropped.
class WorkerHost : public IHost {
public:
    WorkerHost(IHost& inner, QObject* gui) : m_inner(inner), m_gui(gui) { m_sinceGui.start(); }

    int ShowMessage(int id, const std::string& text, unsigned style) override {
        if (m_cancel) return Unasked(style);
        return OnGui([&] { return m_inner.ShowMessage(id, text, style); });
    }
    int ShowCaptionedMessage(int id, const std::string& text, const std::string& caption, unsigned style) override {
        if (m_cancel) return Unasked(style);
        return OnGui([&] { return m_inner.ShowCaptionedMessage(id, text, caption, style); });
    }
    bool Progress(const char* what, double done, double total, ProgressUnit) override {
        std::lock_guard guard(m_report.lock);
        if (m_report.what != what) m_report.what = what;
        m_report.done = done;
        m_report.total = total;
        m_report.fresh = true;
        return !m_cancel;
    }
    int RunDialog(CDialog& dlg) override {
        if (m_cancel) return IDCANCEL;
        return OnGui([&] { return m_inner.RunDialog(dlg); });
    }
    void ShowFrame(std::unique_ptr<CDocFrame> frame) override {
        if (m_cancel) return;
        OnGui([&] {
            m_inner.ShowFrame(std::move(frame));
            return 0;
        });
    }
    std::string AskOpenFileName(const std::string& defaultExt, const std::string& filter) override {
        std::string path;
        if (m_cancel) return path;
        OnGui([&] {
            path = m_inner.AskOpenFileName(defaultExt, filter);
            return 0;
        });
        return path;
    }

    void Cancel() { m_cancel = true; }
    bool Cancelled() const { return m_cancel; }
    // Whether the progress dialog may show: no dialog of the host is up and
    // the work has run on its own for ms since the last.
    bool Quiet(int ms) const { return m_inGui == 0 && m_sinceGui.elapsed() >= ms; }
    // The last report if it is new.
    bool Take(std::string* what, double* done, double* total) {
        std::lock_guard guard(m_report.lock);
        if (!m_report.fresh) return false;
        m_report.fresh = false;
        *what = m_report.what;
        *done = m_report.done;
        *total = m_report.total;
        return true;
    }

private:
    static int Unasked(unsigned style) { return (style & MB_YESNO) ? IDNO : IDOK; }

    template <class F>
    int OnGui(F&& call) {
        auto counted = [&] {
            ++m_inGui;
            const int answer = call();
            --m_inGui;
            m_sinceGui.restart();
            return answer;
        };
        if (QThread::currentThread() == m_gui->thread()) return counted();
        int answer = 0;
        QMetaObject::invokeMethod(m_gui, [&] { answer = counted(); }, Qt::BlockingQueuedConnection);
        return answer;
    }

    IHost& m_inner;
    QObject* m_gui;
    std::atomic<bool> m_cancel{false};
    Report m_report;
    // GUI thread only.
    int m_inGui = 0;
    QElapsedTimer m_sinceGui;
};

void Show(QProgressDialog& dialog, const std::string& what, double done, double total) {
    dialog.setLabelText(QFileInfo(QString::fromUtf8(what.data(), static_cast<qsizetype>(what.size()))).fileName());
    if (total > 0) {
        const double part = done < 0 ? 0 : done > total ? 1 : done / total;
        dialog.setMaximum(1000);
        dialog.setValue(static_cast<int>(999 * part));
    } else {
        dialog.setMaximum(0);  // turns without an end
    }
}

}  // namespace

bool gui_BackgroundBusy() { return g_busy; }

int gui_RunInBackground(QWidget* parent, const std::function<int()>& work, const BackgroundOptions& options,
                        bool* cancelled) {
    QEventLoop loop;
    WorkerHost host(host_Get(), &loop);
    ScopedHost scope(&host);
    const bool wasBusy = g_busy;
    g_busy = true;

    std::atomic<bool> done{false};
    int result = 0;
    std::exception_ptr failure;
    std::unique_ptr<QThread> thread(QThread::create([&] {
        try {
            result = work();
        } catch (...) {
            failure = std::current_exception();
        }
        done = true;
        QMetaObject::invokeMethod(&loop, [&loop] { loop.quit(); }, Qt::QueuedConnection);
    }));

    std::unique_ptr<QProgressDialog> dialog;
    bool dialogDue = false;
    QTimer tick;
    tick.setInterval(kTickMs);
    QObject::connect(&tick, &QTimer::timeout, &loop, [&] {
        if (!dialog) {
            if (host.Quiet(options.showAfterMs)) {
                dialogDue = true;
                loop.quit();
            }
            return;
        }
        std::string what;
        double doneNow, total;
        if (host.Take(&what, &doneNow, &total)) Show(*dialog, what, doneNow, total);
    });
    thread->start();
    tick.start(options.showAfterMs < kTickMs ? options.showAfterMs : kTickMs);

    // The user's input waits while no dialog is there to take it, so that
    // nothing the work uses is changed or closed under it.
    while (!done) {
        const bool modal = dialog && dialog->isVisible();
        loop.exec(modal ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
        if (dialogDue && !dialog && !done) {
            dialog = std::make_unique<QProgressDialog>(QString(), QObject::tr("Cancel"), 0, 0, parent);
            dialog->setWindowTitle(QObject::tr("Working"));
            dialog->setWindowModality(Qt::ApplicationModal);
            dialog->setAutoClose(false);
            dialog->setAutoReset(false);
            dialog->setMinimumDuration(0);
            QObject::connect(dialog.get(), &QProgressDialog::canceled, &loop, [&] {
                host.Cancel();
                loop.quit();
            });
            std::string what;
            double doneNow = 0, total = 0;
            host.Take(&what, &doneNow, &total);
            Show(*dialog, what, doneNow, total);
            dialog->show();
            tick.setInterval(kTickMs);
        }
    }
    thread->wait();
    tick.stop();
    dialog.reset();
    g_busy = wasBusy;
    if (cancelled) *cancelled = host.Cancelled();
    if (failure) std::rethrow_exception(failure);
    return result;
}
