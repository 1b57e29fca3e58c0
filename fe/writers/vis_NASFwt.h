/* vis_NASFwt: the NASTRAN bulk data writer.
 *
 * vis_NASFwtWriteModel writes a vis_Model to a deck, opened in "wb" mode: executive and case
 * control from the model's solution steps (SYS_SPROP list), "BEGIN BULK", parameter cards, grid
 * points, elements, coordinate systems, element properties and materials, loads, initial
 * conditions, restraints, multipoint constraints and "ENDDATA". Each section is written only
 * when the table it reads exists; grid points, elements and the bulk delimiters need the
 * connectivity. The writer reports only a path that cannot be opened (code 6 "path= %s") and a
 * model without grid function or connectivity (code 5 "GridFun"); inside a section an item that
 * cannot be read or held by a card is left out with no word. Node and element ids that are not
 * unique are replaced by indices (vis_GridFunIdCheck). Elements with id 0 take ids above the
 * largest one; new surfaces of heat loads (CHBDYE), ambient points (SPOINT) and convection
 * properties and materials take theirs from the element, node and property counters.
 *
 * Not yet written: interface elements on the face of a solid (lines and plane forms are
 * written); Lagrange quadrilaterals and solids, which no card of this deck holds. A pyramid is a CHEXA with its apex four times (of order 3 also on
 * the collapsed top edges). The SPC* card of a prescribed value names the case before the
 * node, in the order of the SPC card's fields (vis_NASFwtCons.cpp).
 */
#ifndef VIS_NASFWT_H
#define VIS_NASFWT_H

#include "vis_Writer.h"

struct vsy_HashTable;
struct vsy_IntHash;
struct vsy_List;
struct vis_Model;
struct vis_State;

/* Room for the copy of the output path; a longer path is cut in the copy (the stem of the
 * executive control), not in the open. */
#define VIS_NASFWT_PATHLEN 1024

typedef struct vis_NASFwt {
    vis_Writer w;                       /* frame; its ierr is the record's first field */
    struct vsy_HashTable* coordsys;     /* SYS_COORDSYS */
    struct vsy_HashTable* eprop;        /* SYS_EPROP */
    struct vsy_HashTable* mprop;        /* SYS_MPROP */
    struct vsy_HashTable* lcase;        /* SYS_LCASE */
    struct vsy_HashTable* icase;        /* SYS_ICASE */
    struct vsy_HashTable* rcase;        /* SYS_RCASE */
    struct vsy_HashTable* mcase;        /* SYS_MCASE */
    struct vsy_HashTable* elemdat;      /* SYS_ELEMDAT */
    struct vsy_List* sprop;             /* SYS_SPROP solution steps */
    char path[VIS_NASFWT_PATHLEN];      /* copy of the output path */
    int kind;                           /* analysis kind of the deck */
    int domain;                         /* 1 structural, 2 thermal */
    int featwod;                        /* last non-zero element featwod */
    int elemid, nodeid, propid, matid;  /* running id counters */
    int tempcase;                       /* largest temperature load case seen */
    struct vsy_IntHash* matclass;       /* material id to the type of its last property */
} vis_NASFwt;

/* New: null with "NASFwt" code 4 "Creation Failure". */
vis_NASFwt* vis_NASFwtNew(void);
void vis_NASFwtDelete(vis_NASFwt* nas);
int vis_NASFwtError(vis_NASFwt* nas);
void vis_NASFwtWriteModel(vis_NASFwt* nas, struct vis_Model* model, const char* path);
/* A node result state (up to six components) as a punch file of displacement records; see
 * vis_NASFwtState.cpp for the layout and the reports. */
void vis_NASFwtWriteState(vis_NASFwt* nas, struct vis_State* state, const char* path);

#endif
