// Case objects: loads, restraints, constraints, initial conditions, curves and contact pairs,
// all sparse by node or element.
#include "vis_ASurf.h"
#include "vis_CPair.h"
#include "vis_Connect.h"
#include "vis_ElemTopology.h"
#include "vis_Group.h"
#include "vis_ICase.h"
#include "vis_LCase.h"
#include "vis_MCase.h"
#include "vis_Model.h"
#include "vis_RCase.h"
#include "vis_TCurve.h"
#include "vsy_TestSupport.h"

#include <cmath>

using namespace vsytest;

namespace {

class LCaseTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        lc = vis_LCaseNew();
    }
    void TearDown() override
    {
        vis_LCaseDelete(lc);
        ContainerTest::TearDown();
    }
    vis_LCase* lc = nullptr;
};

TEST_F(LCaseTest, NodeWithoutEntryGivesAZeroVector)
{
    double v[3] = {7, 7, 7};
    vis_LCaseConcdv(lc, 12, 1, v);
    for (double x : v) EXPECT_EQ(x, 0.0);
    ExpectNoReport();
    EXPECT_EQ(vis_LCaseError(lc), 0);
}

TEST_F(LCaseTest, ConcMaxWithType8ReportsType)
{
    int max = 5;
    vis_LCaseConcMax(lc, 8, &max);
    ExpectOnlyReport("vis_LCaseConcMax", SYS_ERROR_ENUM, "type= 8");
    EXPECT_EQ(max, 5);
    EXPECT_EQ(vis_LCaseError(lc), SYS_ERROR_ENUM);
}

TEST_F(LCaseTest, ForcesAndMomentsSetAddAndQuery)
{
    const double f[3] = {1, 2, 3}, m[3] = {0, 0, 5};
    vis_LCaseSetConcdv(lc, 4, 1, f);
    vis_LCaseAddConcdv(lc, 4, 1, f);  // accumulates: 2 4 6
    vis_LCaseSetConcdv(lc, 9, 2, m);
    vis_LCaseAddConcdv(lc, 2, 2, m);  // add on an absent node starts from zeros
    double v[3];
    vis_LCaseConcdv(lc, 4, 1, v);
    EXPECT_EQ(v[0], 2.0);
    EXPECT_EQ(v[1], 4.0);
    EXPECT_EQ(v[2], 6.0);
    int max = 0, num = 0, flag = 0, mask = 0;
    vis_LCaseConcMax(lc, 1, &max);
    EXPECT_EQ(max, 4);
    vis_LCaseConcMax(lc, 7, &max);
    EXPECT_EQ(max, 9);  // larger of force (4) and moment (9)
    vis_LCaseConcNum(lc, 7, &num);
    EXPECT_EQ(num, 3);  // nodes 2, 4, 9
    vis_LCaseConcFlag(lc, 9, 7, &flag);
    EXPECT_EQ(flag, 1);
    vis_LCaseConcFlag(lc, 9, 1, &flag);
    EXPECT_EQ(flag, 0);
    vis_LCaseConcType(lc, 4, &mask);
    EXPECT_EQ(mask, 1);  // force only: bit 0
    ExpectNoReport();
}

TEST_F(LCaseTest, ScalarTypesAndFloats)
{
    const float t = 350.0f;
    vis_LCaseSetConc(lc, 3, 4, &t);
    float got = 0;
    vis_LCaseConc(lc, 3, 4, &got);
    EXPECT_EQ(got, 350.0f);
    double d[3] = {-1, -1, -1};
    vis_LCaseConcdv(lc, 3, 4, d);
    EXPECT_EQ(d[0], 350.0);
    EXPECT_EQ(d[1], -1.0);  // a temperature is one scalar: nothing else written
}

TEST_F(LCaseTest, IndexAndTypeErrors)
{
    double v[3] = {};
    vis_LCaseConcdv(lc, 0, 1, v);
    vis_LCaseConcdv(lc, 1, 7, v);  // 7 is a query of flags only
    vis_LCaseSetDistdv(lc, 4, 1, 1, 2, v);
    vis_LCaseSetDistdv(lc, 3, 1, 7, 2, v);
    vis_LCaseSetDistdv(lc, 3, 1, 1, 3, v);
    ASSERT_EQ(reports().size(), 5u);
    EXPECT_EQ(reports()[0].text, "index= 0");
    EXPECT_EQ(reports()[0].code, SYS_ERROR_VALUE);
    EXPECT_EQ(reports()[1].text, "type= 7");
    EXPECT_EQ(reports()[2].text, "enttype= 4");
    EXPECT_EQ(reports()[3].text, "no= 7");  // a hexahedron has six faces
    EXPECT_EQ(reports()[4].text, "type= 3");  // distributed type 3 is not used
    EXPECT_EQ(reports()[4].code, SYS_ERROR_ENUM);
}

TEST_F(LCaseTest, PressureOnFacesKeepsItsCornersAndFlags)
{
    const double p1[4] = {1, 2, 3, 4}, p2[4] = {5, 5, 5, 5};
    vis_LCaseSetDistdv(lc, 3, 7, 6, 2, p1);
    vis_LCaseSetDistdv(lc, 3, 7, 2, 2, p2);
    int flags = 0, max = 0;
    vis_LCaseDistFlag(lc, 3, 7, 2, &flags);
    EXPECT_EQ(flags, (1 << 5) | (1 << 1));  // faces 6 and 2
    vis_LCaseDistMax(lc, 3, 2, &max);
    EXPECT_EQ(max, 7);
    double v[4];
    vis_LCaseDistdv(lc, 3, 7, 6, 2, v);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(v[i], p1[i]);
    vis_LCaseDistdv(lc, 3, 7, 1, 2, v);  // face 1 not loaded
    for (double x : v) EXPECT_EQ(x, 0.0);
    const double c = 0.5;
    vis_LCaseAddDistCentdv(lc, 3, 7, 6, 2, &c);  // a centre value on every corner
    vis_LCaseDistdv(lc, 3, 7, 6, 2, v);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(v[i], p1[i] + 0.5);
    ExpectNoReport();
}

