// vsy_Dictionary: removal markers and reuse, case-blind comparison on a raw-byte hash, growth,
// slot-order and sorted iteration, every report, allocation failure, and a differential run
// against std::map.
#include "vsy_Dictionary.h"

#include "vsy_Hash.h"
#include "vsy_TestSupport.h"

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <climits>
#include <vector>

using namespace vsytest;

namespace {

typedef std::vector<std::pair<std::string, void*>> Entries;

void* P(intptr_t v)
{
    return reinterpret_cast<void*>(v);
}

class DictionaryTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        dict = vsy_DictionaryNew();
        ASSERT_NE(dict, nullptr);
    }
    void TearDown() override
    {
        vsy_DictionaryDelete(dict);
        ContainerTest::TearDown();
    }
    void* get(const char* name)
    {
        void* v = P(0x5A5A);
        vsy_DictionaryGet(dict, name, &v);
        return v;
    }
    int count()
    {
        int n = -1;
        vsy_DictionaryCount(dict, &n);
        return n;
    }
    int slotOf(const char* name)
    {
        for (int s = 0; s < dict->size; ++s)
            if (dict->slots[s].name && std::strcmp(dict->slots[s].name, name) == 0) return s;
        return -1;
    }
    Entries walk()
    {
        Entries out;
        for (int guard = 0; guard < 10000000; ++guard) {
            const char* name = "x";
            void* value = P(0x77);
            vsy_DictionaryNextIter(dict, &name, &value);
            if (!name) {
                EXPECT_EQ(value, dict->empty);
                break;
            }
            out.emplace_back(name, value);
        }
        return out;
    }
    vsy_Dictionary* dict = nullptr;
};

// A size past the largest table is refused before anything is allocated.
TEST_F(DictionaryTest, DefBeyondTheLargestSizeFailsWithoutAllocating)
{
    int x = 0;
    vsy_DictionaryInsert(dict, "a", &x);
    CountAllocations();
    vsy_DictionaryDef(dict, INT_MAX);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vsy_DictionaryDef", 4, "nument= 2147483647");
    void* v = nullptr;
    vsy_DictionaryGet(dict, "a", &v);
    EXPECT_EQ(v, &x);
}

}  // namespace

TEST_F(DictionaryTest, NewRecordHasStartValues)
{
    EXPECT_EQ(dict->ierr, 0);
    EXPECT_EQ(dict->iter, -1);
    EXPECT_EQ(dict->nocase, 0);
    EXPECT_EQ(dict->sortslot, nullptr);
    EXPECT_EQ(dict->sortname, nullptr);
    EXPECT_EQ(dict->count, 0);
    EXPECT_EQ(dict->size, 0);
    EXPECT_EQ(dict->slots, nullptr);
    EXPECT_EQ(dict->empty, nullptr);
    vsy_DictionaryInitIter(dict);
    EXPECT_EQ(dict->iter, 0);
    EXPECT_TRUE(walk().empty());  // an empty dictionary ends at once
}

TEST_F(DictionaryTest, DefAndInsertAndGet)
{
    vsy_DictionaryDef(dict, 0);
    EXPECT_EQ(dict->size, 257);
    EXPECT_EQ(dict->limit, 128);
    vsy_DictionaryInsert(dict, "orient", P(3));
    vsy_DictionaryInsert(dict, "zero", nullptr);  // no reserved value
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(get("orient"), P(3));
    EXPECT_EQ(get("zero"), nullptr);
    EXPECT_EQ(get("Orient"), nullptr);
    vsy_DictionaryInsert(dict, "orient", P(4));
    EXPECT_EQ(get("orient"), P(4));
    EXPECT_EQ(count(), 2);
    ExpectNoReport();
}

TEST_F(DictionaryTest, RemovedNameIsInsertedAgainInTheRemovedSlot)
{
    vsy_DictionaryInsert(dict, "PBAR", P(1));
    int s = slotOf("PBAR");
    ASSERT_GE(s, 0);
    vsy_DictionaryRemove(dict, "PBAR");
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(dict->slots[s].name, nullptr);
    EXPECT_EQ(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(dict->slots[s].value)), 0xFFFFFFFFu);
    EXPECT_EQ(get("PBAR"), nullptr);
    vsy_DictionaryInsert(dict, "PBAR", P(2));
    EXPECT_EQ(slotOf("PBAR"), s);
    EXPECT_EQ(get("PBAR"), P(2));
    EXPECT_EQ(count(), 1);
    ExpectNoReport();
}

