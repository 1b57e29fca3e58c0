// vis_Connect data model: definition, storage, element and coordinate queries, attributes,
// part names, and their reports; on the mixed mesh of ConnectTestMesh.h.
#include "ConnectTestMesh.h"
#include "vis_Assoc.h"
#include "vis_Connect.h"
#include "vis_Group.h"
#include "vis_ConnectKernel.h"
#include "vsy_RedPre.h"
#include "vsy_Grow.h"
#include "vsy_TestSupport.h"

#include <cmath>
#include <cstring>
#include <vector>

using namespace vsytest;
using meshtest::Elems;

namespace {

class ConnectTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        c = vis_ConnectNew();
        ASSERT_NE(c, nullptr);
    }
    void TearDown() override
    {
        vis_ConnectDelete(c);
        ContainerTest::TearDown();
    }
    void Build(int mode = 0, int precision = 4)
    {
        meshtest::Build(c, mode, precision);
        ASSERT_EQ(vis_ConnectError(c), 0);
        ExpectNoReport();
    }
    vis_Connect* c = nullptr;
};

std::vector<int> ElemNodes(vis_Connect* c, int id)
{
    std::vector<int> v(64, -7);
    int num = -1;
    vis_ConnectElemNode(c, id, &num, v.data());
    v.resize(num < 0 ? 0 : num);
    return v;
}

TEST_F(ConnectTest, CountsAndGetInteger)
{
    Build();
    int v = -1;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &v);
    EXPECT_EQ(v, 24);
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &v);
    EXPECT_EQ(v, 10);
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMEDGE, &v);
    EXPECT_EQ(v, 0);
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMFACE, &v);
    EXPECT_EQ(v, 0);
    // Option 5 is none of the four: 0, and no error.
    v = -1;
    vis_ConnectGetInteger(c, 5, &v);
    EXPECT_EQ(v, 0);
    EXPECT_EQ(vis_ConnectError(c), 0);
    ExpectNoReport();
    // The longest list is the polyhedron's 21 entries.
    vis_ConnectMaxElemNode(c, &v);
    EXPECT_EQ(v, 21);
}

TEST_F(ConnectTest, TopologyAndNodeListsOfEveryElement)
{
    Build();
    for (int id = 1; id <= meshtest::kNumElem; ++id) {
        const meshtest::Elem& e = Elems()[id - 1];
        int s, i, j, k;
        vis_ConnectTopology(c, id, &s, &i, &j, &k);
        EXPECT_EQ(s, e.shape) << id;
        EXPECT_EQ(i, e.maxi);
        EXPECT_EQ(j, e.maxj);
        EXPECT_EQ(k, e.maxk);
        EXPECT_EQ(ElemNodes(c, id), e.nodes) << id;
        int num = -1;
        vis_ConnectNumElemNode(c, id, &num);
        EXPECT_EQ(num, (int)e.nodes.size());
        const int* p = nullptr;
        vis_ConnectElemNodePtr(c, id, &num, &p);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(std::vector<int>(p, p + num), e.nodes);
        for (int x = 0; x < num; ++x) {
            int node = -1;
            vis_ConnectIndElemNode(c, id, x, &node);
            EXPECT_EQ(node, e.nodes[x]);
        }
    }
    const int* counts = nullptr;
    vis_ConnectNumElemNodePtr(c, &counts);
    ASSERT_NE(counts, nullptr);
    // Hex 8, wedge 6, quadratic tet 10, pyramid 5, quad 4, quadratic tri 6, line 2, point 1,
    // polygon 6 (ring with its repeat), polyhedron 21.
    const int want[] = {8, 6, 10, 5, 4, 6, 2, 1, 6, 21};
    for (int id = 1; id <= 10; ++id) EXPECT_EQ(counts[id], want[id - 1]);
    ExpectNoReport();
}

TEST_F(ConnectTest, FailedElemNodeWithIdZeroPrintsButLeavesIerr)
{
    Build();
    int num = -1, nodes[8] = {0};
    std::string out = CaptureReport([&] { vis_ConnectElemNode(c, 0, &num, nodes); });
    EXPECT_EQ(out, Printed("vis_ConnectElemNode", 1, "id= 0"));
    EXPECT_EQ(num, -1);
    EXPECT_EQ(vis_ConnectError(c), 0);
}

TEST_F(ConnectTest, ElementIdRangeErrorsReportWithoutTouchingIerr)
{
    Build();
    int s = -5, i = -5, j = -5, k = -5, num = -5, node = -5;
    const int* p = nullptr;
    vis_ConnectTopology(c, 11, &s, &i, &j, &k);
    vis_ConnectElemNodePtr(c, -1, &num, &p);
    vis_ConnectElemNum(c, SYS_NODE, 11, &num);
    vis_ConnectIndElemNode(c, 1, 8, &node);
    ASSERT_EQ(reports().size(), 4u);
    EXPECT_EQ(reports()[0].name, "vis_ConnectTopology");
    EXPECT_EQ(reports()[0].text, "id= 11");
    EXPECT_EQ(reports()[1].name, "vis_ConnectElemNodePtr");
    EXPECT_EQ(reports()[1].text, "id= -1");
    EXPECT_EQ(reports()[2].name, "vis_ConnectElemNum");
    EXPECT_EQ(reports()[3].text, "index= 8");
    for (const Report& r : reports()) EXPECT_EQ(r.code, 1);
    EXPECT_EQ(s, -5);
    EXPECT_EQ(num, -5);
    EXPECT_EQ(node, -5);
    EXPECT_EQ(p, nullptr);
    EXPECT_EQ(vis_ConnectError(c), 0);
}

