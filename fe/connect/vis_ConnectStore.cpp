/* vis_Connect: lifecycle, storage and growth, definition of elements and coordinates, objects
 * and options; see vis_Connect.h. The other concerns have files of their own (listed in
 * vis_ConnectInternal.h).
 *
 * Invariants kept by every operation:
 *   - per-element arrays (shape, maxi, maxj, maxk, numelemnode, elnodeix) have elemalloc + 1
 *     entries, elemalloc >= numelem; entries past numelem hold shape 255 and zeros;
 *   - every element with a shape has numelemnode[id] entries reserved in its chunk at
 *     elnodeix[id] (static mode) or in elemlists (dynamic mode); they read 0 until set;
 *   - coordinate chunks are zero when created, so a node never set reads (0, 0, 0);
 *   - the kernel tables exist only while the elements are unchanged since the kernel ran.
 */
#include "vis_Connect.h"
#include "vis_ConnectInternal.h"

#include "vis_Assoc.h"
#include "vis_CHash.h"
#include "vis_ConnectKernel.h"
#include "vsy_ChunkList.h"
#include "vsy_Error.h"
#include "vsy_Grow.h"
#include "vsy_HashTable.h"
#include "vsy_RedPre.h"

#include <climits>
#include <cstring>

/* ---------------------------------------------------------------------------------------- */
/* Reports */

int vis_Connect_Poll(vis_Connect* c, int code)
{
    if (code) c->ierr = code;
    return code;
}

int vis_Connect_Null(const vis_Connect* c, const char* name)
{
    if (c) return 0;
    vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
    return 1;
}

/* ---------------------------------------------------------------------------------------- */
/* Lifecycle */

/* Releases an owned array and forgets it. */
template <class T>
static void vis_Connect_Release(T*& p)
{
    vsy_Free((void*)p);
    p = nullptr;
}

static void vis_Connect_FreeCoords(vis_Connect* c)
{
    for (int k = 0; k < c->numcoordchunk; ++k) {
        if (c->coordf) vsy_Free(c->coordf[k]);
        if (c->coordd) vsy_Free(c->coordd[k]);
        if (c->coordred) vsy_Free(c->coordred[k]);
    }
    vis_Connect_Release(c->coordf);
    vis_Connect_Release(c->coordd);
    vis_Connect_Release(c->coordred);
    c->numcoordchunk = 0;
    c->numcoord = 0;
}

void vis_Connect_DropKernel(vis_Connect* c)
{
    vis_Connect_Release(c->nodeelem);
    vis_Connect_Release(c->nodeelempntr);
    vis_Connect_Release(c->nodeelemsize);
    vis_Connect_Release(c->polyfaceix);
    vis_Connect_Release(c->polyfacepntr);
    if (c->mode == 0) c->maxnodeelem = 0;
}

/* Releases the elements, coordinates and kernel tables; attributes and names stay. */
static void vis_Connect_FreeData(vis_Connect* c)
{
    vis_Connect_DropKernel(c);
    vis_Connect_Release(c->shape);
    vis_Connect_Release(c->maxi);
    vis_Connect_Release(c->maxj);
    vis_Connect_Release(c->maxk);
    vis_Connect_Release(c->numelemnode);
    vis_Connect_Release(c->elnodeix);
    c->elemalloc = 0;
    for (int k = 0; k < c->chunkalloc; ++k) vsy_Free(c->elnode[k]);
    vis_Connect_Release(c->elnode);
    vis_Connect_Release(c->chunkcap);
    vis_Connect_Release(c->chunkused);
    c->chunkalloc = 0;
    c->numchunk = 0;
    c->elnodecap = 0;
    c->elnodeused = 0;
    vsy_ChunkListDelete(c->elemlists);
    vsy_ChunkListDelete(c->nodelists);
    c->elemlists = nullptr;
    c->nodelists = nullptr;
    vis_Connect_FreeCoords(c);
    c->numelem = 0;
    c->numnode = 0;
    c->maxelemnode = 0;
    c->maxnodeelem = 0;
}

