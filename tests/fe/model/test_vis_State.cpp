// vis_State: definition and clearing with their reports, values at nodes, elements, element
// nodes and faces in every precision, derived scalars, operations, mapping between locations,
// the midside fill, deformation, group selection, the native forms and the data type table.
#include "vis_Connect.h"
#include "vis_CoordSys.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_Group.h"
#include "vis_IdTran.h"
#include "vis_Model.h"
#include "vis_State.h"
#include "vsy_HashTable.h"
#include "vsy_RedPre.h"
#include "vsy_TestSupport.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>

using namespace vsytest;

namespace {

// Two triangles on the unit square, (1 2 3) and (1 3 4), and a quadrilateral (2 5 6 3) beside
// them: elements of three and four nodes.
class StateTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        connect = vis_ConnectNew();
        vis_ConnectDef(connect, 6, 3);
        const double x[6][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {2, 0, 0}, {2, 1, 0}};
        for (int i = 0; i < 6; ++i) vis_ConnectSetCoordsdv(connect, i + 1, x[i]);
        const int t1[3] = {1, 2, 3}, t2[3] = {1, 3, 4}, q[4] = {2, 5, 6, 3};
        vis_ConnectSetTopology(connect, 1, SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 1, t1);
        vis_ConnectSetTopology(connect, 2, SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 2, t2);
        vis_ConnectSetTopology(connect, 3, SYS_SHAPE_QUAD, 0, 0, 0);
        vis_ConnectSetElemNode(connect, 3, q);
        gf = vis_GridFunNew();
        vis_ConnectGridFun(connect, gf);
    }
    void TearDown() override
    {
        for (vis_State* x : {s, t, u}) vis_StateDelete(x);
        vis_GridFunDelete(gf);
        vis_ConnectDelete(connect);
        ContainerTest::TearDown();
    }
    // A cleared state over the mesh.
    vis_State* Make(int nument, int parent, int child, int datatype, int precision = SYS_PRECISION_DOUBLE)
    {
        vis_State* x = vis_StateNew();
        vis_StateSetObject(x, SYS_GRIDFUN, gf);
        vis_StatePre(x, precision);
        vis_StateDef(x, nument, parent, child, datatype);
        vis_StateClear(x);
        return x;
    }
    vis_Connect* connect = nullptr;
    vis_GridFun* gf = nullptr;
    vis_State* s = nullptr;
    vis_State* t = nullptr;
    vis_State* u = nullptr;
};

TEST_F(StateTest, DefReports)
{
    s = vis_StateNew();
    vis_StateDef(s, 0, SYS_NODE, 0, 0);
    ExpectOnlyReport("vis_StateDef", SYS_ERROR_VALUE, "nument= 0");
    Reports().clear();
    vis_StateDef(s, 6, SYS_NODE, 0, 4);  // class 4 is no data type of a state
    ExpectOnlyReport("vis_StateDef", SYS_ERROR_ENUM, "datatype= 4");
    Reports().clear();
    vis_StateDef(s, 6, SYS_EDGE, 0, 0);
    ExpectOnlyReport("vis_StateDef", SYS_ERROR_ENUM, "parenttype= 2, childtype= 0");
    Reports().clear();
    vis_StateDef(s, 3, SYS_ELEM, SYS_FACE, 0);  // faces are child 12, not 3
    ExpectOnlyReport("vis_StateDef", SYS_ERROR_ENUM, "parenttype= 4, childtype= 3");
    EXPECT_EQ(vis_StateError(s), SYS_ERROR_ENUM);
    // A child equal to the parent (node values of nodes) becomes 0; the classes give their
    // component counts.
    Reports().clear();
    vis_StateDef(s, 6, SYS_NODE, SYS_NODE, 2);
    int n = 0, parent = 0, child = -1, type = 0, num = 0;
    vis_StateInq(s, &n, &parent, &child, &type);
    vis_StateDataNum(s, &num);
    EXPECT_EQ(child, 0);
    EXPECT_EQ(num, 6);  // tensor
    const int classes[][2] = {{0, 1}, {1, 3}, {2, 6}, {3, 9}, {5, 8}, {9, 6}, {11, 1}, {22, 12}};
    for (const auto& c : classes) {
        vis_StateDef(s, 3, SYS_ELEM, 0, c[0]);
        vis_StateDataNum(s, &num);
        EXPECT_EQ(num, c[1]) << "class " << c[0];
    }
    ExpectNoReport();
}

