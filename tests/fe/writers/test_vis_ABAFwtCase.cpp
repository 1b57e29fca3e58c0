// vis_ABAFwt: loads of the stress and heat decks, contact surfaces and pairs, co-simulation,
// initial conditions, transforms and orientations. Expected lines are written by hand.
#include "ABAFwtModelTest.h"
#include "vis_CPair.h"
#include "vis_CoordSys.h"
#include "vis_ICase.h"

using namespace nastest;
using namespace vsytest;
using namespace abatest;

namespace {

/* The text from `from` on, or a note that it is missing. */
std::string From(const std::string& deck, const std::string& from)
{
    const size_t at = deck.find(from);
    return at == std::string::npos ? "(missing: " + from + ")\n" + deck : deck.substr(at);
}

class ABAFwtCaseTest : public ABAFwtTest {
protected:
    /* A hexahedron (element 1, property 1) and a shell quadrilateral (element 2, property 2). */
    void HexAndShell()
    {
        Mesh(Origin(8), {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, Seq(8)}, {SYS_SHAPE_QUAD, 0, 0, 2, 2, 2, Seq(4)}});
    }
    /* One step with load case 1 at factor 1. */
    vis_SProp* LoadStep(int domain)
    {
        vis_SProp* s = Step(1);
        const int ids[1] = {1};
        const double one[1] = {1.0};
        vis_SPropSetValuei(s, 0, domain);
        vis_SPropSetValuei(s, 2, 1);
        vis_SPropSetValueiv(s, 3, ids);
        vis_SPropSetValuedv(s, 4, one);
        return s;
    }
};

TEST_F(ABAFwtCaseTest, HeatLoads)
{
    HexAndShell();
    vis_LCase* lc = Load(1);
    const double q = 50.0, flux[4] = {4, 4, 4, 4}, gen[8] = {10, 10, 10, 10, 10, 10, 10, 10};
    /* Convection: per corner the sink temperature, then the film coefficient. */
    const double film[8] = {20, 5, 20, 5, 20, 5, 20, 5};
    vis_LCaseSetConcdv(lc, 1, 3, &q);
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 2, 5, flux);
    vis_LCaseSetDistdv(lc, SYS_FACE, 2, 1, 5, flux);
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 3, 6, film);
    vis_LCaseSetElemdv(lc, 1, 2, 8, gen);
    LoadStep(2);
    // Heat source at node 1 on dof 11. Flux on the hexahedron's face 2 (top: S2) and on the
    // shell (SPOS); heat generation the mean of the node values; convection on face 3 (the
    // y = -1 side: S3) with sink 20 and film 5.
    const std::string want = "*STEP\n*HEAT TRANSFER, STEADY STATE\n*BOUNDARY, OP=NEW\n"
                             "*CFLUX, OP=NEW\n**         Heat source\n1,11, 50.\n"
                             "*DFLUX, OP=NEW\n**         Distributed face flux\n1,S2, 4.\n2,SPOS, 4.\n"
                             "**         Distributed element heat generation\n1,BF, 10.\n"
                             "*FILM, OP=NEW\n**         Distributed face convection\n1,F3, 20., 5.\n*END STEP\n";
    EXPECT_EQ(From(Deck(), "*STEP\n"), want);
}

TEST_F(ABAFwtCaseTest, TractionsEdgePressureAndBodyLoads)
{
    HexAndShell();
    vis_LCase* lc = Load(1);
    const double trac[12] = {0, 0, -3, 0, 0, -3, 0, 0, -3, 0, 0, -3}, edge[2] = {5, 5};
    const double a[3] = {0, 0, 0}, w[3] = {0, 0, 2}, alpha[3] = {0, 3, 0}, centre[3] = {1, 0, 0};
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 1, 1, trac);
    vis_LCaseSetDistdv(lc, SYS_EDGE, 2, 2, 2, edge);
    vis_LCaseSetAcceldv(lc, a, w, alpha, centre);
    LoadStep(1);
    // Edge 2 of the shell: pressure 5. Face 1 of the hexahedron (bottom, S1): the traction
    // (0, 0, -3) as magnitude 3 and direction (0, 0, -1). Spin 2 about z through (1, 0, 0):
    // CENTRIF with 2^2 = 4; angular acceleration 3 about y: ROTA. No gravity: zero vector.
    const std::string want = "*DLOAD, OP=NEW\n**         Distributed edge pressure\n2,P2, 5.\n"
                             "**         Distributed face traction\n1,TRVEC1, 3., 0., 0., -1.\n"
                             "**         Centrifugal load\nEALL, CENTRIF, 4., 1., 0., 0., 0., 0., 1.\n"
                             "**         Rotary acceleration\nEALL, ROTA, 3., 1., 0., 0., 0., 1., 0.\n*END STEP\n";
    EXPECT_EQ(From(Deck(), "*DLOAD, OP=NEW\n"), want);
}

