/* vis_FacetSplit: the facets the surface writers (vis_STLFwt, vis_OBJFwt) take from one
 * element.
 *
 * An element is taken when its `featype` is not 0, it is a triangle or a quadrilateral, its
 * `maxi` is below 4 and, for STL, its `maxj` is 0. Only the first three or four nodes of its
 * list serve, so the midside nodes of an order 3 element are not used. Coordinates are read in
 * single precision. A triangle is one facet (0, 1, 2); a quadrilateral is split along its
 * shorter diagonal: (0, 1, 3) and (1, 2, 3) when the distance of corners 1 and 3 is not above
 * that of corners 0 and 2, else (0, 1, 2) and (0, 2, 3).
 *
 * A polygon (shape 8) is of dimension 2 as well, but one whose `maxi` is below 4 closes a ring
 * of at most two distinct nodes and bounds no area: it is not taken.
 */
#ifndef VIS_FACETSPLIT_H
#define VIS_FACETSPLIT_H

#include "vis_Writer.h"

typedef struct vis_FacetSplit {
    int shape;        /* SYS_SHAPE_TRI or SYS_SHAPE_QUAD */
    int ncorner;      /* 3 or 4 */
    int nodes[4];     /* node indices of the corners */
    float x[4][3];    /* their coordinates */
    int nfacet;       /* 1 or 2 */
    int facet[2][3];  /* corners of each facet, positions in nodes[] */
} vis_FacetSplit;

/* Fills f for element `elem` and returns its facet count; 0 when the element is not taken.
 * `stl` non-zero adds the STL condition on `maxj`. */
int vis_FacetSplit_Element(vis_Writer* w, int elem, int stl, vis_FacetSplit* f);
/* The unit normal of facet k by the edges from its first corner to its second and third, in
 * single precision; left unscaled when its length is 0. */
void vis_FacetSplit_Normal(const vis_FacetSplit* f, int k, float n[3]);

/* The C library's "%f" (fixed non-zero) or "%e" text of a value, six decimals, at `out` with
 * no terminator; returns its length, at most 330 for "%f" of the largest double, so `out`
 * holds 340 bytes. */
int vis_FacetSplit_Text(double value, int fixed, char* out);

#endif
