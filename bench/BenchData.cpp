#include "BenchData.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <random>
#include <tuple>

#include "datafile/DataFile.h"

namespace {

std::string Make(int kind, long records, int reps) {
    static std::map<std::tuple<int, long, int>, std::string> made;
    auto key = std::make_tuple(kind, records, reps);
    if (auto it = made.find(key); it != made.end()) return it->second;
    auto dir = std::filesystem::temp_directory_path() / "oproc-bench";
    std::filesystem::create_directories(dir);
    char name[64];
    std::snprintf(name, sizeof name, "k%d_%ld_%d.dat", kind, records, reps);
    std::string path = (dir / name).string();
    if (!std::filesystem::exists(path)) {
        int err = 0;
        std::string tmp = path + ".part";
        FILE* f = op_OpenDataFile(&err, tmp.c_str(), 4, false);
        op_WriteFileHdr(f, false, kind, op_KindText(kind), 1, 1, 0, 0, "BENCH", "Benchmark data");
        std::mt19937_64 rng(7);
        std::normal_distribution<double> noise(0.0, 1.0);
        double level = 10.0;
        double t = 0.0;
        long perRep = records / reps;
        for (int r = 1; r <= reps; ++r) {
            for (long i = 0; i < perRep; ++i) {
                level = 10.0 + 0.9 * (level - 10.0) + noise(rng);
                t += 1.0;
                op_WritePair(f, &t, &level);
            }
            double mt = -r, mv = r == reps ? -1.0 : 0.0;
            op_WritePair(f, &mt, &mv);
        }
        std::fclose(f);
        std::filesystem::rename(tmp, path);
    }
    return made[key] = path;
}

}  // namespace

const std::string& bench_TallyFile(long records, int reps) {
    static std::string last;
    return last = Make(KIND_TALLY, records, reps);
}

const std::string& bench_DstatFile(long records, int reps) {
    static std::string last;
    return last = Make(KIND_DSTAT, records, reps);
}
