#include "command/StructureCmd.h"
#include "geometry/RefLine.h"
#include "model/Structure.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "CommandProject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

using namespace kelo;

namespace {

struct Alignment : test::CommandProject {
    using CommandProject::CommandProject;
    // What a command file's end does for the reference lines.
    void EndOfFile() { s.ReCalcAllRoadProfiles(); }
    CRefLine& Rfl(int no) {
        CRefLine* line = s.GetRefLinePtr(no);
        EXPECT_NE(line, nullptr) << "line " << no;
        return *line;
    }
};

struct Point {
    double x, y, z;
};

void ExpectAt(CRefLine& line, double station, Point p, double tol = 1e-9) {
    double c[3] = {-1, -1, -1};
    ASSERT_EQ(line.CalcCoordByStation(station, c), 1) << "station " << station;
    EXPECT_NEAR(c[0], p.x, tol) << "station " << station;
    EXPECT_NEAR(c[1], p.y, tol) << "station " << station;
    EXPECT_NEAR(c[2], p.z, tol) << "station " << station;
}

void ExpectDir(CRefLine& line, double station, double dx, double dy, double tol = 1e-9) {
    double d[3] = {0, 0, 0};
    ASSERT_EQ(line.CalcDirByStation(station, d), 1) << "station " << station;
    EXPECT_NEAR(d[0], dx, tol) << "station " << station;
    EXPECT_NEAR(d[1], dy, tol) << "station " << station;
}

} // namespace

TEST(Rfl, DefinesLinesAndRedefinitionKeepsWhatStandsOnThem) {
    Alignment a;
    EXPECT_EQ(a.Line("REFLINE"), 0);
    EXPECT_EQ(a.Rfl(1).GetType(), 1);
    EXPECT_EQ(a.Rfl(1).GetName(), "");
    EXPECT_EQ(a.Line("RFL 2 3 \"A name that is longer than thirty characters\""), 0);
    EXPECT_EQ(a.Rfl(2).GetType(), 3);
    EXPECT_EQ(a.Rfl(2).GetName(), "A name that is longer than thi");
    // Unquoted words after the last value are the name.
    EXPECT_EQ(a.Line("refline 3 2 East ramp"), 0);
    EXPECT_EQ(a.Rfl(3).GetName(), "East ramp");

    a.Line("RFLAXIS 2 1 10 \"Axis\"");
    a.Line("RFLHORI 2 1 1 0 0 0 100 100 0");
    EXPECT_EQ(a.Line("REFLINE 2 1 \"Renamed\""), 0);
    EXPECT_EQ(a.Rfl(2).GetName(), "Renamed");
    EXPECT_EQ(a.Rfl(2).GetType(), 1);
    EXPECT_EQ(a.Rfl(2).GetAxisList().GetCount(), 1u);
    EXPECT_EQ(a.Rfl(2).GetHorSegmentList().GetCount(), 1u);
    EXPECT_EQ(a.s.GetRefLineList()->GetCount(), 4u); // with line 0
    // The lines go to the command store under the order of reference lines.
    EXPECT_NE(a.s.GetASCIICommand(901).find("RFL 2 3"), std::string::npos);
}

TEST(Rflaxis, PutsNamedStationsOnALine) {
    Alignment a;
    a.Line("REFLINE 1");
    EXPECT_EQ(a.Line("RFLAXIS 1 2 55.5 \"Pier west\""), 0);
    EXPECT_EQ(a.Line("RFLAXIS 1 0 12"), 0); // axis 0 is allowed
    ASSERT_NE(a.Rfl(1).GetAxisPtr(2), nullptr);
    EXPECT_EQ(a.Rfl(1).GetAxisPtr(2)->GetName(), "Pier west");
    EXPECT_DOUBLE_EQ(a.Rfl(1).GetAxisPtr(2)->GetStationNo(), 55.5);
    EXPECT_DOUBLE_EQ(a.Rfl(1).GetAxisPtr(0)->GetStationNo(), 12.0);
    // Defaults: line 1, axis 1, station 0.
    EXPECT_EQ(a.Line("RFLAXIS"), 0);
    ASSERT_NE(a.Rfl(1).GetAxisPtr(1), nullptr);
    EXPECT_DOUBLE_EQ(a.Rfl(1).GetAxisPtr(1)->GetStationNo(), 0.0);
    // A second axis of a number replaces the first.
    EXPECT_EQ(a.Line("RFLAXIS 1 2 60 \"Pier east\""), 0);
    EXPECT_EQ(a.Rfl(1).GetAxisList().GetCount(), 3u);
    EXPECT_EQ(a.Rfl(1).GetAxisPtr(2)->GetName(), "Pier east");
}

