/* vis_ConnectEntGroup: element-face and element-edge groups (vis_ConnectFaceGroup,
 * vis_ConnectEdgeGroup): free and shared entities, attributes on entities, entities whose nodes
 * lie in a node group, attribute interfaces. The face-source tests of edges and region growing
 * live in their own files. See vis_ConnectGroup.h. */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"
#include "vsy_Error.h"

/* Whether the elements sharing an entity differ from element id in the attribute of
 * assoctype. */
static int vis_Connect_Interface(vis_Connect* c, int id, int num, const int* elems)
{
    int mine = 0;
    vis_ConnectElemAssoc(c, c->grp.assoctype, 1, &id, &mine);
    for (int k = 0; k < num; ++k) {
        int theirs = 0;
        vis_ConnectElemAssoc(c, c->grp.assoctype, 1, &elems[k], &theirs);
        if (theirs != mine) return 1;
    }
    return 0;
}

/* Nodes of entity no of element id that lie in the node group. */
static int vis_Connect_EntNodesIn(vis_Connect* c, vis_Group* nodes, int enttype, int id, int no, int* num,
                                  vis_ConnectGroupWork* w)
{
    vis_ConnectElemCon(c, enttype, id, no, num, w->nodes);
    int in = 0;
    for (int k = 0; k < *num; ++k) in += vis_Connect_GroupHas(nodes, w->nodes[k]);
    return in;
}

/* Whether entity no of element id passes the test of the operation. */
static int vis_Connect_EntTest(vis_Connect* c, int enttype, int oper, vis_Group* source, int id, int no,
                               vis_ConnectGroupWork* w)
{
    const vis_ConnectGroupParam* g = &c->grp;
    int num = 0, value = 0;
    if (oper == VIS_CGROUP_ASSOC || oper == VIS_CGROUP_ASSOCANY) {
        vis_ConnectElemEntAssoc(c, g->assoctype, enttype, id, no, &value);
        return oper == VIS_CGROUP_ASSOC ? value == g->assocvalue : value != 0;
    }
    if (oper == VIS_CGROUP_ALLNODES) return vis_Connect_EntNodesIn(c, source, enttype, id, no, &num, w) == num;
    if (oper == VIS_CGROUP_COUNTNODES) return vis_Connect_EntNodesIn(c, source, enttype, id, no, &num, w) == g->count;
    if (oper == VIS_CGROUP_SHARED && g->count == 0) return 1;
    vis_Connect_GroupAdj(c, source, enttype, id, no, &num, w);
    int once = vis_Connect_GroupLowest(id, num, w->elems);
    switch (oper) {
    case VIS_CGROUP_EVERYONCE: return once;
    case VIS_CGROUP_FREE: return num == 0;
    case VIS_CGROUP_SHARED: return once && num + 1 == g->count;
    case VIS_CGROUP_NOTONE: return once && num != 1;
    case VIS_CGROUP_INTERFACE:
        return once && ((g->count != 0 && num + 1 == g->count) || vis_Connect_Interface(c, id, num, w->elems));
    default: return 0;
    }
}

/* The face test, for the quick path's elements of other forms. */
static int vis_Connect_FaceTest(vis_Connect* c, int oper, vis_Group* source, int id, int no, vis_ConnectGroupWork* w)
{
    return vis_Connect_EntTest(c, SYS_FACE, oper, source, id, no, w);
}

/* Sets every entity flag of element id. */
static void vis_Connect_EntAll(vis_Connect* c, int enttype, int id, vis_Group* dest)
{
    int n = 0;
    vis_ConnectElemNum(c, enttype, id, &n);
    for (int no = 1; no <= n; ++no) vis_GroupSetEntFlag(dest, id, no, 1);
}

/* The scan shared by the face and edge operations that test one entity at a time. */
static void vis_Connect_EntScan(vis_Connect* c, const char* name, int enttype, int oper, vis_Group* source,
                                vis_Group* dest)
{
    vis_ConnectGroupWork w;
    if (!vis_Connect_GroupWorkAlloc(c, name, &w)) return;
    if (enttype == SYS_FACE && vis_Connect_GroupFreeFaces(c, oper, source, dest, vis_Connect_FaceTest, &w)) {
        vis_Connect_GroupWorkFree(&w);
        return;
    }
    int nodesource = oper == VIS_CGROUP_ALLNODES || oper == VIS_CGROUP_COUNTNODES;
    vis_Group* elems = nodesource ? nullptr : source;
    for (int id = 1; id <= c->numelem; ++id) {
        if (!vis_Connect_GroupDefined(c, id) || !vis_Connect_GroupHas(elems, id)) continue;
        if (oper == VIS_CGROUP_WHOLE) {
            int shape = -1, i = 0, j = 0, k = 0, dim = -1;
            vis_ConnectTopology(c, id, &shape, &i, &j, &k);
            vis_ElemDim(shape, &dim);
            if (dim == (enttype == SYS_FACE ? 2 : 1)) vis_Connect_EntAll(c, enttype, id, dest);
            continue;
        }
        int n = 0;
        vis_ConnectElemNum(c, enttype, id, &n);
        for (int no = 1; no <= n; ++no) {
            if (vis_Connect_EntTest(c, enttype, oper, source, id, no, &w)) vis_GroupSetEntFlag(dest, id, no, 1);
        }
    }
    vis_Connect_GroupWorkFree(&w);
}

