/* vis_Connect: storage, building side and the element, coordinate and attribute queries; see
 * vis_Connect.h. The kernel and the adjacency queries are in vis_ConnectKernel.cpp.
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

#define GF_SET(c, code) ((c)->gridfun && (c)->gridfun->fun[code])
#define GF_CALL(c, code, T) ((T)(c)->gridfun->fun[code])

/* ---------------------------------------------------------------------------------------- */
/* Reports */

/* Range reports of the hot paths: the code is reported, `ierr` stays as it is. */
static void vis_Connect_Range(const char* name, const char* format, int arg)
{
    char text[VSY_ERROR_TEXTLEN];
    vsy_ErrorFormat(text, format, arg);
    vsy_ErrorMessage(name, SYS_ERROR_VALUE, text);
}

static void vis_Connect_Range2(const char* name, const char* format, int a, int b)
{
    char text[VSY_ERROR_TEXTLEN];
    vsy_ErrorFormat(text, format, a, b);
    vsy_ErrorMessage(name, SYS_ERROR_VALUE, text);
}

static int vis_Connect_Null(const vis_Connect* c, const char* name)
{
    if (c) return 0;
    vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
    return 1;
}

/* ---------------------------------------------------------------------------------------- */
/* Lifecycle */

static void vis_Connect_FreeCoords(vis_Connect* c)
{
    for (int k = 0; k < c->numcoordchunk; ++k) {
        if (c->coordf) vsy_Free(c->coordf[k]);
        if (c->coordd) vsy_Free(c->coordd[k]);
        if (c->coordred) vsy_Free(c->coordred[k]);
    }
    vsy_Free(c->coordf);
    vsy_Free(c->coordd);
    vsy_Free(c->coordred);
    c->coordf = nullptr;
    c->coordd = nullptr;
    c->coordred = nullptr;
    c->numcoordchunk = 0;
    c->numcoord = 0;
}

void vis_Connect_DropKernel(vis_Connect* c)
{
    vsy_Free(c->nodeelem);
    vsy_Free(c->nodeelempntr);
    vsy_Free(c->nodeelemsize);
    vsy_Free(c->polyfaceix);
    vsy_Free(c->polyfacepntr);
    c->nodeelem = nullptr;
    c->nodeelempntr = nullptr;
    c->nodeelemsize = nullptr;
    c->polyfaceix = nullptr;
    c->polyfacepntr = nullptr;
    if (c->mode == 0) c->maxnodeelem = 0;
}

/* Releases the elements, coordinates and kernel tables; attributes and names stay. */
static void vis_Connect_FreeData(vis_Connect* c)
{
    vis_Connect_DropKernel(c);
    vsy_Free(c->shape);
    vsy_Free(c->maxi);
    vsy_Free(c->maxj);
    vsy_Free(c->maxk);
    vsy_Free(c->numelemnode);
    vsy_Free(c->elnodeix);
    c->shape = nullptr;
    c->maxi = nullptr;
    c->maxj = nullptr;
    c->maxk = nullptr;
    c->numelemnode = nullptr;
    c->elnodeix = nullptr;
    c->elemalloc = 0;
    for (int k = 0; k < c->chunkalloc; ++k) vsy_Free(c->elnode[k]);
    vsy_Free(c->elnode);
    vsy_Free(c->chunkcap);
    vsy_Free(c->chunkused);
    c->elnode = nullptr;
    c->chunkcap = nullptr;
    c->chunkused = nullptr;
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

static void vis_Connect_FreeNames(vsy_HashTable* tab)
{
    if (!tab) return;
    int key;
    void* value;
    vsy_HashTableInitIter(tab);
    for (;;) {
        vsy_HashTableNextIter(tab, &key, &value);
        if (!value) break;
        vsy_Free(value);
    }
    vsy_HashTableDelete(tab);
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
    vis_Connect_FreeNames(c->partnames);
    vis_Connect_FreeNames(c->partijk);
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
        c->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vis_Connect_ReallocTopology", SYS_ERROR_MEMORY);
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
        c->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vis_Connect_ReallocElemNode", SYS_ERROR_MEMORY);
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
        c->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vis_Connect_Scratch", SYS_ERROR_MEMORY);
        return 0;
    }
    c->elnoixcap = cap;
    return 1;
}

