// A pane that shows a report as the terminal prints it: read-only, in the
// fixed-pitch font the report view asks for, lines never wrapped.
#pragma once

#include <QPlainTextEdit>

#include <string>

struct ReportFont;

class ReportWidget : public QPlainTextEdit {
    Q_OBJECT
public:
    ReportWidget(const std::string& text, const ReportFont& font, QWidget* parent = nullptr);

    // The font a report font request gives: its face (or a metric-compatible
    // one where the face is missing), a negative height as the character
    // height in pixels, a positive one as the cell height.
    static QFont ToQFont(const ReportFont& font);
};
