/* vsy_Hash: hashing, table sizing and name sorting shared by the open-addressing containers.
 *
 * Integer tables (vsy_HashTable, vsy_IntHash) use a multiplicative hash and linear probing with
 * step 1 over an odd number of slots, growing by one half (vsy_NextCapacity). String tables
 * (vsy_IntDict, vsy_Dictionary) use a polynomial byte hash and a fixed probe step of 1 to 8 over
 * a slot count that no number from 2 to 8 divides (vsy_NextPrimeLike), so every step visits
 * every slot once in `size` probes.
 *
 * Nothing here allocates or reports; callers check the sizes against VSY_HASH_MAXSIZE first.
 */
#ifndef VSY_HASH_H
#define VSY_HASH_H

/* Largest slot count any table may reach: every size computation below stays inside int32. */
#define VSY_HASH_MAXSIZE 0x3FFFFFFF

/* Growth step of the integer tables: size + size / 2, made odd. Returns -1 when the result
 * would pass VSY_HASH_MAXSIZE. */
int vsy_NextCapacity(int size);
/* Size of a string table for n: 2 * n + 1, then + 11 while any of 8, 7, 6, 5, 4, 3, 2 divides
 * it. Returns -1 when the result would pass VSY_HASH_MAXSIZE. */
int vsy_NextPrimeLike(int n);

/* Home slot of an integer key in a table of `size` slots (size > 0). */
int vsy_Hash_IntHome(int key, int size);
/* Home slot of a name in a table of `size` slots (size > 0); an empty name gives 0. */
int vsy_Hash_NameHome(const char* name, int size);
/* Probe step of a name whose home slot is h: 8 - h % 8, between 1 and 8. */
int vsy_Hash_NameStep(int h);

/* Name comparison of the string tables: 0 when equal. With nocase each byte is upper-cased
 * (ASCII) before it is compared. */
int vsy_Hash_NameCompare(const char* a, const char* b, int nocase);

/* Sorts the slot numbers idx[0..n-1] so that their names ascend by vsy_Hash_NameCompare. A slot
 * is `stride` bytes of `slots` and begins with its name pointer; no name may be null. */
void vsy_Hash_SortNames(int n, int* idx, const void* slots, int stride, int nocase);

#endif
