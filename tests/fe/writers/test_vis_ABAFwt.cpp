// vis_ABAFwt on small models: element names of every shape and order, the deck's edge cases,
// steps, requests and load keywords. Every expected deck is written by hand from the rules.
#include "ABAFwtModelTest.h"

using namespace nastest;
using namespace vsytest;
using namespace abatest;

namespace {

TEST_F(ABAFwtTest, SolidsOfEveryShapeAndOrder)
{
    // Solids (featype 1) of property 1, ids 1 to 10, all on nodes 1 to 20. In a stress deck
    // (no step list) a solid is C3D and its node count.
    Mesh(Origin(20), {{SYS_SHAPE_TET, 0, 0, 1, 1, 1, Seq(4)},
                      {SYS_SHAPE_TET, 3, 0, 1, 1, 2, Seq(10)},
                      {SYS_SHAPE_WED, 0, 0, 1, 1, 3, Seq(6)},
                      {SYS_SHAPE_WED, 3, 0, 1, 1, 4, Seq(15)},
                      {SYS_SHAPE_HEX, 0, 0, 1, 1, 5, Seq(8)},
                      {SYS_SHAPE_HEX, 3, 0, 1, 1, 6, Seq(20)},
                      {SYS_SHAPE_PYR, 0, 0, 1, 1, 7, Seq(5)},
                      {SYS_SHAPE_PYR, 3, 0, 1, 1, 8, Seq(13)}});
    std::string want = "*HEADING\nABAQUS input deck\n" + OriginDeck(20) + "**         Elements\n";
    // Largest id 20, two digits: 71 / 4 = 17 entries, at most 16 to a line.
    want += "*ELEMENT, TYPE=C3D4, ELSET=PID1\n1, 1, 2, 3, 4\n";
    want += "*ELEMENT, TYPE=C3D10, ELSET=PID1\n2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10\n";
    want += "*ELEMENT, TYPE=C3D6, ELSET=PID1\n3, 1, 2, 3, 4, 5, 6\n";
    // The library's order of a quadratic wedge (bottom, top, vertical edges) is the deck's.
    want += "*ELEMENT, TYPE=C3D15, ELSET=PID1\n4, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15\n";
    want += "*ELEMENT, TYPE=C3D8, ELSET=PID1\n5, 1, 2, 3, 4, 5, 6, 7, 8\n";
    // Twenty nodes: sixteen, a comma and a line break, then four.
    want += "*ELEMENT, TYPE=C3D20, ELSET=PID1\n6, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,\n"
            " 17, 18, 19, 20\n";
    // Pyramids become degenerate hexahedra: the apex 5 four times on top. Of order 3 the base
    // midside nodes 6 to 9 stay, the top edges collapse into 5 and the apex edges' midside
    // nodes 10 to 13 stand on the vertical edges.
    want += "*ELEMENT, TYPE=C3D8, ELSET=PID1\n7, 1, 2, 3, 4, 5, 5, 5, 5\n";
    want += "*ELEMENT, TYPE=C3D20, ELSET=PID1\n8, 1, 2, 3, 4, 5, 5, 5, 5, 6, 7, 8, 9, 5, 5, 5, 5,\n"
            " 10, 11, 12, 13\n";
    want += Eall(8);
    EXPECT_EQ(Deck(), want);
}

TEST_F(ABAFwtTest, PlaneSolidsByFeatwod)
{
    // Plane solids: featwod 3 CAX, 1 CPE, any other CPS (0 and 2 alike: the fall through is
    // plane stress).
    MeshElem tri0{SYS_SHAPE_TRI, 0, 0, 1, 1, 1, Seq(3)}, quad0{SYS_SHAPE_QUAD, 0, 0, 1, 1, 2, Seq(4)};
    MeshElem tri6{SYS_SHAPE_TRI, 3, 0, 1, 1, 3, Seq(6)}, quad8{SYS_SHAPE_QUAD, 3, 0, 1, 1, 4, Seq(8)};
    MeshElem strain{SYS_SHAPE_QUAD, 0, 0, 1, 1, 5, Seq(4)}, axi{SYS_SHAPE_TRI, 0, 0, 1, 1, 6, Seq(3)};
    MeshElem stress{SYS_SHAPE_QUAD, 0, 0, 1, 1, 7, Seq(4)};
    strain.featwod = 1;
    axi.featwod = 3;
    stress.featwod = 2;
    Mesh(Origin(8), {tri0, quad0, tri6, quad8, strain, axi, stress});
    std::string want = "*HEADING\nABAQUS input deck\n" + OriginDeck(8) + "**         Elements\n";
    want += "*ELEMENT, TYPE=CPS3, ELSET=PID1\n1, 1, 2, 3\n*ELEMENT, TYPE=CPS4, ELSET=PID1\n2, 1, 2, 3, 4\n";
    want += "*ELEMENT, TYPE=CPS6, ELSET=PID1\n3, 1, 2, 3, 4, 5, 6\n";
    want += "*ELEMENT, TYPE=CPS8, ELSET=PID1\n4, 1, 2, 3, 4, 5, 6, 7, 8\n";
    want += "*ELEMENT, TYPE=CPE4, ELSET=PID1\n5, 1, 2, 3, 4\n*ELEMENT, TYPE=CAX3, ELSET=PID1\n6, 1, 2, 3\n";
    want += "*ELEMENT, TYPE=CPS4, ELSET=PID1\n7, 1, 2, 3, 4\n";
    want += Eall(7);
    EXPECT_EQ(Deck(), want);
}

TEST_F(ABAFwtTest, ShellsMembranesBeamsTrusses)
{
    MeshElem sax1{SYS_SHAPE_LINE, 0, 0, 2, 2, 6, Seq(2)}, sax2{SYS_SHAPE_LINE, 3, 0, 2, 2, 7, Seq(3)};
    MeshElem flat{SYS_SHAPE_LINE, 0, 0, 2, 2, 8, Seq(2)};
    sax1.featwod = sax2.featwod = 3;
    Mesh(Origin(9), {{SYS_SHAPE_TRI, 0, 0, 2, 2, 1, Seq(3)},
                     {SYS_SHAPE_QUAD, 0, 0, 2, 2, 2, Seq(4)},
                     {SYS_SHAPE_TRI, 3, 0, 2, 2, 3, Seq(6)},
                     {SYS_SHAPE_QUAD, 3, 0, 2, 2, 4, Seq(8)},
                     {SYS_SHAPE_QUAD, 3, 3, 2, 2, 5, Seq(9)},
                     sax1, sax2, flat,
                     {SYS_SHAPE_QUAD, 0, 0, 3, 3, 9, Seq(4)},
                     {SYS_SHAPE_LINE, 0, 0, 4, 4, 10, Seq(2)},
                     {SYS_SHAPE_LINE, 3, 0, 4, 4, 11, Seq(3)},
                     {SYS_SHAPE_LINE, 0, 0, 5, 5, 12, Seq(2)}});
    std::string want = "*HEADING\nABAQUS input deck\n" + OriginDeck(9) + "**         Elements\n";
    // Shell surfaces by node count: 3 S3R, 4 S4R, 6 STRI65, 8 S8R, 9 (Lagrange 3 x 3) S9R5.
    want += "*ELEMENT, TYPE=S3R, ELSET=PID2\n1, 1, 2, 3\n*ELEMENT, TYPE=S4R, ELSET=PID2\n2, 1, 2, 3, 4\n";
    want += "*ELEMENT, TYPE=STRI65, ELSET=PID2\n3, 1, 2, 3, 4, 5, 6\n";
    want += "*ELEMENT, TYPE=S8R, ELSET=PID2\n4, 1, 2, 3, 4, 5, 6, 7, 8\n";
    want += "*ELEMENT, TYPE=S9R5, ELSET=PID2\n5, 1, 2, 3, 4, 5, 6, 7, 8, 9\n";
    // Axisymmetric shell lines: 2 nodes SAX1, 3 nodes SAX2; a shell line outside featwod 3
    // (element 8) is passed over.
    want += "*ELEMENT, TYPE=SAX1, ELSET=PID2\n6, 1, 2\n*ELEMENT, TYPE=SAX2, ELSET=PID2\n7, 1, 2, 3\n";
    // Membrane M3D and its count; beams B31, B32; truss T3D2.
    want += "*ELEMENT, TYPE=M3D4, ELSET=PID3\n9, 1, 2, 3, 4\n";
    want += "*ELEMENT, TYPE=B31, ELSET=PID4\n10, 1, 2\n*ELEMENT, TYPE=B32, ELSET=PID4\n11, 1, 2, 3\n";
    want += "*ELEMENT, TYPE=T3D2, ELSET=PID5\n12, 1, 2\n";
    want += Eall(12);
    EXPECT_EQ(Deck(), want);
}

TEST_F(ABAFwtTest, HeatNames)
{
    // A first step with analysis type 2 makes a heat deck.
    MeshElem axi{SYS_SHAPE_TRI, 0, 0, 1, 1, 3, Seq(3)}, dsax{SYS_SHAPE_LINE, 0, 0, 2, 2, 5, Seq(2)};
    axi.featwod = 3;
    dsax.featwod = 3;
    Mesh(Origin(8), {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, Seq(8)},
                     {SYS_SHAPE_QUAD, 0, 0, 1, 1, 2, Seq(4)},
                     axi,
                     {SYS_SHAPE_QUAD, 0, 0, 2, 2, 4, Seq(4)},
                     dsax,
                     {SYS_SHAPE_TRI, 0, 0, 3, 3, 6, Seq(3)},
                     {SYS_SHAPE_LINE, 0, 0, 4, 4, 7, Seq(2)},
                     {SYS_SHAPE_LINE, 0, 0, 5, 5, 8, Seq(2)}});
    vis_SPropSetValuei(Step(1), 0, 2);
    std::string want = "*HEADING\nABAQUS input deck\n" + OriginDeck(8) + "**         Elements\n";
    want += "*ELEMENT, TYPE=DC3D8, ELSET=PID1\n1, 1, 2, 3, 4, 5, 6, 7, 8\n";
    want += "*ELEMENT, TYPE=DC2D4, ELSET=PID1\n2, 1, 2, 3, 4\n*ELEMENT, TYPE=DCAX3, ELSET=PID1\n3, 1, 2, 3\n";
    want += "*ELEMENT, TYPE=DS4, ELSET=PID2\n4, 1, 2, 3, 4\n*ELEMENT, TYPE=DSAX1, ELSET=PID2\n5, 1, 2\n";
    want += "*ELEMENT, TYPE=DS3, ELSET=PID3\n6, 1, 2, 3\n";
    want += "*ELEMENT, TYPE=DC1D2, ELSET=PID4\n7, 1, 2\n*ELEMENT, TYPE=DC1D2, ELSET=PID5\n8, 1, 2\n";
    want += Eall(8);
    // The step: static in a heat deck is a steady state heat transfer; no restraint case, no
    // loads, no requests.
    want += "**         Steps\n*STEP\n*HEAT TRANSFER, STEADY STATE\n*BOUNDARY, OP=NEW\n*END STEP\n";
    EXPECT_EQ(Deck(), want);
}

