/* vis_D3DFwt: the LS-DYNA keyword deck writer.
 *
 * vis_D3DFwtWriteModel writes a vis_Model, opened in "w" mode, in this order: "$ LS-DYNA input
 * deck", "*KEYWORD", the first step's title ("*TITLE"), coordinate systems, nodes, elements
 * (with the orientation nodes of beams between them), parts with their sections, materials,
 * node and element sets, the restraints of the first step, the segment pressures of the first
 * load case of the first step, and "*END". Cards are fixed columns: "%8d" in node and element
 * cards, "%10d" in the others; reals take vsy_RealToField in 10-column fields, and in
 * 16-column fields on node and mass cards. Failures are those of the frame: "path= %s" (code
 * 6), "GridFun" (code 5).
 *
 * Sets are written as ANSYS selection commands ("NSEL", "ESEL", "CM"), which this deck keeps on
 * purpose. Tables are walked in ascending key order. Only solids, shells, membranes, beams and
 * masses are written; other features, elements of other orders and the concentrated loads are
 * passed over. A beam's orientation node lies one unit from its first node along the beam's
 * second axis: the orientation vector with its part along the beam removed; a zero vector, or
 * one along the beam, gives the beam no orientation node. A property has no name of its own,
 * so its part is always titled "element property %d".
 * On purpose unlike the card layout the deck inherits: the pressure of a segment load stands in
 * a 10-column real field, not "%10f", so that a pressure of 1e5 or more keeps its columns.
 */
#ifndef VIS_D3DFWT_H
#define VIS_D3DFWT_H

#include "vis_Writer.h"

struct vsy_HashTable;
struct vsy_List;
struct vis_Model;

typedef struct vis_D3DFwt {
    vis_Writer w;                    /* frame; its ierr is the record's first field */
    struct vsy_HashTable* coordsys;  /* 2100 */
    struct vsy_HashTable* mprop;     /* 2310 */
    struct vsy_HashTable* eprop;     /* 2300 */
    struct vsy_HashTable* elemdat;   /* 2540 */
    struct vsy_HashTable* lcase;     /* 2320 */
    struct vsy_HashTable* rcase;     /* 2330 */
    struct vsy_HashTable* mcase;     /* 2550 */
    struct vsy_HashTable* icase;     /* 2340 */
    struct vsy_HashTable* tcurve;    /* 2560 */
    struct vsy_HashTable* nodegroup; /* 2113 */
    struct vsy_HashTable* elemgroup; /* 2114 */
    struct vsy_List* sprop;          /* 2280 */
    int maxnode;                     /* largest node id so far: orientation nodes follow it */
    int numnode;                     /* nodes, orientation nodes included */
    int curve;                       /* last curve id given */
    int segcurve;                    /* the curve every segment load shares, 0 until written */
    int analysis;                    /* parameter 0 of the first step, 1 without one */
} vis_D3DFwt;

/* New: null with "D3DFwt" code 4 "Creation Failure". */
vis_D3DFwt* vis_D3DFwtNew(void);
void vis_D3DFwtDelete(vis_D3DFwt* d3d);
int vis_D3DFwtError(vis_D3DFwt* d3d);
void vis_D3DFwtWriteModel(vis_D3DFwt* d3d, struct vis_Model* model, const char* path);

#endif
