/* vis_State: setting and reading values, derived scalars and extents; see vis_State.h. */
#include "vis_Group.h"
#include "vis_ModelSupport.h"
#include "vis_StateInternal.h"
#include "vsy_Error.h"

#include <cmath>

namespace {

constexpr int kBuf = VIS_STATE_MAXNUM * VIS_STATE_MAXCHILD;

/* Principal values of a symmetric tensor xx yy zz xy yz zx, ascending (the trigonometric
 * solution of the characteristic cubic). */
void Principal(const double* t, double* p)
{
    const double m = (t[0] + t[1] + t[2]) / 3.0;
    const double a = t[0] - m, b = t[1] - m, c = t[2] - m;
    const double q2 = (a * a + b * b + c * c + 2.0 * (t[3] * t[3] + t[4] * t[4] + t[5] * t[5])) / 6.0;
    if (q2 <= 0.0) {
        p[0] = p[1] = p[2] = m;
        return;
    }
    const double q = std::sqrt(q2);
    /* det of the deviator over q^3, halved, within -1 to 1 */
    const double det = a * (b * c - t[4] * t[4]) - t[3] * (t[3] * c - t[4] * t[5]) + t[5] * (t[3] * t[4] - b * t[5]);
    double r = det / (2.0 * q2 * q);
    r = r < -1.0 ? -1.0 : (r > 1.0 ? 1.0 : r);
    const double phi = std::acos(r) / 3.0;
    const double pi = 3.14159265358979323846;
    const double high = m + 2.0 * q * std::cos(phi);
    const double low = m + 2.0 * q * std::cos(phi + 2.0 * pi / 3.0);
    p[0] = low;
    p[2] = high;
    p[1] = 3.0 * m - low - high;
}

double TensorDerive(int derive, const double* t)
{
    double p[3];
    switch (derive) {
    case VIS_STATE_VONMISES: {
        const double d = (t[0] - t[1]) * (t[0] - t[1]) + (t[1] - t[2]) * (t[1] - t[2]) + (t[2] - t[0]) * (t[2] - t[0]);
        return std::sqrt(0.5 * d + 3.0 * (t[3] * t[3] + t[4] * t[4] + t[5] * t[5]));
    }
    case VIS_STATE_MEAN: return (t[0] + t[1] + t[2]) / 3.0;
    case VIS_STATE_MINIMUM: Principal(t, p); return p[0];
    case VIS_STATE_INTERMEDIATE: Principal(t, p); return p[1];
    case VIS_STATE_MAXIMUM: Principal(t, p); return p[2];
    case VIS_STATE_TRESCA: Principal(t, p); return p[2] - p[0];
    default: return t[derive - VIS_STATE_XX];
    }
}

/* The component a qualifier names in a class, or -1; -2 for a computed scalar. */
int Component(int derive, int dataclass, int datanum)
{
    if (derive == 0) return 0;
    if (dataclass == 1 || dataclass == 9) {
        if (derive >= VIS_STATE_X && derive <= VIS_STATE_Z) return derive - VIS_STATE_X;
        if (derive == VIS_STATE_MAG) return -2;
        if (dataclass == 9 && derive >= 20 && derive <= 25) return derive - 20; /* TX to RZ */
        return -1;
    }
    if (dataclass == 2) {
        if (derive >= VIS_STATE_XX && derive <= VIS_STATE_ZX) return derive - VIS_STATE_XX;
        const bool computed = derive == VIS_STATE_VONMISES || derive == VIS_STATE_MEAN || derive == VIS_STATE_TRESCA ||
                              (derive >= VIS_STATE_MINIMUM && derive <= VIS_STATE_INTERMEDIATE);
        return computed ? -2 : -1;
    }
    if (dataclass == 3) {
        /* Row by row: xx xy xz / yx yy yz / zx zy zz. */
        static const int at[6] = {0, 4, 8, 1, 5, 6};
        return derive >= VIS_STATE_XX && derive <= VIS_STATE_ZX ? at[derive - VIS_STATE_XX] : -1;
    }
    return derive >= VIS_STATE_X && derive <= VIS_STATE_Z && derive - VIS_STATE_X < datanum ? derive - VIS_STATE_X : -1;
}

/* Reads every value of entity id into v (count children); false after a store report. */
bool ReadEntity(vis_State* s, const char* name, int id, double* v, int* count)
{
    *count = vis_State_Count(s, id);
    return vis_State_Get(s, name, vis_State_First(s, id), *count * s->datanum, v) != 0;
}

template <class T>
void SetData(vis_State* s, const char* name, int id, const T* values)
{
    if (!vis_State_Ready(s, name) || !vis_State_CheckId(s, name, id) || !values) return;
    const int n = vis_State_Count(s, id) * s->datanum;
    double v[kBuf];
    for (int i = 0; i < n; ++i) v[i] = static_cast<double>(values[i]);
    if (vis_State_Put(s, name, vis_State_First(s, id), n, v)) s->flags[id] = 1;
}

/* The datanum values of entity id into out, a child state's the mean over its children. */
template <class T>
bool EntityMean(vis_State* s, const char* name, int id, T* out)
{
    double v[kBuf];
    int count = 0;
    if (!ReadEntity(s, name, id, v, &count) || count < 1) return false;
    for (int k = 0; k < s->datanum; ++k) {
        double sum = 0.0;
        for (int c = 0; c < count; ++c) sum += v[c * s->datanum + k];
        out[k] = static_cast<T>(sum / count);
    }
    return true;
}

template <class T>
void Data(vis_State* s, const char* name, int n, const int* ids, T* values)
{
    if (!vis_State_Ready(s, name) || !ids || !values) return;
    for (int i = 0; i < n; ++i)
        if (!vis_State_CheckId(s, name, ids[i])) return;
    for (int i = 0; i < n; ++i)
        if (s->flags[ids[i]]) EntityMean(s, name, ids[i], values + static_cast<size_t>(i) * s->datanum);
}

template <class T>
void DataElem(vis_State* s, const char* name, int id, T* values)
{
    if (!vis_State_Ready(s, name) || !vis_State_CheckId(s, name, id) || !values || !s->flags[id]) return;
    double v[kBuf];
    int count = 0;
    if (!ReadEntity(s, name, id, v, &count)) return;
    for (int i = 0; i < count * s->datanum; ++i) values[i] = static_cast<T>(v[i]);
}

template <class T>
void DataElemEnt(vis_State* s, const char* name, int id, int no, T* values)
{
    if (!vis_State_Ready(s, name) || !vis_State_CheckId(s, name, id) || !values) return;
    if (no < 1 || no > vis_State_Count(s, id)) {
        vsy_ErrorRecord(&s->ierr, name, SYS_ERROR_VALUE, "no= %d", no);
        return;
    }
    if (!s->flags[id]) return;
    double v[VIS_STATE_MAXNUM];
    if (!vis_State_Get(s, name, vis_State_First(s, id) + static_cast<long long>(no - 1) * s->datanum, s->datanum, v))
        return;
    for (int k = 0; k < s->datanum; ++k) values[k] = static_cast<T>(v[k]);
}

}  // namespace

