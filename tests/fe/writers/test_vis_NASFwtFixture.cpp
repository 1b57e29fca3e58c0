// vis_NASFwt on the full model fixture: the whole deck, written by hand from the card rules,
// once per analysis kind (static, eigenvalue, buckling, transient) and solution domain
// (structural, thermal). The kinds differ in the executive and case control and the parameter
// cards; the thermal domain turns the isotropic steel into a MAT4 and, for these decks, the
// load table gains a heat case of surface, point and volume heat.
#include "ModelFixture.h"
#include "NASFwtTestSupport.h"

using namespace nastest;
using namespace vsytest;
using namespace modeltest;

namespace {

// vsy_RealToExp(v, 16, 0, 1, 0) of the fixture's coordinates 0 to 4: "%23.15E" gives
// "d.000000000000000E+00"; one exponent zero is dropped and ten decimals stay.
std::string C(int v)
{
    return " " + std::to_string(v) + ".0000000000E+0";
}

std::string Grid(int id, const double* x, int cs)
{
    return "GRID*   " + I16(id) + I16(0) + C(int(x[0])) + C(int(x[1])) + "\n*       " + C(int(x[2])) + I16(cs) + "\n";
}

// A large real field holding a short text: fifteen columns and a blank.
std::string L(const char* t)
{
    return R(t, 15) + " ";
}

const std::string kBlank16(16, ' ');

// "%16.8E" texts of the values the fixture puts in, by hand: a sign or blank, one digit, eight
// decimals, the exponent with two digits, padded on the left to sixteen columns.
const std::string kE0 = "  0.00000000E+00";
const std::string kE1 = "  1.00000000E+00";
const std::string kEm1 = " -1.00000000E+00";

// Grid points, elements and coordinate systems: the mesh part of every deck.
std::string Mesh()
{
    std::string s = "$          Grid points\n";
    for (int i = 0; i < kNumNode; ++i) s += Grid(kNodeIdBase + i + 1, kCoords[i], i >= 10 ? kCsysId : 0);
    s += "$          Elements\n";
    // E1: property 10's corner thicknesses, no element data of its own: no thickness line.
    s += "CQUAD4  " + I8(2001) + I8(10) + I8(1001) + I8(1002) + I8(1005) + I8(1004) + kBlank8 + "\n";
    // E2: element thickness .02 at every corner against .010 .010 .012 .012: four values.
    s += "CQUAD4  " + I8(2002) + I8(10) + I8(1002) + I8(1003) + I8(1006) + I8(1005) + kBlank8 + "\n";
    s += kBlank8 + kBlank8 + kBlank8 + "    .02     .02     .02     .02 \n";
    s += "CHEXA   " + I8(2003) + I8(20) + I8(1007) + I8(1008) + I8(1009) + I8(1010) + I8(1001) + I8(1002) + "\n";
    s += kBlank8 + I8(1005) + I8(1004) + "\n";
    // E4: orientation (0,1,0); first node 3 has no system. Releases 0xE00: pa 0, pb 456.
    // Offsets (0,.01,0) of the first end, twice, and the empty line.
    s += "CBEAM   " + I8(2004) + I8(30) + I8(1003) + I8(1011) + "     0.      1.      0. \n";
    s += kBlank8 + I8(0) + I8(456) + "     0.     .01      0.      0.     .01      0. \n\n";
    // E5: spring, feaspec 0, dofs 1 and 1 from property 40.
    s += "CELAS1  " + I8(2005) + I8(40) + I8(1011) + I8(1) + I8(1012) + I8(1) + "\n";
    // E6: mass 2.0 ("2." in seven columns and a blank), element system 0.
    s += "CONM2   " + I8(2006) + I8(1006) + I8(0) + "     2. \n";
    // System 5: origin (3,0,1); B = origin + z row = (3,0,2); C = origin + x row =
    // (3.8660254037844388, .5, 1). The fixed form of 3.866...: w = 15 - trunc(0.587 + 0.5) = 14,
    // "3.86602540378444" (the 14th decimal rounded once by the runtime), sixteen characters.
    s += "$          Coordinate systems\n";
    s += "CORD2R* " + I16(kCsysId) + I16(0) + L("3.") + L("0.") + "\n";
    s += "*       " + L("1.") + L("3.") + L("0.") + L("2.") + "\n";
    s += "*       3.86602540378444" + L(".5") + L("1.") + "\n";
    return s;
}

// Properties in slot order: an 11-slot table, homes k * 2654435761 mod 11 = 1 to 5 for the
// keys 10 to 50, so in key order.
std::string Properties()
{
    std::string s = "$          Element properties\n";
    // 10, shell: material 1; thickness .010 "%8s"; bending material 0; bending ratio 1.
    // (default); transverse material 0; shear ratio 5/6 by default: fixed ".833333333333333"
    // cut to eight, shorter than the exponent form " 8.333E-1"; nonstructural mass .5.
    s += "PSHELL  " + I8(10) + I8(1) + "     .01" + I8(0) + "     1. " + I8(0) + ".8333333" + "     .5 \n";
    // 20, solid: material 2, deck featwod 0, integration parameter 5 unset: 0.
    s += "PSOLID  " + I8(20) + I8(2) + I8(0) + "\n";
    // 30, beam of section type 0: PBEAM. Area .002/.001 (14), Iz 3e-6/1.5e-6 (16) as I1,
    // Iy 2e-6/1e-6 (15) as I2, J 4e-6/2e-6 (18); product of inertia, mass, shear factors,
    // warping and shear centre unset: 0; recovery points at their defaults C (1,0), D (0,1),
    // E (-1,0), F (0,-1) at both ends.
    s += "PBEAM*  " + I16(30) + I16(1) + "  2.00000000E-03" + "  3.00000000E-06\n";
    s += "*       " + std::string("  2.00000000E-06") + kE0 + "  4.00000000E-06" + kE0 + "\n";
    const std::string cd = "*       " + kE1 + kE0 + kE0 + kE1 + "\n";
    const std::string ef = "*       " + kEm1 + kE0 + kE0 + kEm1 + "\n";
    s += cd + ef;
    s += "*       " + R("YES", 16) + kE1 + "  1.00000000E-03" + "  1.50000000E-06\n";
    s += "*       " + std::string("  1.00000000E-06") + kE0 + "  2.00000000E-06" + kE0 + "\n";
    s += cd + ef;
    s += "*       " + kE0 + kE0 + kBlank16 + kBlank16 + "\n";
    s += "*       " + kBlank16 + kBlank16 + kE0 + kE0 + "\n";
    s += "*       " + kBlank16 + kBlank16 + kBlank16 + kBlank16 + "\n";
    s += "*       " + kE0 + kE0 + kE0 + kE0 + "\n";  // 0 - 0: no negative zero
    // 40, spring with dof 1 set: stiffness 1e6 (fixed "1000000." is longer than "1.0E+6"),
    // damping 10. and stress coefficient 0. in large fields.
    s += "PELAS*  " + I16(40) + L("1.0E+6") + L("10.") + L("0.") + "\n";
    // 50, mass (type 13): no card.
    return s;
}

// Materials in slot order: homes 10 for key 1, 9 for key 2, so 2 first. Material 2
// (orthotropic) has the class of its last user, solid property 20, and no MAT8 therefore.
std::string Materials(bool thermal)
{
    std::string s = "$          Material properties\n";
    if (thermal) {
        // Thermal deck: MAT4 with conductivity (19) and specific heat (20) unset, empty in mode
        // 2, density 7850 ("7850." is shorter than " 7.85E+3"); no film coefficient, no second
        // line.
        return s + "MAT4*   " + I16(1) + kBlank16 + kBlank16 + R("7850.", 16) + "\n";
    }
    // MAT1: E 2.1e11, an empty G, nu .3; density 7850, expansion 1.2e-5, reference 20.
    s += "MAT1*   " + I16(1) + "  2.10000000E+11" + kBlank16 + "  3.00000000E-01\n";
    s += "*       " + std::string("  7.85000000E+03") + "  1.20000000E-05" + "  2.00000000E+01\n";
    return s;
}

// The heat case 101 of the thermal decks (see HeatCase) and the fixture's case 100. Slot order:
// 101 has its home at 9, 100 at 10.
std::string HeatLoads()
{
    std::string s;
    // Node 5 (id 1005): 50 as "%16.8E".
    s += "SLOAD*  " + I16(101) + I16(1005) + "  5.00000000E+01\n";
    // E3: node values 1000 to 8000, mean 4500.
    s += "QVOL*   " + I16(101) + "  4.50000000E+03" + I16(0) + I16(2003) + "\n";
    // Edge flux on shell E2, edge 2, corners 10 and 20: a new surface 2007 (element counter
    // from the largest id 2006), side 2 + 1 for a shell; QBDY2 with both values "%8s".
    s += "CHBDYE  " + I8(2007) + I8(2002) + I8(3) + "\n";
    s += "QBDY2   " + I8(101) + I8(2007) + "     10." + "     20." + "\n";
    // Uniform face flux 200 on E3 face 2 (the top): surface 2008, hexahedron side of face 2: 6.
    s += "CHBDYE  " + I8(2008) + I8(2003) + I8(6) + "\n";
    s += "QBDY1   " + I8(101) + "    200." + I8(2008) + "\n";
    // Convection on shell E1 face 1: surface 2009 side 1; ambient point 1013 (node counter
    // from 1012) at 25; properties 51 and 52 from the largest property id 50; film 12.5.
    s += "CHBDYE  " + I8(2009) + I8(2001) + I8(1) + "\n";
    s += "SPOINT  " + I8(1013) + "\n";
    s += "TEMP    " + I8(101) + I8(1013) + "     25.\n";
    s += "CONV    " + I8(2009) + I8(51) + kBlank8 + kBlank8 + I8(1013) + "\n";
    s += "PCONV   " + I8(51) + I8(52) + "\n";
    s += "MAT4    " + I8(52) + kBlank8 + kBlank8 + kBlank8 + "    12.5\n";
    return s;
}

// Loads, initial conditions, restraints and constraints, and the end of the deck.
std::string Cases(bool thermal)
{
    std::string s = "$          Loads\n";
    if (thermal) s += HeatLoads();
    // Force (0,0,-500) at node 3: length 500., direction 0. 0. -1.
    s += "FORCE   " + I8(100) + I8(1003) + I8(0) + "   500.      0.      0.     -1. \n";
    // Moment (0,10,0) at node 11: length 10., direction 0. 1. 0.
    s += "MOMENT  " + I8(100) + I8(1011) + I8(0) + "    10.      0.      1.      0. \n";
    // Temperatures 20 + i at nodes 1 to 6: six nodes, far below the hundred of a default.
    for (int i = 1; i <= 6; ++i) s += "TEMP    " + I8(100) + I8(1000 + i) + "    " + std::to_string(20 + i) + ". \n";
    // Gravity (0,0,-9.81): factor 1., the components as they are ("-9.81000" trimmed).
    s += "GRAV    " + I8(100) + I8(0) + "     1.      0.      0.   -9.81 \n";
    // Shell E1 face 1, pressures 1e5 1e5 2e5 2e5 negated, not all equal: PLOAD4 with four
    // values. -1e5: fixed "-100000." (eight) is longer than the exponent form "-1.0E+5", of
    // seven characters: not shorter than seven, so "%8s" with no blank behind.
    s += "PLOAD4  " + I8(100) + I8(2001) + " -1.0E+5 -1.0E+5 -2.0E+5 -2.0E+5\n";
    // Solid E3 face 6 (corners 1 2 6 5 of the hexahedron: nodes 8 9 5 2), 3e5 at every corner:
    // " 3.0E+5" ties with "300000." and the exponent form without its blank wins; three empty
    // fields, the first corner 1008 and the opposite one 1005.
    s += "PLOAD4  " + I8(100) + I8(2003) + " 3.0E+5 " + kBlank8 + kBlank8 + kBlank8 + I8(1008) + I8(1005) + "\n";
    // Initial conditions 400: temperature 15 (tag 7, level 1) at nodes 1 to 6; velocity 2.5 of
    // dof 1 (level 2) at node 6, displacement 0.
    s += "$          Initial conditions\n";
    for (int i = 1; i <= 6; ++i) s += "TEMP    " + I8(400) + I8(1000 + i) + "    15. \n";
    s += "TIC     " + I8(400) + I8(1006) + I8(1) + "     0.     2.5 \n";
    // Restraints 200: nodes 7 to 10 fixed in dofs 1 to 6; node 12 dof 3 prescribed .001, a
    // long SPC* card with the case first and ".001" in fifteen columns and a blank.
    s += "$          Restraints\n";
    for (int i = 7; i <= 10; ++i) s += "SPC     " + I8(200) + I8(1000 + i) + "  123456     0. \n";
    s += "SPC*    " + I16(200) + I16(1012) + I16(3) + L(".001") + "\n";
    // Constraint 300: equation 1 of two terms (node 11 dof 3 by 1, node 12 dof 3 by -1); the
    // second term is odd and the last, so it ends its line with no empty field. Equation 2 is
    // a TIE and writes nothing.
    s += "$          Multipoint constraints\n";
    s += "MPC*    " + I16(300) + I16(1011) + I16(3) + kE1 + "\n";
    s += "*       " + I16(1012) + I16(3) + kEm1 + "\n";
    return s + "ENDDATA\n";
}

// One deck's control: the solution, the heat analysis line, both subcases with their
// selections and what the kind adds to each, then the parameter cards.
struct Kind {
    const char* sol;
    bool thermal;
    const char* method1;  // case control line the kind adds to subcase 1, or ""
    const char* method2;
    const char* bulk;     // parameter card of step 1 after the PARAM block, or ""
};

std::string Control(const std::string& stem, const Kind& k)
{
    std::string s = "ASSIGN,OUTPUT='" + stem + ".op2',UNIT=12\nID,NASTRAN," + stem + "\n";
    s += std::string(k.sol) + "TIME 10000\nCEND\n";
    if (k.thermal) s += "ANALYSIS = HEAT\n";
    s += "ECHO = NONE\n";
    // Step 1: no request counts; title, restraint 200, constraint 300; load case 100 holds
    // concentrated temperatures, so it is a TEMP case.
    s += "SUBCASE = 1\nTITLE = Static step\nSPC = 200\nMPC = 300\nTEMP = 100\n" + std::string(k.method1);
    // Step 2: title, restraint 200, initial conditions 400, the same load case.
    s += "SUBCASE = 2\nTITLE = Transient step\nSPC = 200\nIC = 400\nTEMP = 100\n" + std::string(k.method2);
    s += "BEGIN BULK\n";
    // The first step's type is not 0: the PARAM block.
    s += "PARAM,POST,-1\nPARAM,PATVER,3.0\nPARAM,K6ROT,100.0\nPARAM,MAXRATIO,1.E+8\nPARAM,GRDPNT,0\n"
         "PARAM,AUTOSPC,YES\n";
    return s + k.bulk;
}

class NASFwtFixtureTest : public WriterTest {
protected:
    void SetUp() override
    {
        WriterTest::SetUp();
        ok = BuildFullModel(&m);
        Reports().clear();
    }
    void TearDown() override
    {
        vis_LCaseDelete(heat);
        DestroyFullModel(&m);
        WriterTest::TearDown();
    }
    // Step 1 takes the analysis kind and domain; step 2 stays transient.
    void Step1(int kind, int domain)
    {
        vis_SPropReDef(m.step[0], kind);
        vis_SPropSetValuei(m.step[0], 0, domain);
    }
    // The heat case 101, in the fixture's load table.
    void HeatCase()
    {
        heat = vis_LCaseNew();
        const double q = 50.0, qvol[8] = {1000, 2000, 3000, 4000, 5000, 6000, 7000, 8000};
        const double edge[2] = {10.0, 20.0}, face[4] = {200, 200, 200, 200};
        const double conv[8] = {25.0, 12.5, 25.0, 12.5, 25.0, 12.5, 25.0, 12.5};
        vis_LCaseSetConcdv(heat, 5, 3, &q);
        vis_LCaseSetElemdv(heat, 3, 2, 8, qvol);
        vis_LCaseSetDistdv(heat, SYS_EDGE, 2, 2, 5, edge);
        vis_LCaseSetDistdv(heat, SYS_FACE, 3, 2, 5, face);
        vis_LCaseSetDistdv(heat, SYS_FACE, 1, 1, 6, conv);
        vsy_HashTableInsert(m.table[2], 101, heat);
    }
    void Check(const Kind& k)
    {
        ASSERT_EQ(ok, 1);
        if (k.thermal) HeatCase();
        ASSERT_TRUE(Reports().empty());
        const std::string path = File("fixture.bdf");
        const std::string want = Control(dir + "/fixture", k) + Mesh() + Properties() + Materials(k.thermal) + Cases(k.thermal);
        EXPECT_EQ(Write(m.model, path), want);
        ExpectNoReport();
    }
    FullModel m{};
    vis_LCase* heat = nullptr;
    int ok = 0;
};

// Eigenvalue and buckling steps put "METHOD = %d" with their case id in every subcase and an
// EIGRL card of step 1: case id 1, bounds unset (0. twice), no number of eigenvalues (0).
const char* const kEigrl = "EIGRL          1     0.      0.        0\n";

TEST_F(NASFwtFixtureTest, StaticStructural)
{
    // The fixture as built: static, then transient; neither step adds a card.
    Check({"SOL 101\n", false, "", "", ""});
}

TEST_F(NASFwtFixtureTest, EigenvalueStructural)
{
    Step1(2, 1);
    Check({"SOL 103\n", false, "METHOD = 1\n", "METHOD = 2\n", kEigrl});
}

TEST_F(NASFwtFixtureTest, BucklingStructural)
{
    Step1(3, 1);
    Check({"SOL 105\n", false, "METHOD = 1\n", "METHOD = 2\n", kEigrl});
}

TEST_F(NASFwtFixtureTest, TransientStructural)
{
    Step1(4, 1);
    Check({"SOL 159\n", false, "", "", ""});
}

TEST_F(NASFwtFixtureTest, StaticThermal)
{
    Step1(1, 2);
    Check({"SOL 153\n", true, "", "", ""});
}

TEST_F(NASFwtFixtureTest, TransientThermal)
{
    Step1(4, 2);
    Check({"SOL 159\n", true, "", "", ""});
}

// Every allocation of the thermal deck's writing fails in turn: the writer goes on through
// every section (a failed id check prints indices, a missing material class drops only the
// class-bound cards, a failed equation buffer only the equations) and ends the deck.
TEST_F(NASFwtFixtureTest, FailedAllocationAtEveryStepStillEndsTheDeck)
{
    ASSERT_EQ(ok, 1);
    Step1(1, 2);
    HeatCase();
    const std::string path = File("fixture.bdf");
    auto write = [&] {
        vis_NASFwt* nas = vis_NASFwtNew();
        if (nas) vis_NASFwtWriteModel(nas, m.model, path.c_str());
        const int err = nas ? vis_NASFwtError(nas) : -1;
        vis_NASFwtDelete(nas);
        return err;
    };
    CountAllocations();
    ASSERT_EQ(write(), 0);
    const long calls = AllocState().calls;
    RestoreAllocation();
    ASSERT_GT(calls, 2);
    for (long k = 1; k <= calls; ++k) {
        FailAllocation(k);
        const int err = write();
        RestoreAllocation();
        if (err < 0) continue;  // the writer record itself
        EXPECT_EQ(err, 0) << "allocation " << k;
        const std::string deck = ReadFile(path);
        EXPECT_EQ(deck.substr(deck.size() - 8), "ENDDATA\n") << "allocation " << k;
    }
}

}  // namespace
