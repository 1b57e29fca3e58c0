// Meshes and helpers of the derived-group suites: blocks of unit hexahedra, quadrilateral
// shells, and the counting of what a group holds.
#ifndef GROUPTESTMESH_H
#define GROUPTESTMESH_H

#include "vis_Connect.h"
#include "vis_ConnectGroup.h"
#include "vis_ConnectKernel.h"
#include "vis_Group.h"
#include "vsy_TestSupport.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <cstddef>
#include <vector>

namespace grouptest {

// Node of the lattice point (i, j, k) of a block of nx by ny by nz unit cubes.
inline int BlockNode(int nx, int ny, int i, int j, int k)
{
    return 1 + i + (nx + 1) * (j + (ny + 1) * k);
}

// The nodes of a block of nx * ny * nz unit cells, at integer coordinates.
inline void BlockNodes(vis_Connect* c, int nx, int ny, int nz)
{
    for (int k = 0; k <= nz; ++k)
        for (int j = 0; j <= ny; ++j)
            for (int i = 0; i <= nx; ++i) {
                const double x[3] = {double(i), double(j), double(k)};
                vis_ConnectSetCoordsdv(c, BlockNode(nx, ny, i, j, k), x);
            }
}

// The corners of cell (i, j, k): its bottom ones counter-clockwise seen from above, then its
// top ones.
inline void BlockCell(int nx, int ny, int i, int j, int k, int n[8])
{
    const int ijk[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    for (int a = 0; a < 8; ++a) n[a] = BlockNode(nx, ny, i + ijk[a][0], j + ijk[a][1], k + ijk[a][2]);
}

// A block of nx * ny * nz unit hexahedra, element (i, j, k) numbered i + nx * (j + ny * k) + 1,
// each listing its cell's corners; the kernel is built (mode 1: the connect is dynamic and needs
// none).
inline void Block(vis_Connect* c, int nx, int ny, int nz, int mode = 0)
{
    vis_ConnectMode(c, mode);
    vis_ConnectDef(c, (nx + 1) * (ny + 1) * (nz + 1), nx * ny * nz);
    BlockNodes(c, nx, ny, nz);
    int id = 0;
    for (int k = 0; k < nz; ++k)
        for (int j = 0; j < ny; ++j)
            for (int i = 0; i < nx; ++i) {
                int n[8];
                BlockCell(nx, ny, i, j, k, n);
                vis_ConnectSetTopology(c, ++id, SYS_SHAPE_HEX, 0, 0, 0);
                vis_ConnectSetElemNode(c, id, n);
            }
    vis_ConnectKernel(c);
}

// A shell of linear quadrilaterals given by their node lists over the given nodes; the kernel
// is built.
inline void Shell(vis_Connect* c, const std::vector<std::array<double, 3>>& x,
                  const std::vector<std::vector<int>>& quads)
{
    vis_ConnectDef(c, static_cast<int>(x.size()), static_cast<int>(quads.size()));
    for (std::size_t n = 0; n < x.size(); ++n) vis_ConnectSetCoordsdv(c, static_cast<int>(n + 1), x[n].data());
    for (std::size_t e = 0; e < quads.size(); ++e) {
        int id = static_cast<int>(e + 1);
        vis_ConnectSetTopology(c, id, quads[e].size() == 3 ? SYS_SHAPE_TRI : SYS_SHAPE_QUAD, 0, 0, 0);
        vis_ConnectSetElemNode(c, id, quads[e].data());
    }
    vis_ConnectKernel(c);
}

// A new group of nument entities of the given parent and child types.
inline vis_Group* NewGroup(int nument, int parent, int child)
{
    vis_Group* g = vis_GroupNew();
    vis_GroupDef(g, nument, parent, child);
    return g;
}

// Entities with any flag, ascending.
inline std::vector<int> Members(vis_Group* g)
{
    std::vector<int> out;
    for (int i = 1; i <= g->nument; ++i) {
        int flags = 0;
        vis_GroupGetIndex(g, i, &flags);
        if (flags) out.push_back(i);
    }
    return out;
}

// Number of flags set over all entities (faces or edges of a face or edge group).
inline int FlagCount(vis_Group* g)
{
    int total = 0;
    for (int i = 1; i <= g->nument; ++i) {
        int n = 0, last = 0;
        vis_GroupNumEntFlag(g, i, &n, &last);
        total += n;
    }
    return total;
}

// The coordinates of the nodes of entity no (SYS_FACE or SYS_EDGE) of element id.
inline std::vector<std::array<double, 3>> EntityCoords(vis_Connect* c, int enttype, int id, int no)
{
    int n = 0, nodes[64];
    vis_ConnectElemCon(c, enttype, id, no, &n, nodes);
    std::vector<std::array<double, 3>> out(static_cast<std::size_t>(n));
    for (int k = 0; k < n; ++k) vis_ConnectCoordsdv(c, 1, &nodes[k], out[static_cast<std::size_t>(k)].data());
    return out;
}

// The lattice points (i, j, k) of a block of nx by ny cubes with every coordinate in `values`,
// as node ids in ascending order.
inline std::vector<int> LatticeNodes(int nx, int ny, std::initializer_list<int> values)
{
    std::vector<int> out;
    for (int k : values)
        for (int j : values)
            for (int i : values) out.push_back(BlockNode(nx, ny, i, j, k));
    std::sort(out.begin(), out.end());
    return out;
}

// Fixture of the group suites: a connect, the groups a test makes (released after it), and
// the recording report handler of the container suites.
class GroupFixture : public vsytest::ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        c = vis_ConnectNew();
        ASSERT_NE(c, nullptr);
    }
    void TearDown() override
    {
        for (vis_Group* g : groups) vis_GroupDelete(g);
        vis_ConnectDelete(c);
        ContainerTest::TearDown();
    }
    vis_Group* keep(vis_Group* g)
    {
        groups.push_back(g);
        return g;
    }
    int numnode()
    {
        int n = 0;
        vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &n);
        return n;
    }
    vis_Group* faces() { return keep(NewGroup(c->numelem, SYS_ELEM, SYS_FACE)); }
    vis_Group* edges() { return keep(NewGroup(c->numelem, SYS_ELEM, SYS_EDGE)); }
    vis_Group* elems() { return keep(NewGroup(c->numelem, SYS_ELEM, 0)); }
    vis_Group* nodes() { return keep(NewGroup(numnode(), SYS_NODE, 0)); }
    vis_Connect* c = nullptr;
    std::vector<vis_Group*> groups;
};

}  // namespace grouptest

#endif
