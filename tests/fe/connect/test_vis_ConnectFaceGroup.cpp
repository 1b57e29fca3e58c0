// vis_ConnectFaceGroup and vis_ConnectEdgeGroup: free and shared faces, feature edges and
// regions on a cube of 2 x 2 x 2 hexahedra, an attribute interface between two blocks,
// silhouettes, and the checks of the frame. Every expected count is worked out in a comment.
#include "ConnectTestMesh.h"
#include "GroupTestMesh.h"
#include "vis_Connect.h"
#include "vis_ConnectGroup.h"
#include "vis_ConnectGroupInternal.h"
#include "vis_ConnectKernel.h"
#include "vis_Group.h"
#include "vsy_TestSupport.h"

#include <cmath>
#include <map>

using namespace vsytest;
using namespace grouptest;

namespace {

class FaceGroupTest : public GroupFixture {
protected:
    // The free faces of the whole mesh.
    vis_Group* freeFaces()
    {
        vis_Group* f = faces();
        vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, f);
        return f;
    }
    // The feature edges of the free faces at 45 degrees.
    vis_Group* featureEdges(vis_Group* free)
    {
        vis_Group* e = edges();
        vis_ConnectSetGroupParamf(c, VIS_CGROUP_ANGLE, 45.0f);
        vis_ConnectEdgeGroup(c, VIS_CGROUP_FEATURE, free, e);
        return e;
    }
    // The faces of every shell element (oper 2).
    vis_Group* wholeFaces()
    {
        vis_Group* f = faces();
        vis_ConnectFaceGroup(c, VIS_CGROUP_WHOLE, nullptr, f);
        return f;
    }
    // The number of entities an operation selects into a new face or edge group.
    int faceOper(int oper, vis_Group* source)
    {
        vis_Group* f = faces();
        vis_ConnectFaceGroup(c, oper, source, f);
        return FlagCount(f);
    }
    int edgeOper(int oper, vis_Group* source)
    {
        vis_Group* e = edges();
        vis_ConnectEdgeGroup(c, oper, source, e);
        return FlagCount(e);
    }
    // The silhouette edges, seen along z, of the two quadrilaterals 1 2 3 4 and 2 5 6 3 over
    // the nodes x.
    int silhouette(const std::vector<std::array<double, 3>>& x)
    {
        Shell(c, x, {{1, 2, 3, 4}, {2, 5, 6, 3}});
        vis_Group* all = wholeFaces();
        const float view[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};  // elements 2, 6, 10: (0, 0, 1)
        vis_ConnectSetGroupParamfv(c, VIS_CGROUP_VIEW, view);
        return edgeOper(VIS_CGROUP_SILHOUETTE, all);
    }
};

TEST_F(FaceGroupTest, CubeOfEightHexahedraHas24FreeFaces)
{
    // Each side of the 2 x 2 x 2 cube is covered by 2 x 2 element faces: 6 * 4 = 24. Every
    // other face lies inside and is held by two hexahedra.
    Block(c, 2, 2, 2);
    vis_Group* f = freeFaces();
    EXPECT_EQ(FlagCount(f), 24);
    // Each element is a corner of the cube and has three faces on its sides.
    for (int id = 1; id <= 8; ++id) {
        int n = 0, last = 0;
        vis_GroupNumEntFlag(f, id, &n, &last);
        EXPECT_EQ(n, 3) << id;
    }
    ExpectNoReport();
}

TEST_F(FaceGroupTest, EveryFaceOnceCountsSharedFacesOnce)
{
    // 8 * 6 = 48 element faces; the three inner planes hold 4 shared faces each, 12 faces
    // counted twice: 48 - 12 = 36.
    Block(c, 2, 2, 2);
    EXPECT_EQ(faceOper(VIS_CGROUP_EVERYONCE, nullptr), 36);
}

TEST_F(FaceGroupTest, TwoHexahedraSharingAFace)
{
    // 2 * 6 = 12 faces, one shared: oper 0 takes it once (11), oper 1 leaves it out (10).
    Block(c, 2, 1, 1);
    vis_Group* every = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_EVERYONCE, nullptr, every);
    EXPECT_EQ(FlagCount(every), 11);
    EXPECT_EQ(faceOper(VIS_CGROUP_FREE, nullptr), 10);
    // The shared face is taken on element 1, the lower id: element 1 keeps 6 faces, 2 has 5.
    int n = 0, last = 0;
    vis_GroupNumEntFlag(every, 1, &n, &last);
    EXPECT_EQ(n, 6);
    vis_GroupNumEntFlag(every, 2, &n, &last);
    EXPECT_EQ(n, 5);
}

TEST_F(FaceGroupTest, ASourceLimitsTheScanAndTheNeighbours)
{
    // Only element 1 of the two in the source: its face toward element 2 has no neighbour in
    // the source, so all its 6 faces are free, and element 2 gives nothing.
    Block(c, 2, 1, 1);
    vis_Group* src = elems();
    vis_GroupSetIndex(src, 1, 1);
    vis_Group* f = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, src, f);
    EXPECT_EQ(FlagCount(f), 6);
    EXPECT_EQ(Members(f), (std::vector<int>{1}));
}

