/* vis_GProp: global model data: analysis plane, titles, originating code; a member of the property family.
 *
 * Parameters are the 10 numbered rows of vis_GPropTable (codes 0 to 9); the store's rules
 * (unset parameters leave the destination untouched, range and type errors) are those of
 * vis_PropCore.h. Type at Def: any value; the type has no meaning.
 */
#ifndef VIS_GPROP_H
#define VIS_GPROP_H

#include "vis_PropCore.h"

#define VIS_GPROP_NUM 10

typedef struct vis_GProp {
    int ierr;                          /* last error */
    int type;                          /* type given at Def */
    unsigned char byte[VIS_GPROP_NUM];   /* per parameter: 0 unset, else slot + 1 */
    vis_PropSlot* slots;               /* owned */
    int nslots;
    struct vis_UProp* uprop;           /* user values, owned, null until set */
} vis_GProp;

/* New: null with "GProp" code 4 "Creation Failure". Def clears every parameter. */
VIS_PROP_DECLARE_LIFE(vis_GProp)
VIS_PROP_DECLARE_VALUES(vis_GProp)

#endif
