/* vis_MProp: the MProp member of the property family; see vis_MProp.h. */
#include "vis_MProp.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"

static int vis_MProp_TypeOk(int type)
{
    return type == 0 || type == 2 || type == 3;
}

VIS_PROP_DEFINE_LIFE(vis_MProp, vis_MPropTable, "MProp")
VIS_PROP_DEFINE_VALUES(vis_MProp, vis_MPropTable)

void vis_MPropReDef(vis_MProp* p, int type)
{
    VIS_PROP_ENTER(p, "vis_MPropReDef");
    if (!vis_MProp_TypeOk(type)) {
        vsy_ErrorRecord(&p->ierr, "vis_MPropReDef", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    p->type = type;
}

void vis_MPropGetParams(vis_MProp* p, int* num, int* codes)
{
    VIS_PROP_ENTER(p, "vis_MPropGetParams");
    vis_PropRef r = VIS_PROP_REF(p, vis_MPropTable);
    vis_Prop_SetCodes(&r, num, codes);
}
