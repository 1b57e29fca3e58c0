/* vis_TCurve: points of a tabulated curve; see vis_TCurve.h. */
#include "vis_TCurve.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"

vis_TCurve* vis_TCurveNew(void)
{
    vis_TCurve* tc = (vis_TCurve*)vis_Model_NewRecord(sizeof(vis_TCurve), "TCurve");
    if (tc) {
        tc->factor = 1.0;
        tc->nval = 1;
    }
    return tc;
}

void vis_TCurveDelete(vis_TCurve* tc)
{
    if (!tc) return;
    vsy_Free(tc->indep);
    vsy_Free(tc->dep);
    vsy_Free(tc);
}

int vis_TCurveError(vis_TCurve* tc)
{
    return vis_Model_TakeError(tc ? &tc->ierr : nullptr);
}

/* Zeroed arrays for npts points of nval values; 0 (nothing held) when one fails. */
static int vis_TCurve_Alloc(int npts, int nval, double** indep, double** dep)
{
    *indep = (double*)vis_Model_Calloc((size_t)npts + 1, sizeof(double));
    *dep = (double*)vis_Model_Calloc(((size_t)npts + 1) * (size_t)nval, sizeof(double));
    if (*indep && *dep) return 1;
    vsy_Free(*indep);
    vsy_Free(*dep);
    return 0;
}

/* Hands new arrays to the curve, releasing the old ones. */
static void vis_TCurve_Take(vis_TCurve* tc, int npts, int nval, double* indep, double* dep)
{
    vsy_Free(tc->indep);
    vsy_Free(tc->dep);
    tc->indep = indep;
    tc->dep = dep;
    tc->npts = npts;
    tc->nval = nval;
}

static int vis_TCurve_Define(vis_TCurve* tc, const char* name, int npts, int nval)
{
    if (vis_Model_IsNull(tc, name)) return 0;
    if (npts < 0) {
        vsy_ErrorRecord(&tc->ierr, name, SYS_ERROR_VALUE, "npts= %d", npts);
        return 0;
    }
    if (nval < 1) {
        vsy_ErrorRecord(&tc->ierr, name, SYS_ERROR_VALUE, "nval= %d", nval);
        return 0;
    }
    double *indep, *dep;
    if (!vis_TCurve_Alloc(npts, nval, &indep, &dep)) {
        vsy_ErrorRecord(&tc->ierr, name, SYS_ERROR_MEMORY, "npts= %d", npts);
        return 0;
    }
    vis_TCurve_Take(tc, npts, nval, indep, dep);
    return 1;
}

void vis_TCurveDef(vis_TCurve* tc, int npts, int nval)
{
    vis_TCurve_Define(tc, "vis_TCurveDef", npts, nval);
}

void vis_TCurveSetFactord(vis_TCurve* tc, double factor)
{
    if (!vis_Model_IsNull(tc, "vis_TCurveSetFactord")) tc->factor = factor;
}

void vis_TCurveSetFactor(vis_TCurve* tc, float factor)
{
    if (!vis_Model_IsNull(tc, "vis_TCurveSetFactor")) tc->factor = factor;
}

void vis_TCurveGetFactord(vis_TCurve* tc, double* factor)
{
    if (!vis_Model_IsNull(tc, "vis_TCurveGetFactord")) *factor = tc->factor;
}

void vis_TCurveGetFactor(vis_TCurve* tc, float* factor)
{
    if (!vis_Model_IsNull(tc, "vis_TCurveGetFactor")) *factor = (float)tc->factor;
}

/* 1 when type is the option `want`; otherwise code 2 "type= %d". */
static int vis_TCurve_Option(vis_TCurve* tc, const char* name, int type, int want)
{
    if (vis_Model_IsNull(tc, name)) return 0;
    if (type == want) return 1;
    vsy_ErrorRecord(&tc->ierr, name, SYS_ERROR_ENUM, "type= %d", type);
    return 0;
}

void vis_TCurveSetParami(vis_TCurve* tc, int type, int value)
{
    if (vis_TCurve_Option(tc, "vis_TCurveSetParami", type, VIS_TCURVE_TYPE)) tc->type = value;
}

void vis_TCurveGetParami(vis_TCurve* tc, int type, int* value)
{
    if (vis_TCurve_Option(tc, "vis_TCurveGetParami", type, VIS_TCURVE_TYPE)) *value = tc->type;
}

