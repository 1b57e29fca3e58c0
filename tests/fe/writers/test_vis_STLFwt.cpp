// vis_STLFwt: text and binary facets written by hand from the format's lines, the facet
// selection, the split of a quadrilateral along its shorter diagonal and the frame's failures.
#include "FacetTestSupport.h"
#include "vis_ConnectWrite.h"

#include <cstdint>
#include <cstring>

using namespace nastest;
using namespace facettest;
using namespace vsytest;

namespace {

class STLFwtTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
};

const std::string kZero = "0.000000e+00", kOne = "1.000000e+00", kTwo = "2.000000e+00", kThree = "3.000000e+00";
const std::string kUp = "0.000000 0.000000 1.000000";

TEST_F(STLFwtTest, TriangleAndBothQuadSplits)
{
    // E1 triangle (0,0,0) (1,0,0) (0,1,0): normal (1,0,0) x (0,1,0) = (0,0,1).
    // E2 quadrilateral (0,0,0) (2,0,0) (2,1,0) (0,1,0): d02 = d13 = sqrt 5, so d13 <= d02 and the
    //    facets are (0,1,3) and (1,2,3).
    // E3 quadrilateral (0,0,0) (3,0,0) (1,1,0) (0,1,0): d02 = sqrt 2 below d13 = sqrt 10, so the
    //    facets are (0,1,2) and (0,2,3).
    // Every normal is a positive multiple of z. The cross products have only +0 terms here:
    // e.g. facet (1,2,3) of E2: a = (0,1,0), b = (-2,1,0), n = (1*0 - 0*1, 0*(-2) - 0*0, 0*1 - 1*(-2))
    // where 0*(-2) is -0 and -0 - 0 is -0: its y reads "-0.000000".
    c = BuildMesh({{{0, 0, 0}, 1, 1, 0}, {{1, 0, 0}, 2, 1, 0}, {{0, 1, 0}, 3, 1, 0}, {{2, 0, 0}, 4, 1, 0},
                   {{2, 1, 0}, 5, 1, 0}, {{3, 0, 0}, 6, 1, 0}, {{1, 1, 0}, 7, 1, 0}},
                  {{SYS_SHAPE_TRI, 0, 0, 2, 1, 1, {1, 2, 3}},
                   {SYS_SHAPE_QUAD, 0, 0, 2, 1, 2, {1, 4, 5, 3}},
                   {SYS_SHAPE_QUAD, 0, 0, 2, 1, 3, {1, 6, 7, 3}}});
    const std::string p0 = kZero + " " + kZero + " " + kZero, p1 = kOne + " " + kZero + " " + kZero,
                      p3 = kZero + " " + kOne + " " + kZero, p4 = kTwo + " " + kZero + " " + kZero,
                      p5 = kTwo + " " + kOne + " " + kZero, p6 = kThree + " " + kZero + " " + kZero,
                      p7 = kOne + " " + kOne + " " + kZero;
    std::string want = "solid ascii\n";
    want += Facet(kUp, p0, p1, p3);
    want += Facet(kUp, p0, p4, p3);
    want += Facet("0.000000 -0.000000 1.000000", p4, p5, p3);
    // E3 (0,1,2): a = (3,0,0), b = (1,1,0): n = (0*0 - 0*1, 0*1 - 3*0, 3*1 - 0*1) = (0, 0, 3);
    // (0,2,3): a = (1,1,0), b = (0,1,0): n = (1*0 - 0*1, 0*0 - 1*0, 1*1 - 1*0) = (0, 0, 1).
    want += Facet(kUp, p0, p6, p7);
    want += Facet(kUp, p0, p7, p3);
    want += "endsolid\n";
    EXPECT_EQ(WriteStl(c, File("a.stl")), want);
    ExpectNoReport();
}

