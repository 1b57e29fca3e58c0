/* vis_ElemShapeClosed: the unrolled closed forms of the common element forms, in single and
 * double precision (internal; vis_ElemShape2D and vis_ElemShape3D try them first).
 *
 * Forms (shape: tuples maxi, maxj, maxk; nodes in the order of vis_ElemNodeNatural):
 *   line   0 or 2, 0, 0 (2 nodes); 3, 0, 0 (3 nodes: the ends, then the middle)
 *   tri    0 or 2, 0 (3); 3, 0 (6); Lagrange 3, 3 (6)
 *   quad   0 or 2, 0 (4); 3, 0 (8); 4, 0 (12); Lagrange 3, 3 (9)
 *   tet    0 or 2, 0, 0 (4); 3, 0, 0 (10); Lagrange 3, 3, 3 (10)
 *   pyr    0, 0, 0 (5, polynomial); 3, 0, 0 (13); Lagrange 3, 3, 3 (14)
 *   wed    0 or 2, 0, 0 (6); 3, 0, 0 (15); Lagrange 3, 3, 3 (18)
 *   hex    0 or 2, 0, 0 (8); 3, 0, 0 (20); 4, 0, 0 (32); Lagrange 3, 3, 3 (27)
 * Tuples with a mask half in maxj, and all other forms, have no closed form here.
 *
 * dim is the dimension of the calling entry (1 for lines, 2 plane, 3 solid): a form is taken
 * only in its own dimension, and its derivatives have dim components each. Modes and storage
 * are those of vis_ElemShape.h: mode 1 computes the functions only, mode 2 the derivatives
 * only, and a null array is not written.
 *
 * Returns 1 when the tuple has a closed form and was evaluated, else 0 with nothing written
 * (also for a null coords or an unknown mode, which the generic path then refuses).
 */
#ifndef VIS_ELEMSHAPECLOSED_H
#define VIS_ELEMSHAPECLOSED_H

int vis_ElemShapeClosed(int mode, int shape, int maxi, int maxj, int maxk, int dim,
                        const float* coords, float* N, float* dN);
int vis_ElemShapeCloseddv(int mode, int shape, int maxi, int maxj, int maxk, int dim,
                          const double* coords, double* N, double* dN);

#endif