TEST_F(FaceGroupTest, TheDestinationIsOnlyAddedTo)
{
    // Every face of element 2 is set first. The free faces then add element 1's five free
    // faces (its sixth is shared) and leave element 2's six as they were: 6 + 5.
    Block(c, 2, 1, 1);
    vis_Group* f = faces();
    for (int no = 1; no <= 6; ++no) vis_GroupSetEntFlag(f, 2, no, 1);
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, f);
    EXPECT_EQ(FlagCount(f), 6 + 5);
}

TEST_F(FaceGroupTest, CubeHas24FeatureEdgesAlongItsTwelveEdgesAt45Degrees)
{
    // The free faces of the cube meet at right angles along the 12 cube edges; each cube edge
    // is cut into two element edges, so 24 element edges are features (normals at 90 degrees:
    // |dot| 0 below cos 45 = 0.707). The 24 edges inside the sides join coplanar faces (|dot|
    // 1) and are not.
    Block(c, 2, 2, 2);
    vis_Group* e = featureEdges(freeFaces());
    EXPECT_EQ(FlagCount(e), 24);
    // Every one lies on a cube edge: two of its coordinates are 0 or 2. Grouped by the cube
    // edge they lie on, they make 12 cube edges of two element edges each.
    std::map<std::array<int, 6>, int> onCubeEdge;
    for (int id = 1; id <= 8; ++id)
        for (int no = 1; no <= 12; ++no) {
            int flag = 0;
            vis_GroupGetEntFlag(e, id, no, &flag);
            if (!flag) continue;
            auto x = EntityCoords(c, SYS_EDGE, id, no);
            ASSERT_EQ(x.size(), 2u);
            std::array<int, 6> key{};
            int fixed = 0;
            for (int a = 0; a < 3; ++a) {
                bool onSide = x[0][a] == x[1][a] && (x[0][a] == 0.0 || x[0][a] == 2.0);
                fixed += onSide;
                key[a] = onSide ? static_cast<int>(x[0][a]) : -1;
            }
            EXPECT_EQ(fixed, 2) << "element " << id << " edge " << no;
            ++onCubeEdge[key];
        }
    EXPECT_EQ(onCubeEdge.size(), 12u);
    for (const auto& kv : onCubeEdge) EXPECT_EQ(kv.second, 2);
    ExpectNoReport();
}

// 3 x 2 unit quadrilaterals in z = 0: 17 element edges, 10 of them on the border.
static void Plate(vis_Connect* c)
{
    std::vector<std::array<double, 3>> x;
    for (int j = 0; j <= 2; ++j)
        for (int i = 0; i <= 3; ++i) x.push_back({double(i), double(j), 0.0});
    std::vector<std::vector<int>> q;
    for (int j = 0; j < 2; ++j)
        for (int i = 0; i < 3; ++i) {
            int n = 1 + i + 4 * j;
            q.push_back({n, n + 1, n + 5, n + 4});
        }
    Shell(c, x, q);
}

TEST_F(FaceGroupTest, FeatureEdgesOfAFlatPlateAreItsBorder)
{
    // 3 x 2 quadrilaterals in the plane z = 0: all normals equal, so only the border is taken
    // (edges of one face): 2 * (3 + 2) = 10 element edges.
    Plate(c);
    vis_Group* all = wholeFaces();
    EXPECT_EQ(FlagCount(all), 6);  // oper 2: every shell element's one face
    vis_Group* e = featureEdges(all);
    EXPECT_EQ(FlagCount(e), 10);
}

TEST_F(FaceGroupTest, NonManifoldEdgesAreFeaturesWhenAsked)
{
    // Three quadrilaterals in the plane z = 0 on one edge (nodes 1, 2): every normal is
    // (0, 0, 1), so no pair of them is below cos 45 and the edge is no feature by angle; only
    // nonmanifold (an edge of 3 faces) makes it one.
    std::vector<std::array<double, 3>> x = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {1, -1, 0}, {0, -1, 0},
                                           {1, 2, 0}, {0, 2, 0}};
    // Faces: 1 2 3 4 (y > 0), 2 1 6 5 (y < 0), and 1 2 7 8 folded back onto y > 0.
    Shell(c, x, {{1, 2, 3, 4}, {2, 1, 6, 5}, {1, 2, 7, 8}});
    vis_Group* all = wholeFaces();
    // The edge 1-2 is held by 3 faces: not a border. Its 3 normals are parallel: no feature.
    // Border edges: 3 per quad = 9.
    vis_Group* e = featureEdges(all);
    EXPECT_EQ(FlagCount(e), 9);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_NONMANIFOLD, 1);
    vis_Group* e2 = edges();
    vis_ConnectEdgeGroup(c, VIS_CGROUP_FEATURE, all, e2);
    EXPECT_EQ(FlagCount(e2), 10);  // and the edge 1-2, once, on element 1
    int flag = 0;
    vis_GroupGetEntFlag(e2, 1, 1, &flag);  // edge 1 of element 1 runs from node 1 to node 2
    EXPECT_EQ(flag, 1);
}

