#include "QtHost.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>

#include "framework/Frame.h"

namespace {

// Texts of the core are UTF-8 (paths and titles read from files included).
QString Q(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

}  // namespace

QtHost::~QtHost() = default;

QWidget* QtHost::Parent() const {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (m_parent) return m_parent;
    return QApplication::activeWindow();
}

int QtHost::ShowMessage(int id, const std::string& text, unsigned style) {
    return ShowCaptionedMessage(id, text, "", style);
}

int QtHost::ShowCaptionedMessage(int, const std::string& text, const std::string& caption, unsigned style) {
    bool question = (style & MB_YESNO) != 0;
    QMessageBox box(Parent());
    box.setWindowTitle(caption.empty() ? QApplication::applicationDisplayName() : Q(caption));
    box.setTextFormat(Qt::PlainText);
    box.setText(Q(text));
    // A plain message warns; a question asks.
    box.setIcon(question || (style & MB_ICONQUESTION) ? QMessageBox::Question : QMessageBox::Warning);
    if (question) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    int answer = box.exec();
    if (!question) return IDOK;
    return answer == QMessageBox::Yes ? IDYES : IDNO;
}

void QtHost::ShowFrame(std::unique_ptr<CDocFrame> frame) {
    if (m_frameSink) m_frameSink(std::move(frame));
}

std::string QtHost::AskOpenFileName(const std::string&, const std::string& filter) {
    QString path = QFileDialog::getOpenFileName(Parent(), QString(), QString(), QtFileFilter(filter));
    QByteArray bytes = path.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

QString QtHost::QtFileFilter(const std::string& filter) {
    QStringList parts = Q(filter).split(u'|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString name = parts[i];
        QString patterns = parts[i + 1];
        if (name.isEmpty()) break;
        patterns.replace(QStringLiteral("*.*"), QStringLiteral("*"));
        patterns.replace(u';', u' ');
        // Qt reads the patterns from the parentheses of the name.
        qsizetype open = name.lastIndexOf(u'(');
        if (open >= 0) name = name.left(open).trimmed();
        entries << name + QStringLiteral(" (") + patterns + u')';
    }
    return entries.join(QStringLiteral(";;"));
}
