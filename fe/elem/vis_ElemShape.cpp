/* vis_ElemShape: interpolation functions of all element forms; see vis_ElemShape.h.
 *
 * Each form is written once as a closed form over a small forward-mode number (Dn: a value and
 * its three partial derivatives with respect to r, s, t), so one expression yields a function
 * and its exact derivatives, and the float and double twins share the code through a template.
 * Evaluation fills local arrays of the unmasked form; the mask and the copy to the caller come
 * last. Nothing allocates. The public entries try the unrolled closed forms of
 * vis_ElemShapeClosed first; this evaluator serves every other tuple and is their reference.
 */
#include "vis_ElemShape.h"

#include "vis_ElemForm.h"
#include "vis_ElemShapeClosed.h"
#include "vis_ElemShapeGeneric.h"
#include "vis_ElemTables.h"
#include "vis_ElemTopology.h"

namespace {

/* ------------------------------------------------------------- forward numbers ---- */

template <class T>
struct Dn {
    T v;
    T d[3];
};

template <class T>
inline Dn<T> K(T v)
{
    return Dn<T>{v, {0, 0, 0}};
}
template <class T>
inline Dn<T> Var(T v, int axis)
{
    Dn<T> a{v, {0, 0, 0}};
    a.d[axis] = 1;
    return a;
}
template <class T>
inline Dn<T> operator+(const Dn<T>& a, const Dn<T>& b)
{
    return Dn<T>{a.v + b.v, {a.d[0] + b.d[0], a.d[1] + b.d[1], a.d[2] + b.d[2]}};
}
template <class T>
inline Dn<T> operator-(const Dn<T>& a, const Dn<T>& b)
{
    return Dn<T>{a.v - b.v, {a.d[0] - b.d[0], a.d[1] - b.d[1], a.d[2] - b.d[2]}};
}
template <class T>
inline Dn<T> operator-(const Dn<T>& a)
{
    return Dn<T>{-a.v, {-a.d[0], -a.d[1], -a.d[2]}};
}
template <class T>
inline Dn<T> operator*(const Dn<T>& a, const Dn<T>& b)
{
    return Dn<T>{a.v * b.v,
                 {a.d[0] * b.v + a.v * b.d[0], a.d[1] * b.v + a.v * b.d[1], a.d[2] * b.v + a.v * b.d[2]}};
}
template <class T>
inline Dn<T> operator*(T c, const Dn<T>& a)
{
    return Dn<T>{c * a.v, {c * a.d[0], c * a.d[1], c * a.d[2]}};
}
template <class T>
inline Dn<T> operator+(const Dn<T>& a, T c)
{
    return Dn<T>{a.v + c, {a.d[0], a.d[1], a.d[2]}};
}
template <class T>
inline Dn<T> operator+(T c, const Dn<T>& a)
{
    return a + c;
}
template <class T>
inline Dn<T> operator-(const Dn<T>& a, T c)
{
    return a + (-c);
}
template <class T>
inline Dn<T> operator-(T c, const Dn<T>& a)
{
    return (-a) + c;
}
template <class T>
inline Dn<T> operator+(int c, const Dn<T>& a)
{
    return a + T(c);
}
template <class T>
inline Dn<T> operator-(int c, const Dn<T>& a)
{
    return (-a) + T(c);
}
/* Quotient; the divisor's value must not be 0. */
template <class T>
inline Dn<T> operator/(const Dn<T>& a, const Dn<T>& b)
{
    T q = a.v / b.v;
    return Dn<T>{q, {(a.d[0] - q * b.d[0]) / b.v, (a.d[1] - q * b.d[1]) / b.v, (a.d[2] - q * b.d[2]) / b.v}};
}

const vis_ElemShapeDef* Def(int shape)
{
    return &vis_ElemShapeDefs[shape];
}

/* ------------------------------------------------------------------ 1D ---- */

/* Functions of n = 1 to 4 nodes at equal spacing on -1..1 (n = 1: the constant). */
template <class T>
void Line(int n, const Dn<T>& x, Dn<T>* out)
{
    const T h = T(0.5), third = T(1) / T(3);
    switch (n) {
    case 1: out[0] = K<T>(1); break;
    case 2:
        out[0] = h * (1 - x);
        out[1] = h * (1 + x);
        break;
    case 3:
        out[0] = h * (x * (x - T(1)));
        out[1] = 1 - x * x;
        out[2] = h * (x * (x + T(1)));
        break;
    default:
        out[0] = T(-0.5625) * ((x + third) * (x - third) * (x - T(1)));
        out[1] = T(1.6875) * ((x + T(1)) * (x - third) * (x - T(1)));
        out[2] = T(-1.6875) * ((x + T(1)) * (x + third) * (x - T(1)));
        out[3] = T(0.5625) * ((x + T(1)) * (x + third) * (x - third));
        break;
    }
}

/* ------------------------------------------------------------ box serendipity ---- */

/* Natural coordinates of interior node t of edge e of the serendipity form of a fixed shape. */
template <class T>
void EdgePoint(int shape, int i, int e, int t, T* p)
{
    const vis_ElemShapeDef* d = Def(shape);
    const double* a = d->natural[d->edges[e][0]];
    const double* b = d->natural[d->edges[e][1]];
    double f = (double)(t + 1) / (double)(i - 1);
    for (int c = 0; c < 3; c++) p[c] = (T)(a[c] + (b[c] - a[c]) * f);
}

/* Quadrilateral (dim 2) and hexahedron (dim 3) serendipity of i = 2, 3, 4 nodes per edge. */
template <class T>
int BoxSer(int shape, int dim, int i, const Dn<T>* X, Dn<T>* out)
{
    const vis_ElemShapeDef* d = Def(shape);
    const int nc = d->numcorner;
    const T eighth = dim == 2 ? T(0.25) : T(0.125);
    for (int c = 0; c < nc; c++) {
        Dn<T> prod = K<T>(1), lin = K<T>(0), sq = K<T>(0);
        for (int a = 0; a < dim; a++) {
            T x0 = (T)d->natural[c][a];
            prod = prod * (1 + x0 * X[a]);
            lin = lin + x0 * X[a];
            sq = sq + X[a] * X[a];
        }
        if (i == 2) out[c] = eighth * prod;
        else if (i == 3) out[c] = eighth * (prod * (lin - T(dim - 1)));
        else if (dim == 2) out[c] = T(0.03125) * (prod * (T(9) * sq - T(10)));
        else out[c] = T(1.0 / 64.0) * (prod * (T(9) * sq - T(19)));
    }
    int m = nc;
    for (int e = 0; e < d->numedge; e++) {
        for (int t = 0; t < i - 2; t++) {
            T p[3];
            EdgePoint(shape, i, e, t, p);
            const double* ca = d->natural[d->edges[e][0]];
            const double* cb = d->natural[d->edges[e][1]];
            int along = 0;
            for (int a = 0; a < dim; a++)
                if (ca[a] != cb[a]) along = a;
            Dn<T> prod = K<T>(1);
            for (int a = 0; a < dim; a++)
                if (a != along) prod = prod * (1 + p[a] * X[a]);
            Dn<T> bub = 1 - X[along] * X[along];
            if (i == 3) out[m++] = (dim == 2 ? T(0.5) : T(0.25)) * (bub * prod);
            else out[m++] = (dim == 2 ? T(0.28125) : T(9.0 / 64.0)) * (bub * (1 + T(9) * p[along] * X[along]) * prod);
        }
    }
    return m;
}

/* ---------------------------------------------------------- simplex forms ---- */

/* Area or volume coordinates of a triangle (dim 2) or tetrahedron (dim 3). */
template <class T>
void Bary(int dim, const Dn<T>* X, Dn<T>* L)
{
    L[0] = 1 - X[0] - X[1];
    if (dim == 3) L[0] = L[0] - X[2];
    for (int a = 0; a < dim; a++) L[a + 1] = X[a];
}

/* Triangle (dim 2) and tetrahedron (dim 3) serendipity of i = 2, 3, 4 nodes per edge. */
template <class T>
int SimplexSer(int shape, int dim, int i, const Dn<T>* X, Dn<T>* out)
{
    const vis_ElemShapeDef* d = Def(shape);
    Dn<T> L[4];
    Bary(dim, X, L);
    const int nc = d->numcorner;
    for (int c = 0; c < nc; c++) {
        if (i == 2) out[c] = L[c];
        else if (i == 3) out[c] = L[c] * (T(2) * L[c] - T(1));
        else out[c] = T(4.5) * (L[c] * (L[c] - T(1) / T(3)) * (L[c] - T(2) / T(3)));
    }
    int m = nc;
    for (int e = 0; e < d->numedge; e++) {
        const Dn<T>& La = L[d->edges[e][0]];
        const Dn<T>& Lb = L[d->edges[e][1]];
        if (i == 3) out[m++] = T(4) * (La * Lb);
        if (i == 4) {
            out[m++] = T(4.5) * (La * Lb * (T(3) * La - T(1)));
            out[m++] = T(4.5) * (La * Lb * (T(3) * Lb - T(1)));
        }
    }
    if (i == 4) {
        /* The face bubbles that the missing face nodes would carry, shared so that the element
         * stays complete quadratic: -1/6 to each face corner, +1/4 to each face edge node. */
        for (int f = 0; f < (dim == 2 ? 1 : d->numface); f++) {
            const int* fc = d->faces[f];
            Dn<T> B = T(27) * (L[fc[0]] * L[fc[1]] * L[fc[2]]);
            for (int q = 0; q < 3; q++) out[fc[q]] = out[fc[q]] - (T(1) / T(6)) * B;
            for (int e = 0; e < d->numedge; e++) {
                int a = d->edges[e][0], b = d->edges[e][1], ina = 0, inb = 0;
                for (int q = 0; q < 3; q++) {
                    ina |= fc[q] == a;
                    inb |= fc[q] == b;
                }
                if (!ina || !inb) continue;
                out[nc + 2 * e] = out[nc + 2 * e] + T(0.25) * B;
                out[nc + 2 * e + 1] = out[nc + 2 * e + 1] + T(0.25) * B;
            }
        }
    }
    return m;
}

/* Silvester factors S_m(L) = prod_{q<m} (p L - q) / (q + 1) for m = 0..p. */
template <class T>
void Silvester(int p, const Dn<T>& L, Dn<T>* S)
{
    S[0] = K<T>(1);
    for (int m = 1; m <= p; m++) S[m] = (T(1) / T(m)) * (S[m - 1] * (T(p) * L - T(m - 1)));
}

/* Lagrange triangle (dim 2) or tetrahedron (dim 3) with n nodes per edge, lexical order. */
template <class T>
int SimplexLag(int dim, int n, const Dn<T>* X, Dn<T>* out)
{
    Dn<T> L[4], S[4][VIS_ELEM_MAXSIDE];
    Bary(dim, X, L);
    int p = n - 1, m = 0;
    for (int a = 0; a <= dim; a++) Silvester(p, L[a], S[a]);
    for (int c = 0; c <= (dim == 3 ? p : 0); c++)
        for (int b = 0; b <= p - c; b++)
            for (int a = 0; a <= p - c - b; a++) {
                Dn<T> v = S[0][p - a - b - c] * S[1][a] * S[2][b];
                out[m++] = dim == 3 ? v * S[3][c] : v;
            }
    return m;
}

/* Lagrange quadrilateral of ni by nj nodes, lexical order. */
template <class T>
int QuadLag(int ni, int nj, const Dn<T>& x, const Dn<T>& y, Dn<T>* out)
{
    Dn<T> A[VIS_ELEM_MAXSIDE], B[VIS_ELEM_MAXSIDE];
    Line(ni, x, A);
    Line(nj, y, B);
    int m = 0;
    for (int b = 0; b < nj; b++)
        for (int a = 0; a < ni; a++) out[m++] = A[a] * B[b];
    return m;
}

/* ------------------------------------------------------------- composite forms ---- */

/* Plane base of a layered, Lagrange or collapsed form, evaluated at (x, y). */
enum { BASE_TRISER, BASE_TRILAG, BASE_QUADSER, BASE_QUADLAG, BASE_LINE };

template <class T>
int Base(int kind, int n0, int n1, const Dn<T>& x, const Dn<T>& y, Dn<T>* out)
{
    Dn<T> X[3] = {x, y, K<T>(0)};
    switch (kind) {
    case BASE_TRISER: return SimplexSer(SYS_SHAPE_TRI, 2, n0, X, out);
    case BASE_TRILAG: return SimplexLag(2, n0, X, out);
    case BASE_QUADSER: return BoxSer(SYS_SHAPE_QUAD, 2, n0, X, out);
    case BASE_QUADLAG: return QuadLag(n0, n1, x, y, out);
    default: Line(n0, T(2) * x - T(1), out); return n0;
    }
}

/* A plane base repeated in k layers along t: layer after layer. */
template <class T>
int Layered(int kind, int n0, int n1, int k, const Dn<T>* X, Dn<T>* out)
{
    Dn<T> B[VIS_ELEM_MAXNODE], E[VIS_ELEM_MAXSIDE];
    int nb = Base(kind, n0, n1, X[0], X[1], B);
    Line(k, X[2], E);
    int m = 0;
    for (int c = 0; c < k; c++)
        for (int p = 0; p < nb; p++) out[m++] = B[p] * E[c];
    return m;
}

/* Serendipity wedge: the triangle blended with the 1D functions of the vertical edges. */
template <class T>
int WedSer(int i, const Dn<T>* X, Dn<T>* out)
{
    Dn<T> Tn[9], E[VIS_ELEM_MAXSIDE], L[3];
    SimplexSer(SYS_SHAPE_TRI, 2, i, X, Tn);
    Bary(2, X, L);
    Line(i, X[2], E);
    Dn<T> lo = T(0.5) * (1 - X[2]), hi = T(0.5) * (1 + X[2]);
    for (int c = 0; c < 3; c++) {
        out[c] = Tn[c] * lo + L[c] * (E[0] - lo);
        out[c + 3] = Tn[c] * hi + L[c] * (E[i - 1] - hi);
    }
    int m = 6;
    for (int e = 0; e < 3; e++)
        for (int t = 0; t < i - 2; t++) out[m++] = Tn[3 + e * (i - 2) + t] * lo;
    for (int e = 0; e < 3; e++)
        for (int t = 0; t < i - 2; t++) out[m++] = Tn[3 + e * (i - 2) + t] * hi;
    for (int c = 0; c < 3; c++)
        for (int t = 0; t < i - 2; t++) out[m++] = L[c] * E[1 + t];
    return m;
}

/* The shrinking w of a collapsed form and the section coordinates (x / w, y / w). The value
 * used for the division is kept away from 0, so the apex itself evaluates. */
template <class T>
void Collapse(const Dn<T>& w, const Dn<T>& x, const Dn<T>& y, Dn<T>* cx, Dn<T>* cy)
{
    const T eps = sizeof(T) == 4 ? T(1e-6) : T(1e-12);
    Dn<T> wc = w;
    if (wc.v < eps) wc.v = eps;
    *cx = x / wc;
    *cy = y / wc;
}

/* Base plus apex node: w times the base in the section, 1 - w for the apex (last). */
template <class T>
int Apex(int shape, int kind, int n0, int n1, const Dn<T>* X, Dn<T>* out)
{
    Dn<T> w, cx, cy;
    if (shape == SYS_SHAPE_TRI) w = 1 - X[1];
    else if (shape == SYS_SHAPE_TET) w = 1 - X[2];
    else w = T(0.5) * (1 - X[2]);
    Collapse(w, X[0], shape == SYS_SHAPE_TRI ? K<T>(0) : X[1], &cx, &cy);
    int nb = Base(kind, n0, n1, cx, cy, out);
    for (int p = 0; p < nb; p++) out[p] = w * out[p];
    out[nb] = 1 - w;
    return nb + 1;
}

/* Pyramid by layers: layer l of n (height t = -1 + 2 l / (n - 1)) holds a plane form in the
 * section, times the 1D function of the layer. Serendipity: the base is the serendipity
 * quadrilateral, the middle layers are the four slant edge nodes (bilinear), the top the apex.
 * Lagrange: layer l is the n - l by n - l Lagrange square. */
template <class T>
int PyrLayers(int n, int lagrange, const Dn<T>* X, Dn<T>* out)
{
    Dn<T> P[VIS_ELEM_MAXSIDE], Q[VIS_ELEM_MAXNODE], cx, cy;
    Dn<T> w = T(0.5) * (1 - X[2]);
    Line(n, X[2], P);
    Collapse(w, X[0], X[1], &cx, &cy);
    if (lagrange) {
        int m = 0;
        for (int l = 0; l < n; l++) {
            int side = n - l;
            int nq = side == 1 ? 1 : QuadLag(side, side, cx, cy, Q);
            if (side == 1) Q[0] = K<T>(1);
            for (int q = 0; q < nq; q++) out[m++] = Q[q] * P[l];
        }
        return m;
    }
    const Dn<T> S[3] = {cx, cy, K<T>(0)};
    int nb = BoxSer(SYS_SHAPE_QUAD, 2, n, S, Q);
    /* Base corners 0..3 stay, base edge nodes move up by one past the apex (position 4). */
    for (int q = 0; q < nb; q++) out[q < 4 ? q : q + 1] = Q[q] * P[0];
    out[4] = P[n - 1];
    Dn<T> Q4[4];
    BoxSer(SYS_SHAPE_QUAD, 2, 2, S, Q4);
    for (int l = 1; l < n - 1; l++)
        for (int c = 0; c < 4; c++) out[5 + (4 + c) * (n - 2) + (l - 1)] = Q4[c] * P[l];
    return 5 + 8 * (n - 2);
}

/* The polynomial linear pyramid, the linear tuple (maxi 0 or 2) of the serendipity form. */
template <class T>
int PyrLinear(const Dn<T>* X, Dn<T>* out)
{
    const vis_ElemShapeDef* d = Def(SYS_SHAPE_PYR);
    for (int c = 0; c < 4; c++)
        out[c] = T(0.125) * ((1 + (T)d->natural[c][0] * X[0]) * (1 + (T)d->natural[c][1] * X[1]) * (1 - X[2]));
    out[4] = T(0.5) * (1 + X[2]);
    return 5;
}

/* Serendipity line: the ends, then the interior nodes in order along the line. */
template <class T>
int LineSer(int n, const Dn<T>& x, Dn<T>* out)
{
    Dn<T> L[VIS_ELEM_MAXSIDE];
    Line(n, x, L);
    out[0] = L[0];
    out[1] = L[n - 1];
    for (int t = 1; t < n - 1; t++) out[t + 1] = L[t];
    return n;
}

/* The plane base of an apex or layered form. */
int BaseKind(const vis_ElemForm* f)
{
    int lag = f->form == VIS_ELEMFORM_LAGAPEX || f->form == VIS_ELEMFORM_LAG;
    switch (f->baseshape >= 0 ? f->baseshape : f->shape) {
    case SYS_SHAPE_LINE: return BASE_LINE;
    case SYS_SHAPE_TRI:
    case SYS_SHAPE_TET:
    case SYS_SHAPE_WED: return lag ? BASE_TRILAG : BASE_TRISER;
    default: return lag ? BASE_QUADLAG : BASE_QUADSER;
    }
}

/* Serendipity forms of the fixed shapes. */
template <class T>
int EvalSer(const vis_ElemForm* f, const Dn<T>* X, Dn<T>* out)
{
    int i = f->i;
    switch (f->shape) {
    case SYS_SHAPE_LINE: return LineSer(i, X[0], out);
    case SYS_SHAPE_TRI: return SimplexSer(f->shape, 2, i, X, out);
    case SYS_SHAPE_QUAD: return BoxSer(f->shape, 2, i, X, out);
    case SYS_SHAPE_TET: return SimplexSer(f->shape, 3, i, X, out);
    case SYS_SHAPE_PYR: return i == 2 ? PyrLinear(X, out) : PyrLayers(i, 0, X, out);
    case SYS_SHAPE_WED: return WedSer(i, X, out);
    default: return BoxSer(f->shape, 3, i, X, out);
    }
}

/* Lattice forms in lexical order; wedges and hexahedra as their base in layers. */
template <class T>
int EvalLag(const vis_ElemForm* f, const Dn<T>* X, Dn<T>* out)
{
    const int* n = f->n;
    switch (f->shape) {
    case SYS_SHAPE_LINE: Line(n[0], X[0], out); return n[0];
    case SYS_SHAPE_TRI: return SimplexLag(2, n[0], X, out);
    case SYS_SHAPE_QUAD: return QuadLag(n[0], n[1], X[0], X[1], out);
    case SYS_SHAPE_TET: return SimplexLag(3, n[0], X, out);
    case SYS_SHAPE_PYR: return PyrLayers(n[0], 1, X, out);
    default: return Layered(BaseKind(f), n[0], n[1], n[2], X, out);
    }
}

/* Unmasked functions of a tuple at X; returns their count, 0 for no element. */
template <class T>
int Eval(int shape, int maxi, int maxj, int maxk, const Dn<T>* X, Dn<T>* out)
{
    vis_ElemForm f;
    if (shape < SYS_SHAPE_LINE || shape > SYS_SHAPE_HEX) return 0;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f) || f.nraw > VIS_ELEM_MAXNODE) return 0;
    int m = 0;
    switch (f.form) {
    case VIS_ELEMFORM_SER: m = EvalSer(&f, X, out); break;
    case VIS_ELEMFORM_LAG: m = EvalLag(&f, X, out); break;
    case VIS_ELEMFORM_LAYER: m = Layered(BaseKind(&f), f.i, 0, f.k, X, out); break;
    case VIS_ELEMFORM_SERAPEX:
    case VIS_ELEMFORM_LAGAPEX: m = Apex(shape, BaseKind(&f), f.n[0], f.n[1], X, out); break;
    default: break;
    }
    return m == f.nraw ? m : 0;
}