TEST_F(ConnectTest, TopologyWithoutArraysIsAllZero)
{
    int s = -1, i = -1, j = -1, k = -1;
    vis_ConnectTopology(c, 1, &s, &i, &j, &k);
    EXPECT_EQ(s, 0);
    EXPECT_EQ(i, 0);
    EXPECT_EQ(j, 0);
    EXPECT_EQ(k, 0);
}

TEST_F(ConnectTest, ElemNumCountsNodesEdgesFaces)
{
    Build();
    auto num = [&](int ent, int id) {
        int n = -1;
        vis_ConnectElemNum(c, ent, id, &n);
        return n;
    };
    // Hex: 8 nodes, 12 edges, 6 faces. Quadratic tet: 10 nodes, 6 edges, 4 faces.
    EXPECT_EQ(num(SYS_NODE, 1), 8);
    EXPECT_EQ(num(SYS_EDGE, 1), 12);
    EXPECT_EQ(num(SYS_FACE, 1), 6);
    EXPECT_EQ(num(SYS_NODE, 3), 10);
    EXPECT_EQ(num(SYS_EDGE, 3), 6);
    EXPECT_EQ(num(SYS_FACE, 3), 4);
    // Wedge and pyramid: 9 and 8 edges, 5 faces each.
    EXPECT_EQ(num(SYS_EDGE, 2), 9);
    EXPECT_EQ(num(SYS_FACE, 4), 5);
    // Triangle: 3 edges, 1 face. A line has 1 edge and no face. A point has neither.
    EXPECT_EQ(num(SYS_EDGE, 6), 3);
    EXPECT_EQ(num(SYS_FACE, 6), 1);
    EXPECT_EQ(num(SYS_EDGE, 7), 1);
    EXPECT_EQ(num(SYS_FACE, 7), 0);
    EXPECT_EQ(num(SYS_EDGE, 8), 0);
    // Polygon and polyhedron: maxj edges and maxk faces.
    EXPECT_EQ(num(SYS_EDGE, 9), 5);
    EXPECT_EQ(num(SYS_FACE, 9), 1);
    EXPECT_EQ(num(SYS_EDGE, 10), 8);
    EXPECT_EQ(num(SYS_FACE, 10), 5);
    EXPECT_EQ(num(SYS_NODE, 10), 21);
    // Any other code: 0.
    EXPECT_EQ(num(SYS_ELEM, 1), 0);
    ExpectNoReport();
}

TEST_F(ConnectTest, CoordinatesInDoubleAndFloat)
{
    Build();
    int ix[3] = {12, 23, 7};
    double x[9];
    vis_ConnectCoordsdv(c, 3, ix, x);
    const double want[9] = {.5, .5, -1, 2, 2, .5, 1, 1, 1};
    for (int a = 0; a < 9; ++a) EXPECT_DOUBLE_EQ(x[a], want[a]);
    float f[9];
    vis_ConnectCoords(c, 3, ix, f);
    for (int a = 0; a < 9; ++a) EXPECT_FLOAT_EQ(f[a], (float)want[a]);
    // Node 24 is above numcoord (23) and within numnode (24): zeros.
    int n24 = 24;
    double z[3] = {9, 9, 9};
    vis_ConnectCoordsdv(c, 1, &n24, z);
    EXPECT_EQ(z[0], 0.0);
    EXPECT_EQ(z[1], 0.0);
    EXPECT_EQ(z[2], 0.0);
    ExpectNoReport();
}

TEST_F(ConnectTest, CoordinateReportsLeaveIerrAndOutput)
{
    Build();
    float f[6] = {7, 7, 7, 7, 7, 7};
    int ix[2] = {3, 25};
    vis_ConnectCoords(c, 0, ix, f);
    ExpectOnlyReport("vis_ConnectCoords", 1, "nix= 0");
    Reports().clear();
    // All ids are checked first: nothing is written for the valid first one.
    vis_ConnectCoords(c, 2, ix, f);
    ExpectOnlyReport("vis_ConnectCoords", 1, "ix[1]= 25");
    for (float v : f) EXPECT_EQ(v, 7.0f);
    Reports().clear();
    double d[3];
    int zero = 0;
    vis_ConnectCoordsdv(c, 1, &zero, d);
    ExpectOnlyReport("vis_ConnectCoordsdv", 1, "ix[0]= 0");
    EXPECT_EQ(vis_ConnectError(c), 0);
}

