// vis_PatLwt: the edge cases of the neutral file, every element form its order tables map, the
// load and group packets, bad input, and the packet structure with numbers read back. Expected
// packets are written by hand from the packet rules.
#include "PatLwtTestSupport.h"
#include "vis_ConnectWrite.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_IdTran.h"
#include "vis_LCase.h"
#include "vis_RCase.h"

#include <cmath>

using namespace nastest;
using namespace vsytest;
using namespace pattest;

namespace {

// n nodes: node i at (i, 0, 0), user id 100 + i, featype 1.
std::vector<MeshNode> Line(int n)
{
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= n; ++i) nodes.push_back({{double(i), 0, 0}, 100 + i, 1, 0});
    return nodes;
}

std::vector<int> Count(int n)
{
    std::vector<int> v;
    for (int i = 1; i <= n; ++i) v.push_back(i);
    return v;
}

class PatLwtTest : public CardTest {
protected:
    std::string Out() { return WritePat(model, File("file.out")); }
    // The written node ids of the packet 2 of element `id`, from its node cards.
    std::vector<int> ElemNodes(const std::string& file, int id)
    {
        std::vector<Packet> packets;
        EXPECT_EQ(CheckPackets(file, &packets), "");
        std::vector<int> ids;
        for (const Packet& p : packets)
            if (p.field[0] == 2 && p.field[1] == id)
                for (size_t c = 1; c < p.cards.size(); ++c)
                    for (size_t at = 0; at + 8 <= p.cards[c].size(); at += 8) ids.push_back(std::atoi(p.cards[c].substr(at, 8).c_str()));
        return ids;
    }
    // Element 1 of the given form on nodes 1 to n; its written list as source positions. Each
    // call replaces the mesh and model of the one before.
    std::vector<int> Reordered(int shape, int maxi, int maxj, int maxk, int n)
    {
        if (model) vis_ModelDelete(model);
        if (connect) vis_ConnectDelete(connect);
        Use(BuildMesh(Line(n), {{shape, maxi, maxj, 1, 1, 1, Count(n)}}));
        vis_ConnectSetTopology(connect, 1, shape, maxi, maxj, maxk);
        vis_ConnectSetElemNode(connect, 1, Count(n).data());
        std::vector<int> pos;
        for (int id : ElemNodes(Out(), 1)) pos.push_back(id - 101);
        return pos;
    }
};

TEST_F(PatLwtTest, ConnectivityAloneHasTitleSummaryNodesElementsAndEnd)
{
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 3, 9, {1, 2}}}));
    const std::string file = Out();
    ExpectNoReport();
    EXPECT_EQ(CheckPackets(file), "");
    // 25, 26 (2 nodes, 1 element, no tables), 1 per node, 2, 99.
    std::string want = Head(25, 0, 0, 1) + "Patran neutral file\n" + Head(26, 0, 0, 1, 2, 1) + "(date)\n";
    for (int i = 1; i <= 2; ++i)
        want += Head(1, 100 + i, 0, 2) + E(std::to_string(i) + ".000000000E+00") + E("0.000000000E+00") +
                E("0.000000000E+00") + "\n1G" + I8(6) + I8(0) + I8(0) + "  000000\n";
    want += Head(2, 9, 2, 2) + I8(2) + I8(0) + I8(3) + I8(0) + E("0.000000000E+00") + E("0.000000000E+00") + E("0.000000000E+00") + "\n" +
            I8(101) + I8(102) + "\n" + Head(99, 0, 0, 1);
    EXPECT_EQ(MaskDate(file), want);
    EXPECT_EQ(Types(file), (std::vector<int>{25, 26, 1, 1, 2, 99}));
    // The same file through the dispatcher's code 20 (the date line may differ).
    const std::string path = File("connect.out");
    vis_ConnectWrite(connect, 20, path.c_str());
    ExpectNoReport();
    EXPECT_EQ(MaskDate(ReadFile(path)), want);
}