/* Makes `scratch` hold at least n entries. */
static int vis_Connect_ScratchList(vis_Connect* c, int n)
{
    if (n <= c->scratchcap && c->scratch) return 1;
    int cap = vis_Connect_ScratchCap(n);
    int* s = cap > 0 ? (int*)vsy_Realloc(c->scratch, (size_t)cap * sizeof(int)) : nullptr;
    if (!s) {
        c->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vis_Connect_Scratch", SYS_ERROR_MEMORY);
        return 0;
    }
    c->scratch = s;
    c->scratchcap = cap;
    return 1;
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
        c->ierr = SYS_ERROR_OPERATION;
        vsy_ErrorMessage("vis_ConnectPre", SYS_ERROR_OPERATION, "Coordinates already set");
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
        c->ierr = SYS_ERROR_OPERATION;
        vsy_ErrorMessage("vis_ConnectMode", SYS_ERROR_OPERATION, "Elements already defined");
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
        c->ierr = SYS_ERROR_OPERATION;
        vsy_ErrorMessage(name, SYS_ERROR_OPERATION, "Coordinates already set");
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
        if (!c->elemlists) {
            c->elemlists = vsy_ChunkListNew();
            c->nodelists = vsy_ChunkListNew();
            if (!c->elemlists || !c->nodelists) {
                c->ierr = SYS_ERROR_MEMORY;
                return;
            }
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
    if (vsy_ChunkListError(c->nodelists)) c->ierr = SYS_ERROR_MEMORY;
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
            if (vsy_ChunkListError(c->elemlists)) {
                c->ierr = SYS_ERROR_MEMORY;
                return;
            }
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
        if (vsy_ChunkListError(c->elemlists)) {
            c->ierr = SYS_ERROR_MEMORY;
            return;
        }
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
static void* vis_Connect_CoordPtr(const vis_Connect* c, int id)
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

static void vis_Connect_PollRed(vis_Connect* c, vsy_RedPre* red)
{
    int e = vsy_RedPreError(red);
    if (e) c->ierr = e;
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
        c->ierr = SYS_ERROR_OPERATION;
        vsy_ErrorMessage(name, SYS_ERROR_OPERATION, "Def not called or extent not set");
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
        vis_Connect_PollRed(c, c->red);
        break;
    default:
        vsy_RedPreLoaddv(c->redx, 1, &v[0], (unsigned short*)p);
        vsy_RedPreLoaddv(c->redy, 1, &v[1], (unsigned short*)p + 1);
        vsy_RedPreLoaddv(c->redz, 1, &v[2], (unsigned short*)p + 2);
        vis_Connect_PollRed(c, c->redx);
        vis_Connect_PollRed(c, c->redy);
        vis_Connect_PollRed(c, c->redz);
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

/* Reads one node's coordinates in double; zeros when it has none. No checks. */
static void vis_Connect_ReadNode(vis_Connect* c, int id, double* x)
{
    x[0] = x[1] = x[2] = 0.0;
    if (id > c->numcoord) return;
    const void* p = vis_Connect_CoordPtr(c, id);
    if (!p) return;
    switch (c->type) {
    case SYS_PRECISION_FLOAT:
        for (int a = 0; a < 3; ++a) x[a] = ((const float*)p)[a];
        break;
    case SYS_PRECISION_DOUBLE:
        for (int a = 0; a < 3; ++a) x[a] = ((const double*)p)[a];
        break;
    case SYS_PRECISION_HALF: vsy_RedPreStoredv(c->red, 3, p, x); break;
    default:
        vsy_RedPreStoredv(c->redx, 1, (const unsigned short*)p, &x[0]);
        vsy_RedPreStoredv(c->redy, 1, (const unsigned short*)p + 1, &x[1]);
        vsy_RedPreStoredv(c->redz, 1, (const unsigned short*)p + 2, &x[2]);
        break;
    }
}

static void vis_Connect_ReadNodef(vis_Connect* c, int id, float* x)
{
    x[0] = x[1] = x[2] = 0.0f;
    if (id > c->numcoord) return;
    const void* p = vis_Connect_CoordPtr(c, id);
    if (!p) return;
    switch (c->type) {
    case SYS_PRECISION_FLOAT:
        for (int a = 0; a < 3; ++a) x[a] = ((const float*)p)[a];
        break;
    case SYS_PRECISION_DOUBLE:
        for (int a = 0; a < 3; ++a) x[a] = (float)((const double*)p)[a];
        break;
    case SYS_PRECISION_HALF: vsy_RedPreStore(c->red, 3, p, x); break;
    default:
        vsy_RedPreStore(c->redx, 1, (const unsigned short*)p, &x[0]);
        vsy_RedPreStore(c->redy, 1, (const unsigned short*)p + 1, &x[1]);
        vsy_RedPreStore(c->redz, 1, (const unsigned short*)p + 2, &x[2]);
        break;
    }
}

/* The checks of the coordinate reads: nix, then every id; reports without touching ierr. */
static int vis_Connect_CheckIds(vis_Connect* c, const char* name, int nix, const int* ix, int store)
{
    if (nix < 1 || !ix) {
        if (store) vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "nix= %d", nix);
        else vis_Connect_Range(name, "nix= %d", nix);
        return 0;
    }
    for (int k = 0; k < nix; ++k) {
        if (ix[k] < 1 || ix[k] > c->numnode) {
            if (store) vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "ix[%d]= %d", k, ix[k]);
            else vis_Connect_Range2(name, "ix[%d]= %d", k, ix[k]);
            return 0;
        }
    }
    return 1;
}

void vis_ConnectCoords(vis_Connect* c, int nix, const int* ix, float* x)
{
    if (vis_Connect_Null(c, "vis_ConnectCoords")) return;
    if (GF_SET(c, VIS_GRIDFUN_COORDS)) {
        GF_CALL(c, VIS_GRIDFUN_COORDS, vis_GridFunCoords_t)(c->gridfun->obj, nix, ix, x);
        return;
    }
    if (!vis_Connect_CheckIds(c, "vis_ConnectCoords", nix, ix, 0) || !x) return;
    for (int k = 0; k < nix; ++k) vis_Connect_ReadNodef(c, ix[k], x + 3 * k);
}

void vis_ConnectCoordsdv(vis_Connect* c, int nix, const int* ix, double* x)
{
    if (vis_Connect_Null(c, "vis_ConnectCoordsdv")) return;
    if (GF_SET(c, VIS_GRIDFUN_COORDSDV)) {
        GF_CALL(c, VIS_GRIDFUN_COORDSDV, vis_GridFunCoordsdv_t)(c->gridfun->obj, nix, ix, x);
        return;
    }
    if (!vis_Connect_CheckIds(c, "vis_ConnectCoordsdv", nix, ix, 0) || !x) return;
    for (int k = 0; k < nix; ++k) vis_Connect_ReadNode(c, ix[k], x + 3 * k);
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
    if (objtype != SYS_GRIDFUN) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectSetObject", SYS_ERROR_OBJECTTYPE, "objecttype= %d", objtype);
        return;
    }
    c->gridfun = (vis_GridFun*)object;
}

