#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

class CStructure;
class MessageSink;

// One concrete material. Strengths and moduli are held in kN/m² (MPa times 1000), density in
// kg/m³, strains as plain ratios. The meaning of the strength fields follows the design code:
// under the NS 3473 codes `Fck` is the cube strength and `Fcck` the cylinder strength; under
// NS-EN 1992 and AASHTO `Fcck` is the characteristic cylinder strength (fck, f'c) and `Fck`
// the cube strength that belongs to it.
class CConcrMatPar : public CObject {
public:
    CConcrMatPar() = default;
    // fck in MPa. With a design code (concrCode not 0) the density is chosen by the code and the
    // derived parameters are calculated; with code 0 only the strength is stored.
    CConcrMatPar(int no, const std::string& name, double fck, int lwa, double rho, int concrCode,
                 MessageSink* warnings = nullptr);
    CConcrMatPar(const CConcrMatPar&) = default;
    CConcrMatPar& operator=(const CConcrMatPar&) = default;

    // Derives strengths, moduli and strain limits from the strength fck (MPa) under a design
    // code. Codes 103 and 104 derive nothing. Strengths outside a code's range are told to
    // `warnings`; under code 105 they leave the parameters as they were.
    void CalculateParam(int concrCode, int lwa, double rho, double fck,
                        MessageSink* warnings = nullptr);

    // 1 if any parameter differs by 1e-5 or more; number and name are not parameters.
    int CompareParam(const CConcrMatPar* other, int mode) const;

    // The data line of the project text file.
    std::string GetObjDataString() const;

    int KeyNo() const { return No; }
    int GetNo() const { return No; }
    void SetNo(int v) { No = v; }
    const std::string& GetName() const { return Name; }
    void SetName(const std::string& v) { Name = v; }
    CStructure* GetStructure() const { return Structure; }
    void SetStructure(CStructure* v) { Structure = v; }

    double GetFck() const { return Fck; }
    void SetFck(double v) { Fck = v; }
    double GetFcck() const { return Fcck; }
    void SetFcck(double v) { Fcck = v; }
    double GetFcn() const { return Fcn; }
    void SetFcn(double v) { Fcn = v; }
    double GetFcm() const { return Fcn; }
    void SetFcm(double v) { Fcn = v; }
    double GetFtn() const { return Ftn; }
    void SetFtn(double v) { Ftn = v; }
    double GetFctm() const { return Ftn; }
    void SetFctm(double v) { Ftn = v; }
    double GetEcn() const { return Ecn; }
    void SetEcn(double v) { Ecn = v; }
    double GetEcm() const { return Ecn; }
    void SetEcm(double v) { Ecn = v; }
    double GetEck() const { return Eck; }
    void SetEck(double v) { Eck = v; }
    double GetRho() const { return Rho; }
    void SetRho(double v) { Rho = v; }
    double GetEpsco() const { return Epsco; }
    void SetEpsco(double v) { Epsco = v; }
    double GetEpsc2() const { return Epsco; }
    void SetEpsc2(double v) { Epsco = v; }
    double GetEpscu() const { return Epscu; }
    void SetEpscu(double v) { Epscu = v; }
    double GetEpscu2() const { return Epscu; }
    void SetEpscu2(double v) { Epscu = v; }
    double GetM() const { return M; }
    void SetM(double v) { M = v; }
    double GetN() const { return M; }
    void SetN(double v) { M = v; }
    double GetAlpha() const { return Alpha; }
    void SetAlpha(double v) { Alpha = v; }
    int GetCementClass() const { return CementClass; }
    void SetCementClass(int v) { CementClass = v; }
    double GetK2() const { return K2; }
    void SetK2(double v) { K2 = v; }
    double GetPoissonRatio() const { return PoissonRatio; }
    void SetPoissonRatio(double v) { PoissonRatio = v; }
    int GetLwa() const { return Lwa; }
    void SetLwa(int v) { Lwa = v; }
    // Age (days) kept with the record for the material command.
    double GetAge() const { return Age; }
    void SetAge(double v) { Age = v; }

    // The modulus for stiffness: the stored one when given, else `Ecn`.
    double GetYoungsModulus() const { return YoungsModulus > 0.0 ? YoungsModulus : Ecn; }
    void SetYoungsModulus(double v) { YoungsModulus = v; }
    bool GetUseDefaultYoungsModulus() const { return static_cast<int>(YoungsModulus) == -1; }

    // Lower and upper 5 % fractiles of the tensile strength.
    double GetFctk05() const { return 0.7 * Ftn; }
    double GetFctk95() const { return 1.3 * Ftn; }

private:
    void CalculateNs3473(int concrCode, int lwa, double rho, double fck, MessageSink* warnings);
    void CalculateEn1992(int lwa, double rho, double fck, MessageSink* warnings);
    void CalculateAashto(int lwa, double rho, double fck, MessageSink* warnings);

    int No = 0;
    std::string Name;
    CStructure* Structure = nullptr;
    double Fck = 0.0;
    double Fcck = 0.0;
    double Fcn = 0.0;
    double Ftn = 0.0;
    double Ecn = 0.0;
    double Eck = 0.0;
    double Rho = 0.0;
    // Parabola-rectangle values of normal concrete up to 50 MPa until a code derives its own.
    double Epsco = 0.002;
    double Epscu = 0.0035;
    double M = 2.0;
    double Alpha = 1e-5;
    // Kept with the record; nothing in the library reads it.
    double Age = 70.0;
    int CementClass = 1;
    double K2 = 0.15;
    double YoungsModulus = -1.0;
    double PoissonRatio = 0.2;
    int Lwa = 0;
};

} // namespace kelo
