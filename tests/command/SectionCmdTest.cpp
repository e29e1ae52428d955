#include "command/StructureCmd.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"

#include "CommandProject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

using namespace kelo;

namespace {

struct Project : test::CommandProject {
    using CommandProject::CommandProject;
    CKeySection* Section(int line, double station) { return s.GetKeySectionPtr(line, station); }
};

// A line with a straight from station 0 to 100, a drawn section at 10 (a triangle of 1 m with a
// polyline of two points) and a frame member at 5 on line 0.
const char* kSectionModel = "REFLINE 1 1 \"Road\"\n"
                            "RFLHORI 1 1 1 0 0 0 100 100 0\n"
                            "XSECT 1 10 GENERAL CONCR 1 1 1 \"Drawn\"\n"
                            "PT 1 10 1 1 0 0\n"
                            "PT 1 10 2 1 1000 0\n"
                            "PT 1 10 3 1 1000 1000\n"
                            "PT 1 10 4 1 0 0\n"
                            "POLY 1 10 1 0 1\n"
                            "SECTPT 1 10 1 1 0 0 0\n"
                            "SECTPT 1 10 1 2 0 500 0\n"
                            "XSECT 0 5 MRECT 30000 0.2 \"Column\"\n"
                            "DIM 0 5 400 600\n";

} // namespace

