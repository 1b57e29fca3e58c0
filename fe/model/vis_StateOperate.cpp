/* vis_State: operations between states, rotation, mapping between locations, midside fill,
 * deformation and group selection; see vis_State.h. */
#include "vis_ElemShape.h"
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_Group.h"
#include "vis_ModelSupport.h"
#include "vis_StateInternal.h"
#include "vsy_Error.h"

#include <vector>

namespace {

constexpr int kBuf = VIS_STATE_MAXNUM * VIS_STATE_MAXCHILD;

/* Applies f to every set entity of `a` (and `b`, which must be set too): out := f(va, vb). */
template <class F>
void Combine(vis_State* s, const char* name, vis_State* a, vis_State* b, F f)
{
    const int num = a->datanum;
    double va[kBuf], vb[kBuf], out[kBuf];
    for (int id = 1; id <= a->nument; ++id) {
        if (!a->flags[id] || (b && !b->flags[id])) continue;
        const int n = vis_State_Count(a, id) * num;
        if (!vis_State_Get(a, name, vis_State_First(a, id), n, va)) return;
        if (b && !vis_State_Get(b, name, vis_State_First(b, id), n, vb)) return;
        const int outnum = f(vis_State_Count(a, id), va, vb, out);
        if (!vis_State_Put(s, name, vis_State_First(s, id), outnum, out)) return;
        s->flags[id] = 1;
    }
}

/* Prepares s as the result of a unary or binary operation of `a` with components of class
 * `dataclass`; a result state that is a or b keeps its store. */
bool Prepare(vis_State* s, const char* name, vis_State* a, vis_State* b, int dataclass)
{
    if (!vis_State_Ready(a, name) || (b && !vis_State_Ready(b, name))) return false;
    if (b && (b->datanum != a->datanum || !vis_State_Same(s, name, a, b))) {
        if (b->datanum != a->datanum) vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return false;
    }
    if (s == a || s == b) return true;
    return vis_State_DefineLike(s, a, dataclass);
}

double Apply(int oper, double x, double y, double param)
{
    switch (oper) {
    case VIS_STATE_ADD: return x + y;
    case VIS_STATE_SUBTRACT: return x - y;
    case VIS_STATE_MULTIPLY: return x * y;
    case VIS_STATE_MIN: return x < y ? x : y;
    case VIS_STATE_MAX: return x > y ? x : y;
    default: return x + param * y; /* VIS_STATE_COMBINE */
    }
}

void Unary(vis_State* s, const char* name, int oper, vis_State* a, double param)
{
    if (vis_Model_IsNull(s, name)) return;
    if (oper < VIS_STATE_COPY || oper > VIS_STATE_SHIFT) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_ENUM, "oper= %d", oper);
        return;
    }
    const bool derive = oper == VIS_STATE_DERIVE;
    if (derive && s == a) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    if (!Prepare(s, name, a, nullptr, derive ? 0 : a->datatype)) return;
    const int num = a->datanum, dataclass = a->datatype, which = a->derive;
    Combine(s, name, a, nullptr, [&](int count, const double* va, const double*, double* out) {
        if (derive) {
            for (int c = 0; c < count; ++c) out[c] = vis_State_Derive(which, dataclass, va + c * num);
            return count;
        }
        for (int i = 0; i < count * num; ++i)
            out[i] = oper == VIS_STATE_COPY ? va[i]
                     : oper == VIS_STATE_NEGATE ? -va[i]
                     : oper == VIS_STATE_SCALE ? va[i] * param
                                               : va[i] + param;
        return count * num;
    });
}

void Binary(vis_State* s, const char* name, int oper, vis_State* a, vis_State* b, double param)
{
    if (vis_Model_IsNull(s, name)) return;
    if (oper < VIS_STATE_ADD || oper > VIS_STATE_COMBINE) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_ENUM, "oper= %d", oper);
        return;
    }
    if (vis_Model_IsNull(b, name) || !Prepare(s, name, a, b, a->datatype)) return;
    const int num = a->datanum;
    Combine(s, name, a, b, [&](int count, const double* va, const double* vb, double* out) {
        for (int i = 0; i < count * num; ++i) out[i] = Apply(oper, va[i], vb[i], param);
        return count * num;
    });
}

/* y = R x for a three-vector. */
void Rotate(const double* r, const double* x, double* y)
{
    for (int i = 0; i < 3; ++i) y[i] = r[3 * i] * x[0] + r[3 * i + 1] * x[1] + r[3 * i + 2] * x[2];
}

