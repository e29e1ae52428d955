#pragma once

#include "design/LimitStateDesPar.h"
#include "design/ParamTable.h"

#include <string>

namespace kelo {

// Design parameters of concrete: material factors and strain limits for the limit states
// 1 "ULS", 2 "PLS" and 3 "SLS", and the long-term factors `Acc` (compression) and `Act`
// (tension).
class CConcrDesPar : public CLimitStateDesPar {
public:
    // 1.4, 1.0, 1.0 with strain limits 3.5.
    CConcrDesPar()
        : CLimitStateDesPar(0, "",
                            {.GammaULS = 1.4, .GammaPLS = 1.0, .GammaSLS = 1.0, .Epslim = 3.5}) {}
    // 1.4, 1.2, 1.0 with strain limits 0.035. The difference from the unnamed constructor in the
    // accidental factor and the strain limits is kept as it is.
    CConcrDesPar(int no, const std::string& name)
        : CLimitStateDesPar(no, name,
                            {.GammaULS = 1.4, .GammaPLS = 1.2, .GammaSLS = 1.0, .Epslim = 0.035}) {}
    CConcrDesPar(const CConcrDesPar&) = default;
    CConcrDesPar& operator=(const CConcrDesPar&) = default;

    // Material factor of a limit state; with `flag` set, the ultimate factor is taken to the
    // accidental level by 1.2/1.5. Any other limit state gives -1.0.
    double GetGamma(int ls, int flag) const {
        return ls == 1 && flag ? 1.2 * GammaULS / 1.5 : GammaOf(ls);
    }
    // 1 if any parameter differs by 1e-5 or more. Only mode 1 compares; any other mode gives 0.
    int CompareParam(const CConcrDesPar* other, int mode) const;

    // The parameters by their place in the record, as the design parameter command gives them:
    // 1 to 3 the factors, 4 to 6 the strain limits of the limit states, 7 `Acc`, 8 `Act`. Get
    // answers -1.0 and Set 0 for a place outside the record.
    double GetParam(int field) const { return Params().Get(*this, field); }
    int SetParam(int field, double v) { return Params().Set(*this, field, v); }
    static constexpr int kFieldCount = 8;

    double GetAcc() const { return Acc; }
    void SetAcc(double v) { Acc = v; }
    double GetAct() const { return Act; }
    void SetAct(double v) { Act = v; }

private:
    static const CParamTable<CConcrDesPar, kFieldCount>& Params();

    double Acc = 0.85;
    double Act = 0.85;
};

} // namespace kelo
