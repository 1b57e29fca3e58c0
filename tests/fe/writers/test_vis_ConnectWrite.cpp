// vis_ConnectWrite: the forms of the library itself, written by hand from the format rules, the
// binary native form read back by a small reader, the NASTRAN road and the codes it refuses.
#include "NASFwtTestSupport.h"
#include "vis_ConnectKernel.h"
#include "vis_ConnectWrite.h"
#include "vis_ElemDat.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_State.h"

#include <cstdint>
#include <cstring>

using namespace nastest;
using namespace vsytest;

namespace {

// Two triangles on the unit square: (1 2 3) and (1 3 4); node user ids 11 to 14.
vis_Connect* TwoTriangles()
{
    return BuildMesh({{{0, 0, 0}, 11, 0, 0}, {{1, 0, 0}, 12, 0, 0}, {{1, 1, 0}, 13, 0, 0}, {{0, 1, 0}, 14, 0, 0}},
                     {{SYS_SHAPE_TRI, 0, 0, 0, 7, 21, {1, 2, 3}}, {SYS_SHAPE_TRI, 0, 0, 0, 0, 22, {1, 3, 4}}});
}

class ConnectWriteTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
};

TEST_F(ConnectWriteTest, RefusedCodes)
{
    c = TwoTriangles();
    // 0 and codes of no form; every writer's code (13, 22, 25, 20, 14, 11, 41) and the surface
    // triangles (-7) are tested with their writers.
    for (int type : {0, 5, 12, -3}) {
        Reports().clear();
        vis_ConnectWrite(c, type, File("refused").c_str());
        ExpectOnlyReport("vis_ConnectWrite", 2, "type= " + std::to_string(type));
        EXPECT_EQ(vis_ConnectError(c), 2);
        EXPECT_EQ(ReadFile(dir + "/refused"), "(missing)");
    }
}

TEST_F(ConnectWriteTest, UnopenablePaths)
{
    c = TwoTriangles();
    const std::string bad = dir + "/missing/x";
    for (int type : {-1, -2, -16, -17}) {
        Reports().clear();
        vis_ConnectWrite(c, type, bad.c_str());
        ExpectOnlyReport("vis_ConnectWrite", 6, "pathname= " + bad);
        EXPECT_EQ(vis_ConnectError(c), 6);
    }
    // The pair reports each of its two files.
    Reports().clear();
    vis_ConnectWrite(c, -10, bad.c_str());
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[0].text, "pathname= " + bad + ".points");
    EXPECT_EQ(Reports()[1].text, "pathname= " + bad + ".faces");
    // Through the NASTRAN writer: its own report, then the dispatcher's.
    Reports().clear();
    vis_ConnectWrite(c, 18, bad.c_str());
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[0].name, "vis_NASFwtWriteModel");
    EXPECT_EQ(Reports()[0].text, "path= " + bad);
    EXPECT_EQ(Reports()[1].name, "vis_ConnectWrite");
    EXPECT_EQ(Reports()[1].code, 6);
    EXPECT_EQ(Reports()[1].text, "pathname= " + bad);
    EXPECT_EQ(vis_ConnectError(c), 6);
}

TEST_F(ConnectWriteTest, PointsAndFacesPair)
{
    c = TwoTriangles();
    const std::string base = File("a");
    files.push_back(base + ".points");
    files.push_back(base + ".faces");
    vis_ConnectWrite(c, -10, base.c_str());
    ExpectNoReport();
    // "%d\n" count, then " %e %e %e 0\n" per node: "%e" of 1 is "1.000000e+00".
    EXPECT_EQ(ReadFile(base + ".points"), "4\n"
                                          " 0.000000e+00 0.000000e+00 0.000000e+00 0\n"
                                          " 1.000000e+00 0.000000e+00 0.000000e+00 0\n"
                                          " 1.000000e+00 1.000000e+00 0.000000e+00 0\n"
                                          " 0.000000e+00 1.000000e+00 0.000000e+00 0\n");
    EXPECT_EQ(ReadFile(base + ".faces"), "2\n 3 1 2 3 0 0 0 0\n 3 1 3 4 0 0 0 0\n");
    EXPECT_EQ(ReadFile(base), "(missing)");
}