TEST_F(PatLwtTest, GridFunctionWithoutConnectivityHasNoMeshPackets)
{
    // Nodes and elements are written from a connectivity only: a model holding just a grid
    // function gets the title, the summary (with its counts) and the end.
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    vis_GridFun* gf = vis_GridFunNew();
    vis_ConnectGridFun(connect, gf);
    vis_Model* only = vis_ModelNew();
    vis_ModelSetObject(only, SYS_GRIDFUN, gf);
    const std::string file = WritePat(only, File("gf.out"));
    EXPECT_EQ(MaskDate(file), Head(25, 0, 0, 1) + "Patran neutral file\n" + Head(26, 0, 0, 1, 2, 1) + "(date)\n" + Head(99, 0, 0, 1));
    vis_ModelDelete(only);
    vis_GridFunDelete(gf);
}

TEST_F(PatLwtTest, FeatureZeroHasNoPacket)
{
    // Node 2 and element 1 of featype 0: only node 1 and 3 and element 2 are written.
    std::vector<MeshNode> nodes = Line(3);
    nodes[1].featype = 0;
    Use(BuildMesh(nodes, {{SYS_SHAPE_LINE, 0, 0, 0, 1, 1, {1, 2}}, {SYS_SHAPE_LINE, 0, 0, 4, 1, 2, {1, 3}}}));
    std::vector<Packet> p;
    ASSERT_EQ(CheckPackets(Out(), &p), "");
    std::vector<std::pair<int, int>> got;
    for (const Packet& x : p) got.emplace_back(x.field[0], x.field[1]);
    EXPECT_EQ(got, (std::vector<std::pair<int, int>>{{25, 0}, {26, 0}, {1, 101}, {1, 103}, {2, 2}, {99, 0}}));
}

TEST_F(PatLwtTest, TwentyNodeHexahedronExchangesTopAndVerticalEdges)
{
    // Places 12 to 15 take the vertical edges' midside nodes (source 16 to 19), places 16 to 19
    // the top edges' (12 to 15).
    EXPECT_EQ(Reordered(SYS_SHAPE_HEX, 3, 0, 0, 20),
              (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16, 17, 18, 19, 12, 13, 14, 15}));
}

