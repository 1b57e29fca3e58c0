/* vsy_HashTable: integer key to pointer-sized value, open addressing with linear probing.
 *
 * Invariants: every non-zero key sits on the probe path from its home slot with no never-used
 * slot before it; removed slots (key 0, non-zero value word) keep those paths intact. Key 0 is
 * kept in `haszero`/`zeroval`. `count` <= `limit` except after a failed growth; growth to
 * vsy_NextCapacity(size) re-inserts the live entries in slot order and drops removed slots.
 */
#include "vsy_HashTable.h"

#include "vsy_Error.h"
#include "vsy_Hash.h"
#include "vsy_Sort.h"

#include <cstdint>
#include <cstring>

/* Value word of a removed slot: all bits set, so its low 32 bits are non-zero. */
#define VSY_HASHTABLE_REMOVED ((void*)(intptr_t)-1)

static int vsy_HashTable_NeverUsed(const vsy_HashTableSlot* slot)
{
    return slot->key == 0 && (uint32_t)(uintptr_t)slot->value == 0;
}

static vsy_HashTableSlot* vsy_HashTable_AllocSlots(int size)
{
    size_t nbytes = (size_t)size * sizeof(vsy_HashTableSlot);
    vsy_HashTableSlot* slots = (vsy_HashTableSlot*)vsy_Malloc(nbytes);
    if (slots) std::memset(slots, 0, nbytes);
    return slots;
}

static void vsy_HashTable_FreeSorted(vsy_HashTable* tab)
{
    if (tab->sortkey) vsy_Free(tab->sortkey);
    if (tab->sortslot) vsy_Free(tab->sortslot);
    tab->sortkey = nullptr;
    tab->sortslot = nullptr;
    tab->nsorted = 0;
}

/* Slot holding the non-zero key, or -1. */
static int vsy_HashTable_Find(const vsy_HashTable* tab, int key)
{
    int size = tab->size;
    int s = vsy_Hash_IntHome(key, size);
    for (int i = 0; i < size; ++i) {
        const vsy_HashTableSlot* slot = &tab->slots[s];
        if (slot->key == key) return s;
        if (vsy_HashTable_NeverUsed(slot)) return -1;
        if (++s == size) s = 0;
    }
    return -1;
}

/* Writes a non-zero key into a slot array that holds no removed slots and has room. */
static void vsy_HashTable_Place(vsy_HashTableSlot* slots, int size, int key, void* value)
{
    int s = vsy_Hash_IntHome(key, size);
    while (!vsy_HashTable_NeverUsed(&slots[s])) {
        if (++s == size) s = 0;
    }
    slots[s].key = key;
    slots[s].value = value;
}

vsy_HashTable* vsy_HashTableNew(void)
{
    vsy_HashTable* tab = (vsy_HashTable*)vsy_Malloc(sizeof(vsy_HashTable));
    if (!tab) {
        vsy_ErrorMessage("HashTable", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(tab, 0, sizeof(vsy_HashTable));
    tab->iter = -1;
    tab->sortkey = nullptr;
    tab->sortslot = nullptr;
    tab->zeroval = nullptr;
    tab->slots = nullptr;
    tab->empty = nullptr;
    return tab;
}

void vsy_HashTableDelete(vsy_HashTable* tab)
{
    if (!tab) return;
    vsy_HashTable_FreeSorted(tab);
    if (tab->slots) vsy_Free(tab->slots);
    vsy_Free(tab);
}

void vsy_HashTableDeleteValues(vsy_HashTable* tab)
{
    if (!tab) return;
    int key;
    void* value;
    vsy_HashTableInitIter(tab);
    for (vsy_HashTableNextIter(tab, &key, &value); value; vsy_HashTableNextIter(tab, &key, &value)) vsy_Free(value);
    vsy_HashTableDelete(tab);
}

int vsy_HashTableError(vsy_HashTable* tab)
{
    if (!tab) return SYS_ERROR_NULLOBJECT;
    int ierr = tab->ierr;
    tab->ierr = 0;
    return ierr;
}

void vsy_HashTableDef(vsy_HashTable* tab, int nument)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_HashTableDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    int n = nument > 5 ? nument : 5;
    vsy_HashTableSlot* slots = nullptr;
    if (n <= (VSY_HASH_MAXSIZE - 1) / 2) slots = vsy_HashTable_AllocSlots(2 * n + 1);
    if (!slots) {
        vsy_ErrorRecord(&tab->ierr, "vsy_HashTableDef", SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    if (tab->slots) vsy_Free(tab->slots);
    vsy_HashTable_FreeSorted(tab);
    tab->slots = slots;
    tab->size = 2 * n + 1;
    tab->limit = tab->size / 2;
    tab->count = 0;
    tab->haszero = 0;
    tab->zeroval = tab->empty;
    tab->iter = -1;
}

void vsy_HashTable_Expand(vsy_HashTable* tab)
{
    int size = vsy_NextCapacity(tab->size);
    vsy_HashTableSlot* slots = size > 0 ? vsy_HashTable_AllocSlots(size) : nullptr;
    if (!slots) {
        tab->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vsy_HashTable_Expand", SYS_ERROR_MEMORY);
        return;
    }
    int count = tab->haszero ? 1 : 0;
    for (int s = 0; s < tab->size; ++s) {
        const vsy_HashTableSlot* old = &tab->slots[s];
        if (old->key == 0) continue;
        vsy_HashTable_Place(slots, size, old->key, old->value);
        ++count;
    }
    vsy_Free(tab->slots);
    tab->slots = slots;
    tab->size = size;
    tab->limit = size / 2;
    tab->count = count;
}

void vsy_HashTableInsert(vsy_HashTable* tab, int key, void* value)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_HashTableInsert", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!tab->slots) {
        vsy_HashTableDef(tab, 0);
        if (!tab->slots) return;
    }
    if (key == 0) {
        tab->zeroval = value;
        if (!tab->haszero) {
            tab->haszero = 1;
            tab->count++;
        }
        return;
    }
    int size = tab->size;
    int s = vsy_Hash_IntHome(key, size);
    int avail = -1;
    for (int i = 0; i < size; ++i) {
        vsy_HashTableSlot* slot = &tab->slots[s];
        if (slot->key == key) {
            slot->value = value;
            return;
        }
        if (slot->key == 0) {
            if (avail < 0) avail = s;
            if (vsy_HashTable_NeverUsed(slot)) break;
        }
        if (++s == size) s = 0;
    }
    if (avail < 0) {
        vsy_ErrorRecord(&tab->ierr, "vsy_HashTableInsert", SYS_ERROR_OPERATION, "Slot search, key= %d", key);
        return;
    }
    tab->slots[avail].key = key;
    tab->slots[avail].value = value;
    tab->count++;
    if (tab->count > tab->limit) vsy_HashTable_Expand(tab);
}

void vsy_HashTableGet(vsy_HashTable* tab, int key, void** value)
{
    if (!tab || !value) return;
    if (key == 0) {
        *value = tab->zeroval;
        return;
    }
    int s = tab->slots ? vsy_HashTable_Find(tab, key) : -1;
    *value = s >= 0 ? tab->slots[s].value : tab->empty;
}

void vsy_HashTableRemove(vsy_HashTable* tab, int key)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_HashTableRemove", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (key == 0) {
        if (tab->haszero) {
            tab->haszero = 0;
            tab->zeroval = tab->empty;
            tab->count--;
        }
        return;
    }
    int s = tab->slots ? vsy_HashTable_Find(tab, key) : -1;
    if (s < 0) return;
    tab->slots[s].key = 0;
    tab->slots[s].value = VSY_HASHTABLE_REMOVED;
    tab->count--;
}

