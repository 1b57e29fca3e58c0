// vsy_HashTable: hashing and probing, key 0, removal markers, load limit and growth, slot-order
// and sorted iteration, every report, allocation failure, and a differential run against
// std::unordered_map and std::map.
#include "vsy_HashTable.h"

#include "vsy_Hash.h"
#include "vsy_TestSupport.h"

#include <climits>
#include <cstdint>
#include <map>
#include <set>
#include <unordered_map>
#include <vector>

using namespace vsytest;

namespace {

void* P(intptr_t v)
{
    return reinterpret_cast<void*>(v);
}

// Home slot computed independently of the library, with 128-bit arithmetic.
int Home(int key, int size)
{
    __int128 h = static_cast<__int128>(key) * 2654435761LL;
    if (h < 0) h = static_cast<__int128>(key) * -2654435761LL;
    return static_cast<int>(h % size);
}

class HashTableTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        tab = vsy_HashTableNew();
        ASSERT_NE(tab, nullptr);
    }
    void TearDown() override
    {
        vsy_HashTableDelete(tab);
        ContainerTest::TearDown();
    }
    void* get(int key)
    {
        void* v = P(0x5A5A);
        vsy_HashTableGet(tab, key, &v);
        return v;
    }
    int count()
    {
        int n = -1;
        vsy_HashTableCount(tab, &n);
        return n;
    }
    // Runs one whole iteration and returns the keys in the order given.
    std::vector<std::pair<int, void*>> walk()
    {
        std::vector<std::pair<int, void*>> out;
        for (int guard = 0; guard < 10000000; ++guard) {
            int key = -99;
            void* value = P(0x77);
            vsy_HashTableNextIter(tab, &key, &value);
            if (key == 0 && value == tab->empty) break;
            out.emplace_back(key, value);
        }
        return out;
    }
    vsy_HashTable* tab = nullptr;
};

// A size past the largest table (VSY_HASH_MAXSIZE slots, about 2 * nument) is refused before
// anything is allocated, and the table keeps its entries.
TEST_F(HashTableTest, DefBeyondTheLargestSizeFailsWithoutAllocating)
{
    vsy_HashTableInsert(tab, 4, P(44));
    CountAllocations();
    vsy_HashTableDef(tab, INT_MAX);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vsy_HashTableDef", 4, "nument= 2147483647");
    void* v = nullptr;
    vsy_HashTableGet(tab, 4, &v);
    EXPECT_EQ(v, P(44));
}

}  // namespace

TEST_F(HashTableTest, NewRecordHasStartValues)
{
    EXPECT_EQ(tab->ierr, 0);
    EXPECT_EQ(tab->iter, -1);
    EXPECT_EQ(tab->nsorted, 0);
    EXPECT_EQ(tab->sortkey, nullptr);
    EXPECT_EQ(tab->sortslot, nullptr);
    EXPECT_EQ(tab->count, 0);
    EXPECT_EQ(tab->size, 0);
    EXPECT_EQ(tab->haszero, 0);
    EXPECT_EQ(tab->slots, nullptr);
    EXPECT_EQ(tab->empty, nullptr);
    EXPECT_EQ(get(5), nullptr);
    EXPECT_EQ(get(0), nullptr);
}

TEST_F(HashTableTest, DefSizesAndLimit)
{
    vsy_HashTableDef(tab, 0);
    EXPECT_EQ(tab->size, 11);
    EXPECT_EQ(tab->limit, 5);
    vsy_HashTableDef(tab, -4);
    EXPECT_EQ(tab->size, 11);
    vsy_HashTableDef(tab, 5);
    EXPECT_EQ(tab->size, 11);
    vsy_HashTableDef(tab, 6);
    EXPECT_EQ(tab->size, 13);
    EXPECT_EQ(tab->limit, 6);
    vsy_HashTableDef(tab, 1000);
    EXPECT_EQ(tab->size, 2001);
    EXPECT_EQ(tab->limit, 1000);
    ExpectNoReport();
}

