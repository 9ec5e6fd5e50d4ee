#include "stats/PairReport.h"

#include "framework/Messages.h"

namespace {

constexpr std::size_t kColumn = 20;

}  // namespace

void pair_WriteSecondLine(FILE* f, const std::string& ident, int shortFmt, int longFmt, double min, double max,
                          long n) {
    if (ident.size() <= kColumn) {
        std::fprintf(f, msg_Text(shortFmt).c_str(), min, max, n);
        return;
    }
    std::size_t start = ident[kColumn] == ' ' ? kColumn + 1 : kColumn;
    std::fprintf(f, msg_Text(longFmt).c_str(), ident.c_str() + start, min, max, n);
    if (ident.size() > 2 * kColumn) {
        std::size_t rest = start + kColumn;
        std::fprintf(f, "%s\n", rest < ident.size() ? ident.c_str() + rest : "");
    }
}
