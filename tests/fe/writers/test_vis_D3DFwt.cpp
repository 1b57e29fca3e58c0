// vis_D3DFwt: the edge cases of the keyword deck, every element shape and order its cards map,
// bad input, and the column layout with numbers read back. Expected decks are written by hand
// from the card rules.
#include "D3DFwtTestSupport.h"
#include "vis_ConnectWrite.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_ElemTopology.h"
#include "vis_LCase.h"
#include "vis_RCase.h"
#include "vis_SProp.h"
#include "vsy_List.h"

#include <cmath>
#include <cstdlib>

using namespace nastest;
using namespace vsytest;
using namespace d3dtest;

namespace {

const std::string kHead = "$ LS-DYNA input deck\n*KEYWORD\n";

// n nodes on the x axis: node i at (i, 0, 0), user id 100 + i, featype 1.
std::vector<MeshNode> Line(int n)
{
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= n; ++i) nodes.push_back({{double(i), 0, 0}, 100 + i, 1, 0});
    return nodes;
}

// The node lines of Line(n): "%8d" id, then i in 16 columns ("i.", whole numbers drop their
// zeros), and 0 twice ("0.").
std::string LineNodes(int n)
{
    std::string s = "$***       Nodes\n*NODE\n";
    for (int i = 1; i <= n; ++i) s += I8(100 + i) + F16(std::to_string(i) + ".") + F16("0.") + F16("0.") + "\n";
    return s;
}

class D3DFwtTest : public CardTest {
protected:
    void TearDown() override
    {
        if (list) vsy_ListDelete(list);
        CardTest::TearDown();
    }
    std::string Deck() { return WriteDyna(model, File("deck.k")); }
    // A first solution step, made on demand, in the model's list.
    vis_SProp* Step()
    {
        if (list) return step;
        list = vsy_ListNew();
        step = Put(9999, 1, vis_SPropNew(), vis_SPropDelete);
        vis_SPropDef(step, 1);
        vsy_ListAppend(list, step);
        vis_ModelSetList(model, SYS_SPROP, list);
        return step;
    }
    vsy_List* list = nullptr;
    vis_SProp* step = nullptr;
};

TEST_F(D3DFwtTest, ConnectivityAloneAndTriangleShell)
{
    // Three nodes and a linear triangle of feature 2 (shell), property 7, id 5.
    Use(BuildMesh(Line(3), {{SYS_SHAPE_TRI, 0, 0, 2, 7, 5, {1, 2, 3}}}));
    // Head, nodes, elements, end; the triangle's third node stands in places 3 and 4.
    const std::string want = kHead + LineNodes(3) + "$***       Elements\n*ELEMENT_SHELL\n" +
                             Ints8({5, 7, 101, 102, 103, 103}) + "\n*END\n";
    EXPECT_EQ(Deck(), want);
    ExpectNoReport();
    // The same deck through the dispatcher's code 25.
    const std::string path = File("connect.k");
    vis_ConnectWrite(connect, 25, path.c_str());
    ExpectNoReport();
    EXPECT_EQ(ReadFile(path), want);
}

TEST_F(D3DFwtTest, FeatureZeroNodeAndRigidElementHaveNoLine)
{
    // Node 2 has featype 0; node 3 is a scalar point (2). Element 1 is rigid (10), element 2
    // has no feature (0), element 3 is a constraint (11), element 4 a two-dimensional element
    // (featwod 2), element 5 a beam.
    std::vector<MeshNode> nodes = Line(3);
    nodes[1].featype = 0;
    nodes[2].featype = 2;
    MeshElem plane{SYS_SHAPE_LINE, 0, 0, 4, 1, 4, {1, 2}};
    plane.featwod = 2;
    Use(BuildMesh(nodes, {{SYS_SHAPE_LINE, 0, 0, 10, 1, 1, {1, 2}},
                          {SYS_SHAPE_LINE, 0, 0, 0, 1, 2, {1, 2}},
                          {SYS_SHAPE_LINE, 0, 0, 11, 1, 3, {1, 2}},
                          plane,
                          {SYS_SHAPE_LINE, 0, 0, 4, 1, 5, {1, 2}}}));
    const std::string want = kHead + "$***       Nodes\n*NODE\n" + I8(101) + F16("1.") + F16("0.") + F16("0.") + "\n" +
                             "$***       Elements\n*ELEMENT_BEAM\n" + Ints8({5, 1, 101, 102}) + "\n*END\n";
    EXPECT_EQ(Deck(), want);
}

