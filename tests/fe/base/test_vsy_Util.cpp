// Heap sorts, the growth rule in all widths, small utilities and the dof digit codes.
#include "vsy_Grow.h"
#include "vsy_Sort.h"
#include "vsy_Util.h"

#include "vsy_TestSupport.h"

#include <algorithm>
#include <cstdlib>
#include <utility>
#include <vector>

using namespace vsytest;

namespace {

class UtilTest : public ContainerTest {};

TEST_F(UtilTest, HeapSortsAscend)
{
    Rng rng(9);
    for (int n : {0, 1, 2, 3, 7, 100, 1001}) {
        std::vector<int> a(n), k(n), c(n);
        std::vector<double> d(n);
        for (int i = 0; i < n; ++i) {
            a[i] = rng.below(50) - 25;
            k[i] = rng.below(1000);
            c[i] = k[i] * 7 + 1;
            d[i] = (rng.below(100000) - 50000) / 7.0;
        }
        std::vector<int> sa = a;
        std::sort(sa.begin(), sa.end());
        vsy_HeapSortInt(n, a.data());
        EXPECT_EQ(a, sa);
        vsy_HeapSortIntInt(n, k.data(), c.data());
        for (int i = 0; i < n; ++i) {
            if (i) {
                EXPECT_LE(k[i - 1], k[i]);
            }
            EXPECT_EQ(c[i], k[i] * 7 + 1);
        }
        std::vector<std::pair<double, int>> dc(n);
        std::vector<int> ci(n);
        for (int i = 0; i < n; ++i) ci[i] = i, dc[i] = {d[i], i};
        vsy_HeapSortDoubleInt(n, d.data(), ci.data());
        for (int i = 0; i < n; ++i) {
            if (i) {
                EXPECT_LE(d[i - 1], d[i]);
            }
            EXPECT_EQ(dc[ci[i]].first, d[i]);
        }
    }
    int one = 5;
    vsy_HeapSortInt(1, &one);
    EXPECT_EQ(one, 5);
}

TEST_F(UtilTest, GrowCapacityRule)
{
    EXPECT_EQ(vsy_GrowNewCapacity(10, 0), 2000);
    EXPECT_EQ(vsy_GrowNewCapacity(1000000, 999999), 1099998);
    EXPECT_EQ(vsy_GrowNewCapacity(5, 100), 5);
    EXPECT_EQ(vsy_GrowNewCapacity(100000, 0), 150000);
    EXPECT_EQ(vsy_GrowNewCapacity(2000000000, 0), VSY_GROW_MAXCAP);
}

TEST_F(UtilTest, GrowCapacityInEveryWidth)
{
    int ierr = -1, cap = 0;
    int* p32 = nullptr;
    vsy_GrowCapacity(10, &cap, &p32, &ierr);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(cap, 2000);
    p32[2000] = 1;  // capacity + 1 elements
    vsy_GrowCapacity(999999, &cap, &p32, &ierr);
    cap = 999999;
    vsy_GrowCapacity(1000000, &cap, &p32, &ierr);
    EXPECT_EQ(cap, 1099998);
    p32[1099998] = 2;
    vsy_GrowCapacity(3, &cap, &p32, &ierr);  // shrinks to exactly wanted
    EXPECT_EQ(cap, 3);
    p32[3] = 4;
    vsy_Free(p32);

    short* p16 = nullptr;
    cap = 0;
    vsy_GrowCapacity(10, &cap, &p16, &ierr);
    EXPECT_EQ(cap, 2000);
    p16[2000] = 1;
    vsy_Free(p16);
    signed char* p8 = nullptr;
    cap = 0;
    vsy_GrowCapacity(1, &cap, &p8, &ierr);
    p8[2000] = 1;
    vsy_Free(p8);
    unsigned char* bits = nullptr;
    cap = 0;
    vsy_GrowCapacityBits(10, &cap, &bits, &ierr);
    EXPECT_EQ(cap, 2000);
    bits[2000 / 8] = 1;
    vsy_GrowCapacityBits(17, &cap, &bits, &ierr);
    EXPECT_EQ(cap, 17);
    bits[17 / 8] = 1;
    vsy_Free(bits);
}

TEST_F(UtilTest, GrowCapacityFailurePointers)
{
    int ierr = 0, cap = 0;
    int* p32 = nullptr;
    vsy_GrowCapacity(10, &cap, &p32, &ierr);
    int* keep32 = p32;
    FailAllocation(1);
    vsy_GrowCapacity(5000, &cap, &p32, &ierr);
    EXPECT_EQ(ierr, 4);
    EXPECT_EQ(cap, 51000 > 10000 ? 10000 : 51000);  // written despite the failure
    EXPECT_EQ(p32, keep32);                          // the 32-bit form keeps the pointer
    RestoreAllocation();
    vsy_Free(p32);

    short* p16 = nullptr;
    cap = 0;
    vsy_GrowCapacity(10, &cap, &p16, &ierr);
    short* keep16 = p16;
    FailAllocation(1);
    vsy_GrowCapacity(5000, &cap, &p16, &ierr);
    EXPECT_EQ(ierr, 4);
    EXPECT_EQ(p16, nullptr);  // the narrow forms drop it
    RestoreAllocation();
    vsy_Free(keep16);

    unsigned char* p8 = nullptr;
    cap = 0;
    vsy_GrowCapacity(10, &cap, &p8, &ierr);
    unsigned char* keep8 = p8;
    FailAllocation(1);
    vsy_GrowCapacity(5000, &cap, &p8, &ierr);
    EXPECT_EQ(ierr, 4);
    EXPECT_EQ(p8, nullptr);
    RestoreAllocation();
    vsy_Free(keep8);
    ExpectNoReport();
}

// A wanted size past the largest capacity cannot be granted: the form fails with code 4 before
// it allocates, and leaves capacity and pointer as they were (the clamp of the rule alone would
// hand out an array too short for the index asked for).
template <class T, class GROW>
void ExpectBeyondTheLargestRefused(GROW grow)
{
    int ierr = 0, cap = 0;
    T* p = nullptr;
    grow(10, &cap, &p, &ierr);
    ASSERT_EQ(ierr, 0);
    T* keep = p;
    CountAllocations();
    grow(VSY_GROW_MAXCAP + 1, &cap, &p, &ierr);
    EXPECT_EQ(AllocState().calls, 0);
    RestoreAllocation();
    EXPECT_EQ(ierr, 4);
    EXPECT_EQ(cap, 2000);
    EXPECT_EQ(p, keep);
    vsy_Free(p);
}

TEST_F(UtilTest, GrowCapacityBeyondTheLargestFailsBeforeAllocating)
{
    using G32 = void (*)(int, int*, int**, int*);
    using G16 = void (*)(int, int*, short**, int*);
    using G8 = void (*)(int, int*, signed char**, int*);
    ExpectBeyondTheLargestRefused<int>(static_cast<G32>(vsy_GrowCapacity));
    ExpectBeyondTheLargestRefused<short>(static_cast<G16>(vsy_GrowCapacity));
    ExpectBeyondTheLargestRefused<signed char>(static_cast<G8>(vsy_GrowCapacity));
    ExpectBeyondTheLargestRefused<unsigned char>(vsy_GrowCapacityBits);
    // The largest capacity itself is still a valid request of the rule.
    EXPECT_EQ(vsy_GrowNewCapacity(VSY_GROW_MAXCAP, 0), VSY_GROW_MAXCAP);
    ExpectNoReport();
}

TEST_F(UtilTest, CopiesFillsClears)
{
    int a[4] = {1, 2, 3, 4}, b[4] = {0, 0, 0, 0};
    vsy_Copy32(4, a, b);
    EXPECT_EQ(b[3], 4);
    long long la[2] = {1LL << 40, -5}, lb[2] = {0, 0};
    vsy_Copy64(2, la, lb);
    EXPECT_EQ(lb[0], 1LL << 40);
    unsigned char bytes[5] = {0, 0, 0, 0, 9};
    vsy_FillByte(4, 0xAB, bytes);
    EXPECT_EQ(bytes[3], 0xAB);
    EXPECT_EQ(bytes[4], 9);
    double d[3] = {0, 0, 7};
    vsy_FillDouble(2, 1.5, d);
    EXPECT_EQ(d[1], 1.5);
    EXPECT_EQ(d[2], 7);
    vsy_Clear4(0, b);
    vsy_Clear4(-3, b);
    EXPECT_EQ(b[0], 1);
    vsy_Clear4(2, b);
    EXPECT_EQ(b[1], 0);
    EXPECT_EQ(b[2], 3);
    vsy_Clear1(1, bytes);
    EXPECT_EQ(bytes[0], 0);
    EXPECT_EQ(bytes[1], 0xAB);
    short s[2] = {5, 6};
    vsy_Clear2(1, s);
    EXPECT_EQ(s[1], 6);
    vsy_Clear8(2, lb);
    EXPECT_EQ(lb[1], 0);
}

TEST_F(UtilTest, Strings)
{
    char buf[6];
    vsy_StrCopy(buf, "abc", 6);
    EXPECT_STREQ(buf, "abc");
    vsy_StrCopy(buf, "abcdefgh", 6);
    EXPECT_STREQ(buf, "abcde");
    vsy_StrCopy(buf, "abcdef", 6);
    EXPECT_STREQ(buf, "abcde");
    char s[] = "a.b.c";
    vsy_StrReplace(s, '.', '_');
    EXPECT_STREQ(s, "a_b_c");
    EXPECT_EQ(vsy_StrCompareNoCase("Grid", "gRID"), 0);
    EXPECT_EQ(vsy_StrCompareNoCase("Grid", "Grids"), 1);
    EXPECT_EQ(vsy_StrCompareNoCase("b", "a"), 1);
    // The one upper-case helper: ASCII letters only; '`' and '{' border the lower-case range.
    EXPECT_EQ(vsy_CharUpper('a'), 'A');
    EXPECT_EQ(vsy_CharUpper('z'), 'Z');
    EXPECT_EQ(vsy_CharUpper('A'), 'A');
    EXPECT_EQ(vsy_CharUpper('`'), '`');
    EXPECT_EQ(vsy_CharUpper('{'), '{');
    EXPECT_EQ(vsy_CharUpper(0xE9), 0xE9);
}

TEST_F(UtilTest, DofDigits)
{
    int f[6];
    vsy_DofDecode(1246, 6, f);
    EXPECT_EQ(std::vector<int>(f, f + 6), (std::vector<int>{1, 1, 0, 1, 0, 1}));
    int num = 0;
    vsy_DofEncode(6, f, &num);
    EXPECT_EQ(num, 1246);
    // n rounds only: 123456 with 3 rounds sees 6, 5, 4, all above 3.
    vsy_DofDecode(123456, 3, f);
    EXPECT_EQ(std::vector<int>(f, f + 3), (std::vector<int>{0, 0, 0}));
    vsy_DofDecode(3, 6, f);
    EXPECT_EQ(std::vector<int>(f, f + 6), (std::vector<int>{0, 0, 1, 0, 0, 0}));
    vsy_DofDecode(102, 6, f);  // zero digits set nothing
    EXPECT_EQ(std::vector<int>(f, f + 6), (std::vector<int>{1, 1, 0, 0, 0, 0}));
    const int none[6] = {0, 0, 0, 0, 0, 0};
    vsy_DofEncode(6, none, &num);
    EXPECT_EQ(num, 0);
    const int all[6] = {1, 1, 1, 1, 1, 1};
    vsy_DofEncode(6, all, &num);
    EXPECT_EQ(num, 123456);
    int bits[5];
    vsy_BitsUnpack(0x15, 5, bits);
    EXPECT_EQ(std::vector<int>(bits, bits + 5), (std::vector<int>{1, 0, 1, 0, 1}));
}

}  // namespace
