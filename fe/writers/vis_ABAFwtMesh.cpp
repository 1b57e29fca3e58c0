/* Nodes, the all-nodes set name, and the transforms of nodes with a local system. */
#include "vis_ABAFwtInternal.h"
#include "vis_CoordSys.h"
#include "vis_IdTran.h"
#include "vsy_Error.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"
#include "vsy_IntHash.h"
#include "vsy_RealText.h"
#include "vsy_Util.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace {

/* 1 when the group lists every node index exactly once. */
int CoversAll(vis_IdTran* group, int numnp)
{
    int n = 0;
    vis_IdTranNum(group, &n);
    if (n != numnp || n < 1) return 0;
    std::vector<char> seen(static_cast<size_t>(numnp) + 1, 0);
    for (int i = 1; i <= n; ++i) {
        int id = 0;
        vis_IdTranGetId(group, i, &id);
        if (id < 1 || id > numnp || seen[id]) return 0;
        seen[id] = 1;
    }
    return 1;
}

/* The name of the first node group in ascending key order that holds all nodes, else "NALL". */
void AllNodesName(vis_ABAFwt* aba)
{
    std::strcpy(aba->nall, "NALL");
    if (!aba->nodegroup) return;
    bool found = false;
    vis_ABAFwt_Ordered(aba->nodegroup, [aba, &found](int, void* value) {
        vis_IdTran* group = static_cast<vis_IdTran*>(value);
        char name[VIS_ABAFWT_NAMELEN];
        vis_ABAFwt_GroupName(group, name, VIS_ABAFWT_NAMELEN);
        if (found || name[0] == '\0' || !CoversAll(group, aba->w.numnp)) return;
        found = true;
        std::strcpy(aba->nall, name);
        vsy_StrReplace(aba->nall, '.', '_');
    });
}

/* "%d" and three ",%16s" coordinates in exponent form with at least two exponent digits. */
void NodeLine(FILE* fp, int id, const double x[3])
{
    char line[96];
    int len = vsy_FieldIntText(id, 1, line);
    for (int a = 0; a < 3; ++a) {
        char text[VSY_REALTEXT_LEN];
        vsy_RealToExp(x[a], 16, 2, 1, 0, text);
        const int tl = static_cast<int>(std::strlen(text));
        line[len++] = ',';
        for (int p = tl; p < 16; ++p) line[len++] = ' ';
        std::memcpy(line + len, text, tl);
        len += tl;
    }
    line[len++] = '\n';
    vis_Writer_Put(fp, line, len);
}

/* Nodes with a system, as (system, index), in node order. */
std::vector<std::pair<int, int>> SystemNodes(vis_Writer* w)
{
    std::vector<std::pair<int, int>> out;
    int cs[VIS_WRITER_BLOCK], ft[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_NodeAssocs(w, 4, first, n, cs);
        vis_Writer_NodeAssocs(w, 0, first, n, ft);
        for (int i = 0; i < n; ++i)
            if (cs[i] != 0 && ft[i] != 0 && ft[i] != 2) out.emplace_back(cs[i], first + i);
    }
    return out;
}

/* One "*TRANSFORM" of a system: two axes of a rectangular one, origin and a point on the axis
 * of a cylindrical or spherical one. */
void Transform(FILE* fp, int id, vis_CoordSys* cs)
{
    int type = 0;
    double o[3], t[9];
    vis_CoordSysGetType(cs, &type);
    vis_CoordSysOriginTriad(cs, o, t);
    const char kind = type == 1 ? 'R' : type == 2 ? 'C' : type == 3 || type == 4 ? 'S' : 0;
    if (!kind) return;
    std::fprintf(fp, "*TRANSFORM, NSET=CID%d, TYPE=%c\n", id, kind);
    double v[6] = {t[0], t[1], t[2], t[3], t[4], t[5]};
    if (kind != 'R')
        for (int a = 0; a < 3; ++a) v[a] = o[a], v[3 + a] = o[a] + t[6 + a];
    vis_ABAFwt_Reals(fp, 6, v, "\n");
}

}  // namespace

void vis_ABAFwt_Nodes(vis_ABAFwt* aba)
{
    vis_Writer* w = &aba->w;
    AllNodesName(aba);
    aba->nodeids = static_cast<int*>(vsy_Malloc(sizeof(int) * (static_cast<size_t>(w->numnp) + 1)));
    std::fprintf(w->fp, "**         Nodes\n*NODE, NSET=%s\n", aba->nall);
    int ft[VIS_WRITER_BLOCK], id[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_NodeAssocs(w, 0, first, n, ft);
        for (int i = 0; i < n; ++i) id[i] = first + i;
        vis_Writer_NodeIds(w, n, id);
        if (aba->nodeids) std::memcpy(aba->nodeids + first, id, sizeof(int) * static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) {
            if (ft[i] == 0 || ft[i] == 2) continue;
            double x[3];
            vis_Writer_Coords(w, first + i, x);
            NodeLine(w->fp, id[i], x);
            if (id[i] > aba->maxnode) aba->maxnode = id[i];
        }
    }
}

void vis_ABAFwt_Transforms(vis_ABAFwt* aba)
{
    if (aba->domain != 1 || !aba->coordsys) return;
    FILE* fp = aba->w.fp;
    std::vector<std::pair<int, int>> nodes = SystemNodes(&aba->w);
    std::vector<std::pair<int, int>> sorted = nodes;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const std::pair<int, int>& a, const std::pair<int, int>& b) { return a.first < b.first; });
    std::fputs("**         Transform node sets\n", fp);
    for (size_t i = 0; i < sorted.size();) {
        size_t end = i;
        while (end < sorted.size() && sorted[end].first == sorted[i].first) ++end;
        std::fprintf(fp, "*NSET, NSET=CID%d\n", sorted[i].first);
        for (size_t k = i; k < end; ++k) {
            const int id = vis_Writer_NodeId(&aba->w, sorted[k].second);
            if (k + 1 == end) std::fprintf(fp, "%d\n", id);
            else std::fprintf(fp, (k - i + 1) % 8 == 0 ? "%d,\n" : "%d,", id);
        }
        i = end;
    }
    std::fputs("**         Transforms\n", fp);
    vsy_IntHash* seen = vsy_IntHashNew();
    for (const auto& node : nodes) {
        int done = 0;
        if (seen) vsy_IntHashGet(seen, node.first, &done);
        if (done) continue;
        if (seen) vsy_IntHashInsert(seen, node.first, 1);
        if (auto* cs = static_cast<vis_CoordSys*>(vis_ABAFwt_Find(aba->coordsys, node.first))) Transform(fp, node.first, cs);
    }
    vsy_IntHashDelete(seen);
}
