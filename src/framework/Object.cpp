#include "framework/Object.h"

#include <cstring>
#include <vector>

const CRuntimeClass CObject::classCObject{"CObject", 0xFFFF, nullptr, nullptr};

namespace {

// Built on first use so that registrations from any translation unit's static
// initialisers find it ready.
std::vector<const CRuntimeClass*>& Registry() {
    static std::vector<const CRuntimeClass*> classes;
    return classes;
}

}  // namespace

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    for (const CRuntimeClass* c = this; c; c = c->m_pBaseClass)
        if (c == base) return true;
    return false;
}

const CRuntimeClass* CRuntimeClass::FromName(const char* name) {
    for (const CRuntimeClass* c : Registry())
        if (std::strcmp(c->m_lpszClassName, name) == 0) return c;
    return nullptr;
}

AFX_CLASSINIT::AFX_CLASSINIT(const CRuntimeClass* cls) { Registry().push_back(cls); }
