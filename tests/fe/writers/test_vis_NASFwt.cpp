// vis_NASFwt: golden decks of small meshes, written by hand from the card rules, compared byte
// for byte; and the failures the writer reports.
#include "NASFwtTestSupport.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vsy_HashTable.h"

using namespace nastest;
using namespace vsytest;

namespace {

// Coordinates in grid cards: vsy_RealToExp(v, 16, 0, 1, 0): "%23.15E" gives "E+00" or "E-01",
// one exponent zero is dropped (k 1), the mantissa keeps indices 0 to 12: a blank or sign,
// a digit, the point and ten decimals.
const std::string kZero = " 0.0000000000E+0";
const std::string kOne = " 1.0000000000E+0";
const std::string kHalf = " 5.0000000000E-1";
const std::string kTwo = " 2.0000000000E+0";

// "GRID*   %16d%16d" id and 0, x and y "%16s", "\n", "*       ", z "%16s", "%16d" csysid, "\n".
std::string Grid(int id, const std::string& x, const std::string& y, const std::string& z, int cs = 0)
{
    return "GRID*   " + I16(id) + I16(0) + x + y + "\n*       " + z + I16(cs) + "\n";
}

// A connectivity reads an element user id 0 as the index; a grid function can give 0 itself.
// This element association slot gives user id 0 for element 3 and the connectivity's answer
// otherwise.
void ElemAssocIdZero(void* obj, int type, int nix, const int* ix, int* values)
{
    vis_ConnectElemAssoc(static_cast<vis_Connect*>(obj), type, nix, ix, values);
    for (int i = 0; i < nix; ++i)
        if (type == 10 && ix[i] == 3) values[i] = 0;
}

class NASFwtTest : public CardTest {
protected:
    void TearDown() override
    {
        if (gf) vis_GridFunDelete(gf);
        CardTest::TearDown();
    }
    // Hands the model a grid function of its own over the connectivity, with element 3's id 0.
    void UseIdZeroGridFun()
    {
        gf = vis_GridFunNew();
        vis_ConnectGridFun(connect, gf);
        vis_GridFunSet(gf, VIS_GRIDFUN_ELEMASSOC, reinterpret_cast<vis_GridFunc>(ElemAssocIdZero));
        vis_ModelSetObject(model, SYS_GRIDFUN, gf);
    }
    vis_GridFun* gf = nullptr;
};

// Five grid points, a scalar point, a node without card, and one element of each linear card.
TEST_F(NASFwtTest, SmallMeshDeck)
{
    Use(BuildMesh({{{0, 0, 0}, 11, 1, 0},
                   {{1, 0, 0}, 12, 1, 0},
                   {{1, 1, 0}, 13, 1, 0},
                   {{0, 1, 0}, 14, 1, 0},
                   {{0.5, 0.5, 1}, 15, 1, 0},
                   {{2, 0, 0}, 16, 2, 0},
                   {{3, 0, 0}, 17, 0, 0}},
                  {{SYS_SHAPE_QUAD, 0, 0, 2, 7, 21, {1, 2, 3, 4}},
                   {SYS_SHAPE_TET, 0, 0, 1, 8, 22, {1, 2, 3, 5}},
                   {SYS_SHAPE_PYR, 0, 0, 1, 8, 0, {1, 2, 3, 4, 5}},
                   {SYS_SHAPE_LINE, 0, 0, 5, 9, 30, {1, 5}},
                   {SYS_SHAPE_TRI, 0, 0, 1, 8, 25, {1, 2, 5}, 3},
                   {SYS_SHAPE_POINT, 0, 0, 13, 0, 26, {5}}}));
    UseIdZeroGridFun();
    const std::string deck = Write(model, File("small.bdf"));
    std::string want = "BEGIN BULK\n";  // no solution step list: no executive or case control
    want += "$          Grid points\n";
    want += Grid(11, kZero, kZero, kZero);
    want += Grid(12, kOne, kZero, kZero);
    want += Grid(13, kOne, kOne, kZero);
    want += Grid(14, kZero, kOne, kZero);
    want += Grid(15, kHalf, kHalf, kOne);
    want += "SPOINT  " + I8(16) + "\n";  // featype 2; node 17 (featype 0) has no card
    want += "$          Elements\n";
    // Shell quadrilateral: name, id, property, four nodes, the empty field "%8s"; no property
    // table and no thickness object, so no thickness line.
    want += "CQUAD4  " + I8(21) + I8(7) + I8(11) + I8(12) + I8(13) + I8(14) + kBlank8 + "\n";
    want += "CTETRA  " + I8(22) + I8(8) + I8(11) + I8(12) + I8(13) + I8(15) + "\n";
    // The pyramid has id 0: the counter starts at the largest id, 30, so it takes 31. It is a
    // hexahedron 11 12 13 14 and the apex 15 four times: six nodes, then two on the next line.
    want += "CHEXA   " + I8(31) + I8(8) + I8(11) + I8(12) + I8(13) + I8(14) + I8(15) + I8(15) + "\n";
    want += kBlank8 + I8(15) + I8(15) + "\n";
    want += "CROD    " + I8(30) + I8(9) + I8(11) + I8(15) + "\n";
    // Solid triangle with featwod 3: CTRIAX in the triangle's form.
    want += "CTRIAX  " + I8(25) + I8(8) + I8(11) + I8(12) + I8(15) + "\n";
    // Mass: id, node, csysid 0, and the mass as a small field: 0 without a property, "0."
    // in seven columns and a blank.
    want += "CONM2   " + I8(26) + I8(15) + I8(0) + "     0. \n";
    want += "ENDDATA\n";
    EXPECT_EQ(deck, want);
    ExpectNoReport();
}

TEST_F(NASFwtTest, UnopenablePath)
{
    Use(BuildMesh({{{0, 0, 0}, 1, 1, 0}}, {{SYS_SHAPE_POINT, 0, 0, 13, 0, 1, {1}}}));
    vis_NASFwt* nas = vis_NASFwtNew();
    const std::string path = dir + "/missing/deck.bdf";
    vis_NASFwtWriteModel(nas, model, path.c_str());
    ExpectOnlyReport("vis_NASFwtWriteModel", 6, "path= " + path);
    EXPECT_EQ(vis_NASFwtError(nas), 6);
    EXPECT_EQ(vis_NASFwtError(nas), 0);
    vis_NASFwtDelete(nas);
}

TEST_F(NASFwtTest, ModelWithoutMesh)
{
    model = vis_ModelNew();
    vis_NASFwt* nas = vis_NASFwtNew();
    const std::string path = File("empty.bdf");
    vis_NASFwtWriteModel(nas, model, path.c_str());
    ExpectOnlyReport("vis_NASFwtWriteModel", 5, "GridFun");
    EXPECT_EQ(vis_NASFwtError(nas), 5);
    // The file was opened and stays empty.
    EXPECT_EQ(ReadFile(path), "");
    // The same writer then writes a good model.
    Reports().clear();
    vis_NASFwtDelete(nas);
    nas = vis_NASFwtNew();
    vis_NASFwtWriteModel(nas, nullptr, path.c_str());
    ExpectOnlyReport("vis_NASFwtWriteModel", 5, "Model");
    vis_NASFwtDelete(nas);
}

TEST_F(NASFwtTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(vis_NASFwtNew(), nullptr);
    RestoreAllocation();
    ExpectOnlyReport("NASFwt", 4, "Creation Failure");
}

// Repeated node ids: every node is printed by its index; element ids stay.
TEST_F(NASFwtTest, NonUniqueNodeIds)
{
    Use(BuildMesh({{{0, 0, 0}, 5, 1, 0}, {{1, 0, 0}, 5, 1, 0}},
                  {{SYS_SHAPE_LINE, 0, 0, 5, 3, 40, {1, 2}}}));
    const std::string deck = Write(model, File("ids.bdf"));
    const std::string want = "BEGIN BULK\n$          Grid points\n" + Grid(1, kZero, kZero, kZero) +
                             Grid(2, kOne, kZero, kZero) + "$          Elements\n" + "CROD    " + I8(40) +
                             I8(3) + I8(1) + I8(2) + "\nENDDATA\n";
    EXPECT_EQ(deck, want);
    ExpectNoReport();
}

// Repeated element ids: elements by index.
TEST_F(NASFwtTest, NonUniqueElementIds)
{
    Use(BuildMesh({{{0, 0, 0}, 5, 0, 0}, {{1, 0, 0}, 6, 0, 0}},
                  {{SYS_SHAPE_LINE, 0, 0, 5, 3, 9, {1, 2}}, {SYS_SHAPE_LINE, 0, 0, 5, 3, 9, {2, 1}}}));
    const std::string deck = Write(model, File("eids.bdf"));
    const std::string want = "BEGIN BULK\n$          Grid points\n$          Elements\n" "CROD    " + I8(1) +
                             I8(3) + I8(5) + I8(6) + "\nCROD    " + I8(2) + I8(3) + I8(6) + I8(5) + "\nENDDATA\n";
    EXPECT_EQ(deck, want);
}

// Shapes and orders no card holds write nothing and report nothing: a polygon, a solid line, a
// quartic quadrilateral, a shell hexahedron, a truss of three nodes.
TEST_F(NASFwtTest, ShapesWithoutCard)
{
    Use(BuildMesh({{{0, 0, 0}, 1, 0, 0}, {{1, 0, 0}, 2, 0, 0}, {{1, 1, 0}, 3, 0, 0}, {{0, 1, 0}, 4, 0, 0}},
                  {{SYS_SHAPE_POLYGON, 4, 4, 1, 1, 10, {1, 2, 3, 4}},
                   {SYS_SHAPE_LINE, 0, 0, 1, 1, 11, {1, 2}},
                   {SYS_SHAPE_QUAD, 4, 0, 1, 1, 12, {1, 2, 3, 4, 1, 2, 3, 4, 1, 2, 3, 4}},
                   {SYS_SHAPE_LINE, 3, 0, 5, 1, 13, {1, 2, 3}}}));
    const std::string deck = Write(model, File("none.bdf"));
    EXPECT_EQ(deck, "BEGIN BULK\n$          Grid points\n$          Elements\nENDDATA\n");
    ExpectNoReport();
}

}  // namespace

