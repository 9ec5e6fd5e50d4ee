#include "datafile/OutputDataFile.h"

#include <cstring>

#include "framework/Config.h"
#include "framework/Messages.h"

namespace {

constexpr int kCreateBinary = 4;  // data-file open mode: binary, always created afresh

}  // namespace

COutputDataFile::COutputDataFile(const std::string& target) : m_safe(target) {}

COutputDataFile::~COutputDataFile() {
    if (m_file) std::fclose(m_file);
}

int COutputDataFile::Open() {
    if (!Active()) return 0;
    int err = 0;
    m_file = op_OpenDataFile(&err, m_safe.TempPath().c_str(), kCreateBinary, false);
    if (!m_file) return err ? err : IDS_OPEN_ERROR;
    return 0;
}

int COutputDataFile::WriteHeader(int kind, int reinit, const std::string& ident, const std::string& title) {
    if (!m_file) return 0;
    return op_WriteFileHdr(m_file, false, kind, op_KindText(kind), reinit, 1, static_cast<long>(ident.size()),
                           static_cast<long>(title.size()), ident.c_str(), title);
}

int COutputDataFile::WriteHeader(const DataFileHeader& h) {
    if (!m_file) return 0;
    // The header writer asks the configuration for its D/S flag.
    const int configured = cfg_GetDoublePrecOutput();
    if (m_fixed >= 0) cfg_SetDoublePrecOutput(m_fixed);
    int rc = op_WriteFileHdr(m_file, false, h.kind, h.type, h.reinit, h.count, static_cast<long>(std::strlen(h.ident)),
                             static_cast<long>(h.title.size()), h.ident, h.title);
    cfg_SetDoublePrecOutput(configured);
    return rc;
}

void COutputDataFile::PutFixed(double time, double value) {
    if (!m_file) return;
    if (m_fixed) {
        double rec[2] = {time, value};
        std::fwrite(rec, sizeof rec, 1, m_file);
    } else {
        float rec[2] = {static_cast<float>(time), static_cast<float>(value)};
        std::fwrite(rec, sizeof rec, 1, m_file);
    }
}

void COutputDataFile::PutBytes(const void* bytes, std::size_t n) {
    if (m_file && n) std::fwrite(bytes, 1, n, m_file);
}

int COutputDataFile::Close() {
    if (m_file) {
        m_failed = std::ferror(m_file) != 0;
        m_failed = std::fclose(m_file) != 0 || m_failed;
        m_file = nullptr;
    }
    return m_failed ? IDS_WRITE_ERROR : 0;
}

int COutputDataFile::Commit() {
    if (!Active()) return 0;
    if (Close() != 0 || !m_safe.Commit()) return IDS_WRITE_ERROR;
    return 0;
}
