/* Coordinate systems, nodes and elements of the keyword deck. Elements run under one head per
 * feature; a beam's orientation node is written under "*NODE" just before its element, so the
 * two heads alternate where beams carry orientations. */
#include "vis_CoordSys.h"
#include "vis_D3DFwtInternal.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_ElemTopology.h"
#include "vis_Model.h"
#include "vis_WriterLine.h"
#include "vis_WriterTable.h"

#include <cmath>

namespace {

/* Room of an element's node list: the largest element and an orientation node. */
constexpr int kMaxNode = VIS_ELEM_MAXNODE + 1;

/* The heads of features 1 to 13; null for the features this deck passes over. */
const char* Head(int featype)
{
    switch (featype) {
    case 1: return "*ELEMENT_SOLID\n";
    case 2:
    case 3: return "*ELEMENT_SHELL\n";
    case 4: return "*ELEMENT_BEAM\n";
    case 13: return "*ELEMENT_MASS\n";
    default: return nullptr;
    }
}

struct Elem {
    int index, id, shape, order, maxj, maxk, n, featype, propid;
    int node[kMaxNode]; /* node ids */
};

/* The associations of a block of elements: features, featwod, properties and ids. */
struct Block {
    int first = 1, n = 0;
    int featype[VIS_WRITER_BLOCK], featwod[VIS_WRITER_BLOCK], propid[VIS_WRITER_BLOCK], id[VIS_WRITER_BLOCK];
    int At(vis_Writer* w, int index)
    {
        if (index < first || index >= first + n) {
            first = index;
            n = w->numel - index + 1 < VIS_WRITER_BLOCK ? w->numel - index + 1 : VIS_WRITER_BLOCK;
            vis_Writer_ElemAssocs(w, 0, first, n, featype);
            vis_Writer_ElemAssocs(w, 25, first, n, featwod);
            vis_Writer_ElemAssocs(w, 2, first, n, propid);
            vis_Writer_ElemIds(w, first, n, id);
        }
        return index - first;
    }
};

/* "%8d" and three 16-column coordinates. */
void NodeLine(FILE* fp, int id, const double x[3])
{
    vis_WriterLine line;
    line.Int(id, 8);
    for (int a = 0; a < 3; ++a) line.Real(x[a], 16);
    line.End(fp);
}

/* "%8d" fields of id, property and the first n nodes. */
void Card(FILE* fp, const Elem* e, int n, const int* nodes)
{
    vis_WriterLine line;
    line.Int(e->id, 8);
    line.Int(e->propid, 8);
    for (int i = 0; i < n; ++i) line.Int(nodes[i], 8);
    line.End(fp);
}

/* Solids of order 2 as eight nodes, repeating the last corners of tetrahedra, pyramids and
 * wedges; tetrahedra of ten nodes as a card of id and property and a line of the nodes. */
void Solid(FILE* fp, const Elem* e)
{
    const int* v = e->node;
    if (e->order == 2) {
        int eight[8];
        switch (e->n) {
        case 4: eight[0] = v[0], eight[1] = v[1], eight[2] = v[2];
                for (int i = 3; i < 8; ++i) eight[i] = v[3];
                break;
        case 5: for (int i = 0; i < 8; ++i) eight[i] = v[i < 4 ? i : 4]; break;
        case 6: for (int i = 0; i < 6; ++i) eight[i] = v[i];
                eight[6] = v[4], eight[7] = v[5];
                break;
        case 8: for (int i = 0; i < 8; ++i) eight[i] = v[i]; break;
        default: return;
        }
        Card(fp, e, 8, eight);
    } else if (e->order == 3 && e->shape == SYS_SHAPE_TET && e->n == 10) {
        Card(fp, e, 0, nullptr);
        vis_WriterLine line;
        for (int i = 0; i < 10; ++i) line.Int(v[i], 8);
        line.End(fp);
    }
}

void Shell(FILE* fp, const Elem* e)
{
    if (e->order != 2 || (e->n != 3 && e->n != 4)) return;
    const int four[4] = {e->node[0], e->node[1], e->node[2], e->node[e->n - 1]};
    Card(fp, e, 4, four);
}

void Beam(FILE* fp, const Elem* e)
{
    if (e->order == 2 && (e->n == 2 || e->n == 3)) Card(fp, e, e->n, e->node);
}

/* "%8d%8d" id and first node, then the mass (parameter 51) of the element's property. */
void Mass(vis_D3DFwt* d3d, const Elem* e)
{
    double m[3] = {0.0, 0.0, 0.0};
    if (auto* prop = static_cast<vis_EProp*>(vis_Writer_Find(d3d->eprop, e->propid))) vis_EPropValueDouble(prop, 51, m);
    vis_WriterLine line;
    line.Int(e->id, 8);
    line.Int(e->node[0], 8);
    line.Real(m[0], 16);
    line.End(d3d->w.fp);
}

/* The orientation node of a beam of two nodes: its first node plus the unit second axis, the
 * orientation vector without its part along the beam. 1 when one was made. */
int OrientationPoint(vis_D3DFwt* d3d, vis_ElemDat* orient, int index, const int* nodes, double p[3])
{
    double a[3], b[3], v[3] = {0.0, 0.0, 0.0}, x[3];
    vis_ElemDatData(orient, index, 3, v);
    vis_Writer_Coords(&d3d->w, nodes[0], a);
    vis_Writer_Coords(&d3d->w, nodes[1], b);
    double len = 0.0, dot = 0.0, ylen = 0.0;
    for (int k = 0; k < 3; ++k) x[k] = b[k] - a[k], len += x[k] * x[k];
    if (len == 0.0) return 0;
    for (int k = 0; k < 3; ++k) dot += v[k] * x[k];
    double y[3];
    for (int k = 0; k < 3; ++k) y[k] = v[k] - dot / len * x[k], ylen += y[k] * y[k];
    if (ylen <= 1.0e-24 * len) return 0;
    ylen = std::sqrt(ylen);
    for (int k = 0; k < 3; ++k) p[k] = a[k] + y[k] / ylen;
    return 1;
}

bool Read(vis_D3DFwt* d3d, Block* block, int index, Elem* e)
{
    vis_Writer* w = &d3d->w;
    const int b = block->At(w, index);
    e->featype = block->featype[b];
    if (block->featwod[b] != 0 || !Head(e->featype)) return false;
    int maxi = 0;
    vis_Writer_Topology(w, index, &e->shape, &maxi, &e->maxj, &e->maxk);
    e->order = maxi == 0 ? 2 : maxi;
    vis_Writer_ElemNode(w, index, &e->n, e->node);
    if (e->n < 1) return false;
    e->index = index;
    e->id = block->id[b];
    e->propid = block->propid[b];
    return true;
}

}  // namespace

