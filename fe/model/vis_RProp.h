/* vis_RProp: the properties of a result: load factor, frequency, time, titles; a member of the property family.
 *
 * Parameters are the 29 numbered rows of vis_RPropTable (codes 0 to 28); the store's rules
 * (unset parameters leave the destination untouched, range and type errors) are those of
 * vis_PropCore.h. Type at Def: the result type, any value (also set by vis_RPropSetType).
 */
#ifndef VIS_RPROP_H
#define VIS_RPROP_H

#include "vis_PropCore.h"

#define VIS_RPROP_NUM 29

typedef struct vis_RProp {
    int ierr;                          /* last error */
    int type;                          /* type given at Def */
    unsigned char byte[VIS_RPROP_NUM];   /* per parameter: 0 unset, else slot + 1 */
    vis_PropSlot* slots;               /* owned */
    int nslots;
    struct vis_UProp* uprop;           /* user values, owned, null until set */
} vis_RProp;

/* New: null with "RProp" code 4 "Creation Failure". Def clears every parameter. */
VIS_PROP_DECLARE_LIFE(vis_RProp)
VIS_PROP_DECLARE_VALUES(vis_RProp)
/* Sets the result type without touching the parameters. */
void vis_RPropSetType(vis_RProp* p, int type);

#endif
