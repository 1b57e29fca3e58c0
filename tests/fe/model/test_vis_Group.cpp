// Groups, id lists, coordinate systems, units and the user id check of the grid functions.
#include "vis_Connect.h"
#include "vis_CoordSys.h"
#include "vis_GridFun.h"
#include "vis_GridFunId.h"
#include "vis_Group.h"
#include "vis_IdTran.h"
#include "vis_Model.h"
#include "vis_Units.h"
#include "vsy_TestSupport.h"

#include <cmath>

using namespace vsytest;

namespace {

class GroupTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        group = vis_GroupNew();
    }
    void TearDown() override
    {
        vis_GroupDelete(group);
        ContainerTest::TearDown();
    }
    vis_Group* group = nullptr;
};

TEST_F(GroupTest, ElementEdgesHaveSixteenFlags)
{
    vis_GroupDef(group, 10, SYS_ELEM, SYS_EDGE);
    EXPECT_EQ(group->nbits, 16);
    vis_GroupSetEntFlag(group, 10, 16, 1);
    vis_GroupSetEntFlag(group, 10, 12, 1);
    int flags = 0, n = 0, last = 0, no = 0;
    vis_GroupGetIndex(group, 10, &flags);
    EXPECT_EQ(flags, (1 << 15) | (1 << 11));
    vis_GroupNumEntFlag(group, 10, &n, &last);
    EXPECT_EQ(n, 2);
    EXPECT_EQ(last, 16);
    vis_GroupNthEntFlag(group, 10, 1, &no);
    EXPECT_EQ(no, 12);
    ExpectNoReport();
    vis_GroupSetEntFlag(group, 10, 17, 1);
    ExpectOnlyReport("vis_GroupSetEntFlag", SYS_ERROR_VALUE, "no= 17");
}

TEST_F(GroupTest, StoresFollowTheParentAndChild)
{
    struct Case {
        int parent, child, nbits;
    } cases[] = {{SYS_NODE, 0, 1}, {SYS_ELEM, SYS_ELEM, 1}, {SYS_ELEM, SYS_FACE, 8}, {SYS_FACE, SYS_EDGE, 8},
                 {SYS_ELEM, SYS_NODE, 32}};
    for (const Case& c : cases) {
        vis_GroupDef(group, 20, c.parent, c.child);
        EXPECT_EQ(group->nbits, c.nbits) << c.parent << " " << c.child;
    }
    ExpectNoReport();
}

TEST_F(GroupTest, IndexPastTheCountReadsZeroWithoutReport)
{
    vis_GroupDef(group, 9, SYS_NODE, 0);
    vis_GroupAll(group);
    int flags = 5;
    vis_GroupGetIndex(group, 10, &flags);
    EXPECT_EQ(flags, 0);
    ExpectNoReport();
    vis_GroupGetIndex(group, 0, &flags);
    ExpectOnlyReport("vis_GroupGetIndex", SYS_ERROR_VALUE, "index= 0");
    EXPECT_EQ(vis_GroupError(group), 0);  // reported, not stored
}

TEST_F(GroupTest, OneBitStoreUsesBitIAnd7OfByteIShift3)
{
    vis_GroupDef(group, 20, SYS_NODE, 0);
    vis_GroupSetIndex(group, 11, 1);
    EXPECT_EQ(group->store[1], 1 << 3);  // 11 >> 3 = 1, 11 & 7 = 3
}

TEST_F(GroupTest, DefErrorsChangeNothing)
{
    vis_GroupDef(group, 5, 0, 0);
    vis_GroupDef(group, 5, SYS_ELEM, 12);
    vis_GroupDef(group, -1, SYS_ELEM, 0);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_EQ(reports()[0].text, "parenttype= 0");
    EXPECT_EQ(reports()[1].text, "childtype= 12");
    EXPECT_EQ(reports()[2].text, "nument= -1");
    EXPECT_EQ(reports()[2].code, SYS_ERROR_VALUE);
    int n = -1, p = 0, c = -1;
    vis_GroupInq(group, &n, &p, &c);
    EXPECT_EQ(n, 0);  // still the group of New: 0 entities, elements, no child
    EXPECT_EQ(p, SYS_ELEM);
    EXPECT_EQ(c, 0);
}