TEST_F(LCaseTest, FloatFormsOfDistributedAndElementLoads)
{
    const float p[4] = {1.5f, 2.5f, 3.5f, 4.5f};
    vis_LCaseSetDist(lc, 3, 2, 3, 2, p);
    vis_LCaseAddDist(lc, 3, 2, 3, 2, p);
    float got[4] = {};
    vis_LCaseDist(lc, 3, 2, 3, 2, got);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(got[i], 2 * p[i]);
    const float q[2] = {7.0f, 8.0f};
    vis_LCaseSetElem(lc, 2, 2, 2, q);
    vis_LCaseAddElem(lc, 2, 2, 1, q);  // adds to the first value only
    int n = 0;
    float e[2] = {};
    vis_LCaseElem(lc, 2, 2, &n, e);
    EXPECT_EQ(n, 2);
    EXPECT_EQ(e[0], 14.0f);
    EXPECT_EQ(e[1], 8.0f);
    ExpectNoReport();
}

TEST_F(LCaseTest, TractionOnAnEdgeHasThreeScalarsPerCorner)
{
    const double t[6] = {1, 0, 0, 0, 1, 0};
    vis_LCaseSetDistdv(lc, 2, 3, 12, 1, t);
    double v[6] = {};
    vis_LCaseDistdv(lc, 2, 3, 12, 1, v);
    for (int i = 0; i < 6; ++i) EXPECT_EQ(v[i], t[i]);
    int flags = 0;
    vis_LCaseDistFlag(lc, 2, 3, 1, &flags);
    EXPECT_EQ(flags, 1 << 11);
}

TEST_F(LCaseTest, ElementHeatGenerationPerNode)
{
    const double q[4] = {1, 2, 3, 4};
    vis_LCaseSetElemdv(lc, 5, 2, 4, q);
    int n = 0, flag = 0, max = 0;
    double v[4] = {};
    vis_LCaseElemdv(lc, 5, 2, &n, v);
    EXPECT_EQ(n, 4);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(v[i], q[i]);
    vis_LCaseElemFlag(lc, 6, 2, &flag);
    EXPECT_EQ(flag, 0);
    vis_LCaseElemMax(lc, 2, &max);
    EXPECT_EQ(max, 5);
    vis_LCaseSetElemdv(lc, 5, 2, 65, q);
    ExpectOnlyReport("vis_LCaseSetElemdv", SYS_ERROR_VALUE, "nix= 65");
}

TEST_F(LCaseTest, AccelerationNeverSetIsZeroWithFlag0)
{
    int flag = 9;
    double a[3] = {1, 1, 1}, w[3] = {1, 1, 1}, al[3] = {1, 1, 1}, c[3] = {1, 1, 1};
    vis_LCaseAccelFlag(lc, &flag);
    vis_LCaseAccel(lc, a, w, al, c);
    EXPECT_EQ(flag, 0);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(a[i], 0.0);
        EXPECT_EQ(w[i], 0.0);
        EXPECT_EQ(al[i], 0.0);
        EXPECT_EQ(c[i], 0.0);
    }
    const double g[3] = {0, 0, -9.81};
    vis_LCaseSetAcceldv(lc, g, nullptr, nullptr, nullptr);
    vis_LCaseAccelFlag(lc, &flag);
    vis_LCaseAccel(lc, a, w, al, c);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(a[2], -9.81);
}

TEST_F(LCaseTest, FailedAllocationLeavesNoEntry)
{
    const double f[3] = {1, 2, 3};
    FailAllocation(1, true);
    vis_LCaseSetConcdv(lc, 4, 1, f);
    RestoreAllocation();
    ASSERT_FALSE(reports().empty());
    EXPECT_EQ(reports().back().code, SYS_ERROR_MEMORY);
    EXPECT_EQ(reports().back().text, "index= 4");
    int flag = 1;
    vis_LCaseConcFlag(lc, 4, 1, &flag);
    EXPECT_EQ(flag, 0);
}

TEST_F(LCaseTest, GroupsOfLoadedEntities)
{
    const double f[3] = {1, 0, 0}, m[3] = {0, 1, 0}, p[4] = {1, 1, 1, 1}, q[1] = {5};
    vis_LCaseSetConcdv(lc, 2, 1, f);
    vis_LCaseSetConcdv(lc, 5, 2, m);
    vis_LCaseSetConcdv(lc, 40, 1, f);  // beyond the group's count: left out
    vis_LCaseSetDistdv(lc, 3, 4, 2, 2, p);
    vis_LCaseSetDistdv(lc, 3, 4, 5, 2, p);
    vis_LCaseSetElemdv(lc, 6, 2, 1, q);
    vis_Group* nodes = vis_GroupNew();
    vis_GroupDef(nodes, 10, SYS_NODE, 0);
    vis_GroupSetIndex(nodes, 9, 1);  // cleared first
    vis_LCaseNodeGroup(lc, 7, nodes);
    int num = 0, flags = 0;
    vis_GroupCount(nodes, &num);
    EXPECT_EQ(num, 2);  // nodes 2 (force) and 5 (moment)
    vis_GroupGetIndex(nodes, 5, &flags);
    EXPECT_EQ(flags, 1);
    vis_Group* faces = vis_GroupNew();
    vis_GroupDef(faces, 10, SYS_ELEM, SYS_FACE);
    vis_LCaseFaceGroup(lc, 2, faces);
    vis_GroupGetIndex(faces, 4, &flags);
    EXPECT_EQ(flags, (1 << 1) | (1 << 4));  // faces 2 and 5
    vis_Group* elems = vis_GroupNew();
    vis_GroupDef(elems, 10, SYS_ELEM, 0);
    vis_LCaseElemGroup(lc, 2, elems);
    vis_GroupCount(elems, &num);
    EXPECT_EQ(num, 1);
    ExpectNoReport();
    vis_LCaseFaceGroup(lc, 2, elems);  // a group without face flags
    ExpectOnlyReport("vis_LCaseFaceGroup", SYS_ERROR_ENUM, "childtype= 0");
    vis_GroupDelete(nodes);
    vis_GroupDelete(faces);
    vis_GroupDelete(elems);
}

