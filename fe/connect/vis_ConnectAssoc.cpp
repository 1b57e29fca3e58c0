/* vis_Connect: attributes of nodes, elements and element entities, part names and sizes; see
 * vis_Connect.h. */
#include "vis_Connect.h"
#include "vis_ConnectInternal.h"

#include "vis_Assoc.h"
#include "vis_CHash.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

#include <climits>
#include <cstring>

/* ---------------------------------------------------------------------------------------- */
/* Part names and sizes */

static int vis_Connect_Table(vsy_HashTable** tab)
{
    if (*tab) return 1;
    *tab = vsy_HashTableNew();
    return *tab != nullptr;
}

void vis_ConnectSetPartName(vis_Connect* c, int id, const char* name)
{
    if (vis_Connect_Null(c, "vis_ConnectSetPartName")) return;
    void* old = nullptr;
    if (c->partnames) vsy_HashTableGet(c->partnames, id, &old);
    if (!name) {
        if (old) {
            vsy_HashTableRemove(c->partnames, id);
            vsy_Free(old);
        }
        return;
    }
    size_t len = strlen(name);
    if (len > VIS_CONNECT_NAMELEN) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectSetPartName", SYS_ERROR_VALUE, "len= %d",
                           len > INT_MAX ? INT_MAX : (int)len);
        return;
    }
    char* copy = (char*)vsy_Malloc(len + 1);
    if (!copy || !vis_Connect_Table(&c->partnames)) {
        vsy_Free(copy);
        vsy_ErrorRecord(&c->ierr, "vis_ConnectSetPartName", SYS_ERROR_MEMORY, "name= %s", name);
        return;
    }
    memcpy(copy, name, len + 1);
    vsy_HashTableInsert(c->partnames, id, copy);
    if (vis_Connect_Poll(c, vsy_HashTableError(c->partnames))) {
        vsy_Free(copy);
        return;
    }
    vsy_Free(old);
}

void vis_ConnectPartName(vis_Connect* c, int id, char* name)
{
    if (vis_Connect_Null(c, "vis_ConnectPartName") || !name) return;
    name[0] = '\0';
    void* v = nullptr;
    if (c->partnames) vsy_HashTableGet(c->partnames, id, &v);
    if (v) strcpy(name, (const char*)v);
}

void vis_ConnectSetPartIJK(vis_Connect* c, int id, int i, int j, int k)
{
    if (vis_Connect_Null(c, "vis_ConnectSetPartIJK")) return;
    if (i < 0 || j < 0 || k < 0) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectSetPartIJK", SYS_ERROR_VALUE, "iparam= %d", i < 0 ? i : j < 0 ? j : k);
        return;
    }
    void* v = nullptr;
    if (c->partijk) vsy_HashTableGet(c->partijk, id, &v);
    int* rec = (int*)v;
    if (!rec) {
        rec = (int*)vsy_Malloc(3 * sizeof(int));
        if (!rec || !vis_Connect_Table(&c->partijk)) {
            vsy_Free(rec);
            vsy_ErrorRecord(&c->ierr, "vis_ConnectSetPartIJK", SYS_ERROR_MEMORY, "id= %d", id);
            return;
        }
        vsy_HashTableInsert(c->partijk, id, rec);
        if (vis_Connect_Poll(c, vsy_HashTableError(c->partijk))) {
            vsy_Free(rec);
            return;
        }
    }
    rec[0] = i;
    rec[1] = j;
    rec[2] = k;
}

void vis_ConnectPartIJK(vis_Connect* c, int id, int ijk[3])
{
    if (vis_Connect_Null(c, "vis_ConnectPartIJK") || !ijk) return;
    ijk[0] = ijk[1] = ijk[2] = 0;
    void* v = nullptr;
    if (c->partijk) vsy_HashTableGet(c->partijk, id, &v);
    if (v)
        for (int a = 0; a < 3; ++a) ijk[a] = ((int*)v)[a];
}

/* ---------------------------------------------------------------------------------------- */
/* Attributes */

