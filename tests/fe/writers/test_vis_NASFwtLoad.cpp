// vis_NASFwt load, initial condition, restraint and multipoint constraint cards: each card
// from its rule, compared byte for byte. Every case here is the only one of its table.
#include "NASFwtTestSupport.h"
#include "vis_ICase.h"
#include "vis_LCase.h"
#include "vis_MCase.h"
#include "vis_RCase.h"

using namespace nastest;
using namespace vsytest;

namespace {

// Nodes 1 to n on the x axis, ids 100 + index, grid points unless listed in `none`.
std::vector<MeshNode> Line(int n, std::vector<int> none = {})
{
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= n; ++i) {
        bool off = false;
        for (int k : none) off = off || k == i;
        nodes.push_back({{double(i), 0, 0}, 100 + i, off ? 0 : 1, 0});
    }
    return nodes;
}

std::vector<int> Range(int first, int n)
{
    std::vector<int> v;
    for (int i = 0; i < n; ++i) v.push_back(first + i);
    return v;
}

class NASFwtLoadTest : public CardTest {
protected:
    vis_LCase* Load(int id)
    {
        return Put(SYS_LCASE, id, vis_LCaseNew(), vis_LCaseDelete);
    }
    std::string Loads()
    {
        return Section("$          Loads");
    }
};

// Elements of the surface tests, ids 1 to 6 (element index = id): a linear shell quad on
// nodes 1-4, a hexahedron on 5-12, a tetrahedron on 13-16, a wedge on 17-22, a shell triangle
// of order 3 on 23-28, an interface quad (feature 14) on 1-4.
std::vector<MeshElem> Surfaces()
{
    return {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 1, Range(1, 4)}, {SYS_SHAPE_HEX, 0, 0, 1, 2, 2, Range(5, 8)},
            {SYS_SHAPE_TET, 0, 0, 1, 2, 3, Range(13, 4)}, {SYS_SHAPE_WED, 0, 0, 1, 2, 4, Range(17, 6)},
            {SYS_SHAPE_TRI, 3, 0, 2, 1, 5, Range(23, 6)}, {SYS_SHAPE_QUAD, 0, 0, 14, 3, 6, Range(1, 4)}};
}

TEST_F(NASFwtLoadTest, ShellPressureIsNegatedSolidPressureIsNot)
{
    Use(BuildMesh(Line(28), Surfaces()));
    vis_LCase* lc = Load(7);
    const double p10[4] = {10, 10, 10, 10};
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 1, 2, p10);  // shell quad
    vis_LCaseSetDistdv(lc, SYS_FACE, 2, 1, 2, p10);  // hexahedron, face 1
    vis_LCaseSetDistdv(lc, SYS_FACE, 5, 1, 2, p10);  // shell triangle of order 3
    ASSERT_TRUE(Reports().empty());
    std::string want = "$          Loads\n";
    // Linear shell, all equal: PLOAD2 of -10. ("-10." in seven columns and a blank).
    want += "PLOAD2  " + I8(7) + "   -10. " + I8(1) + "\n";
    // Hexahedron face 1 (corners 1 4 3 2: nodes 5 8 7 6): 10. once, three empty fields, the
    // first corner 105 and the opposite one, corner 3, node 107.
    want += "PLOAD4  " + I8(7) + I8(2) + "    10. " + kBlank8 + kBlank8 + kBlank8 + I8(105) + I8(107) + "\n";
    // Shell of order 3, all equal: PLOAD4 with the one negated value.
    want += "PLOAD4  " + I8(7) + I8(5) + "   -10. \n";
    EXPECT_EQ(Loads(), want);
}

