// vis_PatLwt on the full model fixture: the whole file, packet by packet, written by hand from
// the packet rules, and its packet structure.
#include "ModelFixture.h"
#include "PatLwtTestSupport.h"

using namespace nastest;
using namespace vsytest;
using namespace modeltest;
using namespace pattest;

namespace {

// A whole number in the 16-column exponent form: "%23.15E" cut after nine decimals, two
// exponent digits kept (minexp 2): 3 is " 3.000000000E+00", 0 " 0.000000000E+00".
std::string W(int v)
{
    return E(std::to_string(v) + ".000000000E+00");
}

const std::string kZero = W(0);

class PatLwtFixtureTest : public WriterTest {
protected:
    void TearDown() override
    {
        DestroyFullModel(&m);
        WriterTest::TearDown();
    }
    FullModel m{};
};

// Packet 2: header (shape code, KC 2 for up to ten nodes), the card of node count, 0,
// property, 0 and three zero reals, then the nodes.
std::string Elem(int id, int code, int prop, std::initializer_list<int> nodes)
{
    std::string s = Head(2, id, code, 2) + I8(int(nodes.size())) + I8(0) + I8(prop) + I8(0) + kZero + kZero + kZero + "\n";
    for (int n : nodes) s += I8(n);
    return s + "\n";
}

TEST_F(PatLwtFixtureTest, WholeFile)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    Reports().clear();
    const std::string file = WritePat(m.model, File("fixture.out"));
    ExpectNoReport();
    EXPECT_EQ(CheckPackets(file), "");
    // Title; summary with 12 nodes, 6 elements, 2 materials, 5 element properties, 1 system.
    std::string want = Head(25, 0, 0, 1) + "Patran neutral file\n" + Head(26, 0, 0, 1, 12, 6, 2, 5, 1) + "(date)\n";
    // Nodes: three coordinates, then "1G", 6, 0, the system (5 on nodes 11, 12) and six flags
    // of association 7, unset: 000000.
    for (int i = 1; i <= kNumNode; ++i) {
        const double* x = kCoords[i - 1];
        want += Head(1, 1000 + i, 0, 2) + W(int(x[0])) + W(int(x[1])) + W(int(x[2])) + "\n";
        want += "1G" + I8(6) + I8(0) + I8(i >= 11 ? 5 : 0) + "  000000\n";
    }
    // Elements. Shape codes: quadrilateral 4, hexahedron 8, line 2, point 2. The linear
    // elements are in the library's serendipity form (maxj 0) and keep their order. The mass
    // at node 6 has one node, written twice.
    want += Elem(2001, 4, 10, {1001, 1002, 1005, 1004});
    want += Elem(2002, 4, 10, {1002, 1003, 1006, 1005});
    want += Elem(2003, 8, 20, {1007, 1008, 1009, 1010, 1001, 1002, 1005, 1004});
    want += Elem(2004, 2, 30, {1003, 1011});
    want += Elem(2005, 2, 40, {1011, 1012});
    want += Elem(2006, 2, 50, {1006, 1006});
    // Frame 5, rectangular (1): origin (3, 0, 1); origin plus the third row (3, 0, 2); origin
    // plus the first row (3.8660254..., .5, 1); the rows (.8660254..., .5, 0), (-.5,
    // .8660254..., 0), (0, 0, 1). 3.8660254037844384 and .86602540378443865 cut after nine
    // decimals: 3.866025403, 8.660254037E-01.
    const std::string c30 = E("8.660254037E-01"), half = E("5.000000000E-01");
    want += Head(5, 5, 1, 4) + W(3) + kZero + W(1) + W(3) + kZero + "\n";
    want += W(2) + E("3.866025403E+00") + half + W(1) + c30 + "\n";
    want += half + kZero + E("-5.000000000E-01") + c30 + kZero + "\n";
    want += kZero + kZero + W(1) + "\n";
    // Pressures of case 100. E1 face 1, a shell: flags 101, the third face flag (dimension 2),
    // corners 1 to 4 flagged; values 1e5, 1e5, 2e5, 2e5; KC (4 + 4) / 5 + 1 = 2.
    const std::string p1 = E("1.000000000E+05"), p2 = E("2.000000000E+05"), p3 = E("3.000000000E+05");
    want += Head(6, 2001, 100, 2) + "101" + "001000" + "11110000" + " 0\n" + p1 + p1 + p2 + p2 + "\n";
    // E3 face 6: the hexahedron's face 1-2-6-5 (from 0): a solid, the first face flag; corner
    // positions 1, 2, 5, 6 flagged; four values of 3e5.
    want += Head(6, 2003, 100, 2) + "101" + "100000" + "01100110" + " 0\n" + p3 + p3 + p3 + p3 + "\n";
    // Forces and moments: node 3 (0, 0, -500): one real, the third flag; node 11 the moment
    // (0, 10, 0): the fifth flag.
    want += Head(7, 1003, 100, 2) + I8(0) + "001000\n" + E("-5.000000000E+02") + "\n";
    want += Head(7, 1011, 100, 2) + I8(0) + "000010\n" + E("1.000000000E+01") + "\n";
    // Restraint case 200: no tag 7. Nodes 7 to 10 fixed in six dofs (type 1): six zeros, KC
    // (6 + 4) / 5 + 1 = 3. Node 12: tag 3 prescribed 0.001 (type 2), in system 5.
    for (int id = 1007; id <= 1010; ++id)
        want += Head(8, id, 200, 3) + I8(0) + "111111\n" + kZero + kZero + kZero + kZero + kZero + "\n" + kZero + "\n";
    want += Head(8, 1012, 200, 2) + I8(5) + "001000\n" + E("1.000000000E-03") + "\n";
    // Temperatures of case 100: node i of 1 to 6 at 20 + i.
    // 20 + i is "2.i00000000E+01".
    for (int i = 1; i <= 6; ++i) want += Head(10, 1000 + i, 100, 1, 1) + E("2." + std::to_string(i) + "00000000E+01\n");
    // Initial temperatures of case 400: tag 7 of level 1 at nodes 1 to 6, 15; N2 is -1.
    for (int i = 1; i <= 6; ++i) want += Head(10, 1000 + i, 400, 1, 1, -1) + E("1.500000000E+01\n");
    // Constraint case 300: equation 1 of two terms (node 11 dof 3, factor 1; node 12 dof 3,
    // factor -1): KC 2 / 2 + 2 = 3, N1 1, N2 0. The constant 0 / 1 = 0; the second factor
    // -(-1) / 1 = 1. Equation 2 is a tie, not written.
    want += Head(14, 1, 300, 3, 1, 0) + std::string(24, ' ') + R("MPC", 12) + "\n";
    want += I8(1011) + I8(3) + kZero + "\n" + I8(1012) + I8(3) + W(1) + "\n";
    // Groups: key 1, the node group "Clamped nodes" of nodes 7 to 10: four pairs (5, id), IV 8,
    // KC (8 + 9) / 10 + 1 = 2. Key 2, the element group "Plate": (7, 2001), (7, 2002).
    want += Head(21, 1, 8, 2) + "Clamped nodes\n" + I8(5) + I8(1007) + I8(5) + I8(1008) + I8(5) + I8(1009) + I8(5) +
            I8(1010) + "\n";
    want += Head(21, 2, 4, 2) + "Plate\n" + I8(7) + I8(2001) + I8(7) + I8(2002) + "\n";
    want += Head(99, 0, 0, 1);
    EXPECT_EQ(MaskDate(file), want);
}

} // namespace
