/* vis_ConnectKernel: the node-to-element table and the queries on it; see vis_ConnectKernel.h. */
#include "vis_ConnectKernel.h"
#include "vis_ElemDat.h"
#include "vis_ConnectGroupInternal.h"
#include "vis_ConnectInternal.h"

#include "vis_Assoc.h"
#include "vis_ElemGeom.h"
#include "vsy_ChunkList.h"
#include "vsy_Error.h"

#include <climits>
#include <cstring>

/* Most distinct edges vis_Connect_PolyEdge keeps. */
#define VIS_CONNECT_POLYEDGES 4096

static int vis_Connect_Shape(const vis_Connect* c, int id)
{
    return c->shape[id] == 255 ? -1 : c->shape[id];
}

/* ---------------------------------------------------------------------------------------- */
/* The kernel */

/* Step 3, without a front: cuts the per-element arrays, the chunks of node lists and every
 * association down to what is used. Returns 0 after a failure (recorded). */
static int vis_Connect_KernelCompact(vis_Connect* c)
{
    int ierr = 0;
    if (c->elemalloc != c->numelem) {
        vis_Connect_ReallocTopology(c, c->numelem, &ierr);
        if (ierr) return 0;
    }
    for (int ch = 0; ch < c->numchunk && c->elnodecap != c->elnodeused; ++ch) {
        if (!c->elnode[ch] || c->chunkcap[ch] == c->chunkused[ch]) continue;
        vis_Connect_ReallocElemNode(c, c->chunkused[ch], ch, &ierr);
        if (ierr) return 0;
    }
    for (int t = 0; t <= VIS_CONNECT_MAXASSOC; ++t) {
        vis_Assoc* a[2] = {c->nodeassoc[t], c->elemassoc[t]};
        for (int s = 0; s < 2; ++s) {
            if (!a[s]) continue;
            vis_AssocCompact(a[s]);
            if (vis_Connect_Poll(c, vis_AssocError(a[s]))) return 0;
        }
    }
    return 1;
}

/* Number of rings of a polyhedron's list: a ring ends where its first node comes back. */
static int vis_Connect_RingCount(const int* list, int num)
{
    int rings = 0, open = 1, start = 0;
    for (int k = 0; k < num; ++k) {
        if (open) {
            start = list[k];
            open = 0;
            rings++;
        } else if (list[k] == start) {
            open = 1;
        }
    }
    return rings;
}

/* First pass: the length of every row into nodeelemsize, the sum of all list lengths into
 * *total (duplicates included) and the polyhedron index length into *polytotal. icount[node]
 * holds the last element that counted the node, so a node named twice by one element counts
 * once, with no clearing between elements. Returns 0 after reporting a node outside 1 to n. */
static int vis_Connect_KernelCount(vis_Connect* c, int n, int* icount, int64_t* total, int64_t* polytotal)
{
    int* size = c->nodeelemsize;
    const int numelem = c->numelem;
    int64_t sum = 0, poly = 0; /* locals: the list calls could otherwise touch *total */
    for (int id = 1; id <= numelem; ++id) {
        int num;
        const int* list = vis_Connect_List(c, id, &num);
        sum += num;
        for (int k = 0; k < num; ++k) {
            int node = list[k];
            if (node < 1 || node > n) {
                vsy_ErrorRecord(&c->ierr, "vis_ConnectKernel", SYS_ERROR_OPERATION, "elem= %d, p->elnoix[%d]= %d",
                                id, k, node);
                return 0;
            }
            if (icount[node] != id) {
                size[node]++;
                icount[node] = id;
            }
        }
        /* One entry per ring, counted from the list itself, and one for the end. */
        if (c->shape[id] == SYS_SHAPE_POLYHED) poly += vis_Connect_RingCount(list, num) + 1;
    }
    *total = sum;
    *polytotal = poly;
    return 1;
}

/* Allocates the rows and the polyhedron index and turns the row lengths into row starts,
 * clearing nodeelemsize and icount for the second pass. Returns 0 after a failure (recorded). */
static int vis_Connect_KernelStarts(vis_Connect* c, int n, int* icount, int64_t total, int64_t polytotal)
{
    static const char* name = "vis_ConnectKernel";
    c->nodeelem = (int*)vsy_Malloc(((size_t)total + VIS_CONNECT_ROWPAD) * sizeof(int));
    if (!c->nodeelem) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "Malloc nodeelem");
        return 0;
    }
    c->nodeelempntr = (int64_t*)vsy_Malloc(((size_t)n + 2) * sizeof(int64_t));
    if (!c->nodeelempntr) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "Malloc nodeelempntr");
        return 0;
    }
    int* size = c->nodeelemsize;
    int64_t* pntr = c->nodeelempntr;
    c->maxnodeelem = 0;
    pntr[0] = 0;
    pntr[1] = 0;
    for (int i = 1; i <= n; ++i) {
        if (size[i] > c->maxnodeelem) c->maxnodeelem = size[i];
        pntr[i + 1] = pntr[i] + size[i];
        size[i] = 0;
        icount[i] = 0;
    }
    /* The slack left by repeated nodes and the pad, zeroed: no element has id 0. */
    memset(c->nodeelem + pntr[n + 1], 0, ((size_t)(total - pntr[n + 1]) + VIS_CONNECT_ROWPAD) * sizeof(int));
    if (polytotal == 0) return 1;
    c->polyfaceix = (short*)vsy_Malloc((size_t)polytotal * sizeof(short));
    c->polyfacepntr = (int64_t*)vsy_Malloc(((size_t)c->numelem + 2) * sizeof(int64_t));
    if (!c->polyfaceix || !c->polyfacepntr) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "Malloc polyfaceix");
        return 0;
    }
    c->polyfacepntr[0] = 0;
    c->polyfacepntr[1] = 0;
    return 1;
}