TEST_F(NASFwtLoadTest, TractionsAndTheSecondGridOfEachSolid)
{
    Use(BuildMesh(Line(28), Surfaces()));
    vis_LCase* lc = Load(7);
    // Traction (3,4,0) at every corner: magnitude 5., direction (.6,.8,0).
    const double t[12] = {3, 4, 0, 3, 4, 0, 3, 4, 0, 3, 4, 0};
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 1, 1, t);
    // Pressures on the tetrahedron's face 2 (corners 1 2 4: nodes 13 14 16), unequal, and on
    // the wedge's face 1 (corners 1 3 2: nodes 17 19 18) and face 3 (corners 1 2 5 4).
    const double tet[4] = {1, 2, 3, 0}, wed[4] = {4, 4, 4, 4};
    vis_LCaseSetDistdv(lc, SYS_FACE, 3, 2, 2, tet);
    vis_LCaseSetDistdv(lc, SYS_FACE, 4, 1, 2, wed);
    vis_LCaseSetDistdv(lc, SYS_FACE, 4, 3, 2, wed);
    ASSERT_TRUE(Reports().empty());
    std::string want = "$          Loads\n";
    // Shell traction: the magnitude once (all equal), the line end; then two empty fields and
    // the last corner's direction.
    want += "PLOAD4  " + I8(7) + I8(1) + "     5. \n";
    want += kBlank8 + kBlank8 + "     .6      .8      0. \n";
    // Tetrahedron: three values and one empty field; first corner 113, the node off the face
    // (corner 3, node 115).
    want += "PLOAD4  " + I8(7) + I8(3) + "     1.      2.      3. " + kBlank8 + I8(113) + I8(115) + "\n";
    // Wedge triangle: second grid 0. Wedge quadrilateral (nodes 17 18 21 20): opposite 121.
    want += "PLOAD4  " + I8(7) + I8(4) + "     4. " + kBlank8 + kBlank8 + kBlank8 + I8(117) + I8(0) + "\n";
    want += "PLOAD4  " + I8(7) + I8(4) + "     4. " + kBlank8 + kBlank8 + kBlank8 + I8(117) + I8(121) + "\n";
    EXPECT_EQ(Loads(), want);
}

TEST_F(NASFwtLoadTest, SolidTractionTakesPriorityOverPressure)
{
    Use(BuildMesh(Line(28), Surfaces()));
    vis_LCase* lc = Load(7);
    // Hexahedron face 2 (corners 5 6 7 8: nodes 9 10 11 12): (0,0,2) at the first two corners,
    // (0,0,4) at the others; a pressure on face 1 of the same element gives way to it.
    const double t[12] = {0, 0, 2, 0, 0, 2, 0, 0, 4, 0, 0, 4}, p[4] = {1, 1, 1, 1};
    vis_LCaseSetDistdv(lc, SYS_FACE, 2, 2, 1, t);
    vis_LCaseSetDistdv(lc, SYS_FACE, 2, 1, 2, p);
    ASSERT_TRUE(Reports().empty());
    // Magnitudes 2 2 4 4, not all equal: four values; first corner 109, opposite 111; then two
    // empty fields and the last corner's direction (0,0,1).
    std::string want = "$          Loads\n";
    want += "PLOAD4  " + I8(7) + I8(2) + "     2.      2.      4.      4. " + I8(109) + I8(111) + "\n";
    want += kBlank8 + kBlank8 + "     0.      0.      1. \n";
    EXPECT_EQ(Loads(), want);
}

TEST_F(NASFwtLoadTest, InterfaceElementIsItsOwnSurface)
{
    Use(BuildMesh(Line(28), Surfaces()));
    vis_LCase* lc = Load(7);
    const double q[4] = {2.5, 2.5, 2.5, 2.5};
    vis_LCaseSetDistdv(lc, SYS_FACE, 6, 1, 5, q);
    ASSERT_TRUE(Reports().empty());
    // No CHBDYE: the interface element 6 is the surface of its uniform flux 2.5.
    EXPECT_EQ(Loads(), "$          Loads\nQBDY1   " + I8(7) + "     2.5" + I8(6) + "\n");
}

TEST_F(NASFwtLoadTest, EdgeHeatOnPlaneElementsOnly)
{
    // An axisymmetric solid quad (featwod 3) and a shell quad on nodes 1-4, a hexahedron on
    // 5-12, element ids 11, 12, 13.
    std::vector<MeshElem> elems = {{SYS_SHAPE_QUAD, 0, 0, 1, 1, 11, Range(1, 4), 3},
                                   {SYS_SHAPE_QUAD, 0, 0, 2, 1, 12, Range(1, 4)},
                                   {SYS_SHAPE_HEX, 0, 0, 1, 2, 13, Range(5, 8)}};
    Use(BuildMesh(Line(12), elems));
    vis_LCase* lc = Load(7);
    const double q[2] = {5, 5}, conv[4] = {30, 4, 30, 4};
    for (int e = 1; e <= 3; ++e) vis_LCaseSetDistdv(lc, SYS_EDGE, e, 2, 5, q);
    vis_LCaseSetDistdv(lc, SYS_EDGE, 2, 4, 6, conv);
    ASSERT_TRUE(Reports().empty());
    std::string want = "$          Loads\n";
    // New surfaces from the largest element id 13: the axisymmetric solid's side is the edge
    // number 2, the shell's one more, 3; the hexahedron is no plane element: no card.
    want += "CHBDYE  " + I8(14) + I8(11) + I8(2) + "\nQBDY1   " + I8(7) + "      5." + I8(14) + "\n";
    want += "CHBDYE  " + I8(15) + I8(12) + I8(3) + "\nQBDY1   " + I8(7) + "      5." + I8(15) + "\n";
    // Convection on the shell's edge 4: side 5; the ambient point follows the largest node id
    // 112; no property table: the property ids start from 0.
    want += "CHBDYE  " + I8(16) + I8(12) + I8(5) + "\n";
    want += "SPOINT  " + I8(113) + "\nTEMP    " + I8(7) + I8(113) + "     30.\n";
    want += "CONV    " + I8(16) + I8(1) + kBlank8 + kBlank8 + I8(113) + "\n";
    want += "PCONV   " + I8(1) + I8(2) + "\nMAT4    " + I8(2) + kBlank8 + kBlank8 + kBlank8 + "      4.\n";
    EXPECT_EQ(Loads(), want);
}

