#include "TestFiles.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "oproc-test-XXXXXX").string();
    std::vector<char> buf(pattern.begin(), pattern.end());
    buf.push_back('\0');
    m_dir = ::mkdtemp(buf.data());
}

TempDir::~TempDir() {
    std::error_code ec;
    std::filesystem::permissions(m_dir, std::filesystem::perms::owner_all, ec);
    std::filesystem::remove_all(m_dir, ec);
}

std::string test_HeaderBytes(const HeaderFields& h) {
    char buf[512];
    std::snprintf(buf, sizeof buf,
                  "%d \r\n"
                  "Output file for:%-24.24s by:%-24.24s \r\n"
                  "Data for:%s\r\n"
                  "Run date:%-10.10s%c%c     %7ld\r\n"
                  "File Version: \x07QUILLSTATFMT\r\n\x1a",
                  200 + h.kind, h.ident.c_str(), "QUILLSTAT VIEWR", h.title.c_str(), h.type.c_str(),
                  h.reinit ? 'Y' : 'N', h.isDouble ? 'D' : 'S', h.count);
    return buf;
}

std::string test_RecordBytes(const std::vector<Rec>& recs, bool isDouble) {
    std::string out;
    for (const Rec& r : recs) {
        if (isDouble) {
            char b[16];
            std::memcpy(b, &r.time, 8);
            std::memcpy(b + 8, &r.value, 8);
            out.append(b, 16);
        } else {
            float t = static_cast<float>(r.time), v = static_cast<float>(r.value);
            char b[8];
            std::memcpy(b, &t, 4);
            std::memcpy(b + 4, &v, 4);
            out.append(b, 8);
        }
    }
    return out;
}

void test_WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

void test_WriteDataFile(const std::string& path, const HeaderFields& h, const std::vector<Rec>& recs) {
    test_WriteBytes(path, test_HeaderBytes(h) + test_RecordBytes(recs, h.isDouble));
}

std::string test_ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<Rec> test_Replications(const std::vector<std::vector<Rec>>& reps) {
    std::vector<Rec> out;
    for (std::size_t r = 0; r < reps.size(); ++r) {
        out.insert(out.end(), reps[r].begin(), reps[r].end());
        out.push_back({-static_cast<double>(r + 1), r + 1 == reps.size() ? -1.0 : 0.0});
    }
    return out;
}

std::vector<Rec> test_Obs(const std::vector<double>& values) {
    std::vector<Rec> recs;
    for (std::size_t i = 0; i < values.size(); ++i) recs.push_back({static_cast<double>(i + 1), values[i]});
    return recs;
}

HeaderFields HeaderFields::Of(int kind, bool isDouble) {
    static const char* const kTypes[] = {"", "DSTAT", "CSTAT", "Tally", "Output", "Filtered", "Counter", "Frequency"};
    HeaderFields h;
    h.kind = kind;
    h.type = kTypes[kind];
    h.isDouble = isDouble;
    return h;
}

std::string TempDir::WriteRecords(const std::string& name, int kind, const std::vector<Rec>& recs,
                                  bool isDouble) const {
    test_WriteDataFile(Path(name), HeaderFields::Of(kind, isDouble), recs);
    return Path(name);
}

std::string TempDir::WriteReps(const std::string& name, int kind, const std::vector<std::vector<double>>& reps,
                               bool isDouble) const {
    std::vector<std::vector<Rec>> recs;
    for (const auto& r : reps) recs.push_back(test_Obs(r));
    return WriteRecords(name, kind, test_Replications(recs), isDouble);
}
