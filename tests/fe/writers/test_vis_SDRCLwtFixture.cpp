// vis_SDRCLwt on the full model fixture: the whole universal file, written by hand from the
// dataset rules.
#include "ModelFixture.h"
#include "SDRCLwtTestSupport.h"

using namespace nastest;
using namespace sdrctest;
using namespace vsytest;
using namespace modeltest;

namespace {

class SDRCLwtFixtureTest : public WriterTest {
protected:
    void TearDown() override
    {
        DestroyFullModel(&m);
        WriterTest::TearDown();
    }
    FullModel m{};
};

// A coordinate of the fixture, an integer 0 to 4, in 25 columns.
std::string C(double v)
{
    return E25(std::to_string(int(v)), 0);
}

TEST_F(SDRCLwtFixtureTest, WholeFile)
{
    ASSERT_EQ(BuildFullModel(&m), 1);
    Reports().clear();
    const std::string file = WriteUnv(m.model, File("fixture.unv"));
    ExpectNoReport();
    // Units mm (length 3) and t (mass 3): code 10; kelvin: mode 1. 1 / 0.001 = 1000; 1000 times
    // 1 / 1000 rounds to 1; 1 / 1 for the temperature; the kelvin offset 0.
    std::string want = Open(164) + I10(10) + std::string(20, ' ') + I10(1) + "\n";
    want += E25("1", 3) + E25("1", 0) + E25("1", 0) + "\n" + E25("0", 0) + "\n" + kFence;
    // Nodes: ids 1000 + i, nodes 11 and 12 in system 5, colour 1.
    want += Open(2411);
    for (int i = 1; i <= kNumNode; ++i) {
        const double* x = kCoords[i - 1];
        want += I10s({kNodeIdBase + i, 0, i >= 11 ? kCsysId : 0, 1}) + C(x[0]) + C(x[1]) + C(x[2]) + "\n";
    }
    want += kFence;
    // Elements: E1 and E2 shells of four nodes, 94; E3 a solid hexahedron, 115, its nodes
    // 7 8 9 10 1 2 5 4 in the order 4 5 6 7 0 1 2 3; E4 a beam, 21, with the line 0 1 1; E5 a
    // spring, 136; E6 a mass point, 181 with one node. Material 0 where the fixture has none.
    want += Open(2412);
    want += I10s({2001, 94, 10, 1, 1, 4}) + I10s({1001, 1002, 1005, 1004});
    want += I10s({2002, 94, 10, 1, 1, 4}) + I10s({1002, 1003, 1006, 1005});
    want += I10s({2003, 115, 20, 2, 1, 8}) + I10s({1001, 1002, 1005, 1004, 1007, 1008, 1009, 1010});
    want += I10s({2004, 21, 30, 1, 1, 2}) + I10s({0, 1, 1}) + I10s({1003, 1011});
    want += I10s({2005, 136, 40, 0, 1, 2}) + I10s({1011, 1012});
    want += I10s({2006, 181, 50, 0, 1, 1}) + I10s({1006});
    want += kFence;
    // System 5, rectangular (type 1, written 0): origin (3,0,1), the x point origin + (cos 30,
    // sin 30, 0) = (3.8660254..., 0.5, 1), cut to six decimals; the plane point origin + z.
    want += Open(18) + I10s({5, 0, 0, 0, 1}) + "COORDINATE SYSTEM 5\n";
    want += E13("3", 0) + E13("0", 0) + E13("1", 0) + E13("3.866025", 0) + E13("5", -1) + E13("1", 0) + "\n";
    want += E13("3", 0) + E13("0", 0) + E13("2", 0) + "\n" + kFence;
    // Groups: node group 1 (nodes 7 to 10), element group 2 (E1, E2); entries two to a line.
    want += Open(2452);
    want += I10s({1, 0, 0, 0, 0, 0, 0, 4}) + "Clamped nodes\n";
    want += I10s({7, 1007, 0, 0, 7, 1008, 0, 0}) + I10s({7, 1009, 0, 0, 7, 1010, 0, 0});
    want += I10s({2, 0, 0, 0, 0, 0, 0, 2}) + "Plate\n" + I10s({8, 2001, 0, 0, 8, 2002, 0, 0});
    want += kFence;
    // Load case 100: the force (0,0,-500) at node 3, the moment (0,10,0) at node 11; then the
    // temperatures 20 + i at nodes 1 to 6.
    const std::string z = E25("0", 0);
    want += Open(790) + I10s({100, 1}) + "LOAD SET 100\n";
    want += I10(1003) + I10(1) + " 1 1 1 0 0 0\n" + z + z + E25("-5", 2) + "\n" + z + z + z + "\n" + I10s({0, 0, 0, 0, 0, 0});
    want += I10(1011) + I10(1) + " 0 0 0 1 1 1\n" + z + z + z + "\n" + z + E25("1", 1) + z + "\n" + I10s({0, 0, 0, 0, 0, 0});
    want += kFence;
    // Pressures on faces, form 2: face 1 of E1 (a quadrilateral, four corner values 1e5 1e5 2e5
    // 2e5) and face 6 of the hexahedron E3 (a quadrilateral face, 3e5 at each corner).
    want += Open(790) + I10s({100, 2}) + "LOAD SET 100\n";
    want += I10s({2001, 1, 1, 4}) + E25("1", 5) + E25("1", 5) + E25("2", 5) + E25("2", 5) + "\n" + I10s({0});
    want += I10s({2003, 1, 6, 4}) + E25("3", 5) + E25("3", 5) + E25("3", 5) + E25("3", 5) + "\n" + I10s({0});
    want += kFence;
    want += Open(792) + I10s({100, 1}) + "TEMPERATURE SET 100\n";
    for (int i = 1; i <= 6; ++i) want += I10(kNodeIdBase + i) + E25("2." + std::to_string(i), 1) + "\n";
    want += kFence;
    // Restraint case 200, tags 1 to 6 in use: kind 1. Nodes 7 to 10 fixed in all six, node 12 in
    // dof 3 to 0.001.
    want += Open(791) + I10s({200, 1}) + "RESTRAINT SET 200\n";
    for (int i = 7; i <= 10; ++i)
        want += I10(kNodeIdBase + i) + I10(1) + " 1 1 1 1 1 1 0 7 0\n" + z + z + z + "\n" + z + z + z + "\n" + I10s({0, 0, 0, 0, 0, 0});
    want += I10(1012) + I10(1) + " 0 0 1 0 0 0 0 7 0\n" + z + z + E25("1", -3) + "\n" + z + z + z + "\n" + I10s({0, 0, 0, 0, 0, 0});
    want += kFence;
    // Constraint case 300: equation 1, two terms, u3 of node 11 minus u3 of node 12; the tie of
    // equation 2 has no terms to write.
    const std::string z13 = E13("0", 0);
    want += Open(751) + I10s({300, 2}) + "CONSTRAINT SET 300\n";
    want += I10(1) + I10(2) + I10(0) + I10(0) + z13 + z13 + I10(0) + "\n";
    want += I10(1011) + " 3" + E13("1", 0) + z13 + "\n" + I10(1012) + " 3" + E13("-1", 0) + z13 + "\n";
    want += kFence;
    EXPECT_EQ(file, want);
}

}  // namespace
