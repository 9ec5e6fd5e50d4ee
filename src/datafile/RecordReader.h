// The one reader of data-file records. It keeps its own 1 MiB block of the
// file (read straight from the platform's file handle), applies the marker
// rules and the replication treatments, and takes the replication index and
// count from the records that pass by, so that the pass an analysis makes
// anyway also finds the replications.
//
// Layers: raw records (ReadRecord: every record as stored); records as the
// analyses see them (Next: skip markers vanish, the rest are classified); and
// passes under a treatment (Start, NextObs: the observations of one
// replication, of all of them as one stream, or one mean per replication).
// The common case of each, an observation already in the block, is inline;
// markers, refills and the index bookkeeping are out of line.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "datafile/DataFile.h"
#include "framework/FileProgress.h"
#include "platform/Files.h"

static_assert(sizeof(double) == 8 && sizeof(float) == 4, "records are IEEE 754 pairs");

// A record as the analyses see it.
enum class RecordKind : std::uint8_t {
    Obs,       // an observation: any time that is not below 0
    Boundary,  // a marker that closes a replication
    End,       // the -1.0 marker: the end of the data
    Eof,       // the end of the file; reads as the record (-1, -1)
    Error,     // a read error; likewise
};

// One replication in the index: the offset of its first record and the count
// of its observations (records with time above -1.0).
struct RepSpan {
    std::int64_t pos = 0;
    int obsCount = 0;
};

class CRecordReader {
public:
    static constexpr std::size_t kBlockSize = std::size_t{1} << 20;

    CRecordReader();
    ~CRecordReader();
    CRecordReader(const CRecordReader&) = delete;
    CRecordReader& operator=(const CRecordReader&) = delete;

    // Opens a data file and reads its binary header; the reader then stands
    // at the first record. 0, 23 (no such file), 15832 (cannot be opened) or
    // 15928 (not a data-file header).
    int Open(const std::string& path);
    void Close();
    bool IsOpen() const { return m_file.IsOpen(); }
    const DataFileHeader& Header() const { return m_header; }
    int Kind() const { return m_header.kind; }
    int IsDouble() const { return m_header.isDouble; }
    std::int64_t FirstRecord() const { return m_first; }

    // ---- Raw records
    std::int64_t Tell() const { return m_base + (m_cur - m_origin); }
    // Moves to a byte offset (a record's start) and clears the end-of-file
    // and error states. False for a negative offset.
    bool Seek(std::int64_t offset);
    // A read error stopped the last read.
    bool Failed() const { return m_failed; }

    // The next record as stored, markers included. False at the end of the
    // file or on a read error, with (-1, -1) as the record.
    bool ReadRecord(double* t, double* v) {
        double time, value;
        if (Peek(&time, &value) && time >= 0.0) [[likely]] {
            m_cur += m_size;
            *t = time;
            *v = value;
            return true;
        }
        const Raw r = ReadSlow();
        *t = r.t;
        *v = r.v;
        return r.ok;
    }

    // The next record other than a skip marker (time below 0, value -2.0),
    // classified.
    RecordKind Next(double* t, double* v) {
        double time, value;
        if (Peek(&time, &value) && time >= 0.0) [[likely]] {
            m_cur += m_size;
            *t = time;
            *v = value;
            return RecordKind::Obs;
        }
        const Classified c = NextSlow();
        *t = c.t;
        *v = c.v;
        return c.kind;
    }

    // Next in bulk: the observations ahead in the block, up to max, into
    // times and values. 0 when the next record is not an observation or not
    // whole in the block: Next then reads it.
    std::size_t NextRun(double* times, double* values, std::size_t max) {
        return m_isDouble ? TakeRun<double, true>(times, values, max) : TakeRun<float, true>(times, values, max);
    }

