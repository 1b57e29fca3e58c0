// Connectivity kernel: the node-to-element table, the polyhedron index and every query on
// them, on the mixed mesh of ConnectTestMesh.h (its header lists the node rows by hand). The
// same answers are checked in dynamic mode, where the lists are kept current as elements are
// set and the kernel does nothing.
#include "ConnectTestMesh.h"
#include "vis_Connect.h"
#include "vis_ConnectKernel.h"
#include "vsy_TestSupport.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

using namespace vsytest;

namespace {

typedef std::vector<int> V;

class KernelTest : public ContainerTest, public ::testing::WithParamInterface<int> {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        c = vis_ConnectNew();
        meshtest::Build(c, GetParam());
        vis_ConnectKernel(c);
        ASSERT_EQ(vis_ConnectError(c), 0);
        ExpectNoReport();
    }
    void TearDown() override
    {
        vis_ConnectDelete(c);
        ContainerTest::TearDown();
    }
    V NodeElem(int id)
    {
        V v(64);
        int n = -1;
        vis_ConnectNodeElem(c, id, &n, v.data());
        v.resize(n);
        return v;
    }
    V NodeNode(int id)
    {
        V v(64);
        int n = -1;
        vis_ConnectNodeNode(c, id, &n, v.data());
        v.resize(n);
        return v;
    }
    V Common(V nodes)
    {
        V v(64);
        int n = -1;
        vis_ConnectNodeElemCommon(c, (int)nodes.size(), nodes.data(), &n, v.data());
        v.resize(n);
        return v;
    }
    V Adj(int ent, int id, int no)
    {
        V v(64);
        int n = -1;
        vis_ConnectElemAdj(c, ent, id, no, &n, v.data());
        v.resize(n);
        return v;
    }
    V Con(int ent, int id, int no)
    {
        V v(64);
        int n = -1;
        vis_ConnectElemCon(c, ent, id, no, &n, v.data());
        v.resize(n < 0 ? 0 : n);
        return v;
    }
    V Cnn(int ent, int id, int no)
    {
        V v(64);
        int n = -1;
        vis_ConnectElemCnn(c, ent, id, no, &n, v.data());
        v.resize(n < 0 ? 0 : n);
        return v;
    }
    V Corn(int ent, int id, int no)
    {
        V v(64);
        int n = -1;
        vis_ConnectElemCorn(c, ent, id, no, &n, v.data());
        v.resize(n < 0 ? 0 : n);
        return v;
    }
    V Topo(int ent, int id, int no)
    {
        int s = -9, i = -9, j = -9;
        vis_ConnectElemTopo(c, ent, id, no, &s, &i, &j);
        return V{s, i, j};
    }
    vis_Connect* c = nullptr;
};

TEST_P(KernelTest, NodeRows)
{
    const std::vector<V> rows = {{1, 4, 5, 9},  {1, 2, 4, 5, 6}, {1, 2, 4, 6, 10}, {1, 4, 9}, {1, 3, 5, 9},
                                 {1, 2, 3, 5},  {1, 2, 10},      {1, 3, 9},        {2, 6, 7, 10},
                                 {2, 7, 10},    {3},             {4, 8}};
    for (int id = 1; id <= 12; ++id) EXPECT_EQ(NodeElem(id), rows[id - 1]) << id;
    for (int id = 13; id <= 18; ++id) EXPECT_EQ(NodeElem(id), V{3});
    for (int id = 19; id <= 21; ++id) EXPECT_EQ(NodeElem(id), V{6});
    EXPECT_EQ(NodeElem(22), V{9});
    // Node 23 is named four times by the polyhedron and listed once.
    EXPECT_EQ(NodeElem(23), V{10});
    EXPECT_EQ(NodeElem(24), V{});
    int n = -1;
    vis_ConnectNumNodeElem(c, 3, &n);
    EXPECT_EQ(n, 5);
    vis_ConnectNumNodeElem(c, 24, &n);
    EXPECT_EQ(n, 0);
    vis_ConnectMaxNodeElem(c, &n);
    EXPECT_EQ(n, 5);
    ExpectNoReport();
}

