#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

class CStructure;

// Prestressing steel. Strengths and modulus in kN/m²; the strain limit `Epssu` as a plain ratio.
// The modulus 1.95e8 is that of strand; the default set of BS 5400 projects takes 2e8.
// `Curve` chooses the top branch of the bilinear law under NS-EN 1992: 1 inclined up to `Ft` at
// the strain limit, 2 horizontal.
class CPrestMatPar : public CObject {
public:
    CPrestMatPar() = default;
    // fsk in MPa; the ultimate strength equals the yield strength.
    CPrestMatPar(int no, const std::string& name, double fsk);
    // fsk and ft in MPa.
    CPrestMatPar(int no, const std::string& name, double fsk, int cls, int curve, double ft);
    CPrestMatPar(const CPrestMatPar&) = default;
    CPrestMatPar& operator=(const CPrestMatPar&) = default;

    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CPrestMatPar* other, int mode) const;

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    CStructure* GetStructure() const { return Structure; }
    void SetStructure(CStructure* v) { Structure = v; }
    double GetFsk() const { return Fsk; }
    void SetFsk(double v) { Fsk = v; }
    double GetEsk() const { return Esk; }
    void SetEsk(double v) { Esk = v; }
    double GetEpssu() const { return Epssu; }
    void SetEpssu(double v) { Epssu = v; }
    int GetClass() const { return Class; }
    void SetClass(int v) { Class = v; }
    int GetCurve() const { return Curve; }
    void SetCurve(int v) { Curve = v; }
    double GetFt() const { return Ft; }
    void SetFt(double v) { Ft = v; }

private:
    int No = 0;
    std::string Name;
    CStructure* Structure = nullptr;
    double Fsk = 1670000.0;
    double Esk = 1.95e8;
    double Epssu = 0.02;
    int Class = 3;
    int Curve = 1;
    double Ft = 1670000.0;
};

} // namespace kelo
