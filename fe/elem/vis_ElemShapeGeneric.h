/* vis_ElemShapeGeneric: the generic forward-derivative evaluator of vis_ElemShape, reached
 * without the closed forms (internal; the reference of the closed-form tests and the
 * benchmark). Same arguments, modes and storage as vis_ElemShape2D and vis_ElemShape3D, for
 * shapes line to hexahedron, with maxk 0 for lines and plane elements; the derivatives have as
 * many components as the shape has dimensions (1 for a line). Polygons are not handled here.
 */
#ifndef VIS_ELEMSHAPEGENERIC_H
#define VIS_ELEMSHAPEGENERIC_H

void vis_ElemShapeGeneric(int mode, int shape, int maxi, int maxj, int maxk, const float* coords,
                          float* N, float* dN);
void vis_ElemShapeGenericdv(int mode, int shape, int maxi, int maxj, int maxk,
                            const double* coords, double* N, double* dN);

#endif
