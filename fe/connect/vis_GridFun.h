/* vis_GridFun: a table of 35 function slots plus an opaque object, which stands for any
 * connectivity.
 *
 * A consumer that reads a mesh (the writers, a vis_Connect used as a front) calls slot `code`
 * with the object as its first argument and otherwise the arguments of the vis_Connect
 * operation of the same code. Slots hold functions of different types; each is stored as the
 * generic vis_GridFunc and must be called through the type named for its code below
 * (VIS_GRIDFUN_... codes, vis_GridFun..._t types). vis_ConnectGridFun (vis_Connect.h) fills a
 * table over a vis_Connect.
 *
 * Codes 23 and 31 are free; a slot never set is null. The table owns nothing: the object stays
 * the caller's.
 */
#ifndef VIS_GRIDFUN_H
#define VIS_GRIDFUN_H

#define VIS_GRIDFUN_MAXSLOT 35

#define VIS_GRIDFUN_GETINTEGER 1
#define VIS_GRIDFUN_TOPOLOGY 2
#define VIS_GRIDFUN_ELEMNODE 3
#define VIS_GRIDFUN_MAXELEMNODE 4
#define VIS_GRIDFUN_COORDS 5
#define VIS_GRIDFUN_NODEASSOC 6
#define VIS_GRIDFUN_ELEMASSOC 7
#define VIS_GRIDFUN_ELEMNUM 8
#define VIS_GRIDFUN_ELEMCON 9
#define VIS_GRIDFUN_ELEMTOPO 10
#define VIS_GRIDFUN_ELEMADJ 11
#define VIS_GRIDFUN_MAXNODEELEM 12
#define VIS_GRIDFUN_NODEELEM 13
#define VIS_GRIDFUN_EXTENT 14
#define VIS_GRIDFUN_FACEGROUP 15
#define VIS_GRIDFUN_EDGEGROUP 16
#define VIS_GRIDFUN_NODEGROUP 17
#define VIS_GRIDFUN_SETGROUPPARAMF 18
#define VIS_GRIDFUN_ELEMCNN 19
#define VIS_GRIDFUN_ELEMGROUP 20
#define VIS_GRIDFUN_SETGROUPPARAMFV 21
#define VIS_GRIDFUN_SETGROUPPARAMI 22
#define VIS_GRIDFUN_NODEELEMCOMMON 24
#define VIS_GRIDFUN_COORDSDV 25
#define VIS_GRIDFUN_NUMELEMNODEPTR 26
#define VIS_GRIDFUN_ERROR 27
#define VIS_GRIDFUN_NUMELEMNODE 28
#define VIS_GRIDFUN_NUMNODEELEM 29
#define VIS_GRIDFUN_ELEMCORN 30
#define VIS_GRIDFUN_GETDIMENSION 32
#define VIS_GRIDFUN_EXTENTDV 33
#define VIS_GRIDFUN_ELEMENTASSOC 34
#define VIS_GRIDFUN_NODENODE 35

struct vis_Group;

/* The generic slot type; cast to and from the type of the slot's code. */
typedef void (*vis_GridFunc)(void);

/* Slot types: the vis_Connect operation's arguments with the object in place of the connect. */
typedef void (*vis_GridFunGetInteger_t)(void* obj, int option, int* value);
typedef void (*vis_GridFunTopology_t)(void* obj, int id, int* shape, int* maxi, int* maxj, int* maxk);
typedef void (*vis_GridFunElemNode_t)(void* obj, int id, int* num, int* nodes);
typedef void (*vis_GridFunMaxElemNode_t)(void* obj, int* num);
typedef void (*vis_GridFunCoords_t)(void* obj, int nix, const int* ix, float* x);
typedef void (*vis_GridFunNodeAssoc_t)(void* obj, int type, int nix, const int* ix, int* values);
typedef void (*vis_GridFunElemAssoc_t)(void* obj, int type, int nix, const int* ix, int* values);
typedef void (*vis_GridFunElemNum_t)(void* obj, int enttype, int id, int* num);
typedef void (*vis_GridFunElemCon_t)(void* obj, int enttype, int id, int no, int* num, int* nodes);
typedef void (*vis_GridFunElemTopo_t)(void* obj, int enttype, int id, int no, int* shape, int* maxi,
                                      int* maxj);
typedef void (*vis_GridFunElemAdj_t)(void* obj, int enttype, int id, int no, int* num, int* elems);
typedef void (*vis_GridFunMaxNodeElem_t)(void* obj, int* num);
typedef void (*vis_GridFunNodeElem_t)(void* obj, int id, int* num, int* elems);
typedef void (*vis_GridFunExtent_t)(void* obj, struct vis_Group* group, float* extent);
typedef void (*vis_GridFunGroup_t)(void* obj, int oper, struct vis_Group* source,
                                   struct vis_Group* dest);
typedef void (*vis_GridFunSetGroupParamf_t)(void* obj, int type, float param);
typedef void (*vis_GridFunSetGroupParamfv_t)(void* obj, int type, const float* param);
typedef void (*vis_GridFunSetGroupParami_t)(void* obj, int type, int param);
typedef void (*vis_GridFunNodeElemCommon_t)(void* obj, int nnodes, const int* nodes, int* num,
                                            int* elems);
typedef void (*vis_GridFunCoordsdv_t)(void* obj, int nix, const int* ix, double* x);
typedef void (*vis_GridFunNumElemNodePtr_t)(void* obj, const int** pointer);
typedef int (*vis_GridFunError_t)(void* obj);
typedef void (*vis_GridFunNumElemNode_t)(void* obj, int id, int* num);
typedef void (*vis_GridFunNumNodeElem_t)(void* obj, int id, int* num);
typedef void (*vis_GridFunGetDimension_t)(void* obj, int* dimension);
typedef void (*vis_GridFunExtentdv_t)(void* obj, struct vis_Group* group, double* extent);
typedef void (*vis_GridFunElemEntAssoc_t)(void* obj, int type, int enttype, int id, int no,
                                          int* value);
typedef void (*vis_GridFunNodeNode_t)(void* obj, int id, int* num, int* nodes);

typedef struct vis_GridFun {
    int ierr;                                /* last error */
    void* obj;                               /* the object handed to every slot, not owned */
    vis_GridFunc fun[VIS_GRIDFUN_MAXSLOT + 1]; /* slots 1 to 35; entry 0 unused */
} vis_GridFun;

/* Creates a table with every slot null; null with "GridFun" code 4 "Creation Failure". */
vis_GridFun* vis_GridFunNew(void);
void vis_GridFunDelete(vis_GridFun* gf);
int vis_GridFunError(vis_GridFun* gf);
/* Stores a function in slot code (1 to 35, else error 2 "type= %d"); null clears the slot. */
void vis_GridFunSet(vis_GridFun* gf, int code, vis_GridFunc function);
/* Reads slot code (1 to 35, else error 2 "type= %d" and a null result). */
void vis_GridFunGet(vis_GridFun* gf, int code, vis_GridFunc* function);
/* Stores and reads the object handed to the slots. */
void vis_GridFunSetObj(vis_GridFun* gf, void* obj);
void vis_GridFunGetObj(vis_GridFun* gf, void** obj);

#endif
