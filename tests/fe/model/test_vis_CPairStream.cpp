// The contact pair's stream form: the fixture's pair and a weighted node pair written and read
// back equal, the attached mesh kept, and truncated, corrupted or unreadable streams refused
// with the pair left as it was.
#include "ModelFixture.h"
#include "StreamBytes.h"
#include "vsy_TestSupport.h"

using namespace vsytest;
using namespace modeltest;
using namespace streamtest;

namespace {

class CPairStreamTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        ASSERT_EQ(BuildFullModel(&m), 1);
        target = vis_CPairNew();
        vis_CPairSetObject(target, SYS_CONNECT, m.connect);
        Preset(target);
        ExpectNoReport();
    }
    void TearDown() override
    {
        vis_CPairDelete(target);
        DestroyFullModel(&m);
        ContainerTest::TearDown();
    }
    // A node pair with one slave node 5 of weight 0.5 and "Small sliding option" 1: what a
    // refused read must leave.
    static void Preset(vis_CPair* cp)
    {
        vis_CPairDef(cp);
        vis_CPairSetType(cp, 1, 0);
        vis_CPairSetSlaveNodedv(cp, 5, 0.5);
        vis_CPairSetValuei(cp, 2, 1);
    }
    void ExpectPreset()
    {
        int kind = -1, link = -1, num = -1, index = 0, no = -1, option = 0, flag = 1;
        double weight = 0.0;
        void* mesh = nullptr;
        vis_CPairGetType(target, &kind, &link);
        vis_CPairMasterSlaveElemNum(target, VIS_CPAIR_MASTER, &num);
        vis_CPairMasterSlaveElem(target, VIS_CPAIR_SLAVE, 1, &index, &no, &weight);
        vis_CPairValueInteger(target, 2, &option);
        vis_CPairValueFlag(target, 0, &flag);
        vis_CPairGetObject(target, SYS_CONNECT, &mesh);
        EXPECT_EQ(kind, 1);
        EXPECT_EQ(num, 0);
        EXPECT_EQ(index, 5);
        EXPECT_EQ(no, 0);
        EXPECT_EQ(weight, 0.5);
        EXPECT_EQ(option, 1);
        EXPECT_EQ(flag, 0);
        EXPECT_EQ(mesh, (void*)m.connect);
    }
    Bytes PairBytes(vis_CPair* cp)
    {
        return SavedBytes([cp](FILE* f) { vis_CPairWrite(cp, f); });
    }
    void ReadTarget(const Bytes& b)
    {
        Stream s;
        Fill(s, b);
        vis_CPairRead(target, s.f);
    }
    FullModel m;
    vis_CPair* target = nullptr;
};

TEST_F(CPairStreamTest, FixturePairReadsBackEqualAndKeepsTheMesh)
{
    ReadTarget(PairBytes(m.cpair));
    ExpectNoReport();
    EXPECT_EQ(vis_CPairError(target), 0);
    // The fixture's pair: "Property Id" the shell property, adjust and smooth factors, tied,
    // element faces without link, slave face 1 of E1, master face 6 of E3.
    int id = 0, tied = 0, flag = 1, kind = -1, link = -1, nslave = 0, nmaster = 0, index = 0, no = 0;
    float adjust = 0.0f, smooth = 0.0f;
    double weight = 0.0;
    void* mesh = nullptr;
    vis_CPairValueInteger(target, 0, &id);
    vis_CPairValueFloat(target, 1, &adjust);
    vis_CPairValueInteger(target, 3, &tied);
    vis_CPairValueFloat(target, 4, &smooth);
    vis_CPairValueFlag(target, 2, &flag);  // the preset option is replaced, not merged
    vis_CPairGetType(target, &kind, &link);
    vis_CPairMasterSlaveElemNum(target, VIS_CPAIR_SLAVE, &nslave);
    vis_CPairMasterSlaveElemNum(target, VIS_CPAIR_MASTER, &nmaster);
    EXPECT_EQ(id, kPropShell);
    EXPECT_EQ(adjust, kPairAdjust);
    EXPECT_EQ(tied, 1);
    EXPECT_EQ(smooth, kPairSmooth);
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(kind, 0);
    EXPECT_EQ(link, 0);
    ASSERT_EQ(nslave, 1);
    ASSERT_EQ(nmaster, 1);
    vis_CPairMasterSlaveElem(target, VIS_CPAIR_SLAVE, 1, &index, &no, &weight);
    EXPECT_EQ(index, 1);
    EXPECT_EQ(no, 1);
    EXPECT_EQ(weight, 1.0);
    vis_CPairMasterSlaveElem(target, VIS_CPAIR_MASTER, 1, &index, &no, &weight);
    EXPECT_EQ(index, 3);
    EXPECT_EQ(no, 6);
    vis_CPairGetObject(target, SYS_CONNECT, &mesh);
    EXPECT_EQ(mesh, (void*)m.connect);
    ExpectNoReport();
}

