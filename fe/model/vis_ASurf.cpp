/* vis_ASurf: analytic contact surfaces; see vis_ASurf.h. */
#include "vis_ASurf.h"

#include "vis_ModelSupport.h"
#include "vsy_Error.h"

#include <cstring>

vis_ASurf* vis_ASurfNew(void)
{
    return (vis_ASurf*)vis_Model_NewRecord(sizeof(vis_ASurf), "ASurf");
}

void vis_ASurfDelete(vis_ASurf* as)
{
    if (!as) return;
    vsy_Free(as->pts);
    vsy_Free(as->segs);
    vsy_Free(as);
}

int vis_ASurfError(vis_ASurf* as)
{
    return vis_Model_TakeError(as ? &as->ierr : nullptr);
}

void vis_ASurfDef(vis_ASurf* as, int npts, int nseg)
{
    static const char* name = "vis_ASurfDef";
    if (vis_Model_IsNull(as, name)) return;
    if (npts < 0 || nseg < 0) {
        vsy_ErrorRecord(&as->ierr, name, SYS_ERROR_VALUE, "nument= %d", npts < 0 ? npts : nseg);
        return;
    }
    double* pts = (double*)vis_Model_Calloc(3 * ((size_t)npts + 1), sizeof(double));
    vis_ASurfSeg* segs = (vis_ASurfSeg*)vis_Model_Calloc((size_t)nseg + 1, sizeof(vis_ASurfSeg));
    if (!pts || !segs) {
        vsy_Free(pts);
        vsy_Free(segs);
        vsy_ErrorRecord(&as->ierr, name, SYS_ERROR_MEMORY, "nument= %d", npts + nseg);
        return;
    }
    vsy_Free(as->pts);
    vsy_Free(as->segs);
    as->pts = pts;
    as->segs = segs;
    as->npts = npts;
    as->nseg = nseg;
    as->type = VIS_ASURF_NONE;
}

static int vis_ASurf_Index(vis_ASurf* as, const char* name, int index, int last)
{
    if (vis_Model_IsNull(as, name)) return 0;
    if (index >= 1 && index <= last) return 1;
    vsy_ErrorRecord(&as->ierr, name, SYS_ERROR_VALUE, "index= %d", index);
    return 0;
}

void vis_ASurfSetPointdv(vis_ASurf* as, int index, const double x[3])
{
    if (vis_ASurf_Index(as, "vis_ASurfSetPointdv", index, as ? as->npts : 0))
        std::memcpy(&as->pts[3 * index], x, 3 * sizeof(double));
}

void vis_ASurfSetPoint(vis_ASurf* as, int index, const float x[3])
{
    if (vis_ASurf_Index(as, "vis_ASurfSetPoint", index, as ? as->npts : 0))
        vis_Model_ToDouble(3, x, &as->pts[3 * index]);
}

void vis_ASurfGetPointdv(vis_ASurf* as, int index, double x[3])
{
    if (vis_ASurf_Index(as, "vis_ASurfGetPointdv", index, as ? as->npts : 0))
        std::memcpy(x, &as->pts[3 * index], 3 * sizeof(double));
}

void vis_ASurfGetPoint(vis_ASurf* as, int index, float x[3])
{
    if (vis_ASurf_Index(as, "vis_ASurfGetPoint", index, as ? as->npts : 0))
        vis_Model_ToFloat(3, &as->pts[3 * index], x);
}

void vis_ASurfSegSegment(vis_ASurf* as, int index, int kind, const int pts[])
{
    static const char* name = "vis_ASurfSegSegment";
    if (!vis_ASurf_Index(as, name, index, as ? as->nseg : 0)) return;
    if (kind != VIS_ASURF_LINE && kind != VIS_ASURF_ARC) {
        vsy_ErrorRecord(&as->ierr, name, SYS_ERROR_ENUM, "type= %d", kind);
        return;
    }
    int n = kind == VIS_ASURF_ARC ? 3 : 2;
    for (int i = 0; i < n; ++i)
        if (pts[i] < 1 || pts[i] > as->npts) {
            vsy_ErrorRecord(&as->ierr, name, SYS_ERROR_VALUE, "ix[%d]= %d", i, pts[i]);
            return;
        }
    vis_ASurfSeg* s = &as->segs[index];
    s->kind = kind;
    for (int i = 0; i < 3; ++i) s->pts[i] = i < n ? pts[i] : 0;
}

void vis_ASurfGetSegment(vis_ASurf* as, int index, int* kind, int pts[3])
{
    if (!vis_ASurf_Index(as, "vis_ASurfGetSegment", index, as ? as->nseg : 0)) return;
    *kind = as->segs[index].kind;
    for (int i = 0; i < 3; ++i) pts[i] = as->segs[index].pts[i];
}

