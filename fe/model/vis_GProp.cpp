/* vis_GProp: the GProp member of the property family; see vis_GProp.h. */
#include "vis_GProp.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"

static int vis_GProp_TypeOk(int type)
{
    (void)type;
    return 1;
}

VIS_PROP_DEFINE_LIFE(vis_GProp, vis_GPropTable, "GProp")
VIS_PROP_DEFINE_VALUES(vis_GProp, vis_GPropTable)
