#pragma once

#include "design/LimitStateDesPar.h"
#include "design/ParamTable.h"

#include <string>

namespace kelo {

// Design parameters of steel in concrete, reinforcing bars and prestressing tendons alike:
// material factors of the limit states 1 "ULS", 2 "PLS", 3 "SLS", the crack parameters (`K1`,
// `BondCoeff`, `Kt`, the crack width limit `WkMax` in mm, the greatest crack spacing `SrmMax` and
// the `Cover` in mm, `ScaleWk`) and the strain limits of the three limit states as plain ratios.
class CBarDesPar : public CLimitStateDesPar {
public:
    // Material factor of limit state 1 to 3; any other gives -1.0.
    double GetGamma(int ls, int /*flag*/) const { return GammaOf(ls); }

    // The parameters by their place in the record, as the design parameter command gives them:
    // 1 to 3 the factors of the limit states, 4 `K1`, 5 `BondCoeff`, 6 `Kt`, 7 `WkMax`,
    // 8 `SrmMax`, 9 `Cover`, 10 `ScaleWk` (truncated), 11 to 13 the strain limits. Get answers
    // -1.0 and Set 0 for a place outside the record.
    double GetParam(int field) const { return Params().Get(*this, field); }
    int SetParam(int field, double v) { return Params().Set(*this, field, v); }
    static constexpr int kFieldCount = 13;

    double GetK1() const { return K1; }
    void SetK1(double v) { K1 = v; }
    double GetBondCoeff() const { return BondCoeff; }
    void SetBondCoeff(double v) { BondCoeff = v; }
    double GetKt() const { return Kt; }
    void SetKt(double v) { Kt = v; }
    double GetWkMax() const { return WkMax; }
    void SetWkMax(double v) { WkMax = v; }
    double GetSrmMax() const { return SrmMax; }
    void SetSrmMax(double v) { SrmMax = v; }
    double GetCover() const { return Cover; }
    void SetCover(double v) { Cover = v; }
    int GetScaleWk() const { return ScaleWk; }
    void SetScaleWk(int v) { ScaleWk = v; }

protected:
    // What a new set of the steel starts with beside the factors 1.25, 1.1 and 1.0: the bond and
    // crack parameters that depend on the steel, and one strain limit for all limit states.
    struct SteelValues {
        double BondCoeff;
        double Kt;
        double WkMax;
        double Cover;
        double Epslim;
    };

    CBarDesPar(int no, const std::string& name, const SteelValues& start);
    CBarDesPar(const CBarDesPar&) = default;
    CBarDesPar& operator=(const CBarDesPar&) = default;

    // 1 if any parameter differs by 1e-5 or more, or there is no other set; number and name are
    // not parameters.
    int DiffersFrom(const CBarDesPar* other) const { return Params().Compare(*this, other); }

private:
    static const CParamTable<CBarDesPar, kFieldCount>& Params();

    double K1 = 0.4;
    double BondCoeff;
    double Kt;
    double WkMax;
    double SrmMax = 135.0;
    double Cover;
    int ScaleWk = 0;
};

} // namespace kelo
