/* Loads (datasets 790 and 792), restraints (791) and constraints (751), one dataset per case
 * in ascending case id.
 *
 * 790, concentrated forces and moments: a node's six dof flags are 1 for the force components
 * when it holds a force and for the moment components when it holds a moment.
 * 792, nodal temperatures (concentrated loads of type 4): "%10d%10d\n" with the case and 1,
 * "TEMPERATURE SET %d\n", then per node "%10d" with its id and "%25s" with the value.
 * 790 of form 2, pressures on element faces, and of form 4, pressures on element edges: per
 * loaded face or edge "%10d%10d%10d%10d\n" with the element id, colour 1, the face or edge
 * number (from 1, in this system's numbering) and the number of corner values; the corner
 * values "%25s" on one line (three for a triangular face, four for a quadrilateral one, two
 * for an edge); "%10d\n" with 0, the time variation. Tractions, heat fluxes and convection
 * are not written.
 * 791 of kind 2 writes per node "%10d%10d%10d\n" with the id, 2 and 0, then the temperature.
 * 751 writes the linear equations only (two-node ties and links have no terms), each with the
 * further integers 0 and 0 and the reals 0 and 0; a term's second real is 0.
 */
#include "vis_ElemTopology.h"
#include "vis_LCase.h"
#include "vis_MCase.h"
#include "vis_RCase.h"
#include "vis_SDRCLwtInternal.h"

#include <vector>

