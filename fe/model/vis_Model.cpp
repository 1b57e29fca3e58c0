/* vis_Model: slots by object-type code; see vis_Model.h. */
#include "vis_Model.h"

#include "vis_Connect.h"
#include "vis_ElemDat.h"
#include "vis_EProp.h"
#include "vis_SProp.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

#include <cstring>

static const int vis_ModelObjCode[VIS_MODEL_NUMOBJ] = {SYS_CONNECT, SYS_GRIDFUN, SYS_UNITS, SYS_MODELOBJ4};
static const int vis_ModelHashCode[VIS_MODEL_NUMHASH] = {
    SYS_COORDSYS, SYS_RCASE, SYS_LCASE, SYS_ICASE, SYS_MCASE, SYS_MPROP, SYS_EPROP,
    SYS_TCURVE, SYS_CPAIR, SYS_NODEGROUP, SYS_ELEMGROUP, SYS_GROUPHASH3, SYS_ELEMDAT, SYS_MODELHASH14};

vis_Model* vis_ModelNew(void)
{
    return (vis_Model*)vis_Model_NewRecord(sizeof(vis_Model), "Model");
}

void vis_ModelDelete(vis_Model* model)
{
    if (!model) return;
    model->ierr = 0;
    vsy_Free(model);
}

int vis_ModelError(vis_Model* model)
{
    return vis_Model_TakeError(model ? &model->ierr : nullptr);
}

/* The object slot of a code, or null. */
static void** vis_Model_ObjSlot(vis_Model* model, int code)
{
    for (int i = 0; i < VIS_MODEL_NUMOBJ; ++i)
        if (vis_ModelObjCode[i] == code) return &model->obj[i];
    return nullptr;
}

/* The hash table slot of a code, or null: the first nine in the record's first block, the
 * other five in the second. */
static vsy_HashTable** vis_Model_HashSlot(vis_Model* model, int code)
{
    for (int i = 0; i < VIS_MODEL_NUMHASH; ++i)
        if (vis_ModelHashCode[i] == code) return i < 9 ? &model->hash[i] : &model->hash2[i - 9];
    return nullptr;
}

void vis_ModelSetObject(vis_Model* model, int objecttype, void* object)
{
    if (vis_Model_IsNull(model, "vis_ModelSetObject")) return;
    void** slot = vis_Model_ObjSlot(model, objecttype);
    if (!slot) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelSetObject", SYS_ERROR_OBJECTTYPE, "objecttype= %d", objecttype);
        return;
    }
    *slot = object;
}

void vis_ModelGetObject(vis_Model* model, int objecttype, void** object)
{
    if (vis_Model_IsNull(model, "vis_ModelGetObject")) return;
    void** slot = vis_Model_ObjSlot(model, objecttype);
    if (!slot) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelGetObject", SYS_ERROR_OBJECTTYPE, "objecttype= %d", objecttype);
        return;
    }
    if (object) *object = *slot;
}

void vis_ModelSetHashTable(vis_Model* model, int type, vsy_HashTable* table)
{
    if (vis_Model_IsNull(model, "vis_ModelSetHashTable")) return;
    vsy_HashTable** slot = vis_Model_HashSlot(model, type);
    if (!slot) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelSetHashTable", SYS_ERROR_OBJECTTYPE, "type= %d", type);
        return;
    }
    *slot = table;
}

void vis_ModelGetHashTable(vis_Model* model, int type, vsy_HashTable** table)
{
    if (vis_Model_IsNull(model, "vis_ModelGetHashTable")) return;
    vsy_HashTable** slot = vis_Model_HashSlot(model, type);
    if (!slot) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelGetHashTable", SYS_ERROR_OBJECTTYPE, "type= %d", type);
        return;
    }
    if (table) *table = *slot;
}

void vis_ModelSetList(vis_Model* model, int type, vsy_List* list)
{
    if (vis_Model_IsNull(model, "vis_ModelSetList")) return;
    if (type != SYS_SPROP) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelSetList", SYS_ERROR_OBJECTTYPE, "type= %d", type);
        return;
    }
    model->sprop = list;
}

void vis_ModelGetList(vis_Model* model, int type, vsy_List** list)
{
    if (vis_Model_IsNull(model, "vis_ModelGetList")) return;
    if (type != SYS_SPROP) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelGetList", SYS_ERROR_OBJECTTYPE, "type= %d", type);
        return;
    }
    if (list) *list = model->sprop;
}

void vis_ModelSetInteger(vis_Model* model, int type, int value)
{
    if (vis_Model_IsNull(model, "vis_ModelSetInteger")) return;
    if (type < 1 || type > VIS_MODEL_NUMINT) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelSetInteger", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    model->ints[type - 1] = value;
}

void vis_ModelGetInteger(vis_Model* model, int type, int* value)
{
    if (vis_Model_IsNull(model, "vis_ModelGetInteger")) return;
    if (type < 1 || type > VIS_MODEL_NUMINT) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelGetInteger", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    if (value) *value = model->ints[type - 1];
}