TEST_F(ABAFwtTest, PropertyNameReplacesTheDefault)
{
    Mesh(Origin(8), {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, Seq(8)}, {SYS_SHAPE_TET, 0, 0, 1, 1, 2, Seq(4)}});
    // Parameter 73 (66 + hexahedron 7) names the hexahedra; tetrahedra keep C3D4.
    vis_EPropSetValuec(Prop(1, 1), 73, "C3D8R");
    const std::string deck = Deck();
    EXPECT_NE(deck.find("*ELEMENT, TYPE=C3D8R, ELSET=PID1\n1, 1, 2, 3, 4, 5, 6, 7, 8\n"), std::string::npos) << deck;
    EXPECT_NE(deck.find("*ELEMENT, TYPE=C3D4, ELSET=PID1\n2, 1, 2, 3, 4\n"), std::string::npos) << deck;
}

TEST_F(ABAFwtTest, NoStepListKeepsSetsAndProperties)
{
    Mesh(Origin(4), {{SYS_SHAPE_QUAD, 0, 0, 2, 3, 1, Seq(4)}});
    vis_EProp* shell = Prop(3, 2);
    vis_EPropSetValuei(shell, 0, 9);
    const double t[4] = {0.5, 0.5, 0.5, 0.5};
    vis_EPropSetValuedv(shell, 7, t);
    Group(SYS_NODEGROUP, 4, "edge.a", {1, 2});
    Group(SYS_ELEMGROUP, 5, "", {1});
    std::string want = "*HEADING\nABAQUS input deck\n" + OriginDeck(4) + "**         Elements\n";
    want += "*ELEMENT, TYPE=S4R, ELSET=PID3\n1, 1, 2, 3, 4\n" + Eall(1);
    // '.' becomes '_'; an unnamed element group takes ELEM_SET and its key.
    want += "**         Node sets\n*NSET, NSET=edge_a\n1,2,\n**         Element sets\n*ELSET, ELSET=ELEM_SET5\n1,\n";
    // Shell of material 9, thickness .5 (first corner), no element data: the thickness line.
    want += "**         Element properties\n*SHELL SECTION, ELSET=PID3, MATERIAL=MID9\n.5\n";
    EXPECT_EQ(Deck(), want);
}

