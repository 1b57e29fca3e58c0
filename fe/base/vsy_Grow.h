/* vsy_Grow: the growth rule shared by the compact stores.
 *
 * vsy_GrowCapacity(wanted, &capacity, &pointer, &ierr) resizes an array of elements so that
 * indices 0 to the new capacity are valid (capacity + 1 elements are allocated):
 *
 *   wanted > capacity:  m = max(wanted, 1000);
 *                       new capacity = max(min(m + 50000, 2 * m), trunc(capacity * 1.1))
 *   otherwise:          new capacity = wanted (the same call also shrinks)
 *
 * The new capacity is written to *capacity even when the reallocation fails; it never exceeds
 * VSY_GROW_MAXCAP. *ierr is 0 on success and SYS_ERROR_MEMORY (4) on failure; nothing is
 * reported, the caller reports. On failure the 32-bit form and the bit form keep the old
 * pointer (still owned by the caller), while the 8-bit and 16-bit forms overwrite *pointer with
 * null: a caller of those must keep its own copy of the old pointer to release it.
 *
 * A wanted size above VSY_GROW_MAXCAP cannot be reached: every form then fails with code 4
 * before it allocates and leaves *capacity and *pointer as they were, so a success always
 * means capacity >= wanted. (The clamp alone would report success with too small an array.)
 *
 * The bit form counts bits: capacity is the highest valid bit index, and wanted / 8 + 1 bytes
 * are allocated. New elements are not initialised. A negative wanted counts as 0.
 */
#ifndef VSY_GROW_H
#define VSY_GROW_H

/* Largest capacity any form hands out: (capacity + 1) * 8 bytes still fits in an int32. */
#define VSY_GROW_MAXCAP 0x0FFFFFFE

/* The capacity the rule gives, without allocating; clamped to VSY_GROW_MAXCAP, so a caller that
 * uses it directly must check that the result reaches `wanted`. */
int vsy_GrowNewCapacity(int wanted, int capacity);

void vsy_GrowCapacity(int wanted, int* capacity, unsigned char** pointer, int* ierr);
void vsy_GrowCapacity(int wanted, int* capacity, signed char** pointer, int* ierr);
void vsy_GrowCapacity(int wanted, int* capacity, short** pointer, int* ierr);
void vsy_GrowCapacity(int wanted, int* capacity, int** pointer, int* ierr);
void vsy_GrowCapacityBits(int wanted, int* capacity, unsigned char** pointer, int* ierr);

#endif
