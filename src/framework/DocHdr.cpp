#include "framework/DocHdr.h"

#include <algorithm>
#include <cstring>

#include "framework/Archive.h"

namespace {

void WriteTag(CArchive& ar, const char* tag) {
    char bytes[4] = {' ', ' ', ' ', ' '};
    std::memcpy(bytes, tag, std::min<std::size_t>(std::strlen(tag), 4));
    ar.Write(bytes, 4);
}

std::string ReadTag(CArchive& ar) {
    char bytes[4];
    ar.Read(bytes, 4);
    return std::string(bytes, 4);
}

}  // namespace

void sys_WriteHdr(CArchive& ar, const char* type, int version, DocHdr* hdr) {
    WriteTag(ar, kDocHdrSignature);
    WriteTag(ar, type);
    ar << static_cast<unsigned short>(version);
    if (hdr) {
        hdr->signature = kDocHdrSignature;
        hdr->type = type;
        hdr->version = version;
    }
}

void sys_ReadHdr(CArchive& ar, DocHdr& hdr) {
    hdr.signature = ReadTag(ar);
    hdr.type = ReadTag(ar);
    unsigned short version = 0;
    ar >> version;
    hdr.version = version;
    hdr.current = false;
}

int sys_ValidateHdr(const DocHdr& hdr, const char* type, int minVersion, int maxVersion) {
    if (hdr.signature != kDocHdrSignature) return 1;
    if (hdr.type != type) return 2;
    if (hdr.version < minVersion || hdr.version > maxVersion) return 3;
    return 0;
}

void sys_UpdateHdr(DocHdr& hdr, const char* type, int version) {
    hdr.signature = kDocHdrSignature;
    hdr.type = type;
    hdr.version = version;
    hdr.current = true;
}