TEST(MaterialCommands, StrengthsByTheCodeAndWhatIsTypedOverIt) {
    Project p;
    EXPECT_EQ(p.Line("MCONCR 3 45 , , , , , , , , , , , , \"C45\""), 0);
    const CConcrMatPar* c = p.s.GetConcrMatParPtr(3);
    ASSERT_NE(c, nullptr);
    EXPECT_EQ(c->GetName(), "C45");
    // NS-EN 1992: 45 MPa is the cylinder strength, whose class C45/55 has the cube strength 55;
    // fcm = fck + 8, fctm = 0.3 fck^(2/3), Ecm = 22000 (fcm/10)^0.3 cut to whole MPa; the
    // density of the code's own concrete, 2200.
    EXPECT_DOUBLE_EQ(c->GetFcck(), 45000.0);
    EXPECT_DOUBLE_EQ(c->GetFck(), 55000.0);
    EXPECT_DOUBLE_EQ(c->GetFcm(), 53000.0);
    EXPECT_NEAR(c->GetFctm(), 0.3 * std::pow(45.0, 2.0 / 3.0) * 1000.0, 1e-9);
    EXPECT_DOUBLE_EQ(c->GetEcm(), std::trunc(22000.0 * std::pow(5.3, 0.3)) * 1000.0);
    EXPECT_DOUBLE_EQ(c->GetRho(), 2200.0);
    EXPECT_DOUBLE_EQ(c->GetEpscu(), 0.0035);
    EXPECT_DOUBLE_EQ(c->GetAlpha(), 1e-5);
    EXPECT_DOUBLE_EQ(c->GetAge(), 70.0);
    EXPECT_EQ(c->GetStructure(), &p.s);

    // What is typed stands over the code: fcm, Ecm, epscu (per mille), the modulus for stiffness,
    // expansion and age; fcck stays the code's.
    EXPECT_EQ(p.Line("MCONCR 4,35,2400,,50,,32000,,,4.0,,33000,1.2E-5,28,\"Own\""), 0);
    const CConcrMatPar* own = p.s.GetConcrMatParPtr(4);
    ASSERT_NE(own, nullptr);
    EXPECT_DOUBLE_EQ(own->GetFcck(), 35000.0);
    EXPECT_DOUBLE_EQ(own->GetFcm(), 50000.0);
    EXPECT_DOUBLE_EQ(own->GetEcm(), 32e6);
    EXPECT_DOUBLE_EQ(own->GetEpscu(), 0.004);
    EXPECT_DOUBLE_EQ(own->GetYoungsModulus(), 33e6);
    EXPECT_DOUBLE_EQ(own->GetRho(), 2400.0);
    EXPECT_DOUBLE_EQ(own->GetAlpha(), 1.2e-5);
    EXPECT_DOUBLE_EQ(own->GetAge(), 28.0);

    // NS 3473 5th edition: 45 is the cube strength; fcck = 0.8 fck, fcn = 0.56 fck + 2.8,
    // Ecn = 10000 fcn^0.3.
    p.s.SetConcrCode(101);
    EXPECT_EQ(p.Line("MCONCR 5 45"), 0);
    const CConcrMatPar* ns = p.s.GetConcrMatParPtr(5);
    EXPECT_DOUBLE_EQ(ns->GetFcck(), 36000.0);
    EXPECT_NEAR(ns->GetFcn(), 28000.0, 1e-9);
    EXPECT_NEAR(ns->GetEcn(), 10000.0 * std::pow(28.0, 0.3) * 1000.0, 1e-6);
    EXPECT_DOUBLE_EQ(ns->GetRho(), 2200.0);
    // BBK94 derives nothing: the strength as typed, the density of the code, no modulus.
    p.s.SetConcrCode(103);
    EXPECT_EQ(p.Line("MCONCR 6 40"), 0);
    EXPECT_DOUBLE_EQ(p.s.GetConcrMatParPtr(6)->GetFck(), 40000.0);
    EXPECT_DOUBLE_EQ(p.s.GetConcrMatParPtr(6)->GetRho(), 2400.0);
    EXPECT_DOUBLE_EQ(p.s.GetConcrMatParPtr(6)->GetEcn(), 0.0);

    EXPECT_EQ(p.Line("MSTEEL 2 355 205000 7800 510 15 1.1E-5 0.29 200000 1000 \"S355\""), 0);
    const CSteelMatPar* st = p.s.GetSteelMatParPtr(2);
    ASSERT_NE(st, nullptr);
    EXPECT_EQ(st->GetName(), "S355");
    EXPECT_DOUBLE_EQ(st->GetFy(), 355000.0);
    EXPECT_DOUBLE_EQ(st->GetEs(), 2.05e8);
    EXPECT_DOUBLE_EQ(st->GetRho(), 7800.0);
    EXPECT_DOUBLE_EQ(st->GetFb(), 510000.0);
    EXPECT_DOUBLE_EQ(st->GetEpssu(), 0.015);
    EXPECT_DOUBLE_EQ(st->GetAlpha(), 1.1e-5);
    EXPECT_DOUBLE_EQ(st->GetPoissonRatio(), 0.29);
    EXPECT_DOUBLE_EQ(st->GetYoungsModulus(), 2e8);
    EXPECT_NEAR(st->GetShearModulus(), 2e8 / (2.0 * 1.29), 1e-6);
    EXPECT_DOUBLE_EQ(st->GetEy(), 1e6);
    // All defaults: set 1 replaced.
    EXPECT_EQ(p.Line("MSTEEL"), 0);
    EXPECT_DOUBLE_EQ(p.s.GetSteelMatParPtr(1)->GetFy(), 225000.0);
    EXPECT_DOUBLE_EQ(p.s.GetSteelMatParPtr(1)->GetFb(), 340000.0);

    EXPECT_EQ(p.Line("MREINF 3 550"), 0);
    const CReinfMatPar* r = p.s.GetReinfMatParPtr(3);
    ASSERT_NE(r, nullptr);
    EXPECT_DOUBLE_EQ(r->GetFsk(), 550000.0);
    EXPECT_DOUBLE_EQ(r->GetEsk(), 2e8);
    EXPECT_DOUBLE_EQ(r->GetEpssu(), 0.01);
    EXPECT_EQ(r->GetClass(), 3);
    EXPECT_EQ(r->GetCurve(), 1);
    EXPECT_DOUBLE_EQ(r->GetFt(), 520000.0);
    EXPECT_EQ(p.Line("MTEND 3"), 0);
    const CPrestMatPar* t = p.s.GetPrestMatParPtr(3);
    ASSERT_NE(t, nullptr);
    EXPECT_DOUBLE_EQ(t->GetFsk(), 1670000.0);
    EXPECT_DOUBLE_EQ(t->GetEsk(), 1.95e8);
    EXPECT_EQ(t->GetClass(), 1);
    EXPECT_DOUBLE_EQ(t->GetFt(), 1736800.0);
    EXPECT_EQ(p.Line("MPREST 4 1860 200000 35 2 2 1900 \"Strand\""), 0);
    const CPrestMatPar* strand = p.s.GetPrestMatParPtr(4);
    EXPECT_EQ(strand->GetName(), "Strand");
    EXPECT_DOUBLE_EQ(strand->GetEsk(), 2e8);
    EXPECT_DOUBLE_EQ(strand->GetEpssu(), 0.035);
    EXPECT_EQ(strand->GetCurve(), 2);
    EXPECT_DOUBLE_EQ(strand->GetFt(), 1900000.0);
    EXPECT_EQ(p.log, "");
}