/* Ring starts of polyhedron id, then its list length, from polyfaceix[pp] on; returns the next
 * free entry. */
static int64_t vis_Connect_KernelRings(vis_Connect* c, const int* list, int num, int64_t pp)
{
    int open = 1, start = 0;
    for (int k = 0; k < num; ++k) {
        if (open) {
            start = list[k];
            open = 0;
            c->polyfaceix[pp++] = (short)k;
        } else if (list[k] == start) {
            open = 1;
        }
    }
    c->polyfaceix[pp++] = (short)num;
    return pp;
}

/* Second pass: fills the rows. Ids ascend, so every row comes out sorted. */
static void vis_Connect_KernelFill(vis_Connect* c, int* icount)
{
    int* ne = c->nodeelem;
    int* size = c->nodeelemsize;
    const int64_t* pntr = c->nodeelempntr;
    int64_t* polypntr = c->polyfacepntr;
    const int numelem = c->numelem;
    int64_t pp = 0;
    for (int id = 1; id <= numelem; ++id) {
        int num;
        const int* list = vis_Connect_List(c, id, &num);
        for (int k = 0; k < num; ++k) {
            int node = list[k];
            if (icount[node] != id) {
                ne[pntr[node] + size[node]] = id;
                size[node]++;
                icount[node] = id;
            }
        }
        if (!polypntr) continue;
        if (c->shape[id] == SYS_SHAPE_POLYHED) pp = vis_Connect_KernelRings(c, list, num, pp);
        polypntr[id + 1] = pp;
    }
}

/* Largest node id in any element list: the node count when Def left it open. */
static int vis_Connect_KernelNodes(vis_Connect* c)
{
    if (c->numnode != 0) return c->numnode;
    int n = 0;
    for (int id = 1; id <= c->numelem; ++id) {
        int num;
        const int* list = vis_Connect_List(c, id, &num);
        for (int k = 0; k < num; ++k)
            if (list[k] > n) n = list[k];
    }
    return n;
}

void vis_ConnectKernel(vis_Connect* c)
{
    static const char* name = "vis_ConnectKernel";
    if (vis_Connect_Null(c, name)) return;
    if (c->numelem == 0 || c->mode == 1 || !c->shape) return;
    int n = vis_Connect_KernelNodes(c);
    if (n == 0) return;
    if (!c->gridfun && !vis_Connect_KernelCompact(c)) return;
    if (c->nodeelem) return;
    if (!vis_Connect_Scratch(c)) return;

    c->nodeelemsize = (int*)vsy_Malloc(((size_t)n + 1) * sizeof(int));
    int* icount = c->nodeelemsize ? (int*)vsy_Malloc(((size_t)n + 1) * sizeof(int)) : nullptr;
    if (!icount) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "%s", c->nodeelemsize ? "Malloc icount" : "Malloc nodeelemsize");
        vis_Connect_DropKernel(c);
        return;
    }
    memset(c->nodeelemsize, 0, ((size_t)n + 1) * sizeof(int));
    memset(icount, 0, ((size_t)n + 1) * sizeof(int));
    int64_t total, polytotal;
    /* A failure releases every table, so that a later call starts afresh rather than finding a
     * half-built one. */
    if (!vis_Connect_KernelCount(c, n, icount, &total, &polytotal) ||
        !vis_Connect_KernelStarts(c, n, icount, total, polytotal)) {
        vsy_Free(icount);
        vis_Connect_DropKernel(c);
        return;
    }
    vis_Connect_KernelFill(c, icount);
    c->kernelnode = n;
    vsy_Free(icount);
}

/* ---------------------------------------------------------------------------------------- */
/* Rows */

static int vis_Connect_HasTable(const vis_Connect* c)
{
    return c->mode == 1 ? c->nodelists != nullptr : c->nodeelem != nullptr;
}

static int vis_Connect_TableNodes(const vis_Connect* c)
{
    return c->mode == 1 ? c->numnode : c->kernelnode;
}

/* Grows the node scratch to n entries. */
static int vis_Connect_NodeScratch(vis_Connect* c, int n)
{
    return vis_Connect_GrowScratch(c, "vis_Connect_NodeScratch", &c->nodescratch, &c->nodescratchcap, n);
}

/* Row of node: static mode a pointer into the table; dynamic mode a copy in nodescratch. */
static const int* vis_Connect_Row(vis_Connect* c, int node, int* num)
{
    *num = 0;
    if (node < 1 || node > vis_Connect_TableNodes(c)) return nullptr;
    if (c->mode == 1) {
        int n;
        vsy_ChunkListNum(c->nodelists, node, &n);
        if (n == 0 || !vis_Connect_NodeScratch(c, n)) return nullptr;
        vsy_ChunkListGet(c->nodelists, node, n, num, c->nodescratch);
        return c->nodescratch;
    }
    *num = c->nodeelemsize[node];
    return c->nodeelem + c->nodeelempntr[node];
}

