/* vis_ConnectGroupInternal: what the files of the derived groups share: the checks of the
 * source and destination groups, membership, adjacency within the source and the scratch of
 * one operation. See vis_ConnectGroup.h for the rules.
 */
#ifndef VIS_CONNECTGROUPINTERNAL_H
#define VIS_CONNECTGROUPINTERNAL_H

#include "vis_ConnectGroup.h"
#include "vis_ConnectKernel.h"

struct vis_Group;

/* Kinds of group, as bits so that a set of allowed kinds is one mask. */
#define VIS_CGK_ELEM 1 /* element group: parent 4, child none */
#define VIS_CGK_FACE 2 /* element-face group: parent 4, child 3 */
#define VIS_CGK_EDGE 4 /* element-edge group: parent 4, child 2 */
#define VIS_CGK_NODE 8 /* node group: parent 1, child none */

/* The kind of a group (0 for none of the above) and its entity count. */
int vis_Connect_GroupKind(struct vis_Group* group, int* nument);
/* The checks of the frame: a source (optional) of a kind in `kinds`, with exactly numelem or,
 * for a node group, numnode entries; a destination of kind `destkind` with at least as many
 * entries. A mismatch is error 1 by vsy_ErrorNumber (no text), recorded; returns 0 then. */
int vis_Connect_GroupCheck(vis_Connect* c, const char* name, struct vis_Group* source, int kinds,
                           struct vis_Group* dest, int destkind);
/* Error 8 "ConnectKernel not called" when the static connect has no node table; 0 then. */
int vis_Connect_GroupKernel(vis_Connect* c, const char* name);
/* Whether an entity has any flag; a null group holds everything. */
int vis_Connect_GroupHas(struct vis_Group* group, int index);
/* Whether element face or edge no of an element is flagged in a face or edge group (flag 1 of
 * an element group); a null group holds everything. */
int vis_Connect_GroupFlag(struct vis_Group* group, int index, int no);
/* Whether element id is defined (has a shape). */
int vis_Connect_GroupDefined(vis_Connect* c, int id);
/* Whether node id passes the mask of node attribute 0 (absent, or not 0). */
int vis_Connect_GroupNodeMask(vis_Connect* c, int id);

/* Scratch of one operation: an element list as long as the largest node valence and a node
 * list as long as the longest element, both released by vis_Connect_GroupWorkFree. */
typedef struct vis_ConnectGroupWork {
    int* elems;
    int* nodes;
    int* nodes2;
} vis_ConnectGroupWork;
int vis_Connect_GroupWorkAlloc(vis_Connect* c, const char* name, vis_ConnectGroupWork* w);
void vis_Connect_GroupWorkFree(vis_ConnectGroupWork* w);

/* The elements other than id that share entity no (SYS_FACE, SYS_EDGE or SYS_NODE) of element
 * id and belong to the element source (null: all), into w->elems. */
void vis_Connect_GroupAdj(vis_Connect* c, struct vis_Group* source, int enttype, int id, int no, int* num,
                          vis_ConnectGroupWork* w);
/* Whether id is below every one of the num elements of a list. */
int vis_Connect_GroupLowest(int id, int num, const int* elems);
/* The two end nodes (global ids) of edge no of element id; 0 when it has none. */
int vis_Connect_GroupEdgeEnds(vis_Connect* c, int id, int no, int ends[2]);
/* The edge (from 1) of element id whose ends are a and b in either order, or 0. */
int vis_Connect_GroupFindEdge(vis_Connect* c, int id, int a, int b);
/* Whether face no of element id holds both nodes a and b (reads into w->nodes2). */
int vis_Connect_GroupFaceHolds(vis_Connect* c, int id, int no, int a, int b, vis_ConnectGroupWork* w);
/* The edges (from 1, at most VIS_ELEM_MAXEDGE) of face no of element id; 0 for polyhedra,
 * whose faces carry no edge table. */
int vis_Connect_GroupFaceEdges(vis_Connect* c, int id, int no, int* edges);
/* The centroid of element id: the plain mean of its nodes. */
void vis_Connect_GroupCentroid(vis_Connect* c, int id, double x[3], vis_ConnectGroupWork* w);

/* Element operations 17, 20 and 31, and node operation 20. */
void vis_Connect_GroupOrient(vis_Connect* c, struct vis_Group* source, struct vis_Group* dest);
/* Sampling of elements in the element source, or (enttype SYS_NODE) of the nodes marked in
 * nodemark (numnode + 1 entries). */
void vis_Connect_GroupSample(vis_Connect* c, int enttype, struct vis_Group* source, const char* nodemark,
                             struct vis_Group* dest);
void vis_Connect_GroupIntersect(vis_Connect* c, struct vis_Group* source, struct vis_Group* dest);
/* Face and edge operations 3 and 8 over a face source. */
void vis_Connect_GroupFeature(vis_Connect* c, int oper, struct vis_Group* source, struct vis_Group* dest);
/* The test of one face of an element (oper, source, id, no) by the general rule. */
typedef int (*vis_ConnectFaceTest)(vis_Connect*, int, struct vis_Group*, int, int, vis_ConnectGroupWork*);
/* The quick path of FaceGroup opers 0 and 1 (vis_ConnectGroupFree.cpp); `general` tests one
 * face of an element it cannot take. Returns 0, having done nothing, where it does not apply. */
int vis_Connect_GroupFreeFaces(vis_Connect* c, int oper, struct vis_Group* source, struct vis_Group* dest,
                               vis_ConnectFaceTest general, vis_ConnectGroupWork* w);
/* The scan of the quick path once it applies, for the baseline instruction set and for AVX2
 * (to be called only where vis_Connect_FreeScanHasAvx2 says so); both give the same flags. */
void vis_Connect_FreeScanBase(vis_Connect* c, int oper, struct vis_Group* source, struct vis_Group* dest,
                              vis_ConnectFaceTest general, vis_ConnectGroupWork* w);
void vis_Connect_FreeScanAvx2(vis_Connect* c, int oper, struct vis_Group* source, struct vis_Group* dest,
                              vis_ConnectFaceTest general, vis_ConnectGroupWork* w);
/* Whether vis_Connect_FreeScanAvx2 is built and this processor runs it. */
int vis_Connect_FreeScanHasAvx2(void);
/* Face and edge operation 23 (enttype SYS_FACE or SYS_EDGE). */
void vis_Connect_GroupRegion(vis_Connect* c, int enttype, struct vis_Group* source, struct vis_Group* dest);

#endif