// Precision 9: three 16-bit codes over the extent (0,0,-1)-(2,2,2); the resolution is the axis
// length / 65535. Precision 11: half floats, 11 significant bits, so within 2^-10 of the largest
// magnitude of the extent (2). Precision 2: float.
TEST_F(ConnectTest, ReducedPrecisionReadsBackWithinResolution)
{
    const int types[3] = {SYS_PRECISION_SHORT, SYS_PRECISION_HALF, SYS_PRECISION_FLOAT};
    for (int t : types) {
        vis_Connect* r = vis_ConnectNew();
        meshtest::Build(r, 0, t);
        EXPECT_EQ(vis_ConnectError(r), 0) << t;
        const double lo[3] = {0, 0, -1}, hi[3] = {2, 2, 2};
        for (int id = 1; id <= 23; ++id) {
            double x[3];
            float f[3];
            vis_ConnectCoordsdv(r, 1, &id, x);
            vis_ConnectCoords(r, 1, &id, f);
            for (int a = 0; a < 3; ++a) {
                double want = meshtest::Coords()[id - 1][a];
                double tol = t == SYS_PRECISION_SHORT ? (hi[a] - lo[a]) / 65535.0
                             : t == SYS_PRECISION_HALF ? 2.0 / 1024.0
                                                       : 1e-7;
                EXPECT_NEAR(x[a], want, tol) << "type " << t << " node " << id << " axis " << a;
                EXPECT_NEAR(f[a], want, tol + 1e-6);
            }
        }
        vis_ConnectDelete(r);
    }
    ExpectNoReport();
}

TEST_F(ConnectTest, ShortPrecisionNeedsTheExtent)
{
    vis_ConnectPre(c, SYS_PRECISION_SHORT);
    vis_ConnectDef(c, 2, 0);
    const double x[3] = {1, 2, 3};
    vis_ConnectSetCoordsdv(c, 1, x);
    ExpectOnlyReport("vis_ConnectSetCoordsdv", 8, "Def not called or extent not set");
    EXPECT_EQ(vis_ConnectError(c), 8);
    // A value outside the extent is an overflow of the store, polled into ierr.
    Reports().clear();
    const double ext[6] = {0, 0, 0, 1, 1, 1};
    vis_ConnectExtdv(c, ext);
    vis_ConnectSetCoordsdv(c, 1, x);
    ASSERT_FALSE(reports().empty());
    EXPECT_EQ(reports()[0].code, 9);
    EXPECT_EQ(vis_ConnectError(c), 9);
    // Once coordinates exist, neither the extent nor the precision may change.
    Reports().clear();
    vis_ConnectExtdv(c, ext);
    ExpectOnlyReport("vis_ConnectExtdv", 8, "Coordinates already set");
    Reports().clear();
    vis_ConnectPre(c, SYS_PRECISION_DOUBLE);
    ExpectOnlyReport("vis_ConnectPre", 8, "Coordinates already set");
}

TEST_F(ConnectTest, DefinitionErrors)
{
    vis_ConnectPre(c, 3);
    ExpectOnlyReport("vis_ConnectPre", 2, "type= 3");
    EXPECT_EQ(vis_ConnectError(c), 2);
    Reports().clear();
    vis_ConnectMode(c, 2);
    ExpectOnlyReport("vis_ConnectMode", 2, "type= 2");
    Reports().clear();
    vis_ConnectDef(c, -1, 3);
    ExpectOnlyReport("vis_ConnectDef", 1, "nument= -1");
    Reports().clear();
    vis_ConnectDef(c, 3, -2);
    ExpectOnlyReport("vis_ConnectDef", 1, "nument= -2");
    Reports().clear();
    vis_ConnectDef(c, 3, 2);
    vis_ConnectMode(c, 1);
    ExpectOnlyReport("vis_ConnectMode", 8, "Elements already defined");
    Reports().clear();
    vis_ConnectSetTopology(c, 3, SYS_SHAPE_TRI, 0, 0, 0);
    ExpectOnlyReport("vis_ConnectSetTopology", 1, "id= 3");
    Reports().clear();
    vis_ConnectSetTopology(c, 1, 10, 0, 0, 0);
    ExpectOnlyReport("vis_ConnectSetTopology", 2, "iparam= 10");
    Reports().clear();
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_HEX, 7, 0, 0);
    ExpectOnlyReport("vis_ConnectSetTopology", 1, "iparam= 7");
    Reports().clear();
    const int nodes[3] = {1, 2, 3};
    vis_ConnectSetElemNode(c, 2, nodes);
    ExpectOnlyReport("vis_ConnectSetElemNode", 8, "Topology not set, id= 2");
    Reports().clear();
    const int bad[3] = {1, 4, 3};
    vis_ConnectSetTopology(c, 2, SYS_SHAPE_TRI, 0, 0, 0);
    vis_ConnectSetElemNode(c, 2, bad);
    ExpectOnlyReport("vis_ConnectSetElemNode", 1, "ix[1]= 4");
    Reports().clear();
    vis_ConnectSetObject(c, 2080, nullptr);
    ExpectOnlyReport("vis_ConnectSetObject", 3, "objecttype= 2080");
    Reports().clear();
    vis_ConnectSetParami(c, 9, 1);
    ExpectOnlyReport("vis_ConnectSetParami", 2, "type= 9");
    Reports().clear();
    vis_ConnectSetParami(c, VIS_CONNECT_COORDSHIFT, 30);
    ExpectOnlyReport("vis_ConnectSetParami", 1, "iparam= 30");
    Reports().clear();
    vis_ConnectSetDimension(c, 4);
    ExpectOnlyReport("vis_ConnectSetDimension", 1, "iparam= 4");
    Reports().clear();
    const double x[3] = {0, 0, 0};
    vis_ConnectSetCoordsdv(c, 4, x);
    ExpectOnlyReport("vis_ConnectSetCoordsdv", 1, "id= 4");
    EXPECT_EQ(vis_ConnectError(c), 1);
    EXPECT_EQ(vis_ConnectError(c), 0);
}

