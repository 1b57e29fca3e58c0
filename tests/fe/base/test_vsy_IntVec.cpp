// vsy_IntVec: default value, lower bound, growth by doubling, errors and allocation failure.
#include "vsy_IntVec.h"

#include "vsy_TestSupport.h"

#include <climits>
#include <map>

using namespace vsytest;

namespace {

class IntVecTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        vec = vsy_IntVecNew();
        ASSERT_NE(vec, nullptr);
    }
    void TearDown() override
    {
        vsy_IntVecDelete(vec);
        ContainerTest::TearDown();
    }
    int get(int idx)
    {
        int v = 12345;
        vsy_IntVecGet(vec, idx, &v);
        return v;
    }
    vsy_IntVec* vec = nullptr;
};

// The last index an int32 capacity can hold is INT_MAX - 1: a write at INT_MAX cannot be held
// by any growth, fails before allocating, and keeps every value.
TEST_F(IntVecTest, IndexBeyondTheLargestCapacityFailsWithoutAllocating)
{
    vsy_IntVecSet(vec, 3, 33);
    CountAllocations();
    vsy_IntVecSet(vec, INT_MAX, 1);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_EQ(reports()[0].name, "vsy_IntVec_Expand");
    EXPECT_EQ(reports()[1].name, "vsy_IntVecSet");
    EXPECT_EQ(reports()[1].text, "Realloc vec");
    EXPECT_EQ(vsy_IntVecError(vec), 4);
    EXPECT_EQ(get(3), 33);
    EXPECT_EQ(vec->maxidx, 3);
}

}  // namespace

TEST_F(IntVecTest, NewRecordHasStartValues)
{
    EXPECT_EQ(vec->ierr, 0);
    EXPECT_EQ(vec->low, 1);
    EXPECT_EQ(vec->maxidx, -1);
    EXPECT_EQ(vec->cap, -1);
    EXPECT_EQ(vec->data, nullptr);
    EXPECT_EQ(vec->defval, 0);
    EXPECT_EQ(get(1), 0);
    ExpectNoReport();
}

TEST_F(IntVecTest, DefAllocatesNPlusOneFilledWithDefault)
{
    vsy_IntVecSetDefault(vec, -7);
    vsy_IntVecDef(vec, 10);
    EXPECT_EQ(vec->cap, 11);
    EXPECT_EQ(vec->maxidx, -1);
    for (int i = 0; i < 11; ++i) EXPECT_EQ(vec->data[i], -7) << i;
    vsy_IntVecSet(vec, 4, 40);
    EXPECT_EQ(vec->maxidx, 4);
    vsy_IntVecDef(vec, 3);
    EXPECT_EQ(vec->cap, 4);
    EXPECT_EQ(vec->maxidx, -1);
    EXPECT_EQ(get(3), -7);
    ExpectNoReport();
}

TEST_F(IntVecTest, GetBelowLowAndPastCapGivesDefault)
{
    vsy_IntVecSetDefault(vec, 99);
    vsy_IntVecDef(vec, 4);
    vsy_IntVecSet(vec, 1, 11);
    vsy_IntVecSet(vec, 4, 44);
    vec->data[0] = 5;  // index 0 lies below low and must not be read
    EXPECT_EQ(get(0), 99);
    EXPECT_EQ(get(-3), 99);
    EXPECT_EQ(get(1), 11);
    EXPECT_EQ(get(4), 44);
    EXPECT_EQ(get(5), 99);
    EXPECT_EQ(get(INT_MAX), 99);
    EXPECT_EQ(get(INT_MIN), 99);
    ExpectNoReport();
}