TEST_F(D3DFwtTest, SolidsOfEveryShape)
{
    // Linear tetrahedron, pyramid, wedge and hexahedron, then a ten-node tetrahedron and a
    // twenty-node hexahedron, all solids of property 3.
    std::vector<int> twenty;
    for (int i = 1; i <= 20; ++i) twenty.push_back(i);
    Use(BuildMesh(Line(20), {{SYS_SHAPE_TET, 0, 0, 1, 3, 1, {1, 2, 3, 4}},
                             {SYS_SHAPE_PYR, 0, 0, 1, 3, 2, {1, 2, 3, 4, 5}},
                             {SYS_SHAPE_WED, 0, 0, 1, 3, 3, {1, 2, 3, 4, 5, 6}},
                             {SYS_SHAPE_HEX, 0, 0, 1, 3, 4, {1, 2, 3, 4, 5, 6, 7, 8}},
                             {SYS_SHAPE_TET, 3, 0, 1, 3, 5, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
                             {SYS_SHAPE_HEX, 3, 0, 1, 3, 6, twenty}}));
    std::string want = kHead + LineNodes(20) + "$***       Elements\n*ELEMENT_SOLID\n";
    // Tetrahedron: node 4 in places 4 to 8.
    want += Ints8({1, 3, 101, 102, 103, 104, 104, 104, 104, 104}) + "\n";
    // Pyramid: the apex (node 5) in places 5 to 8.
    want += Ints8({2, 3, 101, 102, 103, 104, 105, 105, 105, 105}) + "\n";
    // Wedge: places 7 and 8 repeat nodes 5 and 6.
    want += Ints8({3, 3, 101, 102, 103, 104, 105, 106, 105, 106}) + "\n";
    want += Ints8({4, 3, 101, 102, 103, 104, 105, 106, 107, 108}) + "\n";
    // Ten-node tetrahedron: id and property, then the ten nodes.
    want += Ints8({5, 3}) + "\n" + Ints8({101, 102, 103, 104, 105, 106, 107, 108, 109, 110}) + "\n";
    // The quadratic hexahedron writes nothing under the head already open.
    want += "*END\n";
    const std::string deck = Deck();
    EXPECT_EQ(deck, want);
    EXPECT_EQ(CheckDeck(deck), "");
}

TEST_F(D3DFwtTest, QuadraticHexahedronHasOnlyItsHead)
{
    std::vector<int> twenty;
    for (int i = 1; i <= 20; ++i) twenty.push_back(i);
    Use(BuildMesh(Line(20), {{SYS_SHAPE_HEX, 3, 0, 1, 3, 6, twenty}}));
    EXPECT_EQ(Deck(), kHead + LineNodes(20) + "$***       Elements\n*ELEMENT_SOLID\n*END\n");
}

TEST_F(D3DFwtTest, ShellsMembranesBeamsAndMasses)
{
    // Shell quadrilateral, membrane triangle, shell quadrilateral again: the head each time
    // the feature changes. An eight-node shell: its head is open, no line. Beams of two nodes
    // and a quadratic beam (no line). A mass at node 2 without a property table: 0.0.
    Use(BuildMesh(Line(8), {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 1, {1, 2, 3, 4}},
                            {SYS_SHAPE_TRI, 0, 0, 3, 1, 2, {1, 2, 3}},
                            {SYS_SHAPE_QUAD, 0, 0, 2, 1, 3, {5, 6, 7, 8}},
                            {SYS_SHAPE_QUAD, 3, 0, 2, 1, 4, {1, 2, 3, 4, 5, 6, 7, 8}},
                            {SYS_SHAPE_LINE, 0, 0, 4, 2, 5, {1, 2}},
                            {SYS_SHAPE_LINE, 3, 0, 4, 2, 6, {1, 2, 3}},
                            {SYS_SHAPE_POINT, 0, 0, 13, 9, 7, {2}}}));
    std::string want = kHead + LineNodes(8) + "$***       Elements\n";
    want += "*ELEMENT_SHELL\n" + Ints8({1, 1, 101, 102, 103, 104}) + "\n";
    want += "*ELEMENT_SHELL\n" + Ints8({2, 1, 101, 102, 103, 103}) + "\n";
    want += "*ELEMENT_SHELL\n" + Ints8({3, 1, 105, 106, 107, 108}) + "\n";
    want += "*ELEMENT_BEAM\n" + Ints8({5, 2, 101, 102}) + "\n";
    want += "*ELEMENT_MASS\n" + Ints8({7, 102}) + F16("0.") + "\n*END\n";
    const std::string deck = Deck();
    EXPECT_EQ(deck, want);
    EXPECT_EQ(CheckDeck(deck), "");
}

