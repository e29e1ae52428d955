#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// Design parameters of structural steel: eight values set and read by index. Index 1 to 3 are
// the material factors of the limit states 1 "ULS", 2 "PLS", 3 "SLS", index 4 a fourth factor;
// index 5 to 8 are their companions, the strain limits (plain ratios) of the same limit states.
class CSteelDesPar : public CObject {
public:
    CSteelDesPar() = default;
    CSteelDesPar(int no, const std::string& name) : No(no), Name(name) {}
    CSteelDesPar(const CSteelDesPar&) = default;
    CSteelDesPar& operator=(const CSteelDesPar&) = default;

    // The value of index 1 to 8; any other index gives -1.0.
    double GetGamma(int index) const;
    void SetGamma(int index, double v);
    // The strain limit of limit state 1 to 4 (index 5 to 8); -1.0 outside.
    double GetEpslim(int ls) const;
    void SetEpslim(int ls, double v);
    // 1 if any value differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CSteelDesPar* other, int mode) const;

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }

    static constexpr int kValueCount = 8;

private:
    int No = 0;
    std::string Name;
    double Gamma[kValueCount] = {};
};

} // namespace kelo
