/* vis_LCase: a load case, held sparsely: a case with ten loads on a million nodes costs ten
 * entries.
 *
 * Concentrated loads sit at nodes, by type: 1 force (3 scalars), 2 moment (3), 3 heat (1),
 * 4 temperature (1), 5 a further scalar (1), 6 a further vector (3); type 7 only queries "force
 * or moment". Distributed loads sit on element edges (entity 2) or faces (entity 3), by type:
 * 1 traction (3 scalars per corner), 2 pressure (1 per corner), 5 heat flux (1 per corner),
 * 6 convection (2: ambient temperature, film coefficient; per corner). Each element holds a
 * flag word, bit no - 1 for edge or face `no`, and per number the values of every corner: four
 * corners for a face, two for an edge (a triangular face uses the first three). Element loads
 * (type 1 to 3; 2 is heat generation) hold one value per element node, up to 64.
 *
 * Set replaces, Add accumulates (an absent entry counts as zeros). A node or element without an
 * entry reads as zeros with no error. Errors: index below 1 code 1 "index= %d"; a type outside
 * its list code 2 "type= %d"; an entity other than 2 and 3 code 2 "enttype= %d"; a number
 * outside 1 to 6 (faces) or 1 to 12 (edges) code 1 "no= %d"; a failed allocation code 4
 * "index= %d". The largest index per type only grows.
 *
 * Beside the loads a case holds a time curve (SetObject with SYS_TCURVE; the caller keeps it)
 * and a factor (SetParamd with VIS_LCASE_FACTOR, 1 after New). Both describe the case for its
 * readers and scale nothing in the store: every read returns the loads as they were set.
 */
#ifndef VIS_LCASE_H
#define VIS_LCASE_H

#define VIS_LCASE_FORCEMOMENT 7
#define VIS_LCASE_MAXELEMVAL 64
#define VIS_LCASE_FACTOR 1 /* double option: the case's load factor */

struct vsy_HashTable;
struct vis_Group;
struct vis_TCurve;

typedef struct vis_LCase {
    int ierr;                         /* last error */
    struct vsy_HashTable* conc[7];    /* concentrated types 1 to 6 by node; entry 0 unused */
    int concmax[7];
    struct vsy_HashTable* dist[2][7]; /* [edge, face][type 1 to 6] by element */
    int distmax[2][7];
    struct vsy_HashTable* elem[4];    /* element types 1 to 3 by element */
    int elemmax[4];
    int hasaccel;                     /* 1 once an acceleration was set */
    double accel[3], angvel[3], angacc[3], centre[3];
    struct vis_TCurve* tcurve;        /* time curve of the case, not owned, null when none */
    double factor;                    /* load factor (VIS_LCASE_FACTOR) */
} vis_LCase;

/* Creates an empty case; null with "LCase" code 4 "Creation Failure". */
vis_LCase* vis_LCaseNew(void);
/* Releases every entry and the record. */
void vis_LCaseDelete(vis_LCase* lc);
int vis_LCaseError(vis_LCase* lc);
/* Removes every load; the time curve and the factor stay. */
void vis_LCaseClear(vis_LCase* lc);

/* Concentrated loads. */
void vis_LCaseConcMax(vis_LCase* lc, int type, int* max);
void vis_LCaseConcNum(vis_LCase* lc, int type, int* num);
void vis_LCaseConcFlag(vis_LCase* lc, int index, int type, int* flag);
/* Bit t - 1 set for each concentrated type t held at the node. */
void vis_LCaseConcType(vis_LCase* lc, int index, int* mask);
void vis_LCaseConc(vis_LCase* lc, int index, int type, float* v);
void vis_LCaseConcdv(vis_LCase* lc, int index, int type, double* v);
void vis_LCaseSetConc(vis_LCase* lc, int index, int type, const float* v);
void vis_LCaseSetConcdv(vis_LCase* lc, int index, int type, const double* v);
void vis_LCaseAddConc(vis_LCase* lc, int index, int type, const float* v);
void vis_LCaseAddConcdv(vis_LCase* lc, int index, int type, const double* v);