TEST_F(ConnectTest, DefFailsCleanlyWithoutMemory)
{
    FailAllocation(1, true);
    vis_ConnectDef(c, 10, 100);
    RestoreAllocation();
    ExpectOnlyReport("vis_ConnectDef", 4, "nument= 100");
    EXPECT_EQ(vis_ConnectError(c), 4);
    int v = -1;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &v);
    EXPECT_EQ(v, 0);
    // The connect stays usable.
    Reports().clear();
    Build();
}

// A node attribute at an index no storage can reach is the association's memory error, polled
// into the connect, and nothing is allocated or changed. Type 3 holds 1000 in shorts, so the
// index 300000000 (past VSY_GROW_MAXCAP) needs a short array longer than any that may exist.
TEST_F(ConnectTest, AttributeBeyondTheLargestCapacityFailsWithoutAllocating)
{
    Build();
    vis_ConnectSetNodeAssoc(c, 3, 2, 1000);
    ASSERT_EQ(vis_ConnectError(c), 0);
    CountAllocations();
    vis_ConnectSetNodeAssoc(c, 3, 300000000, 1000);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    ExpectOnlyReport("vis_Assoc_Realloc", 4, "");
    EXPECT_EQ(vis_ConnectError(c), 4);
    int num = 0, v[1];
    vis_ConnectAllNodeAssoc(c, 3, 2, &num, v);
    EXPECT_EQ(num, 1);
    EXPECT_EQ(v[0], 1000);
    EXPECT_EQ(c->nodeassoc[3]->maxind, 2);
    Reports().clear();
    // A first attribute of a type goes through the widening path: the same error, under Set.
    vis_ConnectSetElemAssoc(c, 5, 300000000, 1000);
    ExpectOnlyReport("vis_AssocSet", 4, "index= 300000000");
    EXPECT_EQ(vis_ConnectError(c), 4);
    int flag = -1;
    vis_ConnectAnyElemAssoc(c, 5, &flag);
    EXPECT_EQ(flag, 0);
    int ix[1] = {1}, ev[1] = {-1};
    vis_ConnectElemAssoc(c, 5, 1, ix, ev);
    EXPECT_EQ(ev[0], 0);
}

// Below the limit an index that needs a large array fails only when the allocation fails: a
// value of 1 at index 300000000 packs into nibbles, 150 MB, refused here by the allocator.
TEST_F(ConnectTest, AttributeWhoseArrayCannotBeAllocatedKeepsItsValues)
{
    Build();
    vis_ConnectSetNodeAssoc(c, 3, 2, 1);
    FailAllocationsAbove(1 << 20);
    vis_ConnectSetNodeAssoc(c, 3, 300000000, 1);
    RestoreAllocation();
    ExpectOnlyReport("vis_Assoc_Realloc", 4, "");
    EXPECT_EQ(vis_ConnectError(c), 4);
    int ix[2] = {1, 2}, v[2] = {-1, -1};
    vis_ConnectNodeAssoc(c, 3, 2, ix, v);
    EXPECT_EQ(v[0], 0);
    EXPECT_EQ(v[1], 1);
    EXPECT_EQ(c->nodeassoc[3]->maxind, 2);
}

// An element whose node list could not be held by any chunk is refused before its chunk grows
// (the chunk may hold at most VSY_GROW_MAXCAP entries), in both modes, and the element keeps
// its old topology. A polygon's node count is its maxi.
TEST_F(ConnectTest, NodeListBeyondTheLargestChunkIsRefused)
{
    for (int mode = 0; mode <= 1; ++mode) {
        SCOPED_TRACE(mode);
        vis_ConnectDelete(c);
        c = vis_ConnectNew();
        Build(mode);
        CountAllocations();
        vis_ConnectSetTopology(c, 7, SYS_SHAPE_POLYGON, VSY_GROW_MAXCAP + 1, VSY_GROW_MAXCAP, 1);
        EXPECT_EQ(AllocState().calls, 0);
        RestoreAllocation();
        ASSERT_EQ(reports().size(), 1u);
        EXPECT_EQ(reports()[0].code, 4);
        EXPECT_EQ(vis_ConnectError(c), 4);
        int s = -9, i = -9, j = -9, k = -9;
        vis_ConnectTopology(c, 7, &s, &i, &j, &k);
        EXPECT_EQ(s, SYS_SHAPE_LINE);
        EXPECT_EQ(ElemNodes(c, 7), (std::vector<int>{9, 10}));
        Reports().clear();
    }
}

// Below that limit the growth of a chunk fails only when memory does: the element is refused
// with the chunk's memory error and the lists of the others stay readable.
TEST_F(ConnectTest, NodeListWhoseChunkCannotGrowKeepsTheOthers)
{
    Build();
    FailAllocationsAbove(1 << 20);
    vis_ConnectSetTopology(c, 7, SYS_SHAPE_POLYGON, 1000001, 1000000, 1);
    RestoreAllocation();
    ExpectOnlyReport("vis_Connect_ReallocElemNode", 4, "");
    EXPECT_EQ(vis_ConnectError(c), 4);
    for (int id = 1; id <= meshtest::kNumElem; ++id) EXPECT_EQ(ElemNodes(c, id), Elems()[id - 1].nodes) << id;
}

