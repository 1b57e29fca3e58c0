/* vis_UProp: the user values of a property object, addressed by negative parameter codes.
 *
 * Codes come in five blocks of one million: -1 to -1000000 integers, -1000001 to -2000000
 * doubles, -2000001 to -3000000 strings, -3000001 to -4000000 floats (held as doubles),
 * -4000001 to -5000000 double arrays with a dimension list. The index within a block counts
 * from the block's end nearest zero (-1, -1000001, ... are index 0), and must be below `num`,
 * the owner's "Number of user values". Each index has one slot that may hold a value of every
 * block at once.
 *
 * Stream form (vis_UPropStreamSave, version 1), one record of the codec of vis_ModelStream.h:
 * mark "VUPR"; version; num; the number of slots holding a value; per such slot in ascending
 * index: index, block mask (bit 0 integers ... bit 4 array), then per bit set in block order
 * the integer; the double; the string as its length without the end and its bytes; the float
 * (as a double); the array as ndim, the dims and their product of doubles; the checksum.
 */
#ifndef VIS_UPROP_H
#define VIS_UPROP_H

#include <cstdio>

#define VIS_UPROP_BLOCK 1000000
#define VIS_UPROP_LOWEST (-5 * VIS_UPROP_BLOCK)
#define VIS_UPROP_MAXDIM 8

typedef struct vis_UPropSlot {
    int set;                   /* one bit per block held, bit 0 integers */
    int ndim;                  /* dimension count of the array */
    int dims[VIS_UPROP_MAXDIM];/* dimension list of the array */
    char* string;              /* owned */
    int ivalue;                /* integer value */
    double dvalue;             /* double value */
    double fvalue;             /* float value, held as a double */
    double* array;             /* owned, product of dims values */
} vis_UPropSlot;

typedef struct vis_UProp {
    int ierr;             /* last error */
    int num;              /* user value slots */
    vis_UPropSlot* slots; /* num slots, owned */
} vis_UProp;

/* Creates an object without slots; null with "UProp" code 4 "Creation Failure". */
vis_UProp* vis_UPropNew(void);
void vis_UPropDelete(vis_UProp* up);
int vis_UPropError(vis_UProp* up);
/* Gives the object num slots, keeping the values of the first min(num, old) slots. num below
 * 0: code 1 "nument= %d"; a failed allocation: code 4 "nument= %d" and nothing changes. */
void vis_UPropDef(vis_UProp* up, int num);

/* Setters. A code outside its block's slots: code 2 "type= %d"; a code of another block than
 * the setter's: code 8 "Improper data type, type= %d"; a failed copy: code 4 "type= %d". */
void vis_UPropSetValuei(vis_UProp* up, int code, int value);
void vis_UPropSetValued(vis_UProp* up, int code, double value);
void vis_UPropSetValuef(vis_UProp* up, int code, float value);
void vis_UPropSetValuec(vis_UProp* up, int code, const char* value);
/* Stores an array of the product of dims values (ndim 1 to VIS_UPROP_MAXDIM, dims at least 1;
 * otherwise code 1 "nument= %d"). */
void vis_UPropSetArraydv(vis_UProp* up, int code, int ndim, const int* dims, const double* values);

/* Readers, with the same checks; a value never set leaves the destination untouched.
 * ValueDouble reads the double block and the array block, ValueFloat the float block. */
void vis_UPropValueFlag(vis_UProp* up, int code, int* flag);
void vis_UPropValueInteger(vis_UProp* up, int code, int* value);
void vis_UPropValueDouble(vis_UProp* up, int code, double* value);
void vis_UPropValueFloat(vis_UProp* up, int code, float* value);
void vis_UPropValueString(vis_UProp* up, int code, char* value);
void vis_UPropValueDims(vis_UProp* up, int code, int* ndim, int* dims);

/* Option of vis_UPropSetParami (and of the members' SetParami): the value is a code whose
 * value becomes unset; an unknown option is code 2 "type= %d". */
#define VIS_PROP_UNSET 2
void vis_UPropSetParami(vis_UProp* up, int type, int value);

/* Writes the values to a binary stream; a failed write is code 6 "Stream write". */
void vis_UPropStreamSave(vis_UProp* up, FILE* stream);
/* Replaces the values by those of a record written by vis_UPropStreamSave. A record that is
 * truncated, malformed or fails its checksum is code 12 (detail "Stream truncated", "Stream
 * mark", "Stream checksum", ...), a read failure code 6, a null stream code 5 "stream", a failed
 * allocation code 4; then the object keeps what it held. */
void vis_UPropStreamLoad(vis_UProp* up, FILE* stream);

struct vis_ModelStream;
/* The record of up (internal, for the members' streams). */
void vis_UProp_StreamPut(vis_UProp* up, struct vis_ModelStream* s);
/* A new object read from a record, or null once the stream has failed. */
vis_UProp* vis_UProp_StreamGet(struct vis_ModelStream* s);

/* Block of a code (0 integers ... 4 arrays) and index within it; -1 for a code outside. */
int vis_UProp_Block(int code);
int vis_UProp_Index(int code);

#endif
