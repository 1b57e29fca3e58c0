/* vis_ModelStream: the binary stream codec of the model objects; see vis_ModelStream.h. */
#include "vis_ModelStream.h"

#include <climits>
#include <cstdarg>
#include <cstdint>
#include <cstring>

static_assert(sizeof(int) == 4 && sizeof(double) == 8, "the stream codec needs 32-bit int and 64-bit double");

/* Largest piece an array read allocates ahead of the bytes it has seen. */
#define VIS_MODELSTREAM_PIECE 65536

static unsigned int vis_ModelStream_Crc(unsigned int crc, const unsigned char* p, size_t n)
{
    for (size_t i = 0; i < n; ++i) {
        crc ^= p[i];
        for (int k = 0; k < 8; ++k) crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
    }
    return crc;
}

void vis_ModelStream_Begin(vis_ModelStream* s, FILE* file)
{
    s->file = file;
    s->crc = 0xFFFFFFFFu;
    s->ierr = 0;
    s->text[0] = '\0';
    if (!file) vis_ModelStream_Fail(s, SYS_ERROR_NULLOBJECT, "stream");
}

void vis_ModelStream_Fail(vis_ModelStream* s, int code, const char* format, ...)
{
    if (s->ierr) return;
    s->ierr = code;
    va_list ap;
    va_start(ap, format);
    std::vsnprintf(s->text, sizeof(s->text), format, ap);
    va_end(ap);
}

int vis_ModelStream_Report(vis_ModelStream* s, int* ierr, const char* name)
{
    if (!s->ierr) return 1;
    vsy_ErrorRecord(ierr, name, s->ierr, "%s", s->text);
    return 0;
}

/* ---- writing ---- */

static void vis_ModelStream_Write(vis_ModelStream* s, const void* bytes, size_t n)
{
    if (s->ierr || n == 0) return;
    if (std::fwrite(bytes, 1, n, s->file) != n) {
        vis_ModelStream_Fail(s, SYS_ERROR_FILE, "Stream write");
        return;
    }
    s->crc = vis_ModelStream_Crc(s->crc, (const unsigned char*)bytes, n);
}

static void vis_ModelStream_Encode(uint64_t v, int width, unsigned char* out)
{
    for (int i = 0; i < width; ++i) out[i] = (unsigned char)(v >> (8 * i));
}

void vis_ModelStream_PutMark(vis_ModelStream* s, const char* mark)
{
    s->crc = 0xFFFFFFFFu;
    vis_ModelStream_Write(s, mark, 4);
}

void vis_ModelStream_PutInt(vis_ModelStream* s, int value)
{
    vis_ModelStream_PutInts(s, 1, &value);
}

void vis_ModelStream_PutInts(vis_ModelStream* s, int n, const int* values)
{
    for (int i = 0; i < n; ++i) {
        unsigned char b[4];
        vis_ModelStream_Encode((uint32_t)values[i], 4, b);
        vis_ModelStream_Write(s, b, 4);
    }
}

void vis_ModelStream_PutDoubles(vis_ModelStream* s, int n, const double* values)
{
    for (int i = 0; i < n; ++i) {
        uint64_t bits;
        unsigned char b[8];
        std::memcpy(&bits, &values[i], 8);
        vis_ModelStream_Encode(bits, 8, b);
        vis_ModelStream_Write(s, b, 8);
    }
}

void vis_ModelStream_PutBytes(vis_ModelStream* s, int n, const void* bytes)
{
    vis_ModelStream_Write(s, bytes, (size_t)(n > 0 ? n : 0));
}

void vis_ModelStream_PutEnd(vis_ModelStream* s)
{
    vis_ModelStream_PutInt(s, (int)(s->crc ^ 0xFFFFFFFFu));
    if (!s->ierr && std::fflush(s->file) != 0) vis_ModelStream_Fail(s, SYS_ERROR_FILE, "Stream write");
}

/* ---- reading ---- */

/* Reads exactly n bytes into out; 0 after recording the failure. */
static int vis_ModelStream_Read(vis_ModelStream* s, void* out, size_t n)
{
    if (s->ierr) return 0;
    if (std::fread(out, 1, n, s->file) != n) {
        if (std::ferror(s->file)) vis_ModelStream_Fail(s, SYS_ERROR_FILE, "Stream read");
        else vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "Stream truncated");
        return 0;
    }
    s->crc = vis_ModelStream_Crc(s->crc, (const unsigned char*)out, n);
    return 1;
}

