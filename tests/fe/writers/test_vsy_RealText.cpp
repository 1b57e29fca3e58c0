// The real-to-text routines, each on a table of values. Every expected text is worked out from
// the rules: the runtime's "%23.15E" (two exponent digits, the letter at index 19; three, at
// 18) or "%w.wf" text with w = 15 - trunc(log10|v| + 0.5), then the cuts and trims.
#include "vsy_RealText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace {

std::string Exp(double v, int width, int minexp, int upper, int mode)
{
    char out[VSY_REALTEXT_LEN];
    vsy_RealToExp(v, width, minexp, upper, mode, out);
    return out;
}

std::string Fixed(double v, int width, int mode, int* fail)
{
    char out[VSY_REALTEXT_LEN];
    *fail = -1;
    vsy_RealToFixed(v, width, mode, out, fail);
    return out;
}

std::string Field(double v, int width, int upper, int mode)
{
    char out[VSY_REALTEXT_LEN];
    vsy_RealToField(v, width, upper, mode, out);
    return out;
}

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(RealToExp, Table)
{
    struct Row {
        double v;
        int width, minexp, upper, mode;
        const char* want;
    } rows[] = {
        // "  1.500000000000000E+00": exponent "00", minexp 0 drops one zero (k 1); last =
        // 16 + 19 + 1 - 24 = 12: mantissa " 1.5000000000", "E+", digit "0". Sixteen characters.
        {1.5, 16, 0, 1, 0, " 1.5000000000E+0"},
        // mode 1 trims the mantissa's zeros down to index 3, one decimal.
        {1.5, 16, 0, 1, 1, " 1.5E+0"},
        // mode 2 and zero: empty; mode 1 and zero: "  0.000000000000000E+00" trimmed to " 0.0".
        {0.0, 16, 0, 1, 2, ""},
        {-0.0, 16, 0, 1, 2, ""},
        {0.0, 16, 0, 1, 1, " 0.0E+0"},
        // Negative zero keeps its sign: " -0.000000000000000E+00", mantissa from index 1.
        {-0.0, 16, 0, 1, 1, "-0.0E+0"},
        // Mode 2 of a non-zero value trims like mode 1.
        {1.5, 16, 0, 1, 2, " 1.5E+0"},
        // " -2.250000000000000E+00": sign in place of the blank; lower-case letter.
        {-2.25, 16, 0, 0, 0, "-2.2500000000e+0"},
        // minexp 2 keeps both digits (k 0): last 11.
        {1.5, 16, 2, 1, 0, " 1.500000000E+00"},
        // minexp 3 keeps both and pads one zero in front: one column past the width.
        {1.5, 16, 3, 1, 0, " 1.500000000E+000"},
        // "E+10": first digit '1', nothing dropped; last 11.
        {1.5e10, 16, 0, 1, 0, " 1.500000000E+10"},
        // " 1.000000000000000E+100": the letter at 18; last = 16 + 18 - 24 = 10.
        {1e100, 16, 0, 1, 0, " 1.00000000E+100"},
        {1e-300, 16, 0, 1, 1, " 1.0E-300"},
        // The largest double, " 1.797693134862316E+308", and the smallest denormal,
        // " 4.940656458412465E-324": ten mantissa characters after the blank.
        {std::numeric_limits<double>::max(), 16, 0, 1, 0, " 1.79769313E+308"},
        {std::numeric_limits<double>::denorm_min(), 16, 0, 1, 0, " 4.94065645E-324"},
        // The smallest normal value, 2.2250738585072014e-308, prints " 2.225073858507201E-308".
        {std::numeric_limits<double>::min(), 16, 0, 1, 1, " 2.22507385E-308"},
        // Digits past the width are cut, not rounded: "  1.234567890123457E+00", width 12,
        // last 8: " 1.234567" although the value continues with 8.
        {1.2345678901234567, 12, 0, 1, 0, " 1.234567E+0"},
        // "  1.234500000000000E-04": width 12 gives " 1.234500", mode 1 trims to " 1.2345".
        {1.2345e-4, 12, 0, 1, 0, " 1.234500E-4"},
        {1.2345e-4, 12, 0, 1, 1, " 1.2345E-4"},
        // Narrow widths: width 5 keeps " 1" (last 1); width 3 keeps no mantissa (last -1).
        {1.5, 5, 0, 1, 0, " 1E+0"},
        {1.5, 3, 0, 1, 0, "E+0"},
        // Width 40 keeps the whole 18-character mantissa (last at most 17).
        {1.5, 40, 0, 1, 0, " 1.500000000000000E+0"},
        // Infinities and NaN: a sign or blank and the name.
        {kInf, 16, 0, 1, 0, " INF"},
        {-kInf, 16, 0, 1, 0, "-INF"},
        {kNaN, 16, 0, 1, 0, " NAN"},
        {kInf, 16, 0, 0, 0, " inf"},
    };
    for (const Row& r : rows)
        EXPECT_EQ(Exp(r.v, r.width, r.minexp, r.upper, r.mode), r.want)
            << r.v << " width " << r.width << " minexp " << r.minexp << " mode " << r.mode;
}

