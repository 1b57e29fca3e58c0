/* vis_ModelStream: the binary stream codec of the model objects that save and load themselves
 * (the property family, user values, contact pairs).
 *
 * Byte order and widths are fixed whatever the machine: an integer is 4 bytes, two's
 * complement, least significant byte first; a double is the 8 bytes of its IEEE 754 binary64
 * pattern, least significant first; a mark is 4 ASCII bytes. A stream is a sequence of
 * records; each record starts with its mark and ends with the CRC-32 (polynomial 0xEDB88320,
 * as in zip) of all its bytes before the checksum, written as an integer.
 *
 * A failure is sticky, as the codec of a reader must be: the first one is kept with its code
 * and detail text, and every later put or get does nothing. A get that fails leaves its
 * destination unwritten. Codes: 6 for a stream that cannot be read or written, 12 for a
 * truncated or malformed record, 4 for a failed allocation. Arrays are read in pieces of at
 * most 64 KiB, so a corrupt count can make a load fail but never makes it allocate more than
 * 64 KiB beyond the bytes the stream really holds.
 */
#ifndef VIS_MODELSTREAM_H
#define VIS_MODELSTREAM_H

#include "vsy_Error.h"

#include <cstdio>

typedef struct vis_ModelStream {
    int ierr;                      /* first failure, 0 while none */
    FILE* file;                    /* not owned */
    unsigned int crc;              /* running CRC-32 of the current record, pre-inverted */
    char text[VSY_ERROR_TEXTLEN];  /* its detail */
} vis_ModelStream;

/* Starts work on a stream (a null file fails at once with code 5 "stream"). */
void vis_ModelStream_Begin(vis_ModelStream* s, FILE* file);
/* Records the first failure; later ones are dropped. */
void vis_ModelStream_Fail(vis_ModelStream* s, int code, const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 3, 4)))
#endif
    ;
/* Reports the failure, if any, into *ierr under `name`; 1 when the stream is clean. */
int vis_ModelStream_Report(vis_ModelStream* s, int* ierr, const char* name);

/* Writing. Mark starts a record (resetting the checksum), End writes the checksum. */
void vis_ModelStream_PutMark(vis_ModelStream* s, const char* mark);
void vis_ModelStream_PutInt(vis_ModelStream* s, int value);
void vis_ModelStream_PutInts(vis_ModelStream* s, int n, const int* values);
void vis_ModelStream_PutDoubles(vis_ModelStream* s, int n, const double* values);
void vis_ModelStream_PutBytes(vis_ModelStream* s, int n, const void* bytes);
void vis_ModelStream_PutEnd(vis_ModelStream* s);

/* Reading. GetMark fails with 12 "Stream mark" unless the next 4 bytes are `mark`;
 * GetVersion fails with 12 "Stream version= %d" unless the next integer is 1 to `newest`. */
void vis_ModelStream_GetMark(vis_ModelStream* s, const char* mark);
void vis_ModelStream_GetVersion(vis_ModelStream* s, int newest);
void vis_ModelStream_GetInt(vis_ModelStream* s, int* value);
void vis_ModelStream_GetDouble(vis_ModelStream* s, double* value);
/* An integer that must lie in lo to hi, else 12 with "<what>= %d". */
void vis_ModelStream_GetIntIn(vis_ModelStream* s, int* value, int lo, int hi, const char* what);
/* New arrays through vsy_Malloc of n (at least 0) values; *out stays null on failure and is
 * the caller's on success (a buffer of one value for n 0). */
void vis_ModelStream_GetInts(vis_ModelStream* s, int n, int** out);
void vis_ModelStream_GetDoubles(vis_ModelStream* s, int n, double** out);
/* Bytes gain an end after the n read. */
void vis_ModelStream_GetBytes(vis_ModelStream* s, int n, char** out);
/* Reads the checksum and fails with 12 "Stream checksum" when it differs. */
void vis_ModelStream_GetEnd(vis_ModelStream* s);

#endif
