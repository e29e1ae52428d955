#include "design/DefaultSets.h"

#include <string>

namespace kelo {

namespace {

// Name of a design parameter set: the code's own, or the general one in the project's language.
std::string DesSetName(int concrCode, int language) {
    switch (concrCode) {
    case 103:
        return "BBK94 default values";
    case 104:
        return "BS 5400 default values";
    case 105:
        return "NS-EN 1992 default values";
    case 106:
        return "AASHTO LRFD 2012";
    default:
        return language == 1 ? "Standard verdier" : "Default values";
    }
}

// Material factor of reinforcing and prestressing steel in the ultimate limit state; the
// NS 3473 codes keep the factor of the set's constructor.
double SteelBarGamma(int concrCode, double ownValue) {
    switch (concrCode) {
    case 103:
    case 104:
    case 105:
        return 1.15;
    case 106:
        return 1.0;
    default:
        return ownValue;
    }
}

// Least spacing (mm) of bars of a diameter (mm), single or in bundles of two, so that the
// concrete can pass between them. `singleLimit` is the diameter from which single bars need
// 75 mm: 25 for longitudinal bars, 20 for stirrups.
double LeastSpacing(double diameter, int bars, double singleLimit) {
    if (bars == 2) {
        if (diameter >= 32.0) return 125.0;
        if (diameter >= 25.0) return 100.0;
        return 75.0;
    }
    if (diameter >= 32.0) return 100.0;
    if (diameter >= singleLimit) return 75.0;
    return 50.0;
}

const double kSpacingsDown[] = {300, 250, 225, 200, 175, 150, 125, 100, 75, 50};
const double kPi = 3.14159265359;

} // namespace

std::unique_ptr<CConcrMatPar> MakeDefaultConcrMat(int concrCode, int /*language*/) {
    const char* name = "C45";
    double fck = 45.0;
    double rho = 2200.0;
    switch (concrCode) {
    case 102:
        rho = 2400.0;
        break;
    case 103:
        name = "K45";
        rho = 2400.0;
        break;
    case 104:
        name = "fcu=50";
        fck = 50.0;
        rho = 2300.0;
        break;
    case 105:
        name = "B35 (C35/45)";
        fck = 35.0;
        break;
    case 106:
        name = "f'c=28";
        fck = 28.0;
        break;
    default:
        break;
    }
    auto mat = std::make_unique<CConcrMatPar>(1, name, fck, 0, rho, concrCode);
    // A code that the material knows nothing of still gets the density of a normal concrete.
    mat->SetRho(rho);
    return mat;
}

std::unique_ptr<CReinfMatPar> MakeDefaultReinfMat(int concrCode, int /*language*/) {
    switch (concrCode) {
    case 103:
        return std::make_unique<CReinfMatPar>(1, "BBK94 default values", 500.0);
    case 104:
        return std::make_unique<CReinfMatPar>(1, "SD50", 490.0);
    case 105:
        return std::make_unique<CReinfMatPar>(1, "B500NC", 520.0);
    case 106:
        return std::make_unique<CReinfMatPar>(1, "Grade 60", 520.0);
    default:
        return std::make_unique<CReinfMatPar>(1, "B500NC", 500.0);
    }
}

std::unique_ptr<CPrestMatPar> MakeDefaultPrestMat(int concrCode, int /*language*/) {
    switch (concrCode) {
    case 101:
    case 102:
        return std::make_unique<CPrestMatPar>(1, "1670", 1670.0);
    case 103:
        return std::make_unique<CPrestMatPar>(1, "BBK94 default values", 1670.0);
    case 104: {
        auto mat = std::make_unique<CPrestMatPar>(1, "fpu=1760", 1760.0);
        mat->SetEsk(2e8);
        return mat;
    }
    case 105:
        return std::make_unique<CPrestMatPar>(1, "fp01k=1640", 1640.0);
    case 106:
        return std::make_unique<CPrestMatPar>(1, "Grade 270 (low relaxation)", 1670.0);
    default:
        return std::make_unique<CPrestMatPar>(1, "1640", 1640.0);
    }
}

std::unique_ptr<CSteelMatPar> MakeDefaultSteelMat(int steelCode, int /*language*/) {
    if (steelCode == 202) return std::make_unique<CSteelMatPar>(1, "S235", 10201);
    return std::make_unique<CSteelMatPar>(1, "ST37", 10101);
}

std::unique_ptr<CConcrDesPar> MakeDefaultConcrDes(int concrCode, int language) {
    auto des = std::make_unique<CConcrDesPar>(1, DesSetName(concrCode, language));
    switch (concrCode) {
    case 103:
    case 105:
        des->SetGammaULS(1.5);
        des->SetGammaPLS(1.2);
        break;
    case 104:
        des->SetGammaULS(1.5);
        des->SetGammaPLS(1.5);
        break;
    case 106:
        des->SetGammaULS(1.0);
        des->SetGammaPLS(1.0);
        break;
    default:
        break;
    }
    // The strain limit of every limit state is the ultimate strain of the project's concrete.
    const double epscu = MakeDefaultConcrMat(concrCode, language)->GetEpscu();
    for (int ls = 1; ls <= 3; ++ls) des->SetEpslim(ls, epscu);
    return des;
}

std::unique_ptr<CReinfDesPar> MakeDefaultReinfDes(int concrCode, int language) {
    auto des = std::make_unique<CReinfDesPar>(1, DesSetName(concrCode, language));
    des->SetGammaULS(SteelBarGamma(concrCode, des->GetGammaULS()));
    return des;
}

std::unique_ptr<CPrestDesPar> MakeDefaultPrestDes(int concrCode, int language) {
    auto des = std::make_unique<CPrestDesPar>(1, DesSetName(concrCode, language));
    des->SetGammaULS(SteelBarGamma(concrCode, des->GetGammaULS()));
    return des;
}

std::unique_ptr<CSteelDesPar> MakeDefaultSteelDes(int steelCode, int language) {
    auto des =
        std::make_unique<CSteelDesPar>(1, language == 1 ? "Standard verdier" : "Default values");
    des->SetGamma(1, steelCode == 202 ? 1.1 : 1.15);
    for (int i = 2; i <= 4; ++i) des->SetGamma(i, 1.0);
    for (int ls = 1; ls <= 4; ++ls) des->SetEpslim(ls, 0.012);
    return des;
}

std::unique_ptr<CSectDesPar> MakeDefaultSectDes(int concrCode, int language) {
    return std::make_unique<CSectDesPar>(1, DesSetName(concrCode, language));
}

std::vector<std::unique_ptr<CReinfType>> MakeDefaultReinfTypeList() {
    std::vector<std::unique_ptr<CReinfType>> types;
    for (int kind = 1; kind <= 3; ++kind)
        types.push_back(std::make_unique<CReinfType>(0, kind, 0.0, 0.0, 0, 0.0, 0.0));

    int countNo = 1;
    int n = 1;
    for (double d : {16.0, 20.0, 25.0, 32.0}) {
        for (int bars : {1, 2}) {
            for (int count = 2; count <= 8; ++count)
                types.push_back(
                    std::make_unique<CReinfType>(countNo++, 1, d, bars, count, 0.0, 0.0));
            const double least = LeastSpacing(d, bars, 25.0);
            for (double s : kSpacingsDown) {
                if (s < least) continue;
                const double area = bars * d * d * kPi * 1000.0 / (s * 4.0);
                types.push_back(std::make_unique<CReinfType>(n + 100, 2, d, bars, 0, s, 0.0));
                types.push_back(std::make_unique<CReinfType>(n + 200, 3, d, bars, 0, s, area));
                ++n;
            }
        }
    }
    return types;
}

std::vector<std::unique_ptr<CShearReinfType>> MakeDefaultShearReinfTypeList() {
    std::vector<std::unique_ptr<CShearReinfType>> types;
    types.push_back(std::make_unique<CShearReinfType>(0, 2, 0.0, 0.0, 0, 0.0, 0.0));
    int n = 1;
    for (double d : {8.0, 10.0, 12.0, 16.0}) {
        for (int bars : {1, 2}) {
            const double least = LeastSpacing(d, bars, 20.0);
            for (double s : kSpacingsDown)
                if (s >= least)
                    types.push_back(std::make_unique<CShearReinfType>(n++, 2, d, bars, 0, s, 0.0));
        }
    }
    return types;
}

double DefaultConcrDesValue(int concrCode, int field) {
    return MakeDefaultConcrDes(concrCode, 2)->GetParam(field);
}

double DefaultReinfDesValue(int concrCode, int field) {
    return MakeDefaultReinfDes(concrCode, 2)->GetParam(field);
}

double DefaultPrestDesValue(int concrCode, int field) {
    return MakeDefaultPrestDes(concrCode, 2)->GetParam(field);
}

double DefaultSectDesValue(int concrCode, int field) {
    return MakeDefaultSectDes(concrCode, 2)->GetParam(field);
}

double DefaultSteelDesValue(int steelCode, int index) {
    return MakeDefaultSteelDes(steelCode, 2)->GetGamma(index);
}

} // namespace kelo
