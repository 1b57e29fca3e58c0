// vsy_ADTree: definition, the insertion rules and their reports, the shape of the tree, range
// queries with tolerance for boxes and points, the hit cursor, a deep tree of equal items, and
// a differential run against a brute-force scan.
#include "vsy_ADTree.h"

#include "vsy_IntHash.h"
#include "vsy_LinkList.h"
#include "vsy_TestSupport.h"

#include <algorithm>
#include <vector>

using namespace vsytest;

namespace {

const double kZero[3] = {0, 0, 0};
const double kEight[3] = {8, 8, 8};

class ADTreeTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        tree = vsy_ADTreeNew();
        ASSERT_NE(tree, nullptr);
    }
    void TearDown() override
    {
        vsy_ADTreeDelete(tree);
        ContainerTest::TearDown();
    }
    void box(int key, double x0, double y0, double z0, double x1, double y1, double z1)
    {
        const double min[3] = {x0, y0, z0};
        const double max[3] = {x1, y1, z1};
        vsy_ADTreeInsertExtent(tree, key, min, max);
    }
    std::vector<int> search(const double* min, const double* max)
    {
        vsy_ADTreeSearchExtent(tree, min, max);
        std::vector<int> keys;
        for (int key = 1;;) {
            vsy_ADTreeNextHit(tree, &key);
            if (key == 0) break;
            keys.push_back(key);
        }
        return keys;
    }
    // Five boxes in the tree box [0, 8]^3, placed as the comments say.
    void fiveBoxes()
    {
        vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
        box(1, 1, 1, 1, 2, 2, 2);  // root
        box(2, 5, 1, 1, 6, 2, 2);  // x 5: 4 > 5 is false: right of the root
        box(3, 3, 1, 1, 6, 2, 2);  // x 3 < 4: left of the root
        box(4, 6, 1, 1, 7, 2, 2);  // right of the root, then y 1 < 4: left of item 2
        box(5, 4, 5, 1, 7, 2, 2);  // x 4 equals the middle: right; y 5 >= 4: right of item 2
    }
    int index(int key)
    {
        int i = 0;
        vsy_IntHashGet(tree->keys, key, &i);
        return i;
    }
    const vsy_ADTreeNode& node(int key)
    {
        void* p = nullptr;
        vsy_LinkListGet(tree->nodes, index(key), &p);
        return *static_cast<const vsy_ADTreeNode*>(p);
    }
    vsy_ADTree* tree = nullptr;
};

TEST_F(ADTreeTest, NewHasTheStartValues)
{
    EXPECT_EQ(tree->ierr, 0);
    EXPECT_EQ(tree->root, 0);
    EXPECT_DOUBLE_EQ(tree->tol, 0.0001);
    EXPECT_EQ(tree->depth, -1);
    EXPECT_EQ(tree->count, 0);
    EXPECT_EQ(tree->hitnext, 0);
}

TEST_F(ADTreeTest, NewReportsCreationFailure)
{
    vsy_ADTreeDelete(tree);
    FailAllocation(1);
    tree = vsy_ADTreeNew();
    EXPECT_EQ(tree, nullptr);
    ExpectOnlyReport("ADTree", SYS_ERROR_MEMORY, "Creation Failure");
}

TEST_F(ADTreeTest, DefSetsTypeDimensionAndBox)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 10, kZero, kEight);
    EXPECT_EQ(tree->type, 2);
    EXPECT_EQ(tree->dim, 6);
    EXPECT_EQ(tree->count, 0);
    EXPECT_EQ(tree->depth, -1);
    EXPECT_DOUBLE_EQ(tree->boxmax[2], 8.0);
    // A tree node holds key, left, right and a spare int (16 bytes) and six doubles: 64 bytes.
    EXPECT_EQ(tree->nodes->nbytes, 64);
    vsy_ADTreeDef(tree, VSY_ADTREE_POINT, 10, kZero, kEight);
    EXPECT_EQ(tree->dim, 3);
    EXPECT_EQ(tree->nodes->nbytes, 40);  // 16 + three doubles
    ExpectNoReport();
}

