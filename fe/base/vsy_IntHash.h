/* vsy_IntHash: integer key to integer value, open addressing with linear probing.
 *
 * Probe rule: a search starts at the key's home slot (vsy_Hash_IntHome), steps by 1 and wraps at
 * `size`, for at most `size` probes. A slot is free exactly when its value equals `empty`; a free
 * slot ends every probe. Any key, 0 included, may be stored; the value `empty` may not. There is
 * no removal of single keys (it would break probe paths), only vsy_IntHashClear.
 *
 * Load rule: `count` stays at most `limit` = size / 2; the insertion that passes it moves every
 * entry to vsy_NextCapacity(size) slots.
 */
#ifndef VSY_INTHASH_H
#define VSY_INTHASH_H

typedef struct vsy_IntHashSlot {
    int key;
    int value; /* equals `empty` when the slot is free */
} vsy_IntHashSlot;

typedef struct vsy_IntHash {
    int ierr;              /* last error, 0 for none */
    int iter;              /* iteration cursor, -1 before the first step */
    int count;             /* entries */
    int limit;             /* load limit, size / 2 */
    int size;              /* number of slots */
    vsy_IntHashSlot* slots; /* owned */
    int empty;             /* value of a free slot and of a missing key; 0 after New */
    int* aux;              /* reserved owned array; released by Delete when set */
} vsy_IntHash;

/* Creates an empty, undefined table. Null with a "Creation Failure" report when the record
 * cannot be allocated. The caller owns the result. */
vsy_IntHash* vsy_IntHashNew(void);
/* Releases the slots, the reserved array and the record. */
void vsy_IntHashDelete(vsy_IntHash* tab);
/* Returns the last error and clears it. */
int vsy_IntHashError(vsy_IntHash* tab);
/* Empties the table and gives it 2 * max(nument, 5) + 1 slots. On a failed allocation reports
 * code 4 "nument= %d" and leaves the table as it was. */
void vsy_IntHashDef(vsy_IntHash* tab, int nument);
/* Stores value under key, replacing an earlier value. value == empty fails with code 1
 * "key= %d, value= %d" and changes nothing. Defines the table with size 0 when it has no slots.
 * No free slot (only after failed growth) is code 7 "key= %d"; a failed growth keeps the entry
 * and reports under "vsy_IntHash_Expand". */
void vsy_IntHashInsert(vsy_IntHash* tab, int key, int value);
/* Writes the value of key, or `empty` when the key is missing. In a table with no free slot a
 * missing key leaves *value unwritten. */
void vsy_IntHashGet(vsy_IntHash* tab, int key, int* value);
/* Frees every slot (key 0, value empty) and sets count to 0; the size stays. */
void vsy_IntHashClear(vsy_IntHash* tab);
/* Writes the number of entries. */
void vsy_IntHashCount(vsy_IntHash* tab, int* count);
/* Starts an iteration in slot order. */
void vsy_IntHashInitIter(vsy_IntHash* tab);
/* Writes the next entry in slot order; at the end key 0 with `empty`, and again on every further
 * call. A growth during an iteration changes the order of what remains. */
void vsy_IntHashNextIter(vsy_IntHash* tab, int* key, int* value);

/* Internal growth test: when count > limit, moves all entries to vsy_NextCapacity(size) slots.
 * On failure reports code 4 under "vsy_IntHash_Expand" with no text; the table stays valid. */
void vsy_IntHash_Expand(vsy_IntHash* tab);

#endif
