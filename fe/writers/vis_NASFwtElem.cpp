/* Element cards of the NASTRAN deck: solids, shells and membranes, rods, concentrated masses
 * and springs; beams, gaps, rigid and interface elements are in vis_NASFwtLink.cpp. Node
 * positions in the card tables count from 1 in the library's node order. */
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_ElemTopology.h"
#include "vis_Model.h"
#include "vis_NASFwtInternal.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"

#include <cmath>
#include <cstring>
#include <initializer_list>

namespace {

using Elem = vis_NASFwt_Elem;
constexpr int kMaxNode = VIS_NASFWT_MAXNODE;
constexpr double kThicknessTol = 2e-7;

/* Corners and edges of shapes 2 to 7 (tri, quad, tet, pyramid, wedge, hexahedron). */
constexpr int kCorners[8] = {1, 2, 3, 4, 4, 5, 6, 8};
constexpr int kEdges[8] = {0, 1, 3, 4, 6, 8, 9, 12};

int Order(int maxi)
{
    return maxi == 0 ? 2 : maxi;
}

/* Serendipity order 3 with a mask in the high half of maxj: the stored list lacks the midside
 * nodes of masked edges; they come back as 0 at their full positions. */
void ExpandMask(Elem* e)
{
    const unsigned mask = static_cast<unsigned>(e->maxj) >> 16;
    if (mask == 0 || Order(e->maxi) != 3 || (e->maxj & 0xffff) != 0 || e->shape < 2 || e->shape > 7) return;
    const int nc = kCorners[e->shape], ne = kEdges[e->shape];
    int full[kMaxNode];
    int pos = nc;
    for (int c = 0; c < nc; ++c) full[c] = e->node[c];
    for (int edge = 0; edge < ne; ++edge) full[nc + edge] = (mask >> edge & 1u) ? 0 : (pos < e->n ? e->node[pos++] : 0);
    e->n = nc + ne;
    for (int i = 0; i < e->n; ++i) e->node[i] = full[i];
}

/* A pyramid as a hexahedron whose top face is the apex four times. Of order 3, the base edges'
 * midside nodes (pyramid positions 6 to 9) stay on the base edges, the top edges collapse into
 * the apex, and the apex edges' midside nodes (10 to 13) go to the vertical edges. */
void PyramidToHex(Elem* e, bool quadratic)
{
    const int apex = e->node[4];
    if (quadratic) {
        int mid[8];
        for (int i = 0; i < 8; ++i) mid[i] = e->node[5 + i];
        for (int i = 0; i < 4; ++i) {
            e->node[8 + i] = mid[i];
            e->node[12 + i] = apex;
            e->node[16 + i] = mid[4 + i];
        }
    }
    for (int i = 5; i < 8; ++i) e->node[i] = apex;
    e->n = quadratic ? 20 : 8;
    e->shape = SYS_SHAPE_HEX;
}

/* The associations and ids of a run of elements, read by one call per kind. */
struct Block {
    int first = 1, n = 0;
    int propid[VIS_WRITER_BLOCK], csysid[VIS_WRITER_BLOCK], featype[VIS_WRITER_BLOCK];
    int feaspec[VIS_WRITER_BLOCK], featwod[VIS_WRITER_BLOCK], id[VIS_WRITER_BLOCK];
    /* Makes element `index` one of the block's, reading the next run when it is not. */
    int At(vis_Writer* w, int index)
    {
        if (index < first || index >= first + n) {
            first = index;
            n = w->numel - index + 1 < VIS_WRITER_BLOCK ? w->numel - index + 1 : VIS_WRITER_BLOCK;
            vis_Writer_ElemAssocs(w, 2, first, n, propid);
            vis_Writer_ElemAssocs(w, 4, first, n, csysid);
            vis_Writer_ElemAssocs(w, 0, first, n, featype);
            vis_Writer_ElemAssocs(w, 12, first, n, feaspec);
            vis_Writer_ElemAssocs(w, 25, first, n, featwod);
            vis_Writer_ElemIds(w, first, n, id);
        }
        return index - first;
    }
};

bool Read(vis_NASFwt* nas, Block* block, int index, Elem* e)
{
    vis_Writer* w = &nas->w;
    e->index = index;
    vis_Writer_Topology(w, index, &e->shape, &e->maxi, &e->maxj, &e->maxk);
    vis_Writer_ElemNode(w, index, &e->n, e->node);
    if (e->n < 1) return false;
    e->first = e->node[0];
    ExpandMask(e);
    vis_Writer_NodeIds(w, e->n, e->node);
    const int b = block->At(w, index);
    e->propid = block->propid[b];
    e->csysid = block->csysid[b];
    e->featype = block->featype[b];
    e->feaspec = block->feaspec[b];
    e->featwod = block->featwod[b];
    e->id = block->id[b];
    if (e->id == 0) e->id = ++nas->elemid;
    void* prop = nullptr;
    if (nas->eprop) vsy_HashTableGet(nas->eprop, e->propid, &prop);
    e->prop = static_cast<vis_EProp*>(prop);
    return true;
}

/* The card name: the property's "Element ... name" of the element's shape, else the default. */
void Name(const Elem* e, int shape, const char* def, char* name)
{
    int flag = 0;
    name[0] = '\0';
    if (e->prop) vis_EPropValueFlag(e->prop, 66 + shape, &flag);
    if (flag) vis_EPropValueString(e->prop, 66 + shape, name);
    if (name[0] != '\0') return;
    const size_t len = strnlen(def, 15);
    std::memcpy(name, def, len);
    name[len] = '\0';
}

/* Writes one line: `lead` (the "%-8s" name or an empty field), the integers of `head`, the
 * nodes at the positions `pos` (from 1), each "%8d", and the line end. Built in one buffer:
 * a line holds at most ten fields of up to 11 characters. */
void Line(FILE* fp, const char* lead, std::initializer_list<int> head, const Elem* e, std::initializer_list<int> pos)
{
    char line[160];
    int len = 0;
    while (lead[len] != '\0' && len < 15) line[len] = lead[len], ++len;
    for (; len < 8; ++len) line[len] = ' ';
    for (int v : head) len += vsy_FieldIntText(v, 8, line + len);
    for (int p : pos) len += vsy_FieldIntText(e->node[p - 1], 8, line + len);
    line[len++] = '\n';
    vis_Writer_Put(fp, line, len);
}

/* A first line: name, id, property, the nodes at the given positions (from 1), line end. */
void Head(FILE* fp, const char* name, const Elem* e, std::initializer_list<int> pos)
{
    Line(fp, name, {e->id, e->propid}, e, pos);
}

/* A continuation line: an empty field and the nodes at the given positions, line end. */
void Cont(FILE* fp, const Elem* e, std::initializer_list<int> pos)
{
    Line(fp, "", {}, e, pos);
}

bool Fits(const Elem* e, int need)
{
    return e->n >= need && (e->maxj & 0xffff) == 0 && e->maxk == 0;
}

void Solid(FILE* fp, Elem* e)
{
    const int order = Order(e->maxi);
    const int shape = e->shape;
    if (order != 2 && order != 3) return;
    const bool quad = order == 3;
    char name[16];
    switch (shape) {
    case SYS_SHAPE_TRI:
        Name(e, shape, e->featwod == 3 ? "CTRIAX" : (quad ? "CTRIA6" : "CTRIA3"), name);
        if (!quad && Fits(e, 3)) Head(fp, name, e, {1, 2, 3});
        if (quad && Fits(e, 6)) Head(fp, name, e, {1, 2, 3, 4, 5, 6});
        break;
    case SYS_SHAPE_QUAD:
        Name(e, shape, e->featwod == 3 ? "CQUADX" : (quad ? "CQUAD8" : "CQUAD4"), name);
        if (!quad && Fits(e, 4)) Head(fp, name, e, {1, 2, 3, 4});
        if (quad && Fits(e, 8)) {
            Head(fp, name, e, {1, 2, 3, 4, 5, 6});
            Cont(fp, e, {7, 8});
        }
        break;
    case SYS_SHAPE_TET:
        Name(e, shape, "CTETRA", name);
        if (!quad && Fits(e, 4)) Head(fp, name, e, {1, 2, 3, 4});
        if (quad && Fits(e, 10)) {
            Head(fp, name, e, {1, 2, 3, 4, 5, 6});
            Cont(fp, e, {7, 8, 9, 10});
        }
        break;
    case SYS_SHAPE_WED:
        Name(e, shape, "CPENTA", name);
        if (!quad && Fits(e, 6)) Head(fp, name, e, {1, 2, 3, 4, 5, 6});
        if (quad && Fits(e, 15)) {
            Head(fp, name, e, {1, 2, 3, 4, 5, 6});
            Cont(fp, e, {7, 8, 9, 13, 14, 15, 10, 11});
            Cont(fp, e, {12});
        }
        break;
    case SYS_SHAPE_PYR:
        Name(e, shape, "CHEXA", name);
        if (!Fits(e, quad ? 13 : 5)) break;
        PyramidToHex(e, quad);
        Head(fp, name, e, {1, 2, 3, 4, 5, 6});
        if (!quad) Cont(fp, e, {7, 8});
        else {
            Cont(fp, e, {7, 8, 9, 10, 11, 12, 17, 18});
            Cont(fp, e, {19, 20, 13, 14, 15, 16});
        }
        break;
    case SYS_SHAPE_HEX:
        Name(e, shape, "CHEXA", name);
        if (!quad && Fits(e, 8)) {
            Head(fp, name, e, {1, 2, 3, 4, 5, 6});
            Cont(fp, e, {7, 8});
        }
        if (quad && Fits(e, 20)) {
            Head(fp, name, e, {1, 2, 3, 4, 5, 6});
            Cont(fp, e, {7, 8, 9, 10, 11, 12, 17, 18});
            Cont(fp, e, {19, 20, 13, 14, 15, 16});
        }
        break;
    default:
        break;
    }
}

/* Corner thicknesses of a shell: true with t[] filled when they differ from the property's. */
bool OwnThickness(vis_NASFwt* nas, const Elem* e, int ncorner, double t[4])
{
    double tp[4] = {0, 0, 0, 0};
    if (e->prop) vis_EPropValueDouble(e->prop, 7, tp);
    double tn[kMaxNode];
    for (int i = 0; i < kMaxNode; ++i) tn[i] = i < 4 ? tp[i] : 0.0;
    void* ed = nullptr;
    if (nas->elemdat) vsy_HashTableGet(nas->elemdat, VIS_ELEMDAT_THICKNESS, &ed);
    if (ed) vis_ElemDatData(static_cast<vis_ElemDat*>(ed), e->index, e->n, tn);
    bool own = false;
    for (int c = 0; c < ncorner; ++c) {
        t[c] = tn[c];
        if (std::fabs(tn[c] - tp[c]) > kThicknessTol) own = true;
    }
    return own;
}

void Shell(vis_NASFwt* nas, FILE* fp, Elem* e)
{
    const int order = Order(e->maxi);
    if (order != 2 && order != 3) return;
    const bool quad = order == 3;
    char name[16];
    double t[4];
    if (e->shape == SYS_SHAPE_TRI) {
        const bool lagrange = (e->maxj & 0xffff) != 0;
        if (e->n < (quad ? 6 : 3) || e->maxk != 0) return;
        Name(e, e->shape, quad ? "CTRIA6" : "CTRIA3", name);
        const bool own = OwnThickness(nas, e, 3, t);
        if (!quad) {
            std::fprintf(fp, "%-8s%8d%8d%8d%8d%8d%8s\n", name, e->id, e->propid, e->node[0], e->node[1],
                         e->node[2], "");
            if (own) vsy_FieldSmall(fp, 3, 3, t, 1);
            return;
        }
        if (lagrange) Head(fp, name, e, {1, 3, 6, 2, 5, 4});
        else Head(fp, name, e, {1, 2, 3, 4, 5, 6});
        if (!own) return;
        std::fprintf(fp, "        %8s", "");
        vsy_FieldSmall(fp, 1, 3, t, 1);
    } else if (e->shape == SYS_SHAPE_QUAD) {
        if (!Fits(e, quad ? 8 : 4)) return;
        Name(e, e->shape, quad ? "CQUAD8" : "CQUAD4", name);
        const bool own = OwnThickness(nas, e, 4, t);
        if (!quad) {
            std::fprintf(fp, "%-8s%8d%8d%8d%8d%8d%8d%8s\n", name, e->id, e->propid, e->node[0], e->node[1],
                         e->node[2], e->node[3], "");
            if (own) vsy_FieldSmall(fp, 3, 4, t, 1);
            return;
        }
        Head(fp, name, e, {1, 2, 3, 4, 5, 6});
        std::fprintf(fp, "        %8d%8d", e->node[6], e->node[7]);
        if (own) vsy_FieldSmall(fp, 0, 4, t, 0);
        else vsy_FieldSmall(fp, 4, 0, t, 0);
        std::fprintf(fp, "%8s\n", "");
    }
}

void Rod(FILE* fp, const Elem* e)
{
    if (e->n == 2) std::fprintf(fp, "CROD    %8d%8d%8d%8d\n", e->id, e->propid, e->node[0], e->node[1]);
}

void Mass(FILE* fp, const Elem* e)
{
    double m[3] = {0, 0, 0};
    if (e->prop) vis_EPropValueDouble(e->prop, 51, m);
    std::fprintf(fp, "CONM2   %8d%8d%8d", e->id, e->node[0], e->csysid);
    vsy_FieldSmall(fp, 0, 1, m, 1);
}

void Spring(FILE* fp, const Elem* e)
{
    if (e->feaspec == 0) {
        int d1 = 0, d2 = 0;
        if (e->prop) vis_EPropValueInteger(e->prop, 49, &d1);
        if (e->prop) vis_EPropValueInteger(e->prop, 50, &d2);
        if (e->n == 1) std::fprintf(fp, "CELAS1  %8d%8d%8d%8d\n", e->id, e->propid, e->node[0], d1);
        if (e->n == 2)
            std::fprintf(fp, "CELAS1  %8d%8d%8d%8d%8d%8d\n", e->id, e->propid, e->node[0], d1, e->node[1], d2);
    } else if (e->feaspec == 3) {
        if (e->n == 2 && e->node[0] != e->node[1])
            std::fprintf(fp, "CBUSH   %8d%8d%8d%8d\n", e->id, e->propid, e->node[0], e->node[1]);
        else
            std::fprintf(fp, "CBUSH   %8d%8d%8d\n", e->id, e->propid, e->node[0]);
    }
}

}  // namespace

void vis_NASFwt_Elems(vis_NASFwt* nas)
{
    FILE* fp = nas->w.fp;
    std::fputs("$          Elements\n", fp);
    Elem e;
    static_assert(sizeof(Block) < 16384, "block of element reads kept small for the stack");
    Block block;
    for (int i = 1; i <= nas->w.numel; ++i) {
        if (!Read(nas, &block, i, &e)) continue;
        switch (e.featype) {
        case 1: Solid(fp, &e); break;
        case 2:
        case 3: Shell(nas, fp, &e); break;
        case 4: vis_NASFwt_Beam(nas, &e); break;
        case 5: Rod(fp, &e); break;
        case 7: vis_NASFwt_Gap(nas, &e); break;
        case 10: vis_NASFwt_Rigid(nas, &e); break;
        case 14: vis_NASFwt_Interface(nas, &e); break;
        case 9: Spring(fp, &e); break;
        case 13: Mass(fp, &e); break;
        default: break;
        }
    }
}