/* ------------------------------------------------------------------- mask ---- */

/* Adds the functions of the interior nodes of edge run pos (m nodes) to its two ends, shared
 * by distance so that the edge interpolates linearly. */
template <class T>
void FoldEdge(const int* pos, int m, int doN, T* N, int dim, T* dN)
{
    if (m < 3) return;
    int a = pos[0], b = pos[m - 1];
    for (int t = 1; t < m - 1; t++) {
        T fb = T(t) / T(m - 1), fa = 1 - fb;
        int p = pos[t];
        if (doN) {
            N[a] += fa * N[p];
            N[b] += fb * N[p];
        }
        for (int c = 0; c < dim; c++) {
            dN[dim * a + c] += fa * dN[dim * p + c];
            dN[dim * b + c] += fb * dN[dim * p + c];
        }
    }
}

/* Folds the functions of the masked edges' interior nodes into the edge ends, then closes up. */
template <class T>
void Drop(int mode, int shape, int maxi, int maxj, int maxk, T* N, int dim, T* dN)
{
    vis_ElemForm f;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f) || f.mask == 0) return;
    if (f.nraw > VIS_ELEM_MAXNODE) return;
    if (dim < 0) dim = 0;
    if (dim > 3) dim = 3;
    int doN = mode != VIS_SHAPE_DERIV && N;
    if (mode == VIS_SHAPE_FUNC || !dN) dim = 0;
    for (int e = 0; f.mask >> e; e++) {
        if (!((f.mask >> e) & 1)) continue;
        int pos[VIS_ELEM_MAXSIDE], m = 0;
        vis_ElemEdgeNodes(shape, maxi, maxj & 0xffff, maxk, e, &m, pos);
        FoldEdge(pos, m, doN, N, dim, dN);
    }
    char removed[VIS_ELEM_MAXNODE];
    vis_ElemForm_Removed(&f, removed);
    if (doN) vis_ElemForm_Squeeze(removed, f.nraw, 1, N);
    if (dim > 0) vis_ElemForm_Squeeze(removed, f.nraw, dim, dN);
}