/* Distributed loads; v holds the values of every corner (4 for a face, 2 for an edge). */
void vis_LCaseDistMax(vis_LCase* lc, int entity, int type, int* max);
void vis_LCaseDistFlag(vis_LCase* lc, int entity, int index, int type, int* flags);
void vis_LCaseDist(vis_LCase* lc, int entity, int index, int no, int type, float* v);
void vis_LCaseDistdv(vis_LCase* lc, int entity, int index, int no, int type, double* v);
void vis_LCaseSetDist(vis_LCase* lc, int entity, int index, int no, int type, const float* v);
void vis_LCaseSetDistdv(vis_LCase* lc, int entity, int index, int no, int type, const double* v);
void vis_LCaseAddDist(vis_LCase* lc, int entity, int index, int no, int type, const float* v);
void vis_LCaseAddDistdv(vis_LCase* lc, int entity, int index, int no, int type, const double* v);
/* Adds one centre value (the scalars of one corner) to every corner. */
void vis_LCaseAddDistCentdv(vis_LCase* lc, int entity, int index, int no, int type, const double* v);
/* Adds per-corner values; the same as vis_LCaseAddDistdv. */
void vis_LCaseAddDistCorndv(vis_LCase* lc, int entity, int index, int no, int type, const double* v);

/* Element loads: n values (1 to 64) per element. A read writes the count held (0 without an
 * entry) and the values. */
void vis_LCaseElemMax(vis_LCase* lc, int type, int* max);
void vis_LCaseElemFlag(vis_LCase* lc, int index, int type, int* flag);
void vis_LCaseElem(vis_LCase* lc, int index, int type, int* n, float* v);
void vis_LCaseElemdv(vis_LCase* lc, int index, int type, int* n, double* v);
void vis_LCaseSetElem(vis_LCase* lc, int index, int type, int n, const float* v);
void vis_LCaseSetElemdv(vis_LCase* lc, int index, int type, int n, const double* v);
void vis_LCaseAddElem(vis_LCase* lc, int index, int type, int n, const float* v);
void vis_LCaseAddElemdv(vis_LCase* lc, int index, int type, int n, const double* v);

/* Groups of loaded entities. The group is cleared and then marks the loaded entities of the
 * type with an index up to its count: nodes (a group of parent 1; type 1 to 7), elements with
 * element loads (parent 4; type 1 to 3), element faces (parent 4, child 3) and element edges
 * (parent 4, child 2) with distributed loads, one flag per loaded face or edge. A group of
 * another kind: code 2 "parenttype= %d" or "childtype= %d". */
void vis_LCaseNodeGroup(vis_LCase* lc, int type, struct vis_Group* group);
void vis_LCaseElemGroup(vis_LCase* lc, int type, struct vis_Group* group);
void vis_LCaseFaceGroup(vis_LCase* lc, int type, struct vis_Group* group);
void vis_LCaseEdgeGroup(vis_LCase* lc, int type, struct vis_Group* group);

/* Body loads: acceleration, angular velocity, angular acceleration and rotation centre, three
 * each; all zero while the flag is 0. */
void vis_LCaseSetAcceldv(vis_LCase* lc, const double* a, const double* w, const double* alpha,
                         const double* centre);
void vis_LCaseAccelFlag(vis_LCase* lc, int* flag);
void vis_LCaseAccel(vis_LCase* lc, double* a, double* w, double* alpha, double* centre);

/* Attaches (null: detaches) or reads the time curve; objecttype must be SYS_TCURVE, otherwise
 * code 3 "objecttype= %d" and nothing is set or read. */
void vis_LCaseSetObject(vis_LCase* lc, int objecttype, void* object);
void vis_LCaseGetObject(vis_LCase* lc, int objecttype, void** object);
/* Double options: only VIS_LCASE_FACTOR; any other code 2 "type= %d", nothing is set or read. */
void vis_LCaseSetParamd(vis_LCase* lc, int type, double value);
void vis_LCaseGetParamd(vis_LCase* lc, int type, double* value);

#endif
