#include "vsy_Field.h"

#include "vsy_RealText.h"

#include <cstring>

namespace {

void Empty(FILE* fp, int width, int nempty)
{
    for (int i = 0; i < nempty; ++i) std::fprintf(fp, "%*s", width, "");
}

void RealRow(FILE* fp, int width, int nempty, int n, const double* values, int newline)
{
    Empty(fp, width, nempty);
    char field[VSY_REALTEXT_LEN];
    for (int i = 0; i < n; ++i) {
        vsy_FieldRealText(values[i], width, field);
        std::fputs(field, fp);
    }
    if (newline) std::fputc('\n', fp);
}

void IntRow(FILE* fp, int width, int nempty, int n, const int* values, int newline)
{
    Empty(fp, width, nempty);
    char text[32];
    for (int i = 0; i < n; ++i) std::fwrite(text, 1, vsy_FieldIntText(values[i], width, text), fp);
    if (newline) std::fputc('\n', fp);
}

/* Decimal digits of m (1 for 0): t = floor(bits log10 2) from its bit length (log10 2 is
 * about 1233 / 4096), and one more when m reaches 10^t. */
int DigitCount(unsigned m)
{
    static const unsigned pow10[10] = {1u,      10u,      100u,      1000u,      10000u,
                                       100000u, 1000000u, 10000000u, 100000000u, 1000000000u};
    const int bits = 32 - __builtin_clz(m | 1u);
    const int t = (bits * 1233) >> 12;
    return t + (m >= pow10[t] || m == 0u ? 1 : 0);
}

/* The text of value ending just before `end`, two digits at a time; the magnitude in unsigned
 * so that INT_MIN has one. */
inline void DigitsBackward(int value, char* end)
{
    static const char pairs[] =
        "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
        "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
        "8081828384858687888990919293949596979899";
    unsigned m = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    char* p = end;
    while (m >= 100u) {
        const unsigned r = m % 100u;
        m /= 100u;
        p -= 2;
        p[0] = pairs[2 * r];
        p[1] = pairs[2 * r + 1];
    }
    if (m >= 10u) {
        p -= 2;
        p[0] = pairs[2 * m];
        p[1] = pairs[2 * m + 1];
    } else {
        *--p = static_cast<char>('0' + m);
    }
    if (value < 0) *--p = '-';
}

}  // namespace

int vsy_FieldIntText(int value, int width, char* out)
{
    /* "%*d", written straight into `out`: blanks, then the digits backwards from the field's
     * end. Every deck writes millions of these, so the common widths take no digit count and
     * the field is never assembled elsewhere and copied (a wide reload of narrow stores
     * stalls). */
    if (width == 8 && value > -10000000 && value < 100000000) {
        std::memset(out, ' ', 8);
        DigitsBackward(value, out + 8);
        return 8;
    }
    if (width == 16) {
        std::memset(out, ' ', 16);
        DigitsBackward(value, out + 16);
        return 16;
    }
    const unsigned m = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    const int len = DigitCount(m) + (value < 0 ? 1 : 0);
    const int pad = len < width ? width - len : 0;
    std::memset(out, ' ', static_cast<size_t>(pad));
    DigitsBackward(value, out + pad + len);
    return pad + len;
}

void vsy_FieldRealText(double value, int width, char* field)
{
    char text[VSY_REALTEXT_LEN];
    vsy_RealToField(value, width, 1, 1, text);
    const int len = static_cast<int>(std::strlen(text));
    /* "%7s " or "%8s" (large: "%15s " or "%16s"); the text never passes the width. */
    const int columns = len < width - 1 ? width - 1 : (len < width ? width : len);
    std::memset(field, ' ', columns - len);
    std::memcpy(field + columns - len, text, len);
    int end = columns;
    if (columns == width - 1) field[end++] = ' ';
    field[end] = '\0';
}

void vsy_FieldSmall(FILE* fp, int nempty, int n, const double* values, int newline)
{
    RealRow(fp, VSY_FIELD_SMALL, nempty, n, values, newline);
}

void vsy_FieldLarge(FILE* fp, int nempty, int n, const double* values, int newline)
{
    RealRow(fp, VSY_FIELD_LARGE, nempty, n, values, newline);
}

void vsy_FieldSmallInt(FILE* fp, int nempty, int n, const int* values, int newline)
{
    IntRow(fp, VSY_FIELD_SMALL, nempty, n, values, newline);
}

void vsy_FieldLargeInt(FILE* fp, int nempty, int n, const int* values, int newline)
{
    IntRow(fp, VSY_FIELD_LARGE, nempty, n, values, newline);
}
