/* vis_SProp: a solution step: its analysis kind and the ids of the cases it applies; a member of the property family.
 *
 * Parameters are the 60 numbered rows of vis_SPropTable (codes 0 to 59); the store's rules
 * (unset parameters leave the destination untouched, range and type errors) are those of
 * vis_PropCore.h. Type at Def: 1 static, 2 eigenvalue, 3 buckling, 4 transient, 5 a second eigenvalue form.
 */
#ifndef VIS_SPROP_H
#define VIS_SPROP_H

#include "vis_PropCore.h"

#define VIS_SPROP_NUM 60

typedef struct vis_SProp {
    int ierr;                          /* last error */
    int type;                          /* type given at Def */
    unsigned char byte[VIS_SPROP_NUM];   /* per parameter: 0 unset, else slot + 1 */
    vis_PropSlot* slots;               /* owned */
    int nslots;
    struct vis_UProp* uprop;           /* user values, owned, null until set */
} vis_SProp;

/* New: null with "SProp" code 4 "Creation Failure". Def clears every parameter. */
VIS_PROP_DECLARE_LIFE(vis_SProp)
VIS_PROP_DECLARE_VALUES(vis_SProp)
/* Changes the type and keeps every parameter; a refused type is code 2 "type= %d". */
void vis_SPropReDef(vis_SProp* p, int type);

#endif