namespace {

// Properties, element data and the deck of quadratic solids and shells with thicknesses.
class NASFwtCardTest : public NASFwtTest {
protected:
    void TearDown() override
    {
        for (vis_EProp* p : props) vis_EPropDelete(p);
        if (eprops) vsy_HashTableDelete(eprops);
        if (elemdats) vsy_HashTableDelete(elemdats);
        if (thick) vis_ElemDatDelete(thick);
        NASFwtTest::TearDown();
    }
    vis_EProp* Prop(int id, int type)
    {
        if (!eprops) {
            eprops = vsy_HashTableNew();
            vis_ModelSetHashTable(model, SYS_EPROP, eprops);
        }
        vis_EProp* p = vis_EPropNew();
        vis_EPropDef(p, type);
        props.push_back(p);
        vsy_HashTableInsert(eprops, id, p);
        return p;
    }
    void Thickness(int elem, std::vector<double> t)
    {
        if (!thick) {
            thick = vis_ElemDatNew();
            vis_ElemDatDef(thick, 20, VIS_ELEMDAT_THICKNESS, 8);
            elemdats = vsy_HashTableNew();
            vsy_HashTableInsert(elemdats, VIS_ELEMDAT_THICKNESS, thick);
            vis_ModelSetHashTable(model, SYS_ELEMDAT, elemdats);
        }
        vis_ElemDatSetDatadv(thick, elem, static_cast<int>(t.size()), t.data());
    }
    std::vector<vis_EProp*> props;
    vsy_HashTable* eprops = nullptr;
    vsy_HashTable* elemdats = nullptr;
    vis_ElemDat* thick = nullptr;
};

std::vector<int> Range(int n)
{
    std::vector<int> v(n);
    for (int i = 0; i < n; ++i) v[i] = i + 1;
    return v;
}

// The elements part of a deck: from the section's comment line to the end of the file.
std::string ElementsOf(const std::string& deck)
{
    const size_t at = deck.find("$          Elements\n");
    return at == std::string::npos ? "(no elements)" : deck.substr(at);
}

TEST_F(NASFwtCardTest, QuadraticSolidsShellsSpringsMass)
{
    // Twenty nodes without featype (no grid cards), ids 101 to 120.
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 20; ++i) nodes.push_back({{0.0, 0.0, 0.0}, 100 + i, 0, 0});
    const int mask0 = 1 << 16;  // edge 0 of the tetrahedron has no midside node
    Use(BuildMesh(nodes, {{SYS_SHAPE_HEX, 3, 0, 1, 5, 1, Range(20)},
                          {SYS_SHAPE_WED, 3, 0, 1, 5, 2, Range(15)},
                          {SYS_SHAPE_TET, 3, mask0, 1, 5, 3, {1, 2, 3, 4, 6, 7, 8, 9, 10}},
                          {SYS_SHAPE_TRI, 3, 0, 1, 5, 4, Range(6)},
                          {SYS_SHAPE_QUAD, 3, 0, 1, 5, 5, Range(8)},
                          {SYS_SHAPE_TRI, 3, 3, 2, 6, 6, Range(6)},
                          {SYS_SHAPE_QUAD, 3, 0, 2, 7, 7, Range(8)},
                          {SYS_SHAPE_TRI, 0, 0, 2, 8, 8, Range(3)},
                          {SYS_SHAPE_QUAD, 0, 0, 3, 7, 9, Range(4)},
                          {SYS_SHAPE_TRI, 0, 0, 2, 8, 10, Range(3)},
                          {SYS_SHAPE_QUAD, 3, 0, 2, 8, 11, Range(8)},
                          {SYS_SHAPE_LINE, 0, 0, 9, 9, 12, {1, 2}},
                          {SYS_SHAPE_LINE, 0, 0, 9, 9, 13, {1, 1}, 0, 3},
                          {SYS_SHAPE_POINT, 0, 0, 13, 10, 14, {1}, 0, 0, 3},
                          {SYS_SHAPE_TRI, 3, 0, 2, 8, 15, Range(6)},
                          {SYS_SHAPE_PYR, 3, 0, 1, 5, 16, Range(13)}}));
    const double t7[4] = {0.01, 0.01, 0.01, 0.01};
    vis_EProp* p7 = Prop(7, 2);
    vis_EPropSetValuedv(p7, 7, t7);
    vis_EPropSetValuec(p7, 66 + SYS_SHAPE_QUAD, "CQUADR");
    const double t8[4] = {0.005, 0.005, 0.005, 0.005};
    vis_EPropSetValuedv(Prop(8, 2), 7, t8);
    vis_EProp* p9 = Prop(9, 9);
    vis_EPropSetValuei(p9, 49, 1);
    vis_EPropSetValuei(p9, 50, 2);
    const double mass[3] = {2.5, 2.5, 2.5};
    vis_EPropSetValuedv(Prop(10, 13), 51, mass);
    Thickness(7, {0.01, 0.02, 0.03, 0.04, 0.0, 0.0, 0.0, 0.0});
    Thickness(9, {0.01, 0.01, 0.0100001, 0.01});
    Thickness(10, {0.005, 0.006, 0.005});
    Thickness(15, {0.005, 0.005, 0.007, 0.0, 0.0, 0.0});
    ASSERT_TRUE(Reports().empty());

