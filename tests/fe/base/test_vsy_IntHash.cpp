// vsy_IntHash: the reserved value, key 0 as an ordinary key, growth, clear, slot-order
// iteration, every report, allocation failure, and a differential run against
// std::unordered_map.
#include "vsy_IntHash.h"

#include "vsy_Hash.h"
#include "vsy_TestSupport.h"

#include <climits>
#include <map>
#include <unordered_map>
#include <vector>

using namespace vsytest;

namespace {

class IntHashTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        tab = vsy_IntHashNew();
        ASSERT_NE(tab, nullptr);
    }
    void TearDown() override
    {
        vsy_IntHashDelete(tab);
        ContainerTest::TearDown();
    }
    int get(int key)
    {
        int v = 0x5A5A;
        vsy_IntHashGet(tab, key, &v);
        return v;
    }
    int count()
    {
        int n = -1;
        vsy_IntHashCount(tab, &n);
        return n;
    }
    std::vector<std::pair<int, int>> walk()
    {
        std::vector<std::pair<int, int>> out;
        for (int guard = 0; guard < 10000000; ++guard) {
            int key = -99, value = -99;
            vsy_IntHashNextIter(tab, &key, &value);
            if (key == 0 && value == tab->empty) break;
            out.emplace_back(key, value);
        }
        return out;
    }
    vsy_IntHash* tab = nullptr;
};

// A size past the largest table is refused before anything is allocated.
TEST_F(IntHashTest, DefBeyondTheLargestSizeFailsWithoutAllocating)
{
    vsy_IntHashInsert(tab, 4, 44);
    CountAllocations();
    vsy_IntHashDef(tab, INT_MAX);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vsy_IntHashDef", 4, "nument= 2147483647");
    EXPECT_EQ(get(4), 44);
}

}  // namespace

TEST_F(IntHashTest, NewRecordHasStartValues)
{
    EXPECT_EQ(tab->ierr, 0);
    EXPECT_EQ(tab->iter, -1);
    EXPECT_EQ(tab->count, 0);
    EXPECT_EQ(tab->size, 0);
    EXPECT_EQ(tab->slots, nullptr);
    EXPECT_EQ(tab->empty, 0);
    EXPECT_EQ(tab->aux, nullptr);
    EXPECT_EQ(get(1), 0);
}

TEST_F(IntHashTest, DefSizesEveryValueEmpty)
{
    vsy_IntHashDef(tab, 0);
    EXPECT_EQ(tab->size, 11);
    EXPECT_EQ(tab->limit, 5);
    for (int s = 0; s < 11; ++s) {
        EXPECT_EQ(tab->slots[s].key, 0);
        EXPECT_EQ(tab->slots[s].value, 0);
    }
    vsy_IntHashDef(tab, 50);
    EXPECT_EQ(tab->size, 101);
    EXPECT_EQ(tab->limit, 50);
    ExpectNoReport();
}

TEST_F(IntHashTest, KeyZeroIsAnOrdinaryKey)
{
    vsy_IntHashInsert(tab, 0, 5);
    EXPECT_EQ(get(0), 5);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(tab->slots[vsy_Hash_IntHome(0, 11)].value, 5);
    vsy_IntHashInsert(tab, 0, 6);
    EXPECT_EQ(get(0), 6);
    EXPECT_EQ(count(), 1);
}

TEST_F(IntHashTest, ReservedValueFailsWithCodeOneAndChangesNothing)
{
    vsy_IntHashInsert(tab, 4, 9);
    EXPECT_EQ(CaptureReport([&] { vsy_IntHashInsert(tab, 4, 0); }),
              "\nvsy_IntHashInsert: ierr= 1\nSYS_ERROR_VALUE       Argument with an improper value\n"
              "key= 4, value= 0\n");
    EXPECT_EQ(get(4), 9);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(vsy_IntHashError(tab), 1);
    EXPECT_EQ(vsy_IntHashError(tab), 0);
}

