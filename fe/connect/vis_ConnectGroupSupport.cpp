/* vis_ConnectGroupSupport: checks, membership and adjacency shared by the derived groups. */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_ConnectKernel.h"
#include "vis_Group.h"
#include "vsy_Error.h"

int vis_Connect_GroupKind(vis_Group* group, int* nument)
{
    int n = 0, parent = 0, child = 0;
    vis_GroupInq(group, &n, &parent, &child);
    if (nument) *nument = n;
    if (parent == SYS_ELEM && (child == 0 || child == SYS_ELEM)) return VIS_CGK_ELEM;
    if (parent == SYS_ELEM && child == SYS_FACE) return VIS_CGK_FACE;
    if (parent == SYS_ELEM && child == SYS_EDGE) return VIS_CGK_EDGE;
    if (parent == SYS_NODE && (child == 0 || child == SYS_NODE)) return VIS_CGK_NODE;
    return 0;
}

int vis_Connect_GroupCheck(vis_Connect* c, const char* name, vis_Group* source, int kinds, vis_Group* dest,
                           int destkind)
{
    int numnode = 0, n = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &numnode);
    int ok = 1;
    if (source) {
        int kind = vis_Connect_GroupKind(source, &n);
        ok = (kind & kinds) != 0 && n == (kind == VIS_CGK_NODE ? numnode : c->numelem);
    }
    if (ok && !dest) {
        c->ierr = SYS_ERROR_NULLOBJECT;
        vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
        return 0;
    }
    if (ok) ok = vis_Connect_GroupKind(dest, &n) == destkind && n >= (destkind == VIS_CGK_NODE ? numnode : c->numelem);
    if (ok) return 1;
    c->ierr = SYS_ERROR_VALUE;
    vsy_ErrorNumber(name, SYS_ERROR_VALUE);
    return 0;
}

int vis_Connect_GroupKernel(vis_Connect* c, const char* name)
{
    if (c->mode == 1 || c->nodeelem || c->numelem == 0) return 1;
    vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_OPERATION, "%s", "ConnectKernel not called");
    return 0;
}

int vis_Connect_GroupHas(vis_Group* group, int index)
{
    if (!group) return 1;
    int flags = 0;
    vis_GroupGetIndex(group, index, &flags);
    return flags != 0;
}

int vis_Connect_GroupFlag(vis_Group* group, int index, int no)
{
    if (!group) return 1;
    int flags = 0;
    vis_GroupGetIndex(group, index, &flags);
    return no >= 1 && no <= 32 && ((unsigned)flags >> (no - 1)) & 1u;
}

int vis_Connect_GroupDefined(vis_Connect* c, int id)
{
    int shape = -1, i = 0, j = 0, k = 0;
    vis_ConnectTopology(c, id, &shape, &i, &j, &k);
    return shape >= SYS_SHAPE_POINT && shape <= SYS_SHAPE_POLYHED;
}

int vis_Connect_GroupNodeMask(vis_Connect* c, int id)
{
    if (!c->nodeassoc[VIS_ASSOC_ELEMTYPE]) return 1;
    int value = 0;
    vis_ConnectNodeAssoc(c, VIS_ASSOC_ELEMTYPE, 1, &id, &value);
    return value != 0;
}

int vis_Connect_GroupWorkAlloc(vis_Connect* c, const char* name, vis_ConnectGroupWork* w)
{
    int maxnode = 0, maxelem = 0;
    vis_ConnectMaxElemNode(c, &maxnode);
    if (c->nodeelem || c->mode == 1) vis_ConnectMaxNodeElem(c, &maxelem);
    w->elems = (int*)vsy_Malloc(sizeof(int) * (size_t)(maxelem + 1));
    w->nodes = (int*)vsy_Malloc(sizeof(int) * (size_t)(maxnode + 1));
    w->nodes2 = (int*)vsy_Malloc(sizeof(int) * (size_t)(maxnode + 1));
    if (w->elems && w->nodes && w->nodes2) return 1;
    vis_Connect_GroupWorkFree(w);
    vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "%s", "Malloc vec");
    return 0;
}

