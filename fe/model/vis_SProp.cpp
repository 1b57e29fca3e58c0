/* vis_SProp: the SProp member of the property family; see vis_SProp.h. */
#include "vis_SProp.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"

static int vis_SProp_TypeOk(int type)
{
    return type >= 1 && type <= 5;
}

VIS_PROP_DEFINE_LIFE(vis_SProp, vis_SPropTable, "SProp")
VIS_PROP_DEFINE_VALUES(vis_SProp, vis_SPropTable)

void vis_SPropReDef(vis_SProp* p, int type)
{
    VIS_PROP_ENTER(p, "vis_SPropReDef");
    if (!vis_SProp_TypeOk(type)) {
        vsy_ErrorRecord(&p->ierr, "vis_SPropReDef", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    p->type = type;
}
