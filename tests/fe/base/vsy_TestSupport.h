// Shared test support of the container suites: a recording report handler, a report capture
// through the output stream, and an allocator that fails on a chosen call.
#ifndef VSY_TESTSUPPORT_H
#define VSY_TESTSUPPORT_H

#include "vsy_Error.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace vsytest {

struct Report {
    std::string name;
    int code;
    std::string text;
};

inline std::vector<Report>& Reports()
{
    static std::vector<Report> reports;
    return reports;
}

inline void RecordReport(const char* name, int ierr, const char* text)
{
    Reports().push_back(Report{name ? name : "(null)", ierr, text ? text : "(null)"});
}

// Allocation counter: calls of the malloc and realloc slots are numbered from 1 after Arm();
// call number failAt fails, and with failAll every later call fails as well.
struct Alloc {
    long calls = 0;
    long failAt = 0;
    bool failAll = false;
    size_t failAbove = 0;  // when non-zero, requests of more bytes fail
    std::vector<size_t> sizes;  // every requested size, in order
};

inline Alloc& AllocState()
{
    static Alloc state;
    return state;
}

inline bool ShouldFail(size_t n)
{
    Alloc& a = AllocState();
    a.sizes.push_back(n);
    ++a.calls;
    if (a.failAt <= 0) return false;
    return a.calls == a.failAt || (a.failAll && a.calls > a.failAt);
}

inline bool TooLarge(size_t n)
{
    return AllocState().failAbove != 0 && n > AllocState().failAbove;
}

inline void* FailingMalloc(size_t n)
{
    return (ShouldFail(n) || TooLarge(n)) ? nullptr : std::malloc(n);
}

inline void* FailingRealloc(void* p, size_t n)
{
    return (ShouldFail(n) || TooLarge(n)) ? nullptr : std::realloc(p, n);
}

// Makes every request of more than `bytes` bytes fail, smaller ones succeed.
inline void FailAllocationsAbove(size_t bytes)
{
    AllocState() = Alloc{};
    AllocState().failAbove = bytes;
    vsy_SetMemoryFunctions(FailingMalloc, FailingRealloc, nullptr);
}

// Makes allocation call number `nth` from now fail (and every later one with `all`).
inline void FailAllocation(long nth, bool all = false)
{
    AllocState() = Alloc{};
    AllocState().failAt = nth;
    AllocState().failAll = all;
    vsy_SetMemoryFunctions(FailingMalloc, FailingRealloc, nullptr);
}

// Counts allocation calls without failing.
inline void CountAllocations()
{
    AllocState() = Alloc{};
    vsy_SetMemoryFunctions(FailingMalloc, FailingRealloc, nullptr);
}

inline void RestoreAllocation()
{
    vsy_SetMemoryFunctions(nullptr, nullptr, nullptr);
    AllocState() = Alloc{};
}

// Runs fn with the default report printing to a temporary file and returns the bytes written.
template <class Fn>
std::string CaptureReport(Fn fn)
{
    FILE* tmp = std::tmpfile();
    vsy_ErrorHandlerFunc saved = vsy_ErrorHandler;
    vsy_SetErrorHandler(nullptr);
    vsy_ErrorSetStream(tmp);
    fn();
    vsy_ErrorSetStream(nullptr);
    vsy_SetErrorHandler(saved);
    std::string out;
    std::rewind(tmp);
    for (int c; (c = std::fgetc(tmp)) != EOF;) out.push_back(static_cast<char>(c));
    std::fclose(tmp);
    return out;
}

// The exact bytes vsy_ErrorPrint writes for one report.
inline std::string Printed(const std::string& name, int code, const std::string& text)
{
    std::string out = "\n" + name + ": ierr= " + std::to_string(code) + "\n";
    if (code >= 1 && code <= SYS_ERROR_MAX) out += std::string(vsy_ErrorText(code)) + "\n";
    if (!text.empty()) out += text + "\n";
    return out;
}

// Base fixture: records every report, and restores the handler, the stream and the memory
// slots after each test.
class ContainerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        Reports().clear();
        vsy_SetErrorHandler(RecordReport);
    }
    void TearDown() override
    {
        RestoreAllocation();
        vsy_SetErrorHandler(nullptr);
        vsy_ErrorSetStream(nullptr);
        Reports().clear();
    }
    static const std::vector<Report>& reports() { return Reports(); }
    static void ExpectOnlyReport(const std::string& name, int code, const std::string& text)
    {
        ASSERT_EQ(Reports().size(), 1u);
        EXPECT_EQ(Reports()[0].name, name);
        EXPECT_EQ(Reports()[0].code, code);
        EXPECT_EQ(Reports()[0].text, text);
    }
    static void ExpectNoReport() { EXPECT_TRUE(Reports().empty()) << Reports()[0].name << " " << Reports()[0].text; }
};

// Small deterministic generator for the differential tests (same sequence everywhere).
struct Rng {
    unsigned long long s;
    explicit Rng(unsigned long long seed) : s(seed * 0x9E3779B97F4A7C15ULL + 1) {}
    unsigned next()
    {
        s ^= s << 13;
        s ^= s >> 7;
        s ^= s << 17;
        return static_cast<unsigned>(s >> 11);
    }
    int below(int n) { return static_cast<int>(next() % static_cast<unsigned>(n)); }
};

}  // namespace vsytest

#endif
