/* vis_EProp: the element property member of the property family; see vis_EProp.h. */
#include "vis_EProp.h"

#include "vis_ElemShape.h"
#include "vis_ElemTopology.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"

static int vis_EProp_TypeOk(int type)
{
    return type >= 1 && type <= 15;
}

VIS_PROP_DEFINE_LIFE(vis_EProp, vis_EPropTable, "EProp")
VIS_PROP_DEFINE_VALUES(vis_EProp, vis_EPropTable)

/* Linear corner functions of shape 0 to 3 at natural coordinates rs. */
static void vis_EProp_CornerFunctions(int shape, const double* rs, double* N)
{
    if (shape == SYS_SHAPE_POINT) N[0] = 1.0;
    else if (shape == SYS_SHAPE_LINE) vis_ElemShape1Ddv(VIS_SHAPE_FUNC, 2, rs[0], N, nullptr);
    else vis_ElemShape2Ddv(VIS_SHAPE_FUNC, shape, 2, 0, rs, N, nullptr);
}

void vis_EPropEvaldv(vis_EProp* p, int code, int shape, int maxi, int maxj, double* out)
{
    static const char* name = "vis_EPropEvaldv";
    VIS_PROP_ENTER(p, name);
    vis_PropRef r = VIS_PROP_REF(p, vis_EPropTable);
    if (code < 0) {
        vsy_ErrorRecord(&p->ierr, name, SYS_ERROR_ENUM, "Improper type= %d", code);
        return;
    }
    if (!vis_Prop_Check(&r, name, code, VIS_PROPREQ_DOUBLE)) return;
    if (shape < SYS_SHAPE_POINT || shape > SYS_SHAPE_QUAD) {
        vsy_ErrorRecord(&p->ierr, name, SYS_ERROR_ENUM, "shape= %d", shape);
        return;
    }
    const vis_PropSlot* s = vis_Prop_SlotOf(&r, code);
    if (!s || s->perloc < 1) return;
    const double* loc = (const double*)s->data;
    int per = s->perloc, nloc = s->count / per, ncorner = shape + 1, nnode = 0;
    vis_ElemNum(shape, maxi, maxj, 0, &nnode);
    double nat[3 * VIS_ELEM_MAXNODE] = {0.0};
    vis_ElemNodeNaturaldv(shape, maxi, maxj, 0, nat);
    for (int n = 0; n < nnode; ++n) {
        double N[4] = {1.0, 0.0, 0.0, 0.0};
        if (nloc >= ncorner && nloc > 1) vis_EProp_CornerFunctions(shape, &nat[3 * n], N);
        int nuse = (nloc >= ncorner && nloc > 1) ? ncorner : 1;
        for (int c = 0; c < per; ++c) {
            double v = 0.0;
            for (int k = 0; k < nuse; ++k) v += N[k] * loc[k * per + c];
            out[n * per + c] = v;
        }
    }
}