TEST_F(PatLwtTest, SerendipityFormsOfOrderThree)
{
    // Line: ends, then the midside node in between; triangle, quadrilateral, tetrahedron keep
    // their order; the wedge moves its vertical edges (12 to 14) before its top edges (9 to 11).
    EXPECT_EQ(Reordered(SYS_SHAPE_LINE, 3, 0, 0, 3), (std::vector<int>{0, 2, 1}));
    EXPECT_EQ(Reordered(SYS_SHAPE_TRI, 3, 0, 0, 6), (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(Reordered(SYS_SHAPE_QUAD, 3, 0, 0, 8), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Reordered(SYS_SHAPE_TET, 3, 0, 0, 10), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(Reordered(SYS_SHAPE_WED, 3, 0, 0, 15), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 13, 14, 9, 10, 11}));
}

TEST_F(PatLwtTest, LagrangeFormsOfOrderThree)
{
    // Lexical lists: corners first, then edge midpoints, then centres.
    EXPECT_EQ(Reordered(SYS_SHAPE_LINE, 3, 3, 0, 3), (std::vector<int>{0, 2, 1}));
    // Triangle rows 0 1 2 / 3 4 / 5: corners 0 2 5, edges 1, 4, 3.
    EXPECT_EQ(Reordered(SYS_SHAPE_TRI, 3, 3, 0, 6), (std::vector<int>{0, 2, 5, 1, 4, 3}));
    // Quadrilateral rows 0 1 2 / 3 4 5 / 6 7 8: corners 0 2 8 6, edges 1 5 7 3, centre 4.
    EXPECT_EQ(Reordered(SYS_SHAPE_QUAD, 3, 3, 0, 9), (std::vector<int>{0, 2, 8, 6, 1, 5, 7, 3, 4}));
    // Tetrahedron layers 0..5, 6..8, 9: corners 0 2 5 9, base edges 1 4 3, apex edges 6 7 8.
    EXPECT_EQ(Reordered(SYS_SHAPE_TET, 3, 3, 3, 10), (std::vector<int>{0, 2, 5, 9, 1, 4, 3, 6, 7, 8}));
    // Wedge of three triangle layers (18 nodes): fifteen written, the side centres 7, 9, 10
    // dropped.
    EXPECT_EQ(Reordered(SYS_SHAPE_WED, 3, 3, 3, 18), (std::vector<int>{0, 2, 5, 12, 14, 17, 1, 4, 3, 6, 8, 11, 13, 16, 15}));
    // Hexahedron of three layers of nine.
    EXPECT_EQ(Reordered(SYS_SHAPE_HEX, 3, 3, 3, 27), (std::vector<int>{0, 2, 8, 6, 18, 20, 26, 24, 1, 5, 7, 3, 9, 11,
                                                                        17, 15, 19, 23, 25, 21, 13, 4, 22, 12, 14, 10, 16}));
}

TEST_F(PatLwtTest, LinearForms)
{
    // Lagrange (maxj 2) lists are lexical: the quadrilateral 0 1 3 2, the hexahedron layer by
    // layer the same. The library's serendipity form (maxj 0) is counter-clockwise already.
    EXPECT_EQ(Reordered(SYS_SHAPE_QUAD, 2, 2, 0, 4), (std::vector<int>{0, 1, 3, 2}));
    EXPECT_EQ(Reordered(SYS_SHAPE_HEX, 2, 2, 2, 8), (std::vector<int>{0, 1, 3, 2, 4, 5, 7, 6}));
    EXPECT_EQ(Reordered(SYS_SHAPE_QUAD, 0, 0, 0, 4), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(Reordered(SYS_SHAPE_HEX, 0, 0, 0, 8), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(Reordered(SYS_SHAPE_TRI, 0, 0, 0, 3), (std::vector<int>{0, 1, 2}));
    EXPECT_EQ(Reordered(SYS_SHAPE_TET, 0, 0, 0, 4), (std::vector<int>{0, 1, 2, 3}));
    EXPECT_EQ(Reordered(SYS_SHAPE_WED, 0, 0, 0, 6), (std::vector<int>{0, 1, 2, 3, 4, 5}));
}

TEST_F(PatLwtTest, PyramidsBecomeHexahedra)
{
    // Linear: the apex in places 5 to 8, shape code 8. Order 3: base midsides stay in 8 to
    // 11, the apex fills the top edges (places 16 to 19 after the exchange), the apex edges'
    // midside nodes (source 9 to 12) go to the vertical edges (places 12 to 15).
    EXPECT_EQ(Reordered(SYS_SHAPE_PYR, 0, 0, 0, 5), (std::vector<int>{0, 1, 2, 3, 4, 4, 4, 4}));
    EXPECT_EQ(Reordered(SYS_SHAPE_PYR, 3, 0, 0, 13),
              (std::vector<int>{0, 1, 2, 3, 4, 4, 4, 4, 5, 6, 7, 8, 9, 10, 11, 12, 4, 4, 4, 4}));
    // The element's packet carries the hexahedron's shape code 8 as its IV.
    std::vector<Packet> p;
    ASSERT_EQ(CheckPackets(Out(), &p), "");
    ASSERT_EQ(p[p.size() - 2].field[0], 2);
    EXPECT_EQ(p[p.size() - 2].field[2], 8);
}

TEST_F(PatLwtTest, PropertyFallsBackToMaterialThenOne)
{
    // Element 1: property 4. Element 2: no property, material 6: -6. Element 3: neither: 1.
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 4, 1, {1, 2}}, {SYS_SHAPE_LINE, 0, 0, 4, 0, 2, {1, 2}},
                            {SYS_SHAPE_LINE, 0, 0, 4, 0, 3, {1, 2}}}));
    vis_ConnectSetElemAssoc(connect, 1, 2, 6);
    std::vector<Packet> p;
    ASSERT_EQ(CheckPackets(Out(), &p), "");
    std::vector<int> props;
    for (const Packet& x : p)
        if (x.field[0] == 2) props.push_back(std::atoi(x.cards[0].substr(16, 8).c_str()));
    EXPECT_EQ(props, (std::vector<int>{4, -6, 1}));
}