void vis_ConnectGetObject(vis_Connect* c, int objtype, void** object)
{
    if (vis_Connect_Null(c, "vis_ConnectGetObject")) return;
    if (object) *object = nullptr;
    if (objtype != SYS_GRIDFUN) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectGetObject", SYS_ERROR_OBJECTTYPE, "objecttype= %d", objtype);
        return;
    }
    if (object) *object = c->gridfun;
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
            c->ierr = SYS_ERROR_OPERATION;
            vsy_ErrorMessage("vis_ConnectSetParami", SYS_ERROR_OPERATION, "Coordinates already set");
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

/* ---------------------------------------------------------------------------------------- */
/* Part names and sizes */

static int vis_Connect_Table(vsy_HashTable** tab)
{
    if (*tab) return 1;
    *tab = vsy_HashTableNew();
    return *tab != nullptr;
}

void vis_ConnectSetPartName(vis_Connect* c, int id, const char* name)
{
    if (vis_Connect_Null(c, "vis_ConnectSetPartName")) return;
    void* old = nullptr;
    if (c->partnames) vsy_HashTableGet(c->partnames, id, &old);
    if (!name) {
        if (old) {
            vsy_HashTableRemove(c->partnames, id);
            vsy_Free(old);
        }
        return;
    }
    size_t len = strlen(name);
    if (len > VIS_CONNECT_NAMELEN) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectSetPartName", SYS_ERROR_VALUE, "len= %d",
                           len > INT_MAX ? INT_MAX : (int)len);
        return;
    }
    char* copy = (char*)vsy_Malloc(len + 1);
    if (!copy || !vis_Connect_Table(&c->partnames)) {
        vsy_Free(copy);
        c->ierr = SYS_ERROR_MEMORY;
        char text[VSY_ERROR_TEXTLEN];
        vsy_ErrorFormat(text, "name= %s", name);
        vsy_ErrorMessage("vis_ConnectSetPartName", SYS_ERROR_MEMORY, text);
        return;
    }
    memcpy(copy, name, len + 1);
    vsy_HashTableInsert(c->partnames, id, copy);
    if (vsy_HashTableError(c->partnames)) {
        vsy_Free(copy);
        c->ierr = SYS_ERROR_MEMORY;
        return;
    }
    vsy_Free(old);
}

void vis_ConnectPartName(vis_Connect* c, int id, char* name)
{
    if (vis_Connect_Null(c, "vis_ConnectPartName") || !name) return;
    name[0] = '\0';
    void* v = nullptr;
    if (c->partnames) vsy_HashTableGet(c->partnames, id, &v);
    if (v) strcpy(name, (const char*)v);
}

void vis_ConnectSetPartIJK(vis_Connect* c, int id, int i, int j, int k)
{
    if (vis_Connect_Null(c, "vis_ConnectSetPartIJK")) return;
    if (i < 0 || j < 0 || k < 0) {
        vsy_ErrorRecord(&c->ierr, "vis_ConnectSetPartIJK", SYS_ERROR_VALUE, "iparam= %d", i < 0 ? i : j < 0 ? j : k);
        return;
    }
    void* v = nullptr;
    if (c->partijk) vsy_HashTableGet(c->partijk, id, &v);
    int* rec = (int*)v;
    if (!rec) {
        rec = (int*)vsy_Malloc(3 * sizeof(int));
        if (!rec || !vis_Connect_Table(&c->partijk)) {
            vsy_Free(rec);
            vsy_ErrorRecord(&c->ierr, "vis_ConnectSetPartIJK", SYS_ERROR_MEMORY, "id= %d", id);
            return;
        }
        vsy_HashTableInsert(c->partijk, id, rec);
        if (vsy_HashTableError(c->partijk)) {
            vsy_Free(rec);
            c->ierr = SYS_ERROR_MEMORY;
            return;
        }
    }
    rec[0] = i;
    rec[1] = j;
    rec[2] = k;
}

void vis_ConnectPartIJK(vis_Connect* c, int id, int ijk[3])
{
    if (vis_Connect_Null(c, "vis_ConnectPartIJK") || !ijk) return;
    ijk[0] = ijk[1] = ijk[2] = 0;
    void* v = nullptr;
    if (c->partijk) vsy_HashTableGet(c->partijk, id, &v);
    if (v)
        for (int a = 0; a < 3; ++a) ijk[a] = ((int*)v)[a];
}

/* ---------------------------------------------------------------------------------------- */
/* Counts and element queries */

void vis_ConnectGetInteger(vis_Connect* c, int option, int* value)
{
    if (vis_Connect_Null(c, "vis_ConnectGetInteger")) return;
    if (GF_SET(c, VIS_GRIDFUN_GETINTEGER)) {
        GF_CALL(c, VIS_GRIDFUN_GETINTEGER, vis_GridFunGetInteger_t)(c->gridfun->obj, option, value);
        return;
    }
    if (!value) return;
    switch (option) {
    case VIS_CONNECT_NUMNODE: *value = c->numnode; break;
    case VIS_CONNECT_NUMEDGE: *value = c->numedge; break;
    case VIS_CONNECT_NUMFACE: *value = c->numface; break;
    case VIS_CONNECT_NUMELEM: *value = c->numelem; break;
    default: *value = 0; break;
    }
}

void vis_ConnectMaxElemNode(vis_Connect* c, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectMaxElemNode")) return;
    if (GF_SET(c, VIS_GRIDFUN_MAXELEMNODE)) {
        GF_CALL(c, VIS_GRIDFUN_MAXELEMNODE, vis_GridFunMaxElemNode_t)(c->gridfun->obj, num);
        return;
    }
    if (num) *num = c->maxelemnode;
}

