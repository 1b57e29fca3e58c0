#include "vis_SDRCLwt.h"

#include "vis_CoordSys.h"
#include "vis_IdTran.h"
#include "vis_Model.h"
#include "vis_SDRCLwtInternal.h"
#include "vis_SProp.h"
#include "vis_Units.h"
#include "vsy_Error.h"
#include "vsy_List.h"
#include "vsy_RealText.h"

#include <cmath>
#include <cstring>

namespace {

const char* const kWriteModel = "vis_SDRCLwtWriteModel";

void ReadTables(vis_SDRCLwt* sdrc, vis_Model* model)
{
    struct {
        int code;
        vsy_HashTable** slot;
    } const tables[] = {{SYS_COORDSYS, &sdrc->coordsys}, {SYS_NODEGROUP, &sdrc->nodegroup},
                        {SYS_ELEMGROUP, &sdrc->elemgroup}, {SYS_LCASE, &sdrc->lcase},
                        {SYS_RCASE, &sdrc->rcase},       {SYS_MCASE, &sdrc->mcase}};
    for (const auto& t : tables) {
        *t.slot = nullptr;
        vis_ModelGetHashTable(model, t.code, t.slot);
    }
    void* units = nullptr;
    vis_ModelGetObject(model, SYS_UNITS, &units);
    sdrc->units = static_cast<vis_Units*>(units);
    sdrc->sprop = nullptr;
    vis_ModelGetList(model, SYS_SPROP, &sdrc->sprop);
}

/* Kind, domain and nonlinear flag of the first solution step; 1, 1, 0 without. */
void Frame(vis_SDRCLwt* sdrc)
{
    sdrc->kind = sdrc->domain = 1;
    sdrc->nonlinear = 0;
    int num = 0;
    if (sdrc->sprop) vsy_ListCount(sdrc->sprop, &num);
    if (num < 1) return;
    void* value = nullptr;
    vsy_ListRef(sdrc->sprop, 1, &value);
    vis_SProp* step = static_cast<vis_SProp*>(value);
    if (!step) return;
    sdrc->kind = step->type;
    vis_SPropValueInteger(step, 0, &sdrc->domain);
    vis_SPropValueInteger(step, 16, &sdrc->nonlinear);
}

/* The units table's codes of this system's length and mass units (index from 1). */
int LengthCode(int index)
{
    static const int code[6] = {0, 1, 2, 3, 8, 9};
    return index >= 1 && index <= 5 ? code[index] : 0;
}

int MassCode(int index)
{
    static const int code[7] = {0, 101, 102, 105, 104, 103, 109};
    return index >= 1 && index <= 6 ? code[index] : 0;
}

int UnitsCode(vis_Units* units)
{
    int length = 0, mass = 0;
    vis_UnitsGetBase(units, VIS_UNITS_LENGTH, &length);
    vis_UnitsGetBase(units, VIS_UNITS_MASS, &mass);
    const int b1 = LengthCode(length), b2 = MassCode(mass);
    double mfactor = 0.0;
    vis_UnitsGetSIFactor(units, VIS_UNITS_MASS, &mfactor);
    if (b1 == 1 && b2 == 101) return 1;
    if (b1 == 1 && b2 == 107) return 3;
    if (b1 == 3 && b2 == 101) return 5;
    if (b1 == 3 && b2 == 108) return 8;
    if (b1 == 3 && b2 == 105) return 10;
    if (b1 == 2 && b2 == 101) return 6;
    if (b1 == 8 && b2 == 109 && std::fabs(mfactor - 175.12683524647636) <= 3.502536704929527e-05) return 7;
    return 9;
}

void Units(vis_SDRCLwt* sdrc)
{
    FILE* fp = sdrc->w.fp;
    vis_Units* u = sdrc->units;
    int temp = 0;
    vis_UnitsGetBase(u, VIS_UNITS_TEMPERATURE, &temp);
    /* Kelvin and Rankine are absolute scales. */
    const int mode = temp == 1 || temp == 4 ? 1 : 2;
    double f1 = 1, f2 = 1, f4 = 1, f5 = 0;
    vis_UnitsGetBaseSIFactor(u, VIS_UNITS_LENGTH, &f1);
    vis_UnitsGetBaseSIFactor(u, VIS_UNITS_MASS, &f2);
    vis_UnitsGetBaseSIFactor(u, VIS_UNITS_TEMPERATURE, &f4);
    vis_UnitsGetBaseSIFactor(u, VIS_UNITS_TEMPOFFSET, &f5);
    vis_SDRCLwt_Open(fp, 164);
    std::fprintf(fp, "%10d%20s%10d\n", UnitsCode(u), "", mode);
    vis_SDRCLwt_Real(fp, 1.0 / f1, 25);
    vis_SDRCLwt_Real(fp, (1.0 / f1) * (1.0 / f2), 25);
    vis_SDRCLwt_Real(fp, 1.0 / f4, 25);
    std::fputc('\n', fp);
    vis_SDRCLwt_Real(fp, f5, 25);
    std::fputc('\n', fp);
    vis_SDRCLwt_Close(fp);
}

void System(FILE* fp, int key, vis_CoordSys* cs)
{
    int type = 0;
    double o[3], t[9];
    vis_CoordSysGetType(cs, &type);
    vis_CoordSysOriginTriad(cs, o, t);
    std::fprintf(fp, "%10d%10d%10d%10d%10d\n", key, type - 1, 0, 0, 1);
    std::fprintf(fp, "COORDINATE SYSTEM %d\n", key);
    for (int a = 0; a < 3; ++a) vis_SDRCLwt_Real(fp, o[a], 13);
    for (int a = 0; a < 3; ++a) vis_SDRCLwt_Real(fp, o[a] + t[a], 13);
    std::fputc('\n', fp);
    for (int a = 0; a < 3; ++a) vis_SDRCLwt_Real(fp, o[a] + t[6 + a], 13);
    std::fputc('\n', fp);
}

void Systems(vis_SDRCLwt* sdrc)
{
    int num = 0;
    vsy_HashTableCount(sdrc->coordsys, &num);
    if (num < 1) return;
    FILE* fp = sdrc->w.fp;
    vis_SDRCLwt_Open(fp, 18);
    vis_Writer_Ordered(sdrc->coordsys, [fp](int key, void* value) { System(fp, key, static_cast<vis_CoordSys*>(value)); });
    vis_SDRCLwt_Close(fp);
}

/* One group: its record, its name, its entries two to a line with printed ids. */
void Group(vis_SDRCLwt* sdrc, int key, vis_IdTran* group, int nodes)
{
    FILE* fp = sdrc->w.fp;
    const int limit = nodes ? sdrc->w.numnp : sdrc->w.numel;
    int n = 0, count = 0;
    vis_IdTranNum(group, &n);
    for (int i = 1; i <= n; ++i) {
        int index = 0;
        vis_IdTranGetId(group, i, &index);
        count += index >= 1 && index <= limit;
    }
    std::fprintf(fp, "%10d%10d%10d%10d%10d%10d%10d%10d\n", key, 0, 0, 0, 0, 0, 0, count);
    std::fprintf(fp, "%-s\n", group->name ? group->name : "");
    int written = 0;
    for (int i = 1; i <= n; ++i) {
        int index = 0;
        vis_IdTranGetId(group, i, &index);
        if (index < 1 || index > limit) continue;
        const int id = nodes ? vis_Writer_NodeId(&sdrc->w, index) : vis_Writer_ElemId(&sdrc->w, index);
        std::fprintf(fp, "%10d%10d%10d%10d", nodes ? 7 : 8, id, 0, 0);
        if (++written % 2 == 0) std::fputc('\n', fp);
    }
    if (written % 2 != 0) std::fputc('\n', fp);
}

void Groups(vis_SDRCLwt* sdrc)
{
    FILE* fp = sdrc->w.fp;
    vis_SDRCLwt_Open(fp, 2452);
    vis_Writer_Ordered(sdrc->nodegroup, [sdrc](int key, void* v) { Group(sdrc, key, static_cast<vis_IdTran*>(v), 1); });
    vis_Writer_Ordered(sdrc->elemgroup, [sdrc](int key, void* v) { Group(sdrc, key, static_cast<vis_IdTran*>(v), 0); });
    vis_SDRCLwt_Close(fp);
}

void Datasets(vis_SDRCLwt* sdrc)
{
    if (sdrc->units) Units(sdrc);
    if (sdrc->w.connect && sdrc->nodes) vis_SDRCLwt_Nodes(sdrc);
    if (sdrc->w.connect && sdrc->elems) vis_SDRCLwt_Elems(sdrc);
    if (sdrc->coordsys) Systems(sdrc);
    if (sdrc->nodegroup || sdrc->elemgroup) Groups(sdrc);
    if (sdrc->lcase && sdrc->w.connect) vis_SDRCLwt_Loads(sdrc);
    if (sdrc->rcase) vis_SDRCLwt_Restraints(sdrc);
    if (sdrc->mcase) vis_SDRCLwt_Constraints(sdrc);
}

}  // namespace

