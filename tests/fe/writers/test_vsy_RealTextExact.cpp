// The conversions under the real-to-text routines against the C library's printf, on millions
// of random reals: the texts must be equal byte for byte.
#include "vsy_RealText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

namespace {

struct Bits {
    uint64_t s = 0x243F6A8885A308D3ULL;
    uint64_t Next()
    {
        s ^= s << 13;
        s ^= s >> 7;
        s ^= s << 17;
        return s;
    }
    // Any finite double: a random bit pattern, or a decimal-looking value near the deck's range.
    double Value()
    {
        const uint64_t b = Next();
        if (b & 1) {
            double v;
            uint64_t r = Next();
            std::memcpy(&v, &r, sizeof v);
            return std::isfinite(v) ? v : 1.0;
        }
        const double m = static_cast<double>(Next() % 2000000001ULL) - 1e9;
        const int e = static_cast<int>(Next() % 41) - 20;
        return m * std::pow(10.0, e);
    }
};

void ExpectExp(double v)
{
    char want[64], got[40];
    std::snprintf(want, sizeof want, "%23.15E", v);
    vsy_RealText_Exp23(v, got);
    ASSERT_STREQ(got, want) << v;
}

void ExpectFixed(double v)
{
    // The precision RealToFixed gives: 15 - trunc(log10|v| + 0.5), at least 0.
    const int w = v == 0.0 ? 15 : std::max(0, 15 - static_cast<int>(std::log10(std::fabs(v)) + 0.5));
    char want[512], got[512];
    std::snprintf(want, sizeof want, "%*.*f", w, w, v);
    vsy_RealText_Fixed(v, w, got, sizeof got);
    ASSERT_STREQ(got, want) << v << " w " << w;
}

TEST(RealTextExact, ExponentFormOfRandomReals)
{
    Bits bits;
    for (int i = 0; i < (1 << 21); ++i) ExpectExp(bits.Value());
}

TEST(RealTextExact, FixedFormOfRandomReals)
{
    Bits bits;
    for (int i = 0; i < (1 << 19); ++i) ExpectFixed(bits.Value());
}

// Values where sixteen-digit rounding is delicate, across the magnitudes a deck holds: grid
// coordinates k/10, exact binary fractions whose seventeenth digit is a tie (1 + 2^-16 is
// 1.0000152587890625, seventeen digits ending in 5), the neighbours of every power of ten and
// values that round up to the next power (9.9999999999999999e15 and the like).
TEST(RealTextExact, ExponentFormDelicateValues)
{
    for (int i = -200000; i <= 200000; ++i) ExpectExp(0.1 * i);
    for (int k = 1; k <= 60; ++k)
        for (int j = 1; j < 64; ++j) {
            ExpectExp(std::ldexp(1.0 + std::ldexp(static_cast<double>(j), -k), j % 40 - 20));
            ExpectExp(-std::ldexp(static_cast<double>(2 * j + 1), -k));
        }
    for (int e = -330; e <= 308; ++e) {
        const double p = std::pow(10.0, e);
        double v = p;
        for (int step = 0; step < 8; ++step) v = std::nextafter(v, 0.0);
        for (int step = 0; step < 16 && std::isfinite(v); ++step, v = std::nextafter(v, HUGE_VAL)) ExpectExp(v);
        for (double f : {9.9999999999999999, 9.99999999999999949, 9.99999999999999951})
            if (std::isfinite(f * p)) ExpectExp(f * p);  // the conversion takes finite values
    }
}

TEST(RealTextExact, TiesAndLimits)
{
    // 1234567890123456.5 is a double (spacing .25 below 2^53); sixteen significant digits end
    // on an exact tie, which both round to the even digit 6.
    const double values[] = {1234567890123456.5, 1234567890123457.5, 0.5, 2.5, -2.5, 0.0, -0.0,
                             std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
                             std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(),
                             1e-4, 1e10, 0.1, 1.0 / 3.0, 9.9999999999999995e-5, 999999999999999.9};
    for (double v : values) {
        ExpectExp(v);
        ExpectFixed(v);
    }
    char got[512];
    // Fixed text of a tie at precision 0: "%0.0f" of 0.5 and 2.5 gives "0" and "2".
    vsy_RealText_Fixed(0.5, 0, got, sizeof got);
    EXPECT_STREQ(got, "0");
    vsy_RealText_Fixed(2.5, 0, got, sizeof got);
    EXPECT_STREQ(got, "2");
    // A buffer too small for the text gives an empty text.
    vsy_RealText_Fixed(123456.0, 2, got, 5);
    EXPECT_STREQ(got, "");
}

}  // namespace
