/* vis_ConnectElemGroup: element groups selected by attribute, shape, dimension, box, stride or
 * the nodes in a node group; orientation, sampling and self-intersection live in their own
 * files. See vis_ConnectGroup.h. */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"
#include "vsy_Error.h"

/* Nodes of element id in the node group (all of them without a group). */
static int vis_Connect_NodesIn(vis_Connect* c, vis_Group* nodes, int id, int* num, vis_ConnectGroupWork* w)
{
    vis_ConnectElemNode(c, id, num, w->nodes);
    int in = 0;
    for (int k = 0; k < *num; ++k) in += vis_Connect_GroupHas(nodes, w->nodes[k]);
    return in;
}

/* Whether element id passes the test of one of the simple operations. */
static int vis_Connect_ElemTest(vis_Connect* c, int oper, vis_Group* source, int id, vis_ConnectGroupWork* w)
{
    const vis_ConnectGroupParam* g = &c->grp;
    int shape = -1, i = 0, j = 0, k = 0, value = 0, dim = -1, num = 0;
    switch (oper) {
    case VIS_CGROUP_ASSOC:
    case VIS_CGROUP_ASSOCANY:
        vis_ConnectElemAssoc(c, g->assoctype, 1, &id, &value);
        return oper == VIS_CGROUP_ASSOC ? value == g->assocvalue : value != 0;
    case VIS_CGROUP_SHAPEOF:
        vis_ConnectTopology(c, id, &shape, &i, &j, &k);
        return shape == g->shape;
    case VIS_CGROUP_DIMOF:
        vis_ConnectTopology(c, id, &shape, &i, &j, &k);
        vis_ElemDim(shape, &dim);
        return dim == g->dimension;
    case VIS_CGROUP_INBOX: {
        double x[3];
        vis_Connect_GroupCentroid(c, id, x, w);
        for (int a = 0; a < 3; ++a) {
            if (x[a] < g->box[a] || x[a] > g->box[a + 3]) return 0;
        }
        return 1;
    }
    case VIS_CGROUP_STRIDEOF: return (id - 1) % g->stride == g->phase - 1;
    case VIS_CGROUP_ALLNODES: return vis_Connect_NodesIn(c, source, id, &num, w) == num;
    case VIS_CGROUP_COUNTNODES: return vis_Connect_NodesIn(c, source, id, &num, w) == g->count;
    default: return 0;
    }
}

void vis_ConnectElemGroup(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest)
{
    static const char* name = "vis_ConnectElemGroup";
    if (vis_Connect_Null(c, name)) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMGROUP)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMGROUP, vis_GridFunGroup_t)(c->gridfun->obj, oper, source, dest);
        return;
    }
    int nodesource = oper == VIS_CGROUP_ALLNODES || oper == VIS_CGROUP_COUNTNODES;
    switch (oper) {
    case VIS_CGROUP_ASSOC: case VIS_CGROUP_ASSOCANY: case VIS_CGROUP_SHAPEOF: case VIS_CGROUP_DIMOF:
    case VIS_CGROUP_INBOX: case VIS_CGROUP_STRIDEOF: case VIS_CGROUP_ALLNODES: case VIS_CGROUP_COUNTNODES:
    case VIS_CGROUP_ORIENT: case VIS_CGROUP_SAMPLE: case VIS_CGROUP_INTERSECT: break;
    default: vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "oper= %d", oper); return;
    }
    if (!vis_Connect_GroupCheck(c, name, source, nodesource ? VIS_CGK_NODE : VIS_CGK_ELEM, dest, VIS_CGK_ELEM)) return;
    if (oper == VIS_CGROUP_ORIENT) {
        if (vis_Connect_GroupKernel(c, name)) vis_Connect_GroupOrient(c, source, dest);
        return;
    }
    if (oper == VIS_CGROUP_SAMPLE) return vis_Connect_GroupSample(c, SYS_ELEM, source, nullptr, dest);
    if (oper == VIS_CGROUP_INTERSECT) return vis_Connect_GroupIntersect(c, source, dest);
    vis_ConnectGroupWork w;
    if (!vis_Connect_GroupWorkAlloc(c, name, &w)) return;
    for (int id = 1; id <= c->numelem; ++id) {
        if (!vis_Connect_GroupDefined(c, id)) continue;
        if (!nodesource && !vis_Connect_GroupHas(source, id)) continue;
        if (vis_Connect_ElemTest(c, oper, source, id, &w)) vis_GroupSetIndex(dest, id, 1);
    }
    vis_Connect_GroupWorkFree(&w);
}