static int vis_Connect_ElemRange(vis_Connect* c, const char* name, int id)
{
    if (id >= 1 && id <= c->numelem) return 1;
    vis_Connect_Range(name, "id= %d", id);
    return 0;
}

void vis_ConnectTopology(vis_Connect* c, int id, int* shape, int* maxi, int* maxj, int* maxk)
{
    if (vis_Connect_Null(c, "vis_ConnectTopology")) return;
    if (GF_SET(c, VIS_GRIDFUN_TOPOLOGY)) {
        GF_CALL(c, VIS_GRIDFUN_TOPOLOGY, vis_GridFunTopology_t)(c->gridfun->obj, id, shape, maxi, maxj, maxk);
        return;
    }
    if (!c->shape) {
        *shape = *maxi = *maxj = *maxk = 0;
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectTopology", id)) return;
    *shape = c->shape[id] == 255 ? -1 : c->shape[id];
    *maxi = c->maxi[id];
    *maxj = c->maxj[id];
    *maxk = c->maxk[id];
}

void vis_ConnectElemNode(vis_Connect* c, int id, int* num, int* nodes)
{
    if (vis_Connect_Null(c, "vis_ConnectElemNode")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMNODE)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMNODE, vis_GridFunElemNode_t)(c->gridfun->obj, id, num, nodes);
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectElemNode", id)) return;
    if (c->mode == 1) {
        int n;
        vsy_ChunkListNum(c->elemlists, id, &n);
        vsy_ChunkListGet(c->elemlists, id, n, num, nodes);
        return;
    }
    int n;
    const int* p = vis_Connect_List(c, id, &n);
    for (int k = 0; k < n; ++k) nodes[k] = p[k];
    *num = n;
}

void vis_ConnectElemNodePtr(vis_Connect* c, int id, int* num, const int** pointer)
{
    if (vis_Connect_Null(c, "vis_ConnectElemNodePtr")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMNODE)) {
        *num = 0;
        *pointer = nullptr;
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectElemNodePtr", id)) return;
    *pointer = vis_Connect_List(c, id, num);
}

void vis_ConnectIndElemNode(vis_Connect* c, int id, int index, int* node)
{
    if (vis_Connect_Null(c, "vis_ConnectIndElemNode")) return;
    if (c->gridfun && !c->numelemnode) {
        /* A front without storage: read the whole list through the slot. */
        int num = 0;
        if (!vis_Connect_Scratch(c) || !vis_Connect_ScratchList(c, c->maxelemnode)) return;
        vis_ConnectElemNode(c, id, &num, c->scratch);
        if (index < 0 || index >= num) {
            vis_Connect_Range("vis_ConnectIndElemNode", "index= %d", index);
            return;
        }
        *node = c->scratch[index];
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectIndElemNode", id)) return;
    if (index < 0 || index >= c->numelemnode[id]) {
        vis_Connect_Range("vis_ConnectIndElemNode", "index= %d", index);
        return;
    }
    if (c->mode == 1) vsy_ChunkListEntry(c->elemlists, id, index, node);
    else *node = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT][c->elnodeix[id] + index];
}

void vis_ConnectNumElemNode(vis_Connect* c, int id, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectNumElemNode")) return;
    if (GF_SET(c, VIS_GRIDFUN_NUMELEMNODE)) {
        GF_CALL(c, VIS_GRIDFUN_NUMELEMNODE, vis_GridFunNumElemNode_t)(c->gridfun->obj, id, num);
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectNumElemNode", id)) return;
    *num = c->numelemnode[id];
}

void vis_ConnectNumElemNodePtr(vis_Connect* c, const int** pointer)
{
    if (vis_Connect_Null(c, "vis_ConnectNumElemNodePtr")) return;
    if (GF_SET(c, VIS_GRIDFUN_NUMELEMNODEPTR)) {
        GF_CALL(c, VIS_GRIDFUN_NUMELEMNODEPTR, vis_GridFunNumElemNodePtr_t)(c->gridfun->obj, pointer);
        return;
    }
    if (pointer) *pointer = c->numelemnode;
}

void vis_ConnectElemNum(vis_Connect* c, int enttype, int id, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectElemNum")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMNUM)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMNUM, vis_GridFunElemNum_t)(c->gridfun->obj, enttype, id, num);
        return;
    }
    if (!vis_Connect_ElemRange(c, "vis_ConnectElemNum", id)) return;
    int shape = c->shape[id] == 255 ? -1 : c->shape[id];
    *num = 0;
    switch (enttype) {
    case SYS_NODE: *num = c->numelemnode[id]; break;
    case SYS_EDGE: vis_ElemEdgeCount(shape, c->maxj[id], num); break;
    case SYS_FACE: vis_ElemFaceCount(shape, c->maxk[id], num); break;
    default: break;
    }
}

void vis_ConnectGetDimension(vis_Connect* c, int* dimension)
{
    if (vis_Connect_Null(c, "vis_ConnectGetDimension") || !dimension) return;
    if (c->dimension) {
        *dimension = c->dimension;
        return;
    }
    if (GF_SET(c, VIS_GRIDFUN_GETDIMENSION)) {
        GF_CALL(c, VIS_GRIDFUN_GETDIMENSION, vis_GridFunGetDimension_t)(c->gridfun->obj, dimension);
        return;
    }
    *dimension = 3;
    vis_Assoc* et = c->elemassoc[VIS_ASSOC_ELEMTYPE];
    if (!et || !c->shape) return;
    for (int id = 1; id <= c->numelem; ++id) {
        int t = vis_AssocGet(et, id);
        int s = c->shape[id];
        if ((t == 1 && (s == SYS_SHAPE_TRI || s == SYS_SHAPE_QUAD)) || (t == 2 && s == SYS_SHAPE_LINE) ||
            (t == 4 && s == SYS_SHAPE_POINT)) {
            *dimension = 2;
            return;
        }
    }
}

