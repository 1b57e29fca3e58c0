/* vis_ElemClosedWed: unrolled closed forms of the wedge (internal; see vis_ElemClosedPlane.h
 * for the flags V, D and the storage). The triangle in (r, s) with area coordinates
 * L0 = 1 - r - s, L1 = r, L2 = s, and -1..1 in t.
 */
#ifndef VIS_ELEMCLOSEDWED_H
#define VIS_ELEMCLOSEDWED_H

#include "vis_ElemClosedPlane.h"

namespace vis_closed {

/* Gradient of f(r, s) e(t): g the plane gradient of f, et the derivative of e. */
template <class T>
inline void Times1D(const T* g, T f, T e, T et, T* out)
{
    out[0] = g[0] * e;
    out[1] = g[1] * e;
    out[2] = f * et;
}

/* The triangle functions times (1 - t) / 2 (corners 0..2), then times (1 + t) / 2 (3..5). */
template <class T, bool V, bool D>
void Wed6(const T* x, T* N, T* dN)
{
    const T r = x[0], s = x[1], l = 1 - r - s, lo = T(0.5) * (1 - x[2]), hi = T(0.5) * (1 + x[2]);
    if constexpr (V) {
        N[0] = l * lo, N[1] = r * lo, N[2] = s * lo;
        N[3] = l * hi, N[4] = r * hi, N[5] = s * hi;
    }
    if constexpr (D) {
        const T h = T(0.5);
        dN[0] = -lo, dN[1] = -lo, dN[2] = -h * l;
        dN[3] = lo, dN[4] = 0, dN[5] = -h * r;
        dN[6] = 0, dN[7] = lo, dN[8] = -h * s;
        dN[9] = -hi, dN[10] = -hi, dN[11] = h * l;
        dN[12] = hi, dN[13] = 0, dN[14] = h * r;
        dN[15] = 0, dN[16] = hi, dN[17] = h * s;
    }
}

/* Quadratic corner of area coordinate L (gradient gl) at t = tc (+-1):
 * L (1 + tc t)(2 L - 2 + tc t) / 2, the usual 15-node corner. */
template <class T>
inline T W15CornerV(T L, T t, T tc)
{
    return T(0.5) * L * (1 + tc * t) * (2 * L - 2 + tc * t);
}
/* d/dL = (1 + tc t)(4 L - 2 + tc t) / 2, d/dt = tc L (2 L - 1 + 2 tc t) / 2. */
template <class T>
inline void W15CornerG(T L, const T* gl, T t, T tc, T* g)
{
    const T dl = T(0.5) * (1 + tc * t) * (4 * L - 2 + tc * t);
    g[0] = dl * gl[0];
    g[1] = dl * gl[1];
    g[2] = T(0.5) * tc * L * (2 * L - 1 + 2 * tc * t);
}

/* 15 nodes: corners, then the mid nodes of the bottom edges 0-1, 1-2, 2-0 (the triangle's
 * 4 La Lb times (1 - t) / 2), of the top edges (times (1 + t) / 2), and of the vertical edges
 * 0-3, 1-4, 2-5 (L (1 - t^2)). */
template <class T, bool V, bool D>
void Wed15(const T* x, T* N, T* dN)
{
    const T r = x[0], s = x[1], t = x[2];
    const T l = 1 - r - s, lo = T(0.5) * (1 - t), hi = T(0.5) * (1 + t), m = 1 - t * t;
    const T m01 = 4 * l * r, m12 = 4 * r * s, m20 = 4 * s * l;
    if constexpr (V) {
        N[0] = W15CornerV<T>(l, t, -1), N[1] = W15CornerV<T>(r, t, -1), N[2] = W15CornerV<T>(s, t, -1);
        N[3] = W15CornerV<T>(l, t, 1), N[4] = W15CornerV<T>(r, t, 1), N[5] = W15CornerV<T>(s, t, 1);
        N[6] = m01 * lo, N[7] = m12 * lo, N[8] = m20 * lo;
        N[9] = m01 * hi, N[10] = m12 * hi, N[11] = m20 * hi;
        N[12] = l * m, N[13] = r * m, N[14] = s * m;
    }
    if constexpr (D) {
        const T gl0[2] = {-1, -1}, gl1[2] = {1, 0}, gl2[2] = {0, 1};
        W15CornerG<T>(l, gl0, t, -1, dN);
        W15CornerG<T>(r, gl1, t, -1, dN + 3);
        W15CornerG<T>(s, gl2, t, -1, dN + 6);
        W15CornerG<T>(l, gl0, t, 1, dN + 9);
        W15CornerG<T>(r, gl1, t, 1, dN + 12);
        W15CornerG<T>(s, gl2, t, 1, dN + 15);
        const T h = T(0.5), tt = -2 * t;
        const T g01[2] = {4 * (l - r), -4 * r}, g12[2] = {4 * s, 4 * r}, g20[2] = {-4 * s, 4 * (l - s)};
        Times1D(g01, m01, lo, -h, dN + 18);
        Times1D(g12, m12, lo, -h, dN + 21);
        Times1D(g20, m20, lo, -h, dN + 24);
        Times1D(g01, m01, hi, h, dN + 27);
        Times1D(g12, m12, hi, h, dN + 30);
        Times1D(g20, m20, hi, h, dN + 33);
        Times1D(gl0, l, m, tt, dN + 36);
        Times1D(gl1, r, m, tt, dN + 39);
        Times1D(gl2, s, m, tt, dN + 42);
    }
}

/* Lagrange wedge of 3 nodes in each direction: the Lagrange triangle (lexical) in each of the
 * layers t = -1, 0, 1, layer after layer, times the quadratic of the layer in t. */
template <class T, bool V, bool D>
void Wed18(const T* x, T* N, T* dN)
{
    T b[6], e[3];
    Tri6LagV(x[0], x[1], b);
    Quad1V(x[2], e);
    if constexpr (V) {
        N[0] = b[0] * e[0], N[1] = b[1] * e[0], N[2] = b[2] * e[0];
        N[3] = b[3] * e[0], N[4] = b[4] * e[0], N[5] = b[5] * e[0];
        N[6] = b[0] * e[1], N[7] = b[1] * e[1], N[8] = b[2] * e[1];
        N[9] = b[3] * e[1], N[10] = b[4] * e[1], N[11] = b[5] * e[1];
        N[12] = b[0] * e[2], N[13] = b[1] * e[2], N[14] = b[2] * e[2];
        N[15] = b[3] * e[2], N[16] = b[4] * e[2], N[17] = b[5] * e[2];
    }
    if constexpr (D) {
        T g[12], et[3];
        Tri6LagG(x[0], x[1], g);
        Quad1G(x[2], et);
        Times1D(g, b[0], e[0], et[0], dN);
        Times1D(g + 2, b[1], e[0], et[0], dN + 3);
        Times1D(g + 4, b[2], e[0], et[0], dN + 6);
        Times1D(g + 6, b[3], e[0], et[0], dN + 9);
        Times1D(g + 8, b[4], e[0], et[0], dN + 12);
        Times1D(g + 10, b[5], e[0], et[0], dN + 15);
        Times1D(g, b[0], e[1], et[1], dN + 18);
        Times1D(g + 2, b[1], e[1], et[1], dN + 21);
        Times1D(g + 4, b[2], e[1], et[1], dN + 24);
        Times1D(g + 6, b[3], e[1], et[1], dN + 27);
        Times1D(g + 8, b[4], e[1], et[1], dN + 30);
        Times1D(g + 10, b[5], e[1], et[1], dN + 33);
        Times1D(g, b[0], e[2], et[2], dN + 36);
        Times1D(g + 2, b[1], e[2], et[2], dN + 39);
        Times1D(g + 4, b[2], e[2], et[2], dN + 42);
        Times1D(g + 6, b[3], e[2], et[2], dN + 45);
        Times1D(g + 8, b[4], e[2], et[2], dN + 48);
        Times1D(g + 10, b[5], e[2], et[2], dN + 51);
    }
}

}  // namespace vis_closed

#endif