TEST_P(KernelTest, NodeNodeByFirstAppearance)
{
    // Node 1: hex 2 3 4 5 6 7 8, pyramid adds 12, quad nothing, polygon adds 22.
    EXPECT_EQ(NodeNode(1), (V{2, 3, 4, 5, 6, 7, 8, 12, 22}));
    // Node 12: pyramid 1 2 3 4; the point adds nothing.
    EXPECT_EQ(NodeNode(12), (V{1, 2, 3, 4}));
    // Node 23: the polyhedron's other nodes in list order 3 7 10 9.
    EXPECT_EQ(NodeNode(23), (V{3, 7, 10, 9}));
    // Node 24 belongs to no element.
    EXPECT_EQ(NodeNode(24), V{});
}

TEST_P(KernelTest, NodeElemCommon)
{
    // Rows 2 and 3: {1,2,4,5,6} and {1,2,4,6,10}.
    EXPECT_EQ(Common({2, 3}), (V{1, 2, 4, 6}));
    // The quad's nodes: hex and quad.
    EXPECT_EQ(Common({1, 2, 6, 5}), (V{1, 5}));
    EXPECT_EQ(Common({12}), (V{4, 8}));
    EXPECT_EQ(Common({24, 1}), V{});
    EXPECT_EQ(Common({}), V{});
}

TEST_P(KernelTest, FaceNeighbours)
{
    // Hex face 1 (0-3-2-1: nodes 1 4 3 2): the pyramid's base.
    EXPECT_EQ(Adj(SYS_FACE, 1, 1), V{4});
    // Hex face 2 (4-5-6-7: nodes 5 6 7 8) is free: the tet holds only three of its nodes.
    EXPECT_EQ(Adj(SYS_FACE, 1, 2), V{});
    // Hex face 3 (0-1-5-4: 1 2 6 5): the quad shell. Face 5 (0-4-7-3: 1 5 8 4): the polygon,
    // which holds all four corners. Face 6 (1-2-6-5: 2 3 7 6): the wedge.
    EXPECT_EQ(Adj(SYS_FACE, 1, 3), V{5});
    // In dynamic mode every face takes the general path, which first asks whether the
    // candidate's shape can hold a face of that many corners: a five-node polygon cannot hold a
    // four-cornered face.
    EXPECT_EQ(Adj(SYS_FACE, 1, 5), GetParam() == 0 ? V{9} : V{});
    EXPECT_EQ(Adj(SYS_FACE, 1, 6), V{2});
    // Wedge face 5 (1-2-5-4: 3 9 10 7): the polyhedron. Wedge face 1 (0-2-1: 2 9 3): the
    // triangle (and nothing else holds 2, 9 and 3).
    EXPECT_EQ(Adj(SYS_FACE, 2, 5), V{10});
    EXPECT_EQ(Adj(SYS_FACE, 2, 1), V{6});
    // Tet face 1 (0-2-1: 5 8 6): the hex holds those three nodes.
    // Dynamic mode: a hexahedron cannot hold a three-cornered face.
    EXPECT_EQ(Adj(SYS_FACE, 3, 1), GetParam() == 0 ? V{1} : V{});
    // Polyhedron face 1 (3 7 10 9): the wedge, by the general path.
    EXPECT_EQ(Adj(SYS_FACE, 10, 1), V{2});
    // Polyhedron face 2 (3 9 23): nothing else holds 23.
    EXPECT_EQ(Adj(SYS_FACE, 10, 2), V{});
    // The polygon's five corners: no other element can hold a five-cornered face.
    EXPECT_EQ(Adj(SYS_FACE, 9, 1), V{});
    // The quad and the triangle: their one face is the whole element.
    EXPECT_EQ(Adj(SYS_FACE, 5, 1), V{1});
    EXPECT_EQ(Adj(SYS_FACE, 6, 1), V{2});
    // Lines and points have no faces.
    EXPECT_EQ(Adj(SYS_FACE, 7, 1), V{});
    EXPECT_EQ(Adj(SYS_ELEM, 1, 1), V{});
}

TEST_P(KernelTest, ExactFaceCheck)
{
    vis_ConnectSetParami(c, VIS_CONNECT_EXACTFACE, 1);
    // The hex has no three-cornered face: the tet's face 1 is free now.
    EXPECT_EQ(Adj(SYS_FACE, 3, 1), V{});
    // Real faces still match: hex and pyramid, wedge and polyhedron (ring 1 of the polyhedron).
    EXPECT_EQ(Adj(SYS_FACE, 1, 1), V{4});
    EXPECT_EQ(Adj(SYS_FACE, 2, 5), V{10});
    EXPECT_EQ(Adj(SYS_FACE, 10, 1), V{2});
    // The polygon's ring is not a face of four corners.
    EXPECT_EQ(Adj(SYS_FACE, 1, 5), V{});
}

