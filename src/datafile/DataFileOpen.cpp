#include "datafile/DataFile.h"
#include "framework/Host.h"
#include "framework/Messages.h"
#include "platform/Files.h"

namespace {

// Writers put one record at a time; a large buffer makes few system calls.
constexpr std::size_t kStreamBuffer = 1 << 18;

}  // namespace

FILE* op_OpenDataFile(int* err, const char* path, int mode, bool mustExist) {
    *err = 0;
    if (mode == 3) return nullptr;  // a temporary name only; nothing is opened
    host_SetSubjectFile(path);
    bool exists = plat_Exists(path);
    const char* how;
    if (mustExist) {
        if (!exists) {
            *err = IDS_NO_FILE_OPEN;
            return nullptr;
        }
        how = (mode == 2) ? "rb" : "r";
    } else if (mode == 4 || mode == 5 || !exists) {
        how = (mode == 2 || mode == 4) ? "w+b" : "w+";
    } else {
        how = (mode == 2) ? "r+b" : "r+";
    }
    FILE* f = plat_OpenStream(path, how);
    if (!f) {
        *err = IDS_OPEN_ERROR;
        return nullptr;
    }
    std::setvbuf(f, nullptr, _IOFBF, kStreamBuffer);
    return f;
}
