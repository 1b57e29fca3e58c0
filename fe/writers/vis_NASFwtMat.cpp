/* Material cards of the NASTRAN deck, in the material table's slot order, all large-field.
 *
 * Isotropic: MAT4 (thermal) when a film coefficient is set or the deck is thermal, else MAT1.
 * Orthotropic: MAT8 for shells only. Anisotropic: MAT9 for solids, MAT2 for shells. The class
 * of a material is the type of the last property that named it (vis_NASFwtProp.cpp); one that
 * no property names has none, and writes neither MAT8 nor MAT9 nor MAT2. Unset values are 0.
 */
#include "vis_MProp.h"
#include "vis_NASFwtInternal.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"

#include <initializer_list>

namespace {

enum { kClassSolid = 1, kClassShell = 2 };

/* Room for the largest material parameter, the 21 entries of the D matrix. */
constexpr int kMaxValues = 32;

struct Values {
    double v[kMaxValues];
    Values(vis_MProp* p, int code)
    {
        for (double& x : v) x = 0.0;
        vis_MPropValueDouble(p, code, v);
    }
    double operator[](int i) const { return v[i]; }
};

double Real(vis_MProp* p, int code)
{
    return Values(p, code)[0];
}

void Line4(FILE* fp, double a, double b, double c, double d)
{
    std::fprintf(fp, "*       %16.8E%16.8E%16.8E%16.8E\n", a, b, c, d);
}

void Isotropic(vis_NASFwt* nas, int id, vis_MProp* p)
{
    FILE* fp = nas->w.fp;
    int film = 0;
    vis_MPropValueFlag(p, 21, &film);
    if (film || nas->domain == 2) {
        std::fprintf(fp, "MAT4*   %16d", id);
        /* Mode 2: a zero conductivity, heat or density stays an empty field. */
        for (int code : {19, 20, 0}) vis_NASFwt_Text(fp, Real(p, code), 16, 2);
        std::fputc('\n', fp);
        if (film) {
            std::fputs("*       ", fp);
            vis_NASFwt_Text(fp, Real(p, 21), 16, 1);
            std::fputc('\n', fp);
        }
        return;
    }
    std::fprintf(fp, "MAT1*   %16d%16.8E%16s%16.8E\n", id, Real(p, 1), " ", Real(p, 2));
    std::fprintf(fp, "*       %16.8E%16.8E%16.8E\n", Real(p, 0), Real(p, 4), Real(p, 6));
}

void Orthotropic(FILE* fp, int id, vis_MProp* p)
{
    const Values e(p, 7), nu(p, 8), g(p, 9), a(p, 10);
    std::fprintf(fp, "MAT8*   %16d%16.8E%16.8E%16.8E\n", id, e[0], e[1], nu[0]);
    Line4(fp, g[0], g[2], g[1], Real(p, 0));
    std::fprintf(fp, "*       %16.8E%16.8E%16.8E%16s\n", a[0], a[1], Real(p, 6), " ");
}

/* Entry (i, j), from 1 with i >= j, of the lower triangle stored by rows. */
double Lower(const Values& d, int i, int j)
{
    return d[i * (i - 1) / 2 + j - 1];
}

void Mat9(FILE* fp, int id, vis_MProp* p)
{
    const Values d(p, 11), a(p, 12);
    auto D = [&d](int i, int j) { return Lower(d, i, j); };
    std::fprintf(fp, "MAT9*   %16d%16.8E%16.8E%16.8E\n", id, D(1, 1), D(2, 1), D(3, 1));
    Line4(fp, D(4, 1), D(5, 1), D(6, 1), D(2, 2));
    Line4(fp, D(3, 2), D(4, 2), D(5, 2), D(6, 2));
    Line4(fp, D(3, 3), D(4, 3), D(5, 3), D(6, 3));
    Line4(fp, D(4, 4), D(5, 4), D(6, 4), D(5, 5));
    Line4(fp, D(6, 5), D(6, 6), Real(p, 0), a[0]);
    Line4(fp, a[1], a[2], a[3], a[4]);
    std::fprintf(fp, "*       %16.8E%16.8E\n", a[5], Real(p, 6));
}

void Mat2(FILE* fp, int id, vis_MProp* p)
{
    const Values d(p, 11), a(p, 12);
    std::fprintf(fp, "MAT2*   %16d%16.8E%16.8E%16.8E\n", id, Lower(d, 1, 1), Lower(d, 2, 1), Lower(d, 4, 1));
    Line4(fp, Lower(d, 2, 2), Lower(d, 4, 2), Lower(d, 4, 4), Real(p, 0));
    Line4(fp, a[0], a[1], a[3], Real(p, 6));
}

void Material(vis_NASFwt* nas, int id, vis_MProp* p)
{
    int type = 0, cls = 0;
    vis_MPropGetType(p, &type);
    if (nas->matclass) vsy_IntHashGet(nas->matclass, id, &cls);
    FILE* fp = nas->w.fp;
    if (type == 0) Isotropic(nas, id, p);
    else if (type == 2 && cls == kClassShell) Orthotropic(fp, id, p);
    else if (type == 3 && cls == kClassSolid) Mat9(fp, id, p);
    else if (type == 3 && cls == kClassShell) Mat2(fp, id, p);
}

}  // namespace

void vis_NASFwt_Mats(vis_NASFwt* nas)
{
    std::fputs("$          Material properties\n", nas->w.fp);
    vis_NASFwt_Each<vis_MProp>(nas->mprop, [nas](int key, vis_MProp* p) { Material(nas, key, p); });
}
