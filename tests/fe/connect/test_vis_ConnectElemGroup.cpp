// vis_ConnectElemGroup, vis_ConnectNodeGroup and the group parameters: selections by attribute,
// shape, dimension, box and stride, badly oriented shells, sampling, self-intersection, nodes
// of the source, corners, node-group extents and the grid function's group slots. Every
// expected value is worked out in a comment.
#include "ConnectTestMesh.h"
#include "GroupTestMesh.h"
#include "vis_Connect.h"
#include "vis_ConnectGroup.h"
#include "vis_ConnectKernel.h"
#include "vis_GridFun.h"
#include "vis_Group.h"
#include "vsy_TestSupport.h"

#include <algorithm>
#include <cmath>

using namespace vsytest;
using namespace grouptest;

namespace {

class ElemGroupTest : public GroupFixture {
protected:
    std::vector<int> elemOper(int oper, vis_Group* source = nullptr)
    {
        vis_Group* g = elems();
        vis_ConnectElemGroup(c, oper, source, g);
        return Members(g);
    }
    std::vector<int> nodeOper(int oper, vis_Group* source = nullptr)
    {
        vis_Group* g = nodes();
        vis_ConnectNodeGroup(c, oper, source, g);
        return Members(g);
    }
    void mixedMesh()
    {
        meshtest::Build(c);
        vis_ConnectKernel(c);
    }
};

TEST_F(ElemGroupTest, ShapeDimensionStrideAndBox)
{
    mixedMesh();
    // The mixed mesh: E1 hex, E2 wedge, E3 tet, E4 pyramid, E5 quad, E6 triangle, E7 line,
    // E8 point, E9 polygon, E10 polyhedron.
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SHAPE, SYS_SHAPE_HEX);
    EXPECT_EQ(elemOper(VIS_CGROUP_SHAPEOF), (std::vector<int>{1}));
    vis_ConnectSetGroupParami(c, VIS_CGROUP_DIMENSION, 2);  // quad, triangle, polygon
    EXPECT_EQ(elemOper(VIS_CGROUP_DIMOF), (std::vector<int>{5, 6, 9}));
    vis_ConnectSetGroupParami(c, VIS_CGROUP_DIMENSION, 1);  // the line
    EXPECT_EQ(elemOper(VIS_CGROUP_DIMOF), (std::vector<int>{7}));
    // (id - 1) % 3 == 1: ids 2, 5, 8.
    vis_ConnectSetGroupParami(c, VIS_CGROUP_STRIDE, 3);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_PHASE, 2);
    EXPECT_EQ(elemOper(VIS_CGROUP_STRIDEOF), (std::vector<int>{2, 5, 8}));
    // A box that is a single point: the point element E8 at node 12 (.5, .5, -1) lies on its
    // bounds, which count as inside. The pyramid's centroid (.5, .5, -.2) does not.
    const float box[6] = {.5f, .5f, -1.f, .5f, .5f, -1.f};
    vis_ConnectSetGroupParamfv(c, VIS_CGROUP_BOX, box);
    EXPECT_EQ(elemOper(VIS_CGROUP_INBOX), (std::vector<int>{8}));
    ExpectNoReport();
}