TEST(DesignParameterCommands, FactorsAndLimitsTypedOrTakenFromTheCode) {
    Project p;
    EXPECT_EQ(p.Line("DPCONCR 3"), 0);
    const CConcrDesPar* c = p.s.GetConcrDesParPtr(3);
    ASSERT_NE(c, nullptr);
    EXPECT_DOUBLE_EQ(c->GetGammaULS(), 1.4);
    EXPECT_DOUBLE_EQ(c->GetGammaPLS(), 1.2);
    EXPECT_DOUBLE_EQ(c->GetGammaSLS(), 1.0);
    for (int ls = 1; ls <= 3; ++ls) EXPECT_DOUBLE_EQ(c->GetEpslim(ls), 0.0035);
    EXPECT_EQ(p.Line("DPCONCR 4 1.5 1.3 1.1 3.0 2.5 2.0 \"Own\""), 0);
    EXPECT_DOUBLE_EQ(p.s.GetConcrDesParPtr(4)->GetGammaPLS(), 1.3);
    EXPECT_DOUBLE_EQ(p.s.GetConcrDesParPtr(4)->GetEpslim(3), 0.002);

    EXPECT_EQ(p.Line("DPSTEEL 3 1.1 1.05 10 15"), 0);
    const CSteelDesPar* st = p.s.GetSteelDesParPtr(3);
    ASSERT_NE(st, nullptr);
    EXPECT_DOUBLE_EQ(st->GetGamma(1), 1.1);
    EXPECT_DOUBLE_EQ(st->GetGamma(4), 1.05);
    EXPECT_DOUBLE_EQ(st->GetEpslim(1), 0.010);
    EXPECT_DOUBLE_EQ(st->GetEpslim(3), 0.015);

    // All by NS-EN 1992: the steel factor 1.15, the crack values of the default sets.
    EXPECT_EQ(p.Line("DPREINF 3"), 0);
    const CReinfDesPar* r = p.s.GetReinfDesParPtr(3);
    ASSERT_NE(r, nullptr);
    EXPECT_DOUBLE_EQ(r->GetGammaULS(), 1.15);
    EXPECT_DOUBLE_EQ(r->GetGammaPLS(), 1.1);
    EXPECT_DOUBLE_EQ(r->GetBondCoeff(), 0.75);
    EXPECT_DOUBLE_EQ(r->GetCover(), 55.0);
    for (int ls = 1; ls <= 3; ++ls) EXPECT_DOUBLE_EQ(r->GetEpslim(ls), 0.005);
    EXPECT_EQ(p.Line("DPTEND 3"), 0);
    const CPrestDesPar* t = p.s.GetPrestDesParPtr(3);
    ASSERT_NE(t, nullptr);
    EXPECT_DOUBLE_EQ(t->GetBondCoeff(), 1.15);
    EXPECT_DOUBLE_EQ(t->GetCover(), 65.0);
    EXPECT_DOUBLE_EQ(t->GetEpslim(2), 0.01);
    // Typed values: the cover (ninth), scale wk and the strain limit of all states.
    EXPECT_EQ(p.Line("DPREINF 5,1.2,,,,,,,,45,1,8"), 0);
    const CReinfDesPar* typed = p.s.GetReinfDesParPtr(5);
    EXPECT_DOUBLE_EQ(typed->GetGammaULS(), 1.2);
    EXPECT_DOUBLE_EQ(typed->GetCover(), 45.0);
    EXPECT_DOUBLE_EQ(typed->GetSrmMax(), 135.0);
    EXPECT_EQ(typed->GetScaleWk(), 1);
    EXPECT_DOUBLE_EQ(typed->GetEpslim(2), 0.008);
    // AASHTO's steel factor is 1.0.
    p.s.SetConcrCode(106);
    EXPECT_EQ(p.Line("DPREINF 4"), 0);
    EXPECT_DOUBLE_EQ(p.s.GetReinfDesParPtr(4)->GetGammaULS(), 1.0);

    EXPECT_EQ(p.Line("DPSECT 3 STEEL \"Girder\""), 0);
    const CSectDesPar* sd = p.s.GetSectDesParPtr(3);
    ASSERT_NE(sd, nullptr);
    EXPECT_EQ(sd->GetName(), "Girder");
    EXPECT_EQ(sd->GetMatType(), 2);
    EXPECT_DOUBLE_EQ(sd->GetLambdaNmin(), 10.0);
    EXPECT_DOUBLE_EQ(sd->GetKa(), 0.666);
    EXPECT_DOUBLE_EQ(sd->GetCreepFactor(), 2.5);
    EXPECT_EQ(sd->GetSafClass(), 3);
    // The buckling lengths first, and past the fourteen values the further fields in order:
    // stirrup strength (20) and strut angle (21).
    EXPECT_EQ(p.Line("DPSECT 4 CONCR 12.5 8"), 0);
    EXPECT_DOUBLE_EQ(p.s.GetSectDesParPtr(4)->GetLeX(), 12.5);
    EXPECT_DOUBLE_EQ(p.s.GetSectDesParPtr(4)->GetLeY(), 8.0);
    EXPECT_EQ(p.Line("DPSECT 5,1," + std::string(18, ',') + "400,35"), 0);
    EXPECT_DOUBLE_EQ(p.s.GetSectDesParPtr(5)->GetFyw(), 400.0);
    EXPECT_DOUBLE_EQ(p.s.GetSectDesParPtr(5)->GetTheta(), 35.0);
    EXPECT_DOUBLE_EQ(p.s.GetSectDesParPtr(5)->GetCreepFactor(), 2.5);
    EXPECT_EQ(p.log, "");
}

