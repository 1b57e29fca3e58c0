/* Text pieces shared by the sections of the command file. */
#include "vis_ANSFwtInternal.h"

#include "vsy_HashTable.h"
#include "vsy_RealText.h"

#include <charconv>
#include <cmath>
#include <cstring>

void vis_ANSFwt_Real(FILE* fp, double value)
{
    char text[VSY_REALTEXT_LEN];
    vsy_RealToField(value, 16, 1, 1, text);
    std::fputc(',', fp);
    std::fputs(text, fp);
}

void vis_ANSFwt_Exp(double value, int set, char* out)
{
    out[0] = '\0';
    if (set) std::snprintf(out, 24, "%16.9E", value);
}

const char* vis_ANSFwt_DofName(int tag)
{
    static const char* const names[8] = {nullptr, "UX", "UY", "UZ", "ROTX", "ROTY", "ROTZ", "TEMP"};
    return tag >= 1 && tag <= 7 ? names[tag] : nullptr;
}

void vis_ANSFwt_Dofs(FILE* fp, int mask)
{
    mask &= 63;
    if (mask == 63) std::fputs(",ALL", fp);
    else if (mask == 7) std::fputs(",UXYZ", fp);
    else if (mask == 56) std::fputs(",RXYZ", fp);
    else
        for (int tag = 1; tag <= 6; ++tag)
            if (mask & (1 << (tag - 1))) std::fprintf(fp, ",%s", vis_ANSFwt_DofName(tag));
}

int vis_ANSFwt_IntText(int value, char* out)
{
    return static_cast<int>(std::to_chars(out, out + 12, value).ptr - out);
}

int vis_ANSFwt_ExpText(double value, char* out)
{
    /* "%16.9E": the shortest exact scientific text of nine decimals, which the C library
     * prints too, with the exponent letter raised and blanks in front up to sixteen. */
    char text[32];
    if (!std::isfinite(value)) return std::snprintf(out, 24, "%16.9E", value);
    const int len = static_cast<int>(std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 9).ptr - text);
    const int pad = len < 16 ? 16 - len : 0;
    std::memset(out, ' ', static_cast<size_t>(pad));
    std::memcpy(out + pad, text, static_cast<size_t>(len));
    char* e = static_cast<char*>(std::memchr(out + pad, 'e', static_cast<size_t>(len)));
    if (e) *e = 'E';
    return pad + len;
}

void vis_ANSFwt_Walk(vis_ANSFwt* ans, vsy_HashTable* tab, const char* header, void (*visit)(vis_ANSFwt*, int, void*))
{
    std::fputs(header, ans->w.fp);
    vsy_HashTableInitIterOrder(tab);
    for (;;) {
        int key = 0;
        void* value = nullptr;
        vsy_HashTableNextIter(tab, &key, &value);
        if (!value) break;
        visit(ans, key, value);
    }
}
