// vis_Assoc: the six storage types, widening, chains of extra values, growth and compaction,
// checked against a plain model.
#include "vis_Assoc.h"

#include "vsy_Grow.h"
#include "vsy_TestSupport.h"

#include <map>
#include <vector>

using namespace vsytest;

namespace {

class AssocTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        a = vis_AssocNew();
        ASSERT_NE(a, nullptr);
    }
    void TearDown() override
    {
        vis_AssocDelete(a);
        ContainerTest::TearDown();
    }
    int type()
    {
        int t = 0;
        vis_AssocType(a, &t);
        return t;
    }
    std::vector<int> all(int index)
    {
        int num = -1, values[64];
        vis_AssocAll(a, index, &num, values);
        return std::vector<int>(values, values + num);
    }
    vis_Assoc* a = nullptr;
};

TEST_F(AssocTest, StartsAsConstantZero)
{
    EXPECT_EQ(type(), VIS_ASSOC_CONSTANT);
    EXPECT_EQ(vis_AssocGet(a, 1), 0);
    int num = 0;
    vis_AssocNum(a, 1, &num);
    EXPECT_EQ(num, 1);
}

TEST_F(AssocTest, ConstantStaysConstant)
{
    for (int i = 1; i <= 100; ++i) vis_AssocSet(a, i, 7);
    EXPECT_EQ(type(), VIS_ASSOC_CONSTANT);
    EXPECT_EQ(a->constval, 7);
    EXPECT_EQ(vis_AssocGet(a, 50), 7);
    EXPECT_EQ(vis_AssocGet(a, 101), 0);
    EXPECT_EQ(a->ints, nullptr);
}

TEST_F(AssocTest, IdentityAndItsRangeRule)
{
    for (int i = 1; i <= 10; ++i) vis_AssocSet(a, i, i);
    EXPECT_EQ(type(), VIS_ASSOC_IDENTITY);
    EXPECT_EQ(vis_AssocGet(a, 10), 10);
    // Past maxind an identity gives 0, not the index.
    EXPECT_EQ(vis_AssocGet(a, 11), 0);
    EXPECT_EQ(vis_AssocGet(a, 1000), 0);
}

TEST_F(AssocTest, WidensToTheNarrowestType)
{
    vis_AssocSet(a, 1, 3);
    vis_AssocSet(a, 2, 5);
    EXPECT_EQ(type(), VIS_ASSOC_NIBBLE);
    vis_AssocSet(a, 3, 15);
    EXPECT_EQ(type(), VIS_ASSOC_NIBBLE);
    vis_AssocSet(a, 4, -1);
    EXPECT_EQ(type(), VIS_ASSOC_BYTE);
    vis_AssocSet(a, 5, 1000);
    EXPECT_EQ(type(), VIS_ASSOC_SHORT);
    vis_AssocSet(a, 6, -40000);
    EXPECT_EQ(type(), VIS_ASSOC_INT);
    const int want[7] = {0, 3, 5, 15, -1, 1000, -40000};
    for (int i = 1; i <= 6; ++i) EXPECT_EQ(vis_AssocGet(a, i), want[i]) << i;
    // An array never narrows.
    vis_AssocSet(a, 6, 1);
    EXPECT_EQ(type(), VIS_ASSOC_INT);
    ExpectNoReport();
}

TEST_F(AssocTest, NibblesPackEvenIndicesLow)
{
    vis_AssocDef(a, 10, VIS_ASSOC_NIBBLE);
    vis_AssocSet(a, 2, 9);
    vis_AssocSet(a, 3, 4);
    EXPECT_EQ(a->nibbles[1], 0x49);
    EXPECT_EQ(vis_AssocGet(a, 2), 9);
    EXPECT_EQ(vis_AssocGet(a, 3), 4);
}

TEST_F(AssocTest, ChainsKeepOrderAndSetDropsThem)
{
    vis_AssocSet(a, 1, 1);
    vis_AssocSet(a, 2, 2);
    vis_AssocSet(a, 3, 3);
    vis_AssocAdd(a, 2, 20);
    vis_AssocAdd(a, 2, 200);
    EXPECT_EQ(all(2), (std::vector<int>{2, 20, 200}));
    EXPECT_EQ(all(1), (std::vector<int>{1}));
    int num = 0;
    vis_AssocNum(a, 2, &num);
    EXPECT_EQ(num, 3);
    EXPECT_EQ(vis_AssocGet(a, 2), 2);  // one array read
    vis_AssocSet(a, 2, 5);
    EXPECT_EQ(all(2), (std::vector<int>{5}));
    vis_AssocAdd(a, 3, 30);  // reuses the freed links
    EXPECT_EQ(all(3), (std::vector<int>{3, 30}));
    // Add past maxind sets the first value.
    vis_AssocAdd(a, 9, 4);
    EXPECT_EQ(all(9), (std::vector<int>{4}));
    ExpectNoReport();
}

