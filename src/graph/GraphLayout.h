// The axis machinery shared by every graph: one module-wide layout record, the
// scaling steps (label format, data range, tick steps), the frame with its
// titles, ticks and labels, and the drawing primitives the views use for data.
// Only one graph is drawn at a time; the record is not re-entrant.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "framework/DC.h"

// What a view saves so that a printed page shows the ticks of the screen.
struct TickBlock {
    double xMajor = 0.0;
    double xMinor = 0.0;
    double yMajor = 0.0;
    double yMinor = 0.0;
    // Working values: x and y label decimals, then the first major and first
    // minor tick of each axis as last drawn.
    double work[6] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
    double nextXMajor = 0.0;
    double nextYMajor = 0.0;
};

enum GraphKind : std::int16_t {
    GK_ORDINARY = 0,
    GK_ANOVA = 1,        // no x ticks; titles inset from the right
    GK_HISTOGRAM = 2,    // x steps in cell widths, fixed y steps
    GK_CORRELOGRAM = 3,  // whole lags on x, fixed y steps
};

struct GraphLayout {
    std::int16_t winWidth = 0;   // never filled by a view: every class stays 1 on screen
    std::int16_t winHeight = 0;
    std::int16_t hClass = 1;
    std::int16_t hClass2 = 1;
    std::int16_t vClass = 1;
    std::int16_t vClass2 = 1;
    double scale = 1.0;
    std::int32_t hMargin = 50;
    std::int32_t vMargin = 50;

    std::int16_t left = 0;
    std::int16_t right = 0;
    std::int16_t top = 0;
    std::int16_t bottom = 0;
    std::int16_t plotWidth = 0;
    std::int16_t plotHeight = 0;

    double xMin = 0.0, xMax = 0.0, xRange = 0.0;
    double yMin = 0.0, yMax = 0.0, yRange = 0.0;
    double xPerUnit = 0.0;
    double yPerUnit = 0.0;

    std::int16_t xLabelWidth = 4;
    std::int16_t yLabelWidth = 4;
    std::int16_t xExponentCode = 0;
    std::int16_t yExponentCode = 0;
    std::int16_t yTitleIndent = 0;

    TickBlock ticks;

    std::string xTitle;
    std::string yTitle;
    std::string graphTitle;

    // Step tables, 1-based as the search walks them.
    double majorMult[5] = {0.0, 0.0, 0.0, 0.0, 0.0};
    double minorMult[5] = {0.0, 0.0, 0.0, 0.0, 0.0};
    double histMult[5] = {0.0, 0.0, 0.0, 0.0, 0.0};
    bool tablesFilled = false;
};

extern GraphLayout g_Layout;

// Size classes, device scale, margins and plot rectangle for a client area.
void LayoutPlotArea(const CRect& client, CDC& dc);
void ComputeLabelFormat(double xMin, double xMax, double yMin, double yMax);
void SetDataRange(int indentMultiplier, double xMin, double xMax, double yMin, double yMax);
void ChooseTickSteps();
// The histogram's x steps: multiples of the cell width set in ticks.xMinor.
void ChooseHistogramSteps();

// The whole frame: titles, exponent factors, box, ticks and labels. range
// holds x minimum, x maximum, y minimum, y maximum; ticks may be null.
void DrawGraphFrame(CDC& dc, const double* range, const std::string& xTitle, const std::string& yTitle,
                    const std::string& graphTitle, int kind, TickBlock* ticks);
// The two tick walks of the frame, for charts that draw their own frame.
void DrawYTicks(CDC& dc);
void DrawXTicks(CDC& dc);

void MapToDevice(double x, double y, std::int16_t* outX, std::int16_t* outY);

// MapToDevice for the many points of a curve: the layout read once and the
// mapping inline, without branches, so that the points of a run go through it
// side by side. MapToDevice is this mapping.
class CDeviceMap {
public:
    explicit CDeviceMap(const GraphLayout& L)
        : m_xMin(L.xMin), m_xMax(L.xMax), m_yMin(L.yMin), m_yMax(L.yMax), m_xPerUnit(L.xPerUnit),
          m_yPerUnit(L.yPerUnit), m_left(L.left), m_bottom(L.bottom) {}

    CPoint operator()(double x, double y) const {
        return {Device(m_left + Steps(x, m_xMin, m_xMax, m_xPerUnit)),
                Device(m_bottom - Steps(y, m_yMin, m_yMax, m_yPerUnit))};
    }

private:
    // Whole steps of perUnit from lo to v clamped into [lo, hi], rounded half
    // away from zero and held within +-2e9, as RoundHalfAway does (std::max
    // and std::min keep a value that is not a number, as the clamps' ifs do).
    static std::int64_t Steps(double v, double lo, double hi, double perUnit) {
        v = std::min(std::max(v, lo), hi);
        const double u = (v - lo) * perUnit;
        const double r = u + (u >= 0.0 ? 0.5 : -0.5);
        if (!(r == r)) return 0;
        return static_cast<std::int64_t>(std::min(std::max(r, -2e9), 2e9));  // cuts toward zero
    }
    // axis_To16 of the device coordinate: a whole number, which the sum in
    // doubles of MapToDevice's older form held exactly too.
    static int Device(std::int64_t v) {
        return static_cast<int>(std::min<std::int64_t>(std::max<std::int64_t>(v, -32768), 32767));
    }

    double m_xMin, m_xMax, m_yMin, m_yMax, m_xPerUnit, m_yPerUnit;
    std::int64_t m_left, m_bottom;
};

// Writes the label of one tick value into out (at least width + 3 bytes).
void FormatAxisNumber(double value, int width, int decimals, bool isReal, char* out);
int DecimalsForStep(double step, int exponentCode, int width);

void DrawBox(CDC& dc, int x1, int y1, int x2, int y2);
void DrawPlusMarker(CDC& dc, int x, int y, COLORREF colour);
void DrawArrowMark(CDC& dc, int x, int y, bool pointsUp, int shaftLength, int headSize, COLORREF colour);
void DrawTextFitted(CDC& dc, const char* text, int x, int y, int reserve);

int BreakAtSpace(const char* text, int maxLength);
double IntPower(double base, int exponent);
long RoundHalfAway(double value);
