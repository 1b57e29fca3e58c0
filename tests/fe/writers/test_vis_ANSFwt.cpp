// vis_ANSFwt: failures, the block option, element types, real constants, rigid links and the
// solution steps on small meshes, each file written by hand from the command rules.
#include "ANSFwtTestSupport.h"
#include "gtest/gtest-spi.h"
#include "vis_ANSFwtInternal.h"
#include "vis_CoordSys.h"
#include "vis_EProp.h"
#include "vis_MProp.h"
#include "vis_RCase.h"
#include "vis_SProp.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

using namespace anstest;
using namespace nastest;
using namespace vsytest;

namespace {

class ANSFwtTest : public ANSWriterTest {
protected:
    void TearDown() override
    {
        for (vsy_HashTable* t : tables) vsy_HashTableDelete(t);
        for (vis_EProp* p : props) vis_EPropDelete(p);
        for (vis_RCase* r : rcases) vis_RCaseDelete(r);
        for (vis_SProp* s : steps) vis_SPropDelete(s);
        if (list) vsy_ListDelete(list);
        ANSWriterTest::TearDown();
    }
    vis_EProp* Prop(vis_Model* model, int id, int type)
    {
        if (!eprop) {
            eprop = vsy_HashTableNew();
            tables.push_back(eprop);
            vis_ModelSetHashTable(model, SYS_EPROP, eprop);
        }
        props.push_back(vis_EPropNew());
        vis_EPropDef(props.back(), type);
        vsy_HashTableInsert(eprop, id, props.back());
        return props.back();
    }
    vis_SProp* Step(vis_Model* model, int kind)
    {
        if (!list) {
            list = vsy_ListNew();
            vis_ModelSetList(model, SYS_SPROP, list);
        }
        steps.push_back(vis_SPropNew());
        vis_SPropDef(steps.back(), kind);
        vsy_ListAppend(list, steps.back());
        return steps.back();
    }
    vsy_HashTable* eprop = nullptr;
    vsy_List* list = nullptr;
    std::vector<vsy_HashTable*> tables;
    std::vector<vis_EProp*> props;
    std::vector<vis_RCase*> rcases;
    std::vector<vis_SProp*> steps;
};

// The sections of a file without tables: types, constants, elements, rigids.
std::string Mesh(int nnode, const std::string& types, const std::string& reals, const std::string& elems)
{
    return "/PREP7\n" + OriginLines(nnode) + "C***       Element Types\n" + types + "C***       Real Constants\n" + reals +
           "C***       Elements\n" + elems + "C***       Rigids\n";
}

TEST_F(ANSFwtTest, UnopenablePath)
{
    vis_Model* model = Model(BuildMesh(Origin(1), {}));
    const std::string bad = dir + "/missing/deck.inp";
    vis_ANSFwt* ans = vis_ANSFwtNew();
    Reports().clear();
    vis_ANSFwtWriteModel(ans, model, bad.c_str());
    ExpectOnlyReport("vis_ANSFwtWriteModel", 6, "path= " + bad);
    EXPECT_EQ(vis_ANSFwtError(ans), 6);
    EXPECT_EQ(vis_ANSFwtError(ans), 0);  // read and cleared
    vis_ANSFwtDelete(ans);
}

TEST_F(ANSFwtTest, ModelWithoutMesh)
{
    // A model of neither grid function nor connectivity: "GridFun", and the file stays empty.
    vis_Model* empty = vis_ModelNew();
    models.push_back(empty);
    const std::string path = File("nomesh.inp");
    vis_ANSFwt* ans = vis_ANSFwtNew();
    Reports().clear();
    vis_ANSFwtWriteModel(ans, empty, path.c_str());
    ExpectOnlyReport("vis_ANSFwtWriteModel", 5, "GridFun");
    EXPECT_EQ(vis_ANSFwtError(ans), 5);
    vis_ANSFwtDelete(ans);  // closes the stream left open
    EXPECT_EQ(ReadFile(path), "");
    // A null model fails the same way with its own text.
    ans = vis_ANSFwtNew();
    Reports().clear();
    vis_ANSFwtWriteModel(ans, nullptr, File("null.inp").c_str());
    ExpectOnlyReport("vis_ANSFwtWriteModel", 5, "Model");
    vis_ANSFwtDelete(ans);
}

TEST_F(ANSFwtTest, SetParami)
{
    vis_ANSFwt* ans = vis_ANSFwtNew();
    EXPECT_EQ(ans->blocks, 1);  // set at creation
    Reports().clear();
    vis_ANSFwtSetParami(ans, 7, 0);
    ExpectOnlyReport("vis_ANSFwtSetParami", 2, "type= 7");
    EXPECT_EQ(vis_ANSFwtError(ans), 2);
    EXPECT_EQ(ans->blocks, 1);  // unchanged
    Reports().clear();
    vis_ANSFwtSetParami(ans, VIS_ANSFWT_BLOCKS, 0);
    ExpectNoReport();
    EXPECT_EQ(ans->blocks, 0);
    vis_ANSFwtDelete(ans);
}

// Option 1 and option 0 on a mesh with one static step: the block commands come and go.
TEST_F(ANSFwtTest, BlockOption)
{
    vis_Model* model = Model(BuildMesh(Origin(4), {{SYS_SHAPE_QUAD, 0, 0, 1, 0, 7, {1, 2, 3, 4}}}));
    Step(model, 1);
    // A linear plane solid: PLANE182 without KEYOPT; no material, constants or section.
    const std::string types = "ET,1,PLANE182\n", elems = "TYPE,1\nEN,7,1,2,3,4\n";
    const std::string steps = "C***       Solution Steps\n";
    EXPECT_EQ(Write(model, "on.inp"), Mesh(4, types, "", elems) + steps + "/SOLUTION\nANTYPE,STATIC\nSOLVE\nFINISH\n");
    std::string off = Mesh(4, types, "", elems);
    off.erase(0, std::strlen("/PREP7\n"));
    EXPECT_EQ(Write(model, "off.inp", 0), off + steps + "ANTYPE,STATIC\n");
}

// Two plane solids that differ only in featwod: KEYOPT(3) 1 (axisymmetric) and 2 (plane
// strain) make two keys, so two ET numbers.
TEST_F(ANSFwtTest, KeyoptsMakeTwoTypes)
{
    MeshElem a{SYS_SHAPE_TRI, 0, 0, 1, 0, 1, {1, 2, 3}};
    MeshElem b{SYS_SHAPE_TRI, 0, 0, 1, 0, 2, {1, 2, 3}};
    a.featwod = 3;
    b.featwod = 1;
    vis_Model* model = Model(BuildMesh(Origin(3), {a, b}));
    // A triangle is the format's collapsed quadrilateral I J K K.
    const std::string types = "ET,1,PLANE182,0,0,1\nET,2,PLANE182,0,0,2\n";
    const std::string elems = "TYPE,1\nEN,1,1,2,3,3\nTYPE,2\nEN,2,1,2,3,3\n";
    EXPECT_EQ(Write(model, "keyopt.inp"), Mesh(3, types, "", elems));
}

// A spring whose property gives different dofs at its ends gets no type and is left out; one of
// equal dofs (3 and 3) takes KEYOPT(2) 3. Stiffness 2 and damping 0 make its constants, numbered
// above the largest property id 5.
TEST_F(ANSFwtTest, SpringOfDifferentDofsLeftOut)
{
    vis_Model* model = Model(BuildMesh(Origin(2), {{SYS_SHAPE_LINE, 0, 0, 9, 4, 1, {1, 2}}, {SYS_SHAPE_LINE, 0, 0, 9, 5, 2, {1, 2}}}));
    vis_EProp* differ = Prop(model, 4, 9);
    vis_EPropSetValuei(differ, 49, 1);
    vis_EPropSetValuei(differ, 50, 2);
    vis_EProp* same = Prop(model, 5, 9);
    vis_EPropSetValuei(same, 49, 3);
    vis_EPropSetValuei(same, 50, 3);
    vis_EPropSetValued(same, 47, 2.0);
    Reports().clear();
    const std::string text = Write(model, "spring.inp");
    ExpectNoReport();
    EXPECT_EQ(text, Mesh(2, "ET,1,COMBIN14,0,3\n", "R,6,2.,0.\n", "TYPE,1\nREAL,6\nEN,2,1,2\n") +
                        "C***       Element properties\n");
}

// The library: a name not in it gives table number 0; names give their element number.
TEST_F(ANSFwtTest, LibraryLookup)
{
    EXPECT_EQ(vis_ANSFwt_LibCount(), 213);
    EXPECT_EQ(vis_ANSFwt_LibNumber("NOSUCH1"), 0);
    EXPECT_EQ(vis_ANSFwt_LibNumber(""), 0);
    EXPECT_EQ(vis_ANSFwt_LibNumber("LINK1"), 1);
    EXPECT_EQ(vis_ANSFwt_LibNumber("SOLID185"), 185);
    EXPECT_EQ(vis_ANSFwt_LibNumber("PIPE289"), 289);
    EXPECT_EQ(vis_ANSFwt_LibNumber("FLUID220"), 220);  // listed twice, found once
    const vis_ANSFwt_LibRow* row = vis_ANSFwt_LibRowOf("SOLID185");
    ASSERT_NE(row, nullptr);
    EXPECT_STREQ(row->description, "3-D 8-Node Structural Solid");
    EXPECT_EQ(row->shape, 7);
    EXPECT_EQ(row->nodes, 8);
    EXPECT_EQ(vis_ANSFwt_LibRowOf("NOSUCH1"), nullptr);
}

// Nine masses of one property: one key, so one "R" and one "REAL". The single mass 5 with no
// inertias makes KEYOPT(3) 2 and the constant " M".
TEST_F(ANSFwtTest, NineEqualConstantsShareOne)
{
    std::vector<MeshElem> elems;
    for (int i = 1; i <= 9; ++i) elems.push_back({SYS_SHAPE_POINT, 0, 0, 13, 3, 10 + i, {i}});
    vis_Model* model = Model(BuildMesh(Origin(9), elems));
    const double mass[3] = {5, 5, 5};
    vis_EPropSetValuedv(Prop(model, 3, 13), 51, mass);
    std::string en = "TYPE,1\nREAL,4\n";
    for (int i = 1; i <= 9; ++i) en += "EN," + std::to_string(10 + i) + "," + std::to_string(i) + "\n";
    EXPECT_EQ(Write(model, "masses.inp"), Mesh(9, "ET,1,MASS21,0,0,2\n", "R,4,5.\n", en) + "C***       Element properties\n");
}

// Element shapes and orders no element type holds are left out with no word: a hexahedron of
// order 4, a polygon, an infinite element (feature 6).
TEST_F(ANSFwtTest, ShapesWithoutTypeLeftOut)
{
    std::vector<int> hex64(64);
    for (int i = 0; i < 64; ++i) hex64[static_cast<size_t>(i)] = 1;
    vis_Model* model = Model(BuildMesh(Origin(4), {{SYS_SHAPE_HEX, 4, 0, 1, 0, 1, hex64},
                                                    {SYS_SHAPE_POLYGON, 4, 0, 1, 0, 2, {1, 2, 3, 4}},
                                                    {SYS_SHAPE_QUAD, 0, 0, 6, 0, 3, {1, 2, 3, 4}}}));
    Reports().clear();
    EXPECT_EQ(Write(model, "none.inp"), Mesh(4, "", "", ""));
    ExpectNoReport();
}

// Two nodes of one id: node ids are replaced by indices; the element ids stay while they are
// unique, and two elements of one id are printed by their indices as well.
TEST_F(ANSFwtTest, NonUniqueIdsPrintIndices)
{
    std::vector<MeshNode> nodes = {{{0, 0, 0}, 5, 1, 0}, {{0, 0, 0}, 5, 1, 0}};
    vis_Model* model = Model(BuildMesh(nodes, {{SYS_SHAPE_LINE, 0, 0, 5, 0, 9, {1, 2}}}));
    // A truss: LINK180; without a property its area and mass are 0 (constants above 0).
    EXPECT_EQ(Write(model, "ids.inp"), Mesh(2, "ET,1,LINK180\n", "R,1,0.,0.\n", "TYPE,1\nREAL,1\nEN,9,1,2\n"));
    vis_Model* twice = Model(BuildMesh(nodes, {{SYS_SHAPE_LINE, 0, 0, 5, 0, 9, {1, 2}}, {SYS_SHAPE_LINE, 0, 0, 5, 0, 9, {2, 1}}}));
    EXPECT_EQ(Write(twice, "ids2.inp"), Mesh(2, "ET,1,LINK180\n", "R,1,0.,0.\n", "TYPE,1\nREAL,1\nEN,1,1,2\nEN,2,2,1\n"));
}

// Rigid links: a rigid body of three nodes with all six dofs (the default), one of two nodes
// with the translations (dependent flags 7 at position 1), and a distributing link of three
// nodes with weights 1 and 2.
TEST_F(ANSFwtTest, RigidLinks)
{
    MeshElem body{SYS_SHAPE_LINE, 3, 0, 10, 0, 1, {1, 2, 3}};
    MeshElem trans{SYS_SHAPE_LINE, 0, 0, 10, 2, 2, {1, 4}};
    MeshElem dist{SYS_SHAPE_LINE, 3, 0, 10, 3, 3, {4, 2, 3}};
    dist.feaspec = 1;
    vis_Model* model = Model(BuildMesh(Origin(4), {body, trans, dist}));
    vis_EProp* t = Prop(model, 2, 10);
    vis_EPropSetValuei(t, 83, 2);
    const int dep[2] = {63, 7};
    vis_EPropSetValueiv(t, 86, dep);
    vis_EProp* d = Prop(model, 3, 10);
    vis_EPropSetValuei(d, 83, 2);
    const double w[2] = {1.0, 2.0};
    const int refdof[2] = {56, 63};
    vis_EPropSetValuedv(d, 84, w);
    vis_EPropSetValueiv(d, 86, refdof);
    std::string want = Mesh(4, "", "", "");
    want += "CERIG,1,2,ALL\nCERIG,1,3,ALL\nCERIG,1,4,UXYZ\n";
    // Dependent nodes 2 and 3 of reference node 4, weights 1 and 2 ("%e"), rotations (56).
    want += "*DIM,RBE3SLV,ARRAY,2\n*SET,RBE3SLV(1),2\n*SET,RBE3SLV(2),3\n";
    want += "*DIM,RBE3WGT,ARRAY,2\n*SET,RBE3WGT(1),1.000000e+00\n*SET,RBE3WGT(2),2.000000e+00\n";
    want += "RBE3,4,RXYZ,RBE3SLV,RBE3WGT\n";
    EXPECT_EQ(Write(model, "rigid.inp"), want + "C***       Element properties\n");
}

// Three steps: restraint case 1, again 1 (no "DDELE"), then 2 (deleted first). A static step
// before a buckling step adds "PSTRES,ON"; the buckling step reads modes (1), shift (13) and
// upper bound (12); a modal step its bounds (11, 12), empty when unset.
TEST_F(ANSFwtTest, StepsAndRestraintChanges)
{
    vis_Model* model = Model(BuildMesh(Origin(2), {}));
    vsy_HashTable* rtab = vsy_HashTableNew();
    tables.push_back(rtab);
    vis_ModelSetHashTable(model, SYS_RCASE, rtab);
    for (int id = 1; id <= 2; ++id) {
        rcases.push_back(vis_RCaseNew());
        vis_RCaseSetSPCdv(rcases.back(), id, 1, 1, 0.0);  // node `id`, ux fixed
        vis_RCaseSetSPCdv(rcases.back(), id, 2, 1, 0.0);  // and uy
        vsy_HashTableInsert(rtab, id, rcases.back());
    }
    vis_SProp* s1 = Step(model, 1);
    vis_SPropSetValuei(s1, 8, 1);
    vis_SProp* s2 = Step(model, 3);
    vis_SPropSetValuei(s2, 8, 1);
    vis_SPropSetValuei(s2, 1, 4);
    vis_SPropSetValued(s2, 13, 0.5);
    vis_SPropSetValued(s2, 12, 100.0);
    vis_SProp* s3 = Step(model, 2);
    vis_SPropSetValuei(s3, 8, 2);
    vis_SPropSetValuei(s3, 1, 6);
    vis_SPropSetValued(s3, 12, 250.0);
    std::string want = Mesh(2, "", "", "") + "C***       Solution Steps\n";
    // Two zero restraints: the first with its value, three empty fields, then the second.
    want += "/SOLUTION\nANTYPE,STATIC\nPSTRES,ON\nC***       Restraints\nD,1,UX,0.,,,,UY\nSOLVE\nFINISH\n";
    // "%16.9E" of .5 and 100.
    want += "/SOLUTION\nANTYPE,BUCKLE\nBUCOPT,SUBSP,4, 5.000000000E-01, 1.000000000E+02\nMXPAND,4,,,YES\nSOLVE\nFINISH\n";
    want += "/SOLUTION\nANTYPE,MODAL\nMODOPT,LANB,6,, 2.500000000E+02,,ON\nMXPAND,6,,,YES\n";
    want += "DDELE,ALL,ALL\nC***       Restraints\nD,2,UX,0.,,,,UY\nSOLVE\nFINISH\n";
    EXPECT_EQ(Write(model, "steps.inp"), want);
}

}  // namespace

