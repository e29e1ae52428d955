#include "command/StructureCmd.h"
#include "geometry/Tendon.h"
#include "model/Structure.h"

#include "CommandProject.h"

#include <gtest/gtest.h>

#include <string>

using namespace kelo;

namespace {

struct Project : test::CommandProject {
    using CommandProject::CommandProject;
    CTendon* Tendon(int no) { return s.GetTendonPtr(no); }
};

// A girder of four elements of 5 m along X, a reference line along it with axes 1 and 2 at
// stations 0 and 20, and tendon 1 by elements.
const char* kTendonModel = "NODE 1 5 1 0 0 0 5 0 0\n"
                           "ELEM 1 4 1 1 2 1\n"
                           "SECTINS 1 1 35000 0.2 1.0 0.1 0.1 0.1\n"
                           "REFLINE 1 1 \"Girder\"\n"
                           "RFLHORI 1 1 1 0 0 0 20 20 0\n"
                           "RFLAXIS 1 1 0\n"
                           "RFLAXIS 1 2 20\n"
                           "TENDON 1 POST 1 1 150 70 40 0 \"Cable 1\"\n";

} // namespace

TEST(TendonCommands, DataAsTypedAndStoredInTheUnitsOfTheTendon) {
    Project p;
    p.Lines(kTendonModel);
    ASSERT_EQ(p.log, "");
    const CTendon* t = p.Tendon(1);
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->GetName(), "Cable 1");
    EXPECT_EQ(t->GetType(), 0);
    EXPECT_EQ(t->GetMatParNo(), 1);
    EXPECT_EQ(t->GetDesParNo(), 1);
    EXPECT_DOUBLE_EQ(t->GetArea(), 150.0);
    EXPECT_DOUBLE_EQ(t->GetDuctDiameter(), 70.0);
    EXPECT_DOUBLE_EQ(t->GetGroutStrength(), 40.0);
    EXPECT_EQ(t->GetExternal(), 0);
    // Defaults of what TENDON leaves out: pre-tensioned by its alias, one tendon, sets 1.
    EXPECT_EQ(p.Line("TENDON 2 PRE"), 0);
    const CTendon* t2 = p.Tendon(2);
    ASSERT_NE(t2, nullptr);
    EXPECT_EQ(t2->GetType(), 1);
    EXPECT_EQ(t2->GetNoOfTendons(), 1);
    EXPECT_EQ(t2->GetRelativeType(), 1);
    EXPECT_EQ(t2->GetStressCode(), 1);

    // The bundle: spacings and offsets stay in mm, as the tendon holds them.
    EXPECT_EQ(p.Line("TENGROUP 2 12 100 150 1 -300 50"), 0);
    EXPECT_EQ(t2->GetNoOfTendons(), 12);
    EXPECT_DOUBLE_EQ(t2->GetSpaceLDir(), 100.0);
    EXPECT_DOUBLE_EQ(t2->GetSpaceNDir(), 150.0);
    EXPECT_EQ(t2->GetConnectTendon(), 1);
    EXPECT_DOUBLE_EQ(t2->GetLOffset(), -300.0);
    EXPECT_DOUBLE_EQ(t2->GetNOffset(), 50.0);

    EXPECT_EQ(p.Line("TENGEO 1 BYRFL 1 3 7"), 0);
    EXPECT_EQ(t->GetGeomType(), 1);
    EXPECT_EQ(t->GetRefLineNo(), 1);
    EXPECT_EQ(t->GetRelativeType(), 3);
    EXPECT_EQ(t->GetRelPointNo(), 7);
    EXPECT_EQ(p.Line("TENGEO 1"), 0);
    EXPECT_EQ(t->GetGeomType(), 0);
    EXPECT_EQ(t->GetRelativeType(), 1);
    EXPECT_EQ(t->GetRelPointNo(), -1);

    // Pieces: offsets in mm become metres; first and last are kept as elements and as stations.
    EXPECT_EQ(p.Line("TENGEON 1 6 1 2 1 0 -400 -0.08"), 0);
    EXPECT_EQ(p.Line("TENGEON 1 7 3 4 1 -400 0 0.08"), 0);
    EXPECT_EQ(p.Line("TENGEOL 1 8 1 4 1 250 250 0.1 2.5"), 0);
    ASSERT_EQ(t->GetTendonGeomListN()->GetCount(), 2u);
    ASSERT_EQ(t->GetTendonGeomListL()->GetCount(), 1u);
    const CTendonGeom* n1 = t->GetTendonGeomListN()->At(0);
    const CTendonGeom* n2 = t->GetTendonGeomListN()->At(1);
    EXPECT_EQ(n1->GetType(), 6);
    EXPECT_EQ(n1->GetDir(), 2);
    EXPECT_EQ(n1->GetStartElement(), 1);
    EXPECT_EQ(n1->GetEndElement(), 2);
    EXPECT_EQ(n1->GetElementStep(), 1);
    EXPECT_DOUBLE_EQ(n1->GetStartStation(), 1.0);
    EXPECT_DOUBLE_EQ(n1->GetEndStation(), 2.0);
    EXPECT_DOUBLE_EQ(n1->GetStartValue(), 0.0);
    EXPECT_DOUBLE_EQ(n1->GetEndValue(), -0.4);
    EXPECT_DOUBLE_EQ(n1->GetP(), -0.08);
    EXPECT_EQ(n2->GetType(), 7);
    EXPECT_DOUBLE_EQ(n2->GetStartValue(), -0.4);
    const CTendonGeom* l1 = t->GetTendonGeomListL()->At(0);
    EXPECT_EQ(l1->GetDir(), 1);
    EXPECT_EQ(l1->GetType(), 8);
    EXPECT_DOUBLE_EQ(l1->GetStartValue(), 0.25);
    EXPECT_DOUBLE_EQ(l1->GetP(), 0.1);
    EXPECT_DOUBLE_EQ(l1->GetS(), 2.5);

    // Losses in the order mu, k, slip, shrinkage, creep, relaxation limits and loss.
    EXPECT_EQ(p.Line("TENLOSS 1 0.19 0.0013 6 0.3 0.5 55 75 2.5"), 0);
    double v[8] = {};
    t->GetLossParam(&v[0], &v[1], &v[2], &v[3], &v[4], &v[5], &v[6], &v[7]);
    const double expected[8] = {0.19, 0.0013, 6.0, 0.3, 0.5, 55.0, 75.0, 2.5};
    for (int i = 0; i < 8; ++i) EXPECT_DOUBLE_EQ(v[i], expected[i]) << i;
    // The one slip value holds at both anchors.
    EXPECT_DOUBLE_EQ(t->GetSlip1(), 6.0);
    EXPECT_DOUBLE_EQ(t->GetSlip2(), 6.0);

    EXPECT_EQ(p.Line("TENSTRESS 1 75 70 2"), 0);
    EXPECT_DOUBLE_EQ(t->GetStress1(), 75.0);
    EXPECT_DOUBLE_EQ(t->GetStress2(), 70.0);
    EXPECT_EQ(t->GetStressCode(), 2);

    // A name is cut to 30 characters.
    EXPECT_EQ(p.Line("TENDON 3 0 1 1 150 \"A name that runs on well beyond thirty\""), 0);
    EXPECT_EQ(p.Tendon(3)->GetName(), "A name that runs on well beyon");
    EXPECT_EQ(p.log, "");
}

