/* vis_ElemClosedTet: unrolled closed forms of the tetrahedron (internal; see
 * vis_ElemClosedPlane.h for the flags V, D and the storage). Volume coordinates
 * L0 = 1 - r - s - t, L1 = r, L2 = s, L3 = t; three derivative components per function.
 */
#ifndef VIS_ELEMCLOSEDTET_H
#define VIS_ELEMCLOSEDTET_H

namespace vis_closed {

template <class T, bool V, bool D>
void Tet4(const T* x, T* N, T* dN)
{
    if constexpr (V) {
        N[0] = 1 - x[0] - x[1] - x[2];
        N[1] = x[0];
        N[2] = x[1];
        N[3] = x[2];
    }
    if constexpr (D) {
        dN[0] = -1, dN[1] = -1, dN[2] = -1;
        dN[3] = 1, dN[4] = 0, dN[5] = 0;
        dN[6] = 0, dN[7] = 1, dN[8] = 0;
        dN[9] = 0, dN[10] = 0, dN[11] = 1;
    }
}

/* The ten quadratic functions in serendipity order: corners L (2 L - 1), then 4 La Lb on the
 * edges 0-1, 1-2, 2-0, 0-3, 1-3, 2-3. */
template <class T>
inline void Tet10V(T r, T s, T t, T* v)
{
    const T l = 1 - r - s - t;
    v[0] = l * (2 * l - 1);
    v[1] = r * (2 * r - 1);
    v[2] = s * (2 * s - 1);
    v[3] = t * (2 * t - 1);
    v[4] = 4 * l * r;
    v[5] = 4 * r * s;
    v[6] = 4 * s * l;
    v[7] = 4 * l * t;
    v[8] = 4 * r * t;
    v[9] = 4 * s * t;
}
/* Their gradients; the gradient of L0 is (-1, -1, -1). */
template <class T>
inline void Tet10G(T r, T s, T t, T* g)
{
    const T l = 1 - r - s - t, c = 1 - 4 * l, r4 = 4 * r, s4 = 4 * s, t4 = 4 * t;
    g[0] = c, g[1] = c, g[2] = c;
    g[3] = r4 - 1, g[4] = 0, g[5] = 0;
    g[6] = 0, g[7] = s4 - 1, g[8] = 0;
    g[9] = 0, g[10] = 0, g[11] = t4 - 1;
    g[12] = 4 * l - r4, g[13] = -r4, g[14] = -r4;
    g[15] = s4, g[16] = r4, g[17] = 0;
    g[18] = -s4, g[19] = 4 * l - s4, g[20] = -s4;
    g[21] = -t4, g[22] = -t4, g[23] = 4 * l - t4;
    g[24] = t4, g[25] = 0, g[26] = r4;
    g[27] = 0, g[28] = t4, g[29] = s4;
}

template <class T, bool V, bool D>
void Tet10(const T* x, T* N, T* dN)
{
    if constexpr (V) Tet10V(x[0], x[1], x[2], N);
    if constexpr (D) Tet10G(x[0], x[1], x[2], dN);
}

/* Copies gradient `from` of g to gradient `to` of dN, three components each. */
template <class T>
inline void Grad3(const T* g, int from, T* dN, int to)
{
    dN[3 * to] = g[3 * from];
    dN[3 * to + 1] = g[3 * from + 1];
    dN[3 * to + 2] = g[3 * from + 2];
}

/* Lagrange tetrahedron of 3 nodes per edge, lexical order (r fastest, then s, then t): the
 * functions of Tet10 in the order 0, 4, 1, 6, 5, 2, 7, 8, 9, 3. */
template <class T, bool V, bool D>
void Tet10Lag(const T* x, T* N, T* dN)
{
    if constexpr (V) {
        T q[10];
        Tet10V(x[0], x[1], x[2], q);
        N[0] = q[0], N[1] = q[4], N[2] = q[1], N[3] = q[6], N[4] = q[5];
        N[5] = q[2], N[6] = q[7], N[7] = q[8], N[8] = q[9], N[9] = q[3];
    }
    if constexpr (D) {
        T g[30];
        Tet10G(x[0], x[1], x[2], g);
        Grad3(g, 0, dN, 0), Grad3(g, 4, dN, 1), Grad3(g, 1, dN, 2), Grad3(g, 6, dN, 3);
        Grad3(g, 5, dN, 4), Grad3(g, 2, dN, 5), Grad3(g, 7, dN, 6), Grad3(g, 8, dN, 7);
        Grad3(g, 9, dN, 8), Grad3(g, 3, dN, 9);
    }
}

}  // namespace vis_closed

#endif
