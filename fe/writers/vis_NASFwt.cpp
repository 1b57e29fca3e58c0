#include "vis_NASFwt.h"

#include "vis_Model.h"
#include "vis_NASFwtInternal.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"
#include "vsy_Util.h"

#include <cstring>

namespace {

const char* const kWriteModel = "vis_NASFwtWriteModel";

int MaxKey(vsy_HashTable* tab)
{
    int key = 0;
    if (tab) vsy_HashTableMaxKey(tab, &key);
    return key;
}

/* The id counters and the deck's featwod, from one pass over elements and one over nodes. */
void Counters(vis_NASFwt* nas)
{
    vis_Writer* w = &nas->w;
    nas->elemid = nas->nodeid = 0;
    nas->featwod = 0;
    int ids[VIS_WRITER_BLOCK], wod[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numel; first += VIS_WRITER_BLOCK) {
        const int n = w->numel - first + 1 < VIS_WRITER_BLOCK ? w->numel - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_ElemIds(w, first, n, ids);
        vis_Writer_ElemAssocs(w, 25, first, n, wod);
        for (int i = 0; i < n; ++i) {
            if (ids[i] > nas->elemid) nas->elemid = ids[i];
            if (wod[i] != 0) nas->featwod = wod[i];
        }
    }
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        for (int i = 0; i < n; ++i) ids[i] = first + i;
        vis_Writer_NodeIds(w, n, ids);
        for (int i = 0; i < n; ++i)
            if (ids[i] > nas->nodeid) nas->nodeid = ids[i];
    }
    nas->propid = MaxKey(nas->eprop);
    nas->matid = MaxKey(nas->mprop);
    nas->tempcase = 0;
}

void ReadTables(vis_NASFwt* nas, vis_Model* model)
{
    vis_ModelGetHashTable(model, SYS_COORDSYS, &nas->coordsys);
    vis_ModelGetHashTable(model, SYS_EPROP, &nas->eprop);
    vis_ModelGetHashTable(model, SYS_MPROP, &nas->mprop);
    vis_ModelGetHashTable(model, SYS_LCASE, &nas->lcase);
    vis_ModelGetHashTable(model, SYS_ICASE, &nas->icase);
    vis_ModelGetHashTable(model, SYS_RCASE, &nas->rcase);
    vis_ModelGetHashTable(model, SYS_MCASE, &nas->mcase);
    vis_ModelGetHashTable(model, SYS_ELEMDAT, &nas->elemdat);
    vis_ModelGetList(model, SYS_SPROP, &nas->sprop);
}

/* The material classes live from the properties to the materials; without the table (no
 * memory) every material has no class. */
void PropertiesAndMaterials(vis_NASFwt* nas)
{
    if (!nas->eprop && !nas->mprop) return;
    nas->matclass = vsy_IntHashNew();
    if (nas->eprop) vis_NASFwt_Props(nas);
    if (nas->mprop) vis_NASFwt_Mats(nas);
    vsy_IntHashDelete(nas->matclass);
    nas->matclass = nullptr;
}

void Sections(vis_NASFwt* nas)
{
    FILE* fp = nas->w.fp;
    if (nas->sprop) vis_NASFwt_Control(nas);
    if (nas->w.connect) {
        std::fputs("BEGIN BULK\n", fp);
        if (nas->sprop) vis_NASFwt_Params(nas);
        vis_NASFwt_Grid(nas);
        vis_NASFwt_Elems(nas);
    }
    if (nas->coordsys) vis_NASFwt_CoordSys(nas);
    PropertiesAndMaterials(nas);
    if (nas->lcase) vis_NASFwt_Loads(nas);
    if (nas->icase) vis_NASFwt_Initial(nas);
    if (nas->rcase) vis_NASFwt_Restraints(nas);
    if (nas->mcase) vis_NASFwt_Mpcs(nas);
    if (nas->w.connect) std::fputs("ENDDATA\n", fp);
}

}  // namespace

vis_NASFwt* vis_NASFwtNew(void)
{
    vis_NASFwt* nas = static_cast<vis_NASFwt*>(vis_Writer_New(sizeof(vis_NASFwt), "NASFwt"));
    if (nas) nas->domain = 1;
    return nas;
}

void vis_NASFwtDelete(vis_NASFwt* nas)
{
    if (!nas) return;
    vis_Writer_Release(&nas->w);
    vsy_Free(nas);
}

int vis_NASFwtError(vis_NASFwt* nas)
{
    return vis_Writer_TakeError(nas ? &nas->w : nullptr);
}

void vis_NASFwtWriteModel(vis_NASFwt* nas, vis_Model* model, const char* path)
{
    if (!nas) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "NASFwt");
        return;
    }
    vsy_StrCopy(nas->path, path ? path : "", VIS_NASFWT_PATHLEN);
    nas->kind = 0;
    nas->domain = 1;
    if (!vis_Writer_Open(&nas->w, kWriteModel, path, "wb")) return;
    if (!vis_Writer_Begin(&nas->w, kWriteModel, model)) return;
    nas->coordsys = nas->eprop = nas->mprop = nas->lcase = nas->elemdat = nullptr;
    nas->icase = nas->rcase = nas->mcase = nullptr;
    nas->sprop = nullptr;
    ReadTables(nas, model);
    Counters(nas);
    Sections(nas);
    vis_Writer_End(&nas->w);
}
