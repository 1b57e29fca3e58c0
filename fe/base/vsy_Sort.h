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

/* The one heapsort body, for the sorts above and for callers with an order of their own: sorts
 * a[0..n-1] ascending by less(x, y) ("x before y") and moves c[i] (when c is not null) with
 * a[i]. Phase one ("hiring") takes l from n / 2 + 1 down to 1 and sifts element l down; phase
 * two ("retirement") moves the root to position ir and sifts the former last element down in
 * the heap 1..ir-1. Only comparisons and moves of whole entries happen, so every element of
 * the input appears exactly once in the output. */
template <class KEY, class LESS>
void vsy_HeapSortBy(int n, KEY* a, int* c, LESS less)
{
    if (n < 2 || !a) return;
    KEY* ra = a - 1; /* 1-based views */
    int* rc = c ? c - 1 : nullptr;
    int l = n / 2 + 1, ir = n;
    for (;;) {
        KEY key;
        int comp = 0;
        if (l > 1) {
            --l;
            key = ra[l];
            if (rc) comp = rc[l];
        } else {
            key = ra[ir];
            if (rc) comp = rc[ir];
            ra[ir] = ra[1];
            if (rc) rc[ir] = rc[1];
            if (--ir == 1) {
                ra[1] = key;
                if (rc) rc[1] = comp;
                return;
            }
        }
        int i = l, j = l + l;
        while (j <= ir) {
            if (j < ir && less(ra[j], ra[j + 1])) ++j;
            if (!less(key, ra[j])) break;
            ra[i] = ra[j];
            if (rc) rc[i] = rc[j];
            i = j;
            j += j;
        }
        ra[i] = key;
        if (rc) rc[i] = comp;
    }
}

#endif
