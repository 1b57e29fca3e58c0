/* vsy_RedPre: packing of values into 8 or 16-bit codes; see vsy_RedPre.h for the rules.
 *
 * One packing routine (vsy_RedPre_Pack) handles one value; Load runs it over all values and
 * goes on after a range error, Loaddv stops at the first failure. Unpacking is one routine per
 * value as well.
 */
#include "vsy_RedPre.h"

#include "vsy_Error.h"

#include <cmath>
#include <cstring>

/* Outcome of packing one value. */
enum { PACK_OK, PACK_RANGE, PACK_NAN };

static const char* const vsy_RedPre_NotDefined = "Def not called or extent not set";

static int vsy_RedPre_Ready(vsy_RedPre* red, const char* name)
{
    if (!red) {
        vsy_ErrorNumber(name, SYS_ERROR_NULLOBJECT);
        return 0;
    }
    if (red->type <= 0) {
        vsy_ErrorRecord(&red->ierr, name, SYS_ERROR_OPERATION, "%s", vsy_RedPre_NotDefined);
        return 0;
    }
    return 1;
}

static void vsy_RedPre_Update(vsy_RedPre* red)
{
    int t = red->deftype;
    red->type = 0;
    red->scale = 0.0;
    if (t == SYS_PRECISION_UNITBYTE) {
        red->scale = 127.5;
        red->type = t;
    } else if (t == SYS_PRECISION_HALF || t == SYS_PRECISION_FLOAT || t == SYS_PRECISION_DOUBLE) {
        red->type = t;
    } else if ((t == SYS_PRECISION_BYTE || t == SYS_PRECISION_SHORT) && red->extset) {
        double codes = t == SYS_PRECISION_BYTE ? 255.0 : 65535.0;
        double range = red->max - red->min;
        red->scale = range > 0.0 ? codes / range : 0.0;
        red->type = t;
    }
}