vis_Connect* vis_ConnectNew(void)
{
    vis_Connect* c = (vis_Connect*)vsy_Malloc(sizeof(vis_Connect));
    if (!c) {
        vsy_ErrorMessage("Connect", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    memset((void*)c, 0, sizeof(vis_Connect));
    c->type = SYS_PRECISION_DOUBLE;
    c->coordshift = VIS_CONNECT_COORDSHIFT_DEFAULT;
    c->coordchunk = 1 << c->coordshift;
    c->autonode = 1;
    /* Every group parameter starts at 0 but stride and phase, which start at 1. */
    c->grp.stride = 1;
    c->grp.phase = 1;
    c->grp.cosangle = 1.0f;
    c->red = vsy_RedPreNew();
    c->redx = vsy_RedPreNew();
    c->redy = vsy_RedPreNew();
    c->redz = vsy_RedPreNew();
    if (!c->red || !c->redx || !c->redy || !c->redz) {
        vsy_RedPreDelete(c->red);
        vsy_RedPreDelete(c->redx);
        vsy_RedPreDelete(c->redy);
        vsy_RedPreDelete(c->redz);
        vsy_Free(c);
        vsy_ErrorMessage("Connect", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    vsy_RedPreDef(c->red, SYS_PRECISION_HALF);
    vsy_RedPreDef(c->redx, SYS_PRECISION_SHORT);
    vsy_RedPreDef(c->redy, SYS_PRECISION_SHORT);
    vsy_RedPreDef(c->redz, SYS_PRECISION_SHORT);
    return c;
}

void vis_ConnectDelete(vis_Connect* c)
{
    if (!c) return;
    c->ierr = 0;
    vis_Connect_FreeData(c);
    for (int t = 0; t <= VIS_CONNECT_MAXASSOC; ++t) {
        vis_AssocDelete(c->nodeassoc[t]);
        vis_AssocDelete(c->elemassoc[t]);
        vis_CHashDelete(c->edgeassoc[t]);
        vis_CHashDelete(c->faceassoc[t]);
    }
    vsy_HashTableDeleteValues(c->partnames);
    vsy_HashTableDeleteValues(c->partijk);
    vsy_Free(c->elnoix);
    vsy_Free(c->elnoix2);
    vsy_Free(c->scratch);
    vsy_Free(c->nodescratch);
    vsy_RedPreDelete(c->red);
    vsy_RedPreDelete(c->redx);
    vsy_RedPreDelete(c->redy);
    vsy_RedPreDelete(c->redz);
    vsy_Free(c);
}

int vis_ConnectError(vis_Connect* c)
{
    if (!c) return SYS_ERROR_NULLOBJECT;
    int ierr = c->ierr;
    c->ierr = 0;
    if (ierr == 0 && GF_SET(c, VIS_GRIDFUN_ERROR))
        ierr = GF_CALL(c, VIS_GRIDFUN_ERROR, vis_GridFunError_t)(c->gridfun->obj);
    return ierr;
}

/* ---------------------------------------------------------------------------------------- */
/* Growth */

/* Resizes a per-element array to cap + 1 entries; 0 on failure with the old array kept. */
template <class T>
static int vis_Connect_Resize(T** p, int cap)
{
    T* n = (T*)vsy_Realloc(*p, ((size_t)cap + 1) * sizeof(T));
    if (!n) return 0;
    *p = n;
    return 1;
}

/* The worker of vis_Connect_ReallocTopology: returns 0 on failure without a report. */
static int vis_Connect_Topology_Grow(vis_Connect* c, int newcount)
{
    int oldcap = c->shape ? c->elemalloc : -1;
    int cap = oldcap < 0 ? 0 : oldcap;
    int ierr = 0;
    unsigned char* keep = c->shape;
    if (!c->shape) {
        /* First allocation: exactly the count asked for, the growth rule applies later. */
        cap = newcount;
        c->shape = (unsigned char*)vsy_Malloc((size_t)cap + 1);
        if (!c->shape) return 0;
    } else {
        vsy_GrowCapacity(newcount, &cap, &c->shape, &ierr);
        if (ierr) {
            c->shape = keep; /* the 8-bit form drops the pointer on failure */
            return 0;
        }
    }
    /* The companions follow shape's new capacity; on failure shape keeps its new size and
     * elemalloc its old one, which the next call repairs. */
    if (!vis_Connect_Resize(&c->maxi, cap) || !vis_Connect_Resize(&c->maxj, cap) ||
        !vis_Connect_Resize(&c->maxk, cap) || !vis_Connect_Resize(&c->numelemnode, cap) ||
        !vis_Connect_Resize(&c->elnodeix, cap)) {
        if (oldcap < 0) {
            vsy_Free(c->shape);
            c->shape = nullptr;
        } else if (cap < oldcap) {
            /* A failed shrink leaves arrays of both sizes: only the smaller one is safe. */
            c->elemalloc = cap;
        }
        return 0;
    }
    int from = oldcap < 0 ? 0 : (oldcap < c->numelem ? oldcap : c->numelem) + 1;
    if (oldcap >= 0 && from > cap + 1) from = cap + 1;
    for (int i = from; i <= cap; ++i) {
        c->shape[i] = 255;
        c->maxi[i] = 0;
        c->maxj[i] = 0;
        c->maxk[i] = 0;
        c->numelemnode[i] = 0;
        c->elnodeix[i] = 0;
    }
    c->elemalloc = cap;
    return 1;
}

void vis_Connect_ReallocTopology(vis_Connect* c, int newcount, int* ierr)
{
    *ierr = 0;
    if (!vis_Connect_Topology_Grow(c, newcount)) {
        *ierr = SYS_ERROR_MEMORY;
        vsy_ErrorRecord(&c->ierr, "vis_Connect_ReallocTopology", SYS_ERROR_MEMORY, "%s", "");
    }
}

void vis_Connect_ReallocElemNode(vis_Connect* c, int newsize, int chunk, int* ierr)
{
    *ierr = 0;
    int cap = c->chunkcap[chunk];
    int grow = 0;
    int* p = c->elnode[chunk];
    if (!p) {
        p = (int*)vsy_Malloc(((size_t)newsize + 1) * sizeof(int));
        if (p) cap = newsize;
        else grow = SYS_ERROR_MEMORY;
    } else {
        vsy_GrowCapacity(newsize, &cap, &p, &grow);
    }
    if (grow) {
        *ierr = SYS_ERROR_MEMORY;
        vsy_ErrorRecord(&c->ierr, "vis_Connect_ReallocElemNode", SYS_ERROR_MEMORY, "%s", "");
        return;
    }
    for (int k = c->chunkused[chunk]; k <= cap; ++k) p[k] = 0;
    c->elnodecap += (int64_t)cap - c->chunkcap[chunk];
    c->elnode[chunk] = p;
    c->chunkcap[chunk] = cap;
}

/* Makes room for chunk index `chunk` in the chunk arrays. */
static int vis_Connect_ChunkSlots(vis_Connect* c, int chunk)
{
    if (chunk < c->chunkalloc) return 1;
    int n = chunk + 1;
    int** e = (int**)vsy_Realloc(c->elnode, (size_t)n * sizeof(int*));
    if (!e) return 0;
    c->elnode = e;
    int* cc = (int*)vsy_Realloc(c->chunkcap, (size_t)n * sizeof(int));
    if (!cc) return 0;
    c->chunkcap = cc;
    int* cu = (int*)vsy_Realloc(c->chunkused, (size_t)n * sizeof(int));
    if (!cu) return 0;
    c->chunkused = cu;
    for (int k = c->chunkalloc; k < n; ++k) {
        c->elnode[k] = nullptr;
        c->chunkcap[k] = 0;
        c->chunkused[k] = 0;
    }
    c->chunkalloc = n;
    return 1;
}

/* Reserves num zero entries for element id at the end of its chunk; 0 on failure (reported
 * under name). */
static int vis_Connect_Reserve(vis_Connect* c, const char* name, int id, int num)
{
    int chunk = (id - 1) >> VIS_CONNECT_ELEMSHIFT;
    if (!vis_Connect_ChunkSlots(c, chunk)) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "id= %d", id);
        return 0;
    }
    int used = c->chunkused[chunk];
    if ((int64_t)used + num > VSY_GROW_MAXCAP) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "id= %d", id);
        return 0;
    }
    if (!c->elnode[chunk] || used + num > c->chunkcap[chunk]) {
        int want = used + num;
        if (!c->elnode[chunk]) {
            /* First list of the chunk: room for every element of the chunk at this size. */
            int64_t first = (int64_t)chunk * VIS_CONNECT_ELEMCHUNK;
            int64_t inchunk = (int64_t)c->numelem - first;
            if (inchunk > VIS_CONNECT_ELEMCHUNK) inchunk = VIS_CONNECT_ELEMCHUNK;
            int64_t guess = inchunk * num;
            if (guess > want && guess <= VSY_GROW_MAXCAP) want = (int)guess;
        }
        int ierr;
        vis_Connect_ReallocElemNode(c, want, chunk, &ierr);
        if (ierr) return 0;
    }
    int* p = c->elnode[chunk] + used;
    for (int k = 0; k < num; ++k) p[k] = 0;
    c->elnodeix[id] = used;
    c->chunkused[chunk] = used + num;
    c->elnodeused += num;
    if (chunk + 1 > c->numchunk) c->numchunk = chunk + 1;
    return 1;
}

