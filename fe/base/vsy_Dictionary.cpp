/* vsy_Dictionary: name to pointer-sized value, open addressing with a fixed probe step per name.
 *
 * Invariants: every entry sits on the probe path of its name (hashed on the raw bytes) with no
 * never used slot before it; removed slots (null name, low value word -1) keep those paths
 * intact; each name is an owned copy. Growth moves the live entries, in slot order, to
 * vsy_NextPrimeLike(size) slots, keeping their name copies and dropping removed slots.
 */
#include "vsy_Dictionary.h"

#include "vsy_Error.h"
#include "vsy_Hash.h"

#include <cstdint>
#include <cstring>

/* Value word of a removed slot: all bits set, so its low 32 bits are -1. */
#define VSY_DICTIONARY_REMOVED ((void*)(intptr_t)-1)

static int vsy_Dictionary_Removed(const vsy_DictionarySlot* slot)
{
    return !slot->name && (uint32_t)(uintptr_t)slot->value == 0xFFFFFFFFu;
}

static void vsy_Dictionary_FreeSorted(vsy_Dictionary* dict)
{
    if (dict->sortslot) vsy_Free(dict->sortslot);
    if (dict->sortname) vsy_Free(dict->sortname);
    dict->sortslot = nullptr;
    dict->sortname = nullptr;
}

static void vsy_Dictionary_FreeNames(vsy_DictionarySlot* slots, int size)
{
    for (int s = 0; s < size; ++s) {
        if (slots[s].name) vsy_Free(slots[s].name);
    }
}

static vsy_DictionarySlot* vsy_Dictionary_NewSlots(int size)
{
    size_t nbytes = (size_t)size * sizeof(vsy_DictionarySlot);
    vsy_DictionarySlot* slots = (vsy_DictionarySlot*)vsy_Malloc(nbytes);
    if (slots) std::memset(slots, 0, nbytes);
    return slots;
}

/* Slot holding name, or -1; *avail receives the first null-name slot of the path (removed or
 * never used), or -1 when the path has none. */
static int vsy_Dictionary_Search(const vsy_DictionarySlot* slots, int size, const char* name, int nocase,
                                 int* avail)
{
    int s = vsy_Hash_NameHome(name, size);
    int step = vsy_Hash_NameStep(s);
    *avail = -1;
    for (int i = 0; i < size; ++i) {
        const vsy_DictionarySlot* slot = &slots[s];
        if (!slot->name) {
            if (*avail < 0) *avail = s;
            if (!vsy_Dictionary_Removed(slot)) return -1;
        } else if (vsy_Hash_NameCompare(slot->name, name, nocase) == 0) {
            return s;
        }
        s += step;
        if (s >= size) s -= size;
    }
    return -1;
}

