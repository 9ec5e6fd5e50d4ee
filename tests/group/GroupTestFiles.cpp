#include "group/GroupTestFiles.h"

void grp_test_WriteDataFile(const std::string& path, int kind, int reps, const std::string& title, bool complete) {
    HeaderFields h = HeaderFields::Of(kind);
    h.title = title;
    std::vector<std::vector<Rec>> runs;
    for (int r = 1; r <= reps; ++r) runs.push_back({{2.0 * r - 1, 1.0 * r}, {2.0 * r, 1.0 * r + 1}});
    std::vector<Rec> recs = test_Replications(runs);
    if (!complete) recs.pop_back();
    test_WriteDataFile(path, h, recs);
}
