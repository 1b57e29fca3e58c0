#include "vis_ABAFwt.h"

#include "vis_ABAFwtInternal.h"
#include "vis_EProp.h"
#include "vis_IdTran.h"
#include "vis_Model.h"
#include "vis_SProp.h"
#include "vsy_Dictionary.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"
#include "vsy_List.h"
#include "vsy_RealText.h"
#include "vsy_Util.h"

#include <cstring>

namespace {

const char* const kWriteModel = "vis_ABAFwtWriteModel";

void ReadTables(vis_ABAFwt* aba, vis_Model* model)
{
    struct {
        int code;
        vsy_HashTable** slot;
    } const tables[] = {{SYS_COORDSYS, &aba->coordsys}, {SYS_MPROP, &aba->mprop},         {SYS_EPROP, &aba->eprop},
                        {SYS_ELEMDAT, &aba->elemdat},   {SYS_ICASE, &aba->icase},         {SYS_LCASE, &aba->lcase},
                        {SYS_RCASE, &aba->rcase},       {SYS_MCASE, &aba->mcase},         {SYS_TCURVE, &aba->tcurve},
                        {SYS_CPAIR, &aba->cpair},       {SYS_NODEGROUP, &aba->nodegroup}, {SYS_ELEMGROUP, &aba->elemgroup}};
    for (const auto& t : tables) {
        *t.slot = nullptr;
        vis_ModelGetHashTable(model, t.code, t.slot);
    }
    aba->sprop = nullptr;
    vis_ModelGetList(model, SYS_SPROP, &aba->sprop);
}

/* The largest element id and the deck's featwod, before any element is written: queued rotary
 * inertia elements take ids above the largest. */
void Counters(vis_ABAFwt* aba)
{
    vis_Writer* w = &aba->w;
    aba->maxelem = aba->maxnode = aba->featwod = 0;
    int ids[VIS_WRITER_BLOCK], wod[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numel; first += VIS_WRITER_BLOCK) {
        const int n = w->numel - first + 1 < VIS_WRITER_BLOCK ? w->numel - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_ElemIds(w, first, n, ids);
        vis_Writer_ElemAssocs(w, 25, first, n, wod);
        for (int i = 0; i < n; ++i) {
            if (ids[i] > aba->maxelem) aba->maxelem = ids[i];
            if (wod[i] != 0) aba->featwod = wod[i];
        }
    }
}

/* "*HEADING" and the first step's title, or the default title. */
void Heading(vis_ABAFwt* aba)
{
    char title[96] = "";
    if (vis_SProp* step = vis_ABAFwt_Step(aba, 1)) vis_SPropValueString(step, 19, title);
    std::fprintf(aba->w.fp, "*HEADING\n%s\n", title[0] ? title : "ABAQUS input deck");
}

void Domain(vis_ABAFwt* aba)
{
    aba->domain = 1;
    if (vis_SProp* step = vis_ABAFwt_Step(aba, 1)) vis_SPropValueInteger(step, 0, &aba->domain);
}

void Sections(vis_ABAFwt* aba)
{
    Heading(aba);
    vis_ABAFwt_Nodes(aba);
    vis_ABAFwt_Transforms(aba);
    vis_ABAFwt_Elems(aba);
    vis_ABAFwt_Sets(aba);
    vis_ABAFwt_Props(aba);
    vis_ABAFwt_Materials(aba);
    vis_ABAFwt_Contacts(aba);
    vis_SProp* first = vis_ABAFwt_Step(aba, 1);
    int mpc = 0, ic = 0;
    if (first) vis_SPropValueInteger(first, 18, &mpc);
    if (first) vis_SPropValueInteger(first, 10, &ic);
    if (mpc) vis_ABAFwt_Constraints(aba, mpc);
    if (ic) vis_ABAFwt_Initial(aba, ic);
    vis_ABAFwt_Steps(aba);
}

/* The writer's own tables, made fresh for each deck. */
int MakeTables(vis_ABAFwt* aba)
{
    aba->names = vsy_DictionaryNew();
    aba->nodalthick = vsy_IntHashNew();
    aba->orients = vsy_IntHashNew();
    return aba->names && aba->nodalthick && aba->orients;
}

void DropTables(vis_ABAFwt* aba)
{
    vsy_DictionaryDelete(aba->names);
    vsy_IntHashDelete(aba->nodalthick);
    vsy_IntHashDelete(aba->orients);
    vsy_Free(aba->nodeids);
    aba->nodeids = nullptr;
    aba->names = nullptr;
    aba->nodalthick = aba->orients = nullptr;
}

}  // namespace

