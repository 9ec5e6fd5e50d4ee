// The QPainter device context paints what the core draws. Each graph kind's
// frame, with a curve, a box, markers, arrows and text over it, and then the
// graph views of every analysis that has one, are drawn once into the
// recording context and once through CQtDC onto a device whose paint engine
// keeps every call; the two sequences must match primitive for primitive, on
// screen and on paper. Text is placed by Qt's own measure of the real face,
// so the check also catches a window set in another face than the one the
// layout measured.
#include <QApplication>
#include <QFontInfo>
#include <QPaintEngine>
#include <QPainter>
#include <QTextItem>
#include <QtTest>

#include <cmath>

#include "FrameOutput.h"
#include "GraphWidget.h"
#include "QtDC.h"
#include "TestFiles.h"
#include "dialog/FileDialogs.h"
#include "framework/FontMetrics.h"
#include "framework/Frame.h"
#include "framework/Host.h"
#include "framework/RecordingDC.h"
#include "framework/View.h"
#include "graph/GraphLayout.h"
#include "group/CommandTable.h"
#include "group/Commands.h"
#include "report/TextView.h"

namespace {

// The recording context measuring text as the windows do.
class FaceRecordingDC : public CRecordingDC {
public:
    using CRecordingDC::CRecordingDC;

protected:
    CSize OnMeasure(const CFont& font, const std::string& text) override { return font_TextExtent(font, text); }
};

struct Painted {
    enum Kind { kLine, kRect, kFill, kText } kind = kLine;
    QLine line;
    QRect rect;
    QString text;
    QPointF at;
    qreal width = 0, ascent = 0, descent = 0;
    QPen pen;
    QBrush brush;
    QFont font;
};

class RecordingEngine : public QPaintEngine {
public:
    RecordingEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { QFAIL("no pixmaps in a graph"); }
    Type type() const override { return User; }

    void drawPolygon(const QPoint* points, int count, PolygonDrawMode mode) override {
        QVERIFY(mode == PolylineMode);
        for (int i = 0; i + 1 < count; ++i) {
            Painted p = Stamp(Painted::kLine);
            p.line = QLine(points[i], points[i + 1]);
            painted.push_back(p);
        }
    }
    void drawLines(const QLine* lines, int count) override {
        for (int i = 0; i < count; ++i) {
            Painted p = Stamp(Painted::kLine);
            p.line = lines[i];
            painted.push_back(p);
        }
    }
    void drawRects(const QRect* rects, int count) override {
        for (int i = 0; i < count; ++i) {
            Painted p = Stamp(Painted::kRect);
            p.rect = rects[i];
            painted.push_back(p);
        }
    }
    void drawRects(const QRectF* rects, int count) override {
        for (int i = 0; i < count; ++i) {
            Painted p = Stamp(Painted::kFill);
            p.rect = rects[i].toAlignedRect();
            painted.push_back(p);
        }
    }
    void drawTextItem(const QPointF& at, const QTextItem& item) override {
        Painted p = Stamp(Painted::kText);
        p.text = item.text();
        p.at = at;
        p.width = item.width();
        p.ascent = item.ascent();
        p.descent = item.descent();
        p.font = item.font();
        painted.push_back(p);
    }