TEST_F(ElemGroupTest, AttributesAndNodeSources)
{
    mixedMesh();
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_PART, 3, 5);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_PART, 7, 5);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_PART, 2, 9);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCTYPE, VIS_ASSOC_PART);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCVALUE, 5);
    EXPECT_EQ(elemOper(VIS_CGROUP_ASSOC), (std::vector<int>{3, 7}));
    EXPECT_EQ(elemOper(VIS_CGROUP_ASSOCANY), (std::vector<int>{2, 3, 7}));
    // Nodes of the tet E3: 5 6 8 11 13..18. Only E3 has all its nodes there.
    vis_Group* tet = nodes();
    for (int n : {5, 6, 8, 11, 13, 14, 15, 16, 17, 18}) vis_GroupSetIndex(tet, n, 1);
    EXPECT_EQ(elemOper(VIS_CGROUP_ALLNODES, tet), (std::vector<int>{3}));
    // Exactly one node in {12}: the pyramid E4 and the point E8.
    vis_Group* apex = nodes();
    vis_GroupSetIndex(apex, 12, 1);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, 1);
    EXPECT_EQ(elemOper(VIS_CGROUP_COUNTNODES, apex), (std::vector<int>{4, 8}));
    // An element source limits the scan: of {1, 2, 3}, part 5 is E3 alone.
    vis_Group* src = elems();
    for (int id : {1, 2, 3}) vis_GroupSetIndex(src, id, 1);
    EXPECT_EQ(elemOper(VIS_CGROUP_ASSOC, src), (std::vector<int>{3}));
}

TEST_F(ElemGroupTest, BadOperChangesNothing)
{
    mixedMesh();
    vis_Group* g = elems();
    vis_GroupSetIndex(g, 4, 1);
    vis_ConnectElemGroup(c, 99, nullptr, g);
    ExpectOnlyReport("vis_ConnectElemGroup", SYS_ERROR_ENUM, "oper= 99");
    EXPECT_EQ(vis_ConnectError(c), SYS_ERROR_ENUM);
    EXPECT_EQ(Members(g), (std::vector<int>{4}));
    Reports().clear();
    // A node source where an element source belongs, and a node group as destination.
    vis_ConnectElemGroup(c, VIS_CGROUP_SHAPEOF, nodes(), g);
    ExpectOnlyReport("vis_ConnectElemGroup", SYS_ERROR_VALUE, "");
    Reports().clear();
    vis_ConnectElemGroup(c, VIS_CGROUP_SHAPEOF, nullptr, nodes());
    ExpectOnlyReport("vis_ConnectElemGroup", SYS_ERROR_VALUE, "");
    EXPECT_EQ(Members(g), (std::vector<int>{4}));
}

TEST_F(ElemGroupTest, ParameterChecks)
{
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SHAPE, 10);
    ExpectOnlyReport("vis_ConnectSetGroupParami", SYS_ERROR_ENUM, "iparam= 10");
    EXPECT_EQ(c->grp.shape, 0);
    Reports().clear();
    vis_ConnectSetGroupParami(c, 99, 1);
    ExpectOnlyReport("vis_ConnectSetGroupParami", SYS_ERROR_ENUM, "type= 99");
    Reports().clear();
    vis_ConnectSetGroupParami(c, VIS_CGROUP_DIMENSION, 4);
    ExpectOnlyReport("vis_ConnectSetGroupParami", SYS_ERROR_VALUE, "iparam= 4");
    Reports().clear();
    vis_ConnectSetGroupParami(c, VIS_CGROUP_STRIDE, 0);
    ExpectOnlyReport("vis_ConnectSetGroupParami", SYS_ERROR_VALUE, "iparam= 0");
    Reports().clear();
    vis_ConnectSetGroupParami(c, VIS_CGROUP_PHASE, 2);  // stride is still 1
    ExpectOnlyReport("vis_ConnectSetGroupParami", SYS_ERROR_VALUE, "iparam= 2");
    Reports().clear();
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCTYPE, 43);
    ExpectOnlyReport("vis_ConnectSetGroupParami", SYS_ERROR_ENUM, "iparam= 43");
    Reports().clear();
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, -1);
    ExpectOnlyReport("vis_ConnectSetGroupParami", SYS_ERROR_VALUE, "iparam= -1");
    Reports().clear();
    vis_ConnectSetGroupParamf(c, 3, 1.0f);
    ExpectOnlyReport("vis_ConnectSetGroupParamf", SYS_ERROR_ENUM, "type= 3");
    Reports().clear();
    const float v[16] = {0};
    vis_ConnectSetGroupParamfv(c, 5, v);
    ExpectOnlyReport("vis_ConnectSetGroupParamfv", SYS_ERROR_ENUM, "type= 5");
    Reports().clear();
    vis_ConnectSetGroupObject(c, 1, nullptr);
    ExpectOnlyReport("vis_ConnectSetGroupObject", SYS_ERROR_OBJECTTYPE, "objecttype= 1");
    // Defaults: stride and phase 1, everything else 0.
    EXPECT_EQ(c->grp.stride, 1);
    EXPECT_EQ(c->grp.phase, 1);
    EXPECT_EQ(c->grp.count, 0);
    // The cosine follows the angle: cos 60 degrees = 0.5.
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_ANGLE, 60.0f);
    EXPECT_NEAR(c->grp.cosangle, 0.5f, 1e-7);
}