TEST_F(DictionaryTest, SearchPassesRemovedSlotsAndNewNamesReuseThem)
{
    vsy_DictionaryDef(dict, 0);
    // Three names with one home slot lie on one probe path.
    std::vector<std::string> same;
    int home = vsy_Hash_NameHome("n0", 257);
    for (int i = 0; same.size() < 3 && i < 1000000; ++i) {
        std::string n = "n" + std::to_string(i);
        if (vsy_Hash_NameHome(n.c_str(), 257) == home) same.push_back(n);
    }
    ASSERT_EQ(same.size(), 3u);
    for (int i = 0; i < 3; ++i) vsy_DictionaryInsert(dict, same[i].c_str(), P(i + 1));
    int step = vsy_Hash_NameStep(home);
    EXPECT_EQ(slotOf(same[1].c_str()), (home + step) % 257);
    vsy_DictionaryRemove(dict, same[0].c_str());
    vsy_DictionaryRemove(dict, same[1].c_str());
    EXPECT_EQ(get(same[2].c_str()), P(3));  // found past two removed slots
    // Re-inserting the third name finds it where it is.
    vsy_DictionaryInsert(dict, same[2].c_str(), P(9));
    EXPECT_EQ(slotOf(same[2].c_str()), (home + 2 * step) % 257);
    EXPECT_EQ(count(), 1);
    // A new name of the same path takes the first removed slot.
    vsy_DictionaryInsert(dict, same[1].c_str(), P(5));
    EXPECT_EQ(slotOf(same[1].c_str()), home);
    EXPECT_EQ(count(), 2);
}

TEST_F(DictionaryTest, RemoveMissingOrNullIsNoError)
{
    vsy_DictionaryRemove(dict, "nothing");
    vsy_DictionaryInsert(dict, "a", P(1));
    vsy_DictionaryRemove(dict, "b");
    vsy_DictionaryRemove(dict, nullptr);
    vsy_DictionaryRemove(dict, "a");
    vsy_DictionaryRemove(dict, "a");
    EXPECT_EQ(count(), 0);
    ExpectNoReport();
}

TEST_F(DictionaryTest, NoCaseComparesUpperCasedButHashesRawBytes)
{
    vsy_DictionarySetParami(dict, VSY_DICTIONARY_NOCASE, 1);
    EXPECT_EQ(dict->nocase, 1);
    vsy_DictionaryInsert(dict, "abc", P(1));
    EXPECT_EQ(get("abc"), P(1));
    // "ABC" starts elsewhere and meets no entry on its path: it is a separate name.
    ASSERT_NE(vsy_Hash_NameHome("ABC", 257), vsy_Hash_NameHome("abc", 257));
    EXPECT_EQ(get("ABC"), nullptr);
    vsy_DictionaryInsert(dict, "ABC", P(2));
    EXPECT_EQ(count(), 2);
    // Where the paths meet, the other spelling is found: move "abc" onto the home of "ABC".
    vsy_DictionaryRemove(dict, "ABC");
    int from = slotOf("abc");
    int to = vsy_Hash_NameHome("ABC", 257);
    ASSERT_NE(from, to);
    dict->slots[to] = dict->slots[from];
    dict->slots[from].name = nullptr;
    dict->slots[from].value = nullptr;
    EXPECT_EQ(get("ABC"), P(1));
    EXPECT_EQ(get("aBc"), nullptr);  // its path starts elsewhere again
    vsy_DictionarySetParami(dict, VSY_DICTIONARY_NOCASE, 0);
    EXPECT_EQ(get("ABC"), nullptr);  // case matters again
    ExpectNoReport();
}

TEST_F(DictionaryTest, NameCompareHelper)
{
    EXPECT_EQ(vsy_Hash_NameCompare("abc", "ABC", 1), 0);
    EXPECT_NE(vsy_Hash_NameCompare("abc", "ABC", 0), 0);
    EXPECT_LT(vsy_Hash_NameCompare("apple", "Banana", 1), 0);
    EXPECT_GT(vsy_Hash_NameCompare("apple", "Banana", 0), 0);
    EXPECT_LT(vsy_Hash_NameCompare("ab", "abc", 1), 0);
    EXPECT_EQ(vsy_Hash_NameCompare("", "", 1), 0);
}

TEST_F(DictionaryTest, SetParamiUnknownTypeIsErrorTwo)
{
    EXPECT_EQ(CaptureReport([&] { vsy_DictionarySetParami(dict, 7, 1); }),
              "\nvsy_DictionarySetParami: ierr= 2\nSYS_ERROR_ENUM        Argument is not a valid option\ntype= 7\n");
    EXPECT_EQ(dict->nocase, 0);
    EXPECT_EQ(vsy_DictionaryError(dict), 2);
    EXPECT_EQ(vsy_DictionaryError(dict), 0);
}

