/* vis_ElemDat: per-element values that the model itself uses (thickness at the nodes,
 * orientation vectors, end offsets), kept sparsely by element index.
 *
 * Only the model's reading side is built here: Def, SetDatadv and Data. The result-state forms
 * of the data (precisions, normals, groups) are not part of this object yet.
 */
#ifndef VIS_ELEMDAT_H
#define VIS_ELEMDAT_H

struct vsy_HashTable;

typedef struct vis_ElemDat {
    int ierr;                  /* last error */
    int nument;                /* largest element index accepted */
    int type;                  /* element data kind (2, 28, 37 ...) */
    int nval;                  /* largest number of values per element */
    struct vsy_HashTable* tab; /* element index to a record of count and values, owned */
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

#endif