/* Whether elem is in the row of node. */
static int vis_Connect_InRow(vis_Connect* c, int node, int elem)
{
    if (node < 1 || node > vis_Connect_TableNodes(c)) return 0;
    if (c->mode == 1) {
        int n, v;
        vsy_ChunkListNum(c->nodelists, node, &n);
        for (int k = 0; k < n; ++k) {
            vsy_ChunkListEntry(c->nodelists, node, k, &v);
            if (v == elem) return 1;
            if (v > elem) return 0;
        }
        return 0;
    }
    const int* row = c->nodeelem + c->nodeelempntr[node];
    int lo = 0, hi = c->nodeelemsize[node] - 1;
    while (lo <= hi) {
        int mid = (lo + hi) >> 1;
        if (row[mid] == elem) return 1;
        if (row[mid] < elem) lo = mid + 1;
        else hi = mid - 1;
    }
    return 0;
}

void vis_ConnectMaxNodeElem(vis_Connect* c, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectMaxNodeElem")) return;
    if (GF_SET(c, VIS_GRIDFUN_MAXNODEELEM)) {
        GF_CALL(c, VIS_GRIDFUN_MAXNODEELEM, vis_GridFunMaxNodeElem_t)(c->gridfun->obj, num);
        return;
    }
    if (c->mode == 0 && !c->nodeelem) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectMaxNodeElem", SYS_ERROR_OPERATION, "ConnectKernel not called");
        return;
    }
    if (num) *num = c->maxnodeelem;
}

void vis_ConnectNumNodeElem(vis_Connect* c, int id, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectNumNodeElem")) return;
    if (GF_SET(c, VIS_GRIDFUN_NUMNODEELEM)) {
        GF_CALL(c, VIS_GRIDFUN_NUMNODEELEM, vis_GridFunNumNodeElem_t)(c->gridfun->obj, id, num);
        return;
    }
    if (c->mode == 0 && !c->nodeelem) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectNumNodeElem", SYS_ERROR_OPERATION, "ConnectKernel not called");
        return;
    }
    if (!num) return;
    *num = 0;
    if (id < 1 || id > vis_Connect_TableNodes(c)) return;
    if (c->mode == 1) vsy_ChunkListNum(c->nodelists, id, num);
    else *num = c->nodeelemsize[id];
}

void vis_ConnectNodeElem(vis_Connect* c, int id, int* num, int* elems)
{
    if (vis_Connect_Null(c, "vis_ConnectNodeElem")) return;
    if (GF_SET(c, VIS_GRIDFUN_NODEELEM)) {
        GF_CALL(c, VIS_GRIDFUN_NODEELEM, vis_GridFunNodeElem_t)(c->gridfun->obj, id, num, elems);
        return;
    }
    *num = 0;
    if (!vis_Connect_HasTable(c)) return;
    if (id < 1 || id > vis_Connect_TableNodes(c)) {
        vsy_ErrorRecord(nullptr, "vis_ConnectNodeElem", SYS_ERROR_VALUE, "id= %d", id);
        return;
    }
    int n;
    const int* row = vis_Connect_Row(c, id, &n);
    for (int k = 0; k < n; ++k) elems[k] = row[k];
    *num = n;
}

void vis_ConnectNodeNode(vis_Connect* c, int id, int* num, int* nodes)
{
    if (vis_Connect_Null(c, "vis_ConnectNodeNode")) return;
    if (GF_SET(c, VIS_GRIDFUN_NODENODE)) {
        GF_CALL(c, VIS_GRIDFUN_NODENODE, vis_GridFunNodeNode_t)(c->gridfun->obj, id, num, nodes);
        return;
    }
    *num = 0;
    if (!vis_Connect_HasTable(c)) return;
    if (id < 1 || id > vis_Connect_TableNodes(c)) {
        vsy_ErrorRecord(nullptr, "vis_ConnectNodeNode", SYS_ERROR_VALUE, "id= %d", id);
        return;
    }
    int nrow;
    vis_Connect_Row(c, id, &nrow);
    int count = 0;
    for (int r = 0; r < nrow; ++r) {
        /* The row is re-read each time: in dynamic mode the element list shares scratch. */
        int elem, nl;
        if (c->mode == 1) vsy_ChunkListEntry(c->nodelists, id, r, &elem);
        else elem = c->nodeelem[c->nodeelempntr[id] + r];
        const int* list = vis_Connect_List(c, elem, &nl);
        for (int k = 0; k < nl; ++k) {
            int node = list[k];
            if (node == id) continue;
            int seen = 0;
            for (int j = 0; j < count && !seen; ++j) seen = nodes[j] == node;
            if (!seen) nodes[count++] = node;
        }
    }
    *num = count;
}

void vis_ConnectNodeElemCommon(vis_Connect* c, int nnodes, const int* nodes, int* num, int* elems)
{
    if (vis_Connect_Null(c, "vis_ConnectNodeElemCommon")) return;
    if (GF_SET(c, VIS_GRIDFUN_NODEELEMCOMMON)) {
        GF_CALL(c, VIS_GRIDFUN_NODEELEMCOMMON, vis_GridFunNodeElemCommon_t)(c->gridfun->obj, nnodes, nodes, num,
                                                                           elems);
        return;
    }
    *num = 0;
    if (nnodes < 1 || !nodes || !vis_Connect_HasTable(c)) return;
    int n0;
    const int* row = vis_Connect_Row(c, nodes[0], &n0);
    int count = 0;
    for (int r = 0; r < n0; ++r) {
        int e = row[r];
        int all = 1;
        for (int j = 1; j < nnodes && all; ++j) all = vis_Connect_InRow(c, nodes[j], e);
        if (all) elems[count++] = e;
    }
    *num = count;
}