void vsy_HashTableCount(vsy_HashTable* tab, int* count)
{
    if (!tab || !count) return;
    *count = tab->count;
}

void vsy_HashTableMaxKey(vsy_HashTable* tab, int* key)
{
    if (!tab || !key) return;
    int found = tab->haszero;
    int max = 0;
    for (int s = 0; s < tab->size && tab->slots; ++s) {
        int k = tab->slots[s].key;
        if (k == 0) continue;
        if (!found || k > max) max = k;
        found = 1;
    }
    *key = max;
}

void vsy_HashTableInitIter(vsy_HashTable* tab)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_HashTableInitIter", SYS_ERROR_NULLOBJECT);
        return;
    }
    vsy_HashTable_FreeSorted(tab);
    tab->iter = -1;
}

void vsy_HashTableInitIterOrder(vsy_HashTable* tab)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_HashTableInitIterOrder", SYS_ERROR_NULLOBJECT);
        return;
    }
    vsy_HashTable_FreeSorted(tab);
    tab->iter = -1;
    int n = tab->count - (tab->haszero ? 1 : 0);
    if (n <= 0 || !tab->slots) return;
    tab->sortkey = (int*)vsy_Malloc((size_t)n * sizeof(int));
    tab->sortslot = (int*)vsy_Malloc((size_t)n * sizeof(int));
    if (!tab->sortkey || !tab->sortslot) {
        vsy_HashTable_FreeSorted(tab);
        tab->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorMessage("vsy_HashTableInitIterOrder", SYS_ERROR_MEMORY, "Malloc vec");
        return;
    }
    int m = 0;
    for (int s = 0; s < tab->size && m < n; ++s) {
        if (tab->slots[s].key == 0) continue;
        tab->sortkey[m] = tab->slots[s].key;
        tab->sortslot[m] = s;
        ++m;
    }
    tab->nsorted = m;
    vsy_HeapSortIntInt(m, tab->sortkey, tab->sortslot);
}

/* Next live slot of a sorted iteration, or -1 at its end. A key that moved by growth is looked
 * up again; a key removed since the sort is skipped. */
static int vsy_HashTable_NextSorted(vsy_HashTable* tab)
{
    while (tab->iter < tab->nsorted) {
        int key = tab->sortkey[tab->iter];
        int s = tab->sortslot[tab->iter];
        tab->iter++;
        if (s < tab->size && tab->slots[s].key == key) return s;
        s = vsy_HashTable_Find(tab, key);
        if (s >= 0) return s;
    }
    return -1;
}

static int vsy_HashTable_NextSlot(vsy_HashTable* tab)
{
    while (tab->iter < tab->size) {
        int s = tab->iter++;
        if (tab->slots[s].key != 0) return s;
    }
    return -1;
}

void vsy_HashTableNextIter(vsy_HashTable* tab, int* key, void** value)
{
    if (!tab || !key || !value) return;
    if (tab->iter < 0) {
        tab->iter = 0;
        if (tab->haszero) {
            *key = 0;
            *value = tab->zeroval;
            return;
        }
    }
    int s = -1;
    if (tab->slots) s = tab->sortslot ? vsy_HashTable_NextSorted(tab) : vsy_HashTable_NextSlot(tab);
    if (s >= 0) {
        *key = tab->slots[s].key;
        *value = tab->slots[s].value;
        return;
    }
    /* The end: release the sorted arrays and park the cursor past the last slot. */
    vsy_HashTable_FreeSorted(tab);
    tab->iter = tab->size;
    *key = 0;
    *value = tab->empty;
}