TEST_P(KernelTest, EdgeAndNodeNeighbours)
{
    // Hex edge 1 (0-1: nodes 1 2): rows 1 and 2 share 1, 4, 5.
    EXPECT_EQ(Adj(SYS_EDGE, 1, 1), (V{4, 5}));
    // The line 9-10: wedge and polyhedron.
    EXPECT_EQ(Adj(SYS_EDGE, 7, 1), (V{2, 10}));
    // Polygon edge 1 (1 5): hex and quad.
    EXPECT_EQ(Adj(SYS_EDGE, 9, 1), (V{1, 5}));
    // Polyhedron edge 3 (10 9): wedge and line; edge 5 (9 23): nothing else.
    EXPECT_EQ(Adj(SYS_EDGE, 10, 3), (V{2, 7}));
    EXPECT_EQ(Adj(SYS_EDGE, 10, 5), V{});
    // The point's node 12: the pyramid. The triangle's node 4 (19): nothing else.
    EXPECT_EQ(Adj(SYS_NODE, 8, 1), V{4});
    EXPECT_EQ(Adj(SYS_NODE, 6, 4), V{});
    // Quadratic tet edge 4 (0-3: 5 16 11): only the tet holds 5 and 11.
    EXPECT_EQ(Adj(SYS_EDGE, 3, 4), V{});
    ExpectNoReport();
}

