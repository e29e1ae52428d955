#pragma once

#include "design/ParamTable.h"
#include "platform/Object.h"

#include <string>

namespace kelo {

// Design parameters of a section as a whole: buckling lengths (m) and force attack point,
// tolerances, slenderness limits, creep and crack factors, stirrup strength `Fyw` (MPa) and
// strut angle `Theta` (degrees), and the data of steel member checks (section class, product
// type, buckling curves, lateral moment factors, imperfection ratio `Imperf`).
//
// Two fields carry a second meaning: `EccFX` is read as the tolerance switch `InclTol`, and
// `EccFY` both as the least tolerance `MinTol` (m) and, truncated, as `AddMomCode`.
class CSectDesPar : public CObject {
public:
    CSectDesPar() = default;
    CSectDesPar(int no, const std::string& name) : No(no), Name(name) {}
    CSectDesPar(const CSectDesPar&) = default;
    CSectDesPar& operator=(const CSectDesPar&) = default;

    // Partial coefficient of the safety class: 1.0, 1.1 and 1.2 for classes 1, 2 and 3; 1.0 for
    // any other class.
    double GetGammaN() const;
    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CSectDesPar* other, int /*mode*/) const {
        return Params().Compare(*this, other);
    }

    // The parameters by their place in the record, 1 `MatType` to 31 `LatMomY` (see kFieldCount),
    // as the section design command gives them; integer fields are truncated. Get answers -1.0
    // and Set 0 for a place outside the record.
    double GetParam(int field) const { return Params().Get(*this, field); }
    int SetParam(int field, double v) { return Params().Set(*this, field, v); }
    static constexpr int kFieldCount = 31;

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    // 1 concrete, 2 steel.
    int GetMatType() const { return MatType; }
    void SetMatType(int v) { MatType = v; }
    double GetLeX() const { return LeX; }
    void SetLeX(double v) { LeX = v; }
    double GetLeY() const { return LeY; }
    void SetLeY(double v) { LeY = v; }
    double GetLe3() const { return Le3; }
    void SetLe3(double v) { Le3 = v; }
    double GetLe4() const { return Le4; }
    void SetLe4(double v) { Le4 = v; }
    double GetCoFX() const { return CoFX; }
    void SetCoFX(double v) { CoFX = v; }
    double GetCoFY() const { return CoFY; }
    void SetCoFY(double v) { CoFY = v; }
    double GetEccFX() const { return EccFX; }
    void SetEccFX(double v) { EccFX = v; }
    double GetEccFY() const { return EccFY; }
    void SetEccFY(double v) { EccFY = v; }
    int GetInclTol() const { return static_cast<int>(EccFX); }
    void SetInclTol(int v) { EccFX = v; }
    double GetMinTol() const { return EccFY; }
    void SetMinTol(double v) { EccFY = v; }
    int GetAddMomCode() const { return static_cast<int>(EccFY); }
    void SetAddMomCode(int v) { EccFY = v; }
    double GetCustTolX() const { return CustTolX; }
    void SetCustTolX(double v) { CustTolX = v; }
    double GetCustTolY() const { return CustTolY; }
    void SetCustTolY(double v) { CustTolY = v; }
    double GetLambdaNmin() const { return LambdaNmin; }
    void SetLambdaNmin(double v) { LambdaNmin = v; }
    double GetLambdaNmax() const { return LambdaNmax; }
    void SetLambdaNmax(double v) { LambdaNmax = v; }
    double GetKa() const { return Ka; }
    void SetKa(double v) { Ka = v; }
    double GetCreepFactor() const { return CreepFactor; }
    void SetCreepFactor(double v) { CreepFactor = v; }
    double GetBeta() const { return Beta; }
    void SetBeta(double v) { Beta = v; }
    double GetKit() const { return Kit; }
    void SetKit(double v) { Kit = v; }
    double GetSrmMax() const { return SrmMax; }
    void SetSrmMax(double v) { SrmMax = v; }
    int GetSafClass() const { return SafClass; }
    void SetSafClass(int v) { SafClass = v; }
    double GetFyw() const { return Fyw; }
    void SetFyw(double v) { Fyw = v; }
    double GetTheta() const { return Theta; }
    void SetTheta(double v) { Theta = v; }
    double GetRmx() const { return Rmx; }
    void SetRmx(double v) { Rmx = v; }
    double GetRmy() const { return Rmy; }
    void SetRmy(double v) { Rmy = v; }
    double GetImperf() const { return Imperf; }
    void SetImperf(double v) { Imperf = v; }
    int GetSecClass() const { return SecClass; }
    void SetSecClass(int v) { SecClass = v; }
    int GetProdType() const { return ProdType; }
    void SetProdType(int v) { ProdType = v; }
    int GetBucklCurveX() const { return BucklCurveX; }
    void SetBucklCurveX(int v) { BucklCurveX = v; }
    int GetBucklCurveY() const { return BucklCurveY; }
    void SetBucklCurveY(int v) { BucklCurveY = v; }
    int GetLatBucklCurve() const { return LatBucklCurve; }
    void SetLatBucklCurve(int v) { LatBucklCurve = v; }
    double GetLatMomX() const { return LatMomX; }
    void SetLatMomX(double v) { LatMomX = v; }
    double GetLatMomY() const { return LatMomY; }
    void SetLatMomY(double v) { LatMomY = v; }

private:
    static const CParamTable<CSectDesPar, kFieldCount>& Params();

    int No = 0;
    std::string Name;
    int MatType = 1;
    double LeX = 0.0;
    double LeY = 0.0;
    double Le3 = 0.0;
    double Le4 = 0.0;
    double CoFX = 0.0;
    double CoFY = 0.0;
    double EccFX = 1.0;
    double EccFY = 0.02;
    double CustTolX = -1.0;
    double CustTolY = -1.0;
    double LambdaNmin = 10.0;
    double LambdaNmax = 45.0;
    double Ka = 0.666;
    double CreepFactor = 2.5;
    double Beta = 0.4;
    double Kit = 1.0;
    double SrmMax = 0.0;
    int SafClass = 3;
    double Fyw = 500.0;
    double Theta = 30.0;
    double Rmx = 1.0;
    double Rmy = 1.0;
    double Imperf = 400.0;
    int SecClass = 1;
    int ProdType = 0;
    int BucklCurveX = 0;
    int BucklCurveY = 0;
    int LatBucklCurve = 0;
    double LatMomX = 0.0;
    double LatMomY = 0.0;
};

} // namespace kelo