/* Length of a scratch array for n entries, with room to spare; 0 when n is beyond any list. */
static int vis_Connect_ScratchCap(int n)
{
    return n < 0 || n > VSY_GROW_MAXCAP ? 0 : n + 100;
}

int vis_Connect_Scratch(vis_Connect* c)
{
    if (c->maxelemnode == 0 && GF_SET(c, VIS_GRIDFUN_MAXELEMNODE))
        GF_CALL(c, VIS_GRIDFUN_MAXELEMNODE, vis_GridFunMaxElemNode_t)(c->gridfun->obj, &c->maxelemnode);
    if (c->maxelemnode <= c->elnoixcap && c->elnoix) return 1;
    int cap = vis_Connect_ScratchCap(c->maxelemnode);
    int* a = nullptr;
    if (cap > 0) a = (int*)vsy_Realloc(c->elnoix, (size_t)cap * sizeof(int));
    if (a) c->elnoix = a;
    int* b = a ? (int*)vsy_Realloc(c->elnoix2, (size_t)cap * sizeof(int)) : nullptr;
    if (b) c->elnoix2 = b;
    if (!a || !b) {
        vsy_ErrorRecord(&c->ierr, "vis_Connect_Scratch", SYS_ERROR_MEMORY, "%s", "");
        return 0;
    }
    c->elnoixcap = cap;
    return 1;
}

