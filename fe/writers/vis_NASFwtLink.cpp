/* Beam, gap, rigid and interface cards of the NASTRAN deck: the elements that join nodes with
 * an orientation, a dof pattern or a surface condition.
 *
 * Orientation: a beam or gap takes the vector of its element data (kind 28, zero without), or
 * with a `csysid` above 0 the y axis of that system, and turns it into the system of its first
 * node at that node's coordinates. A system that is named but not found (or no system table)
 * leaves the element out. The local system of a line by rule is not needed by these cards and
 * is not built.
 *
 * RBE3: the weight groups (property parameter 83, 2 by default) take their weights from
 * parameter 84, 1.0 where the property gives none, and their flags from 85 and 86, 63 (all six
 * dofs) where it gives none.
 */
#include "vis_CoordSys.h"
#include "vis_EProp.h"
#include "vis_ElemDat.h"
#include "vis_Model.h"
#include "vis_NASFwtInternal.h"
#include "vsy_DofDigits.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"

namespace {

using Elem = vis_NASFwt_Elem;

/* Largest number of weight groups of an RBE3 read from its property. */
constexpr int kMaxGroups = 64;

vis_CoordSys* System(vis_NASFwt* nas, int id)
{
    void* cs = nullptr;
    if (nas->coordsys) vsy_HashTableGet(nas->coordsys, id, &cs);
    return static_cast<vis_CoordSys*>(cs);
}

/* Components of v in the system `id` at point x; false when the system is missing. */
bool IntoSystem(vis_NASFwt* nas, int id, const double x[3], double v[3])
{
    if (id == 0) return true;
    vis_CoordSys* cs = System(nas, id);
    if (!cs) return false;
    double t[9];
    vis_CoordSysTriad(cs, x, t);
    const double u[3] = {v[0], v[1], v[2]};
    for (int r = 0; r < 3; ++r) v[r] = t[3 * r] * u[0] + t[3 * r + 1] * u[1] + t[3 * r + 2] * u[2];
    return true;
}

void ElemData(vis_NASFwt* nas, int kind, int elem, int n, double* v)
{
    for (int i = 0; i < n; ++i) v[i] = 0.0;
    void* ed = nullptr;
    if (nas->elemdat) vsy_HashTableGet(nas->elemdat, kind, &ed);
    if (ed) vis_ElemDatData(static_cast<vis_ElemDat*>(ed), elem, n, v);
}

/* The orientation vector of a beam or gap: false when a system it needs is missing. */
bool Orientation(vis_NASFwt* nas, const Elem* e, int cid, double v[3])
{
    const int nodecs = vis_Writer_NodeAssoc(&nas->w, 4, e->first);
    ElemData(nas, VIS_ELEMDAT_ORIENTATION, e->index, 3, v);
    if (cid > 0) {
        vis_CoordSys* cs = System(nas, cid);
        if (!cs) return false;
        for (int i = 0; i < 3; ++i) v[i] = cs->triad[3 + i];
    }
    double x[3];
    vis_Writer_Coords(&nas->w, e->first, x);
    return IntoSystem(nas, nodecs, x, v);
}

/* The second beam line: releases, then the first end's offsets twice. */
void BeamSecondLine(vis_NASFwt* nas, const Elem* e)
{
    FILE* fp = nas->w.fp;
    double off[6];
    ElemData(nas, VIS_ELEMDAT_OFFSETS, e->index, 6, off);
    bool offsets = false;
    for (double o : off) offsets = offsets || o != 0.0;
    const int release = vis_Writer_ElemAssoc(&nas->w, 41, e->index);
    if (!offsets && release == 0) return;
    std::fputs("        ", fp);
    if (release != 0) {
        int pa = 0, pb = 0;
        vsy_DofDigits(6, release & 63, &pa);
        vsy_DofDigits(6, (release >> 6) & 63, &pb);
        std::fprintf(fp, "%8d%8d", pa, pb);
    } else {
        std::fprintf(fp, "%8s%8s", "", "");
    }
    if (!offsets) {
        std::fputc('\n', fp);
        return;
    }
    double x[3];
    vis_Writer_Coords(&nas->w, e->first, x);
    IntoSystem(nas, vis_Writer_NodeAssoc(&nas->w, 4, e->first), x, off);
    /* The first end's offsets stand for both ends, and an empty line follows. */
    vsy_FieldSmall(fp, 0, 3, off, 0);
    vsy_FieldSmall(fp, 0, 3, off, 1);
    std::fputc('\n', fp);
}

/* Dof flags of a rigid element from property parameter `code` at `pos`, 63 by default. */
int Flags(const Elem* e, int code, int pos, int ngroup)
{
    int flags[kMaxGroups];
    for (int& f : flags) f = 63;
    if (e->prop && ngroup <= kMaxGroups && pos < ngroup) vis_EPropValueInteger(e->prop, code, flags);
    return pos < kMaxGroups ? flags[pos] : 63;
}

int Digits(int flags)
{
    int d = 0;
    vsy_DofDigits(6, flags, &d);
    return d;
}

/* Rigid element fields: eight a line, wrapping to a line that starts with an empty field. */
struct Row {
    FILE* fp;
    int pos;
    void Next()
    {
        if (pos > 8) {
            std::fputs("\n        ", fp);
            pos = 1;
        }
        ++pos;
    }
    void Int(int v)
    {
        Next();
        std::fprintf(fp, "%8d", v);
    }
    void Real(double v)
    {
        Next();
        vsy_FieldSmall(fp, 0, 1, &v, 0);
    }
};

void Rbe2(FILE* fp, const Elem* e)
{
    int ngroup = 2;
    if (e->prop) vis_EPropValueInteger(e->prop, 83, &ngroup);
    std::fprintf(fp, "RBE2    %8d%8d%8d", e->id, e->node[0], Digits(Flags(e, 86, 1, ngroup)));
    Row row{fp, 4};
    for (int i = 1; i < e->n; ++i) row.Int(e->node[i]);
    if (e->n > 1) std::fputc('\n', fp);
}

void Rbe3(FILE* fp, const Elem* e)
{
    int ngroup = 2;
    if (e->prop) vis_EPropValueInteger(e->prop, 83, &ngroup);
    double weights[kMaxGroups];
    for (double& w : weights) w = 1.0;
    if (e->prop && ngroup <= kMaxGroups) vis_EPropValueDouble(e->prop, 84, weights);
    std::fprintf(fp, "RBE3    %8d        %8d%8d", e->id, e->node[0], Digits(Flags(e, 86, 0, ngroup)));
    Row row{fp, 5};
    int group = 1;
    for (int i = 1; i < e->n; ++i) {
        if (group < ngroup) {
            row.Real(group < kMaxGroups ? weights[group] : 1.0);
            row.Int(Digits(Flags(e, 85, group, ngroup)));
            ++group;
        }
        row.Int(e->node[i]);
    }
    if (e->n > 1) std::fputc('\n', fp);
}

/* Nodes of an interface element's face or edge: the plane form or line itself. */
int FaceNodes(const Elem* e)
{
    const int order = e->maxi == 0 ? 2 : e->maxi;
    switch (e->shape) {
    case SYS_SHAPE_LINE: return 2;
    case SYS_SHAPE_TRI: return order == 3 ? 6 : (order == 2 ? 3 : 0);
    case SYS_SHAPE_QUAD: return order == 3 ? 8 : (order == 2 ? 4 : 0);
    default: return 0;
    }
}

}  // namespace