TEST(SectionCommands, SectionsOfEachKindAndTheirDimensions) {
    Project p;
    p.Lines("REFLINE 1 1\nRFLHORI 1 1 1 0 0 0 100 100 0\n");
    // A frame member on line 0 carries its own stiffness and is numbered by its station.
    EXPECT_EQ(p.Line("XSECT 0 7 MRECT 35000 0.25 \"Column\""), 0);
    CKeySection* column = p.Section(0, 7);
    ASSERT_NE(column, nullptr);
    EXPECT_EQ(column->GetNo(), 7);
    EXPECT_EQ(column->GetType(), 3);
    EXPECT_EQ(column->GetMatType(), 0);
    EXPECT_EQ(column->GetYoungsModulus(), 35000.0);
    EXPECT_EQ(column->GetPoisson(), 0.25);
    // Its dimensions in mm, stored in m; the properties at the end of the file.
    EXPECT_EQ(p.Line("DIM 0 7 400 600"), 0);
    EXPECT_DOUBLE_EQ(column->GetSpecParam(0), 0.4);
    EXPECT_DOUBLE_EQ(column->GetSpecParam(1), 0.6);
    // Without E and Poisson: the frame's.
    EXPECT_EQ(p.Line("XSECT 0 8 MBOX"), 0);
    EXPECT_EQ(p.Section(0, 8)->GetYoungsModulus(), p.s.GetFrameYModulus());
    EXPECT_EQ(p.Section(0, 8)->GetPoisson(), p.s.GetFramePoisson());
    // A stiffness section takes its four values as they stand.
    EXPECT_EQ(p.Line("XSECT 0 9 MSTIFF"), 0);
    EXPECT_EQ(p.Line("DIM 0 9 0.5 0.02 0.03 0.04 0.05"), 0);
    EXPECT_EQ(p.Section(0, 9)->GetSpecParam(3), 0.04);
    EXPECT_EQ(p.Section(0, 9)->GetSpecParam(4), 0.0);

    // A design box on line 1, dimensions kept in mm: 800 × 1200, walls 200, 200, 250, 300.
    EXPECT_EQ(p.Line("XSECT 1 10.0004 RECT CONCR 1 1 1 \"Box\""), 0);
    CKeySection* box = p.Section(1, 10.0);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->GetStationNo(), 10.0);
    EXPECT_EQ(box->GetRefLineNo(), 1);
    EXPECT_EQ(box->GetMatType(), 1);
    EXPECT_EQ(box->GetSectDesParNo(), 1);
    EXPECT_EQ(p.Line("DIM 1 10 800 1200 200 200 250 300"), 0);
    EXPECT_EQ(box->GetSpecParam(5), 300.0);

    // SECT: the material by number and where the line meets the section.
    EXPECT_EQ(p.Line("SECT 1 20 13 2 1 1 1 3 5 0.1 0.2 \"Drawn\""), 0);
    CKeySection* drawn = p.Section(1, 20);
    ASSERT_NE(drawn, nullptr);
    EXPECT_EQ(drawn->GetMatType(), 2);
    EXPECT_EQ(drawn->GetConnectType(), 3);
    EXPECT_EQ(drawn->GetConnectSectPointNo(), 5);
    EXPECT_EQ(drawn->GetDeltaX(), 0.1);
    EXPECT_EQ(drawn->GetDeltaY(), 0.2);
    // Given again, a section keeps its points and takes the new heading.
    p.Line("PT 1 20 1 1 0 0");
    EXPECT_EQ(p.Line("XSECT 1 20 GENERAL CONCR 1 1 1 \"Renamed\""), 0);
    EXPECT_EQ(p.Section(1, 20), drawn);
    EXPECT_EQ(drawn->GetName(), "Renamed");
    EXPECT_EQ(drawn->GetMatType(), 1);
    EXPECT_EQ(drawn->GetSectPointList().GetCount(), 1u);
    EXPECT_EQ(p.log, "");

    // At the end of the file: the rectangle 0.4 × 0.6 (A = 0.24, IL = bh³/12 = 0.0072), and the
    // box 0.8 × 1.2 less its void 0.4 × 0.65: A = 0.96 − 0.26 = 0.70.
    p.s.ReCalcAllKeySections(0);
    EXPECT_NEAR(column->GetSectionArea(), 0.24, 1e-15);
    EXPECT_NEAR(column->GetMomInertL(), 0.4 * 0.216 / 12.0, 1e-15);
    EXPECT_NEAR(box->GetSectionArea(), 0.96 - 0.4 * 0.65, 1e-12);
    EXPECT_EQ(p.Section(0, 9)->GetSectionArea(), 0.5);
}

