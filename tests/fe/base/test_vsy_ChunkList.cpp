// vsy_ChunkList: read rules, the write side, cells across block borders, reuse of cells.
#include "vsy_ChunkList.h"

#include "vsy_TestSupport.h"

#include <map>
#include <climits>
#include <vector>

using namespace vsytest;

namespace {

class ChunkListTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        cl = vsy_ChunkListNew();
        ASSERT_NE(cl, nullptr);
    }
    void TearDown() override
    {
        vsy_ChunkListDelete(cl);
        ContainerTest::TearDown();
    }
    std::vector<int> get(int index, int maxnum = 64)
    {
        int num = -1, values[64];
        vsy_ChunkListGet(cl, index, maxnum, &num, values);
        return std::vector<int>(values, values + num);
    }
    int entry(int index, int k)
    {
        int v = -99;
        vsy_ChunkListEntry(cl, index, k, &v);
        return v;
    }
    vsy_ChunkList* cl = nullptr;
};

TEST_F(ChunkListTest, ReadRules)
{
    vsy_ChunkListDef(cl, 10);
    const int v[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
    vsy_ChunkListSet(cl, 3, 9, v);
    EXPECT_EQ(get(3), std::vector<int>(v, v + 9));
    EXPECT_EQ(get(3, 5), std::vector<int>(v, v + 5));
    EXPECT_EQ(entry(3, 0), 1);
    EXPECT_EQ(entry(3, 4), 5);
    EXPECT_EQ(entry(3, 8), 9);
    EXPECT_EQ(entry(3, 9), 0);
    EXPECT_EQ(entry(3, -1), 0);
    EXPECT_EQ(entry(11, 0), 0);
    EXPECT_TRUE(get(11).empty());
    EXPECT_TRUE(get(4).empty());
    int out[4] = {7, 7, 7, 7}, num = 5;
    vsy_ChunkListGet(cl, 11, 4, &num, out);
    EXPECT_EQ(num, 0);
    EXPECT_EQ(out[3], 0);  // the output is cleared
}

TEST_F(ChunkListTest, AddAcrossCellsAndBlocks)
{
    for (int k = 0; k < 13; ++k) vsy_ChunkListAdd(cl, 5000, k * 3);
    int maxind = 0;
    vsy_ChunkListMaxIndex(cl, &maxind);
    EXPECT_EQ(maxind, 5000);
    EXPECT_EQ(cl->nblocks, 2);
    std::vector<int> got = get(5000);
    ASSERT_EQ(got.size(), 13u);
    for (int k = 0; k < 13; ++k) EXPECT_EQ(got[k], k * 3);
    int num = 0;
    vsy_ChunkListNum(cl, 5000, &num);
    EXPECT_EQ(num, 13);
    ExpectNoReport();
}

TEST_F(ChunkListTest, DifferentialWithReuse)
{
    Rng rng(3);
    std::map<int, std::vector<int>> model;
    for (int step = 0; step < 5000; ++step) {
        int idx = 1 + rng.below(9000);
        if (rng.below(3) == 0) {
            int n = rng.below(15);
            std::vector<int> v(n);
            for (int& x : v) x = rng.below(1000) - 500;
            vsy_ChunkListSet(cl, idx, n, v.data());
            model[idx] = v;
        } else {
            int x = rng.below(100);
            vsy_ChunkListAdd(cl, idx, x);
            model[idx].push_back(x);
        }
    }
    ExpectNoReport();
    for (auto& kv : model) {
        ASSERT_EQ(get(kv.first), kv.second) << kv.first;
        for (int k = 0; k < (int)kv.second.size(); ++k) ASSERT_EQ(entry(kv.first, k), kv.second[k]);
    }
    EXPECT_LE(cl->ncellblocks, 20);
}

TEST_F(ChunkListTest, Errors)
{
    vsy_ChunkListAdd(cl, 0, 1);
    ExpectOnlyReport("vsy_ChunkListAdd", 1, "index= 0");
    Reports().clear();
    vsy_ChunkListSet(cl, 1, -2, nullptr);
    ExpectOnlyReport("vsy_ChunkListSet", 1, "len= -2");
    Reports().clear();
    vsy_ChunkListDef(cl, -1);
    ExpectOnlyReport("vsy_ChunkListDef", 1, "nument= -1");
    EXPECT_EQ(vsy_ChunkListError(cl), 1);
    EXPECT_EQ(vsy_ChunkListError(cl), 0);
}

TEST_F(ChunkListTest, FailedCellKeepsTheOldList)
{
    const int v[3] = {1, 2, 3};
    vsy_ChunkListSet(cl, 2, 3, v);
    const int w[12] = {0};
    FailAllocation(1, true);
    vsy_ChunkListSet(cl, 2, 12, w);
    ExpectOnlyReport("vsy_ChunkListSet", 4, "index= 2");
    RestoreAllocation();
    EXPECT_EQ(get(2), std::vector<int>(v, v + 3));
    FailAllocation(1);
    EXPECT_EQ(vsy_ChunkListNew(), nullptr);
}

// The largest index needs 524288 index blocks (INT_MAX / 4096, rounded up); when their pointer
// arrays cannot be allocated the list reports a memory error and keeps what it holds.
TEST_F(ChunkListTest, IndexWhoseBlocksCannotBeAllocatedKeepsTheLists)
{
    const int v[5] = {1, 2, 3, 4, 5};
    vsy_ChunkListSet(cl, 3, 5, v);
    FailAllocationsAbove(1 << 20);
    vsy_ChunkListAdd(cl, INT_MAX, 7);
    RestoreAllocation();
    ExpectOnlyReport("vsy_ChunkListAdd", 4, "index= 2147483647");
    EXPECT_EQ(vsy_ChunkListError(cl), 4);
    int maxind = -1;
    vsy_ChunkListMaxIndex(cl, &maxind);
    EXPECT_EQ(maxind, 3);
    EXPECT_EQ(get(3), std::vector<int>(v, v + 5));
}

}  // namespace