/* T' = R T R^t of a symmetric tensor xx yy zz xy yz zx. */
void RotateTensor(const double* r, double* t)
{
    const double m[9] = {t[0], t[3], t[5], t[3], t[1], t[4], t[5], t[4], t[2]};
    double rm[9], out[9];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) rm[3 * i + j] = r[3 * i] * m[j] + r[3 * i + 1] * m[3 + j] + r[3 * i + 2] * m[6 + j];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) out[3 * i + j] = rm[3 * i] * r[3 * j] + rm[3 * i + 1] * r[3 * j + 1] + rm[3 * i + 2] * r[3 * j + 2];
    t[0] = out[0], t[1] = out[4], t[2] = out[8], t[3] = out[1], t[4] = out[5], t[5] = out[2];
}

/* The element count through the grid function, or -1 after a report. */
int Elements(vis_State* s, const char* name)
{
    const int n = vis_State_GridCount(s, SYS_ELEM);
    if (n < 0) vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun object");
    return n;
}

/* Adds the element values of `a` to the sums of its nodes. */
bool GatherElem(vis_State* s, const char* name, vis_State* a, int elem, std::vector<double>& sum, std::vector<int>& hits)
{
    int nodes[VIS_STATE_MAXCHILD];
    const int nn = vis_State_ElemNodes(a, elem, nodes);
    double v[kBuf];
    const int count = vis_State_Count(a, elem), num = a->datanum;
    if (!vis_State_Get(a, name, vis_State_First(a, elem), count * num, v)) return false;
    for (int k = 0; k < nn; ++k) {
        const int node = nodes[k];
        if (node < 1 || node > s->nument) continue;
        /* Element node values by position; element values the same for every node. */
        const double* src = a->childtype == SYS_NODE && k < count ? v + k * num : v;
        if (a->childtype == SYS_NODE && k >= count) continue;
        for (int c = 0; c < num; ++c) sum[static_cast<size_t>(node) * num + c] += src[c];
        ++hits[static_cast<size_t>(node)];
    }
    return true;
}

/* Node state s := the mean over elements of the element (node) state a. */
void ElemToNode(vis_State* s, const char* name, vis_State* a)
{
    const int num = a->datanum;
    std::vector<double> sum(static_cast<size_t>(s->nument + 1) * num, 0.0);
    std::vector<int> hits(static_cast<size_t>(s->nument + 1), 0);
    for (int e = 1; e <= a->nument; ++e)
        if (a->flags[e] && !GatherElem(s, name, a, e, sum, hits)) return;
    for (int node = 1; node <= s->nument; ++node) {
        if (hits[static_cast<size_t>(node)] == 0) continue;
        double v[VIS_STATE_MAXNUM];
        for (int c = 0; c < num; ++c) v[c] = sum[static_cast<size_t>(node) * num + c] / hits[static_cast<size_t>(node)];
        if (!vis_State_Put(s, name, vis_State_First(s, node), num, v)) return;
        s->flags[node] = 1;
    }
}

/* Element node state s := the node values of a at each element's nodes (all set). */
void NodeToElemNode(vis_State* s, const char* name, vis_State* a)
{
    const int num = a->datanum;
    for (int e = 1; e <= s->nument; ++e) {
        int nodes[VIS_STATE_MAXCHILD];
        const int nn = vis_State_ElemNodes(s, e, nodes), count = vis_State_Count(s, e);
        if (nn < count) continue;
        double v[kBuf];
        bool all = true;
        for (int k = 0; k < count && all; ++k) {
            all = nodes[k] >= 1 && nodes[k] <= a->nument && a->flags[nodes[k]];
            if (all && !vis_State_Get(a, name, vis_State_First(a, nodes[k]), num, v + k * num)) return;
        }
        if (!all) continue;
        if (!vis_State_Put(s, name, vis_State_First(s, e), count * num, v)) return;
        s->flags[e] = 1;
    }
}

}  // namespace

void vis_StateOperateUnary(vis_State* state, int oper, vis_State* a)
{
    Unary(state, "vis_StateOperateUnary", oper, a, oper == VIS_STATE_SCALE ? 1.0 : 0.0);
}

void vis_StateOperateUnarydv(vis_State* state, int oper, vis_State* a, double param)
{
    Unary(state, "vis_StateOperateUnarydv", oper, a, param);
}