static int vis_Connect_CheckType(vis_Connect* c, const char* name, int type)
{
    if (type >= 0 && type <= VIS_CONNECT_MAXASSOC) return 1;
    vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
    return 0;
}

/* The value a query gives for one entity. Nodes store user ids as id + 1. */
static int vis_Connect_NodeValue(vis_Assoc* a, int type, int id, int stored)
{
    if (type != VIS_ASSOC_USERID) return a ? stored : 0;
    if (!a || stored == 0) return id;
    return stored - 1;
}

static int vis_Connect_ElemValue(vis_Assoc* a, int type, int id, int stored)
{
    if (type != VIS_ASSOC_USERID) return a ? stored : 0;
    return stored == 0 ? id : stored;
}

void vis_ConnectNodeAssoc(vis_Connect* c, int type, int nix, const int* ix, int* values)
{
    if (vis_Connect_Null(c, "vis_ConnectNodeAssoc")) return;
    if (GF_SET(c, VIS_GRIDFUN_NODEASSOC)) {
        GF_CALL(c, VIS_GRIDFUN_NODEASSOC, vis_GridFunNodeAssoc_t)(c->gridfun->obj, type, nix, ix, values);
        return;
    }
    if (!vis_Connect_CheckType(c, "vis_ConnectNodeAssoc", type)) return;
    if (!vis_Connect_CheckIds(c, "vis_ConnectNodeAssoc", nix, ix, 1) || !values) return;
    vis_Assoc* a = c->nodeassoc[type];
    for (int k = 0; k < nix; ++k)
        values[k] = vis_Connect_NodeValue(a, type, ix[k], a ? vis_AssocGet(a, ix[k]) : 0);
    if (a) vis_Connect_Poll(c, vis_AssocError(a));
}

void vis_ConnectElemAssoc(vis_Connect* c, int type, int nix, const int* ix, int* values)
{
    if (vis_Connect_Null(c, "vis_ConnectElemAssoc")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMASSOC)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMASSOC, vis_GridFunElemAssoc_t)(c->gridfun->obj, type, nix, ix, values);
        return;
    }
    /* No checks of the arguments beyond what keeps the read in bounds. */
    if (type < 0 || type > VIS_CONNECT_MAXASSOC || !ix || !values) return;
    vis_Assoc* a = c->elemassoc[type];
    for (int k = 0; k < nix; ++k)
        values[k] = vis_Connect_ElemValue(a, type, ix[k], a ? vis_AssocGet(a, ix[k]) : 0);
}

static void vis_Connect_NumAssoc(vis_Connect* c, const char* name, vis_Assoc** table, int type, int index,
                                 int* num)
{
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckType(c, name, type)) return;
    if (index < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (!num) return;
    *num = 1;
    if (table[type]) vis_AssocNum(table[type], index, num);
}

static void vis_Connect_AllAssoc(vis_Connect* c, const char* name, vis_Assoc** table, int type, int index,
                                 int* num, int* values, int node)
{
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckType(c, name, type)) return;
    if (index < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (!num || !values) return;
    vis_Assoc* a = table[type];
    if (!a) {
        *num = 1;
        values[0] = type == VIS_ASSOC_USERID ? index : 0;
        return;
    }
    vis_AssocAll(a, index, num, values);
    if (*num > 0)
        values[0] = node ? vis_Connect_NodeValue(a, type, index, values[0])
                         : vis_Connect_ElemValue(a, type, index, values[0]);
    if (node && type == VIS_ASSOC_USERID)
        for (int k = 1; k < *num; ++k) values[k] -= 1;
    vis_Connect_Poll(c, vis_AssocError(a));
}

void vis_ConnectNumNodeAssoc(vis_Connect* c, int type, int index, int* num)
{
    vis_Connect_NumAssoc(c, "vis_ConnectNumNodeAssoc", c ? c->nodeassoc : nullptr, type, index, num);
}

