/* vis_ConnectNodeGroup: node groups by attribute, box, stride, the entities of the source, point
 * elements, corners and sampling. See vis_ConnectGroup.h.
 *
 * The source (element, element-face, element-edge or node group) first becomes a mark per
 * node: a node group marks its members, the other kinds the nodes of their selected elements,
 * faces or edges. Without a source every node is marked for the filtering operations and the
 * nodes of every element for the operations on the source's entities. The counts of opers 1 and
 * 13 are the number of selected entities (elements without a source or with an element or node
 * source) that hold the node. Opers 2 and 28 with a node source look at every element and keep
 * the members of the source. The corner test (oper 3) needs the kernel as well, and takes the
 * tangent of an edge of more than three nodes along its chord to the next node. Node attribute
 * 0, where it exists, masks every operation.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"
#include "vsy_Error.h"

#include <cmath>

static const char* kName = "vis_ConnectNodeGroup";

typedef struct vis_ConnectNodeScan {
    vis_ConnectGroupWork w;
    int numnode;
    int kind;       /* kind of the source, 0 without one */
    char* mark;     /* numnode + 1: node on the source */
    int* count;     /* numnode + 1: selected entities at the node */
    int* stamp;     /* numnode + 1: last entity that counted the node */
} vis_ConnectNodeScan;

/* The entity type whose flags a source kind selects: the element itself, faces or edges. */
static int vis_Connect_SourceEnt(int kind)
{
    return kind == VIS_CGK_FACE ? SYS_FACE : (kind == VIS_CGK_EDGE ? SYS_EDGE : SYS_ELEM);
}

/* Counts the nodes of one entity (a list of n nodes) once each, under the stamp `tag`. */
static void vis_Connect_CountNodes(vis_ConnectNodeScan* s, int n, const int* nodes, int tag)
{
    for (int k = 0; k < n; ++k) {
        int node = nodes[k];
        if (node < 1 || node > s->numnode || s->stamp[node] == tag) continue;
        s->stamp[node] = tag;
        s->mark[node] = 1;
        ++s->count[node];
    }
}

/* Marks and counts the nodes of the selected entities of element id. */
static void vis_Connect_ScanElem(vis_Connect* c, vis_ConnectNodeScan* s, vis_Group* source, int id, int* tag)
{
    int ent = vis_Connect_SourceEnt(s->kind), n = 0;
    if (ent == SYS_ELEM) {
        if (!vis_Connect_GroupHas(s->kind == VIS_CGK_ELEM ? source : nullptr, id)) return;
        vis_ConnectElemNode(c, id, &n, s->w.nodes);
        vis_Connect_CountNodes(s, n, s->w.nodes, ++*tag);
        return;
    }
    int nent = 0;
    vis_ConnectElemNum(c, ent, id, &nent);
    for (int no = 1; no <= nent; ++no) {
        if (!vis_Connect_GroupFlag(source, id, no)) continue;
        vis_ConnectElemCon(c, ent, id, no, &n, s->w.nodes);
        vis_Connect_CountNodes(s, n, s->w.nodes, ++*tag);
    }
}

/* Fills mark and count from the source. */
static void vis_Connect_NodeScan(vis_Connect* c, vis_ConnectNodeScan* s, vis_Group* source)
{
    int tag = 0;
    for (int i = 0; i <= s->numnode; ++i) {
        s->mark[i] = 0;
        s->count[i] = 0;
        s->stamp[i] = 0;
    }
    for (int id = 1; id <= c->numelem; ++id) {
        if (vis_Connect_GroupDefined(c, id)) vis_Connect_ScanElem(c, s, source, id, &tag);
    }
    if (s->kind != VIS_CGK_NODE) return;
    for (int i = 1; i <= s->numnode; ++i) s->mark[i] = (char)vis_Connect_GroupHas(source, i);
}

/* Whether node id lies in the parameter box. */
static int vis_Connect_NodeInBox(vis_Connect* c, int id)
{
    double x[3];
    vis_ConnectCoordsdv(c, 1, &id, x);
    for (int a = 0; a < 3; ++a) {
        if (x[a] < c->grp.box[a] || x[a] > c->grp.box[a + 3]) return 0;
    }
    return 1;
}

/* Whether any value of the node's attribute equals assocvalue (4) or is not 0 (29). */
static int vis_Connect_NodeAttr(vis_Connect* c, int oper, int id)
{
    int num = 0;
    vis_ConnectNumNodeAssoc(c, c->grp.assoctype, id, &num);
    int values[64];
    int* v = num <= 64 ? values : (int*)vsy_Malloc(sizeof(int) * (size_t)num);
    if (!v) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_MEMORY, "%s", "Malloc vec");
        return 0;
    }
    vis_ConnectAllNodeAssoc(c, c->grp.assoctype, id, &num, v);
    int hit = 0;
    for (int k = 0; k < num && !hit; ++k) hit = oper == VIS_CGROUP_ASSOC ? v[k] == c->grp.assocvalue : v[k] != 0;
    if (v != values) vsy_Free(v);
    return hit;
}

