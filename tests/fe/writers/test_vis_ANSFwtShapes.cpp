// vis_ANSFwt on meshes of every element shape and order the element type rules hold, in the
// structural and thermal domains, and the face numbers and corner order of face loads. Node
// lists follow the format's element forms: a triangle is a quadrilateral with its third corner
// twice (I J K K), a tetrahedron, pyramid and wedge of order 2 a brick with collapsed corners,
// and of order 3 a twenty-node brick whose midside nodes on collapsed edges repeat the corner.
#include "ANSFwtTestSupport.h"
#include "vis_LCase.h"
#include "vis_SProp.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

using namespace anstest;
using namespace nastest;
using namespace vsytest;

namespace {

class ANSFwtShapesTest : public ANSWriterTest {
protected:
    void TearDown() override
    {
        if (list) vsy_ListDelete(list);
        if (step) vis_SPropDelete(step);
        if (ltab) vsy_HashTableDelete(ltab);
        if (lc) vis_LCaseDelete(lc);
        ANSWriterTest::TearDown();
    }
    // One static step of the given domain, with load case 1 when `loads` is set.
    void Step(vis_Model* model, int domain, vis_LCase* loads = nullptr)
    {
        step = vis_SPropNew();
        vis_SPropDef(step, 1);
        vis_SPropSetValuei(step, 0, domain);
        list = vsy_ListNew();
        vsy_ListAppend(list, step);
        vis_ModelSetList(model, SYS_SPROP, list);
        if (!loads) return;
        const int ids[1] = {1};
        vis_SPropSetValuei(step, 2, 1);
        vis_SPropSetValueiv(step, 3, ids);
        ltab = vsy_HashTableNew();
        vsy_HashTableInsert(ltab, 1, loads);
        vis_ModelSetHashTable(model, SYS_LCASE, ltab);
    }
    vsy_List* list = nullptr;
    vis_SProp* step = nullptr;
    vsy_HashTable* ltab = nullptr;
    vis_LCase* lc = nullptr;
};

TEST_F(ANSFwtShapesTest, StructuralSolids)
{
    const int shapes[12][2] = {{SYS_SHAPE_TRI, 0}, {SYS_SHAPE_TRI, 3}, {SYS_SHAPE_QUAD, 0}, {SYS_SHAPE_QUAD, 3},
                               {SYS_SHAPE_TET, 0}, {SYS_SHAPE_TET, 3}, {SYS_SHAPE_PYR, 0}, {SYS_SHAPE_PYR, 3},
                               {SYS_SHAPE_WED, 0}, {SYS_SHAPE_WED, 3}, {SYS_SHAPE_HEX, 0}, {SYS_SHAPE_HEX, 3}};
    const int counts[12] = {3, 6, 4, 8, 4, 10, 5, 13, 6, 15, 8, 20};
    std::vector<MeshElem> elems;
    for (int k = 0; k < 12; ++k) elems.push_back({shapes[k][0], shapes[k][1], 0, 1, 0, k + 1, Seq(counts[k])});
    vis_Model* model = Model(BuildMesh(Origin(20), elems));
    // Plane shapes: PLANE182 linear, PLANE183 quadratic. Solids: SOLID185 linear, SOLID187 the
    // quadratic tetrahedron, SOLID186 the other quadratic solids; numbered as first seen.
    std::string want = "/PREP7\n" + OriginLines(20) + "C***       Element Types\n";
    want += "ET,1,PLANE182\nET,2,PLANE183\nET,3,SOLID185\nET,4,SOLID187\nET,5,SOLID186\n";
    want += "C***       Real Constants\nC***       Elements\n";
    want += "TYPE,1\nEN,1,1,2,3,3\n";                // I J K K
    want += "TYPE,2\nEN,2,1,2,3,3,4,5,3,6\n";        // I J K K, midsides of IJ JK, K for KK, KI
    want += "TYPE,1\nEN,3,1,2,3,4\n";
    want += "TYPE,2\nEN,4,1,2,3,4,5,6,7,8\n";        // the library's order is the format's
    want += "TYPE,3\nEN,5,1,2,3,3,4,4,4,4\n";        // I J K K L L L L
    want += "TYPE,4\nEN,6,1,2,3,4,5,6,7,8\nEMORE,9,10\n";  // ten nodes, edges in the same order
    want += "TYPE,3\nEN,7,1,2,3,4,5,5,5,5\n";        // base, apex four times
    // Pyramid of 13: base, apex four times; base midsides 6 to 9; the top edges collapse on
    // the apex; the four rising edges' midsides 10 to 13.
    want += "TYPE,5\nEN,8,1,2,3,4,5,5,5,5\nEMORE,6,7,8,9,5,5,5,5\nEMORE,10,11,12,13\n";
    want += "TYPE,3\nEN,9,1,2,3,3,4,5,6,6\n";        // I J K K M N O O
    // Wedge of 15: corners as above; bottom midsides 7 8, K for the collapsed edge, 9; top 10
    // 11, O (node 6), 12; rising edges 13 14 15 and 15 again for the collapsed one.
    want += "TYPE,5\nEN,10,1,2,3,3,4,5,6,6\nEMORE,7,8,3,9,10,11,6,12\nEMORE,13,14,15,15\n";
    want += "TYPE,3\nEN,11,1,2,3,4,5,6,7,8\n";
    want += "TYPE,5\nEN,12,1,2,3,4,5,6,7,8\nEMORE,9,10,11,12,13,14,15,16\nEMORE,17,18,19,20\n";
    want += "C***       Rigids\n";
    EXPECT_EQ(Write(model, "solids.inp"), want);
}

TEST_F(ANSFwtShapesTest, ThermalElements)
{
    MeshElem axi{SYS_SHAPE_QUAD, 0, 0, 1, 0, 2, Seq(4)};
    axi.featwod = 3;
    MeshElem surf{SYS_SHAPE_QUAD, 0, 0, 14, 0, 11, Seq(4)};
    surf.feaspec = 6;
    std::vector<MeshElem> elems = {{SYS_SHAPE_TRI, 0, 0, 1, 0, 1, Seq(3)},  axi,
                                   {SYS_SHAPE_QUAD, 3, 0, 1, 0, 3, Seq(8)}, {SYS_SHAPE_TET, 0, 0, 1, 0, 4, Seq(4)},
                                   {SYS_SHAPE_TET, 3, 0, 1, 0, 5, Seq(10)}, {SYS_SHAPE_HEX, 3, 0, 1, 0, 6, Seq(20)},
                                   {SYS_SHAPE_QUAD, 0, 0, 2, 0, 7, Seq(4)}, {SYS_SHAPE_TRI, 3, 0, 2, 0, 8, Seq(6)},
                                   {SYS_SHAPE_LINE, 0, 0, 4, 0, 9, Seq(2)}, {SYS_SHAPE_LINE, 0, 0, 5, 0, 10, Seq(2)},
                                   surf, {SYS_SHAPE_POINT, 0, 0, 13, 0, 12, Seq(1)}};
    vis_Model* model = Model(BuildMesh(Origin(20), elems));
    Step(model, 2);
    std::string want = "/PREP7\n" + OriginLines(20) + "C***       Element Types\n";
    // PLANE75, the axisymmetric one with KEYOPT(3) 1, PLANE77, SOLID70, SOLID87, SOLID90;
    // shells SHELL131 and SHELL132; beam and truss both LINK33; SURF152 with KEYOPT(4) 1 at
    // order 2; MASS71.
    want += "ET,1,PLANE75\nET,2,PLANE75,0,0,1\nET,3,PLANE77\nET,4,SOLID70\nET,5,SOLID87\nET,6,SOLID90\n"
            "ET,7,SHELL131\nET,8,SHELL132\nET,9,LINK33\nET,10,SURF152,0,0,0,1\nET,11,MASS71\n";
    // The beam in the thermal domain and the truss: area 0 without a property, one key "9 0";
    // the mass: one mass 0.
    want += "C***       Real Constants\nR,1,0.\nR,2,0.\n";
    want += "C***       Elements\nTYPE,1\nEN,1,1,2,3,3\nTYPE,2\nEN,2,1,2,3,4\nTYPE,3\nEN,3,1,2,3,4,5,6,7,8\n";
    want += "TYPE,4\nEN,4,1,2,3,3,4,4,4,4\nTYPE,5\nEN,5,1,2,3,4,5,6,7,8\nEMORE,9,10\n";
    want += "TYPE,6\nEN,6,1,2,3,4,5,6,7,8\nEMORE,9,10,11,12,13,14,15,16\nEMORE,17,18,19,20\n";
    want += "TYPE,7\nEN,7,1,2,3,4\nTYPE,8\nEN,8,1,2,3,3,4,5,3,6\n";
    want += "TYPE,9\nREAL,1\nEN,9,1,2\nEN,10,1,2\nTYPE,10\nREAL,0\nEN,11,1,2,3,4\nTYPE,11\nREAL,2\nEN,12,1\n";
    want += "C***       Rigids\nC***       Solution Steps\n/SOLUTION\nANTYPE,STATIC\nSOLVE\nFINISH\n";
    EXPECT_EQ(Write(model, "thermal.inp"), want);
}

TEST_F(ANSFwtShapesTest, StructuralShellsLinesPoints)
{
    auto with = [](MeshElem e, int featwod, int feaspec) {
        e.featwod = featwod;
        e.feaspec = feaspec;
        return e;
    };
    std::vector<MeshElem> elems = {
        {SYS_SHAPE_QUAD, 0, 0, 2, 0, 1, Seq(4)},                        // SHELL181
        {SYS_SHAPE_QUAD, 0, 0, 3, 0, 2, Seq(4)},                        // membrane: KEYOPT(1) 1
        {SYS_SHAPE_TRI, 3, 0, 2, 0, 3, Seq(6)},                         // SHELL281
        with({SYS_SHAPE_LINE, 0, 0, 2, 0, 4, Seq(2)}, 3, 0),            // SHELL208
        with({SYS_SHAPE_LINE, 3, 0, 2, 0, 5, Seq(3)}, 3, 0),            // SHELL209
        {SYS_SHAPE_LINE, 3, 0, 4, 0, 6, Seq(3)},                        // BEAM189
        with({SYS_SHAPE_LINE, 0, 0, 4, 0, 7, Seq(2)}, 2, 0),            // BEAM3
        {SYS_SHAPE_LINE, 0, 0, 7, 0, 8, Seq(2)},                        // CONTAC52
        with({SYS_SHAPE_LINE, 0, 0, 7, 0, 9, Seq(2)}, 2, 0),            // CONTAC12
        with({SYS_SHAPE_LINE, 0, 0, 9, 0, 10, Seq(2)}, 2, 1),           // COMBIN14, plane
        with({SYS_SHAPE_LINE, 0, 0, 9, 0, 11, Seq(2)}, 0, 8),           // COMBIN14, torsion
        {SYS_SHAPE_POINT, 0, 0, 13, 0, 12, Seq(1)},                     // MASS21
        with({SYS_SHAPE_QUAD, 0, 0, 14, 0, 13, Seq(4)}, 0, 6),          // SURF154
        with({SYS_SHAPE_TRI, 3, 0, 14, 0, 14, Seq(6)}, 0, 6),           // SURF154 of order 3
        with({SYS_SHAPE_LINE, 0, 0, 14, 0, 15, Seq(2)}, 2, 6),          // SURF153
    };
    vis_Model* model = Model(BuildMesh(Origin(6), elems));
    std::string want = "/PREP7\n" + OriginLines(6) + "C***       Element Types\n";
    want += "ET,1,SHELL181\nET,2,SHELL181,1\nET,3,SHELL281\nET,4,SHELL208\nET,5,SHELL209\nET,6,BEAM189\nET,7,BEAM3\n";
    // Gaps KEYOPT(3) 1; a plane spring KEYOPT(3) 2, a torsional one 1; a mass of three equal
    // masses (0, no property) without inertias KEYOPT(3) 2; SURF154 KEYOPT(4) 1 at order 2 only.
    want += "ET,8,CONTAC52,0,0,1\nET,9,CONTAC12,0,0,1\nET,10,COMBIN14,0,0,2\nET,11,COMBIN14,0,0,1\n"
            "ET,12,MASS21,0,0,2\nET,13,SURF154,0,0,0,1\nET,14,SURF154\nET,15,SURF153,0,0,0,1\n";
    // No property anywhere: shells need no constants (no thickness at all); gaps four zeros,
    // springs stiffness and damping zero, the mass one zero; keys differ by type number.
    want += "C***       Real Constants\nR,1,0.,0.,0.,0.\nR,2,0.,0.,0.,0.\nR,3,0.,0.\nR,4,0.,0.\nR,5,0.\n";
    want += "C***       Elements\n";
    want += "TYPE,1\nEN,1,1,2,3,4\nTYPE,2\nEN,2,1,2,3,4\nTYPE,3\nEN,3,1,2,3,3,4,5,3,6\n";
    want += "TYPE,4\nEN,4,1,2\nTYPE,5\nEN,5,1,2,3\nTYPE,6\nEN,6,1,2,3\nTYPE,7\nEN,7,1,2\n";
    want += "TYPE,8\nREAL,1\nEN,8,1,2\nTYPE,9\nREAL,2\nEN,9,1,2\nTYPE,10\nREAL,3\nEN,10,1,2\nTYPE,11\nREAL,4\nEN,11,1,2\n";
    want += "TYPE,12\nREAL,5\nEN,12,1\nTYPE,13\nREAL,0\nEN,13,1,2,3,4\nTYPE,14\nEN,14,1,2,3,3,4,5,3,6\n";
    want += "TYPE,15\nEN,15,1,2\nC***       Rigids\n";
    EXPECT_EQ(Write(model, "shells.inp"), want);
}

// Face loads go to the format's face numbers with their corner values in the order of that
// face's corners; plane solids take edge loads.
TEST_F(ANSFwtShapesTest, FaceLoads)
{
    std::vector<MeshElem> elems = {{SYS_SHAPE_HEX, 0, 0, 1, 0, 1, Seq(8)},  {SYS_SHAPE_WED, 0, 0, 1, 0, 2, Seq(6)},
                                   {SYS_SHAPE_TET, 3, 0, 1, 0, 3, Seq(10)}, {SYS_SHAPE_QUAD, 0, 0, 1, 0, 4, Seq(4)},
                                   {SYS_SHAPE_TRI, 0, 0, 1, 0, 5, Seq(3)}};
    vis_Model* model = Model(BuildMesh(Origin(10), elems));
    lc = vis_LCaseNew();
    const double p1[4] = {1, 2, 3, 4}, p2[4] = {5, 6, 7, 8}, flux[4] = {7, 7, 7, 7};
    const double conv[8] = {100, 5, 100, 5, 100, 5, 100, 5}, edge1[2] = {1, 2}, edge2[2] = {5, 6};
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 1, 2, p1);
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 2, 2, p2);
    vis_LCaseSetDistdv(lc, SYS_FACE, 2, 4, 2, p1);
    vis_LCaseSetDistdv(lc, SYS_FACE, 3, 3, 2, p1);
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 6, 5, flux);
    vis_LCaseSetDistdv(lc, SYS_FACE, 1, 3, 6, conv);
    vis_LCaseSetDistdv(lc, SYS_EDGE, 4, 2, 2, edge1);
    vis_LCaseSetDistdv(lc, SYS_EDGE, 5, 3, 2, edge2);
    const double heat = 50.0, hgen[8] = {2, 2, 2, 2, 2, 2, 2, 2};
    vis_LCaseSetConcdv(lc, 2, 3, &heat);
    vis_LCaseSetElemdv(lc, 1, 2, 8, hgen);
    const double zero[3] = {0, 0, 0}, spin[3] = {0, 0, 3}, centre[3] = {1, 2, 3};
    vis_LCaseSetAcceldv(lc, zero, spin, zero, centre);
    Step(model, 1, lc);
    std::string want = "/PREP7\n" + OriginLines(10) + "C***       Element Types\nET,1,SOLID185\nET,2,SOLID187\nET,3,PLANE182\n";
    want += "C***       Real Constants\nC***       Elements\nTYPE,1\nEN,1,1,2,3,4,5,6,7,8\nEN,2,1,2,3,3,4,5,6,6\n";
    want += "TYPE,2\nEN,3,1,2,3,4,5,6,7,8\nEMORE,9,10\nTYPE,3\nEN,4,1,2,3,4\nEN,5,1,2,3,3\nC***       Rigids\n";
    want += "C***       Solution Steps\n/SOLUTION\nANTYPE,STATIC\nFCUM,REPL\nC***       Loads\n";
    want += "F,2,HEAT,50.\n";
    // Hexahedron face 1 of the library has corners 1 4 3 2 (values 1 2 3 4): the format's face
    // 1 is J I L K, nodes 2 1 4 3, so the values 4 1 2 3. Library face 2 (5 6 7 8) is the
    // format's face 6 (M N O P).
    want += "SFE,1,1,PRES,0,4.,1.,2.,3.\nSFE,1,6,PRES,0,5.,6.,7.,8.\n";
    // Wedge face 4 of the library, corners 1 4 6 3 (values 1 2 3 4): in the collapsed brick
    // I J K K M N O O, face 5 (L I M P) has the nodes 3 1 4 6, so the values 4 1 2 3.
    want += "SFE,2,5,PRES,0,4.,1.,2.,3.\n";
    // Tetrahedron face 3 of the library, corners 1 4 3 (values 1 2 3): the format's face 4
    // (K I L), nodes 3 1 4, values 3 1 2.
    want += "SFE,3,4,PRES,0,3.,1.,2.\n";
    // Flux on library face 6 (2 3 7 6) = the format's face 3 (J K O N); convection on library
    // face 3 (1 2 6 5) = face 2 (I J N M), film 5 under key 1, ambient 100 under key 2.
    want += "SFE,1,3,HFLUX,,7.,7.,7.,7.\nSFE,1,2,CONV,1,5.,5.,5.,5.\nSFE,1,2,CONV,2,100.,100.,100.,100.\n";
    // Quadrilateral edge 2 (nodes 2 3) is the format's face 2; the triangle's edge 3 (3 1) is
    // its face 4 (K I of I J K K): values 5 at node 3, 6 at node 1.
    want += "SFE,4,2,PRES,0,1.,2.\nSFE,5,4,PRES,0,5.,6.\n";
    // Heat generation at the eight nodes, the starting location left empty; no acceleration,
    // the spin about the centre.
    want += "BFE,1,HGEN,,2.,2.,2.,2.,2.,2.,2.,2.\nACEL,0.,0.,0.\nCGLOC,1.,2.,3.\nCGOMGA,0.,0.,3.\n";
    want += "SOLVE\nFINISH\n";
    EXPECT_EQ(Write(model, "faces.inp"), want);
}

}  // namespace