TEST_F(STLFwtTest, NormalScaledZeroLeftAndSinglePrecision)
{
    // E1 (0,0,0) (2,0,0) (0,0,3): n = (0*3 - 0*0, 0*0 - 2*3, 2*0 - 0*0) = (0,-6,0), length 6.
    // E2 (0,0,0) (1,0,0) (2,0,0) lies on a line: n = 0, printed unscaled.
    // E3 (1.00000052,0,0) (0,0,0) ... : in single precision 1.00000052 is 1 + 4 * 2^-23
    // (0.00000052 / 2^-23 = 4.36, nearest 4), 1.000000477, which "%e" prints 1.000000e+00; the
    // double would print 1.000001e+00.
    c = BuildMesh({{{0, 0, 0}, 1, 1, 0}, {{2, 0, 0}, 2, 1, 0}, {{0, 0, 3}, 3, 1, 0}, {{1, 0, 0}, 4, 1, 0},
                   {{1.00000052, 0, 0}, 5, 1, 0}, {{0, 1, 0}, 6, 1, 0}},
                  {{SYS_SHAPE_TRI, 0, 0, 2, 1, 1, {1, 2, 3}},
                   {SYS_SHAPE_TRI, 0, 0, 2, 1, 2, {1, 4, 2}},
                   {SYS_SHAPE_TRI, 0, 0, 2, 1, 3, {1, 5, 6}}});
    const std::string o = kZero + " " + kZero + " " + kZero;
    std::string want = "solid ascii\n";
    want += Facet("0.000000 -1.000000 0.000000", o, kTwo + " " + kZero + " " + kZero, kZero + " " + kZero + " " + kThree);
    want += Facet("0.000000 0.000000 0.000000", o, kOne + " " + kZero + " " + kZero, kTwo + " " + kZero + " " + kZero);
    // E3: a = (1.000000477,0,0), b = (0,1,0): n = (0, 0, 1.000000477), scaled to exactly 1.
    want += Facet(kUp, o, kOne + " " + kZero + " " + kZero, kZero + " " + kOne + " " + kZero);
    want += "endsolid\n";
    EXPECT_EQ(WriteStl(c, File("b.stl")), want);
}

TEST_F(STLFwtTest, SelectionOfElements)
{
    // Taken: the six-node triangle (its first three nodes only). Not taken: a triangle of
    // featype 0, a Lagrange quadrilateral (maxj 3), a quadrilateral of maxi 4, a line, a
    // tetrahedron, a point, and a three-entry polygon.
    std::vector<MeshNode> nodes;
    for (int i = 0; i < 16; ++i) nodes.push_back({{double(i % 4), double(i / 4), 0}, i + 1, 1, 0});
    std::vector<int> sixteen;
    for (int i = 1; i <= 16; ++i) sixteen.push_back(i);
    c = BuildMesh(nodes, {{SYS_SHAPE_TRI, 0, 0, 0, 1, 1, {1, 2, 5}},
                          {SYS_SHAPE_QUAD, 3, 3, 2, 1, 2, {1, 2, 3, 5, 6, 7, 9, 10, 11}},
                          {SYS_SHAPE_QUAD, 4, 0, 2, 1, 3, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}},
                          {SYS_SHAPE_TRI, 3, 0, 2, 1, 4, {6, 7, 10, 1, 2, 3}},
                          {SYS_SHAPE_LINE, 0, 0, 4, 1, 5, {1, 2}},
                          {SYS_SHAPE_TET, 0, 0, 1, 1, 6, {1, 2, 5, 16}},
                          {SYS_SHAPE_POINT, 0, 0, 13, 1, 7, {1}},
                          {SYS_SHAPE_POLYGON, 3, 2, 2, 1, 8, {1, 2, 1}}});
    // E4: nodes 6 (1,1) 7 (2,1) 10 (1,2): normal (1,0,0) x (0,1,0) = (0,0,1).
    const std::string want = "solid ascii\n" +
                             Facet(kUp, kOne + " " + kOne + " " + kZero, kTwo + " " + kOne + " " + kZero,
                                   kOne + " " + kTwo + " " + kZero) +
                             "endsolid\n";
    EXPECT_EQ(WriteStl(c, File("c.stl")), want);
}

// Appends the four bytes of a float or an integer in the machine's order.
template <class T>
void Bytes(std::string& s, T v)
{
    char b[sizeof(T)];
    std::memcpy(b, &v, sizeof(T));
    s.append(b, sizeof(T));
}