TEST_F(GroupTest, SetAlgebraAndIdList)
{
    vis_GroupDef(group, 6, SYS_ELEM, SYS_FACE);
    vis_Group* other = vis_GroupNew();
    vis_GroupDef(other, 6, SYS_ELEM, SYS_FACE);
    vis_GroupSetIndex(group, 2, 0x3);
    vis_GroupSetIndex(other, 2, 0x6);
    vis_GroupSetIndex(other, 5, 0x1);
    vis_GroupBoolean(group, VIS_GROUP_OR, other);
    int flags = 0, num = 0;
    vis_GroupGetIndex(group, 2, &flags);
    EXPECT_EQ(flags, 0x7);
    vis_GroupBoolean(group, VIS_GROUP_DIFF, other);
    vis_GroupGetIndex(group, 2, &flags);
    EXPECT_EQ(flags, 0x1);
    vis_GroupComplement(group);  // six faces in use: 0x3f
    vis_GroupGetIndex(group, 2, &flags);
    EXPECT_EQ(flags, 0x3e);
    vis_GroupCount(group, &num);
    EXPECT_EQ(num, 6);
    vis_GroupClear(group);
    vis_GroupSetIndex(group, 4, 0x20);
    vis_IdTran* idt = vis_IdTranNew();
    vis_GroupIdTran(group, idt);
    int n = 0, id = 0, ent = 0;
    vis_IdTranNum(idt, &n);
    vis_IdTranGetId(idt, 1, &id);
    vis_IdTranGetEnt(idt, 1, &ent);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(id, 4);
    EXPECT_EQ(ent, 0x20);
    ExpectNoReport();
    vis_GroupBoolean(group, 5, other);
    ExpectOnlyReport("vis_GroupBoolean", SYS_ERROR_ENUM, "oper= 5");
    vis_IdTranDelete(idt);
    vis_GroupDelete(other);
}

class IdTranTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        idt = vis_IdTranNew();
    }
    void TearDown() override
    {
        vis_IdTranDelete(idt);
        ContainerTest::TearDown();
    }
    vis_IdTran* idt = nullptr;
};

TEST_F(IdTranTest, RunBeyondItsCountYieldsZero)
{
    vis_IdTranDef(idt, 10);
    vis_IdTranSetRun(idt, 100, 4);
    int id = -1;
    vis_IdTranGetId(idt, 4, &id);
    EXPECT_EQ(id, 103);  // start + index - 1
    vis_IdTranGetId(idt, 5, &id);
    EXPECT_EQ(id, 0);
    vis_IdTranGetId(idt, 11, &id);
    EXPECT_EQ(id, 0);  // above nument
    int index = -1;
    vis_IdTranIndex(idt, 102, &index);
    EXPECT_EQ(index, 3);
    vis_IdTranIndex(idt, 104, &index);
    EXPECT_EQ(index, 0);
    ExpectNoReport();
    vis_IdTranGetId(idt, 0, &id);
    ExpectOnlyReport("vis_IdTranGetId", SYS_ERROR_VALUE, "index= 0");
}

TEST_F(IdTranTest, IdBelowIdminGivesZeroWithoutBuildingTheMap)
{
    vis_IdTranSetId(idt, 1, 50);
    vis_IdTranSetId(idt, 2, 70);
    int index = -1;
    vis_IdTranIndex(idt, 49, &index);
    EXPECT_EQ(index, 0);
    EXPECT_EQ(idt->built, 0);
    vis_IdTranIndex(idt, 70, &index);
    EXPECT_EQ(index, 2);
    EXPECT_EQ(idt->built, 1);
    vis_IdTranSetId(idt, 3, 60);  // a change drops the map
    EXPECT_EQ(idt->built, 0);
    vis_IdTranIndex(idt, 60, &index);
    EXPECT_EQ(index, 3);
}