vis_SProp* vis_ABAFwt_Step(vis_ABAFwt* aba, int pos)
{
    int num = 0;
    if (!aba->sprop) return nullptr;
    vsy_ListCount(aba->sprop, &num);
    if (pos < 1 || pos > num) return nullptr;
    void* value = nullptr;
    vsy_ListRef(aba->sprop, pos, &value);
    return static_cast<vis_SProp*>(value);
}

void* vis_ABAFwt_Find(vsy_HashTable* tab, int key)
{
    void* value = nullptr;
    if (tab) vsy_HashTableGet(tab, key, &value);
    return value;
}

void vis_ABAFwt_GroupName(vis_IdTran* group, char* out, int size)
{
    out[0] = '\0';
    if (group && group->name) vsy_StrCopy(out, group->name, size);
}

int vis_ABAFwt_Real(double value, char* out)
{
    vsy_RealToField(value, 16, 1, 1, out);
    return static_cast<int>(std::strlen(out));
}

void vis_ABAFwt_Reals(FILE* fp, int n, const double* values, const char* end)
{
    char line[64 * 20];
    int len = 0;
    for (int i = 0; i < n && i < 64; ++i) {
        if (i > 0) line[len++] = ',', line[len++] = ' ';
        len += vis_ABAFwt_Real(values[i], line + len);
    }
    vis_Writer_Put(fp, line, len);
    std::fputs(end, fp);
}

void vis_ABAFwt_Value(FILE* fp, double value, const char* end)
{
    vis_ABAFwt_Reals(fp, 1, &value, end);
}

int vis_ABAFwt_EPropInt(vis_EProp* prop, int code, int def)
{
    if (prop) vis_EPropValueInteger(prop, code, &def);
    return def;
}

double vis_ABAFwt_EPropDouble(vis_EProp* prop, int code, double def)
{
    double v[80];
    v[0] = def;
    if (prop) vis_EPropValueDouble(prop, code, v);
    return v[0];
}

int vis_ABAFwt_Face(int shape, int no)
{
    static const int tet[5] = {0, 1, 2, 4, 3};
    static const int wed[6] = {0, 1, 2, 3, 5, 4};
    static const int pyr[6] = {0, 1, 3, 4, 5, 2};   /* the base first, as a degenerate hexahedron */
    static const int hex[7] = {0, 1, 2, 3, 5, 6, 4};
    switch (shape) {
    case SYS_SHAPE_TET: return no >= 1 && no <= 4 ? tet[no] : no;
    case SYS_SHAPE_PYR: return no >= 1 && no <= 5 ? pyr[no] : no;
    case SYS_SHAPE_WED: return no >= 1 && no <= 5 ? wed[no] : no;
    case SYS_SHAPE_HEX: return no >= 1 && no <= 6 ? hex[no] : no;
    default: return no;
    }
}

vis_ABAFwt* vis_ABAFwtNew(void)
{
    vis_ABAFwt* aba = static_cast<vis_ABAFwt*>(vis_Writer_New(sizeof(vis_ABAFwt), "ABAFwt"));
    if (aba) aba->domain = 1;
    return aba;
}

void vis_ABAFwtDelete(vis_ABAFwt* aba)
{
    if (!aba) return;
    vis_Writer_Release(&aba->w);
    DropTables(aba);
    vsy_Free(aba);
}

int vis_ABAFwtError(vis_ABAFwt* aba)
{
    return vis_Writer_TakeError(aba ? &aba->w : nullptr);
}

void vis_ABAFwtWriteModel(vis_ABAFwt* aba, vis_Model* model, const char* path)
{
    if (!aba) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "ABAFwt");
        return;
    }
    if (!vis_Writer_Open(&aba->w, kWriteModel, path, "w")) return;
    if (!vis_Writer_Begin(&aba->w, kWriteModel, model)) return;
    ReadTables(aba, model);
    std::memset(aba->sect, 0, sizeof aba->sect);
    aba->beamorient = aba->shells = aba->beams = aba->solids = aba->trusses = 0;
    Domain(aba);
    Counters(aba);
    if (MakeTables(aba)) Sections(aba);
    else vsy_ErrorRecord(&aba->w.ierr, kWriteModel, SYS_ERROR_MEMORY, "Malloc vec");
    DropTables(aba);
    vis_Writer_End(&aba->w);
}