void vis_StateOperateBinary(vis_State* state, int oper, vis_State* a, vis_State* b)
{
    Binary(state, "vis_StateOperateBinary", oper, a, b, 1.0);
}

void vis_StateOperateBinarydv(vis_State* state, int oper, vis_State* a, vis_State* b, double param)
{
    Binary(state, "vis_StateOperateBinarydv", oper, a, b, param);
}

void vis_StateTransform(vis_State* state, const double* rotation)
{
    static const char* name = "vis_StateTransform";
    if (!vis_State_Ready(state, name) || !rotation) return;
    const int dataclass = state->datatype;
    if (dataclass != 1 && dataclass != 2 && dataclass != 9) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    const int num = state->datanum;
    Combine(state, name, state, nullptr, [&](int count, const double* va, const double*, double* out) {
        for (int c = 0; c < count; ++c) {
            const double* x = va + c * num;
            double* y = out + c * num;
            for (int k = 0; k < num; ++k) y[k] = x[k];
            if (dataclass == 2) RotateTensor(rotation, y);
            else Rotate(rotation, x, y);
            if (dataclass == 9) Rotate(rotation, x + 3, y + 3);
        }
        return count * num;
    });
}

void vis_StateMap(vis_State* state, vis_State* a)
{
    static const char* name = "vis_StateMap";
    if (!vis_State_Ready(state, name) || !vis_State_Ready(a, name)) return;
    if (a->datanum != state->datanum) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    if (state->parenttype == SYS_NODE && a->parenttype == SYS_ELEM && a->childtype != VIS_STATE_FACE) {
        if (!a->gf) {
            vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun object");
            return;
        }
        ElemToNode(state, name, a);
        return;
    }
    if (state->parenttype == SYS_ELEM && state->childtype == SYS_NODE && a->parenttype == SYS_NODE) {
        NodeToElemNode(state, name, a);
        return;
    }
    if (state->parenttype == a->parenttype && state->childtype == a->childtype) {
        vis_StateOperateUnary(state, VIS_STATE_COPY, a);
        return;
    }
    vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
}

void vis_StateMidside(vis_State* state)
{
    static const char* name = "vis_StateMidside";
    if (!vis_State_Ready(state, name)) return;
    if (state->parenttype != SYS_NODE) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    const int nelem = Elements(state, name);
    auto con = state->gf ? reinterpret_cast<vis_GridFunElemCon_t>(state->gf->fun[VIS_GRIDFUN_ELEMCON]) : nullptr;
    auto num = state->gf ? reinterpret_cast<vis_GridFunElemNum_t>(state->gf->fun[VIS_GRIDFUN_ELEMNUM]) : nullptr;
    if (nelem < 0 || !con || !num) return;
    const int dn = state->datanum;
    for (int e = 1; e <= nelem; ++e) {
        int nedge = 0;
        num(state->gf->obj, SYS_EDGE, e, &nedge);
        for (int k = 1; k <= nedge; ++k) {
            int n = 0, nodes[VIS_STATE_MAXCHILD];
            con(state->gf->obj, SYS_EDGE, e, k, &n, nodes);
            /* An edge of order 3 lists its first corner, its midside node and its second. */
            if (n != 3) continue;
            const int a = nodes[0], m = nodes[1], b = nodes[2];
            if (m < 1 || m > state->nument || state->flags[m] || !state->flags[a] || !state->flags[b]) continue;
            double va[VIS_STATE_MAXNUM], vb[VIS_STATE_MAXNUM];
            if (!vis_State_Get(state, name, vis_State_First(state, a), dn, va) ||
                !vis_State_Get(state, name, vis_State_First(state, b), dn, vb))
                return;
            for (int c = 0; c < dn; ++c) va[c] = 0.5 * (va[c] + vb[c]);
            if (!vis_State_Put(state, name, vis_State_First(state, m), dn, va)) return;
            state->flags[m] = 1;
        }
    }
}