TEST_F(D3DFwtTest, BeamOrientationNodes)
{
    // Beam 1 from (1,0,0) to (2,0,0) with orientation (1, 0, 2): its part along the beam goes,
    // the second axis is (0, 0, 1) and the node (1, 0, 1) takes id 104, one above the largest
    // (103). Beam 2 from node 2 to 3 with an orientation along the beam gets no node. Beam 3
    // without data (zeros) gets none either. Its head comes again after the new node's.
    Use(BuildMesh(Line(3), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}},
                            {SYS_SHAPE_LINE, 0, 0, 4, 1, 2, {2, 3}},
                            {SYS_SHAPE_LINE, 0, 0, 4, 1, 3, {1, 3}}}));
    vis_ElemDat* orient = Put(SYS_ELEMDAT, VIS_ELEMDAT_ORIENTATION, vis_ElemDatNew(), vis_ElemDatDelete);
    vis_ElemDatDef(orient, 3, VIS_ELEMDAT_ORIENTATION, 3);
    const double v1[3] = {1, 0, 2}, v2[3] = {3, 0, 0};
    vis_ElemDatSetDatadv(orient, 1, 3, v1);
    vis_ElemDatSetDatadv(orient, 2, 3, v2);
    std::string want = kHead + LineNodes(3) + "$***       Elements\n";
    want += "*NODE\n" + I8(104) + F16("1.") + F16("0.") + F16("1.") + "\n";
    want += "*ELEMENT_BEAM\n" + Ints8({1, 1, 101, 102, 104}) + "\n";
    want += Ints8({2, 1, 102, 103}) + "\n" + Ints8({3, 1, 101, 103}) + "\n*END\n";
    const std::string deck = Deck();
    EXPECT_EQ(deck, want);
    EXPECT_EQ(CheckDeck(deck), "");
}

// A case of one pressure of `p` on face 1 of element `elem`.
vis_LCase* Pressure(int elem, double p)
{
    vis_LCase* lc = vis_LCaseNew();
    const double v[4] = {p, p, p, p};
    vis_LCaseSetDistdv(lc, SYS_FACE, elem, 1, 2, v);
    return lc;
}

TEST_F(D3DFwtTest, OnlyTheFirstLoadCaseIsWritten)
{
    // Two shells; the step names cases 11 and 12, pressing element 1 with 2.5 and element 2
    // with 4.0. Only case 11 reaches the deck.
    Use(BuildMesh(Line(6), {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 1, {1, 2, 3, 4}},
                            {SYS_SHAPE_TRI, 0, 0, 2, 1, 2, {4, 5, 6}}}));
    Put(SYS_LCASE, 11, Pressure(1, 2.5), vis_LCaseDelete);
    Put(SYS_LCASE, 12, Pressure(2, 4.0), vis_LCaseDelete);
    const int ids[2] = {11, 12};
    vis_SPropSetValuei(Step(), 2, 2);
    vis_SPropSetValueiv(Step(), 3, ids);
    const std::string deck = Deck();
    // No curve table: the shared curve is 1. 2.5: fixed "2.5", one column short.
    const std::string want = "$***       Loads\n*DEFINE_CURVE\n" + I10(1) + I10(0) +
                             "  1.000000  1.000000  0.000000  1.000000\n*LOAD_SEGMENT\n" + I10(1) + F10("2.5") +
                             "  0.000000" + I10(101) + I10(102) + I10(103) + I10(104) + "\n*END\n";
    ASSERT_NE(deck.find("$***       Loads\n"), std::string::npos);
    EXPECT_EQ(deck.substr(deck.find("$***       Loads\n")), want);
    EXPECT_EQ(CheckDeck(deck), "");
}

