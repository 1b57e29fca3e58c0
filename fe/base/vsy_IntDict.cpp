/* vsy_IntDict: name to integer value, open addressing with a fixed probe step per name.
 *
 * Invariants: every entry sits on the probe path of its name with no free slot (null name)
 * before it; no entry holds `empty`; each name is an owned copy. Growth moves the entries, in
 * slot order, to vsy_NextPrimeLike(size) slots, keeping their name copies.
 */
#include "vsy_IntDict.h"

#include "vsy_Error.h"
#include "vsy_Hash.h"
#include "vsy_NameTable.h"

#include <cstring>

/* Slot holding name in `slots`, or -1; *avail receives the free slot that ends the path, or -1
 * when the path has none. Any free slot ends a search: there is no removal. */
static int vsy_IntDict_Search(const vsy_IntDictSlot* slots, int size, const char* name, int* avail)
{
    return vsy_NameTable_Search(
        slots, size, name, avail, [](const vsy_IntDictSlot*) { return true; },
        [](const char* a, const char* b) { return std::strcmp(a, b) == 0; });
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
    vsy_NameTable_Release(dict);
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
    vsy_NameTable_Def(dict, nument, "vsy_IntDictDef",
                      [&](int size) { return vsy_IntDict_NewSlots(size, dict->empty); });
}

void vsy_IntDict_Expand(vsy_IntDict* dict)
{
    vsy_NameTable_Expand(
        dict, "vsy_IntDict_Expand", [&](int size) { return vsy_IntDict_Alloc(dict, size); }, vsy_IntDict_Search);
}

void vsy_IntDictInsert(vsy_IntDict* dict, const char* name, int value)
{
    static const char* fname = "vsy_IntDictInsert";
    if (!vsy_NameTable_CheckInsert(dict, fname, name)) return;
    if (value == dict->empty) {
        vsy_ErrorRecord(&dict->ierr, fname, SYS_ERROR_VALUE, "name= %s, value= %d", name, value);
        return;
    }
    vsy_NameTable_Insert(
        dict, fname, name, value,
        [&](const char* key, int* avail) { return vsy_IntDict_Search(dict->slots, dict->size, key, avail); },
        [&](int n) { vsy_IntDictDef(dict, n); }, [&] { vsy_IntDict_Expand(dict); });
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
    vsy_NameTable_FreeSorted(dict);
    dict->iter = -1;
}

void vsy_IntDictInitIterOrder(vsy_IntDict* dict)
{
    vsy_NameTable_InitIterOrder(dict, "vsy_IntDictInitIterOrder", -1, 0);
}

void vsy_IntDictNextIter(vsy_IntDict* dict, const char** name, int* value)
{
    if (!dict || !name || !value) return;
    int s = vsy_NameTable_Next(dict, vsy_IntDict_Search);
    *name = s >= 0 ? dict->slots[s].name : nullptr;
    *value = s >= 0 ? dict->slots[s].value : dict->empty;
}
