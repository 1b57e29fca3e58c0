/* vis_ElemClosedPlane: unrolled closed forms of the line, triangle and quadrilateral (internal;
 * included by vis_ElemShapeClosed.cpp and the solid families).
 *
 * Every form is a template on the precision T and on two flags: V writes the functions N, D the
 * derivatives dN. A form computes only what its flags ask, so the values-only variant holds no
 * derivative arithmetic. Derivatives are stored function by function with all components
 * together (stride 1 for the line, 2 for plane elements). The basis pieces that the solids reuse
 * come as a value function (...V) and a gradient function (...G).
 */
#ifndef VIS_ELEMCLOSEDPLANE_H
#define VIS_ELEMCLOSEDPLANE_H

namespace vis_closed {

/* ----------------------------------------------------------------- 1D pieces ---- */

/* The quadratic at -1, 0, 1 and its derivative, in the order of the positions along the line. */
template <class T>
inline void Quad1V(T r, T* a)
{
    a[0] = T(0.5) * r * (r - 1);
    a[1] = 1 - r * r;
    a[2] = T(0.5) * r * (r + 1);
}
template <class T>
inline void Quad1G(T r, T* a)
{
    a[0] = r - T(0.5);
    a[1] = T(-2) * r;
    a[2] = r + T(0.5);
}

/* ---------------------------------------------------------------------- line ---- */

template <class T, bool V, bool D>
void Line2(const T* x, T* N, T* dN)
{
    const T r = x[0];
    if constexpr (V) {
        N[0] = T(0.5) * (1 - r);
        N[1] = T(0.5) * (1 + r);
    }
    if constexpr (D) {
        dN[0] = T(-0.5);
        dN[1] = T(0.5);
    }
}

/* Serendipity order: the two ends first, then the middle node. */
template <class T, bool V, bool D>
void Line3(const T* x, T* N, T* dN)
{
    const T r = x[0];
    if constexpr (V) {
        N[0] = T(0.5) * r * (r - 1);
        N[1] = T(0.5) * r * (r + 1);
        N[2] = 1 - r * r;
    }
    if constexpr (D) {
        dN[0] = r - T(0.5);
        dN[1] = r + T(0.5);
        dN[2] = T(-2) * r;
    }
}

/* ------------------------------------------------------------------ triangle ---- */

template <class T, bool V, bool D>
void Tri3(const T* x, T* N, T* dN)
{
    if constexpr (V) {
        N[0] = 1 - x[0] - x[1];
        N[1] = x[0];
        N[2] = x[1];
    }
    if constexpr (D) {
        dN[0] = -1, dN[1] = -1;
        dN[2] = 1, dN[3] = 0;
        dN[4] = 0, dN[5] = 1;
    }
}

/* The six quadratic triangle functions in serendipity order (corners, then the mid nodes of
 * edges 0-1, 1-2, 2-0), by area coordinates L0 = 1 - r - s, L1 = r, L2 = s. */
template <class T>
inline void Tri6V(T r, T s, T* v)
{
    const T l = 1 - r - s;
    v[0] = l * (2 * l - 1);
    v[1] = r * (2 * r - 1);
    v[2] = s * (2 * s - 1);
    v[3] = 4 * l * r;
    v[4] = 4 * r * s;
    v[5] = 4 * s * l;
}
/* Their gradients, two components per function. */
template <class T>
inline void Tri6G(T r, T s, T* g)
{
    const T l = 1 - r - s, c = 1 - 4 * l;
    g[0] = c, g[1] = c;
    g[2] = 4 * r - 1, g[3] = 0;
    g[4] = 0, g[5] = 4 * s - 1;
    g[6] = 4 * (l - r), g[7] = -4 * r;
    g[8] = 4 * s, g[9] = 4 * r;
    g[10] = -4 * s, g[11] = 4 * (l - s);
}

template <class T, bool V, bool D>
void Tri6(const T* x, T* N, T* dN)
{
    if constexpr (V) Tri6V(x[0], x[1], N);
    if constexpr (D) Tri6G(x[0], x[1], dN);
}

/* The Lagrange triangle of 3 by 3 nodes in lexical order: corner 0, mid 0-1, corner 1,
 * mid 2-0, mid 1-2, corner 2; the same functions as Tri6 in that order. */
template <class T>
inline void Tri6LagV(T r, T s, T* v)
{
    T q[6];
    Tri6V(r, s, q);
    v[0] = q[0], v[1] = q[3], v[2] = q[1], v[3] = q[5], v[4] = q[4], v[5] = q[2];
}
template <class T>
inline void Tri6LagG(T r, T s, T* g)
{
    T q[12];
    Tri6G(r, s, q);
    g[0] = q[0], g[1] = q[1];
    g[2] = q[6], g[3] = q[7];
    g[4] = q[2], g[5] = q[3];
    g[6] = q[10], g[7] = q[11];
    g[8] = q[8], g[9] = q[9];
    g[10] = q[4], g[11] = q[5];
}

template <class T, bool V, bool D>
void Tri6Lag(const T* x, T* N, T* dN)
{
    if constexpr (V) Tri6LagV(x[0], x[1], N);
    if constexpr (D) Tri6LagG(x[0], x[1], dN);
}

/* ------------------------------------------------------------- quadrilateral ---- */

/* Bilinear corner at (r0, s0): (1 + r0 r)(1 + s0 s) / 4. */
template <class T>
inline T Q4V(T r, T s, T r0, T s0)
{
    return T(0.25) * (1 + r0 * r) * (1 + s0 * s);
}
template <class T>
inline void Q4G(T r, T s, T r0, T s0, T* g)
{
    g[0] = T(0.25) * r0 * (1 + s0 * s);
    g[1] = T(0.25) * s0 * (1 + r0 * r);
}

template <class T, bool V, bool D>
void Quad4(const T* x, T* N, T* dN)
{
    const T r = x[0], s = x[1];
    if constexpr (V) {
        N[0] = Q4V<T>(r, s, -1, -1);
        N[1] = Q4V<T>(r, s, 1, -1);
        N[2] = Q4V<T>(r, s, 1, 1);
        N[3] = Q4V<T>(r, s, -1, 1);
    }
    if constexpr (D) {
        Q4G<T>(r, s, -1, -1, dN);
        Q4G<T>(r, s, 1, -1, dN + 2);
        Q4G<T>(r, s, 1, 1, dN + 4);
        Q4G<T>(r, s, -1, 1, dN + 6);
    }
}

/* 8-node corner at (r0, s0): (1 + r0 r)(1 + s0 s)(r0 r + s0 s - 1) / 4. Its r derivative is
 * r0 (1 + s0 s)(2 r0 r + s0 s) / 4, and the same with the roles changed for s. */
template <class T>
inline T Q8CornerV(T r, T s, T r0, T s0)
{
    return T(0.25) * (1 + r0 * r) * (1 + s0 * s) * (r0 * r + s0 * s - 1);
}
template <class T>
inline void Q8CornerG(T r, T s, T r0, T s0, T* g)
{
    g[0] = T(0.25) * r0 * (1 + s0 * s) * (2 * r0 * r + s0 * s);
    g[1] = T(0.25) * s0 * (1 + r0 * r) * (r0 * r + 2 * s0 * s);
}

/* 8-node mid node of an edge along r at s = s0: (1 - r^2)(1 + s0 s) / 2. */
template <class T>
inline T Q8MidRV(T r, T s, T s0)
{
    return T(0.5) * (1 - r * r) * (1 + s0 * s);
}
template <class T>
inline void Q8MidRG(T r, T s, T s0, T* g)
{
    g[0] = -r * (1 + s0 * s);
    g[1] = T(0.5) * s0 * (1 - r * r);
}
/* The same along s at r = r0. */
template <class T>
inline T Q8MidSV(T r, T s, T r0)
{
    return T(0.5) * (1 - s * s) * (1 + r0 * r);
}
template <class T>
inline void Q8MidSG(T r, T s, T r0, T* g)
{
    g[0] = T(0.5) * r0 * (1 - s * s);
    g[1] = -s * (1 + r0 * r);
}

/* The eight serendipity functions, values into v. */
template <class T>
inline void Quad8V(T r, T s, T* v)
{
    v[0] = Q8CornerV<T>(r, s, -1, -1);
    v[1] = Q8CornerV<T>(r, s, 1, -1);
    v[2] = Q8CornerV<T>(r, s, 1, 1);
    v[3] = Q8CornerV<T>(r, s, -1, 1);
    v[4] = Q8MidRV<T>(r, s, -1);
    v[5] = Q8MidSV<T>(r, s, 1);
    v[6] = Q8MidRV<T>(r, s, 1);
    v[7] = Q8MidSV<T>(r, s, -1);
}
/* Their gradients, two components per function. */
template <class T>
inline void Quad8G(T r, T s, T* g)
{
    Q8CornerG<T>(r, s, -1, -1, g);
    Q8CornerG<T>(r, s, 1, -1, g + 2);
    Q8CornerG<T>(r, s, 1, 1, g + 4);
    Q8CornerG<T>(r, s, -1, 1, g + 6);
    Q8MidRG<T>(r, s, -1, g + 8);
    Q8MidSG<T>(r, s, 1, g + 10);
    Q8MidRG<T>(r, s, 1, g + 12);
    Q8MidSG<T>(r, s, -1, g + 14);
}

template <class T, bool V, bool D>
void Quad8(const T* x, T* N, T* dN)
{
    if constexpr (V) Quad8V(x[0], x[1], N);
    if constexpr (D) Quad8G(x[0], x[1], dN);
}

/* Lagrange 3 by 3: A_a(r) B_b(s) at position a + 3 b, A and B the quadratics at -1, 0, 1. */
template <class T, bool V, bool D>
void Quad9(const T* x, T* N, T* dN)
{
    T a[3], b[3];
    Quad1V(x[0], a);
    Quad1V(x[1], b);
    if constexpr (V) {
        N[0] = a[0] * b[0], N[1] = a[1] * b[0], N[2] = a[2] * b[0];
        N[3] = a[0] * b[1], N[4] = a[1] * b[1], N[5] = a[2] * b[1];
        N[6] = a[0] * b[2], N[7] = a[1] * b[2], N[8] = a[2] * b[2];
    }
    if constexpr (D) {
        T da[3], db[3];
        Quad1G(x[0], da);
        Quad1G(x[1], db);
        dN[0] = da[0] * b[0], dN[1] = a[0] * db[0];
        dN[2] = da[1] * b[0], dN[3] = a[1] * db[0];
        dN[4] = da[2] * b[0], dN[5] = a[2] * db[0];
        dN[6] = da[0] * b[1], dN[7] = a[0] * db[1];
        dN[8] = da[1] * b[1], dN[9] = a[1] * db[1];
        dN[10] = da[2] * b[1], dN[11] = a[2] * db[1];
        dN[12] = da[0] * b[2], dN[13] = a[0] * db[2];
        dN[14] = da[1] * b[2], dN[15] = a[1] * db[2];
        dN[16] = da[2] * b[2], dN[17] = a[2] * db[2];
    }
}

/* 12-node corner at (r0, s0): (1 + r0 r)(1 + s0 s)(9 (r^2 + s^2) - 10) / 32. */
template <class T>
inline T Q12CornerV(T r, T s, T r0, T s0)
{
    return T(0.03125) * (1 + r0 * r) * (1 + s0 * s) * (9 * (r * r + s * s) - 10);
}
template <class T>
inline void Q12CornerG(T r, T s, T r0, T s0, T* g)
{
    const T a = 1 + r0 * r, b = 1 + s0 * s, q = 9 * (r * r + s * s) - 10;
    g[0] = T(0.03125) * b * (r0 * q + 18 * r * a);
    g[1] = T(0.03125) * a * (s0 * q + 18 * s * b);
}

/* 12-node edge node along r at r = c / 3 (c = +-1), s = s0:
 * 9 (1 - r^2)(1 + 3 c r)(1 + s0 s) / 32. */
template <class T>
inline T Q12EdgeRV(T r, T s, T c, T s0)
{
    return T(0.28125) * (1 - r * r) * (1 + 3 * c * r) * (1 + s0 * s);
}
template <class T>
inline void Q12EdgeRG(T r, T s, T c, T s0, T* g)
{
    const T bub = 1 - r * r, lin = 1 + 3 * c * r, side = 1 + s0 * s;
    g[0] = T(0.28125) * side * (3 * c * bub - 2 * r * lin);
    g[1] = T(0.28125) * s0 * bub * lin;
}
/* The same along s at s = c / 3, r = r0. */
template <class T>
inline T Q12EdgeSV(T r, T s, T c, T r0)
{
    return T(0.28125) * (1 - s * s) * (1 + 3 * c * s) * (1 + r0 * r);
}
template <class T>
inline void Q12EdgeSG(T r, T s, T c, T r0, T* g)
{
    const T bub = 1 - s * s, lin = 1 + 3 * c * s, side = 1 + r0 * r;
    g[0] = T(0.28125) * r0 * bub * lin;
    g[1] = T(0.28125) * side * (3 * c * bub - 2 * s * lin);
}

/* Cubic serendipity: corners, then two nodes per edge at one and two thirds from its first
 * corner (edge 0 runs r = -1 to 1 at s = -1, edge 1 s = -1 to 1 at r = 1, edge 2 r = 1 to -1 at
 * s = 1, edge 3 s = 1 to -1 at r = -1). */
template <class T, bool V, bool D>
void Quad12(const T* x, T* N, T* dN)
{
    const T r = x[0], s = x[1];
    if constexpr (V) {
        N[0] = Q12CornerV<T>(r, s, -1, -1);
        N[1] = Q12CornerV<T>(r, s, 1, -1);
        N[2] = Q12CornerV<T>(r, s, 1, 1);
        N[3] = Q12CornerV<T>(r, s, -1, 1);
        N[4] = Q12EdgeRV<T>(r, s, -1, -1);
        N[5] = Q12EdgeRV<T>(r, s, 1, -1);
        N[6] = Q12EdgeSV<T>(r, s, -1, 1);
        N[7] = Q12EdgeSV<T>(r, s, 1, 1);
        N[8] = Q12EdgeRV<T>(r, s, 1, 1);
        N[9] = Q12EdgeRV<T>(r, s, -1, 1);
        N[10] = Q12EdgeSV<T>(r, s, 1, -1);
        N[11] = Q12EdgeSV<T>(r, s, -1, -1);
    }
    if constexpr (D) {
        Q12CornerG<T>(r, s, -1, -1, dN);
        Q12CornerG<T>(r, s, 1, -1, dN + 2);
        Q12CornerG<T>(r, s, 1, 1, dN + 4);
        Q12CornerG<T>(r, s, -1, 1, dN + 6);
        Q12EdgeRG<T>(r, s, -1, -1, dN + 8);
        Q12EdgeRG<T>(r, s, 1, -1, dN + 10);
        Q12EdgeSG<T>(r, s, -1, 1, dN + 12);
        Q12EdgeSG<T>(r, s, 1, 1, dN + 14);
        Q12EdgeRG<T>(r, s, 1, 1, dN + 16);
        Q12EdgeRG<T>(r, s, -1, 1, dN + 18);
        Q12EdgeSG<T>(r, s, 1, -1, dN + 20);
        Q12EdgeSG<T>(r, s, -1, -1, dN + 22);
    }
}

}  // namespace vis_closed

#endif
