/* vis_Assoc: an integer attribute per entity (node or element) that stores itself as compactly
 * as its values allow and may hold several values per entity.
 *
 * Storage types, in the order of widening:
 *
 *   1 constant   every index 1..maxind holds `constval`; no array
 *   6 identity   every index 1..maxind holds the index itself; no array
 *   2 four-bit   values 0 to 15, two per byte, even indices in the low half
 *   3 byte       values -128 to 127
 *   4 short      values -32768 to 32767
 *   5 int32      any value
 *
 * Every index from 1 to maxind has a first value; an index never set below maxind holds 0, as
 * does every index above maxind. The first value lies in the typed array, so a query of one
 * value is one array read. Further values of an index form a chain in `pool`, starting at
 * head[index] (-1 for none); `head` is null while no index has a second value.
 *
 * Writing. vis_AssocSet gives an index exactly one value (its chain is dropped). When the
 * current storage cannot hold the value, the association widens to the narrowest type that
 * holds all values: constant and identity go on only while the values keep their pattern
 * (constant: the same value, set in order or with 0 in the gaps; identity: value equal to the
 * index, set in order), and an array type never narrows. vis_AssocAdd appends a value to an
 * index that has one already (index <= maxind), else it sets the first; constant and identity
 * turn into an array first. Indices start at 1.
 *
 * Capacity. The typed arrays (and head) have cap + 1 entries and grow by vsy_GrowCapacity;
 * entries past maxind are always 0, head entries past the chains -1. vis_AssocCompact cuts the
 * allocation down to maxind. An index that no array can reach (past VSY_GROW_MAXCAP, or about
 * twice that for nibbles) and a chain pool at the largest capacity are code 4, reported before
 * anything is allocated, with every value kept.
 */
#ifndef VIS_ASSOC_H
#define VIS_ASSOC_H

#define VIS_ASSOC_CONSTANT 1
#define VIS_ASSOC_NIBBLE 2
#define VIS_ASSOC_BYTE 3
#define VIS_ASSOC_SHORT 4
#define VIS_ASSOC_INT 5
#define VIS_ASSOC_IDENTITY 6

typedef struct vis_AssocLink {
    int next;  /* next link of the chain, -1 at its end */
    int value;
} vis_AssocLink;

typedef struct vis_Assoc {
    int ierr;               /* last error */
    int maxind;             /* largest index with a value */
    int cap;                /* allocated index range */
    int type;               /* storage type, 1 to 6 */
    int constval;           /* value of every index, type 1 */
    unsigned char* nibbles; /* type 2, owned */
    signed char* bytes;     /* type 3, owned */
    short* shorts;          /* type 4, owned */
    int* ints;              /* type 5, owned */
    int* head;              /* first link per index, -1 for none; owned */
    vis_AssocLink* pool;    /* chain links, owned */
    int poolnum;            /* links handed out (in chains or on the free list) */
    int poolcap;            /* capacity of pool (vsy_GrowCapacity sense: poolcap + 1 links) */
    int freelink;           /* first free link, -1 for none */
    int headcap;            /* capacity of head */
    int bytecap;            /* capacity of nibbles in bytes */
} vis_Assoc;

/* Creates an empty association (constant 0, maxind 0); null with "Assoc" code 4 "Creation
 * Failure" on failure. */
vis_Assoc* vis_AssocNew(void);
void vis_AssocDelete(vis_Assoc* assoc);
int vis_AssocError(vis_Assoc* assoc);
/* Empties the association and selects the storage type; for array types room for nument
 * indices is allocated. nument below 0 is error 1 "nument= %d", a type outside 1 to 6 error 2
 * "type= %d"; a failed allocation error 4 "nument= %d" (the association stays empty). */
void vis_AssocDef(vis_Assoc* assoc, int nument, int type);
/* Sets the one value of index (>= 1, else error 1 "index= %d"). */
void vis_AssocSet(vis_Assoc* assoc, int index, int value);
/* Appends a value to index (>= 1, else error 1 "index= %d"). */
void vis_AssocAdd(vis_Assoc* assoc, int index, int value);
/* First value of index; 0 above maxind and for indices below 0. */
int vis_AssocGet(vis_Assoc* assoc, int index);
/* Number of values of index: 1 plus the length of its chain. */
void vis_AssocNum(vis_Assoc* assoc, int index, int* num);
/* All values of index: the first, then the chain in order of addition. */
void vis_AssocAll(vis_Assoc* assoc, int index, int* num, int* values);
/* Storage type and largest index. */
void vis_AssocType(vis_Assoc* assoc, int* type);
void vis_AssocMaxIndex(vis_Assoc* assoc, int* maxind);
/* Reduces the allocation to maxind. */
void vis_AssocCompact(vis_Assoc* assoc);

/* Internal: moves the typed array and head to capacity newcap by vsy_GrowCapacity (which may
 * give more when growing), clearing entries past maxind. Types 1 and 6 keep cap. On failure
 * *ierr and assoc->ierr are 4, with a report under "vis_Assoc_Realloc"; the storage is left as
 * it was. */
void vis_Assoc_Realloc(vis_Assoc* assoc, int newcap, int* ierr);

#endif
