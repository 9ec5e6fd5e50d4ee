// Pictures of the program at work, for the README and for review: the main
// window and its menus, then an interval, a comparison, a correlogram and a
// plot run from the Analysis menu on the demo's files, each dialog as it is
// filled in and each window it opens.
#pragma once

#include <QString>

class MainWindow;

// Writes the PNG pictures into folder; false when one could not be saved.
bool gui_ScreenshotTour(MainWindow& window, const QString& folder);
