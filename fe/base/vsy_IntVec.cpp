/* vsy_IntVec: an integer vector that answers a default value for every index never written.
 *
 * Invariant: low <= idx < cap addresses a valid entry of `data`; every other index reads as
 * `defval`. Growth doubles `cap` until it passes the written index, and fills the new entries
 * with `defval`, so a read never sees uninitialised memory.
 */
#include "vsy_IntVec.h"

#include "vsy_Error.h"

#include <climits>

static void vsy_IntVec_Fill(int* data, int from, int to, int value)
{
    for (int i = from; i < to; ++i) data[i] = value;
}

vsy_IntVec* vsy_IntVecNew(void)
{
    vsy_IntVec* vec = (vsy_IntVec*)vsy_Malloc(sizeof(vsy_IntVec));
    if (!vec) {
        vsy_ErrorMessage("IntVec", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    vec->ierr = 0;
    vec->low = 1;
    vec->maxidx = -1;
    vec->cap = -1;
    vec->data = nullptr;
    vec->defval = 0;
    return vec;
}

void vsy_IntVecDelete(vsy_IntVec* vec)
{
    if (!vec) return;
    if (vec->data) vsy_Free(vec->data);
    vsy_Free(vec);
}

int vsy_IntVecError(vsy_IntVec* vec)
{
    if (!vec) return SYS_ERROR_NULLOBJECT;
    int ierr = vec->ierr;
    vec->ierr = 0;
    return ierr;
}

void vsy_IntVecSetParami(vsy_IntVec* vec, int type, int param)
{
    if (!vec) {
        vsy_ErrorNumber("vsy_IntVecSetParami", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (type != VSY_INTVEC_INDEXZERO) {
        vsy_ErrorRecord(&vec->ierr, "vsy_IntVecSetParami", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    vec->low = (param == 1) ? 0 : 1;
}

void vsy_IntVecDef(vsy_IntVec* vec, int n)
{
    if (!vec) {
        vsy_ErrorNumber("vsy_IntVecDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (n < 0 || n == INT_MAX) {
        vsy_ErrorRecord(&vec->ierr, "vsy_IntVecDef", SYS_ERROR_VALUE, "nument= %d", n);
        return;
    }
    if (vec->data) vsy_Free(vec->data);
    vec->maxidx = -1;
    vec->cap = n + 1;
    vec->data = (int*)vsy_Malloc((size_t)vec->cap * sizeof(int));
    if (!vec->data) {
        vec->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorMessage("vsy_IntVecDef", SYS_ERROR_MEMORY, "Malloc vec");
        /* Without an array the vector counts as undefined, so every read gives defval and the
         * next write defines it again. */
        vec->cap = -1;
        return;
    }
    vsy_IntVec_Fill(vec->data, 0, vec->cap, vec->defval);
}

void vsy_IntVec_Expand(vsy_IntVec* vec, int idx)
{
    long long newcap = vec->cap > 0 ? vec->cap : 1;
    while (newcap <= idx) newcap *= 2;
    /* The last entry an int32 count can address is INT_MAX - 1. */
    if (newcap > INT_MAX) newcap = INT_MAX;
    int* data = nullptr;
    if (newcap > idx) data = (int*)vsy_Realloc(vec->data, (size_t)newcap * sizeof(int));
    if (!data) {
        vec->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vsy_IntVec_Expand", SYS_ERROR_MEMORY);
        return;
    }
    vsy_IntVec_Fill(data, vec->cap > 0 ? vec->cap : 0, (int)newcap, vec->defval);
    vec->data = data;
    vec->cap = (int)newcap;
}

void vsy_IntVecSet(vsy_IntVec* vec, int idx, int value)
{
    if (!vec) {
        vsy_ErrorNumber("vsy_IntVecSet", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (idx < vec->low) {
        vsy_ErrorRecord(&vec->ierr, "vsy_IntVecSet", SYS_ERROR_VALUE, "idx= %d", idx);
        return;
    }
    if (!vec->data) {
        /* A failed definition has reported already and left the vector undefined. */
        vsy_IntVecDef(vec, 0);
        if (!vec->data) return;
    }
    if (idx >= vec->cap) vsy_IntVec_Expand(vec, idx);
    if (idx >= vec->cap) {
        vec->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorMessage("vsy_IntVecSet", SYS_ERROR_MEMORY, "Realloc vec");
        return;
    }
    vec->data[idx] = value;
    if (idx > vec->maxidx) vec->maxidx = idx;
}

void vsy_IntVecGet(vsy_IntVec* vec, int idx, int* value)
{
    if (!vec || !value) return;
    if (idx >= vec->low && idx < vec->cap && vec->data) {
        *value = vec->data[idx];
    } else {
        *value = vec->defval;
    }
}

void vsy_IntVecSetDefault(vsy_IntVec* vec, int defval)
{
    if (!vec) {
        vsy_ErrorNumber("vsy_IntVecSetDefault", SYS_ERROR_NULLOBJECT);
        return;
    }
    vec->defval = defval;
}

void vsy_IntVecMaxIndex(vsy_IntVec* vec, int* maxidx)
{
    if (!vec || !maxidx) return;
    *maxidx = vec->maxidx;
}