TEST_F(D3DFwtTest, TriangleSegmentRepeatsItsLastCorner)
{
    Use(BuildMesh(Line(3), {{SYS_SHAPE_TRI, 0, 0, 2, 1, 1, {1, 2, 3}}}));
    Put(SYS_LCASE, 5, Pressure(1, -1.0), vis_LCaseDelete);
    const int id = 5;
    vis_SPropSetValuei(Step(), 2, 1);
    vis_SPropSetValueiv(Step(), 3, &id);
    const std::string deck = Deck();
    // -1: fixed "-1." (the zeros dropped), three characters.
    const std::string line = I10(1) + F10("-1.") + "  0.000000" + I10(101) + I10(102) + I10(103) + I10(103) + "\n";
    EXPECT_NE(deck.find("*LOAD_SEGMENT\n" + line + "*END\n"), std::string::npos) << deck;
}

TEST_F(D3DFwtTest, NodalForceAloneWritesTheTitleOnly)
{
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    vis_LCase* lc = Put(SYS_LCASE, 3, vis_LCaseNew(), vis_LCaseDelete);
    const double f[3] = {1, 2, 3};
    vis_LCaseSetConcdv(lc, 2, 1, f);
    const int id = 3;
    vis_SPropSetValuei(Step(), 2, 1);
    vis_SPropSetValueiv(Step(), 3, &id);
    const std::string deck = Deck();
    EXPECT_EQ(deck.substr(deck.find(Ints8({1, 1, 101, 102}))), Ints8({1, 1, 101, 102}) + "\n$***       Loads\n*END\n");
}

