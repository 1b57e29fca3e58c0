// vis_ConnectWrite -7: the outer surface as triangles, written by hand from the rule (header,
// nodes in ascending id numbered from 1, triangles in the outward corner order of the face
// tables, plane elements reversed, quadratic plane triangles with their midside nodes) and
// checked to close a watertight surface with outward normals by the volume it encloses.
#include "NASFwtTestSupport.h"
#include "vis_ConnectWrite.h"

#include <array>
#include <cstdio>
#include <map>
#include <sstream>

using namespace nastest;
using namespace vsytest;

namespace {

// The element face tables: corners in order, the normal pointing out of the element.
const int kTetFaces[4][3] = {{0, 2, 1}, {0, 1, 3}, {0, 3, 2}, {1, 2, 3}};
const int kHexFaces[6][4] = {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {3, 7, 6, 2}, {0, 4, 7, 3}, {1, 2, 6, 5}};

// "%d %24.16e %24.16e %24.16e\n" of a node.
std::string NodeLine(int n, const double* x)
{
    char buf[128];
    std::snprintf(buf, sizeof buf, "%d %24.16e %24.16e %24.16e\n", n, x[0], x[1], x[2]);
    return buf;
}

std::string Tri(int n, int a, int b, int c)
{
    return std::to_string(n) + " " + std::to_string(a) + " " + std::to_string(b) + " " + std::to_string(c) + " 1\n";
}

// The volume the triangles of a written file enclose: the sum of det(a, b, c) / 6 over the
// triangles (positive for outward normals), and whether every edge is shared by exactly two
// triangles running opposite ways (a closed, consistently oriented surface).
struct Closure {
    double volume = 0.0;
    bool closed = true;
};

Closure Enclosed(const std::string& file)
{
    std::istringstream in(file);
    int ntri = 0, nnode = 0, quad = 0, z[3];
    in >> ntri >> nnode >> quad >> z[0] >> z[1] >> z[2];
    std::map<int, std::array<double, 3>> x;
    for (int i = 0; i < nnode; ++i) {
        int n = 0;
        in >> n;
        in >> x[n][0] >> x[n][1] >> x[n][2];
    }
    Closure out;
    std::map<std::pair<int, int>, int> edges;
    for (int t = 0; t < ntri; ++t) {
        int n = 0, v[3], one = 0;
        in >> n >> v[0] >> v[1] >> v[2] >> one;
        const auto &a = x[v[0]], &b = x[v[1]], &c = x[v[2]];
        out.volume += (a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) +
                       a[2] * (b[0] * c[1] - b[1] * c[0])) / 6.0;
        for (int k = 0; k < 3; ++k) ++edges[{v[k], v[(k + 1) % 3]}];
    }
    for (const auto& e : edges)
        if (e.second != 1 || edges.count({e.first.second, e.first.first}) != 1) out.closed = false;
    return out;
}

class SurfaceTest : public WriterTest {
protected:
    void TearDown() override
    {
        if (c) vis_ConnectDelete(c);
        WriterTest::TearDown();
    }
    std::string Write()
    {
        const std::string path = File("surface.txt");
        vis_ConnectWrite(c, -7, path.c_str());
        return ReadFile(path);
    }
    vis_Connect* c = nullptr;
};

