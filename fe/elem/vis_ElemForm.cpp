/* vis_ElemForm: classification of topology tuples and the mask; see vis_ElemForm.h. */
#include "vis_ElemForm.h"

#include "vis_ElemTables.h"
#include "vis_ElemTopology.h"

static const vis_ElemShapeDef* Def(int shape)
{
    return &vis_ElemShapeDefs[shape];
}

static int SideOk(int n)
{
    return n >= 2 && n <= VIS_ELEM_MAXSIDE;
}

int vis_ElemForm_TriNum(int n)
{
    return n * (n + 1) / 2;
}

int vis_ElemForm_TetNum(int n)
{
    return n * (n + 1) * (n + 2) / 6;
}

int vis_ElemForm_SquareNum(int n)
{
    return n * (n + 1) * (2 * n + 1) / 6;
}

int vis_ElemForm_SerNum(int shape, int i)
{
    return Def(shape)->numcorner + Def(shape)->numedge * (i - 2);
}

/* The base of an apex or layered form: the element that the first nodes of the list make up. */
static int BaseShape(int shape)
{
    switch (shape) {
    case SYS_SHAPE_TRI: return SYS_SHAPE_LINE;
    case SYS_SHAPE_TET:
    case SYS_SHAPE_WED: return SYS_SHAPE_TRI;
    case SYS_SHAPE_PYR:
    case SYS_SHAPE_HEX: return SYS_SHAPE_QUAD;
    default: return -1;
    }
}

static int Form_Set(vis_ElemForm* f, int form, int n0, int n1, int n2, int nraw)
{
    f->form = form;
    f->n[0] = n0;
    f->n[1] = n1;
    f->n[2] = n2;
    f->nraw = nraw;
    return 1;
}

static int Form_Ser(vis_ElemForm* f, int i)
{
    return Form_Set(f, VIS_ELEMFORM_SER, i, 1, 1, vis_ElemForm_SerNum(f->shape, i));
}

static int Form_Base(vis_ElemForm* f, int form, int n0, int n1, int nbase, int nraw)
{
    f->baseshape = BaseShape(f->shape);
    f->nbase = nbase;
    return Form_Set(f, form, n0, n1, 1, nraw);
}

static int Form_Tri(vis_ElemForm* f, int i, int j)
{
    if (j == 0) return Form_Ser(f, i);
    if (j == i) return Form_Set(f, VIS_ELEMFORM_LAG, i, i, 1, vis_ElemForm_TriNum(i));
    return Form_Base(f, VIS_ELEMFORM_LAGAPEX, i, 1, i, i + 1);
}

static int Form_Quad(vis_ElemForm* f, int i, int j)
{
    if (j == 0) return Form_Ser(f, i);
    if (!SideOk(j)) return 0;
    return Form_Set(f, VIS_ELEMFORM_LAG, i, j, 1, i * j);
}

/* Tetrahedron and pyramid: serendipity, base plus apex, or a full lattice. */
static int Form_Apex(vis_ElemForm* f, int i, int j, int k)
{
    int pyr = f->shape == SYS_SHAPE_PYR;
    if (j == 0 && k == 0) return Form_Ser(f, i);
    if (j == 0) {
        int nb = vis_ElemForm_SerNum(BaseShape(f->shape), i);
        return Form_Base(f, VIS_ELEMFORM_SERAPEX, i, 1, nb, nb + 1);
    }
    if (j == k)
        return Form_Set(f, VIS_ELEMFORM_LAG, i, i, i,
                        pyr ? vis_ElemForm_SquareNum(i) : vis_ElemForm_TetNum(i));
    int tri = vis_ElemForm_TriNum(i);
    if (!pyr) return Form_Base(f, VIS_ELEMFORM_LAGAPEX, i, i, tri, tri + 1);
    if (!SideOk(j)) return 0;
    return Form_Base(f, VIS_ELEMFORM_LAGAPEX, i, j, i * j, i * j + 1);
}

/* Wedge and hexahedron: serendipity, layered serendipity base, or a full lattice. */
static int Form_Prism(vis_ElemForm* f, int i, int j, int k)
{
    if (j == 0 && k == 0) return Form_Ser(f, i);
    if (!SideOk(k)) return 0;
    f->k = k;
    if (j == 0) {
        int nb = vis_ElemForm_SerNum(BaseShape(f->shape), i);
        Form_Base(f, VIS_ELEMFORM_LAYER, i, 1, nb, nb * k);
        f->n[2] = k;
        return 1;
    }
    if (f->shape == SYS_SHAPE_WED)
        return Form_Set(f, VIS_ELEMFORM_LAG, i, i, k, vis_ElemForm_TriNum(i) * k);
    if (!SideOk(j)) return 0;
    return Form_Set(f, VIS_ELEMFORM_LAG, i, j, k, i * j * k);
}