TEST_F(IntVecTest, SetPastCapDoublesUntilItExceedsTheIndex)
{
    vsy_IntVecDef(vec, 0);
    EXPECT_EQ(vec->cap, 1);
    vsy_IntVecSet(vec, 1, 1);
    EXPECT_EQ(vec->cap, 2);
    vsy_IntVecSet(vec, 2, 2);
    EXPECT_EQ(vec->cap, 4);
    vsy_IntVecSet(vec, 4, 4);
    EXPECT_EQ(vec->cap, 8);
    vsy_IntVecSet(vec, 100, 100);
    EXPECT_EQ(vec->cap, 128);
    vsy_IntVecDef(vec, 9);  // cap 10
    vsy_IntVecSet(vec, 10, 1);
    EXPECT_EQ(vec->cap, 20);
    vsy_IntVecSet(vec, 79, 1);
    EXPECT_EQ(vec->cap, 80);
    vsy_IntVecSet(vec, 80, 1);
    EXPECT_EQ(vec->cap, 160);
    ExpectNoReport();
}

TEST_F(IntVecTest, GrownEntriesHoldTheDefault)
{
    vsy_IntVecSetDefault(vec, -1);
    vsy_IntVecDef(vec, 2);
    vsy_IntVecSet(vec, 1000, 5);
    for (int i = 1; i < vec->cap; ++i) EXPECT_EQ(get(i), i == 1000 ? 5 : -1) << i;
    int maxidx = 0;
    vsy_IntVecMaxIndex(vec, &maxidx);
    EXPECT_EQ(maxidx, 1000);
}

TEST_F(IntVecTest, SetOnUndefinedVectorDefinesItWithSizeZero)
{
    vsy_IntVecSet(vec, 1, 7);
    EXPECT_EQ(vec->cap, 2);
    EXPECT_EQ(get(1), 7);
    ExpectNoReport();
}

TEST_F(IntVecTest, SetBelowLowIsErrorOneAndChangesNothing)
{
    vsy_IntVecDef(vec, 4);
    vsy_IntVecSet(vec, 0, 3);
    ExpectOnlyReport("vsy_IntVecSet", 1, "idx= 0");
    EXPECT_EQ(vec->maxidx, -1);
    EXPECT_EQ(vec->data[0], 0);
    EXPECT_EQ(vsy_IntVecError(vec), 1);
    EXPECT_EQ(vsy_IntVecError(vec), 0);
}

TEST_F(IntVecTest, SetBelowLowPrintsExactReport)
{
    vsy_IntVecDef(vec, 4);
    EXPECT_EQ(CaptureReport([&] { vsy_IntVecSet(vec, -5, 3); }),
              "\nvsy_IntVecSet: ierr= 1\nSYS_ERROR_VALUE       Argument with an improper value\nidx= -5\n");
}

TEST_F(IntVecTest, SetParamiSwitchesIndexZero)
{
    vsy_IntVecSetParami(vec, VSY_INTVEC_INDEXZERO, 1);
    EXPECT_EQ(vec->low, 0);
    vsy_IntVecSet(vec, 0, 8);
    EXPECT_EQ(get(0), 8);
    EXPECT_EQ(vec->maxidx, 0);
    vsy_IntVecSetParami(vec, 1, 0);
    EXPECT_EQ(vec->low, 1);
    EXPECT_EQ(get(0), 0);
    vsy_IntVecSetParami(vec, 1, 1);
    vsy_IntVecSetParami(vec, 1, 2);  // every value but 1 means index 1
    EXPECT_EQ(vec->low, 1);
    ExpectNoReport();
}

TEST_F(IntVecTest, SetParamiUnknownTypeIsErrorTwo)
{
    EXPECT_EQ(CaptureReport([&] { vsy_IntVecSetParami(vec, 2, 1); }),
              "\nvsy_IntVecSetParami: ierr= 2\nSYS_ERROR_ENUM        Argument is not a valid option\ntype= 2\n");
    EXPECT_EQ(vec->low, 1);
    EXPECT_EQ(vsy_IntVecError(vec), 2);
    EXPECT_EQ(vsy_IntVecError(vec), 0);
}

TEST_F(IntVecTest, DefNegativeSizeIsErrorOne)
{
    vsy_IntVecDef(vec, 3);
    vsy_IntVecSet(vec, 2, 5);
    vsy_IntVecDef(vec, -1);
    ExpectOnlyReport("vsy_IntVecDef", 1, "nument= -1");
    EXPECT_EQ(get(2), 5);
    EXPECT_EQ(vec->cap, 4);
}

