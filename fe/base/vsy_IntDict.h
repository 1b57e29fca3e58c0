/* vsy_IntDict: name to integer value, open addressing with a fixed probe step per name.
 *
 * Probe rule: a search starts at the name's home slot h (vsy_Hash_NameHome) and advances by
 * 8 - h % 8, wrapping at `size`, for at most `size` probes; since no number from 2 to 8 divides
 * `size`, the path visits every slot. A slot with a null name is free and ends every probe;
 * there is no removal. The value `empty` marks a missing name and may not be stored. Names
 * compare byte for byte. Each entry owns a copy of its name.
 *
 * Load rule: `count` stays at most `limit` = size / 2; the insertion that passes it moves every
 * entry to vsy_NextPrimeLike(size) slots.
 */
#ifndef VSY_INTDICT_H
#define VSY_INTDICT_H

typedef struct vsy_IntDictSlot {
    char* name; /* owned copy, null when the slot is free */
    int value;
} vsy_IntDictSlot;

typedef struct vsy_IntDict {
    int ierr;              /* last error, 0 for none */
    int iter;              /* iteration cursor, -1 before the first step */
    int* sortslot;         /* during a sorted iteration: pairs of slot and name offset, -1 ends */
    char* sortname;        /* during a sorted iteration: the names in order, each terminated */
    int count;             /* entries */
    int limit;             /* load limit, size / 2 */
    int size;              /* number of slots */
    vsy_IntDictSlot* slots; /* owned */
    int empty;             /* value of a missing name; 0 after New */
} vsy_IntDict;

/* Creates an empty, undefined dictionary. Null with a "Creation Failure" report when the record
 * cannot be allocated. The caller owns the result. */
vsy_IntDict* vsy_IntDictNew(void);
/* Releases every name, the slots, the sorted arrays and the record. */
void vsy_IntDictDelete(vsy_IntDict* dict);
/* Returns the last error and clears it. */
int vsy_IntDictError(vsy_IntDict* dict);
/* Empties the dictionary and gives it vsy_NextPrimeLike(max(nument, 128)) slots. On a failed
 * allocation reports code 4 "nument= %d" and leaves the dictionary as it was. */
void vsy_IntDictDef(vsy_IntDict* dict, int nument);
/* Stores value under a copy of name, replacing an earlier value. value == empty fails with
 * code 1 "name= %s, value= %d"; a null name with code 5. Defines the dictionary with size 0
 * when it has no slots. No free slot is code 13 "Slot search, name= %s"; a failed copy of the
 * name is code 4 "name= %s"; in these cases nothing changes. */
void vsy_IntDictInsert(vsy_IntDict* dict, const char* name, int value);
/* Writes the value of name, or `empty` when it is missing (or null). */
void vsy_IntDictGet(vsy_IntDict* dict, const char* name, int* value);
/* Writes the number of entries. */
void vsy_IntDictCount(vsy_IntDict* dict, int* count);
/* Starts an iteration in slot order. */
void vsy_IntDictInitIter(vsy_IntDict* dict);
/* Starts an iteration in ascending byte order of the names. When the sorted arrays cannot be
 * allocated, reports code 4 "Malloc vec" and iterates in slot order. */
void vsy_IntDictInitIterOrder(vsy_IntDict* dict);
/* Writes the next name (owned by the dictionary, valid until it changes) and value; at the end
 * a null name with `empty`, after which the sorted arrays are released. */
void vsy_IntDictNextIter(vsy_IntDict* dict, const char** name, int* value);

/* Internal: a slot array of `size` free slots, or null after reporting code 4 under
 * "vsy_IntDict_Alloc". The caller owns the result. */
vsy_IntDictSlot* vsy_IntDict_Alloc(vsy_IntDict* dict, int size);
/* Internal: moves every entry to vsy_NextPrimeLike(size) slots, keeping the name copies. On
 * failure the dictionary stays as it was, with code 4 recorded. */
void vsy_IntDict_Expand(vsy_IntDict* dict);

#endif