    std::vector<Painted> painted;

private:
    Painted Stamp(Painted::Kind kind) const {
        Painted p;
        p.kind = kind;
        p.pen = painter()->pen();
        p.brush = painter()->brush();
        return p;
    }
};

class RecordingDevice : public QPaintDevice {
public:
    RecordingDevice(QSize size, int dpi) : m_size(size), m_dpi(dpi) {}
    ~RecordingDevice() override = default;
    QPaintEngine* paintEngine() const override { return &m_engine; }
    std::vector<Painted>& Calls() const { return m_engine.painted; }

protected:
    int metric(PaintDeviceMetric m) const override {
        switch (m) {
            case PdmWidth: return m_size.width();
            case PdmHeight: return m_size.height();
            case PdmWidthMM: return static_cast<int>(m_size.width() * 25.4 / m_dpi);
            case PdmHeightMM: return static_cast<int>(m_size.height() * 25.4 / m_dpi);
            case PdmNumColors: return INT_MAX;
            case PdmDepth: return 32;
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY: return m_dpi;
            case PdmDevicePixelRatio: return 1;
            case PdmDevicePixelRatioScaled: return static_cast<int>(devicePixelRatioFScale());
            default: return 0;
        }
    }

private:
    QSize m_size;
    int m_dpi;
    mutable RecordingEngine m_engine;
};

// A frame of the kind with the primitives the analysis views draw over it.
void DrawSample(CDC& dc, int kind, const CRect& client) {
    g_Layout = GraphLayout{};
    LayoutPlotArea(client, dc);
    g_Layout.ticks.xMinor = 25.0;  // the histogram's cell width
    const double range[4] = {0.0, 250.0, -1.0, 0.004};
    DrawGraphFrame(dc, range, "Time (minutes)", "Queue length", "Waiting line", kind, nullptr);

    std::int16_t x = 0, y = 0;
    MapToDevice(125.0, 0.002, &x, &y);
    CPen oldPen = dc.SelectObject(CPen{PS_DASH, 0, RGB(0, 0, 255)});
    dc.MoveTo(g_Layout.left, g_Layout.bottom);
    for (int i = 1; i <= 6; ++i) dc.LineTo(g_Layout.left + 20 * i, g_Layout.bottom - (i % 2 ? 30 : 10) * i);
    dc.SelectObject(CPen{PS_SOLID, 3, RGB(200, 0, 0)});
    dc.MoveTo(x, y - 40);
    dc.LineTo(x, y + 40);
    dc.SelectObject(oldPen);
    CBrush oldBrush = dc.SelectStockObject(LTGRAY_BRUSH);
    DrawBox(dc, x + 30, y + 10, x - 30, y - 10);
    dc.SelectObject(oldBrush);
    DrawPlusMarker(dc, x, y, RGB(255, 0, 0));
    DrawArrowMark(dc, x + 60, y, true, 20, 5, RGB(0, 128, 0));
    DrawArrowMark(dc, x - 60, y, false, 20, 5, RGB(0, 128, 0));
    dc.SelectObject(CFont{16, FW_NORMAL, ""});
    dc.SetBkMode(OPAQUE);
    dc.SetTextAlign(TA_RIGHT | TA_BOTTOM);
    dc.TextOut(x - 70, y, "Max 0.0038");
    dc.SetTextAlign(TA_LEFT | TA_BASELINE);
    dc.TextOut(x + 70, y, "Avg 0.002");
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextAlign(TA_LEFT | TA_TOP);
    DrawTextFitted(dc, "a legend far too long to fit beside the plot in one line of text", x, y + 20, 0);
}

QString Describe(const DrawOp& op) {
    static const char* kinds[] = {"line", "rect", "text"};
    return QStringLiteral("%1 (%2,%3)-(%4,%5) [%6,%7,%8,%9] \"%10\"")
        .arg(kinds[op.kind])
        .arg(op.from.x)
        .arg(op.from.y)
        .arg(op.to.x)
        .arg(op.to.y)
        .arg(op.rect.left)
        .arg(op.rect.top)
        .arg(op.rect.right)
        .arg(op.rect.bottom)
        .arg(QString::fromStdString(op.text));
}

QColor Colour(COLORREF c) { return QColor(GetRValue(c), GetGValue(c), GetBValue(c)); }

void CheckPen(const DrawOp& op, const QPen& pen) {
    if (op.pen.style == PS_NULL) {
        QCOMPARE(pen.style(), Qt::NoPen);
        return;
    }
    QCOMPARE(pen.color(), Colour(op.pen.color));
    QCOMPARE(pen.style(), op.pen.style == PS_SOLID ? Qt::SolidLine : Qt::CustomDashLine);
    QCOMPARE(pen.capStyle(), Qt::FlatCap);
    QCOMPARE(pen.width(), op.pen.width > 1 ? op.pen.width : 0);
}

// Where a text drawn at left, baseline with the real face's extent puts the
// point the alignment names.
void CheckText(const DrawOp& op, const Painted& p) {
    QCOMPARE(p.text, QString::fromStdString(op.text));
    QFontInfo face(p.font);
    QCOMPARE(face.family(), QStringLiteral("Liberation Sans"));
    QCOMPARE(face.bold(), op.font.weight >= 600);
    FontBox box = font_Box(op.font);
    QVERIFY2(std::abs(p.ascent + p.descent - (box.ascent + box.descent)) <= 1.0, qPrintable(Describe(op)));
    // Qt's advances of the face against the layout's table. FreeType sets a
    // TrueType face at a whole number of pixels per em, so a width may differ
    // by half a pixel per em, and a pixel for the rounding of the table's.
    double tolerance = 1.0 + p.width * 0.5 / box.em;
    double anchorX = p.at.x();
    if ((op.align & TA_CENTER) == TA_CENTER)
        anchorX += p.width / 2;
    else if (op.align & TA_RIGHT)
        anchorX += p.width;
    QVERIFY2(std::abs(anchorX - op.from.x) <= tolerance, qPrintable(Describe(op)));
    double anchorY = p.at.y() - p.ascent;
    if ((op.align & TA_BASELINE) == TA_BASELINE)
        anchorY = p.at.y();
    else if (op.align & TA_BOTTOM)
        anchorY = p.at.y() + p.descent;
    QVERIFY2(std::abs(anchorY - op.from.y) <= 1.0, qPrintable(Describe(op)));
}

// Walks the recorded operations and the painted calls side by side.
void ComparePainted(const std::vector<DrawOp>& ops, const std::vector<Painted>& painted) {
    std::size_t next = 0;
    for (const DrawOp& op : ops) {
        QVERIFY2(next < painted.size(), qPrintable(QStringLiteral("not painted: ") + Describe(op)));
        if (op.kind == DrawOp::kText && op.bkMode == OPAQUE) {
            // An opaque text clears its box first.
            QCOMPARE(painted[next].kind, Painted::kFill);
            QCOMPARE(painted[next].brush.color(), QColor(Qt::white));
            ++next;
        }
        const Painted& p = painted[next++];
        switch (op.kind) {
            case DrawOp::kLine:
                QVERIFY2(p.kind == Painted::kLine, qPrintable(Describe(op)));
                QCOMPARE(p.line, QLine(op.from.x, op.from.y, op.to.x, op.to.y));
                CheckPen(op, p.pen);
                break;
            case DrawOp::kRect:
                QVERIFY2(p.kind == Painted::kRect, qPrintable(Describe(op)));
                // A one-pixel outline of a rectangle one narrower covers the columns the
                // core's rectangle does, its right and bottom edge left out.
                QCOMPARE(p.rect, QRect(QPoint(op.rect.left, op.rect.top), QPoint(op.rect.right - 2, op.rect.bottom - 2)));
                CheckPen(op, p.pen);
                QCOMPARE(p.brush.style() == Qt::NoBrush, op.brush.hollow);
                if (!op.brush.hollow) QCOMPARE(p.brush.color(), Colour(op.brush.color));
                break;
            case DrawOp::kText:
                QVERIFY2(p.kind == Painted::kText, qPrintable(Describe(op)));
                CheckText(op, p);
                break;
        }
        if (QTest::currentTestFailed()) return;
    }
    QCOMPARE(next, painted.size());
}

// Takes the frame an analysis opens; any message fails the test.
class FrameHost : public IHost {
public:
    int ShowMessage(int, const std::string& text, unsigned) override {
        messages << QString::fromStdString(text);
        return IDOK;
    }
    void ShowFrame(std::unique_ptr<CDocFrame> f) override { frame = std::move(f); }
    std::unique_ptr<CDocFrame> frame;
    QStringList messages;
};

// The entries of a user who runs the command on files a and b: both files (as
// a pair where the dialog takes pairs), or file a alone; the rest as the
// dialog starts, but for the entries that have no usable default.
void FillDialog(CDialog& dlg, const std::string& a, const std::string& b) {
    if (auto* single = dynamic_cast<CBaseDlg*>(&dlg)) {
        single->m_strFile = a;
        single->m_strReps = "All";
    } else if (auto* multi = dynamic_cast<CBaseMultiDlg*>(&dlg)) {
        multi->AddFile(a, "All");
        multi->AddFile(b, "Lumped");
    } else if (auto* pairs = dynamic_cast<CBasePairsDlg*>(&dlg)) {
        pairs->AddPair(CMultiFileItem(a, "All"), CMultiFileItem(b, "All"));
    }
    for (const DlgField& f : dlg.Fields()) {
        if (std::string_view(f.key) == "maxLags") *f.text = "6";
        if (std::string_view(f.key) == "window") *f.text = "5";
    }
}

}  // namespace

