#include "design/ConcrMatPar.h"

#include "platform/Sinks.h"
#include "platform/Text.h"

#include <cmath>
#include <cstddef>
#include <iterator>

namespace kelo {

namespace {

void Warn(MessageSink* warnings, const char* text) {
    if (warnings) warnings->Show(MsgKind::Warning, text);
}

struct StrengthPoint {
    double Cylinder;
    double Cube;
};

// Cube strength that belongs to a cylinder strength, by the strength classes of NS-EN 1992
// (normal concrete, table 3.1) and of lightweight aggregate concrete (table 11.3.1). Between
// classes the cube strength is interpolated linearly, starting from zero; above the last class
// it is held.
double CubeStrength(double fck, int lwa) {
    static const StrengthPoint normal[] = {{12, 15}, {16, 20}, {20, 25}, {25, 30}, {30, 37},
                                           {35, 45}, {40, 50}, {45, 55}, {50, 60}, {55, 67},
                                           {60, 75}, {70, 85}, {80, 95}, {90, 105}};
    static const StrengthPoint light[] = {{12, 13}, {16, 18}, {20, 22}, {25, 28}, {30, 33},
                                          {35, 38}, {40, 44}, {45, 50}, {50, 55}, {55, 60},
                                          {60, 66}, {70, 77}, {80, 88}};
    const StrengthPoint* table = lwa == 1 ? light : normal;
    const std::size_t count = lwa == 1 ? std::size(light) : std::size(normal);
    StrengthPoint prev{0.0, 0.0};
    for (std::size_t i = 0; i < count; ++i) {
        const StrengthPoint& p = table[i];
        if (fck <= p.Cylinder)
            return prev.Cube +
                   (p.Cube - prev.Cube) * (fck - prev.Cylinder) / (p.Cylinder - prev.Cylinder);
        prev = p;
    }
    return prev.Cube;
}

constexpr double kTol = 1e-5;

bool Differs(double a, double b) { return std::fabs(a - b) >= kTol; }

} // namespace

CConcrMatPar::CConcrMatPar(int no, const std::string& name, double fck, int lwa, double rho,
                           int concrCode, MessageSink* warnings)
    : No(no), Name(name), Fck(fck * 1000.0) {
    if (concrCode == 0) return;
    double density = 0.0;
    switch (concrCode) {
    case 101:
    case 102:
    case 105:
    case 106:
        density = rho;
        break;
    case 103:
        density = 2400.0;
        break;
    case 104:
        density = 2300.0;
        break;
    default:
        break;
    }
    Rho = density;
    Lwa = lwa;
    CalculateParam(concrCode, lwa, density, fck, warnings);
}

void CConcrMatPar::CalculateParam(int concrCode, int lwa, double rho, double fck,
                                  MessageSink* warnings) {
    if (concrCode == 103 || concrCode == 104) return;
    Alpha = 1e-5;
    switch (concrCode) {
    case 101:
    case 102:
        CalculateNs3473(concrCode, lwa, rho, fck, warnings);
        break;
    case 105:
        CalculateEn1992(lwa, rho, fck, warnings);
        break;
    case 106:
        CalculateAashto(lwa, rho, fck, warnings);
        break;
    default:
        break;
    }
}

// NS 3473, 5th (101) and 4th (102) edition. fck is the cube strength in MPa. Light concrete
// (density below the reference of the edition) reduces moduli and tensile strength by the
// density ratio d.
void CConcrMatPar::CalculateNs3473(int concrCode, int lwa, double rho, double fck,
                                   MessageSink* warnings) {
    const bool fifth = concrCode == 101;
    const double rhoRef = fifth ? 2200.0 : 2400.0;
    const double d = (rho > 100.0 && rho < rhoRef) ? rho / rhoRef : 1.0;

    const double fcck = fck <= 55.0 ? 0.8 * fck : 0.8 * fck + 0.2 * (fck - 55.0);
    const double fcn = 0.56 * fck + 2.8;
    double ftn = 2.7;
    if (fifth && fck <= 15.0)
        ftn = fck / 15.0;
    else if (fck <= 25.0)
        ftn = (fck - 15.0) * 0.04 + 1.0;
    else if (fck <= 45.0)
        ftn = (fck - 25.0) * 0.03 + 1.4;
    else if (fck <= 65.0)
        ftn = (fck - 45.0) * 0.025 + 2.0;
    else if (fck <= 85.0)
        ftn = (fck - 65.0) * 0.01 + 2.5;

    const double dE = fifth ? d * d : std::pow(d, 1.5);
    const double ecn = dE * 10000.0 * std::pow(fcn, 0.3);
    const double eck = dE * 9500.0 * std::pow(fcck, 0.3);

    // Strain at the top of the curve, curve exponent, and an ultimate strain cut to whole
    // micro-strains.
    const double epsco = (0.004 * fcn + 1.9) * 0.001;
    const double m = epsco / (fcn / ecn);
    const double epscu = std::trunc((2.5 * m - 1.5) * (fcn / ecn) * 1e6) / 1e6;

    const double ftnFactor = fifth ? 0.85 * d + 0.15 : 0.7 * d + 0.3;

    Fck = fck * 1000.0;
    Fcck = fcck * 1000.0;
    Fcn = fcn * 1000.0;
    Ftn = ftnFactor * ftn * 1000.0;
    Ecn = ecn * 1000.0;
    Eck = eck * 1000.0;
    Epsco = epsco;
    Epscu = epscu;
    M = m;
    Rho = rho;
    Lwa = lwa;
    YoungsModulus = Ecn;

    if (rho < rhoRef) {
        if (fifth && 94.0 * d * d < fcck)
            Warn(warnings, "fcck, corresponding to specified fck, is not within limitations in "
                           "NS 3473 par. 11.1");
        if (!fifth && 105.0 * std::pow(d, 1.5) < fck)
            Warn(warnings, "Cube strength, fck, is not within limitations in NS 3473 par. 11.1");
    }
}

// NS-EN 1992-1-1. fck is the characteristic cylinder strength in MPa; lwa 1 is lightweight
// aggregate concrete, whose strength and modulus are reduced by eta1 and etaE.
void CConcrMatPar::CalculateEn1992(int lwa, double rho, double fck, MessageSink* warnings) {
    if (lwa == 0 && fck > 90.0) {
        Warn(warnings, "Specified fck is not within limitations in NS-EN 1992-1-1 cl. 3.1.2 (2)");
        return;
    }
    if (lwa == 1 && fck > 80.0) {
        Warn(warnings, "Specified fck is not within limitations in NS-EN 1992-1-1 table 11.3.1");
        return;
    }
    double eta1 = 1.0;
    double etaE = 1.0;
    if (lwa == 1) {
        eta1 = 0.4 + 0.6 * rho / 2200.0;
        etaE = (rho / 2200.0) * (rho / 2200.0);
    }
    const double cube = CubeStrength(fck, lwa);

    // Mean strength; the low lightweight classes have their own values, and the step at 16 MPa
    // between the second and third row is as the table of the code has it.
    double fcm = fck + 8.0;
    if (lwa == 1 && fck <= 20.0) {
        if (fck <= 12.0)
            fcm = 17.0 * fck / 12.0;
        else if (fck <= 16.0)
            fcm = 17.0 + 5.0 * (fck - 12.0) / 4.0;
        else
            fcm = 18.0 + 6.0 * (fck - 16.0) / 4.0;
    }
    const double fctm =
        fck <= 50.0 ? 0.3 * eta1 * std::pow(fck, 2.0 / 3.0) : 2.12 * eta1 * std::log1p(fcm / 10.0);
    const double ecm = std::trunc(22000.0 * etaE * std::pow(fcm / 10.0, 0.3));

    double epsc2 = 2.0;
    double epscu2 = 3.5 * eta1;
    double n = 2.0;
    if (fck > 50.0) {
        const double r = std::pow((90.0 - fck) / 100.0, 4.0);
        epsc2 = 2.0 + 0.085 * std::pow(fck - 50.0, 0.53);
        epscu2 = 2.6 * eta1 + 35.0 * r;
        n = 1.4 + 23.4 * r;
    }

    Fcck = fck * 1000.0;
    Fck = cube * 1000.0;
    Fcn = fcm * 1000.0;
    Ftn = fctm * 1000.0;
    Ecn = ecm * 1000.0;
    Eck = ecm * 1000.0;
    Epsco = epsc2 / 1000.0;
    Epscu = epscu2 / 1000.0;
    M = n;
    Lwa = lwa;
    Rho = rho;
}

// AASHTO LRFD 2012. fck is f'c in MPa. The modulus keeps the truncation of the whole product
// 1.82 sqrt(f'c) before the factor 1000.
void CConcrMatPar::CalculateAashto(int lwa, double rho, double fck, MessageSink* warnings) {
    if (lwa == 0 && fck > 70.0) Warn(warnings, "Specified f'c is above lilitations in cl 5.4.2.1");
    Fck = fck * 1000.0;
    Fcck = fck * 1000.0;
    Fcn = 0.85 * fck * 1000.0;
    Ftn = 0.2 * std::sqrt(fck) * 1000.0;
    Ecn = std::trunc(1.82 * std::sqrt(fck)) * 1000.0;
    Eck = Ecn;
    Epsco = 0.002;
    Epscu = 0.003;
    M = 2.0;
    Lwa = lwa;
    Rho = rho;
}

int CConcrMatPar::CompareParam(const CConcrMatPar* other, int /*mode*/) const {
    if (!other) return 1;
    const double mine[] = {Fck,   Fcck, Fcn,   Ftn, Ecn, Eck,           Rho,         Epsco,
                           Epscu, M,    Alpha, Age, K2,  YoungsModulus, PoissonRatio};
    const double theirs[] = {
        other->Fck,   other->Fcck, other->Fcn,   other->Ftn,           other->Ecn,
        other->Eck,   other->Rho,  other->Epsco, other->Epscu,         other->M,
        other->Alpha, other->Age,  other->K2,    other->YoungsModulus, other->PoissonRatio};
    for (std::size_t i = 0; i < std::size(mine); ++i)
        if (Differs(mine[i], theirs[i])) return 1;
    if (CementClass != other->CementClass || Lwa != other->Lwa) return 1;
    return 0;
}

std::string CConcrMatPar::GetObjDataString() const {
    return Format("%i %.3lf %i %.3lf %.3lf %i %.3lf %.3lf \"%s\"\n", No, Fcck / 1000.0, CementClass,
                  YoungsModulus, PoissonRatio, Lwa, Rho, K2, Name.c_str());
}

} // namespace kelo
