// The full model fixture's deck, with its property, material, load and constraint cards, read
// by an independent reader: gmsh finds our grid points, the elements of the cards it knows and
// their properties, and is not led astray by the cards it does not know.
//
// gmsh reads GRID, CQUAD4, CHEXA and CBEAM of this deck, and keeps the grid points its
// elements use; it has no element for CELAS1 and CONM2 and passes every property, material,
// load and constraint card over. Expected, by hand from the fixture: grid points 1001 to 1011
// (1012 is on the spring alone), elements 2001 and 2002 (quadrilaterals, gmsh type 3, of
// property 10), 2003 (hexahedron, type 5, property 20) and 2004 (line, type 1, property 30):
// four elements in three properties, gmsh's entities.
#include "GmshMesh.h"
#include "ModelFixture.h"
#include "NASFwtTestSupport.h"

#include <cmath>
#include <set>

using namespace nastest;
using namespace modeltest;

namespace {

class NASFwtFixtureGmshTest : public WriterTest {
protected:
    void TearDown() override
    {
        vis_LCaseDelete(heat);
        DestroyFullModel(&m);
        WriterTest::TearDown();
    }
    // Writes the deck, has gmsh read it and checks what it found against the fixture.
    void Check()
    {
        const std::string path = File("fixture.bdf");
        Write(m.model, path);
        const gmshtest::Mesh g = gmshtest::Read(path);
        ASSERT_EQ(g.nodes.size(), 11u) << g.log;
        for (int i = 1; i <= 11; ++i) {
            auto it = g.nodes.find(kNodeIdBase + i);
            ASSERT_NE(it, g.nodes.end()) << "node " << kNodeIdBase + i << "\n" << g.log;
            for (int a = 0; a < 3; ++a) EXPECT_EQ(it->second[size_t(a)], kCoords[i - 1][a]) << "node " << it->first;
        }
        ASSERT_EQ(g.elements.size(), 4u) << g.log;
        const int want[4][3] = {{2001, 3, kPropShell}, {2002, 3, kPropShell}, {2003, 5, kPropSolid}, {2004, 1, kPropBeam}};
        std::set<int> properties;
        for (const auto& w : want) {
            auto it = g.elements.find(w[0]);
            ASSERT_NE(it, g.elements.end()) << "element " << w[0] << "\n" << g.log;
            EXPECT_EQ(it->second.type, w[1]) << "element " << w[0];
            EXPECT_EQ(it->second.entity, w[2]) << "element " << w[0];
            properties.insert(it->second.entity);
        }
        EXPECT_EQ(properties.size(), 3u);
    }
    FullModel m{};
    vis_LCase* heat = nullptr;
};

TEST_F(NASFwtFixtureGmshTest, StructuralDeck)
{
    GMSH_REQUIRED();
    ASSERT_EQ(BuildFullModel(&m), 1);
    Check();
}

// The thermal deck adds MAT4, heat surfaces (CHBDYE), an ambient SPOINT and convection cards;
// gmsh reads none of them, and the counts stay.
TEST_F(NASFwtFixtureGmshTest, ThermalDeckWithHeatSurfaces)
{
    GMSH_REQUIRED();
    ASSERT_EQ(BuildFullModel(&m), 1);
    vis_SPropSetValuei(m.step[0], 0, 2);
    heat = vis_LCaseNew();
    const double face[4] = {200, 200, 200, 200}, conv[8] = {25, 12.5, 25, 12.5, 25, 12.5, 25, 12.5};
    vis_LCaseSetDistdv(heat, SYS_FACE, 3, 2, 5, face);
    vis_LCaseSetDistdv(heat, SYS_FACE, 1, 1, 6, conv);
    vsy_HashTableInsert(m.table[2], 101, heat);
    Check();
}

}  // namespace