/* ---------------------------------------------------------------------------------------- */
/* Extent */

template <class T>
static void vis_Connect_ExtentT(vis_Connect* c, const char* name, vis_Group* group, T* extent)
{
    if (group) {
        /* Node groups are not available yet: any group fails the check. */
        c->ierr = SYS_ERROR_VALUE;
        vsy_ErrorNumber(name, SYS_ERROR_VALUE);
        return;
    }
    if (!extent) return;
    vis_Assoc* mask = c->nodeassoc[VIS_ASSOC_ELEMTYPE];
    int any = 0;
    double lo[3] = {0, 0, 0}, hi[3] = {0, 0, 0};
    for (int id = 1; id <= c->numnode; ++id) {
        if (mask && vis_AssocGet(mask, id) == 0) continue;
        double x[3];
        vis_Connect_ReadNode(c, id, x);
        for (int a = 0; a < 3; ++a) {
            if (!any || x[a] < lo[a]) lo[a] = x[a];
            if (!any || x[a] > hi[a]) hi[a] = x[a];
        }
        any = 1;
    }
    if (!any) return;
    for (int a = 0; a < 3; ++a) {
        extent[a] = (T)lo[a];
        extent[a + 3] = (T)hi[a];
    }
}

void vis_ConnectExtent(vis_Connect* c, vis_Group* group, float extent[6])
{
    if (vis_Connect_Null(c, "vis_ConnectExtent")) return;
    if (GF_SET(c, VIS_GRIDFUN_EXTENT)) {
        GF_CALL(c, VIS_GRIDFUN_EXTENT, vis_GridFunExtent_t)(c->gridfun->obj, group, extent);
        return;
    }
    vis_Connect_ExtentT(c, "vis_ConnectExtent", group, extent);
}

void vis_ConnectExtentdv(vis_Connect* c, vis_Group* group, double extent[6])
{
    if (vis_Connect_Null(c, "vis_ConnectExtent")) return;
    if (GF_SET(c, VIS_GRIDFUN_EXTENTDV)) {
        GF_CALL(c, VIS_GRIDFUN_EXTENTDV, vis_GridFunExtentdv_t)(c->gridfun->obj, group, extent);
        return;
    }
    vis_Connect_ExtentT(c, "vis_ConnectExtent", group, extent);
}

/* ---------------------------------------------------------------------------------------- */
/* Attributes */

static int vis_Connect_CheckType(vis_Connect* c, const char* name, int type)
{
    if (type >= 0 && type <= VIS_CONNECT_MAXASSOC) return 1;
    vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
    return 0;
}

static void vis_Connect_PollAssoc(vis_Connect* c, vis_Assoc* a)
{
    int e = vis_AssocError(a);
    if (e) c->ierr = e;
}

/* The value a query gives for one entity. Nodes store user ids as id + 1. */
static int vis_Connect_NodeValue(vis_Assoc* a, int type, int id, int stored)
{
    if (type != VIS_ASSOC_USERID) return a ? stored : 0;
    if (!a || stored == 0) return id;
    return stored - 1;
}

static int vis_Connect_ElemValue(vis_Assoc* a, int type, int id, int stored)
{
    if (type != VIS_ASSOC_USERID) return a ? stored : 0;
    return stored == 0 ? id : stored;
}

void vis_ConnectNodeAssoc(vis_Connect* c, int type, int nix, const int* ix, int* values)
{
    if (vis_Connect_Null(c, "vis_ConnectNodeAssoc")) return;
    if (GF_SET(c, VIS_GRIDFUN_NODEASSOC)) {
        GF_CALL(c, VIS_GRIDFUN_NODEASSOC, vis_GridFunNodeAssoc_t)(c->gridfun->obj, type, nix, ix, values);
        return;
    }
    if (!vis_Connect_CheckType(c, "vis_ConnectNodeAssoc", type)) return;
    if (!vis_Connect_CheckIds(c, "vis_ConnectNodeAssoc", nix, ix, 1) || !values) return;
    vis_Assoc* a = c->nodeassoc[type];
    for (int k = 0; k < nix; ++k)
        values[k] = vis_Connect_NodeValue(a, type, ix[k], a ? vis_AssocGet(a, ix[k]) : 0);
    if (a) vis_Connect_PollAssoc(c, a);
}

void vis_ConnectElemAssoc(vis_Connect* c, int type, int nix, const int* ix, int* values)
{
    if (vis_Connect_Null(c, "vis_ConnectElemAssoc")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMASSOC)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMASSOC, vis_GridFunElemAssoc_t)(c->gridfun->obj, type, nix, ix, values);
        return;
    }
    /* No checks of the arguments beyond what keeps the read in bounds. */
    if (type < 0 || type > VIS_CONNECT_MAXASSOC || !ix || !values) return;
    vis_Assoc* a = c->elemassoc[type];
    for (int k = 0; k < nix; ++k)
        values[k] = vis_Connect_ElemValue(a, type, ix[k], a ? vis_AssocGet(a, ix[k]) : 0);
}

static void vis_Connect_NumAssoc(vis_Connect* c, const char* name, vis_Assoc** table, int type, int index,
                                 int* num)
{
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckType(c, name, type)) return;
    if (index < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (!num) return;
    *num = 1;
    if (table[type]) vis_AssocNum(table[type], index, num);
}

