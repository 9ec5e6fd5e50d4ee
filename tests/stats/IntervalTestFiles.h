// Small data files for the interval tests, written through the data-file
// layer into a temporary folder that is removed with the fixture.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

struct TestRecord {
    double time;
    double value;
};

class IntervalTestDir {
public:
    IntervalTestDir();
    ~IntervalTestDir();
    IntervalTestDir(const IntervalTestDir&) = delete;
    IntervalTestDir& operator=(const IntervalTestDir&) = delete;

    std::string Path(const std::string& name) const { return (m_dir / name).string(); }

    // Writes the records as they are after a header of the given kind.
    std::string WriteRecords(const std::string& name, int kind, const std::vector<TestRecord>& records,
                             bool doublePrecision = true) const;
    // One replication per vector, observations at times 1, 2, ...; a (-r, 0)
    // marker after each replication r but the last, which ends with (-n, -1).
    std::string WriteReps(const std::string& name, int kind, const std::vector<std::vector<double>>& reps,
                          bool doublePrecision = true) const;
    // Any bytes, for damaged files.
    std::string WriteText(const std::string& name, const std::string& bytes) const;

private:
    std::filesystem::path m_dir;
};
