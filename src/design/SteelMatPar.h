#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

// Structural steel. Strengths and moduli in kN/m², density in kg/m³, strains as plain ratios.
// `Es` and `Ey` are the moduli of the elastic and the hardening branch of the design law;
// `YoungsModulus`, `PoissonRatio` and `ShearModulus` give the stiffness of the frame.
class CSteelMatPar : public CObject {
public:
    CSteelMatPar() = default;
    // Strengths by a grade code: 101xx the older grades of 235, 275 and 355 MPa yield, 102xx to
    // 104xx the newer grades up to 460 MPa. Any other code gets 370 and 235 MPa.
    CSteelMatPar(int no, const std::string& name, int gradeCode);
    CSteelMatPar(const CSteelMatPar&) = default;
    CSteelMatPar& operator=(const CSteelMatPar&) = default;

    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CSteelMatPar* other, int mode) const;

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    double GetFb() const { return Fb; }
    void SetFb(double v) { Fb = v; }
    double GetFy() const { return Fy; }
    void SetFy(double v) { Fy = v; }
    double GetEs() const { return Es; }
    void SetEs(double v) { Es = v; }
    double GetEy() const { return Ey; }
    void SetEy(double v) { Ey = v; }
    double GetRho() const { return Rho; }
    void SetRho(double v) { Rho = v; }
    double GetEpssu() const { return Epssu; }
    void SetEpssu(double v) { Epssu = v; }
    double GetAlpha() const { return Alpha; }
    void SetAlpha(double v) { Alpha = v; }
    // Setting the modulus or Poisson's ratio brings the shear modulus along.
    double GetYoungsModulus() const { return YoungsModulus; }
    void SetYoungsModulus(double v);
    double GetPoissonRatio() const { return PoissonRatio; }
    void SetPoissonRatio(double v);
    double GetShearModulus() const { return ShearModulus; }
    void SetShearModulus(double v) { ShearModulus = v; }
    double GetReserve() const { return Reserve; }
    void SetReserve(double v) { Reserve = v; }
    int GetCalcOption() const { return CalcOption; }
    void SetCalcOption(int v) { CalcOption = v; }

private:
    int No = 0;
    std::string Name;
    double Fb = 370000.0;
    double Fy = 235000.0;
    double Es = 2.1e8;
    double Ey = 0.0;
    double Rho = 7850.0;
    double Epssu = 0.012;
    double Alpha = 1.2e-5;
    double YoungsModulus = 2.1e8;
    double PoissonRatio = 0.3;
    double ShearModulus = 0.5 * 2.1e8 / 1.3;
    double Reserve = 0.0;
    int CalcOption = 0;
};

} // namespace kelo