TEST_F(FaceGroupTest, OneRegionPerCubeSide)
{
    // Regions of the free faces bounded by the feature edges: seeded at the centre node of a
    // side, every side gives its own 4 faces; the six regions together are the 24 free faces.
    Block(c, 2, 2, 2);
    vis_Group* free = freeFaces();
    vis_Group* features = featureEdges(free);
    vis_ConnectSetGroupObject(c, SYS_GROUP, features);
    // The centre nodes of the six sides: (1, 1, 0), (1, 1, 2), (1, 0, 1), (1, 2, 1), (0, 1, 1),
    // (2, 1, 1).
    const int centres[6][3] = {{1, 1, 0}, {1, 1, 2}, {1, 0, 1}, {1, 2, 1}, {0, 1, 1}, {2, 1, 1}};
    vis_Group* all = faces();
    for (const auto& p : centres) {
        vis_Group* region = faces();
        vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDNODE, BlockNode(2, 2, p[0], p[1], p[2]));
        vis_ConnectFaceGroup(c, VIS_CGROUP_REGION, free, region);
        EXPECT_EQ(FlagCount(region), 4);
        // All four lie on the side: the coordinate that is fixed on it is shared by every node.
        int axis = p[0] != 1 ? 0 : (p[1] != 1 ? 1 : 2);
        for (int id = 1; id <= 8; ++id)
            for (int no = 1; no <= 6; ++no) {
                int flag = 0;
                vis_GroupGetEntFlag(region, id, no, &flag);
                if (!flag) continue;
                for (const auto& x : EntityCoords(c, SYS_FACE, id, no)) EXPECT_EQ(x[axis], double(p[axis]));
                vis_GroupSetEntFlag(all, id, no, 1);
            }
    }
    EXPECT_EQ(FlagCount(all), 24);
    ExpectNoReport();
}

TEST_F(FaceGroupTest, RegionFromASeedElementFace)
{
    // Seed: element 1 (the corner at the origin), its free face on z = 0. The region is the
    // bottom side: 4 faces on elements 1 to 4.
    Block(c, 2, 2, 2);
    vis_Group* free = freeFaces();
    vis_ConnectSetGroupObject(c, SYS_GROUP, featureEdges(free));
    int bottom = 0;
    for (int no = 1; no <= 6 && !bottom; ++no) {
        auto x = EntityCoords(c, SYS_FACE, 1, no);
        bool onBottom = true;
        for (const auto& p : x) onBottom = onBottom && p[2] == 0.0;
        if (onBottom) bottom = no;
    }
    ASSERT_NE(bottom, 0);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDELEM, 1);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDFACE, bottom);
    vis_Group* region = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_REGION, free, region);
    EXPECT_EQ(FlagCount(region), 4);
    EXPECT_EQ(Members(region), (std::vector<int>{1, 2, 3, 4}));
}

TEST_F(FaceGroupTest, RegionWithAnEmptySeedGroupTakesAllConnectedFaces)
{
    // No feature stops the growth: the whole closed surface of 24 faces is one region.
    Block(c, 2, 2, 2);
    vis_Group* free = freeFaces();
    vis_ConnectSetGroupObject(c, SYS_GROUP, edges());
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDNODE, 1);
    EXPECT_EQ(faceOper(VIS_CGROUP_REGION, free), 24);
}

TEST_F(FaceGroupTest, RegionSeedErrorsLeaveTheDestinationAlone)
{
    Block(c, 2, 2, 2);
    vis_Group* free = freeFaces();
    vis_Group* region = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_REGION, free, region);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_OPERATION, "Seed Group not defined");
    Reports().clear();
    vis_ConnectSetGroupObject(c, SYS_GROUP, faces());  // a face group cannot stop faces
    vis_ConnectFaceGroup(c, VIS_CGROUP_REGION, free, region);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_VALUE, "Improper seed Group");
    Reports().clear();
    vis_ConnectSetGroupObject(c, SYS_GROUP, edges());
    vis_ConnectFaceGroup(c, VIS_CGROUP_REGION, free, region);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_OPERATION, "Seed node and/or element not defined");
    Reports().clear();
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDELEM, 1);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDFACE, 7);  // a hexahedron has 6 faces
    vis_ConnectFaceGroup(c, VIS_CGROUP_REGION, free, region);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_OPERATION, "Seed element face out of range");
    Reports().clear();
    // A face of element 1 that is not free: its face toward element 2 (x = 1).
    int inner = 0;
    for (int no = 1; no <= 6 && !inner; ++no) {
        int flag = 1;
        vis_GroupGetEntFlag(free, 1, no, &flag);
        if (!flag) inner = no;
    }
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDFACE, inner);
    vis_ConnectFaceGroup(c, VIS_CGROUP_REGION, free, region);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_OPERATION, "Seed element face not in source group");
    EXPECT_EQ(FlagCount(region), 0);
}

