/* vis_ElemTopology: node counts and node lists of corners, edges and faces, computed from the
 * topology tuple alone.
 *
 * Every query first classifies the tuple (vis_ElemForm_Parse): which node layout it is, the
 * node counts along its directions, and its edge mask. The lists are then built for the
 * unmasked layout and renumbered by vis_ElemForm_Compact: the interior nodes of masked edges
 * are dropped and the positions after them close up. The layouts are described in
 * vis_ElemForm.h; lattice positions in Lat_Pos.
 *
 * The corner numbers, edges and faces of the shapes are the tables of vis_ElemTables.cpp.
 */
#include "vis_ElemTopology.h"

#include "vis_ElemForm.h"
#include "vis_ElemTables.h"

/* How the nodes of a face are found. */
enum {
    FACE_NONE,   /* no such face */
    FACE_SELF,   /* the face of a polygon: its whole list */
    FACE_RUNS,   /* corners, then the interior runs of the face's edges */
    FACE_TRILAT, /* as FACE_RUNS, then the interior of a triangular lattice */
    FACE_QUADTEN /* as FACE_RUNS, then the interior of a tensor grid of two edges */
};

/* ---------------------------------------------------------------- counting helpers ---- */

static const vis_ElemShapeDef* Def(int shape)
{
    return &vis_ElemShapeDefs[shape];
}

/* First position of row r of a triangular lattice with n nodes in row 0. */
static int TriRow(int n, int r)
{
    return r * (2 * n - r + 1) / 2;
}

static int IsFixed(int shape)
{
    return shape >= SYS_SHAPE_POINT && shape <= SYS_SHAPE_HEX;
}

/* ------------------------------------------------------------------- lattice forms ---- */

/* Position of lattice point L in the lexical order of a lattice of shape lshape with extents n.
 * Triangles shrink row by row, tetrahedra and pyramids also layer by layer; a pyramid layer l is
 * a square of side n - l. */
static int Lat_Pos(int lshape, const int n[3], const int L[3])
{
    int m = n[0];
    switch (lshape) {
    case SYS_SHAPE_LINE: return L[0];
    case SYS_SHAPE_TRI: return TriRow(m, L[1]) + L[0];
    case SYS_SHAPE_QUAD: return L[0] + L[1] * n[0];
    case SYS_SHAPE_TET:
        return vis_ElemForm_TetNum(m) - vis_ElemForm_TetNum(m - L[2]) + TriRow(m - L[2], L[1]) +
               L[0];
    case SYS_SHAPE_PYR:
        return vis_ElemForm_SquareNum(m) - vis_ElemForm_SquareNum(m - L[2]) +
               L[1] * (m - L[2]) + L[0];
    case SYS_SHAPE_WED: return TriRow(m, L[1]) + L[0] + L[2] * vis_ElemForm_TriNum(m);
    case SYS_SHAPE_HEX: return L[0] + L[1] * n[0] + L[2] * n[0] * n[1];
    default: return 0;
    }
}

static void Lat_Corner(int lshape, const int n[3], int corner, int L[3])
{
    for (int d = 0; d < 3; d++) L[d] = Def(lshape)->lattice[corner][d] * (n[d] - 1);
}

/* The lattice points from corner a to corner b, in steps of one lattice unit. */
static int Lat_Edge(int lshape, const int n[3], int a, int b, int* pos)
{
    int La[3], Lb[3], d[3], len = 0;
    Lat_Corner(lshape, n, a, La);
    Lat_Corner(lshape, n, b, Lb);
    for (int c = 0; c < 3; c++) {
        d[c] = Lb[c] - La[c];
        int ad = d[c] < 0 ? -d[c] : d[c];
        if (ad > len) len = ad;
    }
    for (int t = 0; t <= len; t++) {
        int L[3];
        for (int c = 0; c < 3; c++) L[c] = La[c] + (len ? t * d[c] / len : 0);
        pos[t] = Lat_Pos(lshape, n, L);
    }
    return len + 1;
}

/* -------------------------------------------------------------- unmasked lists ---- */