TEST_F(LCaseTest, TimeCurveAndFactorDescribeTheCaseWithoutScalingIt)
{
    vis_TCurve* tc = vis_TCurveNew();
    void* got = nullptr;
    double f = 0;
    vis_LCaseGetObject(lc, SYS_TCURVE, &got);
    vis_LCaseGetParamd(lc, VIS_LCASE_FACTOR, &f);
    EXPECT_EQ(got, nullptr);
    EXPECT_EQ(f, 1.0);  // factor 1 after New
    vis_LCaseSetObject(lc, SYS_TCURVE, tc);
    vis_LCaseSetParamd(lc, VIS_LCASE_FACTOR, 1.5);
    const double force[3] = {2, 0, 0};
    vis_LCaseSetConcdv(lc, 3, 1, force);
    double v[3];
    vis_LCaseConcdv(lc, 3, 1, v);
    EXPECT_EQ(v[0], 2.0);  // read as set, not times 1.5
    vis_LCaseClear(lc);    // removes the loads only
    vis_LCaseGetObject(lc, SYS_TCURVE, &got);
    vis_LCaseGetParamd(lc, VIS_LCASE_FACTOR, &f);
    EXPECT_EQ(got, tc);
    EXPECT_EQ(f, 1.5);
    int max = -1;
    vis_LCaseConcMax(lc, 1, &max);
    EXPECT_EQ(max, 0);
    ExpectNoReport();
    vis_LCaseDelete(lc);  // the curve stays the caller's: deleted after the case
    lc = nullptr;
    vis_TCurveDelete(tc);
}

TEST_F(LCaseTest, CompanionAndParameterCodeErrors)
{
    void* got = lc;
    double f = 9;
    vis_LCaseSetObject(lc, SYS_LCASE, lc);
    ExpectOnlyReport("vis_LCaseSetObject", SYS_ERROR_OBJECTTYPE, "objecttype= 2320");
    EXPECT_EQ(vis_LCaseError(lc), SYS_ERROR_OBJECTTYPE);
    Reports().clear();
    vis_LCaseGetObject(lc, 2080, &got);
    ExpectOnlyReport("vis_LCaseGetObject", SYS_ERROR_OBJECTTYPE, "objecttype= 2080");
    EXPECT_EQ(got, lc);  // unwritten
    Reports().clear();
    vis_LCaseSetParamd(lc, 2, 3.0);
    vis_LCaseGetParamd(lc, 0, &f);
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[0].name, "vis_LCaseSetParamd");
    EXPECT_EQ(Reports()[0].code, SYS_ERROR_ENUM);
    EXPECT_EQ(Reports()[0].text, "type= 2");
    EXPECT_EQ(Reports()[1].text, "type= 0");
    EXPECT_EQ(f, 9.0);  // unwritten
    vis_LCaseGetParamd(lc, VIS_LCASE_FACTOR, &f);
    EXPECT_EQ(f, 1.0);  // the refused set changed nothing
    void* none = nullptr;
    vis_LCaseGetObject(lc, SYS_TCURVE, &none);
    EXPECT_EQ(none, nullptr);
}

class RCaseTest : public ContainerTest {};

TEST_F(RCaseTest, NodeGroupOfRestrainedNodes)
{
    vis_RCase* rc = vis_RCaseNew();
    vis_RCaseSetSPCdv(rc, 3, 1, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 8, 2, 1, 0.0);
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, 8, SYS_NODE, 0);
    vis_RCaseNodeGroup(rc, g);
    int flags[9] = {};
    for (int i = 1; i <= 8; ++i) vis_GroupGetIndex(g, i, &flags[i]);
    for (int i = 1; i <= 8; ++i) EXPECT_EQ(flags[i], (i == 3 || i == 8) ? 1 : 0) << i;
    vis_RCaseElemGroup(rc, g);
    ExpectOnlyReport("vis_RCaseElemGroup", SYS_ERROR_ENUM, "parenttype= 1");
    vis_GroupDelete(g);
    vis_RCaseDelete(rc);
}

TEST_F(RCaseTest, TagsBeyondTheLargestIndexAreNone)
{
    vis_RCase* rc = vis_RCaseNew();
    vis_RCaseSetSPCdv(rc, 3, 2, 1, 9.0);  // fixed: the value is 0
    vis_RCaseSetSPCdv(rc, 3, 1, 2, 0.25);
    vis_RCaseSetSPCdv(rc, 3, 7, 1, 0.0);
    int n = -1, tags[31];
    vis_RCaseSPCTag(rc, 4, &n, tags);
    EXPECT_EQ(n, 0);
    vis_RCaseSPCTag(rc, 3, &n, tags);
    ASSERT_EQ(n, 3);
    EXPECT_EQ(tags[0], 1);  // ascending
    EXPECT_EQ(tags[1], 2);
    EXPECT_EQ(tags[2], 7);
    int type = 0;
    double v = -1;
    vis_RCaseSPCdv(rc, 3, 2, &type, &v);
    EXPECT_EQ(type, 1);
    EXPECT_EQ(v, 0.0);
    vis_RCaseSPCdv(rc, 3, 1, &type, &v);
    EXPECT_EQ(type, 2);
    EXPECT_EQ(v, 0.25);
    vis_RCaseUseTag(rc, &n, tags);
    EXPECT_EQ(n, 3);
    ExpectNoReport();
    vis_RCaseSetSPCdv(rc, 0, 1, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 1, 32, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 1, 1, 3, 0.0);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_EQ(reports()[0].text, "index= 0");
    EXPECT_EQ(reports()[1].text, "iparam= 32");
    EXPECT_EQ(reports()[2].text, "type= 3");
    EXPECT_EQ(vis_RCaseError(rc), SYS_ERROR_ENUM);  // the last one stands
    vis_RCaseDelete(rc);
}