TEST_F(ABAFwtTest, GroupNamedEallSuppressesTheGeneratedSet)
{
    Mesh(Origin(4), {{SYS_SHAPE_QUAD, 0, 0, 1, 1, 7, Seq(4)}, {SYS_SHAPE_TRI, 0, 0, 1, 1, 8, Seq(3)}});
    Group(SYS_ELEMGROUP, 1, "EALL", {1, 2});
    std::string want = "*HEADING\nABAQUS input deck\n" + OriginDeck(4) + "**         Elements\n";
    want += "*ELEMENT, TYPE=CPS4, ELSET=PID1\n7, 1, 2, 3, 4\n*ELEMENT, TYPE=CPS3, ELSET=PID1\n8, 1, 2, 3\n";
    // No generated set: the group itself is the EALL set of the element sets.
    want += "**         Element sets\n*ELSET, ELSET=EALL\n7,8,\n";
    EXPECT_EQ(Deck(), want);
}

TEST_F(ABAFwtTest, GroupNamedEallWithoutAllElementsKeepsTheGeneratedSet)
{
    Mesh(Origin(4), {{SYS_SHAPE_QUAD, 0, 0, 1, 1, 7, Seq(4)}, {SYS_SHAPE_TRI, 0, 0, 1, 1, 8, Seq(3)}});
    Group(SYS_ELEMGROUP, 1, "EALL", {1});
    const std::string deck = Deck();
    // The generated set stands, and the group, whose name the writer now holds, is left out.
    EXPECT_NE(deck.find(Eall(8)), std::string::npos) << deck;
    EXPECT_EQ(deck.find("*ELSET, ELSET=EALL\n"), std::string::npos) << deck;
}