int vis_Connect_GrowScratch(vis_Connect* c, const char* name, int** array, int* cap, int n)
{
    if (n <= *cap && *array) return 1;
    int want = vis_Connect_ScratchCap(n);
    int* a = want > 0 ? (int*)vsy_Realloc(*array, (size_t)want * sizeof(int)) : nullptr;
    if (!a) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "%s", "");
        return 0;
    }
    *array = a;
    *cap = want;
    return 1;
}

/* Makes `scratch` hold at least n entries. */
int vis_Connect_ScratchList(vis_Connect* c, int n)
{
    return vis_Connect_GrowScratch(c, "vis_Connect_Scratch", &c->scratch, &c->scratchcap, n);
}

void vis_Connect_AllocElem(vis_Connect* c, int count, int width, void** pointer)
{
    *pointer = vsy_Malloc((size_t)c->maxelemnode * (size_t)count * (size_t)width);
}

const int* vis_Connect_List(vis_Connect* c, int id, int* num)
{
    int n = c->numelemnode ? c->numelemnode[id] : 0;
    if (c->mode == 1) {
        vsy_ChunkListNum(c->elemlists, id, &n);
        if (!vis_Connect_ScratchList(c, n)) {
            *num = 0;
            return nullptr;
        }
        vsy_ChunkListGet(c->elemlists, id, n, num, c->scratch);
        return c->scratch;
    }
    *num = n;
    if (n == 0) return nullptr;
    return c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[id];
}

/* ---------------------------------------------------------------------------------------- */
/* Definition */

void vis_ConnectPre(vis_Connect* c, int type)
{
    if (vis_Connect_Null(c, "vis_ConnectPre")) return;
    if (type != SYS_PRECISION_FLOAT && type != SYS_PRECISION_DOUBLE && type != SYS_PRECISION_SHORT &&
        type != SYS_PRECISION_HALF) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectPre", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    if (c->numcoordchunk > 0 && type != c->type) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectPre", SYS_ERROR_OPERATION, "Coordinates already set");
        return;
    }
    c->type = type;
}

void vis_ConnectMode(vis_Connect* c, int mode)
{
    if (vis_Connect_Null(c, "vis_ConnectMode")) return;
    if (mode != 0 && mode != 1) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectMode", SYS_ERROR_ENUM, "type= %d", mode);
        return;
    }
    if (c->numelem > 0 && mode != c->mode) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectMode", SYS_ERROR_OPERATION, "Elements already defined");
        return;
    }
    c->mode = mode;
}

void vis_ConnectDef(vis_Connect* c, int numnode, int numelem)
{
    if (vis_Connect_Null(c, "vis_ConnectDef")) return;
    if (numnode < 0 || numnode >= VSY_GROW_MAXCAP) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectDef", SYS_ERROR_VALUE, "nument= %d", numnode);
        return;
    }
    if (numelem < 0 || numelem >= VSY_GROW_MAXCAP) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectDef", SYS_ERROR_VALUE, "nument= %d", numelem);
        return;
    }
    vis_Connect_FreeData(c);
    c->autonode = numnode == 0;
    c->numnode = numnode;
    if (!vis_Connect_Topology_Grow(c, numelem)) {
        vis_Connect_FreeData(c);
        vsy_ErrorRecord(&c->ierr, "vis_ConnectDef", SYS_ERROR_MEMORY, "nument= %d", numelem);
        return;
    }
    if (c->mode == 1) {
        c->elemlists = vsy_ChunkListNew();
        c->nodelists = vsy_ChunkListNew();
        if (c->elemlists) vsy_ChunkListDef(c->elemlists, numelem);
        if (c->nodelists) vsy_ChunkListDef(c->nodelists, numnode);
        if (!c->elemlists || !c->nodelists || vsy_ChunkListError(c->elemlists) ||
            vsy_ChunkListError(c->nodelists)) {
            vis_Connect_FreeData(c);
            vsy_ErrorRecord(&c->ierr, "vis_ConnectDef", SYS_ERROR_MEMORY, "nument= %d", numelem);
            return;
        }
    }
    c->numelem = numelem;
}

