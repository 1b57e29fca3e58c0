/* vis_Group: entity flags in a store chosen by the parent and child types; see vis_Group.h. */
#include "vis_Group.h"

#include "vis_IdTran.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"

#include <cstring>

#define VIS_GROUP_MAXTYPE 11

vis_Group* vis_GroupNew(void)
{
    vis_Group* group = (vis_Group*)vis_Model_NewRecord(sizeof(vis_Group), "Group");
    if (group) vis_GroupDef(group, 0, 4, 0);
    if (group && !group->store) {
        vsy_Free(group);
        vsy_ErrorMessage("Group", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    return group;
}

void vis_GroupDelete(vis_Group* group)
{
    if (!group) return;
    vsy_Free(group->store);
    vsy_Free(group);
}

int vis_GroupError(vis_Group* group)
{
    return vis_Model_TakeError(group ? &group->ierr : nullptr);
}

/* Width and flags in use of the store for a parent and child type. */
static void vis_Group_Layout(int parent, int child, int* nbits, int* nset)
{
    if (child == 0 || child == parent) *nbits = 1, *nset = 1;
    else if (parent == 4 && child == 3) *nbits = 8, *nset = 6;
    else if (parent == 3 && child == 2) *nbits = 8, *nset = 4;
    else if (parent == 4 && child == 2) *nbits = 16, *nset = 12;
    else *nbits = 32, *nset = 32;
}

/* Bytes of a store of nument entities. */
static size_t vis_Group_Bytes(int nbits, int nument)
{
    if (nbits == 1) return (size_t)nument / 8 + 1;
    return ((size_t)nument + 1) * (size_t)(nbits / 8);
}

void vis_GroupDef(vis_Group* group, int nument, int parenttype, int childtype)
{
    static const char* name = "vis_GroupDef";
    if (vis_Model_IsNull(group, name)) return;
    if (parenttype < 1 || parenttype > VIS_GROUP_MAXTYPE) {
        vsy_ErrorRecord(&group->ierr, name, SYS_ERROR_ENUM, "parenttype= %d", parenttype);
        return;
    }
    if (childtype < 0 || childtype > VIS_GROUP_MAXTYPE) {
        vsy_ErrorRecord(&group->ierr, name, SYS_ERROR_ENUM, "childtype= %d", childtype);
        return;
    }
    if (nument < 0) {
        vsy_ErrorRecord(&group->ierr, name, SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    int nbits, nset;
    vis_Group_Layout(parenttype, childtype, &nbits, &nset);
    unsigned char* store = (unsigned char*)vis_Model_Calloc(vis_Group_Bytes(nbits, nument), 1);
    if (!store) {
        vsy_ErrorRecord(&group->ierr, name, SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    vsy_Free(group->store);
    group->store = store;
    group->nument = group->numalloc = nument;
    group->parenttype = parenttype;
    group->childtype = childtype;
    group->nbits = nbits;
    group->nbitsset = nset;
}

void vis_GroupInq(vis_Group* group, int* nument, int* parenttype, int* childtype)
{
    if (vis_Model_IsNull(group, "vis_GroupInq")) return;
    if (nument) *nument = group->nument;
    if (parenttype) *parenttype = group->parenttype;
    if (childtype) *childtype = group->childtype;
}

/* The flag word of an entity in 1..nument. */
static unsigned vis_Group_Word(const vis_Group* g, int i)
{
    switch (g->nbits) {
    case 1: return (g->store[i >> 3] >> (i & 7)) & 1u;
    case 8: return g->store[i];
    case 16: return ((const unsigned short*)g->store)[i];
    default: return ((const unsigned*)g->store)[i];
    }
}

static void vis_Group_SetWord(vis_Group* g, int i, unsigned w)
{
    switch (g->nbits) {
    case 1:
        if (w & 1u) g->store[i >> 3] |= (unsigned char)(1u << (i & 7));
        else g->store[i >> 3] &= (unsigned char)~(1u << (i & 7));
        break;
    case 8: g->store[i] = (unsigned char)w; break;
    case 16: ((unsigned short*)g->store)[i] = (unsigned short)w; break;
    default: ((unsigned*)g->store)[i] = w; break;
    }
}

/* The mask of the flags in use. */
static unsigned vis_Group_InUse(const vis_Group* g)
{
    return g->nbitsset >= 32 ? ~0u : (1u << g->nbitsset) - 1u;
}

/* 1 for an index in 1..nument, 0 above, -1 below 1 after a report that leaves ierr alone. */
static int vis_Group_ReadIndex(const char* name, const vis_Group* g, int index)
{
    if (index >= 1) return index <= g->nument;
    char text[VSY_ERROR_TEXTLEN];
    vsy_ErrorFormat(text, "index= %d", index);
    vsy_ErrorMessage(name, SYS_ERROR_VALUE, text);
    return -1;
}

static int vis_Group_WriteIndex(vis_Group* g, const char* name, int index)
{
    if (index >= 1 && index <= g->nument) return 1;
    vsy_ErrorRecord(&g->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
    return 0;
}

static int vis_Group_No(vis_Group* g, const char* name, int no)
{
    if (no >= 1 && no <= g->nbits) return 1;
    vsy_ErrorRecord(&g->ierr, name, SYS_ERROR_VALUE, "no= %d", no);
    return 0;
}

void vis_GroupGetIndex(vis_Group* group, int index, int* flags)
{
    if (vis_Model_IsNull(group, "vis_GroupGetIndex")) return;
    int ok = vis_Group_ReadIndex("vis_GroupGetIndex", group, index);
    if (ok >= 0) *flags = ok ? (int)vis_Group_Word(group, index) : 0;
}

void vis_GroupSetIndex(vis_Group* group, int index, int flags)
{
    if (vis_Model_IsNull(group, "vis_GroupSetIndex") || !vis_Group_WriteIndex(group, "vis_GroupSetIndex", index))
        return;
    vis_Group_SetWord(group, index, (unsigned)flags);
}

void vis_GroupNumEntFlag(vis_Group* group, int index, int* n, int* last)
{
    if (vis_Model_IsNull(group, "vis_GroupNumEntFlag")) return;
    int ok = vis_Group_ReadIndex("vis_GroupNumEntFlag", group, index);
    if (ok < 0) return;
    unsigned w = ok ? vis_Group_Word(group, index) : 0u;
    *n = 0;
    *last = 0;
    for (int b = 0; b < group->nbits; ++b)
        if (w & (1u << b)) ++*n, *last = b + 1;
}

void vis_GroupGetEntFlag(vis_Group* group, int index, int no, int* flag)
{
    if (vis_Model_IsNull(group, "vis_GroupGetEntFlag") || !vis_Group_No(group, "vis_GroupGetEntFlag", no)) return;
    int ok = vis_Group_ReadIndex("vis_GroupGetEntFlag", group, index);
    if (ok >= 0) *flag = ok ? (int)((vis_Group_Word(group, index) >> (no - 1)) & 1u) : 0;
}

void vis_GroupSetEntFlag(vis_Group* group, int index, int no, int flag)
{
    static const char* name = "vis_GroupSetEntFlag";
    if (vis_Model_IsNull(group, name) || !vis_Group_No(group, name, no) || !vis_Group_WriteIndex(group, name, index))
        return;
    unsigned w = vis_Group_Word(group, index), bit = 1u << (no - 1);
    vis_Group_SetWord(group, index, flag ? (w | bit) : (w & ~bit));
}

void vis_GroupNthEntFlag(vis_Group* group, int index, int nth, int* no)
{
    if (vis_Model_IsNull(group, "vis_GroupNthEntFlag")) return;
    int ok = vis_Group_ReadIndex("vis_GroupNthEntFlag", group, index);
    if (ok < 0) return;
    unsigned w = ok ? vis_Group_Word(group, index) : 0u;
    *no = 0;
    for (int b = 0, seen = 0; b < group->nbits && !*no; ++b)
        if ((w & (1u << b)) && ++seen == nth) *no = b + 1;
}

void vis_GroupCount(vis_Group* group, int* num)
{
    if (vis_Model_IsNull(group, "vis_GroupCount")) return;
    *num = 0;
    for (int i = 1; i <= group->nument; ++i) *num += vis_Group_Word(group, i) != 0u;
}

void vis_GroupClear(vis_Group* group)
{
    if (vis_Model_IsNull(group, "vis_GroupClear")) return;
    std::memset(group->store, 0, vis_Group_Bytes(group->nbits, group->numalloc));
}

void vis_GroupAll(vis_Group* group)
{
    if (vis_Model_IsNull(group, "vis_GroupAll")) return;
    unsigned all = vis_Group_InUse(group);
    for (int i = 1; i <= group->nument; ++i) vis_Group_SetWord(group, i, all);
}

void vis_GroupComplement(vis_Group* group)
{
    if (vis_Model_IsNull(group, "vis_GroupComplement")) return;
    unsigned all = vis_Group_InUse(group);
    for (int i = 1; i <= group->nument; ++i) vis_Group_SetWord(group, i, ~vis_Group_Word(group, i) & all);
}

static unsigned vis_Group_Combine(int oper, unsigned a, unsigned b)
{
    switch (oper) {
    case VIS_GROUP_OR: return a | b;
    case VIS_GROUP_AND: return a & b;
    case VIS_GROUP_DIFF: return a & ~b;
    default: return a ^ b;
    }
}

void vis_GroupBoolean(vis_Group* group, int oper, vis_Group* other)
{
    static const char* name = "vis_GroupBoolean";
    if (vis_Model_IsNull(group, name) || vis_Model_IsNull(other, name)) return;
    if (oper < VIS_GROUP_OR || oper > VIS_GROUP_XOR) {
        vsy_ErrorRecord(&group->ierr, name, SYS_ERROR_ENUM, "oper= %d", oper);
        return;
    }
    if (other->nument != group->nument || other->nbits != group->nbits) {
        vsy_ErrorRecord(&group->ierr, name, SYS_ERROR_VALUE, "nument= %d", other->nument);
        return;
    }
    for (int i = 1; i <= group->nument; ++i) {
        unsigned a = vis_Group_Word(group, i), b = vis_Group_Word(other, i);
        vis_Group_SetWord(group, i, vis_Group_Combine(oper, a, b));
    }
}

void vis_GroupIdTran(vis_Group* group, vis_IdTran* idtran)
{
    if (vis_Model_IsNull(group, "vis_GroupIdTran") || vis_Model_IsNull(idtran, "vis_GroupIdTran")) return;
    vis_IdTranDef(idtran, 0);
    vis_IdTranSetEntType(idtran, group->parenttype);
    for (int i = 1, n = 0; i <= group->nument; ++i) {
        unsigned w = vis_Group_Word(group, i);
        if (!w) continue;
        vis_IdTranSetId(idtran, ++n, i);
        vis_IdTranSetEnt(idtran, n, (int)w);
    }
    int ierr = vis_IdTranError(idtran);
    if (ierr) group->ierr = ierr;
}
