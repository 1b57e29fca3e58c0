/* vsy_NameTable: the body shared by the two string tables, vsy_IntDict (name to int) and
 * vsy_Dictionary (name to pointer). Internal to them.
 *
 * Both records have the fields used here under the same names: ierr, iter, sortslot, sortname,
 * count, limit, size, slots and empty, and both slot types begin with their owned `name`
 * pointer. They differ only in what ends a search (IntDict: any free slot; Dictionary: a never
 * used slot, so removed entries are passed), how names compare (Dictionary may ignore case),
 * how a fresh slot array looks, and where the iteration cursor starts; each caller passes
 * those as small functions. Sizes follow vsy_NextPrimeLike, probes the fixed step of
 * vsy_Hash_NameStep, as vsy_Hash.h describes.
 */
#ifndef VSY_NAMETABLE_H
#define VSY_NAMETABLE_H

#include "vsy_Error.h"
#include "vsy_Hash.h"

#include <cstring>

/* Slot holding name, or -1. *avail receives the first slot on the probe path without a name
 * (removed or never used), or -1 when the path has none. ends(slot) tells whether a slot
 * without a name ends the path; same(a, b) whether two names are equal. */
template <class SLOT, class ENDS, class SAME>
int vsy_NameTable_Search(const SLOT* slots, int size, const char* name, int* avail, ENDS ends, SAME same)
{
    int s = vsy_Hash_NameHome(name, size);
    int step = vsy_Hash_NameStep(s);
    *avail = -1;
    for (int i = 0; i < size; ++i) {
        const SLOT* slot = &slots[s];
        if (!slot->name) {
            if (*avail < 0) *avail = s;
            if (ends(slot)) return -1;
        } else if (same(slot->name, name)) {
            return s;
        }
        s += step;
        if (s >= size) s -= size;
    }
    return -1;
}

/* Releases the arrays of a sorted iteration. */
template <class DICT>
void vsy_NameTable_FreeSorted(DICT* dict)
{
    vsy_Free(dict->sortslot);
    vsy_Free(dict->sortname);
    dict->sortslot = nullptr;
    dict->sortname = nullptr;
}

/* Releases every name, the slot array and the sorted arrays. */
template <class DICT>
void vsy_NameTable_Release(DICT* dict)
{
    vsy_NameTable_FreeSorted(dict);
    if (!dict->slots) return;
    for (int s = 0; s < dict->size; ++s) vsy_Free(dict->slots[s].name);
    vsy_Free(dict->slots);
    dict->slots = nullptr;
}

/* Def: empties the table and gives it vsy_NextPrimeLike(max(nument, 128)) slots from
 * newslots(size), which returns a fresh array or null. On failure reports code 4
 * "nument= %d" under name and leaves the table as it was. */
template <class DICT, class NEWSLOTS>
void vsy_NameTable_Def(DICT* dict, int nument, const char* name, NEWSLOTS newslots)
{
    if (!dict) {
        vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
        return;
    }
    int size = vsy_NextPrimeLike(nument > 128 ? nument : 128);
    auto* slots = size > 0 ? newslots(size) : nullptr;
    if (!slots) {
        vsy_ErrorRecord(&dict->ierr, name, SYS_ERROR_MEMORY, "nument= %d", nument);
        return;
    }
    vsy_NameTable_Release(dict);
    dict->slots = slots;
    dict->size = size;
    dict->limit = size / 2;
    dict->count = 0;
    dict->iter = -1;
}

/* Expand: moves every entry, in slot order, to vsy_NextPrimeLike(size) slots from alloc(size)
 * (which reports its own failure), keeping the name copies; search(slots, size, name, &avail)
 * finds each entry's free slot in the new array. A size past the largest table is code 4 under
 * name. On failure the table stays as it was. */
template <class DICT, class ALLOC, class SEARCH>
void vsy_NameTable_Expand(DICT* dict, const char* name, ALLOC alloc, SEARCH search)
{
    int size = vsy_NextPrimeLike(dict->size);
    if (size < 0) {
        vsy_ErrorRecord(&dict->ierr, name, SYS_ERROR_MEMORY, "%s", "");
        return;
    }
    auto* slots = alloc(size);
    if (!slots) return;
    for (int s = 0; s < dict->size; ++s) {
        if (!dict->slots[s].name) continue;
        int avail;
        search(slots, size, dict->slots[s].name, &avail);
        /* The new array is larger than the old count, so a free slot always exists. */
        slots[avail] = dict->slots[s];
    }
    vsy_Free(dict->slots);
    dict->slots = slots;
    dict->size = size;
    dict->limit = size / 2;
}

/* The checks every Insert starts with: code 5 under name for a null table or a null name (the
 * latter recorded). Returns 0 after a report. */
