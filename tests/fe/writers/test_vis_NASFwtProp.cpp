// vis_NASFwt property and material cards: each card from its rule, compared byte for byte.
//
// Slot order of the tables, by hand: a table of at most five entries has 11 slots, and
// 2654435761 = 11 * 241312341 + 10, so the home of key k (1 to 10) is 10 k mod 11 = 11 - k.
// Keys 1, 2, 3 ... therefore come out last first.
#include "NASFwtTestSupport.h"
#include "vis_EProp.h"
#include "vis_MProp.h"

using namespace nastest;
using namespace vsytest;

namespace {

const std::string kBlank16(16, ' ');

// A mesh of one grid point, and of one solid with the given featwod when it is not 0.
vis_Connect* OneNode(int featwod = 0)
{
    std::vector<MeshElem> elems;
    if (featwod) elems.push_back({SYS_SHAPE_POINT, 0, 0, 1, 1, 1, {1}, featwod});
    return BuildMesh({{{0, 0, 0}, 1, 1, 0}}, elems);
}

class NASFwtPropTest : public CardTest {
protected:
    vis_EProp* Prop(int id, int type)
    {
        vis_EProp* p = vis_EPropNew();
        vis_EPropDef(p, type);
        return Put(SYS_EPROP, id, p, vis_EPropDelete);
    }
    // A beam property of material 9 with a section type, rotation angle and the dimensions d
    // (the rest of the forty 0).
    vis_EProp* Beam(int id, int type, double angle, std::vector<double> d)
    {
        vis_EProp* p = Prop(id, 4);
        vis_EPropSetValuei(p, 0, 9);
        vis_EPropSetValuei(p, 81, type);
        vis_EPropSetValued(p, 104, angle);
        d.resize(40, 0.0);
        vis_EPropSetValuedv(p, 82, d.data());
        return p;
    }
    vis_MProp* Mat(int id, int type)
    {
        vis_MProp* p = vis_MPropNew();
        vis_MPropDef(p, type);
        return Put(SYS_MPROP, id, p, vis_MPropDelete);
    }
};

TEST_F(NASFwtPropTest, SolidMembraneRodInterfaceGap)
{
    Use(OneNode());
    vis_ConnectSetPartName(connect, 1, "Block");
    vis_EPropSetValuei(Prop(1, 1), 5, -3);
    vis_EProp* membrane = Prop(2, 3);
    vis_EPropSetValuei(membrane, 0, 4);
    vis_EPropSetValued(membrane, 7, 0.002);
    vis_EPropSetValued(membrane, 11, 0.1);
    vis_EProp* rod = Prop(3, 5);
    vis_EPropSetValuei(rod, 0, 4);
    vis_EPropSetValued(rod, 14, 1e-4);
    vis_EPropSetValued(rod, 11, 0.5);
    vis_EProp* conv = Prop(4, 14);
    vis_EPropSetValuei(conv, 0, 4);
    vis_EPropSetValued(conv, 63, 1.25);
    vis_EProp* gap = Prop(5, 7);
    for (int code = 34; code <= 40; ++code) vis_EPropSetValued(gap, code, code - 33.0);
    ASSERT_TRUE(Reports().empty());

    std::string want = "$          Element properties\n";
    // 5, gap: parameters 34 to 40 hold 1 to 7, "%16.8E" each.
    want += "PGAP*   " + I16(5) + "  1.00000000E+00  2.00000000E+00  3.00000000E+00\n";
    want += "*         4.00000000E+00  5.00000000E+00  6.00000000E+00  7.00000000E+00\n";
    // 4, interface: material 4, 0, exponent 1.25 through the field routine, "%16s".
    want += "PCONV*  " + I16(4) + I16(4) + I16(0) + R("1.25", 16) + "\n";
    // 3, truss: material 4, area 1e-4, 0.0; then 0.0 and the nonstructural mass .5.
    want += "PROD*   " + I16(3) + I16(4) + "  1.00000000E-04  0.00000000E+00\n";
    want += "*         0.00000000E+00  5.00000000E-01\n";
    // 2, membrane: material 4, thickness .002 "%8s", four empty fields, mass .1.
    want += "PSHELL  " + I8(2) + I8(4) + "    .002" + std::string(32, ' ') + "     .1 \n";
    // 1, solid named by part 1: the part's name first; integration -3 becomes -1; no
    // material set: 0.
    want += "$HMNAME COMP            " + I8(1) + "\"Block\"\n";
    want += "PSOLID  " + I8(1) + I8(0) + I8(-1) + "\n";
    EXPECT_EQ(Section("$          Element properties"), want);
    ExpectNoReport();
}

TEST_F(NASFwtPropTest, PlaneStressSolidIsAUnitShellAndAnUnsetSpringNothing)
{
    Use(OneNode(2));
    vis_EPropSetValuei(Prop(1, 1), 0, 3);
    Prop(2, 9);   // no dof 1 (parameter 49): no PELAS
    Prop(3, 13);  // mass: no card
    ASSERT_TRUE(Reports().empty());
    // Deck featwod 2: "PSHELL  %8d%8d%8f" with 1.0, which "%8f" prints as "1.000000".
    const std::string want = "$          Element properties\nPSHELL  " + I8(1) + I8(3) + "1.000000\n";
    EXPECT_EQ(Section("$          Element properties"), want);
}

TEST_F(NASFwtPropTest, BeamSectionRows)
{
    Use(OneNode());
    Beam(1, 4, 45.0, {0.2, 0.2, 0.3, 0.01, 0.01, 0.02});  // I section at 45 degrees: no row
    Beam(2, 4, 90.0, {0.2, 0.2, 0.3, 0.01, 0.01, 0.02});  // d0 = d1, d3 = d4: I1
    Beam(3, 4, 90.0, {0.2, 0.25, 0.3, 0.01, 0.015, 0.02});  // unequal: I
    vis_EPropSetValued(Beam(4, 16, 270.0, {1.0, 0.5, 0.2, 0.1}), 11, 3.0);  // HAT, with mass
    vis_EPropSetValuei(Beam(5, 5, 0.0, {0.05}), 102, 1);  // ROD, but reflected: no row
    ASSERT_TRUE(Reports().empty());

    std::string want = "$          Element properties\n";
    // 5: reflected, no row; no mass: the line end alone.
    want += "\n";
    // 4, HAT at 270: d2 .2, d3 .1, d1 .5, (d0 - d1) * .5 = .25; then the mass 3. and the end.
    want += "PBEAML  " + I8(4) + I8(9) + kBlank8 + "     HAT\n";
    want += kBlank8 + "     .2      .1      .5     .25 " + "     3. \n";
    // 3, I at 90: d2 .3, d1 .25, d0 .2, d5 .02, d4 .015, d3 .01.
    want += "PBEAML  " + I8(3) + I8(9) + kBlank8 + "       I\n";
    want += kBlank8 + "     .3     .25      .2     .02    .015     .01 \n";
    // 2, I1 at 90: d0 - d5 = .2 - .02 (.18000000000000002, cut to ".1800000" and trimmed),
    // d5 .02, d2 - d3 - d4 = .3 - .01 - .01 (.27999999999999997: "%15.15f" rounds it to
    // .280000000000000), d2 .3.
    want += "PBEAML  " + I8(2) + I8(9) + kBlank8 + "      I1\n";
    want += kBlank8 + "    .18     .02     .28      .3 \n";
    // 1: section type 4 at 45 degrees matches no row: only the stray end of line.
    want += "\n";
    EXPECT_EQ(Section("$          Element properties"), want);
}

TEST_F(NASFwtPropTest, BeamSectionRowsOfEqualDimensionsAndTwoLines)
{
    Use(OneNode());
    Beam(1, 18, 90.0, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});      // DBOX
    Beam(2, 4, 0.0, {0.2, 0.2, 0.3, 0.01, 0.01, 0.02});      // d0 = d1, d3 = d4 at 0: H
    Beam(3, 11, -90.0, {1, 0.5, 0.1, 0.2});                  // T1 also at -90
    Beam(4, 2, 0.0, {1, 2, 0.1, 0.1, 0.2, 0.2});             // d2 = d3, d4 = d5: BOX
    Beam(5, 2, 0.0, {1, 2, 0.1, 0.15, 0.2, 0.25});           // unequal: BOX1
    ASSERT_TRUE(Reports().empty());
    auto head = [](int id, const char* name) { return "PBEAML  " + I8(id) + I8(9) + kBlank8 + R(name, 8) + "\n" + kBlank8; };
    std::string want = "$          Element properties\n";
    // 5, BOX1: d1 d0 d5 d4 d3 d2.
    want += head(5, "BOX1") + "     2.      1.     .25      .2     .15      .1 \n";
    // 4, BOX: d1 d0 d4 d3.
    want += head(4, "BOX") + "     2.      1.      .2      .1 \n";
    // 3, T1: d0, d1 - d2 = .5 - .1 (.4 to eight characters), d2, d3.
    want += head(3, "T1") + "     1.      .4      .1      .2 \n";
    // 2, H: d2 - (d4 + d3) = .3 - .02, d4 + d3 = .02, d0 .2, d5 .02.
    want += head(2, "H") + "    .28     .02      .2     .02 \n";
    // 1, DBOX: an empty field, d1 + d0 = 3, an empty field, d0, d7, d8, d9, d4, d3; the line
    // break, an empty field, d6, d5, an empty field, d2; no mass and the end of the line.
    want += head(1, "DBOX") + kBlank8 + "     3. " + kBlank8 + "     1.      8.      9.     10.      5.      4. \n";
    want += kBlank8 + "     7.      6. " + kBlank8 + "     3. \n";
    EXPECT_EQ(Section("$          Element properties"), want);
}