TEST_F(ABAFwtCaseTest, NodeSlaveMasterFacesAndCoSimulation)
{
    HexAndShell();
    vis_CPair* nodes = vis_CPairNew();
    vis_CPair* cosim = vis_CPairNew();
    drop.push_back([=] { vis_CPairDelete(nodes); vis_CPairDelete(cosim); });
    vis_CPairSetType(nodes, 1, 0);
    vis_CPairSetSlaveNodedv(nodes, 5, 1.0);
    vis_CPairSetSlaveNodedv(nodes, 6, 0.5);
    vis_CPairSetMaster(nodes, 1, 5);
    vis_CPairSetValuei(nodes, 2, 1);
    vis_CPairSetValuei(nodes, 7, 1);
    vis_CPairSetValuei(nodes, 0, 9);
    vis_CPairSetType(cosim, 2, 1);
    vis_CPairSetSlaveElem(cosim, 1, 2);
    vis_CPairSetMaster(cosim, 1, 4);
    vsy_HashTableInsert(Table(SYS_CPAIR), 4, cosim);
    vsy_HashTableInsert(Table(SYS_CPAIR), 3, nodes);
    // Property 9: a gap with no separation, open stiffness 100 at gap .5, closed stiffness
    // 1000, equal friction .3.
    vis_EProp* gap = Prop(9, 7);
    vis_EPropSetValuei(gap, 45, 1);
    vis_EPropSetValued(gap, 37, 100.0);
    vis_EPropSetValued(gap, 34, 0.5);
    vis_EPropSetValued(gap, 36, 1000.0);
    vis_EPropSetValued(gap, 39, 0.3);
    vis_EPropSetValued(gap, 40, 0.3);
    // Pair 3 first (ascending keys): node slaves "%d," for weight 1, else the weight; master
    // face 5 of the hexahedron (x = -1: S6); small sliding; symmetric, so both pair lines.
    std::string want = "**         Contact pairs and Co-simulation\n*SURFACE, TYPE=NODE, NAME=SLAVE3\n5,\n6, .5\n"
                       "*SURFACE, TYPE=ELEMENT, NAME=MASTER3\n1,S6\n"
                       "*CONTACT PAIR, SMALL SLIDING, INTERACTION=CPAIR3\nSLAVE3, MASTER3\nMASTER3, SLAVE3\n"
                       "*SURFACE INTERACTION, NAME=CPAIR3\n";
    // Tabular pressure-overclosure: (0, 0), (100 * .5, .5) = (50, .5), (50 + 1000, 1.5).
    want += "*SURFACE BEHAVIOR, NO SEPARATION, PRESSURE-OVERCLOSURE=TABULAR\n0., 0.\n50., .5\n1050., 1.5\n";
    want += "*FRICTION\n.3,\n";
    // Pair 4: slave kind 2 on face 2 (top: S2), master face 4 (y = +1: S5), linked: a
    // co-simulation of a stress deck.
    want += "*SURFACE, TYPE=ELEMENT, NAME=SLAVE4\n1,S2\n*SURFACE, TYPE=ELEMENT, NAME=MASTER4\n1,S5\n"
            "*CO-SIMULATION,EXPORT\nSLAVE4, U\n*CO-SIMULATION,IMPORT\nSLAVE4, CF\n";
    EXPECT_EQ(From(Deck(), "**         Contact pairs"), want);
}