void vis_StateDeform(vis_State* state, vis_State* displacement, double factor)
{
    static const char* name = "vis_StateDeform";
    if (!vis_State_Ready(state, name) || !vis_State_Ready(displacement, name)) return;
    if (!vis_State_Same(state, name, state, displacement)) return;
    if (state->datanum < 3 || displacement->datanum < 3 || state->parenttype != SYS_NODE) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    const int sn = state->datanum, dn = displacement->datanum;
    for (int id = 1; id <= state->nument; ++id) {
        if (!state->flags[id] || !displacement->flags[id]) continue;
        double x[VIS_STATE_MAXNUM], d[VIS_STATE_MAXNUM];
        if (!vis_State_Get(state, name, vis_State_First(state, id), sn, x) ||
            !vis_State_Get(displacement, name, vis_State_First(displacement, id), dn, d))
            return;
        for (int c = 0; c < 3; ++c) x[c] += factor * d[c];
        if (!vis_State_Put(state, name, vis_State_First(state, id), sn, x)) return;
    }
}

void vis_StateSetGroupParamfv(vis_State* state, int type, const float* param)
{
    static const char* name = "vis_StateSetGroupParamfv";
    if (vis_Model_IsNull(state, name)) return;
    if (type != VIS_STATE_RANGE || !param) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    state->range[0] = param[0];
    state->range[1] = param[1];
}

namespace {

/* Marks in the group the entities (or element nodes) whose derived scalar lies in the range. */
void Select(vis_State* s, const char* name, vis_Group* group, int want)
{
    if (!vis_State_Ready(s, name) || vis_Model_IsNull(group, name)) return;
    int nument = 0, parent = 0, child = 0;
    vis_GroupInq(group, &nument, &parent, &child);
    const bool nodesOfElems = want == SYS_NODE && s->parenttype == SYS_ELEM && s->childtype == SYS_NODE;
    if (parent != want || (s->parenttype != want && !nodesOfElems)) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    double v[kBuf];
    for (int id = 1; id <= s->nument; ++id) {
        if (!s->flags[id]) continue;
        const int count = vis_State_Count(s, id);
        if (!vis_State_Get(s, name, vis_State_First(s, id), count * s->datanum, v)) return;
        int nodes[VIS_STATE_MAXCHILD];
        const int nn = nodesOfElems ? vis_State_ElemNodes(s, id, nodes) : 0;
        for (int c = 0; c < count; ++c) {
            const double d = vis_State_Derive(s->derive, s->datatype, v + c * s->datanum);
            if (d < s->range[0] || d > s->range[1]) continue;
            const int target = nodesOfElems ? (c < nn ? nodes[c] : 0) : id;
            if (target < 1 || target > nument) continue;
            int flags = 0;
            vis_GroupGetIndex(group, target, &flags);
            vis_GroupSetIndex(group, target, flags | 1);
        }
    }
}

}  // namespace

void vis_StateNodeGroup(vis_State* state, vis_Group* group)
{
    Select(state, "vis_StateNodeGroup", group, SYS_NODE);
}

void vis_StateElemGroup(vis_State* state, vis_Group* group)
{
    Select(state, "vis_StateElemGroup", group, SYS_ELEM);
}

namespace {

/* The element's topology through the grid function; false without it. */
bool ElemTopology(const vis_State* s, int id, int* shape, int* maxi, int* maxj, int* maxk)
{
    *shape = -1;
    *maxi = *maxj = *maxk = 0;
    auto topo = s->gf ? reinterpret_cast<vis_GridFunTopology_t>(s->gf->fun[VIS_GRIDFUN_TOPOLOGY]) : nullptr;
    if (topo) topo(s->gf->obj, id, shape, maxi, maxj, maxk);
    return *shape >= 0;
}

/* The values at the element's nodes, node after node: from the children of an element node
 * state, or from the node state at the element's nodes; false when one is unset. */
bool NodeValues(vis_State* s, const char* name, int id, double* v, int* n)
{
    if (s->parenttype == SYS_ELEM) {
        *n = vis_State_Count(s, id);
        return s->flags[id] && vis_State_Get(s, name, vis_State_First(s, id), *n * s->datanum, v);
    }
    int nodes[VIS_STATE_MAXCHILD];
    *n = vis_State_ElemNodes(s, id, nodes);
    for (int k = 0; k < *n; ++k) {
        if (nodes[k] < 1 || nodes[k] > s->nument || !s->flags[nodes[k]]) return false;
        if (!vis_State_Get(s, name, vis_State_First(s, nodes[k]), s->datanum, v + k * s->datanum)) return false;
    }
    return *n > 0;
}

template <class T>
int DataElemRST(vis_State* s, const char* name, int id, const T* rst, T* values)
{
    if (!vis_State_Ready(s, name) || !rst || !values) return 0;
    const bool nodes = s->parenttype == SYS_NODE, elemnodes = s->parenttype == SYS_ELEM && s->childtype == SYS_NODE;
    if (!nodes && !elemnodes) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return 0;
    }
    int shape = 0, maxi = 0, maxj = 0, maxk = 0;
    if (!ElemTopology(s, id, &shape, &maxi, &maxj, &maxk)) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun object");
        return 0;
    }
    double v[kBuf], N[VIS_STATE_MAXCHILD] = {}, dN[3 * VIS_STATE_MAXCHILD];
    const double r[3] = {static_cast<double>(rst[0]), static_cast<double>(rst[1]), static_cast<double>(rst[2])};
    int n = 0;
    if (!NodeValues(s, name, id, v, &n)) return 0;
    if (shape == SYS_SHAPE_TRI || shape == SYS_SHAPE_QUAD) vis_ElemShape2Ddv(1, shape, maxi, maxj, r, N, dN);
    else if (shape >= SYS_SHAPE_TET && shape <= SYS_SHAPE_HEX) vis_ElemShape3Ddv(1, shape, maxi, maxj, maxk, r, N, dN);
    else return 0;
    for (int c = 0; c < s->datanum; ++c) {
        double sum = 0.0;
        for (int k = 0; k < n; ++k) sum += N[k] * v[k * s->datanum + c];
        values[c] = static_cast<T>(sum);
    }
    return 1;
}

}  // namespace

