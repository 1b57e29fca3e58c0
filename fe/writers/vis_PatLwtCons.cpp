/* Restraints (packets 10 and 8), initial temperatures (10), multipoint constraints (14) and
 * named groups (21) of the neutral file. */
#include "vis_ICase.h"
#include "vis_IdTran.h"
#include "vis_MCase.h"
#include "vis_PatLwtInternal.h"
#include "vis_RCase.h"
#include "vis_WriterLine.h"
#include "vis_WriterTable.h"
#include "vsy_IntHash.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr int kMaxTag = 32;

/* The tags of a restraint node, with their types and values. */
struct Tags {
    int n = 0;
    int tag[kMaxTag], type[kMaxTag];
    double value[kMaxTag];
};

Tags TagsOf(vis_RCase* rc, int index)
{
    Tags t;
    vis_RCaseSPCTag(rc, index, &t.n, t.tag);
    if (t.n > kMaxTag) t.n = kMaxTag;
    for (int k = 0; k < t.n; ++k) {
        t.type[k] = 0;
        t.value[k] = 0.0;
        vis_RCaseSPCdv(rc, index, t.tag[k], &t.type[k], &t.value[k]);
    }
    return t;
}

/* Whether the case uses tag 7, and any of tags 1 to 6. */
void Uses(vis_RCase* rc, bool* temp, bool* dof)
{
    int n = 0, tags[kMaxTag];
    vis_RCaseUseTag(rc, &n, tags);
    *temp = *dof = false;
    for (int k = 0; k < n && k < kMaxTag; ++k) {
        if (tags[k] == 7) *temp = true;
        if (tags[k] >= 1 && tags[k] <= 6) *dof = true;
    }
}

/* Packet 8 of a node: the system, a flag per restrained dof, a real per dof: 0.0 when fixed,
 * the value when prescribed. */
void Restraint(vis_PatLwt* pat, int id, int index, const Tags& t)
{
    int flags[6] = {0, 0, 0, 0, 0, 0}, n = 0;
    double v[kMaxTag];
    for (int k = 0; k < t.n; ++k) {
        if (t.tag[k] < 1 || t.tag[k] > 6) continue;
        flags[t.tag[k] - 1] = 1;
        v[n++] = t.type[k] == 2 && t.value[k] != 0.0 ? t.value[k] : 0.0;
    }
    if (n == 0) return;
    vis_Writer* w = &pat->w;
    vis_PatLwt_Header(w->fp, 8, vis_Writer_NodeId(w, index), id, vis_PatLwt_Cards(n) + 1);
    vis_WriterLine line;
    line.Int(vis_Writer_NodeAssoc(w, 4, index), 8);
    for (int f : flags) line.Char(f ? '1' : '0');
    line.End(w->fp);
    vis_PatLwt_Reals(w->fp, n, v);
}

/* Calls f(index, tags) for the nodes of `featype` not 0 with tags. */
template <class F>
void Nodes(vis_PatLwt* pat, vis_RCase* rc, F f)
{
    int max = 0;
    vis_RCaseSPCMax(rc, &max);
    for (int index = 1; index <= max && index <= pat->w.numnp; ++index) {
        if (vis_Writer_NodeAssoc(&pat->w, 0, index) == 0) continue;
        const Tags t = TagsOf(rc, index);
        if (t.n > 0) f(index, t);
    }
}

/* One equation of n terms: the first term's factor divides all others (negated) and the
 * constant, which is 0 in the library's equations. */
void Equation(vis_PatLwt* pat, int id, int no, int n, const int* nodes, const int* tags, const double* f)
{
    FILE* fp = pat->w.fp;
    vis_PatLwt_Header(fp, 14, no, id, n / 2 + 2, n - 1, n - 2);
    std::fprintf(fp, "                        %12s\n", "MPC");
    vis_WriterLine line;
    auto term = [&](int k, double value) {
        line.Int(vis_Writer_NodeId(&pat->w, nodes[k]), 8);
        line.Int(tags[k] == 7 ? 1 : tags[k], 8);
        line.Exp(value, 16, 2);
    };
    term(0, 0.0 / f[0]);
    line.End(fp);
    for (int k = 1; k < n; ++k) {
        term(k, -f[k] / f[0]);
        if (k % 2 == 0 || k + 1 == n) line.End(fp);
    }
}

/* The entries of a group as (entity type, id) pairs: 5 for nodes, 7 for elements. */
void Entries(vis_PatLwt* pat, vis_IdTran* group, bool nodes, std::vector<int>* pairs)
{
    if (!group) return;
    const int limit = nodes ? pat->w.numnp : pat->w.numel;
    int n = 0;
    vis_IdTranNum(group, &n);
    for (int i = 1; i <= n; ++i) {
        int index = 0;
        vis_IdTranGetId(group, i, &index);
        if (index < 1 || index > limit) continue;
        pairs->push_back(nodes ? 5 : 7);
        pairs->push_back(nodes ? vis_Writer_NodeId(&pat->w, index) : vis_Writer_ElemId(&pat->w, index));
    }
}

