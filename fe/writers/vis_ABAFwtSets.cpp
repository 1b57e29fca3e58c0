/* Node and element sets from the model's named groups, in ascending key order. */
#include "vis_ABAFwtInternal.h"
#include "vis_IdTran.h"
#include "vsy_Dictionary.h"
#include "vsy_HashTable.h"
#include "vsy_Util.h"

#include <cstring>

namespace {

/* The set name of a group: '.' becomes '_', an empty name "NODE_SET%d" or "ELEM_SET%d". */
void SetName(vis_IdTran* group, int key, bool nodes, char* name, int size)
{
    vis_ABAFwt_GroupName(group, name, size);
    if (name[0] == '\0') std::snprintf(name, size, nodes ? "NODE_SET%d" : "ELEM_SET%d", key);
    vsy_StrReplace(name, '.', '_');
}

/* One set: its header on the first entity that exists, then "%d," ids, eight to a line. */
void Set(vis_ABAFwt* aba, vis_IdTran* group, bool nodes, const char* name)
{
    FILE* fp = aba->w.fp;
    const int limit = nodes ? aba->w.numnp : aba->w.numel;
    int n = 0, written = 0;
    vis_IdTranNum(group, &n);
    for (int i = 1; i <= n; ++i) {
        int index = 0;
        vis_IdTranGetId(group, i, &index);
        if (index < 1 || index > limit) continue;
        if (written == 0) std::fprintf(fp, nodes ? "*NSET, NSET=%-s\n" : "*ELSET, ELSET=%-s\n", name);
        const int id = nodes ? vis_Writer_NodeId(&aba->w, index) : vis_Writer_ElemId(&aba->w, index);
        std::fprintf(fp, "%d,", id);
        if (++written % 8 == 0) std::fputc('\n', fp);
    }
    if (written % 8 != 0) std::fputc('\n', fp);
}

void Sets(vis_ABAFwt* aba, vsy_HashTable* tab, bool nodes)
{
    std::fputs(nodes ? "**         Node sets\n" : "**         Element sets\n", aba->w.fp);
    vis_ABAFwt_Ordered(tab, [aba, nodes](int key, void* value) {
        vis_IdTran* group = static_cast<vis_IdTran*>(value);
        char name[VIS_ABAFWT_NAMELEN]; /* names are cut at 80 characters, as the format allows */
        SetName(group, key, nodes, name, sizeof name);
        void* known = nullptr;
        if (nodes && std::strcmp(name, aba->nall) == 0) return;
        if (!nodes) vsy_DictionaryGet(aba->names, name, &known);
        if (!known) Set(aba, group, nodes, name);
    });
}

}  // namespace

void vis_ABAFwt_Sets(vis_ABAFwt* aba)
{
    if (aba->nodegroup) Sets(aba, aba->nodegroup, true);
    if (aba->elemgroup) Sets(aba, aba->elemgroup, false);
}