/* ---------------------------------------------------------------------------------------- */
/* Element matching */

/* Whether element e may be listed: a member of the group, or any element without one. */
static int vis_Connect_Member(vis_Group* group, int e)
{
    return !group || vis_Connect_GroupHas(group, e);
}

void vis_Connect_EdgeElems(vis_Connect* c, vis_Group* group, int id, const int* nodes, int* num, int* elems)
{
    *num = 0;
    int na, nb;
    if (c->mode == 0) {
        const int* a = vis_Connect_Row(c, nodes[0], &na);
        const int* b = vis_Connect_Row(c, nodes[1], &nb);
        int i = 0, j = 0, count = 0;
        while (i < na && j < nb) {
            if (a[i] < b[j]) ++i;
            else if (a[i] > b[j]) ++j;
            else {
                if (a[i] != id && vis_Connect_Member(group, a[i])) elems[count++] = a[i];
                ++i;
                ++j;
            }
        }
        *num = count;
        return;
    }
    const int* a = vis_Connect_Row(c, nodes[0], &na);
    vsy_ChunkListNum(c->nodelists, nodes[1], &nb);
    int count = 0, j = 0, v = 0;
    for (int i = 0; i < na; ++i) {
        while (j < nb) {
            vsy_ChunkListEntry(c->nodelists, nodes[1], j, &v);
            if (v >= a[i]) break;
            ++j;
        }
        if (j < nb && v == a[i] && a[i] != id && vis_Connect_Member(group, a[i])) elems[count++] = a[i];
    }
    *num = count;
}

/* Ring no (from 1) of polyhedron id: first position and length (closing repeat included).
 * Returns 0 when there is no such ring. */
static int vis_Connect_Ring(vis_Connect* c, int id, int no, const int* list, int num, int* first, int* len)
{
    if (no < 1) return 0;
    if (c->polyfaceix && c->polyfacepntr && c->mode == 0 && c->nodeelem) {
        int64_t p = c->polyfacepntr[id];
        int64_t rings = c->polyfacepntr[id + 1] - p - 1;
        if (no > rings) return 0;
        *first = c->polyfaceix[p + no - 1];
        *len = c->polyfaceix[p + no] - *first;
        return 1;
    }
    int open = 1, start = 0, ring = 0;
    for (int k = 0; k < num; ++k) {
        if (open) {
            start = list[k];
            open = 0;
            if (++ring == no) *first = k;
        } else if (list[k] == start) {
            open = 1;
            if (ring == no) {
                *len = k - *first + 1;
                return 1;
            }
        }
    }
    if (ring == no && !open) {
        *len = num - *first;
        return 1;
    }
    return 0;
}

/* Whether every corner of one face of element e (with ncorner corners) is among nodes. */
static int vis_Connect_ExactFace(vis_Connect* c, int e, int nnodes, const int* nodes)
{
    int shape = vis_Connect_Shape(c, e);
    int num;
    const int* list = vis_Connect_List(c, e, &num);
    int nface = 0;
    if (shape == SYS_SHAPE_POLYHED) {
        for (int f = 1;; ++f) {
            int first, len;
            if (!vis_Connect_Ring(c, e, f, list, num, &first, &len)) return 0;
            if (len - 1 != nnodes) continue;
            int ok = 1;
            for (int k = 0; k < len - 1 && ok; ++k) {
                int found = 0;
                for (int j = 0; j < nnodes && !found; ++j) found = nodes[j] == list[first + k];
                ok = found;
            }
            if (ok) return 1;
        }
    }
    vis_ElemFaceCount(shape, c->maxk[e], &nface);
    for (int f = 0; f < nface; ++f) {
        int pos[VIS_ELEM_MAXFACENODE];
        int nc = 0;
        if (shape == SYS_SHAPE_POLYGON) {
            if (num - 1 != nnodes) continue;
            int ok = 1;
            for (int k = 0; k < num - 1 && ok; ++k) {
                int found = 0;
                for (int j = 0; j < nnodes && !found; ++j) found = nodes[j] == list[k];
                ok = found;
            }
            if (ok) return 1;
            continue;
        }
        vis_ElemFaceCorners(shape, c->maxi[e], c->maxj[e], c->maxk[e], f, &nc, pos);
        if (nc != nnodes) continue;
        int ok = 1;
        for (int k = 0; k < nc && ok; ++k) {
            int found = 0;
            for (int j = 0; j < nnodes && !found; ++j) found = nodes[j] == list[pos[k]];
            ok = found;
        }
        if (ok) return 1;
    }
    return 0;
}

/* Whether element e's shape can hold a face of nnodes corners. */
static int vis_Connect_CanHold(vis_Connect* c, int e, int nnodes)
{
    switch (vis_Connect_Shape(c, e)) {
    case SYS_SHAPE_QUAD:
    case SYS_SHAPE_HEX: return nnodes == 4;
    case SYS_SHAPE_TRI:
    case SYS_SHAPE_TET: return nnodes == 3;
    case SYS_SHAPE_PYR:
    case SYS_SHAPE_WED: return nnodes == 3 || nnodes == 4;
    case SYS_SHAPE_POLYGON: return c->maxi[e] - 1 == nnodes;
    case SYS_SHAPE_POLYHED: return 1;
    default: return 0;
    }
}

