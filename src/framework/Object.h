// Root of the framework's class tree: a polymorphic base with nothing else.
#pragma once

class CObject {
public:
    CObject() = default;
    virtual ~CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
};
