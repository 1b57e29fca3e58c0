/* Restraints and segment loads of the first step of the keyword deck. */
#include "vis_D3DFwtInternal.h"
#include "vis_ElemTopology.h"
#include "vis_LCase.h"
#include "vis_RCase.h"
#include "vis_SProp.h"
#include "vis_WriterLine.h"
#include "vis_WriterTable.h"

#include <vector>

namespace {

/* The flags of dofs 1 to 6 held at zero: a tag of type 1, or one whose value is 0.0. */
int Flags(vis_RCase* rc, int index, int flags[6])
{
    int n = 0, tags[32], any = 0;
    for (int k = 0; k < 6; ++k) flags[k] = 0;
    vis_RCaseSPCTag(rc, index, &n, tags);
    for (int k = 0; k < n && k < 32; ++k) {
        int type = 0;
        double value = 0.0;
        vis_RCaseSPCdv(rc, index, tags[k], &type, &value);
        if (tags[k] >= 1 && tags[k] <= 6 && (type == 1 || value == 0.0)) flags[tags[k] - 1] = any = 1;
    }
    return any;
}

/* The shared curve of the segment loads, defined at its first use. */
void Curve(vis_D3DFwt* d3d)
{
    if (d3d->segcurve) return;
    d3d->segcurve = ++d3d->curve;
    std::fprintf(d3d->w.fp, "*DEFINE_CURVE\n%10d%10d%10f%10f%10f%10f\n", d3d->segcurve, 0, 1.0, 1.0, 0.0, 1.0);
}

/* One segment: curve, pressure of the face's first corner, 0.0 and four corner node ids, a
 * face of three corners repeating its last. */
void Segment(vis_D3DFwt* d3d, vis_LCase* lc, int index, int no)
{
    vis_Writer* w = &d3d->w;
    double p[4] = {0.0, 0.0, 0.0, 0.0};
    vis_LCaseDistdv(lc, SYS_FACE, index, no, 2, p);
    int shape = 0, maxi = 0, maxj = 0, maxk = 0, num = 0, pos[VIS_ELEM_MAXFACENODE];
    int nodes[VIS_ELEM_MAXNODE], n = 0;
    vis_Writer_Topology(w, index, &shape, &maxi, &maxj, &maxk);
    vis_Writer_ElemNode(w, index, &n, nodes);
    vis_ElemFaceCorners(shape, maxi, maxj, maxk, no - 1, &num, pos);
    if (num < 1 || num > 4) return;
    int corner[4];
    for (int c = 0; c < 4; ++c) {
        const int at = pos[c < num ? c : num - 1];
        corner[c] = at >= 0 && at < n ? nodes[at] : 0;
    }
    vis_Writer_NodeIds(w, 4, corner);
    vis_WriterLine line;
    line.Int(d3d->segcurve, 10);
    line.Real(p[0], 10);
    char zero[16];
    std::snprintf(zero, sizeof zero, "%10f", 0.0);
    line.Text(zero);
    for (int c = 0; c < 4; ++c) line.Int(corner[c], 10);
    line.End(w->fp);
}

void Segments(vis_D3DFwt* d3d, vis_LCase* lc)
{
    int max = 0;
    vis_LCaseDistMax(lc, SYS_FACE, 2, &max);
    if (max < 1) return;
    Curve(d3d);
    std::fputs("*LOAD_SEGMENT\n", d3d->w.fp);
    for (int index = 1; index <= max && index <= d3d->w.numel; ++index) {
        int flags = 0;
        vis_LCaseDistFlag(lc, SYS_FACE, index, 2, &flags);
        if (!flags || vis_Writer_ElemAssoc(&d3d->w, 0, index) == 0) continue;
        for (int no = 1; no <= 6; ++no)
            if (flags >> (no - 1) & 1) Segment(d3d, lc, index, no);
    }
}

}  // namespace

void vis_D3DFwt_Restraints(vis_D3DFwt* d3d, vis_SProp* step)
{
    vis_Writer* w = &d3d->w;
    std::fputs("$***       Restraints\n", w->fp);
    int id = 0, max = 0, head = 0;
    vis_SPropValueInteger(step, 8, &id);
    auto* rc = static_cast<vis_RCase*>(vis_Writer_Find(d3d->rcase, id));
    if (!rc) return;
    vis_RCaseSPCMax(rc, &max);
    for (int index = 1; index <= max && index <= w->numnp; ++index) {
        int flags[6];
        if (vis_Writer_NodeAssoc(w, 0, index) == 0 || !Flags(rc, index, flags)) continue;
        if (!head++) std::fputs("*BOUNDARY_SPC_NODE\n", w->fp);
        vis_WriterLine line;
        line.Int(vis_Writer_NodeId(w, index), 10);
        line.Int(0, 10);
        for (int f : flags) line.Int(f, 10);
        line.End(w->fp);
    }
}

void vis_D3DFwt_Loads(vis_D3DFwt* d3d, vis_SProp* step)
{
    int ncase = 0;
    vis_SPropValueInteger(step, 2, &ncase);
    if (ncase < 1) return;
    std::vector<int> ids(static_cast<size_t>(ncase), 0);
    vis_SPropValueInteger(step, 3, ids.data());
    if (ids[0] == 0) return;
    std::fputs("$***       Loads\n", d3d->w.fp);
    auto* lc = static_cast<vis_LCase*>(vis_Writer_Find(d3d->lcase, ids[0]));
    if (!lc) return;
    /* Forces, moments and (for a structural run) temperatures have no card in this deck: the
     * segment load is the only one written. */
    Segments(d3d, lc);
}
