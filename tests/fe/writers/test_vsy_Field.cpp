// Real and integer fields of the fixed-column cards, and the dof digits of a mask. Field texts
// come from the field rule: the vsy_RealToField text (width 8 or 16, upper case, mode 1), put
// right-aligned in width - 1 columns with a blank behind when it is shorter than that.
#include "vsy_DofDigits.h"
#include "vsy_Field.h"
#include "vsy_RealText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>

namespace {

std::string FieldText(double v, int width)
{
    char out[VSY_REALTEXT_LEN];
    vsy_FieldRealText(v, width, out);
    return out;
}

// Everything written to a temporary stream by `write`.
template <class F>
std::string Written(F write)
{
    FILE* fp = std::tmpfile();
    if (!fp) return "(no tmpfile)";
    write(fp);
    std::rewind(fp);
    std::string s;
    for (int c; (c = std::fgetc(fp)) != EOF;) s.push_back(static_cast<char>(c));
    std::fclose(fp);
    return s;
}

TEST(Field, SmallTexts)
{
    // "0." is shorter than 7: "%7s " gives five blanks, "0.", a blank.
    EXPECT_EQ(FieldText(0.0, 8), "     0. ");
    EXPECT_EQ(FieldText(-0.0, 8), "     0. ");
    // "1.234E+8" has eight characters: "%8s".
    EXPECT_EQ(FieldText(123456789.0, 8), "1.234E+8");
    EXPECT_EQ(FieldText(-0.5, 8), "    -.5 ");
    EXPECT_EQ(FieldText(0.5, 8), "     .5 ");
    // "1.0E-5" (six characters) stands in seven columns and a blank.
    EXPECT_EQ(FieldText(1.0e-5, 8), " 1.0E-5 ");
    // "1234567." has eight: it fills the field with no blank behind.
    EXPECT_EQ(FieldText(1234567.0, 8), "1234567.");
    // Seven characters exactly, "-1.5E-5" (fixed fails below 1e-4; exponent at width 8,
    // " -1.500000000000000E-05", last 4 "-1.50" trimmed to "-1.5"): not shorter than 7, "%8s".
    EXPECT_EQ(FieldText(-1.5e-5, 8), " -1.5E-5");
    EXPECT_EQ(FieldText(std::numeric_limits<double>::infinity(), 8), "    INF ");
}

TEST(Field, LargeTexts)
{
    // "1.5" in fifteen columns and a blank.
    EXPECT_EQ(FieldText(1.5, 16), "            1.5 ");
    // "1.2345678901E+11" fills all sixteen.
    EXPECT_EQ(FieldText(1.23456789012e11, 16), "1.2345678901E+11");
    // 1/3: fixed ".333333333333333" (sixteen, no zero to trim): "%16s".
    EXPECT_EQ(FieldText(1.0 / 3.0, 16), ".333333333333333");
}

TEST(Field, Rows)
{
    const double v[2] = {1.5, 0.0};
    // Two empty small fields, then "     1.5 " and "     0. ", then the line end.
    EXPECT_EQ(Written([&](FILE* fp) { vsy_FieldSmall(fp, 2, 2, v, 1); }),
              std::string(16, ' ') + "    1.5      0. \n");
    // One empty large field, one real, no line end.
    EXPECT_EQ(Written([&](FILE* fp) { vsy_FieldLarge(fp, 1, 1, v, 0); }),
              std::string(16, ' ') + "            1.5 ");
    const int ids[3] = {7, -12, 123456789};
    // "%8d" each; 123456789 overflows eight columns and is written whole.
    EXPECT_EQ(Written([&](FILE* fp) { vsy_FieldSmallInt(fp, 0, 3, ids, 1); }),
              "       7     -12123456789\n");
    EXPECT_EQ(Written([&](FILE* fp) { vsy_FieldLargeInt(fp, 1, 1, ids, 1); }),
              std::string(16, ' ') + "               7\n");
    // No fields and no line end write nothing.
    EXPECT_EQ(Written([&](FILE* fp) { vsy_FieldSmall(fp, 0, 0, v, 0); }), "");
}

TEST(DofDigits, Masks)
{
    int d = -1;
    // Bits 0 to 5 set: dofs 1 to 6, the first in front.
    vsy_DofDigits(6, 63, &d);
    EXPECT_EQ(d, 123456);
    // Bits 0 and 2: dofs 1 and 3.
    vsy_DofDigits(6, 5, &d);
    EXPECT_EQ(d, 13);
    vsy_DofDigits(6, 0, &d);
    EXPECT_EQ(d, 0);
    // Only the first n flags count: 63 with n 3 is 123.
    vsy_DofDigits(3, 63, &d);
    EXPECT_EQ(d, 123);
    // The second end of a beam release mask 0xE00 shifted down by six: 0x38, bits 3 to 5.
    vsy_DofDigits(6, 0xE00 >> 6, &d);
    EXPECT_EQ(d, 456);
    // Flags above 9 have no digit: bit 9 (dof 10) alone gives 0; n above 32 counts as 32.
    vsy_DofDigits(10, 1 << 9, &d);
    EXPECT_EQ(d, 0);
    vsy_DofDigits(40, 2, &d);
    EXPECT_EQ(d, 2);
}

}  // namespace

namespace {

TEST(Field, IntegerTexts)
{
    char out[32];
    // "%8d" and "%16d": right-aligned; wider values are written whole.
    const struct {
        int v, width;
        const char* want;
    } rows[] = {{0, 8, "       0"},          {7, 8, "       7"},          {-12, 8, "     -12"},
                {12345678, 8, "12345678"},   {-1234567, 8, "-1234567"},   {123456789, 8, "123456789"},
                {2147483647, 16, "      2147483647"}, {-2147483647 - 1, 8, "-2147483648"},
                {42, 0, "42"}};
    for (const auto& r : rows) {
        const int len = vsy_FieldIntText(r.v, r.width, out);
        EXPECT_EQ(std::string(out, len), r.want) << r.v;
    }
    // Every digit count and sign at every width the decks use, against "%*d" itself: the
    // neighbours of each power of ten, where the count of digits changes.
    for (long long p = 1; p <= 1000000000LL; p *= 10)
        for (long long v : {p - 1, p, p + 1, -(p - 1), -p, -(p + 1)})
            for (int width : {0, 1, 8, 10, 16}) {
                char want[32];
                std::snprintf(want, sizeof want, "%*d", width, static_cast<int>(v));
                const int len = vsy_FieldIntText(static_cast<int>(v), width, out);
                EXPECT_EQ(std::string(out, len), want) << v << " width " << width;
            }
}

}  // namespace
