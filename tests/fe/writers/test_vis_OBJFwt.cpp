// vis_OBJFwt: vertices, points, lines, normals and faces written by hand from the format's
// lines; an OBJ of solids only is empty.
#include "FacetTestSupport.h"
#include "vis_ConnectWrite.h"
#include "vis_ElemDat.h"

using namespace nastest;
using namespace facettest;
using namespace vsytest;

namespace {

class OBJFwtTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
};

// "v %e %e %e\n" of a node.
std::string V(const std::string& x, const std::string& y, const std::string& z)
{
    return "v " + x + " " + y + " " + z + "\n";
}
const std::string kZero = "0.000000e+00", kOne = "1.000000e+00", kTwo = "2.000000e+00";

// Nodes 1 (0,0,0) 2 (1,0,0) 3 (1,1,0) 4 (0,1,0) 5 (2,0,0) 6 (0,0,1), the last under featype 0.
// E1 quadrilateral 1 2 3 4, E2 triangle 2 5 3, E3 line 1 6 (not a face), E4 triangle 1 2 4 of
// featype 0 (not taken).
vis_Connect* Plate()
{
    return BuildMesh({{{0, 0, 0}, 1, 1, 0}, {{1, 0, 0}, 2, 1, 0}, {{1, 1, 0}, 3, 1, 0}, {{0, 1, 0}, 4, 1, 0},
                      {{2, 0, 0}, 5, 1, 0}, {{0, 0, 1}, 6, 0, 0}},
                     {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 11, {1, 2, 3, 4}},
                      {SYS_SHAPE_TRI, 0, 0, 2, 1, 12, {2, 5, 3}},
                      {SYS_SHAPE_LINE, 0, 0, 4, 1, 13, {1, 6}},
                      {SYS_SHAPE_TRI, 0, 0, 0, 1, 14, {1, 2, 4}}});
}

// Every node in index order, also node 6 of featype 0: vertex numbers are node indices.
std::string PlateVertices()
{
    return "# vertices\n" + V(kZero, kZero, kZero) + V(kOne, kZero, kZero) + V(kOne, kOne, kZero) +
           V(kZero, kOne, kZero) + V(kTwo, kZero, kZero) + V(kZero, kZero, kOne);
}

TEST_F(OBJFwtTest, VerticesAndFaces)
{
    c = Plate();
    // A quadrilateral is one face of its four corners; node indices, not user ids.
    EXPECT_EQ(WriteObj(c, File("a.obj")), PlateVertices() + "# faces\nf 1 2 3 4\nf 2 5 3\n");
    ExpectNoReport();
}

TEST_F(OBJFwtTest, PointsAndLines)
{
    c = Plate();
    vis_ConnectSetNodeAssoc(c, 17, 5, 1);
    vis_ConnectSetNodeAssoc(c, 33, 2, 4);
    // Edge 2 of E1 runs from corner 1 to 2, nodes 2 and 3; edge 4 from corner 3 to 0, nodes 4
    // and 1. Edge 3 of E2 runs from corner 2 to 0, nodes 3 and 2.
    vis_ConnectSetElemEntAssoc(c, 16, SYS_EDGE, 1, 2, 1);
    vis_ConnectSetElemEntAssoc(c, 34, SYS_EDGE, 1, 4, 7);
    vis_ConnectSetElemEntAssoc(c, 16, SYS_EDGE, 2, 3, 1);
    // Points in node order: 2, then 5.
    const std::string want =
        PlateVertices() + "p 2\np 5\n# faces\nl 2 3\nl 4 1\nf 1 2 3 4\nl 3 2\nf 2 5 3\n";
    EXPECT_EQ(WriteObj(c, File("b.obj")), want);
    ExpectNoReport();
}