TEST_F(RCaseTest, AddMergesNodesAndElements)
{
    vis_RCase* a = vis_RCaseNew();
    vis_RCase* b = vis_RCaseNew();
    vis_RCaseSetSPCdv(a, 1, 1, 1, 0.0);
    vis_RCaseSetSPCdv(b, 1, 3, 2, 2.0);
    vis_RCaseSetElemCdv(b, 8, 6, 1, 0.0);
    vis_RCaseAdd(a, b);
    int n = 0, tags[31], max = 0;
    vis_RCaseSPCTag(a, 1, &n, tags);
    EXPECT_EQ(n, 2);
    vis_RCaseElemCTag(a, 8, &n, tags);
    ASSERT_EQ(n, 1);
    EXPECT_EQ(tags[0], 6);
    vis_RCaseElemCMax(a, &max);
    EXPECT_EQ(max, 8);
    vis_RCaseDelete(a);
    vis_RCaseDelete(b);
}

class MCaseTest : public ContainerTest {};

TEST_F(MCaseTest, EquationsAndTwoNodeConstraints)
{
    vis_MCase* mc = vis_MCaseNew();
    const int nodes[3] = {4, 5, 6}, tags[3] = {1, 1, 3};
    const double f[3] = {1.0, -0.5, -0.5};
    vis_MCaseSetMPCdv(mc, 1, 3, nodes, tags, f);
    const int pair[2] = {7, 8};
    vis_MCaseSetCon(mc, 2, 2, pair);
    int nequ = 0, maxterm = 0, maxindex = 0, nterms = 0, type = 0, n = 0;
    vis_MCaseInq(mc, &nequ, &maxterm, &maxindex);
    EXPECT_EQ(nequ, 2);
    EXPECT_EQ(maxterm, 3);
    EXPECT_EQ(maxindex, 2);
    int gn[3], gt[3], cn[2];
    double gf[3];
    vis_MCaseMPCdv(mc, 1, &nterms, gn, gt, gf);
    ASSERT_EQ(nterms, 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(gn[i], nodes[i]);
        EXPECT_EQ(gt[i], tags[i]);
        EXPECT_EQ(gf[i], f[i]);
    }
    vis_MCaseCon(mc, 2, &type, &n, cn);
    EXPECT_EQ(type, 2);
    ASSERT_EQ(n, 2);
    EXPECT_EQ(cn[0], 7);
    EXPECT_EQ(cn[1], 8);
    vis_MCaseMPC(mc, 3, &nterms);
    EXPECT_EQ(nterms, 0);
    vis_MCaseDel(mc, 1);
    vis_MCaseInq(mc, &nequ, &maxterm, nullptr);
    EXPECT_EQ(nequ, 1);
    EXPECT_EQ(maxterm, 0);
    ExpectNoReport();
    const int badtags[2] = {1, 32};
    vis_MCaseSetMPCdv(mc, 3, 2, nodes, badtags, f);
    vis_MCaseSetCon(mc, 3, 6, pair);
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_EQ(reports()[0].text, "ix[1]= 32");
    EXPECT_EQ(reports()[1].text, "type= 6");
    vis_MCaseDelete(mc);
}

class ICaseTest : public ContainerTest {};

TEST_F(ICaseTest, LevelThreeReportsInvalidType)
{
    vis_ICase* ic = vis_ICaseNew();
    int max = 4;
    vis_ICaseSPVMax(ic, 3, &max);
    ExpectOnlyReport("vis_ICaseSPVMax", SYS_ERROR_ENUM, "Invalid type= 3");
    EXPECT_EQ(max, 4);
    EXPECT_EQ(vis_ICaseError(ic), SYS_ERROR_ENUM);
    vis_ICaseDelete(ic);
}

TEST_F(ICaseTest, ValuesInTagOrderPerLevel)
{
    vis_ICase* ic = vis_ICaseNew();
    vis_ICaseSetSPVdv(ic, 5, 1, 7, 20.0);
    vis_ICaseSetSPVdv(ic, 5, 1, 3, 0.1);
    vis_ICaseSetSPVdv(ic, 2, 2, 1, 4.0);
    int n = 0, tags[31], max = 0;
    double v[31];
    vis_ICaseSPVdv(ic, 5, 1, &n, tags, v);
    ASSERT_EQ(n, 2);
    EXPECT_EQ(tags[0], 3);
    EXPECT_EQ(v[0], 0.1);
    EXPECT_EQ(tags[1], 7);
    EXPECT_EQ(v[1], 20.0);
    vis_ICaseSPVdv(ic, 5, 2, &n, tags, v);
    EXPECT_EQ(n, 0);
    vis_ICaseSPVUseTag(ic, 2, &n, tags);
    ASSERT_EQ(n, 1);
    EXPECT_EQ(tags[0], 1);
    vis_ICaseSPVMax(ic, 1, &max);
    EXPECT_EQ(max, 5);
    ExpectNoReport();
    vis_ICaseDelete(ic);
}

TEST_F(ICaseTest, NodeGroupPerLevel)
{
    vis_ICase* ic = vis_ICaseNew();
    vis_ICaseSetSPVdv(ic, 2, 1, 7, 1.0);
    vis_ICaseSetSPVdv(ic, 4, 2, 1, 1.0);
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, 5, SYS_NODE, 0);
    vis_ICaseNodeGroup(ic, 2, g);
    int a = -1, b = -1;
    vis_GroupGetIndex(g, 2, &a);
    vis_GroupGetIndex(g, 4, &b);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 1);
    vis_GroupDelete(g);
    vis_ICaseDelete(ic);
}

class TCurveTest : public ContainerTest {};

