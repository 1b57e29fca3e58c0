// vis_SDRCLwt: nodes and elements of every shape and order the element table maps, written by
// hand from the dataset rules; units codes; the two options; the frame's failures.
#include "SDRCLwtTestSupport.h"
#include "vis_ConnectWrite.h"
#include "vis_LCase.h"
#include "vis_RCase.h"
#include "vis_Units.h"

using namespace nastest;
using namespace sdrctest;
using namespace vsytest;

namespace {

class SDRCLwtTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (model) vis_ModelDelete(model);
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    void Use(vis_Connect* connect)
    {
        c = connect;
        model = vis_ModelNew();
        vis_ModelSetObject(model, SYS_CONNECT, c);
    }
    vis_Connect* c = nullptr;
    vis_Model* model = nullptr;
};

// Twenty nodes (i, 0, 0) with user ids 100 + i; each element lists nodes 1, 2, ... in order, so
// position p of a list prints as id 101 + p.
struct Shape {
    int shape, maxi, maxj, featype, feaspec, featwod;
};
vis_Connect* ShapeMesh(const std::vector<Shape>& shapes)
{
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 20; ++i) nodes.push_back({{double(i), 0, 0}, 100 + i, 1, 0});
    std::vector<MeshElem> elems;
    for (size_t e = 0; e < shapes.size(); ++e) {
        const Shape& s = shapes[e];
        int n = 0;
        vis_ElemNum(s.shape, s.maxi, s.maxj, 0, &n);
        std::vector<int> list;
        for (int i = 1; i <= n; ++i) list.push_back(i);
        MeshElem m{s.shape, s.maxi, s.maxj, s.featype, 7, int(e) + 1, list};
        m.feaspec = s.feaspec;
        m.featwod = s.featwod;
        elems.push_back(m);
    }
    vis_Connect* c = BuildMesh(nodes, elems);
    for (size_t e = 1; e <= shapes.size(); ++e) vis_ConnectSetElemAssoc(c, 1, int(e), 3);
    return c;
}

// The record: id, descriptor, property 7, material (3, or 0 in the rigid rows), colour 1, count.
std::string Rec(int id, int descriptor, int material, int count)
{
    return I10s({id, descriptor, 7, material, 1, count});
}
// The node lines of the positions given, eight to a line, the last line closed.
std::string Lines(std::initializer_list<int> positions)
{
    std::string s;
    int i = 0;
    for (int p : positions) {
        s += I10(p < 0 ? 0 : 101 + p);
        if (++i % 8 == 0) s += "\n";
    }
    if (i % 8 != 0) s += "\n";
    return s;
}

