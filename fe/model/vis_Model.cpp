/* vis_Model: slots by object-type code; see vis_Model.h. */
#include "vis_Model.h"

#include "vis_Connect.h"
#include "vis_ElemDat.h"
#include "vis_EProp.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

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
    if (type == 2) vis_EPropEvaldv(prop, 7, shape, maxi, maxj, thickness);
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