/* Property fallback of the thickness: parameter 7 of a shell property at the nodes. */
static void vis_Model_PropThickness(vis_Model* model, vis_Connect* connect, int element, int shape,
                                    int maxi, int maxj, double thickness[])
{
    vsy_HashTable* eprops = model->hash[6];
    if (!eprops) return;
    int propid = 0;
    vis_ConnectElemAssoc(connect, 2, 1, &element, &propid);
    vis_EProp* prop = (vis_EProp*)vis_Model_TableGet(eprops, propid);
    if (!prop) return;
    int type = 0;
    vis_EPropGetType(prop, &type);
    if (type != 2) return;
    vis_EPropEvaldv(prop, 7, shape, maxi, maxj, thickness);
    int ierr = vis_EPropError(prop); /* the property's failure becomes the model's */
    if (ierr) model->ierr = ierr;
}

void vis_ModelElemThickness(vis_Model* model, int element, double thickness[])
{
    if (vis_Model_IsNull(model, "vis_ModelElemThickness")) return;
    vis_Connect* connect = (vis_Connect*)model->obj[0];
    if (!connect) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelElemThickness", SYS_ERROR_NULLOBJECT, "Connect object");
        return;
    }
    int shape = 0, maxi = 0, maxj = 0, maxk = 0, n = 0;
    vis_ConnectTopology(connect, element, &shape, &maxi, &maxj, &maxk);
    vis_ElemNum(shape, maxi, maxj, maxk, &n);
    for (int i = 0; i < n; ++i) thickness[i] = 0.0;
    vis_ElemDat* data = (vis_ElemDat*)vis_Model_TableGet(model->hash2[3], VIS_ELEMDAT_THICKNESS);
    if (data) vis_ElemDatData(data, element, n, thickness);
    if (n > 0 && thickness[0] == 0.0) vis_Model_PropThickness(model, connect, element, shape, maxi, maxj, thickness);
}

/* 1 when a non-zero id is missing from a table that exists. */
static int vis_Model_Dangles(vsy_HashTable* tab, int id)
{
    return tab && id != 0 && !vis_Model_TableGet(tab, id);
}

/* Dangling ids of one association over all entities of a kind. */
static int vis_Model_CheckAssoc(vis_Connect* connect, int node, int type, vsy_HashTable* tab)
{
    if (!tab) return 0;
    int num = 0, bad = 0;
    vis_ConnectGetInteger(connect, node ? 1 : 4, &num);
    for (int i = 1; i <= num; ++i) {
        int id = 0;
        if (node) vis_ConnectNodeAssoc(connect, type, 1, &i, &id);
        else vis_ConnectElemAssoc(connect, type, 1, &i, &id);
        bad += vis_Model_Dangles(tab, id);
    }
    return bad;
}

/* Dangling case and curve ids of the solution steps. */
static int vis_Model_CheckSteps(vis_Model* model)
{
    static const int single[3][2] = {{8, 1}, {10, 3}, {18, 4}}; /* parameter, hash slot */
    int nstep = 0, bad = 0;
    vsy_ListCount(model->sprop, &nstep);
    for (int s = 1; s <= nstep; ++s) {
        void* obj = nullptr;
        vsy_ListRef(model->sprop, s, &obj);
        vis_SProp* step = (vis_SProp*)obj;
        if (!step) continue;
        for (const int* p : single) {
            int id = 0;
            vis_SPropValueInteger(step, p[0], &id);
            bad += vis_Model_Dangles(model->hash[p[1]], id);
        }
        int nlc = 0;
        vis_SPropValueInteger(step, 2, &nlc);
        for (int k = 0; k < 2 && nlc > 0; ++k) {
            int* ids = (int*)vis_Model_Calloc((size_t)nlc, sizeof(int));
            if (!ids) break;
            vis_SPropValueInteger(step, k ? 23 : 3, ids);
            for (int i = 0; i < nlc; ++i) bad += vis_Model_Dangles(model->hash[k ? 7 : 2], ids[i]);
            vsy_Free(ids);
        }
    }
    return bad;
}

void vis_ModelCheck(vis_Model* model, int* nbad)
{
    if (vis_Model_IsNull(model, "vis_ModelCheck")) return;
    vis_Connect* connect = (vis_Connect*)model->obj[0];
    if (!connect) {
        vsy_ErrorRecord(&model->ierr, "vis_ModelCheck", SYS_ERROR_NULLOBJECT, "Connect object");
        return;
    }
    vsy_HashTable *eprops = model->hash[6], *mprops = model->hash[5];
    int bad = vis_Model_CheckAssoc(connect, 0, 2, eprops) + vis_Model_CheckAssoc(connect, 0, 1, mprops) +
              vis_Model_CheckAssoc(connect, 1, 4, model->hash[0]);
    if (eprops && mprops) {
        int key;
        void* value;
        vsy_HashTableInitIter(eprops);
        for (vsy_HashTableNextIter(eprops, &key, &value); value; vsy_HashTableNextIter(eprops, &key, &value)) {
            int mid = 0;
            vis_EPropValueInteger((vis_EProp*)value, 0, &mid);
            bad += vis_Model_Dangles(mprops, mid);
        }
    }
    *nbad = bad + vis_Model_CheckSteps(model);
}
