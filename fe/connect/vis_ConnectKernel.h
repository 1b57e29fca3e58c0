/* vis_ConnectKernel: the node-to-element table of a vis_Connect, the polyhedron face index,
 * and every query that stands on them.
 *
 * The table is a compressed row store: node i's elements are nodeelem[nodeelempntr[i]] to
 * nodeelem[nodeelempntr[i] + nodeelemsize[i] - 1], strictly ascending, each element once even
 * when its list names the node twice. nodeelem is allocated with the sum of all list lengths
 * (duplicates included), so it may be longer than the rows need, and VIS_CONNECT_ROWPAD entries
 * more; every entry past the last row is 0, so that a fixed number of entries may be read from
 * any row start. Adjacency is found by merging
 * sorted rows, at a cost proportional to the valence; there is no sort and no hash.
 *
 * Polyhedron index: for element id, p = polyfacepntr[id]; face k (from 1) is the ring at
 * positions polyfaceix[p + k - 1] to polyfaceix[p + k] - 1 of its node list, its closing repeat
 * included; the last entry is the list length. Elements of other shapes take no entries. The
 * index exists only when the mesh has a polyhedron.
 *
 * The kernel is repeatable: with the table in place it returns at once. Any change of the
 * elements (SetTopology, SetElemNode, DelElem, GenElem, GenNode, a coordinate that raises an
 * open node count) drops the table. In dynamic mode the node lists are kept current as the
 * elements change, the kernel is a no-op and every query reads those lists.
 *
 * Entity numbers `no` count from 1. Entity forms of ElemCon (global ids), ElemCnn (1-based
 * positions in the element's list), ElemCorn (corner positions only) and ElemTopo (shape of
 * the entity):
 *   SYS_ELEM  the whole list;
 *   SYS_NODE  one node, position no;
 *   SYS_FACE  points, lines: nothing (shape -1); triangles, quadrilaterals: the whole list;
 *             polyhedra: ring no with its closing repeat (shape polygon, maxi the ring length,
 *             maxj one less); other shapes: the face table mapped through the list;
 *   SYS_EDGE  points: nothing (shape -1); lines: the whole list; polygons, polyhedra: the two
 *             nodes at vis_Connect_PolyEdge; others: the edge table mapped through the list.
 * An element id outside 1 to numelem, or an entity number out of range, reports code 1
 * ("id= %d", "no= %d") without touching ierr and gives 0 entries; a bad enttype is error 2
 * "enttype= %d".
 */
#ifndef VIS_CONNECTKERNEL_H
#define VIS_CONNECTKERNEL_H

#include "vis_Connect.h"

/* Zero entries after the last row of nodeelem. */
#define VIS_CONNECT_ROWPAD 8

/* Builds the table (and the polyhedron index). Errors go to ierr: code 4 "Malloc nodeelemsize",
 * "Malloc icount", "Malloc nodeelem", "Malloc nodeelempntr", and code 8
 * "elem= %d, p->elnoix[%d]= %d" for a node outside 1 to numnode. */
void vis_ConnectKernel(vis_Connect* connect);

/* Largest element count at any node; error 8 "ConnectKernel not called" in static mode without
 * the table. */
void vis_ConnectMaxNodeElem(vis_Connect* connect, int* num);
/* Element count at node id, with the same guard; no range report (0 outside). */
void vis_ConnectNumNodeElem(vis_Connect* connect, int id, int* num);
/* Elements at node id, ascending; 0 without the table. */
void vis_ConnectNodeElem(vis_Connect* connect, int id, int* num, int* elems);
/* Distinct nodes of the elements at node id, id itself excluded, by first appearance. */
void vis_ConnectNodeNode(vis_Connect* connect, int id, int* num, int* nodes);
/* Elements at nodes[0] that are at every other node too, ascending. */
void vis_ConnectNodeElemCommon(vis_Connect* connect, int nnodes, const int* nodes, int* num, int* elems);
/* Elements other than id sharing entity no of element id: SYS_NODE all elements at that node,
 * SYS_EDGE those holding both ends, SYS_FACE those holding all corners of the face. */
void vis_ConnectElemAdj(vis_Connect* connect, int enttype, int id, int no, int* num, int* elems);

void vis_ConnectElemCon(vis_Connect* connect, int enttype, int id, int no, int* num, int* nodes);
void vis_ConnectElemCnn(vis_Connect* connect, int enttype, int id, int no, int* num, int* positions);
void vis_ConnectElemCorn(vis_Connect* connect, int enttype, int id, int no, int* num, int* positions);
void vis_ConnectElemTopo(vis_Connect* connect, int enttype, int id, int no, int* shape, int* maxi,
                         int* maxj);
/* Unit normals at the nodes of face no (three floats per face node), for faces of shape
 * triangle, quadrilateral or polygon, computed from the coordinates; other faces are error 1
 * "no= %d". */
void vis_ConnectElemFaceNorm(vis_Connect* connect, int id, int no, float* normal);

/* Internal. Corner positions of the faces of the four solids, tetrahedron to hexahedron (index
 * shape - SYS_SHAPE_TET), read once from the element tables. In serendipity forms (low half of
 * maxj 0, maxk 0) the corners lead the list, so these are positions for every order; the quick
 * face paths read them without parsing the element's form each time. */
typedef struct vis_Connect_SolidFaces {
    int numface[4];
    int numcorner[4][6];
    int corner[4][6][4];
} vis_Connect_SolidFaces;
const vis_Connect_SolidFaces* vis_Connect_Faces(void);

/* Internal. Elements holding both nodes[0] and nodes[1], other than id, and with a group (any
 * kind; an element is in it when it has any flag) only its members. */
void vis_Connect_EdgeElems(vis_Connect* connect, struct vis_Group* group, int id, const int* nodes, int* num,
                           int* elems);
/* Elements holding all nnodes corners, other than id; shape is the face's shape. */
void vis_Connect_FaceElems(vis_Connect* connect, struct vis_Group* group, int id, int shape, int nnodes,
                           const int* nodes, int* num, int* elems);
/* vis_ConnectElemAdj without the front, listing only the members of group (null: all). */
void vis_Connect_ElemAdjIn(vis_Connect* connect, struct vis_Group* group, int enttype, int id, int no, int* num,
                           int* elems);
/* Position (from 0) of the no-th distinct edge of a polygon or polyhedron, or -1. */
int vis_Connect_PolyEdge(vis_Connect* connect, int id, int no);
/* Ring no (from 1) of a polyhedron: global ids, or 1-based positions. */
void vis_Connect_PolyFaceNodes(vis_Connect* connect, int id, int no, int* num, int* nodes);
void vis_Connect_PolyFaceCnn(vis_Connect* connect, int id, int no, int* num, int* positions);

#endif
