#include "datafile/RecordReader.h"

#include <bit>

#include "datafile/RepMean.h"
#include "framework/Host.h"
#include "framework/Messages.h"

static_assert(std::endian::native == std::endian::little, "records are stored little-endian");

namespace {

// Room before a block's data for the part of a record that the previous block cut off.
constexpr std::size_t kTail = 16;

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define OPROC_WIDE_RUNS 1
#include <immintrin.h>

bool HaveAvx2() {
    static const bool has = __builtin_cpu_supports("avx2");
    return has;
}

// Four records are two 32-byte loads (t0 v0 t1 v1, t2 v2 t3 v3); the times
// and the values are gathered into one register each.
template <bool withTimes>
__attribute__((target("avx2"))) std::size_t TakeFour(const char* p, std::size_t limit, double* times,
                                                      double* values) {
    const __m256d zero = _mm256_setzero_pd();
    std::size_t i = 0;
    for (; i + 4 <= limit; i += 4, p += 64) {
        const __m256d a = _mm256_loadu_pd(reinterpret_cast<const double*>(p));
        const __m256d b = _mm256_loadu_pd(reinterpret_cast<const double*>(p + 32));
        const __m256d t = _mm256_permute4x64_pd(_mm256_unpacklo_pd(a, b), 0xD8);
        // Not below 0 and not NaN, as the record-by-record test has it.
        if (_mm256_movemask_pd(_mm256_cmp_pd(t, zero, _CMP_GE_OQ)) != 0xF) break;
        _mm256_storeu_pd(values + i, _mm256_permute4x64_pd(_mm256_unpackhi_pd(a, b), 0xD8));
        if constexpr (withTimes) _mm256_storeu_pd(times + i, t);
    }
    return i;
}
#endif

}  // namespace

std::size_t CRecordReader::TakeDoublesWide(const char* p, std::size_t limit, double* times, double* values) {
#ifdef OPROC_WIDE_RUNS
    if (HaveAvx2()) return times ? TakeFour<true>(p, limit, times, values) : TakeFour<false>(p, limit, times, values);
#endif
    (void)p, (void)limit, (void)times, (void)values;
    return 0;
}

CRecordReader::CRecordReader() : m_store(new char[2 * (kTail + kBlockSize)]) {
    m_block[0] = m_store.get();
    m_block[1] = m_store.get() + kTail + kBlockSize;
    m_origin = m_block[0];
    m_low = m_cur = m_lim = m_origin + kTail;
}

CRecordReader::~CRecordReader() { Close(); }

int CRecordReader::Open(const std::string& path) {
    Close();
    host_SetSubjectFile(path);
    if (!m_file.Open(path.c_str())) return plat_Exists(path.c_str()) ? IDS_OPEN_ERROR : IDS_NO_FILE_OPEN;
    m_header = DataFileHeader{};
    // The header is a few hundred bytes at most, so the first block holds it.
    m_active = 0;
    m_origin = m_block[0];
    m_base = -static_cast<std::int64_t>(kTail);
    const std::size_t got = m_file.ReadAt(m_block[0] + kTail, kBlockSize, 0);
    m_failed = m_file.Failed();
    m_low = m_cur = m_origin + kTail;
    m_lim = m_cur + got;
    StartReadAhead(static_cast<std::int64_t>(got), got);
    std::size_t used = 0;
    if (int rc = op_ParseFileHdr(m_cur, got, &m_header, &used)) return rc;
    m_cur += used;
    m_first = static_cast<std::int64_t>(used);
    m_isDouble = m_header.isDouble != 0;
    m_size = m_isDouble ? 16 : 8;

    m_index.assign(1, RepSpan{m_first, 0});
    m_frontier = m_runStart = m_first;
    m_count = 0;
    m_indexDone = m_countDone = m_countEnded = m_countFailed = false;
    m_treatment = 1;
    m_rep = 1;
    m_passOpen = m_plain = m_dataEnded = false;
    m_passEnd = RecordKind::Obs;
    return 0;
}

void CRecordReader::Close() {
    m_file.Close();  // waits for a read-ahead still filling a block
    m_ahead = false;
    m_origin = m_block[m_active];
    m_low = m_cur = m_lim = m_origin + kTail;
    m_base = 0;
    m_passOpen = m_plain = false;
}

void CRecordReader::StartReadAhead(std::int64_t at, std::size_t lastRead) {
    // A short block was the end of the file; a whole one suggests more.
    if (lastRead < kBlockSize) return;
    m_file.ReadAhead(m_block[1 - m_active] + kTail, kBlockSize, at);
    m_ahead = true;
    m_aheadAt = at;
}

bool CRecordReader::Seek(std::int64_t offset) {
    if (offset < 0) return false;
    CatchUp();
    const std::int64_t low = m_base + (m_low - m_origin);
    const std::int64_t high = m_base + (m_lim - m_origin);
    if (offset >= low && offset <= high) {
        m_cur = m_origin + (offset - m_base);
    } else {
        // The block is dropped; the next refill reads from the new place.
        m_base = offset - static_cast<std::int64_t>(kTail);
        m_low = m_cur = m_lim = m_origin + kTail;
    }
    m_runStart = offset;
    m_failed = false;
    return true;
}