static void vis_Connect_Extent(vis_Connect* c, const char* name, const double* e)
{
    if (vis_Connect_Null(c, name)) return;
    for (int a = 0; a < 3; ++a) {
        if (!(e[a] <= e[a + 3]) || e[a] != e[a] || e[a + 3] - e[a] > 1e300) {
            vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "iparam= %d", a);
            return;
        }
    }
    if (c->numcoordchunk > 0 && c->type == SYS_PRECISION_SHORT) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_OPERATION, "Coordinates already set");
        return;
    }
    vsy_RedPreExtent(c->redx, e[0], e[3]);
    vsy_RedPreExtent(c->redy, e[1], e[4]);
    vsy_RedPreExtent(c->redz, e[2], e[5]);
    c->extset = 1;
}

void vis_ConnectExt(vis_Connect* c, const float extent[6])
{
    double e[6];
    if (extent)
        for (int a = 0; a < 6; ++a) e[a] = extent[a];
    else
        for (int a = 0; a < 6; ++a) e[a] = 0.0;
    vis_Connect_Extent(c, "vis_ConnectExt", e);
}

void vis_ConnectExtdv(vis_Connect* c, const double extent[6])
{
    double e[6] = {0, 0, 0, 0, 0, 0};
    if (extent)
        for (int a = 0; a < 6; ++a) e[a] = extent[a];
    vis_Connect_Extent(c, "vis_ConnectExtdv", e);
}

void vis_ConnectGenElem(vis_Connect* c, int n, int* first)
{
    if (vis_Connect_Null(c, "vis_ConnectGenElem")) return;
    if (n < 0 || (int64_t)c->numelem + n >= VSY_GROW_MAXCAP) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectGenElem", SYS_ERROR_VALUE, "nument= %d", n);
        return;
    }
    int want = c->numelem + n;
    if (want > c->elemalloc || !c->shape) {
        int ierr;
        vis_Connect_ReallocTopology(c, want, &ierr);
        if (ierr) return;
    }
    if (c->mode == 1) {
        /* Each store that is missing is made; a failed one has reported "Creation Failure". */
        if (!c->elemlists) c->elemlists = vsy_ChunkListNew();
        if (!c->nodelists) c->nodelists = vsy_ChunkListNew();
        if (!c->elemlists || !c->nodelists) {
            c->ierr = SYS_ERROR_MEMORY;
            return;
        }
    }
    if (first) *first = c->numelem + 1;
    c->numelem = want;
    vis_Connect_DropKernel(c);
}

void vis_ConnectGenNode(vis_Connect* c, int n, int* first)
{
    if (vis_Connect_Null(c, "vis_ConnectGenNode")) return;
    if (n < 0 || (int64_t)c->numnode + n >= VSY_GROW_MAXCAP) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectGenNode", SYS_ERROR_VALUE, "nument= %d", n);
        return;
    }
    if (first) *first = c->numnode + 1;
    c->numnode += n;
    vis_Connect_DropKernel(c);
}

/* Dynamic mode: removes element id from the element list of node. */
static void vis_Connect_NodeListRemove(vis_Connect* c, int node, int id)
{
    int n;
    vsy_ChunkListNum(c->nodelists, node, &n);
    if (n == 0 || !vis_Connect_ScratchList(c, n)) return;
    vsy_ChunkListGet(c->nodelists, node, n, &n, c->scratch);
    int m = 0;
    for (int k = 0; k < n; ++k)
        if (c->scratch[k] != id) c->scratch[m++] = c->scratch[k];
    if (m != n) vsy_ChunkListSet(c->nodelists, node, m, c->scratch);
}

/* Dynamic mode: inserts element id into the sorted element list of node, once. */
static void vis_Connect_NodeListInsert(vis_Connect* c, int node, int id)
{
    int n;
    vsy_ChunkListNum(c->nodelists, node, &n);
    int last = 0;
    if (n > 0) vsy_ChunkListEntry(c->nodelists, node, n - 1, &last);
    if (n == 0 || last < id) {
        vsy_ChunkListAdd(c->nodelists, node, id);
    } else {
        if (!vis_Connect_ScratchList(c, n + 1)) return;
        vsy_ChunkListGet(c->nodelists, node, n, &n, c->scratch);
        int k = 0;
        while (k < n && c->scratch[k] < id) ++k;
        if (k < n && c->scratch[k] == id) return;
        for (int j = n; j > k; --j) c->scratch[j] = c->scratch[j - 1];
        c->scratch[k] = id;
        vsy_ChunkListSet(c->nodelists, node, n + 1, c->scratch);
        ++n;
    }
    vsy_ChunkListNum(c->nodelists, node, &n);
    if (n > c->maxnodeelem) c->maxnodeelem = n;
    vis_Connect_Poll(c, vsy_ChunkListError(c->nodelists));
}