TEST_F(ConnectWriteTest, NativeTextOfEmptyMesh)
{
    c = vis_ConnectNew();
    const std::string path = File("empty.txt");
    vis_ConnectWrite(c, -1, path.c_str());
    ExpectNoReport();
    // Header 1: 1, no nodes, no elements, precision 4, the mark, 0, 0; header 2: headerflag and
    // exactface 0, six zeros; header 3: eight reals 0; then the end markers only.
    const std::string zero = "0.000000e+00";
    std::string want = "1 0 0 4 423 0 0\n0 0 0 0 0 0 0 0\n";
    for (int i = 0; i < 8; ++i) want += zero + (i < 7 ? " " : "\n");
    want += "0 0 0\n0 0\n0 0\n0 0\n0 0 0 0\n";
    EXPECT_EQ(ReadFile(path), want);
}

TEST_F(ConnectWriteTest, NativeTextWithPartsAndLongList)
{
    // A Lagrange quadrilateral of nine nodes: its list breaks after the eighth and the ninth.
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 9; ++i) nodes.push_back({{double(i), 0.5, -1.0}, i, 0, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_QUAD, 3, 3, 0, 0, 0, {1, 2, 3, 4, 5, 6, 7, 8, 9}}});
    vis_ConnectSetParami(c, VIS_CONNECT_HEADERFLAG, 5);
    vis_ConnectSetPartName(c, 3, "plate");
    vis_ConnectSetPartIJK(c, 3, 2, 4, 6);
    const std::string path = File("parts.txt");
    vis_ConnectWrite(c, -1, path.c_str());
    ExpectNoReport();
    std::string want = "1 9 1 4 423 0 0\n5 0 0 0 0 0 0 0\n";
    for (int i = 0; i < 8; ++i) want += std::string("0.000000e+00") + (i < 7 ? " " : "\n");
    // "%d %e %e %e\n": node i at (i, .5, -1).
    for (int i = 1; i <= 9; ++i)
        want += std::to_string(i) + " " + std::to_string(i) + ".000000e+00 5.000000e-01 -1.000000e+00\n";
    // id, shape 3, maxi 3, maxj 3, maxk 0, nine nodes; then "%d " each, a line feed after the
    // eighth and after the last.
    want += "1 3 3 3 0 9\n1 2 3 4 5 6 7 8 \n9 \n";
    want += "0 0 0\n0 0\n0 0\n";
    want += "3 5\nplate\n0 0\n";  // part 3, name of five characters
    want += "3 2 4 6\n0 0 0 0\n";  // its sizes
    EXPECT_EQ(ReadFile(path), want);
}

// A small reader of the binary native form: the sections in the order the format gives.
struct Reader {
    std::string bytes;
    size_t at = 0;
    bool ok = true;
    int32_t Int()
    {
        int32_t v = 0;
        if (at + 4 > bytes.size()) return ok = false, 0;
        std::memcpy(&v, bytes.data() + at, 4);
        at += 4;
        return v;
    }
    double Real(int size)
    {
        if (at + size > bytes.size()) return ok = false, 0.0;
        double d = 0.0;
        float f = 0.0f;
        if (size == 8) std::memcpy(&d, bytes.data() + at, 8);
        else std::memcpy(&f, bytes.data() + at, 4), d = f;
        at += size;
        return d;
    }
};