TEST_F(ElemGroupTest, ShellWithTheLastElementFlipped)
{
    // A strip of three quadrilaterals, bottom nodes 1..4 at (i, 0), top nodes 5..8 at (i, 1).
    // Q1 1 2 6 5 and Q2 2 3 7 6 run their shared edge as 2->6 and 6->2: consistent. Q3 is
    // listed 3 7 8 4 (the reverse of 3 4 8 7): its edge 3->7 runs as Q2's 3->7, so it is flipped.
    std::vector<std::array<double, 3>> x;
    for (int j = 0; j <= 1; ++j)
        for (int i = 0; i <= 3; ++i) x.push_back({double(i), double(j), 0.0});
    Shell(c, x, {{1, 2, 6, 5}, {2, 3, 7, 6}, {3, 7, 8, 4}});
    EXPECT_EQ(elemOper(VIS_CGROUP_ORIENT), (std::vector<int>{3}));
}

TEST_F(ElemGroupTest, OrientationJudgesEachElementAgainstItsPredecessor)
{
    // The middle one flipped: Q2 listed 2 6 7 3 runs 2->6 as Q1 does: selected. Q3 (3 4 8 7,
    // consistent with Q1) runs 7->3 as the flipped Q2 does, so it is selected as well.
    std::vector<std::array<double, 3>> x;
    for (int j = 0; j <= 1; ++j)
        for (int i = 0; i <= 3; ++i) x.push_back({double(i), double(j), 0.0});
    Shell(c, x, {{1, 2, 6, 5}, {2, 6, 7, 3}, {3, 4, 8, 7}});
    EXPECT_EQ(elemOper(VIS_CGROUP_ORIENT), (std::vector<int>{2, 3}));
}