TEST_F(SurfaceTest, OneTetrahedron)
{
    // Six nodes; the tetrahedron uses 2 3 5 6, so nodes 1 and 4 stay out and the others are
    // numbered 1 to 4 in ascending id.
    std::vector<MeshNode> nodes;
    const double x[6][3] = {{9, 9, 9}, {0, 0, 0}, {1, 0, 0}, {8, 8, 8}, {0, 1, 0}, {0, 0, 1}};
    for (int i = 0; i < 6; ++i) nodes.push_back({{x[i][0], x[i][1], x[i][2]}, 100 + i, 1, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_TET, 0, 0, 1, 1, 7, {2, 3, 5, 6}}});
    const std::string file = Write();
    ExpectNoReport();
    // 4 faces of 3 corners: 4 triangles; 4 nodes; no plane element of order 3.
    std::string want = "4 4 0 0 0 0\n";
    want += NodeLine(1, x[1]) + NodeLine(2, x[2]) + NodeLine(3, x[4]) + NodeLine(4, x[5]);
    // Local corners 0 1 2 3 are new numbers 1 2 3 4: faces 0-2-1, 0-1-3, 0-3-2, 1-2-3.
    want += Tri(1, 1, 3, 2) + Tri(2, 1, 2, 4) + Tri(3, 1, 4, 3) + Tri(4, 2, 3, 4);
    EXPECT_EQ(file, want);
    const Closure cl = Enclosed(file);
    EXPECT_TRUE(cl.closed);
    EXPECT_NEAR(cl.volume, 1.0 / 6.0, 1e-15);
}

TEST_F(SurfaceTest, CubeOfEightHexahedra)
{
    // Nodes of a 3 x 3 x 3 grid on [0, 2]^3, id 1 + i + 3 j + 9 k; eight unit cells.
    std::vector<MeshNode> nodes;
    auto id = [](int i, int j, int k) { return 1 + i + 3 * j + 9 * k; };
    for (int k = 0; k < 3; ++k)
        for (int j = 0; j < 3; ++j)
            for (int i = 0; i < 3; ++i) nodes.push_back({{double(i), double(j), double(k)}, id(i, j, k), 1, 0});
    std::vector<MeshElem> elems;
    std::vector<std::array<int, 8>> cells;
    for (int k = 0; k < 2; ++k)
        for (int j = 0; j < 2; ++j)
            for (int i = 0; i < 2; ++i) {
                const std::array<int, 8> v = {id(i, j, k),         id(i + 1, j, k),         id(i + 1, j + 1, k),
                                              id(i, j + 1, k),     id(i, j, k + 1),         id(i + 1, j, k + 1),
                                              id(i + 1, j + 1, k + 1), id(i, j + 1, k + 1)};
                cells.push_back(v);
                elems.push_back({SYS_SHAPE_HEX, 0, 0, 1, 1, static_cast<int>(cells.size()), {v.begin(), v.end()}});
            }
    c = BuildMesh(nodes, elems);
    const std::string file = Write();
    ExpectNoReport();
    // The file by the rule: the 26 nodes other than the centre 14 (ids 1 to 13 keep their
    // number, 15 to 27 take one less); a face of a cell is free when it lies on the cube's
    // boundary, which its four corners tell (all on x, y or z = 0 or 2); each free quadrilateral
    // gives 0 1 2 and 0 2 3 of its outward corners.
    auto newid = [](int n) { return n < 14 ? n : n - 1; };
    std::string want = "48 26 0 0 0 0\n";
    for (const MeshNode& n : nodes)
        if (n.userid != 14) want += NodeLine(newid(n.userid), n.x);
    int t = 0;
    for (const auto& v : cells)
        for (const auto& f : kHexFaces) {
            bool boundary = false;
            for (int axis = 0; axis < 3 && !boundary; ++axis)
                for (double side : {0.0, 2.0}) {
                    bool all = true;
                    for (int q = 0; q < 4; ++q) all = all && nodes[static_cast<size_t>(v[f[q]] - 1)].x[axis] == side;
                    boundary = boundary || all;
                }
            if (!boundary) continue;
            const int a = newid(v[f[0]]), b = newid(v[f[1]]), cc = newid(v[f[2]]), d = newid(v[f[3]]);
            want += Tri(++t, a, b, cc);
            want += Tri(++t, a, cc, d);
        }
    EXPECT_EQ(t, 48);  // 24 free faces
    EXPECT_EQ(file, want);
    const Closure cl = Enclosed(file);
    EXPECT_TRUE(cl.closed);
    EXPECT_NEAR(cl.volume, 8.0, 1e-12);  // the cube of side 2, outward
}

