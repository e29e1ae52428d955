#include "report/FrameResOrder.h"

#include "model/Displace.h"
#include "model/Structure.h"
#include "store/MemResBase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace kelo;

namespace {

std::string Joined(const std::vector<std::string>& pieces) {
    std::string all;
    for (const std::string& p : pieces) all += p;
    return all;
}

struct Results {
    CStructure s{2};
    Results() {
        for (int no = 1; no <= 3; ++no) s.AddNode(std::make_unique<CNode>(no, 5.0 * no, 0, 0));
        s.AddLoadcase(std::make_unique<CLoadcase>(1, "Dead"));
        s.AddLoadcase(std::make_unique<CLoadcase>(2, "Live"));
        CMemResBase& r = *s.GetResBasePtr();
        const CDisplace d11(1, 1, 1, 0.001, 0.0, -0.0025, 0.0, 0.0001, 0.0);
        const CDisplace d31(3, 1, 1, 0.0, 0.0, -0.004, 0.0, 0.0, 0.0);
        const CDisplace d32(3, 2, 11, 0.0, 0.0005, 0.0, 0.0, 0.0, -0.00002);
        r.SetDisplace(1, 1, 1, &d11);
        r.SetDisplace(1, 1, 3, &d31);
        r.SetDisplace(11, 2, 3, &d32);
        const double r1[6] = {0.0, 0.0, 150.0, 0.0, 0.0, 0.0};
        const double r3[6] = {0.0, 0.0, 90.0, 0.0, 0.0, 0.0};
        const double r32[6] = {0.0, 0.0, 210.0, 0.0, 0.0, 0.0};
        r.SetReaction(1, 1, 1, r1);
        r.SetReaction(1, 1, 3, r3);
        r.SetReaction(1, 2, 3, r32);
    }
};

} // namespace

TEST(FrameResOrder, DisplacementsByNodeWithABlankLineAtEachNewNode) {
    Results f;
    CFrameResOrder order;
    order.Item = 0;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    std::vector<std::string> out;
    ASSERT_EQ(order.MakeListingFromResOrder(&f.s, out), 1);
    EXPECT_EQ(Joined(out),
              " Node   Lc       Ux        Uy        Uz             Rotx       Roty       Rotz\r\n"
              "                [mm]      [mm]      [mm]          [rad]          [rad]          "
              "[rad]\r\n"
              "    1    1     1.000     0.000    -2.500     0.00000000     0.00010000     "
              "0.00000000\r\n"
              "\r\n"
              "    3    1     0.000     0.000    -4.000     0.00000000     0.00000000     "
              "0.00000000\r\n"
              "    3    2     0.000     0.500     0.000     0.00000000     0.00000000    "
              "-0.00002000\r\n");

    // Only node 3 and load case 2, where a given result (code 11) stands.
    order.Empty();
    order.AddItemInterval(3, 3);
    order.AddLoadInterval(2, 2);
    out.clear();
    order.MakeListingFromResOrder(&f.s, out);
    EXPECT_EQ(Joined(out).substr(Joined(out).find("\r\n    3")),
              "\r\n    3    2     0.000     0.500     0.000     0.00000000     0.00000000    "
              "-0.00002000\r\n");
}

TEST(FrameResOrder, ReactionsSortedByAComponentAndRefusedFamilies) {
    Results f;
    CFrameResOrder order;
    order.Item = 2;
    order.Sort = -1;
    order.SortComp = 2;
    order.AddItemInterval(-1, 0);
    order.AddLoadInterval(-1, 0);
    std::vector<std::string> out;
    ASSERT_EQ(order.MakeListingFromResOrder(&f.s, out), 1);
    // Largest PZ first, with no blank lines.
    EXPECT_EQ(Joined(out),
              " Node   Lc          PX          PY          PZ          MX          MY          MZ"
              "\r\n"
              "                  [kN]        [kN]        [kN]       [kNm]       [kNm]       [kNm]"
              "\r\n"
              "    3    2        0.00        0.00      210.00        0.00        0.00        0.00"
              "\r\n"
              "    1    1        0.00        0.00      150.00        0.00        0.00        0.00"
              "\r\n"
              "    3    1        0.00        0.00       90.00        0.00        0.00        0.00"
              "\r\n");

    order.Load = 5;
    out.clear();
    EXPECT_EQ(order.MakeListingFromResOrder(&f.s, out), 0);
    EXPECT_TRUE(out.empty());
    // An empty project prints the headers only.
    CStructure empty(2);
    order.Load = 0;
    out.clear();
    EXPECT_EQ(order.MakeListingFromResOrder(&empty, out), 1);
    const std::string heads = Joined(out);
    EXPECT_EQ(std::count(heads.begin(), heads.end(), '\n'), 2) << heads;
}