TEST_F(TCurveTest, PiecewiseLinearPointsAndEvaluation)
{
    vis_TCurve* tc = vis_TCurveNew();
    const double x[3] = {0.0, 1.0, 3.0}, y[3] = {0.0, 10.0, 30.0};
    vis_TCurveSetPWLineardv(tc, 3, x, y);
    vis_TCurveSetFactord(tc, 2.0);
    const int pts[2] = {3, 1};
    double got[2];
    vis_TCurveIndepdv(tc, 2, pts, got);
    EXPECT_EQ(got[0], 3.0);
    EXPECT_EQ(got[1], 0.0);
    vis_TCurveDepdv(tc, 2, pts, got);
    EXPECT_EQ(got[0], 30.0);
    double v = 0;
    vis_TCurveEvaldv(tc, 2.0, &v);
    EXPECT_DOUBLE_EQ(v, 40.0);  // halfway from 10 to 30, times 2
    vis_TCurveEvaldv(tc, 5.0, &v);
    EXPECT_DOUBLE_EQ(v, 60.0);  // the end value held
    const int bad[2] = {1, 4};
    got[0] = got[1] = -1;
    vis_TCurveIndepdv(tc, 2, bad, got);
    ExpectOnlyReport("vis_TCurveIndepdv", SYS_ERROR_VALUE, "pts[1]= 4");
    EXPECT_EQ(got[0], -1.0);  // nothing read
    vis_TCurveDelete(tc);
}

TEST_F(TCurveTest, FloatForms)
{
    vis_TCurve* tc = vis_TCurveNew();
    const float x[2] = {0.0f, 2.0f}, y[2] = {1.0f, 3.0f};
    vis_TCurveSetPWLinear(tc, 2, x, y);
    vis_TCurveSetFactor(tc, 0.5f);
    const int pts[2] = {2, 1};
    float ind[2], dep[2], f = 0;
    vis_TCurveIndep(tc, 2, pts, ind);
    vis_TCurveDep(tc, 2, pts, dep);
    vis_TCurveGetFactor(tc, &f);
    EXPECT_EQ(ind[0], 2.0f);
    EXPECT_EQ(dep[1], 1.0f);
    EXPECT_EQ(f, 0.5f);
    const float nd[1] = {9.0f};
    const int one[1] = {1};
    vis_TCurveSetDep(tc, 1, one, nd);
    double v = 0;
    vis_TCurveEvaldv(tc, -1.0, &v);
    EXPECT_EQ(v, 4.5);  // the first point held, times 0.5
    vis_TCurveDelete(tc);
}

TEST_F(TCurveTest, DefinitionErrorsAndParameters)
{
    vis_TCurve* tc = vis_TCurveNew();
    vis_TCurveDef(tc, -1, 1);
    vis_TCurveDef(tc, 2, 0);
    vis_TCurveGetParami(tc, 2, nullptr);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_EQ(reports()[0].text, "npts= -1");
    EXPECT_EQ(reports()[1].text, "nval= 0");
    EXPECT_EQ(reports()[2].text, "type= 2");
    vis_TCurveDef(tc, 2, 2);
    const int pts[2] = {1, 2};
    const double dep[4] = {1, 2, 3, 4}, ind[2] = {0.5, 1.5};
    vis_TCurveSetIndepdv(tc, 2, pts, ind);
    vis_TCurveSetDepdv(tc, 2, pts, dep);
    double v[2];
    vis_TCurveEvaldv(tc, 1.0, v);
    EXPECT_DOUBLE_EQ(v[0], 2.0);  // halfway between (1, 2) and (3, 4)
    EXPECT_DOUBLE_EQ(v[1], 3.0);
    vis_TCurveSetParami(tc, VIS_TCURVE_TYPE, 3);
    int type = 0;
    vis_TCurveGetParami(tc, VIS_TCURVE_TYPE, &type);
    EXPECT_EQ(type, 3);
    vis_TCurveDelete(tc);
}

TEST_F(TCurveTest, ComponentCurveHoldsSeveralValuesPerPoint)
{
    vis_TCurve* tc = vis_TCurveNew();
    const double x[2] = {0.0, 2.0}, y[4] = {1.0, 10.0, 3.0, 30.0};  // point 1: (1, 10), point 2: (3, 30)
    vis_TCurveSetCompPWLineardv(tc, 2, 2, x, y);
    const int two[1] = {2};
    double dep[2], v[2];
    vis_TCurveDepdv(tc, 1, two, dep);
    EXPECT_EQ(dep[0], 3.0);
    EXPECT_EQ(dep[1], 30.0);
    vis_TCurveEvaldv(tc, 1.0, v);
    EXPECT_DOUBLE_EQ(v[0], 2.0);   // halfway from 1 to 3
    EXPECT_DOUBLE_EQ(v[1], 20.0);  // halfway from 10 to 30
    const float xf[1] = {4.0f}, yf[3] = {5.0f, 6.0f, 7.0f};
    vis_TCurveSetCompPWLinear(tc, 1, 3, xf, yf);
    double w[3];
    vis_TCurveEvaldv(tc, 0.0, w);  // one point: held everywhere
    EXPECT_EQ(w[0], 5.0);
    EXPECT_EQ(w[2], 7.0);
    vis_TCurveSetCompPWLineardv(tc, 2, 0, x, y);
    ExpectOnlyReport("vis_TCurveSetCompPWLineardv", SYS_ERROR_VALUE, "nval= 0");
    vis_TCurveEvaldv(tc, 0.0, w);  // the refused call kept the 3-valued point
    EXPECT_EQ(w[1], 6.0);
    vis_TCurveDelete(tc);
}

TEST_F(TCurveTest, MergeJoinsComponentsOverTheUnionOfPoints)
{
    vis_TCurve *a = vis_TCurveNew(), *b = vis_TCurveNew(), *m = vis_TCurveNew();
    const double xa[2] = {0, 2}, ya[2] = {0, 4}, xb[3] = {1, 2, 3}, yb[3] = {10, 20, 30};
    vis_TCurveSetPWLineardv(a, 2, xa, ya);
    vis_TCurveSetFactord(a, 2.0);
    vis_TCurveSetPWLineardv(b, 3, xb, yb);
    vis_TCurveMerge(m, a, b);
    ExpectNoReport();
    // Union of {0, 2} and {1, 2, 3}: 0, 1, 2, 3 (2 shared). Component 1 is a times 2: 0 at 0,
    // halfway 0..4 = 2 -> 4 at 1, 8 at 2, held 8 at 3. Component 2 is b: held 10 at 0, 10, 20, 30.
    const int pts[4] = {1, 2, 3, 4};
    double ind[4], dep[8], f = 0;
    vis_TCurveIndepdv(m, 4, pts, ind);
    vis_TCurveDepdv(m, 4, pts, dep);
    vis_TCurveGetFactord(m, &f);
    const double wantInd[4] = {0, 1, 2, 3}, wantDep[8] = {0, 10, 4, 10, 8, 20, 8, 30};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(ind[i], wantInd[i]) << i;
    for (int i = 0; i < 8; ++i) EXPECT_DOUBLE_EQ(dep[i], wantDep[i]) << i;
    EXPECT_EQ(f, 1.0);  // the factors are already in the values
    vis_TCurveDelete(a);
    vis_TCurveDelete(b);
    vis_TCurveDelete(m);
}

