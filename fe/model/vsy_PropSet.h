/* vsy_PropSet: a set of named integer values over a vsy_Dictionary, with which the writers
 * remember orientations and other named items.
 *
 * Each entry is a small owned record: `set` 1, `count` 1, type 4 and the 32-bit value.
 * Inserting a name again frees the old record before the new one goes in.
 */
#ifndef VSY_PROPSET_H
#define VSY_PROPSET_H

struct vsy_Dictionary;

typedef struct vsy_PropSetEntry {
    int set;   /* 1 */
    int count; /* 1 */
    int type;  /* 4 */
    int value;
} vsy_PropSetEntry;

typedef struct vsy_PropSet {
    int ierr;                    /* last error */
    struct vsy_Dictionary* dict; /* name to entry, owned with its entries */
} vsy_PropSet;

/* Creates an empty set; null with "PropSet" code 4 "Creation Failure". */
vsy_PropSet* vsy_PropSetNew(void);
/* Releases every entry, the dictionary and the record. */
void vsy_PropSetDelete(vsy_PropSet* set);
int vsy_PropSetError(vsy_PropSet* set);
/* Stores value under name. An entry that cannot be allocated: code 4 under
 * "vsy_PropSet_Insert" with no text, and the name keeps no value. */
void vsy_PropSet_Insert(vsy_PropSet* set, const char* name, int value);
/* flag 1 and the value of a name, or flag 0 with value untouched. */
void vsy_PropSetValue(vsy_PropSet* set, const char* name, int* flag, int* value);
void vsy_PropSetCount(vsy_PropSet* set, int* count);

#endif
