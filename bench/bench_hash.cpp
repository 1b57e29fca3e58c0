// Inserts and lookups per second of vsy_HashTable and vsy_IntHash against std::unordered_map,
// on the same keys: sequential ids (the common case of mesh ids) and scattered ids.
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"

#include <benchmark/benchmark.h>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace {

// Keys of one run: arg 1 selects scattered keys, otherwise 1..n.
std::vector<int> Keys(int n, bool scattered)
{
    std::vector<int> keys(n);
    uint32_t x = 2463534242u;
    for (int i = 0; i < n; ++i) {
        if (scattered) {
            x ^= x << 13;
            x ^= x >> 17;
            x ^= x << 5;
            keys[i] = static_cast<int>(x & 0x3FFFFFFF) + 1;
        } else {
            keys[i] = i + 1;
        }
    }
    return keys;
}

void BM_HashTableInsert(benchmark::State& state)
{
    std::vector<int> keys = Keys(static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        vsy_HashTable* tab = vsy_HashTableNew();
        for (int k : keys) vsy_HashTableInsert(tab, k, reinterpret_cast<void*>(static_cast<intptr_t>(k)));
        benchmark::DoNotOptimize(tab->count);
        vsy_HashTableDelete(tab);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(keys.size()));
}

void BM_HashTableGet(benchmark::State& state)
{
    std::vector<int> keys = Keys(static_cast<int>(state.range(0)), state.range(1) != 0);
    vsy_HashTable* tab = vsy_HashTableNew();
    for (int k : keys) vsy_HashTableInsert(tab, k, reinterpret_cast<void*>(static_cast<intptr_t>(k)));
    for (auto _ : state) {
        intptr_t sum = 0;
        for (int k : keys) {
            void* v;
            vsy_HashTableGet(tab, k, &v);
            sum += reinterpret_cast<intptr_t>(v);
        }
        benchmark::DoNotOptimize(sum);
    }
    vsy_HashTableDelete(tab);
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(keys.size()));
}

void BM_IntHashInsert(benchmark::State& state)
{
    std::vector<int> keys = Keys(static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        vsy_IntHash* tab = vsy_IntHashNew();
        for (int k : keys) vsy_IntHashInsert(tab, k, k);
        benchmark::DoNotOptimize(tab->count);
        vsy_IntHashDelete(tab);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(keys.size()));
}

void BM_IntHashGet(benchmark::State& state)
{
    std::vector<int> keys = Keys(static_cast<int>(state.range(0)), state.range(1) != 0);
    vsy_IntHash* tab = vsy_IntHashNew();
    for (int k : keys) vsy_IntHashInsert(tab, k, k);
    for (auto _ : state) {
        long long sum = 0;
        for (int k : keys) {
            int v;
            vsy_IntHashGet(tab, k, &v);
            sum += v;
        }
        benchmark::DoNotOptimize(sum);
    }
    vsy_IntHashDelete(tab);
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(keys.size()));
}

void BM_StdUnorderedMapInsert(benchmark::State& state)
{
    std::vector<int> keys = Keys(static_cast<int>(state.range(0)), state.range(1) != 0);
    for (auto _ : state) {
        std::unordered_map<int, int> map;
        for (int k : keys) map[k] = k;
        benchmark::DoNotOptimize(map.size());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(keys.size()));
}

void BM_StdUnorderedMapGet(benchmark::State& state)
{
    std::vector<int> keys = Keys(static_cast<int>(state.range(0)), state.range(1) != 0);
    std::unordered_map<int, int> map;
    for (int k : keys) map[k] = k;
    for (auto _ : state) {
        long long sum = 0;
        for (int k : keys) {
            auto it = map.find(k);
            sum += it == map.end() ? 0 : it->second;
        }
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(keys.size()));
}

// Arguments: number of keys, then 0 for sequential ids or 1 for scattered ids.
#define HASH_ARGS ->Args({100000, 0})->Args({100000, 1})->Args({1000000, 0})->Args({1000000, 1})->Unit(benchmark::kMillisecond)

BENCHMARK(BM_HashTableInsert) HASH_ARGS;
BENCHMARK(BM_IntHashInsert) HASH_ARGS;
BENCHMARK(BM_StdUnorderedMapInsert) HASH_ARGS;
BENCHMARK(BM_HashTableGet) HASH_ARGS;
BENCHMARK(BM_IntHashGet) HASH_ARGS;
BENCHMARK(BM_StdUnorderedMapGet) HASH_ARGS;

}  // namespace

BENCHMARK_MAIN();
