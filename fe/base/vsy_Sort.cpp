/* vsy_Sort: the classic heapsort on a 1-based heap over a 0-based array.
 *
 * Phase one ("hiring") takes l from n / 2 + 1 down to 1 and sifts element l down; phase two
 * ("retirement") moves the root to position ir and sifts the former last element down in the
 * heap 1..ir-1. Only comparisons of keys and swaps of whole entries happen, so every element
 * of the input appears exactly once in the output.
 */
#include "vsy_Sort.h"

/* One body for the three forms: KEY is the key type, the companion array may be null. */
template <class KEY>
static void vsy_Sort_Heap(int n, KEY* a, int* c)
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
            if (j < ir && ra[j] < ra[j + 1]) ++j;
            if (key < ra[j]) {
                ra[i] = ra[j];
                if (rc) rc[i] = rc[j];
                i = j;
                j += j;
            } else {
                break;
            }
        }
        ra[i] = key;
        if (rc) rc[i] = comp;
    }
}

void vsy_HeapSortInt(int n, int* a)
{
    vsy_Sort_Heap<int>(n, a, nullptr);
}

void vsy_HeapSortIntInt(int n, int* keys, int* companions)
{
    if (!companions) return;
    vsy_Sort_Heap<int>(n, keys, companions);
}

void vsy_HeapSortDoubleInt(int n, double* keys, int* companions)
{
    if (!companions) return;
    vsy_Sort_Heap<double>(n, keys, companions);
}