TEST_F(AssocTest, BadArguments)
{
    vis_AssocSet(a, 0, 1);
    ExpectOnlyReport("vis_AssocSet", 1, "index= 0");
    EXPECT_EQ(vis_AssocError(a), 1);
    EXPECT_EQ(vis_AssocError(a), 0);
    Reports().clear();
    vis_AssocAdd(a, -3, 1);
    ExpectOnlyReport("vis_AssocAdd", 1, "index= -3");
    Reports().clear();
    vis_AssocDef(a, -1, 1);
    ExpectOnlyReport("vis_AssocDef", 1, "nument= -1");
    Reports().clear();
    vis_AssocDef(a, 1, 7);
    ExpectOnlyReport("vis_AssocDef", 2, "type= 7");
    EXPECT_EQ(vis_AssocGet(a, -5), 0);
}

TEST_F(AssocTest, GrowthFollowsTheRuleAndCompactCuts)
{
    vis_AssocDef(a, 0, VIS_ASSOC_INT);
    vis_AssocSet(a, 5, 123456);
    EXPECT_EQ(a->cap, 2000);
    vis_AssocCompact(a);
    EXPECT_EQ(a->cap, 5);
    vis_AssocSet(a, 6, 1);
    EXPECT_EQ(a->cap, 2000);
    EXPECT_EQ(vis_AssocGet(a, 5), 123456);
    EXPECT_EQ(vis_AssocGet(a, 6), 1);
    // Nibbles: cap is twice the granted bytes less one.
    vis_AssocDef(a, 0, VIS_ASSOC_NIBBLE);
    vis_AssocSet(a, 7, 3);
    vis_AssocCompact(a);
    EXPECT_EQ(a->cap, 2 * (7 / 2 + 1) - 1);
    EXPECT_EQ(vis_AssocGet(a, 7), 3);
}

TEST_F(AssocTest, CompactKeepsChainsAndClearsTheTail)
{
    for (int i = 1; i <= 50; ++i) vis_AssocSet(a, i, i % 100 - 50);
    for (int i = 1; i <= 50; i += 7) vis_AssocAdd(a, i, -i);
    vis_AssocCompact(a);
    EXPECT_EQ(a->cap, 50);
    for (int i = 1; i <= 50; ++i) {
        std::vector<int> want{i % 100 - 50};
        if ((i - 1) % 7 == 0) want.push_back(-i);
        ASSERT_EQ(all(i), want) << i;
    }
    vis_AssocSet(a, 60, 1);
    for (int i = 51; i < 60; ++i) EXPECT_EQ(vis_AssocGet(a, i), 0);
    int num = 0;
    vis_AssocNum(a, 55, &num);
    EXPECT_EQ(num, 1);
}

TEST_F(AssocTest, DifferentialAgainstAMap)
{
    Rng rng(5);
    std::map<int, std::vector<int>> model;
    int maxind = 0;
    for (int step = 0; step < 4000; ++step) {
        int idx = 1 + rng.below(300);
        int range = step < 1000 ? 16 : step < 2000 ? 200 : step < 3000 ? 60000 : 1 << 30;
        int v = rng.below(range) - (step < 1000 ? 0 : range / 2);
        if (rng.below(4) == 0 && idx <= maxind) {
            vis_AssocAdd(a, idx, v);
            model[idx].push_back(v);
        } else {
            vis_AssocSet(a, idx, v);
            model[idx] = {v};
            if (idx > maxind) maxind = idx;
        }
        if (step % 500 == 0) vis_AssocCompact(a);
    }
    ExpectNoReport();
    for (int i = 1; i <= 310; ++i) {
        std::vector<int> want = model.count(i) ? model[i] : std::vector<int>{0};
        ASSERT_EQ(all(i), want) << i;
    }
}