vsy_RedPre* vsy_RedPreNew(void)
{
    vsy_RedPre* red = (vsy_RedPre*)vsy_Malloc(sizeof(vsy_RedPre));
    if (!red) {
        vsy_ErrorMessage("RedPre", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    red->ierr = 0;
    red->type = 0;
    red->min = red->max = red->spare = red->scale = 0.0;
    red->deftype = 0;
    red->extset = 0;
    return red;
}

void vsy_RedPreDelete(vsy_RedPre* red)
{
    if (red) vsy_Free(red);
}

int vsy_RedPreError(vsy_RedPre* red)
{
    if (!red) return SYS_ERROR_NULLOBJECT;
    int ierr = red->ierr;
    red->ierr = 0;
    return ierr;
}

void vsy_RedPreDef(vsy_RedPre* red, int type)
{
    if (!red) {
        vsy_ErrorNumber("vsy_RedPreDef", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (type != SYS_PRECISION_FLOAT && type != SYS_PRECISION_BYTE && type != SYS_PRECISION_DOUBLE &&
        type != SYS_PRECISION_SHORT && type != SYS_PRECISION_HALF && type != SYS_PRECISION_UNITBYTE) {
        vsy_ErrorRecord(&red->ierr, "vsy_RedPreDef", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    red->deftype = type;
    vsy_RedPre_Update(red);
}

void vsy_RedPreExtent(vsy_RedPre* red, double min, double max)
{
    if (!red) {
        vsy_ErrorNumber("vsy_RedPreExtent", SYS_ERROR_NULLOBJECT);
        return;
    }
    if (!(min <= max) || !std::isfinite(min) || !std::isfinite(max)) {
        vsy_ErrorRecord(&red->ierr, "vsy_RedPreExtent", SYS_ERROR_VALUE, "iparam= %d", 0);
        return;
    }
    red->min = min;
    red->max = max;
    red->extset = 1;
    vsy_RedPre_Update(red);
}

int vsy_RedPreSize(vsy_RedPre* red)
{
    if (!red || red->type <= 0) return 0;
    switch (red->type) {
    case SYS_PRECISION_BYTE:
    case SYS_PRECISION_UNITBYTE: return 1;
    case SYS_PRECISION_SHORT:
    case SYS_PRECISION_HALF: return 2;
    case SYS_PRECISION_FLOAT: return 4;
    default: return 8;
    }
}

/* Rounds a non-negative v to its code: integer part, plus one at a fraction of 0.5 or more. */
static unsigned vsy_RedPre_Round(double v)
{
    unsigned code = (unsigned)(long long)v;
    if (v - (double)(long long)v >= 0.5) code += 1;
    return code;
}

static unsigned short vsy_RedPre_Half(unsigned b, int* status)
{
    *status = PACK_OK;
    if (b == 255u) {
        *status = PACK_NAN;
        return 0;
    }
    if (b == 0u) return 0;
    int e = (int)((b >> 23) & 255u) - 127;
    if (e < -14) return 0;
    if (e > 15) {
        *status = PACK_RANGE;
        return 0;
    }
    unsigned code = ((b >> 16) & 0x8000u) | ((b >> 13) & 0x3FFu) | ((((b >> 23) & 255u) - 112u) << 10);
    return (unsigned short)code;
}

/* Packs value a (position i) into slot i of compact. May zero *a (codes 3 and 12). */
static int vsy_RedPre_Pack(vsy_RedPre* red, float* a, double exact, int i, void* compact)
{
    unsigned char* c8 = (unsigned char*)compact;
    unsigned short* c16 = (unsigned short*)compact;
    double v = *a;
    switch (red->type) {
    case SYS_PRECISION_FLOAT: ((float*)compact)[i] = *a; return PACK_OK;
    case SYS_PRECISION_DOUBLE: ((double*)compact)[i] = exact; return PACK_OK;
    case SYS_PRECISION_BYTE:
        if (!(v >= red->min && v <= red->max)) {
            *a = 0.0f;
            return PACK_RANGE;
        }
        c8[i] = (unsigned char)vsy_RedPre_Round((v - red->min) * red->scale);
        return PACK_OK;
    case SYS_PRECISION_UNITBYTE:
        if (!(v >= -1.0 && v <= 1.0)) {
            *a = 0.0f;
            return PACK_RANGE;
        }
        c8[i] = (unsigned char)vsy_RedPre_Round((v + 1.0) * red->scale);
        return PACK_OK;
    case SYS_PRECISION_SHORT:
        if (!(v >= red->min && v <= red->max)) {
            c16[i] = 0;
            return PACK_RANGE;
        }
        c16[i] = (unsigned short)vsy_RedPre_Round((v - red->min) * red->scale);
        return PACK_OK;
    default: {
        unsigned b;
        int status;
        std::memcpy(&b, a, sizeof b);
        unsigned short code = vsy_RedPre_Half(b, &status);
        if (status != PACK_NAN) c16[i] = code;
        return status;
    }
    }
}

static void vsy_RedPre_ReportPack(vsy_RedPre* red, const char* name, int status, int i, double a)
{
    if (status == PACK_NAN) {
        vsy_ErrorRecord(&red->ierr, name, SYS_ERROR_VALUE, "Nan detected\n");
        return;
    }
    vsy_ErrorRecord(&red->ierr, name, SYS_ERROR_OVERFLOW, "a[%d]= %e\n", i, a);
}

void vsy_RedPreLoad(vsy_RedPre* red, int n, float* values, void* compact)
{
    if (!vsy_RedPre_Ready(red, "vsy_RedPreLoad")) return;
    if (n < 1 || !values || !compact) return;
    for (int i = 0; i < n; ++i) {
        float a = values[i];
        int status = vsy_RedPre_Pack(red, &values[i], a, i, compact);
        if (status == PACK_OK) continue;
        vsy_RedPre_ReportPack(red, "vsy_RedPreLoad", status, i, a);
        if (status == PACK_NAN) return;
    }
}

void vsy_RedPreLoaddv(vsy_RedPre* red, int n, double* values, void* compact)
{
    if (!vsy_RedPre_Ready(red, "vsy_RedPreLoaddv")) return;
    if (n < 1 || !values || !compact) return;
    for (int i = 0; i < n; ++i) {
        double orig = values[i];
        float a = (float)orig;
        int status = vsy_RedPre_Pack(red, &a, orig, i, compact);
        if (status == PACK_OK) continue;
        /* Codes 3 and 12 clear the caller's value of a value out of range, as Load does. */
        if (red->type == SYS_PRECISION_BYTE || red->type == SYS_PRECISION_UNITBYTE) values[i] = 0.0;
        vsy_RedPre_ReportPack(red, "vsy_RedPreLoaddv", status, i, (double)(float)orig);
        return;
    }
}

static double vsy_RedPre_HalfValue(unsigned code)
{
    unsigned e = (code & 0x7C00u) >> 10, f = code & 0x3FFu;
    double v;
    if (e == 0) v = std::ldexp((double)f, -24);
    else if (e == 31) v = f ? NAN : INFINITY;
    else v = std::ldexp((double)(f | 0x400u), (int)e - 25);
    return (code & 0x8000u) ? -v : v;
}

static double vsy_RedPre_Unpack(const vsy_RedPre* red, const void* compact, int i)
{
    const unsigned char* c8 = (const unsigned char*)compact;
    const unsigned short* c16 = (const unsigned short*)compact;
    switch (red->type) {
    case SYS_PRECISION_FLOAT: return ((const float*)compact)[i];
    case SYS_PRECISION_DOUBLE: return ((const double*)compact)[i];
    case SYS_PRECISION_BYTE: return red->scale > 0.0 ? c8[i] / red->scale + red->min : red->min;
    case SYS_PRECISION_SHORT: return red->scale > 0.0 ? c16[i] / red->scale + red->min : red->min;
    case SYS_PRECISION_UNITBYTE: return c8[i] / red->scale - 1.0;
    default: return c16[i] == 0 ? 0.0 : vsy_RedPre_HalfValue(c16[i]);
    }
}

void vsy_RedPreStore(vsy_RedPre* red, int n, const void* compact, float* values)
{
    if (!vsy_RedPre_Ready(red, "vsy_RedPreStore")) return;
    if (n < 1 || !values || !compact) return;
    for (int i = 0; i < n; ++i) values[i] = (float)vsy_RedPre_Unpack(red, compact, i);
}

void vsy_RedPreStoredv(vsy_RedPre* red, int n, const void* compact, double* values)
{
    if (!vsy_RedPre_Ready(red, "vsy_RedPreStoredv")) return;
    if (n < 1 || !values || !compact) return;
    for (int i = 0; i < n; ++i) values[i] = vsy_RedPre_Unpack(red, compact, i);
}