TEST_F(ABAFwtCaseTest, InitialConditionsOfTheFirstStep)
{
    HexAndShell();
    vis_ICase* ic = vis_ICaseNew();
    drop.push_back([=] { vis_ICaseDelete(ic); });
    vis_ICaseSetSPVdv(ic, 1, 1, 7, 15.0);
    vis_ICaseSetSPVdv(ic, 2, 2, 1, 2.5);
    vis_ICaseSetSPVdv(ic, 2, 2, 2, -1.0);
    vsy_HashTableInsert(Table(SYS_ICASE), 6, ic);
    vis_SPropSetValuei(Step(1), 10, 6);
    const std::string want = "**         Initial Temperatures\n*INITIAL CONDITIONS, TYPE=TEMPERATURE\n1, 15.\n"
                             "*INITIAL CONDITIONS, TYPE=VELOCITY\n2,1, 2.5\n2,2, -1.\n**         Steps\n";
    EXPECT_EQ(From(Deck(), "**         Initial").substr(0, want.size()), want);
}

TEST_F(ABAFwtCaseTest, CylindricalTransformAndOrientation)
{
    std::vector<MeshNode> nodes = Origin(8);
    nodes[0].csysid = 3;
    Mesh(nodes, {{SYS_SHAPE_HEX, 0, 0, 1, 1, 1, Seq(8)}});
    vis_CoordSys* cs = vis_CoordSysNew();
    drop.push_back([=] { vis_CoordSysDelete(cs); });
    const double origin[3] = {1, 2, 3}, triad[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    vis_CoordSysDef(cs, VIS_COORDSYS_CYLINDRICAL);
    vis_CoordSysSetOriginTriaddv(cs, origin, triad);
    vsy_HashTableInsert(Table(SYS_COORDSYS), 3, cs);
    vis_EPropSetValuei(Prop(1, 1), 5, 3);
    const std::string deck = Deck();
    // Node 1 in system 3: its set, then the transform from the origin and the origin plus the
    // z axis.
    EXPECT_NE(deck.find("**         Transform node sets\n*NSET, NSET=CID3\n1\n**         Transforms\n"
                        "*TRANSFORM, NSET=CID3, TYPE=C\n1., 2., 3., 1., 2., 4.\n"),
              std::string::npos)
        << deck;
    // The solid property's material system 3 becomes the orientation MCID3 before its section;
    // material unset: MID0.
    EXPECT_NE(deck.find("**         Element properties\n*ORIENTATION, NAME=MCID3, SYSTEM=CYLINDRICAL\n"
                        "1., 2., 3., 1., 2., 4.\n1, 0.\n*SOLID SECTION, ELSET=PID1, MATERIAL=MID0, ORIENTATION=MCID3\n"),
              std::string::npos)
        << deck;
}

TEST_F(ABAFwtCaseTest, GapsSpringsAndCircularBeams)
{
    std::vector<MeshElem> elems = {{SYS_SHAPE_LINE, 0, 0, 7, 5, 1, Seq(2)},
                                   {SYS_SHAPE_LINE, 0, 0, 7, 5, 2, Seq(2)},
                                   {SYS_SHAPE_POINT, 0, 0, 9, 6, 3, Seq(1)},
                                   {SYS_SHAPE_LINE, 0, 0, 4, 8, 4, Seq(2)}};
    elems[2].csysid = 2;
    Mesh(Origin(2), elems);
    vis_CoordSys* cs = vis_CoordSysNew();
    drop.push_back([=] { vis_CoordSysDelete(cs); });
    const double origin[3] = {0, 0, 0}, triad[9] = {0, 1, 0, -1, 0, 0, 0, 0, 1};
    vis_CoordSysDef(cs, VIS_COORDSYS_RECTANGULAR);
    vis_CoordSysSetOriginTriaddv(cs, origin, triad);
    vsy_HashTableInsert(Table(SYS_COORDSYS), 2, cs);
    vis_EPropSetValued(Prop(5, 7), 34, 0.25);
    vis_EProp* spring = Prop(6, 9);
    vis_EPropSetValuei(spring, 49, 2);
    vis_EPropSetValuei(spring, 50, 2);
    vis_EPropSetValued(spring, 47, 40.0);
    vis_EProp* beam = Prop(8, 4);
    vis_EPropSetValuei(beam, 0, 1);
    vis_EPropSetValuei(beam, 81, 5);
    double dims[40] = {0.5};
    vis_EPropSetValuedv(beam, 82, dims);
    vis_MProp* steel = vis_MPropNew();
    mprops.push_back(steel);
    vis_MPropDef(steel, 0);
    vis_MPropSetValued(steel, 1, 100.0);
    vis_MPropSetValued(steel, 2, 0.25);
    vsy_HashTableInsert(Table(SYS_MPROP), 1, steel);
    const std::string deck = Deck();
    // Gaps without a system: one set each, named by property and element id. The spring of
    // system 2 is a point: SPRING1 in the set of its system.
    EXPECT_NE(deck.find("*ELEMENT, TYPE=GAPUNI, ELSET=PID5_ID1\n1, 1, 2\n*ELEMENT, TYPE=GAPUNI, ELSET=PID5_ID2\n"
                        "2, 1, 2\n*ELEMENT, TYPE=SPRING1, ELSET=PID6_CID2\n3, 1\n"),
              std::string::npos)
        << deck;
    // Beam 8: circular section of radius .5, no density; E 100 and G = 100 / 2.5 = 40. Then
    // the second pass: each gap set (clearance .25, no orientation data: 0 vector, hard
    // contact), the spring with the orientation of its system (x row, y row), dofs 2, 2.
    const std::string props = "**         Element properties\n*BEAM GENERAL SECTION, ELSET=PID8, SECTION=CIRC\n.5\n100., 40.\n"
                              "*GAP, ELSET=PID5_ID1\n.25, 0., 0., 0.\n*SURFACE BEHAVIOR, PRESSURE-OVERCLOSURE=HARD\n"
                              "*GAP, ELSET=PID5_ID2\n.25, 0., 0., 0.\n*SURFACE BEHAVIOR, PRESSURE-OVERCLOSURE=HARD\n";
    const std::string spring2 = "*ORIENTATION, NAME=MCID2\n0., 1., 0., -1., 0., 0.\n1, 0.\n"
                                "*SPRING, ELSET=PID6_CID2, ORIENTATION=MCID2\n2,2\n40.\n";
    EXPECT_NE(deck.find(props + spring2), std::string::npos) << deck;
}

}  // namespace