/* Dynamic mode: takes element id off the lists of the nodes it names now. */
static void vis_Connect_DynamicUnlink(vis_Connect* c, int id)
{
    int n;
    vsy_ChunkListNum(c->elemlists, id, &n);
    for (int k = 0; k < n; ++k) {
        int node;
        vsy_ChunkListEntry(c->elemlists, id, k, &node);
        if (node >= 1) vis_Connect_NodeListRemove(c, node, id);
    }
}

static int vis_Connect_CheckElemId(vis_Connect* c, const char* name, int id)
{
    if (id >= 1 && id <= c->numelem) return 1;
    vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "id= %d", id);
    return 0;
}

void vis_ConnectSetTopology(vis_Connect* c, int id, int shape, int maxi, int maxj, int maxk)
{
    static const char* name = "vis_ConnectSetTopology";
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckElemId(c, name, id)) return;
    if (shape < -1 || shape > SYS_SHAPE_POLYHED) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "iparam= %d", shape);
        return;
    }
    int num = 0;
    vis_ElemNum(shape, maxi, maxj, maxk, &num);
    /* maxk is stored in 16 bits, and the polyhedron index keeps list positions in 16 bits. */
    if (shape >= 0 && (num < 1 || maxk < SHRT_MIN || maxk > SHRT_MAX ||
                       (shape == SYS_SHAPE_POLYHED && maxi > SHRT_MAX))) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "iparam= %d", maxi);
        return;
    }
    int old = c->numelemnode[id];
    if (c->mode == 1) {
        if (num != old) {
            if (!vis_Connect_ScratchList(c, num)) return;
            vis_Connect_DynamicUnlink(c, id);
            if (!vis_Connect_ScratchList(c, num)) return;
            for (int k = 0; k < num; ++k) c->scratch[k] = 0;
            vsy_ChunkListSet(c->elemlists, id, num, c->scratch);
            if (vis_Connect_Poll(c, vsy_ChunkListError(c->elemlists))) return;
        }
    } else if (num > old || c->shape[id] == 255) {
        if (num > 0 && !vis_Connect_Reserve(c, name, id, num)) return;
    } else if (num != old) {
        int* p = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[id];
        for (int k = 0; k < num; ++k) p[k] = 0;
    }
    c->shape[id] = (unsigned char)(shape < 0 ? 255 : shape);
    c->maxi[id] = maxi;
    c->maxj[id] = maxj;
    c->maxk[id] = (short)maxk;
    c->numelemnode[id] = num;
    if (num > c->maxelemnode) c->maxelemnode = num;
    if (num != old || c->mode == 0) vis_Connect_DropKernel(c);
}

void vis_ConnectSetElemNode(vis_Connect* c, int id, const int* nodes)
{
    static const char* name = "vis_ConnectSetElemNode";
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckElemId(c, name, id)) return;
    if (c->shape[id] == 255) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_OPERATION, "Topology not set, id= %d", id);
        return;
    }
    int num = c->numelemnode[id];
    if (!nodes) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "nix= %d", num);
        return;
    }
    int top = 0;
    for (int k = 0; k < num; ++k) {
        if (nodes[k] < 1 || (!c->autonode && nodes[k] > c->numnode)) {
            vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "ix[%d]= %d", k, nodes[k]);
            return;
        }
        if (nodes[k] > top) top = nodes[k];
    }
    if (c->mode == 1) {
        vis_Connect_DynamicUnlink(c, id);
        vsy_ChunkListSet(c->elemlists, id, num, nodes);
        if (vis_Connect_Poll(c, vsy_ChunkListError(c->elemlists))) return;
        for (int k = 0; k < num; ++k) vis_Connect_NodeListInsert(c, nodes[k], id);
    } else {
        int* p = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[id];
        for (int k = 0; k < num; ++k) p[k] = nodes[k];
        vis_Connect_DropKernel(c);
    }
    if (c->autonode && top > c->numnode) c->numnode = top;
}