TEST(Rflhor, StoresTheTwelveValuesInOrderAndMakesAMissingLine) {
    Alignment a;
    EXPECT_EQ(a.Line("RFLHORI 2 3 2 10 1 2 60 3 4 -40 -50 70"), 0);
    const CRefLine& line = a.Rfl(2);
    EXPECT_EQ(line.GetType(), 1);
    const CHorSegment* seg = line.GetHorSegmentPtr(3);
    ASSERT_NE(seg, nullptr);
    EXPECT_EQ(seg->GetRefLineNo(), 2);
    EXPECT_EQ(seg->GetType(), 2);
    EXPECT_EQ(seg->GetStartStation(), 10.0);
    EXPECT_EQ(seg->GetStartX(), 1.0);
    EXPECT_EQ(seg->GetStartY(), 2.0);
    EXPECT_EQ(seg->GetEndStation(), 60.0);
    EXPECT_EQ(seg->GetEndX(), 3.0);
    EXPECT_EQ(seg->GetEndY(), 4.0);
    EXPECT_EQ(seg->GetStartR(), -40.0);
    EXPECT_EQ(seg->GetEndR(), -50.0);
    EXPECT_EQ(seg->GetKlotoideParam(), 70.0);
    // The command stores; calculating is for the end of the file.
    EXPECT_EQ(seg->GetSegmCalc(), 0);
    EXPECT_NE(a.s.GetASCIICommand(903).find("RFLHORI 2 3 2"), std::string::npos);
}

// A straight along +X, a quarter circle of radius +100 (left), a straight, and a quarter circle
// of radius -100 (right), all but the first chained. By hand: the left arc's centre is 100 to
// the left of (100, 0), so it ends at (200, 100) heading +Y; the straight runs 100 m to
// (200, 200); the right arc's centre is 100 to the right, at (300, 200), and it ends at
// (300, 300) heading +X. A quarter circle of radius 100 is 50π m long.
TEST(Rflhor, ChainedSegmentsAreChainedOnceAtTheEndOfTheFile) {
    const double q = 50.0 * std::acos(-1.0);
    const std::string qText = Format("%.17g", q);
    const std::string text = "REFLINE 1 1 \"Chain\"\n"
                             "RFLHORI 1 1 1 0 0 0 100 100 0\n"
                             "RFLHORI 1, 2, 12, , , , 100+" +
                             qText +
                             ", , , 100\n"
                             "RFLHORI 1, 3, 11, , , , 200+" +
                             qText +
                             "\n"
                             "RFLHORI 1, 4, 12, , , , 200+2*" +
                             qText + ", , , -100\n";
    Alignment a;
    a.Lines(text);
    EXPECT_EQ(a.log, "");
    ASSERT_EQ(a.Rfl(1).GetHorSegmentList().GetCount(), 4u);
    EXPECT_EQ(a.Rfl(1).GetHorSegmentPtr(2)->GetSegmCalc(), 0);

    const double qs = q;
    a.EndOfFile();
    CRefLine& line = a.Rfl(1);
    for (const CHorSegment* seg : line.GetHorSegmentList()) EXPECT_EQ(seg->GetSegmCalc(), 1);
    ExpectAt(line, 100.0, {100, 0, 0});
    ExpectAt(line, 100.0 + qs / 2, {100 + 100 * std::sqrt(0.5), 100 - 100 * std::sqrt(0.5), 0});
    ExpectDir(line, 100.0 + qs / 2, std::sqrt(0.5), std::sqrt(0.5));
    ExpectAt(line, 100.0 + qs, {200, 100, 0});
    ExpectAt(line, 150.0 + qs, {200, 150, 0});
    ExpectDir(line, 150.0 + qs, 0, 1);
    ExpectAt(line, 200.0 + 2 * qs, {300, 300, 0});
    ExpectDir(line, 200.0 + 2 * qs, 1, 0);

    // Read from a file, the same is done by the reader's end of file.
    const std::string path = "alignment_chain.inp";
    {
        CTextWriter w;
        w.Open(path, false);
        w.Write(text);
    }
    Alignment b;
    EXPECT_EQ(b.s.ReadCommandFile(path, &b.log, 0), 0);
    EXPECT_EQ(b.log, "");
    ExpectAt(b.Rfl(1), 200.0 + 2 * qs, {300, 300, 0});
    std::remove(path.c_str());
}