void vis_ConnectAllNodeAssoc(vis_Connect* c, int type, int index, int* num, int* values)
{
    vis_Connect_AllAssoc(c, "vis_ConnectAllNodeAssoc", c ? c->nodeassoc : nullptr, type, index, num, values, 1);
}

void vis_ConnectNumElemAssoc(vis_Connect* c, int type, int index, int* num)
{
    vis_Connect_NumAssoc(c, "vis_ConnectNumElemAssoc", c ? c->elemassoc : nullptr, type, index, num);
}

void vis_ConnectAllElemAssoc(vis_Connect* c, int type, int index, int* num, int* values)
{
    vis_Connect_AllAssoc(c, "vis_ConnectAllElemAssoc", c ? c->elemassoc : nullptr, type, index, num, values, 0);
}

/* verb: 0 Set, 1 Add, 2 Uni. */
static void vis_Connect_PutAssoc(vis_Connect* c, const char* name, vis_Assoc** table, int type, int index,
                                 int value, int verb, int node)
{
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckType(c, name, type)) return;
    if (index < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (node && type == VIS_ASSOC_USERID) value += 1;
    int created = !table[type];
    if (created) {
        table[type] = vis_AssocNew();
        if (!table[type]) {
            vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "index= %d", index);
            return;
        }
    }
    vis_Assoc* a = table[type];
    if (verb == 2) {
        int num = 0;
        if (index <= a->maxind) {
            vis_AssocNum(a, index, &num);
            int buf[64];
            int* all = num <= 64 ? buf : (int*)vsy_Malloc((size_t)num * sizeof(int));
            if (!all) {
                vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "index= %d", index);
                return;
            }
            vis_AssocAll(a, index, &num, all);
            int found = 0;
            for (int k = 0; k < num && !found; ++k) found = all[k] == value;
            if (all != buf) vsy_Free(all);
            if (found) return;
        }
        verb = 1;
    }
    if (verb == 0) vis_AssocSet(a, index, value);
    else vis_AssocAdd(a, index, value);
    if (!vis_Connect_Poll(c, vis_AssocError(a))) return;
    if (created) {
        /* A failed first value leaves no attribute behind: the type stays absent. */
        vis_AssocDelete(a);
        table[type] = nullptr;
    }
}

void vis_ConnectSetNodeAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectSetNodeAssoc", c ? c->nodeassoc : nullptr, type, index, value, 0, 1);
}

void vis_ConnectAddNodeAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectAddNodeAssoc", c ? c->nodeassoc : nullptr, type, index, value, 1, 1);
}

void vis_ConnectUniNodeAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectUniNodeAssoc", c ? c->nodeassoc : nullptr, type, index, value, 2, 1);
}

void vis_ConnectSetElemAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectSetElemAssoc", c ? c->elemassoc : nullptr, type, index, value, 0, 0);
}

void vis_ConnectAddElemAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectAddElemAssoc", c ? c->elemassoc : nullptr, type, index, value, 1, 0);
}

void vis_ConnectUniElemAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectUniElemAssoc", c ? c->elemassoc : nullptr, type, index, value, 2, 0);
}

void vis_ConnectDelNodeAssoc(vis_Connect* c, int type)
{
    if (vis_Connect_Null(c, "vis_ConnectDelNodeAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectDelNodeAssoc", type))
        return;
    vis_AssocDelete(c->nodeassoc[type]);
    c->nodeassoc[type] = nullptr;
}

void vis_ConnectDelElemAssoc(vis_Connect* c, int type)
{
    if (vis_Connect_Null(c, "vis_ConnectDelElemAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectDelElemAssoc", type))
        return;
    vis_AssocDelete(c->elemassoc[type]);
    c->elemassoc[type] = nullptr;
}

void vis_ConnectAnyNodeAssoc(vis_Connect* c, int type, int* flag)
{
    if (vis_Connect_Null(c, "vis_ConnectAnyNodeAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectAnyNodeAssoc", type) || !flag)
        return;
    *flag = c->nodeassoc[type] != nullptr;
}

