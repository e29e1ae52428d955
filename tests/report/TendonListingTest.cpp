#include "report/ListServer.h"

#include "geometry/Tendon.h"
#include "model/Structure.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace kelo;

namespace {

// A beam of two elements of 5 m with a rectangular section 1000 mm wide and 2000 mm deep
// (A = 2 m2, IL = 1 x 2^3 / 12 = 0.6667 m4, faces 1 m above and below the centre) and design
// sections at 0, 0.5 and 1. Two straight tendons of 1000 mm2 without losses, of steel with
// fsk 1600 MPa and E 200000 MPa: tendon 1 one cable of 1000 kN (62.5 %) 0.2 m below the axis,
// tendon 2 two cables of 500 kN (31.25 %) 0.4 m above it.
std::unique_ptr<CStructure> TendonModel(const std::string& more = "") {
    auto s = std::make_unique<CStructure>(2);
    s->CreateDefaultContents(2, 0);
    std::string text = "NODE 1 3 1 0 0 0 5 0 0\n"
                       "ELEM 1 2 1 1 2 1\n"
                       "XSECT 0 1 MRECT 30000 0.2 \"Rect\"\n"
                       "DIM 0 1 1000 2000\n"
                       "ELSPINS 1 2 1 1 3 ZDIR\n"
                       "DESGINS 1 2 1 0 0.5 1\n"
                       "MPREST 2 1600 200000 35 1 1 1800\n"
                       "TENDON 1 POST 2 1 1000 60 0 0 \"Lower\"\n"
                       "TENGEON 1 4 1 2 1 -200 -200\n"
                       "TENSTRESS 1 62.5 62.5\n"
                       "TENDON 2 POST 2 1 1000 60 0 0 \"Upper\"\n"
                       "TENGROUP 2 2\n"
                       "TENGEON 2 4 1 2 1 400 400\n"
                       "TENSTRESS 2 31.25 31.25\n" +
                       more;
    std::string log;
    s->CommandConvert(&text, &log, 0);
    EXPECT_EQ(log, "");
    // What a command file does at its end: sections resolved, pointers set.
    s->ReCalcAllKeySections(0);
    s->ReCalcAllModelDependencies();
    s->UpdatePointers();
    return s;
}

std::string Listing(CListServer& server, int code) {
    std::string out;
    EXPECT_EQ(server.MakeListing(code, out), 1) << code;
    return out;
}

bool Has(const std::string& text, const std::string& line) {
    return text.find(line) != std::string::npos;
}

} // namespace

// The sum at a design section: 1000 + 2 x 500 = 2000 kN at the resultant eN = (1000 x -0.2 +
// 1000 x 0.4) / 2000 = 0.1 m, P eN = 200 kNm. Stresses from it: -P/A = -1000 kN/m2, and
// P eN y / IL = 200 x 1 / 0.6667 = 300 kN/m2 at the faces: -1.300 MPa upper, -0.700 MPa lower.
TEST(TendonListing, SumsResultantsAndFaceStressesAtTheDesignSections) {
    auto s = TendonModel();
    CListServer server(s.get());

    const std::string perTendon = Listing(server, 1107);
    EXPECT_TRUE(Has(perTendon, "     1   0.500      1    1      1000.0     0.000    -0.200         "
                               "0.0      -200.0\r\n"))
        << perTendon;
    EXPECT_TRUE(Has(perTendon, "     2   1.000      2    2      1000.0     0.000     0.400         "
                               "0.0       400.0\r\n"))
        << perTendon;
    // Two tendons (each 1000 kN as a bundle) at each of three design sections of two elements,
    // and no sums.
    int lines = 0;
    for (std::size_t at = perTendon.find("      1000.0 "); at != std::string::npos;
         at = perTendon.find("      1000.0 ", at + 1))
        ++lines;
    EXPECT_EQ(lines, 12);
    EXPECT_FALSE(Has(perTendon, "Sum"));

    const std::string sums = Listing(server, 1113);
    EXPECT_TRUE(Has(sums, "     1   0.000    Sum    3      2000.0     0.000     0.100         0.0"
                          "       200.0\r\n"))
        << sums;
    EXPECT_FALSE(Has(sums, "     1   0.000      1 "));
    // The detailed form has both: each tendon, then the sum.
    const std::string both = Listing(server, 1114);
    const std::size_t t1 = both.find("     2   0.500      1    1 ");
    const std::size_t t2 = both.find("     2   0.500      2    2 ");
    const std::size_t sum = both.find("     2   0.500    Sum    3 ");
    ASSERT_NE(sum, std::string::npos) << both;
    EXPECT_LT(t1, t2);
    EXPECT_LT(t2, sum);
    // The strain of a cable: 1000 kN / (1000 mm2 x 200000 MPa) = 5 o/oo, 500 kN: 2.5 o/oo.
    const std::string detail = Listing(server, 1112);
    EXPECT_TRUE(Has(detail, "     1   0.000      1    1      1000.0     0.000    -0.200    5.0000"))
        << detail;
    EXPECT_TRUE(Has(detail, "     1   0.000      2    2      1000.0     0.000     0.400    2.5000"))
        << detail;

    const std::string stresses = Listing(server, 1108);
    EXPECT_TRUE(Has(stresses, "     1   0.500      2000.0     0.100     2.0000    0.66667     "
                              "-1.300       -0.700\r\n"))
        << stresses;

    // Only element 2 of the interval 2 to 2.
    server.SetInterval(2, 2, 1);
    const std::string two = Listing(server, 1113);
    EXPECT_FALSE(Has(two, "     1   0.000    Sum"));
    EXPECT_TRUE(Has(two, "     2   0.000    Sum"));
}