bool CRecordReader::Refill() {
    // The piece of a record that the last block cut off goes just before the
    // new block's data.
    const std::size_t rest = static_cast<std::size_t>(m_lim - m_cur);
    const std::int64_t next = Tell() + static_cast<std::int64_t>(rest);
    const bool ready = m_ahead && m_aheadAt == next;
    if (m_ahead && !ready) m_file.WaitReadAhead();  // read for a place left since
    const int target = ready ? 1 - m_active : m_active;
    char* data = m_block[target] + kTail;
    std::memmove(data - rest, m_cur, rest);
    std::size_t got;
    if (ready) {
        got = m_file.WaitReadAhead();
    } else {
        got = m_file.ReadAt(data, kBlockSize, next);
    }
    m_ahead = false;
    m_failed = m_file.Failed();
    m_active = target;
    m_origin = m_block[target];
    m_base = next - static_cast<std::int64_t>(kTail);
    m_low = m_cur = data - rest;
    m_lim = data + got;
    if (!m_failed) StartReadAhead(next + static_cast<std::int64_t>(got), got);
    return m_lim - m_cur >= m_size;
}

void CRecordReader::CatchUp() {
    if (m_indexDone && m_countDone) return;
    const std::int64_t at = Tell();
    if (m_runStart <= m_frontier && m_frontier <= at && (m_frontier - m_runStart) % m_size == 0) {
        // Everything between went by on the inline path: observations all.
        if (!m_indexDone) m_index.back().obsCount += static_cast<int>((at - m_frontier) / m_size);
        m_frontier = at;
    }
}

void CRecordReader::Enter(double t, double v) {
    // The index and the count have their own tests of a marker; they differ
    // for times between -1 and 0 and for NaN times, so both are kept.
    if (!m_indexDone) {
        if (t > -1.0) {
            ++m_index.back().obsCount;
        } else if (v != MARK_SKIP) {
            m_index.push_back(RepSpan{Tell(), 0});
            if (v == MARK_END) m_indexDone = true;
        }
    }
    if (!m_countDone && t <= -1.0 && v != MARK_SKIP) {
        ++m_count;
        if (v == MARK_END) m_countDone = m_countEnded = true;
    }
}

CRecordReader::Raw CRecordReader::ReadSlow() {
    CatchUp();
    const std::int64_t at = Tell();
    const bool atFrontier = at == m_frontier && !(m_indexDone && m_countDone);
    double t, v;
    if (!Peek(&t, &v)) {
        if (!Refill() || !Peek(&t, &v)) {
            if (atFrontier) {
                m_indexDone = m_countDone = true;
                m_countFailed = m_failed;
            }
            return {MARK_END, MARK_END, false};
        }
    }
    m_cur += m_size;
    if (atFrontier) {
        Enter(t, v);
        m_frontier = at + m_size;
    }
    return {t, v, true};
}

CRecordReader::Classified CRecordReader::NextSlow() {
    for (;;) {
        double t, v;
        if (!ReadRecord(&t, &v)) return {t, v, m_failed ? RecordKind::Error : RecordKind::Eof};
        if (!(t < 0.0)) return {t, v, RecordKind::Obs};
        if (v == MARK_SKIP) continue;
        return {t, v, v == MARK_END ? RecordKind::End : RecordKind::Boundary};
    }
}

int CRecordReader::Start(int treatment) {
    m_rep = treatment >= 1 ? treatment : 1;
    if (treatment >= 1) {
        if (int rc = SeekReplication(treatment)) return rc;
    } else {
        Seek(m_first);
    }
    BeginPass(treatment);
    return 0;
}

int CRecordReader::SeekRep(int rep) {
    constexpr int kToEnd = 0;
    constexpr int kToEndMarker = -9999;
    if (rep >= 1) return SeekReplication(rep);
    if (rep == REP_LUMPED) return 0;
    if (rep != kToEnd && rep != kToEndMarker) return IDS_INVALID_REP_TREATMENT;
    std::int64_t pos = Tell();
    for (double t, v;;) {
        pos = Tell();
        if (!ReadRecord(&t, &v)) break;
        if (rep == kToEndMarker && v == MARK_END) break;
    }
    Seek(pos);
    return 0;
}