namespace {

// The syntax check itself fails on what the writer must never print.
TEST(ANSFwtSyntax, CheckFindsFaults)
{
    EXPECT_EQ(CheckSyntax("C***       Nodes\nCSYS,0\nN,1,.5,0.,1.0E+6\n"), 2);
    EXPECT_NONFATAL_FAILURE(CheckSyntax("NODE,1\n"), "not a command");       // unknown command
    EXPECT_NONFATAL_FAILURE(CheckSyntax("TYPE,1,2\n"), "TYPE,1,2");          // one argument too many
    EXPECT_NONFATAL_FAILURE(CheckSyntax("MP,EX,1,2.1Q\n"), "not a number");  // a bad number
    // "0.50" is a number, but not the text the writer gives .5.
    EXPECT_NONFATAL_FAILURE(CheckSyntax("MP,EX,1,0.50\n"), "does not read back");
    // Ids after CMBLOCK: three announced, two given.
    EXPECT_NONFATAL_FAILURE(CheckSyntax("CMBLOCK,A,NODE,3\n(8i10)\n         1         2\n"), "id line of 3 ids");
}

}  // namespace

namespace {

// The node coordinates' "%16.9E" built in place equals the C library's text.
TEST(ANSFwtText, ExpTextEqualsPrintf)
{
    std::vector<double> values = {0.0, -0.0, 1.0, -1.0, 0.1, 1.0 / 3.0, -2.0 / 3.0, 1e-300, 1e300, 123456789.0,
                                  9.9999999995e-5, 9.99999999949999e9, 5e-324, 1.7976931348623157e308};
    uint64_t seed = 88172645463325252ull;  // xorshift: a fixed spread of bit patterns
    for (int i = 0; i < 20000; ++i) {
        seed ^= seed << 13, seed ^= seed >> 7, seed ^= seed << 17;
        double v;
        std::memcpy(&v, &seed, sizeof v);
        if (std::isfinite(v)) values.push_back(v);
    }
    for (double v : values) {
        char mine[32], lib[32];
        const int len = vis_ANSFwt_ExpText(v, mine);
        mine[len] = '\0';
        std::snprintf(lib, sizeof lib, "%16.9E", v);
        ASSERT_STREQ(mine, lib) << v;
    }
}

class ANSFwtSectionTest : public ANSFwtTest {
protected:
    void TearDown() override
    {
        vsy_HashTableDelete(mtab);
        vis_MPropDelete(steel);
        ANSFwtTest::TearDown();
    }
    vsy_HashTable* mtab = vsy_HashTableNew();
    vis_MProp* steel = vis_MPropNew();
};

// Sections of every form, and the shell whose corners agree with its property: no constant.
TEST_F(ANSFwtSectionTest, SectionsAndEqualCorners)
{
    vis_Model* model = Model(BuildMesh(Origin(4), {{SYS_SHAPE_QUAD, 0, 0, 2, 1, 5, {1, 2, 3, 4}}}));
    vis_ModelSetHashTable(model, SYS_MPROP, mtab);
    vis_MPropDef(steel, 0);
    vis_MPropSetValued(steel, 1, 2e11);
    vis_MPropSetValued(steel, 2, 0.25);
    vsy_HashTableInsert(mtab, 1, steel);
    vis_EPropSetValued(Prop(model, 1, 2), 7, 0.01);  // one thickness for every corner
    vis_EProp* layered = Prop(model, 2, 2);
    vis_EPropSetValuei(layered, 89, 2);
    vis_EPropSetValuei(layered, 96, 2);
    const double t[2] = {0.001, 0.002}, angle[2] = {0, 45};
    const int mat[2] = {1, 2}, ip[2] = {3, 3};
    vis_EPropSetValuedv(layered, 97, t);
    vis_EPropSetValuedv(layered, 98, angle);
    vis_EPropSetValueiv(layered, 99, mat);
    vis_EPropSetValueiv(layered, 100, ip);
    vis_EProp* rect = Prop(model, 3, 4);
    vis_EPropSetValuei(rect, 81, 8);
    double dims[40] = {0.1, 0.2};
    vis_EPropSetValuedv(rect, 82, dims);
    vis_EProp* general = Prop(model, 4, 4);
    vis_EPropSetValuei(general, 0, 1);
    const double area[2] = {0.01, 0.01}, ky[2] = {0.5, 0.5}, kz[2] = {0.8, 0.8};
    vis_EPropSetValuedv(general, 14, area);
    vis_EPropSetValuedv(general, 19, ky);
    vis_EPropSetValuedv(general, 20, kz);
    std::string want = "/PREP7\n" + OriginLines(4);
    // Property 1: the corners all .01 as the property's: no constant, the section carries it.
    want += "C***       Element Types\nET,1,SHELL181\nC***       Real Constants\nC***       Elements\n";
    want += "TYPE,1\nSECNUM,1\nEN,5,1,2,3,4\nC***       Rigids\n";
    // Shell of wall type 0: thickness and material 0 (none set). Layered: per layer thickness,
    // material, angle and integration points. Rectangle: width and height. General section:
    // area .01, the rest 0; shear stiffnesses kz G A and ky G A with G = 2e11 / (2 * 1.25) =
    // 8e10: .8 * 8e10 * .01 = 6.4e8 ("640000000." is longer than "6.4E+8") and 4.0E+8.
    want += "C***       Element properties\nSECTYPE,1,SHELL\nSECDATA,.01,0,\n";
    want += "SECTYPE,2,SHELL\nSECDATA,.001,1,0.,3\nSECDATA,.002,2,45.,3\n";
    want += "SECTYPE,3,BEAM,RECT\nSECDATA,.1,.2\n";
    want += "SECTYPE,4,BEAM,ASEC\nSECDATA,.01,0.,0.,0.,0.,0.\nSECCONTROL,6.4E+8,4.0E+8\n";
    // Material 1: modulus and ratio only.
    want += "C***       Material properties\nMP,EX,1,2.0E+11\nMP,NUXY,1,.25\n";
    EXPECT_EQ(Write(model, "sections.inp"), want);
}

}  // namespace

