#pragma once

namespace kelo {

// Common root of every model class: run-time identity through virtual destruction, nothing else.
class CObject {
public:
    CObject() = default;
    CObject(const CObject&) = default;
    CObject& operator=(const CObject&) = default;
    virtual ~CObject() = default;
};

} // namespace kelo