// Appending elements grows the per-element arrays; when that fails the count stays.
TEST_F(ConnectTest, GenElemWhoseArraysCannotGrowKeepsTheCount)
{
    Build();
    FailAllocationsAbove(1 << 20);
    int first = -1;
    vis_ConnectGenElem(c, 1000000, &first);
    RestoreAllocation();
    ExpectOnlyReport("vis_Connect_ReallocTopology", 4, "");
    EXPECT_EQ(vis_ConnectError(c), 4);
    EXPECT_EQ(first, -1);
    int v = -1;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &v);
    EXPECT_EQ(v, meshtest::kNumElem);
    vis_ConnectGenElem(c, 2, &first);
    EXPECT_EQ(first, meshtest::kNumElem + 1);
    EXPECT_EQ(vis_ConnectError(c), 0);
}

TEST_F(ConnectTest, OpenNodeCountFollowsTheLargestNodeInUse)
{
    vis_ConnectDef(c, 0, 2);
    const int a[2] = {4, 9};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_LINE, 0, 0, 0);
    vis_ConnectSetElemNode(c, 1, a);
    int v = -1;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &v);
    EXPECT_EQ(v, 9);
    const double x[3] = {1, 2, 3};
    vis_ConnectSetCoordsdv(c, 12, x);
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &v);
    EXPECT_EQ(v, 12);
    ExpectNoReport();
}

TEST_F(ConnectTest, GrowthKeepsExistingChunksInPlace)
{
    // 70000 lines cross the first chunk of 65536 node lists; 5000 nodes cross coordinate
    // chunks of 4096 nodes. Nothing that existed moves.
    vis_ConnectDef(c, 0, 65536);
    const int first[2] = {1, 2};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_LINE, 0, 0, 0);
    vis_ConnectSetElemNode(c, 1, first);
    for (int id = 2; id <= 65536; ++id) {
        const int n[2] = {id, id + 1};
        vis_ConnectSetTopology(c, id, SYS_SHAPE_LINE, 0, 0, 0);
        vis_ConnectSetElemNode(c, id, n);
    }
    const double x1[3] = {1, 2, 3};
    vis_ConnectSetCoordsdv(c, 1, x1);
    int num;
    const int* p1 = nullptr;
    vis_ConnectElemNodePtr(c, 1, &num, &p1);
    int gen = 0;
    vis_ConnectGenElem(c, 4464, &gen);
    EXPECT_EQ(gen, 65537);
    for (int id = 65537; id <= 70000; ++id) {
        const int n[2] = {id, id + 1};
        vis_ConnectSetTopology(c, id, SYS_SHAPE_LINE, 0, 0, 0);
        vis_ConnectSetElemNode(c, id, n);
    }
    const double x2[3] = {4, 5, 6};
    vis_ConnectSetCoordsdv(c, 5000, x2);
    const int* p2 = nullptr;
    vis_ConnectElemNodePtr(c, 1, &num, &p2);
    EXPECT_EQ(p1, p2);
    EXPECT_EQ(ElemNodes(c, 70000), (std::vector<int>{70000, 70001}));
    int v;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &v);
    EXPECT_EQ(v, 70000);
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &v);
    EXPECT_EQ(v, 70001);
    int ids[2] = {1, 5000};
    double x[6];
    vis_ConnectCoordsdv(c, 2, ids, x);
    EXPECT_EQ(x[0], 1.0);
    EXPECT_EQ(x[5], 6.0);
    EXPECT_EQ(c->numchunk, 2);
    vis_ConnectKernel(c);
    int elems[4];
    vis_ConnectNodeElem(c, 65537, &num, elems);
    ASSERT_EQ(num, 2);
    EXPECT_EQ(elems[0], 65536);
    EXPECT_EQ(elems[1], 65537);
    // The kernel compacts the chunks to what they use.
    EXPECT_EQ(c->elnodecap, c->elnodeused);
    EXPECT_EQ(c->elemalloc, 70000);
    ExpectNoReport();
}