TEST_F(ElemGroupTest, TwoCrossingTrianglesIntersect)
{
    // T1 (0,0,0) (2,0,0) (0,2,0) in z = 0; T2 (.5,.5,-1) (.5,.5,1) (.5,-1,0) in x = .5. T2's
    // edge from (.5,.5,-1) to (.5,.5,1) pierces T1 at (.5,.5,0), inside it (x + y = 1 < 2).
    // They share no node: both are selected.
    Shell(c, {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {.5, .5, -1}, {.5, .5, 1}, {.5, -1, 0}}, {{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(elemOper(VIS_CGROUP_INTERSECT), (std::vector<int>{1, 2}));
}

TEST_F(ElemGroupTest, TwoTouchingTrianglesDoNot)
{
    // T1 and T3 (0,0,0) (2,0,0) (0,0,2) share the edge 1-2: every edge of one shares a node
    // with the other's face, so no pair is tested and nothing is selected.
    Shell(c, {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {0, 0, 2}}, {{1, 2, 3}, {1, 2, 4}});
    EXPECT_TRUE(elemOper(VIS_CGROUP_INTERSECT).empty());
    ExpectNoReport();
}

TEST_F(ElemGroupTest, ATriangleTouchingAnotherWithoutASharedNodeIntersects)
{
    // T2's corner (.5,.5,0) lies on T1 without being one of its nodes: the segment touches the
    // triangle, which the test counts at tolerance 0.
    Shell(c, {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {.5, .5, 0}, {.5, .5, 1}, {.5, -1, 1}}, {{1, 2, 3}, {4, 5, 6}});
    EXPECT_EQ(elemOper(VIS_CGROUP_INTERSECT), (std::vector<int>{1, 2}));
}

TEST_F(ElemGroupTest, SamplingKeepsTheFirstOfEqualDistances)
{
    // A row of 4 hexahedra, centroids x = .5, 1.5, 2.5, 3.5 (y = z = .5), extent 4 x 1 x 1.
    // Cells of 2: trunc(4 / 2 + 1) = 3 along x, trunc(1 / 2 + 1) = 1 along y and z. Cell 0
    // (centre x 1) gets elements 1 and 2 at the same distance: the first stays. Cell 1 (centre
    // x 3) gets 3 and 4, again equal: 3 stays.
    Block(c, 4, 1, 1);
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_CELLSIZE, 2.0f);
    EXPECT_EQ(elemOper(VIS_CGROUP_SAMPLE), (std::vector<int>{1, 3}));
}

TEST_F(ElemGroupTest, NodeSamplingTakesTheNodeNearestTheCentre)
{
    // Nodes on the x axis at 0, .4, 1.1, 1.5, 1.9; cells of 1: trunc(1.9 + 1) = 2 along x, one
    // along y and z. Cell 0 (centre .5): node 1 (distance .5) then node 2 (.1), strictly closer,
    // replaces it. Cell 1 (centre 1.5): node 3 (.4), then node 4 (0) replaces it; node 5 (.4)
    // does not.
    vis_ConnectDef(c, 5, 0);
    const double xs[5] = {0, .4, 1.1, 1.5, 1.9};
    for (int n = 1; n <= 5; ++n) {
        const double x[3] = {xs[n - 1], 0, 0};
        vis_ConnectSetCoordsdv(c, n, x);
    }
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_CELLSIZE, 1.0f);
    EXPECT_EQ(nodeOper(VIS_CGROUP_SAMPLE), (std::vector<int>{2, 4}));
    // Without a cell size there is no grid.
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_CELLSIZE, 0.0f);
    EXPECT_TRUE(nodeOper(VIS_CGROUP_SAMPLE).empty());
    ExpectOnlyReport("vis_ConnectNodeGroup", SYS_ERROR_OPERATION, "Cell size not set");
}

TEST_F(ElemGroupTest, NodesOfTheCube)
{
    // 27 nodes of the 2 x 2 x 2 cube: 8 corners on one element, 12 edge middles on 2, 6 side
    // centres on 4, the centre on 8.
    Block(c, 2, 2, 2);
    EXPECT_EQ(nodeOper(VIS_CGROUP_FREE).size(), 8u);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, 4);
    EXPECT_EQ(nodeOper(VIS_CGROUP_SHARED).size(), 6u);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, 8);
    EXPECT_EQ(nodeOper(VIS_CGROUP_SHARED), (std::vector<int>{BlockNode(2, 2, 1, 1, 1)}));
    // Nodes on the free faces: all but the centre, 26.
    vis_Group* free = keep(NewGroup(8, SYS_ELEM, SYS_FACE));
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, free);
    EXPECT_EQ(nodeOper(VIS_CGROUP_EVERYONCE, free).size(), 26u);
    // Corners of the feature curves: the 8 cube corners, each the end of three feature edges;
    // an edge middle joins two collinear feature edges (dot of arriving and leaving tangents 1,
    // not below cos 45) and a side centre has none.
    vis_Group* features = keep(NewGroup(8, SYS_ELEM, SYS_EDGE));
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_ANGLE, 45.0f);
    vis_ConnectEdgeGroup(c, VIS_CGROUP_FEATURE, free, features);
    EXPECT_EQ(nodeOper(VIS_CGROUP_FEATURE, features), LatticeNodes(2, 2, {0, 2}));
    // The corners of element 1: its 8 nodes, the lattice points with coordinates 0 or 1.
    vis_Group* one = elems();
    vis_GroupSetIndex(one, 1, 1);
    const std::vector<int> first = LatticeNodes(2, 2, {0, 1});
    EXPECT_EQ(nodeOper(VIS_CGROUP_CORNER, one), first);
    // The box [0, 1]^3 holds the same 8 nodes; odd ids of 27 are 14.
    const float box[6] = {0, 0, 0, 1, 1, 1};
    vis_ConnectSetGroupParamfv(c, VIS_CGROUP_BOX, box);
    EXPECT_EQ(nodeOper(VIS_CGROUP_INBOX), first);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_STRIDE, 2);
    EXPECT_EQ(nodeOper(VIS_CGROUP_STRIDEOF).size(), 14u);
    ExpectNoReport();
}

