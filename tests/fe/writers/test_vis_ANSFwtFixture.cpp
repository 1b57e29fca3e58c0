// vis_ANSFwt on the full model fixture: the whole command file, written by hand from the
// command rules, each line with how it comes about.
#include "ANSFwtTestSupport.h"
#include "ModelFixture.h"

using namespace anstest;
using namespace nastest;
using namespace vsytest;
using namespace modeltest;

namespace {

class ANSFwtFixtureTest : public ANSWriterTest {
protected:
    void TearDown() override
    {
        DestroyFullModel(&m);
        ANSWriterTest::TearDown();
    }
    FullModel m{};
};

// "N" of fixture node i (from 1): id 1000 + i and the coordinates, all small integers.
std::string Node(int i)
{
    const double* x = kCoords[i - 1];
    return "N," + std::to_string(kNodeIdBase + i) + "," + C(int(x[0])) + "," + C(int(x[1])) + "," + C(int(x[2]));
}

// The "%10d" id fields of a component.
std::string Ids(std::initializer_list<int> ids)
{
    std::string s;
    for (int id : ids) s += R(std::to_string(id), 10);
    return s + "\n";
}

std::string Prep()
{
    // First step: title "Static step", no subtitle; a connectivity and the block option.
    std::string want = "/TITLE, ,Static step\n/PREP7\n";
    // System 5, rectangular (0), as 15; origin (3,0,1). Angles: the y row (-.5, .866, 0) gives
    // atan2(.5, .866) = 30 degrees about z, whose sixteen-column fixed text "30.0000000000000"
    // loses its zeros; asin(0) and atan2(0, 1) give 0 about x and y.
    want += "C***       Coordinate systems\nLOCAL,15,0,3.,0.,1.,30.,0.,0.\n";
    want += "C***       Nodes\nCSYS,0\n";
    for (int i = 1; i <= 10; ++i) want += Node(i) + "\n";
    // Nodes 11 and 12 lie in system 5: its three angles follow.
    want += Node(11) + ",30.,0.,0.\n" + Node(12) + ",30.,0.,0.\n";
    // E1, E2 linear shell quadrilaterals: SHELL181 without KEYOPT; E3 hexahedron: SOLID185;
    // E4 beam, featwod 0: BEAM188; E5 spring feaspec 0, dofs 1 and 1 (49, 50): COMBIN14 with
    // KEYOPT(2) 1; E6 mass: equal masses but inertias (53) set, so KEYOPT(3) stays 0.
    want += "C***       Element Types\nET,1,SHELL181\nET,2,SOLID185\nET,3,BEAM188\nET,4,COMBIN14,0,1\nET,5,MASS21\n";
    // Numbers start above property 50. E1: the property's corners .010 .010 .012 .012 differ,
    // so four thicknesses, then nonstructural mass .5 after an empty field. E2: its own .02 at
    // every corner, .01 from the property's. E5: stiffness 1e6, whose fixed text "1000000." is
    // longer than "1.0E+6", and damping 10. E6: three masses 2 and inertias .1 .2 .3.
    want += "C***       Real Constants\nR,51,.01,.01,.012,.012,,.5\nR,52,.02,.02,.02,.02,,.5\n"
            "R,53,1.0E+6,10.\nR,54,2.,2.,2.,.1,.2,.3\n";
    want += "C***       Elements\n";
    // E1: type 1, material 1, constants 51, section 10 (a shell property with thickness).
    want += "TYPE,1\nMAT,1\nREAL,51\nSECNUM,10\nEN,2001,1001,1002,1005,1004\n";
    want += "REAL,52\nEN,2002,1002,1003,1006,1005\n";
    // E3: type 2, material 2, no constants, no section; the eight nodes fill one line.
    want += "TYPE,2\nMAT,2\nREAL,0\nSECNUM,0\nEN,2003,1007,1008,1009,1010,1001,1002,1005,1004\n";
    // E4: section 30; orientation (0,1,0) from node 3 (2,0,1) makes node 1013 at (2,1,1), the
    // third node.
    want += "TYPE,3\nMAT,1\nSECNUM,30\nN,1013," + C(2) + "," + C(1) + "," + C(1) + "\nEN,2004,1003,1011,1013\n";
    // E5: no material; E6: constants 54.
    want += "TYPE,4\nMAT,0\nREAL,53\nSECNUM,0\nEN,2005,1011,1012\n";
    want += "TYPE,5\nREAL,54\nEN,2006,1006\n";
    want += "C***       Rigids\n";
    return want;
}

std::string Properties()
{
    // Property 10: wall type 0, thickness .010 at the first corner, material 1, then the
    // nonstructural mass after four empty fields. Property 30: the general beam section, area
    // .002, Iyy 2e-6, Iyz unset, Izz 3e-6, warping unset, torsion 4e-6; exponent texts "2.0E-6"
    // are shorter than any fixed form (which fails below 1e-4). No shear factors: no control.
    std::string want = "C***       Element properties\nSECTYPE,10,SHELL\nSECDATA,.01,1,\nSECCONTROL,,,,,.5\n";
    want += "SECTYPE,30,BEAM,ASEC\nSECDATA,.002,2.0E-6,0.,3.0E-6,0.,4.0E-6\n";
    // Material 1, isotropic: reference temperature 20, E 2.1e11 (beyond 1e10: exponent form),
    // Poisson .3, expansion 1.2e-5, no conductivity, density 7850, no specific heat.
    want += "C***       Material properties\nMP,REFT,1,20.\nMP,EX,1,2.1E+11\nMP,NUXY,1,.3\nMP,ALPX,1,1.2E-5\nMP,DENS,1,7850.\n";
    // Material 2, orthotropic: moduli 70e9, 60e9, 50e9, ratios .33 .30 .31, shear moduli 26e9,
    // 25e9, 24e9; no expansion; density 2700.
    want += "MP,EX,2,7.0E+10\nMP,EY,2,6.0E+10\nMP,EZ,2,5.0E+10\nMP,PRXY,2,.33\nMP,PRYZ,2,.3\nMP,PRXZ,2,.31\n"
            "MP,GXY,2,2.6E+10\nMP,GYZ,2,2.5E+10\nMP,GXZ,2,2.4E+10\nMP,DENS,2,2700.\n";
    // Group 1 of nodes 7 to 10, group 2 of elements 1 and 2, names as they stand.
    want += "C***       Node sets\nCMBLOCK,Clamped nodes,NODE,4\n(8i10)\n" + Ids({1007, 1008, 1009, 1010});
    want += "C***       Element sets\nCMBLOCK,Plate,ELEM,2\n(8i10)\n" + Ids({2001, 2002});
    return want;
}

// The loads of case 100 times a factor: force -500 z at node 3, moment 10 y at node 11,
// temperatures 21 to 26 at nodes 1 to 6 (not scaled), pressure on E1's face (the shell's face
// 1), pressure on E3's library face 6 (corners 1 2 6 5, x = 1), which is the format's face 3
// (J K O N), and gravity.
std::string Loads(const char* fz, const char* my, const char* p1, const char* p2, const char* p3, const char* g)
{
    std::string want = "C***       Loads\n";
    want += std::string("F,1003,FZ,") + fz + "\nF,1011,MY," + my + "\n";
    for (int i = 1; i <= 6; ++i) want += "BF," + std::to_string(1000 + i) + ",TEMP," + std::to_string(20 + i) + ".\n";
    want += std::string("SFE,2001,1,PRES,0,") + p1 + "," + p1 + "," + p2 + "," + p2 + "\n";
    want += std::string("SFE,2003,3,PRES,0,") + p3 + "," + p3 + "," + p3 + "," + p3 + "\n";
    return want + "ACEL,0.,0.," + g + "\n";
}

std::string Steps()
{
    std::string want = "C***       Solution Steps\n";
    // Step 1, static (the next is transient: no prestress).
    want += "/SOLUTION\nANTYPE,STATIC\n";
    // Restraint case 200: nodes 7 to 10 fixed in all six, node 12 moved .001 in z.
    want += "C***       Restraints\nD,1007,ALL,0.\nD,1008,ALL,0.\nD,1009,ALL,0.\nD,1010,ALL,0.\nD,1012,UZ,.001\n";
    // Constraint case 300: equation 1, uz(11) - uz(12) = 0; equation 2 is a tie, not linear.
    want += "C***       Linear multi-point constraints\nCE,1,0.,1011,UZ,1.,1012,UZ,-1.\n";
    // Load case 100, factor 1; 1e5 as "100000." is not shorter than "1.0E+5".
    want += "FCUM,REPL\n" + Loads("-500.", "10.", "1.0E+5", "2.0E+5", "3.0E+5", "-9.81") + "SOLVE\nFINISH\n";
    // Step 2, transient. Initial conditions 400 are new: temperature 15 at nodes 1 to 6,
    // velocity 2.5 in x at node 6 (displacement 0), in tag order. The same restraint case: no
    // change. No constraint case: the old one is deleted.
    want += "/SOLUTION\nANTYPE,TRANS\nC***       Initial Conditions\n";
    for (int i = 1; i <= 5; ++i) want += "IC," + std::to_string(1000 + i) + ",TEMP,15.\n";
    want += "IC,1006,UX,0.,2.5\nIC,1006,TEMP,15.\n";
    want += "CEDELE,ALL,ALL\n";
    // Step 1 had loads: all deleted; case 100 again at factor .5. 50000. is shorter than
    // 5.0E+4; 1.5e5 as "150000." is not shorter than "1.5E+5".
    want += "FDELE,ALL,ALL\nSFEDELE,ALL,ALL,ALL\nBFDELE,ALL,ALL\nBFEDELE,ALL,ALL\nLSCLEAR,INER\n";
    want += "FCUM,REPL\n" + Loads("-250.", "5.", "50000.", "1.0E+5", "1.5E+5", "-4.905") + "SOLVE\nFINISH\n";
    return want;
}

TEST_F(ANSFwtFixtureTest, WholeFile)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    Reports().clear();
    const std::string text = Write(m.model, "fixture.inp");
    EXPECT_EQ(text, Prep() + Properties() + Steps());
    ExpectNoReport();
}

TEST_F(ANSFwtFixtureTest, CoordinatesReadBack)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    const auto nodes = NodeLines(Write(m.model, "coords.inp"));
    // Twelve nodes and the beam's orientation node 1013.
    ASSERT_EQ(nodes.size(), 13u);
    for (int i = 1; i <= kNumNode; ++i)
        for (int k = 0; k < 3; ++k) EXPECT_EQ(nodes.at(kNodeIdBase + i)[static_cast<size_t>(k)], kCoords[i - 1][k]);
}

// Without the block option the same file lacks "/PREP7", "/SOLUTION", "SOLVE", "FINISH".
TEST_F(ANSFwtFixtureTest, WithoutBlocks)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    std::string want = Prep() + Properties() + Steps();
    for (const std::string cut : {"/PREP7\n", "/SOLUTION\n", "SOLVE\n", "FINISH\n"})
        for (size_t at; (at = want.find(cut)) != std::string::npos;) want.erase(at, cut.size());
    EXPECT_EQ(Write(m.model, "noblocks.inp", 0), want);
}

}  // namespace
