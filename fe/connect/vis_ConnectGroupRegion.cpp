/* vis_ConnectGroupRegion: the region of element faces (FaceGroup oper 23) or element edges
 * (EdgeGroup oper 23) grown from a seed until it meets the stops of the seed group.
 *
 * The seed is every source entity at seednode, or, when there is none or no seednode, entity
 * seedface (seededge) of seedelem. From each face taken, the region crosses each of its edges
 * that is not a feature: the direction ends when the edge, on this element or on any element
 * sharing it, is flagged in the seed group (an element-edge group); otherwise every source face
 * that holds the edge's two end nodes, on this element or a neighbour, joins the region. From
 * each edge taken, the region crosses each end node that is not a stop into every source edge
 * that ends there. The seed group of edges is an element-face group, read as flags on the
 * elements' node positions: flag k of an element stops the node at position k of its list (so
 * the corners of elements with up to 8 nodes can be marked). A node group is taken as well, as
 * an addition: its members stop. A stack of element and entity numbers in two vsy_IntVecs, and
 * a mark per entity, drive the walk.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"
#include "vsy_Error.h"
#include "vsy_IntVec.h"

typedef struct vis_ConnectRegion {
    int enttype;      /* SYS_FACE or SYS_EDGE */
    const char* name;
    vis_ConnectGroupWork w;
    vis_Group* mark;  /* faces already in the region */
    vsy_IntVec* elem; /* stack: element */
    vsy_IntVec* face; /* stack: face or edge number */
    int top;
    int failed;       /* non-zero once the stack could not grow */
} vis_ConnectRegion;

/* Marks a face in both groups and pushes it. */
static void vis_Connect_RegionPush(vis_ConnectRegion* r, vis_Group* dest, int id, int no)
{
    vis_GroupSetEntFlag(r->mark, id, no, 1);
    vis_GroupSetEntFlag(dest, id, no, 1);
    if (r->failed) return;
    vsy_IntVecSet(r->elem, r->top, id);
    vsy_IntVecSet(r->face, r->top, no);
    /* A stack that cannot grow ends the walk; its own report has been made. */
    r->failed = vsy_IntVecError(r->elem) | vsy_IntVecError(r->face);
    if (!r->failed) ++r->top;
}

/* The seed checks; 0 after a report. */
static int vis_Connect_RegionSeedOk(vis_Connect* c, vis_ConnectRegion* r, vis_Group* source)
{
    const vis_ConnectGroupParam* g = &c->grp;
    int face = r->enttype == SYS_FACE, n = 0;
    if (!g->seedgroup) {
        vsy_ErrorRecord(&c->ierr, r->name, SYS_ERROR_OPERATION, "%s", "Seed Group not defined");
        return 0;
    }
    int kind = vis_Connect_GroupKind(g->seedgroup, &n);
    int numnode = 0;
    vis_ConnectGetInteger(c, VIS_CONNECT_NUMNODE, &numnode);
    int proper = face ? kind == VIS_CGK_EDGE && n == c->numelem
                      : (kind == VIS_CGK_FACE && n == c->numelem) || (kind == VIS_CGK_NODE && n == numnode);
    if (!proper) {
        vsy_ErrorRecord(&c->ierr, r->name, SYS_ERROR_VALUE, "%s", "Improper seed Group");
        return 0;
    }
    if (g->seednode == 0 && g->seedelem == 0) {
        vsy_ErrorRecord(&c->ierr, r->name, SYS_ERROR_OPERATION, "%s", "Seed node and/or element not defined");
        return 0;
    }
    if (g->seedelem == 0) return 1;
    int count = 0, no = face ? g->seedface : g->seededge;
    vis_ConnectElemNum(c, r->enttype, g->seedelem, &count);
    if (no < 1 || no > count) {
        vsy_ErrorRecord(&c->ierr, r->name, SYS_ERROR_OPERATION, "%s",
                        face ? "Seed element face out of range" : "Seed element edge out of range");
        return 0;
    }
    if (!vis_Connect_GroupFlag(source, g->seedelem, no)) {
        vsy_ErrorRecord(&c->ierr, r->name, SYS_ERROR_OPERATION, "%s",
                        face ? "Seed element face not in source group" : "Seed element edge not in source group");
        return 0;
    }
    return 1;
}

/* Whether entity no (an edge: b 0 asks for node a as one of its ends) of element id holds the
 * nodes a and b. */
static int vis_Connect_RegionHolds(vis_Connect* c, vis_ConnectRegion* r, int id, int no, int a, int b)
{
    if (r->enttype == SYS_FACE) return vis_Connect_GroupFaceHolds(c, id, no, a, b ? b : a, &r->w);
    int ends[2];
    return vis_Connect_GroupEdgeEnds(c, id, no, ends) && (ends[0] == a || ends[1] == a);
}

/* Pushes the unmarked source entities of element id that hold nodes a and b (b 0: node a
 * only). */
static void vis_Connect_RegionFaces(vis_Connect* c, vis_ConnectRegion* r, vis_Group* source, vis_Group* dest,
                                    int id, int a, int b)
{
    int nent = 0;
    vis_ConnectElemNum(c, r->enttype, id, &nent);
    for (int no = 1; no <= nent; ++no) {
        if (!vis_Connect_GroupFlag(source, id, no) || vis_Connect_GroupFlag(r->mark, id, no)) continue;
        if (!vis_Connect_RegionHolds(c, r, id, no, a, b)) continue;
        vis_Connect_RegionPush(r, dest, id, no);
    }
}