TEST_F(IntHashTest, ReservedValueOnUndefinedTableDoesNotDefineIt)
{
    vsy_IntHashInsert(tab, -3, 0);
    ExpectOnlyReport("vsy_IntHashInsert", 1, "key= -3, value= 0");
    EXPECT_EQ(tab->slots, nullptr);
    EXPECT_EQ(tab->size, 0);
}

TEST_F(IntHashTest, GrowthOnTheSixthEntry)
{
    for (int k = 1; k <= 5; ++k) vsy_IntHashInsert(tab, k, -k);
    EXPECT_EQ(tab->size, 11);
    vsy_IntHashInsert(tab, 6, -6);
    EXPECT_EQ(tab->size, 17);
    EXPECT_EQ(tab->limit, 8);
    for (int k = 1; k <= 6; ++k) EXPECT_EQ(get(k), -k);
    for (int k = 7; k <= 9; ++k) vsy_IntHashInsert(tab, k, -k);
    EXPECT_EQ(tab->size, 25);
    EXPECT_EQ(count(), 9);
    ExpectNoReport();
}

TEST_F(IntHashTest, LinearProbePlacement)
{
    vsy_IntHashDef(tab, 100);
    std::vector<int> same;
    int home = vsy_Hash_IntHome(0, 201);
    for (int k = 0; same.size() < 3; ++k)
        if (vsy_Hash_IntHome(k, 201) == home) same.push_back(k);
    for (int k : same) vsy_IntHashInsert(tab, k, k + 1);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(tab->slots[(home + i) % 201].key, same[i]);
    for (int k : same) EXPECT_EQ(get(k), k + 1);
}

TEST_F(IntHashTest, ClearEmptiesButKeepsTheSize)
{
    for (int k = 1; k <= 20; ++k) vsy_IntHashInsert(tab, k, k);
    int size = tab->size;
    vsy_IntHashClear(tab);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(tab->size, size);
    for (int s = 0; s < size; ++s) {
        EXPECT_EQ(tab->slots[s].key, 0);
        EXPECT_EQ(tab->slots[s].value, 0);
    }
    EXPECT_EQ(get(3), 0);
    vsy_IntHashInitIter(tab);
    EXPECT_TRUE(walk().empty());
    vsy_IntHashInsert(tab, 3, 30);
    EXPECT_EQ(get(3), 30);
    vsy_IntHashClear(nullptr);
    vsy_IntHash* fresh = vsy_IntHashNew();
    vsy_IntHashClear(fresh);  // undefined table: nothing to clear
    EXPECT_EQ(fresh->count, 0);
    vsy_IntHashDelete(fresh);
}

TEST_F(IntHashTest, IterationInSlotOrderEndsWithKeyZeroAndEmpty)
{
    vsy_IntHashDef(tab, 30);
    std::vector<int> keys = {0, 5, -8, 1000, 77, 3};
    for (int k : keys) vsy_IntHashInsert(tab, k, k * 10 + 1);
    vsy_IntHashInitIter(tab);
    std::vector<std::pair<int, int>> want;
    for (int s = 0; s < tab->size; ++s)
        if (tab->slots[s].value != 0) want.emplace_back(tab->slots[s].key, tab->slots[s].value);
    EXPECT_EQ(walk(), want);
    EXPECT_EQ(want.size(), keys.size());
    int key = 7, value = 7;
    vsy_IntHashNextIter(tab, &key, &value);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(value, 0);
}

TEST_F(IntHashTest, UndefinedTableIteratesNothing)
{
    vsy_IntHashInitIter(tab);
    EXPECT_TRUE(walk().empty());
}

TEST_F(IntHashTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([] { EXPECT_EQ(vsy_IntHashNew(), nullptr); }),
              "\nIntHash: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nCreation Failure\n");
}

TEST_F(IntHashTest, DefFailureKeepsTheTable)
{
    vsy_IntHashInsert(tab, 1, 2);
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_IntHashDef(tab, 9); }),
              "\nvsy_IntHashDef: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nnument= 9\n");
    EXPECT_EQ(vsy_IntHashError(tab), 4);
    EXPECT_EQ(get(1), 2);
}

