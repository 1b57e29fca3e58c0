/* vis_ABAFwtInternal: the sections of the ABAQUS deck, one group per source file, called by
 * vis_ABAFwtWriteModel in deck order, and the small line helpers they share. */
#ifndef VIS_ABAFWTINTERNAL_H
#define VIS_ABAFWTINTERNAL_H

#include "vis_ABAFwt.h"
#include "vis_ElemTopology.h"
#include "vsy_HashTable.h"

#include <cstdio>

struct vis_EProp;
struct vis_MProp;
struct vis_SProp;
struct vis_LCase;
struct vis_IdTran;

/* Nodes, transforms (vis_ABAFwtMesh.cpp). */
void vis_ABAFwt_Nodes(vis_ABAFwt* aba);
void vis_ABAFwt_Transforms(vis_ABAFwt* aba);
/* Elements, "EALL", end releases and kinematic couplings (vis_ABAFwtElem.cpp). */
void vis_ABAFwt_Elems(vis_ABAFwt* aba);
/* Node sets and element sets (vis_ABAFwtSets.cpp). */
void vis_ABAFwt_Sets(vis_ABAFwt* aba);
/* Element properties and orientations (vis_ABAFwtProp.cpp); materials (vis_ABAFwtMat.cpp). */
void vis_ABAFwt_Props(vis_ABAFwt* aba);
void vis_ABAFwt_Materials(vis_ABAFwt* aba);
/* Gap surface behaviour of a property, shared by gaps and contact pairs (vis_ABAFwtProp.cpp). */
void vis_ABAFwt_SurfaceBehavior(vis_ABAFwt* aba, struct vis_EProp* prop);
/* Contact pairs, multipoint constraints, initial conditions (vis_ABAFwtContact.cpp). */
void vis_ABAFwt_Contacts(vis_ABAFwt* aba);
void vis_ABAFwt_Constraints(vis_ABAFwt* aba, int id);
void vis_ABAFwt_Initial(vis_ABAFwt* aba, int id);
/* Steps and their boundary conditions and outputs (vis_ABAFwtStep.cpp); loads
 * (vis_ABAFwtLoad.cpp). */
void vis_ABAFwt_Steps(vis_ABAFwt* aba);
void vis_ABAFwt_Loads(vis_ABAFwt* aba, struct vis_SProp* step);

/* Calls f(key, object) for every object of a model table in ascending key order. */
template <class F>
void vis_ABAFwt_Ordered(vsy_HashTable* tab, F f)
{
    vis_Writer_Ordered(tab, f);
}

/* Solution step `pos` of the list (from 1), or null. */
struct vis_SProp* vis_ABAFwt_Step(vis_ABAFwt* aba, int pos);
/* An object of a model table by key, or null. */
void* vis_ABAFwt_Find(struct vsy_HashTable* tab, int key);

/* The name of a group into `out` of `size` bytes, cut when longer (the group's own read has no
 * bound). */
void vis_ABAFwt_GroupName(struct vis_IdTran* group, char* out, int size);
/* The data line text of a real: vsy_RealToField(value, 16, 1, 1). Returns its length. */
int vis_ABAFwt_Real(double value, char* out);
/* Writes n reals separated by ", ", then `end` ("\n", ",\n" or ""). */
void vis_ABAFwt_Reals(FILE* fp, int n, const double* values, const char* end);
/* Writes one real, then `end`. */
void vis_ABAFwt_Value(FILE* fp, double value, const char* end);
/* Integer of an element or solid property parameter, or `def` when it is not set. */
int vis_ABAFwt_EPropInt(struct vis_EProp* prop, int code, int def);
double vis_ABAFwt_EPropDouble(struct vis_EProp* prop, int code, double def);
/* The format's face number of face `no` (from 1) of a solid of `shape`. */
int vis_ABAFwt_Face(int shape, int no);

#endif
