// vis_ABAFwt on the full model fixture: the whole deck, written by hand from the deck rules.
#include "ABAFwtTestSupport.h"
#include "ModelFixture.h"

using namespace nastest;
using namespace vsytest;
using namespace modeltest;
using namespace abatest;

namespace {

// vsy_RealToExp(v, 16, 2, 1, 0) of the fixture's coordinates 0 to 4: "%23.15E" gives
// "d.000000000000000E+00"; two exponent digits stay (minexp 2), so nine decimals fit sixteen
// characters with the blank for the sign. Each goes behind a comma ",%16s".
std::string C(int v)
{
    return ", " + std::to_string(v) + ".000000000E+00";
}

std::string Node(int index)
{
    const double* x = kCoords[index - 1];
    return std::to_string(kNodeIdBase + index) + C(int(x[0])) + C(int(x[1])) + C(int(x[2])) + "\n";
}

class ABAFwtFixtureTest : public WriterTest {
protected:
    void TearDown() override
    {
        DestroyFullModel(&m);
        WriterTest::TearDown();
    }
    FullModel m{};
};

TEST_F(ABAFwtFixtureTest, WholeDeck)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    Reports().clear();
    const std::string deck = WriteAba(m.model, File("fixture.inp"));
    ExpectNoReport();
    // Heading: the first step's title. Domain: the first step has no parameter 0, so 1 (stress).
    std::string want = "*HEADING\nStatic step\n";
    // Node group 1 holds four of twelve nodes: the all-nodes set is NALL. Every node has
    // featype 1.
    want += "**         Nodes\n*NODE, NSET=NALL\n";
    for (int i = 1; i <= kNumNode; ++i) want += Node(i);
    // Stress domain with system table: nodes 11 and 12 carry system 5, two entries on one line,
    // the last with "\n".
    want += "**         Transform node sets\n*NSET, NSET=CID5\n1011,1012\n";
    // System 5 is rectangular: its x row then its y row, six reals in one line. 0.8660254...:
    // fixed form, w = 15 - trunc(-0.06 + 0.5) = 15, "0.866025403784439" without its leading 0
    // is sixteen characters, shorter than the exponent form " 8.66025403784E-1" (17): kept.
    // 0.5 and -0.5: ".5" and "-.5" once the trailing zeros go; 0 is "0.".
    want += "**         Transforms\n*TRANSFORM, NSET=CID5, TYPE=R\n";
    want += ".866025403784439, .5, 0., -.5, .866025403784439, 0.\n";
    // Elements: a header whenever the type or set changes. E1 and E2 are shells of four nodes,
    // S4R, property 10; E3 a solid hexahedron C3D8; E4 a beam of two nodes B31; E5 a spring of
    // two nodes (shape line: SPRING2) whose set carries its system 0; E6 a mass whose property
    // has a mass (51) and an inertia (53): MASS under PID50 and queued for rotary inertia.
    // Largest id 2006 has four digits: 71 / 6 = 11 node entries to a line, more than any here.
    want += "**         Elements\n";
    want += "*ELEMENT, TYPE=S4R, ELSET=PID10\n2001, 1001, 1002, 1005, 1004\n2002, 1002, 1003, 1006, 1005\n";
    want += "*ELEMENT, TYPE=C3D8, ELSET=PID20\n2003, 1007, 1008, 1009, 1010, 1001, 1002, 1005, 1004\n";
    want += "*ELEMENT, TYPE=B31, ELSET=PID30\n2004, 1003, 1011\n";
    want += "*ELEMENT, TYPE=SPRING2, ELSET=PID40_CID0\n2005, 1011, 1012\n";
    want += "*ELEMENT, TYPE=MASS, ELSET=PID50\n2006, 1006\n";
    // The mass run ends: its queued element takes the id above the largest, 2007, "%d,%d".
    want += "*ELEMENT, TYPE=ROTARYI, ELSET=PID50_CID0\n2007,1006\n";
    // No element group named EALL: the generated set up to the largest id, now 2007.
    want += "**         All elements set\n*ELSET, ELSET=EALL, GENERATE\n1, 2007\n";
    // E4 releases 0xE00: rotations 4, 5, 6 of the second end, torsion and both moments.
    want += "**         End releases\n*RELEASE\n2004, S2, ALLM\n";
    // Node group 1 "Clamped nodes" (indices 7 to 10); element group 2 "Plate" (E1, E2), not a
    // name of the writer's own sets. Each entry "%d,", the line ended after the last.
    want += "**         Node sets\n*NSET, NSET=Clamped nodes\n1007,1008,1009,1010,\n";
    want += "**         Element sets\n*ELSET, ELSET=Plate\n2001,2002,\n";
    // Properties in ascending id. 10: shell of material 1, marked for nodal thickness by E2's
    // element data. 20: solid of material 2, no orientation (parameter 5 unset).
    want += "**         Element properties\n";
    want += "*SHELL SECTION, ELSET=PID10, MATERIAL=MID1, NODAL THICKNESS\n";
    want += "*SOLID SECTION, ELSET=PID20, MATERIAL=MID2\n";
    // 30: beam on isotropic steel, section type 0, density 7850 ("7850." in fixed form).
    // First line: area .002, I 15 (2.0E-6: the fixed form fails below 1e-4), 17 unset (0.),
    // 16 (3.0E-6), J 18 (4.0E-6), no warping. Second: E 2.1E+11 (fixed fails above 1e10) and
    // G = E / (2 (1 + .3)) = 80769230769.23: "8.0769230769E+10", twelve mantissa characters.
    want += "*BEAM GENERAL SECTION, ELSET=PID30, DENSITY=7850.\n";
    want += ".002, 2.0E-6, 0., 3.0E-6, 4.0E-6\n2.1E+11, 8.0769230769E+10\n";
    // Parameter 23 (.01 at the first end) is set: the centroid, 24 unset gives 0.
    want += "*CENTROID\n.01, 0.\n";
    // Second pass: the spring's set (dofs 1 and 1, stiffness 1e6: fixed "1000000." is longer
    // than the exponent " 1.0E+6", so "1.0E+6"), then the mass set with 2., and the rotary
    // inertia of the queued set with the six values of parameter 53.
    want += "*SPRING, ELSET=PID40_CID0\n1,1\n1.0E+6\n";
    want += "*MASS, ELSET=PID50\n2.\n";
    want += "*ROTARY INERTIA, ELSET=PID50_CID0\n.1, .2, .3, 0., 0., 0.\n";
    // Element data thickness .02 at E2's four nodes, each node once, "%d,%s".
    want += "*NODAL THICKNESS\n1002,.02\n1003,.02\n1006,.02\n1005,.02\n";
    // Materials in ascending id. 1: isotropic E, nu; expansion 1.2e-5 (exponent form);
    // no conductivity or specific heat; density.
    want += "**         Material properties\n*MATERIAL, NAME=MID1\n";
    want += "*ELASTIC, TYPE=ISOTROPIC\n2.1E+11, .3\n*EXPANSION, TYPE=ISO\n1.2E-5\n*DENSITY\n7850.\n";
    // 2: orthotropic. E1 E2 E3, nu12 = xy .33, nu13 = xz .31, nu23 = yz .3, G12 = xy 2.6e10,
    // G13 = zx 2.4e10 on the first line; G23 = yz 2.5e10 on the second.
    want += "*MATERIAL, NAME=MID2\n*ELASTIC, TYPE=ENGINEERING CONSTANTS\n";
    want += "7.0E+10, 6.0E+10, 5.0E+10, .33, .31, .3, 2.6E+10, 2.4E+10\n2.5E+10\n*DENSITY\n2700.\n";
    // Contact pair 8: slave kind 0 (element faces), no link. The slave face is the face of the
    // shell E1: SPOS; kind 0 has no master surface and pairs its slave with itself.
    want += "**         Contact pairs and Co-simulation\n*SURFACE, TYPE=ELEMENT, NAME=SLAVE8\n2001,SPOS\n";
    // Options: adjust, the float 0.001 (0.00100000004749745...): fixed, w = 17, cut to sixteen
    // ".001000000047497"; smooth, the float 0.2 (0.200000002980232...): fixed
    // ".200000002980232" is not shorter than the exponent " 2.0000000298E-1", so the latter
    // without its blank; tied.
    want += "*CONTACT PAIR, ADJUST=.001000000047497, SMOOTH=2.0000000298E-1, TIED, INTERACTION=CPAIR8\n";
    want += "SLAVE8, SLAVE8\n*SURFACE INTERACTION, NAME=CPAIR8\n";
    // Parameter 0 names property 10: no separation flag, open stiffness 0 (hard), no
    // friction coefficients.
    want += "*SURFACE BEHAVIOR, PRESSURE-OVERCLOSURE=HARD\n";
    // The first step's constraint case 300: equation 1 with two terms, "%16s" factors; then the
    // TIE of nodes 3 and 11. The first step has no initial condition case.
    want += "**         multi-point constraints\n*EQUATION\n2\n";
    want += "1011, 3,              1.,1012, 3,             -1.\n*MPC\nTIE, 1003, 1011\n";
    want += "**         Steps\n";
    // Step 1: static, linear; restraint case 200: nodes 7 to 10 fixed in 1 to 6 (one run of
    // six zero tags), node 12 tag 3 prescribed .001 (factor unset: 1).
    std::string bc = "*BOUNDARY, OP=NEW\n";
    for (int id = 1007; id <= 1010; ++id) bc += std::to_string(id) + ", 1, 6, 0.\n";
    bc += "1012, 3,, .001\n";
    want += "*STEP\n*STATIC\n" + bc;
    // Load case 100 with factor 1: force -500 in z at node 3, moment 10 about y at node 11.
    want += "*CLOAD, OP=NEW\n**         Forces and moments\n1003, 3, -500.\n1011, 5, 10.\n";
    // Temperatures 20 + i at nodes 1 to 6, the all-nodes set at 0 first.
    want += "*TEMPERATURE, OP=NEW\n**         Temperatures\nNALL, 0.\n";
    for (int i = 1; i <= 6; ++i) want += std::to_string(kNodeIdBase + i) + ", " + std::to_string(20 + i) + ".\n";
    // Pressures: E1 (a shell) face 1, mean of 1e5 1e5 2e5 2e5 = 1.5e5; fixed "150000." (7) is
    // not shorter than " 1.5E+5" (7): "1.5E+5". E3 face 6 (the library's x = +1 side) is the
    // format's S4: 3.0E+5 likewise. Gravity 9.81 along (0, 0, -1).
    want += "*DLOAD, OP=NEW\n**         Distributed face pressure\n2001,P, 1.5E+5\n2003,P4, 3.0E+5\n";
    want += "**         Gravity\nEALL, GRAV, 9.81, 0., 0., -1.\n*END STEP\n";
    // Step 2: transient, "%16.9E" of time step .01 and termination 2; the same restraints; the
    // same load case with factor .5: every value halved. 75000. (6) is shorter than
    // " 7.5E+4" (7): fixed.
    want += "*STEP\n*DYNAMIC\n 1.000000000E-02, 2.000000000E+00,\n" + bc;
    want += "*CLOAD, OP=NEW\n**         Forces and moments\n1003, 3, -250.\n1011, 5, 5.\n";
    want += "*TEMPERATURE, OP=NEW\n**         Temperatures\nNALL, 0.\n";
    const char* halves[6] = {"10.5", "11.", "11.5", "12.", "12.5", "13."};
    for (int i = 1; i <= 6; ++i) want += std::to_string(kNodeIdBase + i) + ", " + halves[i - 1] + "\n";
    want += "*DLOAD, OP=NEW\n**         Distributed face pressure\n2001,P, 75000.\n2003,P4, 1.5E+5\n";
    want += "**         Gravity\nEALL, GRAV, 4.905, 0., 0., -1.\n*END STEP\n";
    EXPECT_EQ(deck, want);
}

}  // namespace