/* Lattice shape of a lattice form, or of the base of a lattice apex form. */
static int Form_LatShape(const vis_ElemForm* f)
{
    return f->form == VIS_ELEMFORM_LAG ? f->shape : f->baseshape;
}

static int Form_BaseCorners(const vis_ElemForm* f)
{
    return Def(f->baseshape)->numcorner;
}

static int Form_CornerPos(const vis_ElemForm* f, int c)
{
    int L[3];
    switch (f->form) {
    case VIS_ELEMFORM_SERAPEX: return c < Form_BaseCorners(f) ? c : f->nbase;
    case VIS_ELEMFORM_LAYER:
        if (c < Form_BaseCorners(f)) return c;
        return c - Form_BaseCorners(f) + (f->k - 1) * f->nbase;
    case VIS_ELEMFORM_LAG:
        Lat_Corner(f->shape, f->n, c, L);
        return Lat_Pos(f->shape, f->n, L);
    case VIS_ELEMFORM_LAGAPEX:
        if (c >= Form_BaseCorners(f)) return f->nbase;
        Lat_Corner(f->baseshape, f->n, c, L);
        return Lat_Pos(f->baseshape, f->n, L);
    default: return c;
    }
}

/* Edge e of the serendipity form of a fixed shape: first corner, interior run, second corner. */
static int Ser_Edge(int shape, int i, int e, int* pos)
{
    const vis_ElemShapeDef* d = Def(shape);
    int m = 0;
    pos[m++] = d->edges[e][0];
    for (int t = 0; t < i - 2; t++) pos[m++] = d->numcorner + e * (i - 2) + t;
    pos[m++] = d->edges[e][1];
    return m;
}

/* Edges of a layered form: base edges in the first layer, the same in the last layer, then
 * one edge through the layers from each base corner. */
static int Layer_Edge(const vis_ElemForm* f, int e, int* pos)
{
    int nbe = Def(f->baseshape)->numedge;
    if (e < 2 * nbe) {
        int m = Ser_Edge(f->baseshape, f->i, e % nbe, pos);
        if (e >= nbe)
            for (int t = 0; t < m; t++) pos[t] += (f->k - 1) * f->nbase;
        return m;
    }
    for (int l = 0; l < f->k; l++) pos[l] = e - 2 * nbe + l * f->nbase;
    return f->k;
}

/* Edges of an apex form: base edges from the base, the others straight to the apex. */
static int Apex_Edge(const vis_ElemForm* f, int e, int* pos)
{
    const int* ab = Def(f->shape)->edges[e];
    if (e < Def(f->baseshape)->numedge) {
        if (f->form == VIS_ELEMFORM_SERAPEX) return Ser_Edge(f->baseshape, f->i, e, pos);
        return Lat_Edge(f->baseshape, f->n, ab[0], ab[1], pos);
    }
    pos[0] = Form_CornerPos(f, ab[0]);
    pos[1] = Form_CornerPos(f, ab[1]);
    return 2;
}

static int Form_NumEdge(const vis_ElemForm* f)
{
    switch (f->form) {
    case VIS_ELEMFORM_NONE:
    case VIS_ELEMFORM_POINT:
    case VIS_ELEMFORM_POLYHED: return 0;
    case VIS_ELEMFORM_POLYGON: return f->maxi > 1 ? f->maxi - 1 : 0;
    default: return Def(f->shape)->numedge;
    }
}

/* Unmasked positions of edge e (in range), from its first corner to its second. */
static int Form_EdgeRaw(const vis_ElemForm* f, int e, int* pos)
{
    switch (f->form) {
    case VIS_ELEMFORM_SER: return Ser_Edge(f->shape, f->i, e, pos);
    case VIS_ELEMFORM_SERAPEX:
    case VIS_ELEMFORM_LAGAPEX: return Apex_Edge(f, e, pos);
    case VIS_ELEMFORM_LAYER: return Layer_Edge(f, e, pos);
    case VIS_ELEMFORM_LAG:
        return Lat_Edge(f->shape, f->n, Def(f->shape)->edges[e][0], Def(f->shape)->edges[e][1],
                        pos);
    case VIS_ELEMFORM_POLYGON:
        pos[0] = e;
        pos[1] = e + 1;
        return 2;
    default: return 0;
    }
}