TEST_F(StateTest, ClearReports)
{
    s = vis_StateNew();
    vis_StateClear(s);
    ExpectOnlyReport("vis_StateClear", SYS_ERROR_OPERATION, "No entities defined");
    Reports().clear();
    vis_StateDef(s, 3, SYS_ELEM, SYS_NODE, 0);
    vis_StateClear(s);
    ExpectOnlyReport("vis_StateClear", SYS_ERROR_NULLOBJECT, "GridFun object");
    Reports().clear();
    // A node state of 5 entities over a mesh of 6 nodes: the mesh changed size.
    vis_StateSetObject(s, SYS_GRIDFUN, gf);
    vis_StateDef(s, 5, SYS_NODE, 0, 0);
    vis_StateClear(s);
    ExpectOnlyReport("vis_StateClear", SYS_ERROR_OPERATION, "Entity number mismatch");
    Reports().clear();
    const float v = 1.0f;
    vis_StateSetData(s, 1, &v);
    ExpectOnlyReport("vis_StateSetData", SYS_ERROR_OPERATION, "Clear not called");
    Reports().clear();
    vis_StateSetObject(s, SYS_CONNECT, connect);
    ExpectOnlyReport("vis_StateSetObject", SYS_ERROR_OBJECTTYPE, "objecttype= 2080");
    Reports().clear();
    vis_StatePre(s, 5);
    ExpectOnlyReport("vis_StatePre", SYS_ERROR_ENUM, "precision= 5");
}

TEST_F(StateTest, FailedStoreLeavesAnUnclearedState)
{
    s = vis_StateNew();
    vis_StateSetObject(s, SYS_GRIDFUN, gf);
    vis_StateDef(s, 3, SYS_ELEM, SYS_NODE, 1);
    // Each allocation of Clear in turn: offsets, store, flags.
    for (long nth = 1; nth <= 3; ++nth) {
        Reports().clear();
        FailAllocation(nth);
        vis_StateClear(s);
        RestoreAllocation();
        ExpectOnlyReport("vis_StateClear", SYS_ERROR_MEMORY, "Malloc state");
        Reports().clear();
        const double v[9] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
        vis_StateSetDatadv(s, 1, v);
        ExpectOnlyReport("vis_StateSetDatadv", SYS_ERROR_OPERATION, "Clear not called");
    }
    Reports().clear();
    vis_StateClear(s);
    ExpectNoReport();
}

TEST_F(StateTest, NodeVectorsSetAndRead)
{
    s = Make(6, SYS_NODE, 0, 1, SYS_PRECISION_FLOAT);
    const float a[3] = {1.5f, -2.0f, 3.25f};
    const double b[3] = {0.1, 0.2, 0.3};
    vis_StateSetData(s, 2, a);
    vis_StateSetDatadv(s, 5, b);
    const int ids[3] = {2, 3, 5};
    double got[9] = {7, 7, 7, 7, 7, 7, 7, 7, 7};
    vis_StateDatadv(s, 3, ids, got);
    EXPECT_EQ(got[0], 1.5);
    EXPECT_EQ(got[2], 3.25);
    EXPECT_EQ(got[3], 7.0);  // node 3 unset: the caller's values stay
    EXPECT_EQ(got[6], static_cast<double>(0.1f));  // a float store keeps single precision
    int stat[3] = {-1, -1, -1};
    vis_StateDataStat(s, 3, ids, stat);
    EXPECT_EQ(stat[0], 1);
    EXPECT_EQ(stat[1], 0);
    EXPECT_EQ(stat[2], 1);
    vis_StateClearData(s, 2);
    vis_StateDataStat(s, 1, ids, stat);
    EXPECT_EQ(stat[0], 0);
    // An id outside 1 to 6 is reported and nothing is read.
    const int bad[2] = {1, 7};
    vis_StateDatadv(s, 2, bad, got);
    ExpectOnlyReport("vis_StateDatadv", SYS_ERROR_VALUE, "id= 7");
}

