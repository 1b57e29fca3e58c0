/* vis_ABAFwt: the ABAQUS input deck writer.
 *
 * vis_ABAFwtWriteModel writes a vis_Model, opened in "w" mode, in this order: heading, nodes,
 * transform node sets and transforms, elements in runs under one header per feature, node
 * count, property (and system, for springs, gaps and rotary inertia), the all-elements set
 * "EALL", end releases, distributing and kinematic couplings, node and element sets, element
 * properties with their orientations, materials, contact surfaces and pairs, the multipoint
 * constraints and initial conditions of the first step, and one *STEP per solution step with
 * its boundary conditions, loads and output requests. Every real of a data line is
 * vsy_RealToField(v, 16, 1, 1); node coordinates are vsy_RealToExp(v, 16, 2, 1, 0). Failures
 * are those of the frame: "path= %s" (code 6) and "GridFun" (code 5).
 *
 * The all-elements set is "*ELSET, ELSET=EALL, GENERATE", the set name first, because CalculiX
 * sizes its sets from the first parameter and refuses the GENERATE-first order.
 * Choices where the format leaves room: face numbers of solids are turned into the format's
 * own (S1 bottom, S2 top, then the sides from the first edge on); a distributed load takes the
 * mean of its corner values; structural loads (forces, temperatures, pressures, tractions, body
 * loads) go into a stress deck and heat loads (sources, fluxes, films) into a heat deck; the
 * temperature block gives the all-nodes set 0.0 first; the end releases read the rotation bits
 * of each end (dof 4 torsion, 5 and 6 the moments); queued rotary inertia elements form the set
 * "PID%d_CID%d" of their mass; a step of kind 5 is a frequency step; heat flux requests go
 * under "*EL FILE" without a position; set names are cut at 80 characters.
 * Not written: time curves as amplitudes and curve-based material values, which the property
 * objects cannot hold; interface elements; edge heat loads at nodes (*CFLUX and *CFILM of
 * edges); element normals; the orientation a kinematic coupling names.
 */
#ifndef VIS_ABAFWT_H
#define VIS_ABAFWT_H

#include "vis_Writer.h"

struct vsy_HashTable;
struct vsy_List;
struct vsy_Dictionary;
struct vsy_IntHash;
struct vis_Model;

/* Room of the all-nodes set name, with its end. */
#define VIS_ABAFWT_NAMELEN 81
/* Load sections that keep an "OP=NEW" reset once opened. */
#define VIS_ABAFWT_NSECT 7

typedef struct vis_ABAFwt {
    vis_Writer w;                      /* frame; its ierr is the record's first field */
    struct vsy_HashTable* coordsys;    /* 2100 */
    struct vsy_HashTable* mprop;       /* 2310 */
    struct vsy_HashTable* eprop;       /* 2300 */
    struct vsy_HashTable* elemdat;     /* 2540 */
    struct vsy_HashTable* icase;       /* 2340 */
    struct vsy_HashTable* lcase;       /* 2320 */
    struct vsy_HashTable* rcase;       /* 2330 */
    struct vsy_HashTable* mcase;       /* 2550 */
    struct vsy_HashTable* tcurve;      /* 2560 */
    struct vsy_HashTable* cpair;       /* 2600 */
    struct vsy_HashTable* nodegroup;   /* 2113 */
    struct vsy_HashTable* elemgroup;   /* 2114 */
    struct vsy_List* sprop;            /* 2280 */
    char nall[VIS_ABAFWT_NAMELEN];     /* name of the all-nodes set */
    struct vsy_Dictionary* names;      /* element set names defined by the writer */
    struct vsy_IntHash* nodalthick;    /* properties marked for nodal thickness */
    struct vsy_IntHash* orients;       /* orientation ids already written */
    int* nodeids;                      /* printed id of each node index, read once for the
                                          element lines; null when it could not be allocated */
    int maxelem, maxnode;              /* largest element and node ids */
    int beamorient;                    /* beams met, which need an orientation */
    int sect[VIS_ABAFWT_NSECT];        /* load sections opened in an earlier step */
    int domain;                        /* 1 stress, other heat */
    int featwod;                       /* last non-zero featwod: a two-dimensional deck */
    int shells, beams, solids, trusses;/* features present, for the output requests */
} vis_ABAFwt;

/* New: null with "ABAFwt" code 4 "Creation Failure". */
vis_ABAFwt* vis_ABAFwtNew(void);
void vis_ABAFwtDelete(vis_ABAFwt* aba);
int vis_ABAFwtError(vis_ABAFwt* aba);
void vis_ABAFwtWriteModel(vis_ABAFwt* aba, struct vis_Model* model, const char* path);

#endif