TEST_F(FaceGroupTest, EdgeRegionStopsAtCorners)
{
    // The 24 feature edges of the cube as source. Seeded at the middle node (1, 0, 0) of a cube
    // edge: the two element edges there (on elements 1 and 2) join; their far ends are cube
    // corners, which stop the growth: 2 edges.
    Block(c, 2, 2, 2);
    vis_Group* features = featureEdges(freeFaces());
    vis_Group* corners = nodes();
    for (int n : LatticeNodes(2, 2, {0, 2})) vis_GroupSetIndex(corners, n, 1);
    vis_ConnectSetGroupObject(c, SYS_GROUP, corners);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDNODE, BlockNode(2, 2, 1, 0, 0));
    vis_Group* region = edges();
    vis_ConnectEdgeGroup(c, VIS_CGROUP_REGION, features, region);
    EXPECT_EQ(FlagCount(region), 2);
    EXPECT_EQ(Members(region), (std::vector<int>{1, 2}));
    // The same stops as element-face flags on node positions: the cube corner of the corner
    // element (i, j, k) in {0, 1}^3 sits at local corner i, j, k of it, position 1 + the corner
    // number (bottom 0 1 2 3 counter-clockwise from the origin, top 4 to 7).
    vis_Group* stops = faces();
    const int corner[2][2] = {{0, 3}, {1, 2}};  // [i][j]
    for (int k = 0; k <= 1; ++k)
        for (int j = 0; j <= 1; ++j)
            for (int i = 0; i <= 1; ++i) vis_GroupSetEntFlag(stops, 1 + i + 2 * j + 4 * k, 1 + 4 * k + corner[i][j], 1);
    vis_ConnectSetGroupObject(c, SYS_GROUP, stops);
    EXPECT_EQ(edgeOper(VIS_CGROUP_REGION, features), 2);
    // With no stop, the connected network of all 24 feature edges.
    vis_ConnectSetGroupObject(c, SYS_GROUP, keep(NewGroup(27, SYS_NODE, 0)));
    vis_Group* all = edges();
    vis_ConnectEdgeGroup(c, VIS_CGROUP_REGION, features, all);
    EXPECT_EQ(FlagCount(all), 24);
    // A seed edge out of range reports in the edge wording.
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDNODE, 0);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDELEM, 1);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_SEEDEDGE, 13);
    vis_ConnectEdgeGroup(c, VIS_CGROUP_REGION, features, all);
    ExpectOnlyReport("vis_ConnectEdgeGroup", SYS_ERROR_OPERATION, "Seed element edge out of range");
}

TEST_F(FaceGroupTest, AttributeInterfaceBetweenTwoTouchingBlocks)
{
    // Three hexahedra in a row: elements 1 and 2 are part 1, element 3 is part 2. The only
    // interface is the face between 2 and 3, taken once on element 2.
    Block(c, 3, 1, 1);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_PART, 1, 1);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_PART, 2, 1);
    vis_ConnectSetElemAssoc(c, VIS_ASSOC_PART, 3, 2);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCTYPE, VIS_ASSOC_PART);
    vis_Group* f = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_INTERFACE, nullptr, f);
    EXPECT_EQ(FlagCount(f), 1);
    EXPECT_EQ(Members(f), (std::vector<int>{2}));
    // With count 1 the faces held by one element join: 3 * 6 - 2 * 2 = 14 free faces, and the
    // interface: 15.
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, 1);
    EXPECT_EQ(faceOper(VIS_CGROUP_INTERFACE, nullptr), 15);
}

TEST_F(FaceGroupTest, SharedCountAndFaceAttributes)
{
    Block(c, 3, 1, 1);
    // count 2: the two inner faces, once each; count 0: every face of every element, 18.
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, 2);
    EXPECT_EQ(faceOper(VIS_CGROUP_SHARED, nullptr), 2);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, 0);
    EXPECT_EQ(faceOper(VIS_CGROUP_SHARED, nullptr), 18);
    // Values on faces: face 2 of element 3 carries 7, face 4 of element 1 carries 5.
    vis_ConnectSetElemEntAssoc(c, 3, SYS_FACE, 3, 2, 7);
    vis_ConnectSetElemEntAssoc(c, 3, SYS_FACE, 1, 4, 5);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCTYPE, 3);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_ASSOCVALUE, 7);
    vis_Group* a = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_ASSOC, nullptr, a);
    EXPECT_EQ(FlagCount(a), 1);
    int flag = 0;
    vis_GroupGetEntFlag(a, 3, 2, &flag);
    EXPECT_EQ(flag, 1);
    EXPECT_EQ(faceOper(VIS_CGROUP_ASSOCANY, nullptr), 2);
}

TEST_F(FaceGroupTest, FacesWithAllOrCountNodesInANodeGroup)
{
    // Two hexahedra; the node group holds the four nodes of the plane x = 0: only the face of
    // element 1 on x = 0 has all its nodes there; faces with exactly 2 of them are the four
    // faces of element 1 that touch x = 0 along an edge.
    Block(c, 2, 1, 1);
    vis_Group* nodes = keep(NewGroup(12, SYS_NODE, 0));
    for (int j = 0; j <= 1; ++j)
        for (int k = 0; k <= 1; ++k) vis_GroupSetIndex(nodes, BlockNode(2, 1, 0, j, k), 1);
    EXPECT_EQ(faceOper(VIS_CGROUP_ALLNODES, nodes), 1);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_COUNT, 2);
    vis_Group* g = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_COUNTNODES, nodes, g);
    EXPECT_EQ(FlagCount(g), 4);
    EXPECT_EQ(Members(g), (std::vector<int>{1}));
}

TEST_F(FaceGroupTest, SilhouetteOfAFold)
{
    // Quad A (1 2 3 4) in z = 0, normal (3 - 1) x (4 - 2) = (1,1,0) x (-1,1,0) = (0,0,2). Quad B
    // (2 5 6 3) folds under it: 5 = (0,0,-.5), 6 = (0,1,-.5); (6 - 2) x (3 - 5) = (-1,1,-.5) x
    // (1,1,.5) = (1, 0, -2). Seen along w = (0, 0, 1): d1 = 2 > 0, d2 = -2, d1 d2 <= 0: the
    // shared edge 2-3 is a silhouette. With the 6 border edges (always taken): 7.
    EXPECT_EQ(silhouette({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, -.5}, {0, 1, -.5}}), 7);
}