TEST_F(ABAFwtTest, ChainOfHexahedraSharesOneHeader)
{
    // Three hexahedra of property 4 in a row along x: nodes 1 to 16 in four layers of four.
    std::vector<MeshNode> nodes;
    for (int i = 0; i < 4; ++i)
        for (int c = 0; c < 4; ++c) nodes.push_back({{double(i), double(c == 1 || c == 2), double(c >= 2)}, 4 * i + c + 1, 1, 0});
    std::vector<MeshElem> elems;
    for (int i = 0; i < 3; ++i) {
        const int a = 4 * i + 1, b = a + 4;
        elems.push_back({SYS_SHAPE_HEX, 0, 0, 1, 4, 100 + i, {a, b, b + 3, a + 3, a + 1, b + 1, b + 2, a + 2}});
    }
    Mesh(nodes, elems);
    const std::string deck = Deck();
    // One header, three data lines (largest id 102: three digits).
    const std::string want = "**         Elements\n*ELEMENT, TYPE=C3D8, ELSET=PID4\n"
                             "100, 1, 5, 8, 4, 2, 6, 7, 3\n101, 5, 9, 12, 8, 6, 10, 11, 7\n"
                             "102, 9, 13, 16, 12, 10, 14, 15, 11\n";
    EXPECT_NE(deck.find(want + Eall(102)), std::string::npos) << deck;
}