TEST(TendonCommands, TendonAnewReplacesItsPathLossesAndStressing) {
    Project p;
    p.Lines(kTendonModel);
    p.Lines("TENGEON 1 4 1 4 1 -200 -200\n"
            "TENLOSS 1 0.2 0.001 6\n"
            "TENSTRESS 1 75 75\n");
    ASSERT_EQ(p.Tendon(1)->GetTendonGeomListN()->GetCount(), 1u);
    // Reading the same lines again gives the same tendon, not one with its pieces twice.
    p.Lines("TENDON 1 POST 1 1 150 70 40 0 \"Cable 1\"\n"
            "TENGEON 1 4 1 4 1 -200 -200\n");
    const CTendon* t = p.Tendon(1);
    EXPECT_EQ(t->GetTendonGeomListN()->GetCount(), 1u);
    EXPECT_DOUBLE_EQ(t->GetStress1(), 0.0);
    EXPECT_DOUBLE_EQ(t->GetMu(), 0.0);
    EXPECT_EQ(p.s.GetTendonList()->GetCount(), 1u);
    // The replacement is worth a warning when warnings are looked for.
    p.s.SetWarnLevel(2);
    EXPECT_EQ(p.Line("TENDON 1"), -1);
    EXPECT_NE(p.log.find("Replacing existing tendon number! 1"), std::string::npos) << p.log;
}