TEST_F(StateTest, ElementNodeAndFaceValues)
{
    // Element node scalars: 3 + 3 + 4 values.
    s = Make(3, SYS_ELEM, SYS_NODE, 0);
    int num = 0;
    vis_StateElemNum(s, 3, &num);
    EXPECT_EQ(num, 4);
    const double q[4] = {1, 2, 3, 6};
    vis_StateSetDatadv(s, 3, q);
    double all[4] = {0, 0, 0, 0}, one = 0, mean = 0;
    vis_StateDataElemdv(s, 3, all);
    EXPECT_EQ(all[3], 6.0);
    vis_StateDataElemEntdv(s, 3, 2, &one);
    EXPECT_EQ(one, 2.0);
    const int id = 3;
    vis_StateDatadv(s, 1, &id, &mean);
    EXPECT_EQ(mean, 3.0);  // (1 + 2 + 3 + 6) / 4
    vis_StateDataElemEntdv(s, 3, 5, &one);
    ExpectOnlyReport("vis_StateDataElemEntdv", SYS_ERROR_VALUE, "no= 5");
    // Face values of plane elements: a triangle and a quadrilateral have one face each.
    t = Make(3, SYS_ELEM, VIS_STATE_FACE, 1);
    vis_StateElemNum(t, 1, &num);
    EXPECT_EQ(num, 1);
}

TEST_F(StateTest, ReducedPrecisions)
{
    // Bytes over 0 to 255: a code per unit, so 100.4 reads back as 100.
    s = Make(6, SYS_NODE, 0, 0, SYS_PRECISION_BYTE);
    const double v = 100.4;
    vis_StateSetDatadv(s, 1, &v);
    ExpectOnlyReport("vis_StateSetDatadv", SYS_ERROR_OPERATION, "Def not called or extent not set");
    Reports().clear();
    vis_StateExt(s, 0.0, 255.0);
    vis_StateSetDatadv(s, 1, &v);
    double got = 0;
    const int id = 1;
    vis_StateDatadv(s, 1, &id, &got);
    EXPECT_EQ(got, 100.0);
    // Half floats keep ten fraction bits: 1.5 exactly, 0.1 within 2^-14.
    t = Make(6, SYS_NODE, 0, 0, SYS_PRECISION_HALF);
    const double h[2] = {1.5, 0.1};
    vis_StateSetDatadv(t, 1, h);
    vis_StateSetDatadv(t, 2, h + 1);
    const int ids[2] = {1, 2};
    double hv[2] = {0, 0};
    vis_StateDatadv(t, 2, ids, hv);
    EXPECT_EQ(hv[0], 1.5);
    EXPECT_NEAR(hv[1], 0.1, 1.0 / 16384);
    ExpectNoReport();
}

TEST_F(StateTest, DerivedScalars)
{
    s = Make(3, SYS_ELEM, 0, 2);
    // Uniaxial stress 100: von Mises 100. Pure shear 10: von Mises sqrt(3) 10.
    // xx = yy = 2, xy = 1, zz = 0: principal values 0, 1 and 3 (of [[2 1] [1 2]]: 2 -+ 1),
    // Tresca 3 - 0, mean 4 / 3.
    const double uni[6] = {100, 0, 0, 0, 0, 0}, shear[6] = {0, 0, 0, 10, 0, 0}, plane[6] = {2, 2, 0, 1, 0, 0};
    vis_StateSetDatadv(s, 1, uni);
    vis_StateSetDatadv(s, 2, shear);
    vis_StateSetDatadv(s, 3, plane);
    const struct {
        int derive, id;
        double want;
    } rows[] = {{VIS_STATE_VONMISES, 1, 100.0}, {VIS_STATE_VONMISES, 2, std::sqrt(3.0) * 10.0},
                {VIS_STATE_MINIMUM, 3, 0.0},     {VIS_STATE_INTERMEDIATE, 3, 1.0},
                {VIS_STATE_MAXIMUM, 3, 3.0},     {VIS_STATE_TRESCA, 3, 3.0},
                {VIS_STATE_MEAN, 3, 4.0 / 3.0},  {VIS_STATE_XY, 3, 1.0}};
    for (const auto& r : rows) {
        vis_StateSetDerive(s, r.derive);
        vis_StateDelete(t);
        t = vis_StateNew();
        vis_StateOperateUnary(t, VIS_STATE_DERIVE, s);
        double got = -1;
        vis_StateDatadv(t, 1, &r.id, &got);
        EXPECT_NEAR(got, r.want, 1e-12) << vis_StateQualifier(r.derive) << " of element " << r.id;
    }
    // A vector's magnitude; a qualifier that does not fit the class is refused.
    u = Make(6, SYS_NODE, 0, 1);
    const double v[3] = {3, 4, 0};
    vis_StateSetDatadv(u, 4, v);
    vis_StateSetDerive(u, VIS_STATE_MAG);
    double extent[2] = {0, 0};
    int loc[2] = {0, 0};
    vis_StateExtentLoc(u, nullptr, extent, loc);
    EXPECT_EQ(extent[0], 5.0);
    EXPECT_EQ(loc[1], 4);
    vis_StateSetDerive(u, VIS_STATE_VONMISES);
    ExpectOnlyReport("vis_StateSetDerive", SYS_ERROR_ENUM, "derive= 11");
}