void vis_NASFwt_Beam(vis_NASFwt* nas, const vis_NASFwt_Elem* e)
{
    double v[3];
    if (e->n != 2 || !Orientation(nas, e, e->csysid, v)) return;
    std::fprintf(nas->w.fp, "CBEAM   %8d%8d%8d%8d", e->id, e->propid, e->node[0], e->node[1]);
    vsy_FieldSmall(nas->w.fp, 0, 3, v, 1);
    BeamSecondLine(nas, e);
}

void vis_NASFwt_Gap(vis_NASFwt* nas, const vis_NASFwt_Elem* e)
{
    if (e->n != 2) return;
    FILE* fp = nas->w.fp;
    if (e->csysid >= 1) {
        std::fprintf(fp, "CGAP    %8d%8d%8d%8d%8.4f%8.4f%8.4f%8d\n", e->id, e->propid, e->node[0], e->node[1], 0.0,
                     0.0, 0.0, e->csysid);
        return;
    }
    double v[3];
    if (!Orientation(nas, e, 0, v)) return;
    std::fprintf(fp, "CGAP    %8d%8d%8d%8d%8.4f%8.4f%8.4f\n", e->id, e->propid, e->node[0], e->node[1], v[0], v[1],
                 v[2]);
}

void vis_NASFwt_Rigid(vis_NASFwt* nas, const vis_NASFwt_Elem* e)
{
    if (e->feaspec == 0) Rbe2(nas->w.fp, e);
    else if (e->feaspec == 1 || e->feaspec == 4) Rbe3(nas->w.fp, e);
}

void vis_NASFwt_Interface(vis_NASFwt* nas, const vis_NASFwt_Elem* e)
{
    if (e->feaspec != 6 && e->feaspec != 37) return;
    const int k = FaceNodes(e);
    if (k == 0 || e->n < k) return;
    static const char* const kArea[9] = {nullptr, nullptr, "REV", "AREA3", "AREA4", nullptr, "AREA6", nullptr, "AREA8"};
    FILE* fp = nas->w.fp;
    std::fprintf(fp, "CHBDYG  %8d        %8s\n        ", e->id, kArea[k]);
    for (int i = 0; i < k; ++i) std::fprintf(fp, "%8d", e->node[i]);
    std::fputc('\n', fp);
    if (e->prop) std::fprintf(fp, "CONV    %8d%8d                %8d\n", e->id, e->propid, e->n > k ? e->node[k] : 0);
}
