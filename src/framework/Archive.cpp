#include "framework/Archive.h"

#include <cstring>

CArchive::CArchive(std::FILE* file, Mode mode) : m_mode(mode), m_file(file) {
    if (mode == load && file) {
        long start = std::ftell(file);
        if (start >= 0 && std::fseek(file, 0, SEEK_END) == 0) {
            long end = std::ftell(file);
            std::fseek(file, start, SEEK_SET);
            if (end >= start) m_size = static_cast<std::uint64_t>(end - start);
        }
    }
    if (!file) m_cause = genericException;
}

CArchive::CArchive(std::vector<unsigned char>& buffer, Mode mode) : m_mode(mode), m_buffer(&buffer) {
    if (mode == load) m_size = buffer.size();
}

void CArchive::Fail(Cause cause) {
    if (m_cause == none) m_cause = cause;
}

void CArchive::Write(const void* data, std::size_t n) {
    if (m_cause != none || n == 0) return;
    if (m_mode != store) return Fail(readOnly);
    if (m_file) {
        if (std::fwrite(data, 1, n, m_file) != n) return Fail(genericException);
    } else {
        const auto* p = static_cast<const unsigned char*>(data);
        m_buffer->insert(m_buffer->end(), p, p + n);
    }
    m_pos += n;
}

bool CArchive::Read(void* data, std::size_t n) {
    if (m_cause == none && m_mode != load) Fail(writeOnly);
    if (m_cause == none && n > BytesLeft()) Fail(endOfFile);
    if (m_cause != none) {
        if (n) std::memset(data, 0, n);
        return false;
    }
    if (n == 0) return true;
    if (m_file) {
        std::size_t got = std::fread(data, 1, n, m_file);
        if (got != n) {
            std::memset(data, 0, n);
            Fail(std::ferror(m_file) ? genericException : endOfFile);
            return false;
        }
    } else {
        std::memcpy(data, m_buffer->data() + m_pos, n);
    }
    m_pos += n;
    return true;
}

void CArchive::Flush() {
    if (m_file && m_mode == store && std::fflush(m_file) != 0) Fail(genericException);
}

CArchive& CArchive::PutLE(unsigned long long v, int bytes) {
    unsigned char b[8];
    for (int i = 0; i < bytes; ++i) b[i] = static_cast<unsigned char>(v >> (8 * i));
    Write(b, static_cast<std::size_t>(bytes));
    return *this;
}

unsigned long long CArchive::GetLE(int bytes) {
    unsigned char b[8];
    Read(b, static_cast<std::size_t>(bytes));
    unsigned long long v = 0;
    for (int i = bytes - 1; i >= 0; --i) v = (v << 8) | b[i];
    return v;
}

void CArchive::WriteCount(std::uint64_t count) {
    if (count < 0xFFFF) {
        *this << static_cast<unsigned short>(count);
        return;
    }
    *this << static_cast<unsigned short>(0xFFFF);
    if (count < 0xFFFFFFFFu) {
        *this << static_cast<unsigned int>(count);
        return;
    }
    *this << 0xFFFFFFFFu << static_cast<unsigned long long>(count);
}

std::uint64_t CArchive::ReadCount() {
    unsigned short w = 0;
    *this >> w;
    if (w != 0xFFFF) return w;
    unsigned int d = 0;
    *this >> d;
    if (d != 0xFFFFFFFFu) return d;
    unsigned long long q = 0;
    *this >> q;
    return q;
}

void CArchive::WriteString(const std::string& s) {
    std::uint64_t n = s.size();
    if (n < 255) {
        *this << static_cast<unsigned char>(n);
    } else {
        *this << static_cast<unsigned char>(0xFF);
        if (n < 0xFFFE) {
            *this << static_cast<unsigned short>(n);
        } else {
            *this << static_cast<unsigned short>(0xFFFF);
            if (n < 0xFFFFFFFFu) {
                *this << static_cast<unsigned int>(n);
            } else {
                *this << 0xFFFFFFFFu << static_cast<unsigned long long>(n);
            }
        }
    }
    Write(s.data(), s.size());
}

