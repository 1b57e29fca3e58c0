/* vis_ConnectFreeScanBody: the element loop of the quick free-face scan (see
 * vis_ConnectGroupFree.cpp for the rule and the method). It is included by two translation
 * units: vis_ConnectGroupFree.cpp, built for the baseline instruction set, and
 * vis_ConnectFreeScanAvx2.cpp, built for AVX2, where one instruction compares eight entries of a
 * row. The includer names the scan by defining VIS_FREESCAN; everything else here is static.
 * Defining VIS_FREESCAN_SCALAR as well gives the plain C form, which other processors build.
 *
 * Rows are read eight entries at a time from any row start: the kernel pads the table, and
 * what lies past a row's end is masked off.
 */
#include "vis_ConnectGroupInternal.h"

#include "vis_ConnectInternal.h"
#include "vis_Group.h"

#if defined(VIS_FREESCAN_SCALAR)
#define VIS_FREESCAN_BITS 0
#elif defined(__AVX2__)
#define VIS_FREESCAN_BITS 256
#elif defined(__SSE2__)
#define VIS_FREESCAN_BITS 128
#else
#define VIS_FREESCAN_BITS 0
#endif

#if VIS_FREESCAN_BITS
#include <immintrin.h>
#endif

/* Lanes 0 to n - 1 of eight. */
static unsigned vis_FreeScan_Lanes(int n)
{
    return n >= 8 ? 0xFFu : (1u << n) - 1u;
}

/* Bit i set when a[i] (i < la, at most eight taken) is in b[0..lb) and is not id. */
static unsigned vis_FreeScan_Common(const int* a, int la, const int* b, int lb, int id)
{
#if VIS_FREESCAN_BITS == 256
    __m256i va = _mm256_loadu_si256((const __m256i*)a), hit = _mm256_setzero_si256();
    for (int j = 0; j < lb; ++j) hit = _mm256_or_si256(hit, _mm256_cmpeq_epi32(va, _mm256_set1_epi32(b[j])));
    hit = _mm256_andnot_si256(_mm256_cmpeq_epi32(va, _mm256_set1_epi32(id)), hit);
    unsigned hits = (unsigned)_mm256_movemask_ps(_mm256_castsi256_ps(hit));
#elif VIS_FREESCAN_BITS == 128
    __m128i a0 = _mm_loadu_si128((const __m128i*)a), a1 = _mm_loadu_si128((const __m128i*)(a + 4));
    __m128i h0 = _mm_setzero_si128(), h1 = _mm_setzero_si128();
    for (int j = 0; j < lb; ++j) {
        __m128i y = _mm_set1_epi32(b[j]);
        h0 = _mm_or_si128(h0, _mm_cmpeq_epi32(a0, y));
        h1 = _mm_or_si128(h1, _mm_cmpeq_epi32(a1, y));
    }
    __m128i self = _mm_set1_epi32(id);
    h0 = _mm_andnot_si128(_mm_cmpeq_epi32(a0, self), h0);
    h1 = _mm_andnot_si128(_mm_cmpeq_epi32(a1, self), h1);
    unsigned hits = (unsigned)_mm_movemask_ps(_mm_castsi128_ps(h0)) |
                    (unsigned)_mm_movemask_ps(_mm_castsi128_ps(h1)) << 4;
#else
    unsigned hits = 0;
    for (int i = 0; i < 8; ++i) {
        int in = 0;
        for (int j = 0; j < lb; ++j) in |= a[i] == b[j];
        hits |= (unsigned)(in && a[i] != id) << i;
    }
#endif
    return hits & vis_FreeScan_Lanes(la);
}

/* Whether x is among the first l (up to eight) entries of r. */
static int vis_FreeScan_In8(const int* r, int l, int x)
{
#if VIS_FREESCAN_BITS == 256
    __m256i h = _mm256_cmpeq_epi32(_mm256_loadu_si256((const __m256i*)r), _mm256_set1_epi32(x));
    unsigned hits = (unsigned)_mm256_movemask_ps(_mm256_castsi256_ps(h));
#elif VIS_FREESCAN_BITS == 128
    __m128i y = _mm_set1_epi32(x);
    __m128i h0 = _mm_cmpeq_epi32(_mm_loadu_si128((const __m128i*)r), y);
    __m128i h1 = _mm_cmpeq_epi32(_mm_loadu_si128((const __m128i*)(r + 4)), y);
    unsigned hits = (unsigned)_mm_movemask_ps(_mm_castsi128_ps(h0)) |
                    (unsigned)_mm_movemask_ps(_mm_castsi128_ps(h1)) << 4;
#else
    unsigned hits = 0;
    for (int k = 0; k < 8; ++k) hits |= (unsigned)(r[k] == x) << k;
#endif
    return (hits & vis_FreeScan_Lanes(l)) != 0;
}

