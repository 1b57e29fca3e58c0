/* vsy_HashTable: integer key to pointer-sized value, open addressing with linear probing.
 *
 * Probe rule: a key's search starts at its home slot (vsy_Hash_IntHome) and steps by 1,
 * wrapping at `size`, for at most `size` probes. A slot with key 0 is not an entry: with a zero
 * value word (low 32 bits) it was never used and ends every probe; with a non-zero value word it
 * is a removed entry, which probes pass and insertions reuse. Key 0 itself lives outside the
 * slots, in `haszero` and `zeroval`.
 *
 * Load rule: `count` (key 0 included) stays at most `limit` = size / 2; the insertion that
 * passes it moves every entry to vsy_NextCapacity(size) slots, which drops removed entries.
 */
#ifndef VSY_HASHTABLE_H
#define VSY_HASHTABLE_H

typedef struct vsy_HashTableSlot {
    int key;     /* 0 for a free or removed slot */
    void* value; /* the entry's value; for key 0: 0 never used, otherwise removed */
} vsy_HashTableSlot;

typedef struct vsy_HashTable {
    int ierr;                 /* last error, 0 for none */
    int iter;                 /* iteration cursor, -1 before the first step */
    int nsorted;              /* entries of sortkey and sortslot during a sorted iteration */
    int* sortkey;             /* keys in ascending order, owned, null unless sorted */
    int* sortslot;            /* slot of each sorted key at the time of sorting, owned */
    int count;                /* entries, key 0 included */
    int limit;                /* load limit, size / 2 */
    int size;                 /* number of slots */
    int haszero;              /* 1 when key 0 holds an entry */
    void* zeroval;            /* value of key 0 */
    vsy_HashTableSlot* slots; /* owned */
    void* empty;              /* value returned for a missing key; null after New */
} vsy_HashTable;

/* Creates an empty, undefined table. Null with a "Creation Failure" report when the record
 * cannot be allocated. The caller owns the result. */
vsy_HashTable* vsy_HashTableNew(void);
/* Releases the slots, the sorted arrays and the record. Values are not touched. */
void vsy_HashTableDelete(vsy_HashTable* tab);
/* Releases every value with vsy_Free, then the table as vsy_HashTableDelete; for tables that
 * own their values. Null is allowed. */
void vsy_HashTableDeleteValues(vsy_HashTable* tab);
/* Returns the last error and clears it. */
int vsy_HashTableError(vsy_HashTable* tab);
/* Empties the table and gives it 2 * max(nument, 5) + 1 slots. On a failed allocation reports
 * code 4 "nument= %d" and leaves the table as it was. */
void vsy_HashTableDef(vsy_HashTable* tab, int nument);
/* Stores value under key, replacing an earlier value. Defines the table with size 0 when it
 * has no slots. Errors: code 8 "Slot search, key= %d" when no slot is free (only possible
 * after failed growth); a failed growth keeps the entry and reports under
 * "vsy_HashTable_Expand". */
void vsy_HashTableInsert(vsy_HashTable* tab, int key, void* value);
/* Writes the value of key, or `empty` when the key is missing. */
void vsy_HashTableGet(vsy_HashTable* tab, int key, void** value);
/* Removes key if present; a missing key is no error. The slot becomes a removed entry. */
void vsy_HashTableRemove(vsy_HashTable* tab, int key);
/* Writes the number of entries, key 0 included. */
void vsy_HashTableCount(vsy_HashTable* tab, int* count);
/* Writes the largest key held, 0 for an empty table. */
void vsy_HashTableMaxKey(vsy_HashTable* tab, int* key);

/* Starts an iteration in slot order. */
void vsy_HashTableInitIter(vsy_HashTable* tab);
/* Starts an iteration in ascending key order. Key 0 still comes first. When the sorted arrays
 * cannot be allocated, reports code 4 "Malloc vec" and iterates in slot order. */
void vsy_HashTableInitIterOrder(vsy_HashTable* tab);
/* Writes the next entry: key 0 first when held, then the other keys. At the end writes key 0
 * with `empty` and releases the sorted arrays; further calls keep answering the end. Entries
 * removed during an iteration are skipped; a growth during a slot-order iteration changes the
 * order of what remains. */
void vsy_HashTableNextIter(vsy_HashTable* tab, int* key, void** value);

/* Internal: moves all entries to vsy_NextCapacity(size) slots. On failure reports code 4 under
 * "vsy_HashTable_Expand" with no text and leaves the table as it was. */
void vsy_HashTable_Expand(vsy_HashTable* tab);

#endif