static int Form_EdgeMasked(const vis_ElemForm* f, int e)
{
    return (f->mask >> e) & 1;
}

/* Nodes along edge e with the mask applied. */
static int Form_EdgeCount(const vis_ElemForm* f, int e)
{
    int pos[VIS_ELEM_MAXSIDE];
    int m = Form_EdgeRaw(f, e, pos);
    return Form_EdgeMasked(f, e) && m > 2 ? 2 : m;
}

/* How face `face` is read. Every face but a polygon's lists its corners, then the interior
 * runs of its edges; a face that is a lattice adds its interior nodes. */
static int Form_FaceKind(const vis_ElemForm* f, int face)
{
    if (f->form == VIS_ELEMFORM_POLYGON) return face == 0 ? FACE_SELF : FACE_NONE;
    if (f->form == VIS_ELEMFORM_NONE || f->form == VIS_ELEMFORM_POINT ||
        f->form == VIS_ELEMFORM_POLYHED)
        return FACE_NONE;
    const vis_ElemShapeDef* d = Def(f->shape);
    if (d->dim < 2 || face < 0 || face >= d->numface) return FACE_NONE;
    int lattice = d->facesize[face] == 3 ? FACE_TRILAT : FACE_QUADTEN;
    switch (f->form) {
    case VIS_ELEMFORM_LAG: return lattice;
    case VIS_ELEMFORM_LAGAPEX: return face == 0 && d->dim == 3 ? lattice : FACE_RUNS;
    case VIS_ELEMFORM_LAYER: return face < 2 ? FACE_RUNS : FACE_QUADTEN;
    default: return FACE_RUNS;
    }
}

/* Unmasked positions of face edge fe, read in the face's direction of travel. */
static int Form_FaceEdgeRun(const vis_ElemForm* f, int face, int fe, int* pos)
{
    const vis_ElemShapeDef* d = Def(f->shape);
    int e = d->faceedges[face][fe];
    int m = Form_EdgeRaw(f, e, pos);
    if (d->edges[e][0] != d->faces[face][fe]) vis_ElemFlip(m, pos);
    return m;
}

static int Face_Runs(const vis_ElemForm* f, int face, int* pos)
{
    const vis_ElemShapeDef* d = Def(f->shape);
    int nc = d->facesize[face], m = 0;
    for (int c = 0; c < nc; c++) pos[m++] = Form_CornerPos(f, d->faces[face][c]);
    for (int fe = 0; fe < nc; fe++) {
        int run[VIS_ELEM_MAXSIDE];
        int r = Form_FaceEdgeRun(f, face, fe, run);
        for (int t = 1; t < r - 1; t++) pos[m++] = run[t];
    }
    return m;
}

/* Interior nodes of a triangular lattice face, in the face's lexical order: first index from
 * face corner 0 towards corner 1, second towards corner 2. */
static int Face_TriInterior(const vis_ElemForm* f, int face, int* pos)
{
    int lshape = Form_LatShape(f), L[3][3], d1[3], d2[3], len = 0, m = 0;
    for (int c = 0; c < 3; c++) Lat_Corner(lshape, f->n, Def(f->shape)->faces[face][c], L[c]);
    for (int c = 0; c < 3; c++) {
        int ad = L[1][c] - L[0][c];
        if (ad < 0) ad = -ad;
        if (ad > len) len = ad;
    }
    if (len == 0) return 0;
    for (int c = 0; c < 3; c++) {
        d1[c] = (L[1][c] - L[0][c]) / len;
        d2[c] = (L[2][c] - L[0][c]) / len;
    }
    for (int b = 1; b < len; b++) {
        for (int a = 1; a < len - b; a++) {
            int P[3];
            for (int c = 0; c < 3; c++) P[c] = L[0][c] + a * d1[c] + b * d2[c];
            pos[m++] = Lat_Pos(lshape, f->n, P);
        }
    }
    return m;
}