TEST_F(NASFwtLoadTest, ForcesSkipZeroVectorsAndNodesWithoutGrid)
{
    Use(BuildMesh(Line(3, {2}), {}));
    vis_LCase* lc = Load(7);
    const double f[3] = {0, 2, 0}, zero[3] = {0, 0, 0};
    vis_LCaseSetConcdv(lc, 1, 1, zero);
    vis_LCaseSetConcdv(lc, 2, 1, f);  // node 2 has featype 0
    vis_LCaseSetConcdv(lc, 3, 1, f);
    vis_LCaseSetAcceldv(lc, zero, f, nullptr, nullptr);  // a zero acceleration: no GRAV
    ASSERT_TRUE(Reports().empty());
    EXPECT_EQ(Loads(), "$          Loads\nFORCE   " + I8(7) + I8(103) + I8(0) + "     2.      0.      1.      0. \n");
}

// Temperatures t at nodes 1 to n of a mesh of m nodes.
class NASFwtTempTest : public NASFwtLoadTest {
protected:
    vis_LCase* Temperatures(int m, int n, double t)
    {
        Use(BuildMesh(Line(m), {}));
        vis_LCase* lc = Load(7);
        for (int i = 1; i <= n; ++i) vis_LCaseSetConcdv(lc, i, 4, &t);
        return lc;
    }
    static std::string Temp(int node, const char* field)
    {
        return "TEMP    " + I8(7) + I8(100 + node) + field + "\n";
    }
};

TEST_F(NASFwtTempTest, NinetyNineNodesHaveNoDefault)
{
    Temperatures(99, 99, 50.0);
    std::string want = "$          Loads\n";
    for (int i = 1; i <= 99; ++i) want += Temp(i, "    50. ");
    EXPECT_EQ(Loads(), want);
}

TEST_F(NASFwtTempTest, HundredEqualNodesAreOneDefault)
{
    Temperatures(100, 100, 50.0);
    // Every node holds 50: one run of 100, complete: TEMPD and no TEMP.
    EXPECT_EQ(Loads(), "$          Loads\nTEMPD   " + I8(7) + "    50. \n");
}

TEST_F(NASFwtTempTest, IncompleteRunNeedsZero)
{
    // 101 nodes, 100 of them at 50: the gap at node 101 leaves the run without completeness and
    // 50 is not 0: no default.
    Temperatures(101, 100, 50.0);
    std::string want = "$          Loads\n";
    for (int i = 1; i <= 100; ++i) want += Temp(i, "    50. ");
    EXPECT_EQ(Loads(), want);
}

TEST_F(NASFwtTempTest, IncompleteZeroRunIsTheDefault)
{
    // 120 nodes; 1 to 60 at 0 and 61 to 110 at 30: the run of 60 zeros is half of the 110
    // temperatures. The gap does not matter for 0: TEMPD 0. and the fifty others.
    vis_LCase* lc = Temperatures(120, 60, 0.0);
    const double t = 30.0;
    for (int i = 61; i <= 110; ++i) vis_LCaseSetConcdv(lc, i, 4, &t);
    std::string want = "$          Loads\nTEMPD   " + I8(7) + "     0. \n";
    for (int i = 61; i <= 110; ++i) want += Temp(i, "    30. ");
    EXPECT_EQ(Loads(), want);
}

