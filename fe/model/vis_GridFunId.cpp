/* vis_GridFunId: user id checks through the grid function slots; see vis_GridFunId.h. */
#include "vis_GridFunId.h"

#include "vis_GridFun.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_IntHash.h"

#include <string.h>

#define VIS_USERID 10

#define VIS_IDBLOCK 1024

/* The user ids of entities 1..num into ids, a block of indices per call of the slot. */
static void vis_GridFun_ReadIds(vis_GridFun* gf, vis_GridFunc slot, int num, int* ids)
{
    vis_GridFunNodeAssoc_t assoc = (vis_GridFunNodeAssoc_t)slot;
    int ix[VIS_IDBLOCK];
    for (int first = 1; first <= num; first += VIS_IDBLOCK) {
        const int n = num - first + 1 < VIS_IDBLOCK ? num - first + 1 : VIS_IDBLOCK;
        for (int i = 0; i < n; ++i) ix[i] = first + i;
        for (int i = 0; i < n; ++i) ids[first - 1 + i] = 0;
        assoc(gf->obj, VIS_USERID, n, ix, ids + first - 1);
    }
}

/* Ids in a range of lo to lo + range - 1, marked in a bit vector: 1 at a repeat, -1 without
 * memory. */
static int vis_GridFun_RepeatsBits(const int* ids, int num, int lo, size_t range)
{
    unsigned char* seen = (unsigned char*)vsy_Malloc(range / 8 + 1);
    if (!seen) return -1;
    memset(seen, 0, range / 8 + 1);
    int repeat = 0;
    for (int i = 0; i < num && !repeat; ++i) {
        const size_t b = (size_t)((long long)ids[i] - lo);
        const unsigned char bit = (unsigned char)(1u << (b % 8));
        repeat = (seen[b / 8] & bit) != 0;
        seen[b / 8] |= bit;
    }
    vsy_Free(seen);
    return repeat;
}

/* Ids of any spread, through a hash: 1 at a repeat, -1 without memory. */
static int vis_GridFun_RepeatsHash(const int* ids, int num)
{
    vsy_IntHash* seen = vsy_IntHashNew();
    if (!seen) return -1;
    vsy_IntHashDef(seen, num);
    int repeat = 0;
    for (int i = 0; i < num && !repeat; ++i) {
        int had = 0;
        vsy_IntHashGet(seen, ids[i], &had);
        if (had) repeat = 1;
        else vsy_IntHashInsert(seen, ids[i], 1);
    }
    int failed = vsy_IntHashError(seen) != 0;
    vsy_IntHashDelete(seen);
    return failed ? -1 : repeat;
}

/* Walks ids 1..num through an association slot; 1 when an id repeats, -1 on failure. Ids of a
 * range up to 32 times their count, the usual case, are checked in a bit vector of at most four
 * bytes per entity; wider spreads go through a hash. `identity` tells whether every id equals
 * its index (then none repeats). */
static int vis_GridFun_Repeats(vis_GridFun* gf, vis_GridFunc slot, int num, int* identity)
{
    *identity = 1;
    if (num < 1) return 0;
    int* ids = (int*)vsy_Malloc((size_t)num * sizeof(int));
    if (!ids) return -1;
    vis_GridFun_ReadIds(gf, slot, num, ids);
    int lo = ids[0], hi = ids[0];
    for (int i = 0; i < num; ++i) {
        if (ids[i] < lo) lo = ids[i];
        if (ids[i] > hi) hi = ids[i];
        if (ids[i] != i + 1) *identity = 0;
    }
    const size_t range = (size_t)((long long)hi - lo) + 1;
    int repeat = 0;
    if (!*identity)
        repeat = range <= 32 * (size_t)num ? vis_GridFun_RepeatsBits(ids, num, lo, range)
                                           : vis_GridFun_RepeatsHash(ids, num);
    vsy_Free(ids);
    return repeat;
}

void vis_GridFunIdCheck(vis_GridFun* gf, int* nodeflag, int* elemflag)
{
    int nodeident = 0, elemident = 0;
    vis_GridFunIdCheckIdentity(gf, nodeflag, elemflag, &nodeident, &elemident);
}

void vis_GridFunIdCheckIdentity(vis_GridFun* gf, int* nodeflag, int* elemflag, int* nodeident, int* elemident)
{
    static const char* name = "vis_GridFunIdCheck";
    *nodeflag = *elemflag = 1;
    *nodeident = *elemident = 0;
    if (vis_Model_IsNull(gf, name)) return;
    vis_GridFunGetInteger_t count = (vis_GridFunGetInteger_t)gf->fun[VIS_GRIDFUN_GETINTEGER];
    vis_GridFunc nodes = gf->fun[VIS_GRIDFUN_NODEASSOC], elems = gf->fun[VIS_GRIDFUN_ELEMASSOC];
    if (!count || !nodes || !elems) {
        vsy_ErrorRecord(&gf->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun");
        return;
    }
    int numnode = 0, numelem = 0;
    count(gf->obj, 1, &numnode);
    count(gf->obj, 4, &numelem);
    int n = vis_GridFun_Repeats(gf, nodes, numnode, nodeident);
    int e = n < 0 ? -1 : vis_GridFun_Repeats(gf, elems, numelem, elemident);
    if (n < 0 || e < 0) {
        *nodeident = *elemident = 0;
        vsy_ErrorRecord(&gf->ierr, name, SYS_ERROR_MEMORY, "Malloc vec");
        return;
    }
    *nodeflag = n;
    *elemflag = e;
}

void vis_GridFunNodeId(vis_GridFun* gf, int flag, int n, const int* index, int* id)
{
    if (vis_Model_IsNull(gf, "vis_GridFunNodeId")) return;
    vis_GridFunNodeAssoc_t assoc = (vis_GridFunNodeAssoc_t)gf->fun[VIS_GRIDFUN_NODEASSOC];
    if (flag || !assoc) {
        for (int i = 0; i < n; ++i) id[i] = index[i];
        return;
    }
    /* One call of the slot per run of indices; an index 0 (a missing node) leaves its id. */
    for (int i = 0; i < n;) {
        int run = 0;
        while (i + run < n && index[i + run] != 0) ++run;
        if (run > 0) assoc(gf->obj, VIS_USERID, run, index + i, id + i);
        i += run + 1;
    }
}

void vis_GridFunElemId(vis_GridFun* gf, int flag, int n, const int* index, int* id)
{
    if (vis_Model_IsNull(gf, "vis_GridFunElemId")) return;
    vis_GridFunElemAssoc_t assoc = (vis_GridFunElemAssoc_t)gf->fun[VIS_GRIDFUN_ELEMASSOC];
    if (flag || !assoc) {
        for (int i = 0; i < n; ++i) id[i] = index[i];
        return;
    }
    if (n > 0) assoc(gf->obj, VIS_USERID, n, index, id);
}