TEST_F(IntHashTest, GrowthFailureKeepsEntries)
{
    for (int k = 1; k <= 5; ++k) vsy_IntHashInsert(tab, k, k);
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_IntHashInsert(tab, 6, 6); }),
              "\nvsy_IntHash_Expand: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\n");
    EXPECT_EQ(vsy_IntHashError(tab), 4);
    EXPECT_EQ(tab->size, 11);
    EXPECT_EQ(count(), 6);
    for (int k = 1; k <= 6; ++k) EXPECT_EQ(get(k), k);
    vsy_IntHashInsert(tab, 7, 7);
    EXPECT_EQ(tab->size, 17);
    for (int k = 1; k <= 7; ++k) EXPECT_EQ(get(k), k);
}

TEST_F(IntHashTest, FullTableIsComputeError)
{
    vsy_IntHashDef(tab, 0);
    FailAllocation(1, true);
    for (int k = 1; k <= 11; ++k) vsy_IntHashInsert(tab, k, k);
    EXPECT_EQ(count(), 11);
    std::string out = CaptureReport([&] { vsy_IntHashInsert(tab, 12, 12); });
    EXPECT_EQ(out, "\nvsy_IntHashInsert: ierr= 7\nSYS_ERROR_COMPUTE     A compute error has occurred\nkey= 12\n");
    EXPECT_EQ(vsy_IntHashError(tab), 7);
    // A missing key in a full table leaves the result unwritten; present keys are found.
    int v = 4242;
    vsy_IntHashGet(tab, 12, &v);
    EXPECT_EQ(v, 4242);
    EXPECT_EQ(get(11), 11);
    vsy_IntHashInsert(tab, 5, 55);
    EXPECT_EQ(get(5), 55);
    RestoreAllocation();
    vsy_IntHashClear(tab);
    vsy_IntHashInsert(tab, 12, 12);
    EXPECT_EQ(get(12), 12);
}

TEST_F(IntHashTest, NullObject)
{
    vsy_IntHashInsert(nullptr, 1, 1);
    ExpectOnlyReport("vsy_IntHashInsert", 5, "");
    EXPECT_EQ(vsy_IntHashError(nullptr), 5);
    vsy_IntHashDelete(nullptr);
}

TEST_F(IntHashTest, DifferentialAgainstUnorderedMap)
{
    for (unsigned seed = 11; seed <= 16; ++seed) {
        vsy_IntHashDelete(tab);
        tab = vsy_IntHashNew();
        std::unordered_map<int, int> ref;
        Rng rng(seed);
        int range = seed % 2 ? 500 : (1 << 30) - 1;
        for (int step = 0; step < 40000; ++step) {
            int key = rng.below(2 * range + 1) - range;
            int op = rng.below(100);
            if (op < 60) {
                int value = static_cast<int>(rng.next() | 1u);
                vsy_IntHashInsert(tab, key, value);
                ref[key] = value;
            } else if (op < 99) {
                auto it = ref.find(key);
                ASSERT_EQ(get(key), it == ref.end() ? 0 : it->second);
            } else if (step % 7 == 0) {
                vsy_IntHashClear(tab);
                ref.clear();
            }
            ASSERT_EQ(count(), static_cast<int>(ref.size()));
            ASSERT_LE(tab->count, tab->limit);
        }
        vsy_IntHashInitIter(tab);
        std::map<int, int> seen;
        for (auto& kv : walk()) {
            ASSERT_EQ(seen.count(kv.first), 0u);
            seen[kv.first] = kv.second;
        }
        std::map<int, int> want(ref.begin(), ref.end());
        ASSERT_EQ(seen, want);
    }
    ExpectNoReport();
}

TEST_F(IntHashTest, HoldsAMillionEntries)
{
    const int n = 1000000;
    for (int k = 0; k < n; ++k) vsy_IntHashInsert(tab, k - n / 2, k + 1);
    EXPECT_EQ(count(), n);
    for (int k = 0; k < n; ++k) ASSERT_EQ(get(k - n / 2), k + 1);
    EXPECT_EQ(get(n), 0);
    vsy_IntHashInitIter(tab);
    EXPECT_EQ(static_cast<int>(walk().size()), n);
    ExpectNoReport();
}