TEST(TendonCommands, MessagesInBothLanguagesAndTheTendonUntouched) {
    struct Case {
        int level;
        const char* line;
        int result;
        const char* english;
        const char* norwegian;
    };
    const char* invalid = "is not a valid value for parameter number";
    const char* ugyldig = "er ikke en gyldig verdi for parameter nummer";
    const Case cases[] = {
        {1, "TENDON 0", -2, "Tendon number must be greater than 0!",
         "Spennkabelnummer må være større enn 0!"},
        {1, "TENDON 2 2", -2, "Type =  2 is not a valid tendon kind!",
         "Type =  2 er ikke en gyldig spennkabelart!"},
        {1, "TENDON 2 0 9", -2, "Tendon material number 9 is not defined!",
         "Spennstålmateriale nummer 9 er ikke definert!"},
        {1, "TENDON 2 0 1 9", -2, "Tendon design parameter set number 9 is not defined!",
         "Parametersett for spennstål nummer 9 er ikke definert!"},
        {1, "TENDON 2 0 1 1 -150", -2, "-150.000 @ 5", "-150.000 # 5"},
        {2, "TENDON 1", -1, "Replacing existing tendon number! 1",
         "Erstatter eksisterende spennkabelnummer! 1"},
        {1, "TENGROUP 5 2", -2, "Tendon number 5 is not defined!",
         "Spennkabel nummer 5 er ikke definert!"},
        {1, "TENGROUP 1 0", -2, "0.000 @ 2", "0.000 # 2"},
        {1, "TENGROUP 1 2 100 100 7", -2, "Connected tendon number 7 is not defined!",
         "Tilknyttet spennkabel nummer 7 er ikke definert!"},
        // Tendon 2 hangs on tendon 1: tendon 1 may not hang on tendon 2.
        {1, "TENGROUP 1 1 0 0 2", -2, "One or more of the values in command line are not valid!",
         "En eller flere av verdiene i kommandolinjen er ikke gyldige!"},
        {1, "TENGROUP 1 1 0 0 1", -2, "One or more of the values in command line are not valid!",
         "En eller flere av verdiene i kommandolinjen er ikke gyldige!"},
        {1, "TENGEO 5", -2, "Tendon number 5 is not defined!",
         "Spennkabel nummer 5 er ikke definert!"},
        {1, "TENGEO 1 3", -2, "Type =  3 is not a valid tendon geometry type (must be 0, 1 or 2)!",
         "Type =  3 er ikke en gyldig geometritype for spennkabel (må være 0, 1 eller 2)!"},
        {1, "TENGEO 1 1 9", -2, "Reference line number 9 is not defined!",
         "Referanselinje nummer 9 er ikke definert!"},
        {1, "TENGEO 1 0 0 6", -2, "6.000 @ 4", "6.000 # 4"},
        {1, "TENGEON 5 4 1 4", -2, "Tendon number 5 is not defined!",
         "Spennkabel nummer 5 er ikke definert!"},
        {1, "TENGEON 1 10 1 4", -2,
         "Type =  10 is not a valid curve type for tendon geometry (must be 1 to 4)!",
         "Type =  10 er ikke en gyldig kurvetype for spennkabelgeometri (må være 1 til 4)!"},
        {1, "TENGEOL 1 0 1 4", -2,
         "Type =  0 is not a valid curve type for tendon geometry (must be 1 to 4)!",
         "Type =  0 er ikke en gyldig kurvetype for spennkabelgeometri (må være 1 til 4)!"},
        {1, "TENGEON 1 4 4 1 1", -2, "Wrong sign for step value!", "Feil fortegn for trinnverdi!"},
        {1, "TENGEON 1 5 1 4 1 0 -200 1.5", -2, "1.500 @ 8", "1.500 # 8"},
        {1, "TENGEON 1 9 1 4 1 0 -200 0.1 -2", -2, "-2.000 @ 9", "-2.000 # 9"},
        {2, "TENGEON 1 4 3 5 1 -200 -200", -1, "Element number 5 is not defined!",
         "Element nummer 5 er ikke definert!"},
        {1, "TENLOSS 5 0.2", -2, "Tendon number 5 is not defined!",
         "Spennkabel nummer 5 er ikke definert!"},
        {1, "TENLOSS 1 -0.2", -2, "-0.200 @ 2", "-0.200 # 2"},
        {1, "TENLOSS 1 0.2 0.001 6 0 0 70 60 2.5", -2, "60.000 @ 8", "60.000 # 8"},
        {1, "TENSTRESS 5 75", -2, "Tendon number 5 is not defined!",
         "Spennkabel nummer 5 er ikke definert!"},
        {1, "TENSTRESS 1 120", -2, "120.000 @ 2", "120.000 # 2"},
        {1, "TENSTRESS 1 75 75 3", -2, "Code =  3 is not a valid stressing code!",
         "Kode =  3 er ikke en gyldig oppspenningskode!"},
    };
    for (const int language : {2, 1}) {
        for (const Case& c : cases) {
            Project p(language);
            p.Lines(kTendonModel);
            p.Lines("TENDON 2 0 1 1 150\nTENGROUP 2 1 0 0 1 0 0\n");
            ASSERT_EQ(p.log, "");
            p.s.SetWarnLevel(c.level);
            const CTendon before = *p.Tendon(1);

            std::string words = language == 2 ? c.english : c.norwegian;
            const std::size_t at = words.find(language == 2 ? '@' : '#');
            if (at != std::string::npos) words.replace(at, 1, language == 2 ? invalid : ugyldig);
            const std::string header =
                c.result == -2 ? "\r\n*** Error ***\r\n" : "\r\n*** Warning ***\r\n";

            EXPECT_EQ(p.Line(c.line), c.result) << c.line;
            EXPECT_NE(p.log.find(std::string(c.line) + header + words), std::string::npos)
                << c.line << "\n"
                << p.log;
            EXPECT_EQ(p.cmd().GetErrCount() + p.cmd().GetWarnCount(), 1) << c.line;
            if (c.result == -2) {
                // A refused line leaves the tendon as it was and makes none.
                const CTendon* after = p.Tendon(1);
                ASSERT_NE(after, nullptr);
                EXPECT_EQ(p.s.GetTendonList()->GetCount(), 2u) << c.line;
                EXPECT_EQ(after->GetTendonGeomListN()->GetCount(), 0u) << c.line;
                EXPECT_EQ(after->GetTendonGeomListL()->GetCount(), 0u) << c.line;
                EXPECT_EQ(after->GetNoOfTendons(), before.GetNoOfTendons()) << c.line;
                EXPECT_EQ(after->GetConnectTendon(), before.GetConnectTendon()) << c.line;
                EXPECT_EQ(after->GetGeomType(), before.GetGeomType()) << c.line;
                EXPECT_EQ(after->GetRelativeType(), before.GetRelativeType()) << c.line;
                EXPECT_DOUBLE_EQ(after->GetMu(), before.GetMu()) << c.line;
                EXPECT_DOUBLE_EQ(after->GetStress1(), before.GetStress1()) << c.line;
                EXPECT_EQ(after->GetStressCode(), before.GetStressCode()) << c.line;
            }
        }
    }
}

