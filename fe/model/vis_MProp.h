/* vis_MProp: a material; a member of the property family.
 *
 * Parameters are the 39 numbered rows of vis_MPropTable (codes 0 to 38); the store's rules
 * (unset parameters leave the destination untouched, range and type errors) are those of
 * vis_PropCore.h. Type at Def: 0 isotropic, 2 orthotropic, 3 anisotropic (1 is not used).
 */
#ifndef VIS_MPROP_H
#define VIS_MPROP_H

#include "vis_PropCore.h"

#define VIS_MPROP_NUM 39

typedef struct vis_MProp {
    int ierr;                          /* last error */
    int type;                          /* type given at Def */
    unsigned char byte[VIS_MPROP_NUM];   /* per parameter: 0 unset, else slot + 1 */
    vis_PropSlot* slots;               /* owned */
    int nslots;
    struct vis_UProp* uprop;           /* user values, owned, null until set */
} vis_MProp;

/* New: null with "MProp" code 4 "Creation Failure". Def clears every parameter. */
VIS_PROP_DECLARE_LIFE(vis_MProp)
VIS_PROP_DECLARE_VALUES(vis_MProp)
/* Changes the type and keeps every parameter; a refused type is code 2 "type= %d". */
void vis_MPropReDef(vis_MProp* p, int type);
/* The material's parameters that are set (user values aside): *num of them and, unless codes
 * is null, their codes in ascending order (room for VIS_MPROP_NUM is always enough). */
void vis_MPropGetParams(vis_MProp* p, int* num, int* codes);

#endif