TEST_F(NASFwtPropTest, MaterialsWithoutUserKeepOnlyIsotropicCards)
{
    Use(OneNode());
    vis_MProp* steel = Mat(1, 0);
    vis_MPropSetValued(steel, 1, 2e11);
    vis_MPropSetValued(steel, 2, 0.3);
    vis_MPropSetValued(steel, 0, 7800.0);
    vis_MPropSetValued(steel, 4, 1.1e-5);
    vis_MProp* film = Mat(2, 0);
    vis_MPropSetValued(film, 19, 50.0);
    vis_MPropSetValued(film, 0, 7800.0);
    vis_MPropSetValued(film, 21, 10.0);
    const double e[3] = {1e7, 2e7, 3e7}, d[21] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21};
    vis_MPropSetValuedv(Mat(3, 2), 7, e);
    vis_MPropSetValuedv(Mat(4, 3), 11, d);
    ASSERT_TRUE(Reports().empty());

    std::string want = "$          Material properties\n";
    // 4 (anisotropic) and 3 (orthotropic): no property names them, class none: no card.
    // 2: film coefficient set: MAT4 of conductivity 50., specific heat unset (empty in mode
    // 2), density 7800.; the film coefficient 10. on its own line.
    want += "MAT4*   " + I16(2) + R("50.", 16) + kBlank16 + R("7800.", 16) + "\n";
    want += "*       " + R("10.", 16) + "\n";
    // 1: MAT1 of E, an empty field, nu; density, expansion, reference temperature unset (0).
    want += "MAT1*   " + I16(1) + "  2.00000000E+11" + kBlank16 + "  3.00000000E-01\n";
    want += "*         7.80000000E+03  1.10000000E-05  0.00000000E+00\n";
    EXPECT_EQ(Section("$          Material properties"), want);
}

