// Byte-level helpers of the stream tests: the bytes a save wrote, a stream that reads given
// bytes, and a reference CRC-32 to check the documented record layout.
#ifndef STREAMBYTES_H
#define STREAMBYTES_H

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

}  // namespace streamtest

#endif
