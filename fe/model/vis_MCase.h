/* vis_MCase: a multipoint constraint case: equations by number from 1. An equation of type 1
 * is linear, sum of factor times the dof `tag` of `node` = 0, with nterms terms; types 2 TIE,
 * 3 PIN, 4 LINK and 5 BEAM join two nodes without terms.
 *
 * Errors: an equation number below 1 code 1 "index= %d"; nterms below 1 code 1 "nument= %d";
 * a tag outside 1 to 31 code 1 "ix[%d]= %d" (term and tag); a type outside 2 to 5 for a
 * two-node constraint code 2 "type= %d"; a failed allocation code 4 "index= %d". An equation
 * never set reads as 0 terms and type 0.
 */
#ifndef VIS_MCASE_H
#define VIS_MCASE_H

struct vsy_HashTable;

typedef struct vis_MCase {
    int ierr;                  /* last error */
    int id;                    /* free for the caller; the model keys cases by its table */
    int nequ;                  /* equations held */
    int maxterm;               /* largest term count held */
    struct vsy_HashTable* equ; /* equation number to its record, owned */
} vis_MCase;

/* Creates an empty case; null with "MCase" code 4 "Creation Failure". */
vis_MCase* vis_MCaseNew(void);
void vis_MCaseDelete(vis_MCase* mc);
int vis_MCaseError(vis_MCase* mc);

/* Number of equations, the largest term count and the largest equation number. */
void vis_MCaseInq(vis_MCase* mc, int* nequ, int* maxterm, int* maxindex);
void vis_MCaseMPC(vis_MCase* mc, int index, int* nterms);
void vis_MCaseMPCdv(vis_MCase* mc, int index, int* nterms, int* nodes, int* tags, double* factors);
void vis_MCaseType(vis_MCase* mc, int index, int* type);
/* Type, node count (2 for a two-node constraint, nterms for an equation) and nodes. */
void vis_MCaseCon(vis_MCase* mc, int index, int* type, int* n, int* nodes);
void vis_MCaseSetMPC(vis_MCase* mc, int index, int nterms, const int* nodes, const int* tags, const float* factors);
void vis_MCaseSetMPCdv(vis_MCase* mc, int index, int nterms, const int* nodes, const int* tags, const double* factors);
void vis_MCaseSetCon(vis_MCase* mc, int index, int type, const int nodes[2]);
/* Removes an equation; a missing one is no error. */
void vis_MCaseDel(vis_MCase* mc, int index);
/* Appends every equation of src after the largest equation number of mc, in number order. */
void vis_MCaseAdd(vis_MCase* mc, vis_MCase* src);

#endif
