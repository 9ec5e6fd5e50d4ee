#include "series/FiltrView.h"

#include "framework/Messages.h"
#include "framework/WholeNumber.h"
#include "series/FiltrDoc.h"

namespace {

constexpr int kTitle = 15871;
constexpr int kStoredIn = 15872;
constexpr int kTimeTruncated = 15861;
constexpr int kObsTruncated = 15862;
constexpr int kBatches = 15863;
constexpr int kTimePerBatch = 15864;
constexpr int kObsPerBatch = 15865;
constexpr int kTrailingTime = 15866;
constexpr int kTrailingObs = 15867;
constexpr int kCovEstimate = 15868;
constexpr int kRejectPositive = 15869;
constexpr int kRejectNonZero = 15870;

}  // namespace

// The labels of this summary are longer than the shared layout allows for.
CFiltrView::CFiltrView() {
    m_szTitleFmt = "%50s\n";
    m_szLabelFmt = "%45s :";
}

const CFiltrDoc* CFiltrView::Doc() const { return dynamic_cast<const CFiltrDoc*>(GetDocument()); }

void CFiltrView::WriteReport(FILE* f) {
    const CFiltrDoc* doc = Doc();
    if (!doc) return;
    auto label = [&](int id) { std::fprintf(f, m_szLabelFmt, msg_Text(id).c_str()); };
    auto whole = [&](int id, double x) {
        label(id);
        std::fprintf(f, m_szIntFmt, WholeLong(x));
    };
    auto real = [&](int id, double x) {
        label(id);
        std::fprintf(f, m_szRealFmt, x);
    };

    const BatchResults& res = doc->Results();
    std::fprintf(f, m_szTitleFmt, msg_Text(kTitle).c_str());
    if (!doc->title.empty()) std::fprintf(f, m_szTitleFmt, doc->title.c_str());
    std::fprintf(f, "\n");
    if (!doc->batchFileName.empty()) {
        label(kStoredIn);
        std::fprintf(f, m_szStringFmt, doc->batchFileName.c_str());
        std::fprintf(f, "\n");
    }
    if (doc->truncUnit == 0) real(kTimeTruncated, res.truncUsed);
    if (doc->truncUnit == 1) whole(kObsTruncated, res.truncUsed);
    if (doc->batchUnit == 0) {
        whole(kBatches, res.numBatches);
        real(kTimePerBatch, res.batchUsed);
    }
    if (doc->batchUnit == 1) {
        whole(kBatches, res.numBatches);
        whole(kObsPerBatch, res.batchUsed);
    }
    if (res.trailingTime != -1.0) real(kTrailingTime, res.trailingTime);
    if (res.trailingObs != -1) whole(kTrailingObs, res.trailingObs);
    if (doc->batchUnit != -1) {
        real(kCovEstimate, res.covEstimate);
        std::fprintf(f, "\n");
        if (res.rejectPositive) std::fprintf(f, "%-80s\n", msg_Text(kRejectPositive).c_str());
        if (res.rejectNonZero) std::fprintf(f, "%-80s\n", msg_Text(kRejectNonZero).c_str());
    }
}
