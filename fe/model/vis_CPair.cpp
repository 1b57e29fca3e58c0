/* vis_CPair: contact pair parameters and sides; see vis_CPair.h. */
#include "vis_CPair.h"

#include "vis_ElemTopology.h"
#include "vis_Group.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"

#include <cstring>

vis_CPair* vis_CPairNew(void)
{
    return (vis_CPair*)vis_Model_NewRecord(sizeof(vis_CPair), "CPair");
}

/* Releases parameters and entities and resets every field but ierr. */
static void vis_CPair_Clear(vis_CPair* cp)
{
    vis_PropRef r = VIS_PROP_REF(cp, vis_CPairTable);
    vis_Prop_Clear(&r);
    vsy_Free(cp->ent[0]);
    vsy_Free(cp->ent[1]);
    int ierr = cp->ierr;
    std::memset(cp, 0, sizeof(*cp));
    cp->ierr = ierr;
}

void vis_CPairDelete(vis_CPair* cp)
{
    if (!cp) return;
    vis_CPair_Clear(cp);
    vsy_Free(cp);
}

int vis_CPairError(vis_CPair* cp)
{
    return vis_Model_TakeError(cp ? &cp->ierr : nullptr);
}

void vis_CPairDef(vis_CPair* cp)
{
    if (!vis_Model_IsNull(cp, "vis_CPairDef")) vis_CPair_Clear(cp);
}

VIS_PROP_DEFINE_VALUES(vis_CPair, vis_CPairTable)

void vis_CPairSetType(vis_CPair* cp, int slavekind, int link)
{
    if (vis_Model_IsNull(cp, "vis_CPairSetType")) return;
    cp->slavekind = slavekind;
    cp->link = link;
}

void vis_CPairGetType(vis_CPair* cp, int* slavekind, int* link)
{
    if (vis_Model_IsNull(cp, "vis_CPairGetType")) return;
    if (slavekind) *slavekind = cp->slavekind;
    if (link) *link = cp->link;
}

/* Appends an entity to a side; a face (minno 1) or a node (no 0, minno 0). */
static void vis_CPair_Add(vis_CPair* cp, const char* name, int side, int index, int no, int minno, double weight)
{
    if (vis_Model_IsNull(cp, name)) return;
    if (index < 1 || no < minno) {
        vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_VALUE, "index= %d", index < 1 ? index : no);
        return;
    }
    if (cp->num[side] == cp->cap[side]) {
        int cap = cp->cap[side] < 8 ? 8 : 2 * cp->cap[side];
        vis_CPairEnt* ent = (vis_CPairEnt*)vsy_Realloc(cp->ent[side], sizeof(vis_CPairEnt) * (size_t)cap);
        if (!ent) {
            vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_MEMORY, "Realloc vec");
            return;
        }
        cp->ent[side] = ent;
        cp->cap[side] = cap;
    }
    vis_CPairEnt* e = &cp->ent[side][cp->num[side]++];
    e->index = index;
    e->no = no;
    e->weight = weight;
}

void vis_CPairSetSlaveNodedv(vis_CPair* cp, int node, double weight)
{
    vis_CPair_Add(cp, "vis_CPairSetSlaveNodedv", VIS_CPAIR_SLAVE, node, 0, 0, weight);
}

void vis_CPairSetSlaveElem(vis_CPair* cp, int elem, int face)
{
    vis_CPair_Add(cp, "vis_CPairSetSlaveElem", VIS_CPAIR_SLAVE, elem, face, 1, 1.0);
}

void vis_CPairSetMaster(vis_CPair* cp, int elem, int face)
{
    vis_CPair_Add(cp, "vis_CPairSetMaster", VIS_CPAIR_MASTER, elem, face, 1, 1.0);
}

static int vis_CPair_Side(vis_CPair* cp, const char* name, int side)
{
    if (vis_Model_IsNull(cp, name)) return 0;
    if (side == VIS_CPAIR_SLAVE || side == VIS_CPAIR_MASTER) return 1;
    vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_ENUM, "type= %d", side);
    return 0;
}

void vis_CPairMasterSlaveElemNum(vis_CPair* cp, int side, int* num)
{
    if (vis_CPair_Side(cp, "vis_CPairMasterSlaveElemNum", side)) *num = cp->num[side];
}

void vis_CPairMasterSlaveElem(vis_CPair* cp, int side, int i, int* index, int* no, double* weight)
{
    static const char* name = "vis_CPairMasterSlaveElem";
    if (!vis_CPair_Side(cp, name, side)) return;
    if (i < 1 || i > cp->num[side]) {
        vsy_ErrorRecord(&cp->ierr, name, SYS_ERROR_VALUE, "index= %d", i);
        return;
    }
    const vis_CPairEnt* e = &cp->ent[side][i - 1];
    if (index) *index = e->index;
    if (no) *no = e->no;
    if (weight) *weight = e->weight;
}

/* Marks the entities of a side whose number is a node (0) or a face (above 0) in a group. */
static void vis_CPair_Group(vis_CPair* cp, const char* name, int side, int faces, vis_Group* group)
{
    int parent = faces ? SYS_ELEM : SYS_NODE, child = faces ? SYS_FACE : -1;
    if (!vis_Model_TableToGroup(&cp->ierr, name, nullptr, group, parent, child, nullptr)) return;
    vis_GroupClear(group);
    for (int i = 0; i < cp->num[side]; ++i) {
        const vis_CPairEnt* e = &cp->ent[side][i];
        if ((e->no > 0) != (faces != 0) || e->index > group->nument) continue;
        if (faces) vis_GroupSetEntFlag(group, e->index, e->no, 1);
        else vis_GroupSetIndex(group, e->index, 1);
    }
}

void vis_CPairNodeGroup(vis_CPair* cp, vis_Group* group)
{
    if (!vis_Model_IsNull(cp, "vis_CPairNodeGroup"))
        vis_CPair_Group(cp, "vis_CPairNodeGroup", VIS_CPAIR_SLAVE, 0, group);
}

void vis_CPairFaceGroup(vis_CPair* cp, int side, vis_Group* group)
{
    if (vis_CPair_Side(cp, "vis_CPairFaceGroup", side)) vis_CPair_Group(cp, "vis_CPairFaceGroup", side, 1, group);
}
