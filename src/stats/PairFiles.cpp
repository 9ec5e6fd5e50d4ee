#include "stats/PairFiles.h"

#include "datafile/DataFile.h"
#include "framework/Messages.h"

CObsReader::~CObsReader() { Close(); }

void CObsReader::Close() {
    if (m_file) std::fclose(m_file);
    m_file = nullptr;
}

int CObsReader::Open(const std::string& path, int treatment) {
    Close();
    m_treatment = treatment;
    m_ended = false;
    int err = 0;
    m_file = op_OpenDataFile(&err, path.c_str(), 2, true);
    if (!m_file) return err == IDS_NO_FILE_OPEN ? IDS_FILE_NOT_FOUND : err;
    DataFileHeader h;
    if (op_ReadFileHdr(m_file, false, &h) != 0) {
        Close();
        return IDS_INVALID_DATA_FILE;
    }
    m_isDouble = h.isDouble;
    m_kind = h.kind;
    if (treatment != REP_LUMPED && treatment < 1) {
        Close();
        return IDS_INVALID_REP_TREATMENT;
    }
    int found = 0;
    if (int rc = op_SeekRep(m_file, m_isDouble, treatment, &found, true)) {
        Close();
        return rc;
    }
    return 0;
}

bool CObsReader::Next(double* value) {
    if (m_ended || !m_file) return false;
    double t = 0.0;
    double v = 0.0;
    for (;;) {
        op_ReadObs(m_file, m_isDouble, m_treatment, m_kind, &t, &v);
        if (t >= 0.0) {
            *value = v;
            return true;
        }
        if (v == MARK_SKIP) continue;
        if (v != MARK_END && m_treatment == REP_LUMPED) continue;
        m_ended = true;
        return false;
    }
}

int CObsReader::ReadError() const { return (m_file && std::ferror(m_file)) ? IDS_READ_ERROR : 0; }

int pair_ReadSample(const CMultiFileItem& item, CFileSample* sample) {
    CObsReader reader;
    if (int rc = reader.Open(item.m_strPath, item.m_nTreatment)) return rc;
    double v = 0.0;
    while (reader.Next(&v)) sample->Add(v);
    return reader.ReadError();
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