static int Form_Fixed(vis_ElemForm* f, int maxi, int maxj, int maxk)
{
    int i = maxi ? maxi : 2;
    int j = maxj & 0xffff;
    if (!SideOk(i)) return 0;
    f->i = i;
    f->mask = (int)(((unsigned)maxj >> 16) & ((1u << Def(f->shape)->numedge) - 1u));
    switch (f->shape) {
    case SYS_SHAPE_LINE:
        return j == 0 ? Form_Ser(f, i) : Form_Set(f, VIS_ELEMFORM_LAG, i, 1, 1, i);
    case SYS_SHAPE_TRI: return Form_Tri(f, i, j);
    case SYS_SHAPE_QUAD: return Form_Quad(f, i, j);
    case SYS_SHAPE_TET:
    case SYS_SHAPE_PYR: return Form_Apex(f, i, j, maxk);
    default: return Form_Prism(f, i, j, maxk);
    }
}

/* Points, polygons and polyhedra: the list as given. */
static int Form_Free(vis_ElemForm* f, int maxi)
{
    if (maxi < 0) return 0;
    int form = f->shape == SYS_SHAPE_POINT     ? VIS_ELEMFORM_POINT
               : f->shape == SYS_SHAPE_POLYGON ? VIS_ELEMFORM_POLYGON
                                               : VIS_ELEMFORM_POLYHED;
    return Form_Set(f, form, 1, 1, 1, f->shape == SYS_SHAPE_POINT && maxi == 0 ? 1 : maxi);
}

int vis_ElemForm_Parse(int shape, int maxi, int maxj, int maxk, vis_ElemForm* f)
{
    f->shape = shape;
    f->form = VIS_ELEMFORM_NONE;
    f->i = f->k = 0;
    f->n[0] = f->n[1] = f->n[2] = 1;
    f->mask = 0;
    f->baseshape = -1;
    f->nbase = f->nraw = 0;
    f->maxi = maxi;
    f->maxj = maxj;
    f->maxk = maxk;
    int ok = 0;
    if (shape == SYS_SHAPE_POINT || shape == SYS_SHAPE_POLYGON || shape == SYS_SHAPE_POLYHED)
        ok = Form_Free(f, maxi);
    else if (shape >= SYS_SHAPE_LINE && shape <= SYS_SHAPE_HEX)
        ok = Form_Fixed(f, maxi, maxj, maxk);
    if (ok) return 1;
    f->form = VIS_ELEMFORM_NONE;
    f->nraw = 0;
    return 0;
}

/* ------------------------------------------------------------------------ mask ---- */

int vis_ElemForm_Removed(const vis_ElemForm* f, char* removed)
{
    int nrem = 0;
    for (int p = 0; p < f->nraw; p++) removed[p] = 0;
    if (f->mask == 0) return 0;
    int clear = f->maxj & 0xffff;
    for (int e = 0; f->mask >> e; e++) {
        if (!((f->mask >> e) & 1)) continue;
        int pos[VIS_ELEM_MAXSIDE], m = 0;
        vis_ElemEdgeNodes(f->shape, f->maxi, clear, f->maxk, e, &m, pos);
        for (int t = 1; t < m - 1; t++) {
            nrem += !removed[pos[t]];
            removed[pos[t]] = 1;
        }
    }
    return nrem;
}

int vis_ElemForm_Count(const vis_ElemForm* f)
{
    char removed[VIS_ELEM_MAXNODE];
    if (f->mask == 0) return f->nraw;
    return f->nraw - vis_ElemForm_Removed(f, removed);
}

int vis_ElemForm_Compact(const vis_ElemForm* f, int* pos, int m)
{
    char removed[VIS_ELEM_MAXNODE];
    int newpos[VIS_ELEM_MAXNODE];
    if (f->mask == 0 || vis_ElemForm_Removed(f, removed) == 0) return m;
    for (int p = 0, q = 0; p < f->nraw; p++) newpos[p] = removed[p] ? -1 : q++;
    int out = 0;
    for (int t = 0; t < m; t++)
        if (newpos[pos[t]] >= 0) pos[out++] = newpos[pos[t]];
    return out;
}
