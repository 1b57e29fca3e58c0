/* vis_ConnectGroup: groups derived from a vis_Connect: free faces, feature edges, silhouettes,
 * regions bounded by features, attribute interfaces, badly oriented shells, sampled subsets and
 * self-intersections.
 *
 * Frame. Each of vis_ConnectElemGroup, vis_ConnectFaceGroup, vis_ConnectEdgeGroup and
 * vis_ConnectNodeGroup takes an operation code, an optional source group that limits the scan
 * and a destination group that is only added to, so that calls accumulate. The destination is
 * an element group (ElemGroup), an element-face group (FaceGroup), an element-edge group
 * (EdgeGroup) or a node group (NodeGroup), of at least numelem (numnode) entries. Parameters
 * are set beforehand with vis_ConnectSetGroupParami/f/fv and vis_ConnectSetGroupObject.
 *
 * Checks, before anything is allocated or changed: an oper not listed for the function is error
 * 2 "oper= %d"; a source of the wrong kind or size, or a destination of the wrong kind or too
 * small, is error 1 through vsy_ErrorNumber with no text. The source must be a node group of
 * numnode entries for opers 12 and 15; an element-face group (FaceGroup) or element-edge group
 * (EdgeGroup) of numelem entries for oper 23; an element group or an element-face group for
 * the other EdgeGroup opers (the face-source opers 3, 8 and 18 need the face group); any of an
 * element, element-face, element-edge or node group for NodeGroup; otherwise an element group
 * of numelem entries. FaceGroup, EdgeGroup and NodeGroup opers 1, 2 and 13 need the kernel:
 * without it error 8 "ConnectKernel not called"; so, in this implementation, do ElemGroup oper
 * 17 and NodeGroup oper 3, which walk adjacency too. Sampling without a cell size above 0 is
 * error 8 "Cell size not set" (an addition: the grid would have no cells).
 *
 * Adjacency. Elements outside an element source are skipped, and do not count as neighbours
 * either: a face is free when no other element of the source holds it. An entity shared by
 * several elements is taken once, on the one with the lowest id, by every operation that counts
 * sharing (face and edge opers 0, 13, 27, 30 and the face-source tests). The attribute
 * interface (oper 30) selects a face or edge whose sharing elements differ in their attribute
 * of assoctype and, when count is not 0, also the entities shared by exactly count elements;
 * with count 0 only the interface, a departure on purpose: the count rule at 0 (every face)
 * would make the operation select everything. A face is held by an element that has all its
 * corners, so on a non-conforming mesh a triangle lying on a quadrilateral face is not free.
 *
 * Orientation (ElemGroup 17) keeps its region numbers in a plain array rather than a
 * vis_IdTran, and judges each element against its predecessor in the walk only.
 * Region growing of edges (EdgeGroup 23) reads its element-face seed group as flags on node
 * positions and takes a node group as well (see vis_ConnectGroupRegion.cpp). The crease test
 * (EdgeGroup 18) judges faces of shape triangle and quadrilateral; other faces count as flat.
 */
#ifndef VIS_CONNECTGROUP_H
#define VIS_CONNECTGROUP_H

#include "vis_Connect.h"

/* Options of vis_ConnectSetGroupParamf. */
#define VIS_CGROUP_ANGLE 0
#define VIS_CGROUP_TOLERANCE 16
#define VIS_CGROUP_CURVETOL 19
#define VIS_CGROUP_CELLSIZE 21
/* Options of vis_ConnectSetGroupParami. */
#define VIS_CGROUP_ASSOCTYPE 1
#define VIS_CGROUP_ASSOCVALUE 2
#define VIS_CGROUP_SIGNED 4
#define VIS_CGROUP_SHAPE 5
#define VIS_CGROUP_DIMENSION 6
#define VIS_CGROUP_STRIDE 10
#define VIS_CGROUP_PHASE 11
#define VIS_CGROUP_COUNT 14
#define VIS_CGROUP_SEEDNODE 24
#define VIS_CGROUP_CURVEFLAG 26
#define VIS_CGROUP_SEEDELEM 28
#define VIS_CGROUP_SEEDEDGE 29
#define VIS_CGROUP_SEEDFACE 30
#define VIS_CGROUP_NONMANIFOLD 33
/* Options of vis_ConnectSetGroupParamfv. */
#define VIS_CGROUP_VIEW 3
#define VIS_CGROUP_BOX 7
/* Object type of vis_ConnectSetGroupObject: the seed group. */
#define SYS_GROUP 2030 /* this implementation's code: the vocabulary has none for a vis_Group */

/* Operation codes. */
#define VIS_CGROUP_EVERYONCE 0   /* faces, edges: every entity once; nodes: on the source */
#define VIS_CGROUP_FREE 1        /* free faces or edges; nodes on exactly one entity */
#define VIS_CGROUP_WHOLE 2       /* faces, edges: whole elements of dimension 2 or 1; nodes: points */
#define VIS_CGROUP_FEATURE 3     /* feature edges; corner nodes of feature curves */
#define VIS_CGROUP_ASSOC 4       /* attribute equals assocvalue */
#define VIS_CGROUP_SHAPEOF 5     /* element shape */
#define VIS_CGROUP_DIMOF 6       /* element dimension */
#define VIS_CGROUP_INBOX 7       /* centroid or node in the box */
#define VIS_CGROUP_SILHOUETTE 8
#define VIS_CGROUP_STRIDEOF 9
#define VIS_CGROUP_ALLNODES 12   /* all nodes in the source node group */
#define VIS_CGROUP_SHARED 13     /* shared by count elements */
#define VIS_CGROUP_COUNTNODES 15 /* exactly count nodes in the source node group */
#define VIS_CGROUP_ORIENT 17
#define VIS_CGROUP_CREASE 18
#define VIS_CGROUP_SAMPLE 20
#define VIS_CGROUP_REGION 23
#define VIS_CGROUP_NOTONE 27
#define VIS_CGROUP_CORNER 28
#define VIS_CGROUP_ASSOCANY 29   /* attribute not 0 */
#define VIS_CGROUP_INTERFACE 30
#define VIS_CGROUP_INTERSECT 31

/* Parameter setters. A bad option is error 2 "type= %d"; a bad value error 1 or 2 "iparam= %d"
 * (shape and assoctype 2, the others 1), each under the setter's name. SetGroupParamf with
 * VIS_CGROUP_ANGLE sets the cosine as well. SetGroupObject takes SYS_GROUP (else error 3
 * "objecttype= %d"); the group stays the caller's. */
void vis_ConnectSetGroupParami(vis_Connect* connect, int type, int param);
void vis_ConnectSetGroupParamf(vis_Connect* connect, int type, float param);
void vis_ConnectSetGroupParamfv(vis_Connect* connect, int type, const float* param);
void vis_ConnectSetGroupObject(vis_Connect* connect, int objtype, void* object);

void vis_ConnectElemGroup(vis_Connect* connect, int oper, struct vis_Group* source, struct vis_Group* dest);
void vis_ConnectFaceGroup(vis_Connect* connect, int oper, struct vis_Group* source, struct vis_Group* dest);
void vis_ConnectEdgeGroup(vis_Connect* connect, int oper, struct vis_Group* source, struct vis_Group* dest);
void vis_ConnectNodeGroup(vis_Connect* connect, int oper, struct vis_Group* source, struct vis_Group* dest);

#endif
