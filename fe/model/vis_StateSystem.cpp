/* vis_State: parameters, the coordinate systems of the values, sorting by value and spatial
 * derivatives; see vis_State.h. */
#include "vis_CoordSys.h"
#include "vis_ElemShape.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_IdTran.h"
#include "vis_Model.h"
#include "vis_ModelSupport.h"
#include "vis_StateInternal.h"
#include "vsy_Error.h"
#include "vsy_HashTable.h"

#include <algorithm>
#include <utility>
#include <vector>

void vis_StateSetHashTable(vis_State* state, int type, vsy_HashTable* table)
{
    if (vis_Model_IsNull(state, "vis_StateSetHashTable")) return;
    if (type != SYS_COORDSYS) {
        vsy_ErrorRecord(&state->ierr, "vis_StateSetHashTable", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    state->coordsys = table;
}

void vis_StateSetParami(vis_State* state, int type, int value)
{
    static const char* name = "vis_StateSetParami";
    if (vis_Model_IsNull(state, name)) return;
    switch (type) {
    case VIS_STATE_SECTION: state->section = value; break;
    case VIS_STATE_LAYPOS: state->laypos = value; break;
    case VIS_STATE_LAYERS: state->layers = value; break;
    case VIS_STATE_SYSTEM: state->system = value; break;
    case VIS_STATE_DERIVEQUAL: vis_StateSetDerive(state, value); break;
    default: vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
    }
}

void vis_StateSetSection(vis_State* state, int section)
{
    if (!vis_Model_IsNull(state, "vis_StateSetSection")) state->section = section;
}

namespace {

/* The location of entity id: its node, or the centroid of its element's nodes. */
bool Location(vis_State* s, int id, double* x)
{
    auto coords = s->gf ? reinterpret_cast<vis_GridFunCoordsdv_t>(s->gf->fun[VIS_GRIDFUN_COORDSDV]) : nullptr;
    if (!coords) return false;
    int nodes[VIS_STATE_MAXCHILD], n = 1;
    if (s->parenttype == SYS_NODE) nodes[0] = id;
    else n = vis_State_ElemNodes(s, id, nodes);
    if (n < 1) return false;
    double xs[3 * VIS_STATE_MAXCHILD];
    coords(s->gf->obj, n, nodes, xs);
    x[0] = x[1] = x[2] = 0.0;
    for (int k = 0; k < n; ++k)
        for (int a = 0; a < 3; ++a) x[a] += xs[3 * k + a] / n;
    return true;
}

}  // namespace

void vis_StateDirCos(vis_State* state, int id, double* tm)
{
    static const char* name = "vis_StateDirCos";
    if (!vis_State_Ready(state, name) || !vis_State_CheckId(state, name, id) || !tm) return;
    for (int i = 0; i < 9; ++i) tm[i] = (i % 4 == 0) ? 1.0 : 0.0;
    if (state->system == 0) return;
    void* cs = nullptr;
    if (state->coordsys) vsy_HashTableGet(state->coordsys, state->system, &cs);
    double x[3];
    if (!cs || !Location(state, id, x)) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_VALUE, "system= %d", state->system);
        return;
    }
    vis_CoordSysTriad(static_cast<vis_CoordSys*>(cs), x, tm);
}

void vis_StateSortIdTran(vis_State* state, vis_IdTran* idtran)
{
    static const char* name = "vis_StateSortIdTran";
    if (!vis_State_Ready(state, name) || vis_Model_IsNull(idtran, name)) return;
    std::vector<std::pair<double, int>> order;
    double v[VIS_STATE_MAXNUM * VIS_STATE_MAXCHILD];
    for (int id = 1; id <= state->nument; ++id) {
        if (!state->flags[id]) continue;
        const int count = vis_State_Count(state, id);
        if (!vis_State_Get(state, name, vis_State_First(state, id), count * state->datanum, v)) return;
        double sum = 0.0;
        for (int c = 0; c < count; ++c) sum += vis_State_Derive(state->derive, state->datatype, v + c * state->datanum);
        order.emplace_back(sum / count, id);
    }
    /* Ascending value; equal values keep ascending id. */
    std::stable_sort(order.begin(), order.end(),
                     [](const std::pair<double, int>& a, const std::pair<double, int>& b) { return a.first < b.first; });
    vis_IdTranDef(idtran, static_cast<int>(order.size()));
    for (size_t i = 0; i < order.size(); ++i) vis_IdTranSetId(idtran, static_cast<int>(i) + 1, order[i].second);
}

