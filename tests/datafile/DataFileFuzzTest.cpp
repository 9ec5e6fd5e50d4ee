// Damaged files of every shape: mutated and truncated copies of a valid file
// go through every reader. Nothing may crash, hang or read out of bounds (the
// sanitizer build checks the last); results must stay within their contracts.
#include <gtest/gtest.h>

#include <random>

#include "TestFiles.h"
#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "datafile/SingleDoc.h"

namespace {

void ReadEverything(const std::string& path) {
    int count = op_CountReps(path.c_str());
    EXPECT_TRUE(count >= 1) << count;
    int kind = 0, reinit = 0, hdrCount = 0;
    std::string title;
    int rc = op_CheckFileHdr(path.c_str(), &kind, &reinit, &hdrCount, &title, 2);
    EXPECT_TRUE(rc == 0 || rc == 15928) << rc;
    CSingleDoc doc;
    if (!doc.OnOpenDocument(path.c_str())) return;
    CRecordReader& in = doc.Reader();
    for (int treatment : {1, 2, REP_ALL, REP_LUMPED, REP_REPMEANS}) {
        if (in.Start(treatment) != 0) continue;
        double t = 0, v = 0;
        // Every record read consumes bytes, so the loop ends with the file.
        for (long n = 0; n < 100000; ++n) {
            if (in.NextObs(&t, &v)) continue;
            if (!in.NextReplication()) break;
        }
    }
    for (int rep : {2, 0, -9999}) {
        in.Seek(in.FirstRecord());
        in.SeekRep(rep);
    }
}

TEST(DataFileFuzz, MutatedAndTruncatedFilesNeverCrash) {
    TempDir dir;
    HeaderFields h;
    std::string good = test_HeaderBytes(h) +
                       test_RecordBytes(test_Replications({{{1, 1}, {2, 2}}, {{1, 3}, {-1, -2}}, {{4, 4}}}), true);
    std::mt19937 rng(2024);
    std::string path = dir.Path("f.dat");
    for (int i = 0; i < 400; ++i) {
        std::string bytes = good;
        switch (i % 4) {
            case 0:  // cut anywhere
                bytes.resize(rng() % (good.size() + 1));
                break;
            case 1:  // flip a few bytes
                for (int k = 0; k < 4; ++k) bytes[rng() % bytes.size()] = static_cast<char>(rng());
                break;
            case 2:  // random bytes behind a valid header
                bytes.resize(test_HeaderBytes(h).size());
                for (unsigned k = rng() % 200; k > 0; --k) bytes.push_back(static_cast<char>(rng()));
                break;
            default:  // random bytes only
                bytes.clear();
                for (unsigned k = rng() % 300; k > 0; --k) bytes.push_back(static_cast<char>(rng()));
        }
        test_WriteBytes(path, bytes);
        ReadEverything(path);
    }
}

}  // namespace