TEST_F(HashTableTest, NextCapacityAddsHalfAndMakesOdd)
{
    EXPECT_EQ(vsy_NextCapacity(11), 17);
    EXPECT_EQ(vsy_NextCapacity(17), 25);
    EXPECT_EQ(vsy_NextCapacity(25), 37);
    EXPECT_EQ(vsy_NextCapacity(13), 19);
    EXPECT_EQ(vsy_NextCapacity(2001), 3001);
    EXPECT_EQ(vsy_NextCapacity(VSY_HASH_MAXSIZE), -1);
}

TEST_F(HashTableTest, HashIsMultiplicativeModuloSize)
{
    const int keys[] = {1, 2, 7, -1, -7, 1000003, INT_MAX, INT_MIN, 123456789};
    const int sizes[] = {11, 17, 2001, 1000001};
    for (int size : sizes)
        for (int key : keys) EXPECT_EQ(vsy_Hash_IntHome(key, size), Home(key, size)) << key << " " << size;
    // 2654435761 = 11 * 241312341 + 10, and the negative key takes the negated multiplier.
    EXPECT_EQ(vsy_Hash_IntHome(1, 11), 10);
    EXPECT_EQ(vsy_Hash_IntHome(-1, 11), 10);
    EXPECT_EQ(vsy_Hash_IntHome(0, 11), 0);
}

TEST_F(HashTableTest, SixEntriesFromDefZeroGrowTo17OnTheSixth)
{
    vsy_HashTableDef(tab, 0);
    for (int k = 1; k <= 5; ++k) {
        vsy_HashTableInsert(tab, k, P(10 * k));
        EXPECT_EQ(tab->size, 11) << k;
    }
    EXPECT_EQ(tab->count, 5);
    vsy_HashTableInsert(tab, 6, P(60));
    EXPECT_EQ(tab->size, 17);
    EXPECT_EQ(tab->limit, 8);
    EXPECT_EQ(count(), 6);
    for (int k = 1; k <= 6; ++k) EXPECT_EQ(get(k), P(10 * k));
    ExpectNoReport();
}

TEST_F(HashTableTest, InsertOnUndefinedTableDefinesIt)
{
    vsy_HashTableInsert(tab, 42, P(1));
    EXPECT_EQ(tab->size, 11);
    EXPECT_EQ(get(42), P(1));
    EXPECT_EQ(count(), 1);
}

TEST_F(HashTableTest, EntriesSitOnTheirLinearProbePath)
{
    vsy_HashTableDef(tab, 100);  // size 201
    // Keys with the same home slot take consecutive slots.
    std::vector<int> same;
    for (int k = 1; same.size() < 3; ++k)
        if (Home(k, 201) == Home(1, 201)) same.push_back(k);
    for (int k : same) vsy_HashTableInsert(tab, k, P(k));
    int h = Home(1, 201);
    EXPECT_EQ(tab->slots[h].key, same[0]);
    EXPECT_EQ(tab->slots[(h + 1) % 201].key, same[1]);
    EXPECT_EQ(tab->slots[(h + 2) % 201].key, same[2]);
}

TEST_F(HashTableTest, KeyZeroTwiceCountsOneAndKeepsTheLastValue)
{
    vsy_HashTableInsert(tab, 0, P(1));
    vsy_HashTableInsert(tab, 0, P(2));
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(tab->haszero, 1);
    EXPECT_EQ(get(0), P(2));
    for (int s = 0; s < tab->size; ++s) EXPECT_EQ(tab->slots[s].value, nullptr);
}

TEST_F(HashTableTest, KeyZeroCountsTowardTheLimitButDoesNotTriggerGrowth)
{
    vsy_HashTableDef(tab, 0);
    for (int k = 1; k <= 5; ++k) vsy_HashTableInsert(tab, k, P(k));
    vsy_HashTableInsert(tab, 0, P(100));
    EXPECT_EQ(count(), 6);
    EXPECT_EQ(tab->size, 11);  // key 0 runs no growth test
    vsy_HashTableInsert(tab, 6, P(6));
    EXPECT_EQ(tab->size, 17);
    EXPECT_EQ(count(), 7);
    EXPECT_EQ(get(0), P(100));
}

