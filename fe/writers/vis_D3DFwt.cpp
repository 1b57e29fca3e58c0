#include "vis_D3DFwt.h"

#include "vis_D3DFwtInternal.h"
#include "vis_Model.h"
#include "vis_SProp.h"
#include "vis_WriterTable.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"
#include "vsy_List.h"

#include <cstring>

namespace {

const char* const kWriteModel = "vis_D3DFwtWriteModel";

void ReadTables(vis_D3DFwt* d3d, vis_Model* model)
{
    struct {
        int code;
        vsy_HashTable** slot;
    } const tables[] = {{SYS_COORDSYS, &d3d->coordsys}, {SYS_MPROP, &d3d->mprop},         {SYS_EPROP, &d3d->eprop},
                        {SYS_ELEMDAT, &d3d->elemdat},   {SYS_LCASE, &d3d->lcase},         {SYS_RCASE, &d3d->rcase},
                        {SYS_MCASE, &d3d->mcase},       {SYS_ICASE, &d3d->icase},         {SYS_TCURVE, &d3d->tcurve},
                        {SYS_NODEGROUP, &d3d->nodegroup}, {SYS_ELEMGROUP, &d3d->elemgroup}};
    for (const auto& t : tables) {
        *t.slot = nullptr;
        vis_ModelGetHashTable(model, t.code, t.slot);
    }
    d3d->sprop = nullptr;
    vis_ModelGetList(model, SYS_SPROP, &d3d->sprop);
}

/* "$ LS-DYNA input deck", "*KEYWORD" and the first step's title when it has one. */
void Head(vis_D3DFwt* d3d, vis_SProp* step)
{
    std::fputs("$ LS-DYNA input deck\n*KEYWORD\n", d3d->w.fp);
    char title[96] = "";
    if (step) vis_SPropValueString(step, 19, title);
    if (title[0]) std::fprintf(d3d->w.fp, "*TITLE\n%s\n", title);
}

void Sections(vis_D3DFwt* d3d)
{
    vis_SProp* step = static_cast<vis_SProp*>(vis_Writer_ListItem(d3d->sprop, 1));
    Head(d3d, step);
    d3d->analysis = 1;
    if (step) vis_SPropValueInteger(step, 0, &d3d->analysis);
    if (d3d->coordsys) vis_D3DFwt_Systems(d3d);
    vis_D3DFwt_Nodes(d3d);
    vis_D3DFwt_Elems(d3d);
    if (d3d->eprop) vis_D3DFwt_Parts(d3d);
    if (d3d->mprop) vis_D3DFwt_Materials(d3d);
    vis_D3DFwt_Sets(d3d);
    if (step && d3d->rcase) vis_D3DFwt_Restraints(d3d, step);
    if (step && d3d->lcase) vis_D3DFwt_Loads(d3d, step);
    std::fputs("*END\n", d3d->w.fp);
}

}  // namespace

vis_D3DFwt* vis_D3DFwtNew(void)
{
    vis_D3DFwt* d3d = static_cast<vis_D3DFwt*>(vis_Writer_New(sizeof(vis_D3DFwt), "D3DFwt"));
    return d3d;
}

void vis_D3DFwtDelete(vis_D3DFwt* d3d)
{
    if (!d3d) return;
    vis_Writer_Release(&d3d->w);
    vsy_Free(d3d);
}

int vis_D3DFwtError(vis_D3DFwt* d3d)
{
    return vis_Writer_TakeError(d3d ? &d3d->w : nullptr);
}

void vis_D3DFwtWriteModel(vis_D3DFwt* d3d, vis_Model* model, const char* path)
{
    if (!d3d) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "D3DFwt");
        return;
    }
    if (!vis_Writer_Open(&d3d->w, kWriteModel, path, "w")) return;
    if (!vis_Writer_Begin(&d3d->w, kWriteModel, model)) return;
    ReadTables(d3d, model);
    d3d->maxnode = 0;
    d3d->numnode = d3d->w.numnp;
    d3d->curve = d3d->segcurve = 0;
    if (d3d->tcurve) vsy_HashTableMaxKey(d3d->tcurve, &d3d->curve);
    Sections(d3d);
    vis_Writer_End(&d3d->w);
}
