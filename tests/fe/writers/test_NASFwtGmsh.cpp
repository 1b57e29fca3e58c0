// The NASTRAN deck read by an independent reader: gmsh reads a deck of every element card the
// reader knows and finds our node ids and coordinates, our element ids, kinds and nodes.
//
// gmsh reads the variable-length solid cards (CTETRA, CPENTA, CHEXA) of order 2 as their
// linear elements: it takes a continuation line of those cards only after an explicit
// continuation marker, and ours continue with an empty first field, which the card format
// allows. For them the reader checks the corners; the golden decks check the midside nodes.
#include "GmshMesh.h"
#include "NASFwtTestSupport.h"
#include "vis_ConnectWrite.h"
#include "vis_ElemTopology.h"

#include <algorithm>
#include <cmath>

using namespace nastest;

namespace {

struct Card {
    int shape, maxi, featype, nnode;
    int gmshtype;  // the element gmsh makes of the card
    int nread;     // how many of our nodes, from the first, gmsh keeps in that element
};

// One element of each card gmsh reads. Order 2 is linear, 3 quadratic; featype 1 writes the
// solid cards (the triangle and quadrilateral ones as plane elements CTRIA3/CQUAD4 ...),
// 2 the shell cards, 5 the rod. The pyramid is a CHEXA with its apex four times, which gmsh
// reads as a hexahedron.
// gmsh types: 1 line, 2 triangle, 3 quadrilateral, 4 tetrahedron, 5 hexahedron, 6 prism,
// 9 six-node triangle, 16 eight-node quadrilateral.
const std::vector<Card> kCards = {
    {SYS_SHAPE_HEX, 2, 1, 8, 5, 8},     {SYS_SHAPE_HEX, 3, 1, 20, 5, 8},  {SYS_SHAPE_TET, 2, 1, 4, 4, 4},
    {SYS_SHAPE_TET, 3, 1, 10, 4, 4},    {SYS_SHAPE_WED, 2, 1, 6, 6, 6},   {SYS_SHAPE_WED, 3, 1, 15, 6, 6},
    {SYS_SHAPE_PYR, 2, 1, 5, 5, 5},     {SYS_SHAPE_TRI, 2, 2, 3, 2, 3},   {SYS_SHAPE_TRI, 3, 2, 6, 9, 6},
    {SYS_SHAPE_QUAD, 2, 2, 4, 3, 4},    {SYS_SHAPE_QUAD, 3, 2, 8, 16, 8}, {SYS_SHAPE_LINE, 2, 5, 2, 1, 2},
};

// Coordinates that exercise the large-field reals: signs, magnitudes from 1e-7 to 1e5 and
// digits beyond what a small field holds.
double Coord(int i, int axis)
{
    const double base[3] = {1.0 / 3.0, -2.718281828459045, 1.0e5 / 7.0};
    const double scale = std::pow(10.0, (i % 13) - 7);
    return base[axis] * scale * (1.0 + 0.01 * i);
}

class NASFwtGmshTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    vis_Connect* c = nullptr;
};

TEST_F(NASFwtGmshTest, EveryCardReadBack)
{
    GMSH_REQUIRED();
    // Each element has nodes of its own; node user ids 1000 + 3i, element ids 500 + 7k.
    std::vector<MeshNode> nodes;
    std::vector<MeshElem> elems;
    for (size_t k = 0; k < kCards.size(); ++k) {
        MeshElem e{kCards[k].shape, kCards[k].maxi, 0, kCards[k].featype, 1, 500 + 7 * static_cast<int>(k), {}};
        for (int j = 0; j < kCards[k].nnode; ++j) {
            const int i = static_cast<int>(nodes.size()) + 1;
            nodes.push_back({{Coord(i, 0), Coord(i, 1), Coord(i, 2)}, 1000 + 3 * i, 1, 0});
            e.nodes.push_back(i);
        }
        elems.push_back(e);
    }
    c = BuildMesh(nodes, elems);
    const std::string path = File("every.bdf");
    vis_ConnectWrite(c, 18, path.c_str());
    ASSERT_EQ(vis_ConnectError(c), 0);

    const gmshtest::Mesh m = gmshtest::Read(path);
    // 8+20+4+10+6+15+5+3+6+4+8+2 = 91 grid points, less the 12+6+9 midside nodes of the
    // quadratic solids that gmsh does not keep: 64 nodes; and 12 element cards.
    ASSERT_EQ(m.nodes.size(), 64u) << m.log;
    ASSERT_EQ(m.elements.size(), kCards.size()) << m.log;
    for (size_t n = 0; n < nodes.size(); ++n) {
        auto it = m.nodes.find(nodes[n].userid);
        if (it == m.nodes.end()) continue;  // a midside node; the count above holds them out
        // A large field keeps eleven significant digits: relative error at most 5e-11.
        for (int a = 0; a < 3; ++a)
            EXPECT_NEAR(it->second[static_cast<size_t>(a)], nodes[n].x[a], 1e-10 * std::fabs(nodes[n].x[a]))
                << "node " << it->first << " axis " << a;
    }
    for (size_t k = 0; k < kCards.size(); ++k) {
        auto it = m.elements.find(elems[k].userid);
        ASSERT_NE(it, m.elements.end()) << "element " << elems[k].userid;
        EXPECT_EQ(it->second.type, kCards[k].gmshtype) << "element " << elems[k].userid;
        // Our first nread node ids in order; the pyramid's CHEXA repeats the apex three times more.
        std::vector<int> want;
        for (int j = 0; j < kCards[k].nread; ++j)
            want.push_back(nodes[static_cast<size_t>(elems[k].nodes[static_cast<size_t>(j)] - 1)].userid);
        if (kCards[k].shape == SYS_SHAPE_PYR) want.insert(want.end(), 3, want.back());
        EXPECT_EQ(it->second.nodes, want) << "element " << elems[k].userid;
    }
}

// The linear cards keep their node order through the reader.
TEST_F(NASFwtGmshTest, LinearNodeOrder)
{
    GMSH_REQUIRED();
    // A hexahedron 1..8 and a tetrahedron 9..12 in reversed id order: the reader must keep the
    // order of the card, not sort it.
    std::vector<MeshNode> nodes;
    for (int i = 1; i <= 12; ++i) nodes.push_back({{Coord(i, 0), Coord(i, 1), Coord(i, 2)}, 200 - i, 1, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_HEX, 2, 0, 1, 1, 7, {1, 2, 3, 4, 5, 6, 7, 8}},
                          {SYS_SHAPE_TET, 2, 0, 1, 1, 8, {9, 10, 11, 12}}});
    const std::string path = File("order.bdf");
    vis_ConnectWrite(c, 18, path.c_str());
    const gmshtest::Mesh m = gmshtest::Read(path);
    ASSERT_EQ(m.elements.size(), 2u) << m.log;
    EXPECT_EQ(m.elements.at(7).nodes, (std::vector<int>{199, 198, 197, 196, 195, 194, 193, 192}));
    EXPECT_EQ(m.elements.at(8).nodes, (std::vector<int>{191, 190, 189, 188}));
}

}  // namespace