double vis_State_Derive(int derive, int dataclass, const double* v)
{
    if (derive == 0) return v[0];
    if (dataclass == 2 && derive >= VIS_STATE_XX) return TensorDerive(derive, v);
    if ((dataclass == 1 || dataclass == 9) && derive == VIS_STATE_MAG) return std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    const int c = Component(derive, dataclass, VIS_STATE_MAXNUM);
    return c >= 0 ? v[c] : 0.0;
}

void vis_StateSetDerive(vis_State* state, int derive)
{
    if (vis_Model_IsNull(state, "vis_StateSetDerive")) return;
    if (Component(derive, vis_State_Class(state), state->datanum) == -1) {
        vsy_ErrorRecord(&state->ierr, "vis_StateSetDerive", SYS_ERROR_ENUM, "derive= %d", derive);
        return;
    }
    state->derive = derive;
}

void vis_StateSetData(vis_State* state, int id, const float* values)
{
    SetData(state, "vis_StateSetData", id, values);
}

void vis_StateSetDatadv(vis_State* state, int id, const double* values)
{
    SetData(state, "vis_StateSetDatadv", id, values);
}

void vis_StateClearData(vis_State* state, int id)
{
    static const char* name = "vis_StateClearData";
    if (vis_State_Ready(state, name) && vis_State_CheckId(state, name, id)) state->flags[id] = 0;
}