TEST_F(IntVecTest, CreationFailureReportsAndReturnsNull)
{
    FailAllocation(1);
    std::string out = CaptureReport([] { EXPECT_EQ(vsy_IntVecNew(), nullptr); });
    EXPECT_EQ(out, Printed("IntVec", 4, "Creation Failure"));
    EXPECT_EQ(out, "\nIntVec: ierr= 4\nSYS_ERROR_MEMORY      Memory allocation failure\nCreation Failure\n");
}

TEST_F(IntVecTest, DefAllocationFailureReportsMallocVecAndStaysUsable)
{
    FailAllocation(1);
    vsy_IntVecDef(vec, 10);
    ExpectOnlyReport("vsy_IntVecDef", 4, "Malloc vec");
    EXPECT_EQ(vsy_IntVecError(vec), 4);
    EXPECT_EQ(vec->cap, -1);
    EXPECT_EQ(get(3), 0);
    RestoreAllocation();
    vsy_IntVecSet(vec, 3, 30);
    EXPECT_EQ(get(3), 30);
    EXPECT_EQ(vsy_IntVecError(vec), 0);
}

TEST_F(IntVecTest, GrowthFailureReportsExpandThenReallocVec)
{
    vsy_IntVecDef(vec, 4);
    vsy_IntVecSet(vec, 2, 22);
    FailAllocation(1);
    std::string out = CaptureReport([&] { vsy_IntVecSet(vec, 50, 1); });
    EXPECT_EQ(out, Printed("vsy_IntVec_Expand", 4, "") + Printed("vsy_IntVecSet", 4, "Realloc vec"));
    EXPECT_EQ(vsy_IntVecError(vec), 4);
    EXPECT_EQ(vec->cap, 5);
    EXPECT_EQ(vec->maxidx, 2);
    EXPECT_EQ(get(2), 22);
    EXPECT_EQ(get(50), 0);
    RestoreAllocation();
    vsy_IntVecSet(vec, 50, 1);
    EXPECT_EQ(get(50), 1);
    EXPECT_EQ(vec->cap, 80);
}

TEST_F(IntVecTest, NullObjectIsReportedNotDereferenced)
{
    vsy_IntVecSet(nullptr, 1, 1);
    ExpectOnlyReport("vsy_IntVecSet", 5, "");
    int v = 3;
    vsy_IntVecGet(nullptr, 1, &v);
    EXPECT_EQ(v, 3);
    vsy_IntVecDelete(nullptr);
    EXPECT_EQ(vsy_IntVecError(nullptr), SYS_ERROR_NULLOBJECT);
}

TEST_F(IntVecTest, DifferentialAgainstStdMap)
{
    std::map<int, int> ref;
    Rng rng(7);
    vsy_IntVecSetDefault(vec, -2);
    int maxidx = -1;
    for (int step = 0; step < 20000; ++step) {
        int idx = rng.below(5000) + (step > 10000 ? 5000 : 0);
        int value = static_cast<int>(rng.next());
        vsy_IntVecSet(vec, idx, value);
        if (idx >= 1) {
            ref[idx] = value;
            if (idx > maxidx) maxidx = idx;
        }
    }
    for (int idx = -2; idx < 11000; ++idx) {
        auto it = ref.find(idx);
        ASSERT_EQ(get(idx), it == ref.end() ? -2 : it->second) << idx;
    }
    EXPECT_EQ(vec->maxidx, maxidx);
    // Index 0 was drawn and refused: each refusal reports.
    for (const Report& r : reports()) EXPECT_EQ(r.text, "idx= 0");
}

TEST_F(IntVecTest, HoldsAMillionEntries)
{
    for (int i = 1; i <= 1000000; ++i) vsy_IntVecSet(vec, i, 3 * i);
    EXPECT_EQ(vec->maxidx, 1000000);
    EXPECT_EQ(vec->cap, 1 << 20);
    long long sum = 0;
    for (int i = 1; i <= 1000000; ++i) sum += get(i);
    EXPECT_EQ(sum, 3LL * 1000000 * 1000001 / 2);
    ExpectNoReport();
}