TEST_F(ConnectWriteTest, NativeBinaryReadBack)
{
    for (int precision : {4, 2}) {
        c = vis_ConnectNew();
        vis_ConnectPre(c, precision);
        vis_ConnectDef(c, 4, 2);
        const double x[4][3] = {{0, 0, 0}, {1.25, 0, 0}, {1.25, 0.1, 0}, {0, 0.1, -3}};
        for (int i = 0; i < 4; ++i) vis_ConnectSetCoordsdv(c, i + 1, x[i]);
        const int t1[3] = {1, 2, 3}, t2[3] = {1, 3, 4};
        vis_ConnectSetTopology(c, 1, SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(c, 1, t1);
        vis_ConnectSetTopology(c, 2, SYS_SHAPE_TRI, 0, 0, 0);
        vis_ConnectSetElemNode(c, 2, t2);
        vis_ConnectSetPartName(c, 9, "ab");
        const std::string path = File("mesh" + std::to_string(precision) + ".bin");
        vis_ConnectWrite(c, -2, path.c_str());
        ExpectNoReport();
        Reader r{ReadFile(path)};
        const int32_t head1[7] = {1, 4, 2, precision, 423, 0, 0};
        for (int32_t w : head1) EXPECT_EQ(r.Int(), w);
        for (int i = 0; i < 8; ++i) EXPECT_EQ(r.Int(), 0);      // headerflag, exactface, zeros
        for (int i = 0; i < 8; ++i) EXPECT_EQ(r.Real(4), 0.0);  // eight float32
        // Coordinates in double for precision 4, float otherwise: 0.1 then reads as float.
        const int size = precision == 4 ? 8 : 4;
        for (int i = 0; i < 4; ++i) {
            EXPECT_EQ(r.Int(), i + 1);
            for (int a = 0; a < 3; ++a) EXPECT_EQ(r.Real(size), size == 8 ? x[i][a] : double(float(x[i][a])));
        }
        const int* lists[2] = {t1, t2};
        for (int e = 0; e < 2; ++e) {
            const int32_t tuple[6] = {e + 1, SYS_SHAPE_TRI, 0, 0, 0, 3};
            for (int32_t w : tuple) EXPECT_EQ(r.Int(), w);
            for (int i = 0; i < 3; ++i) EXPECT_EQ(r.Int(), lists[e][i]);
        }
        for (int i = 0; i < 7; ++i) EXPECT_EQ(r.Int(), 0);  // attribute, tangent, normal ends
        EXPECT_EQ(r.Int(), 9);                              // part 9, name "ab" without terminator
        EXPECT_EQ(r.Int(), 2);
        EXPECT_EQ(r.bytes.substr(r.at, 2), "ab");
        r.at += 2;
        for (int i = 0; i < 6; ++i) EXPECT_EQ(r.Int(), 0);  // names end, sizes end
        EXPECT_TRUE(r.ok);
        EXPECT_EQ(r.at, r.bytes.size());
        vis_ConnectDelete(c);
        c = nullptr;
    }
}

TEST_F(ConnectWriteTest, SummaryAndListingAppend)
{
    c = TwoTriangles();
    vis_ConnectSetNodeAssoc(c, 4, 3, 5);
    const std::string path = File("report.txt");
    vis_ConnectWrite(c, -16, path.c_str());
    vis_ConnectWrite(c, -17, path.c_str());
    ExpectNoReport();
    // Summary: x from 0 (node 1, id 11, first of the ties) to 1 (node 2, id 12); y from 0
    // (node 1) to 1 (node 3, id 13); z all 0: node 1 both ways. "%13.5e" of 1 is
    // "  1.00000e+00".
    std::string want = "Node Summary\nNumber of nodes= 4\nCoordinate Extent\n"
                       "          Minimum  Node Id       Maximum  Node Id\n";
    want += "   x  0.00000e+00       11   1.00000e+00       12\n";
    want += "   y  0.00000e+00       11   1.00000e+00       13\n";
    want += "   z  0.00000e+00       11   0.00000e+00       11\n";
    want += "\nElem Summary\nNumber of elems= 2\n\n";
    // Listing, appended: user id, system id (node 3 in system 5), coordinates "%13.5e".
    want += "Node Listing\n Node Id     CId            x           y           z\n";
    want += I8(11) + I8(0) + "  0.00000e+00  0.00000e+00  0.00000e+00\n";
    want += I8(12) + I8(0) + "  1.00000e+00  0.00000e+00  0.00000e+00\n";
    want += I8(13) + I8(5) + "  1.00000e+00  1.00000e+00  0.00000e+00\n";
    want += I8(14) + I8(0) + "  0.00000e+00  1.00000e+00  0.00000e+00\n";
    // Elements: user id, part (association 2: 7 for the first; 0 for the second, which falls
    // back on association 1, also 0), the nodes "%8d".
    want += "\nElem Listing\n Elem Id     PId  Connectivity\n";
    want += I8(21) + I8(7) + I8(1) + I8(2) + I8(3) + "\n";
    want += I8(22) + I8(0) + I8(1) + I8(3) + I8(4) + "\n";
    want += "\n";
    EXPECT_EQ(ReadFile(path), want);
}

TEST_F(ConnectWriteTest, NastranRoad)
{
    // Nodes and elements with featype set get their cards; the deck has no executive control.
    c = BuildMesh({{{0, 0, 0}, 11, 1, 0}, {{1, 0, 0}, 12, 1, 0}, {{1, 1, 0}, 13, 1, 0}},
                  {{SYS_SHAPE_TRI, 0, 0, 2, 7, 21, {1, 2, 3}}});
    const std::string path = File("DisplayCAD-connect.bdf");
    vis_ConnectWrite(c, 18, path.c_str());
    ExpectNoReport();
    const std::string z = " 0.0000000000E+0", one = " 1.0000000000E+0";
    std::string want = "BEGIN BULK\n$          Grid points\n";
    want += "GRID*   " + I16(11) + I16(0) + z + z + "\n*       " + z + I16(0) + "\n";
    want += "GRID*   " + I16(12) + I16(0) + one + z + "\n*       " + z + I16(0) + "\n";
    want += "GRID*   " + I16(13) + I16(0) + one + one + "\n*       " + z + I16(0) + "\n";
    want += "$          Elements\nCTRIA3  " + I8(21) + I8(7) + I8(11) + I8(12) + I8(13) + kBlank8 + "\n";
    want += "ENDDATA\n";
    EXPECT_EQ(ReadFile(path), want);
    EXPECT_EQ(vis_ConnectError(c), 0);
}

TEST_F(ConnectWriteTest, AbaqusRoad)
{
    // The same mesh as an ABAQUS deck: no step list, so the default title; no node group, so
    // the all-nodes set is NALL; a shell triangle is S3R under the set of its property 7.
    c = BuildMesh({{{0, 0, 0}, 11, 1, 0}, {{1, 0, 0}, 12, 1, 0}, {{1, 1, 0}, 13, 1, 0}},
                  {{SYS_SHAPE_TRI, 0, 0, 2, 7, 21, {1, 2, 3}}});
    const std::string path = File("DisplayCAD-connect.inp");
    vis_ConnectWrite(c, 13, path.c_str());
    ExpectNoReport();
    // Coordinates: "%23.15E" then two exponent digits kept (minexp 2) and 16 characters, a
    // blank for the sign: " 0.000000000E+00", after a comma.
    const std::string z = ", 0.000000000E+00", one = ", 1.000000000E+00";
    std::string want = "*HEADING\nABAQUS input deck\n**         Nodes\n*NODE, NSET=NALL\n";
    want += "11" + z + z + z + "\n12" + one + z + z + "\n13" + one + one + z + "\n";
    want += "**         Elements\n*ELEMENT, TYPE=S3R, ELSET=PID7\n21, 11, 12, 13\n";
    // No group named EALL: the generated set from 1 to the largest element id.
    want += "**         All elements set\n*ELSET, ELSET=EALL, GENERATE\n1, 21\n";
    EXPECT_EQ(ReadFile(path), want);
    EXPECT_EQ(vis_ConnectError(c), 0);
}

TEST_F(ConnectWriteTest, AbaqusRoadUnopenable)
{
    c = TwoTriangles();
    const std::string bad = dir + "/missing/x.inp";
    Reports().clear();
    vis_ConnectWrite(c, 13, bad.c_str());
    // The writer's own report, then the dispatcher's.
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[0].name, "vis_ABAFwtWriteModel");
    EXPECT_EQ(Reports()[1].name, "vis_ConnectWrite");
    EXPECT_EQ(Reports()[1].code, 6);
    EXPECT_EQ(vis_ConnectError(c), 6);
}

