#pragma once

#include "platform/Object.h"

#include <string>

namespace kelo {

class CStructure;

// Steel in concrete, reinforcing bars and prestressing tendons alike. Strengths and modulus in
// kN/m²; the strain limit `Epssu` as a plain ratio. `Curve` chooses the top branch of the
// bilinear law under NS-EN 1992: 1 inclined up to `Ft` at the strain limit, 2 horizontal.
class CBarMatPar : public CObject {
public:
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

protected:
    // The modulus (kN/m²) and the strain limit that belong to the kind of steel.
    struct SteelValues {
        double Esk;
        double Epssu;
    };
    static constexpr int kDefaultClass = 3;
    static constexpr int kDefaultCurve = 1;

    // fsk and ft in MPa.
    CBarMatPar(int no, const std::string& name, const SteelValues& steel, double fsk, int cls,
               int curve, double ft);
    CBarMatPar(const CBarMatPar&) = default;
    CBarMatPar& operator=(const CBarMatPar&) = default;

    // 1 if any parameter differs by 1e-5 or more, or there is no other set; number and name are
    // not parameters.
    int DiffersFrom(const CBarMatPar* other) const;

private:
    int No;
    std::string Name;
    CStructure* Structure = nullptr;
    double Fsk;
    double Esk;
    double Epssu;
    int Class;
    int Curve;
    double Ft;
};

} // namespace kelo