// With tendon 2 alone jacked (1000 kN at +0.4 m): -1000/2 + 1000 x 0.4 x 1 / 0.6667 = +100 kN/m2
// at the lower face, tension, marked; -1100 kN/m2 at the upper face.
TEST(TendonListing, TensionAtAFaceIsMarked) {
    auto s = TendonModel("TENSTRESS 1 0 0\n");
    CListServer server(s.get());
    const std::string stresses = Listing(server, 1108);
    EXPECT_TRUE(Has(stresses, "     1   0.500      1000.0     0.400     2.0000    0.66667     "
                              "-1.100        0.100  *\r\n"))
        << stresses;
}

// Without friction the force is the jacking force all along: the elongation of the jack at end 1
// is P L / (A E) = 1000 kN x 10 m / (1000 mm2 x 200000 MPa) = 50 mm for tendon 1, 25 mm for
// each cable of tendon 2; with both ends jacked equally end 2 adds nothing (stressing code 1).
// Amounts: 1000 mm2 x 10 m = 0.01 m3, 78.5 kg of steel at 7850 kg/m3; tendon 2 twice that.
TEST(TendonListing, SummaryElongationsStressingRecordAndAmounts) {
    auto s = TendonModel();
    CListServer server(s.get());

    const std::string summary = Listing(server, 1101);
    EXPECT_TRUE(Has(summary, "    1 POST    0 Elements    0   1    2    1    1000.0    60.0     0.0"
                             "    62.50    62.50    1    10.000  Lower\r\n"))
        << summary;
    EXPECT_TRUE(Has(summary, "    2     2       0.0       0.0       0       0.0       0.0\r\n"));
    server.SetInterval(2, 2, 1);
    const std::string second = Listing(server, 1101);
    EXPECT_FALSE(Has(second, "Lower"));
    EXPECT_TRUE(Has(second, "Upper"));
    server.SetInterval(-1, -1, 1);

    const std::string elongation = Listing(server, 1110);
    EXPECT_TRUE(Has(elongation, "    1    1    62.50    62.50     1000.0     1000.0       50.0"
                                "        0.0    10.000    0.0000\r\n"))
        << elongation;
    EXPECT_TRUE(Has(elongation, "    2    1    31.25    31.25     1000.0     1000.0       25.0"
                                "        0.0    10.000    0.0000\r\n"))
        << elongation;

    const std::string record = Listing(server, 1106);
    EXPECT_TRUE(Has(record, "     1    1     1    62.50     1000.0     1000.0       50.0      "
                            "0.000     1000.0\r\n"))
        << record;
    EXPECT_TRUE(Has(record, "     2    2     2    31.25      500.0     1000.0        0.0      "
                            "0.000     1000.0\r\n"))
        << record;

    const std::string amount = Listing(server, 1104);
    EXPECT_TRUE(Has(amount, "    1     1    1000.0     1000.0    10.000     0.0100        78.5"))
        << amount;
    EXPECT_TRUE(Has(amount, "    2     2    1000.0     2000.0    10.000     0.0200       157.0"))
        << amount;
    EXPECT_TRUE(Has(amount, "Sum       3                         30.000     0.0300       235.5"))
        << amount;

    // The path point by point: 11 points on each of the two elements of each tendon.
    const std::string path = Listing(server, 1111);
    EXPECT_TRUE(Has(path, "     2  1.000     1000.0     0.000    -0.200      10.000       0.000"
                          "    -0.200\r\n"))
        << path;
}

// The pieces as given, and how they lie on the elements.
TEST(TendonListing, PiecesAndTheirPlaceOnTheElements) {
    auto s = TendonModel("TENDON 1 POST 2 1 1000\n"
                         "TENGEON 1 6 1 1 1 0 -300 -0.12\n"
                         "TENGEON 1 7 2 2 1 -300 0 0.12\n"
                         "TENGEOL 1 4 1 2 1 150 150\n"
                         "TENSTRESS 1 62.5 62.5\n");
    CListServer server(s.get());
    const std::string geometry = Listing(server, 1103);
    EXPECT_TRUE(Has(geometry, "   N    1     6      1.000      1.000     1     0.000    -0.300"
                              "   -0.1200    0.000     5.000\r\n"))
        << geometry;
    EXPECT_TRUE(Has(geometry, "   L    1     4      1.000      2.000     1     0.150     0.150"
                              "    0.0000    0.000    10.000\r\n"))
        << geometry;

    const std::string detail = Listing(server, 1105);
    // Element 2: the second N piece over the whole element, the L piece over its second half.
    EXPECT_TRUE(Has(detail, "     2    N    A      2    0.0000    1.0000    0.0000    1.0000\r\n"))
        << detail;
    EXPECT_TRUE(Has(detail, "     2    L    A      1    0.5000    1.0000    0.0000    1.0000\r\n"))
        << detail;
}

// A tendon whose path can't be laid out is named with the reason, and the others are listed.
TEST(TendonListing, ATendonThatCannotBeWorkedOutIsReported) {
    auto s = TendonModel("TENDON 3 POST 2 1 0\n"
                         "TENGEON 3 4 1 2 1 0 0\n");
    CListServer server(s.get());
    for (const int code : {1101, 1102, 1107, 1110}) {
        const std::string text = Listing(server, code);
        EXPECT_TRUE(Has(text, "Tendon 3: the geometry or the losses could not be worked out."))
            << code << "\n"
            << text;
        EXPECT_TRUE(Has(text, "Tendon area is zero!")) << code;
    }
    EXPECT_TRUE(Has(Listing(server, 1101), "Upper"));
}
