/* vsy_Sort: the three typed heapsorts, each the one body vsy_HeapSortBy of vsy_Sort.h with the
 * natural order of its keys. */
#include "vsy_Sort.h"

/* The natural order of the key types. */
template <class KEY>
static bool vsy_Sort_Less(const KEY& x, const KEY& y)
{
    return x < y;
}

void vsy_HeapSortInt(int n, int* a)
{
    vsy_HeapSortBy(n, a, nullptr, vsy_Sort_Less<int>);
}

void vsy_HeapSortIntInt(int n, int* keys, int* companions)
{
    if (!companions) return;
    vsy_HeapSortBy(n, keys, companions, vsy_Sort_Less<int>);
}

void vsy_HeapSortDoubleInt(int n, double* keys, int* companions)
{
    if (!companions) return;
    vsy_HeapSortBy(n, keys, companions, vsy_Sort_Less<double>);
}
