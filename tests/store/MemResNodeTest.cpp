#include "store/MemResNode.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <utility>
#include <vector>

using namespace kelo;

namespace {

std::unique_ptr<CMemResNode> Inner(int id, double data = 0.0) {
    return std::make_unique<CMemResNode>(RES_ITEM_MEMRESNODE, id, data, 0);
}

std::vector<int> Ids(const CMemResNode& node) {
    std::vector<int> ids;
    for (int i = 0; i < node.GetSize(); ++i) ids.push_back(node.GetChild(i)->GetID());
    return ids;
}

} // namespace

TEST(MemResNode, SortModesPlaceChildrenAsTheRulesSay) {
    CMemResNode byId(RES_ITEM_MEMRESNODE, 0, 0.0, 0);
    EXPECT_EQ(byId.AddChild(Inner(5), 1), 0);
    EXPECT_EQ(byId.AddChild(Inner(2), 1), 0);
    EXPECT_EQ(byId.AddChild(Inner(9), 1), 2);
    // An equal ID goes after those already there.
    EXPECT_EQ(byId.AddChild(Inner(5, 1.0), 1), 2);
    EXPECT_EQ(Ids(byId), (std::vector<int>{2, 5, 5, 9}));
    EXPECT_EQ(byId.GetChild(1)->GetData(), 0.0);
    EXPECT_EQ(byId.GetChild(2)->GetData(), 1.0);
    // Append ignores the order.
    EXPECT_EQ(byId.AddChild(Inner(1), 0), 4);
    EXPECT_EQ(Ids(byId), (std::vector<int>{2, 5, 5, 9, 1}));
    // Insertion before the first greater ID, which is now 5 at index 1.
    EXPECT_EQ(byId.AddChild(Inner(3), 1), 1);

    CMemResNode byData(RES_ITEM_MEMRESNODE, 0, 0.0, 0);
    EXPECT_EQ(byData.AddChild(Inner(1, 0.5), 2), 0);
    EXPECT_EQ(byData.AddChild(Inner(2, 0.2), 2), 0);
    EXPECT_EQ(byData.AddChild(Inner(3, 0.9), 2), 2);
    // 0.500008 does not exceed 0.5 by more than 1e-5: it goes after it, before 0.9.
    EXPECT_EQ(byData.AddChild(Inner(4, 0.500008), 2), 2);
    // 0.499992 lies within the tolerance of 0.5 and goes after it, but 0.500008 exceeds it by
    // more than the tolerance.
    EXPECT_EQ(byData.AddChild(Inner(5, 0.499992), 2), 2);
    EXPECT_EQ(Ids(byData), (std::vector<int>{2, 1, 5, 4, 3}));

    EXPECT_EQ(byData.AddChild(Inner(6), 3), -1);
    EXPECT_EQ(byData.AddChild(Inner(6), -1), -1);
    EXPECT_EQ(byData.AddChild(nullptr, 0), -1);
    EXPECT_EQ(byData.GetSize(), 5);

    // A leaf holds payloads, not children.
    CMemResNode leaf(RES_ITEM_SECT_FORCE, 0, 0.25, 1);
    EXPECT_EQ(leaf.AddChild(Inner(1), 0), -1);
    EXPECT_EQ(leaf.GetSize(), 1);
    EXPECT_EQ(leaf.GetChildByID(0), nullptr);
}

TEST(MemResNode, LookupsFindTheFirstMatchWithinTolerance) {
    CMemResNode node(RES_ITEM_MEMRESNODE, 0, 0.0, 0);
    node.AddChild(Inner(0, 0.25), 1);
    node.AddChild(Inner(0, 0.0), 1);
    node.AddChild(Inner(0, 1.0), 1);
    node.AddChild(Inner(7, 0.0), 1);
    node.AddChild(Inner(7, 0.5), 1);

    EXPECT_EQ(node.GetChildByID(0), node.GetChild(0));
    EXPECT_EQ(node.GetChildByID(7), node.GetChild(3));
    EXPECT_EQ(node.GetChildByID(3), nullptr);
    // 0.0 is met first in the child with ID 0 at index 1, before the one with ID 7.
    EXPECT_EQ(node.GetChildByData(0.0), node.GetChild(1));
    EXPECT_EQ(node.GetChildByData(0.25 + 0.9e-5), node.GetChild(0));
    EXPECT_EQ(node.GetChildByData(0.25 - 0.9e-5), node.GetChild(0));
    EXPECT_EQ(node.GetChildByData(0.25 + 1.1e-5), nullptr);
    EXPECT_EQ(node.GetChildByData(0.5), node.GetChild(4));
    EXPECT_EQ(node.GetChildByData(0.75), nullptr);

    // A lookup right after an insertion in front of the last hit still finds the first of the
    // equal IDs, not the one now standing where the last hit was.
    CMemResNode runs(RES_ITEM_MEMRESNODE, 0, 0.0, 0);
    for (const int id : {1, 2, 2, 3}) runs.AddChild(Inner(id, id * 10.0), 1);
    EXPECT_EQ(runs.GetChildByID(2), runs.GetChild(1));
    runs.AddChild(Inner(1, 11.0), 1);
    EXPECT_EQ(runs.GetChildByID(1)->GetData(), 10.0);
    EXPECT_EQ(runs.GetChildByID(2), runs.GetChild(2));
}

