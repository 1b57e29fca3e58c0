/* vis_RProp: the RProp member of the property family; see vis_RProp.h. */
#include "vis_RProp.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"

static int vis_RProp_TypeOk(int type)
{
    (void)type;
    return 1;
}

VIS_PROP_DEFINE_LIFE(vis_RProp, vis_RPropTable, "RProp")
VIS_PROP_DEFINE_VALUES(vis_RProp, vis_RPropTable)

void vis_RPropSetType(vis_RProp* p, int type)
{
    VIS_PROP_ENTER(p, "vis_RPropSetType");
    p->type = type;
}