// Three legs of a tangent polygon through the corners (0, 0), (100, 2), (200, 0), (300, 0), the
// first with a rounding of 1000 m at its end corner. By hand: grades ±0.02 meet at 100 with the
// turn δ = 2·atan(0.02), so the tangent length is T = R·tan(δ/2) = 20 m along the leg, and the
// rounding begins at station 100 − 20·cos(atan 0.02), level 2 − 20·sin(atan 0.02).
TEST(Rflver, GradesArcsAndRoundedCornersAreWorkedOutAtTheEndOfTheFile) {
    Alignment a;
    a.Lines("RFLVERT 1 1 5 0 0 100 2 1000\n"
            "RFLVERT 1 2 5 100 2 200 0\n"
            "RFLVERT 1 3 5 200 0 300 0\n"
            "RFLVERT 2 1 1 0 10 100 20\n"
            "RFLVERT 2 2 2 100 20 200 20 -1000\n");
    EXPECT_EQ(a.log, "");
    const CVerSegment* leg = a.Rfl(1).GetVerSegmentPtr(1);
    ASSERT_NE(leg, nullptr);
    EXPECT_EQ(leg->GetType(), 5);
    EXPECT_EQ(leg->GetRadius(), 1000.0);
    EXPECT_EQ(leg->GetEndTangentPointStation(), 100.0); // sharp until the end of the file

    a.EndOfFile();
    const double c = 1.0 / std::sqrt(1.0 + 0.02 * 0.02), s = 0.02 * c;
    EXPECT_NEAR(leg->GetEndTangentPointStation(), 100.0 - 20.0 * c, 1e-9);
    EXPECT_NEAR(leg->GetEndTangentPointZ(), 2.0 - 20.0 * s, 1e-9);
    // On the straight part of the leg the grade holds; at the corner the rounding lowers the road
    // by about E = sqrt(R² + T²) − R = 0.19998 m.
    double z[3] = {0, 0, 0};
    ASSERT_EQ(a.Rfl(1).CalcCoordByStation(50.0, z), 1);
    EXPECT_NEAR(z[2], 1.0, 1e-12);
    ASSERT_EQ(a.Rfl(1).CalcCoordByStation(100.0, z), 1);
    EXPECT_NEAR(z[2], 2.0 - (std::sqrt(1000.0 * 1000.0 + 400.0) - 1000.0), 1e-4);

    // A grade and a crest arc of -1000 m over a level chord of 100 m: the arc rises to its top
    // at the chord's middle, 1000 − sqrt(1000² − 50²) above the chord ends.
    ASSERT_EQ(a.Rfl(2).CalcCoordByStation(50.0, z), 1);
    EXPECT_NEAR(z[2], 15.0, 1e-12);
    ASSERT_EQ(a.Rfl(2).CalcCoordByStation(150.0, z), 1);
    EXPECT_NEAR(z[2], 20.0 + 1000.0 - std::sqrt(1000.0 * 1000.0 - 50.0 * 50.0), 1e-9);
}

