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

}  // namespace

int vsy_FieldIntText(int value, int width, char* out)
{
    /* Digits from the right, as "%*d" aligns them; the magnitude in unsigned so that INT_MIN
     * has one. */
    char digits[16];
    int len = 0;
    unsigned m = value < 0 ? 0u - static_cast<unsigned>(value) : static_cast<unsigned>(value);
    do {
        digits[15 - len++] = static_cast<char>('0' + m % 10u);
        m /= 10u;
    } while (m != 0u);
    if (value < 0) digits[15 - len++] = '-';
    const int pad = len < width ? width - len : 0;
    std::memset(out, ' ', pad);
    std::memcpy(out + pad, digits + 16 - len, len);
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
