// The error report: exact bytes of vsy_ErrorPrint, the handler slot and the memory slots.
#include "vsy_Error.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <cstring>
#include <algorithm>

namespace {

// Runs fn with the report stream redirected to a temporary file and returns what was written.
template <class Fn>
std::string CaptureReport(Fn fn)
{
    FILE* tmp = std::tmpfile();
    vsy_ErrorSetStream(tmp);
    fn();
    vsy_ErrorSetStream(nullptr);
    std::string out;
    std::rewind(tmp);
    for (int c; (c = std::fgetc(tmp)) != EOF;) out.push_back(static_cast<char>(c));
    std::fclose(tmp);
    return out;
}

std::string g_name;
int g_code = -1;
std::string g_text;
void Recorder(const char* name, int ierr, const char* text)
{
    g_name = name ? name : "(null)";
    g_code = ierr;
    g_text = text;
}

int g_mallocs = 0;
void* CountingMalloc(size_t n)
{
    ++g_mallocs;
    return std::malloc(n);
}

}  // namespace

TEST(vsyError, PrintCodeZeroNullNameEmptyTextIsOneLineFeed)
{
    EXPECT_EQ(CaptureReport([] { vsy_ErrorPrint(nullptr, 0, ""); }), "\n");
}

TEST(vsyError, PrintWithTableTextAndDetail)
{
    EXPECT_EQ(CaptureReport([] { vsy_ErrorPrint("vsy_IntVecSet", 1, "index= 7"); }),
              "\nvsy_IntVecSet: ierr= 1\n"
              "SYS_ERROR_VALUE       Argument with an improper value\n"
              "index= 7\n");
}

TEST(vsyError, PrintCodeZeroWithNameHasNoTableLine)
{
    EXPECT_EQ(CaptureReport([] { vsy_ErrorPrint("x", 0, ""); }), "\nx: ierr= 0\n");
}

TEST(vsyError, PrintCodeOutsideTableHasNameAndTextOnly)
{
    EXPECT_EQ(CaptureReport([] { vsy_ErrorPrint("HashTable", 14, "detail"); }),
              "\nHashTable: ierr= 14\ndetail\n");
    EXPECT_EQ(CaptureReport([] { vsy_ErrorPrint("HashTable", -1, ""); }), "\nHashTable: ierr= -1\n");
}

TEST(vsyError, EveryTableTextIsExact)
{
    const char* expected[] = {
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
    for (int i = 0; i <= SYS_ERROR_MAX; ++i) EXPECT_STREQ(vsy_ErrorText(i), expected[i]) << i;
    EXPECT_EQ(vsy_ErrorText(14), nullptr);
    EXPECT_EQ(vsy_ErrorText(-1), nullptr);
    for (int i = 1; i <= SYS_ERROR_MAX; ++i) {
        std::string want = "\nf: ierr= " + std::to_string(i) + "\n" + expected[i] + "\n";
        EXPECT_EQ(CaptureReport([i] { vsy_ErrorPrint("f", i, ""); }), want);
    }
}

TEST(vsyError, MessageAndNumberGoThroughTheHandlerSlot)
{
    vsy_SetErrorHandler(Recorder);
    vsy_ErrorMessage("vis_ConnectElemNode", 1, "id= 0");
    EXPECT_EQ(g_name, "vis_ConnectElemNode");
    EXPECT_EQ(g_code, 1);
    EXPECT_EQ(g_text, "id= 0");
    vsy_ErrorNumber("vsy_IntVec_Expand", 4);
    EXPECT_EQ(g_name, "vsy_IntVec_Expand");
    EXPECT_EQ(g_code, 4);
    EXPECT_EQ(g_text, "");
    vsy_SetErrorHandler(nullptr);
    EXPECT_EQ(vsy_ErrorHandler, &vsy_ErrorPrint);
}

TEST(vsyError, DefaultStreamIsNull)
{
    EXPECT_EQ(vsy_ErrorStream(), nullptr);
}

TEST(vsyError, FormatNeverOverrunsItsBuffer)
{
    std::string longName(5000, 'n');
    char buf[VSY_ERROR_TEXTLEN + 16];
    std::fill(buf, buf + sizeof buf, '#');
    vsy_ErrorFormat(buf, "name= %s", longName.c_str());
    EXPECT_EQ(std::strlen(buf), static_cast<size_t>(VSY_ERROR_TEXTLEN - 1));
    EXPECT_EQ(buf[VSY_ERROR_TEXTLEN], '#');
    vsy_ErrorFormat(buf, "key= %d, value= %d", 3, -4);
    EXPECT_STREQ(buf, "key= 3, value= -4");
}

TEST(vsyError, ReallocOfNullAllocatesThroughTheMallocSlot)
{
    g_mallocs = 0;
    vsy_SetMemoryFunctions(CountingMalloc, nullptr, nullptr);
    void* p = vsy_Realloc(nullptr, 32);
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(g_mallocs, 1);
    std::memset(p, 0, 32);
    p = vsy_Realloc(p, 64);
    EXPECT_EQ(g_mallocs, 1);
    vsy_Free(p);
    vsy_SetMemoryFunctions(nullptr, nullptr, nullptr);
    void* q = vsy_Malloc(8);
    EXPECT_EQ(g_mallocs, 1);
    vsy_Free(q);
}