void vis_D3DFwt_Systems(vis_D3DFwt* d3d)
{
    FILE* fp = d3d->w.fp;
    std::fputs("$***       Coordinate systems\n*DEFINE_COORDINATE_SYSTEM\n", fp);
    vis_Writer_Ordered(d3d->coordsys, [fp](int key, void* value) {
        double o[3], t[9];
        vis_CoordSysOriginTriad(static_cast<vis_CoordSys*>(value), o, t);
        vis_WriterLine line;
        line.Int(key, 10);
        for (int k = 0; k < 3; ++k) line.Real(o[k], 10);
        for (int k = 0; k < 3; ++k) line.Real(o[k] + t[k], 10);
        line.End(fp);
        for (int k = 0; k < 3; ++k) line.Real(o[k] + t[3 + k], 10);
        line.End(fp);
    });
}

void vis_D3DFwt_Nodes(vis_D3DFwt* d3d)
{
    vis_Writer* w = &d3d->w;
    std::fputs("$***       Nodes\n*NODE\n", w->fp);
    int ids[VIS_WRITER_BLOCK], ft[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_NodeAssocs(w, 0, first, n, ft);
        for (int i = 0; i < n; ++i) ids[i] = first + i;
        vis_Writer_NodeIds(w, n, ids);
        for (int i = 0; i < n; ++i) {
            if (ids[i] > d3d->maxnode) d3d->maxnode = ids[i];
            if (ft[i] == 0 || ft[i] == 2) continue;
            double x[3];
            vis_Writer_Coords(w, first + i, x);
            NodeLine(w->fp, ids[i], x);
        }
    }
}

void vis_D3DFwt_Elems(vis_D3DFwt* d3d)
{
    vis_Writer* w = &d3d->w;
    std::fputs("$***       Elements\n", w->fp);
    auto* orient = static_cast<vis_ElemDat*>(vis_Writer_Find(d3d->elemdat, VIS_ELEMDAT_ORIENTATION));
    Block block;
    Elem e;
    int last = -1;
    for (int index = 1; index <= w->numel; ++index) {
        if (!Read(d3d, &block, index, &e)) continue;
        double p[3];
        if (e.featype == 4 && orient && e.n == 2 && e.order == 2 && OrientationPoint(d3d, orient, index, e.node, p)) {
            ++d3d->numnode;
            e.node[e.n++] = ++d3d->maxnode;
            std::fputs("*NODE\n", w->fp);
            NodeLine(w->fp, d3d->maxnode, p);
            last = -1;
            vis_Writer_NodeIds(w, 2, e.node);
        } else
            vis_Writer_NodeIds(w, e.n, e.node);
        if (e.featype != last) std::fputs(Head(e.featype), w->fp);
        last = e.featype;
        switch (e.featype) {
        case 1: Solid(w->fp, &e); break;
        case 2:
        case 3: Shell(w->fp, &e); break;
        case 4: Beam(w->fp, &e); break;
        default: Mass(d3d, &e); break;
        }
    }
}