TEST(TendonCommands, PiecesByStationsAndAxesCheckedAgainstTheTendonsLine) {
    Project p;
    p.Lines(kTendonModel);
    p.Lines("TENGEO 1 2 1 1\n");
    ASSERT_EQ(p.log, "");
    // Axes of the tendon's line: 1 and 2 exist, 3 does not.
    EXPECT_EQ(p.Line("TENGEON 1 4 1 2 1 -100 -100"), 0);
    EXPECT_EQ(p.Line("TENGEON 1 4 1 3 1 -100 -100"), -2);
    EXPECT_NE(p.log.find("Axis number 3 is not defined on the reference line of the tendon!"),
              std::string::npos)
        << p.log;
    EXPECT_EQ(p.Tendon(1)->GetTendonGeomListN()->GetCount(), 1u);
    // By stations the piece must run along the line.
    p.log.clear();
    EXPECT_EQ(p.Line("TENGEO 1 1 1 1"), 0);
    EXPECT_EQ(p.Line("TENGEON 1 4 2.5 17.5 1 -100 -100"), 0);
    const CTendonGeom* g = p.Tendon(1)->GetTendonGeomListN()->At(1);
    EXPECT_DOUBLE_EQ(g->GetStartStation(), 2.5);
    EXPECT_DOUBLE_EQ(g->GetEndStation(), 17.5);
    EXPECT_EQ(p.Line("TENGEON 1 4 17.5 2.5 1 -100 -100"), -2);
    EXPECT_NE(p.log.find("2.500 is not a valid value for parameter number 4"), std::string::npos)
        << p.log;
    // Missing elements are no matter for stations, and at check level 1 not for elements.
    p.log.clear();
    EXPECT_EQ(p.Line("TENGEO 1 0"), 0);
    EXPECT_EQ(p.Line("TENGEON 1 4 3 9 1 -100 -100"), 0);
    EXPECT_EQ(p.log, "");
}