TEST_F(HashTableTest, DefResetsKeyZeroToEmpty)
{
    vsy_HashTableInsert(tab, 0, P(9));
    vsy_HashTableDef(tab, 0);
    EXPECT_EQ(tab->haszero, 0);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(get(0), nullptr);
}

TEST_F(HashTableTest, ReplaceKeepsCount)
{
    vsy_HashTableInsert(tab, 3, P(1));
    vsy_HashTableInsert(tab, 3, P(2));
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(get(3), P(2));
}

TEST_F(HashTableTest, MissingKeyGivesEmptyAndNullValuesAreEntries)
{
    vsy_HashTableInsert(tab, 5, nullptr);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(get(5), nullptr);
    EXPECT_EQ(get(6), nullptr);
    EXPECT_EQ(walk().size(), 1u);
}

TEST_F(HashTableTest, RemovalLeavesAMarkerThatProbesPass)
{
    vsy_HashTableDef(tab, 100);
    std::vector<int> same;
    for (int k = 1; same.size() < 3; ++k)
        if (Home(k, 201) == Home(1, 201)) same.push_back(k);
    for (int k : same) vsy_HashTableInsert(tab, k, P(k));
    vsy_HashTableRemove(tab, same[0]);
    int h = Home(1, 201);
    EXPECT_EQ(tab->slots[h].key, 0);
    EXPECT_NE(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(tab->slots[h].value)), 0u);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(get(same[0]), nullptr);
    EXPECT_EQ(get(same[1]), P(same[1]));
    EXPECT_EQ(get(same[2]), P(same[2]));
    // Reinsertion takes the first removed slot on the path.
    vsy_HashTableInsert(tab, same[0], P(77));
    EXPECT_EQ(tab->slots[h].key, same[0]);
    EXPECT_EQ(get(same[0]), P(77));
    EXPECT_EQ(count(), 3);
    // A key further on the path is replaced where it is, not duplicated in the removed slot.
    vsy_HashTableRemove(tab, same[0]);
    vsy_HashTableInsert(tab, same[2], P(5));
    EXPECT_EQ(tab->slots[(h + 2) % 201].key, same[2]);
    EXPECT_EQ(tab->slots[h].key, 0);
    EXPECT_EQ(count(), 2);
    ExpectNoReport();
}

TEST_F(HashTableTest, OnlyTheLowWordTellsRemovedFromNeverUsed)
{
    vsy_HashTableDef(tab, 100);
    int h = Home(1, 201);
    // Key 1 placed one past a slot whose value word has only high bits set: that slot counts as
    // never used, so the probe ends before key 1.
    tab->slots[h].key = 0;
    tab->slots[h].value = P(static_cast<intptr_t>(1) << 40);
    tab->slots[(h + 1) % 201].key = 1;
    tab->slots[(h + 1) % 201].value = P(11);
    tab->count = 1;
    EXPECT_EQ(get(1), nullptr);
    tab->slots[h].value = P(1);  // a removed marker: the probe goes on
    EXPECT_EQ(get(1), P(11));
}

TEST_F(HashTableTest, RemoveKeyZeroAndMissingKeys)
{
    vsy_HashTableRemove(tab, 4);  // undefined table: nothing happens
    vsy_HashTableInsert(tab, 0, P(3));
    vsy_HashTableInsert(tab, 1, P(4));
    vsy_HashTableRemove(tab, 0);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(tab->haszero, 0);
    EXPECT_EQ(get(0), nullptr);
    vsy_HashTableRemove(tab, 0);
    vsy_HashTableRemove(tab, 12345);
    EXPECT_EQ(count(), 1);
    ExpectNoReport();
}

