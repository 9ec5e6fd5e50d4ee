#include "stats/ObsStream.h"

#include "framework/Messages.h"

CObsStream::~CObsStream() {
    if (m_file) std::fclose(m_file);
}

int CObsStream::Open(const std::string& path, int treatment) {
    int err = 0;
    m_file = op_OpenDataFile(&err, path.c_str(), 2, true);
    if (!m_file) return err == IDS_NO_FILE_OPEN ? IDS_FILE_NOT_FOUND : (err ? err : IDS_OPEN_ERROR);
    DataFileHeader h;
    if (op_ReadFileHdr(m_file, false, &h) != 0) return IDS_INVALID_DATA_FILE;
    m_isDouble = h.isDouble;
    m_kind = h.kind;
    m_treatment = treatment;
    m_rep = treatment >= 1 ? treatment : 1;
    if (treatment >= 1) {
        int found = 0;
        if (int rc = op_SeekRep(m_file, m_isDouble, treatment, &found, true)) return rc;
    }
    m_rowStart = std::ftell(m_file);
    return 0;
}

void CObsStream::EndOrPass(double value) {
    if (value == MARK_END) {
        m_rowEnded = m_dataEnded = true;
    } else if (m_treatment != REP_LUMPED) {
        m_rowEnded = true;
    }
}

bool CObsStream::NextAfterMarker(double* time, double* value) {
    while (!m_rowEnded) {
        op_ReadObs(m_file, m_isDouble, m_treatment, m_kind, time, value);
        if (*time >= 0.0) return true;
        EndOrPass(*value);
    }
    return false;
}

void CObsStream::SkipRow() {
    double t = 0.0, v = 0.0;
    while (Next(&t, &v)) {
    }
}

bool CObsStream::NextReplication() {
    if (!m_rowEnded || m_dataEnded) return false;
    const long pos = std::ftell(m_file);
    double t = 0.0, v = 0.0;
    op_ReadPair(m_file, m_isDouble, &t, &v);
    if (std::feof(m_file) || std::ferror(m_file)) return false;
    std::fseek(m_file, pos, SEEK_SET);
    m_rowStart = pos;
    m_rowEnded = false;
    ++m_rep;
    return true;
}

void CObsStream::RewindRow() {
    std::clearerr(m_file);
    std::fseek(m_file, m_rowStart, SEEK_SET);
    m_rowEnded = m_dataEnded = false;
}
