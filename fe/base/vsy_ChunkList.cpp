/* vsy_ChunkList: blocks of list heads and chains of four-value cells; see vsy_ChunkList.h. */
#include "vsy_ChunkList.h"

#include "vsy_Error.h"

static void vsy_ChunkList_FreeAll(vsy_ChunkList* cl)
{
    for (int b = 0; b < cl->nblocks; ++b) {
        vsy_Free(cl->counts[b]);
        vsy_Free(cl->heads[b]);
    }
    for (int b = 0; b < cl->ncellblocks; ++b) vsy_Free(cl->cellblocks[b]);
    vsy_Free(cl->counts);
    vsy_Free(cl->heads);
    vsy_Free(cl->cellblocks);
    cl->counts = nullptr;
    cl->heads = nullptr;
    cl->cellblocks = nullptr;
    cl->nblocks = 0;
    cl->ncellblocks = 0;
    cl->ncellused = 0;
    cl->freecell = nullptr;
    cl->maxind = 0;
}

vsy_ChunkList* vsy_ChunkListNew(void)
{
    vsy_ChunkList* cl = (vsy_ChunkList*)vsy_Malloc(sizeof(vsy_ChunkList));
    if (!cl) {
        vsy_ErrorMessage("ChunkList", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    cl->ierr = 0;
    cl->counts = nullptr;
    cl->heads = nullptr;
    cl->cellblocks = nullptr;
    cl->nblocks = 0;
    cl->ncellblocks = 0;
    vsy_ChunkList_FreeAll(cl);
    return cl;
}

void vsy_ChunkListDelete(vsy_ChunkList* cl)
{
    if (!cl) return;
    vsy_ChunkList_FreeAll(cl);
    vsy_Free(cl);
}

int vsy_ChunkListError(vsy_ChunkList* cl)
{
    if (!cl) return SYS_ERROR_NULLOBJECT;
    int ierr = cl->ierr;
    cl->ierr = 0;
    return ierr;
}

/* Makes the blocks up to index exist; maxind becomes at least index. Returns 0 on failure. */
static int vsy_ChunkList_Reach(vsy_ChunkList* cl, int index)
{
    int need = (index - 1) / VSY_CHUNKLIST_BLOCK + 1;
    if (index < 1) need = 0;
    if (need > cl->nblocks) {
        int** c = (int**)vsy_Realloc(cl->counts, (size_t)need * sizeof(int*));
        if (!c) return 0;
        cl->counts = c;
        vsy_ChunkCell** h = (vsy_ChunkCell**)vsy_Realloc(cl->heads, (size_t)need * sizeof(vsy_ChunkCell*));
        if (!h) return 0;
        cl->heads = h;
        while (cl->nblocks < need) {
            int* cb = (int*)vsy_Malloc(VSY_CHUNKLIST_BLOCK * sizeof(int));
            vsy_ChunkCell* hb = (vsy_ChunkCell*)vsy_Malloc(VSY_CHUNKLIST_BLOCK * sizeof(vsy_ChunkCell));
            if (!cb || !hb) {
                vsy_Free(cb);
                vsy_Free(hb);
                return 0;
            }
            for (int p = 0; p < VSY_CHUNKLIST_BLOCK; ++p) {
                cb[p] = 0;
                hb[p].next = nullptr;
                hb[p].v[0] = hb[p].v[1] = hb[p].v[2] = hb[p].v[3] = 0;
            }
            cl->counts[cl->nblocks] = cb;
            cl->heads[cl->nblocks] = hb;
            cl->nblocks++;
        }
    }
    if (index > cl->maxind) cl->maxind = index;
    return 1;
}

void vsy_ChunkListDef(vsy_ChunkList* cl, int nument)
{
    if (!cl) {
        vsy_ErrorNumber("vsy_ChunkListDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (nument < 0) {
        vsy_ErrorRecord(&cl->ierr, "vsy_ChunkListDef", SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    vsy_ChunkList_FreeAll(cl);
    if (!vsy_ChunkList_Reach(cl, nument)) {
        vsy_ErrorRecord(&cl->ierr, "vsy_ChunkListDef", SYS_ERROR_MEMORY, "nument= %d", nument);
        cl->maxind = cl->nblocks * VSY_CHUNKLIST_BLOCK;
        if (cl->maxind > nument) cl->maxind = nument;
    }
}

static vsy_ChunkCell* vsy_ChunkList_NewCell(vsy_ChunkList* cl)
{
    if (cl->freecell) {
        vsy_ChunkCell* c = cl->freecell;
        cl->freecell = c->next;
        c->next = nullptr;
        return c;
    }
    if (cl->ncellblocks == 0 || cl->ncellused == VSY_CHUNKLIST_CELLS) {
        vsy_ChunkCell** blocks = (vsy_ChunkCell**)vsy_Realloc(
            cl->cellblocks, ((size_t)cl->ncellblocks + 1) * sizeof(vsy_ChunkCell*));
        if (!blocks) return nullptr;
        cl->cellblocks = blocks;
        vsy_ChunkCell* b = (vsy_ChunkCell*)vsy_Malloc(VSY_CHUNKLIST_CELLS * sizeof(vsy_ChunkCell));
        if (!b) return nullptr;
        cl->cellblocks[cl->ncellblocks++] = b;
        cl->ncellused = 0;
    }
    vsy_ChunkCell* c = &cl->cellblocks[cl->ncellblocks - 1][cl->ncellused++];
    c->next = nullptr;
    return c;
}

static int* vsy_ChunkList_Count(vsy_ChunkList* cl, int index)
{
    return &cl->counts[(index - 1) >> 12][(index - 1) & (VSY_CHUNKLIST_BLOCK - 1)];
}

static vsy_ChunkCell* vsy_ChunkList_Head(vsy_ChunkList* cl, int index)
{
    return &cl->heads[(index - 1) >> 12][(index - 1) & (VSY_CHUNKLIST_BLOCK - 1)];
}

/* Gives the extra cells of a list back to the free list. */
static void vsy_ChunkList_Release(vsy_ChunkList* cl, vsy_ChunkCell* head)
{
    vsy_ChunkCell* c = head->next;
    while (c) {
        vsy_ChunkCell* next = c->next;
        c->next = cl->freecell;
        cl->freecell = c;
        c = next;
    }
    head->next = nullptr;
}

static int vsy_ChunkList_Check(vsy_ChunkList* cl, const char* name, int index, int num)
{
    if (!cl) {
        vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
        return 0;
    }
    if (index < 1) {
        vsy_ErrorRecord(&cl->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return 0;
    }
    if (num < 0) {
        vsy_ErrorRecord(&cl->ierr, name, SYS_ERROR_VALUE, "len= %d", num);
        return 0;
    }
    if (!vsy_ChunkList_Reach(cl, index)) {
        vsy_ErrorRecord(&cl->ierr, name, SYS_ERROR_MEMORY, "index= %d", index);
        return 0;
    }
    return 1;
}

void vsy_ChunkListSet(vsy_ChunkList* cl, int index, int num, const int* values)
{
    if (cl && num > 0 && !values) {
        vsy_ErrorRecord(&cl->ierr, "vsy_ChunkListSet", SYS_ERROR_VALUE, "len= %d", num);
        return;
    }
    if (!vsy_ChunkList_Check(cl, "vsy_ChunkListSet", index, num)) return;
    vsy_ChunkCell* head = vsy_ChunkList_Head(cl, index);
    /* Cells for the new length first, so that a failure leaves the old list. */
    int have = 0;
    for (vsy_ChunkCell* c = head->next; c; c = c->next) ++have;
    int want = num > 4 ? (num - 1) / 4 : 0;
    vsy_ChunkCell* tail = head;
    while (tail->next) tail = tail->next;
    vsy_ChunkCell* added = nullptr;
    for (int n = have; n < want; ++n) {
        vsy_ChunkCell* c = vsy_ChunkList_NewCell(cl);
        if (!c) {
            while (added) {
                vsy_ChunkCell* next = added->next;
                added->next = cl->freecell;
                cl->freecell = added;
                added = next;
            }
            vsy_ErrorRecord(&cl->ierr, "vsy_ChunkListSet", SYS_ERROR_MEMORY, "index= %d", index);
            return;
        }
        c->next = added;
        added = c;
    }
    tail->next = added;
    /* Surplus cells go back to the free list. */
    vsy_ChunkCell* c = head;
    for (int n = 0; n < want; ++n) c = c->next;
    vsy_ChunkList_Release(cl, c);
    c = head;
    for (int k = 0; k < num; ++k) {
        if (k > 0 && k % 4 == 0) c = c->next;
        c->v[k % 4] = values[k];
    }
    *vsy_ChunkList_Count(cl, index) = num;
}

void vsy_ChunkListAdd(vsy_ChunkList* cl, int index, int value)
{
    if (!vsy_ChunkList_Check(cl, "vsy_ChunkListAdd", index, 0)) return;
    int* count = vsy_ChunkList_Count(cl, index);
    vsy_ChunkCell* c = vsy_ChunkList_Head(cl, index);
    while (c->next) c = c->next;
    if (*count > 0 && *count % 4 == 0) {
        vsy_ChunkCell* n = vsy_ChunkList_NewCell(cl);
        if (!n) {
            vsy_ErrorRecord(&cl->ierr, "vsy_ChunkListAdd", SYS_ERROR_MEMORY, "index= %d", index);
            return;
        }
        c->next = n;
        c = n;
    }
    c->v[*count % 4] = value;
    ++*count;
}

void vsy_ChunkListNum(vsy_ChunkList* cl, int index, int* num)
{
    if (!num) return;
    *num = 0;
    if (!cl || index < 1 || index > cl->maxind) return;
    *num = *vsy_ChunkList_Count(cl, index);
}

void vsy_ChunkListGet(vsy_ChunkList* cl, int index, int maxnum, int* num, int* values)
{
    if (num) *num = 0;
    if (values)
        for (int k = 0; k < maxnum; ++k) values[k] = 0;
    if (!cl || !num || !values || index < 1 || index > cl->maxind) return;
    int n = *vsy_ChunkList_Count(cl, index);
    if (n > maxnum) n = maxnum;
    vsy_ChunkCell* c = vsy_ChunkList_Head(cl, index);
    for (int k = 0; k < n; ++k) {
        if (k > 0 && k % 4 == 0) c = c->next;
        values[k] = c->v[k % 4];
    }
    *num = n < 0 ? 0 : n;
}

void vsy_ChunkListEntry(vsy_ChunkList* cl, int index, int k, int* value)
{
    if (!value) return;
    *value = 0;
    if (!cl || index < 1 || index > cl->maxind || k < 0) return;
    if (k >= *vsy_ChunkList_Count(cl, index)) return;
    vsy_ChunkCell* c = vsy_ChunkList_Head(cl, index);
    for (int n = 0; n < k / 4; ++n) c = c->next;
    *value = c->v[k % 4];
}

void vsy_ChunkListMaxIndex(vsy_ChunkList* cl, int* maxind)
{
    if (cl && maxind) *maxind = cl->maxind;
}
