/* vis_State internals shared by its files: checks, value addressing and the store's reads and
 * writes in any precision, the derived scalar. */
#ifndef VIS_STATEINTERNAL_H
#define VIS_STATEINTERNAL_H

#include "vis_State.h"

/* Largest components per value (general tensor 9, Scalars12 12) and children per element. */
#define VIS_STATE_MAXNUM VIS_STATE_MAXCOMP
#define VIS_STATE_MAXCHILD 64

/* Class of the state's data type, as a class code. */
#define vis_State_Class(s) ((s)->datatype)

/* 1 when the state is not null and cleared, else a report under name and 0. */
int vis_State_Ready(vis_State* s, const char* name);
/* 1 when id lies in 1 to nument, else code 1 "id= %d" and 0. */
int vis_State_CheckId(vis_State* s, const char* name, int id);
/* Children of entity id (1 without child) and the index of its first value. */
int vis_State_Count(const vis_State* s, int id);
long long vis_State_First(const vis_State* s, int id);
/* n values from value index `first`, in double; 0 after a report of the reduced store. */
int vis_State_Get(vis_State* s, const char* name, long long first, int n, double* out);
int vis_State_Put(vis_State* s, const char* name, long long first, int n, const double* in);
/* The derived scalar of one value of class `dataclass` for qualifier `derive` (0: the first
 * component). */
double vis_State_Derive(int derive, int dataclass, const double* v);
/* 1 when the cleared states a and b hold the same entities and children, else code 8 "State
 * mismatch" recorded in s under name and 0. */
int vis_State_Same(vis_State* s, const char* name, const vis_State* a, const vis_State* b);
/* Copies the definition and precision of `a` into s and clears s; 1 on success. */
int vis_State_DefineLike(vis_State* s, const vis_State* a, int datatype);
/* The nodes of element id through the grid function: their number, 0 without the slots. */
int vis_State_ElemNodes(const vis_State* s, int id, int* nodes);
/* Entity count of a type through the grid function; -1 without it. */
int vis_State_GridCount(const vis_State* s, int type);

#endif
