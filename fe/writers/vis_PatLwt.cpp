#include "vis_PatLwt.h"

#include "vis_Model.h"
#include "vis_PatLwtInternal.h"
#include "vis_WriterLine.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

#include <cstring>
#include <ctime>
#include <initializer_list>

namespace {

const char* const kWriteModel = "vis_PatLwtWriteModel";

void ReadTables(vis_PatLwt* pat, vis_Model* model)
{
    struct {
        int code;
        vsy_HashTable** slot;
    } const tables[] = {{SYS_COORDSYS, &pat->coordsys}, {SYS_EPROP, &pat->eprop},         {SYS_MPROP, &pat->mprop},
                        {SYS_LCASE, &pat->lcase},       {SYS_RCASE, &pat->rcase},         {SYS_ICASE, &pat->icase},
                        {SYS_MCASE, &pat->mcase},       {SYS_NODEGROUP, &pat->nodegroup}, {SYS_ELEMGROUP, &pat->elemgroup}};
    for (const auto& t : tables) {
        *t.slot = nullptr;
        vis_ModelGetHashTable(model, t.code, t.slot);
    }
}

int Count(vsy_HashTable* tab)
{
    int n = 0;
    if (tab) vsy_HashTableCount(tab, &n);
    return n;
}

/* Title (25) and summary (26): counts, then the date, time and version of the file. */
void Opening(vis_PatLwt* pat)
{
    FILE* fp = pat->w.fp;
    vis_PatLwt_Header(fp, 25, 0, 0, 1);
    std::fputs("Patran neutral file\n", fp);
    vis_PatLwt_Header(fp, 26, 0, 0, 1, pat->w.numnp, pat->w.numel, pat->nmprop, pat->neprop, pat->ncsys);
    char date[32] = "", clock[32] = "";
    const std::time_t now = std::time(nullptr);
    std::tm local;
    if (localtime_r(&now, &local)) {
        std::strftime(date, sizeof date, "%d-%b-%y", &local);
        std::strftime(clock, sizeof clock, "%H:%M:%S", &local);
    }
    std::fprintf(fp, "%-12s%8s%12s\n", date, clock, "3.0");
}

void Packets(vis_PatLwt* pat)
{
    Opening(pat);
    if (pat->w.connect) {
        vis_PatLwt_Nodes(pat);
        vis_PatLwt_Elems(pat);
    }
    if (pat->coordsys) vis_PatLwt_Frames(pat);
    if (pat->lcase) vis_PatLwt_Pressures(pat);
    if (pat->rcase) vis_PatLwt_Restraints(pat);
    if (pat->lcase) vis_PatLwt_Temperatures(pat);
    if (pat->icase) vis_PatLwt_Initial(pat);
    if (pat->mcase) vis_PatLwt_Constraints(pat);
    if (pat->lcase) vis_PatLwt_Heat(pat);
    if (pat->nodegroup || pat->elemgroup) vis_PatLwt_Groups(pat);
    vis_PatLwt_Header(pat->w.fp, 99, 0, 0, 1);
}

}  // namespace

void vis_PatLwt_Header(FILE* fp, int type, int id, int iv, int kc, int n1, int n2, int n3, int n4, int n5)
{
    vis_WriterLine line;
    line.Int(type, 2);
    for (int v : {id, iv, kc, n1, n2, n3, n4, n5}) line.Int(v, 8);
    line.End(fp);
}

void vis_PatLwt_Reals(FILE* fp, int n, const double* values)
{
    vis_WriterLine line;
    for (int i = 0; i < n; ++i) {
        line.Exp(values[i], 16, 2);
        if ((i + 1) % 5 == 0 || i + 1 == n) line.End(fp);
    }
}

void vis_PatLwt_NodeValue(vis_PatLwt* pat, int type, int node, int iv, int n2, double value)
{
    vis_PatLwt_Header(pat->w.fp, type, vis_Writer_NodeId(&pat->w, node), iv, 1, 1, n2);
    vis_PatLwt_Reals(pat->w.fp, 1, &value);
}

vis_PatLwt* vis_PatLwtNew(void)
{
    vis_PatLwt* pat = static_cast<vis_PatLwt*>(vis_Writer_New(sizeof(vis_PatLwt), "PatLwt"));
    return pat;
}

void vis_PatLwtDelete(vis_PatLwt* pat)
{
    if (!pat) return;
    vis_Writer_Release(&pat->w);
    vsy_Free(pat);
}

int vis_PatLwtError(vis_PatLwt* pat)
{
    return vis_Writer_TakeError(pat ? &pat->w : nullptr);
}

void vis_PatLwtWriteModel(vis_PatLwt* pat, vis_Model* model, const char* path)
{
    if (!pat) {
        vsy_ErrorMessage(kWriteModel, SYS_ERROR_NULLOBJECT, "PatLwt");
        return;
    }
    if (!vis_Writer_Open(&pat->w, kWriteModel, path, "w")) return;
    if (!vis_Writer_Begin(&pat->w, kWriteModel, model)) return;
    ReadTables(pat, model);
    pat->ncsys = Count(pat->coordsys);
    pat->neprop = Count(pat->eprop);
    pat->nmprop = Count(pat->mprop);
    Packets(pat);
    vis_Writer_End(&pat->w);
}