/* Makes the surface a kind with up to two 3-vectors and ns scalars. */
static void vis_ASurf_Set(vis_ASurf* as, const char* name, int type, const double* a, const double* b, int ns,
                          const double* s)
{
    if (vis_Model_IsNull(as, name)) return;
    std::memset(as->data, 0, sizeof(as->data));
    if (a) std::memcpy(as->data, a, 3 * sizeof(double));
    if (b) std::memcpy(as->data + 3, b, 3 * sizeof(double));
    for (int i = 0; i < ns; ++i) as->data[6 + i] = s[i];
    as->type = type;
}

/* Reads a kind's vectors and scalars; 0 and nothing read when the surface is of another kind. */
static int vis_ASurf_Get(vis_ASurf* as, const char* name, int type, double* a, double* b, int ns, double* s)
{
    if (vis_Model_IsNull(as, name)) return 0;
    if (as->type != type) {
        vsy_ErrorRecord(&as->ierr, name, SYS_ERROR_OPERATION, "Surface type= %d", as->type);
        return 0;
    }
    if (a) std::memcpy(a, as->data, 3 * sizeof(double));
    if (b) std::memcpy(b, as->data + 3, 3 * sizeof(double));
    for (int i = 0; i < ns; ++i) s[i] = as->data[6 + i];
    return 1;
}

/* Float forms of the two above. */
static void vis_ASurf_SetF(vis_ASurf* as, const char* name, int type, const float* a, const float* b, int ns,
                           const float* s)
{
    double da[3] = {0, 0, 0}, db[3] = {0, 0, 0}, ds[2] = {0, 0};
    if (a) vis_Model_ToDouble(3, a, da);
    if (b) vis_Model_ToDouble(3, b, db);
    vis_Model_ToDouble(ns, s, ds);
    vis_ASurf_Set(as, name, type, a ? da : nullptr, b ? db : nullptr, ns, ds);
}

static int vis_ASurf_GetF(vis_ASurf* as, const char* name, int type, float* a, float* b, int ns, float* s)
{
    if (!vis_ASurf_Get(as, name, type, nullptr, nullptr, 0, nullptr)) return 0;
    if (a) vis_Model_ToFloat(3, as->data, a);
    if (b) vis_Model_ToFloat(3, as->data + 3, b);
    vis_Model_ToFloat(ns, as->data + 6, s);
    return 1;
}

void vis_ASurfSetSegmentRuledv(vis_ASurf* as, const double dir[3])
{
    vis_ASurf_Set(as, "vis_ASurfSetSegmentRuledv", VIS_ASURF_RULED, dir, nullptr, 0, nullptr);
}

void vis_ASurfSetSegmentRule(vis_ASurf* as, const float dir[3])
{
    vis_ASurf_SetF(as, "vis_ASurfSetSegmentRule", VIS_ASURF_RULED, dir, nullptr, 0, nullptr);
}

void vis_ASurfGetSegmentRuledv(vis_ASurf* as, double dir[3])
{
    vis_ASurf_Get(as, "vis_ASurfGetSegmentRuledv", VIS_ASURF_RULED, dir, nullptr, 0, nullptr);
}

void vis_ASurfGetSegmentRule(vis_ASurf* as, float dir[3])
{
    vis_ASurf_GetF(as, "vis_ASurfGetSegmentRule", VIS_ASURF_RULED, dir, nullptr, 0, nullptr);
}

void vis_ASurfSetSegmentRevdv(vis_ASurf* as, const double origin[3], const double axis[3])
{
    vis_ASurf_Set(as, "vis_ASurfSetSegmentRevdv", VIS_ASURF_REVOLVED, origin, axis, 0, nullptr);
}

void vis_ASurfSetSegmentRev(vis_ASurf* as, const float origin[3], const float axis[3])
{
    vis_ASurf_SetF(as, "vis_ASurfSetSegmentRev", VIS_ASURF_REVOLVED, origin, axis, 0, nullptr);
}

void vis_ASurfGetSegmentRevdv(vis_ASurf* as, double origin[3], double axis[3])
{
    vis_ASurf_Get(as, "vis_ASurfGetSegmentRevdv", VIS_ASURF_REVOLVED, origin, axis, 0, nullptr);
}

void vis_ASurfGetSegmentRev(vis_ASurf* as, float origin[3], float axis[3])
{
    vis_ASurf_GetF(as, "vis_ASurfGetSegmentRev", VIS_ASURF_REVOLVED, origin, axis, 0, nullptr);
}

void vis_ASurfSetPlanedv(vis_ASurf* as, const double origin[3], const double normal[3])
{
    vis_ASurf_Set(as, "vis_ASurfSetPlanedv", VIS_ASURF_PLANE, origin, normal, 0, nullptr);
}

void vis_ASurfSetPlane(vis_ASurf* as, const float origin[3], const float normal[3])
{
    vis_ASurf_SetF(as, "vis_ASurfSetPlane", VIS_ASURF_PLANE, origin, normal, 0, nullptr);
}