/* The test of the operations that look at one node. */
static int vis_Connect_NodeTest(vis_Connect* c, int oper, vis_ConnectNodeScan* s, int id, int filtered)
{
    switch (oper) {
    case VIS_CGROUP_ASSOC:
    case VIS_CGROUP_ASSOCANY: return filtered && vis_Connect_NodeAttr(c, oper, id);
    case VIS_CGROUP_INBOX: return filtered && vis_Connect_NodeInBox(c, id);
    case VIS_CGROUP_STRIDEOF: return filtered && (id - 1) % c->grp.stride == c->grp.phase - 1;
    case VIS_CGROUP_EVERYONCE: return s->mark[id];
    case VIS_CGROUP_FREE: return s->count[id] == 1;
    case VIS_CGROUP_SHARED: return s->count[id] == c->grp.count;
    default: return 0;
    }
}

/* Selects a node found by opers 2 and 28: a valid id that passes the mask and, with a node
 * source, is a member of it. */
static void vis_Connect_NodeTake(vis_Connect* c, const vis_ConnectNodeScan* s, vis_Group* dest, int node)
{
    if (node < 1 || node > s->numnode || !vis_Connect_GroupNodeMask(c, node)) return;
    if (s->kind == VIS_CGK_NODE && !s->mark[node]) return;
    vis_GroupSetIndex(dest, node, 1);
}

/* Marks the corners of the selected entities (28), or the nodes of the point elements (2); a
 * node source keeps only its members. */
static void vis_Connect_NodeCorners(vis_Connect* c, int oper, vis_ConnectNodeScan* s, vis_Group* source, vis_Group* dest)
{
    int ent = vis_Connect_SourceEnt(s->kind);
    vis_Group* elems = s->kind == VIS_CGK_ELEM ? source : nullptr;
    for (int id = 1; id <= c->numelem; ++id) {
        int shape = -1, i = 0, j = 0, k = 0, n = 0, *pos = s->w.nodes2;
        if (!vis_Connect_GroupDefined(c, id)) continue;
        vis_ConnectTopology(c, id, &shape, &i, &j, &k);
        if (oper == VIS_CGROUP_WHOLE) {
            if (shape != SYS_SHAPE_POINT || !vis_Connect_GroupHas(elems, id)) continue;
            vis_ConnectElemNode(c, id, &n, s->w.nodes);
        } else {
            int nent = 1;
            if (ent != SYS_ELEM) vis_ConnectElemNum(c, ent, id, &nent);
            else if (!vis_Connect_GroupHas(elems, id)) continue;
            for (int no = 1; no <= nent; ++no) {
                if (ent != SYS_ELEM && !vis_Connect_GroupFlag(source, id, no)) continue;
                vis_ConnectElemCorn(c, ent, id, no, &n, pos);
                for (int p = 0; p < n; ++p) {
                    int node = 0;
                    vis_ConnectIndElemNode(c, id, pos[p] - 1, &node);
                    vis_Connect_NodeTake(c, s, dest, node);
                }
            }
            continue;
        }
        for (int p = 0; p < n; ++p) vis_Connect_NodeTake(c, s, dest, s->w.nodes[p]);
    }
}

/* The unit tangent leaving node n along edge no of element id, by the curve through the edge's
 * nodes: the chord of a two-node edge, the derivative of the parabola of a three-node edge,
 * the chord to the next node otherwise. Returns 0 when n is not an end of the edge. */
static int vis_Connect_EdgeTangent(vis_Connect* c, int id, int no, int n, int* other, double* t, int* nodes)
{
    int num = 0;
    vis_ConnectElemCon(c, SYS_EDGE, id, no, &num, nodes);
    if (num < 2 || (nodes[0] != n && nodes[num - 1] != n)) return 0;
    int first = nodes[0] == n ? 0 : num - 1, step = first == 0 ? 1 : -1;
    *other = nodes[num - 1 - first];
    int ids[3] = {nodes[first], nodes[first + step], num >= 3 ? nodes[first + 2 * step] : nodes[first + step]};
    double x[9];
    vis_ConnectCoordsdv(c, 3, ids, x);
    for (int a = 0; a < 3; ++a) t[a] = num == 3 ? -3.0 * x[a] + 4.0 * x[3 + a] - x[6 + a] : x[3 + a] - x[a];
    double len = std::sqrt(t[0] * t[0] + t[1] * t[1] + t[2] * t[2]);
    for (int a = 0; a < 3 && len > 0.0; ++a) t[a] /= len;
    return 1;
}