/* ----------------------------------------------------------------- polygon ---- */

template <class T>
void Polygon(int mode, int maxi, const T* x, T* N, T* dN)
{
    int n = maxi - 1;
    if (n < 1) return;
    T r = x[0], s = x[1];
    int k = (int)(s / T(10));
    if (!(s / T(10) < T(n))) k = n - 1;
    if (k < 0) k = 0;
    if (k > n - 1) k = n - 1;
    T sp = s - T(10) * T(k);
    T a = (1 - sp) * r, b = sp * r;
    T Nc = 1 - a - b;
    /* d(a)/dr = 1 - s', d(a)/ds = -r; d(b)/dr = s', d(b)/ds = r. */
    T dar = 1 - sp, das = -r, dbr = sp, dbs = r;
    int k1 = k + 1 < n ? k + 1 : 0;
    for (int p = 0; p <= n; p++) {
        if (mode != VIS_SHAPE_DERIV && N) N[p] = p < n ? Nc / T(n) : T(0);
        if (mode != VIS_SHAPE_FUNC && dN) {
            dN[2 * p] = p < n ? -(dar + dbr) / T(n) : T(0);
            dN[2 * p + 1] = p < n ? -(das + dbs) / T(n) : T(0);
        }
    }
    if (mode != VIS_SHAPE_DERIV && N) {
        N[k] += a;
        N[k1] += b;
    }
    if (mode != VIS_SHAPE_FUNC && dN) {
        dN[2 * k] += dar;
        dN[2 * k + 1] += das;
        dN[2 * k1] += dbr;
        dN[2 * k1 + 1] += dbs;
    }
}

