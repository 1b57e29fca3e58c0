/* vsy_IntDict: name to integer value, open addressing with a fixed probe step per name.
 *
 * Invariants: every entry sits on the probe path of its name with no free slot (null name)
 * before it; no entry holds `empty`; each name is an owned copy. Growth moves the entries, in
 * slot order, to vsy_NextPrimeLike(size) slots, keeping their name copies.
 */
#include "vsy_IntDict.h"

#include "vsy_Error.h"
#include "vsy_Hash.h"

#include <cstring>

static void vsy_IntDict_FreeSorted(vsy_IntDict* dict)
{
    if (dict->sortslot) vsy_Free(dict->sortslot);
    if (dict->sortname) vsy_Free(dict->sortname);
    dict->sortslot = nullptr;
    dict->sortname = nullptr;
}

static void vsy_IntDict_FreeNames(vsy_IntDictSlot* slots, int size)
{
    for (int s = 0; s < size; ++s) {
        if (slots[s].name) vsy_Free(slots[s].name);
    }
}

/* Slot holding name in `slots`, or -1; *avail receives the free slot that ends the path, or -1
 * when the path has none. */
static int vsy_IntDict_Search(const vsy_IntDictSlot* slots, int size, const char* name, int* avail)
{
    int s = vsy_Hash_NameHome(name, size);
    int step = vsy_Hash_NameStep(s);
    *avail = -1;
    for (int i = 0; i < size; ++i) {
        if (!slots[s].name) {
            *avail = s;
            return -1;
        }
        if (std::strcmp(slots[s].name, name) == 0) return s;
        s += step;
        if (s >= size) s -= size;
    }
    return -1;
}