void vis_Connect_FaceElems(vis_Connect* c, vis_Group* group, int id, int shape, int nnodes, const int* nodes,
                           int* num, int* elems)
{
    *num = 0;
    if (nnodes < 1) return;
    int count = 0;
    if (c->mode == 0 && nnodes <= 4 && shape != SYS_SHAPE_POLYGON) {
        /* Quick path: an advancing merge of the first row with the others. */
        const int* row[4];
        int len[4], at[4] = {0, 0, 0, 0};
        for (int j = 0; j < nnodes; ++j) row[j] = vis_Connect_Row(c, nodes[j], &len[j]);
        for (int i = 0; i < len[0]; ++i) {
            int e = row[0][i], all = 1, end = 0;
            for (int j = 1; j < nnodes && all; ++j) {
                while (at[j] < len[j] && row[j][at[j]] < e) ++at[j];
                if (at[j] == len[j]) end = 1;
                all = !end && row[j][at[j]] == e;
            }
            if (end) break;
            if (!all || e == id || !vis_Connect_Member(group, e)) continue;
            if (c->exactface && !vis_Connect_ExactFace(c, e, nnodes, nodes)) continue;
            elems[count++] = e;
        }
        *num = count;
        return;
    }
    /* General path: the first row, each candidate looked up in the other rows. The first row
     * is copied out: in dynamic mode it lives in the node scratch. */
    int n0;
    const int* r0 = vis_Connect_Row(c, nodes[0], &n0);
    for (int i = 0; i < n0; ++i) {
        int e = c->mode == 1 ? 0 : r0[i];
        if (c->mode == 1) vsy_ChunkListEntry(c->nodelists, nodes[0], i, &e);
        if (e == id || !vis_Connect_Member(group, e) || !vis_Connect_CanHold(c, e, nnodes)) continue;
        int all = 1;
        for (int j = 1; j < nnodes && all; ++j) all = vis_Connect_InRow(c, nodes[j], e);
        if (!all) continue;
        if (c->exactface && !vis_Connect_ExactFace(c, e, nnodes, nodes)) continue;
        elems[count++] = e;
    }
    *num = count;
}

int vis_Connect_PolyEdge(vis_Connect* c, int id, int no)
{
    int num;
    const int* list = vis_Connect_List(c, id, &num);
    if (no < 1 || num < 2) return -1;
    int kept[VIS_CONNECT_POLYEDGES];
    int nkept = 0;
    int start = list[0], opening = 0;
    for (int k = 1; k < num; ++k) {
        if (opening) {
            start = list[k];
            opening = 0;
            continue;
        }
        int p = list[k - 1], cur = list[k];
        int isnew = 1;
        for (int j = 0; j < nkept && isnew; ++j)
            isnew = !(list[kept[j]] == cur && list[kept[j] + 1] == p);
        if (isnew) {
            if (nkept == VIS_CONNECT_POLYEDGES) return -1;
            kept[nkept++] = k - 1;
            if (nkept == no) return k - 1;
        }
        if (cur == start) opening = 1;
    }
    return -1;
}

void vis_Connect_PolyFaceNodes(vis_Connect* c, int id, int no, int* num, int* nodes)
{
    int n, first, len;
    *num = 0;
    const int* list = vis_Connect_List(c, id, &n);
    if (!vis_Connect_Ring(c, id, no, list, n, &first, &len)) return;
    for (int k = 0; k < len; ++k) nodes[k] = list[first + k];
    *num = len;
}

void vis_Connect_PolyFaceCnn(vis_Connect* c, int id, int no, int* num, int* positions)
{
    int n, first, len;
    *num = 0;
    const int* list = vis_Connect_List(c, id, &n);
    if (!vis_Connect_Ring(c, id, no, list, n, &first, &len)) return;
    for (int k = 0; k < len; ++k) positions[k] = first + k + 1;
    *num = len;
}

/* ---------------------------------------------------------------------------------------- */
/* Entities */

/* Reports entity number no as out of range under name (without touching ierr); returns 0. */
static int vis_Connect_BadNo(const char* name, int no)
{
    vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "no= %d", no);
    return 0;
}

/* Positions 0 to n - 1 into pos; returns n. */
static int vis_Connect_Sequence(int n, int* pos)
{
    for (int k = 0; k < n; ++k) pos[k] = k;
    return n;
}

/* The whole list of element id as positions: every node (kind 0) or the corners (kind 1). */
static int vis_Connect_EntityAll(vis_Connect* c, int id, int kind, int* pos)
{
    int shape = vis_Connect_Shape(c, id), nn = c->numelemnode[id], n = 0;
    if (kind == 0) return vis_Connect_Sequence(nn, pos);
    vis_ElemCornerCount(shape, nn, &n);
    vis_ElemCorners(shape, c->maxi[id], c->maxj[id], c->maxk[id], pos);
    return n;
}

