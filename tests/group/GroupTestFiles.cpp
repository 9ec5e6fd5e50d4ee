#include "group/GroupTestFiles.h"

#include <cstdio>
#include <random>

#include "datafile/DataFile.h"

namespace fs = std::filesystem;

TempDir::TempDir() {
    std::random_device rd;
    m_dir = fs::temp_directory_path() / ("oproc-group-" + std::to_string(rd()) + std::to_string(rd()));
    fs::create_directories(m_dir);
}

TempDir::~TempDir() {
    std::error_code ec;
    fs::remove_all(m_dir, ec);
}

void grp_test_WriteDataFile(const std::string& path, int kind, int reps, const std::string& title, bool complete) {
    std::FILE* f = std::fopen(path.c_str(), "wb");
    if (!f) return;
    op_WriteFileHdr(f, false, kind, op_KindText(kind), 0, 1, 6, static_cast<long>(title.size()), "ident", title);
    double t = 0.0;
    for (int r = 1; r <= reps; ++r) {
        for (int i = 0; i < 2; ++i) {
            double v = r + i;
            t += 1.0;
            op_WritePair(f, &t, &v);
        }
        double mark = -r;
        double value = r == reps ? -1.0 : 0.0;
        if (r < reps || complete) op_WritePair(f, &mark, &value);
    }
    std::fclose(f);
}
