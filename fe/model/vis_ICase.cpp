/* vis_ICase: sparse initial conditions by node and level; see vis_ICase.h. */
#include "vis_ICase.h"

#include "vis_ElemTopology.h"
#include "vis_Group.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

typedef struct vis_ICaseRec {
    int mask;
    double value[31];
} vis_ICaseRec;

vis_ICase* vis_ICaseNew(void)
{
    return (vis_ICase*)vis_Model_NewRecord(sizeof(vis_ICase), "ICase");
}

void vis_ICaseDelete(vis_ICase* ic)
{
    if (!ic) return;
    vsy_HashTableDeleteValues(ic->spv[0]);
    vsy_HashTableDeleteValues(ic->spv[1]);
    vsy_Free(ic);
}

int vis_ICaseError(vis_ICase* ic)
{
    return vis_Model_TakeError(ic ? &ic->ierr : nullptr);
}

static int vis_ICase_Level(vis_ICase* ic, const char* name, int level)
{
    if (vis_Model_IsNull(ic, name)) return 0;
    if (level == 1 || level == 2) return 1;
    vsy_ErrorRecord(&ic->ierr, name, SYS_ERROR_ENUM, "Invalid type= %d", level);
    return 0;
}

static int vis_ICase_Index(vis_ICase* ic, const char* name, int index)
{
    if (index >= 1) return 1;
    vsy_ErrorRecord(&ic->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
    return 0;
}

void vis_ICaseSPVMax(vis_ICase* ic, int level, int* max)
{
    if (vis_ICase_Level(ic, "vis_ICaseSPVMax", level)) *max = ic->max[level - 1];
}

void vis_ICaseSPVUseTag(vis_ICase* ic, int level, int* n, int* tags)
{
    if (!vis_ICase_Level(ic, "vis_ICaseSPVUseTag", level)) return;
    int mask = 0;
    vsy_HashTable* tab = ic->spv[level - 1];
    if (tab) {
        int key;
        void* value;
        vsy_HashTableInitIter(tab);
        for (vsy_HashTableNextIter(tab, &key, &value); value; vsy_HashTableNextIter(tab, &key, &value))
            mask |= ((const vis_ICaseRec*)value)->mask;
    }
    vis_Model_MaskTags(mask, n, tags);
}

void vis_ICaseSPVdv(vis_ICase* ic, int index, int level, int* n, int* tags, double* values)
{
    static const char* name = "vis_ICaseSPVdv";
    if (!vis_ICase_Level(ic, name, level) || !vis_ICase_Index(ic, name, index)) return;
    const vis_ICaseRec* rec = (const vis_ICaseRec*)vis_Model_TableGet(ic->spv[level - 1], index);
    *n = 0;
    if (!rec) return;
    for (int t = 1; t <= 31; ++t)
        if (rec->mask & (1 << (t - 1))) {
            if (tags) tags[*n] = t;
            if (values) values[*n] = rec->value[t - 1];
            ++*n;
        }
}

void vis_ICaseSPV(vis_ICase* ic, int index, int level, int* n, int* tags, float* values)
{
    double d[31];
    int m = -1;
    vis_ICaseSPVdv(ic, index, level, &m, tags, d);
    if (m < 0) return;
    *n = m;
    if (values) vis_Model_ToFloat(m, d, values);
}

static void vis_ICase_Set(vis_ICase* ic, const char* name, int index, int level, int tag, double value)
{
    if (!vis_ICase_Level(ic, name, level) || !vis_ICase_Index(ic, name, index)) return;
    if (tag < 1 || tag > 31) {
        vsy_ErrorRecord(&ic->ierr, name, SYS_ERROR_VALUE, "iparam= %d", tag);
        return;
    }
    vis_ICaseRec* rec = (vis_ICaseRec*)vis_Model_TableRecord(&ic->ierr, name, &ic->spv[level - 1], index,
                                                             sizeof(vis_ICaseRec), &ic->max[level - 1]);
    if (!rec) return;
    rec->mask |= 1 << (tag - 1);
    rec->value[tag - 1] = value;
}

void vis_ICaseSetSPVdv(vis_ICase* ic, int index, int level, int tag, double value)
{
    vis_ICase_Set(ic, "vis_ICaseSetSPVdv", index, level, tag, value);
}

void vis_ICaseSetSPV(vis_ICase* ic, int index, int level, int tag, float value)
{
    vis_ICase_Set(ic, "vis_ICaseSetSPV", index, level, tag, value);
}

void vis_ICaseNodeGroup(vis_ICase* ic, int level, vis_Group* group)
{
    static const char* name = "vis_ICaseNodeGroup";
    if (!vis_ICase_Level(ic, name, level) ||
        !vis_Model_TableToGroup(&ic->ierr, name, nullptr, group, SYS_NODE, -1, nullptr))
        return;
    vis_GroupClear(group);
    vis_Model_TableToGroup(&ic->ierr, name, ic->spv[level - 1], group, SYS_NODE, -1, nullptr);
}