TEST_F(FaceGroupTest, NoSilhouetteOnAFlatPair)
{
    // B (2 5 6 3) continues A in z = 0: (6 - 2) x (3 - 5) = (1,1,0) x (-1,1,0) = (0,0,2); both
    // face the view: only the 6 border edges.
    EXPECT_EQ(silhouette({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {2, 0, 0}, {2, 1, 0}}), 6);
}

TEST_F(FaceGroupTest, CreasesOfAFlatPlate)
{
    // Every curvature of a flat plate is 0, so kmax, kmin, p1, p2, e1, e2 are all 0. With
    // curvetol .1: steps 1 to 5 do not fire (0 > 0 and 0 > .1 are false), step 6 ends with no
    // crease (hi 0 < .1): only the 10 border edges. With curvetol 0, step 6 does not end it
    // (0 < 0 is false) and step 7 finds hi 0 >= 5 * lo 0: every one of the 7 inner edges is a
    // crease too, 17.
    Plate(c);
    vis_Group* all = wholeFaces();
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_CURVETOL, 0.1f);
    EXPECT_EQ(edgeOper(VIS_CGROUP_CREASE, all), 10);
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_CURVETOL, 0.0f);
    EXPECT_EQ(edgeOper(VIS_CGROUP_CREASE, all), 17);
}

TEST_F(FaceGroupTest, CreaseWhereAPlaneMeetsACylinderTangentially)
{
    // A flat quadrilateral (x from -1 to 0, z = 0) and an 8-node quadrilateral on the cylinder
    // of radius 1 about the line x = 0, z = 1 (points (sin t, y, 1 - cos t), t from 0 to 45
    // degrees) share the line x = z = 0, where the cylinder touches the plane: no kink. At the
    // shared edge the plane's curvatures are 0 and the cylinder's about 1 and 0, the edge
    // running along the cylinder's straight direction, so both normal curvatures along the edge
    // (e1, e2) are about 0. With curveflag 0 step 1 ends it (kmax * .2, about .2, exceeds hi,
    // about 0): only the 6 border edges. With curveflag 1 step 1 is skipped and step 2 fires
    // (the plane's p below 1e-7, the cylinder's about 1 above curvetol .1): 7.
    const double t1 = std::atan(1.0), tm = t1 / 2;
    const double x[10][3] = {{-1, 0, 0}, {0, 0, 0}, {0, 1, 0}, {-1, 1, 0},
                             {std::sin(t1), 0, 1 - std::cos(t1)}, {std::sin(t1), 1, 1 - std::cos(t1)},
                             {std::sin(tm), 0, 1 - std::cos(tm)}, {std::sin(t1), .5, 1 - std::cos(t1)},
                             {std::sin(tm), 1, 1 - std::cos(tm)}, {0, .5, 0}};
    vis_ConnectDef(c, 10, 2);
    for (int n = 1; n <= 10; ++n) vis_ConnectSetCoordsdv(c, n, x[n - 1]);
    const int flat[4] = {1, 2, 3, 4};
    const int curved[8] = {2, 5, 6, 3, 7, 8, 9, 10};  // corners, then the middles of its edges
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_QUAD, 0, 0, 0);
    vis_ConnectSetElemNode(c, 1, flat);
    vis_ConnectSetTopology(c, 2, SYS_SHAPE_QUAD, 3, 0, 0);
    vis_ConnectSetElemNode(c, 2, curved);
    vis_ConnectKernel(c);
    vis_Group* all = wholeFaces();
    vis_ConnectSetGroupParamf(c, VIS_CGROUP_CURVETOL, 0.1f);
    EXPECT_EQ(edgeOper(VIS_CGROUP_CREASE, all), 6);
    vis_ConnectSetGroupParami(c, VIS_CGROUP_CURVEFLAG, 1);
    EXPECT_EQ(edgeOper(VIS_CGROUP_CREASE, all), 7);
    ExpectNoReport();
}

TEST_F(FaceGroupTest, EdgeOperations)
{
    // Two hexahedra: 24 element edges, 4 of them on the shared face (held by both elements).
    Block(c, 2, 1, 1);
    vis_Group* free = edges();
    vis_ConnectEdgeGroup(c, VIS_CGROUP_FREE, nullptr, free);
    EXPECT_EQ(FlagCount(free), 24 - 2 * 4);
    vis_Group* once = edges();
    vis_ConnectEdgeGroup(c, VIS_CGROUP_EVERYONCE, nullptr, once);
    EXPECT_EQ(FlagCount(once), 24 - 4);
    // Oper 27: held by a number of other elements other than 1: the 16 free edges, once.
    EXPECT_EQ(edgeOper(VIS_CGROUP_NOTONE, nullptr), 16);
}