int CRecordReader::SeekReplication(int rep) {
    // Index entry k starts after the (k-1)th marker that is not a skip
    // marker, which is the search's own rule: it starts from the furthest
    // entry known and goes on past the -1.0 marker as the search always has.
    const int known = static_cast<int>(m_index.size());
    int found = rep <= known ? rep : known;
    Seek(m_index[static_cast<std::size_t>(found - 1)].pos);
    double t, v;
    while (found < rep) {
        if (!ReadRecord(&t, &v)) {
            if (m_failed) return IDS_READ_ERROR;
            break;
        }
        if (t > -1.0 || v == MARK_SKIP) continue;
        ++found;
    }
    if (found != rep) return IDS_INVALID_REP_TREATMENT;
    const std::int64_t pos = Tell();
    if (!ReadRecord(&t, &v)) return m_failed ? IDS_READ_ERROR : IDS_INVALID_REP_TREATMENT;
    Seek(pos);
    return 0;
}

void CRecordReader::BeginPass(int treatment) {
    m_treatment = treatment;
    m_passStart = Tell();
    m_passOpen = true;
    m_plain = treatment != REP_REPMEANS;
    m_dataEnded = false;
    m_passEnd = RecordKind::Obs;
    m_endTime = m_endValue = MARK_END;
}

void CRecordReader::EndPass(RecordKind why, double t, double v) {
    m_passOpen = m_plain = false;
    m_passEnd = why;
    m_endTime = t;
    m_endValue = v;
    m_dataEnded = why != RecordKind::Boundary;
}

CRecordReader::Raw CRecordReader::NextObsSlow() {
    if (!m_passOpen) return {m_endTime, m_endValue, false};
    if (m_treatment == REP_REPMEANS) return NextMean();
    for (;;) {
        double t, v;
        const RecordKind kind = Next(&t, &v);
        if (kind == RecordKind::Obs) return {t, v, true};
        if (kind == RecordKind::Boundary && m_treatment == REP_LUMPED) continue;
        EndPass(kind, t, v);
        return {t, v, false};
    }
}

CRecordReader::Raw CRecordReader::NextMean() {
    RepMean mean;
    for (;;) {
        double t, v;
        if (!ReadRecord(&t, &v)) {
            EndPass(m_failed ? RecordKind::Error : RecordKind::Eof, t, v);
            return {t, v, false};
        }
        if (t < 0.0 && v == MARK_SKIP) continue;
        if (t >= 0.0) {
            mean.Add(Kind(), t, v);
            continue;
        }
        double mt, mv;
        mean.Close(t, v, &mt, &mv);
        if (mt >= 0.0) return {mt, mv, true};
        EndPass(mv == MARK_END ? RecordKind::End : RecordKind::Boundary, mt, mv);
        return {mt, mv, false};
    }
}

void CRecordReader::SkipPass() {
    double t, v;
    while (NextObs(&t, &v)) {
    }
}

void CRecordReader::RewindPass() {
    Seek(m_passStart);
    BeginPass(m_treatment);
}

bool CRecordReader::NextReplication() {
    if (m_passOpen || m_dataEnded) return false;
    const std::int64_t pos = Tell();
    double t, v;
    if (!ReadRecord(&t, &v)) return false;
    Seek(pos);
    ++m_rep;
    BeginPass(m_treatment);
    return true;
}

void CRecordReader::CompleteIndex() {
    if (m_indexDone && m_countDone) return;
    const std::int64_t back = Tell();
    CatchUp();
    Seek(m_frontier);
    double t, v;
    while (!(m_indexDone && m_countDone) && ReadRecord(&t, &v)) {
    }
    Seek(back);
}

void CRecordReader::ExtendIndex(std::size_t n) {
    if (m_indexDone || m_index.size() >= n) return;
    const std::int64_t back = Tell();
    CatchUp();
    Seek(m_frontier);
    double t, v;
    while (!m_indexDone && m_index.size() < n && ReadRecord(&t, &v)) {
    }
    Seek(back);
}

bool CRecordReader::HasEntry(int r) {
    if (r < 1) return false;
    ExtendIndex(static_cast<std::size_t>(r));
    return m_index.size() >= static_cast<std::size_t>(r);
}

bool CRecordReader::SeekEntry(int r) {
    if (!HasEntry(r)) return false;
    return Seek(m_index[static_cast<std::size_t>(r - 1)].pos);
}

int CRecordReader::EntryObsCount(int r) {
    // Entry r is complete once entry r + 1 exists or the index is.
    if (r >= 1) ExtendIndex(static_cast<std::size_t>(r) + 1);
    return m_index.at(static_cast<std::size_t>(r - 1)).obsCount;
}

bool CRecordReader::CountReaches(int n) {
    if (!m_countDone && m_count < n) {
        const std::int64_t back = Tell();
        CatchUp();
        Seek(m_frontier);
        double t, v;
        while (!m_countDone && m_count < n && ReadRecord(&t, &v)) {
        }
        Seek(back);
    }
    return m_count >= n;
}

int CRecordReader::CountReps() {
    CompleteIndex();
    if (m_countFailed) return IDS_READ_ERROR;
    int count = m_count;
    if (!m_countEnded || count == 0) {
        if (m_header.kind != KIND_FILTERED) return IDS_END_OF_FILE;
        if (count == 0) count = 1;
    }
    return count;
}