class QtDCTest : public QObject {
    Q_OBJECT
private slots:
    void paintsWhatTheCoreDraws_data();
    void paintsWhatTheCoreDraws();
    void analysesPaintWhatTheCoreDraws_data();
    void analysesPaintWhatTheCoreDraws();
};

void QtDCTest::paintsWhatTheCoreDraws_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("printing");
    const std::pair<int, const char*> kinds[] = {
        {GK_ORDINARY, "ordinary"}, {GK_ANOVA, "anova"}, {GK_HISTOGRAM, "histogram"}, {GK_CORRELOGRAM, "correlogram"}};
    for (auto [kind, name] : kinds) {
        QTest::newRow(qPrintable(QStringLiteral("%1 on screen").arg(name))) << kind << false;
        QTest::newRow(qPrintable(QStringLiteral("%1 on paper").arg(name))) << kind << true;
    }
}

void QtDCTest::paintsWhatTheCoreDraws() {
    QFETCH(int, kind);
    QFETCH(bool, printing);
    const CRect client{0, 0, 800, 600};
    // Paper: a page of 300 dpi, three times the window in each direction.
    const QSize device = printing ? QSize(2400, 1800) : QSize(800, 600);
    const int dpi = printing ? 300 : 96;

    FaceRecordingDC recorded(device.width(), device.height(), printing);
    DrawSample(recorded, kind, client);

    RecordingDevice target(device, dpi);
    {
        QPainter painter(&target);
        CQtDC dc(painter, device.width(), device.height(), printing);
        DrawSample(dc, kind, client);
    }
    ComparePainted(recorded.Ops(), target.Calls());
}