TEST_F(SurfaceTest, QuadraticTetrahedron)
{
    // Ten nodes: corners 1 to 4, midside nodes 5 to 10 on edges 0-1, 1-2, 2-0, 0-3, 1-3, 2-3.
    const double corner[4][3] = {{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {0, 0, 2}};
    const int edge[6][2] = {{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}};
    std::vector<MeshNode> nodes;
    for (const auto& p : corner) nodes.push_back({{p[0], p[1], p[2]}, 0, 1, 0});
    for (const auto& e : edge) {
        const double* a = corner[e[0]];
        const double* b = corner[e[1]];
        nodes.push_back({{(a[0] + b[0]) / 2, (a[1] + b[1]) / 2, (a[2] + b[2]) / 2}, 0, 1, 0});
    }
    c = BuildMesh(nodes, {{SYS_SHAPE_TET, 3, 0, 1, 1, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}}});
    const std::string file = Write();
    ExpectNoReport();
    // Faces of a solid: corners only, the flag stays 0; every node lies on a face: 10 nodes.
    std::string want = "4 10 0 0 0 0\n";
    for (int n = 1; n <= 10; ++n) want += NodeLine(n, nodes[static_cast<size_t>(n - 1)].x);
    for (int f = 0; f < 4; ++f) want += Tri(f + 1, kTetFaces[f][0] + 1, kTetFaces[f][1] + 1, kTetFaces[f][2] + 1);
    EXPECT_EQ(file, want);
    const Closure cl = Enclosed(file);
    EXPECT_TRUE(cl.closed);
    EXPECT_NEAR(cl.volume, 8.0 / 6.0, 1e-12);
}

TEST_F(SurfaceTest, MixedShell)
{
    // A six-node triangle (corners 1 2 3, midside 4 on 1-2, 5 on 2-3, 6 on 3-1) and a linear
    // quadrilateral 2 7 8 3 beside it.
    const double x[8][3] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0.5, 0, 0}, {0.5, 0.5, 0}, {0, 0.5, 0}, {2, 0, 0}, {2, 1, 0}};
    std::vector<MeshNode> nodes;
    for (const auto& p : x) nodes.push_back({{p[0], p[1], p[2]}, 0, 1, 0});
    c = BuildMesh(nodes, {{SYS_SHAPE_TRI, 3, 0, 2, 1, 1, {1, 2, 3, 4, 5, 6}}, {SYS_SHAPE_QUAD, 0, 0, 2, 1, 2, {2, 7, 8, 3}}});
    const std::string file = Write();
    ExpectNoReport();
    // 1 + 2 triangles, 8 nodes; a plane triangle of maxi 3: the quadratic flag is 1.
    std::string want = "3 8 1 0 0 0\n";
    for (int n = 1; n <= 8; ++n) want += NodeLine(n, x[n - 1]);
    // The quadratic triangle reversed with its midside nodes: 0 2 1, then 5 4 3, then 1.
    want += "1 1 3 2 6 5 4 1\n";
    // The plane quadrilateral reversed: 0 2 1 and 0 3 2 of 2 7 8 3.
    want += Tri(2, 2, 8, 7) + Tri(3, 2, 3, 8);
    EXPECT_EQ(file, want);
}

TEST_F(SurfaceTest, UnopenablePath)
{
    c = BuildMesh({{{0, 0, 0}, 1, 1, 0}, {{1, 0, 0}, 2, 1, 0}, {{0, 1, 0}, 3, 1, 0}},
                  {{SYS_SHAPE_TRI, 0, 0, 2, 1, 1, {1, 2, 3}}});
    const std::string bad = dir + "/missing/s.txt";
    vis_ConnectWrite(c, -7, bad.c_str());
    ExpectOnlyReport("vis_ConnectWrite", SYS_ERROR_FILE, "pathname= " + bad);
}

}  // namespace
