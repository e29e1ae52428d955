#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// Design parameters of reinforcing steel: material factors of the limit states 1 "ULS",
// 2 "PLS", 3 "SLS", the crack parameters (`K1`, `BondCoeff`, `Kt`, the crack width limit
// `WkMax` in mm, the greatest crack spacing `SrmMax` and the `Cover` in mm, `ScaleWk`) and the
// strain limits of the three limit states as plain ratios.
class CReinfDesPar : public CObject {
public:
    CReinfDesPar() = default;
    CReinfDesPar(int no, const std::string& name) : No(no), Name(name) {}
    CReinfDesPar(const CReinfDesPar&) = default;
    CReinfDesPar& operator=(const CReinfDesPar&) = default;

    // Material factor of limit state 1 to 3; any other gives -1.0.
    double GetGamma(int ls, int flag) const;
    double GetEpslim(int ls) const;
    void SetEpslim(int ls, double v);
    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CReinfDesPar* other, int mode) const;

    // The parameters by their place in the record, as the design parameter command gives them:
    // 1 to 3 the factors of the limit states, 4 `K1`, 5 `BondCoeff`, 6 `Kt`, 7 `WkMax`,
    // 8 `SrmMax`, 9 `Cover`, 10 `ScaleWk` (truncated), 11 to 13 the strain limits. Get answers
    // -1.0 and Set 0 for a place outside the record.
    double GetParam(int field) const;
    int SetParam(int field, double v);
    static constexpr int kFieldCount = 13;

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    double GetGammaULS() const { return GammaULS; }
    void SetGammaULS(double v) { GammaULS = v; }
    double GetGammaPLS() const { return GammaPLS; }
    void SetGammaPLS(double v) { GammaPLS = v; }
    double GetGammaSLS() const { return GammaSLS; }
    void SetGammaSLS(double v) { GammaSLS = v; }
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

private:
    int No = 0;
    std::string Name;
    double GammaULS = 1.25;
    double GammaPLS = 1.1;
    double GammaSLS = 1.0;
    double K1 = 0.4;
    double BondCoeff = 0.75;
    double Kt = 1.5;
    double WkMax = 0.3;
    double SrmMax = 135.0;
    double Cover = 55.0;
    int ScaleWk = 0;
    double Epslim[3] = {0.005, 0.005, 0.005};
};

} // namespace kelo
