/* Text pieces shared by the sections of the command file. */
#include "vis_ANSFwtInternal.h"

#include "vsy_RealText.h"

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