/* Face no of element id as positions; returns 0 after a report. */
static int vis_Connect_EntityFace(vis_Connect* c, const char* name, int id, int no, int kind, int* num, int* pos)
{
    int shape = vis_Connect_Shape(c, id);
    int mi = c->maxi[id], mj = c->maxj[id], mk = c->maxk[id], nn = c->numelemnode[id];
    if (shape < 0 || shape == SYS_SHAPE_POINT || shape == SYS_SHAPE_LINE) return 1;
    if (shape == SYS_SHAPE_TRI || shape == SYS_SHAPE_QUAD) {
        if (no != 1) return vis_Connect_BadNo(name, no);
        *num = vis_Connect_EntityAll(c, id, kind, pos);
        return 1;
    }
    if (shape == SYS_SHAPE_POLYHED) {
        int first, len, ln;
        const int* list = vis_Connect_List(c, id, &ln);
        if (!vis_Connect_Ring(c, id, no, list, ln, &first, &len)) return vis_Connect_BadNo(name, no);
        *num = kind == 1 ? len - 1 : len;
        for (int k = 0; k < *num; ++k) pos[k] = first + k;
        return 1;
    }
    int nf = 0;
    vis_ElemFaceCount(shape, mk, &nf);
    if (no < 1 || no > nf) return vis_Connect_BadNo(name, no);
    if (shape == SYS_SHAPE_POLYGON) *num = vis_Connect_Sequence(kind == 1 ? nn - 1 : nn, pos);
    else if (kind == 1) vis_ElemFaceCorners(shape, mi, mj, mk, no - 1, num, pos);
    else vis_ElemFaceNodes(shape, mi, mj, mk, no - 1, num, pos);
    return 1;
}

/* Edge no of element id as positions; returns 0 after a report. */
static int vis_Connect_EntityEdge(vis_Connect* c, const char* name, int id, int no, int kind, int* num, int* pos)
{
    int shape = vis_Connect_Shape(c, id);
    int mi = c->maxi[id], mj = c->maxj[id], mk = c->maxk[id];
    if (shape < 0 || shape == SYS_SHAPE_POINT) return 1;
    if (shape == SYS_SHAPE_LINE) {
        if (no != 1) return vis_Connect_BadNo(name, no);
        if (kind == 1) vis_ElemEdgeCorners(shape, mi, mj, mk, 0, num, pos);
        else *num = vis_Connect_Sequence(c->numelemnode[id], pos);
        return 1;
    }
    if (shape == SYS_SHAPE_POLYGON || shape == SYS_SHAPE_POLYHED) {
        int p = vis_Connect_PolyEdge(c, id, no);
        if (p < 0) return vis_Connect_BadNo(name, no);
        pos[0] = p;
        pos[1] = p + 1;
        *num = 2;
        return 1;
    }
    int ne = 0;
    vis_ElemEdgeCount(shape, mj, &ne);
    if (no < 1 || no > ne) return vis_Connect_BadNo(name, no);
    if (kind == 1) vis_ElemEdgeCorners(shape, mi, mj, mk, no - 1, num, pos);
    else vis_ElemEdgeNodes(shape, mi, mj, mk, no - 1, num, pos);
    return 1;
}

/* The entity as 0-based positions in the element's list. kind 0: all nodes (ElemCon, ElemCnn),
 * 1: corners only (ElemCorn). Returns 0 after a report. */
static int vis_Connect_Entity(vis_Connect* c, const char* name, int enttype, int id, int no, int kind,
                              int* num, int* pos)
{
    *num = 0;
    if (id < 1 || id > c->numelem) {
        vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "id= %d", id);
        return 0;
    }
    switch (enttype) {
    case SYS_ELEM: *num = vis_Connect_EntityAll(c, id, kind, pos); return 1;
    case SYS_FACE: return vis_Connect_EntityFace(c, name, id, no, kind, num, pos);
    case SYS_EDGE: return vis_Connect_EntityEdge(c, name, id, no, kind, num, pos);
    case SYS_NODE:
        if (no < 1 || no > c->numelemnode[id]) return vis_Connect_BadNo(name, no);
        pos[0] = no - 1;
        *num = 1;
        return 1;
    default: vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "enttype= %d", enttype); return 0;
    }
}

/* The corner positions of the solids' faces, built once (see vis_ConnectKernel.h). */
const vis_Connect_SolidFaces* vis_Connect_Faces(void)
{
    static const vis_Connect_SolidFaces faces = [] {
        vis_Connect_SolidFaces f = {};
        for (int s = 0; s < 4; ++s) {
            int shape = SYS_SHAPE_TET + s;
            vis_ElemFaceCount(shape, 0, &f.numface[s]);
            for (int k = 0; k < f.numface[s]; ++k) {
                int pos[VIS_ELEM_MAXFACENODE];
                vis_ElemFaceCorners(shape, 0, 0, 0, k, &f.numcorner[s][k], pos);
                for (int j = 0; j < f.numcorner[s][k] && j < 4; ++j) f.corner[s][k][j] = pos[j];
            }
        }
        return f;
    }();
    return &faces;
}

/* Position buffer big enough for any entity of element id (whole lists of polygons and
 * polyhedra included): elnoix2 of the scratch. */
static int* vis_Connect_PosBuffer(vis_Connect* c)
{
    if (!vis_Connect_Scratch(c)) return nullptr;
    return c->elnoix2;
}