    // ---- Passes under a replication treatment
    // Positions at the treatment's first record and opens a pass. A number
    // finds its replication as op_SeekRep does (15804 when the file has no
    // such replication, 15834 on a read error); the other treatments start at
    // the first record.
    int Start(int treatment);
    // Positions as op_SeekRep does: a replication number as Start does, 0 at
    // the end of the records, -9999 at the end marker, lumped where the
    // reader stands; 15804 for anything else.
    int SeekRep(int rep);
    // Opens a pass at the current position.
    void BeginPass(int treatment);
    // The next observation of the pass; false once the pass has ended.
    // A replication number or "all" reads to the replication's closing
    // marker; lumped reads across boundaries to the -1.0 marker; REP_REPMEANS
    // gives (1.0, mean) for each replication. The end of the file ends the
    // data as the -1.0 marker does.
    bool NextObs(double* t, double* v) {
        double time, value;
        if (m_plain && Peek(&time, &value) && time >= 0.0) [[likely]] {
            m_cur += m_size;
            *t = time;
            *v = value;
            return true;
        }
        const Raw r = NextObsSlow();
        *t = r.t;
        *v = r.v;
        return r.ok;
    }
    // Observations of the pass in bulk: the run of observations ahead in the
    // block, up to max, into values (and times unless null), in one tight
    // loop; where none is ahead (a marker, the block's end) one through
    // NextObs. 0 once the pass has ended.
    std::size_t NextObsRun(double* times, double* values, std::size_t max) {
        std::size_t n = 0;
        if (m_plain) {
            if (m_isDouble)
                n = times ? TakeRun<double, true>(times, values, max) : TakeRun<double, false>(times, values, max);
            else
                n = times ? TakeRun<float, true>(times, values, max) : TakeRun<float, false>(times, values, max);
        }
        if (n > 0) [[likely]]
            return n;
        double t, v;
        if (!NextObs(&t, &v)) return 0;
        if (times) times[0] = t;
        values[0] = v;
        return 1;
    }
    // Reads the rest of the pass.
    void SkipPass();
    // Back to the pass's first record, the pass open again.
    void RewindPass();
    // Under "all", once a pass has ended at a boundary: opens the pass of the
    // next replication when any record follows. False otherwise.
    bool NextReplication();
    // Why the pass ended (Obs while it is open), and the record that ended it.
    RecordKind PassEnd() const { return m_passEnd; }
    double EndTime() const { return m_endTime; }
    double EndValue() const { return m_endValue; }
    // The replication of the current pass (1 for lumped).
    int Replication() const { return m_rep; }

    // ---- Index and count, from the records read so far
    // Replications found so far, [0] being replication 1. Each closing marker
    // adds the entry of the replication after it; the -1.0 marker adds a last,
    // empty entry and completes the index.
    const std::vector<RepSpan>& Index() const { return m_index; }
    bool IndexComplete() const { return m_indexDone; }
    // Reads on from the furthest record seen to complete the index and the
    // count, and comes back to where it was.
    void CompleteIndex();
    // Whether the index has entry r (1 = the first replication), reading on
    // only as far as it takes to know; the position does not change.
    bool HasEntry(int r);
    // Moves to the first record of entry r; false when there is none.
    bool SeekEntry(int r);
    // The observations of entry r, reading on until they are all counted.
    // Throws std::out_of_range when there is no entry r, as an index does.
    int EntryObsCount(int r);
    // The count of op_CountReps: closing markers (time <= -1.0, value not
    // -2.0) up to the -1.0 one; 15836 when that never comes (a kind 5 file
    // counts at least 1 instead), 15834 after a read error. Completes the index.
    int CountReps();
    // Whether the count reaches n, reading on only until it does.
    bool CountReaches(int n);

private:
    struct Raw {
        double t;
        double v;
        bool ok;
    };
    struct Classified {
        double t;
        double v;
        RecordKind kind;
    };

    // Decodes the record at the read position if the block holds all of it.
    bool Peek(double* t, double* v) const {
        if (m_lim - m_cur < m_size) return false;
        if (m_isDouble) {
            double rec[2];
            std::memcpy(rec, m_cur, sizeof rec);
            *t = rec[0];
            *v = rec[1];
        } else {
            float rec[2];
            std::memcpy(rec, m_cur, sizeof rec);
            *t = rec[0];
            *v = rec[1];
        }
        return true;
    }