TEST_F(FaceGroupTest, FrameChecks)
{
    Block(c, 2, 1, 1);
    vis_Group* f = faces();
    vis_ConnectFaceGroup(c, 99, nullptr, f);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_ENUM, "oper= 99");
    Reports().clear();
    // Oper 27 exists for edges only.
    vis_ConnectFaceGroup(c, VIS_CGROUP_NOTONE, nullptr, f);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_ENUM, "oper= 27");
    Reports().clear();
    // A face group as the source of a face operation other than 23: code 1, no text.
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, faces(), f);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_VALUE, "");
    Reports().clear();
    // An element group of the wrong size.
    vis_Group* small = keep(NewGroup(1, SYS_ELEM, 0));
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, small, f);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_VALUE, "");
    Reports().clear();
    // A destination that is not a face group.
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, edges());
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_VALUE, "");
    Reports().clear();
    // The feature test needs a face source.
    vis_ConnectEdgeGroup(c, VIS_CGROUP_FEATURE, elems(), edges());
    ExpectOnlyReport("vis_ConnectEdgeGroup", SYS_ERROR_VALUE, "");
    EXPECT_EQ(FlagCount(f), 0);
}

TEST_F(FaceGroupTest, FaceAndEdgeGroupsNeedTheKernel)
{
    vis_ConnectDef(c, 8, 1);
    const int n[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    vis_ConnectSetTopology(c, 1, SYS_SHAPE_HEX, 0, 0, 0);
    vis_ConnectSetElemNode(c, 1, n);
    vis_Group* f = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, f);
    ExpectOnlyReport("vis_ConnectFaceGroup", SYS_ERROR_OPERATION, "ConnectKernel not called");
    EXPECT_EQ(vis_ConnectError(c), SYS_ERROR_OPERATION);
    Reports().clear();
    vis_ConnectEdgeGroup(c, VIS_CGROUP_FREE, nullptr, edges());
    ExpectOnlyReport("vis_ConnectEdgeGroup", SYS_ERROR_OPERATION, "ConnectKernel not called");
}

}  // namespace

namespace {

// The rule of free faces and of every face once, straight from the node rows: the elements at
// all corners of the face (vis_ConnectNodeElemCommon), other than the element and in the
// source.
int RuleFace(vis_Connect* c, int oper, vis_Group* source, int id, int no, vis_ConnectGroupWork*)
{
    int n = 0, pos[64], corners[64], num = 0, elems[256];
    vis_ConnectElemCorn(c, SYS_FACE, id, no, &n, pos);
    for (int k = 0; k < n; ++k) vis_ConnectIndElemNode(c, id, pos[k] - 1, &corners[k]);
    vis_ConnectNodeElemCommon(c, n, corners, &num, elems);
    int others = 0, lowest = 1;
    for (int k = 0; k < num; ++k) {
        int in = 1;
        if (source) vis_GroupGetIndex(source, elems[k], &in);
        if (elems[k] == id || !in) continue;
        ++others;
        lowest = lowest && elems[k] > id;
    }
    return others == 0 || (oper == VIS_CGROUP_EVERYONCE && lowest);
}

std::vector<std::array<int, 2>> ReferenceFaces(vis_Connect* c, int oper, vis_Group* source)
{
    std::vector<std::array<int, 2>> out;
    for (int id = 1; id <= c->numelem; ++id) {
        int flags = 1;
        if (source) vis_GroupGetIndex(source, id, &flags);
        if (!flags) continue;
        int nface = 0;
        vis_ConnectElemNum(c, SYS_FACE, id, &nface);
        for (int no = 1; no <= nface; ++no)
            if (RuleFace(c, oper, source, id, no, nullptr)) out.push_back({id, no});
    }
    return out;
}

std::vector<std::array<int, 2>> Flags(vis_Group* g)
{
    std::vector<std::array<int, 2>> out;
    for (int id = 1; id <= g->nument; ++id)
        for (int no = 1; no <= 8; ++no) {
            int flag = 0;
            vis_GroupGetEntFlag(g, id, no, &flag);
            if (flag) out.push_back({id, no});
        }
    return out;
}

TEST_F(FaceGroupTest, FreeFacesAgreeWithTheRowRuleOnAMixedMesh)
{
    // The mixed mesh of the connectivity suites: solids of four shapes, a quadratic tet, shells
    // on solid faces, a line, a point, a polygon and a polyhedron. Free faces and every face
    // once must match the rule read from the node rows, for the whole mesh and for a source
    // that leaves out the wedge and the quadrilateral.
    meshtest::Build(c);
    vis_ConnectKernel(c);
    vis_Group* some = elems();
    for (int id : {1, 3, 4, 6, 8, 9, 10}) vis_GroupSetIndex(some, id, 1);
    for (vis_Group* source : {static_cast<vis_Group*>(nullptr), some})
        for (int oper : {VIS_CGROUP_FREE, VIS_CGROUP_EVERYONCE}) {
            vis_Group* f = faces();
            vis_ConnectFaceGroup(c, oper, source, f);
            EXPECT_EQ(Flags(f), ReferenceFaces(c, oper, source)) << "oper " << oper;
        }
    // By hand for the hexahedron E1 (nodes 1 to 8): its face z = 0 (1 2 3 4) is the pyramid's
    // base, x = 1 (2 3 7 6) a face of the wedge, y = 0 (1 2 6 5) the quadrilateral E5, and
    // x = 0 (1 4 8 5) lies in the polygon E9, whose list names all four corners. z = 1
    // (5 6 7 8) and y = 1 (3 4 8 7) have no other element at all their corners (the tet holds
    // 5 6 8 without 7, the polygon 4 8 without 3 and 7): 2 free faces.
    vis_Group* f = faces();
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, f);
    int n = 0, last = 0;
    vis_GroupNumEntFlag(f, 1, &n, &last);
    EXPECT_EQ(n, 2);
}