void vis_Connect_GroupWorkFree(vis_ConnectGroupWork* w)
{
    vsy_Free(w->elems);
    vsy_Free(w->nodes);
    vsy_Free(w->nodes2);
    w->elems = w->nodes = w->nodes2 = nullptr;
}

void vis_Connect_GroupAdj(vis_Connect* c, vis_Group* source, int enttype, int id, int no, int* num,
                          vis_ConnectGroupWork* w)
{
    if (!c->gridfun) {
        vis_Connect_ElemAdjIn(c, source, enttype, id, no, num, w->elems);
        return;
    }
    /* A front answers adjacency by its slot: its list is filtered here. */
    int n = 0;
    vis_ConnectElemAdj(c, enttype, id, no, &n, w->elems);
    int kept = 0;
    for (int k = 0; k < n; ++k) {
        if (vis_Connect_GroupHas(source, w->elems[k])) w->elems[kept++] = w->elems[k];
    }
    *num = kept;
}

int vis_Connect_GroupLowest(int id, int num, const int* elems)
{
    for (int k = 0; k < num; ++k) {
        if (elems[k] < id) return 0;
    }
    return 1;
}

int vis_Connect_GroupEdgeEnds(vis_Connect* c, int id, int no, int ends[2])
{
    int n = 0, pos[VIS_ELEM_MAXSIDE + 2];
    vis_ConnectElemCorn(c, SYS_EDGE, id, no, &n, pos);
    if (n < 2) return 0;
    vis_ConnectIndElemNode(c, id, pos[0] - 1, &ends[0]);
    vis_ConnectIndElemNode(c, id, pos[n - 1] - 1, &ends[1]);
    return 1;
}

int vis_Connect_GroupFindEdge(vis_Connect* c, int id, int a, int b)
{
    int nedge = 0;
    vis_ConnectElemNum(c, SYS_EDGE, id, &nedge);
    for (int e = 1; e <= nedge; ++e) {
        int ends[2];
        if (!vis_Connect_GroupEdgeEnds(c, id, e, ends)) continue;
        if ((ends[0] == a && ends[1] == b) || (ends[0] == b && ends[1] == a)) return e;
    }
    return 0;
}

void vis_Connect_GroupCentroid(vis_Connect* c, int id, double x[3], vis_ConnectGroupWork* w)
{
    int n = 0;
    vis_ConnectElemNode(c, id, &n, w->nodes);
    x[0] = x[1] = x[2] = 0.0;
    for (int k = 0; k < n; ++k) {
        double p[3];
        vis_ConnectCoordsdv(c, 1, &w->nodes[k], p);
        for (int a = 0; a < 3; ++a) x[a] += p[a];
    }
    for (int a = 0; a < 3 && n > 0; ++a) x[a] /= n;
}

/* Whether face no of element id holds both nodes a and b. */
int vis_Connect_GroupFaceHolds(vis_Connect* c, int id, int no, int a, int b, vis_ConnectGroupWork* w)
{
    int n = 0, found = 0;
    vis_ConnectElemCon(c, SYS_FACE, id, no, &n, w->nodes2);
    for (int k = 0; k < n; ++k) found |= (w->nodes2[k] == a ? 1 : 0) | (w->nodes2[k] == b ? 2 : 0);
    return found == 3;
}

/* The edges (from 1) of face no of element id; 0 for shapes without an edge table of faces. */
int vis_Connect_GroupFaceEdges(vis_Connect* c, int id, int no, int* edges)
{
    int shape = -1, i = 0, j = 0, k = 0, n = 0;
    vis_ConnectTopology(c, id, &shape, &i, &j, &k);
    if (shape == SYS_SHAPE_POLYHED) return 0;
    if (shape == SYS_SHAPE_POLYGON) {
        vis_ConnectElemNum(c, SYS_EDGE, id, &n);
        n = n > VIS_ELEM_MAXEDGE ? VIS_ELEM_MAXEDGE : n;
        for (int e = 0; e < n; ++e) edges[e] = e + 1;
        return n;
    }
    vis_ElemFaceEdges(shape, no - 1, &n, edges);
    for (int e = 0; e < n; ++e) ++edges[e];
    return n;
}
