/* vsy_RedPre: packs float or double values into 8 or 16 bits within a known range.
 *
 * Precision codes (shared with vis_Connect and vis_State):
 *
 *   SYS_PRECISION_FLOAT     2   32-bit float (stored as is)
 *   SYS_PRECISION_BYTE      3   unsigned 8-bit code over min..max
 *   SYS_PRECISION_DOUBLE    4   64-bit float (stored as is)
 *   SYS_PRECISION_SHORT     9   unsigned 16-bit code over min..max
 *   SYS_PRECISION_HALF     11   16-bit float with a 5-bit exponent field
 *   SYS_PRECISION_UNITBYTE 12   unsigned 8-bit code over the fixed range -1..1
 *
 * The verbs read from the store's side: Load packs values into the compact array, Store
 * unpacks the compact array into values.
 *
 * Invariant: `type` is above 0 only when the store can pack: after vsy_RedPreDef with codes 2,
 * 4, 11 or 12, and for codes 3 and 9 only once vsy_RedPreExtent has given the range too (either
 * call may come first). `scale` is the number of codes per unit of value: 255 / (max - min) for
 * code 3, 65535 / (max - min) for code 9, 127.5 for code 12, 0 when max equals min.
 *
 * Packing codes 3, 9, 12: v = (a - min) * scale (code 12: (a + 1) * scale), the code is the
 * integer part of v, raised by one when the fraction is at least 0.5 (wrapping at the code
 * width). A value outside the range is error 9 "a[%d]= %e\n" and the loop goes on: code 9 then
 * stores code 0, while codes 3 and 12 leave the code unwritten and set the caller's value to 0.
 *
 * Packing code 11: b are the raw bits of the float. b equal to 255 (the raw number, not a NaN
 * test; kept as it stands) is error 1 "Nan detected\n" and stops the whole call. b 0 and
 * exponents below -14 give code 0; exponents above 15 are error 9 with code 0. Else the code is
 * the sign in bit 15, the exponent field (biased exponent - 112) in bits 10 to 14 and the top
 * ten fraction bits: the fraction is truncated, not rounded.
 *
 * Unpacking: codes 3 and 9 give code / scale + min, code 12 code / scale - 1, code 11 the exact
 * binary16 value of the code (0 gives 0.0), so that a packed value reads back to within one
 * unit of the last fraction bit.
 *
 * The double variants narrow each value to float and pack one value at a time; a failure
 * stops their loop. Every operation needs `type` above 0, else error 8 "Def not called or
 * extent not set" under the calling operation's name.
 */
#ifndef VSY_REDPRE_H
#define VSY_REDPRE_H

#define SYS_PRECISION_FLOAT 2
#define SYS_PRECISION_BYTE 3
#define SYS_PRECISION_DOUBLE 4
#define SYS_PRECISION_SHORT 9
#define SYS_PRECISION_HALF 11
#define SYS_PRECISION_UNITBYTE 12

typedef struct vsy_RedPre {
    int ierr;      /* last error */
    int type;      /* precision code, 0 or below while not defined */
    double min;    /* range of codes 3 and 9 */
    double max;
    double spare;  /* reserved */
    double scale;  /* codes per unit of value */
    int deftype;   /* the code given to Def, 0 before */
    int extset;    /* 1 once Extent gave a range */
} vsy_RedPre;

/* Creates an undefined store; null with "RedPre" code 4 "Creation Failure" on failure. */
vsy_RedPre* vsy_RedPreNew(void);
void vsy_RedPreDelete(vsy_RedPre* red);
/* Returns the last error and clears it. */
int vsy_RedPreError(vsy_RedPre* red);
/* Selects the precision code; a code not in the table is error 2 "type= %d". */
void vsy_RedPreDef(vsy_RedPre* red, int type);
/* Gives the value range of codes 3 and 9 (ignored by the fixed-range codes). min above max, or
 * a range that is not finite, is error 1 "iparam= %d" with 0 and changes nothing. */
void vsy_RedPreExtent(vsy_RedPre* red, double min, double max);
/* Bytes one packed value takes: 1, 2, 4 or 8; 0 while undefined. */
int vsy_RedPreSize(vsy_RedPre* red);

void vsy_RedPreLoad(vsy_RedPre* red, int n, float* values, void* compact);
void vsy_RedPreLoaddv(vsy_RedPre* red, int n, double* values, void* compact);
void vsy_RedPreStore(vsy_RedPre* red, int n, const void* compact, float* values);
void vsy_RedPreStoredv(vsy_RedPre* red, int n, const void* compact, double* values);

#endif