void vis_ASurfGetPlanedv(vis_ASurf* as, double origin[3], double normal[3])
{
    vis_ASurf_Get(as, "vis_ASurfGetPlanedv", VIS_ASURF_PLANE, origin, normal, 0, nullptr);
}

void vis_ASurfGetPlane(vis_ASurf* as, float origin[3], float normal[3])
{
    vis_ASurf_GetF(as, "vis_ASurfGetPlane", VIS_ASURF_PLANE, origin, normal, 0, nullptr);
}

void vis_ASurfSetBoxdv(vis_ASurf* as, const double lower[3], const double upper[3])
{
    vis_ASurf_Set(as, "vis_ASurfSetBoxdv", VIS_ASURF_BOX, lower, upper, 0, nullptr);
}

void vis_ASurfSetBox(vis_ASurf* as, const float lower[3], const float upper[3])
{
    vis_ASurf_SetF(as, "vis_ASurfSetBox", VIS_ASURF_BOX, lower, upper, 0, nullptr);
}

void vis_ASurfGetBoxdv(vis_ASurf* as, double lower[3], double upper[3])
{
    vis_ASurf_Get(as, "vis_ASurfGetBoxdv", VIS_ASURF_BOX, lower, upper, 0, nullptr);
}

void vis_ASurfGetBox(vis_ASurf* as, float lower[3], float upper[3])
{
    vis_ASurf_GetF(as, "vis_ASurfGetBox", VIS_ASURF_BOX, lower, upper, 0, nullptr);
}

void vis_ASurfSetCylinderdv(vis_ASurf* as, const double base[3], const double top[3], double radius)
{
    vis_ASurf_Set(as, "vis_ASurfSetCylinderdv", VIS_ASURF_CYLINDER, base, top, 1, &radius);
}

void vis_ASurfSetCylinder(vis_ASurf* as, const float base[3], const float top[3], float radius)
{
    vis_ASurf_SetF(as, "vis_ASurfSetCylinder", VIS_ASURF_CYLINDER, base, top, 1, &radius);
}

void vis_ASurfGetCylinderdv(vis_ASurf* as, double base[3], double top[3], double* radius)
{
    vis_ASurf_Get(as, "vis_ASurfGetCylinderdv", VIS_ASURF_CYLINDER, base, top, 1, radius);
}

void vis_ASurfGetCylinder(vis_ASurf* as, float base[3], float top[3], float* radius)
{
    vis_ASurf_GetF(as, "vis_ASurfGetCylinder", VIS_ASURF_CYLINDER, base, top, 1, radius);
}

void vis_ASurfSetConedv(vis_ASurf* as, const double base[3], const double top[3], double rbase, double rtop)
{
    const double r[2] = {rbase, rtop};
    vis_ASurf_Set(as, "vis_ASurfSetConedv", VIS_ASURF_CONE, base, top, 2, r);
}

void vis_ASurfSetCone(vis_ASurf* as, const float base[3], const float top[3], float rbase, float rtop)
{
    const float r[2] = {rbase, rtop};
    vis_ASurf_SetF(as, "vis_ASurfSetCone", VIS_ASURF_CONE, base, top, 2, r);
}

void vis_ASurfGetConedv(vis_ASurf* as, double base[3], double top[3], double* rbase, double* rtop)
{
    double r[2];
    if (!vis_ASurf_Get(as, "vis_ASurfGetConedv", VIS_ASURF_CONE, base, top, 2, r)) return;
    *rbase = r[0];
    *rtop = r[1];
}

void vis_ASurfGetCone(vis_ASurf* as, float base[3], float top[3], float* rbase, float* rtop)
{
    float r[2];
    if (!vis_ASurf_GetF(as, "vis_ASurfGetCone", VIS_ASURF_CONE, base, top, 2, r)) return;
    *rbase = r[0];
    *rtop = r[1];
}

void vis_ASurfSetSpheredv(vis_ASurf* as, const double centre[3], double radius)
{
    vis_ASurf_Set(as, "vis_ASurfSetSpheredv", VIS_ASURF_SPHERE, centre, nullptr, 1, &radius);
}

void vis_ASurfSetSphere(vis_ASurf* as, const float centre[3], float radius)
{
    vis_ASurf_SetF(as, "vis_ASurfSetSphere", VIS_ASURF_SPHERE, centre, nullptr, 1, &radius);
}

void vis_ASurfGetSpheredv(vis_ASurf* as, double centre[3], double* radius)
{
    vis_ASurf_Get(as, "vis_ASurfGetSpheredv", VIS_ASURF_SPHERE, centre, nullptr, 1, radius);
}

void vis_ASurfGetSphere(vis_ASurf* as, float centre[3], float* radius)
{
    vis_ASurf_GetF(as, "vis_ASurfGetSphere", VIS_ASURF_SPHERE, centre, nullptr, 1, radius);
}

void vis_ASurfGetType(vis_ASurf* as, int* type)
{
    if (!vis_Model_IsNull(as, "vis_ASurfGetType")) *type = as->type;
}
