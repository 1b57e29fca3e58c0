// vsy_IntDict: string hash and probe step, prime-like sizes, growth, the reserved value, name
// copies, iteration, every report, allocation failure, and a differential run against std::map.
#include "vsy_IntDict.h"

#include "vsy_Hash.h"
#include "vsy_TestSupport.h"

#include <cstring>
#include <map>
#include <string>
#include <climits>
#include <vector>

using namespace vsytest;

typedef std::vector<std::pair<std::string, int>> Entries;

namespace {

// The string hash computed independently: signed bytes, h = (c + h * 128) % size.
int NameHome(const std::string& name, int size)
{
    long long h = 0;
    for (char ch : name) h = (static_cast<signed char>(ch) + h * 128) % size;
    return static_cast<int>(h < 0 ? -h : h);
}

class IntDictTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        dict = vsy_IntDictNew();
        ASSERT_NE(dict, nullptr);
    }
    void TearDown() override
    {
        vsy_IntDictDelete(dict);
        ContainerTest::TearDown();
    }
    int get(const char* name)
    {
        int v = 0x5A5A;
        vsy_IntDictGet(dict, name, &v);
        return v;
    }
    int count()
    {
        int n = -1;
        vsy_IntDictCount(dict, &n);
        return n;
    }
    std::vector<std::pair<std::string, int>> walk()
    {
        std::vector<std::pair<std::string, int>> out;
        for (int guard = 0; guard < 10000000; ++guard) {
            const char* name = "x";
            int value = -99;
            vsy_IntDictNextIter(dict, &name, &value);
            if (!name) {
                EXPECT_EQ(value, dict->empty);
                break;
            }
            out.emplace_back(name, value);
        }
        return out;
    }
    vsy_IntDict* dict = nullptr;
};

// A size past the largest table (2 * nument + 1 slots would pass VSY_HASH_MAXSIZE) is refused
// before anything is allocated.
TEST_F(IntDictTest, DefBeyondTheLargestSizeFailsWithoutAllocating)
{
    vsy_IntDictInsert(dict, "a", 4);
    CountAllocations();
    vsy_IntDictDef(dict, INT_MAX);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vsy_IntDictDef", 4, "nument= 2147483647");
    EXPECT_EQ(get("a"), 4);
}

}  // namespace

TEST_F(IntDictTest, NewRecordHasStartValues)
{
    EXPECT_EQ(dict->ierr, 0);
    EXPECT_EQ(dict->iter, -1);
    EXPECT_EQ(dict->sortslot, nullptr);
    EXPECT_EQ(dict->sortname, nullptr);
    EXPECT_EQ(dict->count, 0);
    EXPECT_EQ(dict->size, 0);
    EXPECT_EQ(dict->slots, nullptr);
    EXPECT_EQ(dict->empty, 0);
    EXPECT_EQ(get("a"), 0);
}

TEST_F(IntDictTest, DefZeroGives257SlotsAndLimit128)
{
    vsy_IntDictDef(dict, 0);
    EXPECT_EQ(dict->size, 257);
    EXPECT_EQ(dict->limit, 128);
    vsy_IntDictDef(dict, 128);
    EXPECT_EQ(dict->size, 257);
    vsy_IntDictDef(dict, 200);  // 401 = 401: no divisor from 2 to 8
    EXPECT_EQ(dict->size, 401);
    EXPECT_EQ(dict->limit, 200);
    ExpectNoReport();
}