TEST(Rflcoord, PolygonVerticesGetTheirStationsAtTheEndOfTheFile) {
    Alignment a;
    a.Lines("REFLINE 3 1 \"Polygon\"\n"
            "RFLCOORD 3 1 1 0 0 0 10\n"
            "RFLCOORD 3 2 2 30 40 5\n");
    EXPECT_EQ(a.log, "");
    const CCoord* p = a.Rfl(3).GetCoordPtr(2);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(p->GetType(), 2);
    EXPECT_EQ(p->GetX(), 30.0);
    EXPECT_EQ(p->GetY(), 40.0);
    EXPECT_EQ(p->GetZ(), 5.0);
    a.EndOfFile();
    // Type 1 lines measure along the plan: 50 m from station 10.
    EXPECT_DOUBLE_EQ(p->GetStationNo(), 60.0);
    ExpectAt(a.Rfl(3), 35.0, {15, 20, 2.5});
}

// A parent line along +X from station 0 at (0, 0), rising from level 10 to 20 over 100 m.
TEST(Rflcol, ColumnsAreBuiltFromTheLineTheyStandOn) {
    Alignment a;
    a.Lines("REFLINE 1 1 \"Road\"\n"
            "RFLHORI 1 1 1 0 0 0 100 100 0\n"
            "RFLVERT 1 1 1 0 10 100 20\n"
            "RFLAXIS 1 1 60 \"Pier\"\n"
            "RFLCOLUM 2 1 1 40 0 0 0 2\n"
            "RFLCOLUM 3 3 1 50 2 45 20 5\n"
            "RFLCOLUM 4 4 1 1 0 0 12 1\n");
    EXPECT_EQ(a.log, "");
    CRefLine& byStation = a.Rfl(2);
    EXPECT_EQ(byStation.GetColumn(), 1);
    EXPECT_EQ(byStation.GetColumnType(), 1);
    EXPECT_EQ(byStation.GetRefLineFromColumn(), 1);
    EXPECT_EQ(byStation.GetColumnValue(0), 40.0);
    EXPECT_EQ(byStation.GetColumnValue(4), 2.0);
    EXPECT_TRUE(byStation.GetCoordList().IsEmpty()); // built at the end of the file

    a.EndOfFile();
    // By station, top at the road: the road is at level 14 at station 40.
    ExpectAt(byStation, 2.0, {40, 0, 2});
    ExpectAt(byStation, 14.0, {40, 0, 14});
    ASSERT_NE(byStation.GetAxisPtr(2), nullptr);
    EXPECT_DOUBLE_EQ(byStation.GetAxisPtr(2)->GetStationNo(), 14.0);
    // By station with the top given, 2 m right of the road (to -Y) and slid 2·tan 45° = 2 m on.
    ExpectAt(a.Rfl(3), 5.0, {52, -2, 5});
    ExpectAt(a.Rfl(3), 20.0, {52, -2, 20});
    // By axis, top given.
    EXPECT_DOUBLE_EQ(a.Rfl(4).GetColumnAtStationNo(), 60.0);
    ExpectAt(a.Rfl(4), 6.0, {60, 0, 6});

    // The road moved: its columns follow at the next end of file.
    a.Lines("RFLHORI 1 1 1 0 0 10 100 100 10\n");
    a.EndOfFile();
    ExpectAt(byStation, 2.0, {40, 10, 2});
}

