/* vsy_Dictionary: name to pointer-sized value, open addressing with a fixed probe step per name.
 *
 * Probe rule: a search starts at the name's home slot h (vsy_Hash_NameHome, on the raw bytes)
 * and advances by 8 - h % 8, wrapping at `size`, for at most `size` probes. A slot with a null
 * name is not an entry: with a zero value word it was never used and ends every search; with -1
 * in the low 32 bits of the value word it is a removed entry, which searches pass and insertions
 * reuse (the first null-name slot on the path takes a new name). With `nocase` set names compare
 * upper-cased, but the hash stays on the raw bytes, so two spellings that differ in case meet
 * only where their probe paths do. Each entry owns a copy of its name.
 *
 * Load rule: `count` stays at most `limit` = size / 2; the insertion that passes it moves every
 * entry to vsy_NextPrimeLike(size) slots, which drops removed entries.
 */
#ifndef VSY_DICTIONARY_H
#define VSY_DICTIONARY_H

/* Option of vsy_DictionarySetParami: param non-zero makes names compare without case. */
#define VSY_DICTIONARY_NOCASE 1

typedef struct vsy_DictionarySlot {
    char* name;  /* owned copy; null for a free or removed slot */
    void* value; /* for a null name: 0 never used, -1 in the low word removed */
} vsy_DictionarySlot;

typedef struct vsy_Dictionary {
    int ierr;                  /* last error, 0 for none */
    int iter;                  /* iteration cursor: -1 after New, 0 after InitIter */
    int nocase;                /* non-zero: names compare without regard to case */
    int* sortslot;             /* during a sorted iteration: pairs of slot and name offset, -1 ends */
    char* sortname;            /* during a sorted iteration: the names in order, each terminated */
    int count;                 /* entries */
    int limit;                 /* load limit, size / 2 */
    int size;                  /* number of slots */
    vsy_DictionarySlot* slots; /* owned */
    void* empty;               /* value of a missing name; null after New */
} vsy_Dictionary;

/* Creates an empty, undefined dictionary. Null with a "Creation Failure" report when the record
 * cannot be allocated. The caller owns the result. */
vsy_Dictionary* vsy_DictionaryNew(void);
/* Releases every name, the slots, the sorted arrays and the record. Values are not touched. */
void vsy_DictionaryDelete(vsy_Dictionary* dict);
/* Returns the last error and clears it. */
int vsy_DictionaryError(vsy_Dictionary* dict);
/* Sets an option; only VSY_DICTIONARY_NOCASE exists, others fail with code 2 "type= %d". */
void vsy_DictionarySetParami(vsy_Dictionary* dict, int type, int param);
/* Empties the dictionary and gives it vsy_NextPrimeLike(max(nument, 128)) slots. On a failed
 * allocation reports code 4 "nument= %d" and leaves the dictionary as it was. */
void vsy_DictionaryDef(vsy_Dictionary* dict, int nument);
/* Stores value under a copy of name, replacing the value of an equal name. A null name is
 * code 5. Defines the dictionary with size 0 when it has no slots. No free slot is code 13
 * "Slot search, name= %s"; a failed copy of the name is code 4 "name= %s"; in these cases
 * nothing changes. */
void vsy_DictionaryInsert(vsy_Dictionary* dict, const char* name, void* value);
/* Writes the value of name, or `empty` when it is missing (or null). */
void vsy_DictionaryGet(vsy_Dictionary* dict, const char* name, void** value);
/* Removes name if present and releases its copy; a missing name is no error. */
void vsy_DictionaryRemove(vsy_Dictionary* dict, const char* name);
/* Writes the number of entries. */
void vsy_DictionaryCount(vsy_Dictionary* dict, int* count);
/* Starts an iteration in slot order. */
void vsy_DictionaryInitIter(vsy_Dictionary* dict);
/* Starts an iteration in ascending order of the names (upper-cased when `nocase` is set). When
 * the sorted arrays cannot be allocated, reports code 4 "Malloc vec" and iterates in slot order. */
void vsy_DictionaryInitIterOrder(vsy_Dictionary* dict);
/* Writes the next name (owned by the dictionary, valid until it changes) and value; at the end
 * a null name with `empty`, after which the sorted arrays are released. Entries removed during
 * an iteration are skipped. */
void vsy_DictionaryNextIter(vsy_Dictionary* dict, const char** name, void** value);

/* Internal: a slot array of `size` never used slots, or null after reporting code 4 under
 * "vsy_Dictionary_Alloc". The caller owns the result. */
vsy_DictionarySlot* vsy_Dictionary_Alloc(vsy_Dictionary* dict, int size);
/* Internal: moves every entry to vsy_NextPrimeLike(size) slots, keeping the name copies. On
 * failure the dictionary stays as it was, with code 4 recorded. */
void vsy_Dictionary_Expand(vsy_Dictionary* dict);

#endif