std::string Name(vis_IdTran* group, int key)
{
    if (group && group->name && group->name[0]) return group->name;
    return "GROUP" + std::to_string(key);
}

void Group(vis_PatLwt* pat, int key, const std::string& name, const std::vector<int>& pairs)
{
    FILE* fp = pat->w.fp;
    const int n = static_cast<int>(pairs.size()) / 2;
    vis_PatLwt_Header(fp, 21, key, 2 * n, (2 * n + 9) / 10 + 1);
    std::fprintf(fp, "%-s\n", name.c_str());
    vis_WriterLine line;
    for (int i = 0; i < n; ++i) {
        line.Int(pairs[2 * i], 8);
        line.Int(pairs[2 * i + 1], 8);
        if ((i + 1) % 5 == 0 || i + 1 == n) line.End(fp);
    }
}

}  // namespace

void vis_PatLwt_Restraints(vis_PatLwt* pat)
{
    vis_Writer_Ordered(pat->rcase, [pat](int id, void* value) {
        auto* rc = static_cast<vis_RCase*>(value);
        bool temp = false, dof = false;
        Uses(rc, &temp, &dof);
        if (temp)
            Nodes(pat, rc, [&](int index, const Tags& t) {
                for (int k = 0; k < t.n; ++k)
                    if (t.tag[k] == 7) vis_PatLwt_NodeValue(pat, 10, index, id, 0, t.value[k]);
            });
        if (dof) Nodes(pat, rc, [&](int index, const Tags& t) { Restraint(pat, id, index, t); });
    });
}

void vis_PatLwt_Initial(vis_PatLwt* pat)
{
    vis_Writer_Ordered(pat->icase, [pat](int id, void* value) {
        auto* ic = static_cast<vis_ICase*>(value);
        int max = 0;
        vis_ICaseSPVMax(ic, 1, &max);
        for (int index = 1; index <= max && index <= pat->w.numnp; ++index) {
            if (vis_Writer_NodeAssoc(&pat->w, 0, index) == 0) continue;
            int n = 0, tags[kMaxTag];
            double v[kMaxTag];
            vis_ICaseSPVdv(ic, index, 1, &n, tags, v);
            for (int k = 0; k < n && k < kMaxTag; ++k)
                if (tags[k] == 7) vis_PatLwt_NodeValue(pat, 10, index, id, -1, v[k]);
        }
    });
}

void vis_PatLwt_Constraints(vis_PatLwt* pat)
{
    vis_Writer_Ordered(pat->mcase, [pat](int id, void* value) {
        auto* mc = static_cast<vis_MCase*>(value);
        int nequ = 0, maxterm = 0, maxindex = 0;
        vis_MCaseInq(mc, &nequ, &maxterm, &maxindex);
        std::vector<int> nodes(static_cast<size_t>(maxterm) + 1), tags(nodes.size());
        std::vector<double> f(nodes.size());
        for (int no = 1; no <= maxindex; ++no) {
            int type = 0, n = 0;
            vis_MCaseType(mc, no, &type);
            if (type != 1) continue;
            vis_MCaseMPCdv(mc, no, &n, nodes.data(), tags.data(), f.data());
            if (n >= 1 && n <= maxterm && f[0] != 0.0) Equation(pat, id, no, n, nodes.data(), tags.data(), f.data());
        }
    });
}

void vis_PatLwt_Groups(vis_PatLwt* pat)
{
    vsy_IntHash* keys = vsy_IntHashNew();
    if (!keys) return;
    std::vector<int> order;
    for (vsy_HashTable* tab : {pat->nodegroup, pat->elemgroup})
        vis_Writer_Ordered(tab, [keys, &order](int key, void*) {
            int seen = 0;
            vsy_IntHashGet(keys, key, &seen);
            if (!seen) order.push_back(key);
            vsy_IntHashInsert(keys, key, 1);
        });
    std::sort(order.begin(), order.end());
    for (int key : order) {
        auto* ng = static_cast<vis_IdTran*>(vis_Writer_Find(pat->nodegroup, key));
        auto* eg = static_cast<vis_IdTran*>(vis_Writer_Find(pat->elemgroup, key));
        std::vector<int> pairs;
        Entries(pat, ng, true, &pairs);
        if (ng && eg && Name(ng, key) != Name(eg, key)) {
            Group(pat, key, Name(ng, key), pairs);
            pairs.clear();
        }
        Entries(pat, eg, false, &pairs);
        Group(pat, key, Name(eg ? eg : ng, key), pairs);
    }
    vsy_IntHashDelete(keys);
}