TEST_F(IntDictTest, NextPrimeLikeSkipsBySteps11)
{
    EXPECT_EQ(vsy_NextPrimeLike(128), 257);
    EXPECT_EQ(vsy_NextPrimeLike(257), 559);  // 515, 526, 537, 548 are divisible
    EXPECT_EQ(vsy_NextPrimeLike(559), 1163);  // 1119, 1130, 1141, 1152 are divisible
    EXPECT_EQ(vsy_NextPrimeLike(130), 283);  // 261 and 272 are divisible
    for (int n : {1, 5, 128, 257, 559, 1000, 4096, 99999}) {
        int c = vsy_NextPrimeLike(n);
        EXPECT_GE(c, 2 * n + 1);
        EXPECT_EQ((c - (2 * n + 1)) % 11, 0);
        for (int d = 2; d <= 8; ++d) EXPECT_NE(c % d, 0) << n;
        for (int k = 2 * n + 1; k < c; k += 11) {
            bool divided = false;
            for (int d = 2; d <= 8; ++d) divided = divided || k % d == 0;
            EXPECT_TRUE(divided) << k;
        }
    }
    EXPECT_EQ(vsy_NextPrimeLike(VSY_HASH_MAXSIZE), -1);
}

TEST_F(IntDictTest, StringHashAndStep)
{
    EXPECT_EQ(vsy_Hash_NameHome("", 257), 0);
    EXPECT_EQ(vsy_Hash_NameHome("A", 257), 65);
    EXPECT_EQ(vsy_Hash_NameHome("AB", 257), 162);
    EXPECT_EQ(vsy_Hash_NameHome("\xff", 257), 1);  // the byte counts as -1
    for (const char* name : {"PSHELL", "node_set_1", "\xe4\xf6\xfc-mixed", "a much longer name of a property"})
        for (int size : {257, 559, 1119})
            EXPECT_EQ(vsy_Hash_NameHome(name, size), NameHome(name, size)) << name;
    EXPECT_EQ(vsy_Hash_NameStep(162), 6);
    EXPECT_EQ(vsy_Hash_NameStep(0), 8);
    EXPECT_EQ(vsy_Hash_NameStep(7), 1);
}

TEST_F(IntDictTest, EntriesLieOnTheFixedStepPath)
{
    vsy_IntDictInsert(dict, "AB", 1);
    EXPECT_STREQ(dict->slots[162].name, "AB");
    // Fill slot 162 + 6 first, then a name with home 162 goes two steps on.
    std::vector<std::string> same;
    for (int i = 0; same.size() < 2 && i < 1000000; ++i) {
        std::string n = "n" + std::to_string(i);
        if (NameHome(n, 257) == 162) same.push_back(n);
    }
    ASSERT_EQ(same.size(), 2u);
    vsy_IntDictInsert(dict, same[0].c_str(), 2);
    vsy_IntDictInsert(dict, same[1].c_str(), 3);
    EXPECT_EQ(dict->slots[168].name, same[0]);
    EXPECT_EQ(dict->slots[174].name, same[1]);
    EXPECT_EQ(get(same[1].c_str()), 3);
}

TEST_F(IntDictTest, InsertCopiesTheName)
{
    char name[16];
    std::strcpy(name, "temp");
    vsy_IntDictInsert(dict, name, 4);
    std::strcpy(name, "gone");
    EXPECT_EQ(get("temp"), 4);
    EXPECT_EQ(get("gone"), 0);
    vsy_IntDictInsert(dict, "temp", 5);
    EXPECT_EQ(get("temp"), 5);
    EXPECT_EQ(count(), 1);
    vsy_IntDictInsert(dict, "", 6);  // the empty name is a name
    EXPECT_EQ(get(""), 6);
    EXPECT_EQ(get(nullptr), 0);
    ExpectNoReport();
}

TEST_F(IntDictTest, GrowthPastTheLimit)
{
    for (int i = 0; i < 128; ++i) vsy_IntDictInsert(dict, ("k" + std::to_string(i)).c_str(), i + 1);
    EXPECT_EQ(dict->size, 257);
    vsy_IntDictInsert(dict, "k128", 129);
    EXPECT_EQ(dict->size, 559);
    EXPECT_EQ(dict->limit, 279);
    for (int i = 0; i <= 128; ++i) EXPECT_EQ(get(("k" + std::to_string(i)).c_str()), i + 1);
    ExpectNoReport();
}

