// Long work of the core (a command: its dialog, the reading of its files, its
// window) run on a worker thread, so that the program's windows go on
// redrawing. The work's calls to the host reach the program's host on the GUI
// thread, the worker waiting for each answer; its progress reports go to a
// progress dialog, shown once the work has run for a moment, whose Cancel
// makes the next report ask the core to stop. After a cancel the work's
// messages and windows are dropped: it ends quietly.
#pragma once

#include <functional>

class QWidget;

struct BackgroundOptions {
    // How long the work runs, outside the host's own dialogs, before the
    // progress dialog shows.
    int showAfterMs = 500;
};

// Runs work and returns its result once it has ended; user input to the
// program waits meanwhile (the progress dialog's excepted). cancelled, when
// given, tells whether the user cancelled.
int gui_RunInBackground(QWidget* parent, const std::function<int()>& work, const BackgroundOptions& options = {},
                        bool* cancelled = nullptr);

// Whether work runs in the background now: what would change the core's state
// under it (a data group's refresh) waits.
bool gui_BackgroundBusy();
