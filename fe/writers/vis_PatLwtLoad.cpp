/* Load packets of the neutral file, each over the load cases in ascending id: pressures (6),
 * forces and moments (7), temperatures (10), heat sources (15), heat fluxes (16) and
 * convection (17). */
#include "vis_ElemTopology.h"
#include "vis_LCase.h"
#include "vis_PatLwtInternal.h"
#include "vis_WriterLine.h"
#include "vis_WriterTable.h"

#include <algorithm>

namespace {

/* The corners of face or edge `no` (from 1) of an element: their positions in the element's
 * list, ascending, with the index into the load's per-corner values beside each. */
struct Corners {
    int num = 0;
    int pos[VIS_ELEM_MAXFACENODE], value[VIS_ELEM_MAXFACENODE];
    int dim = 0;
    /* The node flags of the first eight positions, as text. */
    void Flags(vis_WriterLine* line) const
    {
        for (int p = 0; p < 8; ++p) line->Char(std::find(pos, pos + num, p) != pos + num ? '1' : '0');
    }
};

Corners CornersOf(vis_Writer* w, int index, int entity, int no)
{
    Corners c;
    int shape = 0, maxi = 0, maxj = 0, maxk = 0, raw[VIS_ELEM_MAXFACENODE];
    vis_Writer_Topology(w, index, &shape, &maxi, &maxj, &maxk);
    vis_ElemDim(shape, &c.dim);
    if (entity == SYS_FACE) vis_ElemFaceCorners(shape, maxi, maxj, maxk, no - 1, &c.num, raw);
    else vis_ElemEdgeCorners(shape, maxi, maxj, maxk, no - 1, &c.num, raw);
    if (c.num > 4) c.num = 0;
    /* Insertion by position: at most four corners. */
    for (int i = 0; i < c.num; ++i) {
        int at = i;
        for (; at > 0 && c.pos[at - 1] > raw[i]; --at) c.pos[at] = c.pos[at - 1], c.value[at] = c.value[at - 1];
        c.pos[at] = raw[i];
        c.value[at] = i;
    }
    return c;
}

/* Calls f(case id, case) for each load case. */
template <class F>
void Cases(vis_PatLwt* pat, F f)
{
    vis_Writer_Ordered(pat->lcase, [&f](int key, void* value) { f(key, static_cast<vis_LCase*>(value)); });
}

/* Calls f(index, no) for every face or edge of a distributed load of one type on elements of
 * a feature. */
template <class F>
void Loaded(vis_PatLwt* pat, vis_LCase* lc, int entity, int type, F f)
{
    int max = 0;
    vis_LCaseDistMax(lc, entity, type, &max);
    for (int index = 1; index <= max && index <= pat->w.numel; ++index) {
        int flags = 0;
        vis_LCaseDistFlag(lc, entity, index, type, &flags);
        if (!flags || vis_Writer_ElemAssoc(&pat->w, 0, index) == 0) continue;
        for (int no = 1; no <= 12; ++no)
            if (flags >> (no - 1) & 1) f(index, no);
    }
}

/* A pressure on a face: its corner values in the order of their positions. */
void FacePressure(vis_PatLwt* pat, vis_LCase* lc, int id, int index, int no)
{
    const Corners c = CornersOf(&pat->w, index, SYS_FACE, no);
    if (c.num < 1) return;
    double v[4] = {0, 0, 0, 0}, m[4];
    vis_LCaseDistdv(lc, SYS_FACE, index, no, 2, v);
    for (int i = 0; i < c.num; ++i) m[i] = v[c.value[i]];
    FILE* fp = pat->w.fp;
    vis_PatLwt_Header(fp, 6, vis_Writer_ElemId(&pat->w, index), id, vis_PatLwt_Cards(c.num) + 1);
    vis_WriterLine line;
    line.Text(c.dim == 3 ? "101100000" : "101001000");
    c.Flags(&line);
    line.Text(" 0");
    line.End(fp);
    vis_PatLwt_Reals(fp, c.num, m);
}

/* A pressure on an edge: the mean of its two values. */
void EdgePressure(vis_PatLwt* pat, vis_LCase* lc, int id, int index, int no)
{
    const Corners c = CornersOf(&pat->w, index, SYS_EDGE, no);
    if (c.num != 2) return;
    double v[4] = {0, 0, 0, 0};
    vis_LCaseDistdv(lc, SYS_EDGE, index, no, 2, v);
    const double mean = (v[0] + v[1]) / 2.0;
    FILE* fp = pat->w.fp;
    vis_PatLwt_Header(fp, 6, vis_Writer_ElemId(&pat->w, index), id, 2);
    vis_WriterLine line;
    line.Text("010100000");
    c.Flags(&line);
    line.Text(" 0");
    line.End(fp);
    vis_PatLwt_Reals(fp, 1, &mean);
}

/* Forces then moments of a node, the non-zero components only. */
void Force(vis_PatLwt* pat, vis_LCase* lc, int id, int index)
{
    double v[6] = {0, 0, 0, 0, 0, 0}, m[6];
    vis_LCaseConcdv(lc, index, 1, v);
    vis_LCaseConcdv(lc, index, 2, v + 3);
    int n = 0;
    vis_WriterLine line;
    line.Int(0, 8);
    for (double x : v) {
        line.Char(x != 0.0 ? '1' : '0');
        if (x != 0.0) m[n++] = x;
    }
    if (n == 0) return;
    FILE* fp = pat->w.fp;
    vis_PatLwt_Header(fp, 7, vis_Writer_NodeId(&pat->w, index), id, vis_PatLwt_Cards(n) + 1);
    line.End(fp);
    vis_PatLwt_Reals(fp, n, m);
}

/* A packet `packet` of one value for every node of `featype` not 0 holding a concentrated
 * scalar load of `type` (3 heat, 4 temperature), case by case. */
void Scalars(vis_PatLwt* pat, int type, int packet)
{
    Cases(pat, [pat, type, packet](int id, vis_LCase* lc) {
        int max = 0;
        vis_LCaseConcMax(lc, type, &max);
        for (int index = 1; index <= max && index <= pat->w.numnp; ++index) {
            int flag = 0;
            double v = 0.0;
            vis_LCaseConcFlag(lc, index, type, &flag);
            if (!flag || vis_Writer_NodeAssoc(&pat->w, 0, index) == 0) continue;
            vis_LCaseConcdv(lc, index, type, &v);
            vis_PatLwt_NodeValue(pat, packet, index, id, 0, v);
        }
    });
}

/* A heat flux (type 5) or convection (6) on a face or edge: the values of every corner. */
void HeatFace(vis_PatLwt* pat, vis_LCase* lc, int id, int entity, int type, int index, int no)
{
    const Corners c = CornersOf(&pat->w, index, entity, no);
    if (c.num < 1 || (entity == SYS_EDGE && c.dim != 2) || c.dim < 2) return;
    const int width = type == 6 ? 2 : 1;
    double v[8] = {0, 0, 0, 0, 0, 0, 0, 0}, m[8];
    vis_LCaseDistdv(lc, entity, index, no, type, v);
    int n = 0;
    for (int i = 0; i < c.num; ++i)
        for (int k = 0; k < width; ++k) m[n++] = v[c.value[i] * width + k];
    FILE* fp = pat->w.fp;
    vis_PatLwt_Header(fp, type == 5 ? 16 : 17, vis_Writer_ElemId(&pat->w, index), id, vis_PatLwt_Cards(n) + 1, 1, 0, 2);
    vis_WriterLine line;
    line.Text("1 ");
    c.Flags(&line);
    line.End(fp);
    vis_PatLwt_Reals(fp, n, m);
}

}  // namespace

