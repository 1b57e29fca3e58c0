#include "vsy_RealText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

/* The exponent text of an infinity or NaN: a sign or blank, then the name. */
void NonFinite(double value, int upper, char* out)
{
    const char* name = std::isnan(value) ? (upper ? "NAN" : "nan") : (upper ? "INF" : "inf");
    std::snprintf(out, VSY_REALTEXT_LEN, "%c%s", std::signbit(value) && !std::isnan(value) ? '-' : ' ',
                  name);
}

/* Leading exponent digits to drop. The runtime prints two exponent digits (the letter at 19)
 * or three (the letter at 18); minexp keeps at least that many digits. */
int DroppedExponentDigits(int p, const char* digits, int minexp)
{
    if (p == 18) {
        if (minexp >= 3 || digits[0] != '0') return 0;
        return (minexp < 2 && digits[1] == '0') ? 2 : 1;
    }
    return (minexp < 2 && digits[0] == '0') ? 1 : 0;
}

/* Fixed text of a finite non-zero value with 15 significant digits around the point, "%w.wf".
 * A w below 0 (magnitudes from about 3e15, which fail anyway) is taken as 0: a negative width is
 * no valid format. The buffer holds the 309 digits of the largest double and the 340 decimals of
 * the smallest. */
void PrintFixed(double value, double L, char* text, std::size_t size)
{
    int w = 15 - static_cast<int>(L + 0.5);
    if (w < 0) w = 0;
    vsy_RealText_Fixed(value, w, text, static_cast<int>(size));
}

/* Drops the '0' before the point of a magnitude below 1: "0.5" gives ".5", "-0.5" gives "-.5". */
void DropLeadingZero(char* text)
{
    if (text[0] == '0' && text[1] == '.') std::memmove(text, text + 1, std::strlen(text));
    else if (text[0] == '-' && text[1] == '0') std::memmove(text + 1, text + 2, std::strlen(text + 1));
}

/* Clears trailing zeros from index n - 1 down to 1; the character at n - 1 must be one of the
 * text's own, else (a text shorter than the field) nothing is cleared. The point stops it. */
void TrimZeros(char* text, int n)
{
    if (n - 1 >= static_cast<int>(std::strlen(text))) return;
    for (int i = n - 1; i >= 1 && text[i] == '0'; --i) text[i] = '\0';
}

}  // namespace

void vsy_RealText_Exp23(double value, char* buf)
{
    /* The runtime's "%23.15E": the shortest exact conversion rounds the same way (the binary
     * value's decimal expansion, ties to even), with 'e' in place of 'E' and no padding. */
    char text[40];
    const std::to_chars_result r = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 15);
    const int len = static_cast<int>(r.ptr - text);
    const int pad = len < 23 ? 23 - len : 0;
    std::memset(buf, ' ', pad);
    for (int i = 0; i < len; ++i) buf[pad + i] = text[i] == 'e' ? 'E' : text[i];
    buf[pad + len] = '\0';
}

void vsy_RealText_Fixed(double value, int w, char* buf, int size)
{
    /* "%w.wf": the text is always longer than w, so the width never pads. */
    const std::to_chars_result r = std::to_chars(buf, buf + size - 1, value, std::chars_format::fixed, w);
    *(r.ec == std::errc() ? r.ptr : buf) = '\0';
}

void vsy_RealToExp(double value, int width, int minexp, int upper, int mode, char* out)
{
    out[0] = '\0';
    if (mode == 2 && value == 0.0) return;
    if (!std::isfinite(value)) {
        NonFinite(value, upper, out);
        return;
    }
    char buf[40];
    vsy_RealText_Exp23(value, buf);
    const int p = (buf[19] == 'E') ? 19 : 18;
    const char* mantissa = buf + p - 18;
    const int k = DroppedExponentDigits(p, buf + p + 2, minexp);
    int last = width + p + k - 24;
    if (last > 17) last = 17;
    if (last < -1) last = -1;
    if (mode != 0)
        while (last > 3 && mantissa[last] == '0') --last;
    int len = last + 1;
    std::memcpy(out, mantissa, len);
    out[len++] = upper ? 'E' : 'e';
    out[len++] = buf[p + 1];
    const char* digits = buf + p + k + 2;
    const int ndigit = static_cast<int>(std::strlen(digits));
    for (int pad = (minexp > 10 ? 10 : minexp) - ndigit; minexp != 0 && pad > 0; --pad) out[len++] = '0';
    std::memcpy(out + len, digits, ndigit + 1);
}

void vsy_RealToFixed(double value, int width, int mode, char* out, int* fail)
{
    *fail = 0;
    if (value == 0.0) {
        std::strcpy(out, mode == 2 ? "" : "0.");
        return;
    }
    const double a = std::fabs(value);
    const double L = std::log10(a);
    if (L < -4.0 || L > 10.0) *fail = 1;
    char text[512];
    if (std::isfinite(value)) PrintFixed(value, L, text, sizeof text);
    else std::snprintf(text, sizeof text, "%f", value);
    const int n = width > 16 ? 16 : (width < 0 ? 0 : width);
    const int len = static_cast<int>(std::strlen(text));
    if (!std::memchr(text, '.', n < len ? n : len)) *fail = 1;
    if (a < 1.0) DropLeadingZero(text);
    if (static_cast<int>(std::strlen(text)) > n) text[n] = '\0';
    if (mode != 0 && n > 1) TrimZeros(text, n);
    std::strcpy(out, text);
}

void vsy_RealToField(double value, int width, int upper, int mode, char* out)
{
    int fail = 0;
    vsy_RealToFixed(value, width, mode, out, &fail);
    if (mode == 0 && !fail) return;
    char exptext[VSY_REALTEXT_LEN];
    const bool nonneg = value >= 0.0;
    vsy_RealToExp(value, nonneg ? width + 1 : width, 0, upper, mode, exptext);
    if (mode != 0 && !fail && std::strlen(out) < std::strlen(exptext)) return;
    std::strcpy(out, (nonneg && exptext[0] != '\0') ? exptext + 1 : exptext);
}