void vis_ConnectElemCon(vis_Connect* c, int enttype, int id, int no, int* num, int* nodes)
{
    if (vis_Connect_Null(c, "vis_ConnectElemCon")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMCON)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMCON, vis_GridFunElemCon_t)(c->gridfun->obj, enttype, id, no, num, nodes);
        return;
    }
    int* pos = vis_Connect_PosBuffer(c);
    *num = 0;
    int n;
    if (!pos || !vis_Connect_Entity(c, "vis_ConnectElemCon", enttype, id, no, 0, &n, pos)) return;
    int ln;
    const int* list = vis_Connect_List(c, id, &ln);
    for (int k = 0; k < n; ++k) nodes[k] = list[pos[k]];
    *num = n;
}

void vis_ConnectElemCnn(vis_Connect* c, int enttype, int id, int no, int* num, int* positions)
{
    if (vis_Connect_Null(c, "vis_ConnectElemCnn")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMCNN)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMCNN, vis_GridFunElemCon_t)(c->gridfun->obj, enttype, id, no, num, positions);
        return;
    }
    int* pos = vis_Connect_PosBuffer(c);
    *num = 0;
    int n;
    if (!pos || !vis_Connect_Entity(c, "vis_ConnectElemCnn", enttype, id, no, 0, &n, pos)) return;
    for (int k = 0; k < n; ++k) positions[k] = pos[k] + 1;
    *num = n;
}

void vis_ConnectElemCorn(vis_Connect* c, int enttype, int id, int no, int* num, int* positions)
{
    if (vis_Connect_Null(c, "vis_ConnectElemCorn")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMCORN)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMCORN, vis_GridFunElemCon_t)(c->gridfun->obj, enttype, id, no, num, positions);
        return;
    }
    int* pos = vis_Connect_PosBuffer(c);
    *num = 0;
    int n;
    if (!pos || !vis_Connect_Entity(c, "vis_ConnectElemCorn", enttype, id, no, 1, &n, pos)) return;
    for (int k = 0; k < n; ++k) positions[k] = pos[k] + 1;
    *num = n;
}

/* Tuple of face no of element id into fs, fi, fj (shape -1 for points and lines); returns 0
 * after a report. */
static int vis_Connect_FaceTopo(vis_Connect* c, const char* name, int id, int no, int* fs, int* fi, int* fj)
{
    int s = vis_Connect_Shape(c, id);
    if (s < 0 || s == SYS_SHAPE_POINT || s == SYS_SHAPE_LINE) return 1;
    if (s == SYS_SHAPE_POLYHED) {
        int first, len, ln;
        const int* list = vis_Connect_List(c, id, &ln);
        if (!vis_Connect_Ring(c, id, no, list, ln, &first, &len)) return vis_Connect_BadNo(name, no);
        *fs = SYS_SHAPE_POLYGON;
        *fi = len;
        *fj = len - 1;
        return 1;
    }
    int nf = 0;
    vis_ElemFaceCount(s, c->maxk[id], &nf);
    if (no < 1 || no > nf) return vis_Connect_BadNo(name, no);
    vis_ElemFaceTopo(s, c->maxi[id], c->maxj[id], c->maxk[id], no - 1, fs, fi, fj);
    return 1;
}

/* Tuple of edge no of element id: a line with its node count (shape -1 for points); returns 0
 * after a report. */
static int vis_Connect_EdgeTopo(vis_Connect* c, const char* name, int id, int no, int* fs, int* fi)
{
    int s = vis_Connect_Shape(c, id);
    if (s < 0 || s == SYS_SHAPE_POINT) return 1;
    if (s == SYS_SHAPE_POLYGON || s == SYS_SHAPE_POLYHED) {
        if (vis_Connect_PolyEdge(c, id, no) < 0) return vis_Connect_BadNo(name, no);
        *fs = SYS_SHAPE_LINE;
        *fi = 2;
        return 1;
    }
    int ne = 0;
    vis_ElemEdgeCount(s, c->maxj[id], &ne);
    if (no < 1 || no > ne) return vis_Connect_BadNo(name, no);
    *fs = SYS_SHAPE_LINE;
    vis_ElemEdgeTopo(s, c->maxi[id], c->maxj[id], c->maxk[id], no - 1, fi);
    return 1;
}

void vis_ConnectElemTopo(vis_Connect* c, int enttype, int id, int no, int* shape, int* maxi, int* maxj)
{
    static const char* name = "vis_ConnectElemTopo";
    if (vis_Connect_Null(c, name)) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMTOPO)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMTOPO, vis_GridFunElemTopo_t)(c->gridfun->obj, enttype, id, no, shape, maxi, maxj);
        return;
    }
    if (id < 1 || id > c->numelem) {
        vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "id= %d", id);
        return;
    }
    int fs = -1, fi = 0, fj = 0, ok = 1;
    switch (enttype) {
    case SYS_ELEM:
        fs = vis_Connect_Shape(c, id);
        fi = c->maxi[id];
        fj = c->maxj[id];
        break;
    case SYS_NODE:
        ok = no >= 1 && no <= c->numelemnode[id] ? 1 : vis_Connect_BadNo(name, no);
        fs = SYS_SHAPE_POINT;
        break;
    case SYS_FACE: ok = vis_Connect_FaceTopo(c, name, id, no, &fs, &fi, &fj); break;
    case SYS_EDGE: ok = vis_Connect_EdgeTopo(c, name, id, no, &fs, &fi); break;
    default: vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "enttype= %d", enttype); return;
    }
    if (!ok) return;
    *shape = fs;
    *maxi = fi;
    *maxj = fj;
}

