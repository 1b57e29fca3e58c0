/* vsy_ChunkList: short integer lists per index (from 1), for the dynamic mode of vis_Connect.
 *
 * Index i lives in block (i - 1) >> 12 at place (i - 1) & 4095 of the `counts` and `heads`
 * blocks. Its first four values are in its head cell, every further four in the next cell of a
 * chain; extra cells come from `cellblocks`, VSY_CHUNKLIST_CELLS cells per block, and cells a
 * list gives up go to a free list for reuse. `maxind` is the largest index whose block exists;
 * every index up to it reads its stored list (empty when never written).
 *
 * Invariants: counts[b][p] values are stored for the index; its chain holds exactly
 * ceil(count / 4) - 1 extra cells (none for an empty list); a block is zero when created.
 * The destructor releases each block, then the three arrays, then the record.
 */
#ifndef VSY_CHUNKLIST_H
#define VSY_CHUNKLIST_H

#define VSY_CHUNKLIST_BLOCK 4096 /* indices per block */
#define VSY_CHUNKLIST_CELLS 1024 /* extra cells per cell block */

typedef struct vsy_ChunkCell {
    struct vsy_ChunkCell* next; /* next cell, null at the end */
    int v[4];
} vsy_ChunkCell;

typedef struct vsy_ChunkList {
    int ierr;                   /* last error */
    int maxind;                 /* largest index */
    int ncellblocks;            /* blocks of extra cells */
    int nblocks;                /* index blocks */
    int** counts;               /* nblocks blocks of list lengths, owned */
    vsy_ChunkCell** heads;      /* nblocks blocks of head cells, owned */
    vsy_ChunkCell** cellblocks; /* ncellblocks blocks of extra cells, owned */
    int ncellused;              /* cells handed out from the last cell block */
    vsy_ChunkCell* freecell;    /* first cell of the free list */
} vsy_ChunkList;

/* Creates an empty list store; null with "ChunkList" code 4 "Creation Failure" on failure. */
vsy_ChunkList* vsy_ChunkListNew(void);
void vsy_ChunkListDelete(vsy_ChunkList* cl);
int vsy_ChunkListError(vsy_ChunkList* cl);
/* Releases every list and makes room for indices up to nument (at least 0; error 1
 * "nument= %d" below, error 4 "nument= %d" when a block cannot be allocated). */
void vsy_ChunkListDef(vsy_ChunkList* cl, int nument);
/* Replaces the list of index (>= 1, else error 1 "index= %d") by num values (num >= 0, else
 * error 1 "len= %d"). A failed allocation is error 4 "index= %d" and leaves the list as it was. */
void vsy_ChunkListSet(vsy_ChunkList* cl, int index, int num, const int* values);
/* Appends one value to the list of index; errors as Set. */
void vsy_ChunkListAdd(vsy_ChunkList* cl, int index, int value);
/* Length of the list; 0 above maxind. */
void vsy_ChunkListNum(vsy_ChunkList* cl, int index, int* num);
/* The list of index, at most maxnum values: clears values[0..maxnum-1] and *num first, gives
 * nothing above maxind. */
void vsy_ChunkListGet(vsy_ChunkList* cl, int index, int maxnum, int* num, int* values);
/* Value at position k (from 0); 0 above maxind, for k < 0 or k not below the length. */
void vsy_ChunkListEntry(vsy_ChunkList* cl, int index, int k, int* value);
/* Largest index. */
void vsy_ChunkListMaxIndex(vsy_ChunkList* cl, int* maxind);

#endif