TEST_F(DictionaryTest, GrowthDropsRemovedSlotsAndKeepsEntries)
{
    for (int i = 0; i < 100; ++i) vsy_DictionaryInsert(dict, ("r" + std::to_string(i)).c_str(), P(i + 1));
    for (int i = 0; i < 100; i += 2) vsy_DictionaryRemove(dict, ("r" + std::to_string(i)).c_str());
    for (int i = 0; i < 79; ++i) vsy_DictionaryInsert(dict, ("s" + std::to_string(i)).c_str(), P(i + 1));
    EXPECT_EQ(count(), 129);
    EXPECT_EQ(dict->size, 559);
    for (int s = 0; s < dict->size; ++s)
        EXPECT_FALSE(!dict->slots[s].name && dict->slots[s].value != nullptr) << s;
    for (int i = 1; i < 100; i += 2) EXPECT_EQ(get(("r" + std::to_string(i)).c_str()), P(i + 1));
    for (int i = 0; i < 79; ++i) EXPECT_EQ(get(("s" + std::to_string(i)).c_str()), P(i + 1));
}

TEST_F(DictionaryTest, IterationInSlotOrderAfterRemoval)
{
    for (int i = 0; i < 20; ++i) vsy_DictionaryInsert(dict, ("it" + std::to_string(i)).c_str(), P(i + 1));
    for (int i = 0; i < 20; i += 3) vsy_DictionaryRemove(dict, ("it" + std::to_string(i)).c_str());
    vsy_DictionaryInitIter(dict);
    Entries want;
    for (int s = 0; s < dict->size; ++s)
        if (dict->slots[s].name) want.emplace_back(dict->slots[s].name, dict->slots[s].value);
    EXPECT_EQ(walk(), want);
    EXPECT_EQ(static_cast<int>(want.size()), count());
    const char* name = "x";
    void* value = P(1);
    vsy_DictionaryNextIter(dict, &name, &value);  // the end repeats
    EXPECT_EQ(name, nullptr);
    EXPECT_EQ(value, nullptr);
}

TEST_F(DictionaryTest, SortedIterationWithAndWithoutCase)
{
    const char* names[] = {"cherry", "Banana", "apple", "Date", "banana2"};
    for (int i = 0; i < 5; ++i) vsy_DictionaryInsert(dict, names[i], P(i + 1));
    vsy_DictionaryInitIterOrder(dict);
    Entries got = walk();
    Entries want = {{"Banana", P(2)}, {"Date", P(4)}, {"apple", P(3)}, {"banana2", P(5)}, {"cherry", P(1)}};
    EXPECT_EQ(got, want);
    EXPECT_EQ(dict->sortslot, nullptr);
    vsy_DictionarySetParami(dict, VSY_DICTIONARY_NOCASE, 1);
    vsy_DictionaryInitIterOrder(dict);
    want = {{"apple", P(3)}, {"Banana", P(2)}, {"banana2", P(5)}, {"cherry", P(1)}, {"Date", P(4)}};
    EXPECT_EQ(walk(), want);
}

TEST_F(DictionaryTest, SortedIterationSkipsNamesRemovedOnTheWay)
{
    for (int i = 0; i < 6; ++i) vsy_DictionaryInsert(dict, ("m" + std::to_string(i)).c_str(), P(i + 1));
    vsy_DictionaryInitIterOrder(dict);
    const char* name = nullptr;
    void* value = nullptr;
    vsy_DictionaryNextIter(dict, &name, &value);
    EXPECT_STREQ(name, "m0");
    vsy_DictionaryRemove(dict, "m2");
    vsy_DictionaryRemove(dict, "m5");
    for (int i = 0; i < 200; ++i) vsy_DictionaryInsert(dict, ("z" + std::to_string(i)).c_str(), P(1));
    Entries rest = walk();
    Entries want = {{"m1", P(2)}, {"m3", P(4)}, {"m4", P(5)}};
    EXPECT_EQ(rest, want);
}

TEST_F(DictionaryTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([] { EXPECT_EQ(vsy_DictionaryNew(), nullptr); }),
              "\nDictionary: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nCreation Failure\n");
}

TEST_F(DictionaryTest, DefFailureKeepsTheDictionary)
{
    vsy_DictionaryInsert(dict, "keep", P(1));
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_DictionaryDef(dict, 300); }),
              "\nvsy_DictionaryDef: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nnument= 300\n");
    EXPECT_EQ(vsy_DictionaryError(dict), 4);
    EXPECT_EQ(get("keep"), P(1));
}

TEST_F(DictionaryTest, NameCopyFailure)
{
    vsy_DictionaryDef(dict, 0);
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_DictionaryInsert(dict, "PSHELL", P(1)); }),
              "\nvsy_DictionaryInsert: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nname= PSHELL\n");
    EXPECT_EQ(count(), 0);
    RestoreAllocation();
    vsy_DictionaryInsert(dict, "PSHELL", P(1));
    EXPECT_EQ(get("PSHELL"), P(1));
}

