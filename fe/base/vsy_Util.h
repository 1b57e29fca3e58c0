/* vsy_Util: small mechanical helpers of the finite element half, and the degree-of-freedom
 * digit codes.
 *
 * Copies, fills and clears take a count first and do nothing for a count below 1. None of them
 * allocate or report.
 *
 * Degree-of-freedom digits. A packed decimal number such as 1246 stands for the set of its
 * non-zero digits {1, 2, 4, 6}. Flags are int arrays; flags[d - 1] belongs to digit d.
 */
#ifndef VSY_UTIL_H
#define VSY_UTIL_H

#include <cstdint>

/* Copy n 32-bit or 64-bit values from `from` to `to` (the ranges may overlap). */
void vsy_Copy32(int n, const void* from, void* to);
void vsy_Copy64(int n, const void* from, void* to);
/* Fill n bytes or n doubles with a value. */
void vsy_FillByte(int n, int value, void* to);
void vsy_FillDouble(int n, double value, double* to);
/* Clear n values of 1, 2, 4 or 8 bytes to zero. */
void vsy_Clear1(int n, void* to);
void vsy_Clear2(int n, void* to);
void vsy_Clear4(int n, void* to);
void vsy_Clear8(int n, void* to);

/* Copies the string `from` into `to` of `limit` bytes. When `from` does not fit, the copy stops
 * and the last place, to[limit - 1], becomes the terminator. A limit below 1 writes nothing. */
void vsy_StrCopy(char* to, const char* from, int limit);
/* Replaces every occurrence of character c by r in str (c may not be the terminator). */
void vsy_StrReplace(char* str, char c, char r);
/* The upper-case form of an ASCII letter; any other value as it is. */
int vsy_CharUpper(int c);
/* Compares two strings without regard to ASCII case: 0 when equal, 1 when different. Null
 * strings equal only each other. */
int vsy_StrCompareNoCase(const char* a, const char* b);

/* Decodes a packed digit number into n flags: clears flags[0..n-1], then n times takes the
 * lowest decimal digit d; a d from 1 to n sets flags[d - 1] to 1 (0 and digits above n set
 * nothing); the number is divided by 10. Negative numbers count by their magnitude. */
void vsy_DofDecode(int number, int n, int* flags);
/* Encodes n flags: from flag n down to flag 1, each set flag's number goes to the next higher
 * decimal place, so the lowest flag ends in the highest place ({1, 2, 4, 6} gives 1246). Flags
 * above 9 have no digit and are skipped; so are places that would pass the int32 range. */
void vsy_DofEncode(int n, const int* flags, int* number);
/* Unpacks the low n bits of value into bits[0..n-1] as 0 or 1, bit 0 first (n at most 32). */
void vsy_BitsUnpack(int value, int n, int* bits);

#endif
