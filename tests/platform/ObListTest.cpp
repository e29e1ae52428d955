#include "platform/ObList.h"

#include <gtest/gtest.h>

#include <string>

using namespace kelo;

namespace {
struct Item {
    int no;
    std::string name;
    double x = 0.0;
    int KeyNo() const { return no; }
};
std::vector<int> Numbers(const CObList<Item>& list) {
    std::vector<int> out;
    for (Item* it : list) out.push_back(it->no);
    return out;
}
} // namespace

TEST(ObList, KeepsNumberOrderAndReplacesInPlace) {
    CObList<Item> list;
    list.Emplace(Item{5, "five"});
    list.Emplace(Item{2, "two"});
    list.Emplace(Item{9, "nine"});
    list.Emplace(Item{2, "TWO"});
    EXPECT_EQ(Numbers(list), (std::vector<int>{2, 5, 9}));
    EXPECT_EQ(list.Get(2)->name, "TWO");
    EXPECT_EQ(list.GetPos(2), 0);
    EXPECT_EQ(list.GetCount(), 3u);
    EXPECT_EQ(list.Get(3), nullptr);
    EXPECT_EQ(list.Delete(5), 1);
    EXPECT_EQ(list.Delete(5), 0);
    EXPECT_EQ(Numbers(list), (std::vector<int>{2, 9}));
}

TEST(ObList, FirstFreeNumberIgnoresZero) {
    CObList<Item> list;
    EXPECT_EQ(list.GetFirstFreeNo(), 1);
    for (int n : {0, 1, 2, 4}) list.Emplace(Item{n, ""});
    EXPECT_EQ(list.GetFirstFreeNo(), 3);
}

TEST(ObList, LookupSurvivesCustomOrderAndAddInsertsBeforeHigherNumber) {
    CObList<Item> list;
    for (int n = 1; n <= 5; ++n) list.Emplace(Item{n, "", static_cast<double>(10 - n)});
    list.SortBy([](const Item& a, const Item& b) { return a.x < b.x; });
    EXPECT_EQ(Numbers(list), (std::vector<int>{5, 4, 3, 2, 1}));
    EXPECT_EQ(list.Get(3)->x, 7.0);
    list.Emplace(Item{6, "six"});
    EXPECT_EQ(Numbers(list), (std::vector<int>{5, 4, 3, 2, 1, 6}));
    list.Emplace(Item{4, "new four"});
    EXPECT_EQ(Numbers(list), (std::vector<int>{5, 4, 3, 2, 1, 6}));
    EXPECT_EQ(list.At(1)->name, "new four");
    list.SortByNumber();
    EXPECT_EQ(Numbers(list), (std::vector<int>{1, 2, 3, 4, 5, 6}));
}

TEST(ObList, DeepCopyOwnsItsObjects) {
    CObList<Item> a;
    a.Emplace(Item{3, "a"});
    a.Emplace(Item{1, "b"});
    CObList<Item> b(a);
    b.Get(3)->name = "changed";
    EXPECT_EQ(a.Get(3)->name, "a");
    EXPECT_EQ(Numbers(b), (std::vector<int>{1, 3}));
    auto released = b.Release(1);
    ASSERT_TRUE(released);
    EXPECT_EQ(released->name, "b");
    EXPECT_EQ(b.GetCount(), 1u);
}

TEST(ObList, ManyOutOfOrderAddsEndSorted) {
    CObList<Item> list;
    const int n = 20000;
    for (int i = 0; i < n; ++i) list.Emplace(Item{(i * 7919) % n, ""});
    ASSERT_EQ(list.GetCount(), static_cast<std::size_t>(n));
    int prev = -1;
    for (Item* it : list) {
        EXPECT_LT(prev, it->no);
        prev = it->no;
    }
}

TEST(ObList, DeleteIfRemovesInOnePassAndKeepsTheOthersInPlace) {
    CObList<Item> list;
    for (int no : {4, 1, 3, 2, 6, 5}) list.Emplace(Item{no, ""});
    Item* kept = list.Get(3);
    EXPECT_EQ(list.DeleteIf([](const Item& it) { return it.no % 2 == 0; }), 3);
    EXPECT_EQ(Numbers(list), (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(list.Get(3), kept);
    EXPECT_EQ(list.Get(4), nullptr);
    EXPECT_EQ(list.GetFirstFreeNo(), 2);
    list.Emplace(Item{4, "again"});
    EXPECT_EQ(Numbers(list), (std::vector<int>{1, 3, 4, 5}));
}