TEST_F(DictionaryTest, GrowthFailureReportsAlloc)
{
    for (int i = 0; i < 128; ++i) vsy_DictionaryInsert(dict, ("k" + std::to_string(i)).c_str(), P(i + 1));
    FailAllocationsAbove(1000);
    EXPECT_EQ(CaptureReport([&] { vsy_DictionaryInsert(dict, "k128", P(129)); }),
              "\nvsy_Dictionary_Alloc: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\n");
    EXPECT_EQ(vsy_DictionaryError(dict), 4);
    EXPECT_EQ(dict->size, 257);
    for (int i = 0; i <= 128; ++i) EXPECT_EQ(get(("k" + std::to_string(i)).c_str()), P(i + 1));
    RestoreAllocation();
    vsy_DictionaryInsert(dict, "k129", P(130));
    EXPECT_EQ(dict->size, 559);
    EXPECT_EQ(count(), 130);
}

TEST_F(DictionaryTest, FullTableIsSlotSearchError)
{
    vsy_DictionaryDef(dict, 0);
    FailAllocationsAbove(1000);
    for (int i = 0; i < 257; ++i) vsy_DictionaryInsert(dict, ("k" + std::to_string(i)).c_str(), P(i + 1));
    EXPECT_EQ(count(), 257);
    Reports().clear();
    EXPECT_EQ(CaptureReport([&] { vsy_DictionaryInsert(dict, "extra", P(1)); }),
              "\nvsy_DictionaryInsert: ierr= 13\nSYS_ERROR_SEVERE      Severe internal error has occurred\n"
              "Slot search, name= extra\n");
    EXPECT_EQ(get("extra"), nullptr);  // a full search ends after size probes
    vsy_DictionaryRemove(dict, "k3");
    vsy_DictionaryInsert(dict, "extra", P(2));  // takes the removed slot (growth fails again)
    EXPECT_EQ(get("extra"), P(2));
    RestoreAllocation();
}

TEST_F(DictionaryTest, NullNameAndNullObject)
{
    vsy_DictionaryInsert(dict, nullptr, P(1));
    ExpectOnlyReport("vsy_DictionaryInsert", 5, "");
    EXPECT_EQ(get(nullptr), nullptr);
    Reports().clear();
    vsy_DictionaryInsert(nullptr, "a", P(1));
    ExpectOnlyReport("vsy_DictionaryInsert", 5, "");
    vsy_DictionaryDelete(nullptr);
}

TEST_F(DictionaryTest, DifferentialAgainstStdMap)
{
    for (unsigned seed = 31; seed <= 34; ++seed) {
        vsy_DictionaryDelete(dict);
        dict = vsy_DictionaryNew();
        std::map<std::string, intptr_t> ref;
        Rng rng(seed);
        int range = seed % 2 ? 200 : 5000;
        for (int step = 0; step < 20000; ++step) {
            std::string name = "e" + std::to_string(rng.below(range));
            int op = rng.below(10);
            if (op < 5) {
                intptr_t value = static_cast<intptr_t>(rng.next()) + 1;
                vsy_DictionaryInsert(dict, name.c_str(), P(value));
                ref[name] = value;
            } else if (op < 8) {
                vsy_DictionaryRemove(dict, name.c_str());
                ref.erase(name);
            } else {
                auto it = ref.find(name);
                ASSERT_EQ(get(name.c_str()), it == ref.end() ? nullptr : P(it->second));
            }
            ASSERT_EQ(count(), static_cast<int>(ref.size()));
            if (step % 4000 == 3999) {
                vsy_DictionaryInitIterOrder(dict);
                Entries want;
                for (auto& kv : ref) want.emplace_back(kv.first, P(kv.second));
                ASSERT_EQ(walk(), want);
                vsy_DictionaryInitIter(dict);
                Entries got = walk();
                std::map<std::string, void*> seen(got.begin(), got.end());
                ASSERT_EQ(seen.size(), got.size());
                ASSERT_EQ(Entries(seen.begin(), seen.end()), want);
            }
        }
    }
    ExpectNoReport();
}

TEST_F(DictionaryTest, HoldsAMillionEntries)
{
    const int n = 1000000;
    char name[32];
    for (int i = 0; i < n; ++i) {
        std::snprintf(name, sizeof name, "N%d", i);
        vsy_DictionaryInsert(dict, name, P(i + 1));
    }
    EXPECT_EQ(count(), n);
    for (int i = 0; i < n; i += 5) {
        std::snprintf(name, sizeof name, "N%d", i);
        ASSERT_EQ(get(name), P(i + 1));
    }
    for (int i = 0; i < n; i += 2) {
        std::snprintf(name, sizeof name, "N%d", i);
        vsy_DictionaryRemove(dict, name);
    }
    EXPECT_EQ(count(), n / 2);
    ExpectNoReport();
}
