/* vis_Connect: the element, coordinate and extent queries; see vis_Connect.h. */
#include "vis_Connect.h"
#include "vis_ConnectInternal.h"
#include "vis_ConnectGroupInternal.h"
#include "vis_Group.h"

#include "vis_Assoc.h"
#include "vsy_ChunkList.h"
#include "vsy_Error.h"
#include "vsy_RedPre.h"
#include "vis_State.h"

/* Unpacks n compact values into float or double. */
static void vis_Connect_Unpack(vsy_RedPre* red, int n, const void* p, float* x)
{
    vsy_RedPreStore(red, n, p, x);
}

static void vis_Connect_Unpack(vsy_RedPre* red, int n, const void* p, double* x)
{
    vsy_RedPreStoredv(red, n, p, x);
}

/* Reads one node's coordinates in float or double; zeros when it has none. No checks. */
template <class T>
static void vis_Connect_ReadNode(vis_Connect* c, int id, T* x)
{
    x[0] = x[1] = x[2] = 0;
    if (id > c->numcoord) return;
    const void* p = vis_Connect_CoordPtr(c, id);
    if (!p) return;
    const unsigned short* r = (const unsigned short*)p;
    switch (c->type) {
    case SYS_PRECISION_FLOAT:
        for (int a = 0; a < 3; ++a) x[a] = (T)((const float*)p)[a];
        break;
    case SYS_PRECISION_DOUBLE:
        for (int a = 0; a < 3; ++a) x[a] = (T)((const double*)p)[a];
        break;
    case SYS_PRECISION_HALF: vis_Connect_Unpack(c->red, 3, p, x); break;
    default:
        vis_Connect_Unpack(c->redx, 1, r, &x[0]);
        vis_Connect_Unpack(c->redy, 1, r + 1, &x[1]);
        vis_Connect_Unpack(c->redz, 1, r + 2, &x[2]);
        break;
    }
}

/* The checks of the coordinate reads: nix, then every id; reports without touching ierr. */
int vis_Connect_CheckIds(vis_Connect* c, const char* name, int nix, const int* ix, int store)
{
    if (nix < 1 || !ix) {
        if (store) vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "nix= %d", nix);
        else vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "nix= %d", nix);
        return 0;
    }
    for (int k = 0; k < nix; ++k) {
        if (ix[k] < 1 || ix[k] > c->numnode) {
            if (store) vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "ix[%d]= %d", k, ix[k]);
            else vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "ix[%d]= %d", k, ix[k]);
            return 0;
        }
    }
    return 1;
}

/* Coordinates of the nodes the attached state has set, over those read from the arrays. A
 * state that is not over the nodes with three or more components is left unread. */
static void vis_Connect_StateCoords(vis_Connect* c, int nix, const int* ix, float* x)
{
    int nument = 0, parent = 0, child = 0, datatype = 0, num = 0;
    vis_StateInq(c->state, &nument, &parent, &child, &datatype);
    vis_StateDataNum(c->state, &num);
    if (parent != SYS_NODE || num < 3 || num > VIS_STATE_MAXCOMP) return;
    double v[VIS_STATE_MAXCOMP];
    for (int k = 0; k < nix; ++k) {
        int set = 0;
        if (ix[k] > nument) continue;
        vis_StateDataStat(c->state, 1, ix + k, &set);
        if (!set) continue;
        vis_StateDatadv(c->state, 1, ix + k, v);
        for (int a = 0; a < 3; ++a) x[3 * k + a] = (float)v[a];
    }
}

void vis_ConnectCoords(vis_Connect* c, int nix, const int* ix, float* x)
{
    if (vis_Connect_Null(c, "vis_ConnectCoords")) return;
    if (GF_SET(c, VIS_GRIDFUN_COORDS)) {
        GF_CALL(c, VIS_GRIDFUN_COORDS, vis_GridFunCoords_t)(c->gridfun->obj, nix, ix, x);
        return;
    }
    if (!vis_Connect_CheckIds(c, "vis_ConnectCoords", nix, ix, 0) || !x) return;
    for (int k = 0; k < nix; ++k) vis_Connect_ReadNode(c, ix[k], x + 3 * k);
    if (c->state) vis_Connect_StateCoords(c, nix, ix, x);
}

void vis_ConnectCoordsdv(vis_Connect* c, int nix, const int* ix, double* x)
{
    if (vis_Connect_Null(c, "vis_ConnectCoordsdv")) return;
    if (GF_SET(c, VIS_GRIDFUN_COORDSDV)) {
        GF_CALL(c, VIS_GRIDFUN_COORDSDV, vis_GridFunCoordsdv_t)(c->gridfun->obj, nix, ix, x);
        return;
    }
    if (!vis_Connect_CheckIds(c, "vis_ConnectCoordsdv", nix, ix, 0) || !x) return;
    for (int k = 0; k < nix; ++k) vis_Connect_ReadNode(c, ix[k], x + 3 * k);
}