TEST_P(KernelTest, EntityNodesPositionsCorners)
{
    // Quadratic tet face 1: corners 0 2 1 (5 8 6), then the mid nodes of the face's edges
    // 2, 1, 0 (positions 6 5 4: 15 14 13).
    EXPECT_EQ(Con(SYS_FACE, 3, 1), (V{5, 8, 6, 15, 14, 13}));
    EXPECT_EQ(Cnn(SYS_FACE, 3, 1), (V{1, 3, 2, 7, 6, 5}));
    EXPECT_EQ(Corn(SYS_FACE, 3, 1), (V{1, 3, 2}));
    EXPECT_EQ(Topo(SYS_FACE, 3, 1), (V{SYS_SHAPE_TRI, 3, 0}));
    // Quadratic tet edge 4 (0-3): 5, mid node 16 (position 7), 11.
    EXPECT_EQ(Con(SYS_EDGE, 3, 4), (V{5, 16, 11}));
    EXPECT_EQ(Corn(SYS_EDGE, 3, 4), (V{1, 4}));
    EXPECT_EQ(Topo(SYS_EDGE, 3, 4), (V{SYS_SHAPE_LINE, 3, 0}));
    // Quadratic triangle: its face is the whole list; edge 2 (1-2) is 3, 20, 9.
    EXPECT_EQ(Con(SYS_FACE, 6, 1), (V{2, 3, 9, 19, 20, 21}));
    EXPECT_EQ(Cnn(SYS_FACE, 6, 1), (V{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(Corn(SYS_FACE, 6, 1), (V{1, 2, 3}));
    EXPECT_EQ(Topo(SYS_FACE, 6, 1), (V{SYS_SHAPE_TRI, 3, 0}));
    EXPECT_EQ(Con(SYS_EDGE, 6, 2), (V{3, 20, 9}));
    // Hex face 6 and wedge face 3 are the same four nodes, each in its own order.
    EXPECT_EQ(Con(SYS_FACE, 1, 6), (V{2, 3, 7, 6}));
    EXPECT_EQ(Con(SYS_FACE, 2, 3), (V{2, 3, 7, 6}));
    // A face of a linear wedge: a triangle with two nodes along each edge.
    EXPECT_EQ(Topo(SYS_FACE, 2, 1), (V{SYS_SHAPE_TRI, 2, 0}));
    // Pyramid: a quadrilateral base and triangular sides.
    EXPECT_EQ(Con(SYS_FACE, 4, 1), (V{1, 4, 3, 2}));
    EXPECT_EQ(Con(SYS_FACE, 4, 2), (V{1, 2, 12}));
    EXPECT_EQ(Topo(SYS_FACE, 4, 1)[0], SYS_SHAPE_QUAD);
    EXPECT_EQ(Topo(SYS_FACE, 4, 2)[0], SYS_SHAPE_TRI);
    // Lines: no face; the edge is the whole list. Points: neither.
    EXPECT_EQ(Con(SYS_FACE, 7, 1), V{});
    EXPECT_EQ(Topo(SYS_FACE, 7, 1), (V{-1, 0, 0}));
    EXPECT_EQ(Con(SYS_EDGE, 7, 1), (V{9, 10}));
    EXPECT_EQ(Topo(SYS_EDGE, 7, 1), (V{SYS_SHAPE_LINE, 2, 0}));
    EXPECT_EQ(Con(SYS_EDGE, 8, 1), V{});
    EXPECT_EQ(Topo(SYS_EDGE, 8, 1), (V{-1, 0, 0}));
    // Node and element entities.
    EXPECT_EQ(Con(SYS_NODE, 4, 5), V{12});
    EXPECT_EQ(Cnn(SYS_NODE, 4, 5), V{5});
    EXPECT_EQ(Con(SYS_ELEM, 5, 0), (V{1, 2, 6, 5}));
    EXPECT_EQ(Cnn(SYS_ELEM, 5, 0), (V{1, 2, 3, 4}));
    EXPECT_EQ(Corn(SYS_ELEM, 3, 0), (V{1, 2, 3, 4}));
    EXPECT_EQ(Topo(SYS_ELEM, 3, 0), (V{SYS_SHAPE_TET, 3, 0}));
    ExpectNoReport();
}

TEST_P(KernelTest, PolygonAndPolyhedronEntities)
{
    // Polygon: its face is the ring with the repeat; its corners the five distinct nodes.
    EXPECT_EQ(Con(SYS_FACE, 9, 1), (V{1, 5, 8, 4, 22, 1}));
    EXPECT_EQ(Corn(SYS_FACE, 9, 1), (V{1, 2, 3, 4, 5}));
    EXPECT_EQ(Topo(SYS_FACE, 9, 1), (V{SYS_SHAPE_POLYGON, 6, 5}));
    // Polygon edge 5: position 4 (22) and its successor (1).
    EXPECT_EQ(Con(SYS_EDGE, 9, 5), (V{22, 1}));
    EXPECT_EQ(Cnn(SYS_EDGE, 9, 5), (V{5, 6}));
    EXPECT_EQ(Topo(SYS_EDGE, 9, 5), (V{SYS_SHAPE_LINE, 2, 0}));
    // Polyhedron rings start at positions 0 5 9 13 17, the list ends at 21. Ring 3 is
    // 9 10 23 9 at positions 10..13.
    EXPECT_EQ(Con(SYS_FACE, 10, 3), (V{9, 10, 23, 9}));
    EXPECT_EQ(Cnn(SYS_FACE, 10, 3), (V{10, 11, 12, 13}));
    EXPECT_EQ(Corn(SYS_FACE, 10, 3), (V{10, 11, 12}));
    EXPECT_EQ(Topo(SYS_FACE, 10, 3), (V{SYS_SHAPE_POLYGON, 4, 3}));
    EXPECT_EQ(Con(SYS_FACE, 10, 1), (V{3, 7, 10, 9, 3}));
    // Distinct edges in walking order: positions 0 (3 7), 1 (7 10), 2 (10 9), 3 (9 3),
    // 6 (9 23), 7 (23 3), 10 (10 23), 14 (7 23); every other pair is the reverse of one of
    // these.
    const int pos[8] = {0, 1, 2, 3, 6, 7, 10, 14};
    for (int e = 1; e <= 8; ++e) EXPECT_EQ(vis_Connect_PolyEdge(c, 10, e), pos[e - 1]) << e;
    EXPECT_EQ(vis_Connect_PolyEdge(c, 10, 9), -1);
    EXPECT_EQ(Con(SYS_EDGE, 10, 8), (V{7, 23}));
    EXPECT_EQ(Cnn(SYS_EDGE, 10, 8), (V{15, 16}));
    ExpectNoReport();
}

TEST_P(KernelTest, EntityRangeReports)
{
    EXPECT_EQ(Con(SYS_FACE, 0, 1), V{});
    EXPECT_EQ(Cnn(SYS_FACE, 11, 1), V{});
    EXPECT_EQ(Corn(SYS_EDGE, -3, 1), V{});
    int s = -9, i = -9, j = -9;
    vis_ConnectElemTopo(c, SYS_EDGE, 12, 1, &s, &i, &j);
    EXPECT_EQ(s, -9);
    ASSERT_EQ(reports().size(), 4u);
    EXPECT_EQ(reports()[0].name, "vis_ConnectElemCon");
    EXPECT_EQ(reports()[0].text, "id= 0");
    EXPECT_EQ(reports()[1].name, "vis_ConnectElemCnn");
    EXPECT_EQ(reports()[2].name, "vis_ConnectElemCorn");
    EXPECT_EQ(reports()[3].name, "vis_ConnectElemTopo");
    EXPECT_EQ(reports()[3].text, "id= 12");
    for (const Report& r : reports()) EXPECT_EQ(r.code, 1);
    EXPECT_EQ(vis_ConnectError(c), 0);
    Reports().clear();
    // A face number out of range: reported, ierr untouched. A bad enttype: error 2, stored.
    EXPECT_EQ(Con(SYS_FACE, 1, 7), V{});
    ExpectOnlyReport("vis_ConnectElemCon", 1, "no= 7");
    EXPECT_EQ(vis_ConnectError(c), 0);
    Reports().clear();
    EXPECT_EQ(Con(5, 1, 1), V{});
    ExpectOnlyReport("vis_ConnectElemCon", 2, "enttype= 5");
    EXPECT_EQ(vis_ConnectError(c), 2);
}

TEST_P(KernelTest, FaceNormals)
{
    // Hex face 1 (1 4 3 2, z = 0) points down; the quad E5 (1 2 6 5, y = 0) by the right-hand
    // rule points to -y.
    float n[3 * 8];
    vis_ConnectElemFaceNorm(c, 1, 1, n);
    for (int k = 0; k < 4; ++k) {
        EXPECT_NEAR(n[3 * k + 2], -1.0f, 1e-6);
        EXPECT_NEAR(n[3 * k], 0.0f, 1e-6);
    }
    vis_ConnectElemFaceNorm(c, 5, 1, n);
    EXPECT_NEAR(n[1], -1.0f, 1e-6);
    // Polyhedron ring 1 (3 7 10 9) is a vertical plane quadrilateral. By the right-hand rule,
    // (7 - 3) x (10 - 7) = (0, 0, 1) x (1, -0.5, 0) = (0.5, 1, 0), of length sqrt(1.25): the
    // unit normal (1, 2, 0) / sqrt(5) at every one of its four nodes.
    vis_ConnectElemFaceNorm(c, 10, 1, n);
    const float a = 1.0f / std::sqrt(5.0f);
    for (int k = 0; k < 4; ++k) {
        EXPECT_NEAR(n[3 * k], a, 1e-6) << k;
        EXPECT_NEAR(n[3 * k + 1], 2 * a, 1e-6) << k;
        EXPECT_NEAR(n[3 * k + 2], 0.0f, 1e-6) << k;
    }
    ExpectNoReport();
    vis_ConnectElemFaceNorm(c, 7, 1, n);
    ExpectOnlyReport("vis_ConnectElemFaceNorm", 1, "no= 1");
}

INSTANTIATE_TEST_SUITE_P(Modes, KernelTest, ::testing::Values(0, 1),
                         [](const ::testing::TestParamInfo<int>& p) {
                             return std::string(p.param ? "Dynamic" : "Static");
                         });

class KernelStaticTest : public ContainerTest {
protected:
    void TearDown() override
    {
        vis_ConnectDelete(c);
        ContainerTest::TearDown();
    }
    vis_Connect* c = vis_ConnectNew();
};

TEST_F(KernelStaticTest, PolyhedronIndexAndTableSizes)
{
    meshtest::Build(c);
    vis_ConnectKernel(c);
    ASSERT_NE(c->polyfaceix, nullptr);
    // Elements 1..9 take no entries; the polyhedron takes its five ring starts and the end.
    for (int id = 1; id <= 10; ++id) EXPECT_EQ(c->polyfacepntr[id], 0) << id;
    EXPECT_EQ(c->polyfacepntr[11], 6);
    const short want[6] = {0, 5, 9, 13, 17, 21};
    for (int k = 0; k < 6; ++k) EXPECT_EQ(c->polyfaceix[k], want[k]);
    // 52 distinct entries in the rows.
    EXPECT_EQ(c->nodeelempntr[25], 52);
    ExpectNoReport();
}

TEST_F(KernelStaticTest, RepeatedNodeCountsOnceInItsRow)
{
    // One triangle naming node 2 twice, in a mesh of 5 nodes: its row lists the element once,
    // while the raw total of list entries stays 3, and nodeelem is allocated for that total
    // and the pad of VIS_CONNECT_ROWPAD (8) entries: 11 ints, where the distinct count 2 would
    // give 10. Everything past the last row (entries 2 to 10) is 0.
    vis_ConnectDef(c, 5, 1);
    const int n[3] = {1, 2, 2};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_TRI, 0, 0, 0);
    vis_ConnectSetElemNode(c, 1, n);
    CountAllocations();
    vis_ConnectKernel(c);
    const std::vector<size_t> sizes = AllocState().sizes;
    RestoreAllocation();
    EXPECT_EQ(std::count(sizes.begin(), sizes.end(), 11 * sizeof(int)), 1);
    EXPECT_EQ(std::count(sizes.begin(), sizes.end(), 10 * sizeof(int)), 0);
    for (int k = 2; k <= 10; ++k) EXPECT_EQ(c->nodeelem[k], 0) << "entry " << k;
    EXPECT_EQ(c->nodeelemsize[2], 1);
    // Row starts: node 1 at 0, node 2 at 1, nodes 3 to 5 (empty) at 2.
    EXPECT_EQ(c->nodeelempntr[3], 2);
    EXPECT_EQ(c->nodeelempntr[6], 2);
    int num, e[4];
    vis_ConnectNodeElem(c, 2, &num, e);
    EXPECT_EQ(num, 1);
    EXPECT_EQ(e[0], 1);
    EXPECT_EQ(c->polyfaceix, nullptr);
    ExpectNoReport();
}

// The polyhedron index is sized by the rings of the list: a list of two rings whose tuple
// claims one face (maxk 1) still gets both starts and the end, 0, 4 and 8, with no write past
// the index (which maxk + 1 = 2 entries would have been).
TEST_F(KernelStaticTest, PolyhedronIndexFollowsTheRingsOfTheList)
{
    vis_ConnectDef(c, 4, 1);
    const int n[8] = {1, 2, 3, 1, 1, 3, 4, 1};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_POLYHED, 8, 5, 1);
    vis_ConnectSetElemNode(c, 1, n);
    vis_ConnectKernel(c);
    ASSERT_EQ(vis_ConnectError(c), 0);
    ASSERT_NE(c->polyfaceix, nullptr);
    EXPECT_EQ(c->polyfacepntr[2], 3);
    EXPECT_EQ(c->polyfaceix[0], 0);
    EXPECT_EQ(c->polyfaceix[1], 4);
    EXPECT_EQ(c->polyfaceix[2], 8);
    ExpectNoReport();
}

TEST_F(KernelStaticTest, ElementNodeZeroIsReported)
{
    vis_ConnectDef(c, 4, 2);
    const int n[3] = {1, 2, 3};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_TRI, 0, 0, 0);
    vis_ConnectSetElemNode(c, 1, n);
    // Element 2 has its topology but no node list: its nodes read 0.
    vis_ConnectSetTopology(c, 2, SYS_SHAPE_QUAD, 0, 0, 0);
    vis_ConnectKernel(c);
    ExpectOnlyReport("vis_ConnectKernel", 8, "elem= 2, p->elnoix[0]= 0");
    EXPECT_EQ(vis_ConnectError(c), 8);
    int num = -1;
    vis_ConnectNodeElem(c, 1, &num, nullptr);
    EXPECT_EQ(num, 0);
}

