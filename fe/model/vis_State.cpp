/* vis_State: life cycle, definition, the store and its addressing; see vis_State.h. */
#include "vis_ElemTopology.h"
#include "vis_GridFun.h"
#include "vis_Model.h"
#include "vis_ModelSupport.h"
#include "vis_StateInternal.h"
#include "vsy_Error.h"
#include "vsy_RedPre.h"

#include <cstring>

namespace {

void FreeStore(vis_State* s)
{
    vsy_Free(s->fstore);
    vsy_Free(s->dstore);
    vsy_Free(s->rstore);
    vsy_Free(s->flags);
    vsy_Free(s->offset);
    s->fstore = nullptr;
    s->dstore = nullptr;
    s->rstore = nullptr;
    s->flags = nullptr;
    s->offset = nullptr;
    s->datacount = 0;
}

bool GoodPrecision(int p)
{
    return p == SYS_PRECISION_FLOAT || p == SYS_PRECISION_DOUBLE || p == SYS_PRECISION_BYTE ||
           p == SYS_PRECISION_SHORT || p == SYS_PRECISION_HALF;
}

bool GoodClass(int c)
{
    return (c >= 0 && c <= 3) || c == 5 || c == 9 || (c >= 11 && c <= 22);
}

/* Children of element id through the grid function: nodes or faces. */
int GridChildren(const vis_State* s, int id)
{
    if (!s->gf) return 0;
    int num = 0;
    if (s->childtype == SYS_NODE) {
        auto f = reinterpret_cast<vis_GridFunNumElemNode_t>(s->gf->fun[VIS_GRIDFUN_NUMELEMNODE]);
        if (f) f(s->gf->obj, id, &num);
    } else {
        auto f = reinterpret_cast<vis_GridFunElemNum_t>(s->gf->fun[VIS_GRIDFUN_ELEMNUM]);
        if (f) f(s->gf->obj, SYS_FACE, id, &num);
    }
    return num < 0 ? 0 : (num > VIS_STATE_MAXCHILD ? VIS_STATE_MAXCHILD : num);
}

/* The value count and, for a child state, the offsets; false without memory. */
bool Layout(vis_State* s)
{
    if (s->childtype == 0) {
        s->datacount = static_cast<long long>(s->nument) * s->datanum;
        return true;
    }
    s->offset = static_cast<long long*>(vis_Model_Calloc(static_cast<size_t>(s->nument) + 2, sizeof(long long)));
    if (!s->offset) return false;
    long long at = 0;
    for (int i = 1; i <= s->nument; ++i) {
        s->offset[i] = at;
        at += static_cast<long long>(GridChildren(s, i)) * s->datanum;
    }
    s->offset[s->nument + 1] = at;
    s->datacount = at;
    return true;
}

/* The store of the precision, zeroed; false without memory. */
bool Allocate(vis_State* s)
{
    const size_t n = static_cast<size_t>(s->datacount > 0 ? s->datacount : 1);
    if (s->precision == SYS_PRECISION_FLOAT) s->fstore = static_cast<float*>(vis_Model_Calloc(n, sizeof(float)));
    else if (s->precision == SYS_PRECISION_DOUBLE) s->dstore = static_cast<double*>(vis_Model_Calloc(n, sizeof(double)));
    else {
        vsy_RedPreDef(s->red, s->precision);
        if (s->extset) vsy_RedPreExtent(s->red, s->extmin, s->extmax);
        const int size = s->precision == SYS_PRECISION_BYTE ? 1 : 2;
        s->rstore = static_cast<unsigned char*>(vis_Model_Calloc(n, static_cast<size_t>(size)));
    }
    s->flags = static_cast<unsigned char*>(vis_Model_Calloc(static_cast<size_t>(s->nument) + 1, 1));
    return s->flags && (s->fstore || s->dstore || s->rstore);
}

}  // namespace

vis_State* vis_StateNew(void)
{
    vis_State* s = static_cast<vis_State*>(vis_Model_NewRecord(sizeof(vis_State), "State"));
    if (!s) return nullptr;
    s->red = vsy_RedPreNew();
    if (!s->red) {
        vsy_Free(s);
        vsy_ErrorMessage("State", SYS_ERROR_MEMORY, "Creation Failure");
        return nullptr;
    }
    s->precision = SYS_PRECISION_FLOAT;
    return s;
}

void vis_StateDelete(vis_State* state)
{
    if (!state) return;
    FreeStore(state);
    vsy_RedPreDelete(state->red);
    vsy_Free(state);
}

