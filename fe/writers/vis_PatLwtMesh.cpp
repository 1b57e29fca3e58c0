/* Nodes (packet 1), elements (packet 2) and coordinate frames (packet 5) of the neutral file.
 * Element node lists are reordered for the format by the tables below; a pyramid is first a
 * hexahedron with its apex repeated, an interface element its own face. */
#include "vis_CoordSys.h"
#include "vis_ElemTopology.h"
#include "vis_PatLwtInternal.h"
#include "vis_WriterLine.h"
#include "vis_WriterTable.h"
#include "vsy_Util.h"

#include <initializer_list>

namespace {

/* A reorder of a list of `src` nodes into `n`: place i of the written list holds source
 * position order[i]. A Lagrange wedge drops the centres of its side faces. */
struct Order {
    int shape, src, n;
    int order[27];
};

/* Linear Lagrange forms (maxj 2): their lists are lexical. */
const Order kLinear[] = {
    {SYS_SHAPE_QUAD, 4, 4, {0, 1, 3, 2}},
    {SYS_SHAPE_HEX, 8, 8, {0, 1, 3, 2, 4, 5, 7, 6}},
};
/* Serendipity forms of order 3 (maxj 0): lines put the midside node between the ends; wedges
 * and hexahedra list the vertical edges' midside nodes before the top edges'. */
const Order kSerendipity[] = {
    {SYS_SHAPE_LINE, 3, 3, {0, 2, 1}},
    {SYS_SHAPE_WED, 15, 15, {0, 1, 2, 3, 4, 5, 6, 7, 8, 12, 13, 14, 9, 10, 11}},
    {SYS_SHAPE_HEX, 20, 20, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16, 17, 18, 19, 12, 13, 14, 15}},
};
/* Lagrange forms of order 3 (maxj 3): corners, edge midpoints, then centres. */
const Order kLagrange[] = {
    {SYS_SHAPE_LINE, 3, 3, {0, 2, 1}},
    {SYS_SHAPE_TRI, 6, 6, {0, 2, 5, 1, 4, 3}},
    {SYS_SHAPE_QUAD, 9, 9, {0, 2, 8, 6, 1, 5, 7, 3, 4}},
    {SYS_SHAPE_TET, 10, 10, {0, 2, 5, 9, 1, 4, 3, 6, 7, 8}},
    {SYS_SHAPE_WED, 18, 15, {0, 2, 5, 12, 14, 17, 1, 4, 3, 6, 8, 11, 13, 16, 15}},
    {SYS_SHAPE_HEX, 27, 27, {0, 2, 8, 6, 18, 20, 26, 24, 1, 5, 7, 3, 9, 11, 17, 15, 19, 23, 25, 21, 13, 4, 22, 12, 14, 10, 16}},
};

template <int N>
const Order* Find(const Order (&table)[N], int shape, int n)
{
    for (const Order& o : table)
        if (o.shape == shape && o.src == n) return &o;
    return nullptr;
}

/* The table of an element's form, or null when its order stays. */
const Order* OrderOf(int shape, int maxi, int maxj, int n)
{
    const int order = maxi == 0 ? 2 : maxi;
    const int j = maxj & 0xFFFF;
    if (order == 2 && j == 2) return Find(kLinear, shape, n);
    if (order == 3 && j == 0) return Find(kSerendipity, shape, n);
    if (order == 3 && j == 3) return Find(kLagrange, shape, n);
    return nullptr;
}

struct Elem {
    int shape, maxi, maxj, maxk, n;
    int node[VIS_ELEM_MAXNODE + 8];
};

/* A pyramid of 5 or 13 nodes as a hexahedron whose top face is the apex four times; of order 3
 * the apex edges' midside nodes go to the vertical edges and the top edges collapse into the
 * apex. Other pyramid forms stay pyramids in their own order. */
void PyramidToHex(Elem* e)
{
    const int apex = e->node[4];
    if (e->n >= 13) {
        int mid[8];
        for (int i = 0; i < 8; ++i) mid[i] = e->node[5 + i];
        for (int i = 0; i < 4; ++i) e->node[8 + i] = mid[i], e->node[12 + i] = apex, e->node[16 + i] = mid[4 + i];
        e->n = 20;
        e->maxi = 3;
    } else {
        e->n = 8;
        e->maxi = 2;
    }
    for (int i = 5; i < 8; ++i) e->node[i] = apex;
    e->shape = SYS_SHAPE_HEX;
    e->maxj = e->maxk = 0;
}

/* An interface element as its face: a line, or a triangle or quadrilateral of its order. */
void InterfaceToFace(Elem* e)
{
    const int order = e->maxi == 0 ? 2 : e->maxi;
    int k = 0;
    if (e->shape == SYS_SHAPE_LINE) k = 2;
    if (e->shape == SYS_SHAPE_TRI) k = order == 3 ? 6 : 3;
    if (e->shape == SYS_SHAPE_QUAD) k = order == 3 ? 8 : 4;
    if (k > 0 && k < e->n) e->n = k;
}