void vis_TCurveSetParamd(vis_TCurve* tc, int type, double value)
{
    if (vis_TCurve_Option(tc, "vis_TCurveSetParamd", type, VIS_TCURVE_FACTOR)) tc->factor = value;
}

void vis_TCurveGetParamd(vis_TCurve* tc, int type, double* value)
{
    if (vis_TCurve_Option(tc, "vis_TCurveGetParamd", type, VIS_TCURVE_FACTOR)) *value = tc->factor;
}

/* Defines npts points of nval values from doubles (xd, yd) or floats (xf, yf). */
static void vis_TCurve_SetPoints(vis_TCurve* tc, const char* name, int npts, int nval, const double* xd,
                                 const double* yd, const float* xf, const float* yf)
{
    if (!vis_TCurve_Define(tc, name, npts, nval)) return;
    for (int i = 1; i <= npts; ++i) {
        tc->indep[i] = xd ? xd[i - 1] : xf[i - 1];
        for (int k = 0; k < nval; ++k) {
            int j = (i - 1) * nval + k;
            tc->dep[i * nval + k] = yd ? yd[j] : yf[j];
        }
    }
}

void vis_TCurveSetPWLineardv(vis_TCurve* tc, int npts, const double* x, const double* y)
{
    vis_TCurve_SetPoints(tc, "vis_TCurveSetPWLineardv", npts, 1, x, y, nullptr, nullptr);
}

void vis_TCurveSetPWLinear(vis_TCurve* tc, int npts, const float* x, const float* y)
{
    vis_TCurve_SetPoints(tc, "vis_TCurveSetPWLinear", npts, 1, nullptr, nullptr, x, y);
}

void vis_TCurveSetCompPWLineardv(vis_TCurve* tc, int npts, int nval, const double* x, const double* y)
{
    vis_TCurve_SetPoints(tc, "vis_TCurveSetCompPWLineardv", npts, nval, x, y, nullptr, nullptr);
}

void vis_TCurveSetCompPWLinear(vis_TCurve* tc, int npts, int nval, const float* x, const float* y)
{
    vis_TCurve_SetPoints(tc, "vis_TCurveSetCompPWLinear", npts, nval, nullptr, nullptr, x, y);
}

/* Checks a list of points; 1 when every one lies in 1 to npts. */
static int vis_TCurve_Points(vis_TCurve* tc, const char* name, int n, const int* pts)
{
    if (vis_Model_IsNull(tc, name)) return 0;
    if (n < 0) {
        vsy_ErrorRecord(&tc->ierr, name, SYS_ERROR_VALUE, "num= %d", n);
        return 0;
    }
    for (int i = 0; i < n; ++i)
        if (pts[i] < 1 || pts[i] > tc->npts) {
            vsy_ErrorRecord(&tc->ierr, name, SYS_ERROR_VALUE, "pts[%d]= %d", i, pts[i]);
            return 0;
        }
    return 1;
}

/* Copies between the curve and a caller's doubles or floats (one of d, f), width values per
 * point of the array `store`. */
static void vis_TCurve_Copy(int n, const int* pts, double* store, int width, double* d, float* f, int toCurve)
{
    for (int i = 0; i < n; ++i)
        for (int k = 0; k < width; ++k) {
            double* s = &store[pts[i] * width + k];
            int j = i * width + k;
            if (toCurve) *s = d ? d[j] : f[j];
            else if (d) d[j] = *s;
            else f[j] = (float)*s;
        }
}

void vis_TCurveIndepdv(vis_TCurve* tc, int n, const int* pts, double* values)
{
    if (vis_TCurve_Points(tc, "vis_TCurveIndepdv", n, pts)) vis_TCurve_Copy(n, pts, tc->indep, 1, values, nullptr, 0);
}

void vis_TCurveIndep(vis_TCurve* tc, int n, const int* pts, float* values)
{
    if (vis_TCurve_Points(tc, "vis_TCurveIndep", n, pts)) vis_TCurve_Copy(n, pts, tc->indep, 1, nullptr, values, 0);
}

void vis_TCurveSetIndepdv(vis_TCurve* tc, int n, const int* pts, const double* values)
{
    if (vis_TCurve_Points(tc, "vis_TCurveSetIndepdv", n, pts))
        vis_TCurve_Copy(n, pts, tc->indep, 1, (double*)values, nullptr, 1);
}

