#include "geometry/StationList.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using namespace kelo;

namespace {

struct AtStation {
    AtStation(double st, int tag) : Station(st), Tag(tag) {}
    double GetStationNo() const { return Station; }
    double Station;
    int Tag;
};

std::vector<double> Stations(const CStationList<AtStation>& list) {
    std::vector<double> out;
    for (const AtStation* a : list) out.push_back(a->GetStationNo());
    return out;
}

} // namespace

TEST(StationList, KeepsStationOrderAndReplacesAtAnEqualStation) {
    CStationList<AtStation> list;
    for (double st : {40.0, 10.0, 25.0, 0.0, 100.0}) list.Add(std::make_unique<AtStation>(st, 1));
    EXPECT_EQ(Stations(list), (std::vector<double>{0.0, 10.0, 25.0, 40.0, 100.0}));

    AtStation* replaced = list.Add(std::make_unique<AtStation>(25.0, 2));
    EXPECT_EQ(list.GetCount(), 5u);
    EXPECT_EQ(list.At(2), replaced);
    EXPECT_EQ(replaced->Tag, 2);

    // A deep copy holds its own objects in the same order.
    CStationList<AtStation> copy = list;
    EXPECT_EQ(Stations(copy), Stations(list));
    EXPECT_NE(copy.At(0), list.At(0));
}

TEST(StationList, FindsNearAStationAndTheLastAtOrBeforeIt) {
    CStationList<AtStation> list;
    for (int i = 0; i < 1000; ++i) list.Add(std::make_unique<AtStation>(5.0 * i, i));

    // Within the tolerance on either side; exactly at the tolerance is outside.
    EXPECT_EQ(list.FindNear(2500.0 + 0.9e-5, 1e-5)->Tag, 500);
    EXPECT_EQ(list.FindNear(2500.0 - 0.9e-5, 1e-5)->Tag, 500);
    EXPECT_EQ(list.FindNear(2500.0 + 2e-5, 1e-5), nullptr);
    EXPECT_EQ(list.FindNear(2502.5, 1e-5), nullptr);
    EXPECT_EQ(list.FindNear(-1.0, 1e-5), nullptr);
    EXPECT_EQ(list.FindNear(9999.0, 1e-5), nullptr);

    // The section that governs a station is the last one at or before it.
    EXPECT_EQ(list.LastAtOrBefore(2500.0)->Tag, 500);
    EXPECT_EQ(list.LastAtOrBefore(2504.99)->Tag, 500);
    EXPECT_EQ(list.LastAtOrBefore(-0.1), nullptr);
    EXPECT_EQ(list.LastAtOrBefore(1e9)->Tag, 999);
    EXPECT_EQ(list.FirstAbove(4995.0), 1000u);
}
