// Byte-level helpers of the stream tests: the bytes a save wrote, a stream that reads given
// bytes, and a reference CRC-32 to check the documented record layout.
#ifndef STREAMBYTES_H
#define STREAMBYTES_H

#include "vsy_TestSupport.h"

#include <cstdint>
#include <cstdio>
#include <vector>

namespace streamtest {

using Bytes = std::vector<unsigned char>;

// A scratch binary stream, closed on scope exit.
struct Stream {
    FILE* f = std::tmpfile();
    ~Stream()
    {
        if (f) std::fclose(f);
    }
};

// The bytes `save(f)` writes into a fresh stream.
template <class Save>
Bytes SavedBytes(Save save)
{
    Stream s;
    save(s.f);
    std::fflush(s.f);
    long n = std::ftell(s.f);
    Bytes b(n > 0 ? (size_t)n : 0);
    std::rewind(s.f);
    if (!b.empty() && std::fread(b.data(), 1, b.size(), s.f) != b.size()) b.clear();
    return b;
}

// Rewinds a stream that holds exactly `b`.
inline void Fill(Stream& s, const Bytes& b)
{
    if (!b.empty()) std::fwrite(b.data(), 1, b.size(), s.f);
    std::rewind(s.f);
}

// CRC-32 of zip (reflected, polynomial 0xEDB88320), written independently of the codec.
inline uint32_t Crc32(const unsigned char* p, size_t n)
{
    uint32_t crc = 0xFFFFFFFFu;
    for (size_t i = 0; i < n; ++i) {
        crc ^= p[i];
        for (int k = 0; k < 8; ++k) crc = (crc & 1u) ? (crc >> 1) ^ 0xEDB88320u : crc >> 1;
    }
    return crc ^ 0xFFFFFFFFu;
}

// A 32-bit little-endian integer at byte i.
inline uint32_t Le32(const Bytes& b, size_t i)
{
    return (uint32_t)b[i] | (uint32_t)b[i + 1] << 8 | (uint32_t)b[i + 2] << 16 | (uint32_t)b[i + 3] << 24;
}

// Runs `run` once counting its allocations, then once per allocation with that one failing:
// `reset` before each failing run, then the last report must be `name` with code 4 and
// `check(k)` runs. Returns the number of allocations of a clean run.
template <class Reset, class Run, class Check>
long FailEachAllocation(const char* name, Reset reset, Run run, Check check)
{
    using namespace vsytest;
    CountAllocations();
    run();
    long total = AllocState().calls;
    RestoreAllocation();
    for (long k = 1; k <= total; ++k) {
        reset();
        Reports().clear();
        FailAllocation(k);
        run();
        RestoreAllocation();
        EXPECT_FALSE(Reports().empty()) << k;
        if (Reports().empty()) continue;
        EXPECT_EQ(Reports().back().name, name) << k;
        EXPECT_EQ(Reports().back().code, SYS_ERROR_MEMORY) << k;
        check(k);
    }
    return total;
}

}  // namespace streamtest

#endif