/* Whether node n stops a region of edges. */
static int vis_Connect_RegionStop(vis_Connect* c, vis_ConnectRegion* r, int n)
{
    vis_Group* seeds = c->grp.seedgroup;
    if (vis_Connect_GroupKind(seeds, nullptr) == VIS_CGK_NODE) return vis_Connect_GroupHas(seeds, n);
    int num = 0;
    vis_ConnectNodeElem(c, n, &num, r->w.elems);
    for (int k = 0; k < num; ++k) {
        int len = 0;
        vis_ConnectElemNode(c, r->w.elems[k], &len, r->w.nodes);
        for (int p = 0; p < len && p < 8; ++p) {
            if (r->w.nodes[p] == n && vis_Connect_GroupFlag(seeds, r->w.elems[k], p + 1)) return 1;
        }
    }
    return 0;
}

/* Crosses end node n of an edge into the source edges that end there, unless it stops. */
static void vis_Connect_RegionNode(vis_Connect* c, vis_ConnectRegion* r, vis_Group* source, vis_Group* dest, int n)
{
    if (vis_Connect_RegionStop(c, r, n)) return;
    int num = 0;
    vis_ConnectNodeElem(c, n, &num, r->w.elems);
    for (int k = 0; k < num; ++k) vis_Connect_RegionFaces(c, r, source, dest, r->w.elems[k], n, 0);
}

/* Crosses edge e of element id, unless a feature stops it. */
static void vis_Connect_RegionCross(vis_Connect* c, vis_ConnectRegion* r, vis_Group* source, vis_Group* dest, int id,
                                    int e)
{
    vis_Group* seeds = c->grp.seedgroup;
    int ends[2], num = 0;
    if (vis_Connect_GroupFlag(seeds, id, e) || !vis_Connect_GroupEdgeEnds(c, id, e, ends)) return;
    vis_ConnectElemAdj(c, SYS_EDGE, id, e, &num, r->w.elems);
    for (int k = 0; k < num; ++k) {
        int other = vis_Connect_GroupFindEdge(c, r->w.elems[k], ends[0], ends[1]);
        if (other && vis_Connect_GroupFlag(seeds, r->w.elems[k], other)) return;
    }
    vis_Connect_RegionFaces(c, r, source, dest, id, ends[0], ends[1]);
    for (int k = 0; k < num; ++k) vis_Connect_RegionFaces(c, r, source, dest, r->w.elems[k], ends[0], ends[1]);
}

/* The seed faces: at seednode, else the seed element's face. */
static void vis_Connect_RegionSeed(vis_Connect* c, vis_ConnectRegion* r, vis_Group* source, vis_Group* dest)
{
    const vis_ConnectGroupParam* g = &c->grp;
    if (g->seednode) {
        int num = 0;
        vis_ConnectNodeElem(c, g->seednode, &num, r->w.elems);
        for (int k = 0; k < num; ++k) vis_Connect_RegionFaces(c, r, source, dest, r->w.elems[k], g->seednode, 0);
    }
    if (r->top == 0 && g->seedelem) {
        vis_Connect_RegionPush(r, dest, g->seedelem, r->enttype == SYS_FACE ? g->seedface : g->seededge);
    }
}

/* Takes the entity on top of the stack and crosses its bounds. */
static void vis_Connect_RegionStep(vis_Connect* c, vis_ConnectRegion* r, vis_Group* source, vis_Group* dest)
{
    int id = 0, no = 0;
    --r->top;
    vsy_IntVecGet(r->elem, r->top, &id);
    vsy_IntVecGet(r->face, r->top, &no);
    if (r->enttype == SYS_EDGE) {
        int ends[2];
        if (!vis_Connect_GroupEdgeEnds(c, id, no, ends)) return;
        vis_Connect_RegionNode(c, r, source, dest, ends[0]);
        vis_Connect_RegionNode(c, r, source, dest, ends[1]);
        return;
    }
    int edges[VIS_ELEM_MAXEDGE];
    int ne = vis_Connect_GroupFaceEdges(c, id, no, edges);
    for (int k = 0; k < ne; ++k) vis_Connect_RegionCross(c, r, source, dest, id, edges[k]);
}

void vis_Connect_GroupRegion(vis_Connect* c, int enttype, vis_Group* source, vis_Group* dest)
{
    vis_ConnectRegion r;
    r.enttype = enttype;
    r.name = enttype == SYS_FACE ? "vis_ConnectFaceGroup" : "vis_ConnectEdgeGroup";
    if (!vis_Connect_RegionSeedOk(c, &r, source)) return;
    r.top = 0;
    r.failed = 0;
    r.mark = vis_GroupNew();
    r.elem = vsy_IntVecNew();
    r.face = vsy_IntVecNew();
    int ok = vis_Connect_GroupWorkAlloc(c, r.name, &r.w);
    if (r.mark) vis_GroupDef(r.mark, c->numelem, SYS_ELEM, enttype);
    if (ok && r.mark && r.elem && r.face && !vis_Connect_Poll(c, vis_GroupError(r.mark))) {
        vsy_IntVecSetParami(r.elem, VSY_INTVEC_INDEXZERO, 1);
        vsy_IntVecSetParami(r.face, VSY_INTVEC_INDEXZERO, 1);
        vis_Connect_RegionSeed(c, &r, source, dest);
        while (r.top > 0 && !r.failed) vis_Connect_RegionStep(c, &r, source, dest);
        if (r.failed) c->ierr = SYS_ERROR_MEMORY;
    } else if (ok && (!r.mark || !r.elem || !r.face)) {
        vsy_ErrorRecord(&c->ierr, r.name, SYS_ERROR_MEMORY, "%s", "Creation Failure");
    }
    if (ok) vis_Connect_GroupWorkFree(&r.w);
    vis_GroupDelete(r.mark);
    vsy_IntVecDelete(r.elem);
    vsy_IntVecDelete(r.face);
}