namespace {

class ANSFwtSystemTest : public ANSWriterTest {
protected:
    void TearDown() override
    {
        vsy_HashTableDelete(tab);
        vis_CoordSysDelete(cyl);
        vis_CoordSysDelete(sph);
        ANSWriterTest::TearDown();
    }
    vsy_HashTable* tab = vsy_HashTableNew();
    vis_CoordSys* cyl = vis_CoordSysNew();
    vis_CoordSys* sph = vis_CoordSysNew();
};

// Systems as "LOCAL" with their angles, nodes in a system with its angles, elements in a system
// under "ESYS".
TEST_F(ANSFwtSystemTest, SystemsOfNodesAndElements)
{
    // System 5, cylindrical (1), at (1,2,3), turned 90 degrees about x: axes x (1,0,0),
    // y (0,0,1), z (0,-1,0). asin of the y axis' z component 1 is 90 about x; about z
    // atan2(-0, 0) and about y atan2(-0, 0) are 0.
    const double o5[3] = {1, 2, 3}, t5[9] = {1, 0, 0, 0, 0, 1, 0, -1, 0};
    vis_CoordSysDef(cyl, VIS_COORDSYS_CYLINDRICAL);
    vis_CoordSysSetOriginTriaddv(cyl, o5, t5);
    // System 7, spherical (2), turned 30 degrees about y: x (cos 30, 0, -sin 30), z (sin 30, 0,
    // cos 30); about y atan2(.5, .866) = 30, the others 0.
    const double o7[3] = {0, 0, 0}, s = 0.5, c = 0.86602540378443865;
    const double t7[9] = {c, 0, -s, 0, 1, 0, s, 0, c};
    vis_CoordSysDef(sph, VIS_COORDSYS_SPHERICAL);
    vis_CoordSysSetOriginTriaddv(sph, o7, t7);
    vsy_HashTableInsert(tab, 5, cyl);
    vsy_HashTableInsert(tab, 7, sph);
    std::vector<MeshNode> nodes = Origin(4);
    nodes[0].csysid = 5;
    nodes[1].csysid = 9;  // no such system: no angles
    MeshElem a{SYS_SHAPE_QUAD, 0, 0, 1, 0, 1, {1, 2, 3, 4}}, b{SYS_SHAPE_QUAD, 0, 0, 1, 0, 2, {1, 2, 3, 4}};
    a.csysid = 7;
    vis_Model* model = Model(BuildMesh(nodes, {a, b}));
    vis_ModelSetHashTable(model, SYS_COORDSYS, tab);
    std::string want = "/PREP7\nC***       Coordinate systems\nLOCAL,15,1,1.,2.,3.,0.,90.,0.\nLOCAL,17,2,0.,0.,0.,0.,0.,30.\n";
    std::string lines = OriginLines(4);
    const std::string first = "N,1," + C(0) + "," + C(0) + "," + C(0);
    lines.replace(lines.find(first), first.size(), first + ",0.,90.,0.");
    want += lines + "C***       Element Types\nET,1,PLANE182\nC***       Real Constants\nC***       Elements\n";
    want += "ESYS,17\nTYPE,1\nEN,1,1,2,3,4\nESYS,0\nEN,2,1,2,3,4\nC***       Rigids\n";
    EXPECT_EQ(Write(model, "systems.inp"), want);
}

}  // namespace

