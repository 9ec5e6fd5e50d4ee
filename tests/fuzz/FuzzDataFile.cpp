// Data files of any bytes: the header check, the replication count and every
// treatment's pass through the record reader, as the analyses make them, and
// the single-file document's open. Never crash, hang or read out of bounds.
#include <algorithm>
#include <vector>

#include "FuzzFiles.h"
#include "datafile/DataFile.h"
#include "datafile/FileGlobals.h"
#include "datafile/RecordReader.h"
#include "datafile/SingleDoc.h"

namespace {

// Replications beyond these are passes like the ones before them.
constexpr int kMaxReps = 40;

void ReadEveryTreatment(const std::string& path) {
    CRecordReader in;
    if (in.Open(path) != 0) return;
    const int reps = in.CountReps();
    std::vector<int> treatments{REP_ALL, REP_LUMPED, REP_REPMEANS};
    // A count at or above the message range is an error id, not a count.
    const int known = reps < 15000 ? std::min(reps, kMaxReps) : 0;
    for (int r = 1; r <= known + 1; ++r) treatments.push_back(r);
    for (int treatment : treatments) {
        if (in.Start(treatment) != 0) continue;
        double t = 0.0, v = 0.0;
        do {
            while (in.NextObs(&t, &v)) {
            }
        } while (treatment == REP_ALL && in.NextReplication());
        in.RewindPass();
        in.SkipPass();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = fuzz_TempPath(".dat");
    fuzz_WriteFile(path, data, size);

    int kind = 0, reinit = 0, count = 0;
    std::string title;
    op_CheckFileHdr(path.c_str(), &kind, &reinit, &count, &title, 2);
    op_CountReps(path.c_str());
    ReadEveryTreatment(path);

    CSingleDoc doc;
    doc.OnOpenDocument(path.c_str());
    return 0;
}