namespace {

/* Solves the 3 x 3 system J g = b (J row by row); false when J is singular. */
bool Solve3(const double* J, const double* b, double* g)
{
    const double det = J[0] * (J[4] * J[8] - J[5] * J[7]) - J[1] * (J[3] * J[8] - J[5] * J[6]) +
                       J[2] * (J[3] * J[7] - J[4] * J[6]);
    if (det == 0.0) return false;
    for (int col = 0; col < 3; ++col) {
        double M[9];
        for (int i = 0; i < 9; ++i) M[i] = J[i];
        for (int r = 0; r < 3; ++r) M[3 * r + col] = b[r];
        g[col] = (M[0] * (M[4] * M[8] - M[5] * M[7]) - M[1] * (M[3] * M[8] - M[5] * M[6]) +
                  M[2] * (M[3] * M[7] - M[4] * M[6])) / det;
    }
    return true;
}

/* The gradient at every node of solid element e of the node scalars of `a`, three values a
 * node; false for other elements, unset nodes or a degenerate element. */
bool ElemGradient(vis_State* s, vis_State* a, const char* name, int e, double* out, int* nout)
{
    int shape = -1, maxi = 0, maxj = 0, maxk = 0, nodes[VIS_STATE_MAXCHILD];
    auto topo = reinterpret_cast<vis_GridFunTopology_t>(s->gf->fun[VIS_GRIDFUN_TOPOLOGY]);
    auto coords = reinterpret_cast<vis_GridFunCoordsdv_t>(s->gf->fun[VIS_GRIDFUN_COORDSDV]);
    if (!topo || !coords) return false;
    topo(s->gf->obj, e, &shape, &maxi, &maxj, &maxk);
    const int n = vis_State_ElemNodes(s, e, nodes);
    if (shape < SYS_SHAPE_TET || shape > SYS_SHAPE_HEX || n < 4 || n != vis_State_Count(s, e)) return false;
    double x[3 * VIS_STATE_MAXCHILD], phi[VIS_STATE_MAXCHILD], nat[3 * VIS_STATE_MAXCHILD];
    for (int k = 0; k < n; ++k) {
        if (nodes[k] < 1 || nodes[k] > a->nument || !a->flags[nodes[k]]) return false;
        if (!vis_State_Get(a, name, vis_State_First(a, nodes[k]), 1, phi + k)) return false;
    }
    coords(s->gf->obj, n, nodes, x);
    vis_ElemNodeNaturaldv(shape, maxi, maxj, maxk, nat);
    for (int p = 0; p < n; ++p) {
        double N[VIS_STATE_MAXCHILD], dN[3 * VIS_STATE_MAXCHILD], J[9] = {}, dphi[3] = {};
        vis_ElemShape3Ddv(2, shape, maxi, maxj, maxk, nat + 3 * p, N, dN);
        for (int k = 0; k < n; ++k)
            for (int r = 0; r < 3; ++r) {
                dphi[r] += dN[3 * k + r] * phi[k];
                for (int c = 0; c < 3; ++c) J[3 * r + c] += dN[3 * k + r] * x[3 * k + c];
            }
        if (!Solve3(J, dphi, out + 3 * p)) return false;
    }
    *nout = n;
    return true;
}

}  // namespace

void vis_StateDerivative(vis_State* state, vis_State* a)
{
    static const char* name = "vis_StateDerivative";
    if (!vis_State_Ready(state, name) || !vis_State_Ready(a, name)) return;
    if (a->parenttype != SYS_NODE || a->datanum != 1 || state->parenttype != SYS_ELEM ||
        state->childtype != SYS_NODE || state->datanum != 3) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    if (!state->gf) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun object");
        return;
    }
    double g[3 * VIS_STATE_MAXCHILD];
    for (int e = 1; e <= state->nument; ++e) {
        int n = 0;
        if (!ElemGradient(state, a, name, e, g, &n)) continue;
        if (!vis_State_Put(state, name, vis_State_First(state, e), 3 * n, g)) return;
        state->flags[e] = 1;
    }
}