/* ------------------------------------------------------------------ drivers ---- */

template <class T>
void Shape(int mode, int shape, int maxi, int maxj, int maxk, int dim, const T* coords, T* N, T* dN)
{
    if (!coords || mode < VIS_SHAPE_ALL || mode > VIS_SHAPE_DERIV) return;
    Dn<T> X[3], out[VIS_ELEM_MAXNODE];
    for (int a = 0; a < 3; a++) X[a] = Var<T>(a < dim ? coords[a] : T(0), a);
    int raw = Eval(shape, maxi, maxj, maxk, X, out);
    if (raw == 0) return;
    T n[VIS_ELEM_MAXNODE], d[3 * VIS_ELEM_MAXNODE];
    for (int p = 0; p < raw; p++) {
        n[p] = out[p].v;
        for (int c = 0; c < dim; c++) d[dim * p + c] = out[p].d[c];
    }
    int num = 0;
    vis_ElemNum(shape, maxi, maxj, maxk, &num);
    if (num != raw) Drop(VIS_SHAPE_ALL, shape, maxi, maxj, maxk, n, dim, d);
    for (int p = 0; p < num; p++) {
        if (mode != VIS_SHAPE_DERIV && N) N[p] = n[p];
        if (mode != VIS_SHAPE_FUNC && dN)
            for (int c = 0; c < dim; c++) dN[dim * p + c] = d[dim * p + c];
    }
}