/* Interior nodes of a tensor face, in the face's lexical order: node (a, b) is the a-th node
 * from corner 0 towards corner 1 shifted by the b-th step from corner 0 towards corner 3.
 * Positions are additive along both directions in every form that has such a face. */
static int Face_QuadInterior(const vis_ElemForm* f, int face, int* pos)
{
    int e01[VIS_ELEM_MAXSIDE], e03[VIS_ELEM_MAXSIDE], m = 0;
    int m1 = Form_FaceEdgeRun(f, face, 0, e01);
    int m3 = Form_FaceEdgeRun(f, face, 3, e03);
    vis_ElemFlip(m3, e03);
    for (int b = 1; b < m3 - 1; b++)
        for (int a = 1; a < m1 - 1; a++) pos[m++] = e01[a] + e03[b] - e01[0];
    return m;
}

/* Unmasked positions of a face: corners in the face table's order, the interior runs of the
 * face's edges in the face's order, then the face's interior nodes. */
static int Form_FaceRaw(const vis_ElemForm* f, int face, int* pos)
{
    int kind = Form_FaceKind(f, face);
    if (kind == FACE_NONE || kind == FACE_SELF) return 0;
    int m = Face_Runs(f, face, pos);
    if (kind == FACE_TRILAT) m += Face_TriInterior(f, face, pos + m);
    if (kind == FACE_QUADTEN) m += Face_QuadInterior(f, face, pos + m);
    return m;
}

/* ------------------------------------------------------------------------ mask ---- */

static void Copy(const int* from, int m, int* num, int* positions)
{
    *num = m;
    if (!positions) return;
    for (int t = 0; t < m; t++) positions[t] = from[t];
}

static void Sequence(int m, int* num, int* positions)
{
    *num = m;
    if (!positions) return;
    for (int t = 0; t < m; t++) positions[t] = t;
}

/* ------------------------------------------------------------------ interfaces ---- */

void vis_ElemCornerCount(int shape, int numcorners, int* num)
{
    if (!num) return;
    if (shape == SYS_SHAPE_POLYGON || shape == SYS_SHAPE_POLYHED)
        *num = numcorners > 0 ? numcorners : 0;
    else
        *num = IsFixed(shape) ? Def(shape)->numcorner : 0;
}

void vis_ElemEdgeCount(int shape, int numedges, int* num)
{
    if (!num) return;
    if (shape == SYS_SHAPE_POLYGON || shape == SYS_SHAPE_POLYHED)
        *num = numedges > 0 ? numedges : 0;
    else
        *num = IsFixed(shape) ? Def(shape)->numedge : 0;
}

void vis_ElemFaceCount(int shape, int numfaces, int* num)
{
    if (!num) return;
    if (shape == SYS_SHAPE_POLYGON || shape == SYS_SHAPE_POLYHED)
        *num = numfaces > 0 ? numfaces : 0;
    else
        *num = IsFixed(shape) ? Def(shape)->numface : 0;
}

void vis_ElemDim(int shape, int* dim)
{
    if (!dim) return;
    if (shape == SYS_SHAPE_POLYGON) *dim = 2;
    else if (shape == SYS_SHAPE_POLYHED) *dim = 3;
    else *dim = IsFixed(shape) ? Def(shape)->dim : -1;
}

void vis_ElemNum(int shape, int maxi, int maxj, int maxk, int* num)
{
    vis_ElemForm f;
    if (!num) return;
    *num = vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f) ? vis_ElemForm_Count(&f) : 0;
}

void vis_ElemCorners(int shape, int maxi, int maxj, int maxk, int* positions)
{
    vis_ElemForm f;
    int pos[VIS_ELEM_MAXCORNER], num;
    if (!positions || !vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f)) return;
    if (f.form == VIS_ELEMFORM_POLYGON || f.form == VIS_ELEMFORM_POLYHED) {
        Sequence(f.nraw, &num, positions);
        return;
    }
    int nc = Def(shape)->numcorner;
    for (int c = 0; c < nc; c++) pos[c] = Form_CornerPos(&f, c);
    Copy(pos, vis_ElemForm_Compact(&f, pos, nc), &num, positions);
}