TEST_F(StateTest, OperationsAndExtent)
{
    s = Make(6, SYS_NODE, 0, 0);
    t = Make(6, SYS_NODE, 0, 0);
    for (int id = 1; id <= 6; ++id) {
        const double a = id, b = 10.0 * id;
        vis_StateSetDatadv(s, id, &a);
        if (id != 6) vis_StateSetDatadv(t, id, &b);
    }
    u = vis_StateNew();
    vis_StateOperateBinarydv(u, VIS_STATE_COMBINE, s, t, 0.5);  // a + 0.5 b = 6 id
    double got = 0;
    int stat = 0;
    const int id3 = 3, id6 = 6;
    vis_StateDatadv(u, 1, &id3, &got);
    EXPECT_EQ(got, 18.0);
    vis_StateDataStat(u, 1, &id6, &stat);
    EXPECT_EQ(stat, 0);  // node 6 is unset in t
    vis_StateOperateUnarydv(u, VIS_STATE_SCALE, u, -2.0);  // in place: -12 id
    double extent[2] = {0, 0};
    int loc[2] = {0, 0};
    vis_StateExtentLoc(u, nullptr, extent, loc);
    EXPECT_EQ(extent[0], -60.0);
    EXPECT_EQ(extent[1], -12.0);
    EXPECT_EQ(loc[0], 5);
    EXPECT_EQ(loc[1], 1);
    // A group limits the extent: nodes 2 and 3 only.
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, 6, SYS_NODE, 0);
    vis_GroupSetIndex(g, 2, 1);
    vis_GroupSetIndex(g, 3, 1);
    vis_StateExtent(s, g, extent);
    EXPECT_EQ(extent[0], 2.0);
    EXPECT_EQ(extent[1], 3.0);
    vis_GroupDelete(g);
    // States of different entities do not combine.
    vis_State* e = Make(3, SYS_ELEM, 0, 0);
    vis_StateOperateBinary(u, VIS_STATE_ADD, s, e);
    ExpectOnlyReport("vis_StateOperateBinary", SYS_ERROR_OPERATION, "State mismatch");
    vis_StateDelete(e);
}

TEST_F(StateTest, TransformRotatesVectorsAndTensors)
{
    // 90 degrees about z, row by row: x goes to y.
    const double r[9] = {0, -1, 0, 1, 0, 0, 0, 0, 1};
    s = Make(6, SYS_NODE, 0, 1);
    const double v[3] = {1, 0, 0};
    vis_StateSetDatadv(s, 1, v);
    vis_StateTransform(s, r);
    double got[3] = {0, 0, 0};
    const int id = 1;
    vis_StateDatadv(s, 1, &id, got);
    EXPECT_NEAR(got[0], 0.0, 1e-15);
    EXPECT_NEAR(got[1], 1.0, 1e-15);
    t = Make(3, SYS_ELEM, 0, 2);
    const double sx[6] = {7, 0, 0, 0, 0, 0};  // stress along x becomes stress along y
    vis_StateSetDatadv(t, 1, sx);
    vis_StateTransform(t, r);
    double tt[6] = {0, 0, 0, 0, 0, 0};
    vis_StateDatadv(t, 1, &id, tt);
    EXPECT_NEAR(tt[0], 0.0, 1e-14);
    EXPECT_NEAR(tt[1], 7.0, 1e-14);
}