template <class T>
void Shape1D(int mode, int order, T r, T* N, T* dN)
{
    if (order < 2 || order > 4 || mode < VIS_SHAPE_ALL || mode > VIS_SHAPE_DERIV) return;
    Dn<T> out[4];
    Line(order, Var<T>(r, 0), out);
    for (int p = 0; p < order; p++) {
        if (mode != VIS_SHAPE_DERIV && N) N[p] = out[p].v;
        if (mode != VIS_SHAPE_FUNC && dN) dN[p] = out[p].d[0];
    }
}

template <class T>
void Shape2D(int mode, int shape, int maxi, int maxj, const T* coords, T* N, T* dN)
{
    if (shape == SYS_SHAPE_POLYGON) {
        if (coords && mode >= VIS_SHAPE_ALL && mode <= VIS_SHAPE_DERIV) Polygon(mode, maxi, coords, N, dN);
        return;
    }
    if (shape != SYS_SHAPE_TRI && shape != SYS_SHAPE_QUAD) return;
    Shape(mode, shape, maxi, maxj, 0, 2, coords, N, dN);
}

template <class T>
void Shape3D(int mode, int shape, int maxi, int maxj, int maxk, const T* coords, T* N, T* dN)
{
    if (shape < SYS_SHAPE_TET || shape > SYS_SHAPE_HEX) return;
    Shape(mode, shape, maxi, maxj, maxk, 3, coords, N, dN);
}

