// Root of the framework's class tree, with the run-time class records that let
// an archive name a class on disk and make an object of it again when reading.
#pragma once

class CArchive;
class CObject;

// Marks a schema whose objects read older schemas themselves: the archive then
// hands the stored schema to Serialize instead of refusing the object.
inline constexpr unsigned VERSIONABLE_SCHEMA = 0x80000000u;

struct CRuntimeClass {
    const char* m_lpszClassName;
    unsigned m_wSchema;                  // schema number, possibly | VERSIONABLE_SCHEMA
    CObject* (*m_pfnCreateObject)();     // null for classes that cannot be made from an archive
    const CRuntimeClass* m_pBaseClass;

    CObject* CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }
    bool IsDerivedFrom(const CRuntimeClass* base) const;
    unsigned Schema() const { return m_wSchema & ~VERSIONABLE_SCHEMA; }

    // The serialisable class of that name; null when none is registered.
    static const CRuntimeClass* FromName(const char* name);
};

// Registers a serialisable class by name; define one beside the class record.
struct AFX_CLASSINIT {
    explicit AFX_CLASSINIT(const CRuntimeClass* cls);
};

class CObject {
public:
    CObject() = default;
    virtual ~CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;

    virtual const CRuntimeClass* GetRuntimeClass() const { return &classCObject; }
    virtual void Serialize(CArchive&) {}
    bool IsKindOf(const CRuntimeClass* cls) const { return GetRuntimeClass()->IsDerivedFrom(cls); }

    static const CRuntimeClass classCObject;
};