void vis_ConnectDelElem(vis_Connect* c, int id)
{
    if (vis_Connect_Null(c, "vis_ConnectDelElem") || !vis_Connect_CheckElemId(c, "vis_ConnectDelElem", id))
        return;
    if (c->mode == 1) {
        vis_Connect_DynamicUnlink(c, id);
        vsy_ChunkListSet(c->elemlists, id, 0, nullptr);
    }
    c->shape[id] = 255;
    c->maxi[id] = 0;
    c->maxj[id] = 0;
    c->maxk[id] = 0;
    c->numelemnode[id] = 0;
    vis_Connect_DropKernel(c);
}

/* ---------------------------------------------------------------------------------------- */
/* Coordinates */

/* Coordinate storage of node id, or null when its chunk does not exist. */
void* vis_Connect_CoordPtr(const vis_Connect* c, int id)
{
    int chunk = (id - 1) >> c->coordshift;
    if (chunk >= c->numcoordchunk) return nullptr;
    int pos = id - c->coordchunk * chunk - 1;
    switch (c->type) {
    case SYS_PRECISION_FLOAT: return c->coordf[chunk] ? c->coordf[chunk] + 3 * pos : nullptr;
    case SYS_PRECISION_DOUBLE: return c->coordd[chunk] ? c->coordd[chunk] + 3 * pos : nullptr;
    default: return c->coordred[chunk] ? c->coordred[chunk] + 3 * pos : nullptr;
    }
}

/* Makes the chunk of node id exist; null on failure. */
static void* vis_Connect_CoordMake(vis_Connect* c, int id)
{
    int chunk = (id - 1) >> c->coordshift;
    if (chunk >= c->numcoordchunk) {
        int n = chunk + 1;
        float** f = (float**)vsy_Realloc(c->coordf, (size_t)n * sizeof(float*));
        if (!f) return nullptr;
        c->coordf = f;
        double** d = (double**)vsy_Realloc(c->coordd, (size_t)n * sizeof(double*));
        if (!d) return nullptr;
        c->coordd = d;
        unsigned short** r = (unsigned short**)vsy_Realloc(c->coordred, (size_t)n * sizeof(unsigned short*));
        if (!r) return nullptr;
        c->coordred = r;
        for (int k = c->numcoordchunk; k < n; ++k) {
            c->coordf[k] = nullptr;
            c->coordd[k] = nullptr;
            c->coordred[k] = nullptr;
        }
        c->numcoordchunk = n;
    }
    size_t width = c->type == SYS_PRECISION_FLOAT ? sizeof(float)
                   : c->type == SYS_PRECISION_DOUBLE ? sizeof(double)
                                                     : sizeof(unsigned short);
    void** slot = c->type == SYS_PRECISION_FLOAT    ? (void**)&c->coordf[chunk]
                  : c->type == SYS_PRECISION_DOUBLE ? (void**)&c->coordd[chunk]
                                                    : (void**)&c->coordred[chunk];
    if (!*slot) {
        size_t bytes = (size_t)c->coordchunk * 3 * width;
        *slot = vsy_Malloc(bytes);
        if (!*slot) return nullptr;
        memset(*slot, 0, bytes);
    }
    return vis_Connect_CoordPtr(c, id);
}

static void vis_Connect_StoreCoords(vis_Connect* c, const char* name, int id, const double* x)
{
    if (vis_Connect_Null(c, name)) return;
    if (id < 1 || (!c->autonode && id > c->numnode)) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "id= %d", id);
        return;
    }
    if (!x) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "nix= %d", 0);
        return;
    }
    if (c->type == SYS_PRECISION_SHORT && !c->extset) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_OPERATION, "Def not called or extent not set");
        return;
    }
    void* p = vis_Connect_CoordMake(c, id);
    if (!p) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "id= %d", id);
        return;
    }
    double v[3] = {x[0], x[1], x[2]};
    switch (c->type) {
    case SYS_PRECISION_FLOAT:
        for (int a = 0; a < 3; ++a) ((float*)p)[a] = (float)v[a];
        break;
    case SYS_PRECISION_DOUBLE:
        for (int a = 0; a < 3; ++a) ((double*)p)[a] = v[a];
        break;
    case SYS_PRECISION_HALF:
        vsy_RedPreLoaddv(c->red, 3, v, p);
        vis_Connect_Poll(c, vsy_RedPreError(c->red));
        break;
    default:
        vsy_RedPreLoaddv(c->redx, 1, &v[0], (unsigned short*)p);
        vsy_RedPreLoaddv(c->redy, 1, &v[1], (unsigned short*)p + 1);
        vsy_RedPreLoaddv(c->redz, 1, &v[2], (unsigned short*)p + 2);
        vis_Connect_Poll(c, vsy_RedPreError(c->redx));
        vis_Connect_Poll(c, vsy_RedPreError(c->redy));
        vis_Connect_Poll(c, vsy_RedPreError(c->redz));
        break;
    }
    if (id > c->numcoord) c->numcoord = id;
    if (c->autonode && id > c->numnode) {
        c->numnode = id;
        vis_Connect_DropKernel(c);
    }
}