namespace {

TEST_F(ABAFwtCaseTest, RigidCouplings)
{
    // Two rigid elements of property 7 on nodes 1, 2, 3: element 1 (feaspec 0) a kinematic
    // coupling, no element line; element 2 (feaspec 1) a coupling element of one node in its
    // own set, and a distributing coupling.
    MeshElem kin{SYS_SHAPE_LINE, 3, 0, 10, 7, 1, Seq(3)}, dist{SYS_SHAPE_LINE, 3, 0, 10, 7, 2, Seq(3)};
    dist.feaspec = 1;
    Mesh(Origin(3), {kin, dist});
    vis_EProp* rigid = Prop(7, 10);
    const int dep[1] = {7};
    const double weight[1] = {2.0};
    vis_EPropSetValuei(rigid, 83, 1);
    vis_EPropSetValueiv(rigid, 86, dep);
    vis_EPropSetValuedv(rigid, 84, weight);
    std::string want = "**         Elements\n*ELEMENT, TYPE=DCOUP3D, ELSET=PID7_ID2\n2, 1\n" + Eall(2);
    // Distributing: the weight 2 of parameter 84 for node 2, 1 for node 3 beyond its count.
    want += "**         Distributing couplings\n*DISTRIBUTING COUPLING, ELSET=PID7_ID2\n2, 2.\n3, 1.\n";
    // Kinematic: reference node 1; dependent flags 7 are dofs 1 to 3, one run per node.
    want += "**         Kinematic couplings\n*KINEMATIC COUPLING, REF NODE=1\n2, 1, 3\n3, 1, 3\n";
    want += "**         Element properties\n";
    EXPECT_EQ(From(Deck(), "**         Elements\n"), want);
}

TEST_F(ABAFwtCaseTest, LongGroupNamesAreCut)
{
    // A node set name longer than any buffer of the writer: the deck holds its first 80
    // characters and nothing overruns.
    Mesh(Origin(2), {});
    const std::string longname(3000, 'n');
    Group(SYS_NODEGROUP, 1, longname.c_str(), {1});
    const std::string deck = Deck();
    EXPECT_NE(deck.find("*NSET, NSET=" + longname.substr(0, 80) + "\n1,\n"), std::string::npos) << deck.substr(0, 400);
}

}  // namespace
