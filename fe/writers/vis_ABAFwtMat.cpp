/* Materials of the ABAQUS deck, by material type, in ascending id order. */
#include "vis_ABAFwtInternal.h"
#include "vis_MProp.h"
#include "vsy_HashTable.h"

namespace {

/* Up to `n` values of a parameter, or 0 when it is not set. */
int Values(vis_MProp* mat, int code, int n, double* v)
{
    int flag = 0;
    vis_MPropValueFlag(mat, code, &flag);
    if (!flag) return 0;
    for (int i = 0; i < n; ++i) v[i] = 0.0;
    vis_MPropValueDouble(mat, code, v);
    return n;
}

/* A keyword and its values, eight to a line. */
void Block(FILE* fp, const char* keyword, int n, const double* v)
{
    std::fputs(keyword, fp);
    for (int i = 0; i < n; i += 8) vis_ABAFwt_Reals(fp, n - i < 8 ? n - i : 8, v + i, "\n");
}

/* A keyword with the values of one parameter, when it is set. */
void Param(FILE* fp, vis_MProp* mat, const char* keyword, int code, int n)
{
    double v[32];
    if (Values(mat, code, n, v)) Block(fp, keyword, n, v);
}

void Isotropic(FILE* fp, vis_MProp* mat)
{
    double v[2] = {0.0, 0.0};
    if (Values(mat, 1, 1, v)) {
        Values(mat, 2, 1, v + 1);
        Block(fp, "*ELASTIC, TYPE=ISOTROPIC\n", 2, v);
    }
    Param(fp, mat, "*EXPANSION, TYPE=ISO\n", 4, 1);
    Param(fp, mat, "*CONDUCTIVITY, TYPE=ISO\n", 19, 1);
}

/* Engineering constants: E1 E2 E3 nu12 nu13 nu23 G12 G13, then G23 on the second line. The
 * library keeps Poisson's ratios as (xy, yz, xz) and shear moduli as (xy, yz, zx). */
void Orthotropic(FILE* fp, vis_MProp* mat)
{
    double e[3] = {0, 0, 0}, nu[3] = {0, 0, 0}, g[3] = {0, 0, 0};
    if (Values(mat, 7, 3, e)) {
        Values(mat, 8, 3, nu);
        Values(mat, 9, 3, g);
        const double v[9] = {e[0], e[1], e[2], nu[0], nu[2], nu[1], g[0], g[2], g[1]};
        Block(fp, "*ELASTIC, TYPE=ENGINEERING CONSTANTS\n", 9, v);
    }
    Param(fp, mat, "*EXPANSION, TYPE=ORTHO\n", 10, 3);
    Param(fp, mat, "*CONDUCTIVITY, TYPE=ORTHO\n", 25, 3);
}

void Anisotropic(FILE* fp, vis_MProp* mat)
{
    Param(fp, mat, "*ELASTIC, TYPE=ANISOTROPIC\n", 11, 21);
    Param(fp, mat, "*EXPANSION, TYPE=ANISO\n", 12, 6);
    Param(fp, mat, "*CONDUCTIVITY, TYPE=ANISO\n", 26, 6);
}

void Material(FILE* fp, int id, vis_MProp* mat)
{
    int film = 0, type = 0;
    vis_MPropValueFlag(mat, 21, &film);
    if (film) return;
    vis_MPropGetType(mat, &type);
    std::fprintf(fp, "*MATERIAL, NAME=MID%d\n", id);
    if (type == 0) Isotropic(fp, mat);
    else if (type == 2) Orthotropic(fp, mat);
    else if (type == 3) Anisotropic(fp, mat);
    Param(fp, mat, "*SPECIFIC HEAT\n", 20, 1);
    Param(fp, mat, "*DENSITY\n", 0, 1);
}

}  // namespace

void vis_ABAFwt_Materials(vis_ABAFwt* aba)
{
    if (!aba->mprop) return;
    std::fputs("**         Material properties\n", aba->w.fp);
    vis_ABAFwt_Ordered(aba->mprop, [aba](int key, void* value) { Material(aba->w.fp, key, static_cast<vis_MProp*>(value)); });
}
