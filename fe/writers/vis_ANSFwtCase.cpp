/* The cases of a step: initial conditions "IC", restraints "D", constraint equations "CE" and
 * loads "F", "BF", "SFE", "BFE", "ACEL", "CGLOC", "CGOMGA". */
#include "vis_ANSFwtInternal.h"

#include "vis_ICase.h"
#include "vis_LCase.h"
#include "vis_MCase.h"
#include "vis_RCase.h"
#include "vsy_HashTable.h"

#include <vector>

namespace {

void* Case(vsy_HashTable* tab, int id)
{
    void* c = nullptr;
    if (tab) vsy_HashTableGet(tab, id, &c);
    return c;
}

int NodeId(vis_ANSFwt* ans, int node) { return vis_Writer_NodeId(&ans->w, node); }

/* The value of a tag among the tags read, 0 when absent. */
double ValueOf(int tag, int n, const int* tags, const double* values, int* found)
{
    for (int k = 0; k < n; ++k)
        if (tags[k] == tag) {
            *found = 1;
            return values[k];
        }
    return 0.0;
}

/* Zero restraints of a node: all six, one, or a first with the others as further labels. */
void ZeroRestraints(FILE* fp, int id, const int* tags, int n)
{
    if (n == 0) return;
    if (n == 6) {
        std::fprintf(fp, "D,%d,ALL,0.\n", id);
        return;
    }
    std::fprintf(fp, n == 1 ? "D,%d,%s,0.\n" : "D,%d,%s,0.,,,", id, vis_ANSFwt_DofName(tags[0]));
    if (n == 1) return;
    for (int k = 1; k < n; ++k) std::fprintf(fp, ",%s", vis_ANSFwt_DofName(tags[k]));
    std::fputc('\n', fp);
}

void Concentrated(vis_ANSFwt* ans, vis_LCase* lc, double factor)
{
    static const char* const names[2][3] = {{"FX", "FY", "FZ"}, {"MX", "MY", "MZ"}};
    FILE* fp = ans->w.fp;
    for (int type = 1; type <= 4; ++type) {
        int max = 0;
        vis_LCaseConcMax(lc, type, &max);
        for (int node = 1; node <= max && node <= ans->w.numnp; ++node) {
            int flag = 0;
            vis_LCaseConcFlag(lc, node, type, &flag);
            if (!flag) continue;
            double v[3] = {0, 0, 0};
            vis_LCaseConcdv(lc, node, type, v);
            const int id = NodeId(ans, node);
            if (type <= 2) {
                for (int k = 0; k < 3; ++k) {
                    if (v[k] == 0.0) continue;
                    std::fprintf(fp, "F,%d,%s", id, names[type - 1][k]);
                    vis_ANSFwt_Real(fp, v[k] * factor);
                    std::fputc('\n', fp);
                }
            } else {
                std::fprintf(fp, type == 3 ? "F,%d,HEAT" : "BF,%d,TEMP", id);
                vis_ANSFwt_Real(fp, type == 3 ? v[0] * factor : v[0]);
                std::fputc('\n', fp);
            }
        }
    }
}

/* The corner values of a library face or edge in the order of the format's face corners. */
int FaceValues(const vis_ANSFwt_Elem* e, int libno, int entity, int no, int face, int perval, int which,
               const double* v, double* out)
{
    int corners[VIS_ELEM_MAXCORNER], nc = 0, pos[VIS_ELEM_MAXNODE];
    if (entity == SYS_EDGE) vis_ElemEdgeCorners(e->shape, e->maxi, e->maxj, e->maxk, no - 1, &nc, corners);
    else vis_ElemFaceCorners(e->shape, e->maxi, e->maxj, e->maxk, no - 1, &nc, corners);
    vis_ANSFwt_NodeOrder(e, libno, pos);
    static const int brick[6][4] = {{1, 0, 3, 2}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}, {4, 5, 6, 7}};
    static const int tet[4][3] = {{1, 0, 2}, {0, 1, 3}, {1, 2, 3}, {2, 0, 3}};
    static const int plane[4][2] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}};
    int n = 0;
    const int* f = nullptr;
    if (e->featype == 2 || e->featype == 3) {
        for (int k = 0; k < nc; ++k) out[n++] = v[k * perval + which];
        return n;
    }
    if (entity == SYS_EDGE) f = plane[face - 1], n = 2;
    else if (e->shape == SYS_SHAPE_TET && e->order == 3) f = tet[face - 1], n = 3;
    else f = brick[face - 1], n = 4;
    for (int k = 0; k < n; ++k) {
        out[k] = 0.0;
        for (int c = 0; c < nc; ++c)
            if (corners[c] == pos[f[k]]) out[k] = v[c * perval + which];
    }
    return n;
}

