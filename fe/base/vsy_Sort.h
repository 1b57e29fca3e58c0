/* vsy_Sort: in-place ascending heapsorts of the finite element half.
 *
 * Arrays are indexed from 0; the heap inside is indexed from 1. The heap is built by sifting
 * down from n / 2 + 1, then the root is swapped to the end repeatedly. Ties keep no particular
 * order. A count below 2 returns at once. Nothing allocates or reports.
 */
#ifndef VSY_SORT_H
#define VSY_SORT_H

/* Sorts a[0..n-1] ascending. */
void vsy_HeapSortInt(int n, int* a);
/* Sorts keys[0..n-1] ascending and moves companions[i] with keys[i]. */
void vsy_HeapSortIntInt(int n, int* keys, int* companions);
/* The same with double keys. NaN keys give an unspecified but complete permutation. */
void vsy_HeapSortDoubleInt(int n, double* keys, int* companions);

#endif