/* ---------------------------------------------------------------------------------------- */
/* Counts and element queries */

void vis_ConnectGetInteger(vis_Connect* c, int option, int* value)
{
    if (vis_Connect_Null(c, "vis_ConnectGetInteger")) return;
    if (GF_SET(c, VIS_GRIDFUN_GETINTEGER)) {
        GF_CALL(c, VIS_GRIDFUN_GETINTEGER, vis_GridFunGetInteger_t)(c->gridfun->obj, option, value);
        return;
    }
    if (!value) return;
    switch (option) {
    case VIS_CONNECT_NUMNODE: *value = c->numnode; break;
    case VIS_CONNECT_NUMEDGE: *value = c->numedge; break;
    case VIS_CONNECT_NUMFACE: *value = c->numface; break;
    case VIS_CONNECT_NUMELEM: *value = c->numelem; break;
    default: *value = 0; break;
    }
}

void vis_ConnectMaxElemNode(vis_Connect* c, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectMaxElemNode")) return;
    if (GF_SET(c, VIS_GRIDFUN_MAXELEMNODE)) {
        GF_CALL(c, VIS_GRIDFUN_MAXELEMNODE, vis_GridFunMaxElemNode_t)(c->gridfun->obj, num);
        return;
    }
    if (num) *num = c->maxelemnode;
}

static int vis_Connect_ElemRange(vis_Connect* c, const char* name, int id)
{
    if (id >= 1 && id <= c->numelem) return 1;
    vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "id= %d", id);
    return 0;
}

void vis_ConnectTopology(vis_Connect* c, int id, int* shape, int* maxi, int* maxj, int* maxk)
{
    if (vis_Connect_Null(c, "vis_ConnectTopology")) return;
    if (GF_SET(c, VIS_GRIDFUN_TOPOLOGY)) {
        GF_CALL(c, VIS_GRIDFUN_TOPOLOGY, vis_GridFunTopology_t)(c->gridfun->obj, id, shape, maxi, maxj, maxk);
        return;
    }
    if (!c->shape) {
        *shape = *maxi = *maxj = *maxk = 0;
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectTopology", id)) return;
    *shape = c->shape[id] == 255 ? -1 : c->shape[id];
    *maxi = c->maxi[id];
    *maxj = c->maxj[id];
    *maxk = c->maxk[id];
}

void vis_ConnectElemNode(vis_Connect* c, int id, int* num, int* nodes)
{
    if (vis_Connect_Null(c, "vis_ConnectElemNode")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMNODE)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMNODE, vis_GridFunElemNode_t)(c->gridfun->obj, id, num, nodes);
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectElemNode", id)) return;
    if (c->mode == 1) {
        int n;
        vsy_ChunkListNum(c->elemlists, id, &n);
        vsy_ChunkListGet(c->elemlists, id, n, num, nodes);
        return;
    }
    int n;
    const int* p = vis_Connect_List(c, id, &n);
    for (int k = 0; k < n; ++k) nodes[k] = p[k];
    *num = n;
}

void vis_ConnectElemNodePtr(vis_Connect* c, int id, int* num, const int** pointer)
{
    if (vis_Connect_Null(c, "vis_ConnectElemNodePtr")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMNODE)) {
        *num = 0;
        *pointer = nullptr;
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectElemNodePtr", id)) return;
    *pointer = vis_Connect_List(c, id, num);
}

