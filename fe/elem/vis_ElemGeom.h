/* vis_ElemGeom: element geometry built on the shape functions: the mid-side fill of nodal
 * data, nodal normals and principal curvature of plane elements, and a segment against
 * triangle test. Stateless, no errors, no allocation.
 */
#ifndef VIS_ELEMGEOM_H
#define VIS_ELEMGEOM_H

/* Fills the higher-order nodes of `data` (components values per node, node order of the tuple)
 * from its corner values by linear interpolation in the natural coordinates of the element.
 * Does nothing for points, polygons and polyhedra, and for maxi 0 or 2. The serendipity
 * tuples of maxi 3 without a mask take a quick path (each mid node the mean of its edge's
 * corners); every other tuple evaluates the linear functions of its shape (those of maxi 2) at
 * the natural coordinates of each node that is not a corner, a line (1 - r) / 2 and
 * (1 + r) / 2 between its ends. A field that is linear in the natural coordinates is thus
 * reproduced at every node, except on pyramids: their linear functions
 * (1 +- r)(1 +- s)(1 - t) / 8 and (1 + t) / 2 reproduce constants and t, but r and s only on
 * the base, so a node off the base takes a weighted sum of all five corners. */
void vis_ElemMidside(int shape, int maxi, int maxj, int maxk, int components, float* data);
void vis_ElemMidsidedv(int shape, int maxi, int maxj, int maxk, int components, double* data);

/* One unit normal per node (three floats) of a line, triangle, quadrilateral or polygon, with
 * coords three floats per node; computed in double.
 *   linear triangle: the flat normal, components of magnitude up to 1e-12 set to 0;
 *   linear quadrilateral: at each corner the normal of its two edges;
 *   other plane forms: the cross product of dx/dr and dx/ds at each node, or, where that
 *     vanishes (a collapsed node), at the point moved by the factor 0.999 towards the centre
 *     of the natural system; for triangles that centre is the centroid (1/3, 1/3), not the
 *     origin, on purpose: scaling about the origin leaves the corner at (0, 0) where it is, so
 *     a collapsed corner there would get no normal;
 *   polygon: the area normal of its corners at every node;
 *   line: a unit vector perpendicular to the first non-zero of (second end - first end) and
 *     (next node along the line - first end), the ends and the order along the line being
 *     those of its edge (a serendipity line lists its ends first, then its interior nodes):
 *     its cross product with (1, 0, 0), or with (0, 1, 0) when the
 *     direction's first component reaches 0.9 in magnitude; (1, 0, 0) for a line of zero
 *     length.
 * Nodes where no normal exists get (0, 0, 0). The right-hand rule over the node order gives
 * the side. */
void vis_ElemNormal(int shape, int maxi, int maxj, const float* coords, float* normals);

/* Principal curvatures at natural coordinates point (r, s) of a triangle or quadrilateral with
 * nodal coordinates and nodal unit normals (three floats per node). The tangents dx/dr, dx/ds
 * and the change of the normal dn/dr, dn/ds are expressed in a local orthonormal frame of the
 * tangent plane; the symmetric part of the resulting 2 by 2 matrix has eigenvalues whose
 * negatives are the principal curvatures, curv[0] >= curv[1], with their unit directions in
 * dirs[0..2] and dirs[3..5]. A surface that curves away from its normal (a sphere seen from
 * outside with outward normals) therefore has negative curvature; seen from inside, positive.
 * A degenerate point gives zeros. */
void vis_ElemCurvature(int shape, int maxi, int maxj, const float* coords, const float* normals,
                       const float* point, float* curv, float* dirs);

/* Segment against triangle: flag 1 when the segment seg (two points, six doubles) and the
 * triangle tri (three points, nine doubles) come within a distance whose square is at most
 * tol2, so a piercing segment, one touching the triangle and one passing closer than the
 * tolerance all count; else 0. A degenerate triangle is tested by its edges. */
void vis_ElemSegTri(const double* tri, const double* seg, double tol2, int* flag);

#endif