/* One "SFE" line: element, face, label and key, then the corner values. */
void Sfe(FILE* fp, int id, int face, const char* label, const double* v, int n, double factor)
{
    std::fprintf(fp, "SFE,%d,%d,%s", id, face, label);
    for (int k = 0; k < n; ++k) vis_ANSFwt_Real(fp, v[k] * factor);
    std::fputc('\n', fp);
}

void Distributed(vis_ANSFwt* ans, vis_LCase* lc, int entity, int type, double factor)
{
    FILE* fp = ans->w.fp;
    int max = 0;
    vis_LCaseDistMax(lc, entity, type, &max);
    vis_ANSFwt_Elem e;
    for (int i = 1; i <= max && i <= ans->w.numel; ++i) {
        int flags = 0;
        vis_LCaseDistFlag(lc, entity, i, type, &flags);
        if (!flags || ans->etnum[i] == 0) continue;
        vis_ANSFwt_ReadElem(ans, i, &e);
        const int shell = e.featype == 2 || e.featype == 3;
        const int plane = e.shape == SYS_SHAPE_TRI || e.shape == SYS_SHAPE_QUAD;
        if ((entity == SYS_EDGE) != (plane && !shell)) continue;
        for (int no = 1; no <= 12; ++no) {
            if (!(flags & (1 << (no - 1)))) continue;
            const int face = shell && entity == SYS_FACE ? no : vis_ANSFwt_Face(&e, ans->libno[i], no);
            if (face == 0) continue;
            double v[8] = {0}, out[4];
            vis_LCaseDistdv(lc, entity, i, no, type, v);
            if (type == 2) {
                const int n = FaceValues(&e, ans->libno[i], entity, no, face, 1, 0, v, out);
                Sfe(fp, e.id, face, "PRES,0", out, n, factor);
            } else if (type == 5) {
                const int n = FaceValues(&e, ans->libno[i], entity, no, face, 1, 0, v, out);
                Sfe(fp, e.id, face, "HFLUX,", out, n, factor);
            } else {
                int n = FaceValues(&e, ans->libno[i], entity, no, face, 2, 1, v, out);
                Sfe(fp, e.id, face, "CONV,1", out, n, 1.0);
                n = FaceValues(&e, ans->libno[i], entity, no, face, 2, 0, v, out);
                Sfe(fp, e.id, face, "CONV,2", out, n, 1.0);
            }
        }
    }
}

void ElementHeat(vis_ANSFwt* ans, vis_LCase* lc, double factor)
{
    int max = 0;
    vis_LCaseElemMax(lc, 2, &max);
    for (int i = 1; i <= max && i <= ans->w.numel; ++i) {
        int flag = 0, n = 0;
        vis_LCaseElemFlag(lc, i, 2, &flag);
        if (!flag || ans->etnum[i] == 0) continue;
        double v[VIS_LCASE_MAXELEMVAL];
        vis_LCaseElemdv(lc, i, 2, &n, v);
        std::fprintf(ans->w.fp, "BFE,%d,HGEN,", vis_Writer_ElemId(&ans->w, i));
        for (int k = 0; k < n; ++k) vis_ANSFwt_Real(ans->w.fp, v[k] * factor);
        std::fputc('\n', ans->w.fp);
    }
}

void Three(FILE* fp, const char* name, const double* v, double factor)
{
    std::fputs(name, fp);
    for (int k = 0; k < 3; ++k) vis_ANSFwt_Real(fp, v[k] * factor);
    std::fputc('\n', fp);
}

void Body(vis_ANSFwt* ans, vis_LCase* lc, double factor)
{
    int flag = 0;
    vis_LCaseAccelFlag(lc, &flag);
    if (!flag) return;
    double a[3], w[3], alpha[3], centre[3];
    vis_LCaseAccel(lc, a, w, alpha, centre);
    Three(ans->w.fp, "ACEL", a, factor);
    if (w[0] == 0.0 && w[1] == 0.0 && w[2] == 0.0) return;
    Three(ans->w.fp, "CGLOC", centre, 1.0);
    Three(ans->w.fp, "CGOMGA", w, factor);
}

}  // namespace

