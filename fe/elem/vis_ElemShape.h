/* vis_ElemShape: interpolation functions of every element form of the topology tuple, in single
 * and double precision (suffix dv), and the natural coordinates of all nodes.
 *
 * Natural coordinates are those of vis_ElemTopology: a line runs from -1 to 1; triangles and
 * tetrahedra use 0..1 with corners at the unit points; quadrilaterals and hexahedra -1..1;
 * wedges the triangle in (r, s) and -1..1 in t; pyramids the square -1..1 at t = -1 and the
 * apex at (0, 0, 1).
 *
 * Evaluation mode, first argument: 0 functions and derivatives, 1 functions only, 2 derivatives
 * only; the array not asked for may be null. Derivatives are stored node by node with all
 * components together: dN[2 * n + c] for plane elements, dN[3 * n + c] for solids.
 *
 * Forms (i = maxi or 2, j = low half of maxj, k = maxk):
 *   linear tuple (maxi 0 or 2, maxj 0,      closed forms; the pyramid base corners are
 *   maxk 0)                                  (1 +- r)(1 +- s)(1 - t) / 8, the apex (1 + t) / 2
 *   line (evaluated internally; no public    serendipity (j 0): the 1D functions with the ends
 *   entry)                                   first; other j: in order along the line
 *   serendipity (j 0, k 0)                  tri 6 and 9, quad 8 and 12, tet 10 and 16, hex 20
 *                                            and 32 nodes in their standard closed forms; the
 *                                            cubic triangle and tetrahedron shift the dropped
 *                                            face bubble to corners (-4.5 B) and edge nodes
 *                                            (+6.75 B) so that they stay complete quadratics;
 *                                            the wedge blends the triangle with the 1D functions
 *                                            along t
 *   Lagrange                                 tensor products of vis_ElemShape1D (quad, hex) or
 *                                            the area-coordinate products (tri, tet), the wedge
 *                                            as triangle times 1D
 *   layered (wedge, hex with j 0, k not 0)   base serendipity in (r, s) times 1D of k nodes in t
 *   pyramids of higher order, apex forms     collapsed forms: layer l of the element holds a
 *   (base plus apex node)                    plane interpolation in (r / w, s / w), w the
 *                                            shrinking of the section, times the 1D function of
 *                                            the layer in the height; rational, bounded inside
 *                                            the element, exact at the apex
 *   polygon                                  a fan of linear triangles around the centre; see
 *                                            vis_ElemShape2D
 * When the mask half of maxj is set, vis_ElemDropMidside folds the functions of the removed
 * edge nodes into the edge ends, so the masked edges interpolate linearly.
 *
 * Every function sums to 1, every derivative component to 0, and function n is 1 at node n and
 * 0 at the other nodes (positions from vis_ElemNodeNatural). A tuple that describes no element
 * writes nothing. Nothing allocates; at most VIS_ELEM_MAXNODE functions are written.
 */
#ifndef VIS_ELEMSHAPE_H
#define VIS_ELEMSHAPE_H

#define VIS_SHAPE_ALL 0   /* functions and derivatives */
#define VIS_SHAPE_FUNC 1  /* functions only */
#define VIS_SHAPE_DERIV 2 /* derivatives only */

/* One-dimensional functions of order (node count) 2, 3 or 4 on -1..1, nodes in order along the
 * line: 2 nodes at the ends, 3 at -1, 0, 1, 4 at -1, -1/3, 1/3, 1. */
void vis_ElemShape1D(int mode, int order, float r, float* N, float* dN);
void vis_ElemShape1Ddv(int mode, int order, double r, double* N, double* dN);

/* Plane elements: triangles, quadrilaterals and polygons; coords holds (r, s).
 *
 * Polygon: maxi is the length of its node list, which repeats the first corner at the end, so
 * there are n = maxi - 1 corners. s carries the fan triangle: k = trunc(s / 10) (clamped to
 * 0..n-1), s' = s - 10 k, and the point of the fan triangle (centre, corner k, corner k + 1) is
 * ((1 - s') r, s' r). Each corner gets a share Nc / n of the centre function, corner k adds N1
 * and corner k + 1 (corner 0 after the last) adds N2; the closing entry gets 0. */
void vis_ElemShape2D(int mode, int shape, int maxi, int maxj, const float* coords, float* N,
                     float* dN);
void vis_ElemShape2Ddv(int mode, int shape, int maxi, int maxj, const double* coords,
                       double* N, double* dN);
/* Solids: tetrahedra, pyramids, wedges, hexahedra; coords holds (r, s, t). */
void vis_ElemShape3D(int mode, int shape, int maxi, int maxj, int maxk, const float* coords,
                     float* N, float* dN);
void vis_ElemShape3Ddv(int mode, int shape, int maxi, int maxj, int maxk, const double* coords,
                       double* N, double* dN);

/* Turns functions of the unmasked form (as many as vis_ElemNum gives with the mask cleared) into
 * those of the masked form in place: for each masked edge the interior functions are added to
 * the end functions (one half each for 3 nodes; 2/3 and 1/3 for 4 nodes, by distance), then the
 * functions of the removed nodes are taken out and the rest close up. dim is the number of
 * derivative components per function. */
void vis_ElemDropMidside(int mode, int shape, int maxi, int maxj, int maxk, float* N, int dim,
                         float* dN);
void vis_ElemDropMidsidedv(int mode, int shape, int maxi, int maxj, int maxk, double* N, int dim,
                           double* dN);

/* Natural coordinates of all nodes, three per node in node order (0 beyond the dimension); a
 * serendipity line gives its ends (-1, then 1) before its interior nodes. Polygon corner k is
 * at (1, 10 k), the closing entry at (1, 0); polyhedra write nothing. */
void vis_ElemNodeNatural(int shape, int maxi, int maxj, int maxk, float* coords);
void vis_ElemNodeNaturaldv(int shape, int maxi, int maxj, int maxk, double* coords);

#endif
