/* vsy_Util: copies, fills, clears, strings and degree-of-freedom digits. */
#include "vsy_Util.h"

#include <cstring>

void vsy_Copy32(int n, const void* from, void* to)
{
    if (n < 1 || !from || !to) return;
    std::memmove(to, from, (size_t)n * 4);
}

void vsy_Copy64(int n, const void* from, void* to)
{
    if (n < 1 || !from || !to) return;
    std::memmove(to, from, (size_t)n * 8);
}

void vsy_FillByte(int n, int value, void* to)
{
    if (n < 1 || !to) return;
    std::memset(to, value & 255, (size_t)n);
}

void vsy_FillDouble(int n, double value, double* to)
{
    if (n < 1 || !to) return;
    for (int i = 0; i < n; ++i) to[i] = value;
}

static void vsy_Util_Clear(int n, size_t width, void* to)
{
    if (n < 1 || !to) return;
    std::memset(to, 0, (size_t)n * width);
}

void vsy_Clear1(int n, void* to) { vsy_Util_Clear(n, 1, to); }
void vsy_Clear2(int n, void* to) { vsy_Util_Clear(n, 2, to); }
void vsy_Clear4(int n, void* to) { vsy_Util_Clear(n, 4, to); }
void vsy_Clear8(int n, void* to) { vsy_Util_Clear(n, 8, to); }

void vsy_StrCopy(char* to, const char* from, int limit)
{
    if (!to || limit < 1) return;
    if (!from) {
        to[0] = '\0';
        return;
    }
    int i = 0;
    for (; i < limit; ++i) {
        to[i] = from[i];
        if (from[i] == '\0') return;
    }
    to[limit - 1] = '\0';
}

void vsy_StrReplace(char* str, char c, char r)
{
    if (!str || c == '\0') return;
    for (char* p = str; *p; ++p)
        if (*p == c) *p = r;
}

int vsy_CharUpper(int c)
{
    return (c >= 'a' && c <= 'z') ? c - 'a' + 'A' : c;
}

int vsy_StrCompareNoCase(const char* a, const char* b)
{
    if (!a || !b) return a == b ? 0 : 1;
    const unsigned char* x = (const unsigned char*)a;
    const unsigned char* y = (const unsigned char*)b;
    for (;; ++x, ++y) {
        if (vsy_CharUpper(*x) != vsy_CharUpper(*y)) return 1;
        if (*x == 0) return 0;
    }
}

void vsy_DofDecode(int number, int n, int* flags)
{
    if (!flags || n < 1) return;
    for (int i = 0; i < n; ++i) flags[i] = 0;
    long long num = number < 0 ? -(long long)number : number;
    for (int round = 0; round < n; ++round) {
        int d = (int)(num % 10);
        if (d >= 1 && d <= n) flags[d - 1] = 1;
        num /= 10;
    }
}

void vsy_DofEncode(int n, const int* flags, int* number)
{
    if (!number) return;
    long long num = 0, place = 1;
    for (int f = n; f >= 1 && flags; --f) {
        if (!flags[f - 1] || f > 9) continue;
        if (num + f * place > 2147483647LL) break;
        num += f * place;
        place *= 10;
    }
    *number = (int)num;
}

void vsy_BitsUnpack(int value, int n, int* bits)
{
    if (!bits) return;
    if (n > 32) n = 32;
    for (int i = 0; i < n; ++i) bits[i] = (int)(((unsigned)value >> i) & 1u);
}