void vis_PatLwt_Pressures(vis_PatLwt* pat)
{
    Cases(pat, [pat](int id, vis_LCase* lc) {
        Loaded(pat, lc, SYS_FACE, 2, [&](int index, int no) { FacePressure(pat, lc, id, index, no); });
        Loaded(pat, lc, SYS_EDGE, 2, [&](int index, int no) { EdgePressure(pat, lc, id, index, no); });
    });
    Cases(pat, [pat](int id, vis_LCase* lc) {
        int max = 0, max2 = 0;
        vis_LCaseConcMax(lc, 1, &max);
        vis_LCaseConcMax(lc, 2, &max2);
        for (int index = 1; index <= std::max(max, max2) && index <= pat->w.numnp; ++index) {
            int flag = 0;
            vis_LCaseConcFlag(lc, index, VIS_LCASE_FORCEMOMENT, &flag);
            if (flag && vis_Writer_NodeAssoc(&pat->w, 0, index) != 0) Force(pat, lc, id, index);
        }
    });
}

void vis_PatLwt_Temperatures(vis_PatLwt* pat)
{
    Scalars(pat, 4, 10);
}

void vis_PatLwt_Heat(vis_PatLwt* pat)
{
    Scalars(pat, 3, 15);
    for (int type : {5, 6})
        Cases(pat, [pat, type](int id, vis_LCase* lc) {
            for (int entity : {SYS_EDGE, SYS_FACE})
                Loaded(pat, lc, entity, type, [&](int index, int no) { HeatFace(pat, lc, id, entity, type, index, no); });
        });
}
