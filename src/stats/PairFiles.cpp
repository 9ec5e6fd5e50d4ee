#include "stats/PairFiles.h"

#include <iterator>

#include "datafile/DataFile.h"
#include "datafile/RecordReader.h"
#include "framework/Messages.h"

int pair_OpenFile(CRecordReader& in, const std::string& path, int treatment) {
    if (int rc = in.Open(path)) {
        if (rc == IDS_NO_FILE_OPEN) return IDS_FILE_NOT_FOUND;
        return rc == IDS_INVALID_HEADER ? IDS_INVALID_DATA_FILE : rc;
    }
    if (treatment != REP_LUMPED && treatment < 1) return IDS_INVALID_REP_TREATMENT;
    return in.Start(treatment);
}

int pair_ReadError(const CRecordReader& in) { return in.PassEnd() == RecordKind::Error ? IDS_READ_ERROR : 0; }

std::size_t pair_Fill(CRecordReader& in, double* values, std::size_t max) {
    std::size_t n = 0;
    while (n < max) {
        const std::size_t got = in.NextObsRun(nullptr, values + n, max - n);
        if (got == 0) break;
        n += got;
    }
    return n;
}

int pair_ReadSample(const CMultiFileItem& item, CMoments* sample) {
    CRecordReader in;
    if (int rc = pair_OpenFile(in, item.m_strPath, item.m_nTreatment)) return rc;
    double values[4096];
    while (const std::size_t got = in.NextObsRun(nullptr, values, std::size(values))) sample->AddAll(values, got);
    return pair_ReadError(in);
}

namespace {

// Counts at or above this are the counting function's error ids.
constexpr int kFirstMessageId = 15000;

}  // namespace

int pair_Expand(const std::vector<CFilePairItem>& dialogPairs, std::vector<CFilePairItem>* pairs) {
    pairs->clear();
    for (const CFilePairItem& pair : dialogPairs) {
        const CMultiFileItem& a = pair.a;
        const CMultiFileItem& b = pair.b;
        if (a.m_nTreatment != REP_ALL || b.m_nTreatment != REP_ALL) {
            pairs->push_back(pair);
            continue;
        }
        int countA = op_CountReps(a.m_strPath.c_str());
        if (countA >= kFirstMessageId) return countA;
        int countB = op_CountReps(b.m_strPath.c_str());
        if (countB >= kFirstMessageId) return countB;
        int count = countA < countB ? countA : countB;
        for (int r = 1; r <= count; ++r) {
            CMultiFileItem ra = a;
            CMultiFileItem rb = b;
            ra.m_nTreatment = rb.m_nTreatment = r;
            ra.m_strReps = rb.m_strReps = std::to_string(r);
            ra.m_strIdent = a.Identifier() + "@" + std::to_string(r);
            pairs->push_back({std::move(ra), std::move(rb)});
        }
    }
    return 0;
}