int vis_StateError(vis_State* state)
{
    return vis_Model_TakeError(state ? &state->ierr : nullptr);
}

void vis_StatePre(vis_State* state, int precision)
{
    if (vis_Model_IsNull(state, "vis_StatePre")) return;
    if (!GoodPrecision(precision)) {
        vsy_ErrorRecord(&state->ierr, "vis_StatePre", SYS_ERROR_ENUM, "precision= %d", precision);
        return;
    }
    state->precision = precision;
}

void vis_StateExt(vis_State* state, double min, double max)
{
    if (vis_Model_IsNull(state, "vis_StateExt")) return;
    if (!(min <= max)) {
        vsy_ErrorRecord(&state->ierr, "vis_StateExt", SYS_ERROR_VALUE, "min= %e, max= %e", min, max);
        return;
    }
    state->extmin = min;
    state->extmax = max;
    state->extset = 1;
    if (state->rstore) vsy_RedPreExtent(state->red, min, max);
}

void vis_StateSetObject(vis_State* state, int objecttype, void* object)
{
    if (vis_Model_ObjectType(state, "vis_StateSetObject", objecttype, SYS_GRIDFUN))
        state->gf = static_cast<vis_GridFun*>(object);
}

void vis_StateGetObject(vis_State* state, int objecttype, void** object)
{
    if (vis_Model_ObjectType(state, "vis_StateGetObject", objecttype, SYS_GRIDFUN)) *object = state->gf;
}

void vis_StateDef(vis_State* state, int nument, int parenttype, int childtype, int datatype)
{
    static const char* name = "vis_StateDef";
    if (vis_Model_IsNull(state, name)) return;
    if (nument < 1) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_VALUE, "nument= %d", nument);
        return;
    }
    if ((parenttype != SYS_ELEM && parenttype != SYS_NODE) ||
        (childtype != 0 && childtype != SYS_NODE && childtype != VIS_STATE_FACE)) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_ENUM, "parenttype= %d, childtype= %d", parenttype, childtype);
        return;
    }
    if (!GoodClass(datatype)) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_ENUM, "datatype= %d", datatype);
        return;
    }
    FreeStore(state);
    state->nument = nument;
    state->parenttype = parenttype;
    state->childtype = childtype == parenttype ? 0 : childtype;
    state->datatype = datatype;
    state->datanum = vis_StateClassNum(datatype);
    state->derive = 0;
}

void vis_StateInq(vis_State* state, int* nument, int* parenttype, int* childtype, int* datatype)
{
    if (vis_Model_IsNull(state, "vis_StateInq")) return;
    if (nument) *nument = state->nument;
    if (parenttype) *parenttype = state->parenttype;
    if (childtype) *childtype = state->childtype;
    if (datatype) *datatype = state->datatype;
}

void vis_StateClear(vis_State* state)
{
    static const char* name = "vis_StateClear";
    if (vis_Model_IsNull(state, name)) return;
    if (state->nument == 0) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "No entities defined");
        return;
    }
    if (state->childtype != 0 && !state->gf) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_NULLOBJECT, "GridFun object");
        return;
    }
    if (state->gf && vis_State_GridCount(state, state->parenttype) != state->nument) {
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_OPERATION, "Entity number mismatch");
        return;
    }
    /* The children of a mesh may have changed since the last Clear: lay out and allocate anew. */
    FreeStore(state);
    if (!Layout(state) || !Allocate(state)) {
        FreeStore(state);
        vsy_ErrorRecord(&state->ierr, name, SYS_ERROR_MEMORY, "Malloc state");
    }
}

void vis_StateDataNum(vis_State* state, int* datanum)
{
    if (!vis_Model_IsNull(state, "vis_StateDataNum")) *datanum = state->datanum;
}

void vis_StateSetDataSect(vis_State* state, int section)
{
    if (!vis_Model_IsNull(state, "vis_StateSetDataSect")) state->section = section;
}

void vis_StateDataSect(vis_State* state, int* section)
{
    if (!vis_Model_IsNull(state, "vis_StateDataSect")) *section = state->section;
}

void vis_StateSetDataLayPos(vis_State* state, int laypos)
{
    if (!vis_Model_IsNull(state, "vis_StateSetDataLayPos")) state->laypos = laypos;
}

void vis_StateDataLayPos(vis_State* state, int* laypos)
{
    if (!vis_Model_IsNull(state, "vis_StateDataLayPos")) *laypos = state->laypos;
}

