/* vis_SDRCLwt: the SDRC universal file writer.
 *
 * vis_SDRCLwtWriteModel writes a vis_Model, opened in "w" mode, as datasets fenced by
 * "    -1\n" lines, each opening with its number in six columns, in this order: 164 units
 * (with the model's units object), 2411 nodes and 2412 elements (with a connectivity), 18
 * coordinate systems (with entries in SYS_COORDSYS), 2452 groups (SYS_NODEGROUP and
 * SYS_ELEMGROUP), 790 and 792 loads (SYS_LCASE, with a connectivity), 791 restraints
 * (SYS_RCASE), 751 constraints (SYS_MCASE). Reals are vsy_RealToExp(v, 25, 2, 1, 0) printed
 * "%25s", or vsy_RealToExp(v, 13, 2, 1, 0) printed "%13s". Failures are those of the frame:
 * "path= %s" (code 6) and "GridFun" (code 5).
 *
 * The two options set to 1 at creation are the fields `nodes` and `elems`: with `nodes` 0
 * dataset 2411 is left out, with `elems` 0 dataset 2412. A caller that writes a result state
 * beside a mesh it wrote before clears both.
 *
 * vis_SDRCLwtWriteState writes one vis_State, node or element values without a child, as the
 * format's own result dataset 2414 (see vis_SDRCLwtState.cpp for the records), opened in "w"
 * mode; it reports "path= %s" (code 6), a null state (code 5 "State") and a state that is not
 * defined or that holds element node or face values (code 8 "State type").
 *
 * Choices where the rules leave room or where this system departs from them on purpose:
 *  - Units: this system's vis_Units numbers its units from 1 per base; they are turned into the
 *    unit codes of the units table (length m 1, cm 2, mm 3, in 8, ft 9; mass kg 101, g 102,
 *    slug 103, lbm 104, t 105, lbf s^2/in 109); a temperature in K or R is absolute (mode 1).
 *    The inch system (code 7) asks the mass's SI factor (175.1268... kg for lbf s^2/in), since
 *    the units object's own factor is a further scale, 1 unless set. The factors are the SI
 *    factors of the chosen units, for the object has no user-defined units.
 *  - Nodes carry colour 1 like the elements, for the connectivity has no colour association.
 *  - Groups: the first record holds the id, six zeros and the entity count (eight fields, as
 *    the format's published definition of the dataset has them); entries are of type 7 (node)
 *    or 8 (element). Node groups come before element groups, each table in ascending key order.
 *  - Coordinate systems in ascending key order; the plane point is the origin plus the z axis.
 *  - Interface elements of `feaspec` 37 are written as the shape they are stored with: the
 *    reduction to the interface face is not built.
 */
#ifndef VIS_SDRCLWT_H
#define VIS_SDRCLWT_H

#include "vis_Writer.h"

struct vsy_HashTable;
struct vsy_List;
struct vis_Model;
struct vis_State;
struct vis_Units;

typedef struct vis_SDRCLwt {
    vis_Writer w;                     /* frame; its ierr is the record's first field */
    int nodes;                        /* 1: write dataset 2411 (set at creation) */
    int elems;                        /* 1: write dataset 2412 (set at creation) */
    struct vis_Units* units;          /* 2640 */
    struct vsy_HashTable* coordsys;   /* 2100 */
    struct vsy_HashTable* nodegroup;  /* 2113 */
    struct vsy_HashTable* elemgroup;  /* 2114 */
    struct vsy_HashTable* lcase;      /* 2320 */
    struct vsy_HashTable* rcase;      /* 2330 */
    struct vsy_HashTable* mcase;      /* 2550 */
    struct vsy_List* sprop;           /* 2280 */
    int kind, domain, nonlinear;      /* from the first solution step */
} vis_SDRCLwt;

/* New: both options 1; null with "SDRCLwt" code 4 "Creation Failure". */
vis_SDRCLwt* vis_SDRCLwtNew(void);
void vis_SDRCLwtDelete(vis_SDRCLwt* sdrc);
int vis_SDRCLwtError(vis_SDRCLwt* sdrc);
void vis_SDRCLwtWriteModel(vis_SDRCLwt* sdrc, struct vis_Model* model, const char* path);
void vis_SDRCLwtWriteState(vis_SDRCLwt* sdrc, struct vis_State* state, const char* path);

#endif