TEST_F(SDRCLwtTest, EveryShapeAndOrderOfTheTable)
{
    const int kMask1 = 1 << 17;  // edge 1 of a quadrilateral has no midside node
    Use(ShapeMesh({{SYS_SHAPE_POINT, 0, 0, 13, 0, 0},   // 1  181
                   {SYS_SHAPE_POINT, 2, 0, 10, 2, 0},   // 2  121
                   {SYS_SHAPE_POINT, 9, 0, 10, 0, 0},   // 3  122
                   {SYS_SHAPE_LINE, 0, 0, 4, 0, 0},     // 4  21
                   {SYS_SHAPE_LINE, 0, 0, 9, 0, 0},     // 5  136
                   {SYS_SHAPE_LINE, 0, 0, 2, 0, 3},     // 6  171
                   {SYS_SHAPE_LINE, 0, 0, 2, 0, 2},     // 7  nothing
                   {SYS_SHAPE_LINE, 3, 0, 5, 0, 0},     // 8  24
                   {SYS_SHAPE_LINE, 3, 0, 2, 0, 3},     // 9  172
                   {SYS_SHAPE_TRI, 0, 0, 1, 0, 3},      // 10 81
                   {SYS_SHAPE_TRI, 0, 0, 1, 0, 1},      // 11 51
                   {SYS_SHAPE_TRI, 0, 0, 1, 0, 2},      // 12 41
                   {SYS_SHAPE_TRI, 0, 0, 2, 0, 0},      // 13 91
                   {SYS_SHAPE_TRI, 3, 0, 1, 0, 0},      // 14 42
                   {SYS_SHAPE_TRI, 3, 0, 2, 0, 0},      // 15 92
                   {SYS_SHAPE_QUAD, 0, 0, 1, 0, 3},     // 16 84
                   {SYS_SHAPE_QUAD, 0, 0, 3, 0, 0},     // 17 94
                   {SYS_SHAPE_QUAD, 3, 0, 1, 0, 1},     // 18 55
                   {SYS_SHAPE_QUAD, 3, 0, 2, 0, 0},     // 19 95
                   {SYS_SHAPE_TET, 0, 0, 1, 0, 0},      // 20 111
                   {SYS_SHAPE_TET, 3, 0, 1, 0, 0},      // 21 118
                   {SYS_SHAPE_PYR, 0, 0, 1, 0, 0},      // 22 119
                   {SYS_SHAPE_PYR, 3, 0, 1, 0, 0},      // 23 120
                   {SYS_SHAPE_WED, 0, 0, 1, 0, 0},      // 24 112
                   {SYS_SHAPE_WED, 3, 0, 1, 0, 0},      // 25 113
                   {SYS_SHAPE_HEX, 0, 0, 1, 0, 0},      // 26 115
                   {SYS_SHAPE_HEX, 3, 0, 1, 0, 0},      // 27 116
                   {SYS_SHAPE_QUAD, 3, kMask1, 2, 0, 0}, // 28 95 with a 0
                   {SYS_SHAPE_QUAD, 3, 3, 2, 0, 0},     // 29 Lagrange: nothing
                   {SYS_SHAPE_TRI, 0, 0, 0, 0, 0}}));   // 30 featype 0: nothing
    std::string want = Open(2412);
    want += Rec(1, 181, 3, 1) + Lines({0});
    want += Rec(2, 121, 0, 2) + Lines({0, 1});
    want += Rec(3, 122, 0, 9) + Lines({0, 1, 2, 3, 4, 5, 6, 7, 8});
    want += Rec(4, 21, 3, 2) + I10s({0, 1, 1}) + Lines({0, 1});
    want += Rec(5, 136, 3, 2) + Lines({0, 1});
    want += Rec(6, 171, 3, 2) + Lines({0, 1});
    want += Rec(8, 24, 3, 3) + I10s({0, 1, 1}) + Lines({0, 1, 2});
    want += Rec(9, 172, 3, 3) + Lines({0, 1, 2});
    want += Rec(10, 81, 3, 3) + Lines({0, 1, 2});
    want += Rec(11, 51, 3, 3) + Lines({0, 1, 2});
    want += Rec(12, 41, 3, 3) + Lines({0, 1, 2});
    want += Rec(13, 91, 3, 3) + Lines({0, 1, 2});
    want += Rec(14, 42, 3, 6) + Lines({0, 3, 1, 4, 2, 5});
    want += Rec(15, 92, 3, 6) + Lines({0, 3, 1, 4, 2, 5});
    want += Rec(16, 84, 3, 4) + Lines({0, 1, 2, 3});
    want += Rec(17, 94, 3, 4) + Lines({0, 1, 2, 3});
    want += Rec(18, 55, 3, 8) + Lines({0, 4, 1, 5, 2, 6, 3, 7});
    want += Rec(19, 95, 3, 8) + Lines({0, 4, 1, 5, 2, 6, 3, 7});
    want += Rec(20, 111, 3, 4) + Lines({0, 1, 3, 2});
    want += Rec(21, 118, 3, 10) + Lines({0, 4, 1, 8, 3, 7, 6, 5, 9, 2});
    want += Rec(22, 119, 3, 5) + Lines({0, 1, 2, 3, 4});
    want += Rec(23, 120, 3, 13) + Lines({0, 5, 1, 6, 2, 7, 3, 8, 9, 10, 11, 12, 4});
    want += Rec(24, 112, 3, 6) + Lines({3, 4, 5, 0, 1, 2});
    want += Rec(25, 113, 3, 15) + Lines({3, 9, 4, 10, 5, 11, 12, 13, 14, 0, 6, 1, 7, 2, 8});
    want += Rec(26, 115, 3, 8) + Lines({4, 5, 6, 7, 0, 1, 2, 3});
    want += Rec(27, 116, 3, 20) + Lines({4, 12, 5, 13, 6, 14, 7, 15, 16, 17, 18, 19, 0, 8, 1, 9, 2, 10, 3, 11});
    // Element 28 stores seven nodes: corners 1 to 4, then the midsides of edges 0, 2 and 3. Filled
    // up its list is 1 2 3 4 5 (0) 6 7, positions 0 1 2 3 4 - 5 6; in the order 0 4 1 5 2 6 3 7
    // that prints 101 105 102 0 103 106 104 107.
    want += Rec(28, 95, 3, 8) + I10s({101, 105, 102, 0, 103, 106, 104, 107});
    want += kFence;
    EXPECT_EQ(DatasetOf(WriteUnv(model, File("shapes.unv")), 2412), want);
    ExpectNoReport();
}