/* ------------------------------------------------------------- node natural ---- */

void Put(double* c, double r, double s, double t)
{
    c[0] = r;
    c[1] = s;
    c[2] = t;
}

/* Serendipity form of a fixed shape: corners, then edge nodes at equal spacing. */
int SerNatural(int shape, int i, double* c)
{
    const vis_ElemShapeDef* d = Def(shape);
    int m = 0;
    for (int q = 0; q < d->numcorner; q++, m++) Put(c + 3 * m, d->natural[q][0], d->natural[q][1], d->natural[q][2]);
    for (int e = 0; e < d->numedge; e++)
        for (int t = 0; t < i - 2; t++, m++) EdgePoint<double>(shape, i, e, t, c + 3 * m);
    return m;
}

/* Lagrange lattices in lexical order. */
int TriLagNatural(int n, double* c)
{
    int m = 0;
    for (int b = 0; b < n; b++)
        for (int a = 0; a < n - b; a++, m++) Put(c + 3 * m, (double)a / (n - 1), (double)b / (n - 1), 0);
    return m;
}

double Spread(int a, int n)
{
    return n > 1 ? -1.0 + 2.0 * a / (n - 1) : 0.0;
}

int QuadLagNatural(int ni, int nj, double* c)
{
    int m = 0;
    for (int b = 0; b < nj; b++)
        for (int a = 0; a < ni; a++, m++) Put(c + 3 * m, Spread(a, ni), Spread(b, nj), 0);
    return m;
}