namespace {

void Zeros(FILE* fp)
{
    std::fprintf(fp, "%10d%10d%10d%10d%10d%10d\n", 0, 0, 0, 0, 0, 0);
}

/* Six reals in two lines of three. */
void Six(FILE* fp, const double* v)
{
    for (int i = 0; i < 6; ++i) {
        vis_SDRCLwt_Real(fp, v[i], 25);
        if (i % 3 == 2) std::fputc('\n', fp);
    }
}

void Forces(vis_SDRCLwt* sdrc, int key, vis_LCase* lc)
{
    FILE* fp = sdrc->w.fp;
    int max = 0;
    vis_LCaseConcMax(lc, VIS_LCASE_FORCEMOMENT, &max);
    if (max > sdrc->w.numnp) max = sdrc->w.numnp;
    bool open = false;
    for (int n = 1; n <= max; ++n) {
        int mask = 0;
        vis_LCaseConcType(lc, n, &mask);
        if ((mask & 3) == 0) continue;
        if (!open) {
            vis_SDRCLwt_Open(fp, 790);
            std::fprintf(fp, "%10d%10d\nLOAD SET %d\n", key, 1, key);
            open = true;
        }
        double v[6] = {0, 0, 0, 0, 0, 0};
        vis_LCaseConcdv(lc, n, 1, v);
        vis_LCaseConcdv(lc, n, 2, v + 3);
        const int f = mask & 1, m = (mask >> 1) & 1;
        std::fprintf(fp, "%10d%10d%2d%2d%2d%2d%2d%2d\n", vis_Writer_NodeId(&sdrc->w, n), 1, f, f, f, m, m, m);
        Six(fp, v);
        Zeros(fp);
    }
    if (open) vis_SDRCLwt_Close(fp);
}

/* Corners of face or edge `no` of element e: 2 for an edge, 3 or 4 for a face; 0 when it has
 * no such face. */
int Corners(vis_Writer* w, int entity, int e, int no)
{
    if (entity == SYS_EDGE) return 2;
    int shape = 0, maxi = 0, maxj = 0, maxk = 0, fshape = -1, fmaxi = 0, fmaxj = 0;
    vis_Writer_Topology(w, e, &shape, &maxi, &maxj, &maxk);
    vis_ElemFaceTopo(shape, maxi, maxj, maxk, no - 1, &fshape, &fmaxi, &fmaxj);
    return fshape == SYS_SHAPE_TRI ? 3 : fshape == SYS_SHAPE_QUAD ? 4 : 0;
}

/* Pressures on faces (form 2) or edges (form 4). */
void Pressures(vis_SDRCLwt* sdrc, int key, vis_LCase* lc, int entity)
{
    FILE* fp = sdrc->w.fp;
    int max = 0;
    vis_LCaseDistMax(lc, entity, 2, &max);
    if (max > sdrc->w.numel) max = sdrc->w.numel;
    const int nmax = entity == SYS_FACE ? 6 : 12;
    bool open = false;
    for (int e = 1; e <= max; ++e) {
        int flags = 0;
        vis_LCaseDistFlag(lc, entity, e, 2, &flags);
        for (int no = 1; no <= nmax; ++no) {
            const int nc = (flags >> (no - 1)) & 1 ? Corners(&sdrc->w, entity, e, no) : 0;
            if (nc == 0) continue;
            if (!open) {
                vis_SDRCLwt_Open(fp, 790);
                std::fprintf(fp, "%10d%10d\nLOAD SET %d\n", key, entity == SYS_FACE ? 2 : 4, key);
                open = true;
            }
            double v[4] = {0, 0, 0, 0};
            vis_LCaseDistdv(lc, entity, e, no, 2, v);
            std::fprintf(fp, "%10d%10d%10d%10d\n", vis_Writer_ElemId(&sdrc->w, e), 1, no, nc);
            for (int i = 0; i < nc; ++i) vis_SDRCLwt_Real(fp, v[i], 25);
            std::fprintf(fp, "\n%10d\n", 0);
        }
    }
    if (open) vis_SDRCLwt_Close(fp);
}

void Temperatures(vis_SDRCLwt* sdrc, int key, vis_LCase* lc)
{
    FILE* fp = sdrc->w.fp;
    int max = 0;
    vis_LCaseConcMax(lc, 4, &max);
    if (max > sdrc->w.numnp) max = sdrc->w.numnp;
    bool open = false;
    for (int n = 1; n <= max; ++n) {
        int flag = 0;
        vis_LCaseConcFlag(lc, n, 4, &flag);
        if (!flag) continue;
        if (!open) {
            vis_SDRCLwt_Open(fp, 792);
            std::fprintf(fp, "%10d%10d\nTEMPERATURE SET %d\n", key, 1, key);
            open = true;
        }
        double t = 0.0;
        vis_LCaseConcdv(lc, n, 4, &t);
        std::fprintf(fp, "%10d", vis_Writer_NodeId(&sdrc->w, n));
        vis_SDRCLwt_Real(fp, t, 25);
        std::fputc('\n', fp);
    }
    if (open) vis_SDRCLwt_Close(fp);
}

/* Kind 1 for structural restraints, 2 when temperature (tag 7) is the only tag. */
void Restraint(vis_SDRCLwt* sdrc, int key, vis_RCase* rc)
{
    FILE* fp = sdrc->w.fp;
    int nused = 0, used[32];
    vis_RCaseUseTag(rc, &nused, used);
    const int kind = nused == 1 && used[0] == 7 ? 2 : 1;
    vis_SDRCLwt_Open(fp, 791);
    std::fprintf(fp, "%10d%10d\nRESTRAINT SET %d\n", key, kind, key);
    int max = 0;
    vis_RCaseSPCMax(rc, &max);
    if (max > sdrc->w.numnp) max = sdrc->w.numnp;
    for (int n = 1; n <= max; ++n) {
        int nt = 0, tags[32];
        vis_RCaseSPCTag(rc, n, &nt, tags);
        int flags[6] = {0, 0, 0, 0, 0, 0};
        double v[6] = {0, 0, 0, 0, 0, 0}, temp = 0.0;
        bool any = false, hot = false;
        for (int i = 0; i < nt; ++i) {
            int type = 0;
            double value = 0.0;
            vis_RCaseSPCdv(rc, n, tags[i], &type, &value);
            if (tags[i] >= 1 && tags[i] <= 6) flags[tags[i] - 1] = 1, v[tags[i] - 1] = value, any = true;
            if (tags[i] == 7) temp = value, hot = true;
        }
        const int id = vis_Writer_NodeId(&sdrc->w, n);
        if (kind == 2 && hot) {
            std::fprintf(fp, "%10d%10d%10d\n", id, 2, 0);
            vis_SDRCLwt_Real(fp, temp, 25);
            std::fputc('\n', fp);
        }
        if (kind != 1 || !any) continue;
        std::fprintf(fp, "%10d%10d", id, 1);
        for (int f : flags) std::fprintf(fp, "%2d", f);
        std::fprintf(fp, "%2d%2d%2d\n", 0, 7, 0);
        Six(fp, v);
        Zeros(fp);
    }
    vis_SDRCLwt_Close(fp);
}

/* The linear equations of a case; two-node constraints have no terms to write. */
void Constraint(vis_SDRCLwt* sdrc, int key, vis_MCase* mc)
{
    FILE* fp = sdrc->w.fp;
    int nequ = 0, maxterm = 0, maxindex = 0;
    vis_MCaseInq(mc, &nequ, &maxterm, &maxindex);
    vis_SDRCLwt_Open(fp, 751);
    std::fprintf(fp, "%10d%10d\nCONSTRAINT SET %d\n", key, 2, key);
    std::vector<int> nodes(static_cast<size_t>(maxterm) + 1), tags(static_cast<size_t>(maxterm) + 1);
    std::vector<double> factors(static_cast<size_t>(maxterm) + 1);
    int running = 0;
    for (int q = 1; q <= maxindex; ++q) {
        int type = 0, nterms = 0;
        vis_MCaseType(mc, q, &type);
        vis_MCaseMPC(mc, q, &nterms);
        if (type != 1 || nterms < 1 || nterms > maxterm) continue;
        vis_MCaseMPCdv(mc, q, &nterms, nodes.data(), tags.data(), factors.data());
        std::fprintf(fp, "%10d%10d%10d%10d", ++running, nterms, 0, 0);
        vis_SDRCLwt_Real(fp, 0.0, 13);
        vis_SDRCLwt_Real(fp, 0.0, 13);
        std::fprintf(fp, "%10d\n", 0);
        for (int t = 0; t < nterms; ++t) {
            const int node = nodes[t] >= 1 && nodes[t] <= sdrc->w.numnp ? vis_Writer_NodeId(&sdrc->w, nodes[t]) : nodes[t];
            std::fprintf(fp, "%10d%2d", node, tags[t]);
            vis_SDRCLwt_Real(fp, factors[t], 13);
            vis_SDRCLwt_Real(fp, 0.0, 13);
            std::fputc('\n', fp);
        }
    }
    vis_SDRCLwt_Close(fp);
}

}  // namespace

void vis_SDRCLwt_Loads(vis_SDRCLwt* sdrc)
{
    vis_Writer_Ordered(sdrc->lcase, [sdrc](int key, void* v) {
        Forces(sdrc, key, static_cast<vis_LCase*>(v));
        Pressures(sdrc, key, static_cast<vis_LCase*>(v), SYS_FACE);
        Pressures(sdrc, key, static_cast<vis_LCase*>(v), SYS_EDGE);
        Temperatures(sdrc, key, static_cast<vis_LCase*>(v));
    });
}

void vis_SDRCLwt_Restraints(vis_SDRCLwt* sdrc)
{
    vis_Writer_Ordered(sdrc->rcase, [sdrc](int key, void* v) { Restraint(sdrc, key, static_cast<vis_RCase*>(v)); });
}

void vis_SDRCLwt_Constraints(vis_SDRCLwt* sdrc)
{
    vis_Writer_Ordered(sdrc->mcase, [sdrc](int key, void* v) { Constraint(sdrc, key, static_cast<vis_MCase*>(v)); });
}
