/* vsy_IntHash: integer key to integer value, open addressing with linear probing.
 *
 * Invariants: every entry sits on the probe path from its key's home slot with no free slot
 * (value == empty) before it; no entry holds `empty`. `count` <= `limit` except after a failed
 * growth; growth re-inserts the entries in slot order into vsy_NextCapacity(size) slots.
 */
#include "vsy_IntHash.h"

#include "vsy_Error.h"
#include "vsy_Hash.h"

#include <cstring>

static vsy_IntHashSlot* vsy_IntHash_AllocSlots(int size, int empty)
{
    vsy_IntHashSlot* slots = (vsy_IntHashSlot*)vsy_Malloc((size_t)size * sizeof(vsy_IntHashSlot));
    if (!slots) return nullptr;
    for (int s = 0; s < size; ++s) {
        slots[s].key = 0;
        slots[s].value = empty;
    }
    return slots;
}

/* Writes an entry into a slot array that does not hold the key and has a free slot. */
static void vsy_IntHash_Place(vsy_IntHashSlot* slots, int size, int empty, int key, int value)
{
    int s = vsy_Hash_IntHome(key, size);
    while (slots[s].value != empty) {
        if (++s == size) s = 0;
    }
    slots[s].key = key;
    slots[s].value = value;
}

vsy_IntHash* vsy_IntHashNew(void)
{
    vsy_IntHash* tab = (vsy_IntHash*)vsy_Malloc(sizeof(vsy_IntHash));
    if (!tab) {
        vsy_ErrorMessage("IntHash", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    std::memset(tab, 0, sizeof(vsy_IntHash));
    tab->iter = -1;
    tab->slots = nullptr;
    tab->aux = nullptr;
    return tab;
}

void vsy_IntHashDelete(vsy_IntHash* tab)
{
    if (!tab) return;
    if (tab->aux) vsy_Free(tab->aux);
    if (tab->slots) vsy_Free(tab->slots);
    vsy_Free(tab);
}

int vsy_IntHashError(vsy_IntHash* tab)
{
    if (!tab) return SYS_ERROR_NULLOBJECT;
    int ierr = tab->ierr;
    tab->ierr = 0;
    return ierr;
}

void vsy_IntHashDef(vsy_IntHash* tab, int nument)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_IntHashDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    int n = nument > 5 ? nument : 5;
    vsy_IntHashSlot* slots = nullptr;
    if (n <= (VSY_HASH_MAXSIZE - 1) / 2) slots = vsy_IntHash_AllocSlots(2 * n + 1, tab->empty);
    if (!slots) {
        vsy_ErrorRecord(&tab->ierr, "vsy_IntHashDef", SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    if (tab->slots) vsy_Free(tab->slots);
    tab->slots = slots;
    tab->size = 2 * n + 1;
    tab->limit = tab->size / 2;
    tab->count = 0;
    tab->iter = -1;
}

void vsy_IntHash_Expand(vsy_IntHash* tab)
{
    if (tab->count <= tab->limit) return;
    int size = vsy_NextCapacity(tab->size);
    vsy_IntHashSlot* slots = size > 0 ? vsy_IntHash_AllocSlots(size, tab->empty) : nullptr;
    if (!slots) {
        tab->ierr = SYS_ERROR_MEMORY;
        vsy_ErrorNumber("vsy_IntHash_Expand", SYS_ERROR_MEMORY);
        return;
    }
    int count = 0;
    for (int s = 0; s < tab->size; ++s) {
        const vsy_IntHashSlot* old = &tab->slots[s];
        if (old->value == tab->empty) continue;
        vsy_IntHash_Place(slots, size, tab->empty, old->key, old->value);
        ++count;
    }
    vsy_Free(tab->slots);
    tab->slots = slots;
    tab->size = size;
    tab->limit = size / 2;
    tab->count = count;
}

void vsy_IntHashInsert(vsy_IntHash* tab, int key, int value)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_IntHashInsert", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (value == tab->empty) {
        vsy_ErrorRecord(&tab->ierr, "vsy_IntHashInsert", SYS_ERROR_VALUE, "key= %d, value= %d", key, value);
        return;
    }
    if (!tab->slots) {
        vsy_IntHashDef(tab, 0);
        if (!tab->slots) return;
    }
    /* One probe serves both passes: the key, if present, lies before the first free slot, and
     * that free slot is where a new key goes. */
    int size = tab->size;
    int s = vsy_Hash_IntHome(key, size);
    for (int i = 0; i < size; ++i) {
        vsy_IntHashSlot* slot = &tab->slots[s];
        if (slot->value == tab->empty) {
            slot->key = key;
            slot->value = value;
            tab->count++;
            vsy_IntHash_Expand(tab);
            return;
        }
        if (slot->key == key) {
            slot->value = value;
            return;
        }
        if (++s == size) s = 0;
    }
    vsy_ErrorRecord(&tab->ierr, "vsy_IntHashInsert", SYS_ERROR_COMPUTE, "key= %d", key);
}

void vsy_IntHashGet(vsy_IntHash* tab, int key, int* value)
{
    if (!tab || !value) return;
    if (!tab->slots) {
        *value = tab->empty;
        return;
    }
    int size = tab->size;
    int s = vsy_Hash_IntHome(key, size);
    for (int i = 0; i < size; ++i) {
        const vsy_IntHashSlot* slot = &tab->slots[s];
        if (slot->value == tab->empty) {
            *value = tab->empty;
            return;
        }
        if (slot->key == key) {
            *value = slot->value;
            return;
        }
        if (++s == size) s = 0;
    }
}

void vsy_IntHashClear(vsy_IntHash* tab)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_IntHashClear", SYS_ERROR_NULLOBJECT);
        return;
    }
    for (int s = 0; s < tab->size && tab->slots; ++s) {
        tab->slots[s].key = 0;
        tab->slots[s].value = tab->empty;
    }
    tab->count = 0;
}

void vsy_IntHashCount(vsy_IntHash* tab, int* count)
{
    if (!tab || !count) return;
    *count = tab->count;
}

void vsy_IntHashInitIter(vsy_IntHash* tab)
{
    if (!tab) {
        vsy_ErrorNumber("vsy_IntHashInitIter", SYS_ERROR_NULLOBJECT);
        return;
    }
    tab->iter = -1;
}

void vsy_IntHashNextIter(vsy_IntHash* tab, int* key, int* value)
{
    if (!tab || !key || !value) return;
    if (tab->iter < 0) tab->iter = 0;
    while (tab->slots && tab->iter < tab->size) {
        const vsy_IntHashSlot* slot = &tab->slots[tab->iter++];
        if (slot->value == tab->empty) continue;
        *key = slot->key;
        *value = slot->value;
        return;
    }
    *key = 0;
    *value = tab->empty;
}
