/* vis_Assoc: compact integer attributes with chains of extra values; see vis_Assoc.h.
 *
 * Invariants kept by every operation:
 *   - exactly one typed array is non-null, the one of `type` (none for types 1 and 6);
 *   - an array of type 3, 4 or 5 has cap + 1 entries, the nibble array bytecap + 1 bytes with
 *     cap = 2 * bytecap - 1; maxind <= cap whenever an array exists;
 *   - entries from maxind + 1 to cap read 0;
 *   - head, when present, has headcap + 1 entries; the chain of an index lies only at indices
 *     1..maxind; links not in a chain are on the free list.
 */
#include "vis_Assoc.h"

#include "vsy_Error.h"
#include "vsy_Grow.h"

static int vis_Assoc_IsArray(int type)
{
    return type >= VIS_ASSOC_NIBBLE && type <= VIS_ASSOC_INT;
}

/* Narrowest array type that holds v. */
static int vis_Assoc_Need(int v)
{
    if (v >= 0 && v <= 15) return VIS_ASSOC_NIBBLE;
    if (v >= -128 && v <= 127) return VIS_ASSOC_BYTE;
    if (v >= -32768 && v <= 32767) return VIS_ASSOC_SHORT;
    return VIS_ASSOC_INT;
}

/* Narrowest array type that holds every present value. */
static int vis_Assoc_NeedAll(const vis_Assoc* assoc)
{
    if (assoc->type == VIS_ASSOC_CONSTANT) return vis_Assoc_Need(assoc->constval);
    if (assoc->type == VIS_ASSOC_IDENTITY) return vis_Assoc_Need(assoc->maxind);
    return assoc->type;
}

static void vis_Assoc_PutNibble(unsigned char* nib, int index, int v)
{
    int sh = 4 * (index % 2);
    nib[index / 2] = (unsigned char)((nib[index / 2] & ~(15 << sh)) | ((v & 15) << sh));
}

/* Writes v (which fits the type) at index (<= cap) of the typed array. */
static void vis_Assoc_Put(vis_Assoc* assoc, int index, int v)
{
    switch (assoc->type) {
    case VIS_ASSOC_NIBBLE: vis_Assoc_PutNibble(assoc->nibbles, index, v); break;
    case VIS_ASSOC_BYTE: assoc->bytes[index] = (signed char)v; break;
    case VIS_ASSOC_SHORT: assoc->shorts[index] = (short)v; break;
    case VIS_ASSOC_INT: assoc->ints[index] = v; break;
    default: break;
    }
}

static void vis_Assoc_FreeArrays(vis_Assoc* assoc)
{
    vsy_Free(assoc->nibbles);
    vsy_Free(assoc->bytes);
    vsy_Free(assoc->shorts);
    vsy_Free(assoc->ints);
    assoc->nibbles = nullptr;
    assoc->bytes = nullptr;
    assoc->shorts = nullptr;
    assoc->ints = nullptr;
    assoc->bytecap = 0;
}

static void vis_Assoc_FreeAll(vis_Assoc* assoc)
{
    vis_Assoc_FreeArrays(assoc);
    vsy_Free(assoc->head);
    vsy_Free(assoc->pool);
    assoc->head = nullptr;
    assoc->pool = nullptr;
    assoc->poolnum = 0;
    assoc->poolcap = 0;
    assoc->freelink = -1;
    assoc->headcap = 0;
}

static void vis_Assoc_Reset(vis_Assoc* assoc, int type)
{
    assoc->maxind = 0;
    assoc->cap = 0;
    assoc->type = type;
    assoc->constval = 0;
}