    std::string want = "$          Elements\n";
    // Hexahedron of order 3: nodes 1 to 6; 7 to 12, 17, 18; 19, 20, 13, 14, 15, 16 (ids +100).
    want += "CHEXA   " + I8(1) + I8(5) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(106) + "\n";
    want += kBlank8 + I8(107) + I8(108) + I8(109) + I8(110) + I8(111) + I8(112) + I8(117) + I8(118) + "\n";
    want += kBlank8 + I8(119) + I8(120) + I8(113) + I8(114) + I8(115) + I8(116) + "\n";
    // Wedge of order 3: 1 to 6; 7, 8, 9, 13, 14, 15, 10, 11; 12.
    want += "CPENTA  " + I8(2) + I8(5) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(106) + "\n";
    want += kBlank8 + I8(107) + I8(108) + I8(109) + I8(113) + I8(114) + I8(115) + I8(110) + I8(111) + "\n";
    want += kBlank8 + I8(112) + "\n";
    // Tetrahedron of order 3 with edge 0 masked: the stored nine nodes are the corners and the
    // midside nodes of edges 1 to 5; position 5 (edge 0) is written as 0.
    want += "CTETRA  " + I8(3) + I8(5) + I8(101) + I8(102) + I8(103) + I8(104) + I8(0) + I8(106) + "\n";
    want += kBlank8 + I8(107) + I8(108) + I8(109) + I8(110) + "\n";
    // Solid triangle and quadrilateral of order 3.
    want += "CTRIA6  " + I8(4) + I8(5) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(106) + "\n";
    want += "CQUAD8  " + I8(5) + I8(5) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(106) + "\n";
    want += kBlank8 + I8(107) + I8(108) + "\n";
    // Lagrange triangle (maxj 3) as a shell: stored 1, 3, 6, 2, 5, 4 are corners, then the
    // midside nodes; property 6 is not in the table, so no thickness of its own.
    want += "CTRIA6  " + I8(6) + I8(6) + I8(101) + I8(103) + I8(106) + I8(102) + I8(105) + I8(104) + "\n";
    // Shell quadrilateral of order 3, property 7 (thickness .01, quad name CQUADR), its own
    // corner thicknesses .01 .02 .03 .04: fixed forms ".01" ... in seven columns and a blank,
    // after nodes 7 and 8; then the empty "%8s".
    want += "CQUADR  " + I8(7) + I8(7) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(106) + "\n";
    want += kBlank8 + I8(107) + I8(108) + "    .01     .02     .03     .04 " + kBlank8 + "\n";
    // Shell triangle of property 8 (.005) without element data: no thickness line.
    want += "CTRIA3  " + I8(8) + I8(8) + I8(101) + I8(102) + I8(103) + kBlank8 + "\n";
    // Membrane quadrilateral of property 7: one corner 1e-7 off, within 2e-7: no thickness.
    want += "CQUADR  " + I8(9) + I8(7) + I8(101) + I8(102) + I8(103) + I8(104) + kBlank8 + "\n";
    // Shell triangle with corners .005 .006 .005: three empty fields and three values.
    want += "CTRIA3  " + I8(10) + I8(8) + I8(101) + I8(102) + I8(103) + kBlank8 + "\n";
    want += kBlank8 + kBlank8 + kBlank8 + "   .005    .006    .005 \n";
    // Shell quadrilateral of order 3 without own thickness: four empty fields, then "%8s".
    want += "CQUAD8  " + I8(11) + I8(8) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(106) + "\n";
    want += kBlank8 + I8(107) + I8(108) + kBlank8 + kBlank8 + kBlank8 + kBlank8 + kBlank8 + "\n";
    // Spring, feaspec 0, two nodes: dofs 1 and 2 from parameters 49 and 50.
    want += "CELAS1  " + I8(12) + I8(9) + I8(101) + I8(1) + I8(102) + I8(2) + "\n";
    // Spring, feaspec 3, the same node twice: the one-node form.
    want += "CBUSH   " + I8(13) + I8(9) + I8(101) + "\n";
    // Mass 2.5 ("2.500000" trimmed to "2.5") with the element's csysid 3.
    want += "CONM2   " + I8(14) + I8(101) + I8(3) + "    2.5 \n";
    // Shell CTRIA6 with corners .005 .005 .007: "        ", the empty "%8s", one empty field.
    want += "CTRIA6  " + I8(15) + I8(8) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(106) + "\n";
    want += kBlank8 + kBlank8 + kBlank8 + "   .005    .005    .007 \n";
    // Pyramid of order 3 (corners 1 to 4, apex 5, base edge nodes 6 to 9, apex edge nodes 10
    // to 13) as a hexahedron of order 3: corners 1 2 3 4 5 5 5 5; bottom edges 6 7 8 9; top
    // edges collapsed to the apex 5 5 5 5; vertical edges 10 11 12 13. Written in the
    // hexahedron's order: 1 to 6; 7 to 12, 17, 18; 19, 20, 13 to 16 (positions of that list).
    want += "CHEXA   " + I8(16) + I8(5) + I8(101) + I8(102) + I8(103) + I8(104) + I8(105) + I8(105) + "\n";
    want += kBlank8 + I8(105) + I8(105) + I8(106) + I8(107) + I8(108) + I8(109) + I8(110) + I8(111) + "\n";
    want += kBlank8 + I8(112) + I8(113) + I8(105) + I8(105) + I8(105) + I8(105) + "\n";
    // Properties in slot order of an 11-slot table: homes k * 2654435761 mod 11 are 1 for 10,
    // 2 for 9, 3 for 8, 4 for 7. The mass (10) writes no card. The spring 9 has dof 1 set:
    // PELAS with stiffness, damping and stress coefficient unset, 0. in large fields. Shells 8
    // and 7: no material (0); thickness "%8s" of .005 and .01 (fixed, trailing zeros cut);
    // bending ratio 1. and shear ratio 5/6 by default: ".833333333333333" cut to eight
    // characters, shorter than the exponent form " 8.333E-1", fills the field; no mass 0.
    want += "$          Element properties\n";
    want += "PELAS*  " + I16(9) + R("0.", 15) + " " + R("0.", 15) + " " + R("0.", 15) + " \n";
    want += "PSHELL  " + I8(8) + I8(0) + "    .005" + I8(0) + "     1. " + I8(0) + ".8333333     0. \n";
    want += "PSHELL  " + I8(7) + I8(0) + "     .01" + I8(0) + "     1. " + I8(0) + ".8333333     0. \n";
    want += "ENDDATA\n";
    EXPECT_EQ(ElementsOf(Write(model, File("cards.bdf"))), want);
    ExpectNoReport();
}

}  // namespace