TEST(Rflprof, ThirteenValuesASideFillTheProfileAndRoadPointsFollowAtTheEnd) {
    Alignment a;
    a.Line("REFLINE 1");
    // Written as the regenerated file writes it: broken after the fifteenth value.
    a.Lines("RFLPROF 1, 20, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, &&\n"
            "         21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33\n");
    EXPECT_EQ(a.log, "");
    ASSERT_EQ(a.Rfl(1).GetRoadProfileList().GetCount(), 1u);
    const CRoadProfile* prof = a.Rfl(1).GetRoadProfileList().At(0);
    EXPECT_EQ(prof->GetStationNo(), 20.0);
    // The thirteen values go to the zones 0 to 8 and to the edge step and stub, 15 to 18; the
    // three intermediate steps 9 to 14 and the unused 19 stay 0.
    const int index[13] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 15, 16, 17, 18};
    for (int i = 0; i < 13; ++i) {
        EXPECT_EQ(prof->GetProfLeftValue(index[i]), 1.0 + i) << index[i];
        EXPECT_EQ(prof->GetProfRightValue(index[i]), 21.0 + i) << index[i];
    }
    for (const int unused : {9, 10, 11, 12, 13, 14, 19}) {
        EXPECT_EQ(prof->GetProfLeftValue(unused), 0.0);
        EXPECT_EQ(prof->GetProfRightValue(unused), 0.0);
    }
    EXPECT_EQ(prof->GetRoadPoint(0.0), nullptr);
    a.EndOfFile();
    // Right: the first point at the inner width 21 on the level of the centre.
    ASSERT_NE(prof->GetRoadPoint(0.1), nullptr);
    EXPECT_EQ(prof->GetRoadPoint(0.1)->GetX(), 21.0);
    EXPECT_EQ(prof->GetRoadPoint(0.1)->GetY(), 0.0);
    ASSERT_NE(prof->GetRoadPoint(-0.1), nullptr);
    EXPECT_EQ(prof->GetRoadPoint(-0.1)->GetX(), -1.0);

    // The keyword's other form, on a line not defined yet; a profile at the same station
    // replaces the first.
    EXPECT_EQ(a.Line("ROADPROF 5 20"), 0);
    EXPECT_EQ(a.Line("ROADPROF 5 20 2"), 0);
    ASSERT_EQ(a.Rfl(5).GetRoadProfileList().GetCount(), 1u);
    EXPECT_EQ(a.Rfl(5).GetRoadProfileList().At(0)->GetProfLeftValue(0), 2.0);
}

