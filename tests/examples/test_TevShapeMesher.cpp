// The surface mesher of the demo host: node sharing across faces and shapes, outward triangles,
// the attributes the deck writers read, and stopping on request.
#include "TevShapeMesher.h"
#include "vis_Connect.h"
#include "vis_ElemTopology.h"

#include <BRepPrimAPI_MakeBox.hxx>
#include <gtest/gtest.h>

#include <array>

namespace {

struct Counts {
    int nodes = 0, elems = 0;
};

Counts CountsOf(vis_Connect* c)
{
    Counts n;
    vis_ConnectGetInteger(c, SYS_NODE, &n.nodes);
    vis_ConnectGetInteger(c, SYS_ELEM, &n.elems);
    return n;
}

std::array<double, 3> At(vis_Connect* c, int id)
{
    std::array<double, 3> x{};
    vis_ConnectCoordsdv(c, 1, &id, x.data());
    return x;
}

// The mesh of `shapes` has these counts.
void ExpectCounts(const std::vector<TopoDS_Shape>& shapes, int nodes, int elems)
{
    vis_Connect* c = TevShapeMesher::Mesh(shapes, 0.1);
    ASSERT_NE(c, nullptr);
    const Counts n = CountsOf(c);
    EXPECT_EQ(n.nodes, nodes);
    EXPECT_EQ(n.elems, elems);
    vis_ConnectDelete(c);
}

// A unit box's 6 planar faces take their 4 corners only: 2 triangles each, 12 on 8 corners.
TEST(ShapeMesherTest, ABoxIsTwelveTrianglesOnItsEightCorners)
{
    ExpectCounts({BRepPrimAPI_MakeBox(1, 1, 1).Shape()}, 8, 12);
}

// Two unit boxes side by side share the face x = 1 and its 4 corners: 8 + 8 - 4 = 12 nodes,
// and 12 + 12 = 24 triangles (the shared face is meshed once per box).
TEST(ShapeMesherTest, ShapesThatTouchShareTheirNodes)
{
    ExpectCounts({BRepPrimAPI_MakeBox(1, 1, 1).Shape(), BRepPrimAPI_MakeBox(gp_Pnt(1, 0, 0), 1, 1, 1).Shape()}, 12, 24);
}

// Every triangle of a box centred at (1, 1, 1) faces away from the centre: the normal by the
// right-hand rule, dotted with centroid minus centre, is positive. Faces OCCT keeps reversed
// are turned by the mesher, so this fails if they were not.
TEST(ShapeMesherTest, EveryTriangleFacesOutOfTheSolid)
{
    vis_Connect* c = TevShapeMesher::Mesh({BRepPrimAPI_MakeBox(2, 2, 2).Shape()}, 0.1);
    ASSERT_NE(c, nullptr);
    const Counts n = CountsOf(c);
    for (int e = 1; e <= n.elems; ++e) {
        int num = 0, nodes[8];
        vis_ConnectElemNode(c, e, &num, nodes);
        ASSERT_EQ(num, 3);
        const auto a = At(c, nodes[0]), b = At(c, nodes[1]), d = At(c, nodes[2]);
        const double u[3] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
        const double v[3] = {d[0] - a[0], d[1] - a[1], d[2] - a[2]};
        const double normal[3] = {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
        double out = 0.0;
        for (int k = 0; k < 3; ++k) out += normal[k] * ((a[k] + b[k] + d[k]) / 3.0 - 1.0);
        EXPECT_GT(out, 0.0) << "triangle " << e;
    }
    vis_ConnectDelete(c);
}

TEST(ShapeMesherTest, NodesAreGridPointsAndTrianglesShellsOfPropertyOne)
{
    vis_Connect* c = TevShapeMesher::Mesh({BRepPrimAPI_MakeBox(1, 1, 1).Shape()}, 0.1);
    ASSERT_NE(c, nullptr);
    int node = 1, elem = 1, featype = 0, shell = 0, prop = 0;
    vis_ConnectNodeAssoc(c, 0, 1, &node, &featype);
    vis_ConnectElemAssoc(c, 0, 1, &elem, &shell);
    vis_ConnectElemAssoc(c, 2, 1, &elem, &prop);
    EXPECT_EQ(featype, 1);
    EXPECT_EQ(shell, 2);
    EXPECT_EQ(prop, 1);
    int shape = -1, maxi = -1, maxj = -1, maxk = -1;
    vis_ConnectTopology(c, 1, &shape, &maxi, &maxj, &maxk);
    EXPECT_EQ(shape, SYS_SHAPE_TRI);
    vis_ConnectDelete(c);
}

TEST(ShapeMesherTest, AStopAfterTheFirstShapeGivesNoMesh)
{
    int calls = 0;
    vis_Connect* c = TevShapeMesher::Mesh({BRepPrimAPI_MakeBox(1, 1, 1).Shape(), BRepPrimAPI_MakeBox(2, 2, 2).Shape()},
                                          0.1, [&calls](int done, int total) {
                                              ++calls;
                                              EXPECT_EQ(done, 1);
                                              EXPECT_EQ(total, 2);
                                              return false;
                                          });
    EXPECT_EQ(c, nullptr);
    EXPECT_EQ(calls, 1);
}

}  // namespace
