/* vis_Connect: the grid function that stands for a connect; see vis_Connect.h. */
#include "vis_Connect.h"
#include "vis_ConnectInternal.h"

#include "vis_ConnectGroup.h"
#include "vis_ConnectKernel.h"
#include "vsy_Error.h"

/* ---------------------------------------------------------------------------------------- */
/* The grid function over a connect: each slot hands its object back as the connect. */

#define VC(obj) ((vis_Connect*)(obj))

static void gf_GetInteger(void* o, int option, int* value) { vis_ConnectGetInteger(VC(o), option, value); }
static void gf_Topology(void* o, int id, int* s, int* i, int* j, int* k) { vis_ConnectTopology(VC(o), id, s, i, j, k); }
static void gf_ElemNode(void* o, int id, int* num, int* nodes) { vis_ConnectElemNode(VC(o), id, num, nodes); }
static void gf_MaxElemNode(void* o, int* num) { vis_ConnectMaxElemNode(VC(o), num); }
static void gf_Coords(void* o, int nix, const int* ix, float* x) { vis_ConnectCoords(VC(o), nix, ix, x); }
static void gf_NodeAssoc(void* o, int type, int nix, const int* ix, int* v) { vis_ConnectNodeAssoc(VC(o), type, nix, ix, v); }
static void gf_ElemAssoc(void* o, int type, int nix, const int* ix, int* v) { vis_ConnectElemAssoc(VC(o), type, nix, ix, v); }
static void gf_ElemNum(void* o, int enttype, int id, int* num) { vis_ConnectElemNum(VC(o), enttype, id, num); }
static void gf_ElemCon(void* o, int et, int id, int no, int* num, int* nodes) { vis_ConnectElemCon(VC(o), et, id, no, num, nodes); }
static void gf_ElemTopo(void* o, int et, int id, int no, int* s, int* i, int* j) { vis_ConnectElemTopo(VC(o), et, id, no, s, i, j); }
static void gf_ElemAdj(void* o, int et, int id, int no, int* num, int* e) { vis_ConnectElemAdj(VC(o), et, id, no, num, e); }
static void gf_MaxNodeElem(void* o, int* num) { vis_ConnectMaxNodeElem(VC(o), num); }
static void gf_NodeElem(void* o, int id, int* num, int* e) { vis_ConnectNodeElem(VC(o), id, num, e); }
static void gf_Extent(void* o, vis_Group* g, float* e) { vis_ConnectExtent(VC(o), g, e); }
static void gf_ElemCnn(void* o, int et, int id, int no, int* num, int* p) { vis_ConnectElemCnn(VC(o), et, id, no, num, p); }
static void gf_NodeElemCommon(void* o, int n, const int* nodes, int* num, int* e) { vis_ConnectNodeElemCommon(VC(o), n, nodes, num, e); }
static void gf_Coordsdv(void* o, int nix, const int* ix, double* x) { vis_ConnectCoordsdv(VC(o), nix, ix, x); }
static void gf_NumElemNodePtr(void* o, const int** p) { vis_ConnectNumElemNodePtr(VC(o), p); }
static int gf_Error(void* o) { return vis_ConnectError(VC(o)); }
static void gf_NumElemNode(void* o, int id, int* num) { vis_ConnectNumElemNode(VC(o), id, num); }
static void gf_NumNodeElem(void* o, int id, int* num) { vis_ConnectNumNodeElem(VC(o), id, num); }
static void gf_ElemCorn(void* o, int et, int id, int no, int* num, int* p) { vis_ConnectElemCorn(VC(o), et, id, no, num, p); }
static void gf_GetDimension(void* o, int* d) { vis_ConnectGetDimension(VC(o), d); }
static void gf_Extentdv(void* o, vis_Group* g, double* e) { vis_ConnectExtentdv(VC(o), g, e); }
static void gf_ElemEntAssoc(void* o, int t, int et, int id, int no, int* v) { vis_ConnectElemEntAssoc(VC(o), t, et, id, no, v); }
static void gf_NodeNode(void* o, int id, int* num, int* nodes) { vis_ConnectNodeNode(VC(o), id, num, nodes); }
static void gf_FaceGroup(void* o, int op, vis_Group* s, vis_Group* d) { vis_ConnectFaceGroup(VC(o), op, s, d); }
static void gf_EdgeGroup(void* o, int op, vis_Group* s, vis_Group* d) { vis_ConnectEdgeGroup(VC(o), op, s, d); }
static void gf_NodeGroup(void* o, int op, vis_Group* s, vis_Group* d) { vis_ConnectNodeGroup(VC(o), op, s, d); }
static void gf_ElemGroup(void* o, int op, vis_Group* s, vis_Group* d) { vis_ConnectElemGroup(VC(o), op, s, d); }
static void gf_SetGroupParamf(void* o, int t, float p) { vis_ConnectSetGroupParamf(VC(o), t, p); }
static void gf_SetGroupParamfv(void* o, int t, const float* p) { vis_ConnectSetGroupParamfv(VC(o), t, p); }
static void gf_SetGroupParami(void* o, int t, int p) { vis_ConnectSetGroupParami(VC(o), t, p); }

