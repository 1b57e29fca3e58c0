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
#include "vsy_NameTable.h"

#include <cstdint>
#include <cstring>

/* Value word of a removed slot: all bits set, so its low 32 bits are -1. */
#define VSY_DICTIONARY_REMOVED ((void*)(intptr_t)-1)

static int vsy_Dictionary_Removed(const vsy_DictionarySlot* slot)
{
    return !slot->name && (uint32_t)(uintptr_t)slot->value == 0xFFFFFFFFu;
}

static vsy_DictionarySlot* vsy_Dictionary_NewSlots(int size)
{
    size_t nbytes = (size_t)size * sizeof(vsy_DictionarySlot);
    vsy_DictionarySlot* slots = (vsy_DictionarySlot*)vsy_Malloc(nbytes);
    if (slots) std::memset(slots, 0, nbytes);
    return slots;
}

/* Slot holding name, or -1; *avail receives the first null-name slot of the path (removed or
 * never used), or -1 when the path has none. Removed slots do not end the search. */
static int vsy_Dictionary_Search(const vsy_DictionarySlot* slots, int size, const char* name, int nocase,
                                 int* avail)
{
    return vsy_NameTable_Search(
        slots, size, name, avail, [](const vsy_DictionarySlot* slot) { return !vsy_Dictionary_Removed(slot); },
        [nocase](const char* a, const char* b) { return vsy_Hash_NameCompare(a, b, nocase) == 0; });
}

/* The exact search: with nocase, two spellings may both be entries, and growth and a sorted
 * iteration must find each one itself. */
static int vsy_Dictionary_SearchExact(const vsy_DictionarySlot* slots, int size, const char* name, int* avail)
{
    return vsy_Dictionary_Search(slots, size, name, 0, avail);
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
    vsy_NameTable_Release(dict);
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
    vsy_NameTable_Def(dict, nument, "vsy_DictionaryDef", vsy_Dictionary_NewSlots);
}

void vsy_Dictionary_Expand(vsy_Dictionary* dict)
{
    vsy_NameTable_Expand(
        dict, "vsy_Dictionary_Expand", [&](int size) { return vsy_Dictionary_Alloc(dict, size); },
        vsy_Dictionary_SearchExact);
}

void vsy_DictionaryInsert(vsy_Dictionary* dict, const char* name, void* value)
{
    static const char* fname = "vsy_DictionaryInsert";
    if (!vsy_NameTable_CheckInsert(dict, fname, name)) return;
    vsy_NameTable_Insert(
        dict, fname, name, value,
        [&](const char* key, int* avail) {
            return vsy_Dictionary_Search(dict->slots, dict->size, key, dict->nocase, avail);
        },
        [&](int n) { vsy_DictionaryDef(dict, n); }, [&] { vsy_Dictionary_Expand(dict); });
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
    vsy_NameTable_FreeSorted(dict);
    dict->iter = 0;
}

void vsy_DictionaryInitIterOrder(vsy_Dictionary* dict)
{
    vsy_NameTable_InitIterOrder(dict, "vsy_DictionaryInitIterOrder", 0, dict ? dict->nocase : 0);
}

void vsy_DictionaryNextIter(vsy_Dictionary* dict, const char** name, void** value)
{
    if (!dict || !name || !value) return;
    int s = vsy_NameTable_Next(dict, vsy_Dictionary_SearchExact);
    *name = s >= 0 ? dict->slots[s].name : nullptr;
    *value = s >= 0 ? dict->slots[s].value : dict->empty;
}