TEST_F(D3DFwtTest, RestraintFlags)
{
    // Node 1: dof 1 of type 1, dof 2 of type 2 with 0.0 (both flags), dof 3 of type 2 with 0.5
    // (no flag), tag 7 (no flag). Node 2: only a prescribed 0.5: no line. Node 3 has featype 0.
    std::vector<MeshNode> nodes = Line(3);
    nodes[2].featype = 0;
    Use(BuildMesh(nodes, {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    vis_RCase* rc = Put(SYS_RCASE, 8, vis_RCaseNew(), vis_RCaseDelete);
    vis_RCaseSetSPCdv(rc, 1, 1, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 1, 2, 2, 0.0);
    vis_RCaseSetSPCdv(rc, 1, 3, 2, 0.5);
    vis_RCaseSetSPCdv(rc, 1, 7, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 2, 4, 2, 0.5);
    vis_RCaseSetSPCdv(rc, 3, 1, 1, 0.0);
    vis_SPropSetValuei(Step(), 8, 8);
    const std::string deck = Deck();
    const std::string want = "$***       Restraints\n*BOUNDARY_SPC_NODE\n" + I10(101) + I10(0) + I10(1) + I10(1) +
                             I10(0) + I10(0) + I10(0) + I10(0) + "\n*END\n";
    ASSERT_NE(deck.find("$***       Restraints\n"), std::string::npos);
    EXPECT_EQ(deck.substr(deck.find("$***       Restraints\n")), want);
    EXPECT_EQ(CheckDeck(deck), "");
}

TEST_F(D3DFwtTest, MissingCasesWriteTheirTitlesOnly)
{
    // The step names restraint case 4 and load case 6, neither in its table.
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    Put(SYS_RCASE, 5, vis_RCaseNew(), vis_RCaseDelete);
    Put(SYS_LCASE, 7, vis_LCaseNew(), vis_LCaseDelete);
    const int id = 6;
    vis_SPropSetValuei(Step(), 8, 4);
    vis_SPropSetValuei(Step(), 2, 1);
    vis_SPropSetValueiv(Step(), 3, &id);
    const std::string deck = Deck();
    EXPECT_EQ(deck.substr(deck.find("$***       Restraints")), "$***       Restraints\n$***       Loads\n*END\n");
}

TEST_F(D3DFwtTest, UnopenablePath)
{
    Use(BuildMesh(Line(2), {{SYS_SHAPE_LINE, 0, 0, 4, 1, 1, {1, 2}}}));
    const std::string bad = dir + "/missing/deck.k";
    vis_D3DFwt* d3d = vis_D3DFwtNew();
    vis_D3DFwtWriteModel(d3d, model, bad.c_str());
    ExpectOnlyReport("vis_D3DFwtWriteModel", 6, "path= " + bad);
    EXPECT_EQ(vis_D3DFwtError(d3d), 6);
    EXPECT_EQ(vis_D3DFwtError(d3d), 0); // the poll clears
    vis_D3DFwtDelete(d3d);
    // Through the dispatcher: the writer's report, then the dispatcher's.
    Reports().clear();
    vis_ConnectWrite(connect, 25, bad.c_str());
    ASSERT_EQ(Reports().size(), 2u);
    EXPECT_EQ(Reports()[1].name, "vis_ConnectWrite");
    EXPECT_EQ(Reports()[1].text, "pathname= " + bad);
}

TEST_F(D3DFwtTest, ModelWithoutMesh)
{
    // Neither grid function nor connectivity: code 5 "GridFun", the file empty.
    model = vis_ModelNew();
    const std::string path = File("nomesh.k");
    vis_D3DFwt* d3d = vis_D3DFwtNew();
    vis_D3DFwtWriteModel(d3d, model, path.c_str());
    ExpectOnlyReport("vis_D3DFwtWriteModel", 5, "GridFun");
    EXPECT_EQ(vis_D3DFwtError(d3d), 5);
    vis_D3DFwtDelete(d3d);
    EXPECT_EQ(ReadFile(path), "");
}

TEST_F(D3DFwtTest, ShapesNoCardHoldsAreSkipped)
{
    // A polygon shell of five nodes, a quadratic wedge and a point shell: no card holds them.
    // Their heads open (the feature has a card) but no line follows, and nothing is reported.
    std::vector<int> fifteen;
    for (int i = 1; i <= 15; ++i) fifteen.push_back(i);
    Use(BuildMesh(Line(15), {{SYS_SHAPE_POLYGON, 5, 5, 2, 1, 1, {1, 2, 3, 4, 5}},
                             {SYS_SHAPE_WED, 3, 0, 1, 1, 2, fifteen},
                             {SYS_SHAPE_POINT, 0, 0, 2, 1, 3, {1}}}));
    EXPECT_EQ(Deck(), kHead + LineNodes(15) + "$***       Elements\n*ELEMENT_SHELL\n*ELEMENT_SOLID\n*ELEMENT_SHELL\n*END\n");
    ExpectNoReport();
}

TEST_F(D3DFwtTest, NonUniqueIdsPrintIndices)
{
    // Nodes 1 and 2 share user id 7, elements share id 9: indices are printed instead.
    std::vector<MeshNode> nodes = Line(2);
    nodes[0].userid = nodes[1].userid = 7;
    Use(BuildMesh(nodes, {{SYS_SHAPE_LINE, 0, 0, 4, 1, 9, {1, 2}}, {SYS_SHAPE_LINE, 0, 0, 4, 1, 9, {2, 1}}}));
    const std::string want = kHead + "$***       Nodes\n*NODE\n" + I8(1) + F16("1.") + F16("0.") + F16("0.") + "\n" +
                             I8(2) + F16("2.") + F16("0.") + F16("0.") + "\n$***       Elements\n*ELEMENT_BEAM\n" +
                             Ints8({1, 1, 1, 2}) + "\n" + Ints8({2, 1, 2, 1}) + "\n*END\n";
    EXPECT_EQ(Deck(), want);
    ExpectNoReport();
}

// The reals of the fields of one line, for the given layout.
std::vector<double> Reals(const std::string& line, const Layout& layout)
{
    std::vector<double> v;
    size_t at = 0;
    for (const Field& f : layout) {
        if (f.kind == 'r') v.push_back(std::strtod(line.substr(at, f.width).c_str(), nullptr));
        at += f.width;
    }
    return v;
}

TEST_F(D3DFwtTest, NumbersReadBackWithinTheirFieldPrecision)
{
    // Coordinates over many magnitudes and signs, and shell thicknesses: each read back from
    // its field agrees to the digits the field holds, which are cut, not rounded. A 16-column
    // field keeps at least ten significant digits ("-d.dddddddddE-12": sign, point and a
    // four-character exponent take six), so the cut costs less than 1e-9 of the value; a
    // 10-column field keeps five ("-d.ddddE-4"), less than 1e-4.
    Rng rng(25);
    std::vector<MeshNode> nodes;
    std::vector<double> want;
    for (int i = 1; i <= 200; ++i) {
        MeshNode n{{0, 0, 0}, i, 1, 0};
        for (double& x : n.x) {
            const double mant = (rng.next() % 2000000) / 1000000.0 - 1.0;
            x = mant * std::pow(10.0, int(rng.next() % 25) - 12);
            want.push_back(x);
        }
        nodes.push_back(n);
    }
    Use(BuildMesh(nodes, {{SYS_SHAPE_POINT, 0, 0, 13, 1, 1, {1}}}));
    vis_EProp* shell = Put(SYS_EPROP, 1, vis_EPropNew(), vis_EPropDelete);
    vis_EPropDef(shell, 2);
    const double thick[4] = {1.234567e-7, 98765.4321, -0.000123456789, 3.0e21};
    vis_EPropSetValuedv(shell, 7, thick);
    const std::string deck = Deck();
    EXPECT_EQ(CheckDeck(deck), "");
    std::istringstream in(deck.substr(deck.find("*NODE\n") + 6));
    std::string line;
    const Layout node = CardRules().at("*NODE").layouts[0];
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(std::getline(in, line));
        const std::vector<double> got = Reals(line, node);
        for (int a = 0; a < 3; ++a) {
            const double x = want[3 * i + a];
            EXPECT_LE(std::fabs(got[a] - x), 1e-9 * std::fabs(x)) << line;
        }
    }
    const size_t at = deck.find("*SECTION_SHELL\n");
    ASSERT_NE(at, std::string::npos);
    std::istringstream sec(deck.substr(at));
    std::getline(sec, line);
    std::getline(sec, line);
    std::getline(sec, line);
    const std::vector<double> got = Reals(line, CardRules().at("*SECTION_SHELL").layouts[1]);
    for (int k = 0; k < 4; ++k) EXPECT_LE(std::fabs(got[k] - thick[k]), 1e-4 * std::fabs(thick[k])) << line;
}

} // namespace

namespace {

TEST(D3DFwtChecker, FindsLinesOutOfLayout)
{
    const std::string node = "*NODE\n" + I8(1) + F16("1.") + F16("0.") + F16("0.") + "\n";
    EXPECT_EQ(CheckDeck(node), "");
    // A coordinate one column short, an integer not right-aligned, a data line under a keyword
    // without cards, a node card past 80 columns.
    EXPECT_NE(CheckDeck("*NODE\n" + I8(1) + F16("1.").substr(1) + F16("0.") + F16("0.") + "\n"), "");
    EXPECT_NE(CheckDeck("*NODE\n1       " + F16("1.") + F16("0.") + F16("0.") + "\n"), "");
    EXPECT_NE(CheckDeck("*KEYWORD\n1\n"), "");
    EXPECT_NE(CheckDeck("*ELEMENT_SHELL\n" + std::string(88, '1') + "\n"), "");
}

} // namespace