static void vis_Connect_AllAssoc(vis_Connect* c, const char* name, vis_Assoc** table, int type, int index,
                                 int* num, int* values, int node)
{
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckType(c, name, type)) return;
    if (index < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (!num || !values) return;
    vis_Assoc* a = table[type];
    if (!a) {
        *num = 1;
        values[0] = type == VIS_ASSOC_USERID ? index : 0;
        return;
    }
    vis_AssocAll(a, index, num, values);
    if (*num > 0)
        values[0] = node ? vis_Connect_NodeValue(a, type, index, values[0])
                         : vis_Connect_ElemValue(a, type, index, values[0]);
    if (node && type == VIS_ASSOC_USERID)
        for (int k = 1; k < *num; ++k) values[k] -= 1;
    vis_Connect_PollAssoc(c, a);
}

void vis_ConnectNumNodeAssoc(vis_Connect* c, int type, int index, int* num)
{
    vis_Connect_NumAssoc(c, "vis_ConnectNumNodeAssoc", c ? c->nodeassoc : nullptr, type, index, num);
}

void vis_ConnectAllNodeAssoc(vis_Connect* c, int type, int index, int* num, int* values)
{
    vis_Connect_AllAssoc(c, "vis_ConnectAllNodeAssoc", c ? c->nodeassoc : nullptr, type, index, num, values, 1);
}

void vis_ConnectNumElemAssoc(vis_Connect* c, int type, int index, int* num)
{
    vis_Connect_NumAssoc(c, "vis_ConnectNumElemAssoc", c ? c->elemassoc : nullptr, type, index, num);
}

void vis_ConnectAllElemAssoc(vis_Connect* c, int type, int index, int* num, int* values)
{
    vis_Connect_AllAssoc(c, "vis_ConnectAllElemAssoc", c ? c->elemassoc : nullptr, type, index, num, values, 0);
}

/* verb: 0 Set, 1 Add, 2 Uni. */
static void vis_Connect_PutAssoc(vis_Connect* c, const char* name, vis_Assoc** table, int type, int index,
                                 int value, int verb, int node)
{
    if (vis_Connect_Null(c, name) || !vis_Connect_CheckType(c, name, type)) return;
    if (index < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (node && type == VIS_ASSOC_USERID) value += 1;
    int created = !table[type];
    if (created) {
        table[type] = vis_AssocNew();
        if (!table[type]) {
            vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "index= %d", index);
            return;
        }
    }
    vis_Assoc* a = table[type];
    if (verb == 2) {
        int num = 0;
        if (index <= a->maxind) {
            vis_AssocNum(a, index, &num);
            int buf[64];
            int* all = num <= 64 ? buf : (int*)vsy_Malloc((size_t)num * sizeof(int));
            if (!all) {
                vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "index= %d", index);
                return;
            }
            vis_AssocAll(a, index, &num, all);
            int found = 0;
            for (int k = 0; k < num && !found; ++k) found = all[k] == value;
            if (all != buf) vsy_Free(all);
            if (found) return;
        }
        verb = 1;
    }
    if (verb == 0) vis_AssocSet(a, index, value);
    else vis_AssocAdd(a, index, value);
    int e = vis_AssocError(a);
    if (!e) return;
    c->ierr = e;
    if (created) {
        /* A failed first value leaves no attribute behind: the type stays absent. */
        vis_AssocDelete(a);
        table[type] = nullptr;
    }
}

void vis_ConnectSetNodeAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectSetNodeAssoc", c ? c->nodeassoc : nullptr, type, index, value, 0, 1);
}

void vis_ConnectAddNodeAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectAddNodeAssoc", c ? c->nodeassoc : nullptr, type, index, value, 1, 1);
}

void vis_ConnectUniNodeAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectUniNodeAssoc", c ? c->nodeassoc : nullptr, type, index, value, 2, 1);
}

void vis_ConnectSetElemAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectSetElemAssoc", c ? c->elemassoc : nullptr, type, index, value, 0, 0);
}

void vis_ConnectAddElemAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectAddElemAssoc", c ? c->elemassoc : nullptr, type, index, value, 1, 0);
}

void vis_ConnectUniElemAssoc(vis_Connect* c, int type, int index, int value)
{
    vis_Connect_PutAssoc(c, "vis_ConnectUniElemAssoc", c ? c->elemassoc : nullptr, type, index, value, 2, 0);
}

void vis_ConnectDelNodeAssoc(vis_Connect* c, int type)
{
    if (vis_Connect_Null(c, "vis_ConnectDelNodeAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectDelNodeAssoc", type))
        return;
    vis_AssocDelete(c->nodeassoc[type]);
    c->nodeassoc[type] = nullptr;
}

void vis_ConnectDelElemAssoc(vis_Connect* c, int type)
{
    if (vis_Connect_Null(c, "vis_ConnectDelElemAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectDelElemAssoc", type))
        return;
    vis_AssocDelete(c->elemassoc[type]);
    c->elemassoc[type] = nullptr;
}

void vis_ConnectAnyNodeAssoc(vis_Connect* c, int type, int* flag)
{
    if (vis_Connect_Null(c, "vis_ConnectAnyNodeAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectAnyNodeAssoc", type) || !flag)
        return;
    *flag = c->nodeassoc[type] != nullptr;
}

void vis_ConnectAnyElemAssoc(vis_Connect* c, int type, int* flag)
{
    if (vis_Connect_Null(c, "vis_ConnectAnyElemAssoc") ||
        !vis_Connect_CheckType(c, "vis_ConnectAnyElemAssoc", type) || !flag)
        return;
    *flag = c->elemassoc[type] != nullptr;
}

/* The table of an entity association; creates it when make is set. Null with a report on a bad
 * type or enttype. */