std::string CArchive::ReadString() {
    unsigned char b = 0;
    *this >> b;
    std::uint64_t n = b;
    if (b == 0xFF) {
        unsigned short w = 0;
        *this >> w;
        n = w;
        if (w == 0xFFFE) {
            // Marks a wide-character string; this program writes and reads only
            // single-byte text.
            Fail(badIndex);
            return {};
        }
        if (w == 0xFFFF) {
            unsigned int d = 0;
            *this >> d;
            n = d;
            if (d == 0xFFFFFFFFu) {
                unsigned long long q = 0;
                *this >> q;
                n = q;
            }
        }
    }
    if (m_cause != none) return {};
    if (n > BytesLeft()) {
        Fail(endOfFile);
        return {};
    }
    std::string s(static_cast<std::size_t>(n), '\0');
    Read(s.data(), s.size());
    return m_cause == none ? s : std::string();
}

void CArchive::WriteObject(const CObject* object) {
    if (!object) {
        *this << wNullTag;
        return;
    }
    const CRuntimeClass* cls = object->GetRuntimeClass();
    std::uint32_t index = 0;
    for (const auto& [c, i] : m_storedClasses)
        if (c == cls) index = i;
    if (index == 0) {
        std::size_t len = std::strlen(cls->m_lpszClassName);
        *this << wNewClassTag << static_cast<unsigned short>(cls->Schema()) << static_cast<unsigned short>(len);
        Write(cls->m_lpszClassName, len);
        m_storedClasses.emplace_back(cls, m_mapCount++);
    } else if (index < wBigObjectTag) {
        *this << static_cast<unsigned short>(wClassTag | index);
    } else {
        *this << wBigObjectTag << static_cast<unsigned int>(dwBigClassTag | index);
    }
    // The object takes the next index, as a reader counts it; an object is
    // owned by one container, so it is never written again as a back-reference.
    ++m_mapCount;
    const_cast<CObject*>(object)->Serialize(*this);
}

const CRuntimeClass* CArchive::ReadClass(unsigned short tag, const CRuntimeClass* required, unsigned* schema) {
    if (tag == wNewClassTag) {
        unsigned short storedSchema = 0, len = 0;
        *this >> storedSchema >> len;
        if (m_cause != none) return nullptr;
        if (len == 0 || len > kMaxClassName) {
            Fail(badClass);
            return nullptr;
        }
        char name[kMaxClassName + 1] = {};
        if (!Read(name, len)) return nullptr;
        const CRuntimeClass* cls = CRuntimeClass::FromName(name);
        if (!cls || !cls->m_pfnCreateObject || !cls->IsDerivedFrom(required)) {
            Fail(badClass);
            return nullptr;
        }
        if (storedSchema != cls->Schema() && !(cls->m_wSchema & VERSIONABLE_SCHEMA)) {
            Fail(badSchema);
            return nullptr;
        }
        m_loadedClasses.push_back({m_mapCount++, cls, storedSchema});
        *schema = storedSchema;
        return cls;
    }
    std::uint32_t ref = 0;
    if (tag == wBigObjectTag) {
        unsigned int big = 0;
        *this >> big;
        if (m_cause != none) return nullptr;
        ref = big;
    } else {
        ref = (static_cast<std::uint32_t>(tag & wClassTag) << 16) | (tag & ~wClassTag);
    }
    if (!(ref & dwBigClassTag)) {
        // A reference to an object read before: objects here have one owner.
        Fail(badIndex);
        return nullptr;
    }
    std::uint32_t index = ref & ~dwBigClassTag;
    for (const LoadedClass& c : m_loadedClasses) {
        if (c.index == index) {
            if (!c.cls->IsDerivedFrom(required)) break;
            *schema = c.schema;
            return c.cls;
        }
    }
    Fail(badIndex);
    return nullptr;
}

std::unique_ptr<CObject> CArchive::ReadObject(const CRuntimeClass* required) {
    unsigned short tag = 0;
    *this >> tag;
    if (m_cause != none || tag == wNullTag) return nullptr;
    unsigned schema = 0;
    const CRuntimeClass* cls = ReadClass(tag, required, &schema);
    if (!cls) return nullptr;
    std::unique_ptr<CObject> object(cls->CreateObject());
    if (!object) {
        Fail(badClass);
        return nullptr;
    }
    ++m_mapCount;
    m_objectSchema = schema;
    object->Serialize(*this);
    m_objectSchema = ~0u;
    if (m_cause != none) return nullptr;
    return object;
}