int BaseNatural(int kind, int n0, int n1, double* c)
{
    switch (kind) {
    case BASE_TRISER: return SerNatural(SYS_SHAPE_TRI, n0, c);
    case BASE_TRILAG: return TriLagNatural(n0, c);
    case BASE_QUADSER: return SerNatural(SYS_SHAPE_QUAD, n0, c);
    case BASE_QUADLAG: return QuadLagNatural(n0, n1, c);
    default:
        for (int a = 0; a < n0; a++) Put(c + 3 * a, (double)a / (n0 - 1), 0, 0);
        return n0;
    }
}

int LayeredNatural(int kind, int n0, int n1, int k, double* c)
{
    int nb = BaseNatural(kind, n0, n1, c);
    for (int l = 0; l < k; l++)
        for (int p = 0; p < nb; p++) {
            double* q = c + 3 * (l * nb + p);
            Put(q, c[3 * p], c[3 * p + 1], Spread(l, k));
        }
    return nb * k;
}

int ApexNatural(int shape, int kind, int n0, int n1, double* c)
{
    int nb = BaseNatural(kind, n0, n1, c);
    if (shape == SYS_SHAPE_TRI) {
        Put(c + 3 * nb, 0, 1, 0);
    } else {
        if (shape == SYS_SHAPE_PYR)
            for (int p = 0; p < nb; p++) c[3 * p + 2] = -1;
        Put(c + 3 * nb, 0, 0, 1);
    }
    return nb + 1;
}

int PyrLagNatural(int n, double* c)
{
    int m = 0;
    for (int l = 0; l < n; l++) {
        double w = 1.0 - (double)l / (n - 1);
        int side = n - l;
        for (int b = 0; b < side; b++)
            for (int a = 0; a < side; a++, m++) Put(c + 3 * m, w * Spread(a, side), w * Spread(b, side), Spread(l, n));
    }
    return m;
}

double Lattice(int a, int n)
{
    return n > 1 ? (double)a / (n - 1) : 0.0;
}

int TetLagNatural(int n, double* c)
{
    int m = 0;
    for (int tz = 0; tz < n; tz++)
        for (int b = 0; b < n - tz; b++)
            for (int a = 0; a < n - tz - b; a++, m++)
                Put(c + 3 * m, Lattice(a, n), Lattice(b, n), Lattice(tz, n));
    return m;
}

/* Serendipity line: the ends, then the interior nodes in order. */
int LineSerNatural(int n, double* c)
{
    Put(c, -1, 0, 0);
    Put(c + 3, 1, 0, 0);
    for (int t = 1; t < n - 1; t++) Put(c + 3 * (t + 1), Spread(t, n), 0, 0);
    return n;
}

int LagNatural(const vis_ElemForm* f, double* c)
{
    const int* n = f->n;
    switch (f->shape) {
    case SYS_SHAPE_LINE:
        for (int a = 0; a < n[0]; a++) Put(c + 3 * a, Spread(a, n[0]), 0, 0);
        return n[0];
    case SYS_SHAPE_TRI: return TriLagNatural(n[0], c);
    case SYS_SHAPE_QUAD: return QuadLagNatural(n[0], n[1], c);
    case SYS_SHAPE_TET: return TetLagNatural(n[0], c);
    case SYS_SHAPE_PYR: return PyrLagNatural(n[0], c);
    default: return LayeredNatural(BaseKind(f), n[0], n[1], n[2], c);
    }
}