TEST_F(ConnectTest, DelElemAndRedefineKeepOtherElements)
{
    Build();
    vis_ConnectDelElem(c, 2);
    int s, i, j, k;
    vis_ConnectTopology(c, 2, &s, &i, &j, &k);
    EXPECT_EQ(s, -1);
    EXPECT_TRUE(ElemNodes(c, 2).empty());
    // A larger list than before takes new room; the neighbours keep theirs.
    vis_ConnectSetTopology(c, 2, SYS_SHAPE_HEX, 0, 0, 0);
    const int n[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    vis_ConnectSetElemNode(c, 2, n);
    EXPECT_EQ(ElemNodes(c, 2), std::vector<int>(n, n + 8));
    EXPECT_EQ(ElemNodes(c, 1), Elems()[0].nodes);
    EXPECT_EQ(ElemNodes(c, 3), Elems()[2].nodes);
    // A smaller list reuses the place, cleared.
    vis_ConnectSetTopology(c, 2, SYS_SHAPE_TRI, 0, 0, 0);
    EXPECT_EQ(ElemNodes(c, 2), (std::vector<int>{0, 0, 0}));
    ExpectNoReport();
}

TEST_F(ConnectTest, NodeAssociations)
{
    Build();
    int ix[3] = {1, 2, 24}, v[3];
    // Type 10 without an association: the ids themselves; type 3: zeros.
    vis_ConnectNodeAssoc(c, VIS_ASSOC_USERID, 3, ix, v);
    EXPECT_EQ(v[0], 1);
    EXPECT_EQ(v[1], 2);
    EXPECT_EQ(v[2], 24);
    vis_ConnectNodeAssoc(c, 3, 3, ix, v);
    EXPECT_EQ(v[0], 0);
    EXPECT_EQ(v[2], 0);
    ExpectNoReport();
    // User ids are given as they are and stored as id + 1; a node without one yields its index.
    vis_ConnectSetNodeAssoc(c, VIS_ASSOC_USERID, 1, 100);
    vis_ConnectSetNodeAssoc(c, VIS_ASSOC_USERID, 24, 0);
    vis_ConnectNodeAssoc(c, VIS_ASSOC_USERID, 3, ix, v);
    EXPECT_EQ(v[0], 100);
    EXPECT_EQ(v[1], 2);
    EXPECT_EQ(v[2], 0);
    EXPECT_EQ(c->nodeassoc[10]->maxind, 24);
    // Multi-value attributes.
    vis_ConnectSetNodeAssoc(c, 4, 2, 7);
    vis_ConnectAddNodeAssoc(c, 4, 2, 8);
    vis_ConnectUniNodeAssoc(c, 4, 2, 7);
    vis_ConnectUniNodeAssoc(c, 4, 2, 9);
    int num = 0, all[8];
    vis_ConnectNumNodeAssoc(c, 4, 2, &num);
    EXPECT_EQ(num, 3);
    vis_ConnectAllNodeAssoc(c, 4, 2, &num, all);
    ASSERT_EQ(num, 3);
    EXPECT_EQ(all[0], 7);
    EXPECT_EQ(all[1], 8);
    EXPECT_EQ(all[2], 9);
    // Without an association: one value.
    vis_ConnectNumNodeAssoc(c, 5, 3, &num);
    EXPECT_EQ(num, 1);
    vis_ConnectAllNodeAssoc(c, 10, 3, &num, all);
    EXPECT_EQ(num, 1);
    EXPECT_EQ(all[0], 3);
    int flag = -1;
    vis_ConnectAnyNodeAssoc(c, 4, &flag);
    EXPECT_EQ(flag, 1);
    vis_ConnectDelNodeAssoc(c, 4);
    vis_ConnectAnyNodeAssoc(c, 4, &flag);
    EXPECT_EQ(flag, 0);
    ExpectNoReport();
    // Errors are stored.
    vis_ConnectNodeAssoc(c, 43, 3, ix, v);
    ExpectOnlyReport("vis_ConnectNodeAssoc", 2, "type= 43");
    EXPECT_EQ(vis_ConnectError(c), 2);
    Reports().clear();
    vis_ConnectNodeAssoc(c, 3, 0, ix, v);
    ExpectOnlyReport("vis_ConnectNodeAssoc", 1, "nix= 0");
    EXPECT_EQ(vis_ConnectError(c), 1);
    Reports().clear();
    int bad[2] = {1, 25};
    vis_ConnectNodeAssoc(c, 3, 2, bad, v);
    ExpectOnlyReport("vis_ConnectNodeAssoc", 1, "ix[1]= 25");
    Reports().clear();
    vis_ConnectNumNodeAssoc(c, 3, 0, &num);
    ExpectOnlyReport("vis_ConnectNumNodeAssoc", 1, "index= 0");
    Reports().clear();
    vis_ConnectAllNodeAssoc(c, 3, -1, &num, all);
    ExpectOnlyReport("vis_ConnectAllNodeAssoc", 1, "index= -1");
    EXPECT_EQ(vis_ConnectError(c), 1);
}

TEST_F(ConnectTest, ElementAssociations)
{
    Build();
    int ix[3] = {1, 2, 10}, v[3];
    // Element user ids are stored as they are; 0 yields the element's own index.
    vis_ConnectElemAssoc(c, VIS_ASSOC_USERID, 3, ix, v);
    EXPECT_EQ(v[0], 1);
    EXPECT_EQ(v[2], 10);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_USERID, 1, 500);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_USERID, 2, 0);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_PART, 10, 3);
    vis_ConnectElemAssoc(c, VIS_ASSOC_USERID, 3, ix, v);
    EXPECT_EQ(v[0], 500);
    EXPECT_EQ(v[1], 2);
    EXPECT_EQ(v[2], 10);
    vis_ConnectElemAssoc(c, VIS_ASSOC_PART, 3, ix, v);
    EXPECT_EQ(v[0], 0);
    EXPECT_EQ(v[2], 3);
    ExpectNoReport();
}

