/* vis_RCase: sparse restraints by node and element; see vis_RCase.h. */
#include "vis_RCase.h"

#include "vis_ElemTopology.h"
#include "vis_Group.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

typedef struct vis_RCaseRec {
    int mask;
    int type[31];
    double value[31];
} vis_RCaseRec;

vis_RCase* vis_RCaseNew(void)
{
    return (vis_RCase*)vis_Model_NewRecord(sizeof(vis_RCase), "RCase");
}

void vis_RCaseDelete(vis_RCase* rc)
{
    if (!rc) return;
    vsy_HashTableDeleteValues(rc->spc);
    vsy_HashTableDeleteValues(rc->elemc);
    vsy_Free(rc);
}

int vis_RCaseError(vis_RCase* rc)
{
    return vis_Model_TakeError(rc ? &rc->ierr : nullptr);
}

void vis_RCaseUseTag(vis_RCase* rc, int* n, int* tags)
{
    if (vis_Model_IsNull(rc, "vis_RCaseUseTag")) return;
    vis_Model_MaskTags(rc->usedmask, n, tags);
}

void vis_RCaseSPCMax(vis_RCase* rc, int* max)
{
    if (vis_Model_IsNull(rc, "vis_RCaseSPCMax")) return;
    *max = rc->spcmax;
}

void vis_RCaseElemCMax(vis_RCase* rc, int* max)
{
    if (vis_Model_IsNull(rc, "vis_RCaseElemCMax")) return;
    *max = rc->elemcmax;
}

