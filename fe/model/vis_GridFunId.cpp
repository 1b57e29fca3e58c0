/* vis_GridFunId: user id checks through the grid function slots; see vis_GridFunId.h. */
#include "vis_GridFunId.h"

#include "vis_GridFun.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"
#include "vsy_IntHash.h"

#define VIS_USERID 10

/* Walks ids 1..num through an association slot; 1 at the first repeated id or on failure. */
static int vis_GridFun_Repeats(vis_GridFun* gf, vis_GridFunc slot, int num)
{
    vis_GridFunNodeAssoc_t assoc = (vis_GridFunNodeAssoc_t)slot;
    vsy_IntHash* seen = vsy_IntHashNew();
    if (!seen) return -1;
    vsy_IntHashDef(seen, num);
    int repeat = 0;
    for (int i = 1; i <= num && !repeat; ++i) {
        int id = 0, had = 0;
        assoc(gf->obj, VIS_USERID, 1, &i, &id);
        vsy_IntHashGet(seen, id, &had);
        if (had) repeat = 1;
        else vsy_IntHashInsert(seen, id, 1);
    }
    int failed = vsy_IntHashError(seen) != 0;
    vsy_IntHashDelete(seen);
    return failed ? -1 : repeat;
}

void vis_GridFunIdCheck(vis_GridFun* gf, int* nodeflag, int* elemflag)
{
    static const char* name = "vis_GridFunIdCheck";
    *nodeflag = *elemflag = 1;
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
    int n = vis_GridFun_Repeats(gf, nodes, numnode);
    int e = n < 0 ? -1 : vis_GridFun_Repeats(gf, elems, numelem);
    if (n < 0 || e < 0) {
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
    for (int i = 0; i < n; ++i) {
        if (flag || !assoc) id[i] = index[i];
        else if (index[i] != 0) assoc(gf->obj, VIS_USERID, 1, &index[i], &id[i]);
    }
}

void vis_GridFunElemId(vis_GridFun* gf, int flag, int n, const int* index, int* id)
{
    if (vis_Model_IsNull(gf, "vis_GridFunElemId")) return;
    vis_GridFunElemAssoc_t assoc = (vis_GridFunElemAssoc_t)gf->fun[VIS_GRIDFUN_ELEMASSOC];
    for (int i = 0; i < n; ++i) {
        if (flag || !assoc) id[i] = index[i];
        else assoc(gf->obj, VIS_USERID, 1, &index[i], &id[i]);
    }
}