    // The observations (time not below 0) ahead in the block, up to max.
    template <typename F, bool withTimes>
    std::size_t TakeRun(double* times, double* values, std::size_t max) {
        constexpr std::size_t kRec = 2 * sizeof(F);
        const std::size_t held = static_cast<std::size_t>(m_lim - m_cur) / kRec;
        const std::size_t limit = held < max ? held : max;
        const char* p = m_cur;
        std::size_t i = 0;
        if constexpr (sizeof(F) == sizeof(double)) {
            if (limit >= kWideRun) {
                i = TakeDoublesWide(p, limit, withTimes ? times : nullptr, values);
                p += i * kRec;
            }
        }
        for (; i < limit; ++i, p += kRec) {
            F rec[2];
            std::memcpy(rec, p, sizeof rec);
            if (!(rec[0] >= 0)) break;
            if constexpr (withTimes) times[i] = rec[0];
            values[i] = rec[1];
        }
        m_cur = p;
        return i;
    }

    // From this many records on a run of doubles goes to TakeDoublesWide: the
    // observations among limit records at p, four at a time in vector
    // registers where the processor has them; stops at or before the first
    // record that is not one.
    static constexpr std::size_t kWideRun = 16;
    static std::size_t TakeDoublesWide(const char* p, std::size_t limit, double* times, double* values);

    Raw ReadSlow();
    Classified NextSlow();
    Raw NextObsSlow();
    Raw NextMean();
    bool Refill();
    void StartReadAhead(std::int64_t at, std::size_t lastRead);
    void EndPass(RecordKind why, double t, double v);
    // Index bookkeeping: the records read straight through since the last
    // look are observations; a marker read at the frontier is entered.
    void CatchUp();
    void Enter(double t, double v);
    int SeekReplication(int rep);
    // Reads on from the frontier until the index holds n entries or is complete.
    void ExtendIndex(std::size_t n);

    // Two blocks: the reader works through one while the file fills the
    // other ahead of it. Each has room before its data for the start of a
    // record that the previous block cut off.
    std::unique_ptr<char[]> m_store;
    char* m_block[2] = {nullptr, nullptr};
    int m_active = 0;
    bool m_ahead = false;           // the other block is being filled
    std::int64_t m_aheadAt = 0;     // from this offset
    const char* m_origin = nullptr; // the active block
    const char* m_low = nullptr;    // first byte held
    const char* m_cur = nullptr;    // next record
    const char* m_lim = nullptr;    // end of the bytes held
    std::int64_t m_base = 0;        // file offset of m_origin[0]
    std::int64_t m_first = 0;       // the first record
    PlatReadFile m_file;            // after the blocks: closed, and its read-ahead waited for, first
    CFileProgress m_progress;       // reported at each refill
    DataFileHeader m_header;
    std::ptrdiff_t m_size = 16;     // bytes per record
    bool m_isDouble = true;
    bool m_failed = false;

    // The pass.
    int m_treatment = 1;
    int m_rep = 1;
    std::int64_t m_passStart = 0;
    bool m_passOpen = false;
    bool m_plain = false;  // the pass is open and returns records as stored
    bool m_dataEnded = false;
    RecordKind m_passEnd = RecordKind::Obs;
    double m_endTime = MARK_END;
    double m_endValue = MARK_END;

    // The index and the count. Records before the frontier have been taken
    // in; reading that has run on without a seek from m_runStart across the
    // frontier takes the records it passed in too.
    std::vector<RepSpan> m_index;
    std::int64_t m_frontier = 0;
    std::int64_t m_runStart = 0;
    int m_count = 0;
    bool m_indexDone = false;
    bool m_countDone = false;
    bool m_countEnded = false;   // the -1.0 marker was counted
    bool m_countFailed = false;  // a read error cut the count short
};
