// Seeded random drivers of the containers: random operations, keys, indices and sizes against
// a standard container as the oracle, then the same with allocations failing at random. No
// operation may crash or touch memory out of bounds (the sanitizer builds run these), the
// contents must match the oracle while memory lasts, and every refusal must be a report.
#include "FuzzSupport.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"
#include "vsy_IntVec.h"
#include "vsy_List.h"

#include <climits>
#include <map>
#include <vector>

using namespace vsytest;
using namespace fuzztest;

namespace {

class ContainerFuzz : public ContainerTest {};

// Keys from a narrow band (many collisions, 0 and negatives) and a few extremes.
int Key(Rng& rng)
{
    switch (rng.below(10)) {
    case 0: return INT_MIN;
    case 1: return INT_MAX;
    case 2: return static_cast<int>(rng.next());
    default: return rng.below(64) - 16;
    }
}

void* Ptr(int v)
{
    return reinterpret_cast<void*>(static_cast<intptr_t>(v) * 16 + 8);
}

TEST_F(ContainerFuzz, HashTableAgainstMap)
{
    for (int seed = 1, seeds = Seeds(); seed <= seeds; ++seed) {
        Rng rng(seed);
        vsy_HashTable* tab = vsy_HashTableNew();
        std::map<int, void*> oracle;
        for (int op = 0; op < 300; ++op) {
            const int key = Key(rng);
            const size_t before = Reports().size();
            switch (rng.below(6)) {
            case 0:
            case 1: {
                void* v = Ptr(rng.below(1000) + 1);
                vsy_HashTableInsert(tab, key, v);
                oracle[key] = v;
                break;
            }
            case 2:
                vsy_HashTableRemove(tab, key);
                oracle.erase(key);
                break;
            case 3: {
                void* v = Ptr(-1);
                vsy_HashTableGet(tab, key, &v);
                auto it = oracle.find(key);
                EXPECT_EQ(v, it == oracle.end() ? nullptr : it->second) << "seed " << seed;
                break;
            }
            case 4: {
                if (rng.below(20) != 0) break;
                vsy_HashTableDef(tab, rng.below(40) - 5);
                oracle.clear();
                break;
            }
            default: {
                // Ascending iteration gives the oracle's keys in order, key 0 first when held.
                std::vector<int> keys;
                vsy_HashTableInitIterOrder(tab);
                for (size_t n = 0; n <= oracle.size() + 1; ++n) {
                    int k = 0;
                    void* v = nullptr;
                    vsy_HashTableNextIter(tab, &k, &v);
                    if (!v) break;
                    keys.push_back(k);
                }
                std::vector<int> want;
                if (oracle.count(0)) want.push_back(0);
                for (const auto& e : oracle)
                    if (e.first != 0) want.push_back(e.first);
                EXPECT_EQ(keys, want) << "seed " << seed;
            }
            }
            ExpectReported(vsy_HashTableError(tab), before, "vsy_HashTable");
        }
        int count = -1;
        vsy_HashTableCount(tab, &count);
        EXPECT_EQ(count, static_cast<int>(oracle.size())) << "seed " << seed;
        vsy_HashTableDelete(tab);
    }
}

TEST_F(ContainerFuzz, IntHashAgainstMap)
{
    for (int seed = 1, seeds = Seeds(); seed <= seeds; ++seed) {
        Rng rng(seed);
        vsy_IntHash* tab = vsy_IntHashNew();
        std::map<int, int> oracle;
        for (int op = 0; op < 300; ++op) {
            const int key = Key(rng);
            const size_t before = Reports().size();
            const int r = rng.below(8);
            if (r < 4) {
                // Value 0 is the empty value: refused with code 1 and nothing stored.
                const int v = rng.below(6) == 0 ? 0 : rng.below(2000) - 1000;
                vsy_IntHashInsert(tab, key, v);
                const int code = vsy_IntHashError(tab);
                if (v == 0) EXPECT_EQ(code, 1) << "seed " << seed;
                else oracle[key] = v;
                ExpectReported(code, before, "vsy_IntHashInsert");
                continue;
            }
            if (r < 7) {
                int v = -7;
                vsy_IntHashGet(tab, key, &v);
                auto it = oracle.find(key);
                EXPECT_EQ(v, it == oracle.end() ? 0 : it->second) << "seed " << seed;
            } else if (rng.below(10) == 0) {
                vsy_IntHashClear(tab);
                oracle.clear();
            }
            ExpectReported(vsy_IntHashError(tab), before, "vsy_IntHash");
        }
        int count = -1;
        vsy_IntHashCount(tab, &count);
        EXPECT_EQ(count, static_cast<int>(oracle.size())) << "seed " << seed;
        vsy_IntHashDelete(tab);
    }
}

TEST_F(ContainerFuzz, IntVecAgainstMap)
{
    for (int seed = 1, seeds = Seeds(); seed <= seeds; ++seed) {
        Rng rng(seed);
        vsy_IntVec* vec = vsy_IntVecNew();
        const int low = rng.below(2) ? 0 : 1;
        if (low == 0) vsy_IntVecSetParami(vec, VSY_INTVEC_INDEXZERO, 1);
        std::map<int, int> oracle;
        int defval = 0;
        for (int op = 0; op < 200; ++op) {
            const int idx = rng.below(8) == 0 ? -rng.below(5) : rng.below(300);
            const size_t before = Reports().size();
            switch (rng.below(6)) {
            case 0:
            case 1: {
                const int v = rng.below(100);
                vsy_IntVecSet(vec, idx, v);
                const int code = vsy_IntVecError(vec);
                EXPECT_EQ(code, idx < low ? 1 : 0) << "seed " << seed << " idx " << idx;
                if (idx >= low) oracle[idx] = v;
                ExpectReported(code, before, "vsy_IntVecSet");
                continue;
            }
            case 2: {
                int v = -1;
                vsy_IntVecGet(vec, idx, &v);
                auto it = oracle.find(idx);
                if (idx >= low) {
                    EXPECT_EQ(v, it == oracle.end() ? defval : it->second) << "seed " << seed;
                }
                break;
            }
            case 3:
                if (rng.below(10) == 0) {
                    const int n = rng.below(60) - 5;
                    vsy_IntVecDef(vec, n);
                    if (n >= 0) oracle.clear();
                }
                break;
            case 4:
                // A new default counts for indices not filled yet only: drop the oracle's view
                // by defining the vector again.
                if (rng.below(10) == 0) {
                    defval = rng.below(9);
                    vsy_IntVecSetDefault(vec, defval);
                    vsy_IntVecDef(vec, 0);
                    oracle.clear();
                }
                break;
            default:
                vsy_IntVecSetParami(vec, 2 * rng.below(2), 1);  // options 0 and 2 are refused
            }
            ExpectReported(vsy_IntVecError(vec), before, "vsy_IntVec");
        }
        vsy_IntVecDelete(vec);
    }
}

TEST_F(ContainerFuzz, ListAgainstVector)
{
    for (int seed = 1, seeds = Seeds(); seed <= seeds; ++seed) {
        Rng rng(seed);
        vsy_List* list = vsy_ListNew();
        std::vector<void*> oracle;
        for (int op = 0; op < 200; ++op) {
            const int index = rng.below(static_cast<int>(oracle.size()) + 5) - 2;
            const size_t before = Reports().size();
            switch (rng.below(5)) {
            case 0:
            case 1: {
                void* v = Ptr(op + 1);
                vsy_ListAppend(list, v);
                oracle.push_back(v);
                break;
            }
            case 2: {
                void* v = Ptr(-op);
                vsy_ListSet(list, index, v);
                const bool in = index >= 1 && index <= static_cast<int>(oracle.size());
                const int code = vsy_ListError(list);
                EXPECT_EQ(code, in ? 0 : 1) << "seed " << seed;
                if (in) oracle[static_cast<size_t>(index - 1)] = v;
                ExpectReported(code, before, "vsy_ListSet");
                continue;
            }
            case 3: {
                void* v = Ptr(7);
                vsy_ListRef(list, index, &v);
                const bool in = index >= 1 && index <= static_cast<int>(oracle.size());
                EXPECT_EQ(v, in ? oracle[static_cast<size_t>(index - 1)] : nullptr) << "seed " << seed;
                break;
            }
            default:
                if (rng.below(10) == 0) {
                    const int n = rng.below(20) - 3;
                    vsy_ListDef(list, n);
                    if (n >= 0) oracle.clear();
                }
            }
            ExpectReported(vsy_ListError(list), before, "vsy_List");
        }
        int num = -1;
        vsy_ListCount(list, &num);
        EXPECT_EQ(num, static_cast<int>(oracle.size())) << "seed " << seed;
        vsy_ListDelete(list);
    }
}

// The same operations with allocations failing at random: contents may then differ from any
// oracle, but nothing may crash, and every polled code must have its report.
TEST_F(ContainerFuzz, FailingAllocations)
{
    for (int seed = 1, seeds = Seeds(); seed <= seeds; ++seed) {
        Rng rng(seed);
        vsy_HashTable* tab = vsy_HashTableNew();
        vsy_IntHash* ih = vsy_IntHashNew();
        vsy_IntVec* vec = vsy_IntVecNew();
        vsy_List* list = vsy_ListNew();
        FailAllocation(rng.below(40) + 1, rng.below(2) == 0);
        for (int op = 0; op < 150; ++op) {
            const int key = Key(rng);
            size_t before = Reports().size();
            vsy_HashTableInsert(tab, key, Ptr(op + 1));
            if (rng.below(4) == 0) vsy_HashTableRemove(tab, Key(rng));
            ExpectReported(vsy_HashTableError(tab), before, "vsy_HashTable");
            before = Reports().size();
            vsy_IntHashInsert(ih, key, op + 1);
            ExpectReported(vsy_IntHashError(ih), before, "vsy_IntHash");
            before = Reports().size();
            vsy_IntVecSet(vec, rng.below(500), op);
            ExpectReported(vsy_IntVecError(vec), before, "vsy_IntVec");
            before = Reports().size();
            vsy_ListAppend(list, Ptr(op + 1));
            ExpectReported(vsy_ListError(list), before, "vsy_List");
        }
        RestoreAllocation();
        // Whatever was stored reads back through the ordinary queries.
        int count = 0, num = 0, v = 0;
        vsy_HashTableCount(tab, &count);
        vsy_IntHashCount(ih, &count);
        vsy_ListCount(list, &num);
        for (int i = 1; i <= num; ++i) {
            void* p = nullptr;
            vsy_ListRef(list, i, &p);
            EXPECT_NE(p, nullptr) << "seed " << seed;
        }
        vsy_IntVecGet(vec, 3, &v);
        vsy_HashTableDelete(tab);
        vsy_IntHashDelete(ih);
        vsy_IntVecDelete(vec);
        vsy_ListDelete(list);
    }
}

}  // namespace