TEST(RealToFixed, Table)
{
    struct Row {
        double v;
        int width, mode;
        const char* want;
        int fail;
    } rows[] = {
        // Zero: "0." unless mode 2; negative zero compares equal to zero.
        {0.0, 8, 0, "0.", 0},
        {0.0, 8, 1, "0.", 0},
        {0.0, 8, 2, "", 0},
        {-0.0, 8, 1, "0.", 0},
        // log10 1.5 = 0.18, w 15: "1.500000000000000", cut at 8 "1.500000", trimmed "1.5".
        {1.5, 8, 0, "1.500000", 0},
        {1.5, 8, 1, "1.5", 0},
        // Below 1 the leading '0' goes: "0.500000000000000" -> ".5", "-0.5..." -> "-.5".
        {0.5, 8, 1, ".5", 0},
        {-0.5, 8, 1, "-.5", 0},
        // log10 = 8.09, w 7: "123456789.0000000" has its point at index 9, outside 8: fails;
        // the cut "12345678" ends in '8', nothing trimmed.
        {123456789.0, 8, 1, "12345678", 1},
        // log10 = -5 is below -4: fails. w = 15 - trunc(-4.5) = 19: "0.0000100000000000000",
        // ".0000100" at width 8, trimmed ".00001".
        {1.0e-5, 8, 1, ".00001", 1},
        // 1e-4 is the lower bound itself: w = 15 - trunc(-3.5) = 18, ".0001000" -> ".0001".
        {1.0e-4, 8, 1, ".0001", 0},
        // 1e10 is the upper bound: w = 15 - 10 = 5, "10000000000.00000", at 16
        // "10000000000.0000" trimmed to the point.
        {1.0e10, 16, 1, "10000000000.", 0},
        // At width 8 no point fits: fails; the trim runs through the integer's zeros.
        {1.0e10, 8, 1, "1", 1},
        {1.0e10, 8, 0, "10000000", 1},
        // 1.1e10: log10 above 10 fails although the point fits in 16.
        {1.1e10, 16, 1, "11000000000.", 1},
        // Cut, not rounded: w = 15 - 3 = 12, "-1234.567800000000" -> "-1234.56".
        {-1234.5678, 8, 1, "-1234.56", 0},
        // -1e20: w below 0 is taken as 0, "%0.0f" gives "-100000000000000000000": no point.
        {-1.0e20, 8, 0, "-1000000", 1},
        {-1.0e20, 8, 1, "-1", 1},
        // Smallest denormal: w = 15 + 322 = 337, ".0000000" at width 8, trimmed to ".".
        {std::numeric_limits<double>::denorm_min(), 8, 0, ".0000000", 1},
        {std::numeric_limits<double>::denorm_min(), 8, 1, ".", 1},
        // Width above 16 counts as 16: ".666666666666667" is sixteen characters.
        {2.0 / 3.0, 40, 0, ".666666666666667", 0},
        // Width 0: no point in no characters.
        {2.0 / 3.0, 0, 0, "", 1},
        // Infinities and NaN: the runtime's text, no point: fails.
        {kInf, 8, 1, "inf", 1},
        {-kInf, 8, 1, "-inf", 1},
        {kNaN, 8, 1, "nan", 1},
    };
    for (const Row& r : rows) {
        int fail = -1;
        EXPECT_EQ(Fixed(r.v, r.width, r.mode, &fail), r.want) << r.v << " width " << r.width;
        EXPECT_EQ(fail, r.fail) << r.v << " width " << r.width;
    }
}