TEST_F(IntDictTest, ReservedValueIsErrorOne)
{
    EXPECT_EQ(CaptureReport([&] { vsy_IntDictInsert(dict, "PSOLID", 0); }),
              "\nvsy_IntDictInsert: ierr= 1\nSYS_ERROR_VALUE       Argument with an improper value\n"
              "name= PSOLID, value= 0\n");
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(dict->slots, nullptr);
    EXPECT_EQ(vsy_IntDictError(dict), 1);
    EXPECT_EQ(vsy_IntDictError(dict), 0);
}

TEST_F(IntDictTest, NullNameIsCodeFive)
{
    vsy_IntDictInsert(dict, nullptr, 3);
    ExpectOnlyReport("vsy_IntDictInsert", 5, "");
    EXPECT_EQ(vsy_IntDictError(dict), 5);
}

TEST_F(IntDictTest, LongNameInAReportIsTruncatedNotOverrun)
{
    std::string longName(3000, 'q');
    vsy_IntDictInsert(dict, longName.c_str(), 0);
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_EQ(reports()[0].text.size(), static_cast<size_t>(VSY_ERROR_TEXTLEN - 1));
    EXPECT_EQ(reports()[0].text.substr(0, 8), "name= qq");
}

TEST_F(IntDictTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([] { EXPECT_EQ(vsy_IntDictNew(), nullptr); }),
              "\nIntDict: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nCreation Failure\n");
}

TEST_F(IntDictTest, DefFailure)
{
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_IntDictDef(dict, 1000); }),
              "\nvsy_IntDictDef: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nnument= 1000\n");
    EXPECT_EQ(dict->slots, nullptr);
    RestoreAllocation();
    vsy_IntDictInsert(dict, "a", 1);
    EXPECT_EQ(get("a"), 1);
}

TEST_F(IntDictTest, NameCopyFailureChangesNothing)
{
    vsy_IntDictDef(dict, 0);
    FailAllocation(1);
    EXPECT_EQ(CaptureReport([&] { vsy_IntDictInsert(dict, "MAT1", 7); }),
              "\nvsy_IntDictInsert: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nname= MAT1\n");
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(get("MAT1"), 0);
    RestoreAllocation();
    vsy_IntDictInsert(dict, "MAT1", 7);
    EXPECT_EQ(get("MAT1"), 7);
}

TEST_F(IntDictTest, GrowthFailureReportsAllocAndKeepsEntries)
{
    for (int i = 0; i < 128; ++i) vsy_IntDictInsert(dict, ("k" + std::to_string(i)).c_str(), i + 1);
    FailAllocationsAbove(1000);
    EXPECT_EQ(CaptureReport([&] { vsy_IntDictInsert(dict, "k128", 129); }),
              "\nvsy_IntDict_Alloc: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\n");
    EXPECT_EQ(vsy_IntDictError(dict), 4);
    EXPECT_EQ(dict->size, 257);
    EXPECT_EQ(count(), 129);
    for (int i = 0; i <= 128; ++i) EXPECT_EQ(get(("k" + std::to_string(i)).c_str()), i + 1);
}

TEST_F(IntDictTest, FullTableIsSlotSearchError)
{
    vsy_IntDictDef(dict, 0);
    FailAllocationsAbove(1000);  // names are copied, slot arrays cannot grow
    for (int i = 0; i < 257; ++i) vsy_IntDictInsert(dict, ("k" + std::to_string(i)).c_str(), i + 1);
    EXPECT_EQ(count(), 257);
    Reports().clear();
    EXPECT_EQ(CaptureReport([&] { vsy_IntDictInsert(dict, "one too many", 5); }),
              "\nvsy_IntDictInsert: ierr= 13\nSYS_ERROR_SEVERE      Severe internal error has occurred\n"
              "Slot search, name= one too many\n");
    EXPECT_EQ(vsy_IntDictError(dict), 13);
    EXPECT_EQ(count(), 257);
    EXPECT_EQ(get("one too many"), 0);
    EXPECT_EQ(get("k256"), 257);
    RestoreAllocation();
}