TEST_F(IdTranTest, WideSpanUsesTheHash)
{
    vis_IdTranSetId(idt, 1, 5);
    vis_IdTranSetId(idt, 2, 2000000000);
    vis_IdTranSetId(idt, 3, 5);
    int index = 0, n = 0, all[3];
    vis_IdTranIndex(idt, 2000000000, &index);
    EXPECT_EQ(index, 2);
    EXPECT_NE(idt->invhash, nullptr);
    vis_IdTranIndex(idt, 5, &index);
    EXPECT_EQ(index, 1);  // the first index of a repeated id
    vis_IdTranCount(idt, 5, &n);
    EXPECT_EQ(n, 2);
    vis_IdTranAllIndex(idt, 5, &n, all);
    EXPECT_EQ(all[0], 1);
    EXPECT_EQ(all[1], 3);
    vis_IdTranUnique(idt);
    vis_IdTranNum(idt, &n);
    EXPECT_EQ(n, 2);
    vis_IdTranSetId(idt, 3, 1);
    vis_IdTranOrder(idt);
    int ids[3];
    vis_IdTranGetIds(idt, ids);
    EXPECT_EQ(ids[0], 1);
    EXPECT_EQ(ids[1], 5);
    EXPECT_EQ(ids[2], 2000000000);
}

TEST_F(IdTranTest, ConstantNameAndErrors)
{
    char name[32] = "x";
    vis_IdTranGetName(idt, name);
    EXPECT_STREQ(name, "");  // unnamed
    vis_IdTranSetName(idt, "Clamped edge");
    vis_IdTranGetName(idt, name);
    EXPECT_STREQ(name, "Clamped edge");
    vis_IdTranSetConstant(idt, 3, 9);
    int id = 0, index = 0, type = -1;
    vis_IdTranGetId(idt, 3, &id);
    EXPECT_EQ(id, 9);
    vis_IdTranIndex(idt, 9, &index);
    EXPECT_EQ(index, 1);
    vis_IdTranType(idt, &type);
    EXPECT_EQ(type, VIS_IDTRAN_CONSTANT);
    vis_IdTranSetId(idt, 2, 4);  // turns into an array
    vis_IdTranType(idt, &type);
    EXPECT_EQ(type, VIS_IDTRAN_EXPLICIT);
    vis_IdTranGetId(idt, 3, &id);
    EXPECT_EQ(id, 9);
    ExpectNoReport();
    vis_IdTranDef(idt, -2);
    ExpectOnlyReport("vis_IdTranDef", SYS_ERROR_VALUE, "nument= -2");
    EXPECT_EQ(vis_IdTranError(idt), SYS_ERROR_VALUE);
}

TEST_F(IdTranTest, GrowthFailureAndHugeIndexChangeNothing)
{
    vis_IdTranSetId(idt, 1, 11);
    vis_IdTranSetId(idt, 0x7fffffff, 5);
    ExpectOnlyReport("vis_IdTranSetId", SYS_ERROR_VALUE, "index= 2147483647");
    Reports().clear();
    FailAllocation(1);
    vis_IdTranSetId(idt, 50, 7);
    RestoreAllocation();
    ExpectOnlyReport("vis_IdTranSetId", SYS_ERROR_MEMORY, "Realloc vec");
    int n = 0, id = 0;
    vis_IdTranNum(idt, &n);
    vis_IdTranGetId(idt, 1, &id);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(id, 11);
}

class CoordSysTest : public ContainerTest {};