TEST_F(CPairStreamTest, WeightedNodePairOfManyEntitiesReadsBackEqual)
{
    vis_CPair* cp = vis_CPairNew();
    vis_CPairSetType(cp, 1, 1);
    vis_CPairSetValued(cp, 6, 0.125);
    for (int i = 1; i <= 20; ++i) vis_CPairSetSlaveNodedv(cp, i, 0.25 * i);
    for (int i = 1; i <= 11; ++i) vis_CPairSetMaster(cp, 100 + i, 1 + i % 6);
    ReadTarget(PairBytes(cp));
    ExpectNoReport();
    int nslave = 0, nmaster = 0, index = 0, no = -1, link = 0;
    double weight = 0.0;
    float zone = 0.0f;
    vis_CPairMasterSlaveElemNum(target, VIS_CPAIR_SLAVE, &nslave);
    vis_CPairMasterSlaveElemNum(target, VIS_CPAIR_MASTER, &nmaster);
    EXPECT_EQ(nslave, 20);
    EXPECT_EQ(nmaster, 11);
    vis_CPairMasterSlaveElem(target, VIS_CPAIR_SLAVE, 17, &index, &no, &weight);
    EXPECT_EQ(index, 17);
    EXPECT_EQ(no, 0);
    EXPECT_EQ(weight, 4.25);  // 0.25 * 17
    vis_CPairMasterSlaveElem(target, VIS_CPAIR_MASTER, 11, &index, &no, &weight);
    EXPECT_EQ(index, 111);
    EXPECT_EQ(no, 6);  // 1 + 11 % 6
    vis_CPairGetType(target, nullptr, &link);
    vis_CPairValueFloat(target, 6, &zone);
    EXPECT_EQ(link, 1);
    EXPECT_EQ(zone, 0.125f);
    // A read pair grows on as a built one does.
    vis_CPairSetMaster(target, 200, 2);
    vis_CPairMasterSlaveElemNum(target, VIS_CPAIR_MASTER, &nmaster);
    EXPECT_EQ(nmaster, 12);
    ExpectNoReport();
    vis_CPairDelete(cp);
}

TEST_F(CPairStreamTest, EveryTruncationIsRefusedAndLeavesThePair)
{
    Bytes b = PairBytes(m.cpair);
    for (size_t n = 0; n < b.size(); ++n) {
        Reports().clear();
        ReadTarget(Bytes(b.begin(), b.begin() + (long)n));
        ExpectOnlyReport("vis_CPairRead", SYS_ERROR_FORMAT, "Stream truncated");
        EXPECT_EQ(vis_CPairError(target), SYS_ERROR_FORMAT) << n;
        ExpectPreset();
    }
}

TEST_F(CPairStreamTest, EveryCorruptedByteIsRefusedAndLeavesThePair)
{
    Bytes b = PairBytes(m.cpair);
    for (size_t i = 0; i < b.size(); ++i) {
        Bytes c = b;
        c[i] ^= 0xA5;
        Reports().clear();
        ReadTarget(c);
        ASSERT_EQ(reports().size(), 1u) << i;
        EXPECT_EQ(reports()[0].name, "vis_CPairRead");
        EXPECT_EQ(vis_CPairError(target), SYS_ERROR_FORMAT) << i;
        ExpectPreset();
    }
}

TEST_F(CPairStreamTest, FailedAllocationAtEveryStepOfAReadLeavesThePair)
{
    Bytes b = PairBytes(m.cpair);
    long total = FailEachAllocation(
        "vis_CPairRead", [this] { Preset(target); }, [&] { ReadTarget(b); },
        [this](long k) {
            EXPECT_EQ(vis_CPairError(target), SYS_ERROR_MEMORY) << k;
            ExpectPreset();
        });
    EXPECT_GT(total, 3);  // parameter slots, their data, the entities of each side
}

TEST_F(CPairStreamTest, NullAndUnwritableStreams)
{
    vis_CPairRead(target, nullptr);
    ExpectOnlyReport("vis_CPairRead", SYS_ERROR_NULLOBJECT, "stream");
    ExpectPreset();
    Reports().clear();
    FILE* f = std::fopen("/dev/null", "rb");
    ASSERT_NE(f, nullptr);
    vis_CPairWrite(m.cpair, f);
    std::fclose(f);
    ExpectOnlyReport("vis_CPairWrite", SYS_ERROR_FILE, "Stream write");
    EXPECT_EQ(vis_CPairError(m.cpair), SYS_ERROR_FILE);
}

}  // namespace
