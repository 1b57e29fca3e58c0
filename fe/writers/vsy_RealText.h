/* vsy_RealText: the real-to-text routines of every fixed-column deck writer.
 *
 * Each routine writes a NUL-terminated text into `out`, which must hold at least 32 bytes. The
 * value is converted once, to the text the C library's "%23.15E" or "%w.wf" gives (the exact
 * conversion, here by std::to_chars, which is faster); digits that do not fit are cut, never
 * rounded again, so the text is the first digits of the correctly rounded form.
 *
 *   vsy_RealToExp    exponent form of `width` characters: a sign or blank, one digit, the point,
 *                    as many decimals as fit, 'E' (or 'e'), the exponent's sign and digits.
 *                    Leading zeros of the exponent are dropped down to `minexp` digits (0: as
 *                    few as possible); with `minexp` above the runtime's digit count zeros are
 *                    added in front. `mode` 1 or 2 drop trailing zeros of the mantissa down to
 *                    one decimal; `mode` 2 writes an empty text for 0.0.
 *   vsy_RealToFixed  fixed form of at most min(width, 16) characters, a leading "0" of a value
 *                    below 1 dropped (".5", "-.5"); `mode` not 0 drops trailing zeros, `mode` 2
 *                    writes an empty text for 0.0, any other mode "0.". `fail` is set when the
 *                    magnitude lies outside 1e-4 to 1e10 or no point fits the width.
 *   vsy_RealToField  the shorter of both forms in a field of `width` columns: with `mode` 0 the
 *                    fixed form whenever it does not fail.
 *
 * Infinities and NaN: the fixed form fails for them (its text is the runtime's "inf", "-inf" or
 * "nan") and the exponent form writes " INF", "-INF" or " NAN" (lower case with `upper` 0), a
 * sign or blank first like every exponent text. A deck cannot hold them; the text only makes
 * the fault visible.
 */
#ifndef VSY_REALTEXT_H
#define VSY_REALTEXT_H

/* Smallest size of the `out` buffer of the routines below. */
#define VSY_REALTEXT_LEN 32

void vsy_RealToExp(double value, int width, int minexp, int upper, int mode, char* out);
/* vsy_RealToExp returning the length of the text, for writers that place it in a line. */
int vsy_RealToExpLen(double value, int width, int minexp, int upper, int mode, char* out);
void vsy_RealToFixed(double value, int width, int mode, char* out, int* fail);
void vsy_RealToField(double value, int width, int upper, int mode, char* out);

/* The conversions under the routines, exact and equal byte for byte to the C library's: the
 * "%23.15E" text of a finite value into buf (40 bytes), and the "%w.wf" text of a finite value
 * into buf of `size` bytes (empty when it does not fit). */
void vsy_RealText_Exp23(double value, char* buf);
void vsy_RealText_Fixed(double value, int w, char* buf, int size);

#endif