TEST_F(KernelStaticTest, TwoKernelCallsChangeNothing)
{
    meshtest::Build(c);
    vis_ConnectKernel(c);
    int* ne = c->nodeelem;
    std::vector<int> rows(ne, ne + 52);
    std::vector<long long> pntr(c->nodeelempntr, c->nodeelempntr + 26);
    vis_ConnectKernel(c);
    EXPECT_EQ(c->nodeelem, ne);
    EXPECT_EQ(std::vector<int>(c->nodeelem, c->nodeelem + 52), rows);
    EXPECT_EQ(std::vector<long long>(c->nodeelempntr, c->nodeelempntr + 26), pntr);
    ExpectNoReport();
}

TEST_F(KernelStaticTest, QueriesBeforeTheKernel)
{
    meshtest::Build(c);
    int num = -1;
    vis_ConnectMaxNodeElem(c, &num);
    ExpectOnlyReport("vis_ConnectMaxNodeElem", 8, "ConnectKernel not called");
    EXPECT_EQ(vis_ConnectError(c), 8);
    Reports().clear();
    vis_ConnectNumNodeElem(c, 1, &num);
    ExpectOnlyReport("vis_ConnectNumNodeElem", 8, "ConnectKernel not called");
    Reports().clear();
    // The others give 0 without a report.
    int e[8];
    vis_ConnectNodeElem(c, 1, &num, e);
    EXPECT_EQ(num, 0);
    vis_ConnectNodeNode(c, 1, &num, e);
    EXPECT_EQ(num, 0);
    vis_ConnectElemAdj(c, SYS_FACE, 1, 1, &num, e);
    EXPECT_EQ(num, 0);
    // Polyhedron rings are walked from the list without the index.
    vis_Connect_PolyFaceNodes(c, 10, 4, &num, e);
    EXPECT_EQ(V(e, e + num), (V{10, 7, 23, 10}));
    vis_Connect_PolyFaceCnn(c, 10, 5, &num, e);
    EXPECT_EQ(V(e, e + num), (V{18, 19, 20, 21}));
    ExpectNoReport();
    // A change of the elements drops the table.
    vis_ConnectKernel(c);
    EXPECT_NE(c->nodeelem, nullptr);
    const int n[2] = {9, 10};
    vis_ConnectSetElemNode(c, 7, n);
    EXPECT_EQ(c->nodeelem, nullptr);
}