void vis_ANSFwt_Initial(vis_ANSFwt* ans, int id)
{
    vis_ICase* ic = static_cast<vis_ICase*>(Case(ans->icase, id));
    if (!ic) return;
    FILE* fp = ans->w.fp;
    std::fputs("C***       Initial Conditions\n", fp);
    int max1 = 0, max2 = 0;
    vis_ICaseSPVMax(ic, 1, &max1);
    vis_ICaseSPVMax(ic, 2, &max2);
    const int max = max1 > max2 ? max1 : max2;
    for (int node = 1; node <= max && node <= ans->w.numnp; ++node) {
        int n1 = 0, n2 = 0, t1[32], t2[32];
        double v1[32], v2[32];
        vis_ICaseSPVdv(ic, node, 1, &n1, t1, v1);
        vis_ICaseSPVdv(ic, node, 2, &n2, t2, v2);
        for (int tag = 1; tag <= 7; ++tag) {
            int found = 0;
            const double d = ValueOf(tag, n1, t1, v1, &found);
            const double v = tag == 7 ? 0.0 : ValueOf(tag, n2, t2, v2, &found);
            if (!found) continue;
            std::fprintf(fp, "IC,%d,%s", NodeId(ans, node), vis_ANSFwt_DofName(tag));
            vis_ANSFwt_Real(fp, d);
            if (tag != 7) vis_ANSFwt_Real(fp, v);
            std::fputc('\n', fp);
        }
    }
}

void vis_ANSFwt_Restraints(vis_ANSFwt* ans, int id)
{
    vis_RCase* rc = static_cast<vis_RCase*>(Case(ans->rcase, id));
    if (!rc) return;
    FILE* fp = ans->w.fp;
    std::fputs("C***       Restraints\n", fp);
    int max = 0;
    vis_RCaseSPCMax(rc, &max);
    for (int node = 1; node <= max && node <= ans->w.numnp; ++node) {
        int n = 0, tags[32], zero[7], nzero = 0;
        vis_RCaseSPCTag(rc, node, &n, tags);
        const int nid = NodeId(ans, node);
        for (int k = 0; k < n; ++k) {
            int type = 0;
            double value = 0.0;
            vis_RCaseSPCdv(rc, node, tags[k], &type, &value);
            const int want = ans->domain == 2 ? tags[k] == 7 : tags[k] >= 1 && tags[k] <= 6;
            if (!want) continue;
            if (ans->domain == 2 || (type == 2 && value != 0.0)) {
                std::fprintf(fp, "D,%d,%s", nid, vis_ANSFwt_DofName(tags[k]));
                vis_ANSFwt_Real(fp, value);
                std::fputc('\n', fp);
            } else {
                zero[nzero++] = tags[k];
            }
        }
        ZeroRestraints(fp, nid, zero, nzero);
    }
}

void vis_ANSFwt_Equations(vis_ANSFwt* ans, int id)
{
    vis_MCase* mc = static_cast<vis_MCase*>(Case(ans->mcase, id));
    if (!mc) return;
    FILE* fp = ans->w.fp;
    std::fputs("C***       Linear multi-point constraints\n", fp);
    int nequ = 0, maxterm = 0, maxindex = 0, number = 0;
    vis_MCaseInq(mc, &nequ, &maxterm, &maxindex);
    std::vector<int> nodes(static_cast<size_t>(maxterm + 1)), tags(nodes.size());
    std::vector<double> factors(nodes.size());
    for (int index = 1; index <= maxindex; ++index) {
        int type = 0, n = 0;
        vis_MCaseType(mc, index, &type);
        if (type != 1) continue;
        vis_MCaseMPCdv(mc, index, &n, nodes.data(), tags.data(), factors.data());
        std::fprintf(fp, "CE,%d", ++number);
        vis_ANSFwt_Real(fp, 0.0);
        for (int k = 0; k < n; ++k) {
            if (k > 0 && k % 3 == 0) std::fprintf(fp, "\nCE,%d,", number);
            const char* dof = vis_ANSFwt_DofName(tags[static_cast<size_t>(k)]);
            std::fprintf(fp, ",%d,%s", NodeId(ans, nodes[static_cast<size_t>(k)]), dof ? dof : "UX");
            vis_ANSFwt_Real(fp, factors[static_cast<size_t>(k)]);
        }
        std::fputc('\n', fp);
    }
}

void vis_ANSFwt_Loads(vis_ANSFwt* ans, int id, double factor)
{
    vis_LCase* lc = static_cast<vis_LCase*>(Case(ans->lcase, id));
    if (!lc) return;
    std::fputs("C***       Loads\n", ans->w.fp);
    Concentrated(ans, lc, factor);
    for (int entity : {SYS_FACE, SYS_EDGE})
        for (int type : {2, 5, 6}) Distributed(ans, lc, entity, type, factor);
    ElementHeat(ans, lc, factor);
    Body(ans, lc, factor);
}