TEST_F(PatLwtTest, ShapesNoPacketHolds)
{
    // A polygon and a fourth-order line are passed over without a report.
    Use(BuildMesh(Line(5), {{SYS_SHAPE_POLYGON, 5, 5, 2, 1, 1, {1, 2, 3, 4, 5}}, {SYS_SHAPE_LINE, 4, 0, 4, 1, 2, {1, 2, 3, 4}}}));
    EXPECT_EQ(Types(Out()), (std::vector<int>{25, 26, 1, 1, 1, 1, 1, 99}));
    ExpectNoReport();
}

TEST_F(PatLwtTest, ForceOfOneComponent)
{
    // A force (0, 5, 0) at node 2 of case 3: the second flag and one real.
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    vis_LCase* lc = Put(SYS_LCASE, 3, vis_LCaseNew(), vis_LCaseDelete);
    const double f[3] = {0, 5, 0};
    vis_LCaseSetConcdv(lc, 2, 1, f);
    const std::string file = Out();
    EXPECT_EQ(CheckPackets(file), "");
    EXPECT_NE(file.find(Head(7, 102, 3, 2) + I8(0) + "010000\n" + E("5.000000000E+00") + "\n" + Head(99, 0, 0, 1)),
              std::string::npos);
}

TEST_F(PatLwtTest, EdgePressureAndHeatLoads)
{
    // A shell triangle: edge 2 (nodes 2-3) pressed with 1 and 3 (mean 2); a heat source of 7
    // at node 1; a flux of 4 on face 1 (three corners); a convection on edge 1 (ambient 20,
    // film 5 at both ends).
    Use(BuildMesh(Line(3), {{SYS_SHAPE_TRI, 0, 0, 2, 1, 1, {1, 2, 3}}}));
    vis_LCase* lc = Put(SYS_LCASE, 9, vis_LCaseNew(), vis_LCaseDelete);
    const double ep[2] = {1, 3}, q = 7, flux[4] = {4, 4, 4, 0}, conv[4] = {20, 5, 20, 5};
    vis_LCaseSetDistdv(lc, SYS_EDGE, 1, 2, 2, ep);
    vis_LCaseSetConcdv(lc, 1, 3, &q);
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 1, 5, flux);
    vis_LCaseSetDistdv(lc, SYS_EDGE, 1, 1, 6, conv);
    const std::string file = Out();
    EXPECT_EQ(CheckPackets(file), "");
    const std::string four = E("4.000000000E+00"), twenty = E("2.000000000E+01"), five = E("5.000000000E+00");
    // Packet 6 of the edge: flags 010, the first face flag, the edge's corners 1 and 2 (from
    // 0), KC 2, the mean 2.
    const std::string edge = Head(6, 1, 9, 2) + "010" + "100000" + "01100000" + " 0\n" + E("2.000000000E+00") + "\n";
    // Packet 15 of the source; 16 of the flux on face 1: three corners, KC 2, N1 1, N3 2;
    // 17 of the convection on edge 1: two corners of two values each.
    const std::string heat = Head(15, 101, 9, 1, 1) + E("7.000000000E+00") + "\n" + Head(16, 1, 9, 2, 1, 0, 2) +
                             "1 11100000\n" + four + four + four + "\n" + Head(17, 1, 9, 2, 1, 0, 2) + "1 11000000\n" +
                             twenty + five + twenty + five + "\n";
    EXPECT_NE(file.find(edge), std::string::npos) << file;
    EXPECT_NE(file.find(heat + Head(99, 0, 0, 1)), std::string::npos) << file;
}