// Each check's fault: the command's result, the message with its words in English and
// Norwegian, and a model left as it was by a refused command. The model: line 1 with a straight
// from station 0 to 100 and axis 1 at 50, a polygon line 4 and a column line 6 on line 1.
TEST(AlignmentChecks, MessagesInBothLanguagesAndNothingLost) {
    struct Case {
        int level;
        const char* line;
        int result;
        const char* english;
        const char* norwegian;
    };
    const Case cases[] = {
        {1, "REFLINE 0 1 \"Zero\"", -2, "Reference line number must be greater than 0!",
         "Referanselinjenummer må være større enn 0!"},
        {1, "REFLINE 2 4", -2, "Type =  4 is not a valid selection for reference lines!",
         "Type =  4 er ikke et gyldig valg for referanselinjer!"},
        {2, "REFLINE 1 1 \"Again\"", -1, "Replacing existing reference line number! 1",
         "Erstatter eksisterende referanselinjenummer! 1"},
        {1, "RFLAXIS 1 -1 10", -2, "Axis number must be greater than or equal to 0!",
         "Aksenummer må være større enn eller lik 0!"},
        {1, "RFLAXIS 9 1 10", -2, "Reference line number 9 is not defined!",
         "Referanselinje nummer 9 er ikke definert!"},
        {2, "RFLAXIS 1 1 60", -1, "Replacing existing axis number! 1",
         "Erstatter eksisterende aksenummer! 1"},
        {1, "RFLHORI 1 0 1 0 0 0 10 10 0", -2, "Segment number must be greater than 0!",
         "Segmentnummer må være større enn 0!"},
        {1, "RFLHORI 0 2 1 0 0 0 10 10 0", -2,
         "Reference line number must be greater than 0 for geometry data!",
         "Referanselinjenummer må være større enn 0 for geometridata!"},
        {1, "RFLHORI 1 2 4 100 100 0 150 150 0", -2,
         "Not valid horizontal segment type (must be 1, 2, 3, 11, 12 or 13)!",
         "Ugyldig type for horisontalsegment (må være 1, 2, 3, 11, 12 eller 13)!"},
        // A straight whose end points coincide.
        {1, "RFLHORI 1 2 1 100 100 0 150 100 0", -2, "Errors found in segment values!",
         "Feil funnet i segmentverdiene!"},
        // An arc whose chord of 80 m is longer than its diameter.
        {1, "RFLHORI 1 2 2 100 100 0 180 180 0 30", -2, "Errors found in segment values!",
         "Feil funnet i segmentverdiene!"},
        // A chained straight ending before the straight it follows.
        {1, "RFLHORI 1 2 11 0 0 0 90", -2, "Errors found in segment values!",
         "Feil funnet i segmentverdiene!"},
        // A chained clothoid with radii of two signs, and one without parameter.
        {1, "RFLHORI 1 2 13 0 0 0 150 0 0 300 -200 150", -2, "Errors found in segment values!",
         "Feil funnet i segmentverdiene!"},
        {1, "RFLHORI 1 2 13 0 0 0 150 0 0 0 300 0", -2, "Errors found in segment values!",
         "Feil funnet i segmentverdiene!"},
        {2, "RFLHORI 1 1 1 0 0 0 100 100 0", -1, "Replacing existing segment number! 1",
         "Erstatter eksisterende segmentnummer! 1"},
        {1, "RFLVERT 1 1 3 0 0 100 1", -2, "Not valid vertical segment type (must be 1, 2 or 5)!",
         "Ugyldig type for vertikalsegment (må være 1, 2 eller 5)!"},
        {1, "RFLVERT 1 1 2 0 0 100 0 40", -2, "Errors found in segment values!",
         "Feil funnet i segmentverdiene!"},
        {1, "RFLVERT 1 1 1 50 0 50 1", -2, "Errors found in segment values!",
         "Feil funnet i segmentverdiene!"},
        {1, "RFLVERT 1 0 1 0 0 100 1", -2, "Segment number must be greater than 0!",
         "Segmentnummer må være større enn 0!"},
        {1, "RFLVERT -1 1 1 0 0 100 1", -2,
         "Reference line number must be greater than 0 for geometry data!",
         "Referanselinjenummer må være større enn 0 for geometridata!"},
        {1, "RFLCOORD 4 0 1 0 0 0 0", -2, "Coordinate point number must be greater than 0!",
         "Koordinatpunktnummer må være større enn 0!"},
        {1, "RFLCOORD 0 1 1 0 0 0 0", -2,
         "Reference line number must be greater than 0 for geometry data!",
         "Referanselinjenummer må være større enn 0 for geometridata!"},
        {1, "RFLCOORD 8 1 1 0 0 0 0", -2, "Reference line number 8 is not defined!",
         "Referanselinje nummer 8 er ikke definert!"},
        {1, "RFLCOORD 4 2 3 0 0 0 0", -2,
         "Not valid coordinate type (must be 1=start point or 2=following point)!",
         "Ugyldig koordinattype (må være 1=startpunkt eller 2=etterfølgende punkt)!"},
        {2, "RFLCOORD 4 1 1 5 5 0 0", -1, "Replacing existing coordinate point number! 1",
         "Erstatter eksisterende koordinatpunktnummer! 1"},
        {1, "RFLCOLUM 5 1 0 50", -2,
         "Reference line number must be greater than 0 for geometry data!",
         "Referanselinjenummer må være større enn 0 for geometridata!"},
        {1, "RFLCOLUM 5 1 5 50", -2, "A column can not stand on its own reference line!",
         "En søyle kan ikke stå på sin egen referanselinje!"},
        {1, "RFLCOLUM 5 1 9 50", -2, "Reference line number 9 is not defined!",
         "Referanselinje nummer 9 er ikke definert!"},
        {1, "RFLCOLUM 5 1 6 1", -2, "A column can not stand on another column!",
         "En søyle kan ikke stå på en annen søyle!"},
        {1, "RFLCOLUM 5 7 1 50", -2, "Type =  7 is not a valid column type (must be 1 to 4)!",
         "Type =  7 er ikke en gyldig søyletype (må være 1 til 4)!"},
        {1, "RFLCOLUM 5 1 1 50 2 90", -2, "Column angle must be between -90 and 90 degrees!",
         "Søylens vinkel må være mellom -90 og 90 grader!"},
        {1, "RFLCOLUM 5 2 1 9", -2, "Axis number 9 is not defined!",
         "Akse nummer 9 er ikke definert!"},
        {1, "RFLCOLUM 5 1 1 150", -2, "Column station is outside the parent reference line!",
         "Søylens profilnummer ligger utenfor referanselinjen den står på!"},
        {1, "RFLCOLUM 5 3 1 50 0 0 5 10", -2, "Column top must be above column bottom!",
         "Søyletoppen må ligge over søylefoten!"},
        {1, "RFLPROF -1 10", -2, "Reference line number must be greater than 0 for geometry data!",
         "Referanselinjenummer må være større enn 0 for geometridata!"},
    };
    for (const int language : {2, 1}) {
        for (const Case& c : cases) {
            Alignment a(language);
            a.Lines("REFLINE 1 1 \"Road\"\n"
                    "RFLHORI 1 1 1 0 0 0 100 100 0\n"
                    "RFLAXIS 1 1 50 \"Pier\"\n"
                    "REFLINE 4 1 \"Polygon\"\n"
                    "RFLCOORD 4 1 1 0 0 0 0\n"
                    "RFLCOLUM 6 1 1 50 0 0 0 0\n");
            ASSERT_EQ(a.log, "");
            a.s.SetWarnLevel(c.level);
            const std::size_t lines = a.s.GetRefLineList()->GetCount();
            const CRefLine before = a.Rfl(1);
            const std::string words = language == 2 ? c.english : c.norwegian;
            const std::string header =
                c.result == -2 ? "\r\n*** Error ***\r\n" : "\r\n*** Warning ***\r\n";

            EXPECT_EQ(a.Line(c.line), c.result) << c.line;
            EXPECT_NE(a.log.find(std::string(c.line) + header + words + "\r\n"), std::string::npos)
                << c.line << "\n"
                << a.log;
            EXPECT_EQ(a.cmd().GetErrCount() + a.cmd().GetWarnCount(), 1) << c.line;
            if (c.result == -2) {
                EXPECT_EQ(a.s.GetRefLineList()->GetCount(), lines) << c.line;
                const CRefLine& after = a.Rfl(1);
                EXPECT_EQ(after.GetName(), before.GetName());
                EXPECT_EQ(after.GetHorSegmentList().GetCount(),
                          before.GetHorSegmentList().GetCount());
                EXPECT_EQ(after.GetVerSegmentList().GetCount(), 0u);
                EXPECT_EQ(after.GetAxisList().GetCount(), 1u);
                EXPECT_EQ(after.GetAxisPtr(1)->GetStationNo(), 50.0);
                EXPECT_EQ(a.Rfl(4).GetCoordList().GetCount(), 1u);
                EXPECT_EQ(a.Rfl(6).GetRefLineFromColumn(), 1);
            }
        }
    }
}