TEST_F(FaceGroupTest, FreeFacesAgreeWithTheRowRuleOnBlocksOfSolids)
{
    // A block of 4 x 3 x 2 hexahedra, whole and with every third element left out of the
    // source (so that faces between a member and a non-member become free).
    Block(c, 4, 3, 2);
    vis_Group* src = elems();
    for (int id = 1; id <= c->numelem; ++id) vis_GroupSetIndex(src, id, id % 3 != 0);
    for (vis_Group* source : {static_cast<vis_Group*>(nullptr), src})
        for (int oper : {VIS_CGROUP_FREE, VIS_CGROUP_EVERYONCE}) {
            vis_Group* f = faces();
            vis_ConnectFaceGroup(c, oper, source, f);
            EXPECT_EQ(Flags(f), ReferenceFaces(c, oper, source)) << "oper " << oper;
        }
}

}  // namespace

namespace {

TEST_F(FaceGroupTest, KernelMatchesHonourAGroup)
{
    // A row of three hexahedra; the plane x = 1 between elements 1 and 2 has the nodes
    // (1, j, k) for j, k in {0, 1}. Its face is held by 1 and 2; with a group of {1, 3} no
    // other element of the group holds it, with {2} element 2 does. The edge on that plane at
    // k = 0 is held by 1 and 2 as well.
    Block(c, 3, 1, 1);
    const int corners[4] = {BlockNode(3, 1, 1, 0, 0), BlockNode(3, 1, 1, 1, 0), BlockNode(3, 1, 1, 1, 1),
                            BlockNode(3, 1, 1, 0, 1)};
    vis_Group* odd = elems();
    vis_GroupSetIndex(odd, 1, 1);
    vis_GroupSetIndex(odd, 3, 1);
    vis_Group* two = elems();
    vis_GroupSetIndex(two, 2, 1);
    int num = -1, found[8];
    vis_Connect_FaceElems(c, odd, 1, SYS_SHAPE_QUAD, 4, corners, &num, found);
    EXPECT_EQ(num, 0);
    vis_Connect_FaceElems(c, two, 1, SYS_SHAPE_QUAD, 4, corners, &num, found);
    ASSERT_EQ(num, 1);
    EXPECT_EQ(found[0], 2);
    vis_Connect_EdgeElems(c, odd, 1, corners, &num, found);
    EXPECT_EQ(num, 0);
    vis_Connect_EdgeElems(c, nullptr, 1, corners, &num, found);
    ASSERT_EQ(num, 1);
    EXPECT_EQ(found[0], 2);
}

}  // namespace

namespace {

TEST_F(FaceGroupTest, DynamicModeGivesTheSameFacesAsStaticMode)
{
    // A block of 3 x 2 x 2 hexahedra built in dynamic mode (node lists kept current, the
    // general path of the matches) against the rule read from the rows, as in static mode:
    // 32 free faces (2 (3 * 2 + 2 * 2 + 3 * 2)), and 12 * 6 - 20 shared = 52 faces once (the
    // inner faces: 2 * 2 * 2 across x, 3 * 1 * 2 across y, 3 * 2 * 1 across z, 8 + 6 + 6 = 20).
    Block(c, 3, 2, 2, 1);
    EXPECT_EQ(faceOper(VIS_CGROUP_FREE, nullptr), 32);
    EXPECT_EQ(faceOper(VIS_CGROUP_EVERYONCE, nullptr), 52);
    for (int oper : {VIS_CGROUP_FREE, VIS_CGROUP_EVERYONCE}) {
        vis_Group* f = faces();
        vis_ConnectFaceGroup(c, oper, nullptr, f);
        EXPECT_EQ(Flags(f), ReferenceFaces(c, oper, nullptr)) << "oper " << oper;
        EXPECT_GT(FlagCount(f), 0);
    }
    ExpectNoReport();
}

}  // namespace

// The scan's plain C form, built by FreeScanScalar.cpp.
void vis_Connect_FreeScanScalar(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest,
                                vis_ConnectFaceTest general, vis_ConnectGroupWork* w);