TEST_F(StateTest, MapBetweenLocations)
{
    // Element node values: element 1 gives nodes 1 2 3 the values 1 2 3, element 2 gives nodes
    // 1 3 4 the values 3 5 7. Node 1 is the mean of 1 and 3, node 3 of 3 and 5.
    s = Make(3, SYS_ELEM, SYS_NODE, 0);
    const double e1[3] = {1, 2, 3}, e2[3] = {3, 5, 7};
    vis_StateSetDatadv(s, 1, e1);
    vis_StateSetDatadv(s, 2, e2);
    t = Make(6, SYS_NODE, 0, 0);
    vis_StateMap(t, s);
    const int ids[6] = {1, 2, 3, 4, 5, 6};
    double got[6] = {-1, -1, -1, -1, -1, -1};
    int stat[6];
    vis_StateDatadv(t, 6, ids, got);
    vis_StateDataStat(t, 6, ids, stat);
    EXPECT_EQ(got[0], 2.0);
    EXPECT_EQ(got[1], 2.0);
    EXPECT_EQ(got[2], 4.0);
    EXPECT_EQ(got[3], 7.0);
    EXPECT_EQ(stat[4], 0);  // node 5 lies on the unset quadrilateral only
    // Back to element nodes: the quadrilateral needs node 5, which is unset.
    u = Make(3, SYS_ELEM, SYS_NODE, 0);
    vis_StateMap(u, t);
    double back[3] = {0, 0, 0};
    vis_StateDataElemdv(u, 2, back);
    EXPECT_EQ(back[0], 2.0);
    EXPECT_EQ(back[1], 4.0);
    EXPECT_EQ(back[2], 7.0);
    vis_StateDataStat(u, 1, ids + 2, stat);
    EXPECT_EQ(stat[0], 0);
    ExpectNoReport();
}

TEST_F(StateTest, DeformAndGroups)
{
    // Positions plus twice the displacement.
    s = Make(6, SYS_NODE, 0, 1);
    t = Make(6, SYS_NODE, 0, 1);
    const double x[3] = {1, 1, 0}, d[3] = {0.5, 0, -1};
    vis_StateSetDatadv(s, 3, x);
    vis_StateSetDatadv(t, 3, d);
    vis_StateDeform(s, t, 2.0);
    double got[3] = {0, 0, 0};
    const int id = 3;
    vis_StateDatadv(s, 1, &id, got);
    EXPECT_EQ(got[0], 2.0);
    EXPECT_EQ(got[2], -2.0);
    // Nodes whose displacement magnitude lies in 1 to 2: |(0.5 0 -1)| = 1.118, node 3 only.
    vis_StateSetDerive(t, VIS_STATE_MAG);
    const float range[2] = {1.0f, 2.0f};
    vis_StateSetGroupParamfv(t, VIS_STATE_RANGE, range);
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, 6, SYS_NODE, 0);
    vis_StateNodeGroup(t, g);
    int count = 0, flag = 0;
    vis_GroupCount(g, &count);
    vis_GroupGetIndex(g, 3, &flag);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(flag, 1);
    vis_GroupDelete(g);
    ExpectNoReport();
}