TEST_F(NASFwtLoadTest, RestraintDigitsAndPrescribedValues)
{
    Use(BuildMesh(Line(3, {2}), {}));
    vis_RCase* rc = Put(SYS_RCASE, 9, vis_RCaseNew(), vis_RCaseDelete);
    vis_RCaseSetSPCdv(rc, 1, 1, 2, 0.0);  // prescribed 0.0: joins the digits
    vis_RCaseSetSPCdv(rc, 1, 2, 2, 0.5);  // prescribed .5: its own SPC*
    vis_RCaseSetSPCdv(rc, 1, 3, 1, 0.0);  // fixed
    vis_RCaseSetSPCdv(rc, 2, 1, 1, 0.0);  // node without grid: nothing
    vis_RCaseSetSPCdv(rc, 3, 7, 1, 0.0);  // temperature tag: dof 1
    ASSERT_TRUE(Reports().empty());
    std::string want = "$          Restraints\n";
    want += "SPC*    " + I16(9) + I16(101) + I16(2) + R(".5", 15) + " \n";
    want += "SPC     " + I8(9) + I8(101) + R("13", 8) + "     0. \n";
    want += "SPC     " + I8(9) + I8(103) + R("1", 8) + "     0. \n";
    EXPECT_EQ(Section("$          Restraints"), want);
}

TEST_F(NASFwtLoadTest, EquationTermsTwoALine)
{
    Use(BuildMesh(Line(5), {}));
    vis_MCase* mc = Put(SYS_MCASE, 3, vis_MCaseNew(), vis_MCaseDelete);
    const int nodes[5] = {1, 2, 3, 4, 5}, tags[5] = {1, 2, 7, 4, 5};
    const double f[5] = {1, -1, 2, -2, 0.5};
    vis_MCaseSetMPCdv(mc, 1, 5, nodes, tags, f);
    vis_MCaseSetMPCdv(mc, 2, 4, nodes, tags, f);
    ASSERT_TRUE(Reports().empty());
    std::string want = "$          Multipoint constraints\n";
    // Five terms: term 0 on the MPC* line; 1 (odd) ends with an empty field; 2 (even, tag 7 as
    // dof 1) starts with one; 3 odd; 4 even and last, still with its leading empty field.
    want += "MPC*    " + I16(3) + I16(101) + I16(1) + "  1.00000000E+00\n";
    want += "*       " + I16(102) + I16(2) + " -1.00000000E+00" + std::string(16, ' ') + "\n";
    want += "*       " + std::string(16, ' ') + I16(103) + I16(1) + "  2.00000000E+00\n";
    want += "*       " + I16(104) + I16(4) + " -2.00000000E+00" + std::string(16, ' ') + "\n";
    want += "*       " + std::string(16, ' ') + I16(105) + I16(5) + "  5.00000000E-01\n";
    // Four terms: the last is odd and has no empty field at its end.
    want += "MPC*    " + I16(3) + I16(101) + I16(1) + "  1.00000000E+00\n";
    want += "*       " + I16(102) + I16(2) + " -1.00000000E+00" + std::string(16, ' ') + "\n";
    want += "*       " + std::string(16, ' ') + I16(103) + I16(1) + "  2.00000000E+00\n";
    want += "*       " + I16(104) + I16(4) + " -2.00000000E+00\n";
    EXPECT_EQ(Section("$          Multipoint constraints"), want);
}

TEST_F(NASFwtLoadTest, InitialTemperaturesAndMotion)
{
    Use(BuildMesh(Line(3, {2}), {}));
    vis_ICase* ic = Put(SYS_ICASE, 4, vis_ICaseNew(), vis_ICaseDelete);
    vis_ICaseSetSPVdv(ic, 1, 1, 7, 20.0);
    vis_ICaseSetSPVdv(ic, 2, 1, 7, 30.0);  // no grid: no TEMP
    vis_ICaseSetSPVdv(ic, 3, 1, 2, 0.25);  // displacement of dof 2
    vis_ICaseSetSPVdv(ic, 3, 2, 3, -1.5);  // velocity of dof 3
    ASSERT_TRUE(Reports().empty());
    std::string want = "$          Initial conditions\n";
    want += "TEMP    " + I8(4) + I8(101) + "    20. \n";
    // Node 3: dof 2 displaced .25 at rest, dof 3 moving at -1.5 from 0.
    want += "TIC     " + I8(4) + I8(103) + I8(2) + "    .25      0. \n";
    want += "TIC     " + I8(4) + I8(103) + I8(3) + "     0.    -1.5 \n";
    EXPECT_EQ(Section("$          Initial conditions"), want);
}

}  // namespace