TEST_F(TCurveTest, MergeKeepsAStepAndWorksInPlace)
{
    vis_TCurve *a = vis_TCurveNew(), *b = vis_TCurveNew();
    const double xa[4] = {0, 1, 1, 2}, ya[4] = {0, 0, 5, 5}, xb[1] = {1}, yb[1] = {7};
    vis_TCurveSetPWLineardv(a, 4, xa, ya);  // a step from 0 to 5 at 1
    vis_TCurveSetPWLineardv(b, 1, xb, yb);
    vis_TCurveMerge(a, a, b);
    // a's two points at 1 stay apart; b's point at 1 joins the first of them, its held 7 the rest.
    const int pts[4] = {1, 2, 3, 4};
    double ind[4], dep[8];
    vis_TCurveIndepdv(a, 4, pts, ind);
    vis_TCurveDepdv(a, 4, pts, dep);
    const double wantInd[4] = {0, 1, 1, 2}, wantDep[8] = {0, 7, 0, 7, 5, 7, 5, 7};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(ind[i], wantInd[i]) << i;
    for (int i = 0; i < 8; ++i) EXPECT_EQ(dep[i], wantDep[i]) << i;
    vis_TCurveMerge(a, nullptr, b);
    ExpectOnlyReport("vis_TCurveMerge", SYS_ERROR_NULLOBJECT, "");
    vis_TCurveDelete(a);
    vis_TCurveDelete(b);
}

TEST_F(TCurveTest, MergeWithAnUnorderedValueEnds)
{
    vis_TCurve *a = vis_TCurveNew(), *b = vis_TCurveNew();
    const double xa[2] = {0, std::nan("")}, ya[2] = {1, 2}, xb[1] = {5}, yb[1] = {3};
    vis_TCurveSetPWLineardv(a, 2, xa, ya);
    vis_TCurveSetPWLineardv(b, 1, xb, yb);
    vis_TCurveMerge(a, a, b);
    // NaN compares false both ways: it is taken as a's point, so every point is visited once:
    // 0, NaN, then b's 5.
    const int pts[1] = {3};
    double x = 0;
    vis_TCurveIndepdv(a, 1, pts, &x);
    EXPECT_EQ(x, 5.0);
    ExpectNoReport();
    vis_TCurveDelete(a);
    vis_TCurveDelete(b);
}

TEST_F(TCurveTest, FailedMergeKeepsTheCurve)
{
    vis_TCurve *a = vis_TCurveNew(), *b = vis_TCurveNew();
    const double x[2] = {0, 1}, y[2] = {3, 4};
    vis_TCurveSetPWLineardv(a, 2, x, y);
    FailAllocation(1);
    vis_TCurveMerge(a, a, b);
    RestoreAllocation();
    ExpectOnlyReport("vis_TCurveMerge", SYS_ERROR_MEMORY, "npts= 2");  // merged: a's 2 points
    EXPECT_EQ(vis_TCurveError(a), SYS_ERROR_MEMORY);
    double v = 0;
    vis_TCurveEvaldv(a, 0.5, &v);
    EXPECT_DOUBLE_EQ(v, 3.5);  // a still its own one-valued curve
    vis_TCurveDelete(a);
    vis_TCurveDelete(b);
}

TEST_F(TCurveTest, FactorAsDoubleParameter)
{
    vis_TCurve* tc = vis_TCurveNew();
    vis_TCurveSetParamd(tc, VIS_TCURVE_FACTOR, 2.5);
    double f = 0, g = 0;
    vis_TCurveGetFactord(tc, &f);
    vis_TCurveGetParamd(tc, VIS_TCURVE_FACTOR, &g);
    EXPECT_EQ(f, 2.5);
    EXPECT_EQ(g, 2.5);
    vis_TCurveSetParamd(tc, VIS_TCURVE_TYPE, 4.0);  // the type is an integer option
    ExpectOnlyReport("vis_TCurveSetParamd", SYS_ERROR_ENUM, "type= 1");
    EXPECT_EQ(vis_TCurveError(tc), SYS_ERROR_ENUM);
    int type = -1;
    vis_TCurveGetParami(tc, VIS_TCURVE_TYPE, &type);
    EXPECT_EQ(type, 0);  // unchanged from New
    vis_TCurveDelete(tc);
}

class CPairTest : public ContainerTest {};

