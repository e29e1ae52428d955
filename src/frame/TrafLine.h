#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// A traffic line: a chain of elements along which unit loads are placed.
class CTrafLine : public CObject {
public:
    CTrafLine() = default;
    CTrafLine(int no, std::string name) : TrafLineNo(no), Name(std::move(name)) {}
    int KeyNo() const { return TrafLineNo; }
    KELO_FIELD(int, TrafLineNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, PosCount, 0)
    KELO_FIELD(double, MinPosDist, 0.0)
};

// A traffic load on a traffic line; its twelve governing results go under the load numbers
// TrafLoadNo to TrafLoadNo + 11.
class CTrafLoad : public CObject {
public:
    CTrafLoad() = default;
    CTrafLoad(int no, int line, std::string name)
        : TrafLoadNo(no), TrafLineNo(line), Name(std::move(name)) {}
    int KeyNo() const { return TrafLoadNo; }
    KELO_FIELD(int, TrafLoadNo, 0)
    KELO_FIELD(int, TrafLineNo, 0)
    KELO_FIELD(std::string, Name, "")
    KELO_FIELD(int, PrintTrafLoad, 0)
    KELO_FIELD(std::string, StrPrintTrafLoad, "")
    KELO_FIELD(int, PrintLc, 0)
};

} // namespace kelo
