#include "ReportWidget.h"

#include <algorithm>

#include "report/TextView.h"

ReportWidget::ReportWidget(const std::string& text, const ReportFont& font, QWidget* parent)
    : QPlainTextEdit(parent) {
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setFont(ToQFont(font));
    setPlainText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
}

QFont ReportWidget::ToQFont(const ReportFont& font) {
    QFont q;
    QString face = QString::fromStdString(font.face);
    QStringList families{face};
    // Liberation Mono has Courier New's metrics; the style hint covers the rest.
    if (face.compare(QStringLiteral("Courier New"), Qt::CaseInsensitive) == 0) families << QStringLiteral("Liberation Mono");
    q.setFamilies(families);
    q.setStyleHint(QFont::TypeWriter);
    q.setFixedPitch(true);
    // Negative: the character (em) height; positive: the cell, of which
    // Courier New's em is 2048 / 2320.
    if (font.height < 0) q.setPixelSize(-font.height);
    if (font.height > 0) q.setPixelSize(std::max(1, font.height * 2048 / 2320));
    q.setWeight(static_cast<QFont::Weight>(font.weight > 0 ? std::clamp(font.weight, 100, 900) : 400));
    q.setItalic(font.italic);
    q.setUnderline(font.underline);
    q.setStrikeOut(font.strikeOut);
    return q;
}
