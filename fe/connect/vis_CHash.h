/* vis_CHash: a two-level integer table, one or more values per pair of an index (an element)
 * and a number (a face or edge number, from 1).
 *
 * A vsy_HashTable maps the index to the head of a singly linked chain of records; each record
 * holds the number, the value and the next record. A pair may hold several records (Add);
 * Get reads the first one of the pair. Records are allocated one by one and owned.
 *
 * Every operation with an index or number below 1 records code 1 and reports
 * "index= %d, no= %d" under its own name; a failed allocation is code 4 with the same text.
 */
#ifndef VIS_CHASH_H
#define VIS_CHASH_H

struct vsy_HashTable;

typedef struct vis_CHashRec {
    struct vis_CHashRec* next;
    int no;
    int value;
} vis_CHashRec;

typedef struct vis_CHash {
    int ierr;                   /* last error */
    struct vsy_HashTable* tab;  /* index to the first record of its chain, owned */
} vis_CHash;

/* Creates an empty table; null with "CHash" code 4 "Creation Failure". */
vis_CHash* vis_CHashNew(void);
void vis_CHashDelete(vis_CHash* chash);
int vis_CHashError(vis_CHash* chash);
/* Replaces the values of the pair by one value. */
void vis_CHashSet(vis_CHash* chash, int index, int no, int value);
/* Appends a value to the pair. */
void vis_CHashAdd(vis_CHash* chash, int index, int no, int value);
/* Appends a value to the pair unless the pair holds it already. */
void vis_CHashUni(vis_CHash* chash, int index, int no, int value);
/* First value of the pair; 0 first, and 0 when the pair holds none. */
void vis_CHashGet(vis_CHash* chash, int index, int no, int* value);
/* Number of values of the pair. */
void vis_CHashNum(vis_CHash* chash, int index, int no, int* num);
/* All values of the pair in the order of addition. */
void vis_CHashAll(vis_CHash* chash, int index, int no, int* num, int* values);
/* Removes every value of the pair. */
void vis_CHashDel(vis_CHash* chash, int index, int no);

#endif
