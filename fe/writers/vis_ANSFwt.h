/* vis_ANSFwt: the ANSYS command file writer.
 *
 * vis_ANSFwtWriteModel writes a vis_Model as a command file, opened in "w" mode: title lines
 * from the first solution step, a "/PREP7" block of coordinate systems, nodes, element types,
 * real constants, elements, rigid links, sections, materials and components, then one
 * "/SOLUTION" block per solution step with its initial conditions, restraints, constraint
 * equations and loads. A section is written only when the table it reads exists; nodes and
 * elements need the connectivity. The frame reports a path that cannot be opened (code 6
 * "path= %s") and a model without grid function or connectivity (code 5 "GridFun"); an element
 * that no element type holds is left out with no word. Node and element ids that are not
 * unique are replaced by indices (vis_GridFunIdCheck).
 *
 * Option VIS_ANSFWT_BLOCKS (1 after New) writes the block commands "/PREP7", "/SOLUTION",
 * "SOLVE" and "FINISH"; at 0 they are left out, for a file read into a running session.
 *
 * Choices where the rules leave room: nodes of a collapsed face or edge repeat the corner in
 * the format's brick and quadrilateral forms; face loads go to the format's face of the same
 * corners; initial conditions of a node go in tag order; a step of kind 5 writes no analysis
 * type; a step without load cases still deletes the loads of earlier steps.
 *
 * Departures: elements of order 4, Lagrange forms and those with masked midside nodes get no
 * element type (no element of the rule table holds them); the element library keeps the names, numbers and the rows the
 * writer needs, not every description of the format's reference; no "MPTEMP" or "MPDATA" table
 * is written, since a material's values are doubles and carry no curve id in this model;
 * load factors scale forces, moments, heat, pressures, fluxes and accelerations, not
 * temperatures or film values; "BFE" leaves its starting location empty before the values.
 */
#ifndef VIS_ANSFWT_H
#define VIS_ANSFWT_H

#include "vis_Writer.h"

struct vsy_HashTable;
struct vsy_List;
struct vis_Model;

/* Option of vis_ANSFwtSetParami: write the block commands (1) or leave them out (0). */
#define VIS_ANSFWT_BLOCKS 1

typedef struct vis_ANSFwt {
    vis_Writer w;                       /* frame; its ierr is the record's first field */
    int blocks;                         /* VIS_ANSFWT_BLOCKS */
    struct vsy_HashTable* coordsys;     /* 2100 */
    struct vsy_HashTable* mprop;        /* 2310 */
    struct vsy_HashTable* eprop;        /* 2300 */
    struct vsy_HashTable* elemdat;      /* 2540 */
    struct vsy_HashTable* lcase;        /* 2320 */
    struct vsy_HashTable* rcase;        /* 2330 */
    struct vsy_HashTable* mcase;        /* 2550 */
    struct vsy_HashTable* icase;        /* 2340 */
    struct vsy_HashTable* tcurve;       /* 2560 */
    struct vsy_HashTable* nodegroup;    /* 2113 */
    struct vsy_HashTable* elemgroup;    /* 2114 */
    struct vsy_List* sprop;             /* 2280 solution steps */
    int* libno;                         /* per element: element library number, 0 without type */
    int* etnum;                         /* per element: ET number, 0 without type */
    int kind, domain, nonlin;           /* of the first step */
    int maxnode;                        /* largest node id, for the beams' orientation nodes */
    int extranode;                      /* the last orientation node made */
    struct vsy_IntDict* reals;          /* real constant keys to their numbers */
    int realnum;                        /* the last real constant number given */
} vis_ANSFwt;

/* New: null with "ANSFwt" code 4 "Creation Failure". */
vis_ANSFwt* vis_ANSFwtNew(void);
void vis_ANSFwtDelete(vis_ANSFwt* ans);
int vis_ANSFwtError(vis_ANSFwt* ans);
/* Sets an option; another type is code 2 "type= %d" and nothing changes. */
void vis_ANSFwtSetParami(vis_ANSFwt* ans, int type, int value);
void vis_ANSFwtWriteModel(vis_ANSFwt* ans, struct vis_Model* model, const char* path);

#endif