void QtDCTest::analysesPaintWhatTheCoreDraws_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<bool>("printing");
    // Every command whose window holds a graph view; the table's rows decide, so
    // an analysis added later is checked too.
    for (const GroupCommand& c : grp_Commands()) {
        if (!c.make.Built()) continue;
        auto dlg = c.make.createDialog();
        auto doc = c.make.createDocument();
        bool graph = false;
        for (const auto& v : c.make.createViews(*doc))
            graph = graph || (dynamic_cast<CView*>(v.get()) && !dynamic_cast<CTextView*>(v.get()));
        if (!graph) continue;
        QTest::newRow(qPrintable(QStringLiteral("%1 on screen").arg(c.templateName))) << c.exportName << false;
        QTest::newRow(qPrintable(QStringLiteral("%1 on paper").arg(c.templateName))) << c.exportName << true;
    }
}

void QtDCTest::analysesPaintWhatTheCoreDraws() {
    QFETCH(QString, command);
    QFETCH(bool, printing);
    // Two files of three replications of 60 waits, in a pattern with a trend
    // and a cycle so that every statistic and graph has something to show.
    TempDir dir;
    auto reps = [](double base) {
        std::vector<std::vector<Rec>> r(3);
        for (int k = 0; k < 3; ++k)
            for (int i = 0; i < 60; ++i) r[k].push_back({i + 1.0, base + k + i * 0.05 + (i * 7 + k * 3) % 11});
        return test_Replications(r);
    };
    const std::string a = dir.Path("a.dat"), b = dir.Path("b.dat");
    test_WriteDataFile(a, HeaderFields{}, reps(10.0));
    test_WriteDataFile(b, HeaderFields{}, reps(12.5));

    const GroupCommand& row = *grp_FindCommand(command.toStdString());
    std::unique_ptr<CDialog> dlg = row.make.createDialog();
    FillDialog(*dlg, a, b);
    FrameHost host;
    ScopedHost scope(&host);
    std::string exchange;
    QVERIFY2(dlg->ExchangeFields(&exchange), exchange.c_str());
    QCOMPARE(dlg->Validate(nullptr), 0);
    QCOMPARE(grp_OpenAnalysis(row, *dlg), 0);
    QVERIFY(host.frame);

    // Each graph view in the share of the window it takes, at three times the
    // window's resolution on paper.
    const std::vector<GraphPane> panes = out_GraphPanes(*host.frame, QSize(800, 600));
    QVERIFY(!panes.empty());
    const int scale = printing ? 3 : 1;
    for (const GraphPane& pane : panes) {
        const QSize device = pane.size * scale;
        const CRect client{0, 0, pane.size.width(), pane.size.height()};
        if (printing) {
            // The printout takes its ticks from the screen, as out_PaintGraphPage does.
            QImage screen(pane.size, QImage::Format_RGB32);
            QPainter screenPainter(&screen);
            GraphWidget::Render(*pane.view, screenPainter, pane.size);
        }
        FaceRecordingDC recorded(device.width(), device.height(), printing);
        pane.view->SetClientRect(client);
        pane.view->OnDraw(recorded);

        RecordingDevice target(device, printing ? 288 : 96);
        {
            QPainter painter(&target);
            GraphWidget::Messages messages = GraphWidget::Draw(*pane.view, painter, client, device, printing);
            QVERIFY(messages.empty());
        }
        QVERIFY(!recorded.Ops().empty());
        ComparePainted(recorded.Ops(), target.Calls());
        if (QTest::currentTestFailed()) return;
    }
    QCOMPARE(host.messages, QStringList());
}

QTEST_MAIN(QtDCTest)
#include "QtDCTest.moc"