TEST_F(NASFwtPropTest, MaterialClassOfTheLastUserChoosesTheCard)
{
    Use(OneNode());
    vis_EProp* shell = Prop(1, 2);
    vis_EPropSetValuei(shell, 0, 5);
    vis_EPropSetValuei(shell, 1, 7);  // bending material: a shell user too
    vis_EPropSetValuei(Prop(2, 1), 0, 6);
    vis_EPropSetValuei(Prop(3, 1), 0, 5);  // walked before 1: the shell is 5's last user
    vis_MProp* ortho = Mat(5, 2);
    const double e[3] = {1e7, 2e7, 3e7}, nu[3] = {0.3, 0.25, 0.2}, g[3] = {4e6, 5e6, 6e6};
    const double a3[3] = {1e-5, 2e-5, 3e-5};
    vis_MPropSetValuedv(ortho, 7, e);
    vis_MPropSetValuedv(ortho, 8, nu);
    vis_MPropSetValuedv(ortho, 9, g);
    vis_MPropSetValuedv(ortho, 10, a3);
    vis_MPropSetValued(ortho, 0, 2.5);
    vis_MPropSetValued(ortho, 6, 20.0);
    double d[21], a[6];
    for (int i = 0; i < 21; ++i) d[i] = i + 1;  // lower triangle by rows: d11 1, d21 2, d22 3, d31 4 ...
    for (int i = 0; i < 6; ++i) a[i] = 31 + i;
    for (int id : {6, 7}) {
        vis_MProp* m = Mat(id, 3);
        vis_MPropSetValuedv(m, 11, d);
        vis_MPropSetValuedv(m, 12, a);
        vis_MPropSetValued(m, 0, 7.0);
        vis_MPropSetValued(m, 6, 8.0);
    }
    ASSERT_TRUE(Reports().empty());

    // "%16.8E" of a whole number n: n's digits as d.dddddddd and the exponent.
    auto E = [](const char* mantissa, int exp) {
        return std::string("  ") + mantissa + (exp < 0 ? "E-0" : "E+0") + std::to_string(exp < 0 ? -exp : exp);
    };
    std::string want = "$          Material properties\n";
    // 7, anisotropic, class shell: MAT2 of d11 d21 d41 (1, 2, 7); d22 d42 d44 (3, 8, 10) and
    // density 7; a1 a2 a4 (31, 32, 34) and reference 8.
    want += "MAT2*   " + I16(7) + E("1.00000000", 0) + E("2.00000000", 0) + E("7.00000000", 0) + "\n";
    want += "*       " + E("3.00000000", 0) + E("8.00000000", 0) + E("1.00000000", 1) + E("7.00000000", 0) + "\n";
    want += "*       " + E("3.10000000", 1) + E("3.20000000", 1) + E("3.40000000", 1) + E("8.00000000", 0) + "\n";
    // 6, anisotropic, class solid: MAT9 of the upper triangle by rows: d11 d21 d31 (1 2 4);
    // d41 d51 d61 d22 (7 11 16 3); d32 d42 d52 d62 (5 8 12 17); d33 d43 d53 d63 (6 9 13 18);
    // d44 d54 d64 d55 (10 14 19 15); d65 d66 density a1 (20 21 7 31); a2 to a5 (32 to 35);
    // a6 and the reference (36 8).
    auto row = [&](std::initializer_list<int> v) {
        std::string s = "*       ";
        for (int x : v) s += x < 10 ? E((std::to_string(x) + ".00000000").c_str(), 0)
                                    : E((std::to_string(x / 10) + "." + std::to_string(x % 10) + "0000000").c_str(), 1);
        return s + "\n";
    };
    want += "MAT9*   " + I16(6) + row({1, 2, 4}).substr(8);
    want += row({7, 11, 16, 3}) + row({5, 8, 12, 17}) + row({6, 9, 13, 18}) + row({10, 14, 19, 15});
    want += row({20, 21, 7, 31}) + row({32, 33, 34, 35}) + row({36, 8});
    // 5, orthotropic, class shell (its last user): MAT8 of E1 E2 nu12; G12, the third and the
    // second shear modulus, density; a1 a2, reference and an empty field.
    want += "MAT8*   " + I16(5) + E("1.00000000", 7) + E("2.00000000", 7) + E("3.00000000", -1) + "\n";
    want += "*       " + E("4.00000000", 6) + E("6.00000000", 6) + E("5.00000000", 6) + E("2.50000000", 0) + "\n";
    want += "*       " + E("1.00000000", -5) + E("2.00000000", -5) + E("2.00000000", 1) + kBlank16 + "\n";
    EXPECT_EQ(Section("$          Material properties"), want);
}

}  // namespace
