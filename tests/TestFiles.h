// Small data files made by the tests: a header and the records given, written
// byte by byte from the file layout (not through the writer under test), in a
// temporary folder that is removed with the object.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

struct Rec {
    double time;
    double value;
};

class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    std::string Path(const std::string& name) const { return (m_dir / name).string(); }
    const std::filesystem::path& Dir() const { return m_dir; }
    // A data file of the kind in this folder; returns its path.
    std::string WriteRecords(const std::string& name, int kind, const std::vector<Rec>& recs,
                             bool isDouble = true) const;
    // One replication per vector, observations at times 1, 2, ... (test_Replications).
    std::string WriteReps(const std::string& name, int kind, const std::vector<std::vector<double>>& reps,
                          bool isDouble = true) const;

private:
    std::filesystem::path m_dir;
};

struct HeaderFields {
    // The fields of a file of this kind, its type text included.
    static HeaderFields Of(int kind, bool isDouble = true);

    int kind = 3;
    std::string ident = "IDENT";
    std::string title = "A title";
    std::string type = "Tally";
    bool reinit = true;
    bool isDouble = true;
    long count = 1;
};

// The exact bytes of a data-file header, from the layout rules.
std::string test_HeaderBytes(const HeaderFields& h);
// The bytes of records in 8-byte or 4-byte precision.
std::string test_RecordBytes(const std::vector<Rec>& recs, bool isDouble);
// Writes header + records to path.
void test_WriteDataFile(const std::string& path, const HeaderFields& h, const std::vector<Rec>& recs);
void test_WriteBytes(const std::string& path, const std::string& bytes);
std::string test_ReadBytes(const std::string& path);

// Records for n replications of the given observations each, with the markers
// a writer puts between them: (-r, 0) after each but the last, (-n, -1) last.
std::vector<Rec> test_Replications(const std::vector<std::vector<Rec>>& reps);
// Observations at times 1, 2, ...
std::vector<Rec> test_Obs(const std::vector<double>& values);