TEST_F(CPairTest, ParametersKindsAndSides)
{
    vis_CPair* cp = vis_CPairNew();
    vis_CPairSetValuei(cp, 0, 3);
    vis_CPairSetValuef(cp, 1, 0.01f);
    vis_CPairSetType(cp, 1, 0);
    vis_CPairSetSlaveNodedv(cp, 11, 0.5);
    vis_CPairSetMaster(cp, 4, 6);
    int pid = 0, kind = -1, link = -1, num = 0, index = 0, no = -1;
    double d = 0, w = 0;
    vis_CPairValueInteger(cp, 0, &pid);
    vis_CPairValueDouble(cp, 1, &d);  // floats are held as doubles
    vis_CPairGetType(cp, &kind, &link);
    EXPECT_EQ(pid, 3);
    EXPECT_EQ(d, (double)0.01f);
    EXPECT_EQ(kind, 1);
    EXPECT_EQ(link, 0);
    vis_CPairMasterSlaveElemNum(cp, VIS_CPAIR_SLAVE, &num);
    EXPECT_EQ(num, 1);
    vis_CPairMasterSlaveElem(cp, VIS_CPAIR_SLAVE, 1, &index, &no, &w);
    EXPECT_EQ(index, 11);
    EXPECT_EQ(no, 0);
    EXPECT_EQ(w, 0.5);
    vis_CPairMasterSlaveElem(cp, VIS_CPAIR_MASTER, 1, &index, &no, &w);
    EXPECT_EQ(index, 4);
    EXPECT_EQ(no, 6);
    ExpectNoReport();
    vis_CPairValueInteger(cp, 8, &pid);
    vis_CPairMasterSlaveElem(cp, 2, 1, &index, &no, &w);
    vis_CPairMasterSlaveElem(cp, VIS_CPAIR_MASTER, 2, &index, &no, &w);
    vis_CPairSetMaster(cp, 4, 0);
    ASSERT_EQ(reports().size(), 4u);
    EXPECT_EQ(reports()[0].text, "type= 8");
    EXPECT_EQ(reports()[1].text, "type= 2");
    EXPECT_EQ(reports()[2].text, "index= 2");
    EXPECT_EQ(reports()[3].text, "index= 0");
    Reports().clear();
    vis_Group* faces = vis_GroupNew();
    vis_GroupDef(faces, 5, SYS_ELEM, SYS_FACE);
    vis_CPairFaceGroup(cp, VIS_CPAIR_MASTER, faces);
    int flags = 0;
    vis_GroupGetIndex(faces, 4, &flags);
    EXPECT_EQ(flags, 1 << 5);  // element 4, face 6
    vis_Group* nodes = vis_GroupNew();
    vis_GroupDef(nodes, 20, SYS_NODE, 0);
    vis_CPairNodeGroup(cp, nodes);
    vis_GroupCount(nodes, &num);
    EXPECT_EQ(num, 1);
    vis_GroupGetIndex(nodes, 11, &flags);
    EXPECT_EQ(flags, 1);
    ExpectNoReport();
    vis_GroupDelete(faces);
    vis_GroupDelete(nodes);
    vis_CPairDef(cp);
    vis_CPairMasterSlaveElemNum(cp, VIS_CPAIR_MASTER, &num);
    EXPECT_EQ(num, 0);
    vis_CPairDelete(cp);
}

}  // namespace

namespace {

class ASurfTest : public ContainerTest {};

TEST_F(ASurfTest, ProfileAndPrimitivesAreStoredAndReturned)
{
    vis_ASurf* as = vis_ASurfNew();
    vis_ASurfDef(as, 3, 2);
    const double p[3][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}};
    for (int i = 0; i < 3; ++i) vis_ASurfSetPointdv(as, i + 1, p[i]);
    const int line[2] = {1, 2}, arc[3] = {2, 3, 1};
    vis_ASurfSegSegment(as, 1, VIS_ASURF_LINE, line);
    vis_ASurfSegSegment(as, 2, VIS_ASURF_ARC, arc);
    const double axis[3] = {0, 0, 1};
    vis_ASurfSetSegmentRevdv(as, p[0], axis);
    double x[3], o[3], a[3];
    int kind = 0, pts[3], type = 0;
    vis_ASurfGetPointdv(as, 3, x);
    EXPECT_EQ(x[1], 1.0);
    vis_ASurfGetSegment(as, 2, &kind, pts);
    EXPECT_EQ(kind, VIS_ASURF_ARC);
    EXPECT_EQ(pts[2], 1);
    vis_ASurfGetSegmentRevdv(as, o, a);
    EXPECT_EQ(a[2], 1.0);
    const double c[3] = {1, 2, 3}, t[3] = {1, 2, 5};
    vis_ASurfSetConedv(as, c, t, 2.0, 0.5);
    double rb = 0, rt = 0;
    vis_ASurfGetConedv(as, o, a, &rb, &rt);
    EXPECT_EQ(o[2], 3.0);
    EXPECT_EQ(a[2], 5.0);
    EXPECT_EQ(rb, 2.0);
    EXPECT_EQ(rt, 0.5);
    vis_ASurfGetType(as, &type);
    EXPECT_EQ(type, VIS_ASURF_CONE);
    ExpectNoReport();
    double r = -1;
    vis_ASurfGetSpheredv(as, o, &r);  // a cone is no sphere
    ExpectOnlyReport("vis_ASurfGetSpheredv", SYS_ERROR_OPERATION, "Surface type= 6");
    EXPECT_EQ(r, -1.0);
    Reports().clear();
    const int bad[2] = {1, 4};
    vis_ASurfSegSegment(as, 1, VIS_ASURF_LINE, bad);
    vis_ASurfSegSegment(as, 1, 3, bad);
    vis_ASurfSetPointdv(as, 4, p[0]);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_EQ(reports()[0].text, "ix[1]= 4");
    EXPECT_EQ(reports()[1].text, "type= 3");
    EXPECT_EQ(reports()[2].text, "index= 4");
    vis_ASurfDelete(as);
}

TEST_F(ASurfTest, FloatFormsConvert)
{
    vis_ASurf* as = vis_ASurfNew();
    const float c[3] = {0.5f, 1.5f, 2.5f};
    vis_ASurfSetSphere(as, c, 3.0f);
    double cd[3], r = 0;
    vis_ASurfGetSpheredv(as, cd, &r);
    EXPECT_EQ(cd[0], 0.5);
    EXPECT_EQ(r, 3.0);
    float cf[3], rf = 0;
    vis_ASurfGetSphere(as, cf, &rf);
    EXPECT_EQ(cf[2], 2.5f);
    EXPECT_EQ(rf, 3.0f);
    vis_ASurfDelete(as);
}

