// vsy_RedPre: every precision code, the packing and rounding rules, the kept quirks and the
// half-precision read-back.
#include "vsy_RedPre.h"

#include "vsy_TestSupport.h"

#include <cmath>
#include <cstring>

using namespace vsytest;

namespace {

class RedPreTest : public ContainerTest {
protected:
    void SetUp() override
    {
        ContainerTest::SetUp();
        red = vsy_RedPreNew();
        ASSERT_NE(red, nullptr);
    }
    void TearDown() override
    {
        vsy_RedPreDelete(red);
        ContainerTest::TearDown();
    }
    vsy_RedPre* red = nullptr;
};

float FromBits(unsigned b)
{
    float f;
    std::memcpy(&f, &b, sizeof f);
    return f;
}

TEST_F(RedPreTest, UseBeforeDefinitionReportsState)
{
    float v[1] = {0.0f};
    unsigned char c[2] = {0, 0};
    vsy_RedPreLoad(red, 1, v, c);
    ExpectOnlyReport("vsy_RedPreLoad", 8, "Def not called or extent not set");
    EXPECT_EQ(vsy_RedPreError(red), 8);
    EXPECT_EQ(vsy_RedPreError(red), 0);
    Reports().clear();
    double d[1] = {0.0};
    vsy_RedPreStore(red, 1, c, v);
    vsy_RedPreLoaddv(red, 1, d, c);
    vsy_RedPreStoredv(red, 1, c, d);
    ASSERT_EQ(reports().size(), 3u);
    EXPECT_EQ(reports()[0].name, "vsy_RedPreStore");
    EXPECT_EQ(reports()[1].name, "vsy_RedPreLoaddv");
    EXPECT_EQ(reports()[2].name, "vsy_RedPreStoredv");
    // A byte store with its code but no extent is not ready either.
    Reports().clear();
    vsy_RedPreDef(red, SYS_PRECISION_BYTE);
    vsy_RedPreLoad(red, 1, v, c);
    ExpectOnlyReport("vsy_RedPreLoad", 8, "Def not called or extent not set");
    Reports().clear();
    vsy_RedPreExtent(red, 0.0, 1.0);
    vsy_RedPreLoad(red, 1, v, c);
    ExpectNoReport();
}

TEST_F(RedPreTest, BadCodeAndExtent)
{
    vsy_RedPreDef(red, 5);
    ExpectOnlyReport("vsy_RedPreDef", 2, "type= 5");
    EXPECT_EQ(red->type, 0);
    Reports().clear();
    vsy_RedPreExtent(red, 2.0, 1.0);
    ExpectOnlyReport("vsy_RedPreExtent", 1, "iparam= 0");
}

TEST_F(RedPreTest, ExtentBeforeDefWorksToo)
{
    vsy_RedPreExtent(red, -2.0, 2.0);
    vsy_RedPreDef(red, SYS_PRECISION_SHORT);
    EXPECT_EQ(red->type, SYS_PRECISION_SHORT);
    EXPECT_DOUBLE_EQ(red->scale, 65535.0 / 4.0);
    EXPECT_EQ(vsy_RedPreSize(red), 2);
}

TEST_F(RedPreTest, ByteRoundingAndRange)
{
    vsy_RedPreDef(red, SYS_PRECISION_BYTE);
    vsy_RedPreExtent(red, 0.0, 255.0);
    float v[4] = {0.0f, 1.49f, 1.5f, 255.0f};
    unsigned char c[4] = {9, 9, 9, 9};
    vsy_RedPreLoad(red, 4, v, c);
    ExpectNoReport();
    EXPECT_EQ(c[0], 0);
    EXPECT_EQ(c[1], 1);
    EXPECT_EQ(c[2], 2);
    EXPECT_EQ(c[3], 255);
}

TEST_F(RedPreTest, ByteOverflowLeavesCodeAndZeroesValueThenGoesOn)
{
    vsy_RedPreDef(red, SYS_PRECISION_BYTE);
    vsy_RedPreExtent(red, 0.0, 1.0);
    float v[3] = {2.0f, 0.5f, -1.0f};
    unsigned char c[3] = {77, 77, 77};
    vsy_RedPreLoad(red, 3, v, c);
    ASSERT_EQ(reports().size(), 2u);
    EXPECT_EQ(reports()[0].name, "vsy_RedPreLoad");
    EXPECT_EQ(reports()[0].code, 9);
    EXPECT_EQ(reports()[0].text, "a[0]= 2.000000e+00\n");
    EXPECT_EQ(reports()[1].text, "a[2]= -1.000000e+00\n");
    EXPECT_EQ(c[0], 77);  // unwritten
    EXPECT_EQ(c[1], 128);
    EXPECT_EQ(c[2], 77);
    EXPECT_EQ(v[0], 0.0f);  // the caller's value is cleared
    EXPECT_EQ(v[1], 0.5f);
    EXPECT_EQ(v[2], 0.0f);
    EXPECT_EQ(vsy_RedPreError(red), 9);
}

TEST_F(RedPreTest, ShortOverflowStoresCodeZeroAndKeepsValue)
{
    vsy_RedPreDef(red, SYS_PRECISION_SHORT);
    vsy_RedPreExtent(red, -1.0, 1.0);
    float v[2] = {3.0f, 1.0f};
    unsigned short c[2] = {77, 77};
    vsy_RedPreLoad(red, 2, v, c);
    ExpectOnlyReport("vsy_RedPreLoad", 9, "a[0]= 3.000000e+00\n");
    EXPECT_EQ(c[0], 0);
    EXPECT_EQ(c[1], 65535);
    EXPECT_EQ(v[0], 3.0f);
}

TEST_F(RedPreTest, UnitByteOverflowActsAsByte)
{
    vsy_RedPreDef(red, SYS_PRECISION_UNITBYTE);
    float v[3] = {-1.0f, 1.0f, 1.5f};
    unsigned char c[3] = {77, 77, 77};
    vsy_RedPreLoad(red, 3, v, c);
    ExpectOnlyReport("vsy_RedPreLoad", 9, "a[2]= 1.500000e+00\n");
    EXPECT_EQ(c[0], 0);
    EXPECT_EQ(c[1], 255);
    EXPECT_EQ(c[2], 77);
    EXPECT_EQ(v[2], 0.0f);
    float out[2];
    vsy_RedPreStore(red, 2, c, out);
    EXPECT_FLOAT_EQ(out[0], -1.0f);
    EXPECT_FLOAT_EQ(out[1], 1.0f);
}

TEST_F(RedPreTest, HalfEdgeCases)
{
    vsy_RedPreDef(red, SYS_PRECISION_HALF);
    float v[3] = {1.0f, 65536.0f, 1e-6f};
    unsigned short c[3] = {7, 7, 7};
    vsy_RedPreLoad(red, 3, v, c);
    EXPECT_EQ(c[0], 0x3C00);
    EXPECT_EQ(c[1], 0);
    EXPECT_EQ(c[2], 0);
    ExpectOnlyReport("vsy_RedPreLoad", 9, "a[1]= 6.553600e+04\n");
}

TEST_F(RedPreTest, HalfSignAndTruncation)
{
    vsy_RedPreDef(red, SYS_PRECISION_HALF);
    float v[4] = {-2.0f, 0.0f, 65504.0f, 1.0f + 1.9f / 1024.0f};
    unsigned short c[4];
    vsy_RedPreLoad(red, 4, v, c);
    ExpectNoReport();
    EXPECT_EQ(c[0], 0xC000);
    EXPECT_EQ(c[1], 0);
    EXPECT_EQ(c[2], 0x7BFF);
    EXPECT_EQ(c[3], 0x3C01);  // truncated, not rounded up to 0x3C02
}

TEST_F(RedPreTest, HalfRawBits255StopsAsNan)
{
    vsy_RedPreDef(red, SYS_PRECISION_HALF);
    float v[3] = {1.0f, FromBits(255u), 2.0f};
    unsigned short c[3] = {7, 7, 7};
    vsy_RedPreLoad(red, 3, v, c);
    ExpectOnlyReport("vsy_RedPreLoad", 1, "Nan detected\n");
    EXPECT_EQ(c[0], 0x3C00);
    EXPECT_EQ(c[1], 7);
    EXPECT_EQ(c[2], 7);  // the call stopped
    // A real NaN passes the raw comparison and is an overflow of the exponent.
    Reports().clear();
    float nan[1] = {std::nanf("")};
    vsy_RedPreLoad(red, 1, nan, c);
    ASSERT_EQ(reports().size(), 1u);
    EXPECT_EQ(reports()[0].code, 9);
    EXPECT_EQ(c[0], 0);
}

TEST_F(RedPreTest, HalfReadBackIsTheInverse)
{
    vsy_RedPreDef(red, SYS_PRECISION_HALF);
    Rng rng(11);
    for (int t = 0; t < 2000; ++t) {
        float e = (float)(rng.below(28) - 14);
        float a = std::ldexp(1.0f + rng.below(100000) / 100000.0f, (int)e) * (rng.below(2) ? 1.0f : -1.0f);
        unsigned short c;
        float back = 99.0f;
        vsy_RedPreLoad(red, 1, &a, &c);
        vsy_RedPreStore(red, 1, &c, &back);
        ASSERT_LE(std::fabs(back - a), std::fabs(a) * (1.0f / 1024.0f)) << a;
        ASSERT_LE(std::fabs(back), std::fabs(a));  // truncation goes towards zero
    }
    ExpectNoReport();
    unsigned short zero = 0;
    float out = 5.0f;
    vsy_RedPreStore(red, 1, &zero, &out);
    EXPECT_EQ(out, 0.0f);
}

TEST_F(RedPreTest, RoundTripsWithinHalfAStep)
{
    const int codes[3] = {SYS_PRECISION_BYTE, SYS_PRECISION_SHORT, SYS_PRECISION_UNITBYTE};
    for (int code : codes) {
        vsy_RedPreDef(red, code);
        double lo = code == SYS_PRECISION_UNITBYTE ? -1.0 : -3.5, hi = code == SYS_PRECISION_UNITBYTE ? 1.0 : 12.25;
        vsy_RedPreExtent(red, -3.5, 12.25);
        double step = 1.0 / red->scale;
        Rng rng(code);
        float v[200];
        double d[200];
        for (int i = 0; i < 200; ++i) {
            d[i] = lo + (hi - lo) * rng.below(100001) / 100000.0;
            v[i] = (float)d[i];
        }
        v[0] = (float)lo;
        v[1] = (float)hi;
        d[0] = lo;
        d[1] = hi;
        unsigned short c16[200];
        float back[200];
        double backd[200];
        vsy_RedPreLoad(red, 200, v, c16);
        vsy_RedPreStore(red, 200, c16, back);
        vsy_RedPreLoaddv(red, 200, d, c16);
        vsy_RedPreStoredv(red, 200, c16, backd);
        ExpectNoReport();
        for (int i = 0; i < 200; ++i) {
            ASSERT_LE(std::fabs(back[i] - v[i]), 0.5 * step + 1e-5) << code << " " << i;
            ASSERT_LE(std::fabs(backd[i] - d[i]), 0.5 * step + 1e-5) << code << " " << i;
        }
    }
}

TEST_F(RedPreTest, DoubleLoopStopsAtFirstFailure)
{
    vsy_RedPreDef(red, SYS_PRECISION_BYTE);
    vsy_RedPreExtent(red, 0.0, 1.0);
    double d[3] = {0.0, 5.0, 1.0};
    unsigned char c[3] = {7, 7, 7};
    vsy_RedPreLoaddv(red, 3, d, c);
    ExpectOnlyReport("vsy_RedPreLoaddv", 9, "a[1]= 5.000000e+00\n");
    EXPECT_EQ(c[0], 0);
    EXPECT_EQ(c[1], 7);
    EXPECT_EQ(c[2], 7);
    EXPECT_EQ(d[1], 0.0);
}

TEST_F(RedPreTest, FloatAndDoubleCodesCopy)
{
    vsy_RedPreDef(red, SYS_PRECISION_DOUBLE);
    double d[2] = {1.0 / 3.0, -1e300}, back[2];
    double store[2];
    vsy_RedPreLoaddv(red, 2, d, store);
    vsy_RedPreStoredv(red, 2, store, back);
    EXPECT_EQ(back[0], d[0]);
    EXPECT_EQ(back[1], d[1]);
    vsy_RedPreDef(red, SYS_PRECISION_FLOAT);
    float f[1] = {2.5f}, fb[1];
    float fs[1];
    vsy_RedPreLoad(red, 1, f, fs);
    vsy_RedPreStore(red, 1, fs, fb);
    EXPECT_EQ(fb[0], 2.5f);
    ExpectNoReport();
}

TEST_F(RedPreTest, ConstantRangeReadsMin)
{
    vsy_RedPreDef(red, SYS_PRECISION_BYTE);
    vsy_RedPreExtent(red, 4.0, 4.0);
    float v[1] = {4.0f}, back[1] = {0.0f};
    unsigned char c[1];
    vsy_RedPreLoad(red, 1, v, c);
    vsy_RedPreStore(red, 1, c, back);
    EXPECT_EQ(back[0], 4.0f);
}

TEST_F(RedPreTest, CreationFailure)
{
    FailAllocation(1);
    EXPECT_EQ(vsy_RedPreNew(), nullptr);
    ExpectOnlyReport("RedPre", 4, "Creation Failure");
}

}  // namespace
