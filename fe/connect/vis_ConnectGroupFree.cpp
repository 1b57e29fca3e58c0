/* vis_ConnectGroupFree: the quick path of free faces and of every face once (FaceGroup opers 1
 * and 0) over the serendipity solids of a static connect with its kernel.
 *
 * The rule is that of the general scan: a face is free when no other element of the source
 * holds all its corners, and taken once on the lowest id of those that hold it. What makes it
 * quick: the corners come from the face table and the element's chunk, the rows straight from
 * the table, and the candidates from a merge of the rows of just two corners that do not follow
 * each other on the face (opposite corners of a quadrilateral), each candidate then looked up in
 * the rows of the remaining corners. Rows of neighbouring nodes lie close together, so the walk
 * stays in memory the previous elements have just read; the lists of the neighbours are never
 * read. For free faces the first holder ends the merge. Elements of other forms (shells,
 * Lagrange solids, polyhedra) go through the general test.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"

/* Whether element id is a serendipity solid, the forms whose corners lead their list. */
static int vis_Connect_QuickSolid(const vis_Connect* c, int id)
{
    int shape = c->shape[id];
    return shape >= SYS_SHAPE_TET && shape <= SYS_SHAPE_HEX && (c->maxj[id] & 0xFFFF) == 0 && c->maxk[id] == 0;
}

/* Whether element e lies in the row of node. */
static int vis_Connect_RowHas(const vis_Connect* c, int node, int e)
{
    const int* row = c->nodeelem + c->nodeelempntr[node];
    int len = c->nodeelemsize[node];
    for (int i = 0; i < len && row[i] <= e; ++i) {
        if (row[i] == e) return 1;
    }
    return 0;
}

/* The elements other than id in the source that hold all n corners, into out; their count.
 * With `first`, the search ends at the first one. */
static int vis_Connect_Holders(const vis_Connect* c, vis_Group* source, int id, int n, const int* corner, int first,
                               int* out)
{
    int other = n == 4 ? 2 : 1;
    const int* r0 = c->nodeelem + c->nodeelempntr[corner[0]];
    const int* r1 = c->nodeelem + c->nodeelempntr[corner[other]];
    int l0 = c->nodeelemsize[corner[0]], l1 = c->nodeelemsize[corner[other]];
    int count = 0;
    for (int i = 0, j = 0; i < l0 && j < l1;) {
        if (r0[i] < r1[j]) {
            ++i;
            continue;
        }
        if (r1[j] < r0[i]) {
            ++j;
            continue;
        }
        int e = r0[i];
        ++i;
        ++j;
        if (e == id || (source && !vis_Connect_GroupHas(source, e))) continue;
        int all = 1;
        for (int b = 1; b < n && all; ++b) all = b == other || vis_Connect_RowHas(c, corner[b], e);
        if (!all) continue;
        out[count++] = e;
        if (first) break;
    }
    return count;
}

/* The faces of solid id. */
static void vis_Connect_SolidFree(const vis_Connect* c, const vis_Connect_SolidFaces* t, int oper, vis_Group* source,
                                  vis_Group* dest, int id, int* holders)
{
    int s = c->shape[id] - SYS_SHAPE_TET;
    const int* list = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[id];
    for (int f = 0; f < t->numface[s]; ++f) {
        int n = t->numcorner[s][f], corner[4];
        for (int a = 0; a < n; ++a) corner[a] = list[t->corner[s][f][a]];
        int num = vis_Connect_Holders(c, source, id, n, corner, oper == VIS_CGROUP_FREE, holders);
        int lowest = 1;
        for (int k = 0; k < num && lowest; ++k) lowest = holders[k] > id;
        if (num == 0 || (oper == VIS_CGROUP_EVERYONCE && lowest)) vis_GroupSetEntFlag(dest, id, f + 1, 1);
    }
}

int vis_Connect_GroupFreeFaces(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest,
                               int (*general)(vis_Connect*, int, vis_Group*, int, int, vis_ConnectGroupWork*),
                               vis_ConnectGroupWork* w)
{
    if (c->mode != 0 || c->gridfun || c->exactface || !c->nodeelem) return 0;
    if (oper != VIS_CGROUP_FREE && oper != VIS_CGROUP_EVERYONCE) return 0;
    const vis_Connect_SolidFaces* t = vis_Connect_Faces();
    for (int id = 1; id <= c->numelem; ++id) {
        if (c->shape[id] == 255 || (source && !vis_Connect_GroupHas(source, id))) continue;
        if (vis_Connect_QuickSolid(c, id)) {
            vis_Connect_SolidFree(c, t, oper, source, dest, id, w->elems);
            continue;
        }
        int n = 0;
        vis_ConnectElemNum(c, SYS_FACE, id, &n);
        for (int no = 1; no <= n; ++no) {
            if (general(c, oper, source, id, no, w)) vis_GroupSetEntFlag(dest, id, no, 1);
        }
    }
    return 1;
}