TEST_F(CPairTest, EdgeGroupReadsEntityNumbersAsEdges)
{
    vis_CPair* cp = vis_CPairNew();
    vis_CPairSetSlaveElem(cp, 2, 3);
    vis_CPairSetSlaveElem(cp, 1, 1);
    vis_CPairSetMaster(cp, 3, 2);
    vis_Group* edges = vis_GroupNew();
    vis_GroupDef(edges, 3, SYS_ELEM, SYS_EDGE);
    vis_CPairEdgeGroup(cp, VIS_CPAIR_SLAVE, edges);
    int flags = 0;
    vis_GroupGetIndex(edges, 2, &flags);
    EXPECT_EQ(flags, 1 << 2);  // element 2, edge 3: bit 2
    vis_GroupGetIndex(edges, 1, &flags);
    EXPECT_EQ(flags, 1);       // element 1, edge 1: bit 0
    vis_GroupGetIndex(edges, 3, &flags);
    EXPECT_EQ(flags, 0);       // the master's element is not on the slave side
    ExpectNoReport();
    vis_Group* faces = vis_GroupNew();
    vis_GroupDef(faces, 3, SYS_ELEM, SYS_FACE);
    vis_CPairEdgeGroup(cp, VIS_CPAIR_MASTER, faces);
    ExpectOnlyReport("vis_CPairEdgeGroup", SYS_ERROR_ENUM, "childtype= 3");
    Reports().clear();
    vis_CPairEdgeGroup(cp, 2, edges);
    ExpectOnlyReport("vis_CPairEdgeGroup", SYS_ERROR_ENUM, "type= 2");
    vis_GroupDelete(edges);
    vis_GroupDelete(faces);
    vis_CPairDelete(cp);
}

// Two unit quadrilaterals side by side in z = 0 (elements 1 and 2 over x 0..1 and 1..2) and
// three free nodes 7, 8, 9 to search from.
class CPairMeshTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        connect = vis_ConnectNew();
        vis_ConnectDef(connect, 9, 2);
        const double x[9][3] = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {0, 1, 0}, {1, 1, 0},
                                {2, 1, 0}, {1.7, 0.5, 0.3}, {-0.5, 0.5, 0}, {1, 0.5, 2}};
        for (int i = 0; i < 9; ++i) vis_ConnectSetCoordsdv(connect, i + 1, x[i]);
        const int q1[4] = {1, 2, 5, 4}, q2[4] = {2, 3, 6, 5};
        vis_ConnectSetTopology(connect, 1, SYS_SHAPE_QUAD, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 1, q1);
        vis_ConnectSetTopology(connect, 2, SYS_SHAPE_QUAD, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 2, q2);
        cp = vis_CPairNew();
        vis_CPairSetMaster(cp, 1, 1);
        vis_CPairSetMaster(cp, 2, 1);
    }
    void TearDown() override
    {
        vis_CPairDelete(cp);
        vis_ConnectDelete(connect);
        ContainerTest::TearDown();
    }
    vis_Connect* connect = nullptr;
    vis_CPair* cp = nullptr;
};

TEST_F(CPairMeshTest, SlaveNodeFindsItsNearestMasterFace)
{
    vis_CPairSetObject(cp, SYS_CONNECT, connect);
    void* got = nullptr;
    vis_CPairGetObject(cp, SYS_CONNECT, &got);
    EXPECT_EQ(got, connect);
    int m = -1;
    // Node 7 (1.7, 0.5, 0.3) lies over element 2: 0.3 away; element 1's nearest point is
    // (1, 0.5, 0), sqrt(0.49 + 0.09) away. Entity 2 is element 2.
    vis_CPairSlaveNodeMaster(cp, 7, &m);
    EXPECT_EQ(m, 2);
    // Node 8 (-0.5, 0.5, 0): 0.5 from element 1's edge x = 0, 1.5 from element 2.
    vis_CPairSlaveNodeMaster(cp, 8, &m);
    EXPECT_EQ(m, 1);
    // Node 9 (1, 0.5, 2) stands over the shared edge, 2 from both: the first entity wins.
    vis_CPairSlaveNodeMaster(cp, 9, &m);
    EXPECT_EQ(m, 1);
    ExpectNoReport();
    vis_CPairDef(cp);  // the mesh stays, the master side empties
    m = -1;
    vis_CPairSlaveNodeMaster(cp, 7, &m);
    EXPECT_EQ(m, 0);
    ExpectNoReport();
}

TEST_F(CPairMeshTest, SearchErrorsLeaveTheResultUnwritten)
{
    int m = -1;
    vis_CPairSlaveNodeMaster(cp, 7, &m);
    ExpectOnlyReport("vis_CPairSlaveNodeMaster", SYS_ERROR_OPERATION, "Connect object not set");
    EXPECT_EQ(vis_CPairError(cp), SYS_ERROR_OPERATION);
    Reports().clear();
    vis_CPairSetObject(cp, SYS_CONNECT, connect);
    vis_CPairSlaveNodeMaster(cp, 0, &m);
    vis_CPairSlaveNodeMaster(cp, 10, &m);  // 9 nodes
    vis_CPairSetMaster(cp, 1, 2);          // a quadrilateral has one face
    vis_CPairSlaveNodeMaster(cp, 7, &m);
    vis_CPairSetObject(cp, SYS_LCASE, connect);
    ASSERT_EQ(Reports().size(), 4u);
    EXPECT_EQ(Reports()[0].text, "index= 0");
    EXPECT_EQ(Reports()[1].text, "index= 10");
    EXPECT_EQ(Reports()[2].text, "index= 1");  // the element of the bad entity
    EXPECT_EQ(Reports()[2].code, SYS_ERROR_VALUE);
    EXPECT_EQ(Reports()[3].name, "vis_CPairSetObject");
    EXPECT_EQ(Reports()[3].code, SYS_ERROR_OBJECTTYPE);
    EXPECT_EQ(Reports()[3].text, "objecttype= 2320");
    EXPECT_EQ(m, -1);
    Reports().clear();
    vis_CPairDef(cp);
    vis_CPairSetMaster(cp, 3, 1);  // 2 elements
    vis_CPairSlaveNodeMaster(cp, 7, &m);
    ExpectOnlyReport("vis_CPairSlaveNodeMaster", SYS_ERROR_VALUE, "index= 3");
    EXPECT_EQ(m, -1);
}

}  // namespace
