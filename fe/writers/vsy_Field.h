/* vsy_Field: real and integer fields of the fixed-column cards (8 columns small, 16 large).
 *
 * A real field holds vsy_RealToField(value, width, 1, 1) right-aligned: a text shorter than
 * width - 1 stands in width - 1 columns with a blank behind it ("     0. "), a longer one fills
 * the width. A row of fields may start with `nempty` empty fields (blanks) and end in "\n".
 */
#ifndef VSY_FIELD_H
#define VSY_FIELD_H

#include <cstdio>

/* Widths of a small and a large field. */
#define VSY_FIELD_SMALL 8
#define VSY_FIELD_LARGE 16

/* Writes the "%8d" or "%16d" text of an integer (wider when it does not fit) at `out`, with no
 * terminator, and returns the number of characters: at most 11 beyond the width. */
int vsy_FieldIntText(int value, int width, char* out);
/* The field text of one real: 8 or 16 characters, NUL-terminated; `field` holds 32 bytes. */
void vsy_FieldRealText(double value, int width, char* field);
/* Writes nempty empty fields, then n real fields, then "\n" when newline is not 0. */
void vsy_FieldSmall(FILE* fp, int nempty, int n, const double* values, int newline);
void vsy_FieldLarge(FILE* fp, int nempty, int n, const double* values, int newline);
/* The same with integer fields ("%8d", "%16d"). */
void vsy_FieldSmallInt(FILE* fp, int nempty, int n, const int* values, int newline);
void vsy_FieldLargeInt(FILE* fp, int nempty, int n, const int* values, int newline);

#endif