TEST_F(StateTest, DemoValuesAndInterpolation)
{
    // Demo node vectors are the node coordinates.
    s = Make(6, SYS_NODE, 0, 1);
    vis_StateDemo(s);
    double x[3] = {0, 0, 0};
    const int six = 6;
    vis_StateDatadv(s, 1, &six, x);
    EXPECT_EQ(x[0], 2.0);  // node 6 at (2 1 0)
    EXPECT_EQ(x[1], 1.0);
    // The quadrilateral 2 5 6 3 at natural (1, 0): the middle of its corners 1 and 2, nodes 5
    // (2 0 0) and 6 (2 1 0), which is (2, 0.5, 0): coordinates interpolate exactly.
    const double rst[3] = {1, 0, 0};
    double v[3] = {-1, -1, -1};
    EXPECT_EQ(vis_StateDataElemRSTdv(s, 3, rst, v), 1);
    EXPECT_NEAR(v[0], 2.0, 1e-15);
    EXPECT_NEAR(v[1], 0.5, 1e-15);
    int shape = -1, maxi = -1, maxj = -1, maxk = -1;
    vis_StateElemType(s, 3, &shape, &maxi, &maxj, &maxk);
    EXPECT_EQ(shape, SYS_SHAPE_QUAD);
    // The same values at the element nodes, and the triangle 1 2 3 at its centroid (r = s =
    // 1/3): the mean of (0 0), (1 0) and (1 1), (2/3, 1/3).
    t = Make(3, SYS_ELEM, SYS_NODE, 1);
    vis_StateMapElemNode(t, s);
    const double third[3] = {1.0 / 3.0, 1.0 / 3.0, 0};
    EXPECT_EQ(vis_StateDataElemRSTdv(t, 1, third, v), 1);
    EXPECT_NEAR(v[0], 2.0 / 3.0, 1e-15);
    EXPECT_NEAR(v[1], 1.0 / 3.0, 1e-15);
    // An element state without children has no values at points.
    u = Make(3, SYS_ELEM, 0, 0);
    EXPECT_EQ(vis_StateDataElemRSTdv(u, 1, third, v), 0);
    ExpectOnlyReport("vis_StateDataElemRSTdv", SYS_ERROR_OPERATION, "State mismatch");
}

