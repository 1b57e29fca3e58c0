/* vis_ElemClosedHex: unrolled closed forms of the hexahedron (internal; see
 * vis_ElemClosedPlane.h for the flags V, D and the storage).
 *
 * Corners (r0, s0, t0) in corner order; edges 0-1, 1-2, 2-3, 3-0 (bottom, t = -1), 4-5, 5-6,
 * 6-7, 7-4 (top), 0-4, 1-5, 2-6, 3-7 (vertical), each run from its first corner to its second.
 * An edge function is written once with the edge's own axis A first: a the coordinate along
 * the edge, b and c the next two axes in cyclic order, with their signs b0 and c0.
 */
#ifndef VIS_ELEMCLOSEDHEX_H
#define VIS_ELEMCLOSEDHEX_H

#include "vis_ElemClosedPlane.h"

namespace vis_closed {

/* Stores a gradient given in the edge's own axes (A, A + 1, A + 2 cyclic) at its place. */
template <class T, int A>
inline void PutAxes(T ga, T gb, T gc, T* g)
{
    g[A] = ga;
    g[(A + 1) % 3] = gb;
    g[(A + 2) % 3] = gc;
}

/* ------------------------------------------------------------------- 8 nodes ---- */

template <class T, bool V, bool D>
void Hex8(const T* x, T* N, T* dN)
{
    const T rm = 1 - x[0], rp = 1 + x[0], sm = 1 - x[1], sp = 1 + x[1];
    const T tm = T(0.125) * (1 - x[2]), tp = T(0.125) * (1 + x[2]);
    const T mm = rm * sm, pm = rp * sm, pp = rp * sp, mp = rm * sp;
    if constexpr (V) {
        N[0] = mm * tm, N[1] = pm * tm, N[2] = pp * tm, N[3] = mp * tm;
        N[4] = mm * tp, N[5] = pm * tp, N[6] = pp * tp, N[7] = mp * tp;
    }
    if constexpr (D) {
        const T e = T(0.125);
        dN[0] = -sm * tm, dN[1] = -rm * tm, dN[2] = -e * mm;
        dN[3] = sm * tm, dN[4] = -rp * tm, dN[5] = -e * pm;
        dN[6] = sp * tm, dN[7] = rp * tm, dN[8] = -e * pp;
        dN[9] = -sp * tm, dN[10] = rm * tm, dN[11] = -e * mp;
        dN[12] = -sm * tp, dN[13] = -rm * tp, dN[14] = e * mm;
        dN[15] = sm * tp, dN[16] = -rp * tp, dN[17] = e * pm;
        dN[18] = sp * tp, dN[19] = rp * tp, dN[20] = e * pp;
        dN[21] = -sp * tp, dN[22] = rm * tp, dN[23] = e * mp;
    }
}

/* ------------------------------------------------------------------ 20 nodes ---- */

/* Corner: (1 + r0 r)(1 + s0 s)(1 + t0 t)(r0 r + s0 s + t0 t - 2) / 8. */
template <class T>
inline T H20CornerV(const T* x, T r0, T s0, T t0)
{
    const T a = r0 * x[0], b = s0 * x[1], c = t0 * x[2];
    return T(0.125) * (1 + a) * (1 + b) * (1 + c) * (a + b + c - 2);
}
/* d/dr = r0 (1 + s0 s)(1 + t0 t)(2 r0 r + s0 s + t0 t - 1) / 8, and cyclically. */
template <class T>
inline void H20CornerG(const T* x, T r0, T s0, T t0, T* g)
{
    const T a = r0 * x[0], b = s0 * x[1], c = t0 * x[2], sum = a + b + c - 1;
    const T pa = 1 + a, pb = 1 + b, pc = 1 + c, e = T(0.125);
    g[0] = e * r0 * pb * pc * (sum + a);
    g[1] = e * s0 * pa * pc * (sum + b);
    g[2] = e * t0 * pa * pb * (sum + c);
}

/* Mid node of an edge along axis A: (1 - a^2)(1 + b0 b)(1 + c0 c) / 4. */
template <class T, int A>
inline T H20MidV(const T* x, T b0, T c0)
{
    const T a = x[A], b = x[(A + 1) % 3], c = x[(A + 2) % 3];
    return T(0.25) * (1 - a * a) * (1 + b0 * b) * (1 + c0 * c);
}
template <class T, int A>
inline void H20MidG(const T* x, T b0, T c0, T* g)
{
    const T a = x[A], b = x[(A + 1) % 3], c = x[(A + 2) % 3];
    const T bub = T(0.25) * (1 - a * a), pb = 1 + b0 * b, pc = 1 + c0 * c;
    PutAxes<T, A>(T(-0.5) * a * pb * pc, bub * b0 * pc, bub * c0 * pb, g);
}

template <class T, bool V, bool D>
void Hex20(const T* xin, T* N, T* dN)
{
    const T x[3] = {xin[0], xin[1], xin[2]}; /* a copy: N and dN cannot alias it */
    if constexpr (V) {
        N[0] = H20CornerV<T>(x, -1, -1, -1);
        N[1] = H20CornerV<T>(x, 1, -1, -1);
        N[2] = H20CornerV<T>(x, 1, 1, -1);
        N[3] = H20CornerV<T>(x, -1, 1, -1);
        N[4] = H20CornerV<T>(x, -1, -1, 1);
        N[5] = H20CornerV<T>(x, 1, -1, 1);
        N[6] = H20CornerV<T>(x, 1, 1, 1);
        N[7] = H20CornerV<T>(x, -1, 1, 1);
        N[8] = H20MidV<T, 0>(x, -1, -1);  /* along r: (s0, t0) */
        N[9] = H20MidV<T, 1>(x, -1, 1);   /* along s: (t0, r0) */
        N[10] = H20MidV<T, 0>(x, 1, -1);
        N[11] = H20MidV<T, 1>(x, -1, -1);
        N[12] = H20MidV<T, 0>(x, -1, 1);
        N[13] = H20MidV<T, 1>(x, 1, 1);
        N[14] = H20MidV<T, 0>(x, 1, 1);
        N[15] = H20MidV<T, 1>(x, 1, -1);
        N[16] = H20MidV<T, 2>(x, -1, -1); /* along t: (r0, s0) */
        N[17] = H20MidV<T, 2>(x, 1, -1);
        N[18] = H20MidV<T, 2>(x, 1, 1);
        N[19] = H20MidV<T, 2>(x, -1, 1);
    }
    if constexpr (D) {
        H20CornerG<T>(x, -1, -1, -1, dN);
        H20CornerG<T>(x, 1, -1, -1, dN + 3);
        H20CornerG<T>(x, 1, 1, -1, dN + 6);
        H20CornerG<T>(x, -1, 1, -1, dN + 9);
        H20CornerG<T>(x, -1, -1, 1, dN + 12);
        H20CornerG<T>(x, 1, -1, 1, dN + 15);
        H20CornerG<T>(x, 1, 1, 1, dN + 18);
        H20CornerG<T>(x, -1, 1, 1, dN + 21);
        H20MidG<T, 0>(x, -1, -1, dN + 24);
        H20MidG<T, 1>(x, -1, 1, dN + 27);
        H20MidG<T, 0>(x, 1, -1, dN + 30);
        H20MidG<T, 1>(x, -1, -1, dN + 33);
        H20MidG<T, 0>(x, -1, 1, dN + 36);
        H20MidG<T, 1>(x, 1, 1, dN + 39);
        H20MidG<T, 0>(x, 1, 1, dN + 42);
        H20MidG<T, 1>(x, 1, -1, dN + 45);
        H20MidG<T, 2>(x, -1, -1, dN + 48);
        H20MidG<T, 2>(x, 1, -1, dN + 51);
        H20MidG<T, 2>(x, 1, 1, dN + 54);
        H20MidG<T, 2>(x, -1, 1, dN + 57);
    }
}

/* ------------------------------------------------------------------ 27 nodes ---- */

/* Gradient of A(r) B(s) C(t) from A, A' and the products B C, B' C, B C'. */
template <class T>
inline void Tensor3G(T a, T da, T bc, T dbc, T bdc, T* g)
{
    g[0] = da * bc;
    g[1] = a * dbc;
    g[2] = a * bdc;
}

/* Lagrange 3 by 3 by 3: A_i(r) B_j(s) C_k(t) at position i + 3 j + 9 k, each factor the
 * quadratic at -1, 0, 1. */
template <class T, bool V, bool D>
void Hex27(const T* x, T* N, T* dN)
{
    T a[3], b[3], c[3];
    Quad1V(x[0], a);
    Quad1V(x[1], b);
    Quad1V(x[2], c);
    /* The products of the s and t factors, j + 3 k. */
    const T bc[9] = {b[0] * c[0], b[1] * c[0], b[2] * c[0], b[0] * c[1], b[1] * c[1],
                     b[2] * c[1], b[0] * c[2], b[1] * c[2], b[2] * c[2]};
    if constexpr (V) {
        N[0] = a[0] * bc[0], N[1] = a[1] * bc[0], N[2] = a[2] * bc[0];
        N[3] = a[0] * bc[1], N[4] = a[1] * bc[1], N[5] = a[2] * bc[1];
        N[6] = a[0] * bc[2], N[7] = a[1] * bc[2], N[8] = a[2] * bc[2];
        N[9] = a[0] * bc[3], N[10] = a[1] * bc[3], N[11] = a[2] * bc[3];
        N[12] = a[0] * bc[4], N[13] = a[1] * bc[4], N[14] = a[2] * bc[4];
        N[15] = a[0] * bc[5], N[16] = a[1] * bc[5], N[17] = a[2] * bc[5];
        N[18] = a[0] * bc[6], N[19] = a[1] * bc[6], N[20] = a[2] * bc[6];
        N[21] = a[0] * bc[7], N[22] = a[1] * bc[7], N[23] = a[2] * bc[7];
        N[24] = a[0] * bc[8], N[25] = a[1] * bc[8], N[26] = a[2] * bc[8];
    }
    if constexpr (D) {
        T da[3], db[3], dc[3];
        Quad1G(x[0], da);
        Quad1G(x[1], db);
        Quad1G(x[2], dc);
        const T dbc[9] = {db[0] * c[0], db[1] * c[0], db[2] * c[0], db[0] * c[1], db[1] * c[1],
                          db[2] * c[1], db[0] * c[2], db[1] * c[2], db[2] * c[2]};
        const T bdc[9] = {b[0] * dc[0], b[1] * dc[0], b[2] * dc[0], b[0] * dc[1], b[1] * dc[1],
                          b[2] * dc[1], b[0] * dc[2], b[1] * dc[2], b[2] * dc[2]};
        Tensor3G(a[0], da[0], bc[0], dbc[0], bdc[0], dN);
        Tensor3G(a[1], da[1], bc[0], dbc[0], bdc[0], dN + 3);
        Tensor3G(a[2], da[2], bc[0], dbc[0], bdc[0], dN + 6);
        Tensor3G(a[0], da[0], bc[1], dbc[1], bdc[1], dN + 9);
        Tensor3G(a[1], da[1], bc[1], dbc[1], bdc[1], dN + 12);
        Tensor3G(a[2], da[2], bc[1], dbc[1], bdc[1], dN + 15);
        Tensor3G(a[0], da[0], bc[2], dbc[2], bdc[2], dN + 18);
        Tensor3G(a[1], da[1], bc[2], dbc[2], bdc[2], dN + 21);
        Tensor3G(a[2], da[2], bc[2], dbc[2], bdc[2], dN + 24);
        Tensor3G(a[0], da[0], bc[3], dbc[3], bdc[3], dN + 27);
        Tensor3G(a[1], da[1], bc[3], dbc[3], bdc[3], dN + 30);
        Tensor3G(a[2], da[2], bc[3], dbc[3], bdc[3], dN + 33);
        Tensor3G(a[0], da[0], bc[4], dbc[4], bdc[4], dN + 36);
        Tensor3G(a[1], da[1], bc[4], dbc[4], bdc[4], dN + 39);
        Tensor3G(a[2], da[2], bc[4], dbc[4], bdc[4], dN + 42);
        Tensor3G(a[0], da[0], bc[5], dbc[5], bdc[5], dN + 45);
        Tensor3G(a[1], da[1], bc[5], dbc[5], bdc[5], dN + 48);
        Tensor3G(a[2], da[2], bc[5], dbc[5], bdc[5], dN + 51);
        Tensor3G(a[0], da[0], bc[6], dbc[6], bdc[6], dN + 54);
        Tensor3G(a[1], da[1], bc[6], dbc[6], bdc[6], dN + 57);
        Tensor3G(a[2], da[2], bc[6], dbc[6], bdc[6], dN + 60);
        Tensor3G(a[0], da[0], bc[7], dbc[7], bdc[7], dN + 63);
        Tensor3G(a[1], da[1], bc[7], dbc[7], bdc[7], dN + 66);
        Tensor3G(a[2], da[2], bc[7], dbc[7], bdc[7], dN + 69);
        Tensor3G(a[0], da[0], bc[8], dbc[8], bdc[8], dN + 72);
        Tensor3G(a[1], da[1], bc[8], dbc[8], bdc[8], dN + 75);
        Tensor3G(a[2], da[2], bc[8], dbc[8], bdc[8], dN + 78);
    }
}

/* ------------------------------------------------------------------ 32 nodes ---- */

/* Corner: (1 + r0 r)(1 + s0 s)(1 + t0 t)(9 (r^2 + s^2 + t^2) - 19) / 64. */
template <class T>
inline T H32CornerV(const T* x, T r0, T s0, T t0)
{
    const T q = 9 * (x[0] * x[0] + x[1] * x[1] + x[2] * x[2]) - 19;
    return T(0.015625) * (1 + r0 * x[0]) * (1 + s0 * x[1]) * (1 + t0 * x[2]) * q;
}
/* d/dr = (1 + s0 s)(1 + t0 t)(r0 q + 18 r (1 + r0 r)) / 64, and cyclically. */
template <class T>
inline void H32CornerG(const T* x, T r0, T s0, T t0, T* g)
{
    const T q = 9 * (x[0] * x[0] + x[1] * x[1] + x[2] * x[2]) - 19;
    const T pa = 1 + r0 * x[0], pb = 1 + s0 * x[1], pc = 1 + t0 * x[2], e = T(0.015625);
    g[0] = e * pb * pc * (r0 * q + 18 * x[0] * pa);
    g[1] = e * pa * pc * (s0 * q + 18 * x[1] * pb);
    g[2] = e * pa * pb * (t0 * q + 18 * x[2] * pc);
}

/* Edge node along axis A at a = k / 3 (k = +-1): 9 (1 - a^2)(1 + 3 k a)(1 + b0 b)(1 + c0 c) / 64. */
template <class T, int A>
inline T H32EdgeV(const T* x, T k, T b0, T c0)
{
    const T a = x[A], b = x[(A + 1) % 3], c = x[(A + 2) % 3];
    return T(0.140625) * (1 - a * a) * (1 + 3 * k * a) * (1 + b0 * b) * (1 + c0 * c);
}
template <class T, int A>
inline void H32EdgeG(const T* x, T k, T b0, T c0, T* g)
{
    const T a = x[A], b = x[(A + 1) % 3], c = x[(A + 2) % 3], e = T(0.140625);
    const T bub = 1 - a * a, lin = 1 + 3 * k * a, pb = 1 + b0 * b, pc = 1 + c0 * c;
    const T along = bub * lin;
    PutAxes<T, A>(e * pb * pc * (3 * k * bub - 2 * a * lin), e * along * b0 * pc, e * along * c0 * pb, g);
}

/* Cubic serendipity: corners, then two nodes per edge at one and two thirds from its first
 * corner, edge by edge. */
template <class T, bool V, bool D>
void Hex32(const T* xin, T* N, T* dN)
{
    const T x[3] = {xin[0], xin[1], xin[2]}; /* a copy: N and dN cannot alias it */
    if constexpr (V) {
        N[0] = H32CornerV<T>(x, -1, -1, -1);
        N[1] = H32CornerV<T>(x, 1, -1, -1);
        N[2] = H32CornerV<T>(x, 1, 1, -1);
        N[3] = H32CornerV<T>(x, -1, 1, -1);
        N[4] = H32CornerV<T>(x, -1, -1, 1);
        N[5] = H32CornerV<T>(x, 1, -1, 1);
        N[6] = H32CornerV<T>(x, 1, 1, 1);
        N[7] = H32CornerV<T>(x, -1, 1, 1);
        N[8] = H32EdgeV<T, 0>(x, -1, -1, -1); /* edge 0-1 along r: (k; s0, t0) */
        N[9] = H32EdgeV<T, 0>(x, 1, -1, -1);
        N[10] = H32EdgeV<T, 1>(x, -1, -1, 1); /* edge 1-2 along s: (k; t0, r0) */
        N[11] = H32EdgeV<T, 1>(x, 1, -1, 1);
        N[12] = H32EdgeV<T, 0>(x, 1, 1, -1);  /* edge 2-3, r from 1 to -1 */
        N[13] = H32EdgeV<T, 0>(x, -1, 1, -1);
        N[14] = H32EdgeV<T, 1>(x, 1, -1, -1); /* edge 3-0, s from 1 to -1 */
        N[15] = H32EdgeV<T, 1>(x, -1, -1, -1);
        N[16] = H32EdgeV<T, 0>(x, -1, -1, 1); /* edges 4-5 .. 7-4 at t = 1 */
        N[17] = H32EdgeV<T, 0>(x, 1, -1, 1);
        N[18] = H32EdgeV<T, 1>(x, -1, 1, 1);
        N[19] = H32EdgeV<T, 1>(x, 1, 1, 1);
        N[20] = H32EdgeV<T, 0>(x, 1, 1, 1);
        N[21] = H32EdgeV<T, 0>(x, -1, 1, 1);
        N[22] = H32EdgeV<T, 1>(x, 1, 1, -1);
        N[23] = H32EdgeV<T, 1>(x, -1, 1, -1);
        N[24] = H32EdgeV<T, 2>(x, -1, -1, -1); /* vertical edges along t: (k; r0, s0) */
        N[25] = H32EdgeV<T, 2>(x, 1, -1, -1);
        N[26] = H32EdgeV<T, 2>(x, -1, 1, -1);
        N[27] = H32EdgeV<T, 2>(x, 1, 1, -1);
        N[28] = H32EdgeV<T, 2>(x, -1, 1, 1);
        N[29] = H32EdgeV<T, 2>(x, 1, 1, 1);
        N[30] = H32EdgeV<T, 2>(x, -1, -1, 1);
        N[31] = H32EdgeV<T, 2>(x, 1, -1, 1);
    }
    if constexpr (D) {
        H32CornerG<T>(x, -1, -1, -1, dN);
        H32CornerG<T>(x, 1, -1, -1, dN + 3);
        H32CornerG<T>(x, 1, 1, -1, dN + 6);
        H32CornerG<T>(x, -1, 1, -1, dN + 9);
        H32CornerG<T>(x, -1, -1, 1, dN + 12);
        H32CornerG<T>(x, 1, -1, 1, dN + 15);
        H32CornerG<T>(x, 1, 1, 1, dN + 18);
        H32CornerG<T>(x, -1, 1, 1, dN + 21);
        H32EdgeG<T, 0>(x, -1, -1, -1, dN + 24);
        H32EdgeG<T, 0>(x, 1, -1, -1, dN + 27);
        H32EdgeG<T, 1>(x, -1, -1, 1, dN + 30);
        H32EdgeG<T, 1>(x, 1, -1, 1, dN + 33);
        H32EdgeG<T, 0>(x, 1, 1, -1, dN + 36);
        H32EdgeG<T, 0>(x, -1, 1, -1, dN + 39);
        H32EdgeG<T, 1>(x, 1, -1, -1, dN + 42);
        H32EdgeG<T, 1>(x, -1, -1, -1, dN + 45);
        H32EdgeG<T, 0>(x, -1, -1, 1, dN + 48);
        H32EdgeG<T, 0>(x, 1, -1, 1, dN + 51);
        H32EdgeG<T, 1>(x, -1, 1, 1, dN + 54);
        H32EdgeG<T, 1>(x, 1, 1, 1, dN + 57);
        H32EdgeG<T, 0>(x, 1, 1, 1, dN + 60);
        H32EdgeG<T, 0>(x, -1, 1, 1, dN + 63);
        H32EdgeG<T, 1>(x, 1, 1, -1, dN + 66);
        H32EdgeG<T, 1>(x, -1, 1, -1, dN + 69);
        H32EdgeG<T, 2>(x, -1, -1, -1, dN + 72);
        H32EdgeG<T, 2>(x, 1, -1, -1, dN + 75);
        H32EdgeG<T, 2>(x, -1, 1, -1, dN + 78);
        H32EdgeG<T, 2>(x, 1, 1, -1, dN + 81);
        H32EdgeG<T, 2>(x, -1, 1, 1, dN + 84);
        H32EdgeG<T, 2>(x, 1, 1, 1, dN + 87);
        H32EdgeG<T, 2>(x, -1, -1, 1, dN + 90);
        H32EdgeG<T, 2>(x, 1, -1, 1, dN + 93);
    }
}

}  // namespace vis_closed

#endif
