// Data files through the output writer: whatever records a readable file
// holds (a .cor's correlations, a .flt's batch means, a run's observations),
// written again by COutputDataFile with the same header fields must read
// back record for record, in the precision the writer was set to.
#include <cstdlib>
#include <cstring>
#include <vector>

#include "FuzzFiles.h"
#include "datafile/OutputDataFile.h"
#include "datafile/RecordReader.h"
#include "framework/Config.h"

namespace {

struct Record {
    double t;
    double v;
};

void Check(bool ok) {
    if (!ok) std::abort();
}

bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

std::vector<Record> ReadAll(CRecordReader& in) {
    std::vector<Record> records;
    double t = 0.0, v = 0.0;
    while (in.ReadRecord(&t, &v)) records.push_back({t, v});
    return records;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string source = fuzz_TempPath(".src");
    static const std::string target = fuzz_TempPath(".out");
    fuzz_WriteFile(source, data, size);

    CRecordReader in;
    if (in.Open(source) != 0) return 0;
    const DataFileHeader header = in.Header();
    const std::vector<Record> records = ReadAll(in);
    if (in.Failed()) return 0;
    in.Close();

    // The writer follows the setting; write in the precision read.
    cfg_SetDoublePrecOutput(header.isDouble);
    {
        COutputDataFile out(target);
        Check(out.Open() == 0);
        Check(out.WriteHeader(header.kind, header.reinit, header.ident, header.title) == 0);
        for (const Record& r : records) out.Put(r.t, r.v);
        Check(out.Commit() == 0);
    }

    CRecordReader back;
    Check(back.Open(target) == 0);
    Check(back.Kind() == header.kind && back.IsDouble() == header.isDouble);
    const std::vector<Record> again = ReadAll(back);
    Check(!back.Failed() && again.size() == records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        Check(SameBits(again[i].t, records[i].t) && SameBits(again[i].v, records[i].v));
    return 0;
}
