/* vis_ElemDat: per-element values that the model itself uses (thickness at the nodes,
 * orientation vectors, end offsets), kept sparsely by element index; and, with the entity set
 * to SYS_FACE or SYS_EDGE (vis_ElemDatSetParami VIS_ELEMDAT_ENTITY), vectors at the nodes of
 * chosen faces or edges of each element: the face normals and edge tangents a connectivity
 * reads in place of computed ones.
 *
 * Face and edge data need the mesh (vis_ElemDatSetObject with SYS_GRIDFUN) for the nodes of
 * each face or edge. An element's record keeps a flag word, bit no - 1 for each face or edge
 * that holds vectors, so faces and edges 1 to 32 can hold them. Values are kept in double; the
 * precision (vis_ElemDatPre, 2 float or 4 double) is the one binary forms write.
 *
 * No option of this object takes a real, so it has no SetParamf.
 *
 * Reports: an element outside 1 to nument code 1 "index= %d"; a face or edge outside the
 * element's code 1 "no= %d"; face or edge data without a mesh code 5 "GridFun object"; an
 * option or precision not in the list code 2 "type= %d" or "precision= %d"; a failed
 * allocation code 4 "index= %d".
 */
#ifndef VIS_ELEMDAT_H
#define VIS_ELEMDAT_H

#include <cstdio>

struct vsy_HashTable;

struct vis_GridFun;
struct vis_Group;

/* Options of vis_ElemDatSetParami. */
#define VIS_ELEMDAT_ENTITY 1 /* 0 values per element (the default), SYS_FACE or SYS_EDGE */

typedef struct vis_ElemDat {
    int ierr;                  /* last error */
    int nument;                /* largest element index accepted */
    int type;                  /* element data kind (2, 28, 37 ...) */
    int nval;                  /* largest number of values per element */
    struct vsy_HashTable* tab; /* element index to a record of count and values, owned */
    int precision;             /* 2 float or 4 double, for binary forms */
    int entity;                /* 0, SYS_FACE or SYS_EDGE */
    struct vis_GridFun* gf;    /* the mesh of face and edge data, not owned */
} vis_ElemDat;

/* Creates an empty object; null with "ElemDat" code 4 "Creation Failure". */
vis_ElemDat* vis_ElemDatNew(void);
void vis_ElemDatDelete(vis_ElemDat* ed);
int vis_ElemDatError(vis_ElemDat* ed);
/* Releases earlier data and accepts elements 1 to nument with up to nval values each.
 * nument below 0: code 1 "nument= %d"; nval below 1: code 1 "nval= %d". */
void vis_ElemDatDef(vis_ElemDat* ed, int nument, int type, int nval);
/* Stores n values (1 to nval) of an element. Element outside 1 to nument: code 1
 * "index= %d"; a bad n: code 1 "nval= %d"; a failed allocation: code 4 "index= %d". */
void vis_ElemDatSetDatadv(vis_ElemDat* ed, int element, int n, const double* values);
/* Reads up to n values of an element; an element without data leaves values as they are. */
void vis_ElemDatData(vis_ElemDat* ed, int element, int n, double* values);
/* The float twin of vis_ElemDatSetDatadv. */
void vis_ElemDatSetData(vis_ElemDat* ed, int element, int n, const float* values);

void vis_ElemDatPre(vis_ElemDat* ed, int precision);
void vis_ElemDatSetObject(vis_ElemDat* ed, int objecttype, void* object);
void vis_ElemDatGetObject(vis_ElemDat* ed, int objecttype, void** object);
void vis_ElemDatSetParami(vis_ElemDat* ed, int type, int value);
/* Face or edge data: three values at each node of face or edge `no` (from 1) of an element,
 * and their reading; vis_ElemDatEntdv gives 0 and leaves the values when there are none. */
void vis_ElemDatSetEntdv(vis_ElemDat* ed, int element, int no, const double* vectors);
int vis_ElemDatEntdv(vis_ElemDat* ed, int element, int no, double* vectors);
/* The flag word of an element's faces or edges with vectors; 0 without. */
int vis_ElemDatFlags(vis_ElemDat* ed, int element);
/* Face data: the unit normals at the nodes of every face of every triangle, quadrilateral and
 * polygon element of the mesh, from its coordinates by the right-hand rule over the node
 * order; faces of solids are left alone. */
void vis_ElemDatNormal(vis_ElemDat* ed);
/* Marks in a group the elements with data (flag 1), or the faces or edges with vectors (the
 * entity flags of an element group with child SYS_FACE or SYS_EDGE). A group of another kind
 * is code 2 "parenttype= %d" or "childtype= %d". */
void vis_ElemDatElemGroup(vis_ElemDat* ed, struct vis_Group* group);
void vis_ElemDatFaceGroup(vis_ElemDat* ed, struct vis_Group* group);
void vis_ElemDatEdgeGroup(vis_ElemDat* ed, struct vis_Group* group);
/* Lists every element with data, by index: "%8d" then each value " %.6e", one line each; face
 * and edge data give the face or edge number after the element. Null stream: standard output. */
void vis_ElemDatWrite(vis_ElemDat* ed, FILE* stream);

#endif