TEST(SectionCommands, PointsLawsFacesConnectionsAndPanels) {
    Project p;
    p.Lines(kSectionModel);
    ASSERT_EQ(p.log, "");
    CKeySection* s = p.Section(1, 10);
    ASSERT_NE(s, nullptr);
    // PT in mm, stored in m, in the order typed; a number given again is replaced in its place.
    ASSERT_EQ(s->GetSectPointList().GetCount(), 4u);
    EXPECT_EQ(s->GetSectPointList().At(2)->GetX(), 1.0);
    EXPECT_EQ(p.Line("PT 1 10 3 1 1000 2000"), 0);
    EXPECT_EQ(s->GetSectPointList().GetCount(), 4u);
    EXPECT_EQ(s->GetSectPointList().At(2)->GetDeltaY(), 2.0);
    // RAD: a bow of that radius between its neighbours.
    EXPECT_EQ(p.Line("PT 1 10 5 RAD 30000"), 0);
    EXPECT_EQ(s->GetSectPointPtr(5)->GetType(), -1);
    EXPECT_EQ(s->GetSectPointPtr(5)->GetDeltaR(), 30.0);

    // SECTPT: a point from road point -3.1, 250 mm below it, and one on polyline 1.
    EXPECT_EQ(p.Line("SECTPT 1 10 0 6 2 100 -250 -3.1"), 0);
    const CSectPoint* tied = s->GetSectPointPtr(6);
    ASSERT_NE(tied, nullptr);
    EXPECT_EQ(tied->GetType(), 2);
    EXPECT_EQ(tied->GetDeltaX(), 0.1);
    EXPECT_EQ(tied->GetDeltaY(), -0.25);
    EXPECT_EQ(tied->GetGeomData(0), -3.1);
    EXPECT_EQ(p.Line("SECTPT 1 10 1 3 7 0 0 0 0 0 0 1"), 0);
    const CSectPoint* onLine = s->GetSectPointPtr(1, 3.0);
    ASSERT_NE(onLine, nullptr);
    EXPECT_EQ(onLine->GetPLine(), 1);
    EXPECT_EQ(onLine->GetGeomData(4), 1.0);
    EXPECT_EQ(s->GetPolyLinePtr(1)->GetSectPointCount(), 3u);
    // POLY given again keeps its points.
    EXPECT_EQ(p.Line("POLY 1 10 1 1 4"), 0);
    EXPECT_EQ(s->GetPolyLinePtr(1)->GetClosed(), 1);
    EXPECT_EQ(s->GetPolyLinePtr(1)->GetType(), 4);
    EXPECT_EQ(s->GetPolyLinePtr(1)->GetSectPointCount(), 3u);

    // PTFUNC: the cubic law of Y with factors in mm: at 20 m the offset is 1000 + 0.5·400 − 8000
    // mm; the power law of X: 500·(20/10)^2 mm over the base.
    EXPECT_EQ(p.Line("PTFUNC 1 10 0 3 2 2 0 0.5 -400"), 0);
    const CSectPoint* law = s->GetSectPointPtr(3);
    EXPECT_EQ(law->GetParaType(2), 2);
    EXPECT_NEAR(law->GetDeltaY(20.0), 2.0 + 0.2 - 8.0, 1e-12);
    EXPECT_EQ(p.Line("PTFUNC 1 10 0 2 1 3 500 10 2"), 0);
    EXPECT_NEAR(s->GetSectPointPtr(2)->GetDeltaX(20.0), 1.0 + 0.5 * 4.0, 1e-12);
    EXPECT_EQ(p.Line("PTFUNC 1 10 1 2 1 0"), 0);
    EXPECT_EQ(s->GetSectPointPtr(1, 2.0)->GetParaType(1), 0);

    EXPECT_EQ(p.Line("SECTFACE 1 10 2 3"), 0);
    EXPECT_EQ(s->GetSectPointPtr(2)->GetFaceConnection(), 3);

    // CONN kind 2: point 3 at 0.5 m right and 0.1 m up from the line; kind 1: the origin.
    EXPECT_EQ(p.Line("CONN 1 10 2 3 0.5 0.1"), 0);
    EXPECT_EQ(s->GetConnectType(), 4);
    EXPECT_EQ(s->GetConnectSectPointNo(), 3);
    EXPECT_EQ(s->GetDeltaX(), 0.5);
    EXPECT_EQ(s->GetDeltaY(), 0.1);
    EXPECT_EQ(p.Line("CONN 1,10,1,,-0.2,0.3"), 0);
    EXPECT_EQ(s->GetConnectType(), 0);
    EXPECT_EQ(s->GetDeltaX(), -0.2);

    // PANEL: a plate of 200 mm between points 1 and 2 of polyline 1, wall of a cell.
    EXPECT_EQ(p.Line("PANEL 1 10 1 1 1 2 200 1"), 0);
    const CLineElem* panel = s->GetLineElemPtr(1);
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(panel->GetPLine(), 1);
    EXPECT_EQ(panel->GetPointNo2(), 2.0);
    EXPECT_EQ(panel->GetThickness(), 0.2);
    EXPECT_EQ(panel->GetClosed(), 1);
    EXPECT_EQ(panel->GetMatParNo(), 1);
    EXPECT_EQ(p.log, "");
}