TEST_F(STLFwtTest, BinaryForm)
{
    // One quadrilateral (0,0,0) (1,0,0) (1,1,0) (0,1,0): d13 = d02, facets (0,1,3) and (1,2,3),
    // normals (0,0,1) and, as in the text test, (0,-0,1).
    c = BuildMesh({{{0, 0, 0}, 1, 1, 0}, {{1, 0, 0}, 2, 1, 0}, {{1, 1, 0}, 3, 1, 0}, {{0, 1, 0}, 4, 1, 0}},
                  {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 1, {1, 2, 3, 4}}});
    std::string want(80, '\0');
    Bytes<uint32_t>(want, 2);
    const float facets[2][12] = {{0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0}, {0, -0.0f, 1, 1, 0, 0, 1, 1, 0, 0, 1, 0}};
    for (const auto& f : facets) {
        for (float v : f) Bytes<float>(want, v);
        want.append(2, '\0');
    }
    ASSERT_EQ(want.size(), 84u + 2 * 50u);
    EXPECT_EQ(WriteStl(c, File("d.stl"), VIS_STLFWT_BINARY), want);
}

TEST_F(STLFwtTest, SolidOnlyMesh)
{
    // A hexahedron has no element of dimension 2: the binary form holds a count of 0, the text
    // form its first and last lines.
    std::vector<MeshNode> nodes;
    for (int i = 0; i < 8; ++i) nodes.push_back({{double(i & 1), double((i >> 1) & 1), double(i >> 2)}, i + 1, 1, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, {1, 2, 4, 3, 5, 6, 8, 7}}});
    EXPECT_EQ(WriteStl(c, File("e.stl"), VIS_STLFWT_BINARY), std::string(84, '\0'));
    EXPECT_EQ(WriteStl(c, File("f.stl")), "solid ascii\nendsolid\n");
}

TEST_F(STLFwtTest, FrameFailures)
{
    vis_STLFwt* stl = vis_STLFwtNew();
    ASSERT_NE(stl, nullptr);
    EXPECT_EQ(stl->form, VIS_STLFWT_TEXT);
    vis_Model* model = vis_ModelNew();
    const std::string bad = dir + "/missing/x.stl";
    vis_STLFwtWriteModel(stl, model, bad.c_str());
    ExpectOnlyReport("vis_STLFwtWriteModel", 6, "path= " + bad);
    EXPECT_EQ(vis_STLFwtError(stl), 6);
    EXPECT_EQ(vis_STLFwtError(stl), 0);
    Reports().clear();
    vis_STLFwtWriteModel(stl, model, File("g.stl").c_str());
    ExpectOnlyReport("vis_STLFwtWriteModel", 5, "GridFun");
    EXPECT_EQ(vis_STLFwtError(stl), 5);
    vis_STLFwtDelete(stl);
    vis_ModelDelete(model);
    EXPECT_EQ(ReadFile(dir + "/g.stl"), "");
}

TEST_F(STLFwtTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(vis_STLFwtNew(), nullptr);
    RestoreAllocation();
    ExpectOnlyReport("STLFwt", 4, "Creation Failure");
}

TEST_F(STLFwtTest, ConnectWriteCode11)
{
    // The dispatcher writes the text form: the triangle of the first test.
    c = BuildMesh({{{0, 0, 0}, 1, 1, 0}, {{1, 0, 0}, 2, 1, 0}, {{0, 1, 0}, 3, 1, 0}},
                  {{SYS_SHAPE_TRI, 0, 0, 2, 1, 1, {1, 2, 3}}});
    const std::string path = File("h.stl");
    vis_ConnectWrite(c, 11, path.c_str());
    ExpectNoReport();
    EXPECT_EQ(vis_ConnectError(c), 0);
    const std::string o = kZero + " " + kZero + " " + kZero;
    EXPECT_EQ(ReadFile(path), "solid ascii\n" +
                                  Facet(kUp, o, kOne + " " + kZero + " " + kZero, kZero + " " + kOne + " " + kZero) +
                                  "endsolid\n");
}

}  // namespace