TEST_F(StateTest, SortDirectionsAndParameters)
{
    // Node scalars 3 1 2 at nodes 1 2 3 (others unset): ascending value gives 2 3 1.
    s = Make(6, SYS_NODE, 0, 0);
    for (int id = 1; id <= 3; ++id) {
        const double v = id == 1 ? 3.0 : id - 1.0;
        vis_StateSetDatadv(s, id, &v);
    }
    vis_IdTran* order = vis_IdTranNew();
    vis_StateSortIdTran(s, order);
    int n = 0, ids[3] = {0, 0, 0};
    vis_IdTranNum(order, &n);
    vis_IdTranGetIds(order, ids);
    EXPECT_EQ(n, 3);
    EXPECT_EQ(ids[0], 2);
    EXPECT_EQ(ids[1], 3);
    EXPECT_EQ(ids[2], 1);
    vis_IdTranDelete(order);
    // A rectangular system 7 whose x axis is global y and whose x-y plane holds -x: rows
    // (0 1 0), (-1 0 0) and (0 0 1); the global system gives the identity.
    double tm[9];
    vis_StateDirCos(s, 1, tm);
    EXPECT_EQ(tm[0], 1.0);
    EXPECT_EQ(tm[4], 1.0);
    vis_CoordSys* cs = vis_CoordSysNew();
    vis_CoordSysDef(cs, 1);
    const double o[3] = {0, 0, 0}, xaxis[3] = {0, 1, 0}, plane[3] = {-1, 0, 0};
    vis_CoordSysSetOriginVectorsdv(cs, o, xaxis, plane);
    vsy_HashTable* table = vsy_HashTableNew();
    vsy_HashTableInsert(table, 7, cs);
    vis_StateSetHashTable(s, SYS_COORDSYS, table);
    vis_StateSetParami(s, VIS_STATE_SYSTEM, 7);
    vis_StateDirCos(s, 2, tm);
    const double want[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    for (int i = 0; i < 9; ++i) EXPECT_NEAR(tm[i], want[i], 1e-15) << i;
    vis_StateSetParami(s, VIS_STATE_SYSTEM, 8);  // not in the table
    vis_StateDirCos(s, 2, tm);
    ExpectOnlyReport("vis_StateDirCos", SYS_ERROR_VALUE, "system= 8");
    Reports().clear();
    vis_StateSetParami(s, 9, 0);
    ExpectOnlyReport("vis_StateSetParami", SYS_ERROR_ENUM, "type= 9");
    vsy_HashTableDelete(table);
    vis_CoordSysDelete(cs);
}

// The gradient of a linear field over a hexahedron that an affine map skews: exact at every
// node, since the trilinear element holds the field and the map exactly.
TEST(StateDerivative, LinearFieldOverASkewedHexahedron)
{
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, 8, 1);
    const double unit[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    vis_State* phi = vis_StateNew();
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(c, gf);
    vis_StateSetObject(phi, SYS_GRIDFUN, gf);
    vis_StatePre(phi, SYS_PRECISION_DOUBLE);
    vis_StateDef(phi, 8, SYS_NODE, 0, 0);
    for (int i = 0; i < 8; ++i) {
        const double* u = unit[i];
        // x = 2u + 0.5v, y = v, z = 0.2u + 3w; the field x + 2y + 3z has gradient (1, 2, 3).
        const double x[3] = {2 * u[0] + 0.5 * u[1], u[1], 0.2 * u[0] + 3 * u[2]};
        vis_ConnectSetCoordsdv(c, i + 1, x);
    }
    const int hex[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_HEX, 0, 0, 0);
    vis_ConnectSetElemNode(c, 1, hex);
    vis_StateClear(phi);
    for (int i = 1; i <= 8; ++i) {
        double x[3];
        vis_ConnectCoordsdv(c, 1, &i, x);
        const double f = x[0] + 2 * x[1] + 3 * x[2];
        vis_StateSetDatadv(phi, i, &f);
    }
    vis_State* grad = vis_StateNew();
    vis_StateSetObject(grad, SYS_GRIDFUN, gf);
    vis_StatePre(grad, SYS_PRECISION_DOUBLE);
    vis_StateDef(grad, 1, SYS_ELEM, SYS_NODE, 1);
    vis_StateClear(grad);
    vis_StateDerivative(grad, phi);
    double g[24];
    vis_StateDataElemdv(grad, 1, g);
    for (int k = 0; k < 8; ++k)
        for (int a = 0; a < 3; ++a) EXPECT_NEAR(g[3 * k + a], a + 1.0, 1e-12) << "node " << k << " axis " << a;
    // A scalar state as the result is refused.
    vis_StateDerivative(phi, phi);
    EXPECT_EQ(vis_StateError(phi), SYS_ERROR_OPERATION);
    vis_StateDelete(grad);
    vis_StateDelete(phi);
    vis_GridFunDelete(gf);
    vis_ConnectDelete(c);
}

// A six-node triangle: corners 1 2 3, midside nodes 4 (edge 1-2), 5 (2-3), 6 (3-1).
TEST(StateMidside, QuadraticTriangleEdges)
{
    vis_Connect* c = vis_ConnectNew();
    vis_ConnectDef(c, 6, 1);
    const int nodes[6] = {1, 2, 3, 4, 5, 6};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_TRI, 3, 0, 0);
    vis_ConnectSetElemNode(c, 1, nodes);
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(c, gf);
    vis_State* s = vis_StateNew();
    vis_StateSetObject(s, SYS_GRIDFUN, gf);
    vis_StateDef(s, 6, SYS_NODE, 0, 0);
    vis_StateClear(s);
    const double corner[3] = {0, 2, 4};
    for (int i = 0; i < 3; ++i) vis_StateSetDatadv(s, i + 1, corner + i);
    vis_StateMidside(s);
    // Means of the ends: (0 + 2) / 2, (2 + 4) / 2, (4 + 0) / 2.
    const int mid[3] = {4, 5, 6};
    double got[3] = {-1, -1, -1};
    vis_StateDatadv(s, 3, mid, got);
    EXPECT_EQ(got[0], 1.0);
    EXPECT_EQ(got[1], 3.0);
    EXPECT_EQ(got[2], 2.0);
    vis_StateDelete(s);
    vis_GridFunDelete(gf);
    vis_ConnectDelete(c);
}

