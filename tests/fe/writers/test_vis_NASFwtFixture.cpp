// vis_NASFwt on the full model fixture: the whole deck, written by hand from the card rules.
// The property, material, load, initial condition, restraint and constraint cards have no
// writer yet; when they come, their sections stand between the coordinate systems and ENDDATA.
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

class NASFwtFixtureTest : public WriterTest {
protected:
    void TearDown() override
    {
        DestroyFullModel(&m);
        WriterTest::TearDown();
    }
    FullModel m{};
};

TEST_F(NASFwtFixtureTest, WholeDeck)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    Reports().clear();
    const std::string path = File("fixture.bdf");
    const std::string stem = dir + "/fixture";
    std::string want = "ASSIGN,OUTPUT='" + stem + ".op2',UNIT=12\nID,NASTRAN," + stem + "\n";
    // First step static (type 1), domain unset (1), not nonlinear; the second is transient.
    want += "SOL 101\nTIME 10000\nCEND\nECHO = NONE\n";
    // Step 1: no request counts; title, restraint 200, constraint 300; load case 100 holds
    // concentrated temperatures, so it is a TEMP case. Static without the nonlinear flag and a
    // deck of kind 1: no NLPARM or METHOD.
    want += "SUBCASE = 1\nTITLE = Static step\nSPC = 200\nMPC = 300\nTEMP = 100\n";
    // Step 2: title, restraint 200, initial conditions 400, the same load case.
    want += "SUBCASE = 2\nTITLE = Transient step\nSPC = 200\nIC = 400\nTEMP = 100\n";
    want += "BEGIN BULK\n";
    want += "PARAM,POST,-1\nPARAM,PATVER,3.0\nPARAM,K6ROT,100.0\nPARAM,MAXRATIO,1.E+8\nPARAM,GRDPNT,0\n"
            "PARAM,AUTOSPC,YES\n";  // first step of type 1; neither step adds a card
    want += "$          Grid points\n";
    for (int i = 0; i < kNumNode; ++i) want += Grid(kNodeIdBase + i + 1, kCoords[i], i >= 10 ? kCsysId : 0);
    want += "$          Elements\n";
    // E1: property 10's corner thicknesses, no element data of its own: no thickness line.
    want += "CQUAD4  " + I8(2001) + I8(10) + I8(1001) + I8(1002) + I8(1005) + I8(1004) + kBlank8 + "\n";
    // E2: element thickness .02 at every corner against .010 .010 .012 .012: four values.
    want += "CQUAD4  " + I8(2002) + I8(10) + I8(1002) + I8(1003) + I8(1006) + I8(1005) + kBlank8 + "\n";
    want += kBlank8 + kBlank8 + kBlank8 + "    .02     .02     .02     .02 \n";
    want += "CHEXA   " + I8(2003) + I8(20) + I8(1007) + I8(1008) + I8(1009) + I8(1010) + I8(1001) + I8(1002) + "\n";
    want += kBlank8 + I8(1005) + I8(1004) + "\n";
    // E4: orientation (0,1,0); first node 3 has no system. Releases 0xE00: pa 0, pb 456.
    // Offsets (0,.01,0) of the first end, twice, and the empty line.
    want += "CBEAM   " + I8(2004) + I8(30) + I8(1003) + I8(1011) + "     0.      1.      0. \n";
    want += kBlank8 + I8(0) + I8(456) + "     0.     .01      0.      0.     .01      0. \n\n";
    // E5: spring, feaspec 0, dofs 1 and 1 from property 40.
    want += "CELAS1  " + I8(2005) + I8(40) + I8(1011) + I8(1) + I8(1012) + I8(1) + "\n";
    // E6: mass 2.0 ("2." in seven columns and a blank), element system 0.
    want += "CONM2   " + I8(2006) + I8(1006) + I8(0) + "     2. \n";
    // System 5: origin (3,0,1); B = origin + z row = (3,0,2); C = origin + x row =
    // (3.8660254037844388, .5, 1). The fixed form of 3.866...: w = 15 - trunc(0.587 + 0.5) = 14,
    // "3.86602540378444" (the 14th decimal rounded once by the runtime), sixteen characters.
    want += "$          Coordinate systems\n";
    want += "CORD2R* " + I16(kCsysId) + I16(0) + L("3.") + L("0.") + "\n";
    want += "*       " + L("1.") + L("3.") + L("0.") + L("2.") + "\n";
    want += "*       3.86602540378444" + L(".5") + L("1.") + "\n";
    want += "ENDDATA\n";
    EXPECT_EQ(Write(m.model, path), want);
    ExpectNoReport();
}

}  // namespace