TEST_F(SDRCLwtTest, ConnectivityAloneWritesNodesAndElementsOnly)
{
    // Two nodes at (0,0,0) and (1.5,-2,0.25); node 3 of featype 0 gives no record. One beam.
    Use(BuildMesh({{{0, 0, 0}, 7, 1, 0}, {{1.5, -2, 0.25}, 8, 1, 3}, {{9, 9, 9}, 9, 0, 0}},
                  {{SYS_SHAPE_LINE, 0, 0, 4, 12, 40, {1, 2}}}));
    const std::string zero = E25("0", 0);
    std::string want = Open(2411);
    want += I10s({7, 0, 0, 1}) + zero + zero + zero + "\n";
    want += I10s({8, 0, 3, 1}) + E25("1.5", 0) + E25("-2", 0) + E25("2.5", -1) + "\n";
    want += kFence + Open(2412) + I10s({40, 21, 12, 0, 1, 2}) + I10s({0, 1, 1}) + I10s({7, 8}) + kFence;
    EXPECT_EQ(WriteUnv(model, File("a.unv")), want);
    // The same through the dispatcher's code 14.
    const std::string path = File("b.unv");
    vis_ConnectWrite(c, 14, path.c_str());
    ExpectNoReport();
    EXPECT_EQ(ReadFile(path), want);
}

TEST_F(SDRCLwtTest, WedgeListsItsFarTriangleFirst)
{
    // A wedge of nodes 1 to 6 is descriptor 112 with the nodes 4, 5, 6, then 1, 2, 3.
    Use(ShapeMesh({{SYS_SHAPE_WED, 0, 0, 1, 0, 0}}));
    EXPECT_EQ(DatasetOf(WriteUnv(model, File("w.unv")), 2412),
              Open(2412) + Rec(1, 112, 3, 6) + I10s({104, 105, 106, 101, 102, 103}) + kFence);
}

TEST_F(SDRCLwtTest, TheTwoOptionsLeaveOutNodesOrElements)
{
    Use(ShapeMesh({{SYS_SHAPE_TRI, 0, 0, 2, 0, 0}}));
    vis_SDRCLwt* w = vis_SDRCLwtNew();
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->nodes, 1);
    EXPECT_EQ(w->elems, 1);
    w->nodes = 0;
    const std::string path = File("o.unv");
    vis_SDRCLwtWriteModel(w, model, path.c_str());
    EXPECT_EQ(ReadFile(path), Open(2412) + Rec(1, 91, 3, 3) + Lines({0, 1, 2}) + kFence);
    w->nodes = 1;
    w->elems = 0;
    vis_SDRCLwtWriteModel(w, model, path.c_str());
    EXPECT_EQ(DatasetOf(ReadFile(path), 2412), "(no dataset)");
    EXPECT_NE(DatasetOf(ReadFile(path), 2411), "(no dataset)");
    EXPECT_EQ(vis_SDRCLwtError(w), 0);
    vis_SDRCLwtDelete(w);
}

// The first record of dataset 164 for a units object: code, 20 blanks, temperature mode.
std::string UnitsLine(vis_Model* model, const std::string& path)
{
    const std::string set = DatasetOf(WriteUnv(model, path), 164);
    const size_t at = Open(164).size();
    return set.size() > at + 40 ? set.substr(at, 41) : set;
}

TEST_F(SDRCLwtTest, UnitsCodes)
{
    Use(ShapeMesh({}));
    vis_Units* u = vis_UnitsNew();
    vis_ModelSetObject(model, SYS_UNITS, u);
    // SI: m and kg give 1; kelvin is absolute, mode 1. Factors 1 / 1, (1 / 1)(1 / 1), 1 / 1 and
    // the offset 0.
    const std::string one = E25("1", 0);
    EXPECT_EQ(DatasetOf(WriteUnv(model, File("si.unv")), 164),
              Open(164) + I10(1) + std::string(20, ' ') + I10(1) + "\n" + one + one + one + "\n" + E25("0", 0) + "\n" +
                  kFence);
    // mm and t: 10; mm and kg: 5; cm and kg: 6; in and lbf s^2/in (175.127 kg): 7.
    const int pairs[4][3] = {{3, 3, 10}, {3, 1, 5}, {2, 1, 6}, {4, 6, 7}};
    for (const auto& p : pairs) {
        vis_UnitsSetConv(u, VIS_UNITS_LENGTH, p[0]);
        vis_UnitsSetConv(u, VIS_UNITS_MASS, p[1]);
        EXPECT_EQ(UnitsLine(model, File("u.unv")), I10(p[2]) + std::string(20, ' ') + I10(1) + "\n") << p[2];
    }
    // An unknown pair, ft and kg, is 9; Celsius is relative, mode 2.
    vis_UnitsSetConv(u, VIS_UNITS_LENGTH, 5);
    vis_UnitsSetConv(u, VIS_UNITS_MASS, 1);
    vis_UnitsSetConv(u, VIS_UNITS_TEMPERATURE, 2);
    EXPECT_EQ(UnitsLine(model, File("u.unv")), I10(9) + std::string(20, ' ') + I10(2) + "\n");
    vis_UnitsDelete(u);
    ExpectNoReport();
}

