#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// A reference line: the spatial curve that girders, columns and tendons are measured along.
class CRefLine : public CObject {
public:
    CRefLine() = default;
    CRefLine(int no, std::string name) : No(no), Name(std::move(name)) {}

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int no) { No = no; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& name) { Name = name; }

private:
    int No = 0;
    std::string Name;
};

} // namespace kelo
