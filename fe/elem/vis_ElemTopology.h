/* vis_ElemTopology: node order, corners, edges and faces of every element form.
 *
 * An element is described by its topology tuple: shape, maxi, maxj, maxk.
 *
 *   shape  SYS_SHAPE_POINT .. SYS_SHAPE_POLYHED, or -1 for an undefined element.
 *   maxi   nodes along an edge; 0 stands for 2, a linear element. For polygons and polyhedra
 *          the length of the node list.
 *   maxj   low 16 bits: 0 for a serendipity element (nodes on corners and edges only), else the
 *          node count in the second direction of a Lagrange element. High 16 bits: a mask, bit
 *          16 + e set means edge e has no interior nodes. Polygons: the number of edges.
 *   maxk   0, or the node count in the third direction (layer count of a layered wedge or
 *          hexahedron; a flag for the apex forms of tetrahedra and pyramids). Polyhedra: faces.
 *
 * The forms of the tuple, by shape (i = maxi or 2, j = low half of maxj, k = maxk):
 *
 *   line     j 0: serendipity, its ends (r = -1, then r = 1) first, then the interior nodes
 *            from the first end to the second. Other j: i nodes in order along the line.
 *   tri      j 0: serendipity. j = i: Lagrange. Other j: a line of i nodes plus an apex node.
 *   quad     j 0: serendipity. Otherwise Lagrange, i by j.
 *   tet      j 0, k 0: serendipity. j 0, k not 0: serendipity triangle plus an apex node.
 *            j = k not 0: Lagrange of order i. Otherwise: Lagrange triangle plus an apex node.
 *   pyr      as tet with a quadrilateral base; the Lagrange base plus apex is i by j.
 *   wed      j 0, k 0: serendipity. j 0, k not 0: serendipity triangle in k layers.
 *            j not 0: Lagrange triangle of order i in k layers.
 *   hex      j 0, k 0: serendipity. j 0, k not 0: serendipity quadrilateral in k layers.
 *            j not 0: Lagrange, i by j by k.
 *
 * Node order. Local positions count from 0. Serendipity elements list their corners first, then
 * the interior nodes of each edge in edge order, each run from the edge's first corner towards
 * its second. Lagrange elements list their nodes in lexical order, the first index varying
 * first; the triangular, tetrahedral and pyramidal lattices shrink row by row and layer by
 * layer. Apex forms list the base element and then the apex. Layered forms list the base
 * element once per layer, from the first layer to the last.
 *
 * Orientation. Face corners are listed counter-clockwise seen from outside: the right-hand normal
 * of a face points out of the element.
 *
 * Edge nodes are listed from the edge's first corner to its second. Face nodes of every form
 * are the face's corners in the face table's order, then the interior nodes of its edges in the
 * order of the face's edges (each run read along the face's direction of travel, reversed with
 * vis_ElemFlip where the face runs against the edge), then the face's interior nodes: those of
 * a lattice face in its own lexical order, first index from face corner 0 towards face corner
 * 1, second index towards the last face corner. The face of a plane element is read the same
 * way, so a Lagrange quadrilateral's face is not its node list in lexical order. The face's
 * tuple (vis_ElemFaceTopo) gives its shape and counts, not this order.
 *
 * A mask removes the interior nodes of the masked edges from the list; everything that follows
 * closes up. All functions work on the unmasked form and then renumber. Each masked edge loses
 * its own interior nodes: i - 2 in a uniform element, its direction's count less 2 in a Lagrange
 * element of unequal counts, none on an edge that runs straight to an apex.
 *
 * Tuples that describe no element give no nodes: a shape outside -1 to 9, a negative maxi, a
 * node count along a direction other than 2 to VIS_ELEM_MAXSIDE (maxi 1, for one), a wedge or
 * Lagrange hexahedron without layers. Such calls write a count of 0 and nothing else. Edge and
 * face numbers out of range do the same. None of these functions allocate, keep state or report.
 */
#ifndef VIS_ELEMTOPOLOGY_H
#define VIS_ELEMTOPOLOGY_H