// Each check's fault: the command's result, the message with its words in English and Norwegian,
// and a model left as it was by a refused command.
TEST(SectionChecks, MessagesInBothLanguagesAndNothingLost) {
    struct Case {
        int level;
        const char* line;
        int result;
        const char* english;
        const char* norwegian;
    };
    const char* notPositive = "is not a valid value for parameter number";
    const char* ikkePositiv = "er ikke en gyldig verdi for parameter nummer";
    const std::string sectionMissing = "Section number 12.000 on reference line 1 is not defined!";
    const std::string snittMangler = "Snitt nummer 12.000 på referanselinje 1 er ikke definert!";
    const Case cases[] = {
        {1, "MCONCR 0 45", -2, "Material number must be greater than 0!",
         "Materialnummer må være større enn 0!"},
        {1, "MCONCR 5 -45", -2, "-45.000 @ 2", "-45.000 # 2"},
        {1, "MCONCR 5,45,2400,,,,,,,,,,,0", -2, "0.000 @ 14", "0.000 # 14"},
        {1, "MSTEEL 0", -2, "Material number must be greater than 0!",
         "Materialnummer må være større enn 0!"},
        {1, "MSTEEL 5 355 210000 7850 510 12 1.2E-5 0.5", -2, "0.500 @ 8", "0.500 # 8"},
        {1, "MREINF 5 500 200000 10 3 3", -2, "3.000 @ 6", "3.000 # 6"},
        {1, "MPREST 5 1860 0", -2, "0.000 @ 3", "0.000 # 3"},
        {1, "DPCONCR 0", -2, "Design parameter set number must be greater than 0!",
         "Nummer for parametersett må være større enn 0!"},
        {1, "DPCONCR 5 1.5 1.2 0", -2, "0.000 @ 4", "0.000 # 4"},
        {1, "DPSTEEL 5 1.1 1.0 -12", -2, "-12.000 @ 4", "-12.000 # 4"},
        {1, "DPREINF 5,,,,,,,,,,2", -2, "2.000 @ 11", "2.000 # 11"},
        {1, "DPPREST 5 0", -2, "0.000 @ 2", "0.000 # 2"},
        {1, "DPSECT 5 3", -2, "3.000 @ 2", "3.000 # 2"},
        {1, "DPSECT 5,1,,,,,,,,,,,50,40", -2, "40.000 @ 14", "40.000 # 14"},

        {1, "XSECT 9 10", -2, "Reference line number 9 is not defined!",
         "Referanselinje nummer 9 er ikke definert!"},
        {2, "XSECT 1 150", -1,
         "Station number 150.000 is outside the defined interval for reference line number 1",
         "Profilnummer 150.000 ligger utenfor det definerte intervallet for referanselinje "
         "nummer 1"},
        {1, "XSECT 1 20 7", -2, "Type =  7 is not a valid section type!",
         "Type =  7 er ikke en gyldig tverrsnittstype!"},
        {1, "XSECT 1 20 13 3", -2,
         "Mat =  3 is not a valid section material (must be 0=NOMAT, 1=CONCR or 2=STEEL)!",
         "Mat =  3 er ikke et gyldig tverrsnittsmateriale (må være 0=NOMAT, 1=CONCR eller "
         "2=STEEL)!"},
        {1, "XSECT 1 20 MRECT 0", -2,
         "0.000 is not a valid value for Young's modulus or Poisson's ratio!",
         "0.000 er ikke en gyldig verdi for elastisitetsmodul eller tverrkontraksjonstall!"},
        {1, "XSECT 1 20 MRECT 30000 0.5", -2,
         "0.500 is not a valid value for Young's modulus or Poisson's ratio!",
         "0.500 er ikke en gyldig verdi for elastisitetsmodul eller tverrkontraksjonstall!"},
        {1, "XSECT 1 20 13 CONCR 9", -2, "Concrete material number 9 is not defined!",
         "Betongmateriale nummer 9 er ikke definert!"},
        {1, "XSECT 1 20 13 CONCR 1 9", -2, "Concrete design parameter set number 9 is not defined!",
         "Parametersett for betong nummer 9 er ikke definert!"},
        {1, "XSECT 1 20 13 STEEL 9", -2, "Steel material number 9 is not defined!",
         "Stålmateriale nummer 9 er ikke definert!"},
        {1, "XSECT 1 20 13 STEEL 1 9", -2, "Steel design parameter set number 9 is not defined!",
         "Parametersett for stål nummer 9 er ikke definert!"},
        {1, "XSECT 1 20 13 CONCR 1 1 9", -2,
         "Section design parameter set number 9 is not defined!",
         "Parametersett for tverrsnitt nummer 9 er ikke definert!"},
        {1, "SECT 9 20", -2, "Reference line number 9 is not defined!",
         "Referanselinje nummer 9 er ikke definert!"},
        {1, "SECT 1 20 13 5", -2, "Mat =  5 is not a valid material set for this section!",
         "Mat =  5 er ikke et gyldig materialsett for dette tverrsnittet!"},
        {1, "SECT 1 20 13 1 1 1 1 7", -2, "Code =  7 is not a valid connection code!",
         "Kode =  7 er ikke en gyldig tilknytningskode!"},
        {1, "DIM 1 12 500 800", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "DIM 1 10 500 800", -2, "Dimensions can not be given for this section type!",
         "Dimensjoner kan ikke angis for denne tverrsnittstypen!"},
        {1, "DIM 0 5 400 -600", -2, "Section messures must be greater than 0!",
         "Tverrsnittsmålene må være større enn 0!"},
        {1, "PT 1 12 1 1 0 0", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "PT 1 10 0 1 0 0", -2, "Point number must be greater than 0!",
         "Punktnummer må være større enn 0!"},
        {1, "PT 1 10 9 4 0 0", -2, "Type =  4 is not a valid point type!",
         "Type =  4 er ikke en gyldig punkttype!"},
        {2, "PT 1 10 3 1 0 0", -1, "Replacing existing section point number! 3",
         "Erstatter eksisterende tverrsnittspunktnummer! 3"},
        {1, "SECTPT 1 12 0 9", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "SECTPT 1 10 0 -2", -2, "Point number must be greater than 0!",
         "Punktnummer må være større enn 0!"},
        {1, "SECTPT 1 10 0 9 12", -2, "Type =  12 is not a valid point type!",
         "Type =  12 er ikke en gyldig punkttype!"},
        {1, "SECTPT 1 10 4 9", -2, "Point number 9 is not a valid point for this polyline!",
         "Punkt nummer 9 er ikke et gyldig punkt for denne polylinjen!"},
        {2, "SECTPT 1 10 1 1", -1, "Replacing existing section point number! 1",
         "Erstatter eksisterende tverrsnittspunktnummer! 1"},
        {1, "POLY 1 12 2", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "POLY 1 10 0", -2, "One or more of the values in command line are not valid!",
         "En eller flere av verdiene i kommandolinjen er ikke gyldige!"},
        {1, "POLY 1 10 2 1 9", -2, "Type =  9 is not a valid polyline type!",
         "Type =  9 er ikke en gyldig polylinjetype!"},
        {1, "PTFUNC 1 12 0 1", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "PTFUNC 1 10 0 9 2 2", -2, "Point number 9 is not a valid point for this polyline!",
         "Punkt nummer 9 er ikke et gyldig punkt for denne polylinjen!"},
        {1, "PTFUNC 1 10 0 1 3 2", -2, "3.000 @ 5", "3.000 # 5"},
        {1, "PTFUNC 1 10 0 1 1 4", -2, "4.000 @ 6", "4.000 # 6"},
        {1, "PTFUNC 1 10 0 1 1 3 100 0 2", -2, "0.000 @ 8", "0.000 # 8"},
        {1, "SECTFACE 1 12 1 1", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "SECTFACE 1 10 9 1", -2, "Section point number 9 is not defined!",
         "Tverrsnittspunkt nummer 9 er ikke definert!"},
        {1, "SECTFACE 1 10 1 -1", -2, "Code =  -1 is not a valid face connection code!",
         "Kode =  -1 er ikke en gyldig kode for tilknytning til flate!"},
        {1, "CONN 1 10 3", -2, "Type =  3 is not a valid connection type (must be 1 or 2)!",
         "Type =  3 er ikke en gyldig tilknytningstype (må være 1 eller 2)!"},
        {1, "CONN 1 12 1", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "CONN 1 10 2", -2, "Point number -1 is not a valid connection point!",
         "Punkt nummer -1 er ikke et gyldig tilknytningspunkt!"},
        {1, "CONN 1 10 2 9", -2, "Section point number 9 is not defined!",
         "Tverrsnittspunkt nummer 9 er ikke definert!"},
        {1, "PANEL 1 12 1 1 1 2 200", -2, sectionMissing.c_str(), snittMangler.c_str()},
        {1, "PANEL 1 10 1 1 1 2 0", -2,
         "One or more of the specified values for panel are not valid!",
         "En eller flere av de angitte verdiene for panel er ikke gyldige!"},
        {1, "PANEL 1 10 1 1 1 9 200", -2, "Section point number 9 is not defined!",
         "Tverrsnittspunkt nummer 9 er ikke definert!"},
    };
    for (const int language : {2, 1}) {
        for (const Case& c : cases) {
            Project p(language);
            p.Lines(kSectionModel);
            ASSERT_EQ(p.log, "");
            p.s.SetWarnLevel(c.level);
            const CKeySection before = *p.Section(1, 10);
            const std::size_t sections = p.s.GetRefLinePtr(1)->GetKeySectionList().GetCount();
            const std::size_t concrete = p.s.GetConcrMatParList()->GetCount();
            const std::size_t steel = p.s.GetSteelMatParList()->GetCount();
            const std::size_t sectionSets = p.s.GetSectDesParList()->GetCount();

            // "@" and "#" stand for the words of message 3337 in each language.
            std::string words = language == 2 ? c.english : c.norwegian;
            const std::size_t at = words.find(language == 2 ? '@' : '#');
            if (at != std::string::npos)
                words.replace(at, 1, language == 2 ? notPositive : ikkePositiv);
            const std::string header =
                c.result == -2 ? "\r\n*** Error ***\r\n" : "\r\n*** Warning ***\r\n";

            EXPECT_EQ(p.Line(c.line), c.result) << c.line;
            EXPECT_NE(p.log.find(std::string(c.line) + header + words + "\r\n"), std::string::npos)
                << c.line << "\n"
                << p.log;
            EXPECT_EQ(p.cmd().GetErrCount() + p.cmd().GetWarnCount(), 1) << c.line;
            if (c.result == -2) {
                const CKeySection& after = *p.Section(1, 10);
                EXPECT_EQ(p.s.GetRefLinePtr(1)->GetKeySectionList().GetCount(), sections);
                EXPECT_EQ(p.Section(1, 20), nullptr) << c.line;
                EXPECT_EQ(after.GetSectPointList().GetCount(),
                          before.GetSectPointList().GetCount());
                EXPECT_EQ(after.GetSectPointPtr(3)->GetDeltaY(), 1.0) << c.line;
                EXPECT_EQ(after.GetSectPointPtr(1)->GetParaType(2), 1) << c.line;
                EXPECT_EQ(after.GetPolyLineList().GetCount(), 1u) << c.line;
                EXPECT_EQ(after.GetPolyLinePtr(1)->GetType(), 1) << c.line;
                EXPECT_EQ(after.GetConnectType(), 1) << c.line;
                EXPECT_TRUE(after.GetLineElemList().IsEmpty()) << c.line;
                EXPECT_EQ(p.Section(0, 5)->GetSpecParam(1), 0.6) << c.line;
                EXPECT_EQ(p.s.GetConcrMatParList()->GetCount(), concrete);
                EXPECT_EQ(p.s.GetSteelMatParList()->GetCount(), steel);
                EXPECT_EQ(p.s.GetSectDesParList()->GetCount(), sectionSets);
                EXPECT_EQ(p.s.GetConcrDesParPtr(5), nullptr);
                EXPECT_EQ(p.s.GetReinfDesParPtr(5), nullptr);
                EXPECT_EQ(p.s.GetPrestMatParPtr(5), nullptr);
            }
        }
    }
}