/* 1 when packet 2 can hold the element's form. */
bool Writable(const Elem* e)
{
    const int j = e->maxj & 0xFFFF, order = e->maxi == 0 ? 2 : e->maxi;
    if (e->shape < 0 || e->shape > SYS_SHAPE_HEX || e->maxi >= 4) return false;
    return j == 0 || j == order || j == e->maxk;
}

void Element(vis_PatLwt* pat, int index, int featype)
{
    vis_Writer* w = &pat->w;
    Elem e;
    vis_Writer_Topology(w, index, &e.shape, &e.maxi, &e.maxj, &e.maxk);
    if (!Writable(&e)) return;
    vis_Writer_ElemNode(w, index, &e.n, e.node);
    if (e.n < 1) return;
    if (featype == 14 && vis_Writer_ElemAssoc(w, 12, index) == 37) InterfaceToFace(&e);
    if (e.shape == SYS_SHAPE_PYR && (e.n == 5 || e.n == 13)) PyramidToHex(&e);
    vis_Writer_NodeIds(w, e.n, e.node);
    if (const Order* order = OrderOf(e.shape, e.maxi, e.maxj, e.n)) {
        int src[VIS_ELEM_MAXNODE + 8];
        for (int i = 0; i < e.n; ++i) src[i] = e.node[i];
        for (int i = 0; i < order->n; ++i) e.node[i] = src[order->order[i]];
        e.n = order->n;
    }
    int prop = vis_Writer_ElemAssoc(w, 2, index);
    if (prop == 0) prop = -vis_Writer_ElemAssoc(w, 1, index);
    if (prop == 0) prop = 1;
    if (e.n == 1) e.node[e.n++] = e.node[0];
    FILE* fp = w->fp;
    vis_PatLwt_Header(fp, 2, vis_Writer_ElemId(w, index), vis_PatLwt_ShapeCode(e.shape), (e.n + 9) / 10 + 1);
    vis_WriterLine line;
    for (int v : {e.n, 0, prop, 0}) line.Int(v, 8);
    for (int k = 0; k < 3; ++k) line.Exp(0.0, 16, 2);
    line.End(fp);
    for (int i = 0; i < e.n; ++i) {
        line.Int(e.node[i], 8);
        if ((i + 1) % 10 == 0 || i + 1 == e.n) line.End(fp);
    }
}

/* The format's frame type: 1 rectangular, 2 cylindrical, 3 spherical. */
int FrameType(vis_CoordSys* cs)
{
    int type = VIS_COORDSYS_RECTANGULAR;
    vis_CoordSysGetType(cs, &type);
    return type == VIS_COORDSYS_CYLINDRICAL ? 2 : type >= VIS_COORDSYS_SPHERICAL ? 3 : 1;
}

}  // namespace

void vis_PatLwt_Nodes(vis_PatLwt* pat)
{
    vis_Writer* w = &pat->w;
    int ft[VIS_WRITER_BLOCK], dof[VIS_WRITER_BLOCK], cs[VIS_WRITER_BLOCK], ids[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_NodeAssocs(w, 0, first, n, ft);
        vis_Writer_NodeAssocs(w, 7, first, n, dof);
        vis_Writer_NodeAssocs(w, 4, first, n, cs);
        for (int i = 0; i < n; ++i) ids[i] = first + i;
        vis_Writer_NodeIds(w, n, ids);
        for (int i = 0; i < n; ++i) {
            if (ft[i] == 0) continue;
            double x[3];
            vis_Writer_Coords(w, first + i, x);
            vis_PatLwt_Header(w->fp, 1, ids[i], 0, 2);
            vis_PatLwt_Reals(w->fp, 3, x);
            int flags[6];
            vsy_DofDecode(dof[i], 6, flags);
            vis_WriterLine line;
            line.Text("1G");
            line.Int(6, 8);
            line.Int(0, 8);
            line.Int(cs[i], 8);
            line.Text("  ");
            for (int f : flags) line.Char(f ? '1' : '0');
            line.End(w->fp);
        }
    }
}

void vis_PatLwt_Elems(vis_PatLwt* pat)
{
    vis_Writer* w = &pat->w;
    int ft[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numel; first += VIS_WRITER_BLOCK) {
        const int n = w->numel - first + 1 < VIS_WRITER_BLOCK ? w->numel - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_ElemAssocs(w, 0, first, n, ft);
        for (int i = 0; i < n; ++i)
            if (ft[i] != 0) Element(pat, first + i, ft[i]);
    }
}

void vis_PatLwt_Frames(vis_PatLwt* pat)
{
    FILE* fp = pat->w.fp;
    vis_Writer_Ordered(pat->coordsys, [fp](int key, void* value) {
        auto* cs = static_cast<vis_CoordSys*>(value);
        double o[3], t[9], v[18];
        vis_CoordSysOriginTriad(cs, o, t);
        for (int k = 0; k < 3; ++k) {
            v[k] = o[k];
            v[3 + k] = o[k] + t[6 + k];
            v[6 + k] = o[k] + t[k];
        }
        for (int k = 0; k < 9; ++k) v[9 + k] = t[k];
        vis_PatLwt_Header(fp, 5, key, FrameType(cs), 4);
        vis_PatLwt_Reals(fp, 18, v);
    });
}