static int vis_RCase_Check(vis_RCase* rc, const char* name, int index, int tag)
{
    if (vis_Model_IsNull(rc, name)) return 0;
    if (index < 1) {
        vsy_ErrorRecord(&rc->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return 0;
    }
    if (tag < 1 || tag > 31) {
        vsy_ErrorRecord(&rc->ierr, name, SYS_ERROR_VALUE, "iparam= %d", tag);
        return 0;
    }
    return 1;
}

/* Tags of an entry of one table. */
static void vis_RCase_Tags(vis_RCase* rc, const char* name, vsy_HashTable* tab, int index, int* n, int* tags)
{
    if (!vis_RCase_Check(rc, name, index, 1)) return;
    const vis_RCaseRec* rec = (const vis_RCaseRec*)vis_Model_TableGet(tab, index);
    vis_Model_MaskTags(rec ? rec->mask : 0, n, tags);
}

/* Reads a tag of an entry; 0 when the arguments were refused (nothing written). */
static int vis_RCase_Get(vis_RCase* rc, const char* name, vsy_HashTable* tab, int index, int tag, int* type,
                         double* value)
{
    if (!vis_RCase_Check(rc, name, index, tag)) return 0;
    const vis_RCaseRec* rec = (const vis_RCaseRec*)vis_Model_TableGet(tab, index);
    int on = rec && (rec->mask & (1 << (tag - 1)));
    *type = on ? rec->type[tag - 1] : 0;
    *value = on ? rec->value[tag - 1] : 0.0;
    return 1;
}

static void vis_RCase_Set(vis_RCase* rc, const char* name, vsy_HashTable** tab, int* max, int index, int tag, int type,
                          double value)
{
    if (!vis_RCase_Check(rc, name, index, tag)) return;
    if (type != 1 && type != 2) {
        vsy_ErrorRecord(&rc->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    vis_RCaseRec* rec = (vis_RCaseRec*)vis_Model_TableRecord(&rc->ierr, name, tab, index, sizeof(vis_RCaseRec), max);
    if (!rec) return;
    rec->mask |= 1 << (tag - 1);
    rec->type[tag - 1] = type;
    rec->value[tag - 1] = type == 1 ? 0.0 : value;
    rc->usedmask |= 1 << (tag - 1);
}

void vis_RCaseSPCTag(vis_RCase* rc, int index, int* n, int* tags)
{
    vis_RCase_Tags(rc, "vis_RCaseSPCTag", rc ? rc->spc : nullptr, index, n, tags);
}

void vis_RCaseSPCdv(vis_RCase* rc, int index, int tag, int* type, double* value)
{
    vis_RCase_Get(rc, "vis_RCaseSPCdv", rc ? rc->spc : nullptr, index, tag, type, value);
}

void vis_RCaseSPC(vis_RCase* rc, int index, int tag, int* type, float* value)
{
    double d = 0.0;
    if (vis_RCase_Get(rc, "vis_RCaseSPC", rc ? rc->spc : nullptr, index, tag, type, &d)) *value = (float)d;
}

void vis_RCaseSetSPCdv(vis_RCase* rc, int index, int tag, int type, double value)
{
    vis_RCase_Set(rc, "vis_RCaseSetSPCdv", rc ? &rc->spc : nullptr, rc ? &rc->spcmax : nullptr, index, tag, type,
                  value);
}

void vis_RCaseSetSPC(vis_RCase* rc, int index, int tag, int type, float value)
{
    vis_RCase_Set(rc, "vis_RCaseSetSPC", rc ? &rc->spc : nullptr, rc ? &rc->spcmax : nullptr, index, tag, type, value);
}

void vis_RCaseElemCTag(vis_RCase* rc, int index, int* n, int* tags)
{
    vis_RCase_Tags(rc, "vis_RCaseElemCTag", rc ? rc->elemc : nullptr, index, n, tags);
}

void vis_RCaseElemCdv(vis_RCase* rc, int index, int tag, int* type, double* value)
{
    vis_RCase_Get(rc, "vis_RCaseElemCdv", rc ? rc->elemc : nullptr, index, tag, type, value);
}

void vis_RCaseElemC(vis_RCase* rc, int index, int tag, int* type, float* value)
{
    double d = 0.0;
    if (vis_RCase_Get(rc, "vis_RCaseElemC", rc ? rc->elemc : nullptr, index, tag, type, &d)) *value = (float)d;
}

void vis_RCaseSetElemCdv(vis_RCase* rc, int index, int tag, int type, double value)
{
    vis_RCase_Set(rc, "vis_RCaseSetElemCdv", rc ? &rc->elemc : nullptr, rc ? &rc->elemcmax : nullptr, index, tag, type,
                  value);
}

void vis_RCaseSetElemC(vis_RCase* rc, int index, int tag, int type, float value)
{
    vis_RCase_Set(rc, "vis_RCaseSetElemC", rc ? &rc->elemc : nullptr, rc ? &rc->elemcmax : nullptr, index, tag, type,
                  value);
}

static void vis_RCase_Group(vis_RCase* rc, const char* name, vsy_HashTable* tab, int parent, vis_Group* group)
{
    if (vis_Model_IsNull(rc, name) || !vis_Model_TableToGroup(&rc->ierr, name, nullptr, group, parent, -1, nullptr))
        return;
    vis_GroupClear(group);
    vis_Model_TableToGroup(&rc->ierr, name, tab, group, parent, -1, nullptr);
}

void vis_RCaseNodeGroup(vis_RCase* rc, vis_Group* group)
{
    vis_RCase_Group(rc, "vis_RCaseNodeGroup", rc ? rc->spc : nullptr, SYS_NODE, group);
}

void vis_RCaseElemGroup(vis_RCase* rc, vis_Group* group)
{
    vis_RCase_Group(rc, "vis_RCaseElemGroup", rc ? rc->elemc : nullptr, SYS_ELEM, group);
}

/* Copies every tag of every entry of a source table through the setter of one kind. */
static void vis_RCase_Merge(vis_RCase* rc, vsy_HashTable* from, vsy_HashTable** to, int* max)
{
    if (!from) return;
    int key;
    void* value;
    vsy_HashTableInitIter(from);
    for (vsy_HashTableNextIter(from, &key, &value); value; vsy_HashTableNextIter(from, &key, &value)) {
        const vis_RCaseRec* rec = (const vis_RCaseRec*)value;
        for (int t = 1; t <= 31; ++t)
            if (rec->mask & (1 << (t - 1)))
                vis_RCase_Set(rc, "vis_RCaseAdd", to, max, key, t, rec->type[t - 1], rec->value[t - 1]);
    }
}

void vis_RCaseAdd(vis_RCase* rc, vis_RCase* src)
{
    if (vis_Model_IsNull(rc, "vis_RCaseAdd") || vis_Model_IsNull(src, "vis_RCaseAdd") || rc == src) return;
    vis_RCase_Merge(rc, src->spc, &rc->spc, &rc->spcmax);
    vis_RCase_Merge(rc, src->elemc, &rc->elemc, &rc->elemcmax);
}