TEST(AlignmentChecks, WarningsOnlyFromLevelTwoAndNoChecksAtLevelZero) {
    Alignment a;
    a.Lines("REFLINE 1\nRFLAXIS 1 1 10\nRFLAXIS 1 1 20\n");
    EXPECT_EQ(a.log, ""); // level 1: replacing is no fault
    EXPECT_DOUBLE_EQ(a.Rfl(1).GetAxisPtr(1)->GetStationNo(), 20.0);

    // Level 0 takes what it gets, and the end of the file copes with it.
    a.s.SetWarnLevel(0);
    EXPECT_EQ(a.Line("RFLHORI 1 1 7 0 0 0 0 0 0"), 0);
    EXPECT_EQ(a.Line("RFLCOLUM 2 9 2 50 0 90 0 0"), 0);
    EXPECT_EQ(a.Line("RFLCOLUM 3 1 77 50"), 0);
    EXPECT_EQ(a.log, "");
    a.EndOfFile();
    EXPECT_TRUE(a.Rfl(2).GetCoordList().IsEmpty());
    EXPECT_TRUE(a.Rfl(3).GetCoordList().IsEmpty());
    // Even without checks a negative number names no line, and a missing line takes no axis.
    EXPECT_EQ(a.Line("RFLVERT -4 1 1 0 0 10 1"), -2);
    EXPECT_EQ(a.Line("RFLAXIS 12 1 10"), -2);
    EXPECT_EQ(a.s.GetRefLinePtr(-4), nullptr);
    EXPECT_EQ(a.s.GetRefLinePtr(12), nullptr);
    EXPECT_EQ(a.cmd().GetErrCount(), 2);
}