namespace {

// Constants read from the properties: a gap (closed stiffness 36, gap 34, open 37, transverse
// 38) and a truss (area 14, nonstructural mass 11); numbered above the largest property 8.
TEST_F(ANSFwtTest, GapAndTrussConstants)
{
    vis_Model* model = Model(BuildMesh(Origin(2), {{SYS_SHAPE_LINE, 0, 0, 7, 7, 1, {1, 2}}, {SYS_SHAPE_LINE, 0, 0, 5, 8, 2, {1, 2}}}));
    vis_EProp* gap = Prop(model, 7, 7);
    vis_EPropSetValued(gap, 36, 1e5);
    vis_EPropSetValued(gap, 34, 0.01);
    vis_EPropSetValued(gap, 38, 250.0);
    vis_EProp* truss = Prop(model, 8, 5);
    const double area[2] = {0.5, 0.5}, nsm[4] = {2, 2, 2, 2};
    vis_EPropSetValuedv(truss, 14, area);
    vis_EPropSetValuedv(truss, 11, nsm);
    // 1e5: "100000." is not shorter than "1.0E+5"; the open stiffness is unset (0).
    const std::string reals = "R,9,1.0E+5,.01,0.,250.\nR,10,.5,2.\n";
    const std::string elems = "TYPE,1\nREAL,9\nEN,1,1,2\nTYPE,2\nREAL,10\nEN,2,1,2\n";
    EXPECT_EQ(Write(model, "gap.inp"), Mesh(2, "ET,1,CONTAC52,0,0,1\nET,2,LINK180\n", reals, elems) + "C***       Element properties\n");
}

}  // namespace