TEST_F(HashTableTest, GrowthDropsRemovedSlots)
{
    vsy_HashTableDef(tab, 0);
    for (int k = 1; k <= 5; ++k) vsy_HashTableInsert(tab, k, P(k));
    vsy_HashTableRemove(tab, 2);
    vsy_HashTableRemove(tab, 4);
    vsy_HashTableInsert(tab, 6, P(6));
    vsy_HashTableInsert(tab, 7, P(7));
    vsy_HashTableInsert(tab, 8, P(8));
    EXPECT_EQ(tab->size, 17);
    int removed = 0;
    for (int s = 0; s < tab->size; ++s)
        if (tab->slots[s].key == 0 && tab->slots[s].value != nullptr) ++removed;
    EXPECT_EQ(removed, 0);
    EXPECT_EQ(count(), 6);
}

TEST_F(HashTableTest, PlainIterationFollowsSlotOrderWithKeyZeroFirst)
{
    vsy_HashTableDef(tab, 20);
    std::vector<int> keys = {17, -3, 4, 1000, 99, 5, 0};
    for (int k : keys) vsy_HashTableInsert(tab, k, P(k + 1000));
    vsy_HashTableInitIter(tab);
    std::vector<std::pair<int, void*>> got = walk();
    std::vector<std::pair<int, void*>> want = {{0, P(1000)}};
    for (int s = 0; s < tab->size; ++s)
        if (tab->slots[s].key != 0) want.emplace_back(tab->slots[s].key, P(tab->slots[s].key + 1000));
    EXPECT_EQ(got, want);
    EXPECT_EQ(got.size(), keys.size());
}

TEST_F(HashTableTest, IterationEndIsKeyZeroWithEmptyAndRepeats)
{
    vsy_HashTableInsert(tab, 3, P(1));
    vsy_HashTableInitIter(tab);
    int key = -1;
    void* value = nullptr;
    vsy_HashTableNextIter(tab, &key, &value);
    EXPECT_EQ(key, 3);
    for (int i = 0; i < 3; ++i) {
        key = -1;
        value = P(8);
        vsy_HashTableNextIter(tab, &key, &value);
        EXPECT_EQ(key, 0);
        EXPECT_EQ(value, nullptr);
    }
    // A new iteration starts again.
    vsy_HashTableInitIter(tab);
    EXPECT_EQ(walk().size(), 1u);
}

TEST_F(HashTableTest, EmptyAndUndefinedTablesEndAtOnce)
{
    vsy_HashTableInitIter(tab);
    EXPECT_TRUE(walk().empty());
    vsy_HashTableInitIterOrder(tab);
    EXPECT_EQ(tab->sortkey, nullptr);
    EXPECT_TRUE(walk().empty());
    vsy_HashTableDef(tab, 0);
    vsy_HashTableInitIterOrder(tab);
    EXPECT_EQ(tab->sortkey, nullptr);
    EXPECT_TRUE(walk().empty());
}

TEST_F(HashTableTest, KeyZeroWithEmptyValueIsToldFromTheEndOnlyByTheCaller)
{
    vsy_HashTableInsert(tab, 0, nullptr);
    vsy_HashTableInsert(tab, 2, P(2));
    vsy_HashTableInitIter(tab);
    int key = -1;
    void* value = P(1);
    vsy_HashTableNextIter(tab, &key, &value);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(value, nullptr);  // looks like the end, as documented
    vsy_HashTableNextIter(tab, &key, &value);
    EXPECT_EQ(key, 2);
}

TEST_F(HashTableTest, SortedIterationAscendsAndReleasesItsArraysAtTheEnd)
{
    std::vector<int> keys = {50, -7, 3, 1000000, 0, 12, -100000, 4, 5, 6, 7, 8, 9, 10};
    for (int k : keys) vsy_HashTableInsert(tab, k, P(k * 2 + 1));
    vsy_HashTableInitIterOrder(tab);
    EXPECT_EQ(tab->nsorted, static_cast<int>(keys.size()) - 1);
    ASSERT_NE(tab->sortkey, nullptr);
    std::vector<std::pair<int, void*>> got = walk();
    std::vector<std::pair<int, void*>> want = {{0, P(1)}};
    std::set<int> sorted(keys.begin(), keys.end());
    for (int k : sorted)
        if (k != 0) want.emplace_back(k, P(k * 2 + 1));
    EXPECT_EQ(got, want);
    EXPECT_EQ(tab->sortkey, nullptr);
    EXPECT_EQ(tab->sortslot, nullptr);
    EXPECT_EQ(tab->nsorted, 0);
    // The next plain iteration is in slot order again.
    vsy_HashTableInitIter(tab);
    got = walk();
    EXPECT_EQ(got.size(), keys.size());
}