TEST_F(CoordSysTest, VectorsMakeARightHandedTriad)
{
    vis_CoordSys* cs = vis_CoordSysNew();
    const double o[3] = {1, 2, 3}, x[3] = {0, 2, 0}, p[3] = {-1, 1, 0};
    vis_CoordSysSetOriginVectorsdv(cs, o, x, p);
    double go[3], t[9];
    vis_CoordSysOriginTriad(cs, go, t);
    // x' = (0,1,0); z' = x' x (-1,1,0) = (0,0,1); y' = z' x x' = (-1,0,0).
    const double want[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    for (int i = 0; i < 9; ++i) EXPECT_DOUBLE_EQ(t[i], want[i]) << i;
    EXPECT_EQ(go[2], 3.0);
    const double same[3] = {0, 5, 0};
    vis_CoordSysSetOriginVectorsdv(cs, o, x, same);
    ExpectOnlyReport("vis_CoordSysSetOriginVectorsdv", SYS_ERROR_COMPUTE, "Degenerate vectors");
    vis_CoordSysDelete(cs);
}

TEST_F(CoordSysTest, CylindricalAndSphericalDirectionsAtAPoint)
{
    vis_CoordSys* cs = vis_CoordSysNew();
    vis_CoordSysDef(cs, VIS_COORDSYS_CYLINDRICAL);
    const double pt[3] = {0, 3, 7};
    double t[9];
    vis_CoordSysTriad(cs, pt, t);
    // Radial (0,1,0); tangential z x r = (-1,0,0); axial (0,0,1).
    const double cyl[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    for (int i = 0; i < 9; ++i) EXPECT_NEAR(t[i], cyl[i], 1e-15) << i;
    vis_CoordSysDef(cs, VIS_COORDSYS_SPHERICAL);
    const double eq[3] = {2, 0, 0};
    vis_CoordSysTriad(cs, eq, t);
    // On the equator at +x: r = x, theta (from z, growing) = -z, phi = z x r = y.
    const double sph[9] = {1, 0, 0, 0, 0, -1, 0, 1, 0};
    for (int i = 0; i < 9; ++i) EXPECT_NEAR(t[i], sph[i], 1e-15) << i;
    vis_CoordSysDef(cs, 5);
    ExpectOnlyReport("vis_CoordSysDef", SYS_ERROR_ENUM, "type= 5");
    int type = 0;
    vis_CoordSysGetType(cs, &type);
    EXPECT_EQ(type, VIS_COORDSYS_SPHERICAL);
    vis_CoordSysDelete(cs);
}

static void ExpectTriad(vis_CoordSys* cs, const double* wantOrigin, const double* wantTriad)
{
    double o[3], t[9];
    vis_CoordSysOriginTriad(cs, o, t);
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(o[i], wantOrigin[i], 1e-12) << "origin " << i;
    for (int i = 0; i < 9; ++i) EXPECT_NEAR(t[i], wantTriad[i], 1e-12) << "triad " << i;
}

TEST_F(CoordSysTest, SurfaceSystemTakesTheNormalAndTheTangentPartOfADirection)
{
    vis_CoordSys* cs = vis_CoordSysNew();
    const double o[3] = {1, 1, 1}, n[3] = {0, 0, 2}, d[3] = {1, 1, 5};
    vis_CoordSysSetSurfacedv(cs, o, n, d);
    // z' = (0,0,1); x' = (1,1,5) less its z part = (1,1,0)/sqrt2; y' = z' x x' = (-1,1,0)/sqrt2.
    const double r = std::sqrt(0.5);
    const double want[9] = {r, r, 0, -r, r, 0, 0, 0, 1};
    ExpectTriad(cs, o, want);
    const double along[3] = {0, 0, 3};
    vis_CoordSysSetSurfacedv(cs, o, n, along);
    // Direction along the normal: the global axis least aligned with (0,0,1) is x (first of
    // x and y): x' = (1,0,0), y' = (0,1,0).
    const double ident[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    ExpectTriad(cs, o, ident);
    const float of[3] = {0, 0, 0}, nf[3] = {3, 0, 0}, zero[3] = {0, 0, 0};
    vis_CoordSysSetSurface(cs, of, nf, zero);
    // Normal x: least aligned axis y, so x' = (0,1,0), z' = (1,0,0), y' = z' x x' = (0,0,1).
    const double o0[3] = {0, 0, 0}, wantX[9] = {0, 1, 0, 0, 0, 1, 1, 0, 0};
    ExpectTriad(cs, o0, wantX);
    ExpectNoReport();
    vis_CoordSysSetSurfacedv(cs, o, o0, d);
    ExpectOnlyReport("vis_CoordSysSetSurfacedv", SYS_ERROR_COMPUTE, "Degenerate vectors");
    ExpectTriad(cs, o0, wantX);  // nothing changed
    vis_CoordSysDelete(cs);
}

TEST_F(CoordSysTest, ResolveAgainstARotatedRectangularReference)
{
    vis_CoordSys *ref = vis_CoordSysNew(), *cs = vis_CoordSysNew();
    const double ro[3] = {10, 0, 0}, rx[3] = {0, 1, 0}, rp[3] = {-1, 0, 0};
    vis_CoordSysSetOriginVectorsdv(ref, ro, rx, rp);  // rows (0,1,0), (-1,0,0), (0,0,1)
    const double lo[3] = {1, 2, 3}, ident[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    vis_CoordSysSetOriginTriaddv(cs, lo, ident);
    vis_CoordSysSetObject(cs, SYS_COORDSYS, ref);
    void* got = nullptr;
    vis_CoordSysGetObject(cs, SYS_COORDSYS, &got);
    EXPECT_EQ(got, ref);
    vis_CoordSysResolve(cs);
    // Origin (10,0,0) + 1*(0,1,0) + 2*(-1,0,0) + 3*(0,0,1) = (8,1,3); the local axes given as the
    // reference's own axes become the reference's rows.
    const double wo[3] = {8, 1, 3}, wt[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    ExpectTriad(cs, wo, wt);
    vis_CoordSysGetObject(cs, SYS_COORDSYS, &got);
    EXPECT_EQ(got, nullptr);  // resolved systems are global
    vis_CoordSysResolve(cs);  // nothing to do: unchanged
    ExpectTriad(cs, wo, wt);
    ExpectNoReport();
    vis_CoordSysDelete(cs);
    vis_CoordSysDelete(ref);
}

TEST_F(CoordSysTest, ResolveAgainstACylindricalReference)
{
    vis_CoordSys *ref = vis_CoordSysNew(), *cs = vis_CoordSysNew();
    vis_CoordSysDef(ref, VIS_COORDSYS_CYLINDRICAL);
    const double lo[3] = {2, 90, 5}, ident[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};  // r 2, theta 90 deg, z 5
    vis_CoordSysSetOriginTriaddv(cs, lo, ident);
    vis_CoordSysSetObject(cs, SYS_COORDSYS, ref);
    vis_CoordSysResolve(cs);
    // (2 cos 90, 2 sin 90, 5) = (0,2,5); there radial (0,1,0), tangential z x r = (-1,0,0), z.
    const double wo[3] = {0, 2, 5}, wt[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    ExpectTriad(cs, wo, wt);
    vis_CoordSysDelete(cs);
    vis_CoordSysDelete(ref);
}

TEST_F(CoordSysTest, ChainedReferenceMustBeResolvedFirstAndWrongCodesFail)
{
    vis_CoordSys *a = vis_CoordSysNew(), *b = vis_CoordSysNew(), *c = vis_CoordSysNew();
    const double one[3] = {1, 0, 0}, ident[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    vis_CoordSysSetOriginTriaddv(a, one, ident);
    vis_CoordSysSetOriginTriaddv(b, one, ident);
    vis_CoordSysSetOriginTriaddv(c, one, ident);
    vis_CoordSysSetObject(a, SYS_COORDSYS, b);
    vis_CoordSysSetObject(b, SYS_COORDSYS, c);
    vis_CoordSysResolve(a);
    ExpectOnlyReport("vis_CoordSysResolve", SYS_ERROR_OPERATION, "Reference system not resolved");
    EXPECT_EQ(vis_CoordSysError(a), SYS_ERROR_OPERATION);
    vis_CoordSysResolve(b);  // (1,0,0) in c at (1,0,0): (2,0,0)
    vis_CoordSysResolve(a);  // (1,0,0) in b at (2,0,0): (3,0,0)
    const double wo[3] = {3, 0, 0};
    ExpectTriad(a, wo, ident);
    Reports().clear();
    void* got = a;
    vis_CoordSysSetObject(a, 2080, c);
    vis_CoordSysGetObject(a, 2080, &got);
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[0].name, "vis_CoordSysSetObject");
    EXPECT_EQ(Reports()[0].code, SYS_ERROR_OBJECTTYPE);
    EXPECT_EQ(Reports()[1].text, "objecttype= 2080");
    EXPECT_EQ(got, a);  // left unwritten
    vis_CoordSysGetObject(a, SYS_COORDSYS, &got);
    EXPECT_EQ(got, nullptr);  // the refused set attached nothing
    vis_CoordSysDelete(a);
    vis_CoordSysDelete(b);
    vis_CoordSysDelete(c);
}

class UnitsTest : public ContainerTest {};

TEST_F(UnitsTest, ChoicesFactorsAndSIFactors)
{
    vis_Units* u = vis_UnitsNew();
    vis_UnitsSetConv(u, VIS_UNITS_LENGTH, 3);  // mm
    vis_UnitsSetConv(u, VIS_UNITS_TEMPERATURE, 2);  // C
    vis_UnitsSetFactor(u, VIS_UNITS_LENGTH, 2.0);
    int base = 0;
    double f = 0;
    vis_UnitsGetBase(u, VIS_UNITS_LENGTH, &base);
    EXPECT_EQ(base, 3);
    vis_UnitsGetBaseSIFactor(u, VIS_UNITS_LENGTH, &f);
    EXPECT_EQ(f, 0.001);
    vis_UnitsGetSIFactor(u, VIS_UNITS_LENGTH, &f);
    EXPECT_EQ(f, 0.002);
    vis_UnitsGetBase(u, VIS_UNITS_TEMPOFFSET, &base);
    EXPECT_EQ(base, 2);  // the offset follows the temperature
    vis_UnitsGetBaseSIFactor(u, VIS_UNITS_TEMPOFFSET, &f);
    EXPECT_EQ(f, 273.15);
    vis_UnitsGetFactor(u, VIS_UNITS_MASS, &f);
    EXPECT_EQ(f, 1.0);
    ExpectNoReport();
    vis_UnitsGetFactor(u, 8, &f);
    vis_UnitsSetConv(u, VIS_UNITS_TIME, 5);
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_EQ(reports()[0].text, "type= 8");
    EXPECT_EQ(reports()[0].code, SYS_ERROR_ENUM);
    EXPECT_EQ(reports()[1].text, "iparam= 5");
    vis_UnitsDelete(u);
}

class GridFunIdTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        connect = vis_ConnectNew();
        vis_ConnectDef(connect, 3, 1);
        const int nodes[3] = {1, 2, 3};
        vis_ConnectSetTopology(connect, 1, SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 1, nodes);
        gf = vis_GridFunNew();
        vis_ConnectGridFun(connect, gf);
    }
    void TearDown() override
    {
        vis_GridFunDelete(gf);
        vis_ConnectDelete(connect);
        ContainerTest::TearDown();
    }
    vis_Connect* connect = nullptr;
    vis_GridFun* gf = nullptr;
};

TEST_F(GridFunIdTest, DistinctIdsClearTheFlags)
{
    vis_ConnectSetNodeAssoc(connect, 10, 1, 101);
    vis_ConnectSetNodeAssoc(connect, 10, 2, 102);
    int nf = -1, ef = -1;
    vis_GridFunIdCheck(gf, &nf, &ef);
    EXPECT_EQ(nf, 0);
    EXPECT_EQ(ef, 0);
    const int ix[4] = {1, 0, 3, 2};
    int id[4] = {-1, -1, -1, -1};
    vis_GridFunNodeId(gf, nf, 4, ix, id);
    EXPECT_EQ(id[0], 101);
    EXPECT_EQ(id[1], -1);  // a zero index leaves its entry alone
    EXPECT_EQ(id[2], 3);   // no user id: the node's own index
    EXPECT_EQ(id[3], 102);
}

TEST_F(GridFunIdTest, TwoNodesWithUserId7SetTheNodeFlag)
{
    vis_ConnectSetNodeAssoc(connect, 10, 1, 7);
    vis_ConnectSetNodeAssoc(connect, 10, 3, 7);
    int nf = 0, ef = -1;
    vis_GridFunIdCheck(gf, &nf, &ef);
    EXPECT_EQ(nf, 1);
    EXPECT_EQ(ef, 0);
    const int ix[2] = {1, 3};
    int id[2] = {0, 0};
    vis_GridFunNodeId(gf, nf, 2, ix, id);
    EXPECT_EQ(id[0], 1);  // indices are printed
    EXPECT_EQ(id[1], 3);
    ExpectNoReport();
}

TEST_F(GridFunIdTest, IdentityOfIdsAndIndices)
{
    // No user ids: every node and element id is its index, so both are identities.
    int nf = -1, ef = -1, ni = -1, ei = -1;
    vis_GridFunIdCheckIdentity(gf, &nf, &ef, &ni, &ei);
    EXPECT_EQ(nf, 0);
    EXPECT_EQ(ef, 0);
    EXPECT_EQ(ni, 1);
    EXPECT_EQ(ei, 1);
    // Node 2 takes id 2, its own index: still the identity. Node 3 takes 30: no longer.
    vis_ConnectSetNodeAssoc(connect, 10, 2, 2);
    vis_GridFunIdCheckIdentity(gf, &nf, &ef, &ni, &ei);
    EXPECT_EQ(ni, 1);
    vis_ConnectSetNodeAssoc(connect, 10, 3, 30);
    vis_GridFunIdCheckIdentity(gf, &nf, &ef, &ni, &ei);
    EXPECT_EQ(nf, 0);
    EXPECT_EQ(ni, 0);
    EXPECT_EQ(ei, 1);
    ExpectNoReport();
}

TEST_F(GridFunIdTest, RepeatsFoundAtAnySpread)
{
    // Ids 1, 2000000000, 1: a range of 2e9 for three nodes goes through the hash, and still
    // finds node 3 repeating node 1. Then 5, 2000000000, 6: wide and distinct.
    vis_ConnectSetNodeAssoc(connect, 10, 2, 2000000000);
    int nf = -1, ef = -1;
    vis_GridFunIdCheck(gf, &nf, &ef);
    EXPECT_EQ(nf, 0);  // 1, 2000000000, 3
    vis_ConnectSetNodeAssoc(connect, 10, 3, 1);
    vis_GridFunIdCheck(gf, &nf, &ef);
    EXPECT_EQ(nf, 1);
    vis_ConnectSetNodeAssoc(connect, 10, 1, 5);
    vis_ConnectSetNodeAssoc(connect, 10, 3, 6);
    vis_GridFunIdCheck(gf, &nf, &ef);
    EXPECT_EQ(nf, 0);
    // Negative ids in a narrow range: -3, -2, -3 repeat through the bit vector.
    vis_ConnectSetNodeAssoc(connect, 10, 1, -3);
    vis_ConnectSetNodeAssoc(connect, 10, 2, -2);
    vis_ConnectSetNodeAssoc(connect, 10, 3, -3);
    vis_GridFunIdCheck(gf, &nf, &ef);
    EXPECT_EQ(nf, 1);
    ExpectNoReport();
}

TEST_F(GridFunIdTest, SlotPastTheTableReportsType)
{
    vis_GridFunSet(gf, 36, nullptr);
    ExpectOnlyReport("vis_GridFunSet", SYS_ERROR_ENUM, "type= 36");
}

}  // namespace
