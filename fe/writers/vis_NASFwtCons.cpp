/* Initial condition, restraint and multipoint constraint cards of the NASTRAN deck, per case
 * in the case table's slot order and per node or equation in index order. Tag 7 (temperature)
 * stands for dof 1 in SPC and MPC cards.
 *
 * Departure: the long SPC* card of a prescribed value carries the case id before the node, as
 * the short SPC card does and the card's fields require, not the node first.
 */
#include "vis_ICase.h"
#include "vis_MCase.h"
#include "vis_NASFwtInternal.h"
#include "vis_RCase.h"
#include "vsy_Error.h"
#include "vsy_Field.h"

#include <string>

namespace {

/* Tags of the case objects: 1 to 31. */
constexpr int kMaxTag = 31;
constexpr int kTemperatureTag = 7;

int Dof(int tag)
{
    return tag == kTemperatureTag ? 1 : tag;
}

/* The values of a node at one level of an initial condition case, by tag (1 to 31). */
void LevelValues(vis_ICase* ic, int node, int level, double* bytag)
{
    int n = 0, tags[kMaxTag];
    double values[kMaxTag];
    for (int t = 0; t <= kMaxTag; ++t) bytag[t] = 0.0;
    vis_ICaseSPVdv(ic, node, level, &n, tags, values);
    for (int i = 0; i < n; ++i)
        if (tags[i] >= 1 && tags[i] <= kMaxTag) bytag[tags[i]] = values[i];
}

/* Which kinds of tags a level uses: temperature (7) and displacement or velocity (1 to 6). */
void UsedTags(vis_ICase* ic, int level, bool* temperature, bool* motion)
{
    int n = 0, tags[kMaxTag];
    vis_ICaseSPVUseTag(ic, level, &n, tags);
    for (int i = 0; i < n; ++i) {
        if (level == 1 && tags[i] == kTemperatureTag) *temperature = true;
        if (tags[i] >= 1 && tags[i] <= 6) *motion = true;
    }
}

void InitialCase(vis_NASFwt* nas, int cid, vis_ICase* ic)
{
    FILE* fp = nas->w.fp;
    bool temperature = false, motion = false;
    UsedTags(ic, 1, &temperature, &motion);
    UsedTags(ic, 2, &temperature, &motion);
    int max1 = 0, max2 = 0;
    vis_ICaseSPVMax(ic, 1, &max1);
    vis_ICaseSPVMax(ic, 2, &max2);
    double l1[kMaxTag + 1], l2[kMaxTag + 1];
    for (int node = 1; temperature && node <= max1; ++node) {
        if (vis_NASFwt_NodeType(nas, node) == 0) continue;
        int n = 0, tags[kMaxTag];
        double values[kMaxTag];
        vis_ICaseSPVdv(ic, node, 1, &n, tags, values);
        for (int i = 0; i < n; ++i) {
            if (tags[i] != kTemperatureTag) continue;
            std::fprintf(fp, "TEMP    %8d%8d", cid, vis_Writer_NodeId(&nas->w, node));
            vsy_FieldSmall(fp, 0, 1, &values[i], 1);
        }
    }
    const int max = max1 > max2 ? max1 : max2;
    for (int node = 1; motion && node <= max; ++node) {
        LevelValues(ic, node, 1, l1);
        LevelValues(ic, node, 2, l2);
        for (int tag = 1; tag <= 6; ++tag) {
            if (l1[tag] == 0.0 && l2[tag] == 0.0) continue;
            std::fprintf(fp, "TIC     %8d%8d%8d", cid, vis_Writer_NodeId(&nas->w, node), tag);
            const double both[2] = {l1[tag], l2[tag]};
            vsy_FieldSmall(fp, 0, 2, both, 1);
        }
    }
}

/* One node's restraints: prescribed values on their own SPC* cards, the others as one digit
 * string on an SPC card. */
void RestrainedNode(vis_NASFwt* nas, int cid, vis_RCase* rc, int node)
{
    int n = 0, tags[kMaxTag];
    vis_RCaseSPCTag(rc, node, &n, tags);
    if (n == 0 || vis_NASFwt_NodeType(nas, node) == 0) return;
    FILE* fp = nas->w.fp;
    const int id = vis_Writer_NodeId(&nas->w, node);
    std::string digits;
    for (int i = 0; i < n; ++i) {
        int type = 0;
        double value = 0.0;
        vis_RCaseSPCdv(rc, node, tags[i], &type, &value);
        if (type == 1 || value == 0.0) {
            digits += std::to_string(Dof(tags[i]));
        } else if (type == 2) {
            std::fprintf(fp, "SPC*    %16d%16d%16d", cid, id, Dof(tags[i]));
            vsy_FieldLarge(fp, 0, 1, &value, 1);
        }
    }
    if (digits.empty()) return;
    std::fprintf(fp, "SPC     %8d%8d%8s", cid, id, digits.c_str());
    const double zero = 0.0;
    vsy_FieldSmall(fp, 0, 1, &zero, 1);
}

void RestraintCase(vis_NASFwt* nas, int cid, vis_RCase* rc)
{
    int max = 0;
    vis_RCaseSPCMax(rc, &max);
    for (int node = 1; node <= max; ++node) RestrainedNode(nas, cid, rc, node);
}

/* The terms of one equation: the first on the MPC* line, then two a line in the large-field
 * layout (an odd term ends a line with an empty field, an even one starts it with one). */
void Equation(vis_NASFwt* nas, int cid, int nterms, const int* nodes, const int* tags, const double* f)
{
    FILE* fp = nas->w.fp;
    vis_Writer* w = &nas->w;
    std::fprintf(fp, "MPC*    %16d%16d%16d%16.8E\n", cid, vis_Writer_NodeId(w, nodes[0]), Dof(tags[0]), f[0]);
    for (int i = 1; i < nterms; ++i) {
        const int id = vis_Writer_NodeId(w, nodes[i]), dof = Dof(tags[i]);
        if (i % 2 == 0) std::fprintf(fp, "*       %16s%16d%16d%16.8E\n", " ", id, dof, f[i]);
        else if (i == nterms - 1) std::fprintf(fp, "*       %16d%16d%16.8E\n", id, dof, f[i]);
        else std::fprintf(fp, "*       %16d%16d%16.8E%16s\n", id, dof, f[i], " ");
    }
}

void MpcCase(vis_NASFwt* nas, int cid, vis_MCase* mc)
{
    int nequ = 0, maxterm = 0, maxindex = 0;
    vis_MCaseInq(mc, &nequ, &maxterm, &maxindex);
    if (maxterm < 1) return;
    const size_t n = static_cast<size_t>(maxterm);
    int* nodes = static_cast<int*>(vsy_Malloc(n * sizeof(int)));
    int* tags = static_cast<int*>(vsy_Malloc(n * sizeof(int)));
    double* factors = static_cast<double*>(vsy_Malloc(n * sizeof(double)));
    for (int index = 1; nodes && tags && factors && index <= maxindex; ++index) {
        int type = 0, nterms = 0;
        vis_MCaseType(mc, index, &type);
        if (type == 1) vis_MCaseMPCdv(mc, index, &nterms, nodes, tags, factors);
        if (nterms > 0 && nterms <= maxterm) Equation(nas, cid, nterms, nodes, tags, factors);
    }
    vsy_Free(factors);
    vsy_Free(tags);
    vsy_Free(nodes);
}

}  // namespace

void vis_NASFwt_Initial(vis_NASFwt* nas)
{
    std::fputs("$          Initial conditions\n", nas->w.fp);
    vis_NASFwt_Each<vis_ICase>(nas->icase, [nas](int key, vis_ICase* ic) { InitialCase(nas, key, ic); });
}

void vis_NASFwt_Restraints(vis_NASFwt* nas)
{
    std::fputs("$          Restraints\n", nas->w.fp);
    vis_NASFwt_Each<vis_RCase>(nas->rcase, [nas](int key, vis_RCase* rc) { RestraintCase(nas, key, rc); });
}

void vis_NASFwt_Mpcs(vis_NASFwt* nas)
{
    std::fputs("$          Multipoint constraints\n", nas->w.fp);
    vis_NASFwt_Each<vis_MCase>(nas->mcase, [nas](int key, vis_MCase* mc) { MpcCase(nas, key, mc); });
}