TEST_F(HashTableTest, IterationAfterRemovalSkipsRemovedEntries)
{
    for (int k = 1; k <= 30; ++k) vsy_HashTableInsert(tab, k, P(k));
    for (int k = 2; k <= 30; k += 2) vsy_HashTableRemove(tab, k);
    vsy_HashTableInitIter(tab);
    std::set<int> seen;
    for (auto& kv : walk()) seen.insert(kv.first);
    std::set<int> want;
    for (int k = 1; k <= 30; k += 2) want.insert(k);
    EXPECT_EQ(seen, want);
    vsy_HashTableInitIterOrder(tab);
    std::vector<int> order;
    for (auto& kv : walk()) order.push_back(kv.first);
    EXPECT_EQ(order, std::vector<int>(want.begin(), want.end()));
}

TEST_F(HashTableTest, SortedIterationSurvivesRemovalAndGrowthOnTheWay)
{
    for (int k = 1; k <= 5; ++k) vsy_HashTableInsert(tab, k, P(k));
    vsy_HashTableInitIterOrder(tab);
    int key = 0;
    void* value = nullptr;
    vsy_HashTableNextIter(tab, &key, &value);
    EXPECT_EQ(key, 1);
    vsy_HashTableRemove(tab, 3);
    for (int k = 100; k < 140; ++k) vsy_HashTableInsert(tab, k, P(k));  // grows several times
    std::vector<int> rest;
    for (auto& kv : walk()) rest.push_back(kv.first);
    EXPECT_EQ(rest, (std::vector<int>{2, 4, 5}));
}

TEST_F(HashTableTest, MaxKey)
{
    int key = 77;
    vsy_HashTableMaxKey(tab, &key);
    EXPECT_EQ(key, 0);
    vsy_HashTableInsert(tab, -5, P(1));
    vsy_HashTableInsert(tab, -9, P(1));
    vsy_HashTableMaxKey(tab, &key);
    EXPECT_EQ(key, -5);
    vsy_HashTableInsert(tab, 0, P(1));
    vsy_HashTableMaxKey(tab, &key);
    EXPECT_EQ(key, 0);
    vsy_HashTableInsert(tab, 31, P(1));
    vsy_HashTableInsert(tab, 8, P(1));
    vsy_HashTableMaxKey(tab, &key);
    EXPECT_EQ(key, 31);
    vsy_HashTableRemove(tab, 31);
    vsy_HashTableMaxKey(tab, &key);
    EXPECT_EQ(key, 8);
}

TEST_F(HashTableTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([] { EXPECT_EQ(vsy_HashTableNew(), nullptr); }),
              "\nHashTable: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nCreation Failure\n");
}

TEST_F(HashTableTest, DefAllocationFailureKeepsTheTable)
{
    vsy_HashTableInsert(tab, 7, P(7));
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_HashTableDef(tab, 500); }),
              "\nvsy_HashTableDef: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nnument= 500\n");
    EXPECT_EQ(vsy_HashTableError(tab), 4);
    EXPECT_EQ(vsy_HashTableError(tab), 0);
    EXPECT_EQ(get(7), P(7));
    EXPECT_EQ(tab->size, 11);
}