// Long child lists out of order: every lookup must still answer what a scan from the start
// answers, and every insertion must land where the rule of its sort mode puts it.
TEST(MemResNode, LongMixedListsAgreeWithAPlainScan) {
    std::mt19937 random(12345);
    std::uniform_int_distribution<int> idOf(0, 40);
    std::uniform_int_distribution<int> stepOf(0, 30);
    std::uniform_int_distribution<int> jitterOf(-8, 8);
    std::uniform_int_distribution<int> modeOf(0, 9);
    const auto dataOf = [&] { return stepOf(random) * 0.125 + jitterOf(random) * 1e-6; };

    // Round 0 keeps ID order throughout, round 1 Data order, round 2 mixes all sort modes. The
    // lists grow past the length at which the child array splits into blocks.
    for (int round = 0; round < 3; ++round) {
        CMemResNode node(RES_ITEM_MEMRESNODE, 0, 0.0, 0);
        std::vector<std::pair<int, double>> model;
        for (int n = 0; n < 1500; ++n) {
            const int id = idOf(random);
            const double data = dataOf();
            const int pick = modeOf(random);
            const int mode = round < 2 ? round + 1 : (pick < 2 ? 0 : (pick < 5 ? 2 : 1));
            auto at = model.end();
            for (auto it = model.begin(); mode != 0 && it != model.end(); ++it)
                if ((mode == 1 && it->first > id) || (mode == 2 && it->second - data > 1e-5)) {
                    at = it;
                    break;
                }
            ASSERT_EQ(node.AddChild(Inner(id, data), mode), at - model.begin());
            model.insert(at, {id, data});

            if (n % 37 != 0 && n != 1499) continue;
            for (int probe = 0; probe <= 41; ++probe) {
                int expected = -1;
                for (std::size_t i = 0; i < model.size() && expected < 0; ++i)
                    if (model[i].first == probe) expected = static_cast<int>(i);
                ASSERT_EQ(node.GetChildByID(probe),
                          expected < 0 ? nullptr : node.GetChild(expected))
                    << "round " << round << " id " << probe;
            }
            for (int probe = 0; probe < 20; ++probe) {
                const double d = dataOf();
                int expected = -1;
                for (std::size_t i = 0; i < model.size() && expected < 0; ++i)
                    if (std::fabs(model[i].second - d) < 1e-5) expected = static_cast<int>(i);
                ASSERT_EQ(node.GetChildByData(d), expected < 0 ? nullptr : node.GetChild(expected))
                    << "round " << round << " data " << d;
            }
        }
        for (std::size_t i = 0; i < model.size(); ++i) {
            EXPECT_EQ(node.GetChild(static_cast<int>(i))->GetID(), model[i].first);
            EXPECT_EQ(node.GetChild(static_cast<int>(i))->GetData(), model[i].second);
        }
    }
}

TEST(MemResNode, ClearFreesChildrenButALeafKeepsItsSlots) {
    CMemResNode node(RES_ITEM_MEMRESNODE, 0, 0.0, 0);
    auto leaf = std::make_unique<CMemResNode>(RES_ITEM_SECT_FORCE, 0, 0.5, 2);
    CMemResNode* leafPtr = leaf.get();
    node.AddChild(std::move(leaf), 1);
    *leafPtr->GetEntry(0) = 3.5;
    *leafPtr->GetEntry(1) = std::string("x");
    EXPECT_TRUE(leafPtr->HasEntry(0));
    EXPECT_TRUE(leafPtr->HasEntry(1));
    EXPECT_EQ(leafPtr->GetEntry(2), nullptr);
    EXPECT_EQ(node.GetEntry(0), nullptr);

    leafPtr->Clear();
    EXPECT_EQ(leafPtr->GetSize(), 2);
    EXPECT_FALSE(leafPtr->HasEntry(0));
    EXPECT_FALSE(leafPtr->HasEntry(1));

    node.Clear();
    EXPECT_EQ(node.GetSize(), 0);
    EXPECT_EQ(node.GetChildByData(0.5), nullptr);
    // A cleared node orders its children anew.
    node.AddChild(Inner(4), 0);
    node.AddChild(Inner(2), 1);
    EXPECT_EQ(Ids(node), (std::vector<int>{2, 4}));
}