TEST_F(ElemGroupTest, NodeAttributesReadEveryValueAndTheMask)
{
    Block(c, 2, 2, 2);
    // Node 5 carries the values 3 and 7: oper 4 with 7 finds it through its second value.
    vis_ConnectAddNodeAssoc(c, 3, 5, 3);
    vis_ConnectAddNodeAssoc(c, 3, 5, 7);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCTYPE, 3);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCVALUE, 7);
    EXPECT_EQ(nodeOper(VIS_CGROUP_ASSOC), (std::vector<int>{5}));
    EXPECT_EQ(nodeOper(VIS_CGROUP_ASSOCANY), (std::vector<int>{5}));
    // Attribute 0 masks: node 1 reads 0, every other node 1. Of the 8 cube corners on one
    // element, node 1 is skipped: 7.
    for (int n = 1; n <= 27; ++n) vis_ConnectSetNodeAssoc(c, VIS_ASSOC_ELEMTYPE, n, n == 1 ? 0 : 1);
    EXPECT_EQ(nodeOper(VIS_CGROUP_FREE).size(), 7u);
}

TEST_F(ElemGroupTest, PointElementsOfTheSource)
{
    mixedMesh();
    // The point element E8 lies on node 12.
    EXPECT_EQ(nodeOper(VIS_CGROUP_WHOLE), (std::vector<int>{12}));
    // Without E8 in the source, no point element.
    vis_Group* src = elems();
    vis_GroupSetIndex(src, 1, 1);
    EXPECT_TRUE(nodeOper(VIS_CGROUP_WHOLE, src).empty());
    // A node source keeps its members: node 12 in it, then not.
    vis_Group* twelve = nodes();
    vis_GroupSetIndex(twelve, 12, 1);
    EXPECT_EQ(nodeOper(VIS_CGROUP_WHOLE, twelve), (std::vector<int>{12}));
    vis_Group* one = nodes();
    vis_GroupSetIndex(one, 1, 1);
    EXPECT_TRUE(nodeOper(VIS_CGROUP_WHOLE, one).empty());
}

TEST_F(ElemGroupTest, ExtentOfANodeGroup)
{
    // Nodes 1 (0,0,0) and the cube centre (1,1,1): the extent is the unit cube.
    Block(c, 2, 2, 2);
    vis_Group* g = nodes();
    vis_GroupSetIndex(g, 1, 1);
    vis_GroupSetIndex(g, BlockNode(2, 2, 1, 1, 1), 1);
    double e[6] = {9, 9, 9, 9, 9, 9};
    vis_ConnectExtentdv(c, g, e);
    EXPECT_EQ(std::vector<double>(e, e + 6), (std::vector<double>{0, 0, 0, 1, 1, 1}));
    // An empty node group: no node, the output stays.
    vis_Group* none = nodes();
    float f[6] = {9, 9, 9, 9, 9, 9};
    vis_ConnectExtent(c, none, f);
    EXPECT_EQ(f[0], 9.0f);
    ExpectNoReport();
}