TEST_F(AssocTest, AllocationFailureReportsAndKeepsValues)
{
    vis_AssocDef(a, 0, VIS_ASSOC_SHORT);
    vis_AssocSet(a, 3, 300);
    vis_AssocCompact(a);
    FailAllocation(1);
    vis_AssocSet(a, 10, 5);
    ExpectOnlyReport("vis_Assoc_Realloc", 4, "");
    EXPECT_EQ(vis_AssocError(a), 4);
    EXPECT_EQ(vis_AssocGet(a, 3), 300);
    EXPECT_EQ(vis_AssocGet(a, 10), 0);
    RestoreAllocation();
    vis_AssocSet(a, 10, 5);
    EXPECT_EQ(vis_AssocGet(a, 10), 5);
    int ierr = -1;
    FailAllocation(1);
    vis_Assoc_Realloc(a, 100000, &ierr);
    EXPECT_EQ(ierr, 4);
    EXPECT_EQ(vis_AssocGet(a, 3), 300);
    RestoreAllocation();
    FailAllocation(1);
    EXPECT_EQ(vis_AssocNew(), nullptr);
}

// Indices past what any storage can hold are a memory error of the association, reported
// before anything is allocated, and every value stays. An int32 or short array can hold index
// VSY_GROW_MAXCAP at most; the nibble array packs two indices per byte, so it reaches about
// twice as far, and 2 * VSY_GROW_MAXCAP + 2 is past it too.
TEST_F(AssocTest, IndexBeyondTheLargestCapacityFailsAndKeepsValues)
{
    vis_AssocSet(a, 1, 1000);
    vis_AssocSet(a, 2, -5);
    ASSERT_EQ(type(), VIS_ASSOC_SHORT);
    CountAllocations();
    vis_AssocSet(a, VSY_GROW_MAXCAP + 1, 7);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vis_Assoc_Realloc", 4, "");
    EXPECT_EQ(vis_AssocError(a), 4);
    EXPECT_EQ(vis_AssocGet(a, 1), 1000);
    EXPECT_EQ(vis_AssocGet(a, 2), -5);
    EXPECT_EQ(a->maxind, 2);
    Reports().clear();

    // Widening into a new array at such an index fails the same way, under Set.
    CountAllocations();
    vis_AssocSet(a, 300000000, 100000);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vis_AssocSet", 4, "index= 300000000");
    EXPECT_EQ(vis_AssocError(a), 4);
    EXPECT_EQ(type(), VIS_ASSOC_SHORT);
    EXPECT_EQ(vis_AssocGet(a, 2), -5);
    Reports().clear();

    vis_Assoc* nib = vis_AssocNew();
    vis_AssocDef(nib, 0, VIS_ASSOC_NIBBLE);
    vis_AssocSet(nib, 3, 9);
    CountAllocations();
    vis_AssocSet(nib, 2 * VSY_GROW_MAXCAP + 2, 1);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vis_Assoc_Realloc", 4, "");
    EXPECT_EQ(vis_AssocError(nib), 4);
    EXPECT_EQ(vis_AssocGet(nib, 3), 9);
    EXPECT_EQ(nib->maxind, 3);
    vis_AssocDelete(nib);
}

// The pool of extra values follows the same rule: when it stands at the largest capacity the
// next value is refused, not written past the pool. The limit is staged in the fields (a real
// pool that size would take gigabytes) and undone before the association is released.
TEST_F(AssocTest, ChainPoolAtTheLargestCapacityRefusesTheNextValue)
{
    vis_AssocSet(a, 1, 4);
    vis_AssocAdd(a, 1, 5);
    ASSERT_NE(a->pool, nullptr);
    const int poolnum = a->poolnum, poolcap = a->poolcap;
    a->poolnum = VSY_GROW_MAXCAP + 1;
    a->poolcap = VSY_GROW_MAXCAP;
    CountAllocations();
    vis_AssocAdd(a, 1, 6);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    a->poolnum = poolnum;
    a->poolcap = poolcap;
    ExpectOnlyReport("vis_AssocAdd", 4, "index= 1");
    EXPECT_EQ(vis_AssocError(a), 4);
    EXPECT_EQ(all(1), (std::vector<int>{4, 5}));
}

TEST_F(AssocTest, ReallocOfPatternTypesKeepsCap)
{
    vis_AssocSet(a, 1, 1);
    vis_AssocSet(a, 2, 2);
    int cap = a->cap, ierr = -1;
    vis_Assoc_Realloc(a, 500, &ierr);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(a->cap, cap);
}

}  // namespace
