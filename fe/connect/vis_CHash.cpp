/* vis_CHash: chains of (number, value) records per index; see vis_CHash.h. */
#include "vis_CHash.h"

#include "vsy_Error.h"
#include "vsy_HashTable.h"

static int vis_CHash_Check(vis_CHash* chash, const char* name, int index, int no)
{
    if (!chash) {
        vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
        return 0;
    }
    if (index >= 1 && no >= 1) return 1;
    vsy_ErrorRecord(&chash->ierr, name, SYS_ERROR_VALUE, "index= %d, no= %d", index, no);
    return 0;
}

static vis_CHashRec* vis_CHash_Head(vis_CHash* chash, int index)
{
    void* head = nullptr;
    vsy_HashTableGet(chash->tab, index, &head);
    return (vis_CHashRec*)head;
}

vis_CHash* vis_CHashNew(void)
{
    vis_CHash* chash = (vis_CHash*)vsy_Malloc(sizeof(vis_CHash));
    if (!chash) {
        vsy_ErrorMessage("CHash", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    chash->ierr = 0;
    chash->tab = vsy_HashTableNew();
    if (!chash->tab) {
        vsy_Free(chash);
        vsy_ErrorMessage("CHash", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    return chash;
}

void vis_CHashDelete(vis_CHash* chash)
{
    if (!chash) return;
    int key;
    void* value;
    vsy_HashTableInitIter(chash->tab);
    for (;;) {
        vsy_HashTableNextIter(chash->tab, &key, &value);
        if (!value) break;
        for (vis_CHashRec* r = (vis_CHashRec*)value; r;) {
            vis_CHashRec* next = r->next;
            vsy_Free(r);
            r = next;
        }
    }
    vsy_HashTableDelete(chash->tab);
    vsy_Free(chash);
}

int vis_CHashError(vis_CHash* chash)
{
    if (!chash) return SYS_ERROR_NULLOBJECT;
    int ierr = chash->ierr;
    chash->ierr = 0;
    return ierr;
}

/* Appends a record at the end of the chain of index; 0 on failure (reported). */
static int vis_CHash_Append(vis_CHash* chash, const char* name, int index, int no, int value)
{
    vis_CHashRec* r = (vis_CHashRec*)vsy_Malloc(sizeof(vis_CHashRec));
    if (r) {
        r->next = nullptr;
        r->no = no;
        r->value = value;
        vis_CHashRec* head = vis_CHash_Head(chash, index);
        if (!head) {
            vsy_HashTableInsert(chash->tab, index, r);
            if (vsy_HashTableError(chash->tab) == 0) return 1;
            vsy_Free(r);
        } else {
            while (head->next) head = head->next;
            head->next = r;
            return 1;
        }
    }
    vsy_ErrorRecord(&chash->ierr, name, SYS_ERROR_MEMORY, "index= %d, no= %d", index, no);
    return 0;
}

static void vis_CHash_Remove(vis_CHash* chash, int index, int no)
{
    vis_CHashRec* head = vis_CHash_Head(chash, index);
    vis_CHashRec** link = &head;
    while (*link) {
        if ((*link)->no == no) {
            vis_CHashRec* dead = *link;
            *link = dead->next;
            vsy_Free(dead);
        } else {
            link = &(*link)->next;
        }
    }
    if (head) vsy_HashTableInsert(chash->tab, index, head);
    else vsy_HashTableRemove(chash->tab, index);
}

void vis_CHashSet(vis_CHash* chash, int index, int no, int value)
{
    if (!vis_CHash_Check(chash, "vis_CHashSet", index, no)) return;
    for (vis_CHashRec* r = vis_CHash_Head(chash, index); r; r = r->next) {
        if (r->no != no) continue;
        /* Keep this record, drop the later ones of the pair. */
        r->value = value;
        vis_CHashRec** link = &r->next;
        while (*link) {
            if ((*link)->no == no) {
                vis_CHashRec* dead = *link;
                *link = dead->next;
                vsy_Free(dead);
            } else {
                link = &(*link)->next;
            }
        }
        return;
    }
    vis_CHash_Append(chash, "vis_CHashSet", index, no, value);
}

void vis_CHashAdd(vis_CHash* chash, int index, int no, int value)
{
    if (!vis_CHash_Check(chash, "vis_CHashAdd", index, no)) return;
    vis_CHash_Append(chash, "vis_CHashAdd", index, no, value);
}

void vis_CHashUni(vis_CHash* chash, int index, int no, int value)
{
    if (!vis_CHash_Check(chash, "vis_CHashUni", index, no)) return;
    for (vis_CHashRec* r = vis_CHash_Head(chash, index); r; r = r->next)
        if (r->no == no && r->value == value) return;
    vis_CHash_Append(chash, "vis_CHashUni", index, no, value);
}

void vis_CHashGet(vis_CHash* chash, int index, int no, int* value)
{
    if (value) *value = 0;
    if (!vis_CHash_Check(chash, "vis_CHashGet", index, no) || !value) return;
    for (vis_CHashRec* r = vis_CHash_Head(chash, index); r; r = r->next) {
        if (r->no == no) {
            *value = r->value;
            return;
        }
    }
}

void vis_CHashNum(vis_CHash* chash, int index, int no, int* num)
{
    if (num) *num = 0;
    if (!vis_CHash_Check(chash, "vis_CHashNum", index, no) || !num) return;
    for (vis_CHashRec* r = vis_CHash_Head(chash, index); r; r = r->next)
        if (r->no == no) ++*num;
}

void vis_CHashAll(vis_CHash* chash, int index, int no, int* num, int* values)
{
    if (num) *num = 0;
    if (!vis_CHash_Check(chash, "vis_CHashAll", index, no) || !num) return;
    for (vis_CHashRec* r = vis_CHash_Head(chash, index); r; r = r->next)
        if (r->no == no) {
            if (values) values[*num] = r->value;
            ++*num;
        }
}

void vis_CHashDel(vis_CHash* chash, int index, int no)
{
    if (!vis_CHash_Check(chash, "vis_CHashDel", index, no)) return;
    vis_CHash_Remove(chash, index, no);
}
