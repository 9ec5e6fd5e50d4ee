#include "stats/IntervalTestFiles.h"

#include <cstdio>
#include <fstream>
#include <random>

#include "datafile/DataFile.h"
#include "framework/Config.h"

namespace fs = std::filesystem;

IntervalTestDir::IntervalTestDir() {
    std::random_device rd;
    m_dir = fs::temp_directory_path() / ("oproc_intervals_" + std::to_string(rd()));
    fs::create_directories(m_dir);
}

IntervalTestDir::~IntervalTestDir() {
    std::error_code ec;
    fs::remove_all(m_dir, ec);
}

std::string IntervalTestDir::WriteRecords(const std::string& name, int kind, const std::vector<TestRecord>& records,
                                          bool doublePrecision) const {
    const std::string path = Path(name);
    const int previous = cfg_GetDoublePrecOutput();
    cfg_SetDoublePrecOutput(doublePrecision ? 1 : 0);
    FILE* f = std::fopen(path.c_str(), "wb");
    op_WriteFileHdr(f, false, kind, op_KindText(kind), 0, 1, 0, 0, "test", "interval test data");
    for (const TestRecord& r : records) op_WritePair(f, &r.time, &r.value);
    std::fclose(f);
    cfg_SetDoublePrecOutput(previous);
    return path;
}

std::string IntervalTestDir::WriteReps(const std::string& name, int kind,
                                       const std::vector<std::vector<double>>& reps, bool doublePrecision) const {
    std::vector<TestRecord> records;
    for (std::size_t r = 0; r < reps.size(); ++r) {
        double time = 0.0;
        for (double v : reps[r]) records.push_back({time += 1.0, v});
        const bool last = r + 1 == reps.size();
        records.push_back({-static_cast<double>(r + 1), last ? -1.0 : 0.0});
    }
    return WriteRecords(name, kind, records, doublePrecision);
}

std::string IntervalTestDir::WriteText(const std::string& name, const std::string& bytes) const {
    const std::string path = Path(name);
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}