TEST_F(OBJFwtTest, FaceNormalsOfTheConnectivity)
{
    c = Plate();
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(c, gf);
    vis_ElemDat* ed = vis_ElemDatNew();
    vis_ElemDatDef(ed, 4, 0, 3);
    vis_ElemDatSetParami(ed, VIS_ELEMDAT_ENTITY, SYS_FACE);
    vis_ElemDatSetObject(ed, SYS_GRIDFUN, gf);
    // Normals on E2 only, one per corner: (0,0,1), (0,0.5,-1), (1,0,0). E1 keeps its plain face.
    const double vn[9] = {0, 0, 1, 0, 0.5, -1, 1, 0, 0};
    vis_ElemDatSetEntdv(ed, 2, 1, vn);
    ASSERT_EQ(vis_ElemDatError(ed), 0);
    c->elemnorm = ed;
    // "vn %f %f %f\n" per corner, then " %d//%d" with the vertex and the normal's running number.
    const std::string want = PlateVertices() +
                             "# faces\nf 1 2 3 4\n"
                             "vn 0.000000 0.000000 1.000000\nvn 0.000000 0.500000 -1.000000\n"
                             "vn 1.000000 0.000000 0.000000\nf 2//1 5//2 3//3\n";
    EXPECT_EQ(WriteObj(c, File("c.obj")), want);
    c->elemnorm = nullptr;
    vis_ElemDatDelete(ed);
    vis_GridFunDelete(gf);
}

TEST_F(OBJFwtTest, LagrangeAndSecondOrderFacesUseTheirFirstNodes)
{
    // A nine-node Lagrange quadrilateral (maxj 3) is taken by OBJ, unlike STL, with the first four
    // entries of its list; a six-node triangle with its first three.
    std::vector<MeshNode> nodes;
    for (int i = 0; i < 9; ++i) nodes.push_back({{double(i % 3), double(i / 3), 0}, i + 1, 1, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_QUAD, 3, 3, 2, 1, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9}},
                          {SYS_SHAPE_TRI, 3, 0, 2, 1, 2, {9, 7, 3, 8, 5, 6}}});
    const std::string text = WriteObj(c, File("d.obj"));
    const size_t at = text.find("# faces\n");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(text.substr(at), "# faces\nf 1 2 3 4\nf 9 7 3\n");
}

TEST_F(OBJFwtTest, HexahedralMeshHasNoFaces)
{
    std::vector<MeshNode> nodes;
    for (int i = 0; i < 8; ++i) nodes.push_back({{double(i & 1), double((i >> 1) & 1), double(i >> 2)}, i + 1, 1, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, {1, 2, 4, 3, 5, 6, 8, 7}}});
    const std::string path = File("e.obj");
    // The file is made, and stays empty: no element has the shape, so nothing at all is written.
    EXPECT_EQ(WriteObj(c, path), "");
}

TEST_F(OBJFwtTest, FrameFailuresAndCreation)
{
    vis_OBJFwt* obj = vis_OBJFwtNew();
    ASSERT_NE(obj, nullptr);
    const std::string bad = dir + "/missing/x.obj";
    vis_OBJFwtWriteModel(obj, nullptr, bad.c_str());
    ExpectOnlyReport("vis_OBJFwtWriteModel", 6, "path= " + bad);
    EXPECT_EQ(vis_OBJFwtError(obj), 6);
    Reports().clear();
    vis_OBJFwtWriteModel(obj, nullptr, File("f.obj").c_str());
    ExpectOnlyReport("vis_OBJFwtWriteModel", 5, "Model");
    vis_OBJFwtDelete(obj);
    Reports().clear();
    vis_OBJFwtWriteModel(nullptr, nullptr, "x");
    ExpectOnlyReport("vis_OBJFwtWriteModel", 5, "OBJFwt");
    Reports().clear();
    FailAllocation(1);
    EXPECT_EQ(vis_OBJFwtNew(), nullptr);
    RestoreAllocation();
    ExpectOnlyReport("OBJFwt", 4, "Creation Failure");
}

TEST_F(OBJFwtTest, ConnectWriteCode41)
{
    c = Plate();
    const std::string path = File("g.obj");
    vis_ConnectWrite(c, 41, path.c_str());
    ExpectNoReport();
    EXPECT_EQ(ReadFile(path), PlateVertices() + "# faces\nf 1 2 3 4\nf 2 5 3\n");
}

}  // namespace
