/* vis_PatLwt: the PATRAN neutral file writer.
 *
 * vis_PatLwtWriteModel writes a vis_Model, opened in "w" mode, as packets: the title (25), the
 * summary (26) with the date and time of writing, nodes (1) and elements (2), coordinate
 * frames (5), pressures (6) and forces (7) of every load case, restraints (10 for tag 7, 8 for
 * the others), temperatures and initial temperatures (10), multipoint constraints (14), heat
 * sources (15), fluxes (16) and convection (17), named groups (21), and the end (99). Each
 * packet is a header line "%2d%8d%8d%8d%8d%8d%8d%8d%8d" (type, id, IV, KC, N1 to N5) and KC
 * cards; reals are vsy_RealToExp(value, 16, 2, 1, 0), five to a card. Failures are those of
 * the frame: "path= %s" (code 6), "GridFun" (code 5).
 *
 * Tables are walked in ascending key order. Node order follows the format: a linear Lagrange
 * quadrilateral or hexahedron (maxj 2) reorders its lexical list; serendipity elements of
 * order 3 move the midside nodes of the vertical edges of wedges and hexahedra before the top
 * edges'; Lagrange elements of order 3 list corners, then edge midpoints, then face and body
 * centres (a Lagrange wedge of eighteen nodes drops its three side-face centres). A frame (5) holds its origin, a point on its third axis, a point on its first axis
 * and its triad by rows: eighteen reals. Edge pressures keep the sign of their values. An
 * element's group entries are of entity type 7 (nodes 5); a group without a name is called
 * "GROUP%d" by its key. The initial temperatures are those of level 1.
 * On purpose unlike the rule the format was given: a linear serendipity element (maxj 0, the
 * library's usual form, corners counter-clockwise) keeps its order, since reordering it as a
 * lexical list would cross its edges; and the KC of a restraint packet 8 counts the tags of
 * dofs 1 to 6 only, so that it matches the cards written.
 */
#ifndef VIS_PATLWT_H
#define VIS_PATLWT_H

#include "vis_Writer.h"

struct vsy_HashTable;
struct vis_Model;
struct vis_State;

typedef struct vis_PatLwt {
    vis_Writer w;                    /* frame; its ierr is the record's first field */
    struct vsy_HashTable* coordsys;  /* 2100 */
    struct vsy_HashTable* eprop;     /* 2300 */
    struct vsy_HashTable* mprop;     /* 2310 */
    struct vsy_HashTable* lcase;     /* 2320 */
    struct vsy_HashTable* rcase;     /* 2330 */
    struct vsy_HashTable* icase;     /* 2340 */
    struct vsy_HashTable* mcase;     /* 2550 */
    struct vsy_HashTable* nodegroup; /* 2113 */
    struct vsy_HashTable* elemgroup; /* 2114 */
    int ncsys, neprop, nmprop;       /* objects in the tables, for the summary */
} vis_PatLwt;

/* New: null with "PatLwt" code 4 "Creation Failure". */
vis_PatLwt* vis_PatLwtNew(void);
void vis_PatLwtDelete(vis_PatLwt* pat);
int vis_PatLwtError(vis_PatLwt* pat);
void vis_PatLwtWriteModel(vis_PatLwt* pat, struct vis_Model* model, const char* path);
/* Writes a result state over the model's mesh as a results file of the format's nodal or
 * element kind, opened in "w" mode:
 *   nodal (parent SYS_NODE): "Nodal results"; "%9d%9d%15.6E%9d%9d" with the number of nodes
 *     written, the largest node id, the default value 0.0, 0 and the components per node;
 *     "datatype= %d" of the state; an empty line; then per set node of `featype` not 0 "%8d"
 *     with its id and its components, five to a line, the lines after the first indented by
 *     eight blanks;
 *   element (parent SYS_ELEM): "Element results"; "datatype= %d"; an empty line; then per set
 *     element "%8d%8d" with its id and the shape code of packet 2, and on the next lines all
 *     its values (per element node or face, in order, for a state with a child), six to a line.
 * Values take 13 columns: vsy_RealToExp(value, 13, 2, 1, 0). Failures: the frame's
 * "path= %s" (6) and "GridFun" (5); a null state code 5 "State"; a state whose entity count
 * differs from the mesh's nodes or elements code 8 "State mismatch", the file left empty. */
void vis_PatLwtWriteState(vis_PatLwt* pat, struct vis_Model* model, struct vis_State* state, const char* path);

#endif
