/* vis_ANSFwtInternal: the sections of the ANSYS command file, one group per source file,
 * called by vis_ANSFwtWriteModel in file order. Each writes to the frame's open stream. */
#ifndef VIS_ANSFWTINTERNAL_H
#define VIS_ANSFWTINTERNAL_H

#include "vis_ANSFwt.h"
#include "vis_ElemTopology.h"

#include <cstdio>

struct vis_EProp;
struct vis_CoordSys;
struct vsy_HashTable;

/* A row of the element library: name, description, shape, order code, feature, feaspec and
 * node count. */
typedef struct vis_ANSFwt_LibRow {
    const char* name;
    const char* description;
    int shape, order, feature, feaspec, nodes;
} vis_ANSFwt_LibRow;

/* Names in the library (vis_ANSFwtLibrary.cpp). */
int vis_ANSFwt_LibCount(void);
/* The element number of the first row of that name, 0 for a name not in the library. */
int vis_ANSFwt_LibNumber(const char* name);
/* The filled row of a name, or null. */
const vis_ANSFwt_LibRow* vis_ANSFwt_LibRowOf(const char* name);

/* One element as the commands read it. */
typedef struct vis_ANSFwt_Elem {
    int index, id, shape, maxi, maxj, maxk;
    int order;                     /* 2 linear, 3 quadratic, else no element type holds it */
    int n;                         /* nodes in node[] */
    int node[VIS_ELEM_MAXNODE];    /* node indices */
    int propid, matlid, csysid, featype, feaspec, featwod;
    struct vis_EProp* prop;        /* the element's property, or null */
} vis_ANSFwt_Elem;

/* An element type: the name and its KEYOPT values, nk up to the last non-zero one. */
#define VIS_ANSFWT_NKEY 12
typedef struct vis_ANSFwt_Type {
    const char* name;
    int k[VIS_ANSFWT_NKEY];
    int nk;
} vis_ANSFwt_Type;

/* Reads element `index` (vis_ANSFwtType.cpp). */
void vis_ANSFwt_ReadElem(vis_ANSFwt* ans, int index, vis_ANSFwt_Elem* e);
/* The element type of the rule table; 0 when no row holds the element. */
int vis_ANSFwt_Rule(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e, vis_ANSFwt_Type* t);
/* Element types and real constants (vis_ANSFwtType.cpp). */
void vis_ANSFwt_Types(vis_ANSFwt* ans);
void vis_ANSFwt_Reals(vis_ANSFwt* ans);
/* The real constant number of a typed element, 0 when it has none (after vis_ANSFwt_Reals). */
int vis_ANSFwt_RealOf(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e);
/* 1 when the element's property carries a section (SECNUM). */
int vis_ANSFwt_HasSection(vis_ANSFwt* ans, const vis_ANSFwt_Elem* e);

/* Coordinate systems, nodes, elements and rigid links (vis_ANSFwtMesh.cpp). */
void vis_ANSFwt_CoordSys(vis_ANSFwt* ans);
void vis_ANSFwt_Nodes(vis_ANSFwt* ans);
void vis_ANSFwt_Elems(vis_ANSFwt* ans);
void vis_ANSFwt_Rigids(vis_ANSFwt* ans);
/* The three rotation angles (degrees, about z, then x, then y) of a direction matrix. */
void vis_ANSFwt_Angles(const double triad[9], double angles[3]);
/* Local positions of the element's nodes in the command's order; the count. */
int vis_ANSFwt_NodeOrder(const vis_ANSFwt_Elem* e, int libno, int* pos);
/* The command's face number of library face `no` (from 1) of a solid or plane element. */
int vis_ANSFwt_Face(const vis_ANSFwt_Elem* e, int libno, int no);

/* Sections, materials and components (vis_ANSFwtProp.cpp). */
void vis_ANSFwt_Sections(vis_ANSFwt* ans);
void vis_ANSFwt_Materials(vis_ANSFwt* ans);
void vis_ANSFwt_Components(vis_ANSFwt* ans);

/* Solution steps with their cases (vis_ANSFwtStep.cpp, vis_ANSFwtCase.cpp). */
void vis_ANSFwt_Steps(vis_ANSFwt* ans);
void vis_ANSFwt_Initial(vis_ANSFwt* ans, int id);
void vis_ANSFwt_Restraints(vis_ANSFwt* ans, int id);
void vis_ANSFwt_Equations(vis_ANSFwt* ans, int id);
void vis_ANSFwt_Loads(vis_ANSFwt* ans, int id, double factor);

/* Text helpers (vis_ANSFwtText.cpp). ",%s" of vsy_RealToField(value, 16, 1, 1). */
void vis_ANSFwt_Real(FILE* fp, double value);
/* The "%16.9E" text of a value into out (24 bytes); empty when unset. */
void vis_ANSFwt_Exp(double value, int set, char* out);
/* The "%d" and "%16.9E" texts of a value at out (12 and 24 bytes), without a terminator; the
 * number of characters. */
int vis_ANSFwt_IntText(int value, char* out);
int vis_ANSFwt_ExpText(double value, char* out);
/* Writes the header, then calls visit with each key and object of the table in ascending key
 * order. */
void vis_ANSFwt_Walk(vis_ANSFwt* ans, struct vsy_HashTable* tab, const char* header,
                     void (*visit)(vis_ANSFwt*, int, void*));
/* Dof names by tag: "UX" ... "ROTZ" for 1 to 6, "TEMP" for 7; null otherwise. */
const char* vis_ANSFwt_DofName(int tag);
/* ",ALL", ",UXYZ", ",RXYZ" or each dof name of a mask of six bits. */
void vis_ANSFwt_Dofs(FILE* fp, int mask);

#endif