void vis_ConnectIndElemNode(vis_Connect* c, int id, int index, int* node)
{
    if (vis_Connect_Null(c, "vis_ConnectIndElemNode")) return;
    if (c->gridfun && !c->numelemnode) {
        /* A front without storage: read the whole list through the slot. */
        int num = 0;
        if (!vis_Connect_Scratch(c) || !vis_Connect_ScratchList(c, c->maxelemnode)) return;
        vis_ConnectElemNode(c, id, &num, c->scratch);
        if (index < 0 || index >= num) {
            vsy_ErrorRecord(nullptr, "vis_ConnectIndElemNode", SYS_ERROR_VALUE, "index= %d", index);
            return;
        }
        *node = c->scratch[index];
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectIndElemNode", id)) return;
    if (index < 0 || index >= c->numelemnode[id]) {
        vsy_ErrorRecord(nullptr, "vis_ConnectIndElemNode", SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (c->mode == 1) vsy_ChunkListEntry(c->elemlists, id, index, node);
    else *node = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT][c->elnodeix[id] + index];
}

void vis_ConnectNumElemNode(vis_Connect* c, int id, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectNumElemNode")) return;
    if (GF_SET(c, VIS_GRIDFUN_NUMELEMNODE)) {
        GF_CALL(c, VIS_GRIDFUN_NUMELEMNODE, vis_GridFunNumElemNode_t)(c->gridfun->obj, id, num);
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectNumElemNode", id)) return;
    *num = c->numelemnode[id];
}

void vis_ConnectNumElemNodePtr(vis_Connect* c, const int** pointer)
{
    if (vis_Connect_Null(c, "vis_ConnectNumElemNodePtr")) return;
    if (GF_SET(c, VIS_GRIDFUN_NUMELEMNODEPTR)) {
        GF_CALL(c, VIS_GRIDFUN_NUMELEMNODEPTR, vis_GridFunNumElemNodePtr_t)(c->gridfun->obj, pointer);
        return;
    }
    if (pointer) *pointer = c->numelemnode;
}

void vis_ConnectElemNum(vis_Connect* c, int enttype, int id, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectElemNum")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMNUM)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMNUM, vis_GridFunElemNum_t)(c->gridfun->obj, enttype, id, num);
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectElemNum", id)) return;
    int shape = c->shape[id] == 255 ? -1 : c->shape[id];
    *num = 0;
    switch (enttype) {
    case SYS_NODE: *num = c->numelemnode[id]; break;
    case SYS_EDGE: vis_ElemEdgeCount(shape, c->maxj[id], num); break;
    case SYS_FACE: vis_ElemFaceCount(shape, c->maxk[id], num); break;
    default: break;
    }
}

void vis_ConnectGetDimension(vis_Connect* c, int* dimension)
{
    if (vis_Connect_Null(c, "vis_ConnectGetDimension") || !dimension) return;
    if (c->dimension) {
        *dimension = c->dimension;
        return;
    }
    if (GF_SET(c, VIS_GRIDFUN_GETDIMENSION)) {
        GF_CALL(c, VIS_GRIDFUN_GETDIMENSION, vis_GridFunGetDimension_t)(c->gridfun->obj, dimension);
        return;
    }
    *dimension = 3;
    vis_Assoc* et = c->elemassoc[VIS_ASSOC_ELEMTYPE];
    if (!et || !c->shape) return;
    for (int id = 1; id <= c->numelem; ++id) {
        int t = vis_AssocGet(et, id);
        int s = c->shape[id];
        if ((t == 1 && (s == SYS_SHAPE_TRI || s == SYS_SHAPE_QUAD)) || (t == 2 && s == SYS_SHAPE_LINE) ||
            (t == 4 && s == SYS_SHAPE_POINT)) {
            *dimension = 2;
            return;
        }
    }
}

/* ---------------------------------------------------------------------------------------- */
/* Extent */

template <class T>
static void vis_Connect_ExtentT(vis_Connect* c, const char* name, vis_Group* group, T* extent)
{
    int numnode = c->numnode;
    if (group) {
        /* The group check: a node group of numnode entries. */
        int n = 0, parent = 0, child = 0;
        vis_GroupInq(group, &n, &parent, &child);
        if (parent != SYS_NODE || (child != 0 && child != SYS_NODE) || n != numnode) {
            vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "%s", "");
            return;
        }
    }
    if (!extent) return;
    vis_Assoc* mask = c->nodeassoc[VIS_ASSOC_ELEMTYPE];
    int any = 0;
    double lo[3] = {0, 0, 0}, hi[3] = {0, 0, 0};
    for (int id = 1; id <= numnode; ++id) {
        if (mask && vis_AssocGet(mask, id) == 0) continue;
        if (group && !vis_Connect_GroupHas(group, id)) continue;
        double x[3];
        vis_Connect_ReadNode(c, id, x);
        for (int a = 0; a < 3; ++a) {
            if (!any || x[a] < lo[a]) lo[a] = x[a];
            if (!any || x[a] > hi[a]) hi[a] = x[a];
        }
        any = 1;
    }
    if (!any) return;
    for (int a = 0; a < 3; ++a) {
        extent[a] = (T)lo[a];
        extent[a + 3] = (T)hi[a];
    }
}

void vis_ConnectExtent(vis_Connect* c, vis_Group* group, float extent[6])
{
    if (vis_Connect_Null(c, "vis_ConnectExtent")) return;
    if (GF_SET(c, VIS_GRIDFUN_EXTENT)) {
        GF_CALL(c, VIS_GRIDFUN_EXTENT, vis_GridFunExtent_t)(c->gridfun->obj, group, extent);
        return;
    }
    vis_Connect_ExtentT(c, "vis_ConnectExtent", group, extent);
}

void vis_ConnectExtentdv(vis_Connect* c, vis_Group* group, double extent[6])
{
    if (vis_Connect_Null(c, "vis_ConnectExtent")) return;
    if (GF_SET(c, VIS_GRIDFUN_EXTENTDV)) {
        GF_CALL(c, VIS_GRIDFUN_EXTENTDV, vis_GridFunExtentdv_t)(c->gridfun->obj, group, extent);
        return;
    }
    vis_Connect_ExtentT(c, "vis_ConnectExtent", group, extent);
}