vsy_IntDict* vsy_IntDictNew(void)
{
    vsy_IntDict* dict = (vsy_IntDict*)vsy_Malloc(sizeof(vsy_IntDict));
    if (!dict) {
        vsy_ErrorMessage("IntDict", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(dict, 0, sizeof(vsy_IntDict));
    dict->iter = -1;
    dict->sortslot = nullptr;
    dict->sortname = nullptr;
    dict->slots = nullptr;
    return dict;
}

void vsy_IntDictDelete(vsy_IntDict* dict)
{
    if (!dict) return;
    vsy_IntDict_FreeSorted(dict);
    if (dict->slots) {
        vsy_IntDict_FreeNames(dict->slots, dict->size);
        vsy_Free(dict->slots);
    }
    vsy_Free(dict);
}

int vsy_IntDictError(vsy_IntDict* dict)
{
    if (!dict) return SYS_ERROR_NULLOBJECT;
    int ierr = dict->ierr;
    dict->ierr = 0;
    return ierr;
}

static vsy_IntDictSlot* vsy_IntDict_NewSlots(int size, int empty)
{
    vsy_IntDictSlot* slots = (vsy_IntDictSlot*)vsy_Malloc((size_t)size * sizeof(vsy_IntDictSlot));
    if (!slots) return nullptr;
    for (int s = 0; s < size; ++s) {
        slots[s].name = nullptr;
        slots[s].value = empty;
    }
    return slots;
}

vsy_IntDictSlot* vsy_IntDict_Alloc(vsy_IntDict* dict, int size)
{
    vsy_IntDictSlot* slots = size > 0 ? vsy_IntDict_NewSlots(size, dict->empty) : nullptr;
    if (!slots) {
        dict->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vsy_IntDict_Alloc", SYS_ERROR_MEMORY);
    }
    return slots;
}

void vsy_IntDictDef(vsy_IntDict* dict, int nument)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_IntDictDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    int size = vsy_NextPrimeLike(nument > 128 ? nument : 128);
    vsy_IntDictSlot* slots = size > 0 ? vsy_IntDict_NewSlots(size, dict->empty) : nullptr;
    if (!slots) {
        vsy_ErrorRecord(&dict->ierr, "vsy_IntDictDef", SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    if (dict->slots) {
        vsy_IntDict_FreeNames(dict->slots, dict->size);
        vsy_Free(dict->slots);
    }
    vsy_IntDict_FreeSorted(dict);
    dict->slots = slots;
    dict->size = size;
    dict->limit = size / 2;
    dict->count = 0;
    dict->iter = -1;
}

void vsy_IntDict_Expand(vsy_IntDict* dict)
{
    int size = vsy_NextPrimeLike(dict->size);
    if (size < 0) {
        dict->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vsy_IntDict_Expand", SYS_ERROR_MEMORY);
        return;
    }
    vsy_IntDictSlot* slots = vsy_IntDict_Alloc(dict, size);
    if (!slots) return;
    for (int s = 0; s < dict->size; ++s) {
        vsy_IntDictSlot* old = &dict->slots[s];
        if (!old->name) continue;
        int avail;
        vsy_IntDict_Search(slots, size, old->name, &avail);
        /* The new array is larger than the old count, so a free slot always exists. */
        slots[avail] = *old;
    }
    vsy_Free(dict->slots);
    dict->slots = slots;
    dict->size = size;
    dict->limit = size / 2;
}

void vsy_IntDictInsert(vsy_IntDict* dict, const char* name, int value)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_IntDictInsert", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!name) {
        dict->ierr = SYS_ERROR_NULLOBJECT;
        vsy_ErrorNumber("vsy_IntDictInsert", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (value == dict->empty) {
        vsy_ErrorRecord(&dict->ierr, "vsy_IntDictInsert", SYS_ERROR_VALUE, "name= %s, value= %d", name, value);
        return;
    }
    if (!dict->slots) {
        vsy_IntDictDef(dict, 0);
        if (!dict->slots) return;
    }
    int avail;
    int s = vsy_IntDict_Search(dict->slots, dict->size, name, &avail);
    if (s >= 0) {
        dict->slots[s].value = value;
        return;
    }
    if (avail < 0) {
        vsy_ErrorRecord(&dict->ierr, "vsy_IntDictInsert", SYS_ERROR_SEVERE, "Slot search, name= %s", name);
        return;
    }
    size_t len = std::strlen(name) + 1;
    char* copy = (char*)vsy_Malloc(len);
    if (!copy) {
        vsy_ErrorRecord(&dict->ierr, "vsy_IntDictInsert", SYS_ERROR_MEMORY, "name= %s", name);
        return;
    }
    std::memcpy(copy, name, len);
    dict->slots[avail].name = copy;
    dict->slots[avail].value = value;
    dict->count++;
    if (dict->count > dict->limit) vsy_IntDict_Expand(dict);
}

void vsy_IntDictGet(vsy_IntDict* dict, const char* name, int* value)
{
    if (!dict || !value) return;
    int s = -1, avail;
    if (dict->slots && name) s = vsy_IntDict_Search(dict->slots, dict->size, name, &avail);
    *value = s >= 0 ? dict->slots[s].value : dict->empty;
}

void vsy_IntDictCount(vsy_IntDict* dict, int* count)
{
    if (!dict || !count) return;
    *count = dict->count;
}

void vsy_IntDictInitIter(vsy_IntDict* dict)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_IntDictInitIter", SYS_ERROR_NULLOBJECT);
        return;
    }
    vsy_IntDict_FreeSorted(dict);
    dict->iter = -1;
}

void vsy_IntDictInitIterOrder(vsy_IntDict* dict)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_IntDictInitIterOrder", SYS_ERROR_NULLOBJECT);
        return;
    }
    vsy_IntDict_FreeSorted(dict);
    dict->iter = -1;
    int n = dict->count;
    if (n <= 0 || !dict->slots) return;
    size_t bytes = 0;
    for (int s = 0; s < dict->size; ++s) {
        if (dict->slots[s].name) bytes += std::strlen(dict->slots[s].name) + 1;
    }
    /* Pairs of slot and name offset, then the -1 end mark; the slot numbers are gathered and
     * sorted in the upper half first and spread into pairs from the front. */
    dict->sortslot = (int*)vsy_Malloc((size_t)(2 * n + 1) * sizeof(int));
    dict->sortname = (char*)vsy_Malloc(bytes);
    if (!dict->sortslot || !dict->sortname || bytes > 0x7FFFFFFF) {
        vsy_IntDict_FreeSorted(dict);
        vsy_ErrorRecord(&dict->ierr, "vsy_IntDictInitIterOrder", SYS_ERROR_MEMORY, "Malloc vec");
        return;
    }
    int* idx = dict->sortslot + n + 1;
    int m = 0;
    for (int s = 0; s < dict->size && m < n; ++s) {
        if (dict->slots[s].name) idx[m++] = s;
    }
    vsy_Hash_SortNames(m, idx, dict->slots, (int)sizeof(vsy_IntDictSlot), 0);
    int off = 0;
    for (int i = 0; i < m; ++i) {
        int s = idx[i];
        size_t len = std::strlen(dict->slots[s].name) + 1;
        std::memcpy(dict->sortname + off, dict->slots[s].name, len);
        dict->sortslot[2 * i] = s;
        dict->sortslot[2 * i + 1] = off;
        off += (int)len;
    }
    dict->sortslot[2 * m] = -1;
}

/* Next live slot of a sorted iteration, or -1 at its end; names moved by growth are found
 * again by search. */
static int vsy_IntDict_NextSorted(vsy_IntDict* dict)
{
    for (;;) {
        int s = dict->sortslot[2 * dict->iter];
        if (s < 0) return -1;
        const char* name = dict->sortname + dict->sortslot[2 * dict->iter + 1];
        dict->iter++;
        if (s < dict->size && dict->slots[s].name && std::strcmp(dict->slots[s].name, name) == 0) return s;
        int avail;
        s = vsy_IntDict_Search(dict->slots, dict->size, name, &avail);
        if (s >= 0) return s;
    }
}

void vsy_IntDictNextIter(vsy_IntDict* dict, const char** name, int* value)
{
    if (!dict || !name || !value) return;
    if (dict->iter < 0) dict->iter = 0;
    int s = -1;
    if (dict->slots && dict->sortslot) {
        s = vsy_IntDict_NextSorted(dict);
    } else {
        while (dict->slots && dict->iter < dict->size) {
            int t = dict->iter++;
            if (dict->slots[t].name) {
                s = t;
                break;
            }
        }
    }
    if (s >= 0) {
        *name = dict->slots[s].name;
        *value = dict->slots[s].value;
        return;
    }
    vsy_IntDict_FreeSorted(dict);
    dict->iter = dict->size;
    *name = nullptr;
    *value = dict->empty;
}