namespace {

// A block of nx x ny x nz cells in layers along z: layer k % 3 == 0 of hexahedra, 1 of two
// wedges per cell (split by the diagonal from corner 0 to corner 2 of its bottom face), 2 of six
// tetrahedra per cell around the diagonal from corner 0 to corner 6. Every cell face is split
// by the diagonal from its lowest to its highest corner, so the wedges and the tetrahedra meet
// face to face; a hexahedron holds all three corners of each triangle on its top face, which
// makes those triangles shared and its own top quadrilateral free by the corner rule. The
// interior nodes of a tetrahedral layer are in 24 elements, more than one eight-entry read.
void LayeredBlock(vis_Connect* c, int nx, int ny, int nz)
{
    static const int wedges[2][6] = {{0, 1, 2, 4, 5, 6}, {0, 2, 3, 4, 6, 7}};
    static const int tets[6][4] = {{0, 1, 2, 6}, {0, 2, 3, 6}, {0, 3, 7, 6},
                                   {0, 7, 4, 6}, {0, 4, 5, 6}, {0, 5, 1, 6}};
    int numelem = 0;
    for (int k = 0; k < nz; ++k) numelem += nx * ny * (k % 3 == 0 ? 1 : k % 3 == 1 ? 2 : 6);
    vis_ConnectDef(c, (nx + 1) * (ny + 1) * (nz + 1), numelem);
    BlockNodes(c, nx, ny, nz);
    int id = 0;
    for (int k = 0; k < nz; ++k)
        for (int j = 0; j < ny; ++j)
            for (int i = 0; i < nx; ++i) {
                int h[8];
                BlockCell(nx, ny, i, j, k, h);
                if (k % 3 == 0) {
                    vis_ConnectSetTopology(c, ++id, SYS_SHAPE_HEX, 0, 0, 0);
                    vis_ConnectSetElemNode(c, id, h);
                } else if (k % 3 == 1) {
                    for (const auto& w : wedges) {
                        const int n[6] = {h[w[0]], h[w[1]], h[w[2]], h[w[3]], h[w[4]], h[w[5]]};
                        vis_ConnectSetTopology(c, ++id, SYS_SHAPE_WED, 0, 0, 0);
                        vis_ConnectSetElemNode(c, id, n);
                    }
                } else {
                    for (const auto& t : tets) {
                        const int n[4] = {h[t[0]], h[t[1]], h[t[2]], h[t[3]]};
                        vis_ConnectSetTopology(c, ++id, SYS_SHAPE_TET, 0, 0, 0);
                        vis_ConnectSetElemNode(c, id, n);
                    }
                }
            }
    vis_ConnectKernel(c);
}

// Runs one build of the quick scan, as vis_ConnectFaceGroup would, into a new face group.
class FreeScanTest : public FaceGroupTest {
protected:
    using Scan = void (*)(vis_Connect*, int, vis_Group*, vis_Group*, vis_ConnectFaceTest, vis_ConnectGroupWork*);
    std::vector<std::array<int, 2>> scan(Scan s, int oper, vis_Group* source)
    {
        vis_Group* f = faces();
        s(c, oper, source, f, RuleFace, nullptr);
        return Flags(f);
    }
    // Both operations, whole and with every third element left out of the source, against
    // the rule read from the rows.
    void expectRule(Scan s)
    {
        vis_Group* src = elems();
        for (int id = 1; id <= c->numelem; ++id) vis_GroupSetIndex(src, id, id % 3 != 0);
        for (vis_Group* source : {static_cast<vis_Group*>(nullptr), src})
            for (int oper : {VIS_CGROUP_FREE, VIS_CGROUP_EVERYONCE})
                EXPECT_EQ(scan(s, oper, source), ReferenceFaces(c, oper, source))
                    << "oper " << oper << (source ? " with source" : "");
    }
    // The rule on a layered block of 4 x 3 x 5 cells (rows of up to 24 elements), then on the
    // mixed mesh, whose shells, polygon and polyhedron go to the general test.
    void expectRuleOnMeshes(Scan s)
    {
        LayeredBlock(c, 4, 3, 5);
        expectRule(s);
        meshtest::Build(c);
        vis_ConnectKernel(c);
        expectRule(s);
    }
};

TEST_F(FreeScanTest, TetrahedralBlockHasTwoTrianglesPerBoundarySquare)
{
    // Three layers: hexahedra, wedges, tetrahedra, on 3 x 3 cells. Free faces by hand:
    // bottom z = 0: 9 hexahedron quadrilaterals; top z = 3: 9 squares of 2 triangles = 18; each
    // of the 4 sides has 3 squares per layer: a quadrilateral in the hexahedron layer, one
    // wedge quadrilateral face per square in the wedge layer, 2 triangles in the tetrahedron
    // layer, so 3 * (1 + 1 + 2) = 12 per side, 48 in all; between the hexahedra and the wedges
    // the 9 hexahedron tops are free (no wedge holds all four corners), and the 18 wedge
    // bottoms are not (the hexahedron below holds their three corners). 9 + 18 + 48 + 9 = 84.
    LayeredBlock(c, 3, 3, 3);
    ASSERT_EQ(c->numelem, 9 + 18 + 54);
    int longest = 0;
    vis_ConnectMaxNodeElem(c, &longest);
    EXPECT_GT(longest, 8);
    EXPECT_EQ(scan(vis_Connect_FreeScanBase, VIS_CGROUP_FREE, nullptr).size(), 84u);
    EXPECT_EQ(faceOper(VIS_CGROUP_FREE, nullptr), 84);
}

TEST_F(FreeScanTest, BaselineScanFollowsTheRowRule)
{
    expectRuleOnMeshes(vis_Connect_FreeScanBase);
}

TEST_F(FreeScanTest, PlainScanFollowsTheRowRule)
{
    expectRuleOnMeshes(vis_Connect_FreeScanScalar);
}

TEST_F(FreeScanTest, Avx2ScanFollowsTheRowRule)
{
    if (!vis_Connect_FreeScanHasAvx2()) GTEST_SKIP() << "no AVX2 build of the scan, or no AVX2 on this processor";
    expectRuleOnMeshes(vis_Connect_FreeScanAvx2);
}

}  // namespace
