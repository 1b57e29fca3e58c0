/* vsy_LinkList: a pool of fixed-size nodes addressed by index, with a free chain and a used
 * chain threaded through the nodes.
 *
 * Layout: node i occupies bytes i * stride to (i + 1) * stride - 1 of `nodes`: `prev`, `next`,
 * `inuse` (int32 each), then the payload at offset 16. Node 0 is never used; nodes 1 to `len`
 * exist. Every node is on exactly one chain: the free chain from `freehead` or the used chain
 * from `usedhead`, both doubly linked with 0 as the end.
 *
 * Growth: when no node is free, `len` grows to min(len + 20000, 2 * len) and the new nodes are
 * chained as free. Nodes move when the pool grows: a payload address is valid only until the
 * next vsy_LinkListAdd; an index stays valid.
 *
 * Word count: `words` is (nbytes + 11) / 8 + 1, raised by one on purpose where that leaves a
 * node too short for its payload at offset 16 (nbytes 1 to 4 past a multiple of 8), since the
 * plain rule would let such a payload run into the next node.
 */
#ifndef VSY_LINKLIST_H
#define VSY_LINKLIST_H

/* Offset of the payload inside a node. */
#define VSY_LINKLIST_PAYLOAD 16

typedef struct vsy_LinkList {
    int ierr;             /* last error, 0 for none */
    int len;              /* highest node index */
    int nbytes;           /* payload size */
    int stride;           /* node size in bytes, 8 * words */
    int words;            /* node size in 8-byte words */
    unsigned char* nodes; /* (len + 1) * stride bytes, owned */
    int freehead;         /* first node of the free chain, 0 for none */
    int usedhead;         /* first node of the used chain, 0 for none */
} vsy_LinkList;

/* Creates an undefined list. Null with a "Creation Failure" report when the record cannot be
 * allocated. The caller owns the result. */
vsy_LinkList* vsy_LinkListNew(void);
/* Releases the nodes and the record. */
void vsy_LinkListDelete(vsy_LinkList* list);
/* Returns the last error and clears it. */
int vsy_LinkListError(vsy_LinkList* list);
/* Releases the nodes and makes `len` free nodes (16 when len is 0) of `nbytes` payload bytes.
 * len below 0 is code 1 "len= %d", nbytes below 0 code 1 "nbytes= %d"; both change nothing.
 * A failed allocation reports code 4 "Malloc node" and leaves the list without nodes; the next
 * vsy_LinkListAdd defines it again. */
void vsy_LinkListDef(vsy_LinkList* list, int len, int nbytes);
/* Takes a free node, puts it in front of the used chain and writes its index and payload
 * address (zeroed only by the caller). Grows the pool when no node is free; a failed growth
 * reports code 4 "Realloc node" and writes index 0 and a null payload. A list never defined is
 * defined with len 0 first. */
void vsy_LinkListAdd(vsy_LinkList* list, int* index, void** payload);
/* Writes the payload address of a node in use, or null. */
void vsy_LinkListGet(vsy_LinkList* list, int index, void** payload);
/* Returns a node in use to the front of the free chain. An index that is not a node in use is
 * code 1 "index= %d" and changes nothing. */
void vsy_LinkListRemove(vsy_LinkList* list, int index);

/* Internal: chains nodes 1 to len as free, in order, and empties the used chain. */
void vsy_LinkListInit(vsy_LinkList* list);
/* Internal: grows the pool, to min(len + 20000, 2 * len) nodes for wanted 0 and to
 * max(len + 20000, wanted) otherwise, chaining the new nodes in front of the free chain with
 * their `inuse` cleared. On failure reports code 4 "Realloc node" under `name` and leaves the
 * list as it was. */
void vsy_LinkList_Expand(vsy_LinkList* list, int wanted, const char* name);

#endif
