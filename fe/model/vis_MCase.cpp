/* vis_MCase: constraint equations by number; see vis_MCase.h. */
#include "vis_MCase.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

/* One record per equation: the header, then nterms nodes, tags and factors. */
typedef struct vis_MCaseRec {
    int type;
    int nterms;
    double* factors; /* points into the record */
    int nodes[2];    /* at least two; an equation's nodes then its tags follow */
} vis_MCaseRec;

static int* vis_MCase_Tags(vis_MCaseRec* rec)
{
    return rec->nodes + (rec->nterms > 2 ? rec->nterms : 2);
}

vis_MCase* vis_MCaseNew(void)
{
    return (vis_MCase*)vis_Model_NewRecord(sizeof(vis_MCase), "MCase");
}

void vis_MCaseDelete(vis_MCase* mc)
{
    if (!mc) return;
    vsy_HashTableDeleteValues(mc->equ);
    vsy_Free(mc);
}

int vis_MCaseError(vis_MCase* mc)
{
    return vis_Model_TakeError(mc ? &mc->ierr : nullptr);
}

static vis_MCaseRec* vis_MCase_Get(vis_MCase* mc, const char* name, int index)
{
    if (vis_Model_IsNull(mc, name)) return nullptr;
    if (index < 1) {
        vsy_ErrorRecord(&mc->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return nullptr;
    }
    return (vis_MCaseRec*)vis_Model_TableGet(mc->equ, index);
}

/* The counts after a change: equations held and the largest term count. */
static void vis_MCase_Recount(vis_MCase* mc)
{
    mc->nequ = vis_Model_TableCount(mc->equ);
    mc->maxterm = 0;
    if (!mc->equ) return;
    int key;
    void* value;
    vsy_HashTableInitIter(mc->equ);
    for (vsy_HashTableNextIter(mc->equ, &key, &value); value; vsy_HashTableNextIter(mc->equ, &key, &value)) {
        int n = ((const vis_MCaseRec*)value)->nterms;
        if (n > mc->maxterm) mc->maxterm = n;
    }
}

void vis_MCaseInq(vis_MCase* mc, int* nequ, int* maxterm, int* maxindex)
{
    if (vis_Model_IsNull(mc, "vis_MCaseInq")) return;
    if (nequ) *nequ = mc->nequ;
    if (maxterm) *maxterm = mc->maxterm;
    if (maxindex) {
        *maxindex = 0;
        if (mc->equ) vsy_HashTableMaxKey(mc->equ, maxindex);
    }
}

void vis_MCaseMPC(vis_MCase* mc, int index, int* nterms)
{
    vis_MCaseRec* rec = vis_MCase_Get(mc, "vis_MCaseMPC", index);
    if (mc && index >= 1) *nterms = rec ? rec->nterms : 0;
}

void vis_MCaseMPCdv(vis_MCase* mc, int index, int* nterms, int* nodes, int* tags, double* factors)
{
    vis_MCaseRec* rec = vis_MCase_Get(mc, "vis_MCaseMPCdv", index);
    if (!mc || index < 1) return;
    *nterms = rec ? rec->nterms : 0;
    for (int i = 0; i < *nterms; ++i) {
        if (nodes) nodes[i] = rec->nodes[i];
        if (tags) tags[i] = vis_MCase_Tags(rec)[i];
        if (factors) factors[i] = rec->factors[i];
    }
}

void vis_MCaseType(vis_MCase* mc, int index, int* type)
{
    vis_MCaseRec* rec = vis_MCase_Get(mc, "vis_MCaseType", index);
    if (mc && index >= 1) *type = rec ? rec->type : 0;
}

void vis_MCaseCon(vis_MCase* mc, int index, int* type, int* n, int* nodes)
{
    vis_MCaseRec* rec = vis_MCase_Get(mc, "vis_MCaseCon", index);
    if (!mc || index < 1) return;
    *type = rec ? rec->type : 0;
    *n = !rec ? 0 : rec->type == 1 ? rec->nterms : 2;
    for (int i = 0; i < *n; ++i) nodes[i] = rec->nodes[i];
}

/* Stores a record under an equation number, replacing an older one; frees rec on failure. */
static void vis_MCase_Put(vis_MCase* mc, const char* name, int index, vis_MCaseRec* rec)
{
    void* old = vis_Model_TableGet(mc->equ, index);
    if (!vis_Model_TablePut(&mc->ierr, name, &mc->equ, index, rec)) {
        vsy_Free(rec);
        return;
    }
    vsy_Free(old);
    vis_MCase_Recount(mc);
}

/* A record with room for nterms terms (at least two nodes), or null after a report. */
static vis_MCaseRec* vis_MCase_NewRec(vis_MCase* mc, const char* name, int index, int type, int nterms)
{
    int nn = nterms > 2 ? nterms : 2;
    size_t size = sizeof(vis_MCaseRec) + sizeof(int) * (size_t)(2 * nn) + sizeof(double) * (size_t)(nterms + 1);
    vis_MCaseRec* rec = (vis_MCaseRec*)vis_Model_Calloc(1, size);
    if (!rec) {
        vsy_ErrorRecord(&mc->ierr, name, SYS_ERROR_MEMORY, "index= %d", index);
        return nullptr;
    }
    rec->type = type;
    rec->nterms = nterms;
    /* The factors follow the tags, aligned to a double. */
    size_t off = (sizeof(vis_MCaseRec) + sizeof(int) * (size_t)(2 * nn) + sizeof(double) - 1) / sizeof(double);
    rec->factors = (double*)rec + off;
    return rec;
}

static void vis_MCase_SetMPC(vis_MCase* mc, const char* name, int index, int nterms, const int* nodes, const int* tags,
                             const double* factors)
{
    if (vis_Model_IsNull(mc, name)) return;
    if (index < 1) {
        vsy_ErrorRecord(&mc->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (nterms < 1) {
        vsy_ErrorRecord(&mc->ierr, name, SYS_ERROR_VALUE, "nument= %d", nterms);
        return;
    }
    for (int i = 0; i < nterms; ++i)
        if (tags[i] < 1 || tags[i] > 31) {
            vsy_ErrorRecord(&mc->ierr, name, SYS_ERROR_VALUE, "ix[%d]= %d", i, tags[i]);
            return;
        }
    vis_MCaseRec* rec = vis_MCase_NewRec(mc, name, index, 1, nterms);
    if (!rec) return;
    for (int i = 0; i < nterms; ++i) {
        rec->nodes[i] = nodes[i];
        vis_MCase_Tags(rec)[i] = tags[i];
        rec->factors[i] = factors[i];
    }
    vis_MCase_Put(mc, name, index, rec);
}

void vis_MCaseSetMPCdv(vis_MCase* mc, int index, int nterms, const int* nodes, const int* tags, const double* factors)
{
    vis_MCase_SetMPC(mc, "vis_MCaseSetMPCdv", index, nterms, nodes, tags, factors);
}

void vis_MCaseSetMPC(vis_MCase* mc, int index, int nterms, const int* nodes, const int* tags, const float* factors)
{
    if (nterms < 1) {
        vis_MCase_SetMPC(mc, "vis_MCaseSetMPC", index, nterms, nodes, tags, nullptr);
        return;
    }
    double* d = (double*)vsy_Malloc(sizeof(double) * (size_t)nterms);
    if (!d) {
        if (mc) vsy_ErrorRecord(&mc->ierr, "vis_MCaseSetMPC", SYS_ERROR_MEMORY, "index= %d", index);
        return;
    }
    vis_Model_ToDouble(nterms, factors, d);
    vis_MCase_SetMPC(mc, "vis_MCaseSetMPC", index, nterms, nodes, tags, d);
    vsy_Free(d);
}

void vis_MCaseSetCon(vis_MCase* mc, int index, int type, const int nodes[2])
{
    static const char* name = "vis_MCaseSetCon";
    if (vis_Model_IsNull(mc, name)) return;
    if (index < 1) {
        vsy_ErrorRecord(&mc->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (type < 2 || type > 5) {
        vsy_ErrorRecord(&mc->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    vis_MCaseRec* rec = vis_MCase_NewRec(mc, name, index, type, 0);
    if (!rec) return;
    rec->nodes[0] = nodes[0];
    rec->nodes[1] = nodes[1];
    vis_MCase_Put(mc, name, index, rec);
}

void vis_MCaseDel(vis_MCase* mc, int index)
{
    vis_MCaseRec* rec = vis_MCase_Get(mc, "vis_MCaseDel", index);
    if (!rec) return;
    vsy_HashTableRemove(mc->equ, index);
    vsy_Free(rec);
    vis_MCase_Recount(mc);
}

void vis_MCaseAdd(vis_MCase* mc, vis_MCase* src)
{
    if (vis_Model_IsNull(mc, "vis_MCaseAdd") || vis_Model_IsNull(src, "vis_MCaseAdd") || mc == src || !src->equ) return;
    int base = 0, key;
    void* value;
    vis_MCaseInq(mc, nullptr, nullptr, &base);
    vsy_HashTableInitIterOrder(src->equ);
    for (vsy_HashTableNextIter(src->equ, &key, &value); value; vsy_HashTableNextIter(src->equ, &key, &value)) {
        vis_MCaseRec* rec = (vis_MCaseRec*)value;
        if (rec->type == 1)
            vis_MCase_SetMPC(mc, "vis_MCaseAdd", ++base, rec->nterms, rec->nodes, vis_MCase_Tags(rec), rec->factors);
        else
            vis_MCaseSetCon(mc, ++base, rec->type, rec->nodes);
    }
}