TEST_F(ConnectTest, ElementEntityAssociations)
{
    Build();
    int v = -1;
    // No table: 0. A bad enttype: error 2.
    vis_ConnectElemEntAssoc(c, 3, SYS_FACE, 1, 2, &v);
    EXPECT_EQ(v, 0);
    ExpectNoReport();
    vis_ConnectElemEntAssoc(c, 3, SYS_NODE, 1, 2, &v);
    ExpectOnlyReport("vis_ConnectElemEntAssoc", 2, "enttype= 1");
    EXPECT_EQ(vis_ConnectError(c), 2);
    Reports().clear();
    vis_ConnectSetElemEntAssoc(c, 3, SYS_FACE, 1, 2, 42);
    vis_ConnectSetElemEntAssoc(c, 3, SYS_EDGE, 1, 2, 43);
    vis_ConnectAddElemEntAssoc(c, 3, SYS_FACE, 1, 2, 44);
    vis_ConnectUniElemEntAssoc(c, 3, SYS_FACE, 1, 2, 42);
    vis_ConnectElemEntAssoc(c, 3, SYS_FACE, 1, 2, &v);
    EXPECT_EQ(v, 42);
    vis_ConnectElemEntAssoc(c, 3, SYS_EDGE, 1, 2, &v);
    EXPECT_EQ(v, 43);
    vis_ConnectElemEntAssoc(c, 3, SYS_FACE, 1, 3, &v);
    EXPECT_EQ(v, 0);
    int num = 0, all[4];
    vis_ConnectAllElemEntAssoc(c, 3, SYS_FACE, 1, 2, &num, all);
    ASSERT_EQ(num, 2);
    EXPECT_EQ(all[1], 44);
    ExpectNoReport();
    // A face number 0 is reported by the table and polled into ierr.
    vis_ConnectElemEntAssoc(c, 3, SYS_FACE, 1, 0, &v);
    ExpectOnlyReport("vis_CHashGet", 1, "index= 1, no= 0");
    EXPECT_EQ(vis_ConnectError(c), 1);
    Reports().clear();
    vis_ConnectSetElemEntAssoc(c, 3, SYS_FACE, 0, 1, 5);
    ExpectOnlyReport("vis_ConnectSetElemEntAssoc", 1, "index= 0, no= 1");
}

TEST_F(ConnectTest, ExtentOfTheMeshAndItsMask)
{
    float e[6] = {9, 9, 9, 9, 9, 9};
    // An empty connect leaves the output as it was.
    vis_ConnectExtent(c, nullptr, e);
    for (float v : e) EXPECT_EQ(v, 9.0f);
    Build();
    // Nodes 1..24, node 24 reading as the origin: x 0..2, y 0..2 (node 23), z -1 (node 12)..2.
    double d[6];
    vis_ConnectExtentdv(c, nullptr, d);
    const double want[6] = {0, 0, -1, 2, 2, 2};
    for (int a = 0; a < 6; ++a) EXPECT_EQ(d[a], want[a]);
    // Node attribute 0 masks: only nodes 9 and 10 count.
    for (int id = 1; id <= 24; ++id) vis_ConnectSetNodeAssoc(c, VIS_ASSOC_ELEMTYPE, id, id == 9 || id == 10);
    vis_ConnectExtent(c, nullptr, e);
    const float w2[6] = {2, .5f, 0, 2, .5f, 1};
    for (int a = 0; a < 6; ++a) EXPECT_EQ(e[a], w2[a]);
    ExpectNoReport();
    // A group cannot be checked yet: it fails under the one name of both variants.
    vis_ConnectExtentdv(c, (vis_Group*)c, d);
    ExpectOnlyReport("vis_ConnectExtent", 1, "");
}

TEST_F(ConnectTest, Dimension)
{
    Build();
    int d = -1;
    vis_ConnectGetDimension(c, &d);
    EXPECT_EQ(d, 3);
    // Only solids of element type 1 with hexahedral shape: still 3.
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_ELEMTYPE, 1, 1);
    vis_ConnectGetDimension(c, &d);
    EXPECT_EQ(d, 3);
    // Element type 1 on the quadrilateral E5 decides: 2.
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_ELEMTYPE, 5, 1);
    vis_ConnectGetDimension(c, &d);
    EXPECT_EQ(d, 2);
    // So do type 2 on a line and type 4 on a point, alone; type 2 on the hexahedron E1 does
    // not decide, and the answer stays 3.
    vis_ConnectDelElemAssoc(c, VIS_ASSOC_ELEMTYPE);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_ELEMTYPE, 1, 2);
    vis_ConnectGetDimension(c, &d);
    EXPECT_EQ(d, 3);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_ELEMTYPE, 7, 2);
    vis_ConnectGetDimension(c, &d);
    EXPECT_EQ(d, 2);
    vis_ConnectDelElemAssoc(c, VIS_ASSOC_ELEMTYPE);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_ELEMTYPE, 8, 4);
    vis_ConnectGetDimension(c, &d);
    EXPECT_EQ(d, 2);
    vis_ConnectSetDimension(c, 1);
    vis_ConnectGetDimension(c, &d);
    EXPECT_EQ(d, 1);
    ExpectNoReport();
}

