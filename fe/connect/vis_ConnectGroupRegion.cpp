/* vis_ConnectGroupRegion: the region of element faces grown from a seed until it meets the
 * feature edges of the seed group (FaceGroup oper 23).
 *
 * The seed is every source face at seednode, or, when there is none or no seednode, face
 * seedface of seedelem. From each face taken, the region crosses each of its edges that is not
 * a feature: the direction ends when the edge, on this element or on any element sharing it, is
 * flagged in the seed group; otherwise every source face that holds the edge's two end nodes,
 * on this element or a neighbour, joins the region. A stack of element and face numbers in two
 * vsy_IntVecs, and a mark per face, drive the walk.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"
#include "vsy_Error.h"
#include "vsy_IntVec.h"

static const char* kName = "vis_ConnectFaceGroup";

typedef struct vis_ConnectRegion {
    vis_ConnectGroupWork w;
    vis_Group* mark;  /* faces already in the region */
    vsy_IntVec* elem; /* stack: element */
    vsy_IntVec* face; /* stack: face number */
    int top;
} vis_ConnectRegion;

/* Marks a face in both groups and pushes it. */
static void vis_Connect_RegionPush(vis_ConnectRegion* r, vis_Group* dest, int id, int no)
{
    vis_GroupSetEntFlag(r->mark, id, no, 1);
    vis_GroupSetEntFlag(dest, id, no, 1);
    vsy_IntVecSet(r->elem, r->top, id);
    vsy_IntVecSet(r->face, r->top, no);
    ++r->top;
}

/* The seed checks; 0 after a report. */
static int vis_Connect_RegionSeedOk(vis_Connect* c, vis_Group* source)
{
    const vis_ConnectGroupParam* g = &c->grp;
    int n = 0;
    if (!g->seedgroup) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_OPERATION, "%s", "Seed Group not defined");
        return 0;
    }
    if (vis_Connect_GroupKind(g->seedgroup, &n) != VIS_CGK_EDGE || n != c->numelem) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_VALUE, "%s", "Improper seed Group");
        return 0;
    }
    if (g->seednode == 0 && g->seedelem == 0) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_OPERATION, "%s", "Seed node and/or element not defined");
        return 0;
    }
    if (g->seedelem == 0) return 1;
    int nface = 0;
    vis_ConnectElemNum(c, SYS_FACE, g->seedelem, &nface);
    if (g->seedface < 1 || g->seedface > nface) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_OPERATION, "%s", "Seed element face out of range");
        return 0;
    }
    if (!vis_Connect_GroupFlag(source, g->seedelem, g->seedface)) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_OPERATION, "%s", "Seed element face not in source group");
        return 0;
    }
    return 1;
}

/* Pushes the unmarked source faces of element id that hold nodes a and b (b 0: node a only). */
static void vis_Connect_RegionFaces(vis_Connect* c, vis_ConnectRegion* r, vis_Group* source, vis_Group* dest,
                                    int id, int a, int b)
{
    int nface = 0;
    vis_ConnectElemNum(c, SYS_FACE, id, &nface);
    for (int no = 1; no <= nface; ++no) {
        if (!vis_Connect_GroupFlag(source, id, no) || vis_Connect_GroupFlag(r->mark, id, no)) continue;
        if (!vis_Connect_GroupFaceHolds(c, id, no, a, b ? b : a, &r->w)) continue;
        vis_Connect_RegionPush(r, dest, id, no);
    }
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
    if (r->top == 0 && g->seedelem) vis_Connect_RegionPush(r, dest, g->seedelem, g->seedface);
}

void vis_Connect_GroupRegion(vis_Connect* c, vis_Group* source, vis_Group* dest)
{
    if (!vis_Connect_RegionSeedOk(c, source)) return;
    vis_ConnectRegion r;
    r.top = 0;
    r.mark = vis_GroupNew();
    r.elem = vsy_IntVecNew();
    r.face = vsy_IntVecNew();
    int ok = vis_Connect_GroupWorkAlloc(c, kName, &r.w);
    if (ok && r.mark && r.elem && r.face) {
        vis_GroupDef(r.mark, c->numelem, SYS_ELEM, SYS_FACE);
        vsy_IntVecSetParami(r.elem, VSY_INTVEC_INDEXZERO, 1);
        vsy_IntVecSetParami(r.face, VSY_INTVEC_INDEXZERO, 1);
        vis_Connect_RegionSeed(c, &r, source, dest);
        while (r.top > 0) {
            int id = 0, no = 0, edges[VIS_ELEM_MAXEDGE];
            --r.top;
            vsy_IntVecGet(r.elem, r.top, &id);
            vsy_IntVecGet(r.face, r.top, &no);
            int ne = vis_Connect_GroupFaceEdges(c, id, no, edges);
            for (int k = 0; k < ne; ++k) vis_Connect_RegionCross(c, &r, source, dest, id, edges[k]);
        }
        vis_Connect_Poll(c, vis_GroupError(r.mark));
    } else if (ok) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_MEMORY, "%s", "Creation Failure");
    }
    if (ok) vis_Connect_GroupWorkFree(&r.w);
    vis_GroupDelete(r.mark);
    vsy_IntVecDelete(r.elem);
    vsy_IntVecDelete(r.face);
}
