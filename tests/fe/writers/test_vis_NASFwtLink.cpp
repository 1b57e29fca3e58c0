// vis_NASFwt: beam, gap, rigid and interface cards, in a golden elements section written from
// the card rules.
#include "NASFwtTestSupport.h"
#include "vis_CoordSys.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_ElemTopology.h"
#include "vsy_HashTable.h"

using namespace nastest;
using namespace vsytest;

namespace {

class NASFwtLinkTest : public WriterTest {
protected:
    void TearDown() override
    {
        for (vis_EProp* p : props) vis_EPropDelete(p);
        for (vis_ElemDat* d : dats) vis_ElemDatDelete(d);
        for (vsy_HashTable* t : tables) vsy_HashTableDelete(t);
        if (csys) vis_CoordSysDelete(csys);
        if (model) vis_ModelDelete(model);
        if (connect) vis_ConnectDelete(connect);
        WriterTest::TearDown();
    }
    vsy_HashTable* Table(int type)
    {
        vsy_HashTable* t = vsy_HashTableNew();
        tables.push_back(t);
        vis_ModelSetHashTable(model, type, t);
        return t;
    }
    vis_ElemDat* Dat(vsy_HashTable* t, int kind, int nval)
    {
        vis_ElemDat* d = vis_ElemDatNew();
        vis_ElemDatDef(d, 20, kind, nval);
        dats.push_back(d);
        vsy_HashTableInsert(t, kind, d);
        return d;
    }
    vis_EProp* Prop(vsy_HashTable* t, int id, int type)
    {
        vis_EProp* p = vis_EPropNew();
        vis_EPropDef(p, type);
        props.push_back(p);
        vsy_HashTableInsert(t, id, p);
        return p;
    }
    vis_Model* model = nullptr;
    vis_Connect* connect = nullptr;
    vis_CoordSys* csys = nullptr;
    std::vector<vis_EProp*> props;
    std::vector<vis_ElemDat*> dats;
    std::vector<vsy_HashTable*> tables;
};

TEST_F(NASFwtLinkTest, BeamsGapsRigidsInterfaces)
{
    // Eight nodes, ids equal to the indices, node 1 in system 5; no node featype: no grid cards.
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 8; ++i) nodes.push_back({{double(i - 1), 0.0, 0.0}, i, 0, i == 1 ? 5 : 0});
    const int L = SYS_SHAPE_LINE;
    connect = BuildMesh(nodes, {{L, 0, 0, 4, 30, 1, {1, 2}},
                                {L, 0, 0, 4, 30, 2, {2, 3}, 0, 0, 5},
                                {L, 0, 0, 4, 30, 3, {2, 3}, 0, 0, 9},
                                {L, 0, 0, 4, 30, 4, {2, 3}},
                                {L, 0, 0, 4, 30, 5, {2, 3}},
                                {L, 0, 0, 7, 7, 6, {1, 2}, 0, 0, 5},
                                {L, 0, 0, 7, 7, 7, {2, 3}},
                                {SYS_SHAPE_POLYGON, 8, 8, 10, 0, 8, {1, 2, 3, 4, 5, 6, 7, 8}},
                                {SYS_SHAPE_TRI, 0, 0, 10, 11, 9, {1, 2, 3}, 0, 1},
                                {SYS_SHAPE_QUAD, 0, 0, 14, 12, 11, {1, 2, 3, 4}, 0, 6},
                                {L, 0, 0, 14, 13, 12, {1, 2}, 0, 37},
                                {SYS_SHAPE_POINT, 0, 0, 10, 0, 10, {1}}});
    vis_ConnectSetElemAssoc(connect, 41, 1, 0xE00);  // second end: rotations released
    vis_ConnectSetElemAssoc(connect, 41, 4, 0x3);    // first end: translations 1, 2 released
    model = vis_ModelNew();
    vis_ModelSetObject(model, SYS_CONNECT, connect);
    csys = vis_CoordSysNew();
    const double origin[3] = {0, 0, 0}, triad[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    vis_CoordSysSetOriginTriaddv(csys, origin, triad);
    vsy_HashTableInsert(Table(SYS_COORDSYS), 5, csys);
    vsy_HashTable* ed = Table(SYS_ELEMDAT);
    vis_ElemDat* orient = Dat(ed, VIS_ELEMDAT_ORIENTATION, 3);
    vis_ElemDat* offsets = Dat(ed, VIS_ELEMDAT_OFFSETS, 6);
    const double y[3] = {0, 1, 0}, z[3] = {0, 0, 1};
    vis_ElemDatSetDatadv(orient, 1, 3, y);
    vis_ElemDatSetDatadv(orient, 7, 3, z);
    const double off1[6] = {0, 0.01, 0, 0, 0.02, 0}, off5[6] = {0, 0, 0.5, 0, 0, 0};
    vis_ElemDatSetDatadv(offsets, 1, 6, off1);
    vis_ElemDatSetDatadv(offsets, 5, 6, off5);
    vsy_HashTable* ep = Table(SYS_EPROP);
    vis_EProp* rbe3 = Prop(ep, 11, 10);
    vis_EPropSetValuei(rbe3, 83, 2);
    const double weights[2] = {1.0, 0.5};
    const int indep[2] = {63, 7}, dep[2] = {3, 63};
    vis_EPropSetValuedv(rbe3, 84, weights);
    vis_EPropSetValueiv(rbe3, 85, indep);
    vis_EPropSetValueiv(rbe3, 86, dep);
    Prop(ep, 12, 14);
    ASSERT_TRUE(Reports().empty());

    std::string want = "$          Elements\n";
    // Beam 1: vector (0,1,0) turned into system 5 of its first node: rows x (0,1,0), y
    // (-1,0,0), z (0,0,1) give (1,0,0). Releases 0xE00: pa 0, pb 456 (bits 9 to 11). Offsets of
    // the first end (0,.01,0) turned the same way: (.01,0,0), written twice, then an empty line.
    want += "CBEAM   " + I8(1) + I8(30) + I8(1) + I8(2) + "     1.      0.      0. \n";
    want += kBlank8 + I8(0) + I8(456) + "    .01      0.      0.     .01      0.      0. \n\n";
    // Beam 2: element system 5: its y row (-1,0,0) replaces the vector; first node 2 has no system.
    want += "CBEAM   " + I8(2) + I8(30) + I8(2) + I8(3) + "    -1.      0.      0. \n";
    // Beam 3: system 9 is not in the table: no card.
    // Beam 4: no vector (zeros); releases 3: pa 12, pb 0; no offsets: the line ends.
    want += "CBEAM   " + I8(4) + I8(30) + I8(2) + I8(3) + "     0.      0.      0. \n";
    want += kBlank8 + I8(12) + I8(0) + "\n";
    // Beam 5: offsets only: two empty fields, (0,0,.5) twice, the empty line.
    want += "CBEAM   " + I8(5) + I8(30) + I8(2) + I8(3) + "     0.      0.      0. \n";
    want += kBlank8 + kBlank8 + kBlank8 + "     0.      0.      .5      0.      0.      .5 \n\n";
    // Gap 6 with system 5: three zeros "%8.4f" and the system id.
    want += "CGAP    " + I8(6) + I8(7) + I8(1) + I8(2) + "  0.0000  0.0000  0.0000" + I8(5) + "\n";
    // Gap 7: its vector (0,0,1), first node 2 without system.
    want += "CGAP    " + I8(7) + I8(7) + I8(2) + I8(3) + "  0.0000  0.0000  1.0000\n";
    // RBE2: id, first node, flags 63 (no property) as 123456, then nodes 2 to 6 at positions 4
    // to 8; the line wraps, starts with an empty field, and nodes 7, 8 end it.
    want += "RBE2    " + I8(8) + I8(1) + I8(123456) + I8(2) + I8(3) + I8(4) + I8(5) + I8(6) + "\n";
    want += kBlank8 + I8(7) + I8(8) + "\n";
    // RBE3: id, empty field, reference node 1 with dependent flags 3 at position 0 (12); the
    // first remaining node opens group 1: weight .5 and flags 7 (123); node 3 follows alone.
    want += "RBE3    " + I8(9) + kBlank8 + I8(1) + I8(12) + "     .5 " + I8(123) + I8(2) + I8(3) + "\n";
    // Interface quadrilateral, feaspec 6: AREA4 and its four corners; with property 12 a CONV
    // card whose ambient node (the one after the corners) does not exist: 0.
    want += "CHBDYG  " + I8(11) + kBlank8 + "   AREA4\n" + kBlank8 + I8(1) + I8(2) + I8(3) + I8(4) + "\n";
    want += "CONV    " + I8(11) + I8(12) + kBlank8 + kBlank8 + I8(0) + "\n";
    // Interface line, feaspec 37, property 13 not in the table: REV, the two nodes, no CONV.
    want += "CHBDYG  " + I8(12) + kBlank8 + "     REV\n" + kBlank8 + I8(1) + I8(2) + "\n";
    // RBE2 of one node: its line stays open, and the deck's end follows on it.
    want += "RBE2    " + I8(10) + I8(1) + I8(123456);
    want += "ENDDATA\n";
    const std::string deck = Write(model, File("link.bdf"));
    const size_t at = deck.find("$          Elements\n");
    EXPECT_EQ(at == std::string::npos ? deck : deck.substr(at, deck.find("$          Coordinate") - at) +
                                                   deck.substr(deck.rfind("ENDDATA")),
              want);
    ExpectNoReport();
}

}  // namespace