TEST_F(StateTest, NativeFormsReadBack)
{
    s = Make(3, SYS_ELEM, SYS_NODE, 1);
    const double q[12] = {0.1, 1.0 / 3.0, -2e-300, 4, 5, 6, 7, 8, 9, 1e300, -0.0, 12};
    vis_StateSetDatadv(s, 3, q);
    vis_StateSetDataSect(s, 2);
    char dir[] = "/tmp/tev_state_XXXXXX";
    ASSERT_NE(mkdtemp(dir), nullptr);
    for (int type : {0, 1}) {
        const std::string path = std::string(dir) + (type ? "/s.bin" : "/s.txt");
        vis_StateWrite(s, type, path.c_str());
        vis_StateDelete(t);
        t = vis_StateNew();
        vis_StateSetObject(t, SYS_GRIDFUN, gf);
        vis_StateRead(t, type, path.c_str());
        ExpectNoReport();
        double got[12];
        vis_StateDataElemdv(t, 3, got);
        EXPECT_EQ(std::memcmp(got, q, sizeof q), 0) << "type " << type;  // exact, bit for bit
        int stat = -1, section = 0;
        const int id1 = 1;
        vis_StateDataStat(t, 1, &id1, &stat);
        vis_StateDataSect(t, &section);
        EXPECT_EQ(stat, 0);
        EXPECT_EQ(section, 2);
        std::remove(path.c_str());
    }
    // An earlier failure that nobody polled does not spoil a later read.
    const std::string again = std::string(dir) + "/again.txt";
    vis_StateWrite(s, 0, again.c_str());
    u = vis_StateNew();
    vis_StateSetObject(u, SYS_GRIDFUN, gf);
    vis_StatePre(u, 5);  // code 2, left in ierr
    Reports().clear();
    vis_StateRead(u, 0, again.c_str());
    ExpectNoReport();
    double back[12];
    vis_StateDataElemdv(u, 3, back);
    EXPECT_EQ(std::memcmp(back, q, sizeof q), 0);
    std::remove(again.c_str());
    // Text that is not a state, and a path that cannot be opened.
    const std::string bad = std::string(dir) + "/bad.txt";
    FILE* fp = std::fopen(bad.c_str(), "w");
    std::fputs("State 1\n3 4 1 1 4 0 0 0\n3 4 1 2\n", fp);  // element 3 cut short
    std::fclose(fp);
    vis_StateRead(t, 0, bad.c_str());
    ExpectOnlyReport("vis_StateRead", SYS_ERROR_FORMAT, "path= " + bad);
    Reports().clear();
    std::remove(bad.c_str());
    vis_StateWrite(s, 0, (std::string(dir) + "/no/such").c_str());
    ExpectOnlyReport("vis_StateWrite", SYS_ERROR_FILE, "path= " + std::string(dir) + "/no/such");
    rmdir(dir);
}

TEST(StateTable, DataTypesClassesAndQualifiers)
{
    const char *kw = nullptr, *name = nullptr, *shortname = nullptr;
    int dataclass = -1;
    EXPECT_EQ(vis_StateDataType(35, &kw, &name, &shortname, &dataclass), 1);
    EXPECT_STREQ(kw, "S");
    EXPECT_STREQ(name, "Stress");
    EXPECT_STREQ(shortname, "Stre");
    EXPECT_EQ(dataclass, 2);
    EXPECT_EQ(vis_StateDataType(36, &kw, &name, &shortname, &dataclass), 0);  // reserved
    EXPECT_STREQ(kw, "");
    EXPECT_EQ(vis_StateDataType(183, &kw, &name, &shortname, &dataclass), 1);
    EXPECT_STREQ(name, "Force");
    EXPECT_EQ(vis_StateDataType(184, &kw, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(vis_StateDataType(20, nullptr, nullptr, nullptr, &dataclass), 1);
    EXPECT_EQ(dataclass, 7);  // damping matrix: a matrix class, no fixed count
    EXPECT_EQ(vis_StateClassNum(7), 0);
    EXPECT_EQ(vis_StateClassNum(10), 1);
    EXPECT_STREQ(vis_StateQualifier(1), "X");
    EXPECT_STREQ(vis_StateQualifier(VIS_STATE_VONMISES), "VONMISES");
    EXPECT_STREQ(vis_StateQualifier(VIS_STATE_TRESCA), "TRESCA");
    EXPECT_STREQ(vis_StateQualifier(VIS_STATE_MEAN), "MEAN");
    EXPECT_STREQ(vis_StateQualifier(55), "NOM");
    EXPECT_EQ(vis_StateQualifier(56), nullptr);
}

}  // namespace