/* Whether oper is one of the single-entity operations (27 only for edges). */
static int vis_Connect_EntOper(int enttype, int oper)
{
    switch (oper) {
    case VIS_CGROUP_EVERYONCE: case VIS_CGROUP_FREE: case VIS_CGROUP_WHOLE: case VIS_CGROUP_ASSOC:
    case VIS_CGROUP_ASSOCANY: case VIS_CGROUP_ALLNODES: case VIS_CGROUP_COUNTNODES: case VIS_CGROUP_SHARED:
    case VIS_CGROUP_INTERFACE: return 1;
    case VIS_CGROUP_NOTONE: return enttype == SYS_EDGE;
    default: return 0;
    }
}

/* The source kinds an operation accepts. */
static int vis_Connect_EntSourceKinds(int enttype, int oper)
{
    if (oper == VIS_CGROUP_ALLNODES || oper == VIS_CGROUP_COUNTNODES) return VIS_CGK_NODE;
    if (oper == VIS_CGROUP_REGION) return enttype == SYS_FACE ? VIS_CGK_FACE : VIS_CGK_EDGE;
    if (oper == VIS_CGROUP_FEATURE || oper == VIS_CGROUP_SILHOUETTE || oper == VIS_CGROUP_CREASE) return VIS_CGK_FACE;
    return enttype == SYS_EDGE ? VIS_CGK_ELEM | VIS_CGK_FACE : VIS_CGK_ELEM;
}

void vis_ConnectFaceGroup(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest)
{
    static const char* name = "vis_ConnectFaceGroup";
    if (vis_Connect_Null(c, name)) return;
    if (GF_SET(c, VIS_GRIDFUN_FACEGROUP)) {
        GF_CALL(c, VIS_GRIDFUN_FACEGROUP, vis_GridFunGroup_t)(c->gridfun->obj, oper, source, dest);
        return;
    }
    if (!vis_Connect_EntOper(SYS_FACE, oper) && oper != VIS_CGROUP_REGION) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "oper= %d", oper);
        return;
    }
    if (!vis_Connect_GroupCheck(c, name, source, vis_Connect_EntSourceKinds(SYS_FACE, oper), dest, VIS_CGK_FACE)) return;
    if (!vis_Connect_GroupKernel(c, name)) return;
    if (oper == VIS_CGROUP_REGION) vis_Connect_GroupRegion(c, SYS_FACE, source, dest);
    else vis_Connect_EntScan(c, name, SYS_FACE, oper, source, dest);
}

void vis_ConnectEdgeGroup(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest)
{
    static const char* name = "vis_ConnectEdgeGroup";
    if (vis_Connect_Null(c, name)) return;
    if (GF_SET(c, VIS_GRIDFUN_EDGEGROUP)) {
        GF_CALL(c, VIS_GRIDFUN_EDGEGROUP, vis_GridFunGroup_t)(c->gridfun->obj, oper, source, dest);
        return;
    }
    int feature = oper == VIS_CGROUP_FEATURE || oper == VIS_CGROUP_SILHOUETTE || oper == VIS_CGROUP_CREASE;
    if (!vis_Connect_EntOper(SYS_EDGE, oper) && !feature && oper != VIS_CGROUP_REGION) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "oper= %d", oper);
        return;
    }
    if (!vis_Connect_GroupCheck(c, name, source, vis_Connect_EntSourceKinds(SYS_EDGE, oper), dest, VIS_CGK_EDGE)) return;
    if (!vis_Connect_GroupKernel(c, name)) return;
    if (feature) vis_Connect_GroupFeature(c, oper, source, dest);
    else if (oper == VIS_CGROUP_REGION) vis_Connect_GroupRegion(c, SYS_EDGE, source, dest);
    else vis_Connect_EntScan(c, name, SYS_EDGE, oper, source, dest);
}
