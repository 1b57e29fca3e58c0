#include "vsy_RealText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <cstdint>

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


/* Exact sixteen-digit rounding in 128-bit integers, for the magnitudes decks hold. A finite
 * x > 0 is m 2^e2 with m below 2^53; its sixteen significant digits are x 10^k rounded to the
 * nearest integer, ties to even, for the k that puts that integer in [10^15, 10^16). With
 * 5^k (k up to 27) below 2^63 every product and quotient below stays exact; magnitudes outside
 * about 1e-12 to 1e43 take the general conversion. */
using U128 = unsigned __int128;

constexpr uint64_t kTen15 = 1000000000000000ULL, kTen16 = 10000000000000000ULL;

/* 5^k for k from 0 to 27. */
constexpr std::array<uint64_t, 28> kPow5 = [] {
    std::array<uint64_t, 28> p{};
    p[0] = 1;
    for (size_t k = 1; k < p.size(); ++k) p[k] = p[k - 1] * 5;
    return p;
}();

uint64_t Pow5(int k)
{
    return kPow5[static_cast<size_t>(k)];
}

/* The quotient q of a division by d with remainder r, rounded to nearest, ties to even. */
uint64_t RoundQuotient(U128 q, U128 r, U128 d)
{
    const U128 twice = r << 1;
    if (twice > d || (twice == d && (q & 1))) ++q;
    return static_cast<uint64_t>(q);
}

/* x 10^k rounded to an integer, and its integer part in `trunc`; false when an intermediate
 * would leave 128 bits. */
bool ScaleRound(uint64_t m, int e2, int k, uint64_t* rounded, uint64_t* trunc)
{
    if (k > 27 || k < -27) return false;
    if (k >= 0) {
        const U128 p = static_cast<U128>(m) * Pow5(k);
        const int s = e2 + k; /* x 10^k = p 2^s */
        if (s >= 0) {
            if (s > 10) return false;
            *rounded = *trunc = static_cast<uint64_t>(p << s);
            return true;
        }
        if (-s > 120) return false;
        const U128 q = p >> -s;
        const U128 r = p - (q << -s);
        *trunc = static_cast<uint64_t>(q);
        *rounded = RoundQuotient(q, r, static_cast<U128>(1) << -s);
        return true;
    }
    const U128 five = Pow5(-k);
    const int t = e2 + k; /* x 10^k = m 2^t / 5^-k */
    if (t > 70 || t < -60) return false;
    const U128 n = t >= 0 ? static_cast<U128>(m) << t : static_cast<U128>(m);
    const U128 d = t >= 0 ? five : five << -t;
    const U128 q = n / d;
    *trunc = static_cast<uint64_t>(q);
    *rounded = RoundQuotient(q, n - q * d, d);
    return true;
}

/* The sixteen digits and decimal exponent of a finite x > 0; false outside the fast range. */
bool Digits16(double x, uint64_t* digits, int* exp10)
{
    uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    const int be = static_cast<int>(bits >> 52 & 0x7ff);
    if (be == 0) return false; /* subnormal: far outside the fast range */
    const uint64_t m = (bits & ((1ULL << 52) - 1)) | (1ULL << 52);
    const int e2 = be - 1075;
    /* floor(log10 x) lies in [E log10 2 - 1, E log10 2 + 1] with E the binary exponent. */
    int est = static_cast<int>(std::floor((be - 1023) * 0.30102999566398120));
    for (int tries = 0; tries < 3; ++tries) {
        uint64_t rounded = 0, trunc = 0;
        if (!ScaleRound(m, e2, 15 - est, &rounded, &trunc)) return false;
        if (trunc >= kTen16) ++est;
        else if (trunc < kTen15) --est;
        else {
            if (rounded == kTen16) rounded = kTen15, ++est;
            *digits = rounded;
            *exp10 = est;
            return true;
        }
    }
    return false;
}

/* Eight digits of v (below 10^8) at out. */
void EightDigits(uint32_t v, char* out)
{
    static const char pairs[] =
        "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
        "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
        "8081828384858687888990919293949596979899";
    for (int i = 6; i >= 0; i -= 2) {
        const uint32_t r = v % 100;
        v /= 100;
        out[i] = pairs[2 * r];
        out[i + 1] = pairs[2 * r + 1];
    }
}

/* "%23.15E" of a finite value by the exact integer rounding; false outside its range. */
bool Exp23Fast(double value, char* buf)
{
    uint64_t digits = 0;
    int e10 = 0;
    if (value == 0.0 || !std::isfinite(value) || !Digits16(std::fabs(value), &digits, &e10)) return false;
    char d[16];
    EightDigits(static_cast<uint32_t>(digits / 100000000), d);
    EightDigits(static_cast<uint32_t>(digits % 100000000), d + 8);
    const int ae = e10 < 0 ? -e10 : e10;
    const int elen = ae >= 100 ? 3 : 2;
    /* A sign only when negative, "d.", fifteen decimals, "E", the exponent's sign and digits. */
    const int len = (value < 0 ? 1 : 0) + 2 + 15 + 2 + elen;
    int pos = 23 - len;
    std::memset(buf, ' ', pos);
    if (value < 0) buf[pos++] = '-';
    buf[pos++] = d[0];
    buf[pos++] = '.';
    std::memcpy(buf + pos, d + 1, 15);
    pos += 15;
    buf[pos++] = 'E';
    buf[pos++] = e10 < 0 ? '-' : '+';
    if (elen == 3) buf[pos++] = static_cast<char>('0' + ae / 100);
    buf[pos++] = static_cast<char>('0' + ae / 10 % 10);
    buf[pos++] = static_cast<char>('0' + ae % 10);
    buf[pos] = '\0';
    return true;
}

}  // namespace

void vsy_RealText_Exp23(double value, char* buf)
{
    if (Exp23Fast(value, buf)) return;
    /* The runtime's "%23.15E": the exact conversion rounds the same way (the binary value's
     * decimal expansion, ties to even), with 'e' in place of 'E' and no padding. */
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
    vsy_RealToExpLen(value, width, minexp, upper, mode, out);
}

int vsy_RealToExpLen(double value, int width, int minexp, int upper, int mode, char* out)
{
    out[0] = '\0';
    if (mode == 2 && value == 0.0) return 0;
    if (!std::isfinite(value)) {
        NonFinite(value, upper, out);
        return static_cast<int>(std::strlen(out));
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
    return len + ndigit;
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
