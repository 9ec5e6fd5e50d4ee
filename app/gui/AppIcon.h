// The program's icon, painted as oproc-gui.svg draws it (the desktop's copy),
// so the windows carry it without an SVG image plugin.
#pragma once

#include <QIcon>

QIcon gui_AppIcon();