void vis_SDRCLwt_Open(FILE* fp, int dataset)
{
    std::fprintf(fp, "    -1\n%6d\n", dataset);
}

void vis_SDRCLwt_Close(FILE* fp)
{
    std::fputs("    -1\n", fp);
}

int vis_SDRCLwt_RealText(double value, int width, char* out)
{
    char text[VSY_REALTEXT_LEN];
    const int len = vsy_RealToExpLen(value, width, 2, 1, 0, text);
    const int pad = len < width ? width - len : 0;
    std::memset(out, ' ', static_cast<size_t>(pad));
    std::memcpy(out + pad, text, static_cast<size_t>(len));
    return pad + len;
}

void vis_SDRCLwt_Real(FILE* fp, double value, int width)
{
    char text[40];
    vis_Writer_Put(fp, text, vis_SDRCLwt_RealText(value, width, text));
}

vis_SDRCLwt* vis_SDRCLwtNew(void)
{
    vis_SDRCLwt* sdrc = static_cast<vis_SDRCLwt*>(vis_Writer_New(sizeof(vis_SDRCLwt), "SDRCLwt"));
    if (sdrc) sdrc->nodes = sdrc->elems = 1;
    return sdrc;
}

void vis_SDRCLwtDelete(vis_SDRCLwt* sdrc)
{
    if (!sdrc) return;
    vis_Writer_Release(&sdrc->w);
    vsy_Free(sdrc);
}

int vis_SDRCLwtError(vis_SDRCLwt* sdrc)
{
    return vis_Writer_TakeError(sdrc ? &sdrc->w : nullptr);
}

void vis_SDRCLwtWriteModel(vis_SDRCLwt* sdrc, vis_Model* model, const char* path)
{
    if (!sdrc) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "SDRCLwt");
        return;
    }
    if (!vis_Writer_Open(&sdrc->w, kWriteModel, path, "w")) return;
    if (!vis_Writer_Begin(&sdrc->w, kWriteModel, model)) return;
    ReadTables(sdrc, model);
    Frame(sdrc);
    Datasets(sdrc);
    vis_Writer_End(&sdrc->w);
}