TEST_F(ConnectWriteTest, AnsysRoad)
{
    // The same mesh as a command file: no tables, so nodes, the element's type and the element;
    // a linear triangle of feature 2 is a shell, SHELL181 as a collapsed quadrilateral.
    c = BuildMesh({{{0, 0, 0}, 11, 1, 0}, {{1, 0, 0}, 12, 1, 0}, {{1, 1, 0}, 13, 1, 0}},
                  {{SYS_SHAPE_TRI, 0, 0, 2, 7, 21, {1, 2, 3}}});
    const std::string path = File("connect.inp");
    vis_ConnectWrite(c, 22, path.c_str());
    ExpectNoReport();
    const std::string z = " 0.000000000E+00", one = " 1.000000000E+00";  // "%16.9E"
    std::string want = "/PREP7\nC***       Nodes\nCSYS,0\n";
    want += "N,11," + z + "," + z + "," + z + "\nN,12," + one + "," + z + "," + z + "\nN,13," + one + "," + one + "," + z + "\n";
    want += "C***       Element Types\nET,1,SHELL181\nC***       Real Constants\nC***       Elements\n";
    want += "TYPE,1\nEN,21,11,12,13,13\nC***       Rigids\n";
    EXPECT_EQ(ReadFile(path), want);
    // A path that cannot be opened is the connect's failure too.
    Reports().clear();
    const std::string bad = dir + "/missing/x.inp";
    vis_ConnectWrite(c, 22, bad.c_str());
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[0].name, "vis_ANSFwtWriteModel");
    EXPECT_EQ(Reports()[1].text, "pathname= " + bad);
    EXPECT_EQ(vis_ConnectError(c), 6);
}

}  // namespace