TEST_F(ADTreeTest, DefWithABadTypeLeavesATreeThatTakesNothing)
{
    vsy_ADTreeDef(tree, 3, 10, kZero, kEight);
    ExpectOnlyReport("vsy_ADTreeDef", SYS_ERROR_ENUM, "type= 3");
    EXPECT_EQ(vsy_ADTreeError(tree), SYS_ERROR_ENUM);
    ASSERT_NE(tree->nodes, nullptr);  // the new list exists, undefined
    EXPECT_EQ(tree->nodes->nodes, nullptr);
    Reports().clear();
    box(1, 1, 1, 1, 2, 2, 2);
    ExpectOnlyReport("vsy_ADTreeInsertExtent", SYS_ERROR_OPERATION, "");
}

TEST_F(ADTreeTest, DefWithANegativeCountChangesNothing)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(1, 1, 1, 1, 2, 2, 2);
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, -1, kZero, kEight);
    ExpectOnlyReport("vsy_ADTreeDef", SYS_ERROR_VALUE, "nument= -1");
    EXPECT_EQ(tree->count, 1);
}

TEST_F(ADTreeTest, DefAgainDropsTheItems)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(1, 1, 1, 1, 2, 2, 2);
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    EXPECT_EQ(tree->count, 0);
    EXPECT_EQ(tree->root, 0);
    EXPECT_TRUE(search(kZero, kEight).empty());
    box(1, 1, 1, 1, 2, 2, 2);  // the key is free again
    ExpectNoReport();
}

TEST_F(ADTreeTest, AnItemOnTheTreeBoxIsAcceptedOneToleranceOutsideIsNot)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(1, 0, 0, 0, 8, 8, 8);  // exactly the tree box
    ExpectNoReport();
    box(2, -0.0001, 0, 0, 1, 1, 1);  // minimum x one tolerance below the box
    ExpectOnlyReport("vsy_ADTreeInsertExtent", SYS_ERROR_OPERATION, "Insert outside bounds, key= 2");
    Reports().clear();
    box(3, 7, 7, 7, 8, 8, 8.0001);  // maximum z one tolerance above
    ExpectOnlyReport("vsy_ADTreeInsertExtent", SYS_ERROR_OPERATION, "Insert outside bounds, key= 3");
    EXPECT_EQ(tree->count, 1);
}

TEST_F(ADTreeTest, TheSameKeyTwiceIsRefused)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(5, 1, 1, 1, 2, 2, 2);
    box(5, 3, 3, 3, 4, 4, 4);
    ExpectOnlyReport("vsy_ADTreeInsertExtent", SYS_ERROR_OPERATION, "Insert existing key= 5");
    EXPECT_EQ(vsy_ADTreeError(tree), SYS_ERROR_OPERATION);
    EXPECT_EQ(tree->count, 1);
}

TEST_F(ADTreeTest, KeyZeroIsRefused)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(0, 1, 1, 1, 2, 2, 2);
    ExpectOnlyReport("vsy_ADTreeInsertExtent", SYS_ERROR_VALUE, "key= 0");
    EXPECT_EQ(tree->count, 0);
}

TEST_F(ADTreeTest, InsertExtentOnAPointTreeIsError8)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_POINT, 4, kZero, kEight);
    box(1, 1, 1, 1, 2, 2, 2);
    ExpectOnlyReport("vsy_ADTreeInsertExtent", SYS_ERROR_OPERATION, "");
    EXPECT_EQ(vsy_ADTreeError(tree), SYS_ERROR_OPERATION);
    EXPECT_EQ(vsy_ADTreeError(tree), 0);  // read once, then cleared
}

TEST_F(ADTreeTest, ItemsGoLeftBelowTheMiddleAndRightFromIt)
{
    // Tree box [0, 8]^3. Level 0 splits x at (0 + 8) / 2 = 4; level 1 splits the minimum y of
    // the cell, (0 + 8) / 2 = 4 again.
    fiveBoxes();
    ExpectNoReport();
    EXPECT_EQ(node(1).right, index(2));
    EXPECT_EQ(node(1).left, index(3));
    EXPECT_EQ(node(2).left, index(4));
    EXPECT_EQ(node(2).right, index(5));
    EXPECT_EQ(node(3).left + node(3).right + node(4).left + node(5).right, 0);
    EXPECT_EQ(tree->root, index(1));
    EXPECT_EQ(tree->depth, 2);  // items 4 and 5 hang at level 2
    EXPECT_EQ(tree->count, 5);
    EXPECT_DOUBLE_EQ(node(5).coords[4], 2.0);  // maximum y of item 5
}