void vis_ConnectElemAdj(vis_Connect* c, int enttype, int id, int no, int* num, int* elems)
{
    if (vis_Connect_Null(c, "vis_ConnectElemAdj")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMADJ)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMADJ, vis_GridFunElemAdj_t)(c->gridfun->obj, enttype, id, no, num, elems);
        return;
    }
    vis_Connect_ElemAdjIn(c, nullptr, enttype, id, no, num, elems);
}

void vis_Connect_ElemAdjIn(vis_Connect* c, vis_Group* group, int enttype, int id, int no, int* num, int* elems)
{
    static const char* name = "vis_ConnectElemAdj";
    *num = 0;
    if (enttype != SYS_NODE && enttype != SYS_EDGE && enttype != SYS_FACE) return;
    if (!vis_Connect_HasTable(c)) return;
    if (id < 1 || id > c->numelem) {
        vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "id= %d", id);
        return;
    }
    int shape = vis_Connect_Shape(c, id);
    if (enttype == SYS_FACE && c->mode == 0 && shape >= SYS_SHAPE_TET && shape <= SYS_SHAPE_HEX &&
        (c->maxj[id] & 0xFFFF) == 0 && c->maxk[id] == 0) {
        /* Quick path of the serendipity solids: corners from the face table, straight from the
         * chunk. */
        const vis_Connect_SolidFaces* f = vis_Connect_Faces();
        int s = shape - SYS_SHAPE_TET;
        if (no < 1 || no > f->numface[s]) {
            vis_Connect_BadNo(name, no);
            return;
        }
        const int* pos = f->corner[s][no - 1];
        int nc = f->numcorner[s][no - 1];
        const int* list = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[id];
        int corners[4];
        for (int k = 0; k < nc; ++k) corners[k] = list[pos[k]];
        vis_Connect_FaceElems(c, group, id, nc == 3 ? SYS_SHAPE_TRI : SYS_SHAPE_QUAD, nc, corners, num, elems);
        return;
    }
    int* pos = vis_Connect_PosBuffer(c);
    int n;
    if (!pos || !vis_Connect_Entity(c, name, enttype, id, no, 1, &n, pos) || n == 0) return;
    /* Corner ids into elnoix: the element list may live in scratch (dynamic mode). */
    int ln;
    const int* list = vis_Connect_List(c, id, &ln);
    int* corners = c->elnoix;
    for (int k = 0; k < n; ++k) corners[k] = list[pos[k]];
    if (enttype == SYS_NODE) {
        int nr;
        const int* row = vis_Connect_Row(c, corners[0], &nr);
        int count = 0;
        for (int k = 0; k < nr; ++k)
            if (row[k] != id && vis_Connect_Member(group, row[k])) elems[count++] = row[k];
        *num = count;
    } else if (enttype == SYS_EDGE) {
        vis_Connect_EdgeElems(c, group, id, corners, num, elems);
    } else {
        /* Only the polygon form of the face steers the match. */
        int fs = (shape == SYS_SHAPE_POLYGON || shape == SYS_SHAPE_POLYHED) ? SYS_SHAPE_POLYGON
                 : n == 3                                                     ? SYS_SHAPE_TRI
                                                                              : SYS_SHAPE_QUAD;
        vis_Connect_FaceElems(c, group, id, fs, n, corners, num, elems);
    }
}

void vis_ConnectElemFaceNorm(vis_Connect* c, int id, int no, float* normal)
{
    static const char* name = "vis_ConnectElemFaceNorm";
    if (vis_Connect_Null(c, name)) return;
    if (id < 1 || id > c->numelem) {
        vsy_ErrorRecord(nullptr, name, SYS_ERROR_VALUE, "id= %d", id);
        return;
    }
    int fs = -1, fi = 0, fj = 0;
    vis_ConnectElemTopo(c, SYS_FACE, id, no, &fs, &fi, &fj);
    if (fs != SYS_SHAPE_TRI && fs != SYS_SHAPE_QUAD && fs != SYS_SHAPE_POLYGON) {
        vis_Connect_BadNo(name, no);
        return;
    }
    if (!vis_Connect_Scratch(c)) return;
    int n = 0;
    vis_ConnectElemCon(c, SYS_FACE, id, no, &n, c->elnoix);
    if (n < 1) return;
    /* Normals given with the mesh come first. */
    if (c->elemnorm && n <= VIS_ELEM_MAXNODE && (vis_ElemDatFlags(c->elemnorm, id) >> (no - 1) & 1)) {
        double given[3 * VIS_ELEM_MAXNODE];
        if (vis_ElemDatEntdv(c->elemnorm, id, no, given)) {
            for (int i = 0; i < 3 * n; ++i) normal[i] = (float)given[i];
            return;
        }
    }
    float local[3 * VIS_ELEM_MAXFACENODE];
    float* x = n <= VIS_ELEM_MAXFACENODE ? local : (float*)vsy_Malloc((size_t)n * 3 * sizeof(float));
    if (!x) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "%s", "");
        return;
    }
    vis_ConnectCoords(c, n, c->elnoix, x);
    if (fs == SYS_SHAPE_POLYGON) fi = n;
    vis_ElemNormal(fs, fi, fj, x, normal);
    if (x != local) vsy_Free(x);
}
