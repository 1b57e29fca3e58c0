/* vsy_Hash: hashing, table sizing and name sorting shared by the open-addressing containers. */
#include "vsy_Hash.h"

#include "vsy_Sort.h"
#include "vsy_Util.h"

int vsy_NextCapacity(int size)
{
    long long s = (long long)size + size / 2;
    if (s % 2 == 0) s += 1;
    if (s > VSY_HASH_MAXSIZE) return -1;
    return (int)s;
}

int vsy_NextPrimeLike(int n)
{
    static const int divisors[7] = {8, 7, 6, 5, 4, 3, 2};
    long long c = 2 * (long long)n + 1;
    for (;;) {
        if (c > VSY_HASH_MAXSIZE) return -1;
        int divided = 0;
        for (int i = 0; i < 7; ++i) {
            if (c % divisors[i] == 0) {
                divided = 1;
                break;
            }
        }
        if (!divided) return (int)c;
        c += 11;
    }
}

int vsy_Hash_IntHome(int key, int size)
{
    /* The product of a 32-bit key and a 32-bit multiplier always fits in 64 bits. */
    long long h = (long long)key * 2654435761LL;
    if (h < 0) h = (long long)key * -2654435761LL;
    return (int)(h % size);
}

int vsy_Hash_NameHome(const char* name, int size)
{
    long long h = 0;
    for (const char* p = name; *p; ++p) {
        /* Bytes count as signed chars, so bytes above 127 pull h below zero. */
        h = ((signed char)*p + h * 128) % size;
    }
    if (h < 0) h = -h;
    return (int)h;
}

int vsy_Hash_NameStep(int h)
{
    return 8 - h % 8;
}

int vsy_Hash_NameCompare(const char* a, const char* b, int nocase)
{
    const unsigned char* x = (const unsigned char*)a;
    const unsigned char* y = (const unsigned char*)b;
    for (;; ++x, ++y) {
        int cx = nocase ? vsy_CharUpper(*x) : *x;
        int cy = nocase ? vsy_CharUpper(*y) : *y;
        if (cx != cy) return cx < cy ? -1 : 1;
        if (cx == 0) return 0;
    }
}

static const char* vsy_Hash_SlotName(const void* slots, int stride, int slot)
{
    return *(const char* const*)((const char*)slots + (long long)slot * stride);
}

void vsy_Hash_SortNames(int n, int* idx, const void* slots, int stride, int nocase)
{
    vsy_HeapSortBy(n, idx, nullptr, [&](int x, int y) {
        return vsy_Hash_NameCompare(vsy_Hash_SlotName(slots, stride, x), vsy_Hash_SlotName(slots, stride, y),
                                    nocase) < 0;
    });
}
