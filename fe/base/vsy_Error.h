/* vsy_Error: the error vocabulary, the report and the replaceable process-wide slots of the
 * finite element half.
 *
 * Every object of the finite element half is a record whose first field is `int ierr`. An
 * operation that fails stores a code from the table below in `ierr`, formats a detail text and
 * reports through vsy_ErrorMessage; it never aborts and leaves the object usable.
 * <Object>Error reads the code and clears it, so each failure is seen by one poll only.
 *
 * Process-wide state is limited to the slots below: the report handler, the output stream and
 * the three memory functions. A program sets them before it uses the library, if at all.
 */
#ifndef VSY_ERROR_H
#define VSY_ERROR_H

#include <cstddef>
#include <cstdio>

#define SYS_ERROR_NONE 0
#define SYS_ERROR_VALUE 1
#define SYS_ERROR_ENUM 2
#define SYS_ERROR_OBJECTTYPE 3
#define SYS_ERROR_MEMORY 4
#define SYS_ERROR_NULLOBJECT 5
#define SYS_ERROR_FILE 6
#define SYS_ERROR_COMPUTE 7
#define SYS_ERROR_OPERATION 8
#define SYS_ERROR_OVERFLOW 9
#define SYS_ERROR_UNDERFLOW 10
#define SYS_ERROR_UNKNOWN 11
#define SYS_ERROR_FORMAT 12
#define SYS_ERROR_SEVERE 13
#define SYS_ERROR_MAX 13

/* Size of the local buffer in which an operation formats its detail text. */
#define VSY_ERROR_TEXTLEN 1024

typedef void (*vsy_ErrorHandlerFunc)(const char* name, int ierr, const char* text);
typedef void* (*vsy_MallocFunc)(size_t size);
typedef void* (*vsy_ReallocFunc)(void* ptr, size_t size);
typedef void (*vsy_FreeFunc)(void* ptr);

/* The report handler; initially vsy_ErrorPrint. The library reads it and never writes it. */
extern vsy_ErrorHandlerFunc vsy_ErrorHandler;

/* Reports one failure: forwards name, code and detail text to vsy_ErrorHandler. */
void vsy_ErrorMessage(const char* name, int ierr, const char* text);
/* The same with an empty detail text. */
void vsy_ErrorNumber(const char* name, int ierr);
/* The default report: "\n", then "%s: ierr= %d\n" when name is not null, the table text of
 * codes 1 to 13, and the detail text when it is not empty; all to vsy_ErrorStream(). */
void vsy_ErrorPrint(const char* name, int ierr, const char* text);
/* The table text of a code, or null for a code outside 0 to 13. */
const char* vsy_ErrorText(int ierr);

/* The report stream: null (the default) means standard output. */
FILE* vsy_ErrorStream(void);
void vsy_ErrorSetStream(FILE* stream);

/* Records a failure in an object: stores `code` in *ierr, formats the detail text through the
 * bounded buffer and reports it with vsy_ErrorMessage. The one path of every object's reports. */
void vsy_ErrorRecord(int* ierr, const char* name, int code, const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 4, 5)))
#endif
    ;

/* Formats a detail text into buf (VSY_ERROR_TEXTLEN bytes), truncating, never overrunning. */
void vsy_ErrorFormat(char* buf, const char* format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    ;

/* Memory: the only way the library obtains memory. The slots start as malloc, realloc, free. */
void* vsy_Malloc(size_t size);
void* vsy_Realloc(void* ptr, size_t size);
void vsy_Free(void* ptr);
/* Replaces the memory slots; a null argument restores the runtime's function. */
void vsy_SetMemoryFunctions(vsy_MallocFunc m, vsy_ReallocFunc r, vsy_FreeFunc f);
/* Replaces the report handler; null restores vsy_ErrorPrint. */
void vsy_SetErrorHandler(vsy_ErrorHandlerFunc handler);

#endif