namespace {

TEST_F(ConnectWriteTest, ListingOfNineNodes)
{
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 9; ++i) nodes.push_back({{0.0, 0.0, 0.0}, 100 + i, 0, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_QUAD, 3, 3, 0, 4, 50, {1, 2, 3, 4, 5, 6, 7, 8, 9}}});
    const std::string path = File("listing.txt");
    vis_ConnectWrite(c, -17, path.c_str());
    ExpectNoReport();
    std::string want = "Node Listing\n Node Id     CId            x           y           z\n";
    for (int i = 1; i <= 9; ++i) want += I8(100 + i) + I8(0) + "  0.00000e+00  0.00000e+00  0.00000e+00\n";
    want += "\nElem Listing\n Elem Id     PId  Connectivity\n";
    // Element 50 of part 4: eight nodes, a line feed, the ninth, a line feed. The list holds
    // node indices.
    want += I8(50) + I8(4) + I8(1) + I8(2) + I8(3) + I8(4) + I8(5) + I8(6) + I8(7) + I8(8) + "\n" + I8(9) + "\n";
    want += "\n";
    EXPECT_EQ(ReadFile(path), want);
}

}  // namespace

namespace {

// A unit quadrilateral (1 2 3 4) with face normals of its own and the tangents of its edge 2.
class NativeCompanionTest : public ConnectWriteTest {
protected:
    void SetUp() override
    {
        ConnectWriteTest::SetUp();
        c = BuildMesh({{{0, 0, 0}, 1, 0, 0}, {{1, 0, 0}, 2, 0, 0}, {{1, 1, 0}, 3, 0, 0}, {{0, 1, 0}, 4, 0, 0}},
                      {{SYS_SHAPE_QUAD, 0, 0, 0, 0, 0, {1, 2, 3, 4}}});
        gf = vis_GridFunNew();
        vis_ConnectGridFun(c, gf);
        for (vis_ElemDat** ed : {&norm, &tang}) {
            *ed = vis_ElemDatNew();
            vis_ElemDatDef(*ed, 1, 0, 1);
            vis_ElemDatSetObject(*ed, SYS_GRIDFUN, gf);
        }
        vis_ElemDatSetParami(norm, VIS_ELEMDAT_ENTITY, SYS_FACE);
        vis_ElemDatSetParami(tang, VIS_ELEMDAT_ENTITY, SYS_EDGE);
        const double n[12] = {0, 0, 1, 0, 0, 1, 0, 0.6, 0.8, 0, 0, 1}, t[6] = {0, 1, 0, 0, 1, 0};
        vis_ElemDatSetEntdv(norm, 1, 1, n);
        vis_ElemDatSetEntdv(tang, 1, 2, t);
        vis_ConnectSetObject(c, SYS_ELEMNORM, norm);
        vis_ConnectSetObject(c, SYS_ELEMTANG, tang);
    }
    void TearDown() override
    {
        vis_ElemDatDelete(norm);
        vis_ElemDatDelete(tang);
        vis_GridFunDelete(gf);
        ConnectWriteTest::TearDown();
    }
    vis_GridFun* gf = nullptr;
    vis_ElemDat* norm = nullptr;
    vis_ElemDat* tang = nullptr;
};

TEST_F(NativeCompanionTest, TextWithTangentsAndNormals)
{
    const std::string path = File("companions.txt");
    vis_ConnectWrite(c, -1, path.c_str());
    ExpectNoReport();
    const std::string z = "0.000000e+00", one = "1.000000e+00";
    std::string want = "1 4 1 4 423 0 0\n0 0 0 0 0 0 0 0\n";
    for (int i = 0; i < 8; ++i) want += z + (i < 7 ? " " : "\n");
    want += "1 " + z + " " + z + " " + z + "\n2 " + one + " " + z + " " + z + "\n";
    want += "3 " + one + " " + one + " " + z + "\n4 " + z + " " + one + " " + z + "\n";
    want += "1 3 0 0 0 4\n1 2 3 4 \n";  // id, shape 3 (quadrilateral), maxi, maxj, maxk, four nodes
    want += "0 0 0\n";
    // Tangents: element 1 with flag word 2 (edge 2), then "%e %e %e" at the edge's two nodes.
    want += "1 2\n" + z + " " + one + " " + z + "\n" + z + " " + one + " " + z + "\n0 0\n";
    // Normals: element 1, face 1, then its four nodes.
    want += "1 1\n";
    want += z + " " + z + " " + one + "\n" + z + " " + z + " " + one + "\n";
    want += z + " 6.000000e-01 8.000000e-01\n" + z + " " + z + " " + one + "\n0 0\n";
    want += "0 0\n0 0 0 0\n";
    EXPECT_EQ(ReadFile(path), want);
}

TEST_F(NativeCompanionTest, BinaryWithTangentsAndNormals)
{
    const std::string path = File("companions.bin");
    vis_ConnectWrite(c, -2, path.c_str());
    ExpectNoReport();
    Reader r{ReadFile(path)};
    for (int i = 0; i < 15; ++i) r.Int();  // the two integer headers
    for (int i = 0; i < 8; ++i) r.Real(4);
    for (int i = 0; i < 4; ++i) {  // nodes: id and three doubles (precision 4)
        EXPECT_EQ(r.Int(), i + 1);
        for (int a = 0; a < 3; ++a) r.Real(8);
    }
    for (int i = 0; i < 10; ++i) r.Int();  // the element: six words and four nodes
    for (int i = 0; i < 3; ++i) EXPECT_EQ(r.Int(), 0);
    EXPECT_EQ(r.Int(), 1);  // element 1, flag word 2
    EXPECT_EQ(r.Int(), 2);
    const double t[6] = {0, 1, 0, 0, 1, 0};
    for (double v : t) EXPECT_EQ(r.Real(8), v);
    EXPECT_EQ(r.Int(), 0);
    EXPECT_EQ(r.Int(), 0);
    EXPECT_EQ(r.Int(), 1);  // element 1, face 1
    EXPECT_EQ(r.Int(), 1);
    const double n[12] = {0, 0, 1, 0, 0, 1, 0, 0.6, 0.8, 0, 0, 1};
    for (double v : n) EXPECT_EQ(r.Real(8), v);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(r.Int(), 0);  // the three end markers
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.at, r.bytes.size());
}

