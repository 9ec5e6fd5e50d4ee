#include <cctype>
#include <cstdlib>
#include <cstring>

#include "datafile/DataFile.h"
#include "framework/Config.h"
#include "framework/Messages.h"

namespace {

constexpr int kLineBuffer = 80;
constexpr int kMaxBytesBeforeEnd = 50;
constexpr char kWriterName[] = "QUILLSTAT VIEWR";

// Copies up to n characters of line starting at column col (fewer when the line
// is shorter) into out, terminated.
void CopyColumns(const char* line, std::size_t col, std::size_t n, char* out) {
    std::size_t len = std::strlen(line);
    std::size_t i = 0;
    for (; col + i < len && i < n; ++i) out[i] = line[col + i];
    out[i] = '\0';
}

char Upper(const char* line, std::size_t col) {
    return std::strlen(line) > col ? static_cast<char>(std::toupper(static_cast<unsigned char>(line[col]))) : '\0';
}

// Where a header is read from: a stream, or the bytes a reader already holds.
// Both give fgets and fgetc behaviour, so a header reads alike from either.
struct StreamSource {
    FILE* f;
    bool Gets(char* buf, int n) { return std::fgets(buf, n, f) != nullptr; }
    int Getc() { return std::fgetc(f); }
};

struct BytesSource {
    const char* at;
    const char* end;
    bool Gets(char* buf, int n) {
        if (at == end) return false;
        int i = 0;
        while (i < n - 1 && at != end) {
            char c = *at++;
            buf[i++] = c;
            if (c == '\n') break;
        }
        buf[i] = '\0';
        return true;
    }
    int Getc() { return at == end ? EOF : static_cast<unsigned char>(*at++); }
};

template <typename Source>
bool ReadLine(Source& f, char* buf) {
    buf[0] = '\0';
    return f.Gets(buf, kLineBuffer);
}

void StripLineEnd(char* text) {
    std::size_t n = std::strlen(text);
    while (n > 0 && (text[n - 1] == '\n' || text[n - 1] == '\r')) text[--n] = '\0';
}

int Reject(int* kind, int* hdrStatus) {
    *kind = 0;
    *hdrStatus = 0;
    return IDS_INVALID_HEADER;
}

template <typename Source>
int ReadBinaryHeader(Source& f, int* kind, char* type, int* reinit, int* count, int* identLen, int* titleLen,
                     char* ident, std::string* title, int* hdrStatus, int* isDouble) {
    char line[kLineBuffer];
    char field[kLineBuffer];

    // Only the first three characters carry the header number.
    ReadLine(f, line);
    CopyColumns(line, 0, 3, field);
    int number = 0;
    if (std::sscanf(field, "%d", &number) != 1 || number < 201 || number > 207) return Reject(kind, hdrStatus);

    ReadLine(f, line);
    CopyColumns(line, 16, 24, ident);
    op_TrimRight(ident);
    *identLen = static_cast<int>(std::strlen(ident));

    ReadLine(f, line);
    CopyColumns(line, 9, 60, field);
    op_TrimRight(field);
    *title = field;
    *titleLen = static_cast<int>(title->size());

    ReadLine(f, line);
    CopyColumns(line, 9, 10, type);
    op_TrimRight(type);
    *reinit = Upper(line, 19) == 'Y';
    *isDouble = Upper(line, 20) == 'D';
    if (std::strlen(line) > 19) {
        if (const char* blank = std::strchr(line + 19, ' ')) *count = static_cast<int>(std::strtol(blank, nullptr, 10));
    }

    int c = f.Getc();
    for (int skipped = 0; c != 26;) {
        c = f.Getc();
        if (++skipped > kMaxBytesBeforeEnd) return Reject(kind, hdrStatus);
    }
    *hdrStatus = 50;
    *kind = number - 200;
    return 0;
}

template <typename Source>
int ReadExportHeader(Source& f, int* kind, char* type, int* reinit, int* count, int* identLen, int* titleLen,
                     char* ident, std::string* title, int* hdrStatus) {
    char line[kLineBuffer];
    char field[kLineBuffer];

    // Wider than the binary header's range: old export files used 1xx numbers.
    ReadLine(f, line);
    int number = 0;
    if (std::sscanf(line, "%d", &number) != 1) return Reject(kind, hdrStatus);
    if (number > 100 && number < 200) {
        *kind = number - 100;
    } else if (number > 200 && number < 300) {
        *kind = number - 200;
    } else {
        return Reject(kind, hdrStatus);
    }
    CopyColumns(line, 9, 10, type);
    *reinit = Upper(line, 22) == 'Y';

    ReadLine(f, line);
    std::sscanf(line, "%d %d %d", count, identLen, titleLen);
    if (*titleLen > 60) *titleLen = 60;

    ReadLine(f, line);
    StripLineEnd(line);
    CopyColumns(line, 0, 24, ident);
    if (*identLen >= 0 && *identLen < 24) ident[*identLen] = '\0';

    ReadLine(f, line);
    StripLineEnd(line);
    CopyColumns(line, 0, 60, field);
    if (*titleLen >= 0 && *titleLen < 60) field[*titleLen] = '\0';
    *title = field;
    *hdrStatus = 50;
    return 0;
}

template <typename Source>
int ReadHeader(Source& f, bool exportStyle, int* kind, char* type, int* reinit, int* count, int* identLen,
               int* titleLen, char* ident, std::string* title, int* hdrStatus, int* isDouble) {
    *kind = 0;
    *count = 1;
    *identLen = 0;
    *titleLen = 16;
    type[0] = '\0';
    *reinit = 0;
    ident[0] = '\0';
    if (exportStyle) return ReadExportHeader(f, kind, type, reinit, count, identLen, titleLen, ident, title, hdrStatus);
    return ReadBinaryHeader(f, kind, type, reinit, count, identLen, titleLen, ident, title, hdrStatus, isDouble);
}

}  // namespace

