/* The outer surface of a mesh as a text file of triangles (vis_ConnectWrite -7).
 *
 * The kernel is run and the free faces are taken by vis_ConnectFaceGroup with the free-face
 * operation. Their nodes are numbered from 1 in ascending id. The file holds a header
 * "%d %d %d %d %d %d\n" (triangles, nodes, the quadratic flag, three zeros), the nodes
 * "%d %24.16e %24.16e %24.16e\n" and the triangles, numbered from 1 and each ended by the
 * constant 1: a face of a solid gives corners 0 1 2 and, with four corners, also 0 2 3, in the
 * outward order of the element's face table; the face of a plane element is reversed, 0 2 1
 * (and 0 3 2). The quadratic flag is 1 when a plane element of maxi 3 is among the faces; then
 * each such triangle is written with its midside nodes, "%d %d %d %d %d %d %d %d\n": 0 2 1,
 * the mid-nodes 5 4 3, then 1. A face of more than four corners (of a polyhedron) is written
 * as a fan from corner 0, and a quadratic plane quadrilateral as its two linear triangles:
 * no line of this file holds them otherwise.
 */
#include "vis_Connect.h"
#include "vis_ConnectGroup.h"
#include "vis_ConnectKernel.h"
#include "vis_ConnectWrite.h"
#include "vis_Group.h"
#include "vsy_Error.h"

#include <vector>

namespace {

/* One free face: its element and number, node list, corner count and kind. */
struct Face {
    int elem, no, ncorner;
    bool plane, quadratic;
    std::vector<int> nodes;
};

int Corners(int shape, int maxi)
{
    switch (shape) {
    case SYS_SHAPE_TRI: return 3;
    case SYS_SHAPE_QUAD: return 4;
    case SYS_SHAPE_POLYGON: return maxi; /* a polyhedron's face ring */
    default: return 0;
    }
}

/* The free faces of the mesh in element and face order; false when the groups failed. */
bool FreeFaces(vis_Connect* c, std::vector<Face>* faces)
{
    int ne = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMELEM, &ne);
    vis_Group* g = vis_GroupNew();
    if (!g) return false;
    vis_GroupDef(g, ne, SYS_ELEM, SYS_FACE);
    vis_ConnectFaceGroup(c, VIS_CGROUP_FREE, nullptr, g);
    int nodes[VIS_ELEM_MAXNODE];
    for (int e = 1; e <= ne; ++e) {
        int nflag = 0, last = 0;
        vis_GroupNumEntFlag(g, e, &nflag, &last);
        int shape = -1, maxi = 0, maxj = 0, maxk = 0;
        if (nflag > 0) vis_ConnectTopology(c, e, &shape, &maxi, &maxj, &maxk);
        for (int no = 1; no <= last; ++no) {
            int flag = 0;
            vis_GroupGetEntFlag(g, e, no, &flag);
            if (!flag) continue;
            int fs = -1, fi = 0, fj = 0, n = 0;
            vis_ConnectElemTopo(c, SYS_FACE, e, no, &fs, &fi, &fj);
            vis_ConnectElemCon(c, SYS_FACE, e, no, &n, nodes);
            const int nc = Corners(fs, fi);
            if (nc < 3 || n < nc || n > VIS_ELEM_MAXNODE) continue;
            const bool plane = shape == SYS_SHAPE_TRI || shape == SYS_SHAPE_QUAD || shape == SYS_SHAPE_POLYGON;
            faces->push_back({e, no, nc, plane, plane && maxi == 3, std::vector<int>(nodes, nodes + n)});
        }
    }
    vis_GroupDelete(g);
    return true;
}

void Triangle(FILE* fp, int* number, int a, int b, int c)
{
    std::fprintf(fp, "%d %d %d %d %d\n", ++*number, a, b, c, 1);
}

void WriteFace(FILE* fp, const Face& f, const std::vector<int>& newid, bool quadmode, int* number)
{
    /* A node outside the mesh (a list that names none) has no number: 0. */
    auto id = [&](int k) {
        const int node = f.nodes[static_cast<size_t>(k)];
        return node >= 1 && static_cast<size_t>(node) < newid.size() ? newid[static_cast<size_t>(node)] : 0;
    };
    if (quadmode && f.quadratic && f.ncorner == 3 && f.nodes.size() >= 6) {
        std::fprintf(fp, "%d %d %d %d %d %d %d %d\n", ++*number, id(0), id(2), id(1), id(5), id(4), id(3), 1);
        return;
    }
    for (int k = 1; k + 1 < f.ncorner; ++k) {
        if (f.plane) Triangle(fp, number, id(0), id(k + 1), id(k));
        else Triangle(fp, number, id(0), id(k), id(k + 1));
    }
}

}  // namespace

void vis_ConnectWrite_Surface(vis_Connect* c, FILE* fp)
{
    vis_ConnectKernel(c);
    std::vector<Face> faces;
    if (!FreeFaces(c, &faces)) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectWrite", SYS_ERROR_MEMORY, "Malloc vec");
        return;
    }
    int nn = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &nn);
    /* The nodes of the faces, numbered from 1 in ascending id. */
    std::vector<int> newid(static_cast<size_t>(nn) + 1, 0);
    int ntri = 0;
    bool quadmode = false;
    for (const Face& f : faces) {
        for (int node : f.nodes)
            if (node >= 1 && node <= nn) newid[static_cast<size_t>(node)] = 1;
        ntri += f.ncorner - 2;
        quadmode = quadmode || f.quadratic;
    }
    int count = 0;
    for (int node = 1; node <= nn; ++node)
        if (newid[static_cast<size_t>(node)]) newid[static_cast<size_t>(node)] = ++count;
    std::fprintf(fp, "%d %d %d %d %d %d\n", ntri, count, quadmode ? 1 : 0, 0, 0, 0);
    for (int node = 1; node <= nn; ++node) {
        if (!newid[static_cast<size_t>(node)]) continue;
        double x[3];
        vis_ConnectCoordsdv(c, 1, &node, x);
        std::fprintf(fp, "%d %24.16e %24.16e %24.16e\n", newid[static_cast<size_t>(node)], x[0], x[1], x[2]);
    }
    int number = 0;
    for (const Face& f : faces) WriteFace(fp, f, newid, quadmode, &number);
}