TEST(TendonCommands, EveryChangeCallsForNewGeometryAndLosses) {
    Project p;
    p.Lines(kTendonModel);
    p.Lines("TENDON 2 0 1 1 150\n"
            "TENGEON 1 4 1 2 1 -200 -200\n"
            "TENSTRESS 1 75 75\n");
    CTendon* t = p.Tendon(1);
    const char* changes[] = {"TENGROUP 1 2",
                             "TENGEO 1 0 0 1",
                             "TENGEON 1 4 3 4 1 -200 -200",
                             "TENGEOL 1 4 1 4 1 100 100",
                             "TENLOSS 1 0.2 0.001",
                             "TENSTRESS 1 70 70"};
    for (const char* line : changes) {
        ASSERT_EQ(t->Update(&p.s), 1) << line;
        ASSERT_EQ(t->IsUpdate(), 1) << line;
        EXPECT_EQ(p.Line(line), 0) << line;
        EXPECT_EQ(t->IsUpdate(), 0) << line;
    }
    // A refused line changes nothing and leaves the tendon up to date.
    ASSERT_EQ(t->Update(&p.s), 1);
    EXPECT_EQ(p.Line("TENSTRESS 1 70 70 5"), -2);
    EXPECT_EQ(t->IsUpdate(), 1);
    // A change of another tendon leaves this one alone.
    EXPECT_EQ(p.Line("TENSTRESS 2 70 70"), 0);
    EXPECT_EQ(t->IsUpdate(), 1);
}