int op_ReadFileHdr(FILE* f, bool exportStyle, int* kind, char* type, int* reinit, int* count, int* identLen,
                   int* titleLen, char* ident, std::string* title, int* hdrStatus, int* isDouble) {
    StreamSource source{f};
    return ReadHeader(source, exportStyle, kind, type, reinit, count, identLen, titleLen, ident, title, hdrStatus,
                      isDouble);
}

int op_ParseFileHdr(const char* bytes, std::size_t size, DataFileHeader* h, std::size_t* used) {
    BytesSource source{bytes, bytes + size};
    int rc = ReadHeader(source, false, &h->kind, h->type, &h->reinit, &h->count, &h->identLen, &h->titleLen,
                        h->ident, &h->title, &h->hdrStatus, &h->isDouble);
    *used = static_cast<std::size_t>(source.at - bytes);
    return rc;
}

int op_ParseExportHdr(const char* bytes, std::size_t size, DataFileHeader* h, std::size_t* used) {
    BytesSource source{bytes, bytes + size};
    int rc = ReadHeader(source, true, &h->kind, h->type, &h->reinit, &h->count, &h->identLen, &h->titleLen, h->ident,
                        &h->title, &h->hdrStatus, &h->isDouble);
    *used = static_cast<std::size_t>(source.at - bytes);
    return rc;
}

int op_ReadFileHdr(FILE* f, bool exportStyle, DataFileHeader* h) {
    return op_ReadFileHdr(f, exportStyle, &h->kind, h->type, &h->reinit, &h->count, &h->identLen, &h->titleLen,
                          h->ident, &h->title, &h->hdrStatus, &h->isDouble);
}

int op_WriteFileHdr(FILE* f, bool exportStyle, int kind, const char* type, int reinit, long count, long identLen,
                    long titleLen, const char* ident, const std::string& title) {
    char reinitFlag = reinit == 1 ? 'Y' : 'N';
    if (exportStyle) {
        std::fprintf(f, "%6ld   %10s   %c   %5s\n", 200L + kind, type, reinitFlag, "");
        if (std::ferror(f)) return IDS_WRITE_ERROR;
        std::fprintf(f, "%6ld   %6ld   %6ld\n", count, identLen, titleLen);
        if (std::ferror(f)) return IDS_WRITE_ERROR;
        std::fprintf(f, "%-s\n", ident);
        if (std::ferror(f)) return IDS_WRITE_ERROR;
        std::fprintf(f, "%-s\n", title.c_str());
        if (std::ferror(f)) return IDS_WRITE_ERROR;
        return 0;
    }
    // Only exactly 1 means doubles here, while op_WritePair takes any non-zero
    // value; files written under other values therefore disagree, as they always have.
    char precision = cfg_GetDoublePrecOutput() == 1 ? 'D' : 'S';
    std::fprintf(f, "%ld \r\n", 200L + kind);
    std::fprintf(f, "Output file for:%-24.24s by:%-24.24s \r\n", ident, kWriterName);
    std::fprintf(f, "Data for:%-s\r\n", title.c_str());
    std::fprintf(f, "Run date:%-10.10s%c%c     %7ld\r\n", type, reinitFlag, precision, count);
    std::fprintf(f, "File Version: %cQUILLSTATFMT\r\n%c", 7, 26);
    return std::ferror(f) ? IDS_WRITE_ERROR : 0;
}

int op_CheckFileHdr(const char* path, int* kind, int* reinit, int* count, std::string* title, int mode) {
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path, mode, true);
    if (!f) return err;
    DataFileHeader h;
    int result = op_ReadFileHdr(f, mode != 2, &h);
    std::fclose(f);
    *kind = h.kind;
    *reinit = h.reinit;
    *count = h.count;
    *title = h.title;
    if (result == 0 && h.kind == 0) result = IDS_INVALID_HEADER;
    return result;
}

namespace {

int ReadBinaryHeaderOf(const char* path, DataFileHeader* h) {
    int err = 0;
    FILE* f = op_OpenDataFile(&err, path, 2, true);
    if (!f) return -1;
    op_ReadFileHdr(f, false, h);
    std::fclose(f);
    return 0;
}

}  // namespace

int op_GetFileKind(const char* path) {
    DataFileHeader h;
    return ReadBinaryHeaderOf(path, &h) ? -1 : h.kind;
}

int op_GetFileReinit(const char* path) {
    DataFileHeader h;
    return ReadBinaryHeaderOf(path, &h) ? -1 : h.reinit;
}
