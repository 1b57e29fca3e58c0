#include "vis_ANSFwt.h"

#include "vis_ANSFwtInternal.h"
#include "vis_Model.h"
#include "vis_SProp.h"
#include "vsy_Error.h"
#include "vsy_IntDict.h"
#include "vsy_List.h"

#include <cstring>

namespace {

const char* const kWriteModel = "vis_ANSFwtWriteModel";

void ReadTables(vis_ANSFwt* ans, vis_Model* model)
{
    vis_ModelGetHashTable(model, SYS_COORDSYS, &ans->coordsys);
    vis_ModelGetHashTable(model, SYS_MPROP, &ans->mprop);
    vis_ModelGetHashTable(model, SYS_EPROP, &ans->eprop);
    vis_ModelGetHashTable(model, SYS_ELEMDAT, &ans->elemdat);
    vis_ModelGetHashTable(model, SYS_LCASE, &ans->lcase);
    vis_ModelGetHashTable(model, SYS_RCASE, &ans->rcase);
    vis_ModelGetHashTable(model, SYS_MCASE, &ans->mcase);
    vis_ModelGetHashTable(model, SYS_ICASE, &ans->icase);
    vis_ModelGetHashTable(model, SYS_TCURVE, &ans->tcurve);
    vis_ModelGetHashTable(model, SYS_NODEGROUP, &ans->nodegroup);
    vis_ModelGetHashTable(model, SYS_ELEMGROUP, &ans->elemgroup);
    vis_ModelGetList(model, SYS_SPROP, &ans->sprop);
}

void ClearTables(vis_ANSFwt* ans)
{
    ans->coordsys = ans->mprop = ans->eprop = ans->elemdat = nullptr;
    ans->lcase = ans->rcase = ans->mcase = ans->icase = ans->tcurve = nullptr;
    ans->nodegroup = ans->elemgroup = nullptr;
    ans->sprop = nullptr;
}

/* Kind, domain and nonlinear flag of the first step; no list is a linear static structural run. */
void FirstStep(vis_ANSFwt* ans)
{
    ans->kind = 1;
    ans->domain = 1;
    ans->nonlin = 0;
    vis_SProp* step = nullptr;
    int count = 0;
    if (ans->sprop) vsy_ListCount(ans->sprop, &count);
    if (count > 0) vsy_ListRef(ans->sprop, 1, reinterpret_cast<void**>(&step));
    if (!step) return;
    vis_SPropGetType(step, &ans->kind);
    vis_SPropValueInteger(step, 0, &ans->domain);
    vis_SPropValueInteger(step, 16, &ans->nonlin);
}

void Titles(vis_ANSFwt* ans)
{
    vis_SProp* step = nullptr;
    int count = 0;
    if (ans->sprop) vsy_ListCount(ans->sprop, &count);
    if (count > 0) vsy_ListRef(ans->sprop, 1, reinterpret_cast<void**>(&step));
    if (!step) return;
    char text[96] = "", sub[96] = "";
    vis_SPropValueString(step, 19, text);
    vis_SPropValueString(step, 20, sub);
    if (text[0]) std::fprintf(ans->w.fp, "/TITLE, ,%s\n", text);
    if (sub[0]) std::fprintf(ans->w.fp, "/STITLE, ,%s\n", sub);
}

/* The largest node id, above which the beams' orientation nodes are numbered. */
void MaxNode(vis_ANSFwt* ans)
{
    ans->maxnode = 0;
    int ids[VIS_WRITER_BLOCK];
    for (int first = 1; first <= ans->w.numnp; first += VIS_WRITER_BLOCK) {
        const int rest = ans->w.numnp - first + 1;
        const int n = rest < VIS_WRITER_BLOCK ? rest : VIS_WRITER_BLOCK;
        for (int i = 0; i < n; ++i) ids[i] = first + i;
        vis_Writer_NodeIds(&ans->w, n, ids);
        for (int i = 0; i < n; ++i)
            if (ids[i] > ans->maxnode) ans->maxnode = ids[i];
    }
    ans->extranode = ans->maxnode;
}

/* The two id tables sized by the elements; 0 when they cannot be made. */
int MakeTables(vis_ANSFwt* ans)
{
    const size_t size = sizeof(int) * static_cast<size_t>(ans->w.numel + 1);
    ans->libno = static_cast<int*>(vsy_Malloc(size));
    ans->etnum = static_cast<int*>(vsy_Malloc(size));
    ans->reals = vsy_IntDictNew();
    if (!ans->libno || !ans->etnum || !ans->reals) return 0;
    std::memset(ans->libno, 0, size);
    std::memset(ans->etnum, 0, size);
    return 1;
}

void FreeTables(vis_ANSFwt* ans)
{
    vsy_Free(ans->libno);
    vsy_Free(ans->etnum);
    vsy_IntDictDelete(ans->reals);
    ans->libno = ans->etnum = nullptr;
    ans->reals = nullptr;
}

void Prep(vis_ANSFwt* ans)
{
    FILE* fp = ans->w.fp;
    if (ans->blocks) std::fputs("/PREP7\n", fp);
    if (ans->coordsys) vis_ANSFwt_CoordSys(ans);
    vis_ANSFwt_Nodes(ans);
    vis_ANSFwt_Types(ans);
    vis_ANSFwt_Reals(ans);
    vis_ANSFwt_Elems(ans);
    vis_ANSFwt_Rigids(ans);
}

void Sections(vis_ANSFwt* ans)
{
    if (ans->w.connect) Prep(ans);
    else if (ans->coordsys) vis_ANSFwt_CoordSys(ans);
    if (ans->eprop) vis_ANSFwt_Sections(ans);
    if (ans->mprop) vis_ANSFwt_Materials(ans);
    vis_ANSFwt_Components(ans);
    if (ans->sprop) vis_ANSFwt_Steps(ans);
}

}  // namespace