TEST(SectionChecks, WarningsFromLevelTwoAndNoChecksAtLevelZero) {
    Project p;
    p.Lines(kSectionModel);
    // Level 1: a point given again and a section off the line are no faults.
    EXPECT_EQ(p.Line("PT 1 10 3 1 0 500"), 0);
    EXPECT_EQ(p.Line("XSECT 1 150"), 0);
    EXPECT_NE(p.Section(1, 150), nullptr);
    EXPECT_EQ(p.log, "");
    // A warning leaves the command in force.
    p.s.SetWarnLevel(2);
    EXPECT_EQ(p.Line("XSECT 1 160"), -1);
    EXPECT_NE(p.Section(1, 160), nullptr);

    // Level 0 takes odd values as they come, but a missing line or section still can't take what
    // is given to it.
    p.s.SetWarnLevel(0);
    p.log.clear();
    EXPECT_EQ(p.Line("MCONCR 7 -1"), 0);
    EXPECT_NE(p.s.GetConcrMatParPtr(7), nullptr);
    EXPECT_EQ(p.Line("DIM 1 10 500"), 0);
    EXPECT_EQ(p.log, "");
    EXPECT_EQ(p.Line("XSECT 9 10"), -2);
    EXPECT_EQ(p.Line("PT 1 12 1 1 0 0"), -2);
    EXPECT_EQ(p.Line("PTFUNC 1 10 0 9"), -2);
    EXPECT_EQ(p.Line("SECTPT 1 10 4 1"), -2);
    EXPECT_EQ(p.cmd().GetErrCount(), 4);
    EXPECT_EQ(p.s.GetRefLinePtr(9), nullptr);
}
