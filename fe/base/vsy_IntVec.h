/* vsy_IntVec: an integer vector that answers a default value for every index never written.
 *
 * Invariant: `data` holds `cap` entries, indices 0 to cap - 1; an index from `low` to cap - 1
 * that was never written holds `defval`. `cap` is -1 (and `data` null) while the vector is not
 * defined. `maxidx` is the largest index written since the last Def, -1 when none.
 *
 * Growth: a write at or past `cap` doubles `cap` until it exceeds the index; the new entries
 * are filled with `defval`. A write to a vector never defined defines it with size 0 first.
 */
#ifndef VSY_INTVEC_H
#define VSY_INTVEC_H

/* Option of vsy_IntVecSetParami: param 1 makes index 0 valid, any other value index 1. */
#define VSY_INTVEC_INDEXZERO 1

typedef struct vsy_IntVec {
    int ierr;   /* last error, 0 for none */
    int low;    /* lowest valid index: 1, or 0 with VSY_INTVEC_INDEXZERO */
    int maxidx; /* largest index written, -1 when none */
    int cap;    /* allocated entries, -1 before Def */
    int* data;  /* the values, owned */
    int defval; /* value of an index never written */
} vsy_IntVec;

/* Creates an undefined vector (low 1, cap -1, defval 0). Null with a "Creation Failure" report
 * when the record cannot be allocated. The caller owns the result. */
vsy_IntVec* vsy_IntVecNew(void);
/* Releases the array and the record. A null vector is ignored. */
void vsy_IntVecDelete(vsy_IntVec* vec);
/* Returns the last error and clears it. */
int vsy_IntVecError(vsy_IntVec* vec);
/* Sets an option; only VSY_INTVEC_INDEXZERO exists, others fail with code 2 "type= %d". */
void vsy_IntVecSetParami(vsy_IntVec* vec, int type, int param);
/* Releases the array and allocates n + 1 entries filled with defval; maxidx becomes -1. A
 * negative n fails with code 1 "nument= %d" and changes nothing. A failed allocation reports
 * code 4 "Malloc vec" and leaves the vector undefined (cap -1, data null). */
void vsy_IntVecDef(vsy_IntVec* vec, int n);
/* Stores value at idx, growing as needed. idx below low fails with code 1 "idx= %d"; a failed
 * growth reports code 4 "Realloc vec"; in both cases the vector is unchanged. */
void vsy_IntVecSet(vsy_IntVec* vec, int idx, int value);
/* Writes data[idx] to *value when low <= idx < cap, else defval. Never an error. */
void vsy_IntVecGet(vsy_IntVec* vec, int idx, int* value);
/* Sets the value of an index never written. Entries already filled keep their value. */
void vsy_IntVecSetDefault(vsy_IntVec* vec, int defval);
/* Writes the largest index written, -1 when none. */
void vsy_IntVecMaxIndex(vsy_IntVec* vec, int* maxidx);

/* Internal: grows `data` by doubling `cap` until it exceeds idx, filling new entries with
 * defval. On failure reports code 4 under "vsy_IntVec_Expand" with no text and leaves the
 * vector unchanged. */
void vsy_IntVec_Expand(vsy_IntVec* vec, int idx);

#endif
