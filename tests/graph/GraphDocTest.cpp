// Loading the points of a replication inside a window, and the bounds taken
// from the data.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "TestFiles.h"
#include "datafile/FileGlobals.h"
#include "framework/Messages.h"
#include "graph/GraphDoc.h"
#include "graph/PlotDoc.h"

namespace {

struct Point {
    double t, v;
    bool operator==(const Point&) const = default;
};

std::vector<Point> Points(const CGraphDoc& doc) {
    std::vector<Point> out;
    for (long i = 0; i < doc.m_nPoints; ++i) out.push_back({doc.m_xValues[i], doc.m_yValues[i]});
    return out;
}

class GraphDocTest : public ::testing::Test {
protected:
    // Two replications: times 1..4 with values 10, 20, 30, 40, then 1..2.
    void SetUp() override {
        path = dir.Path("g.dat");
        test_WriteDataFile(path, HeaderFields{},
                           test_Replications({{{1, 10}, {2, 20}, {-1, -2}, {3, 30}, {4, 40}}, {{1, 5}, {2, 6}}}));
    }
    // Opens the file, sets treatment and window, loads.
    int Load(CGraphDoc& doc, int treatment, double from, double to) {
        EXPECT_TRUE(doc.OnOpenDocument(path.c_str()));
        doc.m_nTreatment = treatment;
        doc.XMin() = from;
        doc.XMax() = to;
        return doc.LoadGraphPoints();
    }
    TempDir dir;
    std::string path;
};

// The last point before the window is carried in; a point after it ends the
// scan; a replication ends at its marker unless lumped. Every load ends with
// the mark -1.
TEST_F(GraphDocTest, WindowPoints) {
    struct {
        int treatment;
        double from, to;
        std::vector<Point> points;
    } const cases[] = {
        {1, 2.5, 3.5, {{2, 20}, {3, 30}}},
        {1, 5.0, 6.0, {}},  // every record lies before the window
        {1, 0.5, 10.0, {{1, 10}, {2, 20}, {3, 30}, {4, 40}}},
        {2, 0.0, 10.0, {{1, 5}, {2, 6}}},
        {REP_LUMPED, 0.0, 10.0, {{1, 10}, {2, 20}, {3, 30}, {4, 40}, {1, 5}, {2, 6}}},
    };
    for (const auto& c : cases) {
        CGraphDoc doc;
        ASSERT_EQ(Load(doc, c.treatment, c.from, c.to), 0) << c.treatment << " " << c.from;
        EXPECT_EQ(Points(doc), c.points) << c.treatment << " " << c.from;
        EXPECT_EQ(doc.m_xValues[c.points.size()], -1.0) << c.treatment << " " << c.from;
        EXPECT_EQ(doc.m_yValues[c.points.size()], -1.0) << c.treatment << " " << c.from;
    }
    CGraphDoc beyond;
    EXPECT_EQ(Load(beyond, 4, 0.0, 10.0), IDS_INVALID_REP_TREATMENT);
}

TEST_F(GraphDocTest, LoadGraphDataFillsOpenBoundsFromTheReplication) {
    CGraphDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    doc.XMin() = -1.0;  // the dialog's "empty"
    doc.XMax() = -1.0;
    ASSERT_EQ(doc.LoadGraphData(), 0);
    EXPECT_EQ(doc.XMin(), 1.0);
    EXPECT_EQ(doc.XMax(), 4.0);
    EXPECT_EQ(doc.YMin(), 10.0);
    EXPECT_EQ(doc.YMax(), 40.0);
    EXPECT_EQ(doc.m_nPoints, 4);
    EXPECT_EQ(doc.m_xValues.size(), 5u);  // records + 1
}

// Given times limit the values taken from the data; a bound of 0 counts as
// not given. A range of no width is widened by 0.1, the times at their end
// only. Bounds that leave nothing to draw give their message.
TEST_F(GraphDocTest, BoundsGivenOrTakenFromTheData) {
    const double any = NAN;  // not checked
    struct {
        const char* what;
        std::vector<Rec> recs;  // empty: the fixture's file
        double given[4];        // x min, x max, y min, y max
        int rc;
        double want[4];
    } const cases[] = {
        {"given times", {}, {2, 3, 0, 0}, 0, {any, any, 20, 30}},
        {"zero is not given", {}, {0, 3, 0, 100}, 0, {1, any, 10, 100}},
        {"no width", {{5, 3}, {5, 3}, {-1, -1}}, {-1, -1, 0, 0}, 0, {5, 5.1, 2.9, 3.1}},
        // The last time becomes the maximum, the largest value the maximum.
        {"start after the last time", {}, {10, -1, 0, 0}, IDS_ENDING_TIME, {any, any, any, any}},
        {"minimum above every value", {}, {-1, -1, 50, 0}, IDS_VALUE_RANGE, {any, any, any, any}},
        {"no observations", {{-1, -1}}, {-1, -1, 0, 0}, IDS_ENDING_TIME, {any, any, any, any}},  // 1e20 > -1e20
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::string file = path;
        if (!c.recs.empty()) test_WriteDataFile(file = dir.Path("other.dat"), {}, c.recs);
        CGraphDoc doc;
        ASSERT_TRUE(doc.OnOpenDocument(file.c_str()));
        doc.XMin() = c.given[0];
        doc.XMax() = c.given[1];
        doc.YMin() = c.given[2];
        doc.YMax() = c.given[3];
        ASSERT_EQ(doc.LoadGraphData(), c.rc);
        for (int i = 0; i < 4; ++i) {
            if (!std::isnan(c.want[i])) {
                EXPECT_DOUBLE_EQ(doc.Range()[i], c.want[i]) << i;
            }
        }
    }
}

TEST(PlotDocWindow, ValuesOutsideTheRangeAreLeftOut) {
    TempDir dir;
    std::string path = dir.Path("p.dat");
    test_WriteDataFile(path, HeaderFields{}, test_Replications({{{1, 1}, {2, 9}, {3, 2}, {4, 3}}}));
    CPlotDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    doc.XMin() = 0.5;
    doc.XMax() = 10.0;
    doc.YMin() = 0.5;
    doc.YMax() = 5.0;
    ASSERT_EQ(doc.LoadGraphPoints(), 0);
    EXPECT_EQ(Points(doc), (std::vector<Point>{{1, 1}, {3, 2}, {4, 3}}));
}

}  // namespace
