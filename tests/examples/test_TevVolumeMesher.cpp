// The demo host's volume mesher: a drawn box meshed by gmsh into linear and quadratic
// tetrahedra, checked by measures worked out from the box itself, and its refusals.
#include "AnalysisTestSupport.h"
#include "TevVolumeMesh.h"
#include "TevVolumeMesher.h"
#include "vis_Connect.h"

#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepGProp.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRep_Builder.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <GProp_GProps.hxx>
#include <TopExp.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using P = std::array<double, 3>;

using analysistest::At;
using analysistest::FaceAt;
P Sub(const P& a, const P& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
P Cross(const P& a, const P& b) { return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]}; }
double Dot(const P& a, const P& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

// Volume of element e from its four corners (the first four nodes).
double TetVolume(vis_Connect* c, int e)
{
    int num = 0, nodes[10];
    vis_ConnectElemNode(c, e, &num, nodes);
    const P a = At(c, nodes[0]);
    return Dot(Cross(Sub(At(c, nodes[1]), a), Sub(At(c, nodes[2]), a)), Sub(At(c, nodes[3]), a)) / 6.0;
}

TEST(TevVolumeMesher, QuadraticOrderPutsGmshMidpointsOnTheLibraryEdges)
{
    // gmsh's midpoints 4..9 lie on edges 0-1, 1-2, 2-0, 3-0, 3-2, 3-1; the library's edges are
    // 0-1, 1-2, 2-0, 0-3, 1-3, 2-3 at positions 4..9. So 3-2 goes to 9 and 3-1 to 8.
    const std::array<int, 10> expected = {0, 1, 2, 3, 4, 5, 6, 7, 9, 8};
    EXPECT_EQ(TevVolumeMesher::QuadraticOrder(), expected);
}

TEST(TevVolumeMesher, LinearBoxFillsItsVolume)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(100.0, 10.0, 10.0).Shape();
    std::string error;
    auto mesh = TevVolumeMesher::Mesh(box, {5.0, 1}, &error);
    ASSERT_TRUE(mesh) << error;
    EXPECT_EQ(mesh->Order(), 1);
    EXPECT_EQ(mesh->FaceCount(), 6);
    double volume = 0.0;
    for (int e = 1; e <= mesh->ElementCount(); ++e) {
        const double v = TetVolume(mesh->Volume(), e);
        EXPECT_GT(v, 0.0) << "element " << e;
        volume += v;
    }
    // The box's volume: 100 * 10 * 10.
    EXPECT_NEAR(volume, 10000.0, 1e-6);
    int num = 0;
    vis_ConnectMaxElemNode(mesh->Volume(), &num);
    EXPECT_EQ(num, 4);
}

TEST(TevVolumeMesher, QuadraticBoxHasItsMidpointsHalfWayAndItsFacesOutward)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(100.0, 10.0, 10.0).Shape();
    std::string error;
    auto mesh = TevVolumeMesher::Mesh(box, {5.0, 2}, &error);
    ASSERT_TRUE(mesh) << error;
    vis_Connect* c = mesh->Volume();
    // The library's tetrahedron edges 0-1, 1-2, 2-0, 0-3, 1-3, 2-3 hold nodes 4 to 9; on the
    // flat faces of a box every midpoint lies half way between its corners.
    const int edges[6][2] = {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}};
    for (int e = 1; e <= mesh->ElementCount(); ++e) {
        int num = 0, nodes[10];
        vis_ConnectElemNode(c, e, &num, nodes);
        ASSERT_EQ(num, 10);
        for (int k = 0; k < 6; ++k) {
            const P a = At(c, nodes[edges[k][0]]), b = At(c, nodes[edges[k][1]]), m = At(c, nodes[4 + k]);
            for (int d = 0; d < 3; ++d) ASSERT_NEAR(m[d], 0.5 * (a[d] + b[d]), 1e-9) << "element " << e << " edge " << k;
        }
    }
    // The end face x = 0: every node on it, its triangles cover 10 * 10 and face -x.
    const int end = FaceAt(box, 0, 0.0);
    ASSERT_GT(end, 0);
    for (int n : mesh->FaceNodes(end)) EXPECT_NEAR(At(c, n)[0], 0.0, 1e-12) << "node " << n;
    double area = 0.0;
    for (const auto& t : mesh->FaceTriangles(end)) {
        const P a = At(c, t[0]);
        const P n = Cross(Sub(At(c, t[1]), a), Sub(At(c, t[2]), a));
        EXPECT_LT(n[0], 0.0);
        area += 0.5 * std::sqrt(Dot(n, n));
        for (int k = 3; k < 6; ++k) EXPECT_GT(t[k], 0);
    }
    EXPECT_NEAR(area, 100.0, 1e-9);
}

