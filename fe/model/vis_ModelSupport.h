/* vis_ModelSupport: the mechanics shared by the objects of the model subsystem.
 *
 * Every model object is created zeroed through vsy_Malloc, reports a null object under the
 * operation's name with code 5, and keeps its sparse entries in vsy_HashTables whose values it
 * owns. These helpers hold that once, so that each object's file says only what is its own.
 */
#ifndef VIS_MODELSUPPORT_H
#define VIS_MODELSUPPORT_H

#include <cstddef>

struct vsy_HashTable;
struct vis_Group;

/* A zeroed record of `size` bytes, or null after reporting `shortname` code 4
 * "Creation Failure". */
void* vis_Model_NewRecord(size_t size, const char* shortname);
/* A zeroed array of n elements of `size` bytes through vsy_Malloc, or null. */
void* vis_Model_Calloc(size_t n, size_t size);
/* 1 when obj is null, after reporting `name` with code 5 and no text. */
int vis_Model_IsNull(const void* obj, const char* name);
/* 1 when obj is not null and objecttype is `want`, the one companion code an object accepts;
 * otherwise a code 5 report, or code 3 "objecttype= %d" recorded in the object's ierr (its
 * first field) under `name`, and 0. */
int vis_Model_ObjectType(void* obj, const char* name, int objecttype, int want);
/* Returns *ierr and clears it; code 5 for a null object. */
int vis_Model_TakeError(int* ierr);

/* The value stored under key in a table, or null when the table or the key is missing. */
void* vis_Model_TableGet(struct vsy_HashTable* tab, int key);
/* Stores value under key, creating the table first when *tab is null. On failure records code
 * 4 in *ierr with "index= %d" under `name` and returns 0; the table keeps what it held. */
int vis_Model_TablePut(int* ierr, const char* name, struct vsy_HashTable** tab, int key, void* value);
/* Number of entries of a table; 0 for null. */
int vis_Model_TableCount(struct vsy_HashTable* tab);

/* The record under key, or a new zeroed record of `size` bytes stored there (raising *max to
 * key). On failure records code 4 "index= %d" under `name` and returns null; nothing changes. */
void* vis_Model_TableRecord(int* ierr, const char* name, struct vsy_HashTable** tab, int key, size_t size, int* max);
/* Copies n floats into doubles and back. */
void vis_Model_ToDouble(int n, const float* from, double* to);
void vis_Model_ToFloat(int n, const double* from, float* to);
/* Lists in ascending order the tags (1 to 31) whose bits are set in mask: *n of them. */
void vis_Model_MaskTags(int mask, int* n, int* tags);

/* Marks in a group every entry of a table whose key lies in 1 to the group's count: the
 * entity's flag word gains word(record), or 1 when word is null. The group must have been
 * defined with `parent` (and `child`, -1 for any); otherwise code 2 "parenttype= %d" or
 * "childtype= %d" under `name`, and 0 is returned. */
int vis_Model_TableToGroup(int* ierr, const char* name, struct vsy_HashTable* tab, struct vis_Group* group, int parent,
                           int child, int (*word)(const void* record));

/* Three-vectors: c = a x b (c must not be a or b), and a . b. */
void vis_Model_Cross(const double* a, const double* b, double* c);
double vis_Model_Dot(const double* a, const double* b);

/* A copy of a string through vsy_Malloc, or null (also for a null string). */
char* vis_Model_StrDup(const char* text);

#endif