TEST_F(ABAFwtTest, SaveLastWithoutFrequencyFilesAtTheEnd)
{
    Mesh(Origin(8), {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, Seq(8)}});
    vis_SProp* s = Step(1);
    const int filed[2] = {3, 1}, printed[1] = {35};
    vis_SPropSetValuei(s, 26, 0);
    vis_SPropSetValuei(s, 27, 1);
    vis_SPropSetValuei(s, 30, 2);
    vis_SPropSetValueiv(s, 31, filed);
    vis_SPropSetValuei(s, 32, 1);
    vis_SPropSetValueiv(s, 33, printed);
    const std::string deck = Deck();
    // Frequency 0 with save last: 1000000. Displacement and reaction filed, in the keyword
    // order U, RF; stress printed at the nodes, as solids exist; no shells, so no directions.
    const std::string want = "*STEP\n*STATIC\n*BOUNDARY, OP=NEW\n*NODE FILE, FREQUENCY=1000000\nU, RF\n"
                             "*EL PRINT, FREQUENCY=1000000, POSITION=NODES\nS\n*END STEP\n";
    EXPECT_NE(deck.find("**         Steps\n" + want), std::string::npos) << deck;
}

TEST_F(ABAFwtTest, RequestsOfShellsAndBeams)
{
    Mesh(Origin(4), {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 1, Seq(4)}, {SYS_SHAPE_LINE, 0, 0, 4, 2, 2, Seq(2)}});
    vis_SProp* s = Step(1);
    const int filed[7] = {1, 30, 35, 94, 121, 95, 98};
    vis_SPropSetValuei(s, 26, 5);
    vis_SPropSetValuei(s, 30, 7);
    vis_SPropSetValueiv(s, 31, filed);
    const std::string deck = Deck();
    // Shells and beams: directions on the node file; stress and strain at the nodes; section
    // forces once though asked by 94 and 121, strains by 95; energy by its own keyword.
    const std::string want = "*NODE FILE, FREQUENCY=5, DIRECTIONS=YES\nU\n"
                             "*EL FILE, FREQUENCY=5, POSITION=NODES\nS, E\n"
                             "*EL FILE, FREQUENCY=5, POSITION=NODES\nSF, SE\n*EL FILE, FREQUENCY=5\nELEN\n*END STEP\n";
    EXPECT_NE(deck.find("*BOUNDARY, OP=NEW\n" + want), std::string::npos) << deck;
}

TEST_F(ABAFwtTest, ProceduresOfEveryKind)
{
    Mesh(Origin(8), {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, Seq(8)}});
    // 1 static then 3 buckling: one step with the buckling step's values (5 modes, upper
    // bound unset: ","). 2 frequency: 4 modes, lower bound 1.5, upper unset. 1 nonlinear
    // static with subtitle and label: NLGEOM, initial time .1 and termination 1 in "%16.9E".
    vis_SProp* pre = Step(1);
    vis_SPropSetValuei(Step(3), 1, 5);
    vis_SProp* freq = Step(2);
    vis_SPropSetValuei(freq, 1, 4);
    vis_SPropSetValued(freq, 11, 1.5);
    vis_SProp* nl = Step(1);
    vis_SPropSetValuei(nl, 16, 1);
    vis_SPropSetValued(nl, 5, 0.1);
    vis_SPropSetValued(nl, 7, 1.0);
    vis_SPropSetValuec(nl, 20, "Sub");
    vis_SPropSetValuec(nl, 21, "Lab");
    vis_SPropSetValuec(pre, 19, "Title");
    const std::string deck = Deck();
    std::string want = "**         Steps\n";
    want += "*STEP\n*BUCKLE\n5,,\n*BOUNDARY, OP=NEW\n*END STEP\n";
    want += "*STEP\n*FREQUENCY, EIGENSOLVER=LANCZOS\n4, 1.500000000E+00,,\n*BOUNDARY, OP=NEW\n*END STEP\n";
    want += "*STEP, NLGEOM\nSub\nLab\n*STATIC\n 1.000000000E-01, 1.000000000E+00,\n*BOUNDARY, OP=NEW\n*END STEP\n";
    EXPECT_EQ(deck.substr(0, 15), "*HEADING\nTitle\n");
    ASSERT_NE(deck.find("**         Steps\n"), std::string::npos) << deck;
    EXPECT_EQ(deck.substr(deck.find("**         Steps\n")), want);
}