TEST_F(IntDictTest, IterationPlainAndSorted)
{
    const char* names[] = {"zeta", "Alpha", "beta", "alpha", "", "gamma7", "gamma10"};
    for (int i = 0; i < 7; ++i) vsy_IntDictInsert(dict, names[i], i + 1);
    vsy_IntDictInitIter(dict);
    std::vector<std::pair<std::string, int>> want;
    for (int s = 0; s < dict->size; ++s)
        if (dict->slots[s].name) want.emplace_back(dict->slots[s].name, dict->slots[s].value);
    EXPECT_EQ(walk(), want);
    vsy_IntDictInitIterOrder(dict);
    std::vector<std::pair<std::string, int>> sorted = walk();
    std::map<std::string, int> ref;
    for (int i = 0; i < 7; ++i) ref[names[i]] = i + 1;
    EXPECT_EQ(sorted, Entries(ref.begin(), ref.end()));
    EXPECT_EQ(dict->sortslot, nullptr);
    EXPECT_EQ(dict->sortname, nullptr);
}

TEST_F(IntDictTest, SortedIterationSurvivesGrowth)
{
    for (int i = 0; i < 10; ++i) vsy_IntDictInsert(dict, ("a" + std::to_string(i)).c_str(), i + 1);
    vsy_IntDictInitIterOrder(dict);
    const char* name = nullptr;
    int value = 0;
    vsy_IntDictNextIter(dict, &name, &value);
    EXPECT_STREQ(name, "a0");
    for (int i = 0; i < 300; ++i) vsy_IntDictInsert(dict, ("b" + std::to_string(i)).c_str(), 1);
    EXPECT_GT(dict->size, 257);
    std::vector<std::pair<std::string, int>> rest = walk();
    ASSERT_EQ(rest.size(), 9u);
    for (int i = 1; i < 10; ++i) EXPECT_EQ(rest[i - 1], std::make_pair("a" + std::to_string(i), i + 1));
}

TEST_F(IntDictTest, SortedArraysFailureFallsBackToSlotOrder)
{
    vsy_IntDictInsert(dict, "x", 1);
    vsy_IntDictInsert(dict, "y", 2);
    FailAllocation(1);
    vsy_IntDictInitIterOrder(dict);
    ExpectOnlyReport("vsy_IntDictInitIterOrder", 4, "Malloc vec");
    EXPECT_EQ(walk().size(), 2u);
}

TEST_F(IntDictTest, DifferentialAgainstStdMap)
{
    std::map<std::string, int> ref;
    Rng rng(21);
    for (int step = 0; step < 20000; ++step) {
        std::string name = "n" + std::to_string(rng.below(3000));
        if (rng.below(3) < 2) {
            int value = static_cast<int>(rng.next() | 1u);
            vsy_IntDictInsert(dict, name.c_str(), value);
            ref[name] = value;
        } else {
            auto it = ref.find(name);
            ASSERT_EQ(get(name.c_str()), it == ref.end() ? 0 : it->second);
        }
        ASSERT_EQ(count(), static_cast<int>(ref.size()));
        ASSERT_LE(dict->count, dict->limit);
    }
    vsy_IntDictInitIterOrder(dict);
    EXPECT_EQ(walk(), Entries(ref.begin(), ref.end()));
    ExpectNoReport();
}

TEST_F(IntDictTest, HoldsAMillionEntries)
{
    const int n = 1000000;
    char name[32];
    for (int i = 0; i < n; ++i) {
        std::snprintf(name, sizeof name, "elem%d", i);
        vsy_IntDictInsert(dict, name, i + 1);
    }
    EXPECT_EQ(count(), n);
    for (int i = 0; i < n; i += 7) {
        std::snprintf(name, sizeof name, "elem%d", i);
        ASSERT_EQ(get(name), i + 1);
    }
    ExpectNoReport();
}