TEST_F(NativeCompanionTest, QueriesReadTheCompanions)
{
    // The given normals of face 1 come back from the query, node 3's tilted one included.
    float normal[12] = {};
    vis_ConnectElemFaceNorm(c, 1, 1, normal);
    EXPECT_FLOAT_EQ(normal[7], 0.6f);
    EXPECT_FLOAT_EQ(normal[8], 0.8f);
    // Without them the normals are computed: (0 0 1) at node 3 too.
    vis_ConnectSetObject(c, SYS_ELEMNORM, nullptr);
    vis_ConnectElemFaceNorm(c, 1, 1, normal);
    EXPECT_FLOAT_EQ(normal[7], 0.0f);
    EXPECT_FLOAT_EQ(normal[8], 1.0f);
    // A node state moves node 2 for the float query only; node 1, unset there, keeps its place.
    vis_State* s = vis_StateNew();
    vis_StateDef(s, 4, SYS_NODE, 0, 1);
    vis_StateClear(s);
    const double moved[3] = {5, 6, 7};
    vis_StateSetDatadv(s, 2, moved);
    vis_ConnectSetObject(c, SYS_STATE, s);
    const int ids[2] = {1, 2};
    float x[6] = {};
    double xd[6] = {};
    vis_ConnectCoords(c, 2, ids, x);
    vis_ConnectCoordsdv(c, 2, ids, xd);
    EXPECT_EQ(x[0], 0.0f);
    EXPECT_EQ(x[3], 5.0f);
    EXPECT_EQ(x[5], 7.0f);
    EXPECT_EQ(xd[3], 1.0);  // the double query reads the arrays
    void* got = nullptr;
    vis_ConnectGetObject(c, SYS_STATE, &got);
    EXPECT_EQ(got, s);
    vis_ConnectSetObject(c, SYS_STATE, nullptr);
    vis_StateDelete(s);
    vis_ConnectSetObject(c, 2090, nullptr);
    ExpectOnlyReport("vis_ConnectSetObject", SYS_ERROR_OBJECTTYPE, "objecttype= 2090");
}

}  // namespace