TEST(TevVolumeMesher, SkinHoldsTheBoundaryTriangles)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape();
    auto mesh = TevVolumeMesher::Mesh(box, {5.0, 2}, nullptr);
    ASSERT_TRUE(mesh);
    size_t triangles = 0;
    for (int f = 1; f <= mesh->FaceCount(); ++f) triangles += mesh->FaceTriangles(f).size();
    vis_Connect* skin = mesh->NewSkin();
    EXPECT_EQ(skin->numelem, static_cast<int>(triangles));
    int num = 0;
    vis_ConnectMaxElemNode(skin, &num);
    EXPECT_EQ(num, 3);
    vis_ConnectDelete(skin);
}

TEST(TevVolumeMesher, RefusesWhatIsNotASolid)
{
    const TopoDS_Shape face = BRepBuilderAPI_MakeFace(BRepBuilderAPI_MakePolygon(gp_Pnt(0, 0, 0), gp_Pnt(1, 0, 0), gp_Pnt(0, 1, 0), true).Wire()).Shape();
    std::string error;
    EXPECT_FALSE(TevVolumeMesher::Mesh(face, {1.0, 1}, &error));
    EXPECT_EQ(error, "No solid to mesh: select a solid");
    EXPECT_FALSE(TevVolumeMesher::Mesh(TopoDS_Shape(), {1.0, 1}, &error));
    EXPECT_EQ(error, "No solid to mesh: select a solid");
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(1.0, 1.0, 1.0).Shape();
    EXPECT_FALSE(TevVolumeMesher::Mesh(box, {0.0, 1}, &error));
    EXPECT_EQ(error, "The element size must be positive and the order 1 or 2");
    EXPECT_FALSE(TevVolumeMesher::Mesh(box, {1.0, 3}, &error));
}

TEST(TevVolumeMesher, CancelStopsBetweenStagesAndTheMesherStaysUsable)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape();
    std::string error;
    int calls = 0, total = 0;
    auto cancelled = TevVolumeMesher::Mesh(box, {2.0, 2}, &error, [&](int done, int all) {
        ++calls;
        total = all;
        return done < 2;
    });
    EXPECT_FALSE(cancelled);
    EXPECT_EQ(error, "Meshing cancelled");
    // Curves, then surfaces (where the answer is no): two calls of four stages.
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(total, 4);
    EXPECT_TRUE(TevVolumeMesher::Mesh(box, {5.0, 1}, &error)) << error;
}

// A solid whose shell lacks one face of a box encloses nothing: gmsh finds no closed volume to
// fill, and the mesher says so instead of stopping the program; it meshes the next solid.
TEST(TevVolumeMesher, OpenSolidFailsWithAMessage)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape();
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(box, TopAbs_FACE, faces);
    BRep_Builder builder;
    TopoDS_Shell shell;
    builder.MakeShell(shell);
    for (int i = 1; i < faces.Extent(); ++i) builder.Add(shell, faces(i));
    TopoDS_Solid solid;
    builder.MakeSolid(solid);
    builder.Add(solid, shell);
    std::string error;
    EXPECT_FALSE(TevVolumeMesher::Mesh(solid, {2.0, 1}, &error));
    EXPECT_EQ(error.rfind("The mesher", 0), 0u) << error;
    EXPECT_TRUE(TevVolumeMesher::Mesh(BRepPrimAPI_MakeBox(20.0, 10.0, 10.0).Shape(), {5.0, 1}, &error)) << error;
    EXPECT_TRUE(TevVolumeMesher::Mesh(box, {5.0, 1}, &error)) << error;
}

}  // namespace