TEST_F(ADTreeTest, HitsComeInPreOrderLeftBeforeRight)
{
    // The tree of the test above: root 1, left 3, right 2 with left 4 and right 5. A query of
    // the whole box finds everything, in the order 1, 3, 2, 4, 5.
    fiveBoxes();
    EXPECT_EQ(search(kZero, kEight), (std::vector<int>{1, 3, 2, 4, 5}));
    EXPECT_EQ(tree->visited, 5);
}

TEST_F(ADTreeTest, AQueryPrunesCellsItCannotMeet)
{
    // Same tree. The query box x in [0.5, 2.5] meets item 1 only (item 3 starts at x 3). Its
    // maximum x 2.5 + tol stays below the root's middle 4, so the right subtree (items 2, 4,
    // 5, whose minimum x is at least 4) is never entered: visited are the root and item 3.
    fiveBoxes();
    const double min[3] = {0.5, 0.5, 0.5};
    const double max[3] = {2.5, 2.5, 2.5};
    EXPECT_EQ(search(min, max), (std::vector<int>{1}));
    EXPECT_EQ(tree->visited, 2);
}

TEST_F(ADTreeTest, NextHitAfterTheLastGivesZero)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(7, 1, 1, 1, 2, 2, 2);
    vsy_ADTreeSearchExtent(tree, kZero, kEight);
    int key = -1;
    vsy_ADTreeNextHit(tree, &key);
    EXPECT_EQ(key, 7);
    vsy_ADTreeNextHit(tree, &key);
    EXPECT_EQ(key, 0);
    key = -1;
    vsy_ADTreeNextHit(tree, &key);
    EXPECT_EQ(key, 0);
}

TEST_F(ADTreeTest, APointQueryFindsABoxTouchingItWithinTolerance)
{
    // Box [1, 2]^3. A query with min = max = (2.00005, 1.5, 1.5) lies 0.00005 beyond the box's
    // maximum x, within tol 0.0001: the item's minimum x 1 <= 2.00005 + tol and its maximum x
    // 2 >= 2.00005 - tol. At 2.0002 the gap exceeds the tolerance.
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(1, 1, 1, 1, 2, 2, 2);
    const double near[3] = {2.00005, 1.5, 1.5};
    EXPECT_EQ(search(near, near), (std::vector<int>{1}));
    const double far[3] = {2.0002, 1.5, 1.5};
    EXPECT_TRUE(search(far, far).empty());
    // A larger tolerance reaches it too: 2 >= 2.0002 - 0.001.
    vsy_DataTableSetParamd(tree, VSY_ADTREE_TOL, 0.001);
    EXPECT_EQ(search(far, far), (std::vector<int>{1}));
    ExpectNoReport();
}

TEST_F(ADTreeTest, SetParamdRefusesOtherOptionsUnderItsOwnName)
{
    vsy_DataTableSetParamd(tree, 2, 1.0);
    ExpectOnlyReport("vsy_DataTableSetParamd", SYS_ERROR_ENUM, "type= 2");
    EXPECT_DOUBLE_EQ(tree->tol, 0.0001);
}

TEST_F(ADTreeTest, InsertPointsTakesTheBoundingBox)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    // Three points: the box is min (1, 2, 0), max (3, 5, 4).
    const double pts[9] = {1, 5, 0, 3, 2, 4, 2, 3, 1};
    vsy_ADTreeInsertPoints(tree, 1, 3, pts);
    const vsy_ADTreeNode& n = node(1);
    EXPECT_EQ(std::vector<double>(n.coords, n.coords + 6), (std::vector<double>{1, 2, 0, 3, 5, 4}));
    // One point: the box is that point.
    vsy_ADTreeInsertPoints(tree, 2, 1, pts + 3);
    const vsy_ADTreeNode& m = node(2);
    EXPECT_EQ(std::vector<double>(m.coords, m.coords + 6), (std::vector<double>{3, 2, 4, 3, 2, 4}));
    ExpectNoReport();
}