void vis_ConnectSetCoords(vis_Connect* c, int id, const float x[3])
{
    double v[3] = {0, 0, 0};
    if (x)
        for (int a = 0; a < 3; ++a) v[a] = x[a];
    vis_Connect_StoreCoords(c, "vis_ConnectSetCoords", id, x ? v : nullptr);
}

void vis_ConnectSetCoordsdv(vis_Connect* c, int id, const double x[3])
{
    vis_Connect_StoreCoords(c, "vis_ConnectSetCoordsdv", id, x);
}

void vis_ConnectDelNode(vis_Connect* c, int id)
{
    if (vis_Connect_Null(c, "vis_ConnectDelNode")) return;
    if (id < 1 || id > c->numnode) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectDelNode", SYS_ERROR_VALUE, "id= %d", id);
        return;
    }
    if (id <= c->numcoord) {
        void* p = vis_Connect_CoordPtr(c, id);
        if (p) {
            size_t width = c->type == SYS_PRECISION_FLOAT    ? sizeof(float)
                           : c->type == SYS_PRECISION_DOUBLE ? sizeof(double)
                                                             : sizeof(unsigned short);
            memset(p, 0, 3 * width);
        }
    }
    for (int t = 0; t <= VIS_CONNECT_MAXASSOC; ++t)
        if (c->nodeassoc[t] && id <= c->nodeassoc[t]->maxind) vis_AssocSet(c->nodeassoc[t], id, 0);
}

/* ---------------------------------------------------------------------------------------- */
/* Objects and options */

void vis_ConnectSetObject(vis_Connect* c, int objtype, void* object)
{
    if (vis_Connect_Null(c, "vis_ConnectSetObject")) return;
    switch (objtype) {
    case SYS_GRIDFUN: c->gridfun = (vis_GridFun*)object; break;
    case SYS_STATE: c->state = (vis_State*)object; break;
    case SYS_ELEMNORM: c->elemnorm = (vis_ElemDat*)object; break;
    case SYS_ELEMTANG: c->elemtang = (vis_ElemDat*)object; break;
    default: vsy_ErrorRecord(&c->ierr, "vis_ConnectSetObject", SYS_ERROR_OBJECTTYPE, "objecttype= %d", objtype);
    }
}

void vis_ConnectGetObject(vis_Connect* c, int objtype, void** object)
{
    if (vis_Connect_Null(c, "vis_ConnectGetObject")) return;
    if (object) *object = nullptr;
    void* found = nullptr;
    switch (objtype) {
    case SYS_GRIDFUN: found = c->gridfun; break;
    case SYS_STATE: found = c->state; break;
    case SYS_ELEMNORM: found = c->elemnorm; break;
    case SYS_ELEMTANG: found = c->elemtang; break;
    default:
        vsy_ErrorRecord(&c->ierr, "vis_ConnectGetObject", SYS_ERROR_OBJECTTYPE, "objecttype= %d", objtype);
        return;
    }
    if (object) *object = found;
}

void vis_ConnectSetParami(vis_Connect* c, int option, int value)
{
    if (vis_Connect_Null(c, "vis_ConnectSetParami")) return;
    switch (option) {
    case VIS_CONNECT_EXACTFACE: c->exactface = value; break;
    case VIS_CONNECT_HEADERFLAG: c->headerflag = value; break;
    case VIS_CONNECT_COORDSHIFT:
        if (value < 4 || value > 24) {
            vsy_ErrorRecord(&c->ierr, "vis_ConnectSetParami", SYS_ERROR_VALUE, "iparam= %d", value);
            return;
        }
        if (c->numcoordchunk > 0) {
            vsy_ErrorRecord(&c->ierr, "vis_ConnectSetParami", SYS_ERROR_OPERATION, "Coordinates already set");
            return;
        }
        c->coordshift = value;
        c->coordchunk = 1 << value;
        break;
    default: vsy_ErrorRecord(&c->ierr, "vis_ConnectSetParami", SYS_ERROR_ENUM, "type= %d", option); break;
    }
}

void vis_ConnectSetDimension(vis_Connect* c, int dimension)
{
    if (vis_Connect_Null(c, "vis_ConnectSetDimension")) return;
    if (dimension < 0 || dimension > 3) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectSetDimension", SYS_ERROR_VALUE, "iparam= %d", dimension);
        return;
    }
    c->dimension = dimension;
}