TEST_F(ABAFwtTest, RestraintsAndLoadResets)
{
    Mesh(Origin(4), {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 1, Seq(4)}});
    vis_RCase* rc = vis_RCaseNew();
    rcases.push_back(rc);
    vsy_HashTableInsert(Table(SYS_RCASE), 1, rc);
    // Node 1: tags 1 to 3 fixed, a run. Node 2: tags 1 and 3, not a run: a line each. Node 3:
    // tag 2 prescribed 4.0, times the restraint factor 0.5. Node 4: one fixed tag is no run.
    for (int tag = 1; tag <= 3; ++tag) vis_RCaseSetSPCdv(rc, 1, tag, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 2, 1, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 2, 3, 1, 0.0);
    vis_RCaseSetSPCdv(rc, 3, 2, 2, 4.0);
    vis_RCaseSetSPCdv(rc, 4, 6, 1, 0.0);
    const double f[3] = {0.0, 2.0, 0.0};
    vis_LCaseSetConcdv(Load(7), 4, 1, f);
    vis_SProp* s1 = Step(1);
    const int ids[1] = {7};
    const double factor[1] = {3.0};
    vis_SPropSetValuei(s1, 8, 1);
    vis_SPropSetValued(s1, 9, 0.5);
    vis_SPropSetValuei(s1, 2, 1);
    vis_SPropSetValueiv(s1, 3, ids);
    vis_SPropSetValuedv(s1, 4, factor);
    Step(1);
    const std::string deck = Deck();
    std::string want = "**         Steps\n*STEP\n*STATIC\n*BOUNDARY, OP=NEW\n";
    want += "1, 1, 3, 0.\n2, 1,, 0.\n2, 3,, 0.\n3, 2,, 2.\n4, 6,, 0.\n";
    // The force 2.0 in y at node 4, times the case factor 3.
    want += "*CLOAD, OP=NEW\n**         Forces and moments\n4, 2, 6.\n*END STEP\n";
    // The second step has no loads: the keyword opened before is written alone to clear them.
    want += "*STEP\n*STATIC\n*BOUNDARY, OP=NEW\n*CLOAD, OP=NEW\n*END STEP\n";
    ASSERT_NE(deck.find("**         Steps\n"), std::string::npos) << deck;
    EXPECT_EQ(deck.substr(deck.find("**         Steps\n")), want);
}

TEST_F(ABAFwtTest, FailuresOfTheFrame)
{
    // A path in a directory that does not exist cannot be opened.
    Mesh(Origin(1), {});
    vis_ABAFwt* aba = vis_ABAFwtNew();
    Reports().clear();
    vis_ABAFwtWriteModel(aba, model, (dir + "/missing/x.inp").c_str());
    ExpectOnlyReport("vis_ABAFwtWriteModel", 6, "path= " + dir + "/missing/x.inp");
    EXPECT_EQ(vis_ABAFwtError(aba), 6);
    EXPECT_EQ(vis_ABAFwtError(aba), 0);
    vis_Model* empty = vis_ModelNew();
    Reports().clear();
    // A model with neither grid function nor connectivity.
    vis_ABAFwtWriteModel(aba, empty, File("empty.inp").c_str());
    ExpectOnlyReport("vis_ABAFwtWriteModel", 5, "GridFun");
    EXPECT_EQ(vis_ABAFwtError(aba), 5);
    vis_ModelDelete(empty);
    vis_ABAFwtDelete(aba);
}

}  // namespace
