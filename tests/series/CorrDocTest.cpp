#include "series/CorrDoc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "ExactSeries.h"
#include "TestFiles.h"
#include "framework/Config.h"
#include "group/RecordingHost.h"
#include "report/TextView.h"
#include "series/CorrDlg.h"
#include "series/CorrTextView.h"

namespace {

struct CorrRun {
    int rc = 0;
    std::unique_ptr<CCorrDoc> doc;
    std::string report;
};

CorrRun Correlogram(const std::string& file, const std::string& reps, int lags, const std::string& out = "",
                    const std::string& title = "", std::optional<CLagProducts::Method> method = {}) {
    CCorrDlg dlg;
    dlg.m_strFile = file;
    dlg.m_strReps = reps;
    dlg.m_nMaxLags = lags;
    dlg.m_strOutFile = out;
    dlg.m_strTitle = title;
    CorrRun run;
    run.doc = std::make_unique<CCorrDoc>();
    run.doc->m_forceMethod = method;
    run.rc = run.doc->InitFromDialog(dlg);
    if (run.rc == 0) {
        CCorrTextView view;
        view.SetDocument(run.doc.get());
        run.report = txt_ReportText(view);
    }
    return run;
}

std::string Pad(const std::string& s, std::size_t width) { return std::string(width - s.size(), ' ') + s; }

class CorrDoc : public ::testing::Test {
protected:
    TempDir dir;
};

// x = 2, 4, 6, 5, 3: mean 4, deviations -2, 0, 2, 1, -1, variance 10/5 = 2.
// Lag 1: 0 + 0 + 2 - 1 = 1, c1 = 0.2, r1 = 0.1. Lag 2: -4 + 0 - 2 = -6,
// c2 = -1.2, r2 = -0.6. Lag 3: -2 + 0 = -2, c3 = -0.4, r3 = -0.2.
// Weighted sum: 2 (0.8 * 0.2 + 0.6 * -1.2 + 0.4 * -0.4) = -1.44.
TEST_F(CorrDoc, HandWorkedSeriesReport) {
    std::string path = dir.WriteReps("x.dat", 3, {{2, 4, 6, 5, 3}});
    for (auto method : {CLagProducts::Method::Direct, CLagProducts::Method::Fft}) {
        const std::string expected = Pad("Correlogram Summary", 45) + "\n" + Pad("Hand", 45) + "\n\n" +
                                     Pad("Sample Mean", 35) + " : " + Pad("4", 11) + "\n" +
                                     Pad("Sample Variance", 35) + " : " + Pad("2", 11) + "\n" +
                                     Pad("Sample Size", 35) + " : " + Pad("5", 11) + "\n" +
                                     Pad("Weighted Sum of Cov.", 35) + " : " + Pad("-1.44", 11) + "\n\n" +
                                     Pad("Correlation/Covariance Values", 45) + "\n\n" +
                                     "     Lag   Covariance  Correlation\n"
                                     "       1          0.2          0.1\n"
                                     "       2         -1.2         -0.6\n"
                                     "       3         -0.4         -0.2\n";
        EXPECT_EQ(Correlogram(path, "", 3, "", "Hand", method).report, expected);
    }
}

TEST_F(CorrDoc, NoTitleLineWithoutATitle) {
    std::string path = dir.WriteReps("x.dat", 3, {{2, 4, 6, 5, 3}});
    CorrRun run = Correlogram(path, "", 1);
    ASSERT_EQ(run.rc, 0);
    EXPECT_EQ(run.report.substr(0, 47), Pad("Correlogram Summary", 45) + "\n\n");
    // L = 1: weighted sum 2 (1 - 1/5) c1 = 0.32.
    EXPECT_NEAR(run.doc->Results().weightedSum, 0.32, 1e-15);
}

// x = 1, 3, 1, 3: mean 2, variance 1; lag 1: -3 / 4 = -0.75, lag 2: 2 / 4 = 0.5:
// every number is exact in binary, so the file can be compared byte by byte.
TEST_F(CorrDoc, SavedFileLayout) {
    std::string path = dir.Path("src.dat");
    HeaderFields src;
    src.ident = "SRCID";
    src.title = "Source title";
    src.reinit = false;
    test_WriteDataFile(path, src, test_Replications({test_Obs({1, 3, 1, 3})}));
    std::string out = dir.Path("x.cor");
    CorrRun run = Correlogram(path, "1", 2, out, "Saved");
    ASSERT_EQ(run.rc, 0);
    HeaderFields cor;
    cor.kind = 5;
    cor.type = "Filtered";
    cor.ident = "SRCID";
    cor.title = "Saved";
    cor.reinit = false;
    EXPECT_EQ(test_ReadBytes(out), test_HeaderBytes(cor) + test_RecordBytes({{1, -0.75}, {2, 0.5}, {-1, -1}}, true));
    EXPECT_EQ(run.doc->Results().variance, 1.0);
    EXPECT_EQ(run.doc->Results().weightedSum, 2 * (0.75 * -0.75 + 0.5 * 0.5));

    // The precision follows the configuration, header flag included.
    cfg_SetDoublePrecOutput(0);
    src.reinit = true;
    test_WriteDataFile(path, src, test_Replications({test_Obs({1, 3, 1, 3})}));
    CorrRun single = Correlogram(path, "Lumped", 2, out, "Saved");
    cfg_SetDoublePrecOutput(1);
    ASSERT_EQ(single.rc, 0);
    cor.isDouble = false;
    cor.reinit = true;
    EXPECT_EQ(test_ReadBytes(out), test_HeaderBytes(cor) + test_RecordBytes({{1, -0.75}, {2, 0.5}, {-1, -1}}, false));
}

// Under "All" each replication's lags are followed by the marker that closed
// it; the report lists the first replication's lags and the last one's summary.
TEST_F(CorrDoc, AllReplications) {
    std::string path = dir.WriteReps("two.dat", 3, {{1, 3, 1, 3}, {2, 4, 6, 5, 3}});
    std::string out = dir.Path("all.cor");
    CorrRun run = Correlogram(path, "All", 2, out);
    ASSERT_EQ(run.rc, 0);
    EXPECT_EQ(run.doc->m_nTreatment, -1);
    ASSERT_EQ(static_cast<int>(run.doc->Results().lags.size()), 4);
    EXPECT_EQ(run.doc->Results().lags[2].lag, 1);
    EXPECT_NEAR(run.doc->Results().lags[3].correlation, -0.6, 1e-15);
    EXPECT_EQ(run.doc->Results().mean, 4.0);
    EXPECT_EQ(run.doc->Results().size, 5);
    // 2 (0.8 * 0.2 + 0.6 * -1.2) = -1.12
    EXPECT_NEAR(run.doc->Results().weightedSum, -1.12, 1e-14);
    EXPECT_NE(run.report.find("       1        -0.75        -0.75\n       2          0.5          0.5\n"),
              std::string::npos);
    EXPECT_EQ(run.report.find("-0.6"), std::string::npos);

    std::string bytes = test_ReadBytes(out);
    std::string records = bytes.substr(bytes.find('\x1a') + 1);
    ASSERT_EQ(records.size(), 6u * 16u);
    EXPECT_EQ(records.substr(0, 48), test_RecordBytes({{1, -0.75}, {2, 0.5}, {-1, 0}}, true));
    EXPECT_EQ(records.substr(80, 16), test_RecordBytes({{-2, -1}}, true));
}

TEST_F(CorrDoc, LumpedReadsAcrossReplications) {
    std::string path = dir.WriteReps("two.dat", 3, {{1, 3}, {1, 3}});
    CorrRun run = Correlogram(path, "Lumped", 2);
    ASSERT_EQ(run.rc, 0);
    EXPECT_EQ(run.doc->Results().size, 4);
    EXPECT_EQ(run.doc->Results().lags[0].covariance, -0.75);
    CorrRun first = Correlogram(path, "", 1);
    ASSERT_EQ(first.rc, 0);
    EXPECT_EQ(first.doc->Results().size, 2);
}

TEST_F(CorrDoc, SkipMarkersAreNotObservations) {
    std::string path = dir.Path("skip.dat");
    std::vector<Rec> recs = {{1, 1}, {-1, -2}, {2, 3}, {3, 1}, {-1, -2}, {4, 3}, {-1, -1}};
    test_WriteDataFile(path, {}, recs);
    CorrRun run = Correlogram(path, "", 2);
    ASSERT_EQ(run.rc, 0);
    EXPECT_EQ(run.doc->Results().size, 4);
    EXPECT_EQ(run.doc->Results().lags[1].correlation, 0.5);
}

TEST_F(CorrDoc, TooFewObservationsLeaveNoFile) {
    std::string path = dir.WriteReps("x.dat", 3, {{2, 4, 6, 5, 3}});
    std::string out = dir.Path("x.cor");
    test_WriteBytes(out, "earlier contents");
    RecordingHost host;
    ScopedHost scope(&host);
    EXPECT_EQ(Correlogram(path, "", 5, out).rc, 15831);
    EXPECT_EQ(test_ReadBytes(out), "earlier contents");
    EXPECT_EQ(Correlogram(path, "", 4, out).rc, 0);
    EXPECT_NE(test_ReadBytes(out), "earlier contents");
    std::filesystem::remove(out);
    EXPECT_EQ(Correlogram(path, "", 5, out).rc, 15831);
    EXPECT_FALSE(std::filesystem::exists(out));
    for (const auto& entry : std::filesystem::directory_iterator(dir.Dir()))
        EXPECT_NE(entry.path().filename().string().front(), '.') << "temporary file left: " << entry.path();
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(CorrDoc, ConstantSeriesDividesByZero) {
    std::string path = dir.WriteReps("c.dat", 3, {{7, 7, 7, 7}});
    CorrRun run = Correlogram(path, "", 2);
    ASSERT_EQ(run.rc, 0);
    EXPECT_EQ(run.doc->Results().variance, 0.0);
    EXPECT_EQ(run.doc->Results().lags[0].covariance, 0.0);
    EXPECT_TRUE(std::isnan(run.doc->Results().lags[0].correlation));
}

// Series offset + k * 2^-bits against exact arithmetic on the stored values,
// by both methods. Centred on the rounded mean, the products of the first two
// are off by several percent unless the mean's residual is taken out.
TEST_F(CorrDoc, OffsetSeriesGiveTheExactCovariances) {
    const struct {
        const char* name;
        std::int64_t offset;  // in units of 2^-bits
        int bits;
        std::vector<std::int64_t> ks;
        bool isDouble;
        int lags;
    } cases[] = {
        {"10^9 + noise of 2e-6", 1'000'000'000LL << 23, 23, test_IntNoise(400, 15), true, 10},
        {"10^7 + AR(1) of 1e-3", 10'000'000LL << 29, 29, test_IntAr1(2000, 200'000), true, 20},
        {"single precision, 10^4 + noise of 0.03", 10'000LL << 10, 10, test_IntNoise(1000, 15), false, 10},
    };
    for (const auto& c : cases) {
        const double unit = test_Ulp(c.bits);
        std::vector<double> x;
        for (std::int64_t k : c.ks) x.push_back(static_cast<double>(c.offset + k) * unit);
        HeaderFields h;
        h.isDouble = c.isDouble;
        const std::string path = dir.Path("offset.dat");
        test_WriteDataFile(path, h, test_Replications({test_Obs(x)}));

        // n^2 c_j = unit^2 / n sum (n k_t - K)(n k_t+j - K), in integers.
        const i128 n = static_cast<i128>(c.ks.size());
        i128 K = 0, K2 = 0;
        for (std::int64_t k : c.ks) {
            K += k;
            K2 += static_cast<i128>(k) * k;
        }
        const long double dn = static_cast<long double>(c.ks.size());
        const long double scale = static_cast<long double>(unit) * unit / (dn * dn * dn);
        const long double variance = static_cast<long double>(n * K2 - K * K) / (dn * dn) * unit * unit;
        std::vector<long double> cov;
        i128 weighted = 0;
        for (int j = 1; j <= c.lags; ++j) {
            i128 a = 0;
            for (std::size_t t = 0; t + j < c.ks.size(); ++t) a += (n * c.ks[t] - K) * (n * c.ks[t + j] - K);
            cov.push_back(static_cast<long double>(a) * scale);
            weighted += (n - j) * a;
        }
        const double exactWeighted = static_cast<double>(2 * static_cast<long double>(weighted) * scale / dn);

        for (auto method : {CLagProducts::Method::Direct, CLagProducts::Method::Fft}) {
            SCOPED_TRACE(std::string(c.name) + (method == CLagProducts::Method::Fft ? ", FFT" : ", direct"));
            CorrRun run = Correlogram(path, "", c.lags, "", "", method);
            ASSERT_EQ(run.rc, 0);
            const CorrResults& r = run.doc->Results();
            const double v = static_cast<double>(variance);
            EXPECT_NEAR(r.variance, v, v * 1e-15);
            for (int j = 1; j <= c.lags; ++j)
                EXPECT_NEAR(r.lags[j - 1].covariance, static_cast<double>(cov[j - 1]), v * 1e-12) << "lag " << j;
            EXPECT_NEAR(r.weightedSum, exactWeighted, v * 1e-11);
        }
    }
}

TEST_F(CorrDoc, ReplicationBeyondTheFile) {
    std::string path = dir.WriteReps("x.dat", 3, {{2, 4, 6, 5, 3}});
    CCorrDoc doc;
    ASSERT_TRUE(doc.OnOpenDocument(path.c_str()));
    doc.m_nMaxLags = 1;
    doc.m_nTreatment = 2;
    EXPECT_EQ(doc.Compute(), 15804);
}

}  // namespace