TEST_F(PatLwtTest, RestraintTemperaturesComeFirst)
{
    // Node 1: tag 7 at 50 and tag 2 fixed; node 2: tag 1 prescribed 0.25 and tag 3 fixed by a
    // value of 0.0 (type 2). The temperature packet 10 precedes the packets 8.
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    vis_RCase* rc = Put(SYS_RCASE, 4, vis_RCaseNew(), vis_RCaseDelete);
    vis_RCaseSetSPCdv(rc, 1, 7, 2, 50.0);
    vis_RCaseSetSPCdv(rc, 1, 2, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 2, 1, 2, 0.25);
    vis_RCaseSetSPCdv(rc, 2, 3, 2, 0.0);
    const std::string file = Out();
    EXPECT_EQ(CheckPackets(file), "");
    const std::string zero = E("0.000000000E+00");
    const std::string want = Head(10, 101, 4, 1, 1) + E("5.000000000E+01") + "\n" + Head(8, 101, 4, 2) + I8(0) +
                             "010000\n" + zero + "\n" + Head(8, 102, 4, 2) + I8(0) + "101000\n" +
                             E("2.500000000E-01") + zero + "\n" + Head(99, 0, 0, 1);
    EXPECT_NE(file.find(want), std::string::npos) << file;
}

TEST_F(PatLwtTest, GroupsOfOneKey)
{
    // Key 3: node group "A" (nodes 1, 2) and element group "A" (element 1): one packet of
    // three pairs. Key 4: node group "B" and element group "C": a packet each. Key 5: an
    // unnamed element group: "GROUP5".
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    auto group = [this](int table, int key, const char* name, std::vector<int> ids) {
        vis_IdTran* g = Put(table, key, vis_IdTranNew(), vis_IdTranDelete);
        if (name) vis_IdTranSetName(g, name);
        for (size_t i = 0; i < ids.size(); ++i) vis_IdTranSetId(g, int(i + 1), ids[i]);
    };
    group(SYS_NODEGROUP, 3, "A", {1, 2});
    group(SYS_ELEMGROUP, 3, "A", {1});
    group(SYS_NODEGROUP, 4, "B", {2});
    group(SYS_ELEMGROUP, 4, "C", {1});
    group(SYS_ELEMGROUP, 5, nullptr, {1});
    const std::string file = Out();
    EXPECT_EQ(CheckPackets(file), "");
    const std::string want = Head(21, 3, 6, 2) + "A\n" + I8(5) + I8(101) + I8(5) + I8(102) + I8(7) + I8(1) + "\n" +
                             Head(21, 4, 2, 2) + "B\n" + I8(5) + I8(102) + "\n" + Head(21, 4, 2, 2) + "C\n" + I8(7) +
                             I8(1) + "\n" + Head(21, 5, 2, 2) + "GROUP5\n" + I8(7) + I8(1) + "\n" + Head(99, 0, 0, 1);
    EXPECT_NE(file.find(want), std::string::npos) << file;
}