TEST(RealToFixed, EveryWidthCutsWithoutRounding)
{
    // 2/3 prints "0.666666666666667" (the 16th decimal 6 rounds the 15th up once, in the
    // runtime). With the '0' dropped the text is ".666666666666667"; width n keeps its first n
    // characters, whatever the next digit.
    const std::string full = ".666666666666667";
    for (int n = 1; n <= 16; ++n) {
        int fail = -1;
        EXPECT_EQ(Fixed(2.0 / 3.0, n, 0, &fail), full.substr(0, n)) << n;
        // The point is looked for before the '0' is dropped: in "0.666..." it stands at index
        // 1, so width 1 fails although its text is ".".
        EXPECT_EQ(fail, n < 2 ? 1 : 0) << n;
    }
    // The same in exponent form: 2/3 is 0.666666666666666630 in binary, and its sixteen
    // significant digits are "6.666666666666666" (the next digit 3 rounds down):
    // "  6.666666666666666E-01", k 1, last = width - 4 up to 17;
    // width 6 keeps " 6.", width 21 and more the whole 18-character mantissa.
    const std::string mant = " 6.666666666666666";
    for (int width = 6; width <= 22; ++width) {
        const int last = std::min(width - 4, 17);
        EXPECT_EQ(Exp(2.0 / 3.0, width, 0, 1, 0), mant.substr(0, last + 1) + "E-1") << width;
    }
}

TEST(RealToField, Table)
{
    struct Row {
        double v;
        int width, upper, mode;
        const char* want;
    } rows[] = {
        // Fixed "0." is shorter than " 0.0E+0".
        {0.0, 8, 1, 1, "0."},
        {-0.0, 8, 1, 1, "0."},
        // Mode 2 and zero: both texts empty; the empty exponent text is copied whole.
        {0.0, 8, 1, 2, ""},
        // Mode 0 takes the fixed form when it does not fail.
        {1.5, 8, 1, 0, "1.500000"},
        {1.5, 8, 1, 1, "1.5"},
        {0.5, 8, 1, 1, ".5"},
        {-0.5, 8, 1, 1, "-.5"},
        // Fixed fails: exponent at width 9 for a positive value, "  1.234567890000000E+08",
        // last = 9 + 19 + 1 - 24 = 5, " 1.234E+8", blank dropped.
        {123456789.0, 8, 1, 1, "1.234E+8"},
        {123456789.0, 8, 1, 0, "1.234E+8"},
        // 1e-5 fails the fixed form: " 1.000" trimmed to " 1.0", "1.0E-5".
        {1.0e-5, 8, 1, 1, "1.0E-5"},
        {1.0e-5, 8, 0, 1, "1.0e-5"},
        // Fixed "1234567." (8) is shorter than " 1.234E+6" (9): fixed.
        {1234567.0, 8, 1, 1, "1234567."},
        // Negative: "-1234567.000000000" has its point at index 8, fails; exponent at width 8,
        // " -1.234567000000000E+06", mantissa "-1.23" (last 4): "-1.23E+6".
        {-1234567.0, 8, 1, 1, "-1.23E+6"},
        // Equal lengths take the exponent: fixed "-.000123" (8) against "-1.23E-4" (8).
        {-1.2345678e-4, 8, 1, 1, "-1.23E-4"},
        // Positive the same value stays fixed: ".0001234" (8) against " 1.234E-4" (9).
        {1.2345678e-4, 8, 1, 1, ".0001234"},
        // Large: fixed "1.50000000000000" trimmed "1.5".
        {1.5, 16, 1, 1, "1.5"},
        // 1.23456789012e11 fails fixed; exponent width 17, "E+11" keeps both digits, last 12:
        // " 1.2345678901" - the final 2 of the value is cut.
        {1.23456789012e11, 16, 1, 1, "1.2345678901E+11"},
        // Non-finite values: the exponent text, the blank of a positive one dropped.
        {kInf, 8, 1, 1, "INF"},
        {-kInf, 8, 1, 1, "-INF"},
        {kNaN, 8, 1, 1, " NAN"},
    };
    for (const Row& r : rows)
        EXPECT_EQ(Field(r.v, r.width, r.upper, r.mode), r.want) << r.v << " width " << r.width;
}

}  // namespace
