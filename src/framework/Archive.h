// The framework's binary archive: little-endian numbers, counted strings,
// object-array counts and class-tagged objects, in the byte layout that
// documents are saved in. A reader never trusts a length or count it reads: each
// is checked against the bytes left, so a damaged or hostile file ends in a
// failure cause, never in a huge allocation or a read past the end.
//
// Failures do not throw: the first one is kept as the cause, later reads return
// zeros and empty strings, and the caller checks GetCause() when done.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "framework/Object.h"

class CArchive {
public:
    enum Mode { store = 0, load = 1 };
    // Numbered as the framework's archive exception causes.
    enum Cause {
        none = 0,
        genericException = 1,  // the file could not be read or written
        readOnly = 2,
        endOfFile = 3,         // a read past the end, or a length longer than the rest
        writeOnly = 4,
        badIndex = 5,          // a tag or header that makes no sense: bad file format
        badClass = 6,          // a class name this program does not know
        badSchema = 7,         // a class schema this program cannot read
    };

    // Tags of the object layout.
    static constexpr std::uint16_t wNullTag = 0x0000;
    static constexpr std::uint16_t wNewClassTag = 0xFFFF;
    static constexpr std::uint16_t wClassTag = 0x8000;
    static constexpr std::uint16_t wBigObjectTag = 0x7FFF;
    static constexpr std::uint32_t dwBigClassTag = 0x80000000u;
    static constexpr std::size_t kMaxClassName = 63;

    // Over an open stream (not owned); a loading archive reads from the current
    // position to the end of the file.
    CArchive(std::FILE* file, Mode mode);
    // Over memory: a storing archive appends to buffer, a loading one reads it.
    CArchive(std::vector<unsigned char>& buffer, Mode mode);
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    bool IsLoading() const { return m_mode == load; }
    bool IsStoring() const { return m_mode == store; }
    int GetCause() const { return m_cause; }
    bool IsOk() const { return m_cause == none; }
    // Keeps the first cause; everything after it is ignored.
    void Fail(Cause cause);
    // Bytes not yet read (loading).
    std::uint64_t BytesLeft() const { return m_size - m_pos; }
    // Bytes written or read so far.
    std::uint64_t Position() const { return m_pos; }

    void Write(const void* data, std::size_t n);
    // False (and endOfFile) when fewer than n bytes are left; data is then zeroed.
    bool Read(void* data, std::size_t n);
    // Pushes buffered bytes to the file; a write error becomes genericException.
    void Flush();

    CArchive& operator<<(unsigned char v) { return PutLE(v, 1); }
    CArchive& operator<<(unsigned short v) { return PutLE(v, 2); }
    CArchive& operator<<(short v) { return PutLE(static_cast<unsigned short>(v), 2); }
    CArchive& operator<<(unsigned int v) { return PutLE(v, 4); }
    CArchive& operator<<(int v) { return PutLE(static_cast<unsigned int>(v), 4); }
    CArchive& operator<<(unsigned long long v) { return PutLE(v, 8); }
    CArchive& operator<<(long long v) { return PutLE(static_cast<unsigned long long>(v), 8); }
    CArchive& operator<<(const std::string& s) { WriteString(s); return *this; }

    CArchive& operator>>(unsigned char& v) { v = static_cast<unsigned char>(GetLE(1)); return *this; }
    CArchive& operator>>(unsigned short& v) { v = static_cast<unsigned short>(GetLE(2)); return *this; }
    CArchive& operator>>(short& v) { v = static_cast<short>(GetLE(2)); return *this; }
    CArchive& operator>>(unsigned int& v) { v = static_cast<unsigned int>(GetLE(4)); return *this; }
    CArchive& operator>>(int& v) { v = static_cast<int>(static_cast<unsigned int>(GetLE(4))); return *this; }
    CArchive& operator>>(unsigned long long& v) { v = GetLE(8); return *this; }
    CArchive& operator>>(long long& v) { v = static_cast<long long>(GetLE(8)); return *this; }
    CArchive& operator>>(std::string& s) { s = ReadString(); return *this; }

    // Element count of an object array: 16 bits, or 0xFFFF and 32 bits (and
    // 0xFFFFFFFF and 64 bits) for larger counts.
    void WriteCount(std::uint64_t count);
    std::uint64_t ReadCount();

    // Single-byte strings with their length in front: one byte below 255, else
    // 0xFF and 16 bits below 0xFFFE, else 0xFF, 0xFFFF and 32 bits.
    void WriteString(const std::string& s);
    std::string ReadString();

    // An object reference: null, or the object's class (new-class tag with schema
    // and name the first time, a class reference later) and then its own data.
    void WriteObject(const CObject* object);
    // Reads one reference; the object must be of class required or derived from
    // it. Null for a null reference and after a failure (see GetCause).
    std::unique_ptr<CObject> ReadObject(const CRuntimeClass* required);
    // Schema of the object being read, for versionable classes.
    unsigned GetObjectSchema() const { return m_objectSchema; }

private:
    CArchive& PutLE(unsigned long long v, int bytes);
    unsigned long long GetLE(int bytes);
    const CRuntimeClass* ReadClass(unsigned short tag, const CRuntimeClass* required, unsigned* schema);

    struct LoadedClass {
        std::uint32_t index;
        const CRuntimeClass* cls;
        unsigned schema;
    };

    Mode m_mode;
    std::FILE* m_file = nullptr;
    std::vector<unsigned char>* m_buffer = nullptr;
    std::uint64_t m_pos = 0;
    std::uint64_t m_size = 0;
    int m_cause = none;
    std::uint32_t m_mapCount = 1;  // index 0 is the null reference
    std::vector<std::pair<const CRuntimeClass*, std::uint32_t>> m_storedClasses;
    std::vector<LoadedClass> m_loadedClasses;
    unsigned m_objectSchema = ~0u;
};
