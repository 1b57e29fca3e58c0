/* vis_ElemClosedPyr: unrolled closed forms of the pyramid (internal; see vis_ElemClosedPlane.h
 * for the flags V, D and the storage).
 *
 * The linear pyramid is polynomial. The quadratic ones are the collapsed forms of the generic
 * evaluator, written out: with w = (1 - t) / 2 the shrinking of the square section, a node of
 * layer l is F(cx, cy) P_l(t), F a plane function of the section coordinates
 * (cx, cy) = (r / w, s / w) and P_l the quadratic in t at -1, 0, 1. The divisor is kept at or
 * above 1e-12 (1e-6 in float) so that the apex evaluates; the derivatives of the section
 * coordinates still follow w: d(cx)/dr = 1 / w, d(cx)/dt = cx / (2 w).
 */
#ifndef VIS_ELEMCLOSEDPYR_H
#define VIS_ELEMCLOSEDPYR_H

#include "vis_ElemClosedPlane.h"

namespace vis_closed {

/* Base corners (1 +- r)(1 +- s)(1 - t) / 8 in corner order, the apex (1 + t) / 2. */
template <class T, bool V, bool D>
void Pyr5(const T* x, T* N, T* dN)
{
    const T rm = 1 - x[0], rp = 1 + x[0], sm = 1 - x[1], sp = 1 + x[1], tm = 1 - x[2];
    if constexpr (V) {
        const T e = T(0.125) * tm;
        N[0] = e * rm * sm;
        N[1] = e * rp * sm;
        N[2] = e * rp * sp;
        N[3] = e * rm * sp;
        N[4] = T(0.5) * (1 + x[2]);
    }
    if constexpr (D) {
        const T e = T(0.125) * tm, f = T(-0.125);
        dN[0] = -e * sm, dN[1] = -e * rm, dN[2] = f * rm * sm;
        dN[3] = e * sm, dN[4] = -e * rp, dN[5] = f * rp * sm;
        dN[6] = e * sp, dN[7] = e * rp, dN[8] = f * rp * sp;
        dN[9] = -e * sp, dN[10] = e * rm, dN[11] = f * rm * sp;
        dN[12] = 0, dN[13] = 0, dN[14] = T(0.5);
    }
}

/* The section of a collapsed form at height t. */
template <class T>
struct PyrSection {
    T iw;       /* 1 / w, w kept away from 0 */
    T cx, cy;   /* r / w, s / w */
    T cxt, cyt; /* their t derivatives, cx / (2 w) and cy / (2 w) */
    T p[3];     /* the layer functions in t */
    T pt[3];    /* and their derivatives */
    T iwp[3];   /* p / w, the factor of the r and s derivatives */
};

template <class T, bool D>
inline PyrSection<T> PyrSect(const T* x)
{
    const T eps = sizeof(T) == 4 ? T(1e-6) : T(1e-12);
    PyrSection<T> c{};
    T w = T(0.5) * (1 - x[2]);
    if (w < eps) w = eps;
    c.iw = 1 / w;
    c.cx = x[0] * c.iw;
    c.cy = x[1] * c.iw;
    Quad1V(x[2], c.p);
    if constexpr (D) {
        c.cxt = T(0.5) * c.cx * c.iw;
        c.cyt = T(0.5) * c.cy * c.iw;
        Quad1G(x[2], c.pt);
        c.iwp[0] = c.iw * c.p[0], c.iwp[1] = c.iw * c.p[1], c.iwp[2] = c.iw * c.p[2];
    }
    return c;
}

/* Gradient of F(cx, cy) P(t), with f = F, g its gradient in the section, layer l. */
template <class T>
inline void PyrChain(const PyrSection<T>& c, int l, T f, const T* g, T* out)
{
    out[0] = g[0] * c.iwp[l];
    out[1] = g[1] * c.iwp[l];
    out[2] = (g[0] * c.cxt + g[1] * c.cyt) * c.p[l] + f * c.pt[l];
}

/* 13 nodes: base corners and base mid nodes are the 8-node square times P_0, the apex is P_2,
 * the mid nodes of the slant edges 0-4 .. 3-4 are the bilinear corners times P_1. Order:
 * corners 0..3, apex 4, base edges 5..8, slant edges 9..12. */
template <class T, bool V, bool D>
void Pyr13(const T* x, T* N, T* dN)
{
    const PyrSection<T> c = PyrSect<T, D>(x);
    T q[8];
    Quad8V(c.cx, c.cy, q);
    const T b[4] = {Q4V<T>(c.cx, c.cy, -1, -1), Q4V<T>(c.cx, c.cy, 1, -1), Q4V<T>(c.cx, c.cy, 1, 1),
                    Q4V<T>(c.cx, c.cy, -1, 1)};
    if constexpr (V) {
        const T p0 = c.p[0], p1 = c.p[1];
        N[0] = q[0] * p0, N[1] = q[1] * p0, N[2] = q[2] * p0, N[3] = q[3] * p0;
        N[4] = c.p[2];
        N[5] = q[4] * p0, N[6] = q[5] * p0, N[7] = q[6] * p0, N[8] = q[7] * p0;
        N[9] = b[0] * p1, N[10] = b[1] * p1, N[11] = b[2] * p1, N[12] = b[3] * p1;
    }
    if constexpr (D) {
        T g[16], h[8];
        Quad8G(c.cx, c.cy, g);
        Q4G<T>(c.cx, c.cy, -1, -1, h);
        Q4G<T>(c.cx, c.cy, 1, -1, h + 2);
        Q4G<T>(c.cx, c.cy, 1, 1, h + 4);
        Q4G<T>(c.cx, c.cy, -1, 1, h + 6);
        PyrChain(c, 0, q[0], g, dN);
        PyrChain(c, 0, q[1], g + 2, dN + 3);
        PyrChain(c, 0, q[2], g + 4, dN + 6);
        PyrChain(c, 0, q[3], g + 6, dN + 9);
        dN[12] = 0, dN[13] = 0, dN[14] = c.pt[2];
        PyrChain(c, 0, q[4], g + 8, dN + 15);
        PyrChain(c, 0, q[5], g + 10, dN + 18);
        PyrChain(c, 0, q[6], g + 12, dN + 21);
        PyrChain(c, 0, q[7], g + 14, dN + 24);
        PyrChain(c, 1, b[0], h, dN + 27);
        PyrChain(c, 1, b[1], h + 2, dN + 30);
        PyrChain(c, 1, b[2], h + 4, dN + 33);
        PyrChain(c, 1, b[3], h + 6, dN + 36);
    }
}

/* 14 nodes, Lagrange by layers: the 3 by 3 square times P_0 (lexical, 0..8), the 2 by 2 square
 * times P_1 (lexical: (-,-), (+,-), (-,+), (+,+), 9..12), the apex P_2 (13). */
template <class T, bool V, bool D>
void Pyr14(const T* x, T* N, T* dN)
{
    const PyrSection<T> c = PyrSect<T, D>(x);
    T a[3], b[3];
    Quad1V(c.cx, a);
    Quad1V(c.cy, b);
    const T am = T(0.5) * (1 - c.cx), ap = T(0.5) * (1 + c.cx);
    const T bm = T(0.5) * (1 - c.cy), bp = T(0.5) * (1 + c.cy);
    const T q[13] = {a[0] * b[0], a[1] * b[0], a[2] * b[0], a[0] * b[1], a[1] * b[1],
                     a[2] * b[1], a[0] * b[2], a[1] * b[2], a[2] * b[2], am * bm,
                     ap * bm,     am * bp,     ap * bp};
    if constexpr (V) {
        const T p0 = c.p[0], p1 = c.p[1];
        N[0] = q[0] * p0, N[1] = q[1] * p0, N[2] = q[2] * p0;
        N[3] = q[3] * p0, N[4] = q[4] * p0, N[5] = q[5] * p0;
        N[6] = q[6] * p0, N[7] = q[7] * p0, N[8] = q[8] * p0;
        N[9] = q[9] * p1, N[10] = q[10] * p1, N[11] = q[11] * p1, N[12] = q[12] * p1;
        N[13] = c.p[2];
    }
    if constexpr (D) {
        T da[3], db[3];
        Quad1G(c.cx, da);
        Quad1G(c.cy, db);
        const T h = T(0.5);
        const T g[26] = {da[0] * b[0], a[0] * db[0], da[1] * b[0], a[1] * db[0], da[2] * b[0], a[2] * db[0],
                         da[0] * b[1], a[0] * db[1], da[1] * b[1], a[1] * db[1], da[2] * b[1], a[2] * db[1],
                         da[0] * b[2], a[0] * db[2], da[1] * b[2], a[1] * db[2], da[2] * b[2], a[2] * db[2],
                         -h * bm,      -h * am,      h * bm,       -h * ap,      -h * bp,      h * am,
                         h * bp,       h * ap};
        PyrChain(c, 0, q[0], g, dN);
        PyrChain(c, 0, q[1], g + 2, dN + 3);
        PyrChain(c, 0, q[2], g + 4, dN + 6);
        PyrChain(c, 0, q[3], g + 6, dN + 9);
        PyrChain(c, 0, q[4], g + 8, dN + 12);
        PyrChain(c, 0, q[5], g + 10, dN + 15);
        PyrChain(c, 0, q[6], g + 12, dN + 18);
        PyrChain(c, 0, q[7], g + 14, dN + 21);
        PyrChain(c, 0, q[8], g + 16, dN + 24);
        PyrChain(c, 1, q[9], g + 18, dN + 27);
        PyrChain(c, 1, q[10], g + 20, dN + 30);
        PyrChain(c, 1, q[11], g + 22, dN + 33);
        PyrChain(c, 1, q[12], g + 24, dN + 36);
        dN[39] = 0, dN[40] = 0, dN[41] = c.pt[2];
    }
}

}  // namespace vis_closed

#endif