TEST_F(HashTableTest, InsertIntoUndefinedTableWithFailingDef)
{
    FailAllocation(1);
    vsy_HashTableInsert(tab, 7, P(7));
    ExpectOnlyReport("vsy_HashTableDef", 4, "nument= 0");
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(get(7), nullptr);
    RestoreAllocation();
    vsy_HashTableInsert(tab, 7, P(7));
    EXPECT_EQ(get(7), P(7));
}

TEST_F(HashTableTest, GrowthFailureKeepsEveryEntryAndRetriesLater)
{
    vsy_HashTableDef(tab, 0);
    for (int k = 1; k <= 5; ++k) vsy_HashTableInsert(tab, k, P(k));
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_HashTableInsert(tab, 6, P(6)); }),
              "\nvsy_HashTable_Expand: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\n");
    EXPECT_EQ(vsy_HashTableError(tab), 4);
    EXPECT_EQ(tab->size, 11);
    EXPECT_EQ(count(), 6);
    for (int k = 1; k <= 6; ++k) EXPECT_EQ(get(k), P(k));
    vsy_HashTableInsert(tab, 7, P(7));  // the next call succeeds
    EXPECT_EQ(tab->size, 17);
    for (int k = 1; k <= 7; ++k) EXPECT_EQ(get(k), P(k));
    EXPECT_EQ(vsy_HashTableError(tab), 0);
}

TEST_F(HashTableTest, FullTableAfterFailedGrowthIsSlotSearchError)
{
    vsy_HashTableDef(tab, 0);
    FailAllocation(1, true);
    for (int k = 1; k <= 11; ++k) vsy_HashTableInsert(tab, k, P(k));
    EXPECT_EQ(count(), 11);
    Reports().clear();
    std::string out = CaptureReport([&] { vsy_HashTableInsert(tab, 12, P(12)); });
    EXPECT_EQ(out, "\nvsy_HashTableInsert: ierr= 8\nSYS_ERROR_OPERATION   An operation failed in current state\n"
                   "Slot search, key= 12\n");
    EXPECT_EQ(vsy_HashTableError(tab), 8);
    EXPECT_EQ(count(), 11);
    // Lookups in a full table end after size probes.
    EXPECT_EQ(get(12), nullptr);
    EXPECT_EQ(get(3), P(3));
    // Replacing a present key and key 0 still work.
    vsy_HashTableInsert(tab, 4, P(44));
    EXPECT_EQ(get(4), P(44));
    vsy_HashTableInsert(tab, 0, P(1));
    EXPECT_EQ(count(), 12);
    RestoreAllocation();
    vsy_HashTableRemove(tab, 5);
    vsy_HashTableInsert(tab, 12, P(12));  // takes the removed slot, then grows
    EXPECT_EQ(get(12), P(12));
    EXPECT_EQ(tab->size, 17);
}

TEST_F(HashTableTest, SortedArraysFailureFallsBackToSlotOrder)
{
    for (int k = 1; k <= 4; ++k) vsy_HashTableInsert(tab, k, P(k));
    FailAllocation(2);
    vsy_HashTableInitIterOrder(tab);
    ExpectOnlyReport("vsy_HashTableInitIterOrder", 4, "Malloc vec");
    EXPECT_EQ(tab->sortkey, nullptr);
    EXPECT_EQ(tab->sortslot, nullptr);
    EXPECT_EQ(walk().size(), 4u);
}

TEST_F(HashTableTest, NullObjectIsReported)
{
    vsy_HashTableInsert(nullptr, 1, nullptr);
    ExpectOnlyReport("vsy_HashTableInsert", 5, "");
    void* v = P(3);
    vsy_HashTableGet(nullptr, 1, &v);
    EXPECT_EQ(v, P(3));
    vsy_HashTableDelete(nullptr);
    EXPECT_EQ(vsy_HashTableError(nullptr), 5);
}

