/* vis_ICase: an initial condition case in two levels: 1 displacement or temperature (tag 7),
 * 2 velocity. Per level and node a mask of tags 1 to 31 and one double per set tag; values read
 * in ascending tag order.
 *
 * Errors: a level other than 1 and 2 code 2 "Invalid type= %d"; index below 1 code 1
 * "index= %d"; a tag outside 1 to 31 code 1 "iparam= %d"; a failed allocation code 4
 * "index= %d". A node without entry has no tags.
 */
#ifndef VIS_ICASE_H
#define VIS_ICASE_H

struct vsy_HashTable;
struct vis_Group;

typedef struct vis_ICase {
    int ierr;                     /* last error */
    struct vsy_HashTable* spv[2]; /* per level: node index to its record, owned */
    int max[2];                   /* per level: largest node index */
} vis_ICase;

/* Creates an empty case; null with "ICase" code 4 "Creation Failure". */
vis_ICase* vis_ICaseNew(void);
void vis_ICaseDelete(vis_ICase* ic);
int vis_ICaseError(vis_ICase* ic);

void vis_ICaseSPVMax(vis_ICase* ic, int level, int* max);
/* Walks all entries of the level and lists the tags set at any node, ascending. */
void vis_ICaseSPVUseTag(vis_ICase* ic, int level, int* n, int* tags);
/* Tags and values of a node in tag order; n is 0 for a node without entry. */
void vis_ICaseSPV(vis_ICase* ic, int index, int level, int* n, int* tags, float* values);
void vis_ICaseSPVdv(vis_ICase* ic, int index, int level, int* n, int* tags, double* values);
void vis_ICaseSetSPV(vis_ICase* ic, int index, int level, int tag, float value);
void vis_ICaseSetSPVdv(vis_ICase* ic, int index, int level, int tag, double value);

/* Clears a node group (parent 1) and marks the nodes with values at the level, up to its
 * count. A group of another parent: code 2 "parenttype= %d". */
void vis_ICaseNodeGroup(vis_ICase* ic, int level, struct vis_Group* group);

#endif