int vis_StateDataElemRST(vis_State* state, int id, const float* rst, float* values)
{
    return DataElemRST(state, "vis_StateDataElemRST", id, rst, values);
}

int vis_StateDataElemRSTdv(vis_State* state, int id, const double* rst, double* values)
{
    return DataElemRST(state, "vis_StateDataElemRSTdv", id, rst, values);
}

void vis_StateElemType(vis_State* state, int id, int* shape, int* maxi, int* maxj, int* maxk)
{
    if (vis_Model_IsNull(state, "vis_StateElemType")) return;
    if (!ElemTopology(state, id, shape, maxi, maxj, maxk))
        vsy_ErrorRecord(&state->ierr, "vis_StateElemType", SYS_ERROR_NULLOBJECT, "GridFun object");
}

void vis_StateMapElemNode(vis_State* state, vis_State* a)
{
    static const char* name = "vis_StateMapElemNode";
    if (!vis_State_Ready(state, name) || !vis_State_Ready(a, name)) return;
    if (state->parenttype != SYS_ELEM || state->childtype != SYS_NODE || a->parenttype != SYS_NODE ||
        a->datanum != state->datanum) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
        return;
    }
    NodeToElemNode(state, name, a);
}

void vis_StateSetSystem(vis_State* state, int system)
{
    if (!vis_Model_IsNull(state, "vis_StateSetSystem")) state->system = system;
}

void vis_StateDemo(vis_State* state)
{
    static const char* name = "vis_StateDemo";
    if (!vis_State_Ready(state, name)) return;
    auto coords = state->gf ? reinterpret_cast<vis_GridFunCoordsdv_t>(state->gf->fun[VIS_GRIDFUN_COORDSDV]) : nullptr;
    if (!coords) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun object");
        return;
    }
    /* Component k of a value is coordinate k % 3 of its node (of the element's centroid for
     * an element state), so that every value is known from the mesh alone. */
    double v[kBuf];
    for (int id = 1; id <= state->nument; ++id) {
        int nodes[VIS_STATE_MAXCHILD], nn = 1;
        if (state->parenttype == SYS_NODE) nodes[0] = id;
        else nn = vis_State_ElemNodes(state, id, nodes);
        const int count = vis_State_Count(state, id);
        double centre[3] = {0, 0, 0}, x[3 * VIS_STATE_MAXCHILD];
        if (nn < 1) continue;
        coords(state->gf->obj, nn, nodes, x);
        for (int k = 0; k < nn; ++k)
            for (int a = 0; a < 3; ++a) centre[a] += x[3 * k + a] / nn;
        for (int c = 0; c < count; ++c) {
            const double* at = state->childtype == SYS_NODE && c < nn ? x + 3 * c : centre;
            for (int k = 0; k < state->datanum; ++k) v[c * state->datanum + k] = at[k % 3];
        }
        if (!vis_State_Put(state, name, vis_State_First(state, id), count * state->datanum, v)) return;
        state->flags[id] = 1;
    }
}