TEST_F(PatLwtTest, UnopenablePathAndModelWithoutMesh)
{
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    const std::string bad = dir + "/missing/file.out";
    vis_PatLwt* pat = vis_PatLwtNew();
    vis_PatLwtWriteModel(pat, model, bad.c_str());
    ExpectOnlyReport("vis_PatLwtWriteModel", 6, "path= " + bad);
    EXPECT_EQ(vis_PatLwtError(pat), 6);
    Reports().clear();
    vis_ConnectWrite(connect, 20, bad.c_str());
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[1].text, "pathname= " + bad);
    // Neither grid function nor connectivity: "GridFun", code 5, an empty file.
    Reports().clear();
    vis_Model* empty = vis_ModelNew();
    const std::string path = File("empty.out");
    vis_PatLwtWriteModel(pat, empty, path.c_str());
    ExpectOnlyReport("vis_PatLwtWriteModel", 5, "GridFun");
    EXPECT_EQ(vis_PatLwtError(pat), 5);
    vis_PatLwtDelete(pat);
    vis_ModelDelete(empty);
    EXPECT_EQ(ReadFile(path), "");
}

TEST_F(PatLwtTest, NonUniqueIdsPrintIndices)
{
    std::vector<MeshNode> nodes = Line(2);
    nodes[0].userid = nodes[1].userid = 5;
    Use(BuildMesh(nodes, {{SYS_SHAPE_LINE, 0, 0, 4, 1, 8, {2, 1}}}));
    const std::string file = Out();
    // The node ids repeat: indices 2 and 1 stand in the element (whose id 8 is unique).
    EXPECT_EQ(ElemNodes(file, 8), (std::vector<int>{2, 1}));
    EXPECT_NE(file.find(Head(1, 2, 0, 2)), std::string::npos);
}

TEST_F(PatLwtTest, CoordinatesReadBackWithinTheirFieldPrecision)
{
    // The 16-column form keeps nine decimals of the mantissa, cut: less than 1e-9 of the value.
    Rng rng(20);
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 200; ++i) {
        MeshNode n{{0, 0, 0}, i, 1, 0};
        for (double& x : n.x) x = ((rng.next() % 2000000) / 1000000.0 - 1.0) * std::pow(10.0, int(rng.next() % 41) - 20);
        nodes.push_back(n);
    }
    Use(BuildMesh(nodes, {{SYS_SHAPE_POINT, 0, 0, 13, 1, 1, {1}}}));
    std::vector<Packet> p;
    ASSERT_EQ(CheckPackets(Out(), &p), "");
    int checked = 0;
    for (const Packet& x : p) {
        if (x.field[0] != 1) continue;
        std::vector<double> got;
        ASSERT_TRUE(RealCard(x.cards[0], 3, &got));
        for (int a = 0; a < 3; ++a) {
            const double want = nodes[x.field[1] - 1].x[a];
            EXPECT_LE(std::fabs(got[a] - want), 1e-9 * std::fabs(want)) << x.cards[0];
            ++checked;
        }
    }
    EXPECT_EQ(checked, 600);
}

} // namespace

namespace {

TEST(PatLwtChecker, FindsBrokenPackets)
{
    const std::string end = Head(99, 0, 0, 1);
    const std::string node = Head(1, 7, 0, 2) + E("1.000000000E+00") + E("0.000000000E+00") + E("0.000000000E+00") +
                             "\n1G" + I8(6) + I8(0) + I8(0) + "  000000\n";
    EXPECT_EQ(CheckPackets(node + end), "");
    // No end packet; a card too few (KC 3); a real one column short; a header of 65 columns.
    EXPECT_EQ(CheckPackets(node), "no packet 99\n");
    std::string kc3 = node;
    kc3.replace(kc3.find("       2       0"), 16, "       3       0");
    EXPECT_NE(CheckPackets(kc3 + end), "");
    std::string shortreal = node;
    shortreal.replace(shortreal.find(" 1.000000000E+00"), 16, " 1.00000000E+00");
    EXPECT_NE(CheckPackets(shortreal + end), "");
    EXPECT_NE(CheckPackets(node.substr(1) + end), "");
    // A force packet whose flags promise two reals but hold one.
    EXPECT_NE(CheckPackets(Head(7, 1, 1, 2) + I8(0) + "110000\n" + E("1.000000000E+00") + "\n" + end), "");
}

} // namespace
