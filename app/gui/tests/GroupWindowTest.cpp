// The data group window with the desktop host installed: what the user sees
// in message boxes when a file cannot be read (one dropped on the window
// among others) or is about to be removed.
#include <QAbstractButton>
#include <QApplication>
#include <QListWidget>
#include <QMessageBox>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <fstream>

#include "GroupWindow.h"
#include "QtHost.h"

namespace {

// Answers the message boxes as they open, keeping their captions and texts.
class BoxAnswerer : public QObject {
public:
    explicit BoxAnswerer(QMessageBox::StandardButton answer) : m_answer(answer) {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            captions << box->windowTitle();
            texts << box->text();
            QAbstractButton* button = box->button(m_answer);
            (button ? button : box->button(QMessageBox::Ok))->click();
        });
        m_timer.start(10);
    }
    void SetAnswer(QMessageBox::StandardButton answer) { m_answer = answer; }

    QStringList captions;
    QStringList texts;

private:
    QMessageBox::StandardButton m_answer;
    QTimer m_timer;
};

QString WriteDamagedFile(const QTemporaryDir& dir) {
    QString path = dir.filePath(QStringLiteral("damaged.dat"));
    std::ofstream(path.toStdString()) << "not the header of a data file\n";
    return path;
}

}  // namespace

class GroupWindowTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { m_previous = host_Set(&m_host); }
    void cleanupTestCase() { host_Set(m_previous); }
    void damagedFileIsReportedAndKept();
    void removingAFileAsksFirst();

private:
    QtHost m_host;
    IHost* m_previous = nullptr;
};

void GroupWindowTest::damagedFileIsReportedAndKept() {
    QTemporaryDir dir;
    QString path = WriteDamagedFile(dir);
    GroupWindow group;
    group.NewGroup(QStringLiteral("Output1"));
    BoxAnswerer answerer(QMessageBox::Ok);
    // Dropped from a file manager, with a file that is no data file.
    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(path), QUrl::fromLocalFile(dir.filePath(QStringLiteral("notes.txt")))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&group, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&group, &drop);

    QCOMPARE(answerer.texts.size(), 1);
    QVERIFY(!answerer.texts[0].isEmpty());
    QCOMPARE(group.List()->count(), 1);
    QCOMPARE(group.List()->item(0)->text(), path + QStringLiteral(", <error accessing file>"));
    QVERIFY(group.isWindowModified());

    // The same file again is refused with the system's message.
    group.AddFiles({path});
    QCOMPARE(answerer.texts.size(), 2);
    QCOMPARE(answerer.texts[1], QStringLiteral("File already is in the data group."));
    QCOMPARE(group.List()->count(), 1);
}

void GroupWindowTest::removingAFileAsksFirst() {
    QTemporaryDir dir;
    QString path = WriteDamagedFile(dir);
    GroupWindow group;
    group.NewGroup(QStringLiteral("Output1"));
    BoxAnswerer answerer(QMessageBox::Ok);
    group.AddFiles({path});
    answerer.captions.clear();
    answerer.texts.clear();

    answerer.SetAnswer(QMessageBox::No);
    group.List()->setCurrentRow(-1);
    group.RemoveSelected();
    group.List()->setCurrentRow(0);
    group.RemoveSelected();
    QCOMPARE(group.List()->count(), 1);
    answerer.SetAnswer(QMessageBox::Yes);
    group.RemoveSelected();
    QCOMPARE(group.List()->count(), 0);

    const QStringList texts{QStringLiteral("No item is selected."), QStringLiteral("Remove selected file from data group?"),
                            QStringLiteral("Remove selected file from data group?")};
    QCOMPARE(answerer.texts, texts);
    QCOMPARE(answerer.captions[1], QStringLiteral("Remove file from data group"));
}

QTEST_MAIN(GroupWindowTest)
#include "GroupWindowTest.moc"
