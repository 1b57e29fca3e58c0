// vis_D3DFwt on the full model fixture: the whole deck, written by hand from the card rules,
// and its column layout.
#include "D3DFwtTestSupport.h"
#include "ModelFixture.h"

using namespace nastest;
using namespace vsytest;
using namespace modeltest;
using namespace d3dtest;

namespace {

// The 16-column text of the fixture's coordinates 0 to 4: the fixed form of a whole number
// drops its trailing zeros down to the point ("1."), two characters, so "%15s ".
std::string Coord(double v)
{
    return F16(std::to_string(int(v)) + ".");
}

std::string NodeLine(int id, const double* x)
{
    return I8(id) + Coord(x[0]) + Coord(x[1]) + Coord(x[2]) + "\n";
}

class D3DFwtFixtureTest : public WriterTest {
protected:
    void TearDown() override
    {
        DestroyFullModel(&m);
        WriterTest::TearDown();
    }
    FullModel m{};
};

TEST_F(D3DFwtFixtureTest, WholeDeck)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    Reports().clear();
    const std::string deck = WriteDyna(m.model, File("fixture.k"));
    ExpectNoReport();
    // Head, and the first step's title (parameter 19).
    std::string want = "$ LS-DYNA input deck\n*KEYWORD\n*TITLE\nStatic step\n";
    // System 5: origin (3, 0, 1); the second point is the origin plus the x row (0.866..., .5,
    // 0), the third the origin plus the y row (-.5, 0.866..., 0). 10-column fields:
    // 3.8660254...: fixed, w = 15 - trunc(0.59 + 0.5) = 14, "3.86602540378444" cut to ten
    // characters "3.86602540", its trailing zero dropped: nine characters, against the
    // exponent form " 3.86602E+0" of eleven; nine is above 8, so it fills the field.
    // 0.866025...: w = 15, ".866025403784439" cut to ".866025403", ten characters.
    // 3.5 ... whole numbers and halves: "3.", ".5", "2.5", "1.", "0.", one column short.
    want += "$***       Coordinate systems\n*DEFINE_COORDINATE_SYSTEM\n";
    want += I10(5) + F10("3.") + F10("0.") + F10("1.") + F10("3.8660254") + F10(".5") + F10("1.") + "\n";
    want += F10("2.5") + F10(".866025403") + F10("1.") + "\n";
    // Nodes 1 to 12, ids 1000 + index, all of featype 1. The largest id is 1012.
    want += "$***       Nodes\n*NODE\n";
    for (int i = 1; i <= kNumNode; ++i) want += NodeLine(kNodeIdBase + i, kCoords[i - 1]);
    // Elements. E1, E2: shells of four nodes, property 10. E3: a solid hexahedron, property 20.
    want += "$***       Elements\n*ELEMENT_SHELL\n";
    want += Ints8({2001, 10, 1001, 1002, 1005, 1004}) + "\n";
    want += Ints8({2002, 10, 1002, 1003, 1006, 1005}) + "\n";
    want += "*ELEMENT_SOLID\n" + Ints8({2003, 20, 1007, 1008, 1009, 1010, 1001, 1002, 1005, 1004}) + "\n";
    // E4: a beam from node 3 (2, 0, 1) to node 11 (3, 0, 1) with orientation (0, 1, 0), which
    // is square to the beam: the second axis is (0, 1, 0) and the orientation node (2, 1, 1)
    // takes id 1013, one above the largest. Its "*NODE" comes first, then the head again.
    want += "*NODE\n" + NodeLine(1013, std::vector<double>{2, 1, 1}.data());
    want += "*ELEMENT_BEAM\n" + Ints8({2004, 30, 1003, 1011, 1013}) + "\n";
    // E5, a spring (feature 9), has no card. E6: a mass at node 6, parameter 51 of property 50
    // is (2, 2, 2): its first value, "2." in 16 columns.
    want += "*ELEMENT_MASS\n" + Ints8({2006, 1006}) + F16("2.") + "\n";
    // Parts in ascending key order: id twice and the material (parameter 0; none on 40, 50).
    // Property 10 is a shell (type 2): section id, 2, the shear ratio by default
    // 0.8333333333333334: w = 15, ".833333333333333" cut to ".833333333", ten characters; then
    // thicknesses .010, .010, .012, .012 (fixed: w = 15 - trunc(-2 + 0.5) = 16, cut to ten
    // characters ".010000000", zeros dropped: ".01"), 0.0 and the nonstructural mass .5.
    want += "$***       Element properties\n";
    want += "*PART\nelement property 10\n" + I10(10) + I10(10) + I10(1) + "\n";
    want += "*SECTION_SHELL\n" + I10(10) + I10(2) + F10(".833333333") + "\n";
    want += F10(".01") + F10(".01") + F10(".012") + F10(".012") + F10("0.") + F10(".5") + "\n";
    // Property 20 is a solid (type 1).
    want += "*PART\nelement property 20\n" + I10(20) + I10(20) + I10(2) + "\n*SECTION_SOLID\n" + I10(20) + "\n";
    // Beam, spring and mass properties: the part alone.
    want += "*PART\nelement property 30\n" + I10(30) + I10(30) + I10(1) + "\n";
    want += "*PART\nelement property 40\n" + I10(40) + I10(40) + I10(0) + "\n";
    want += "*PART\nelement property 50\n" + I10(50) + I10(50) + I10(0) + "\n";
    // Materials: only the isotropic 1 (type 0) writes. Density 7850: fixed "7850.00000" (w =
    // 11, cut to ten), "7850.", against " 7.85E+3". E 2.1e11: the fixed form fails (log10 above
    // 10); the exponent form " 2.1E+11" without its blank, seven characters. Poisson .3.
    want += "$***       Material properties\n*MAT_ELASTIC\n";
    want += I10(1) + F10("7850.") + F10("2.1E+11") + F10(".3") + "\n";
    // Node group 1 "Clamped nodes": nodes 7 to 10; element group 2 "Plate": E1, E2.
    want += "C***       Node sets\nNSEL,S,,,1007\nNSEL,A,,,1008\nNSEL,A,,,1009\nNSEL,A,,,1010\n";
    want += "CM,Clamped nodes,NODE\nNSEL,ALL\n";
    want += "C***       Element sets\nESEL,S,,,2001\nESEL,A,,,2002\nCM,Plate,ELEM\nESEL,ALL\n";
    // Restraint case 200: nodes 7 to 10 fixed in dofs 1 to 6 (type 1): all six flags. Node 12
    // has tag 3 of type 2 and value 0.001: a prescribed motion, no flag, no line.
    want += "$***       Restraints\n*BOUNDARY_SPC_NODE\n";
    for (int id = 1007; id <= 1010; ++id) {
        want += I10(id) + I10(0);
        for (int k = 0; k < 6; ++k) want += I10(1);
        want += "\n";
    }
    // Loads: case 100 of the first step. The force, moment and temperatures have no card.
    // Curve 7 is the largest key of the curve table: the shared curve is 8, "%10f" of 1 and 0
    // "  1.000000", "  0.000000".
    want += "$***       Loads\n*DEFINE_CURVE\n" + I10(8) + I10(0) + "  1.000000  1.000000  0.000000  1.000000\n";
    // E1 face 1: the quadrilateral's own corners 1 2 5 4, its first pressure 1e5; fixed
    // "100000." (seven characters) is not shorter than the exponent form " 1.0E+5", which is
    // taken without its blank: "1.0E+5". E3 face 6 is the hexahedron's face 5 from 0, corners
    // 1-2-6-5 of its list 7 8 9 10 1 2 5 4: nodes 8, 9, 5, 2; pressure 3e5, "3.0E+5".
    want += "*LOAD_SEGMENT\n";
    want += I10(8) + F10("1.0E+5") + "  0.000000" + I10(1001) + I10(1002) + I10(1005) + I10(1004) + "\n";
    want += I10(8) + F10("3.0E+5") + "  0.000000" + I10(1008) + I10(1009) + I10(1005) + I10(1002) + "\n";
    want += "*END\n";
    EXPECT_EQ(deck, want);
    EXPECT_EQ(CheckDeck(deck), "");
}

} // namespace
