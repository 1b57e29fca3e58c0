// The universal file read by an independent reader: gmsh reads nodes and elements of every
// descriptor it knows and finds our node ids and coordinates, our element ids and nodes.
#include "GmshMesh.h"
#include "NASFwtTestSupport.h"
#include "vis_ConnectWrite.h"
#include "vis_ElemTopology.h"

#include <algorithm>
#include <cmath>

using namespace nastest;

namespace {

struct Kind {
    int shape, maxi, featype, featwod;
    int gmshtype;  // the element gmsh makes of the descriptor
};

// One element of each descriptor of the shell and solid rows, and beams of two and three
// nodes. The pyramids (119, 120) are left out: gmsh 4.8's reader has no descriptor for them,
// and the golden files check them. gmsh types: 1 line,
// 2 triangle, 3 quadrilateral, 4 tetrahedron, 5 hexahedron, 6 prism, 8 three-node
// line, 9 six-node triangle, 11 ten-node tetrahedron, 16 eight-node quadrilateral, 17 twenty-node
// hexahedron, 18 fifteen-node prism.
const std::vector<Kind> kKinds = {
    {SYS_SHAPE_LINE, 2, 4, 0, 1},   {SYS_SHAPE_TRI, 2, 2, 0, 2},   {SYS_SHAPE_TRI, 2, 1, 2, 2},
    {SYS_SHAPE_QUAD, 2, 2, 0, 3},   {SYS_SHAPE_QUAD, 2, 1, 2, 3},  {SYS_SHAPE_TRI, 3, 2, 0, 9},
    {SYS_SHAPE_QUAD, 3, 2, 0, 16},  {SYS_SHAPE_TET, 2, 1, 0, 4},   {SYS_SHAPE_TET, 3, 1, 0, 11},
    {SYS_SHAPE_WED, 2, 1, 0, 6},    {SYS_SHAPE_WED, 3, 1, 0, 18},  {SYS_SHAPE_HEX, 2, 1, 0, 5},
    {SYS_SHAPE_HEX, 3, 1, 0, 17},   {SYS_SHAPE_LINE, 3, 4, 0, 8},
};

class SDRCLwtGmshTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
};

TEST_F(SDRCLwtGmshTest, EveryDescriptorReadBack)
{
    GMSH_REQUIRED();
    // Each element has nodes of its own; node user ids 1000 + 3i, element ids 500 + 7k.
    std::vector<MeshNode> nodes;
    std::vector<MeshElem> elems;
    for (size_t k = 0; k < kKinds.size(); ++k) {
        MeshElem e{kKinds[k].shape, kKinds[k].maxi, 0, kKinds[k].featype, 1, 500 + 7 * static_cast<int>(k), {}};
        e.featwod = kKinds[k].featwod;
        int n = 0;
        vis_ElemNum(e.shape, e.maxi, 0, 0, &n);
        for (int j = 0; j < n; ++j) {
            const int i = static_cast<int>(nodes.size()) + 1;
            nodes.push_back({{i / 3.0, -std::sqrt(double(i)), 1.0e4 / (i + 6)}, 1000 + 3 * i, 1, 0});
            e.nodes.push_back(i);
        }
        elems.push_back(e);
    }
    c = BuildMesh(nodes, elems);
    const std::string path = File("every.unv");
    vis_ConnectWrite(c, 14, path.c_str());
    ASSERT_EQ(vis_ConnectError(c), 0);

    const gmshtest::Mesh m = gmshtest::Read(path);
    ASSERT_EQ(m.nodes.size(), nodes.size()) << m.log;
    ASSERT_EQ(m.elements.size(), kKinds.size()) << m.log;
    for (const MeshNode& n : nodes) {
        auto it = m.nodes.find(n.userid);
        ASSERT_NE(it, m.nodes.end()) << "node " << n.userid;
        // Sixteen significant digits are written; gmsh keeps them as doubles.
        for (int a = 0; a < 3; ++a)
            EXPECT_NEAR(it->second[static_cast<size_t>(a)], n.x[a], 1e-14 * std::fabs(n.x[a]) + 1e-300)
                << "node " << n.userid << " axis " << a;
    }
    for (size_t k = 0; k < kKinds.size(); ++k) {
        auto it = m.elements.find(elems[k].userid);
        ASSERT_NE(it, m.elements.end()) << "element " << elems[k].userid;
        EXPECT_EQ(it->second.type, kKinds[k].gmshtype) << "element " << elems[k].userid;
        // The same nodes; their order is the reader's own for each type.
        std::vector<int> want, got = it->second.nodes;
        for (int node : elems[k].nodes) want.push_back(nodes[static_cast<size_t>(node - 1)].userid);
        std::sort(want.begin(), want.end());
        std::sort(got.begin(), got.end());
        EXPECT_EQ(got, want) << "element " << elems[k].userid;
    }
}

// The linear solids reach the reader in the order of the element table: the hexahedron's far
// face first (4 5 6 7 0 1 2 3), the wedge's far triangle first (3 4 5 0 1 2), the tetrahedron
// with its last two corners swapped (0 1 3 2).
TEST_F(SDRCLwtGmshTest, LinearSolidsInTheTableOrder)
{
    GMSH_REQUIRED();
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 18; ++i) nodes.push_back({{double(i), double(i * i), 1.0 / i}, 200 - i, 1, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_HEX, 2, 0, 1, 1, 7, {1, 2, 3, 4, 5, 6, 7, 8}},
                          {SYS_SHAPE_WED, 2, 0, 1, 1, 8, {9, 10, 11, 12, 13, 14}},
                          {SYS_SHAPE_TET, 2, 0, 1, 1, 9, {15, 16, 17, 18}}});
    const std::string path = File("order.unv");
    vis_ConnectWrite(c, 14, path.c_str());
    const gmshtest::Mesh m = gmshtest::Read(path);
    ASSERT_EQ(m.elements.size(), 3u) << m.log;
    // Node i has id 200 - i.
    EXPECT_EQ(m.elements.at(7).nodes, (std::vector<int>{195, 194, 193, 192, 199, 198, 197, 196}));
    EXPECT_EQ(m.elements.at(8).nodes, (std::vector<int>{188, 187, 186, 191, 190, 189}));
    EXPECT_EQ(m.elements.at(9).nodes, (std::vector<int>{185, 184, 182, 183}));
}

}  // namespace