void vis_ConnectGridFun(vis_Connect* c, vis_GridFun* gf)
{
    if (vis_Connect_Null(c, "vis_ConnectGridFun")) return;
    if (!gf) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectGridFun", SYS_ERROR_NULLOBJECT, "GridFun");
        return;
    }
    vis_GridFunSetObj(gf, c);
    vis_GridFunSet(gf, VIS_GRIDFUN_GETINTEGER, (vis_GridFunc)gf_GetInteger);
    vis_GridFunSet(gf, VIS_GRIDFUN_TOPOLOGY, (vis_GridFunc)gf_Topology);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMNODE, (vis_GridFunc)gf_ElemNode);
    vis_GridFunSet(gf, VIS_GRIDFUN_MAXELEMNODE, (vis_GridFunc)gf_MaxElemNode);
    vis_GridFunSet(gf, VIS_GRIDFUN_COORDS, (vis_GridFunc)gf_Coords);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODEASSOC, (vis_GridFunc)gf_NodeAssoc);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMASSOC, (vis_GridFunc)gf_ElemAssoc);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMNUM, (vis_GridFunc)gf_ElemNum);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMCON, (vis_GridFunc)gf_ElemCon);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMTOPO, (vis_GridFunc)gf_ElemTopo);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMADJ, (vis_GridFunc)gf_ElemAdj);
    vis_GridFunSet(gf, VIS_GRIDFUN_MAXNODEELEM, (vis_GridFunc)gf_MaxNodeElem);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODEELEM, (vis_GridFunc)gf_NodeElem);
    vis_GridFunSet(gf, VIS_GRIDFUN_EXTENT, (vis_GridFunc)gf_Extent);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMCNN, (vis_GridFunc)gf_ElemCnn);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODEELEMCOMMON, (vis_GridFunc)gf_NodeElemCommon);
    vis_GridFunSet(gf, VIS_GRIDFUN_COORDSDV, (vis_GridFunc)gf_Coordsdv);
    vis_GridFunSet(gf, VIS_GRIDFUN_NUMELEMNODEPTR, (vis_GridFunc)gf_NumElemNodePtr);
    vis_GridFunSet(gf, VIS_GRIDFUN_ERROR, (vis_GridFunc)gf_Error);
    vis_GridFunSet(gf, VIS_GRIDFUN_NUMELEMNODE, (vis_GridFunc)gf_NumElemNode);
    vis_GridFunSet(gf, VIS_GRIDFUN_NUMNODEELEM, (vis_GridFunc)gf_NumNodeElem);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMCORN, (vis_GridFunc)gf_ElemCorn);
    vis_GridFunSet(gf, VIS_GRIDFUN_GETDIMENSION, (vis_GridFunc)gf_GetDimension);
    vis_GridFunSet(gf, VIS_GRIDFUN_EXTENTDV, (vis_GridFunc)gf_Extentdv);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMENTASSOC, (vis_GridFunc)gf_ElemEntAssoc);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODENODE, (vis_GridFunc)gf_NodeNode);
    vis_GridFunSet(gf, VIS_GRIDFUN_FACEGROUP, (vis_GridFunc)gf_FaceGroup);
    vis_GridFunSet(gf, VIS_GRIDFUN_EDGEGROUP, (vis_GridFunc)gf_EdgeGroup);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODEGROUP, (vis_GridFunc)gf_NodeGroup);
    vis_GridFunSet(gf, VIS_GRIDFUN_SETGROUPPARAMF, (vis_GridFunc)gf_SetGroupParamf);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMGROUP, (vis_GridFunc)gf_ElemGroup);
    vis_GridFunSet(gf, VIS_GRIDFUN_SETGROUPPARAMFV, (vis_GridFunc)gf_SetGroupParamfv);
    vis_GridFunSet(gf, VIS_GRIDFUN_SETGROUPPARAMI, (vis_GridFunc)gf_SetGroupParami);
}