namespace {

// More nodes and elements than one run of reads (512): ids and associations across the runs.
TEST_F(NASFwtTest, ManyNodesAndElements)
{
    const int n = 1100;
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= n + 1; ++i) nodes.push_back({{0.0, 0.0, 0.0}, 10000 + i, i % 3 == 0 ? 2 : 1, i % 7});
    std::vector<MeshElem> elems;
    for (int i = 1; i <= n; ++i) elems.push_back({SYS_SHAPE_LINE, 0, 0, 5, i % 5, 5000 + i, {i, i + 1}});
    Use(BuildMesh(nodes, elems));
    std::string want = "BEGIN BULK\n$          Grid points\n";
    // Every third node is a scalar point; the others are grid points in system i mod 7.
    for (int i = 1; i <= n + 1; ++i)
        want += i % 3 == 0 ? "SPOINT  " + I8(10000 + i) + "\n" : Grid(10000 + i, kZero, kZero, kZero, i % 7);
    want += "$          Elements\n";
    for (int i = 1; i <= n; ++i) want += "CROD    " + I8(5000 + i) + I8(i % 5) + I8(10000 + i) + I8(10001 + i) + "\n";
    want += "ENDDATA\n";
    EXPECT_EQ(Write(model, File("many.bdf")), want);
    ExpectNoReport();
}

}  // namespace
