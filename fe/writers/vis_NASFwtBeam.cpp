/* Beam property cards of the NASTRAN deck: PBEAML for a named section (parameter 81 not 0),
 * PBEAM with both ends' section values otherwise.
 *
 * A PBEAML row is chosen by section type, rotation angle (parameter 104) and, for some, equal
 * dimensions; the first row that applies wins, and none applies with a reflect flag (102,
 * 103) set. Then the nonstructural mass follows when not 0, and the line ends: a section that
 * matches no row leaves only that, or an empty line.
 *
 * PBEAM's last line holds the shear centre offsets with their sign changed, as 0 - v: an unset
 * offset prints as 0, not as a negative zero.
 */
#include "vis_EProp.h"
#include "vis_NASFwtInternal.h"
#include "vsy_Field.h"

#include <cstring>
#include <initializer_list>

namespace {

/* The 20 dimensions at two ends, and room for any parameter read here. */
constexpr int kMaxValues = 64;

/* One PBEAML row. A field is a sum of section dimensions "+i-j..." read left to right; a
 * leading 'p' subtracts the later terms as one sum (d2-(d4+d3)), a leading 'h' halves the
 * result. "_" is an empty field, "/" ends the line. */
struct Row {
    int type;
    double angle, angle2; /* angle2 another angle that applies, or the same */
    int eq[4];            /* d[eq0] = d[eq1] and d[eq2] = d[eq3], -1 for none */
    const char* name;
    const char* fields[16];
};

const Row kRows[] = {
    {5, 0, 0, {-1, -1, -1, -1}, "ROD", {"+0"}},
    {6, 0, 0, {-1, -1, -1, -1}, "TUBE", {"+0", "+0-1"}},
    {3, 0, 0, {-1, -1, -1, -1}, "L", {"+1", "+0", "+3", "+2"}},
    {4, 90, 90, {0, 1, 3, 4}, "I1", {"+0-5", "+5", "+2-3-4", "+2"}},
    {4, 90, 90, {-1, -1, -1, -1}, "I", {"+2", "+1", "+0", "+5", "+4", "+3"}},
    {4, 0, 0, {0, 1, 3, 4}, "H", {"p+2-4-3", "+4+3", "+0", "+5"}},
    {13, 0, 0, {-1, -1, -1, -1}, "CHAN2", {"+3", "+5", "+0", "+2"}},
    {13, 90, 90, {-1, -1, -1, -1}, "CHAN", {"+0", "+2", "+5", "+3"}},
    {11, 0, -90, {-1, -1, -1, -1}, "T1", {"+0", "+1-2", "+2", "+3"}},
    {11, 90, 90, {-1, -1, -1, -1}, "T2", {"+0", "+1", "+2", "+3"}},
    {2, 0, 0, {2, 3, 4, 5}, "BOX", {"+1", "+0", "+4", "+3"}},
    {2, 0, 0, {-1, -1, -1, -1}, "BOX1", {"+1", "+0", "+5", "+4", "+3", "+2"}},
    {8, 0, 0, {-1, -1, -1, -1}, "BAR", {"+1", "+0"}},
    {17, 0, 0, {-1, -1, -1, -1}, "CROSS", {"+1-3", "+3", "+0", "+2"}},
    {12, 90, 90, {-1, -1, -1, -1}, "Z", {"+0-5", "+5", "+2-3-4", "+2"}},
    {22, 90, 90, {-1, -1, -1, -1}, "HEXA", {"+2", "+0", "+1"}},
    {16, 270, 270, {-1, -1, -1, -1}, "HAT", {"+2", "+3", "+1", "h+0-1"}},
    {19, 270, 270, {-1, -1, -1, -1}, "HAT1", {"+0", "+2+3", "+1", "+4", "+3"}},
    {18, 90, 90, {-1, -1, -1, -1}, "DBOX",
     {"_", "+1+0", "_", "+0", "+7", "+8", "+9", "+4", "+3", "/", "_", "+6", "+5", "_", "+2"}},
};

int Int(vis_EProp* p, int code)
{
    int v = 0;
    vis_EPropValueInteger(p, code, &v);
    return v;
}

/* The values of a real parameter, preset with `def` (two-valued ones per end: end A first). */
void Reals(vis_EProp* p, int code, double* v, std::initializer_list<double> def = {0.0})
{
    const int n = static_cast<int>(def.size());
    for (int i = 0; i < kMaxValues; ++i) v[i] = def.begin()[i % n];
    vis_EPropValueDouble(p, code, v);
}

bool Applies(const Row& r, int type, double angle, const double* d)
{
    if (r.type != type || (angle != r.angle && angle != r.angle2)) return false;
    for (int k = 0; k < 4; k += 2)
        if (r.eq[k] >= 0 && d[r.eq[k]] != d[r.eq[k + 1]]) return false;
    return true;
}

double Evaluate(const char* f, const double* d)
{
    const bool half = *f == 'h', group = *f == 'p';
    if (half || group) ++f;
    double value = 0.0, later = 0.0;
    for (bool first = true; f[0] != '\0' && f[1] != '\0'; f += 2, first = false) {
        const double term = d[f[1] - '0'];
        if (group && !first) later += term;
        else value = f[0] == '-' ? value - term : value + term;
    }
    if (group) value -= later;
    return half ? value * 0.5 : value;
}

void Pbeaml(FILE* fp, int id, int mat, const Row& r, const double* d)
{
    std::fprintf(fp, "PBEAML  %8d%8d        %8s\n        ", id, mat, r.name);
    for (const char* f : r.fields) {
        if (!f) break;
        if (std::strcmp(f, "_") == 0) std::fputs("        ", fp);
        else if (std::strcmp(f, "/") == 0) std::fputc('\n', fp);
        else {
            const double v = Evaluate(f, d);
            vsy_FieldSmall(fp, 0, 1, &v, 0);
        }
    }
}

void Sectioned(FILE* fp, int id, vis_EProp* p, int type)
{
    double d[kMaxValues], angle[kMaxValues], nsm[kMaxValues];
    Reals(p, 82, d);
    Reals(p, 104, angle);
    Reals(p, 11, nsm);
    if (Int(p, 102) == 0 && Int(p, 103) == 0) {
        for (const Row& r : kRows) {
            if (!Applies(r, type, angle[0], d)) continue;
            Pbeaml(fp, id, Int(p, 0), r, d);
            break;
        }
    }
    if (nsm[0] != 0.0) vsy_FieldSmall(fp, 0, 1, nsm, 0);
    std::fputc('\n', fp);
}

void Line4(FILE* fp, double a, double b, double c, double d)
{
    std::fprintf(fp, "*       %16.8E%16.8E%16.8E%16.8E\n", a, b, c, d);
}

/* Twelve large-field lines; end A values first, end B from line 5. The shear centre offsets
 * change sign (0 - v, so that an unset offset stays 0, not -0). */
void Pbeam(FILE* fp, int id, vis_EProp* p)
{
    double a[kMaxValues], i1[kMaxValues], i2[kMaxValues], i12[kMaxValues], j[kMaxValues], nsm[kMaxValues];
    double c[kMaxValues], dd[kMaxValues], e[kMaxValues], f[kMaxValues];
    double k1[kMaxValues], k2[kMaxValues], cw[kMaxValues], sy[kMaxValues], sz[kMaxValues];
    Reals(p, 14, a), Reals(p, 15, i2), Reals(p, 16, i1), Reals(p, 17, i12), Reals(p, 18, j), Reals(p, 11, nsm);
    Reals(p, 30, c, {1.0, 0.0}), Reals(p, 31, dd, {0.0, 1.0}), Reals(p, 32, e, {-1.0, 0.0});
    Reals(p, 33, f, {0.0, -1.0});
    Reals(p, 19, k1), Reals(p, 20, k2), Reals(p, 25, cw), Reals(p, 21, sy), Reals(p, 22, sz);
    std::fprintf(fp, "PBEAM*  %16d%16d%16.8E%16.8E\n", id, Int(p, 0), a[0], i1[0]);
    Line4(fp, i2[0], i12[0], j[0], nsm[0]);
    Line4(fp, c[0], c[1], dd[0], dd[1]);
    Line4(fp, e[0], e[1], f[0], f[1]);
    std::fprintf(fp, "*       %16s%16.8E%16.8E%16.8E\n", "YES", 1.0, a[1], i1[1]);
    Line4(fp, i2[1], i12[1], j[1], nsm[1]);
    Line4(fp, c[2], c[3], dd[2], dd[3]);
    Line4(fp, e[2], e[3], f[2], f[3]);
    std::fprintf(fp, "*       %16.8E%16.8E%16s%16s\n", k1[0], k2[0], " ", " ");
    std::fprintf(fp, "*       %16s%16s%16.8E%16.8E\n", " ", " ", cw[0], cw[1]);
    std::fprintf(fp, "*       %16s%16s%16s%16s\n", " ", " ", " ", " ");
    Line4(fp, 0.0 - sy[0], 0.0 - sz[0], 0.0 - sy[1], 0.0 - sz[1]);
}

}  // namespace

void vis_NASFwt_BeamProp(vis_NASFwt* nas, int id, vis_EProp* p)
{
    const int type = Int(p, 81);
    if (type == 0) Pbeam(nas->w.fp, id, p);
    else Sectioned(nas->w.fp, id, p, type);
}
