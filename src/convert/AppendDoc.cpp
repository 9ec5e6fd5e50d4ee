#include "convert/AppendDoc.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>

#include "convert/ConvertDlgs.h"
#include "datafile/OutputDataFile.h"
#include "datafile/RepChecks.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "platform/Files.h"

namespace {

// Where the destination's records stop being kept as they are.
struct DestinationEnd {
    std::int64_t keep = 0;  // bytes copied unchanged: header and records before the end marker
    int reps = 0;
    // The record that closes the last replication in the new file: the old end
    // marker with the boundary value, or a new marker after batch output that
    // ended without one.
    bool close = false;
    double closeTime = MARK_END;
    bool replaced = false;  // that record takes the old end marker's place
};

// The end marker is found by its marker time, not by its value alone: an
// observation of value -1.0 is data.
int FindEnd(CRecordReader& dest, DestinationEnd* end) {
    bool open = false;  // observations since the last boundary
    for (;;) {
        const std::int64_t at = dest.Tell();
        double t, v;
        switch (dest.Next(&t, &v)) {
            case RecordKind::Obs: open = true; break;
            case RecordKind::Boundary:
                ++end->reps;
                open = false;
                break;
            case RecordKind::End:
                end->keep = at;
                end->close = end->replaced = true;
                end->closeTime = t;
                ++end->reps;
                return 0;
            case RecordKind::Error: return IDS_READ_ERROR;
            case RecordKind::Eof:
                // Only batch output may end without its end marker; it then
                // ends its last replication with the file.
                if (dest.Kind() != KIND_FILTERED) return IDS_END_OF_FILE;
                end->keep = at;
                if (open || end->reps == 0) {
                    ++end->reps;
                    end->close = true;
                    end->closeTime = -static_cast<double>(end->reps);
                }
                return 0;
        }
    }
}

// The first bytes of path into out, reported as progress.
int CopyPrefix(const std::string& path, std::int64_t bytes, COutputDataFile& out) {
    constexpr std::size_t kBlock = std::size_t{1} << 20;
    FILE* in = plat_OpenStream(path.c_str(), "rb");
    if (!in) return IDS_OPEN_ERROR;
    auto block = std::make_unique<char[]>(kBlock);
    std::int64_t done = 0;
    while (done < bytes) {
        const std::size_t want = static_cast<std::size_t>(std::min<std::int64_t>(bytes - done, kBlock));
        const std::size_t got = std::fread(block.get(), 1, want, in);
        out.PutBytes(block.get(), got);
        done += static_cast<std::int64_t>(got);
        if (got < want) break;
        // A stop asked for by the user ends the copy as a short read would.
        if (!host_Get().Progress("Appending", static_cast<double>(done), static_cast<double>(bytes),
                                 ProgressUnit::Bytes))
            break;
    }
    std::fclose(in);
    return done == bytes ? 0 : IDS_READ_ERROR;
}

}  // namespace

int CAppendDoc::InitFromDialog(CDialog& dialog) {
    auto* dlg = dynamic_cast<CAppendDlg*>(&dialog);
    if (!dlg) return IDS_SOURCE_NOT_SPECIFIED;
    m_results = AppendResults{};
    m_results.source = dlg->m_strFile;
    m_results.destination = dlg->m_strOutFile;
    m_results.reps = dlg->m_strReps;
    if (m_results.destination.empty()) return IDS_DEST_NOT_SPECIFIED;
    if (int rc = conv_OpenSource(*this, *dlg, m_results.destination)) return rc;
    return Append(m_nTreatment);
}

int CAppendDoc::Append(int treatment) {
    // A source cut short is not appended as if whole.
    const int sourceReps = RepCount();
    if (sourceReps >= IDS_OPEN_ERROR) return sourceReps;
    if (treatment >= 1 && treatment > sourceReps) return IDS_NOT_ENOUGH_REPS;

    CRecordReader dest;
    if (int rc = dest.Open(m_results.destination)) return rc == IDS_INVALID_HEADER ? IDS_INVALID_DATA_FILE : rc;
    // The dialog checked these; the files may have changed since.
    if (dest.Kind() != m_nKind) return IDS_FILE_KIND_MISMATCH;
    if (int rc = rep_CheckAppendReinit(dest.Header().reinit, treatment)) return rc;
    DestinationEnd end;
    if (int rc = FindEnd(dest, &end)) return rc;
    const int isDouble = dest.IsDouble();
    dest.Close();
    // The rename needs only the folder's permission: a write-protected
    // destination is refused as an open for writing would be, and the new
    // file takes the old one's permissions.
    std::error_code ec;
    const std::filesystem::perms perms = std::filesystem::status(m_results.destination, ec).permissions();
    if (ec || (perms & std::filesystem::perms::owner_write) == std::filesystem::perms::none) return IDS_OPEN_ERROR;

    COutputDataFile out(m_results.destination);
    out.SetPrecision(isDouble);
    if (int rc = out.Open()) return rc;
    if (int rc = CopyPrefix(m_results.destination, end.keep, out)) return rc;
    if (end.close) out.Put(end.closeTime, MARK_REPEND);

    CRecordReader& in = Reader();
    if (int rc = in.Start(treatment)) return rc;
    constexpr std::size_t kRun = 4096;
    auto times = std::make_unique<double[]>(kRun);
    auto values = std::make_unique<double[]>(kRun);
    int rep = end.reps;
    for (;;) {
        while (std::size_t n = in.NextObsRun(times.get(), values.get(), kRun)) {
            for (std::size_t i = 0; i < n; ++i) out.Put(times[i], values[i]);
            m_results.observations += static_cast<long>(n);
        }
        if (in.PassEnd() == RecordKind::Error) return IDS_READ_ERROR;
        ++rep;
        const bool more = treatment == REP_ALL && in.NextReplication();
        out.Put(-static_cast<double>(rep), more ? MARK_REPEND : MARK_END);
        if (!more) break;
    }
    m_results.repsBefore = end.reps;
    m_results.repsAfter = rep;
    m_results.records = m_results.observations + (rep - end.reps) + (end.close && !end.replaced ? 1 : 0);
    if (int rc = out.Commit()) return rc;
    std::filesystem::permissions(m_results.destination, perms, ec);
    return 0;
}

ConversionSummary CAppendDoc::Summary() const {
    return ConversionSummary(IDS_APPEND_SUMMARY, m_results.source, m_results.destination)
        .Text(0, "reps", m_results.reps, true)
        .Count(IDS_REPS_BEFORE, "replications_before", m_results.repsBefore)
        .Count(IDS_REPS_AFTER, "replications_after", m_results.repsAfter)
        .Count(IDS_RECORDS_APPENDED, "records_appended", m_results.records)
        .Count(0, "observations_appended", m_results.observations);
}
