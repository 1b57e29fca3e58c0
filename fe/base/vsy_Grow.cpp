/* vsy_Grow: the growth rule of the compact stores; see vsy_Grow.h for the rule. */
#include "vsy_Grow.h"

#include "vsy_Error.h"

int vsy_GrowNewCapacity(int wanted, int capacity)
{
    if (wanted < 0) wanted = 0;
    long long c;
    if (wanted > capacity) {
        long long m = wanted > 1000 ? wanted : 1000;
        long long a = m + 50000 < 2 * m ? m + 50000 : 2 * m;
        long long b = (long long)((double)capacity * 1.1);
        c = a > b ? a : b;
    } else {
        c = wanted;
    }
    if (c > VSY_GROW_MAXCAP) c = VSY_GROW_MAXCAP;
    return (int)c;
}

/* Reallocates *pointer to `bytes`; returns the new block or null. */
static void* vsy_Grow_Realloc(void* old, long long bytes)
{
    return vsy_Realloc(old, (size_t)bytes);
}

/* The common start of every form: 0 (with *ierr 4) when the call cannot succeed, so that
 * nothing is touched and nothing allocated. */
static int vsy_Grow_Check(int wanted, const int* capacity, const void* pointer, int** ierr, int* dummy)
{
    if (!*ierr) *ierr = dummy;
    **ierr = 0;
    if (!capacity || !pointer || wanted > VSY_GROW_MAXCAP) {
        **ierr = SYS_ERROR_MEMORY;
        return 0;
    }
    return 1;
}

template <class T>
static void vsy_Grow_Typed(int wanted, int* capacity, T** pointer, int* ierr, int keepold)
{
    int dummy = 0;
    if (!vsy_Grow_Check(wanted, capacity, pointer, &ierr, &dummy)) return;
    int cap = vsy_GrowNewCapacity(wanted, *capacity);
    *capacity = cap;
    T* p = (T*)vsy_Grow_Realloc(*pointer, ((long long)cap + 1) * (long long)sizeof(T));
    if (!p) {
        *ierr = SYS_ERROR_MEMORY;
        if (!keepold) *pointer = nullptr;
        return;
    }
    *pointer = p;
}

void vsy_GrowCapacity(int wanted, int* capacity, unsigned char** pointer, int* ierr)
{
    vsy_Grow_Typed(wanted, capacity, pointer, ierr, 0);
}

void vsy_GrowCapacity(int wanted, int* capacity, signed char** pointer, int* ierr)
{
    vsy_Grow_Typed(wanted, capacity, pointer, ierr, 0);
}

void vsy_GrowCapacity(int wanted, int* capacity, short** pointer, int* ierr)
{
    vsy_Grow_Typed(wanted, capacity, pointer, ierr, 0);
}

void vsy_GrowCapacity(int wanted, int* capacity, int** pointer, int* ierr)
{
    vsy_Grow_Typed(wanted, capacity, pointer, ierr, 1);
}

void vsy_GrowCapacityBits(int wanted, int* capacity, unsigned char** pointer, int* ierr)
{
    int dummy = 0;
    if (!vsy_Grow_Check(wanted, capacity, pointer, &ierr, &dummy)) return;
    int cap = vsy_GrowNewCapacity(wanted, *capacity);
    *capacity = cap;
    unsigned char* p = (unsigned char*)vsy_Grow_Realloc(*pointer, (long long)cap / 8 + 1);
    if (!p) {
        *ierr = SYS_ERROR_MEMORY;
        return;
    }
    *pointer = p;
}
