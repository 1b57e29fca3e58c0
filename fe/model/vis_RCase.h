/* vis_RCase: a restraint case: per node (and per element, for element restraints) a mask of
 * dof tags 1 to 31 and, per set tag, a type (1 fixed, value 0; 2 prescribed value) and a
 * value. Tags read in ascending order. The case also keeps which tags are used anywhere.
 *
 * Errors: index below 1 code 1 "index= %d"; a tag outside 1 to 31 code 1 "iparam= %d"; a type
 * other than 1 and 2 code 2 "type= %d"; a failed allocation code 4 "index= %d". A node without
 * entry has 0 tags; reading a tag not set gives type 0 and value 0.
 */
#ifndef VIS_RCASE_H
#define VIS_RCASE_H

struct vsy_HashTable;
struct vis_Group;

typedef struct vis_RCase {
    int ierr;                    /* last error */
    int usedmask;                /* bit t - 1 for every tag t used at any node */
    struct vsy_HashTable* spc;   /* node index to its record, owned */
    int spcmax;                  /* largest node index with an entry */
    struct vsy_HashTable* elemc; /* element index to its record, owned */
    int elemcmax;
} vis_RCase;

/* Creates an empty case; null with "RCase" code 4 "Creation Failure". */
vis_RCase* vis_RCaseNew(void);
void vis_RCaseDelete(vis_RCase* rc);
int vis_RCaseError(vis_RCase* rc);

/* The tags used at any node, ascending. */
void vis_RCaseUseTag(vis_RCase* rc, int* n, int* tags);
/* Largest node index with a restraint. */
void vis_RCaseSPCMax(vis_RCase* rc, int* max);
void vis_RCaseSPCTag(vis_RCase* rc, int index, int* n, int* tags);
void vis_RCaseSPC(vis_RCase* rc, int index, int tag, int* type, float* value);
void vis_RCaseSPCdv(vis_RCase* rc, int index, int tag, int* type, double* value);
void vis_RCaseSetSPC(vis_RCase* rc, int index, int tag, int type, float value);
void vis_RCaseSetSPCdv(vis_RCase* rc, int index, int tag, int type, double value);

/* Element restraints, the same by element index. */
void vis_RCaseElemCMax(vis_RCase* rc, int* max);
void vis_RCaseElemCTag(vis_RCase* rc, int index, int* n, int* tags);
void vis_RCaseElemC(vis_RCase* rc, int index, int tag, int* type, float* value);
void vis_RCaseElemCdv(vis_RCase* rc, int index, int tag, int* type, double* value);
void vis_RCaseSetElemC(vis_RCase* rc, int index, int tag, int type, float value);
void vis_RCaseSetElemCdv(vis_RCase* rc, int index, int tag, int type, double value);

/* Clears the group and marks the restrained nodes (parent 1) or elements (parent 4) up to its
 * count. A group of another parent: code 2 "parenttype= %d". */
void vis_RCaseNodeGroup(vis_RCase* rc, struct vis_Group* group);
void vis_RCaseElemGroup(vis_RCase* rc, struct vis_Group* group);

/* Copies every restraint of src into rc, replacing those at the same node and tag. */
void vis_RCaseAdd(vis_RCase* rc, vis_RCase* src);

#endif
