/* vis_ConnectGroupFree: the quick path of free faces and of every face once (FaceGroup opers 1
 * and 0) over the serendipity solids of a static connect with its kernel.
 *
 * The rule is that of the general scan: a face is free when no other element of the source
 * holds all its corners, and taken once on the lowest id of those that hold it. Two things make
 * it quick. The sharing elements come from a merge of the sorted rows of two opposite corners,
 * read straight from the table, each candidate then checked against all corners (a solid by
 * its own list, other forms by the rows). And each face is asked once, not once per element:
 * when element id
 * finds a solid e above it holding the same corners, it marks e's matching face as held by a
 * lower id, so that e takes the answer without a merge of its own. Elements of other forms
 * (shells, higher-order lattices, polyhedra) go through the general test, and a face they
 * share with a solid is found from their side as before.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"
#include "vsy_Error.h"

static const char* kName = "vis_ConnectFaceGroup";

/* The solid table index of element id (shape - SYS_SHAPE_TET), or -1 for another form. */
static int vis_Connect_SolidIndex(const vis_Connect* c, int id)
{
    int shape = c->shape[id];
    if (shape < SYS_SHAPE_TET || shape > SYS_SHAPE_HEX) return -1;
    if ((c->maxj[id] & 0xFFFF) != 0 || c->maxk[id] != 0) return -1;
    return shape - SYS_SHAPE_TET;
}

/* Corner counts of the four solids and, per face, the mask of its corner positions. */
typedef struct vis_ConnectFaceMasks {
    int ncorner[4];
    unsigned mask[4][6];
} vis_ConnectFaceMasks;

/* What one run shares: the connect, the source, the marks and the two tables, read once. */
typedef struct vis_ConnectFreeRun {
    const vis_Connect* c;
    vis_Group* source;
    unsigned char* held;  /* per element: faces held by a lower id */
    const vis_Connect_SolidFaces* faces;
    const vis_ConnectFaceMasks* masks;
} vis_ConnectFreeRun;

static const vis_ConnectFaceMasks* vis_Connect_FaceMasks(void)
{
    static const vis_ConnectFaceMasks masks = [] {
        vis_ConnectFaceMasks m = {{4, 5, 6, 8}, {}};
        const vis_Connect_SolidFaces* t = vis_Connect_Faces();
        for (int s = 0; s < 4; ++s)
            for (int f = 0; f < t->numface[s]; ++f)
                for (int a = 0; a < t->numcorner[s][f]; ++a) m.mask[s][f] |= 1u << t->corner[s][f][a];
        return m;
    }();
    return &masks;
}

/* Whether node lies in the row of another node. */
static int vis_Connect_RowHas(const vis_Connect* c, int node, int e)
{
    const int* row = c->nodeelem + c->nodeelempntr[node];
    int len = c->nodeelemsize[node];
    for (int i = 0; i < len && row[i] <= e; ++i) {
        if (row[i] == e) return 1;
    }
    return 0;
}

/* Whether element e holds all n corners; for a solid, *pmask gets the positions among its
 * corners that hold them. */
static int vis_Connect_HoldsAll(const vis_ConnectFreeRun* r, int e, int n, const int* corner, unsigned* pmask)
{
    const vis_Connect* c = r->c;
    int s = vis_Connect_SolidIndex(c, e);
    *pmask = 0;
    if (s < 0) {
        for (int b = 1; b < n; ++b) {
            if (!vis_Connect_RowHas(c, corner[b], e)) return 0;
        }
        return 1;
    }
    const int* list = c->elnode[(e - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[e];
    unsigned found = 0, pm = 0;
    int np = r->masks->ncorner[s];
    for (int p = 0; p < np; ++p) {
        for (int b = 0; b < n; ++b) {
            if (corner[b] != list[p]) continue;
            found |= 1u << b;
            pm |= 1u << p;
        }
    }
    *pmask = pm;
    return found == (1u << n) - 1u;
}

/* The elements other than id that hold the n corners, in the source, into out; their count.
 * The candidates are the elements of the rows of two corners that do not follow each other
 * on the face (opposite corners of a quadrilateral), merged; each is then checked whole. A
 * solid found above id gets its matching face marked as held by a lower id. */
static int vis_Connect_Holders(const vis_ConnectFreeRun* r, int id, int n, const int* corner, int* out)
{
    const vis_Connect* c = r->c;
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
        unsigned pmask = 0;
        if (e == id || (r->source && !vis_Connect_GroupHas(r->source, e)) || !vis_Connect_HoldsAll(r, e, n, corner, &pmask)) {
            continue;
        }
        out[count++] = e;
        if (e < id || !pmask) continue;
        int s = vis_Connect_SolidIndex(c, e);
        for (int f = 0; f < 6; ++f) {
            if (r->masks->mask[s][f] != pmask) continue;
            r->held[e] |= (unsigned char)(1u << f);
            break;
        }
    }
    return count;
}

/* The faces of solid id with table index s. */
static void vis_Connect_SolidFree(const vis_ConnectFreeRun* r, int oper, vis_Group* dest, int id, int s, int* holders)
{
    const vis_Connect* c = r->c;
    const vis_Connect_SolidFaces* t = r->faces;
    const int* list = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[id];
    for (int f = 0; f < t->numface[s]; ++f) {
        if (r->held[id] & (1u << f)) continue; /* shared with a lower id: neither free nor taken */
        int n = t->numcorner[s][f], corner[4];
        for (int a = 0; a < n; ++a) corner[a] = list[t->corner[s][f][a]];
        int num = vis_Connect_Holders(r, id, n, corner, holders);
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
    unsigned char* held = (unsigned char*)vsy_Malloc((size_t)c->numelem + 1);
    if (!held) {
        vsy_ErrorRecord(&c->ierr, kName, SYS_ERROR_MEMORY, "%s", "Malloc vec");
        return 1;
    }
    for (int id = 0; id <= c->numelem; ++id) held[id] = 0;
    vis_ConnectFreeRun run = {c, source, held, vis_Connect_Faces(), vis_Connect_FaceMasks()};
    for (int id = 1; id <= c->numelem; ++id) {
        if (c->shape[id] == 255 || (source && !vis_Connect_GroupHas(source, id))) continue;
        int s = vis_Connect_SolidIndex(c, id);
        if (s >= 0) {
            vis_Connect_SolidFree(&run, oper, dest, id, s, w->elems);
            continue;
        }
        int n = 0;
        vis_ConnectElemNum(c, SYS_FACE, id, &n);
        for (int no = 1; no <= n; ++no) {
            if (general(c, oper, source, id, no, w)) vis_GroupSetEntFlag(dest, id, no, 1);
        }
    }
    vsy_Free(held);
    return 1;
}