template <class T>
static void Natural(int shape, T* coords)
{
    if (!coords || !IsFixed(shape)) return;
    const vis_ElemShapeDef* d = Def(shape);
    for (int c = 0; c < d->numcorner; c++)
        for (int x = 0; x < 3; x++) coords[3 * c + x] = (T)d->natural[c][x];
}

void vis_ElemNatural(int shape, float* coords)
{
    Natural(shape, coords);
}

void vis_ElemNaturaldv(int shape, double* coords)
{
    Natural(shape, coords);
}

void vis_ElemFaceEdges(int shape, int face, int* num, int* edges)
{
    int one = 0;
    if (!num) return;
    *num = 0;
    if (shape == SYS_SHAPE_LINE && face == 0) {
        Copy(&one, 1, num, edges);
        return;
    }
    if (shape < SYS_SHAPE_TRI || shape > SYS_SHAPE_HEX) return;
    const vis_ElemShapeDef* d = Def(shape);
    if (face < 0 || face >= d->numface) return;
    Copy(d->faceedges[face], d->facesize[face], num, edges);
}

void vis_ElemEdgeFaces(int shape, int edge, int* num, int* faces)
{
    int zero = 0;
    if (!num) return;
    *num = 0;
    if (shape == SYS_SHAPE_POLYGON && edge >= 0) {
        Copy(&zero, 1, num, faces);
        return;
    }
    if (shape < SYS_SHAPE_TRI || shape > SYS_SHAPE_HEX) return;
    const vis_ElemShapeDef* d = Def(shape);
    if (edge < 0 || edge >= d->numedge) return;
    Copy(d->edgefaces[edge], d->dim == 2 ? 1 : 2, num, faces);
}

void vis_ElemEdgeTopo(int shape, int maxi, int maxj, int maxk, int edge, int* maxiofedge)
{
    vis_ElemForm f;
    if (!maxiofedge) return;
    *maxiofedge = 0;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f)) return;
    if (f.form == VIS_ELEMFORM_POLYHED) {
        if (edge >= 0 && edge < maxj) *maxiofedge = 2;
        return;
    }
    if (edge < 0 || edge >= Form_NumEdge(&f)) return;
    *maxiofedge = Form_EdgeCount(&f, edge);
}

/* Face mask bits of face edges masked in the element. */
static int Face_MaskBits(const vis_ElemForm* f, int face)
{
    const vis_ElemShapeDef* d = Def(f->shape);
    int bits = 0;
    for (int fe = 0; fe < d->facesize[face]; fe++)
        if (Form_EdgeMasked(f, d->faceedges[face][fe])) bits |= 1 << fe;
    return bits;
}

/* Tuple of a serendipity-type face: the longest edge gives maxi, the shorter or masked edges
 * the face's mask. */
static void Face_RunsTopo(const vis_ElemForm* f, int face, int* fmaxi, int* fmaxj)
{
    const vis_ElemShapeDef* d = Def(f->shape);
    int pos[VIS_ELEM_MAXSIDE], side = 2, bits = 0, nc = d->facesize[face];
    for (int fe = 0; fe < nc; fe++) {
        int m = Form_EdgeRaw(f, d->faceedges[face][fe], pos);
        if (m > side) side = m;
    }
    for (int fe = 0; fe < nc && side > 2; fe++)
        if (Form_EdgeCount(f, d->faceedges[face][fe]) < side) bits |= 1 << fe;
    *fmaxi = side;
    *fmaxj = (int)((unsigned)bits << 16);
}