vis_ANSFwt* vis_ANSFwtNew(void)
{
    vis_ANSFwt* ans = static_cast<vis_ANSFwt*>(vis_Writer_New(sizeof(vis_ANSFwt), "ANSFwt"));
    if (ans) ans->blocks = 1;
    return ans;
}

void vis_ANSFwtDelete(vis_ANSFwt* ans)
{
    if (!ans) return;
    vis_Writer_Release(&ans->w);
    FreeTables(ans);
    vsy_Free(ans);
}

int vis_ANSFwtError(vis_ANSFwt* ans)
{
    return vis_Writer_TakeError(ans ? &ans->w : nullptr);
}

void vis_ANSFwtSetParami(vis_ANSFwt* ans, int type, int value)
{
    if (!ans) {
        vsy_ErrorMessage("vis_ANSFwtSetParami", SYS_ERROR_NULLOBJECT, "ANSFwt");
        return;
    }
    if (type != VIS_ANSFWT_BLOCKS) {
        vsy_ErrorRecord(&ans->w.ierr, "vis_ANSFwtSetParami", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    ans->blocks = value != 0;
}

void vis_ANSFwtWriteModel(vis_ANSFwt* ans, vis_Model* model, const char* path)
{
    if (!ans) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "ANSFwt");
        return;
    }
    if (!vis_Writer_Open(&ans->w, kWriteModel, path, "w")) return;
    if (!vis_Writer_Begin(&ans->w, kWriteModel, model)) return;
    ClearTables(ans);
    ReadTables(ans, model);
    if (!MakeTables(ans)) {
        vsy_ErrorRecord(&ans->w.ierr, kWriteModel, SYS_ERROR_MEMORY, "numel= %d", ans->w.numel);
    } else {
        FirstStep(ans);
        MaxNode(ans);
        ans->realnum = 0;
        Titles(ans);
        Sections(ans);
    }
    FreeTables(ans);
    vis_Writer_End(&ans->w);
}