vsy_Dictionary* vsy_DictionaryNew(void)
{
    vsy_Dictionary* dict = (vsy_Dictionary*)vsy_Malloc(sizeof(vsy_Dictionary));
    if (!dict) {
        vsy_ErrorMessage("Dictionary", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(dict, 0, sizeof(vsy_Dictionary));
    dict->iter = -1;
    dict->sortslot = nullptr;
    dict->sortname = nullptr;
    dict->slots = nullptr;
    dict->empty = nullptr;
    return dict;
}

void vsy_DictionaryDelete(vsy_Dictionary* dict)
{
    if (!dict) return;
    vsy_Dictionary_FreeSorted(dict);
    if (dict->slots) {
        vsy_Dictionary_FreeNames(dict->slots, dict->size);
        vsy_Free(dict->slots);
    }
    vsy_Free(dict);
}

int vsy_DictionaryError(vsy_Dictionary* dict)
{
    if (!dict) return SYS_ERROR_NULLOBJECT;
    int ierr = dict->ierr;
    dict->ierr = 0;
    return ierr;
}

void vsy_DictionarySetParami(vsy_Dictionary* dict, int type, int param)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_DictionarySetParami", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (type != VSY_DICTIONARY_NOCASE) {
        vsy_ErrorRecord(&dict->ierr, "vsy_DictionarySetParami", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    dict->nocase = param;
}

vsy_DictionarySlot* vsy_Dictionary_Alloc(vsy_Dictionary* dict, int size)
{
    vsy_DictionarySlot* slots = size > 0 ? vsy_Dictionary_NewSlots(size) : nullptr;
    if (!slots) {
        dict->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vsy_Dictionary_Alloc", SYS_ERROR_MEMORY);
    }
    return slots;
}

void vsy_DictionaryDef(vsy_Dictionary* dict, int nument)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_DictionaryDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    int size = vsy_NextPrimeLike(nument > 128 ? nument : 128);
    vsy_DictionarySlot* slots = size > 0 ? vsy_Dictionary_NewSlots(size) : nullptr;
    if (!slots) {
        vsy_ErrorRecord(&dict->ierr, "vsy_DictionaryDef", SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    if (dict->slots) {
        vsy_Dictionary_FreeNames(dict->slots, dict->size);
        vsy_Free(dict->slots);
    }
    vsy_Dictionary_FreeSorted(dict);
    dict->slots = slots;
    dict->size = size;
    dict->limit = size / 2;
    dict->count = 0;
    dict->iter = -1;
}

void vsy_Dictionary_Expand(vsy_Dictionary* dict)
{
    int size = vsy_NextPrimeLike(dict->size);
    if (size < 0) {
        dict->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vsy_Dictionary_Expand", SYS_ERROR_MEMORY);
        return;
    }
    vsy_DictionarySlot* slots = vsy_Dictionary_Alloc(dict, size);
    if (!slots) return;
    for (int s = 0; s < dict->size; ++s) {
        vsy_DictionarySlot* old = &dict->slots[s];
        if (!old->name) continue;
        /* Exact comparison: with nocase, two spellings may both be entries and both must move. */
        int avail;
        vsy_Dictionary_Search(slots, size, old->name, 0, &avail);
        slots[avail] = *old;
    }
    vsy_Free(dict->slots);
    dict->slots = slots;
    dict->size = size;
    dict->limit = size / 2;
}

void vsy_DictionaryInsert(vsy_Dictionary* dict, const char* name, void* value)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_DictionaryInsert", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!name) {
        dict->ierr = SYS_ERROR_NULLOBJECT;
        vsy_ErrorNumber("vsy_DictionaryInsert", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!dict->slots) {
        vsy_DictionaryDef(dict, 0);
        if (!dict->slots) return;
    }
    int avail;
    int s = vsy_Dictionary_Search(dict->slots, dict->size, name, dict->nocase, &avail);
    if (s >= 0) {
        dict->slots[s].value = value;
        return;
    }
    if (avail < 0) {
        vsy_ErrorRecord(&dict->ierr, "vsy_DictionaryInsert", SYS_ERROR_SEVERE, "Slot search, name= %s", name);
        return;
    }
    size_t len = std::strlen(name) + 1;
    char* copy = (char*)vsy_Malloc(len);
    if (!copy) {
        vsy_ErrorRecord(&dict->ierr, "vsy_DictionaryInsert", SYS_ERROR_MEMORY, "name= %s", name);
        return;
    }
    std::memcpy(copy, name, len);
    dict->slots[avail].name = copy;
    dict->slots[avail].value = value;
    dict->count++;
    if (dict->count > dict->limit) vsy_Dictionary_Expand(dict);
}

void vsy_DictionaryGet(vsy_Dictionary* dict, const char* name, void** value)
{
    if (!dict || !value) return;
    int s = -1, avail;
    if (dict->slots && name) s = vsy_Dictionary_Search(dict->slots, dict->size, name, dict->nocase, &avail);
    *value = s >= 0 ? dict->slots[s].value : dict->empty;
}

void vsy_DictionaryRemove(vsy_Dictionary* dict, const char* name)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_DictionaryRemove", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!dict->slots || !name) return;
    int avail;
    int s = vsy_Dictionary_Search(dict->slots, dict->size, name, dict->nocase, &avail);
    if (s < 0) return;
    vsy_Free(dict->slots[s].name);
    dict->slots[s].name = nullptr;
    dict->slots[s].value = VSY_DICTIONARY_REMOVED;
    dict->count--;
}

void vsy_DictionaryCount(vsy_Dictionary* dict, int* count)
{
    if (!dict || !count) return;
    *count = dict->count;
}

void vsy_DictionaryInitIter(vsy_Dictionary* dict)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_DictionaryInitIter", SYS_ERROR_NULLOBJECT);
        return;
    }
    vsy_Dictionary_FreeSorted(dict);
    dict->iter = 0;
}

void vsy_DictionaryInitIterOrder(vsy_Dictionary* dict)
{
    if (!dict) {
        vsy_ErrorNumber("vsy_DictionaryInitIterOrder", SYS_ERROR_NULLOBJECT);
        return;
    }
    vsy_Dictionary_FreeSorted(dict);
    dict->iter = 0;
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
        vsy_Dictionary_FreeSorted(dict);
        vsy_ErrorRecord(&dict->ierr, "vsy_DictionaryInitIterOrder", SYS_ERROR_MEMORY, "Malloc vec");
        return;
    }
    int* idx = dict->sortslot + n + 1;
    int m = 0;
    for (int s = 0; s < dict->size && m < n; ++s) {
        if (dict->slots[s].name) idx[m++] = s;
    }
    vsy_Hash_SortNames(m, idx, dict->slots, (int)sizeof(vsy_DictionarySlot), dict->nocase);
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

/* Next live slot of a sorted iteration, or -1 at its end. A name moved by growth is found again
 * by an exact search (a case-blind one could land on another spelling); a removed one is
 * skipped. */
static int vsy_Dictionary_NextSorted(vsy_Dictionary* dict)
{
    for (;;) {
        int s = dict->sortslot[2 * dict->iter];
        if (s < 0) return -1;
        const char* name = dict->sortname + dict->sortslot[2 * dict->iter + 1];
        dict->iter++;
        if (s < dict->size && dict->slots[s].name && std::strcmp(dict->slots[s].name, name) == 0) return s;
        int avail;
        s = vsy_Dictionary_Search(dict->slots, dict->size, name, 0, &avail);
        if (s >= 0) return s;
    }
}

void vsy_DictionaryNextIter(vsy_Dictionary* dict, const char** name, void** value)
{
    if (!dict || !name || !value) return;
    if (dict->iter < 0) dict->iter = 0;
    int s = -1;
    if (dict->slots && dict->sortslot) {
        s = vsy_Dictionary_NextSorted(dict);
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
    vsy_Dictionary_FreeSorted(dict);
    dict->iter = dict->size;
    *name = nullptr;
    *value = dict->empty;
}