TEST_F(SDRCLwtTest, EdgePressuresTriangularFacesAndTemperatureRestraints)
{
    // A shell triangle (id 1) and a tetrahedron (id 2) over nodes 101 to 104.
    Use(ShapeMesh({{SYS_SHAPE_TRI, 0, 0, 2, 0, 0}, {SYS_SHAPE_TET, 0, 0, 1, 0, 0}}));
    vis_LCase* lc = vis_LCaseNew();
    const double edge[2] = {5, 6}, face[4] = {7, 8, 9, 10};
    vis_LCaseSetDistdv(lc, SYS_EDGE, 1, 2, 2, edge);
    vis_LCaseSetDistdv(lc, SYS_FACE, 2, 1, 2, face);
    vis_RCase* rc = vis_RCaseNew();
    vis_RCaseSetSPCdv(rc, 2, 7, 2, 300.0);
    vsy_HashTable* lt = vsy_HashTableNew();
    vsy_HashTable* rt = vsy_HashTableNew();
    vsy_HashTableInsert(lt, 4, lc);
    vsy_HashTableInsert(rt, 9, rc);
    vis_ModelSetHashTable(model, SYS_LCASE, lt);
    vis_ModelSetHashTable(model, SYS_RCASE, rt);
    const std::string file = WriteUnv(model, File("l.unv"));
    // Face 1 of the tetrahedron is a triangle: three of its four values. Form 2 comes before the
    // edge pressures of form 4; each record ends with the time variation 0.
    std::string want = Open(790) + I10s({4, 2}) + "LOAD SET 4\n" + I10s({2, 1, 1, 3}) + E25("7", 0) + E25("8", 0) +
                       E25("9", 0) + "\n" + I10s({0}) + kFence;
    want += Open(790) + I10s({4, 4}) + "LOAD SET 4\n" + I10s({1, 1, 2, 2}) + E25("5", 0) + E25("6", 0) + "\n" +
            I10s({0}) + kFence;
    // Temperature (tag 7) is the case's only tag: kind 2, node 102 with its value 300.
    want += Open(791) + I10s({9, 2}) + "RESTRAINT SET 9\n" + I10s({102, 2, 0}) + E25("3", 2) + "\n" + kFence;
    const size_t at = file.find(Open(790));
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(file.substr(at), want);
    ExpectNoReport();
    vsy_HashTableDelete(lt);
    vsy_HashTableDelete(rt);
    vis_LCaseDelete(lc);
    vis_RCaseDelete(rc);
}

TEST_F(SDRCLwtTest, FrameFailuresAndCreation)
{
    vis_SDRCLwt* w = vis_SDRCLwtNew();
    const std::string bad = dir + "/missing/x.unv";
    vis_SDRCLwtWriteModel(w, nullptr, bad.c_str());
    ExpectOnlyReport("vis_SDRCLwtWriteModel", 6, "path= " + bad);
    EXPECT_EQ(vis_SDRCLwtError(w), 6);
    EXPECT_EQ(vis_SDRCLwtError(w), 0);
    Reports().clear();
    model = vis_ModelNew();
    vis_SDRCLwtWriteModel(w, model, File("g.unv").c_str());
    ExpectOnlyReport("vis_SDRCLwtWriteModel", 5, "GridFun");
    EXPECT_EQ(vis_SDRCLwtError(w), 5);
    vis_SDRCLwtDelete(w);
    EXPECT_EQ(ReadFile(dir + "/g.unv"), "");
    Reports().clear();
    FailAllocation(1);
    EXPECT_EQ(vis_SDRCLwtNew(), nullptr);
    RestoreAllocation();
    ExpectOnlyReport("SDRCLwt", 4, "Creation Failure");
}

}  // namespace
