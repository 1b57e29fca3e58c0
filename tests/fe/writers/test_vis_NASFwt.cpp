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

class NASFwtTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (gf) vis_GridFunDelete(gf);
        if (model) vis_ModelDelete(model);
        if (connect) vis_ConnectDelete(connect);
        WriterTest::TearDown();
    }
    void Use(vis_Connect* c)
    {
        connect = c;
        model = vis_ModelNew();
        vis_ModelSetObject(model, SYS_CONNECT, connect);
    }
    // Hands the model a grid function of its own over the connectivity, with element 3's id 0.
    void UseIdZeroGridFun()
    {
        gf = vis_GridFunNew();
        vis_ConnectGridFun(connect, gf);
        vis_GridFunSet(gf, VIS_GRIDFUN_ELEMASSOC, reinterpret_cast<vis_GridFunc>(ElemAssocIdZero));
        vis_ModelSetObject(model, SYS_GRIDFUN, gf);
    }
    vis_Model* model = nullptr;
    vis_Connect* connect = nullptr;
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