void vis_TCurveDepdv(vis_TCurve* tc, int n, const int* pts, double* values)
{
    if (vis_TCurve_Points(tc, "vis_TCurveDepdv", n, pts))
        vis_TCurve_Copy(n, pts, tc->dep, tc->nval, values, nullptr, 0);
}

void vis_TCurveDep(vis_TCurve* tc, int n, const int* pts, float* values)
{
    if (vis_TCurve_Points(tc, "vis_TCurveDep", n, pts)) vis_TCurve_Copy(n, pts, tc->dep, tc->nval, nullptr, values, 0);
}

void vis_TCurveSetDepdv(vis_TCurve* tc, int n, const int* pts, const double* values)
{
    if (vis_TCurve_Points(tc, "vis_TCurveSetDepdv", n, pts))
        vis_TCurve_Copy(n, pts, tc->dep, tc->nval, (double*)values, nullptr, 1);
}

void vis_TCurveSetDep(vis_TCurve* tc, int n, const int* pts, const float* values)
{
    if (vis_TCurve_Points(tc, "vis_TCurveSetDep", n, pts))
        vis_TCurve_Copy(n, pts, tc->dep, tc->nval, nullptr, (float*)values, 1);
}

void vis_TCurveEvaldv(vis_TCurve* tc, double x, double* values)
{
    if (vis_Model_IsNull(tc, "vis_TCurveEvaldv")) return;
    int nv = tc->nval, n = tc->npts;
    if (n == 0) {
        for (int k = 0; k < nv; ++k) values[k] = 0.0;
        return;
    }
    /* Segment from point i to i + 1 holding x; the ends hold outside. */
    int i = 1;
    while (i < n && tc->indep[i + 1] <= x) ++i;
    double w = 0.0;
    if (i < n && x > tc->indep[i]) w = (x - tc->indep[i]) / (tc->indep[i + 1] - tc->indep[i]);
    for (int k = 0; k < nv; ++k) {
        double a = tc->dep[i * nv + k], b = i < n ? tc->dep[(i + 1) * nv + k] : a;
        values[k] = tc->factor * (a + w * (b - a));
    }
}

/* The values of a curve's own point i, times its factor. */
static void vis_TCurve_PointValues(const vis_TCurve* c, int i, double* out)
{
    for (int k = 0; k < c->nval; ++k) out[k] = c->factor * c->dep[i * c->nval + k];
}

/* Walks the merged points of a and b; fills indep and dep (nval = a's + b's) unless indep is
 * null, and returns the number of merged points. */
static int vis_TCurve_MergeWalk(vis_TCurve* a, vis_TCurve* b, double* indep, double* dep)
{
    int ia = 1, ib = 1, n = 0, nval = a->nval + b->nval;
    while (ia <= a->npts || ib <= b->npts) {
        int takeA = ib > b->npts || (ia <= a->npts && a->indep[ia] <= b->indep[ib]);
        int takeB = ia > a->npts || (ib <= b->npts && b->indep[ib] <= a->indep[ia]);
        if (!takeA && !takeB) takeA = 1; /* an unordered value (NaN): a's point goes first */
        double x = takeA ? a->indep[ia] : b->indep[ib];
        ++n;
        if (indep) {
            double* row = dep + (size_t)n * nval;
            indep[n] = x;
            if (takeA) vis_TCurve_PointValues(a, ia, row);
            else vis_TCurveEvaldv(a, x, row);
            if (takeB) vis_TCurve_PointValues(b, ib, row + a->nval);
            else vis_TCurveEvaldv(b, x, row + a->nval);
        }
        ia += takeA;
        ib += takeB;
    }
    return n;
}

void vis_TCurveMerge(vis_TCurve* tc, vis_TCurve* tca, vis_TCurve* tcb)
{
    static const char* name = "vis_TCurveMerge";
    if (vis_Model_IsNull(tc, name) || vis_Model_IsNull(tca, name) || vis_Model_IsNull(tcb, name)) return;
    int npts = vis_TCurve_MergeWalk(tca, tcb, nullptr, nullptr), nval = tca->nval + tcb->nval;
    double *indep, *dep;
    if (!vis_TCurve_Alloc(npts, nval, &indep, &dep)) {
        vsy_ErrorRecord(&tc->ierr, name, SYS_ERROR_MEMORY, "npts= %d", npts);
        return;
    }
    vis_TCurve_MergeWalk(tca, tcb, indep, dep);
    vis_TCurve_Take(tc, npts, nval, indep, dep);
    tc->factor = 1.0;
}