// The objects of later parts of the library are absent, and every operation behaves as the
// rules say for an absent object: coordinates come from the connect's arrays, face normals are
// computed, a group argument fails the group check (error 1 through vsy_ErrorNumber, no text)
// and the derived-group slots of the grid function stay null.
TEST_F(ConnectTest, ObjectsNotYetAvailableBehaveAsAbsent)
{
    Build();
    EXPECT_EQ(c->state, nullptr);
    EXPECT_EQ(c->elemnorm, nullptr);
    EXPECT_EQ(c->elemtang, nullptr);
    int dummy = 0;
    vis_ConnectSetObject(c, SYS_GRIDFUN + 1, &dummy);
    ExpectOnlyReport("vis_ConnectSetObject", 3, "objecttype= 2071");
    EXPECT_EQ(vis_ConnectError(c), 3);
    EXPECT_EQ(c->state, nullptr);
    Reports().clear();
    // Node 7 is (1, 1, 1) in the arrays.
    int ix[1] = {7};
    double x[3] = {-1, -1, -1};
    vis_ConnectCoordsdv(c, 1, ix, x);
    EXPECT_EQ(x[0], 1.0);
    EXPECT_EQ(x[2], 1.0);
    // The quadrilateral E5 (1 2 6 5, y = 0): its normal (0, -1, 0) is computed.
    float n[12] = {0};
    vis_ConnectElemFaceNorm(c, 5, 1, n);
    EXPECT_NEAR(n[1], -1.0f, 1e-6);
    ExpectNoReport();
    // Groups exist now: an element group is not a node group, so the extent's group check
    // fails with code 1 and no text, and the output stays as it was.
    double e[6] = {7, 7, 7, 7, 7, 7};
    vis_Group* elems = vis_GroupNew();
    vis_GroupDef(elems, c->numelem, SYS_ELEM, 0);
    vis_ConnectExtentdv(c, elems, e);
    ExpectOnlyReport("vis_ConnectExtent", 1, "");
    EXPECT_EQ(vis_ConnectError(c), 1);
    for (double v : e) EXPECT_EQ(v, 7.0);
    vis_GroupDelete(elems);
    // The derived-group slots of the grid function are set.
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(c, gf);
    for (int code : {15, 16, 17, 18, 20, 21, 22}) EXPECT_NE(gf->fun[code], nullptr) << code;
    vis_GridFunDelete(gf);
}

TEST_F(ConnectTest, PartNamesAndSizes)
{
    char name[VIS_CONNECT_NAMELEN + 1] = "junk";
    vis_ConnectPartName(c, 3, name);
    EXPECT_STREQ(name, "");
    vis_ConnectSetPartName(c, 3, "Flange");
    vis_ConnectSetPartName(c, 0, "Zero");
    vis_ConnectSetPartName(c, 3, "Flange 2");
    vis_ConnectPartName(c, 3, name);
    EXPECT_STREQ(name, "Flange 2");
    vis_ConnectPartName(c, 0, name);
    EXPECT_STREQ(name, "Zero");
    vis_ConnectSetPartName(c, 3, nullptr);
    vis_ConnectPartName(c, 3, name);
    EXPECT_STREQ(name, "");
    std::string longname(VIS_CONNECT_NAMELEN + 1, 'a');
    vis_ConnectSetPartName(c, 4, longname.c_str());
    ExpectOnlyReport("vis_ConnectSetPartName", 1, "len= 256");
    Reports().clear();
    int ijk[3] = {9, 9, 9};
    vis_ConnectPartIJK(c, 7, ijk);
    EXPECT_EQ(ijk[0], 0);
    vis_ConnectSetPartIJK(c, 7, 10, 20, 30);
    vis_ConnectPartIJK(c, 7, ijk);
    EXPECT_EQ(ijk[0], 10);
    EXPECT_EQ(ijk[1], 20);
    EXPECT_EQ(ijk[2], 30);
    ExpectNoReport();
}

TEST_F(ConnectTest, ObjectsAndOptions)
{
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectSetObject(c, SYS_GRIDFUN, gf);
    void* o = nullptr;
    vis_ConnectGetObject(c, SYS_GRIDFUN, &o);
    EXPECT_EQ(o, gf);
    vis_ConnectSetObject(c, SYS_GRIDFUN, nullptr);
    vis_ConnectSetParami(c, VIS_CONNECT_EXACTFACE, 1);
    EXPECT_EQ(c->exactface, 1);
    vis_ConnectSetParami(c, VIS_CONNECT_HEADERFLAG, 77);
    EXPECT_EQ(c->headerflag, 77);
    vis_ConnectSetParami(c, VIS_CONNECT_COORDSHIFT, 5);
    EXPECT_EQ(c->coordchunk, 32);
    vis_GridFunDelete(gf);
    ExpectNoReport();
    // Small chunks: a node's place is id - coordchunk * ((id - 1) >> coordshift) - 1.
    Build();
    int id = 23;
    double x[3];
    vis_ConnectCoordsdv(c, 1, &id, x);
    EXPECT_EQ(x[1], 2.0);
    EXPECT_EQ(c->numcoordchunk, 1);
}

TEST_F(ConnectTest, NullObjectIsReported)
{
    int v = 0;
    vis_ConnectDef(nullptr, 1, 1);
    vis_ConnectGetInteger(nullptr, 1, &v);
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_EQ(reports()[0].code, 5);
    EXPECT_EQ(vis_ConnectError(nullptr), 5);
    vis_ConnectDelete(nullptr);
}

}  // namespace