/* Whether x is in row r of length l. */
static int vis_FreeScan_InRow(const int* r, int l, int x)
{
    if (l <= 8) return vis_FreeScan_In8(r, l, x);
    for (int i = 0; i < l; i += 8)
        if (vis_FreeScan_In8(r + i, l - i, x)) return 1;
    return 0;
}

/* Rows of an element's corners. */
typedef struct vis_FreeScan_Rows {
    const int* row[8];
    int len[8];
} vis_FreeScan_Rows;

/* The lowest element other than id in the source that holds the n corners at positions pos of
 * the element's list; 0 when none does. The candidates are the entries of the first corner's
 * row also in the row of a corner not next to it on the face. */
static int vis_FreeScan_LowestHolder(vis_Group* source, int id, int n, const int* pos, const vis_FreeScan_Rows* r)
{
    int other = n == 4 ? 2 : 1;
    const int *r0 = r->row[pos[0]], *r1 = r->row[pos[other]];
    int l0 = r->len[pos[0]], l1 = r->len[pos[other]];
    for (int i = 0; i < l0; i += 8) {
        for (unsigned hits = vis_FreeScan_Common(r0 + i, l0 - i, r1, l1, id); hits; hits &= hits - 1) {
            int e = r0[i + __builtin_ctz(hits)];
            if (source && !vis_Connect_GroupHas(source, e)) continue;
            int all = 1;
            for (int b = 1; b < n && all; ++b) all = b == other || vis_FreeScan_InRow(r->row[pos[b]], r->len[pos[b]], e);
            if (all) return e;
        }
    }
    return 0;
}

/* The faces of serendipity solid id. */
static void vis_FreeScan_Solid(const vis_Connect* c, const vis_Connect_SolidFaces* t, int oper, vis_Group* source,
                               vis_Group* dest, int id)
{
    static const int corners[4] = {4, 5, 6, 8};
    int s = c->shape[id] - SYS_SHAPE_TET;
    const int* list = c->elnode[(id - 1) >> VIS_CONNECT_ELEMSHIFT] + c->elnodeix[id];
    vis_FreeScan_Rows r;
    for (int a = 0; a < corners[s]; ++a) {
        r.row[a] = c->nodeelem + c->nodeelempntr[list[a]];
        r.len[a] = c->nodeelemsize[list[a]];
    }
    for (int f = 0; f < t->numface[s]; ++f) {
        int lowest = vis_FreeScan_LowestHolder(source, id, t->numcorner[s][f], t->corner[s][f], &r);
        if (lowest == 0 || (oper == VIS_CGROUP_EVERYONCE && lowest > id)) vis_GroupSetEntFlag(dest, id, f + 1, 1);
    }
}

/* Whether element id is a serendipity solid, the forms whose corners lead their list. */
static int vis_FreeScan_Quick(const vis_Connect* c, int id)
{
    int shape = c->shape[id];
    return shape >= SYS_SHAPE_TET && shape <= SYS_SHAPE_HEX && (c->maxj[id] & 0xFFFF) == 0 && c->maxk[id] == 0;
}

void VIS_FREESCAN(vis_Connect* c, int oper, vis_Group* source, vis_Group* dest, vis_ConnectFaceTest general,
                  vis_ConnectGroupWork* w)
{
    const vis_Connect_SolidFaces* t = vis_Connect_Faces();
    for (int id = 1; id <= c->numelem; ++id) {
        if (c->shape[id] == 255 || (source && !vis_Connect_GroupHas(source, id))) continue;
        if (vis_FreeScan_Quick(c, id)) {
            vis_FreeScan_Solid(c, t, oper, source, dest, id);
            continue;
        }
        int n = 0;
        vis_ConnectElemNum(c, SYS_FACE, id, &n);
        for (int no = 1; no <= n; ++no) {
            if (general(c, oper, source, id, no, w)) vis_GroupSetEntFlag(dest, id, no, 1);
        }
    }
}