template <class DICT>
int vsy_NameTable_CheckInsert(DICT* dict, const char* name, const char* key)
{
    if (!dict) {
        vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
        return 0;
    }
    if (!key) {
        vsy_ErrorRecord(&dict->ierr, name, SYS_ERROR_NULLOBJECT, "%s", "");
        return 0;
    }
    return 1;
}

/* Insert, after those checks: defines the table with def(0) when it has no slots, then gives an
 * equal name (search(key, &avail)) the new value, or stores value under a copy of key in the
 * free slot of the path and runs expand() when count passes limit. No free slot is code 13
 * "Slot search, name= %s", a failed copy code 4 "name= %s", both under name, with nothing
 * changed. */
template <class DICT, class VALUE, class SEARCH, class DEF, class EXPAND>
void vsy_NameTable_Insert(DICT* dict, const char* name, const char* key, VALUE value, SEARCH search, DEF def,
                          EXPAND expand)
{
    if (!dict->slots) {
        def(0);
        if (!dict->slots) return;
    }
    int avail;
    int s = search(key, &avail);
    if (s >= 0) {
        dict->slots[s].value = value;
        return;
    }
    if (avail < 0) {
        vsy_ErrorRecord(&dict->ierr, name, SYS_ERROR_SEVERE, "Slot search, name= %s", key);
        return;
    }
    size_t len = std::strlen(key) + 1;
    char* copy = (char*)vsy_Malloc(len);
    if (!copy) {
        vsy_ErrorRecord(&dict->ierr, name, SYS_ERROR_MEMORY, "name= %s", key);
        return;
    }
    std::memcpy(copy, key, len);
    dict->slots[avail].name = copy;
    dict->slots[avail].value = value;
    dict->count++;
    if (dict->count > dict->limit) expand();
}

/* InitIterOrder: starts an iteration at cursor `start` in ascending order of the names
 * (vsy_Hash_NameCompare with nocase). sortslot holds pairs of slot and name offset, then the
 * -1 end mark; sortname the names in that order. The slot numbers are gathered and sorted in
 * the upper half of sortslot first and spread into pairs from the front. When the arrays
 * cannot be allocated, reports code 4 "Malloc vec" under name and iterates in slot order. */
template <class DICT>
void vsy_NameTable_InitIterOrder(DICT* dict, const char* name, int start, int nocase)
{
    if (!dict) {
        vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
        return;
    }
    vsy_NameTable_FreeSorted(dict);
    dict->iter = start;
    int n = dict->count;
    if (n <= 0 || !dict->slots) return;
    size_t bytes = 0;
    for (int s = 0; s < dict->size; ++s)
        if (dict->slots[s].name) bytes += std::strlen(dict->slots[s].name) + 1;
    dict->sortslot = (int*)vsy_Malloc((size_t)(2 * n + 1) * sizeof(int));
    dict->sortname = (char*)vsy_Malloc(bytes);
    if (!dict->sortslot || !dict->sortname || bytes > 0x7FFFFFFF) {
        vsy_NameTable_FreeSorted(dict);
        vsy_ErrorRecord(&dict->ierr, name, SYS_ERROR_MEMORY, "Malloc vec");
        return;
    }
    int* idx = dict->sortslot + n + 1;
    int m = 0;
    for (int s = 0; s < dict->size && m < n; ++s)
        if (dict->slots[s].name) idx[m++] = s;
    vsy_Hash_SortNames(m, idx, dict->slots, (int)sizeof(dict->slots[0]), nocase);
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

/* Next live slot of a sorted iteration, or -1 at its end. A name moved by growth is found
 * again by search (an exact one); a removed one is skipped. */
template <class DICT, class SEARCH>
int vsy_NameTable_NextSorted(DICT* dict, SEARCH search)
{
    for (;;) {
        int s = dict->sortslot[2 * dict->iter];
        if (s < 0) return -1;
        const char* name = dict->sortname + dict->sortslot[2 * dict->iter + 1];
        dict->iter++;
        if (s < dict->size && dict->slots[s].name && std::strcmp(dict->slots[s].name, name) == 0) return s;
        int avail;
        s = search(dict->slots, dict->size, name, &avail);
        if (s >= 0) return s;
    }
}

/* NextIter: the next occupied slot, in slot order or through the sorted arrays, or -1 at the
 * end, where the sorted arrays are released and the cursor stays at the end. */
template <class DICT, class SEARCH>
int vsy_NameTable_Next(DICT* dict, SEARCH search)
{
    if (dict->iter < 0) dict->iter = 0;
    if (dict->slots && dict->sortslot) {
        int s = vsy_NameTable_NextSorted(dict, search);
        if (s >= 0) return s;
    } else {
        while (dict->slots && dict->iter < dict->size) {
            int t = dict->iter++;
            if (dict->slots[t].name) return t;
        }
    }
    vsy_NameTable_FreeSorted(dict);
    dict->iter = dict->size;
    return -1;
}

#endif
