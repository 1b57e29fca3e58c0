/* vsy_Error: the error table, the default report and the process-wide slots. */
#include "vsy_Error.h"

#include <cstdarg>
#include <cstdlib>

static const char* const vsy_ErrorTable[SYS_ERROR_MAX + 1] = {
    "SYS_ERROR_NONE        No error recorded.  This value is zero",
    "SYS_ERROR_VALUE       Argument with an improper value",
    "SYS_ERROR_ENUM        Argument is not a valid option",
    "SYS_ERROR_OBJECTTYPE  Argument is not a valid object type",
    "SYS_ERROR_MEMORY      Memory allocation failure",
    "SYS_ERROR_NULLOBJECT  A NULL object pointer has been encountered",
    "SYS_ERROR_FILE        File access failure",
    "SYS_ERROR_COMPUTE     A compute error has occurred",
    "SYS_ERROR_OPERATION   An operation failed in current state",
    "SYS_ERROR_OVERFLOW    A data structure overflow has occurred",
    "SYS_ERROR_UNDERFLOW   A data structure underflow has occurred",
    "SYS_ERROR_UNKNOWN     An error of unknown type has occurred",
    "SYS_ERROR_FORMAT      Improper or incomplete file format",
    "SYS_ERROR_SEVERE      Severe internal error has occurred",
};

vsy_ErrorHandlerFunc vsy_ErrorHandler = vsy_ErrorPrint;

static FILE* vsy_ErrorOut = nullptr;
static vsy_MallocFunc vsy_MallocSlot = std::malloc;
static vsy_ReallocFunc vsy_ReallocSlot = std::realloc;
static vsy_FreeFunc vsy_FreeSlot = std::free;

void vsy_ErrorMessage(const char* name, int ierr, const char* text)
{
    vsy_ErrorHandler(name, ierr, text);
}

void vsy_ErrorNumber(const char* name, int ierr)
{
    vsy_ErrorHandler(name, ierr, "");
}

const char* vsy_ErrorText(int ierr)
{
    if (ierr < 0 || ierr > SYS_ERROR_MAX) return nullptr;
    return vsy_ErrorTable[ierr];
}

void vsy_ErrorPrint(const char* name, int ierr, const char* text)
{
    FILE* out = vsy_ErrorOut ? vsy_ErrorOut : stdout;
    std::fputs("\n", out);
    if (name) std::fprintf(out, "%s: ierr= %d\n", name, ierr);
    /* Code 0 says "no error": only codes 1 to 13 print their table line. */
    if (ierr >= 1 && ierr <= SYS_ERROR_MAX) std::fprintf(out, "%s\n", vsy_ErrorTable[ierr]);
    if (text && text[0]) std::fprintf(out, "%s\n", text);
}

FILE* vsy_ErrorStream(void)
{
    return vsy_ErrorOut;
}

void vsy_ErrorSetStream(FILE* stream)
{
    vsy_ErrorOut = stream;
}

void vsy_ErrorFormat(char* buf, const char* format, ...)
{
    va_list ap;
    va_start(ap, format);
    /* vsnprintf truncates and terminates, so an unbounded name cannot overrun the buffer. */
    std::vsnprintf(buf, VSY_ERROR_TEXTLEN, format, ap);
    va_end(ap);
}

void vsy_ErrorRecord(int* ierr, const char* name, int code, const char* format, ...)
{
    char text[VSY_ERROR_TEXTLEN];
    va_list ap;
    va_start(ap, format);
    std::vsnprintf(text, VSY_ERROR_TEXTLEN, format, ap);
    va_end(ap);
    if (ierr) *ierr = code;
    vsy_ErrorMessage(name, code, text);
}

void* vsy_Malloc(size_t size)
{
    return vsy_MallocSlot(size);
}

void* vsy_Realloc(void* ptr, size_t size)
{
    if (!ptr) return vsy_MallocSlot(size);
    return vsy_ReallocSlot(ptr, size);
}

void vsy_Free(void* ptr)
{
    vsy_FreeSlot(ptr);
}

void vsy_SetMemoryFunctions(vsy_MallocFunc m, vsy_ReallocFunc r, vsy_FreeFunc f)
{
    vsy_MallocSlot = m ? m : std::malloc;
    vsy_ReallocSlot = r ? r : std::realloc;
    vsy_FreeSlot = f ? f : std::free;
}

void vsy_SetErrorHandler(vsy_ErrorHandlerFunc handler)
{
    vsy_ErrorHandler = handler ? handler : vsy_ErrorPrint;
}