void vis_ConnectAnyElemAssoc(vis_Connect* c, int type, int* flag)
{
    if (vis_Connect_Null(c, "vis_ConnectAnyElemAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectAnyElemAssoc", type) || !flag)
        return;
    *flag = c->elemassoc[type] != nullptr;
}

/* The table of an entity association; creates it when make is set. Null with a report on a bad
 * type or enttype. */
static vis_CHash** vis_Connect_EntTable(vis_Connect* c, const char* name, int type, int enttype)
{
    if (!vis_Connect_CheckType(c, name, type)) return nullptr;
    if (enttype == SYS_EDGE) return &c->edgeassoc[type];
    if (enttype == SYS_FACE) return &c->faceassoc[type];
    vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "enttype= %d", enttype);
    return nullptr;
}

void vis_ConnectElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int* value)
{
    if (vis_Connect_Null(c, "vis_ConnectElemEntAssoc")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMENTASSOC)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMENTASSOC, vis_GridFunElemEntAssoc_t)(c->gridfun->obj, type, enttype, id, no,
                                                                       value);
        return;
    }
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectElemEntAssoc", type, enttype);
    if (!h || !value) return;
    *value = 0;
    if (!*h) return;
    vis_CHashGet(*h, id, no, value);
    vis_Connect_Poll(c, vis_CHashError(*h));
}

static void vis_Connect_PutEnt(vis_Connect* c, const char* name, int type, int enttype, int id, int no,
                               int value, int verb)
{
    if (vis_Connect_Null(c, name)) return;
    vis_CHash** h = vis_Connect_EntTable(c, name, type, enttype);
    if (!h) return;
    if (id < 1 || no < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d, no= %d", id, no);
        return;
    }
    if (!*h) {
        *h = vis_CHashNew();
        if (!*h) {
            vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "index= %d, no= %d", id, no);
            return;
        }
    }
    if (verb == 0) vis_CHashSet(*h, id, no, value);
    else if (verb == 1) vis_CHashAdd(*h, id, no, value);
    else vis_CHashUni(*h, id, no, value);
    vis_Connect_Poll(c, vis_CHashError(*h));
}

void vis_ConnectSetElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int value)
{
    vis_Connect_PutEnt(c, "vis_ConnectSetElemEntAssoc", type, enttype, id, no, value, 0);
}

void vis_ConnectAddElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int value)
{
    vis_Connect_PutEnt(c, "vis_ConnectAddElemEntAssoc", type, enttype, id, no, value, 1);
}

void vis_ConnectUniElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int value)
{
    vis_Connect_PutEnt(c, "vis_ConnectUniElemEntAssoc", type, enttype, id, no, value, 2);
}

void vis_ConnectNumElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectNumElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectNumElemEntAssoc", type, enttype);
    if (!h || !num) return;
    *num = 0;
    if (!*h) return;
    vis_CHashNum(*h, id, no, num);
    vis_Connect_Poll(c, vis_CHashError(*h));
}

void vis_ConnectAllElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int* num, int* values)
{
    if (vis_Connect_Null(c, "vis_ConnectAllElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectAllElemEntAssoc", type, enttype);
    if (!h || !num) return;
    *num = 0;
    if (!*h) return;
    vis_CHashAll(*h, id, no, num, values);
    vis_Connect_Poll(c, vis_CHashError(*h));
}

void vis_ConnectDelElemEntAssoc(vis_Connect* c, int type, int enttype)
{
    if (vis_Connect_Null(c, "vis_ConnectDelElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectDelElemEntAssoc", type, enttype);
    if (!h) return;
    vis_CHashDelete(*h);
    *h = nullptr;
}

void vis_ConnectAnyElemEntAssoc(vis_Connect* c, int type, int enttype, int* flag)
{
    if (vis_Connect_Null(c, "vis_ConnectAnyElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectAnyElemEntAssoc", type, enttype);
    if (!h || !flag) return;
    *flag = *h != nullptr;
}
