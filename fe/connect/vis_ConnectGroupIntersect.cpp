/* vis_ConnectGroupIntersect: elements that intersect another element (ElemGroup oper 31).
 *
 * Every element of the source goes into a box tree with its bounding box, the tree spanning the
 * extent of the mesh and searching with `tolerance`. Each edge of an element not yet selected
 * asks the tree for the elements near its own bounding box; each face of such a candidate that
 * shares no corner with the edge is cut into its first triangle (corners 1, 2, 3) and, for four
 * corners or more, the second (corners 1, 3, 4), and the edge is tested against them with the
 * segment and triangle test at the tolerance. A hit selects both elements and the edge goes on
 * with the next candidate. Elements that touch through a shared node are thus never tested
 * against each other there.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_ElemGeom.h"
#include "vis_Group.h"
#include "vsy_ADTree.h"
#include "vsy_Error.h"

static const char* kName = "vis_ConnectElemGroup";

/* Fills the tree with the bounding boxes of the elements of the source. */
static void vis_Connect_TreeFill(vis_Connect* c, vis_Group* source, vsy_ADTree* tree, double* xyz,
                                 vis_ConnectGroupWork* w)
{
    for (int id = 1; id <= c->numelem; ++id) {
        if (!vis_Connect_GroupDefined(c, id) || !vis_Connect_GroupHas(source, id)) continue;
        int n = 0;
        vis_ConnectElemNode(c, id, &n, w->nodes);
        if (n < 1) continue;
        vis_ConnectCoordsdv(c, n, w->nodes, xyz);
        vsy_ADTreeInsertPoints(tree, id, n, xyz);
    }
}

/* Whether the segment seg (two points) meets face no of element cand, which shares no corner
 * with the segment's end nodes. */
static int vis_Connect_EdgeMeetsFace(vis_Connect* c, int cand, int no, const int* ends, const double* seg,
                                     vis_ConnectGroupWork* w)
{
    int n = 0, *pos = w->nodes, *corner = w->nodes2;
    vis_ConnectElemCorn(c, SYS_FACE, cand, no, &n, pos);
    if (n < 3) return 0;
    for (int k = 0; k < n; ++k) {
        vis_ConnectIndElemNode(c, cand, pos[k] - 1, &corner[k]);
        if (corner[k] == ends[0] || corner[k] == ends[1]) return 0;
    }
    double tol2 = (double)c->grp.tolerance * (double)c->grp.tolerance;
    const int tris[2][3] = {{0, 1, 2}, {0, 2, 3}};
    for (int t = 0; t < (n >= 4 ? 2 : 1); ++t) {
        double tri[9];
        int ids[3] = {corner[tris[t][0]], corner[tris[t][1]], corner[tris[t][2]]};
        vis_ConnectCoordsdv(c, 3, ids, tri);
        int flag = 0;
        vis_ElemSegTri(tri, seg, tol2, &flag);
        if (flag) return 1;
    }
    return 0;
}

/* Tests every edge of element id against the candidates the tree gives. */
static void vis_Connect_EdgeSearch(vis_Connect* c, vis_Group* dest, vsy_ADTree* tree, int id,
                                   vis_ConnectGroupWork* w)
{
    int nedge = 0;
    vis_ConnectElemNum(c, SYS_EDGE, id, &nedge);
    for (int e = 1; e <= nedge; ++e) {
        int ends[2];
        if (!vis_Connect_GroupEdgeEnds(c, id, e, ends)) continue;
        double seg[6], lo[3], hi[3];
        vis_ConnectCoordsdv(c, 2, ends, seg);
        for (int a = 0; a < 3; ++a) {
            lo[a] = seg[a] < seg[a + 3] ? seg[a] : seg[a + 3];
            hi[a] = seg[a] < seg[a + 3] ? seg[a + 3] : seg[a];
        }
        vsy_ADTreeSearchExtent(tree, lo, hi);
        for (int cand = 0;;) {
            vsy_ADTreeNextHit(tree, &cand);
            if (cand == 0) break;
            if (cand == id || vis_Connect_GroupFlag(dest, cand, 1)) continue;
            int nface = 0;
            vis_ConnectElemNum(c, SYS_FACE, cand, &nface);
            for (int f = 1; f <= nface; ++f) {
                if (!vis_Connect_EdgeMeetsFace(c, cand, f, ends, seg, w)) continue;
                vis_GroupSetIndex(dest, id, 1);
                vis_GroupSetIndex(dest, cand, 1);
                break;
            }
        }
    }
}

void vis_Connect_GroupIntersect(vis_Connect* c, vis_Group* source, vis_Group* dest)
{
    if (c->numelem == 0) return;
    vis_ConnectGroupWork w;
    if (!vis_Connect_GroupWorkAlloc(c, kName, &w)) return;
    int maxnode = 0;
    vis_ConnectMaxElemNode(c, &maxnode);
    double* xyz = (double*)vsy_Malloc(sizeof(double) * 3 * (size_t)(maxnode + 1));
    vsy_ADTree* tree = vsy_ADTreeNew();
    double ext[6] = {0, 0, 0, 0, 0, 0};
    vis_ConnectExtentdv(c, nullptr, ext);
    if (tree) vsy_ADTreeDef(tree, VSY_ADTREE_EXTENT, c->numelem, ext, ext + 3);
    if (!xyz || !tree || vsy_ADTreeError(tree)) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_MEMORY, "%s", "Malloc vec");
    } else {
        vsy_DataTableSetParamd(tree, VSY_ADTREE_TOL, (double)c->grp.tolerance);
        vis_Connect_TreeFill(c, source, tree, xyz, &w);
        for (int id = 1; id <= c->numelem; ++id) {
            if (!vis_Connect_GroupDefined(c, id) || !vis_Connect_GroupHas(source, id)) continue;
            if (vis_Connect_GroupFlag(dest, id, 1)) continue;
            vis_Connect_EdgeSearch(c, dest, tree, id, &w);
        }
        vis_Connect_Poll(c, vsy_ADTreeError(tree));
    }
    vsy_ADTreeDelete(tree);
    vsy_Free(xyz);
    vis_Connect_GroupWorkFree(&w);
}
