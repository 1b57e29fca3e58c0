#include "vis_FacetSplit.h"

#include "vis_ElemTopology.h"

#include <charconv>
#include <cmath>

namespace {

float Dist2(const float a[3], const float b[3])
{
    const float d[3] = {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
    return d[0] * d[0] + d[1] * d[1] + d[2] * d[2];
}

void Set(int* t, int a, int b, int c)
{
    t[0] = a, t[1] = b, t[2] = c;
}

}  // namespace

int vis_FacetSplit_Element(vis_Writer* w, int elem, int stl, vis_FacetSplit* f)
{
    f->nfacet = 0;
    if (vis_Writer_ElemAssoc(w, 0, elem) == 0) return 0;
    int shape = 0, maxi = 0, maxj = 0, maxk = 0;
    vis_Writer_Topology(w, elem, &shape, &maxi, &maxj, &maxk);
    if (shape != SYS_SHAPE_TRI && shape != SYS_SHAPE_QUAD) return 0;
    if (maxi >= 4 || (stl && maxj != 0)) return 0;
    int num = 0, nodes[VIS_ELEM_MAXNODE];
    vis_Writer_ElemNode(w, elem, &num, nodes);
    f->shape = shape;
    f->ncorner = shape == SYS_SHAPE_TRI ? 3 : 4;
    if (num < f->ncorner) return 0;
    for (int i = 0; i < f->ncorner; ++i) {
        double x[3];
        f->nodes[i] = nodes[i];
        vis_Writer_Coords(w, nodes[i], x);
        for (int a = 0; a < 3; ++a) f->x[i][a] = static_cast<float>(x[a]);
    }
    if (shape == SYS_SHAPE_TRI) {
        Set(f->facet[0], 0, 1, 2);
        return f->nfacet = 1;
    }
    /* The distances compare as their squares do. */
    if (Dist2(f->x[1], f->x[3]) <= Dist2(f->x[0], f->x[2])) {
        Set(f->facet[0], 0, 1, 3);
        Set(f->facet[1], 1, 2, 3);
    } else {
        Set(f->facet[0], 0, 1, 2);
        Set(f->facet[1], 0, 2, 3);
    }
    return f->nfacet = 2;
}

void vis_FacetSplit_Normal(const vis_FacetSplit* f, int k, float n[3])
{
    const float* p0 = f->x[f->facet[k][0]];
    const float* p1 = f->x[f->facet[k][1]];
    const float* p2 = f->x[f->facet[k][2]];
    const float a[3] = {p1[0] - p0[0], p1[1] - p0[1], p1[2] - p0[2]};
    const float b[3] = {p2[0] - p0[0], p2[1] - p0[1], p2[2] - p0[2]};
    n[0] = a[1] * b[2] - a[2] * b[1];
    n[1] = a[2] * b[0] - a[0] * b[2];
    n[2] = a[0] * b[1] - a[1] * b[0];
    const float len = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    if (len == 0.0f) return;
    for (int i = 0; i < 3; ++i) n[i] /= len;
}

int vis_FacetSplit_Text(double value, int fixed, char* out)
{
    const std::chars_format form = fixed ? std::chars_format::fixed : std::chars_format::scientific;
    const std::to_chars_result r = std::to_chars(out, out + 340, value, form, 6);
    return static_cast<int>(r.ptr - out);
}