TEST_F(ElemGroupTest, GroupOperationsThroughTheGridFunction)
{
    // A front connect whose grid function stands for the cube answers as the cube does: 24
    // free faces, and its parameter slots reach the cube's parameters.
    Block(c, 2, 2, 2);
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(c, gf);
    vis_Connect* front = vis_ConnectNew();
    vis_ConnectSetObject(front, SYS_GRIDFUN, gf);
    vis_Group* f = keep(NewGroup(8, SYS_ELEM, SYS_FACE));
    vis_ConnectFaceGroup(front, VIS_CGROUP_FREE, nullptr, f);
    EXPECT_EQ(FlagCount(f), 24);
    vis_ConnectSetGroupParami(front, VIS_CGROUP_COUNT, 3);
    EXPECT_EQ(c->grp.count, 3);
    vis_ConnectSetGroupParamf(front, VIS_CGROUP_ANGLE, 60.0f);
    EXPECT_NEAR(c->grp.cosangle, 0.5f, 1e-7);
    vis_ConnectDelete(front);
    vis_GridFunDelete(gf);
}

}  // namespace

namespace {

TEST_F(ElemGroupTest, FailedAllocationsAreReportedAndLoseNothing)
{
    // Every operation that allocates, with its n-th allocation and all after it failing, for n
    // from 1 until it runs clean: each either reports code 4 or succeeds, never crashes, and
    // leaves the connect usable (the free faces come out right afterwards).
    Block(c, 2, 2, 2);
    vis_Group* free = keep(NewGroup(8, SYS_ELEM, SYS_FACE));
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, free);
    vis_Group* features = keep(NewGroup(8, SYS_ELEM, SYS_EDGE));
    vis_ConnectEdgeGroup(c, VIS_CGROUP_FEATURE, free, features);
    vis_ConnectSetGroupObject(c, SYS_GROUP, features);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDNODE, 1);
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_CELLSIZE, 1.0f);
    struct Run {
        int kind, oper;
        vis_Group* source;
    };
    const Run runs[] = {{SYS_FACE, VIS_CGROUP_FREE, nullptr},     {SYS_FACE, VIS_CGROUP_REGION, free},
                        {SYS_EDGE, VIS_CGROUP_FEATURE, free},     {SYS_ELEM, VIS_CGROUP_INTERSECT, nullptr},
                        {SYS_ELEM, VIS_CGROUP_SAMPLE, nullptr},   {SYS_ELEM, VIS_CGROUP_ORIENT, nullptr},
                        {SYS_NODE, VIS_CGROUP_FEATURE, features}, {SYS_NODE, VIS_CGROUP_SAMPLE, nullptr}};
    for (const Run& r : runs) {
        bool clean = false;
        for (long n = 1; n < 40 && !clean; ++n) {
            vis_Group* dest = r.kind == SYS_NODE   ? nodes()
                              : r.kind == SYS_ELEM ? elems()
                              : keep(NewGroup(8, SYS_ELEM, r.kind));
            Reports().clear();
            FailAllocation(n, true);
            if (r.kind == SYS_FACE) vis_ConnectFaceGroup(c, r.oper, r.source, dest);
            if (r.kind == SYS_EDGE) vis_ConnectEdgeGroup(c, r.oper, r.source, dest);
            if (r.kind == SYS_ELEM) vis_ConnectElemGroup(c, r.oper, r.source, dest);
            if (r.kind == SYS_NODE) vis_ConnectNodeGroup(c, r.oper, r.source, dest);
            RestoreAllocation();
            int code = vis_ConnectError(c);
            clean = code == 0 && Reports().empty();
            if (!clean) {
                EXPECT_EQ(code, SYS_ERROR_MEMORY) << "kind " << r.kind << " oper " << r.oper << " n " << n;
            }
        }
        EXPECT_TRUE(clean) << "kind " << r.kind << " oper " << r.oper;
    }
    Reports().clear();
    vis_Group* again = keep(NewGroup(8, SYS_ELEM, SYS_FACE));
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, again);
    EXPECT_EQ(FlagCount(again), 24);
}

}  // namespace
