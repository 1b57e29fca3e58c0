/* Element property cards of the NASTRAN deck, one card by property type, in the property
 * table's slot order: PSOLID (or a unit PSHELL in plane stress), PSHELL of shells and
 * membranes, PROD, PCONV, PGAP and PELAS; beams in vis_NASFwtBeam.cpp. Unset parameters keep
 * the defaults preset before each read. Other types write nothing.
 *
 * While it walks, the section records for each material the type of its last user (parameter
 * 0 of every property, and parameters 1 to 3 of a shell when not 0): the material cards of
 * classes 1 (solid) and 2 (shell) depend on it, and a material no property uses has none.
 */
#include "vis_Connect.h"
#include "vis_EProp.h"
#include "vis_NASFwtInternal.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"
#include "vsy_RealText.h"

namespace {

/* Room for the values of one parameter: the beam section's 20 dimensions at two ends. */
constexpr int kMaxValues = 64;
constexpr double kShearRatio = 5.0 / 6.0;

int Int(vis_EProp* p, int code, int def = 0)
{
    vis_EPropValueInteger(p, code, &def);
    return def;
}

/* Value k of a real parameter, def when unset or not held that far. */
double Real(vis_EProp* p, int code, int k = 0, double def = 0.0)
{
    double v[kMaxValues];
    for (double& x : v) x = def;
    vis_EPropValueDouble(p, code, v);
    return v[k];
}

void Record(vis_NASFwt* nas, int matid, int type)
{
    if (nas->matclass) vsy_IntHashInsert(nas->matclass, matid, type);
}

void RecordMaterials(vis_NASFwt* nas, vis_EProp* p, int type)
{
    Record(nas, Int(p, 0), type);
    if (type != 2) return;
    for (int code = 1; code <= 3; ++code)
        if (const int id = Int(p, code)) Record(nas, id, type);
}

/* "$HMNAME COMP" line of a property whose id names a part of the connectivity. */
void PartName(vis_NASFwt* nas, int id)
{
    if (!nas->w.connect) return;
    char name[VIS_CONNECT_NAMELEN + 1] = "";
    vis_ConnectPartName(nas->w.connect, id, name);
    if (name[0] != '\0') std::fprintf(nas->w.fp, "$HMNAME COMP            %8d\"%s\"\n", id, name);
}

void Solid(vis_NASFwt* nas, int id, vis_EProp* p)
{
    FILE* fp = nas->w.fp;
    const int mat = Int(p, 0);
    if (nas->featwod == 2) {
        std::fprintf(fp, "PSHELL  %8d%8d%8f\n", id, mat, 1.0);
        return;
    }
    int rule = Int(p, 5);
    if (rule < 0) rule = -1;
    std::fprintf(fp, "PSOLID  %8d%8d%8d\n", id, mat, rule);
}

void Shell(FILE* fp, int id, vis_EProp* p)
{
    std::fprintf(fp, "PSHELL  %8d%8d", id, Int(p, 0));
    vis_NASFwt_Text(fp, Real(p, 7), 8, 1);
    std::fprintf(fp, "%8d", Int(p, 1));
    const double bend = Real(p, 10, 0, 1.0);
    vsy_FieldSmall(fp, 0, 1, &bend, 0);
    std::fprintf(fp, "%8d", Int(p, 2));
    const double rest[2] = {Real(p, 9, 0, kShearRatio), Real(p, 11)};
    vsy_FieldSmall(fp, 0, 2, rest, 1);
}

void Membrane(FILE* fp, int id, vis_EProp* p)
{
    std::fprintf(fp, "PSHELL  %8d%8d", id, Int(p, 0));
    vis_NASFwt_Text(fp, Real(p, 7), 8, 1);
    const double nsm = Real(p, 11);
    vsy_FieldSmall(fp, 4, 1, &nsm, 1);
}

void Rod(FILE* fp, int id, vis_EProp* p)
{
    std::fprintf(fp, "PROD*   %16d%16d%16.8E%16.8E\n", id, Int(p, 0), Real(p, 14), 0.0);
    std::fprintf(fp, "*       %16.8E%16.8E\n", 0.0, Real(p, 11));
}

void Interface(FILE* fp, int id, vis_EProp* p)
{
    std::fprintf(fp, "PCONV*  %16d%16d%16d", id, Int(p, 0), 0);
    vis_NASFwt_Text(fp, Real(p, 63), 16, 1);
    std::fputc('\n', fp);
}

void Gap(FILE* fp, int id, vis_EProp* p)
{
    std::fprintf(fp, "PGAP*   %16d%16.8E%16.8E%16.8E\n", id, Real(p, 34), Real(p, 35), Real(p, 36));
    std::fprintf(fp, "*       %16.8E%16.8E%16.8E%16.8E\n", Real(p, 37), Real(p, 38), Real(p, 39), Real(p, 40));
}

void Spring(FILE* fp, int id, vis_EProp* p)
{
    int flag = 0;
    vis_EPropValueFlag(p, 49, &flag);
    if (!flag) return;
    std::fprintf(fp, "PELAS*  %16d", id);
    const double v[3] = {Real(p, 47), Real(p, 48), Real(p, 65)};
    vsy_FieldLarge(fp, 0, 3, v, 1);
}

void Property(vis_NASFwt* nas, int id, vis_EProp* p)
{
    int type = 0;
    vis_EPropGetType(p, &type);
    RecordMaterials(nas, p, type);
    PartName(nas, id);
    FILE* fp = nas->w.fp;
    switch (type) {
    case 1: Solid(nas, id, p); break;
    case 2: Shell(fp, id, p); break;
    case 3: Membrane(fp, id, p); break;
    case 4: vis_NASFwt_BeamProp(nas, id, p); break;
    case 5: Rod(fp, id, p); break;
    case 7: Gap(fp, id, p); break;
    case 9: Spring(fp, id, p); break;
    case 14: Interface(fp, id, p); break;
    default: break;
    }
}

}  // namespace

void vis_NASFwt_Text(FILE* fp, double value, int width, int mode)
{
    char text[VSY_REALTEXT_LEN];
    vsy_RealToField(value, width, 1, mode, text);
    std::fprintf(fp, "%*s", width, text);
}

void vis_NASFwt_Props(vis_NASFwt* nas)
{
    std::fputs("$          Element properties\n", nas->w.fp);
    vis_NASFwt_Each<vis_EProp>(nas->eprop, [nas](int key, vis_EProp* p) { Property(nas, key, p); });
}
