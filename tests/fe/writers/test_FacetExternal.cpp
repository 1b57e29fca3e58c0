// STL and OBJ files read by independent programs: admesh checks the STL of a closed cube
// surface (watertight, facet count, volume), assimp reads the OBJ (vertex and face counts).
// Each test skips with the reason when its program is missing.
#include "FacetTestSupport.h"

#include <cstdlib>

using namespace nastest;
using namespace facettest;

namespace {

bool Has(const std::string& program)
{
    return std::system(("command -v " + program + " > /dev/null 2>&1").c_str()) == 0;
}

// Runs a command and returns what it printed (both streams).
std::string RunTool(const std::string& cmd, const std::string& log)
{
    std::system((cmd + " > '" + log + "' 2>&1").c_str());
    return ReadFile(log);
}

// The number after "label :" on the first line holding label, or -1.
double Number(const std::string& text, const std::string& label)
{
    const size_t at = text.find(label);
    if (at == std::string::npos) return -1;
    const size_t colon = text.find(':', at);
    return colon == std::string::npos ? -1 : std::atof(text.c_str() + colon + 1);
}

class FacetExternalTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
};

TEST_F(FacetExternalTest, AdmeshFindsTheCubeWatertight)
{
    if (!Has("admesh")) GTEST_SKIP() << "admesh is not installed: the STL was not read by an independent reader";
    // A cube of edge 2 as six outward quadrilaterals: each splits into two facets, 12 in all,
    // every edge shared by exactly two facets in opposite directions; the volume is 2^3 = 8.
    c = CubeSurface(2.0);
    for (int form : {VIS_STLFWT_TEXT, VIS_STLFWT_BINARY}) {
        const std::string path = File(form == VIS_STLFWT_TEXT ? "cube.stl" : "cubeb.stl");
        WriteStl(c, path, form);
        const std::string out = RunTool("admesh '" + path + "'", File("admesh.log"));
        SCOPED_TRACE(out);
        EXPECT_NE(out.find(form == VIS_STLFWT_TEXT ? "ASCII STL file" : "Binary STL file"), std::string::npos);
        EXPECT_EQ(Number(out, "Number of facets"), 12);
        EXPECT_EQ(Number(out, "Facets with 1 disconnected edge"), 0);
        EXPECT_EQ(Number(out, "Facets with 2 disconnected edges"), 0);
        EXPECT_EQ(Number(out, "Facets with 3 disconnected edges"), 0);
        EXPECT_EQ(Number(out, "Number of parts"), 1);
        EXPECT_EQ(Number(out, "Backwards edges"), 0);
        EXPECT_EQ(Number(out, "Facets reversed"), 0);
        EXPECT_EQ(Number(out, "Normals fixed"), 0);
        EXPECT_NEAR(Number(out, "Volume"), 8.0, 1e-5);
    }
}

TEST_F(FacetExternalTest, AssimpReadsTheObj)
{
    if (!Has("assimp")) GTEST_SKIP() << "assimp is not installed: the OBJ was not read by an independent reader";
    // The cube of edge 1: 8 vertices, 6 quadrilateral faces, which assimp's reader turns into
    // two triangles each, 12 faces.
    c = CubeSurface(1.0);
    const std::string path = File("cube.obj");
    WriteObj(c, path);
    const std::string out = RunTool("assimp info '" + path + "'", File("assimp.log"));
    SCOPED_TRACE(out);
    EXPECT_EQ(Number(out, "\nVertices"), 8);
    EXPECT_EQ(Number(out, "\nFaces"), 12);
    EXPECT_EQ(Number(out, "\nMeshes"), 1);
    EXPECT_NE(out.find("Maximum point      (1.000000 1.000000 1.000000)"), std::string::npos);
}

}  // namespace