static vis_CHash** vis_Connect_EntTable(vis_Connect* c, const char* name, int type, int enttype)
{
    if (!vis_Connect_CheckType(c, name, type)) return nullptr;
    if (enttype == SYS_EDGE) return &c->edgeassoc[type];
    if (enttype == SYS_FACE) return &c->faceassoc[type];
    vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_ENUM, "enttype= %d", enttype);
    return nullptr;
}

static void vis_Connect_PollCHash(vis_Connect* c, vis_CHash* h)
{
    int e = vis_CHashError(h);
    if (e) c->ierr = e;
}

void vis_ConnectElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int* value)
{
    if (vis_Connect_Null(c, "vis_ConnectElemEntAssoc")) return;
    if (GF_SET(c, VIS_GRIDFUN_ELEMENTASSOC)) {
        GF_CALL(c, VIS_GRIDFUN_ELEMENTASSOC, vis_GridFunElemEntAssoc_t)(c->gridfun->obj, type, enttype, id, no,
                                                                       value);
        return;
    }
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectElemEntAssoc", type, enttype);
    if (!h || !value) return;
    *value = 0;
    if (!*h) return;
    vis_CHashGet(*h, id, no, value);
    vis_Connect_PollCHash(c, *h);
}

static void vis_Connect_PutEnt(vis_Connect* c, const char* name, int type, int enttype, int id, int no,
                               int value, int verb)
{
    if (vis_Connect_Null(c, name)) return;
    vis_CHash** h = vis_Connect_EntTable(c, name, type, enttype);
    if (!h) return;
    if (id < 1 || no < 1) {
        vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_VALUE, "index= %d, no= %d", id, no);
        return;
    }
    if (!*h) {
        *h = vis_CHashNew();
        if (!*h) {
            vsy_ErrorRecord(&c->ierr, name, SYS_ERROR_MEMORY, "index= %d, no= %d", id, no);
            return;
        }
    }
    if (verb == 0) vis_CHashSet(*h, id, no, value);
    else if (verb == 1) vis_CHashAdd(*h, id, no, value);
    else vis_CHashUni(*h, id, no, value);
    vis_Connect_PollCHash(c, *h);
}

void vis_ConnectSetElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int value)
{
    vis_Connect_PutEnt(c, "vis_ConnectSetElemEntAssoc", type, enttype, id, no, value, 0);
}

void vis_ConnectAddElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int value)
{
    vis_Connect_PutEnt(c, "vis_ConnectAddElemEntAssoc", type, enttype, id, no, value, 1);
}

void vis_ConnectUniElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int value)
{
    vis_Connect_PutEnt(c, "vis_ConnectUniElemEntAssoc", type, enttype, id, no, value, 2);
}

