// The header record in front of a saved document: a signature, the document's
// type tag and its version. A file whose header is not ours, or is of another
// type or version, is refused before any of its contents is read.
//
// Layout (10 bytes): the signature "OPDH", the 4-byte type tag (".DGR"), the
// version as a 16-bit little-endian number.
#pragma once

#include <string>

class CArchive;

struct DocHdr {
    std::string signature;  // "OPDH" in a header of ours
    std::string type;       // 4-byte type tag
    int version = 0;
    bool current = false;   // brought up to the program's type and version
};

inline constexpr char kDocHdrSignature[] = "OPDH";

// Writes a header of the given type and version; hdr, when given, receives it.
void sys_WriteHdr(CArchive& ar, const char* type, int version, DocHdr* hdr);
// Reads a header; a short file leaves the archive's endOfFile cause.
void sys_ReadHdr(CArchive& ar, DocHdr& hdr);
// 0 when hdr is ours, of the type, and of a version from minVersion to maxVersion; else non-zero.
int sys_ValidateHdr(const DocHdr& hdr, const char* type, int minVersion, int maxVersion);
// Marks a header read or written in full as the program's own: type and
// version become the current ones, so the next save writes them.
void sys_UpdateHdr(DocHdr& hdr, const char* type, int version);
