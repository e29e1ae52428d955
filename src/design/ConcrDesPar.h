#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// Design parameters of concrete: material factors and strain limits for the limit states
// 1 "ULS", 2 "PLS" and 3 "SLS", and the long-term factors `Acc` (compression) and `Act`
// (tension).
class CConcrDesPar : public CObject {
public:
    // 1.4, 1.0, 1.0 with strain limits 3.5.
    CConcrDesPar() = default;
    // 1.4, 1.2, 1.0 with strain limits 0.035. The difference from the unnamed constructor in the
    // accidental factor and the strain limits is kept as it is.
    CConcrDesPar(int no, const std::string& name);
    CConcrDesPar(const CConcrDesPar&) = default;
    CConcrDesPar& operator=(const CConcrDesPar&) = default;

    // Material factor of a limit state; with `flag` set, the ultimate factor is taken to the
    // accidental level by 1.2/1.5. Any other limit state gives -1.0.
    double GetGamma(int ls, int flag) const;
    // Strain limit of a limit state (plain ratio); -1.0 outside 1 to 3.
    double GetEpslim(int ls) const;
    void SetEpslim(int ls, double v);
    // 1 if any parameter differs by 1e-5 or more. Only mode 1 compares; any other mode gives 0.
    int CompareParam(const CConcrDesPar* other, int mode) const;

    // The parameters by their place in the record, as the design parameter command gives them:
    // 1 to 3 the factors, 4 to 6 the strain limits of the limit states, 7 `Acc`, 8 `Act`. Get
    // answers -1.0 and Set 0 for a place outside the record.
    double GetParam(int field) const;
    int SetParam(int field, double v);
    static constexpr int kFieldCount = 8;

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
    double GetAcc() const { return Acc; }
    void SetAcc(double v) { Acc = v; }
    double GetAct() const { return Act; }
    void SetAct(double v) { Act = v; }

private:
    int No = 0;
    std::string Name;
    double GammaULS = 1.4;
    double GammaPLS = 1.0;
    double GammaSLS = 1.0;
    double Epslim[3] = {3.5, 3.5, 3.5};
    double Acc = 0.85;
    double Act = 0.85;
};

} // namespace kelo