/* The corner rule at node n over the edges of the edge source. */
static int vis_Connect_IsCorner(vis_Connect* c, vis_ConnectNodeScan* s, vis_Group* source, int n)
{
    int num = 0, found = 0, others[2] = {0, 0};
    double t[2][3];
    vis_ConnectNodeElem(c, n, &num, s->w.elems);
    for (int k = 0; k < num; ++k) {
        int id = s->w.elems[k], nedge = 0;
        vis_ConnectElemNum(c, SYS_EDGE, id, &nedge);
        for (int e = 1; e <= nedge; ++e) {
            int other = 0;
            double tan[3];
            if (!vis_Connect_GroupFlag(source, id, e) || !vis_Connect_EdgeTangent(c, id, e, n, &other, tan, s->w.nodes2)) continue;
            if ((found >= 1 && other == others[0]) || (found >= 2 && other == others[1])) continue;
            if (found == 2) return 1; /* a third distinct edge */
            others[found] = other;
            for (int a = 0; a < 3; ++a) t[found][a] = tan[a];
            ++found;
        }
    }
    if (found != 2) return found == 1;
    /* The first tangent turned to arrive at the node, the second leaving it. */
    double d = -(t[0][0] * t[1][0] + t[0][1] * t[1][1] + t[0][2] * t[1][2]);
    return (double)c->grp.cosangle > d || (c->grp.signedflag && d < 0.0);
}

/* The source kinds an operation accepts, and whether it needs the kernel. */
static int vis_Connect_NodeOper(int oper, int* kinds, int* kernel)
{
    *kinds = VIS_CGK_ELEM | VIS_CGK_FACE | VIS_CGK_EDGE | VIS_CGK_NODE;
    *kernel = oper == VIS_CGROUP_FREE || oper == VIS_CGROUP_WHOLE || oper == VIS_CGROUP_SHARED ||
              oper == VIS_CGROUP_FEATURE;
    switch (oper) {
    case VIS_CGROUP_FEATURE: *kinds = VIS_CGK_EDGE; return 1;
    case VIS_CGROUP_ASSOC: case VIS_CGROUP_ASSOCANY: case VIS_CGROUP_INBOX: case VIS_CGROUP_STRIDEOF:
    case VIS_CGROUP_EVERYONCE: case VIS_CGROUP_FREE: case VIS_CGROUP_WHOLE: case VIS_CGROUP_SHARED:
    case VIS_CGROUP_CORNER: case VIS_CGROUP_SAMPLE: return 1;
    default: return 0;
    }
}

static int vis_Connect_NodeScanAlloc(vis_Connect* c, vis_ConnectNodeScan* s, vis_Group* source)
{
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &s->numnode);
    s->kind = source ? vis_Connect_GroupKind(source, nullptr) : 0;
    size_t n = (size_t)s->numnode + 1;
    s->mark = (char*)vsy_Malloc(n);
    s->count = (int*)vsy_Malloc(sizeof(int) * n);
    s->stamp = (int*)vsy_Malloc(sizeof(int) * n);
    int ok = vis_Connect_GroupWorkAlloc(c, kName, &s->w);
    if (ok && s->mark && s->count && s->stamp) return 1;
    if (ok) vis_Connect_GroupWorkFree(&s->w);
    vsy_Free(s->mark);
    vsy_Free(s->count);
    vsy_Free(s->stamp);
    if (ok) vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_MEMORY, "%s", "Malloc vec");
    return 0;
}

static void vis_Connect_NodeScanFree(vis_ConnectNodeScan* s)
{
    vis_Connect_GroupWorkFree(&s->w);
    vsy_Free(s->mark);
    vsy_Free(s->count);
    vsy_Free(s->stamp);
}

void vis_ConnectNodeGroup(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest)
{
    if (vis_Connect_Null(c, kName)) return;
    if (GF_SET(c, VIS_GRIDFUN_NODEGROUP)) {
        GF_CALL(c, VIS_GRIDFUN_NODEGROUP, vis_GridFunGroup_t)(c->gridfun->obj, oper, source, dest);
        return;
    }
    int kinds = 0, kernel = 0;
    if (!vis_Connect_NodeOper(oper, &kinds, &kernel)) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_ENUM, "oper= %d", oper);
        return;
    }
    if (!vis_Connect_GroupCheck(c, kName, source, kinds, dest, VIS_CGK_NODE)) return;
    if (kernel && !vis_Connect_GroupKernel(c, kName)) return;
    vis_ConnectNodeScan s;
    if (!vis_Connect_NodeScanAlloc(c, &s, source)) return;
    vis_Connect_NodeScan(c, &s, source);
    if (oper == VIS_CGROUP_WHOLE || oper == VIS_CGROUP_CORNER) {
        vis_Connect_NodeCorners(c, oper, &s, source, dest);
    } else if (oper == VIS_CGROUP_SAMPLE) {
        for (int id = 1; id <= s.numnode; ++id) s.mark[id] = !source || s.mark[id];
        vis_Connect_GroupSample(c, SYS_NODE, nullptr, s.mark, dest);
    } else {
        for (int id = 1; id <= s.numnode; ++id) {
            if (!vis_Connect_GroupNodeMask(c, id)) continue;
            int selected = oper == VIS_CGROUP_FEATURE ? vis_Connect_IsCorner(c, &s, source, id)
                                                      : vis_Connect_NodeTest(c, oper, &s, id, !source || s.mark[id]);
            if (selected) vis_GroupSetIndex(dest, id, 1);
        }
    }
    vis_Connect_NodeScanFree(&s);
}