void vis_ElemFaceTopo(int shape, int maxi, int maxj, int maxk, int face, int* faceshape,
                      int* facemaxi, int* facemaxj)
{
    vis_ElemForm f;
    int fs = -1, fi = 0, fj = 0;
    int pos[VIS_ELEM_MAXSIDE];
    if (vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f)) {
        int kind = Form_FaceKind(&f, face);
        if (f.form == VIS_ELEMFORM_POLYHED && face >= 0 && face < maxk) {
            fs = SYS_SHAPE_POLYGON;
        } else if (kind == FACE_SELF || (kind != FACE_NONE && Def(shape)->dim == 2)) {
            fs = shape;
            fi = maxi;
            fj = maxj;
        } else if (kind == FACE_RUNS) {
            fs = Def(shape)->facesize[face] == 3 ? SYS_SHAPE_TRI : SYS_SHAPE_QUAD;
            Face_RunsTopo(&f, face, &fi, &fj);
        } else if (kind == FACE_TRILAT) {
            fs = SYS_SHAPE_TRI;
            fi = Form_FaceEdgeRun(&f, face, 0, pos);
            fj = fi | (int)((unsigned)Face_MaskBits(&f, face) << 16);
        } else if (kind == FACE_QUADTEN) {
            fs = SYS_SHAPE_QUAD;
            fi = Form_FaceEdgeRun(&f, face, 0, pos);
            fj = Form_FaceEdgeRun(&f, face, 3, pos) |
                 (int)((unsigned)Face_MaskBits(&f, face) << 16);
        }
    }
    if (faceshape) *faceshape = fs;
    if (facemaxi) *facemaxi = fi;
    if (facemaxj) *facemaxj = fj;
}

void vis_ElemEdgeNodes(int shape, int maxi, int maxj, int maxk, int edge, int* num,
                       int* positions)
{
    vis_ElemForm f;
    int pos[VIS_ELEM_MAXSIDE];
    if (!num) return;
    *num = 0;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f)) return;
    if (edge < 0 || edge >= Form_NumEdge(&f)) return;
    int m = Form_EdgeRaw(&f, edge, pos);
    Copy(pos, vis_ElemForm_Compact(&f, pos, m), num, positions);
}

void vis_ElemEdgeCorners(int shape, int maxi, int maxj, int maxk, int edge, int* num,
                         int* positions)
{
    int pos[VIS_ELEM_MAXSIDE], m = 0;
    if (!num) return;
    vis_ElemEdgeNodes(shape, maxi, maxj, maxk, edge, &m, pos);
    *num = 0;
    if (m < 2) return;
    pos[1] = pos[m - 1];
    Copy(pos, 2, num, positions);
}

void vis_ElemFaceNodes(int shape, int maxi, int maxj, int maxk, int face, int* num,
                       int* positions)
{
    vis_ElemForm f;
    int pos[VIS_ELEM_MAXFACENODE];
    if (!num) return;
    *num = 0;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f)) return;
    int kind = Form_FaceKind(&f, face);
    if (kind == FACE_NONE) return;
    if (kind == FACE_SELF) {
        Sequence(vis_ElemForm_Count(&f), num, positions);
        return;
    }
    int m = Form_FaceRaw(&f, face, pos);
    Copy(pos, vis_ElemForm_Compact(&f, pos, m), num, positions);
}

void vis_ElemFaceCorners(int shape, int maxi, int maxj, int maxk, int face, int* num,
                         int* positions)
{
    vis_ElemForm f;
    int pos[VIS_ELEM_MAXCORNER];
    if (!num) return;
    *num = 0;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f)) return;
    int kind = Form_FaceKind(&f, face);
    if (kind == FACE_NONE) return;
    if (f.form == VIS_ELEMFORM_POLYGON) {
        Sequence(f.nraw, num, positions);
        return;
    }
    const vis_ElemShapeDef* d = Def(shape);
    int nc = d->facesize[face];
    for (int c = 0; c < nc; c++) pos[c] = Form_CornerPos(&f, d->faces[face][c]);
    Copy(pos, vis_ElemForm_Compact(&f, pos, nc), num, positions);
}

void vis_ElemFlip(int maxi, int* positions)
{
    if (!positions) return;
    for (int a = 0, b = maxi - 1; a < b; a++, b--) {
        int t = positions[a];
        positions[a] = positions[b];
        positions[b] = t;
    }
}
