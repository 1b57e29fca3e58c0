/* Rigid links: "CERIG" for a rigid body, "RBE3" with its node and weight arrays for a
 * distributing link. */
#include "vis_ANSFwtInternal.h"

#include "vis_EProp.h"

#include <vector>

namespace {

/* Integer or double values of a parameter counted by another; defaults where unset. */
std::vector<int> Flags(vis_EProp* p, int n)
{
    std::vector<int> v(static_cast<size_t>(n > 2 ? n : 2), 63);
    int flag = 0;
    if (p) vis_EPropValueFlag(p, 86, &flag);
    if (flag) vis_EPropValueInteger(p, 86, v.data());
    return v;
}

int Groups(vis_EProp* p)
{
    int g = 0;
    if (p) vis_EPropValueInteger(p, 83, &g);
    return g;
}

std::vector<double> Weights(vis_EProp* p, int n)
{
    std::vector<double> w(static_cast<size_t>(n > 1 ? n : 1), 1.0);
    int flag = 0;
    if (p) vis_EPropValueFlag(p, 84, &flag);
    if (flag) vis_EPropValueDouble(p, 84, w.data());
    return w;
}

void Rigid(FILE* fp, const vis_ANSFwt_Elem* e, const int* ids)
{
    const int mask = Flags(e->prop, Groups(e->prop))[1];
    for (int k = 1; k < e->n; ++k) {
        std::fprintf(fp, "CERIG,%d,%d", ids[0], ids[k]);
        vis_ANSFwt_Dofs(fp, mask);
        std::fputc('\n', fp);
    }
}

/* The dependent nodes take the weights of the property in turn, the last one repeated. */
void Distributing(FILE* fp, const vis_ANSFwt_Elem* e, const int* ids)
{
    const int g = Groups(e->prop), nslave = e->n - 1;
    const std::vector<double> w = Weights(e->prop, g);
    const int nw = g > 0 ? g : 1;
    std::fprintf(fp, "*DIM,RBE3SLV,ARRAY,%d\n", nslave);
    for (int k = 1; k <= nslave; ++k) std::fprintf(fp, "*SET,RBE3SLV(%d),%d\n", k, ids[k]);
    int differ = 0;
    for (int k = 1; k < nslave; ++k) differ |= w[static_cast<size_t>(k < nw ? k : nw - 1)] != w[0];
    if (differ) {
        std::fprintf(fp, "*DIM,RBE3WGT,ARRAY,%d\n", nslave);
        for (int k = 0; k < nslave; ++k)
            std::fprintf(fp, "*SET,RBE3WGT(%d),%e\n", k + 1, w[static_cast<size_t>(k < nw ? k : nw - 1)]);
    }
    std::fprintf(fp, "RBE3,%d", ids[0]);
    vis_ANSFwt_Dofs(fp, Flags(e->prop, g)[0]);
    std::fputs(differ ? ",RBE3SLV,RBE3WGT\n" : ",RBE3SLV\n", fp);
}

}  // namespace

void vis_ANSFwt_Rigids(vis_ANSFwt* ans)
{
    FILE* fp = ans->w.fp;
    std::fputs("C***       Rigids\n", fp);
    vis_ANSFwt_Elem e;
    int ids[VIS_ELEM_MAXNODE];
    for (int i = 1; i <= ans->w.numel; ++i) {
        if (vis_Writer_ElemAssoc(&ans->w, 0, i) != 10) continue;
        vis_ANSFwt_ReadElem(ans, i, &e);
        if (e.n < 2) continue;
        for (int k = 0; k < e.n; ++k) ids[k] = e.node[k];
        vis_Writer_NodeIds(&ans->w, e.n, ids);
        if (e.feaspec == 0) Rigid(fp, &e, ids);
        else if (e.feaspec == 1 || e.feaspec == 4) Distributing(fp, &e, ids);
    }
}