TEST_F(KernelStaticTest, DynamicModeNeedsNoKernel)
{
    meshtest::Build(c, 1);
    int num = -1;
    vis_ConnectMaxNodeElem(c, &num);
    EXPECT_EQ(num, 5);
    vis_ConnectKernel(c);
    EXPECT_EQ(c->nodeelem, nullptr);
    // Changing a list moves the element between rows.
    const int n[2] = {11, 12};
    vis_ConnectSetElemNode(c, 7, n);
    int e[8];
    vis_ConnectNodeElem(c, 9, &num, e);
    EXPECT_EQ(V(e, e + num), (V{2, 6, 10}));
    vis_ConnectNodeElem(c, 12, &num, e);
    EXPECT_EQ(V(e, e + num), (V{4, 7, 8}));
    ExpectNoReport();
}

TEST_F(KernelStaticTest, AllocationFailuresAreReportedAndRecoverable)
{
    std::set<std::string> seen;
    for (int nth = 1; nth <= 12; ++nth) {
        vis_Connect* m = vis_ConnectNew();
        meshtest::Build(m);
        Reports().clear();
        FailAllocation(nth);
        vis_ConnectKernel(m);
        RestoreAllocation();
        int err = vis_ConnectError(m);
        if (err) {
            EXPECT_EQ(err, 4);
            ASSERT_FALSE(reports().empty());
            seen.insert(reports().back().text);
            // A failed kernel leaves no table behind, so no query reads a half-built one.
            EXPECT_EQ(m->nodeelem, nullptr);
            EXPECT_EQ(m->nodeelempntr, nullptr);
            EXPECT_EQ(m->nodeelemsize, nullptr);
            EXPECT_EQ(m->polyfaceix, nullptr);
            EXPECT_EQ(m->polyfacepntr, nullptr);
        }
        // A later call builds the table.
        vis_ConnectKernel(m);
        EXPECT_EQ(vis_ConnectError(m), 0);
        int num = -1, e[8];
        vis_ConnectNodeElem(m, 3, &num, e);
        EXPECT_EQ(V(e, e + num), (V{1, 2, 4, 6, 10})) << nth;
        vis_ConnectDelete(m);
    }
    EXPECT_TRUE(seen.count("Malloc nodeelemsize"));
    EXPECT_TRUE(seen.count("Malloc icount"));
    EXPECT_TRUE(seen.count("Malloc nodeelem"));
    EXPECT_TRUE(seen.count("Malloc nodeelempntr"));
}

}  // namespace
