/* Load cards of the NASTRAN deck, per load case in the table's slot order: forces, moments,
 * temperatures (with a default temperature), gravity, surface tractions and pressures
 * (vis_NASFwtFace.cpp), concentrated and volume heat, and heat flux and convection on
 * surfaces (vis_NASFwtFace.cpp). Nodes and elements with `featype` 0 are passed over; a node
 * or element id is its printed id (vis_Writer_NodeId, vis_Writer_ElemId).
 */
#include "vis_LCase.h"
#include "vis_NASFwtInternal.h"
#include "vsy_Field.h"
#include "vsy_HashTable.h"

#include <cmath>

namespace {

/* Concentrated load types and the element heat type of vis_LCase. */
enum { kForce = 1, kMoment = 2, kHeat = 3, kTemperature = 4, kElemHeat = 2 };

/* A default temperature needs this many nodes with a temperature. */
constexpr int kDefaultMin = 100;

bool Loaded(vis_NASFwt* nas, vis_LCase* lc, int node, int type)
{
    int flag = 0;
    vis_LCaseConcFlag(lc, node, type, &flag);
    return flag && vis_NASFwt_NodeType(nas, node) != 0;
}

/* FORCE or MOMENT: the vector's length and its direction of length 1. */
void Vectors(vis_NASFwt* nas, int lid, vis_LCase* lc, int type, const char* name)
{
    int max = 0;
    vis_LCaseConcMax(lc, type, &max);
    for (int node = 1; node <= max; ++node) {
        if (!Loaded(nas, lc, node, type)) continue;
        double v[3];
        vis_LCaseConcdv(lc, node, type, v);
        const double len = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
        if (len == 0.0) continue;
        const double field[4] = {len, v[0] / len, v[1] / len, v[2] / len};
        std::fprintf(nas->w.fp, "%s%8d%8d%8d", name, lid, vis_Writer_NodeId(&nas->w, node), 0);
        vsy_FieldSmall(nas->w.fp, 0, 4, field, 1);
    }
}

/* The default temperature of a case: the longest run of equal values over the nodes with a
 * temperature, in node order. Valid with at least kDefaultMin such nodes, a run over half of
 * them or more, and every node holding a temperature or the value being 0. */
bool DefaultTemperature(vis_NASFwt* nas, vis_LCase* lc, int max, double* value)
{
    vis_Writer* w = &nas->w;
    int nset = 0, run = 0, best = 0;
    bool complete = true;
    double runval = 0.0;
    int featype[VIS_WRITER_BLOCK];
    for (int first = 1; first <= w->numnp; first += VIS_WRITER_BLOCK) {
        const int n = w->numnp - first + 1 < VIS_WRITER_BLOCK ? w->numnp - first + 1 : VIS_WRITER_BLOCK;
        vis_Writer_NodeAssocs(w, 0, first, n, featype);
        for (int i = 0; i < n; ++i) {
            int flag = 0;
            if (first + i <= max) vis_LCaseConcFlag(lc, first + i, kTemperature, &flag);
            if (!flag || featype[i] == 0) {
                complete = false;
                continue;
            }
            double t = 0.0;
            vis_LCaseConcdv(lc, first + i, kTemperature, &t);
            ++nset;
            run = (run > 0 && t == runval) ? run + 1 : 1;
            runval = t;
            if (run > best) best = run, *value = t;
        }
    }
    return nset >= kDefaultMin && 2 * best >= nset && (complete || *value == 0.0);
}

void Temperatures(vis_NASFwt* nas, int lid, vis_LCase* lc)
{
    int max = 0;
    vis_LCaseConcMax(lc, kTemperature, &max);
    if (max == 0) return;
    if (lid > nas->tempcase) nas->tempcase = lid;
    FILE* fp = nas->w.fp;
    double def = 0.0;
    const bool hasdef = DefaultTemperature(nas, lc, max, &def);
    if (hasdef) {
        std::fprintf(fp, "TEMPD   %8d", lid);
        vsy_FieldSmall(fp, 0, 1, &def, 1);
    }
    for (int node = 1; node <= max && node <= nas->w.numnp; ++node) {
        if (!Loaded(nas, lc, node, kTemperature)) continue;
        double t = 0.0;
        vis_LCaseConcdv(lc, node, kTemperature, &t);
        if (hasdef && t == def) continue;
        std::fprintf(fp, "TEMP    %8d%8d", lid, vis_Writer_NodeId(&nas->w, node));
        vsy_FieldSmall(fp, 0, 1, &t, 1);
    }
}

void Gravity(FILE* fp, int lid, vis_LCase* lc)
{
    int flag = 0;
    vis_LCaseAccelFlag(lc, &flag);
    if (!flag) return;
    double a[3], w[3], alpha[3], centre[3];
    vis_LCaseAccel(lc, a, w, alpha, centre);
    if (a[0] == 0.0 && a[1] == 0.0 && a[2] == 0.0) return;
    std::fprintf(fp, "GRAV    %8d%8d", lid, 0);
    const double field[4] = {1.0, a[0], a[1], a[2]};
    vsy_FieldSmall(fp, 0, 4, field, 1);
}

void NodeHeat(vis_NASFwt* nas, int lid, vis_LCase* lc)
{
    int max = 0;
    vis_LCaseConcMax(lc, kHeat, &max);
    for (int node = 1; node <= max; ++node) {
        if (!Loaded(nas, lc, node, kHeat)) continue;
        double q = 0.0;
        vis_LCaseConcdv(lc, node, kHeat, &q);
        std::fprintf(nas->w.fp, "SLOAD*  %16d%16d%16.8E\n", lid, vis_Writer_NodeId(&nas->w, node), q);
    }
}

/* QVOL: the mean of the element's node values. */
void ElemHeat(vis_NASFwt* nas, int lid, vis_LCase* lc)
{
    int max = 0;
    vis_LCaseElemMax(lc, kElemHeat, &max);
    for (int elem = 1; elem <= max; ++elem) {
        int flag = 0, n = 0;
        vis_LCaseElemFlag(lc, elem, kElemHeat, &flag);
        if (!flag || vis_Writer_ElemAssoc(&nas->w, 0, elem) == 0) continue;
        double q[VIS_LCASE_MAXELEMVAL];
        vis_LCaseElemdv(lc, elem, kElemHeat, &n, q);
        double sum = 0.0;
        for (int i = 0; i < n; ++i) sum += q[i];
        const double mean = n > 0 ? sum / n : 0.0;
        std::fprintf(nas->w.fp, "QVOL*   %16d%16.8E%16d%16d\n", lid, mean, 0, vis_Writer_ElemId(&nas->w, elem));
    }
}

void Case(vis_NASFwt* nas, int lid, vis_LCase* lc)
{
    Vectors(nas, lid, lc, kForce, "FORCE   ");
    Vectors(nas, lid, lc, kMoment, "MOMENT  ");
    Temperatures(nas, lid, lc);
    Gravity(nas->w.fp, lid, lc);
    vis_NASFwt_FaceLoads(nas, lid, lc);
    NodeHeat(nas, lid, lc);
    ElemHeat(nas, lid, lc);
    vis_NASFwt_HeatLoads(nas, lid, lc);
}

}  // namespace

int vis_NASFwt_NodeType(vis_NASFwt* nas, int node)
{
    return vis_Writer_NodeAssoc(&nas->w, 0, node);
}

void vis_NASFwt_Loads(vis_NASFwt* nas)
{
    std::fputs("$          Loads\n", nas->w.fp);
    vis_NASFwt_Each<vis_LCase>(nas->lcase, [nas](int key, vis_LCase* p) { Case(nas, key, p); });
}