/* Shape codes. */
#define SYS_SHAPE_POINT 0
#define SYS_SHAPE_LINE 1
#define SYS_SHAPE_TRI 2
#define SYS_SHAPE_QUAD 3
#define SYS_SHAPE_TET 4
#define SYS_SHAPE_PYR 5
#define SYS_SHAPE_WED 6
#define SYS_SHAPE_HEX 7
#define SYS_SHAPE_POLYGON 8
#define SYS_SHAPE_POLYHED 9

/* Entity codes. */
#define SYS_NODE 1
#define SYS_EDGE 2
#define SYS_FACE 3
#define SYS_ELEM 4

/* Bounds that let callers size their arrays; they hold for shapes 1 to 7. Points, polygons and
 * polyhedra have maxi nodes. */
#define VIS_ELEM_MAXSIDE 4     /* nodes along one direction */
#define VIS_ELEM_MAXNODE 64    /* nodes of one element */
#define VIS_ELEM_MAXCORNER 8   /* corners of one element */
#define VIS_ELEM_MAXEDGE 12    /* edges of one element */
#define VIS_ELEM_MAXFACE 6     /* faces of one element */
#define VIS_ELEM_MAXFACENODE 16 /* nodes of one face */

/* Counts by shape, from the shape table: corners, edges and faces of shapes 0 to 7; polygons and
 * polyhedra take the caller's count (their maxi, maxj and maxk). Undefined shapes give 0. */
void vis_ElemCornerCount(int shape, int numcorners, int* num);
void vis_ElemEdgeCount(int shape, int numedges, int* num);
void vis_ElemFaceCount(int shape, int numfaces, int* num);
/* Dimension of a shape: 0 point, 1 line, 2 plane shapes and polygons, 3 solids; -1 undefined. */
void vis_ElemDim(int shape, int* dim);

/* Number of nodes of an element, 0 for an undefined element. */
void vis_ElemNum(int shape, int maxi, int maxj, int maxk, int* num);

/* Positions of the corners in the element's node list, in corner order. Polygons and polyhedra:
 * every entry of the list, 0 to maxi - 1. */
void vis_ElemCorners(int shape, int maxi, int maxj, int maxk, int* positions);

/* Natural coordinates of the corners, three per corner, 0 beyond the dimension. Shapes without
 * a corner table (polygons, polyhedra, undefined) write nothing. */
void vis_ElemNatural(int shape, float* coords);
void vis_ElemNaturaldv(int shape, double* coords);

/* Edges of a face in the face's order, and faces of an edge, by number from 0. A line's face 0
 * gives its edge 0; a triangle's or quadrilateral's edges all lie on face 0, as do a polygon's.
 * Polygons give no face edges (their count is in the tuple), polyhedra give nothing. */
void vis_ElemFaceEdges(int shape, int face, int* num, int* edges);
void vis_ElemEdgeFaces(int shape, int edge, int* num, int* faces);

/* Node count along an edge: 2 for a masked edge. 0 when the edge does not exist. */
void vis_ElemEdgeTopo(int shape, int maxi, int maxj, int maxk, int edge, int* maxiofedge);
/* Tuple of a face: plane elements and polygons give themselves; faces of solids are triangles
 * or quadrilaterals with their own mask; faces of polyhedra are polygons with no sizes. A face
 * that does not exist gives shape -1 and sizes 0. */
void vis_ElemFaceTopo(int shape, int maxi, int maxj, int maxk, int face, int* faceshape,
                      int* facemaxi, int* facemaxj);

/* Node positions (from 0) of one edge, from its first corner to its second, and of one face:
 * corners, edge runs, face interior (see above). At most VIS_ELEM_MAXSIDE and
 * VIS_ELEM_MAXFACENODE entries; a polygon's face is its whole list. */
void vis_ElemEdgeNodes(int shape, int maxi, int maxj, int maxk, int edge, int* num,
                       int* positions);
void vis_ElemFaceNodes(int shape, int maxi, int maxj, int maxk, int face, int* num,
                       int* positions);
/* Only the corners: the two ends of an edge, the corners of a face in the face table's order. */
void vis_ElemEdgeCorners(int shape, int maxi, int maxj, int maxk, int edge, int* num,
                         int* positions);
void vis_ElemFaceCorners(int shape, int maxi, int maxj, int maxk, int face, int* num,
                         int* positions);

/* Reverses a list of maxi positions in place, to read an edge backwards. */
void vis_ElemFlip(int maxi, int* positions);

#endif