void vis_ConnectNumElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int* num)
{
    if (vis_Connect_Null(c, "vis_ConnectNumElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectNumElemEntAssoc", type, enttype);
    if (!h || !num) return;
    *num = 0;
    if (!*h) return;
    vis_CHashNum(*h, id, no, num);
    vis_Connect_PollCHash(c, *h);
}

void vis_ConnectAllElemEntAssoc(vis_Connect* c, int type, int enttype, int id, int no, int* num, int* values)
{
    if (vis_Connect_Null(c, "vis_ConnectAllElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectAllElemEntAssoc", type, enttype);
    if (!h || !num) return;
    *num = 0;
    if (!*h) return;
    vis_CHashAll(*h, id, no, num, values);
    vis_Connect_PollCHash(c, *h);
}

void vis_ConnectDelElemEntAssoc(vis_Connect* c, int type, int enttype)
{
    if (vis_Connect_Null(c, "vis_ConnectDelElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectDelElemEntAssoc", type, enttype);
    if (!h) return;
    vis_CHashDelete(*h);
    *h = nullptr;
}

void vis_ConnectAnyElemEntAssoc(vis_Connect* c, int type, int enttype, int* flag)
{
    if (vis_Connect_Null(c, "vis_ConnectAnyElemEntAssoc")) return;
    vis_CHash** h = vis_Connect_EntTable(c, "vis_ConnectAnyElemEntAssoc", type, enttype);
    if (!h || !flag) return;
    *flag = *h != nullptr;
}

/* ---------------------------------------------------------------------------------------- */
/* The grid function over a connect: each slot hands its object back as the connect. */

#define VC(obj) ((vis_Connect*)(obj))

static void gf_GetInteger(void* o, int option, int* value) { vis_ConnectGetInteger(VC(o), option, value); }
static void gf_Topology(void* o, int id, int* s, int* i, int* j, int* k) { vis_ConnectTopology(VC(o), id, s, i, j, k); }
static void gf_ElemNode(void* o, int id, int* num, int* nodes) { vis_ConnectElemNode(VC(o), id, num, nodes); }
static void gf_MaxElemNode(void* o, int* num) { vis_ConnectMaxElemNode(VC(o), num); }
static void gf_Coords(void* o, int nix, const int* ix, float* x) { vis_ConnectCoords(VC(o), nix, ix, x); }
static void gf_NodeAssoc(void* o, int type, int nix, const int* ix, int* v) { vis_ConnectNodeAssoc(VC(o), type, nix, ix, v); }
static void gf_ElemAssoc(void* o, int type, int nix, const int* ix, int* v) { vis_ConnectElemAssoc(VC(o), type, nix, ix, v); }
static void gf_ElemNum(void* o, int enttype, int id, int* num) { vis_ConnectElemNum(VC(o), enttype, id, num); }
static void gf_ElemCon(void* o, int et, int id, int no, int* num, int* nodes) { vis_ConnectElemCon(VC(o), et, id, no, num, nodes); }
static void gf_ElemTopo(void* o, int et, int id, int no, int* s, int* i, int* j) { vis_ConnectElemTopo(VC(o), et, id, no, s, i, j); }
static void gf_ElemAdj(void* o, int et, int id, int no, int* num, int* e) { vis_ConnectElemAdj(VC(o), et, id, no, num, e); }
static void gf_MaxNodeElem(void* o, int* num) { vis_ConnectMaxNodeElem(VC(o), num); }
static void gf_NodeElem(void* o, int id, int* num, int* e) { vis_ConnectNodeElem(VC(o), id, num, e); }
static void gf_Extent(void* o, vis_Group* g, float* e) { vis_ConnectExtent(VC(o), g, e); }
static void gf_ElemCnn(void* o, int et, int id, int no, int* num, int* p) { vis_ConnectElemCnn(VC(o), et, id, no, num, p); }
static void gf_NodeElemCommon(void* o, int n, const int* nodes, int* num, int* e) { vis_ConnectNodeElemCommon(VC(o), n, nodes, num, e); }
static void gf_Coordsdv(void* o, int nix, const int* ix, double* x) { vis_ConnectCoordsdv(VC(o), nix, ix, x); }
static void gf_NumElemNodePtr(void* o, const int** p) { vis_ConnectNumElemNodePtr(VC(o), p); }
static int gf_Error(void* o) { return vis_ConnectError(VC(o)); }
static void gf_NumElemNode(void* o, int id, int* num) { vis_ConnectNumElemNode(VC(o), id, num); }
static void gf_NumNodeElem(void* o, int id, int* num) { vis_ConnectNumNodeElem(VC(o), id, num); }
static void gf_ElemCorn(void* o, int et, int id, int no, int* num, int* p) { vis_ConnectElemCorn(VC(o), et, id, no, num, p); }
static void gf_GetDimension(void* o, int* d) { vis_ConnectGetDimension(VC(o), d); }
static void gf_Extentdv(void* o, vis_Group* g, double* e) { vis_ConnectExtentdv(VC(o), g, e); }
static void gf_ElemEntAssoc(void* o, int t, int et, int id, int no, int* v) { vis_ConnectElemEntAssoc(VC(o), t, et, id, no, v); }
static void gf_NodeNode(void* o, int id, int* num, int* nodes) { vis_ConnectNodeNode(VC(o), id, num, nodes); }

void vis_ConnectGridFun(vis_Connect* c, vis_GridFun* gf)
{
    if (vis_Connect_Null(c, "vis_ConnectGridFun")) return;
    if (!gf) {
        c->ierr = SYS_ERROR_NULLOBJECT;
        vsy_ErrorMessage("vis_ConnectGridFun", SYS_ERROR_NULLOBJECT, "GridFun");
        return;
    }
    vis_GridFunSetObj(gf, c);
    vis_GridFunSet(gf, VIS_GRIDFUN_GETINTEGER, (vis_GridFunc)gf_GetInteger);
    vis_GridFunSet(gf, VIS_GRIDFUN_TOPOLOGY, (vis_GridFunc)gf_Topology);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMNODE, (vis_GridFunc)gf_ElemNode);
    vis_GridFunSet(gf, VIS_GRIDFUN_MAXELEMNODE, (vis_GridFunc)gf_MaxElemNode);
    vis_GridFunSet(gf, VIS_GRIDFUN_COORDS, (vis_GridFunc)gf_Coords);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODEASSOC, (vis_GridFunc)gf_NodeAssoc);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMASSOC, (vis_GridFunc)gf_ElemAssoc);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMNUM, (vis_GridFunc)gf_ElemNum);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMCON, (vis_GridFunc)gf_ElemCon);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMTOPO, (vis_GridFunc)gf_ElemTopo);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMADJ, (vis_GridFunc)gf_ElemAdj);
    vis_GridFunSet(gf, VIS_GRIDFUN_MAXNODEELEM, (vis_GridFunc)gf_MaxNodeElem);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODEELEM, (vis_GridFunc)gf_NodeElem);
    vis_GridFunSet(gf, VIS_GRIDFUN_EXTENT, (vis_GridFunc)gf_Extent);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMCNN, (vis_GridFunc)gf_ElemCnn);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODEELEMCOMMON, (vis_GridFunc)gf_NodeElemCommon);
    vis_GridFunSet(gf, VIS_GRIDFUN_COORDSDV, (vis_GridFunc)gf_Coordsdv);
    vis_GridFunSet(gf, VIS_GRIDFUN_NUMELEMNODEPTR, (vis_GridFunc)gf_NumElemNodePtr);
    vis_GridFunSet(gf, VIS_GRIDFUN_ERROR, (vis_GridFunc)gf_Error);
    vis_GridFunSet(gf, VIS_GRIDFUN_NUMELEMNODE, (vis_GridFunc)gf_NumElemNode);
    vis_GridFunSet(gf, VIS_GRIDFUN_NUMNODEELEM, (vis_GridFunc)gf_NumNodeElem);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMCORN, (vis_GridFunc)gf_ElemCorn);
    vis_GridFunSet(gf, VIS_GRIDFUN_GETDIMENSION, (vis_GridFunc)gf_GetDimension);
    vis_GridFunSet(gf, VIS_GRIDFUN_EXTENTDV, (vis_GridFunc)gf_Extentdv);
    vis_GridFunSet(gf, VIS_GRIDFUN_ELEMENTASSOC, (vis_GridFunc)gf_ElemEntAssoc);
    vis_GridFunSet(gf, VIS_GRIDFUN_NODENODE, (vis_GridFunc)gf_NodeNode);
}