void vis_StateSetDataLayers(vis_State* state, int layers)
{
    if (!vis_Model_IsNull(state, "vis_StateSetDataLayers")) state->layers = layers;
}

void vis_StateDataLayers(vis_State* state, int* layers)
{
    if (!vis_Model_IsNull(state, "vis_StateDataLayers")) *layers = state->layers;
}

/* Internals. */

int vis_State_Ready(vis_State* s, const char* name)
{
    if (vis_Model_IsNull(s, name)) return 0;
    if (!s->flags) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "Clear not called");
        return 0;
    }
    return 1;
}

int vis_State_CheckId(vis_State* s, const char* name, int id)
{
    if (id >= 1 && id <= s->nument) return 1;
    vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_VALUE, "id= %d", id);
    return 0;
}

int vis_State_Count(const vis_State* s, int id)
{
    if (s->childtype == 0) return 1;
    return static_cast<int>((s->offset[id + 1] - s->offset[id]) / s->datanum);
}

long long vis_State_First(const vis_State* s, int id)
{
    return s->childtype == 0 ? static_cast<long long>(id - 1) * s->datanum : s->offset[id];
}

int vis_State_Get(vis_State* s, const char* name, long long first, int n, double* out)
{
    if (s->fstore) {
        for (int i = 0; i < n; ++i) out[i] = s->fstore[first + i];
        return 1;
    }
    if (s->dstore) {
        std::memcpy(out, s->dstore + first, sizeof(double) * static_cast<size_t>(n));
        return 1;
    }
    if (vsy_RedPreSize(s->red) == 0) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "Def not called or extent not set");
        return 0;
    }
    vsy_RedPreStoredv(s->red, n, s->rstore + first * vsy_RedPreSize(s->red), out);
    return 1;
}

int vis_State_Put(vis_State* s, const char* name, long long first, int n, const double* in)
{
    if (s->fstore) {
        for (int i = 0; i < n; ++i) s->fstore[first + i] = static_cast<float>(in[i]);
        return 1;
    }
    if (s->dstore) {
        std::memcpy(s->dstore + first, in, sizeof(double) * static_cast<size_t>(n));
        return 1;
    }
    if (vsy_RedPreSize(s->red) == 0) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "Def not called or extent not set");
        return 0;
    }
    double copy[VIS_STATE_MAXNUM * VIS_STATE_MAXCHILD];
    std::memcpy(copy, in, sizeof(double) * static_cast<size_t>(n));
    vsy_RedPreLoaddv(s->red, n, copy, s->rstore + first * vsy_RedPreSize(s->red));
    /* The packing reported its failure (a value outside the range) itself: keep the code. */
    const int err = vsy_RedPreError(s->red);
    if (err) s->ierr = err;
    return err == 0;
}

int vis_State_Same(vis_State* s, const char* name, const vis_State* a, const vis_State* b)
{
    /* The same entities with the same children: equal value counts per component. */
    if (a->nument == b->nument && a->parenttype == b->parenttype && a->childtype == b->childtype &&
        a->datacount / a->datanum == b->datacount / b->datanum)
        return 1;
    vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_OPERATION, "State mismatch");
    return 0;
}

int vis_State_DefineLike(vis_State* s, const vis_State* a, int datatype)
{
    if (!s->gf) s->gf = a->gf;
    s->precision = a->precision;
    s->extmin = a->extmin;
    s->extmax = a->extmax;
    s->extset = a->extset;
    vis_StateDef(s, a->nument, a->parenttype, a->childtype, datatype);
    vis_StateClear(s);
    return s->flags != nullptr;
}

int vis_State_ElemNodes(const vis_State* s, int id, int* nodes)
{
    if (!s->gf) return 0;
    auto count = reinterpret_cast<vis_GridFunNumElemNode_t>(s->gf->fun[VIS_GRIDFUN_NUMELEMNODE]);
    auto get = reinterpret_cast<vis_GridFunElemNode_t>(s->gf->fun[VIS_GRIDFUN_ELEMNODE]);
    if (!count || !get) return 0;
    int n = 0;
    count(s->gf->obj, id, &n);
    if (n < 1 || n > VIS_STATE_MAXCHILD) return 0;
    get(s->gf->obj, id, &n, nodes);
    return n;
}

int vis_State_GridCount(const vis_State* s, int type)
{
    if (!s->gf) return -1;
    auto f = reinterpret_cast<vis_GridFunGetInteger_t>(s->gf->fun[VIS_GRIDFUN_GETINTEGER]);
    int n = 0;
    if (f) f(s->gf->obj, type, &n);
    return n;
}