vis_Assoc* vis_AssocNew(void)
{
    vis_Assoc* assoc = (vis_Assoc*)vsy_Malloc(sizeof(vis_Assoc));
    if (!assoc) {
        vsy_ErrorMessage("Assoc", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    assoc->ierr = 0;
    assoc->nibbles = nullptr;
    assoc->bytes = nullptr;
    assoc->shorts = nullptr;
    assoc->ints = nullptr;
    assoc->head = nullptr;
    assoc->pool = nullptr;
    vis_Assoc_FreeAll(assoc);
    vis_Assoc_Reset(assoc, VIS_ASSOC_CONSTANT);
    return assoc;
}

void vis_AssocDelete(vis_Assoc* assoc)
{
    if (!assoc) return;
    assoc->ierr = 0;
    vis_Assoc_FreeAll(assoc);
    vsy_Free(assoc);
}

int vis_AssocError(vis_Assoc* assoc)
{
    if (!assoc) return SYS_ERROR_NULLOBJECT;
    int ierr = assoc->ierr;
    assoc->ierr = 0;
    return ierr;
}

/* A new typed array of `type` with room for index c at least, all zero; the association is not
 * touched. Returns 0 on allocation failure. */
static int vis_Assoc_NewArray(int type, int c, void** array, int* cap, int* bytecap)
{
    int ierr = 0;
    *array = nullptr;
    if (type == VIS_ASSOC_NIBBLE) {
        unsigned char* p = nullptr;
        int bc = c / 2 + 1;
        vsy_GrowCapacity(c / 2 + 1, &bc, &p, &ierr);
        if (ierr) return 0;
        for (int b = 0; b <= bc; ++b) p[b] = 0;
        *array = p;
        *bytecap = bc;
        *cap = 2 * bc - 1;
        return 1;
    }
    int cc = c;
    if (type == VIS_ASSOC_BYTE) {
        signed char* p = nullptr;
        vsy_GrowCapacity(c, &cc, &p, &ierr);
        if (ierr) return 0;
        for (int i = 0; i <= cc; ++i) p[i] = 0;
        *array = p;
    } else if (type == VIS_ASSOC_SHORT) {
        short* p = nullptr;
        vsy_GrowCapacity(c, &cc, &p, &ierr);
        if (ierr) return 0;
        for (int i = 0; i <= cc; ++i) p[i] = 0;
        *array = p;
    } else {
        int* p = nullptr;
        vsy_GrowCapacity(c, &cc, &p, &ierr);
        if (ierr) return 0;
        for (int i = 0; i <= cc; ++i) p[i] = 0;
        *array = p;
    }
    *cap = cc;
    return 1;
}

static void vis_Assoc_Attach(vis_Assoc* assoc, int type, void* array, int cap, int bytecap)
{
    assoc->type = type;
    assoc->cap = cap;
    assoc->bytecap = bytecap;
    switch (type) {
    case VIS_ASSOC_NIBBLE: assoc->nibbles = (unsigned char*)array; break;
    case VIS_ASSOC_BYTE: assoc->bytes = (signed char*)array; break;
    case VIS_ASSOC_SHORT: assoc->shorts = (short*)array; break;
    default: assoc->ints = (int*)array; break;
    }
}

/* Grows or creates head to cap, new entries -1. Returns 0 on failure. */
static int vis_Assoc_GrowHead(vis_Assoc* assoc)
{
    if (assoc->head && assoc->headcap == assoc->cap) return 1;
    int* h = (int*)vsy_Realloc(assoc->head, ((size_t)assoc->cap + 1) * sizeof(int));
    if (!h) return 0;
    int from = assoc->head ? assoc->headcap + 1 : 0;
    for (int i = from; i <= assoc->cap; ++i) h[i] = -1;
    assoc->head = h;
    assoc->headcap = assoc->cap;
    return 1;
}

/* Moves every value into a new array of `type` with room for index mincap at least. */
static int vis_Assoc_Convert(vis_Assoc* assoc, int type, int mincap, const char* name)
{
    int c = assoc->cap > mincap ? assoc->cap : mincap;
    if (assoc->maxind > c) c = assoc->maxind;
    void* array;
    int cap = 0, bytecap = 0;
    if (!vis_Assoc_NewArray(type, c, &array, &cap, &bytecap)) {
        vsy_ErrorRecord(&assoc->ierr, name, SYS_ERROR_MEMORY, "index= %d", mincap);
        return 0;
    }
    vis_Assoc tmp = *assoc;
    tmp.nibbles = nullptr;
    tmp.bytes = nullptr;
    tmp.shorts = nullptr;
    tmp.ints = nullptr;
    vis_Assoc_Attach(&tmp, type, array, cap, bytecap);
    for (int i = 1; i <= assoc->maxind; ++i) vis_Assoc_Put(&tmp, i, vis_AssocGet(assoc, i));
    vis_Assoc_FreeArrays(assoc);
    vis_Assoc_Attach(assoc, type, array, cap, bytecap);
    if (assoc->head && !vis_Assoc_GrowHead(assoc)) {
        /* head keeps its old size; queries check headcap, so nothing is lost. */
        vsy_ErrorRecord(&assoc->ierr, name, SYS_ERROR_MEMORY, "index= %d", mincap);
        return 0;
    }
    return 1;
}

void vis_AssocDef(vis_Assoc* assoc, int nument, int type)
{
    if (!assoc) {
        vsy_ErrorNumber("vis_AssocDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (nument < 0) {
        vsy_ErrorRecord(&assoc->ierr, "vis_AssocDef", SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    if (type < VIS_ASSOC_CONSTANT || type > VIS_ASSOC_IDENTITY) {
        vsy_ErrorRecord(&assoc->ierr, "vis_AssocDef", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    vis_Assoc_FreeAll(assoc);
    vis_Assoc_Reset(assoc, VIS_ASSOC_CONSTANT);
    if (!vis_Assoc_IsArray(type)) {
        assoc->type = type;
        return;
    }
    void* array;
    int cap = 0, bytecap = 0;
    if (!vis_Assoc_NewArray(type, nument, &array, &cap, &bytecap)) {
        vsy_ErrorRecord(&assoc->ierr, "vis_AssocDef", SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    vis_Assoc_Attach(assoc, type, array, cap, bytecap);
}

void vis_Assoc_Realloc(vis_Assoc* assoc, int newcap, int* ierr)
{
    int dummy = 0;
    if (!ierr) ierr = &dummy;
    *ierr = 0;
    if (!assoc) return;
    if (!vis_Assoc_IsArray(assoc->type)) return;
    if (newcap < assoc->maxind) newcap = assoc->maxind;
    int e = 0, cap = assoc->cap;
    switch (assoc->type) {
    case VIS_ASSOC_NIBBLE: {
        unsigned char* p = assoc->nibbles;
        int bc = assoc->bytecap;
        vsy_GrowCapacity(newcap / 2 + 1, &bc, &p, &e);
        if (!e) {
            for (int b = assoc->bytecap + 1; b <= bc; ++b) p[b] = 0;
            assoc->nibbles = p;
            assoc->bytecap = bc;
            cap = 2 * bc - 1;
        }
        break;
    }
    case VIS_ASSOC_BYTE: {
        signed char* p = assoc->bytes;
        vsy_GrowCapacity(newcap, &cap, &p, &e);
        if (!e) assoc->bytes = p;
        break;
    }
    case VIS_ASSOC_SHORT: {
        short* p = assoc->shorts;
        vsy_GrowCapacity(newcap, &cap, &p, &e);
        if (!e) assoc->shorts = p;
        break;
    }
    default: {
        int* p = assoc->ints;
        vsy_GrowCapacity(newcap, &cap, &p, &e);
        if (!e) assoc->ints = p;
        break;
    }
    }
    if (e) {
        *ierr = SYS_ERROR_MEMORY;
        assoc->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vis_Assoc_Realloc", SYS_ERROR_MEMORY);
        return;
    }
    assoc->cap = cap;
    for (int i = assoc->maxind + 1; i <= cap; ++i) vis_Assoc_Put(assoc, i, 0);
    if (assoc->head && !vis_Assoc_GrowHead(assoc)) {
        *ierr = SYS_ERROR_MEMORY;
        assoc->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vis_Assoc_Realloc", SYS_ERROR_MEMORY);
    }
}

/* Puts the chain of index on the free list. */
static void vis_Assoc_DropChain(vis_Assoc* assoc, int index)
{
    if (!assoc->head || index > assoc->headcap) return;
    int l = assoc->head[index];
    while (l != -1) {
        int next = assoc->pool[l].next;
        assoc->pool[l].next = assoc->freelink;
        assoc->freelink = l;
        l = next;
    }
    assoc->head[index] = -1;
}

/* Whether a pattern type (constant, identity) can take value at index; updates it if so. */
static int vis_Assoc_Pattern(vis_Assoc* assoc, int index, int value)
{
    int m = assoc->maxind;
    if (assoc->type == VIS_ASSOC_CONSTANT) {
        if (m == 0 && (index == 1 || value == 0)) {
            assoc->constval = value;
            assoc->maxind = index;
            return 1;
        }
        if (value == assoc->constval && (index <= m + 1 || value == 0)) {
            if (index > m) assoc->maxind = index;
            return 1;
        }
        if (m == 1 && assoc->constval == 1 && index == 2 && value == 2) {
            assoc->type = VIS_ASSOC_IDENTITY;
            assoc->maxind = 2;
            return 1;
        }
        return 0;
    }
    if (value != index || index > m + 1) return 0;
    if (index > m) assoc->maxind = index;
    return 1;
}

void vis_AssocSet(vis_Assoc* assoc, int index, int value)
{
    if (!assoc) {
        vsy_ErrorNumber("vis_AssocSet", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (index < 1) {
        vsy_ErrorRecord(&assoc->ierr, "vis_AssocSet", SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (!vis_Assoc_IsArray(assoc->type)) {
        if (vis_Assoc_Pattern(assoc, index, value)) {
            vis_Assoc_DropChain(assoc, index);
            return;
        }
    }
    int need = vis_Assoc_Need(value), have = vis_Assoc_NeedAll(assoc);
    if (!vis_Assoc_IsArray(assoc->type) || need > assoc->type) {
        if (!vis_Assoc_Convert(assoc, need > have ? need : have, index, "vis_AssocSet")) return;
    }
    if (index > assoc->cap) {
        int ierr = 0;
        vis_Assoc_Realloc(assoc, index, &ierr);
        if (ierr) return;
    }
    vis_Assoc_Put(assoc, index, value);
    if (index > assoc->maxind) assoc->maxind = index;
    vis_Assoc_DropChain(assoc, index);
}

/* A free link, from the free list or the end of the pool; -1 on failure. */
static int vis_Assoc_NewLink(vis_Assoc* assoc)
{
    if (assoc->freelink != -1) {
        int l = assoc->freelink;
        assoc->freelink = assoc->pool[l].next;
        return l;
    }
    if (!assoc->pool || assoc->poolnum > assoc->poolcap) {
        int c = vsy_GrowNewCapacity(assoc->poolnum, assoc->pool ? assoc->poolcap : -1);
        /* The rule clamps at its largest capacity: a pool that cannot reach the next link fails. */
        if (c < assoc->poolnum) return -1;
        vis_AssocLink* p =
            (vis_AssocLink*)vsy_Realloc(assoc->pool, ((size_t)c + 1) * sizeof(vis_AssocLink));
        if (!p) return -1;
        assoc->pool = p;
        assoc->poolcap = c;
    }
    return assoc->poolnum++;
}

void vis_AssocAdd(vis_Assoc* assoc, int index, int value)
{
    if (!assoc) {
        vsy_ErrorNumber("vis_AssocAdd", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (index < 1) {
        vsy_ErrorRecord(&assoc->ierr, "vis_AssocAdd", SYS_ERROR_VALUE, "index= %d", index);
        return;
    }
    if (index > assoc->maxind) {
        vis_AssocSet(assoc, index, value);
        return;
    }
    if (!vis_Assoc_IsArray(assoc->type)) {
        if (!vis_Assoc_Convert(assoc, vis_Assoc_NeedAll(assoc), assoc->maxind, "vis_AssocAdd")) return;
    }
    if (!vis_Assoc_GrowHead(assoc)) {
        vsy_ErrorRecord(&assoc->ierr, "vis_AssocAdd", SYS_ERROR_MEMORY, "index= %d", index);
        return;
    }
    int l = vis_Assoc_NewLink(assoc);
    if (l < 0) {
        vsy_ErrorRecord(&assoc->ierr, "vis_AssocAdd", SYS_ERROR_MEMORY, "index= %d", index);
        return;
    }
    assoc->pool[l].next = -1;
    assoc->pool[l].value = value;
    int* at = &assoc->head[index];
    while (*at != -1) at = &assoc->pool[*at].next;
    *at = l;
}

int vis_AssocGet(vis_Assoc* assoc, int index)
{
    if (!assoc || index > assoc->maxind || index < 0) return 0;
    switch (assoc->type) {
    case VIS_ASSOC_CONSTANT: return assoc->constval;
    case VIS_ASSOC_IDENTITY: return index;
    case VIS_ASSOC_NIBBLE: return (assoc->nibbles[index / 2] >> (4 * (index % 2))) & 15;
    case VIS_ASSOC_BYTE: return assoc->bytes[index];
    case VIS_ASSOC_SHORT: return assoc->shorts[index];
    default: return assoc->ints[index];
    }
}

static int vis_Assoc_Chain(const vis_Assoc* assoc, int index)
{
    if (index < 0 || index > assoc->cap || !assoc->head || index > assoc->headcap) return -1;
    return assoc->head[index];
}

void vis_AssocNum(vis_Assoc* assoc, int index, int* num)
{
    if (!num) return;
    *num = 0;
    if (!assoc) return;
    int n = 1;
    for (int l = vis_Assoc_Chain(assoc, index); l != -1; l = assoc->pool[l].next) ++n;
    *num = n;
}

void vis_AssocAll(vis_Assoc* assoc, int index, int* num, int* values)
{
    if (!num) return;
    *num = 0;
    if (!assoc) return;
    int n = 0;
    if (values) values[n] = vis_AssocGet(assoc, index);
    ++n;
    for (int l = vis_Assoc_Chain(assoc, index); l != -1; l = assoc->pool[l].next) {
        if (values) values[n] = assoc->pool[l].value;
        ++n;
    }
    *num = n;
}

void vis_AssocType(vis_Assoc* assoc, int* type)
{
    if (assoc && type) *type = assoc->type;
}

void vis_AssocMaxIndex(vis_Assoc* assoc, int* maxind)
{
    if (assoc && maxind) *maxind = assoc->maxind;
}

void vis_AssocCompact(vis_Assoc* assoc)
{
    if (!assoc) {
        vsy_ErrorNumber("vis_AssocCompact", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!vis_Assoc_IsArray(assoc->type)) return;
    if (assoc->maxind != assoc->cap) {
        int ierr = 0;
        vis_Assoc_Realloc(assoc, assoc->maxind, &ierr);
    }
    /* Links handed out are all below poolnum; without free links the pool can shrink to them. */
    if (assoc->pool && assoc->freelink == -1 && assoc->poolnum > 0 &&
        assoc->poolcap + 1 > assoc->poolnum) {
        vis_AssocLink* p =
            (vis_AssocLink*)vsy_Realloc(assoc->pool, (size_t)assoc->poolnum * sizeof(vis_AssocLink));
        if (p) {
            assoc->pool = p;
            assoc->poolcap = assoc->poolnum - 1;
        }
    }
}