void vis_StateData(vis_State* state, int n, const int* ids, float* values)
{
    Data(state, "vis_StateData", n, ids, values);
}

void vis_StateDatadv(vis_State* state, int n, const int* ids, double* values)
{
    Data(state, "vis_StateDatadv", n, ids, values);
}

void vis_StateDataStat(vis_State* state, int n, const int* ids, int* stat)
{
    static const char* name = "vis_StateDataStat";
    if (!vis_State_Ready(state, name) || !ids || !stat) return;
    for (int i = 0; i < n; ++i) stat[i] = ids[i] >= 1 && ids[i] <= state->nument ? state->flags[ids[i]] : 0;
}

void vis_StateDataElem(vis_State* state, int id, float* values)
{
    DataElem(state, "vis_StateDataElem", id, values);
}

void vis_StateDataElemdv(vis_State* state, int id, double* values)
{
    DataElem(state, "vis_StateDataElemdv", id, values);
}

void vis_StateDataElemEnt(vis_State* state, int id, int no, float* values)
{
    DataElemEnt(state, "vis_StateDataElemEnt", id, no, values);
}

void vis_StateDataElemEntdv(vis_State* state, int id, int no, double* values)
{
    DataElemEnt(state, "vis_StateDataElemEntdv", id, no, values);
}

void vis_StateElemNum(vis_State* state, int id, int* num)
{
    static const char* name = "vis_StateElemNum";
    if (vis_State_Ready(state, name) && vis_State_CheckId(state, name, id)) *num = vis_State_Count(state, id);
}

void vis_StateSumdv(vis_State* state, double* sum)
{
    static const char* name = "vis_StateSumdv";
    if (!vis_State_Ready(state, name) || !sum) return;
    for (int k = 0; k < state->datanum; ++k) sum[k] = 0.0;
    double v[kBuf];
    for (int id = 1; id <= state->nument; ++id) {
        int count = 0;
        if (!state->flags[id]) continue;
        if (!ReadEntity(state, name, id, v, &count)) return;
        for (int c = 0; c < count; ++c)
            for (int k = 0; k < state->datanum; ++k) sum[k] += v[c * state->datanum + k];
    }
}

void vis_StateExtentLoc(vis_State* state, vis_Group* group, double* extent, int* loc)
{
    static const char* name = "vis_StateExtentLoc";
    if (!vis_State_Ready(state, name) || !extent) return;
    extent[0] = extent[1] = 0.0;
    int lo = 0, hi = 0;
    double v[kBuf];
    for (int id = 1; id <= state->nument; ++id) {
        int flag = 1, count = 0;
        if (group) vis_GroupGetIndex(group, id, &flag);
        if (!state->flags[id] || !flag) continue;
        if (!ReadEntity(state, name, id, v, &count)) return;
        for (int c = 0; c < count; ++c) {
            const double d = vis_State_Derive(state->derive, vis_State_Class(state), v + c * state->datanum);
            if (lo == 0 || d < extent[0]) extent[0] = d, lo = id;
            if (hi == 0 || d > extent[1]) extent[1] = d, hi = id;
        }
    }
    if (loc) loc[0] = lo, loc[1] = hi;
}

void vis_StateExtent(vis_State* state, vis_Group* group, double* extent)
{
    vis_StateExtentLoc(state, group, extent, nullptr);
}