TEST_F(ADTreeTest, APointTreeFindsPointsInTheWidenedBox)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_POINT, 4, kZero, kEight);
    const double a[3] = {1, 1, 1}, b[3] = {3, 3, 3}, c[3] = {3.00005, 1, 1};
    vsy_ADTreeInsertPoint(tree, 1, a);
    vsy_ADTreeInsertPoint(tree, 2, b);
    vsy_ADTreeInsertPoint(tree, 3, c);
    ExpectNoReport();
    // Query [0, 3]^3: points a and b lie inside, c is 0.00005 past x 3, within tol 0.0001.
    // Root a; b and c have x below the middle 4, so both go left of a, c then left of b (y 1
    // below the middle 4): pre-order a, b, c.
    const double three[3] = {3, 3, 3};
    EXPECT_EQ(search(kZero, three), (std::vector<int>{1, 2, 3}));
    // Query [2, 2.9]^3: no point.
    const double lo[3] = {2, 2, 2}, hi[3] = {2.9, 2.9, 2.9};
    EXPECT_TRUE(search(lo, hi).empty());
    // A box on a point tree is refused as on a box tree the other way round.
    vsy_ADTreeInsertPoints(tree, 4, 1, a);
    ExpectOnlyReport("vsy_ADTreeInsertExtent", SYS_ERROR_OPERATION, "");
}

TEST_F(ADTreeTest, ManyEqualItemsMakeADeepTreeThatIsStillSearched)
{
    // 3000 equal boxes: every one goes the same way at every level, so the tree is a chain of
    // depth 2999; a search must still find all 3000, past the first 1000 hit entries.
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 0, kZero, kEight);
    for (int k = 1; k <= 3000; ++k) box(k, 1, 1, 1, 2, 2, 2);
    EXPECT_EQ(tree->depth, 2999);
    std::vector<int> hits = search(kZero, kEight);
    ASSERT_EQ(hits.size(), 3000u);
    for (int k = 1; k <= 3000; ++k) EXPECT_EQ(hits[k - 1], k);  // a chain: insertion order
    EXPECT_EQ(tree->hitcap, 4000);  // 1000, doubled to 2000, then 4000
}

TEST_F(ADTreeTest, SearchesAgreeWithABruteForceScan)
{
    // Random boxes and queries in [0, 100]^3, compared as sets with the plain overlap rule
    // (item min <= query max + tol and item max >= query min - tol on every axis).
    const double lo[3] = {0, 0, 0}, hi[3] = {100, 100, 100};
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 0, lo, hi);
    Rng rng(23);
    std::vector<std::vector<double>> items;
    for (int k = 1; k <= 2000; ++k) {
        std::vector<double> b(6);
        for (int i = 0; i < 3; ++i) {
            b[i] = rng.below(9000) / 100.0;
            b[i + 3] = b[i] + rng.below(1000) / 100.0;
        }
        items.push_back(b);
        vsy_ADTreeInsertExtent(tree, k, b.data(), b.data() + 3);
    }
    ExpectNoReport();
    long visited = 0, found = 0;
    for (int q = 0; q < 200; ++q) {
        double min[3], max[3];
        for (int i = 0; i < 3; ++i) {
            min[i] = rng.below(9500) / 100.0;
            max[i] = min[i] + rng.below(500) / 100.0;
        }
        std::vector<int> got = search(min, max);
        visited += tree->visited;
        std::sort(got.begin(), got.end());
        std::vector<int> want;
        for (int k = 1; k <= 2000; ++k) {
            const std::vector<double>& b = items[k - 1];
            bool hit = true;
            for (int i = 0; i < 3; ++i) hit = hit && b[i] <= max[i] + 0.0001 && b[i + 3] >= min[i] - 0.0001;
            if (hit) want.push_back(k);
        }
        ASSERT_EQ(got, want) << "query " << q;
        found += static_cast<long>(got.size());
    }
    // The queries do meet items, so the sets compared are not all empty: on one axis an item
    // (mean width 5) meets a query (mean width 2.5) with a chance of about 7.5 / 100, on three
    // axes 0.075^3 = 4.2e-4, times 2000 items and 200 queries: about 170 hits expected.
    EXPECT_GT(found, 50);
    // The pruning works: far fewer nodes visited than a full scan of 200 * 2000.
    EXPECT_LT(visited, 200L * 2000 / 4);
}

TEST_F(ADTreeTest, FullVisitsEveryNode)
{
    vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, 4, kZero, kEight);
    box(1, 1, 1, 1, 2, 2, 2);
    box(2, 5, 1, 1, 6, 2, 2);
    box(3, 3, 1, 1, 6, 2, 2);
    tree->full = 1;
    const double p[3] = {1.5, 1.5, 1.5};
    EXPECT_EQ(search(p, p), (std::vector<int>{1}));
    EXPECT_EQ(tree->visited, 3);  // no pruning: all three nodes
}

}  // namespace
