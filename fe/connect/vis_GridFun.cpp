/* vis_GridFun: the slot table; see vis_GridFun.h. */
#include "vis_GridFun.h"

#include "vsy_Error.h"

static int vis_GridFun_CheckCode(vis_GridFun* gf, const char* name, int code)
{
    if (code >= 1 && code <= VIS_GRIDFUN_MAXSLOT) return 1;
    vsy_ErrorRecord(&gf->ierr, name, SYS_ERROR_ENUM, "type= %d", code);
    return 0;
}

vis_GridFun* vis_GridFunNew(void)
{
    vis_GridFun* gf = (vis_GridFun*)vsy_Malloc(sizeof(vis_GridFun));
    if (!gf) {
        vsy_ErrorMessage("GridFun", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    gf->ierr = 0;
    gf->obj = nullptr;
    for (int i = 0; i <= VIS_GRIDFUN_MAXSLOT; ++i) gf->fun[i] = nullptr;
    return gf;
}

void vis_GridFunDelete(vis_GridFun* gf)
{
    if (gf) vsy_Free(gf);
}

int vis_GridFunError(vis_GridFun* gf)
{
    if (!gf) return SYS_ERROR_NULLOBJECT;
    int ierr = gf->ierr;
    gf->ierr = 0;
    return ierr;
}

void vis_GridFunSet(vis_GridFun* gf, int code, vis_GridFunc function)
{
    if (!gf) {
        vsy_ErrorNumber("vis_GridFunSet", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!vis_GridFun_CheckCode(gf, "vis_GridFunSet", code)) return;
    gf->fun[code] = function;
}

void vis_GridFunGet(vis_GridFun* gf, int code, vis_GridFunc* function)
{
    if (!gf) {
        vsy_ErrorNumber("vis_GridFunGet", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (function) *function = nullptr;
    if (!vis_GridFun_CheckCode(gf, "vis_GridFunGet", code)) return;
    if (function) *function = gf->fun[code];
}

void vis_GridFunSetObj(vis_GridFun* gf, void* obj)
{
    if (!gf) {
        vsy_ErrorNumber("vis_GridFunSetObj", SYS_ERROR_NULLOBJECT);
        return;
    }
    gf->obj = obj;
}

void vis_GridFunGetObj(vis_GridFun* gf, void** obj)
{
    if (!obj) return;
    *obj = gf ? gf->obj : nullptr;
}
