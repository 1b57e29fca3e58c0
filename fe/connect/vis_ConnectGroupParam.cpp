/* vis_ConnectGroupParam: the parameter calls of the derived groups; see vis_ConnectGroup.h. */
#include "vis_ConnectGroup.h"

#include "vis_ConnectInternal.h"
#include "vsy_Error.h"

#include <cmath>
#include <cstring>

/* Records error `code` "iparam= %d" under name; returns 0 so that callers can chain. */
static int vis_Connect_BadParam(vis_Connect* c, const char* name, int code, int param)
{
    vsy_ErrorRecord(&c->ierr, name, code, "iparam= %d", param);
    return 0;
}

/* The range checks of the integer options that have one; 1 when the value is acceptable. */
static int vis_Connect_GroupParamOk(vis_Connect* c, const char* name, int type, int p)
{
    int numnode = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &numnode);
    switch (type) {
    case VIS_CGROUP_ASSOCTYPE:
        return (p >= 0 && p <= VIS_CONNECT_MAXASSOC) || vis_Connect_BadParam(c, name, SYS_ERROR_ENUM, p);
    case VIS_CGROUP_SHAPE:
        return (p >= SYS_SHAPE_POINT && p <= SYS_SHAPE_POLYHED) || vis_Connect_BadParam(c, name, SYS_ERROR_ENUM, p);
    case VIS_CGROUP_DIMENSION: return (p >= 0 && p <= 3) || vis_Connect_BadParam(c, name, SYS_ERROR_VALUE, p);
    case VIS_CGROUP_STRIDE: return p >= 1 || vis_Connect_BadParam(c, name, SYS_ERROR_VALUE, p);
    case VIS_CGROUP_PHASE: return (p >= 1 && p <= c->grp.stride) || vis_Connect_BadParam(c, name, SYS_ERROR_VALUE, p);
    case VIS_CGROUP_SEEDNODE: return (p >= 0 && p <= numnode) || vis_Connect_BadParam(c, name, SYS_ERROR_VALUE, p);
    case VIS_CGROUP_SEEDELEM:
        return (p >= 0 && p <= c->numelem) || vis_Connect_BadParam(c, name, SYS_ERROR_VALUE, p);
    case VIS_CGROUP_COUNT:
    case VIS_CGROUP_SEEDEDGE:
    case VIS_CGROUP_SEEDFACE: return p >= 0 || vis_Connect_BadParam(c, name, SYS_ERROR_VALUE, p);
    default: return 1;
    }
}

/* Address of an integer option, or null for a code that is not one. */
static int* vis_Connect_GroupInt(vis_Connect* c, int type)
{
    vis_ConnectGroupParam* g = &c->grp;
    switch (type) {
    case VIS_CGROUP_ASSOCTYPE: return &g->assoctype;
    case VIS_CGROUP_ASSOCVALUE: return &g->assocvalue;
    case VIS_CGROUP_SIGNED: return &g->signedflag;
    case VIS_CGROUP_SHAPE: return &g->shape;
    case VIS_CGROUP_DIMENSION: return &g->dimension;
    case VIS_CGROUP_STRIDE: return &g->stride;
    case VIS_CGROUP_PHASE: return &g->phase;
    case VIS_CGROUP_COUNT: return &g->count;
    case VIS_CGROUP_SEEDNODE: return &g->seednode;
    case VIS_CGROUP_CURVEFLAG: return &g->curveflag;
    case VIS_CGROUP_SEEDELEM: return &g->seedelem;
    case VIS_CGROUP_SEEDEDGE: return &g->seededge;
    case VIS_CGROUP_SEEDFACE: return &g->seedface;
    case VIS_CGROUP_NONMANIFOLD: return &g->nonmanifold;
    default: return nullptr;
    }
}

void vis_ConnectSetGroupParami(vis_Connect* c, int type, int param)
{
    static const char* name = "vis_ConnectSetGroupParami";
    if (vis_Connect_Null(c, name)) return;
    if (GF_SET(c, VIS_GRIDFUN_SETGROUPPARAMI)) {
        GF_CALL(c, VIS_GRIDFUN_SETGROUPPARAMI, vis_GridFunSetGroupParami_t)(c->gridfun->obj, type, param);
        return;
    }
    int* field = vis_Connect_GroupInt(c, type);
    if (!field) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    if (!vis_Connect_GroupParamOk(c, name, type, param)) return;
    *field = param;
    /* A smaller stride pulls the phase back into its range. */
    if (type == VIS_CGROUP_STRIDE && c->grp.phase > param) c->grp.phase = param;
}

void vis_ConnectSetGroupParamf(vis_Connect* c, int type, float param)
{
    static const char* name = "vis_ConnectSetGroupParamf";
    if (vis_Connect_Null(c, name)) return;
    if (GF_SET(c, VIS_GRIDFUN_SETGROUPPARAMF)) {
        GF_CALL(c, VIS_GRIDFUN_SETGROUPPARAMF, vis_GridFunSetGroupParamf_t)(c->gridfun->obj, type, param);
        return;
    }
    switch (type) {
    case VIS_CGROUP_ANGLE:
        c->grp.angle = param;
        c->grp.cosangle = (float)std::cos((double)param * 3.141592653589793 / 180.0);
        return;
    case VIS_CGROUP_TOLERANCE: c->grp.tolerance = param; return;
    case VIS_CGROUP_CURVETOL: c->grp.curvetol = param; return;
    case VIS_CGROUP_CELLSIZE: c->grp.cellsize = param; return;
    default: vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
    }
}

void vis_ConnectSetGroupParamfv(vis_Connect* c, int type, const float* param)
{
    static const char* name = "vis_ConnectSetGroupParamfv";
    if (vis_Connect_Null(c, name)) return;
    if (GF_SET(c, VIS_GRIDFUN_SETGROUPPARAMFV)) {
        GF_CALL(c, VIS_GRIDFUN_SETGROUPPARAMFV, vis_GridFunSetGroupParamfv_t)(c->gridfun->obj, type, param);
        return;
    }
    if (type == VIS_CGROUP_BOX) std::memcpy(c->grp.box, param, sizeof c->grp.box);
    else if (type == VIS_CGROUP_VIEW) std::memcpy(c->grp.view, param, sizeof c->grp.view);
    else vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
}

void vis_ConnectSetGroupObject(vis_Connect* c, int objtype, void* object)
{
    static const char* name = "vis_ConnectSetGroupObject";
    if (vis_Connect_Null(c, name)) return;
    if (objtype != SYS_GROUP) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_OBJECTTYPE, "objecttype= %d", objtype);
        return;
    }
    c->grp.seedgroup = (struct vis_Group*)object;
}
