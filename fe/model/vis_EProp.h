/* vis_EProp: an element property: section, stiffness, mass and the
 * element names of a feature; a member of the property family.
 *
 * Parameters are the 135 numbered rows of vis_EPropTable (codes 0 to 134); the store's rules
 * (unset parameters leave the destination untouched, range and type errors) are those of
 * vis_PropCore.h. Type at Def: the element feature, 1 to 15 (1 solid, 2 shell,
 * 3 membrane, 4 beam, 5 truss, 7 gap, 9 spring, 13 mass, 14 interface ...).
 *
 * Location values: thickness, offset, nonstructural mass and fiber distances have four
 * locations, one per shell corner; beam section values two, one per end. A code out of range is
 * reported with "Improper type= %d".
 */
#ifndef VIS_EPROP_H
#define VIS_EPROP_H

#include "vis_PropCore.h"

#define VIS_EPROP_NUM 135

typedef struct vis_EProp {
    int ierr;                          /* last error */
    int type;                          /* type given at Def */
    unsigned char byte[VIS_EPROP_NUM];   /* per parameter: 0 unset, else slot + 1 */
    vis_PropSlot* slots;               /* owned */
    int nslots;
    struct vis_UProp* uprop;           /* user values, owned, null until set */
} vis_EProp;

/* New: null with "EProp" code 4 "Creation Failure". Def clears every parameter. */
VIS_PROP_DECLARE_LIFE(vis_EProp)
VIS_PROP_DECLARE_VALUES(vis_EProp)
/* Evaluates a location-valued double parameter at the nodes of an element of shape 0 to 3
 * (point, line, triangle, quadrilateral: 1 to 4 corners) and order maxi, maxj: `perloc` values
 * per node go to out in node order. A parameter of one location, or of fewer locations than
 * corners, repeats its first location; with at least as many locations as corners the first
 * ones are weighted by the linear corner functions at each node's natural coordinates. Another
 * shape: code 2 "shape= %d"; a negative code: code 2 "Improper type= %d". Unset: out untouched. */
void vis_EPropEvaldv(vis_EProp* p, int code, int shape, int maxi, int maxj, double* out);

#endif
