/* vis_ElemForm: which node layout a topology tuple describes, and the removal of the interior
 * nodes of masked edges. Internal to fe/elem: the topology lists, the shape functions and the
 * natural coordinates all classify a tuple and apply its mask here, so the three agree.
 *
 * Layouts (i = maxi or 2, j = low half of maxj, k = maxk; see vis_ElemTopology.h):
 *
 *   POINT    a point of maxi (or 1) nodes.
 *   SER      corners, then i - 2 interior nodes per edge in edge order. A line of j 0 is one:
 *            its two ends, then its interior nodes from the first end to the second.
 *   SERAPEX  a serendipity base (triangle or quadrilateral), then the apex.
 *   LAYER    a serendipity base repeated k times, one layer after the other.
 *   LAG      a lattice in lexical order, first index fastest: a line of j not 0, Lagrange
 *            triangles, quadrilaterals, tetrahedra, pyramids, wedges and hexahedra.
 *   LAGAPEX  a lattice base (line, triangle or quadrilateral), then the apex.
 *   POLYGON, POLYHED  the node list as given.
 *
 * The mask works on the unmasked layout: the interior positions of every masked edge (its
 * list from vis_ElemEdgeNodes with the mask clear) are removed and the positions after them
 * close up. Nothing here allocates.
 */
#ifndef VIS_ELEMFORM_H
#define VIS_ELEMFORM_H

enum {
    VIS_ELEMFORM_NONE,
    VIS_ELEMFORM_POINT,
    VIS_ELEMFORM_SER,
    VIS_ELEMFORM_SERAPEX,
    VIS_ELEMFORM_LAYER,
    VIS_ELEMFORM_LAG,
    VIS_ELEMFORM_LAGAPEX,
    VIS_ELEMFORM_POLYGON,
    VIS_ELEMFORM_POLYHED
};

typedef struct vis_ElemForm {
    int shape;
    int form;      /* VIS_ELEMFORM_... */
    int i;         /* nodes along the first direction (the edges of serendipity forms) */
    int k;         /* layers of a layered form */
    int n[3];      /* lattice extents of a lattice form or lattice base */
    int mask;      /* bit e: edge e has no interior nodes */
    int baseshape; /* shape of the base of apex and layered forms, else -1 */
    int nbase;     /* nodes of the base: the apex position, or the nodes of one layer */
    int nraw;      /* nodes before the mask is applied */
    int maxi;      /* the tuple as given */
    int maxj;
    int maxk;
} vis_ElemForm;

/* Fills f from a tuple; returns 0, with f->form VIS_ELEMFORM_NONE and f->nraw 0, when the tuple
 * is no element. */
int vis_ElemForm_Parse(int shape, int maxi, int maxj, int maxk, vis_ElemForm* f);

/* Node counts of the layouts: serendipity form of fixed shape with i nodes per edge, triangle,
 * tetrahedron and square pyramid lattices with n nodes along an edge. */
int vis_ElemForm_SerNum(int shape, int i);
int vis_ElemForm_TriNum(int n);
int vis_ElemForm_TetNum(int n);
int vis_ElemForm_SquareNum(int n);

/* Sets removed[p] (p below f->nraw) to 1 for each position the mask removes, else 0; returns
 * how many were removed. */
int vis_ElemForm_Removed(const vis_ElemForm* f, char* removed);

/* Node count with the mask applied. */
int vis_ElemForm_Count(const vis_ElemForm* f);

/* Drops the removed positions from a list of unmasked positions and renumbers the rest; returns
 * the new length. */
int vis_ElemForm_Compact(const vis_ElemForm* f, int* pos, int m);

/* Closes up a per-node array of nraw records of stride values over the removed nodes; returns
 * the number of records kept. */
template <class T>
int vis_ElemForm_Squeeze(const char* removed, int nraw, int stride, T* data)
{
    int out = 0;
    for (int p = 0; p < nraw; p++) {
        if (removed[p]) continue;
        for (int c = 0; c < stride; c++) data[stride * out + c] = data[stride * p + c];
        out++;
    }
    return out;
}

#endif