TEST_F(HashTableTest, DifferentialAgainstStandardMaps)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        vsy_HashTableDelete(tab);
        tab = vsy_HashTableNew();
        std::unordered_map<int, intptr_t> ref;
        Rng rng(seed);
        int range = seed <= 3 ? 300 : 40000;
        int lastSize = 0, growths = 0;
        for (int step = 0; step < 30000; ++step) {
            int key = rng.below(2 * range + 1) - range;
            int op = rng.below(10);
            if (op < 6) {
                intptr_t value = static_cast<intptr_t>(rng.next()) + 1;
                vsy_HashTableInsert(tab, key, P(value));
                ref[key] = value;
            } else if (op < 9) {
                vsy_HashTableRemove(tab, key);
                ref.erase(key);
            } else {
                auto it = ref.find(key);
                ASSERT_EQ(get(key), it == ref.end() ? nullptr : P(it->second)) << seed << " " << step;
            }
            ASSERT_EQ(count(), static_cast<int>(ref.size()));
            ASSERT_LE(tab->count - tab->haszero, tab->limit);
            if (tab->size != lastSize) {
                ++growths;
                lastSize = tab->size;
            }
            if (step % 5000 == 4999) {
                std::map<int, intptr_t> sorted(ref.begin(), ref.end());
                vsy_HashTableInitIterOrder(tab);
                std::vector<std::pair<int, void*>> got = walk();
                // Key 0 comes first, then the other keys ascending.
                std::vector<std::pair<int, void*>> want;
                if (sorted.count(0)) want.emplace_back(0, P(sorted[0]));
                for (auto& kv : sorted)
                    if (kv.first != 0) want.emplace_back(kv.first, P(kv.second));
                ASSERT_EQ(got, want);
                vsy_HashTableInitIter(tab);
                got = walk();
                std::map<int, intptr_t> seen;
                for (auto& kv : got) seen[kv.first] = reinterpret_cast<intptr_t>(kv.second);
                ASSERT_EQ(seen, sorted);
                ASSERT_EQ(got.size(), sorted.size());
            }
        }
        EXPECT_GE(growths, 3) << seed;
        for (int key = -range; key <= range; ++key) {
            auto it = ref.find(key);
            ASSERT_EQ(get(key), it == ref.end() ? nullptr : P(it->second));
        }
    }
    ExpectNoReport();
}

TEST_F(HashTableTest, HoldsAMillionEntries)
{
    const int n = 1000000;
    for (int k = 1; k <= n; ++k) vsy_HashTableInsert(tab, k * 7, P(k));
    EXPECT_EQ(count(), n);
    EXPECT_LE(tab->count, tab->limit);
    for (int k = 1; k <= n; ++k) ASSERT_EQ(get(k * 7), P(k));
    EXPECT_EQ(get(3), nullptr);
    int maxkey = 0;
    vsy_HashTableMaxKey(tab, &maxkey);
    EXPECT_EQ(maxkey, 7 * n);
    vsy_HashTableInitIterOrder(tab);
    int seen = 0, prev = 0;
    for (;;) {
        int key;
        void* value;
        vsy_HashTableNextIter(tab, &key, &value);
        if (key == 0 && value == nullptr) break;
        ASSERT_GT(key, prev);
        prev = key;
        ++seen;
    }
    EXPECT_EQ(seen, n);
    for (int k = 1; k <= n; k += 2) vsy_HashTableRemove(tab, k * 7);
    EXPECT_EQ(count(), n / 2);
    ExpectNoReport();
}

namespace {

int g_frees = 0;

void CountingFree(void* p)
{
    if (p) ++g_frees;
    std::free(p);
}

TEST_F(HashTableTest, DeleteValuesFreesEveryValueAndTheTable)
{
    vsy_HashTable* tab = vsy_HashTableNew();
    for (int key = 0; key < 3; ++key) vsy_HashTableInsert(tab, key, vsy_Malloc(8));  // key 0 as well
    g_frees = 0;
    vsy_SetMemoryFunctions(nullptr, nullptr, CountingFree);
    vsy_HashTableDeleteValues(tab);
    vsy_SetMemoryFunctions(nullptr, nullptr, nullptr);
    EXPECT_EQ(g_frees, 5);  // three values, the slots and the record
    vsy_HashTableDeleteValues(nullptr);
}

}  // namespace