/* Unmasked natural coordinates; returns the count. */
int RawNatural(int shape, int maxi, int maxj, int maxk, double* c)
{
    vis_ElemForm f;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f) || f.nraw > VIS_ELEM_MAXNODE) return 0;
    int m = 0;
    switch (f.form) {
    case VIS_ELEMFORM_POINT:
        if (f.nraw != 1) return 0;
        Put(c, 0, 0, 0);
        return 1;
    case VIS_ELEMFORM_SER:
        m = shape == SYS_SHAPE_LINE ? LineSerNatural(f.i, c) : SerNatural(shape, f.i, c);
        break;
    case VIS_ELEMFORM_LAG: m = LagNatural(&f, c); break;
    case VIS_ELEMFORM_LAYER: m = LayeredNatural(BaseKind(&f), f.i, 0, f.k, c); break;
    case VIS_ELEMFORM_SERAPEX:
    case VIS_ELEMFORM_LAGAPEX: m = ApexNatural(shape, BaseKind(&f), f.n[0], f.n[1], c); break;
    default: return 0;
    }
    return m == f.nraw ? m : 0;
}

template <class T>
void NodeNatural(int shape, int maxi, int maxj, int maxk, T* coords)
{
    if (!coords) return;
    if (shape == SYS_SHAPE_POLYGON) {
        for (int p = 0; p < maxi; p++) {
            coords[3 * p] = 1;
            coords[3 * p + 1] = p < maxi - 1 ? T(10 * p) : T(0);
            coords[3 * p + 2] = 0;
        }
        return;
    }
    double c[3 * VIS_ELEM_MAXNODE];
    int raw = RawNatural(shape, maxi, maxj, maxk, c);
    if (raw == 0) return;
    vis_ElemForm f;
    vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f);
    char removed[VIS_ELEM_MAXNODE];
    vis_ElemForm_Removed(&f, removed);
    int num = vis_ElemForm_Squeeze(removed, raw, 3, c);
    for (int p = 0; p < 3 * num; p++) coords[p] = (T)c[p];
}

}  // namespace

void vis_ElemShape1D(int mode, int order, float r, float* N, float* dN)
{
    Shape1D(mode, order, r, N, dN);
}

void vis_ElemShape1Ddv(int mode, int order, double r, double* N, double* dN)
{
    Shape1D(mode, order, r, N, dN);
}

void vis_ElemShape2D(int mode, int shape, int maxi, int maxj, const float* coords, float* N, float* dN)
{
    if (vis_ElemShapeClosed(mode, shape, maxi, maxj, 0, 2, coords, N, dN)) return;
    Shape2D(mode, shape, maxi, maxj, coords, N, dN);
}

void vis_ElemShape2Ddv(int mode, int shape, int maxi, int maxj, const double* coords, double* N,
                       double* dN)
{
    if (vis_ElemShapeCloseddv(mode, shape, maxi, maxj, 0, 2, coords, N, dN)) return;
    Shape2D(mode, shape, maxi, maxj, coords, N, dN);
}

void vis_ElemShape3D(int mode, int shape, int maxi, int maxj, int maxk, const float* coords,
                     float* N, float* dN)
{
    if (vis_ElemShapeClosed(mode, shape, maxi, maxj, maxk, 3, coords, N, dN)) return;
    Shape3D(mode, shape, maxi, maxj, maxk, coords, N, dN);
}

void vis_ElemShape3Ddv(int mode, int shape, int maxi, int maxj, int maxk, const double* coords,
                       double* N, double* dN)
{
    if (vis_ElemShapeCloseddv(mode, shape, maxi, maxj, maxk, 3, coords, N, dN)) return;
    Shape3D(mode, shape, maxi, maxj, maxk, coords, N, dN);
}

void vis_ElemShapeGeneric(int mode, int shape, int maxi, int maxj, int maxk, const float* coords,
                          float* N, float* dN)
{
    if (shape >= SYS_SHAPE_LINE && shape <= SYS_SHAPE_HEX)
        Shape(mode, shape, maxi, maxj, maxk, Def(shape)->dim, coords, N, dN);
}

void vis_ElemShapeGenericdv(int mode, int shape, int maxi, int maxj, int maxk,
                            const double* coords, double* N, double* dN)
{
    if (shape >= SYS_SHAPE_LINE && shape <= SYS_SHAPE_HEX)
        Shape(mode, shape, maxi, maxj, maxk, Def(shape)->dim, coords, N, dN);
}

void vis_ElemDropMidside(int mode, int shape, int maxi, int maxj, int maxk, float* N, int dim,
                         float* dN)
{
    Drop(mode, shape, maxi, maxj, maxk, N, dim, dN);
}

void vis_ElemDropMidsidedv(int mode, int shape, int maxi, int maxj, int maxk, double* N, int dim,
                           double* dN)
{
    Drop(mode, shape, maxi, maxj, maxk, N, dim, dN);
}

void vis_ElemNodeNatural(int shape, int maxi, int maxj, int maxk, float* coords)
{
    NodeNatural(shape, maxi, maxj, maxk, coords);
}

void vis_ElemNodeNaturaldv(int shape, int maxi, int maxj, int maxk, double* coords)
{
    NodeNatural(shape, maxi, maxj, maxk, coords);
}