static uint64_t vis_ModelStream_Decode(const unsigned char* b, int width)
{
    uint64_t v = 0;
    for (int i = width - 1; i >= 0; --i) v = (v << 8) | b[i];
    return v;
}

void vis_ModelStream_GetMark(vis_ModelStream* s, const char* mark)
{
    char got[4];
    s->crc = 0xFFFFFFFFu;
    if (vis_ModelStream_Read(s, got, 4) && std::memcmp(got, mark, 4) != 0)
        vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "Stream mark");
}

void vis_ModelStream_GetInt(vis_ModelStream* s, int* value)
{
    unsigned char b[4];
    if (vis_ModelStream_Read(s, b, 4)) *value = (int)(uint32_t)vis_ModelStream_Decode(b, 4);
}

void vis_ModelStream_GetIntIn(vis_ModelStream* s, int* value, int lo, int hi, const char* what)
{
    int v = 0;
    vis_ModelStream_GetInt(s, &v);
    if (s->ierr) return;
    if (v < lo || v > hi) vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "%s= %d", what, v);
    else *value = v;
}

void vis_ModelStream_GetDouble(vis_ModelStream* s, double* value)
{
    unsigned char b[8];
    if (!vis_ModelStream_Read(s, b, 8)) return;
    uint64_t x = vis_ModelStream_Decode(b, 8);
    std::memcpy(value, &x, 8);
}

void vis_ModelStream_GetVersion(vis_ModelStream* s, int newest)
{
    int version = 0;
    vis_ModelStream_GetIntIn(s, &version, 1, newest, "Stream version");
}

/* A new buffer holding the next n values of `width` bytes as they stand in the stream, read in
 * pieces so that the buffer grows only with bytes really read; null after a failure. */
static unsigned char* vis_ModelStream_GetRaw(vis_ModelStream* s, int n, size_t width, size_t spare)
{
    if (s->ierr) return nullptr;
    if (n < 0) {
        vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "Stream count= %d", n);
        return nullptr;
    }
    size_t total = (size_t)n * width, done = 0;
    unsigned char* buf = (unsigned char*)vsy_Malloc(width + spare);
    while (buf && done < total) {
        size_t piece = total - done < VIS_MODELSTREAM_PIECE ? total - done : VIS_MODELSTREAM_PIECE;
        unsigned char* grown = (unsigned char*)vsy_Realloc(buf, done + piece + spare);
        if (!grown) break;
        buf = grown;
        if (!vis_ModelStream_Read(s, buf + done, piece)) {
            vsy_Free(buf);
            return nullptr;
        }
        done += piece;
    }
    if (!buf || done < total) {
        vsy_Free(buf);
        vis_ModelStream_Fail(s, SYS_ERROR_MEMORY, "Malloc vec");
        return nullptr;
    }
    return buf;
}

void vis_ModelStream_GetInts(vis_ModelStream* s, int n, int** out)
{
    unsigned char* buf = vis_ModelStream_GetRaw(s, n, 4, 0);
    if (!buf) return;
    int* v = (int*)(void*)buf;
    for (int i = 0; i < n; ++i) {
        uint32_t x = (uint32_t)vis_ModelStream_Decode(buf + 4 * (size_t)i, 4);
        std::memcpy(&v[i], &x, 4);
    }
    *out = v;
}

void vis_ModelStream_GetDoubles(vis_ModelStream* s, int n, double** out)
{
    unsigned char* buf = vis_ModelStream_GetRaw(s, n, 8, 0);
    if (!buf) return;
    double* v = (double*)(void*)buf;
    for (int i = 0; i < n; ++i) {
        uint64_t x = vis_ModelStream_Decode(buf + 8 * (size_t)i, 8);
        std::memcpy(&v[i], &x, 8);
    }
    *out = v;
}

void vis_ModelStream_GetBytes(vis_ModelStream* s, int n, char** out)
{
    unsigned char* buf = vis_ModelStream_GetRaw(s, n, 1, 1);
    if (!buf) return;
    buf[n] = '\0';
    *out = (char*)buf;
}

void vis_ModelStream_GetEnd(vis_ModelStream* s)
{
    unsigned int expect = s->crc ^ 0xFFFFFFFFu;
    int got = 0;
    vis_ModelStream_GetInt(s, &got);
    if (!s->ierr && (unsigned int)got != expect) vis_ModelStream_Fail(s, SYS_ERROR_FORMAT, "Stream checksum");
}
