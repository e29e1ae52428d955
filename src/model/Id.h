#pragma once

#include "platform/Field.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// One change record: ten numbers (the first is the structure's number, the next ones the
// objects'), a code naming the kind of object and an action.
class CId : public CObject {
public:
    CId() = default;
    CId(int code, int action) : Code(code), Action(action) {}

    // 1-based access to the ten numbers; outside 1..10 reads 0 and writes nothing.
    double GetNo(int i) const { return i >= 1 && i <= 10 ? No[i - 1] : 0.0; }
    void SetNo(int i, double v) {
        if (i >= 1 && i <= 10) No[i - 1] = v;
    }
    int IsModified() const { return Action == 1; }
    int IsRemoved() const { return Action == 2; }
    int IsEqual(const CId& other) const;
    int IsWriteAllOfSameCode(const CId& other) const;
    // "%-20s%-30s %3i  %9.3f  %9.3f  %9.3f\r\n": action, code, application, numbers 1 to 3.
    void GetIdString(std::string& out) const;

    static const char* ActionName(int action);
    static const char* CodeName(int code);

    KELO_FIELD(int, Code, 0)
    KELO_FIELD(int, Action, 0)
    KELO_FIELD(int, ActiveApp, 0)

private:
    double No[10] = {};
};

} // namespace kelo
