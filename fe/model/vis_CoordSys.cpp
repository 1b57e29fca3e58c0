/* vis_CoordSys: local systems and their directions at a point; see vis_CoordSys.h. */
#include "vis_CoordSys.h"

#include "vis_Model.h"
#include "vis_ModelSupport.h"
#include "vsy_Error.h"

#include <cmath>
#include <cstring>

/* Below this length a direction counts as zero. */
#define VIS_COORDSYS_TINY 1.0e-30

static const double vis_CoordSysIdentity[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};

static void vis_CoordSys_Reset(vis_CoordSys* cs, int type)
{
    cs->type = type;
    std::memset(cs->origin, 0, sizeof(cs->origin));
    std::memcpy(cs->triad, vis_CoordSysIdentity, sizeof(cs->triad));
}

vis_CoordSys* vis_CoordSysNew(void)
{
    vis_CoordSys* cs = (vis_CoordSys*)vis_Model_NewRecord(sizeof(vis_CoordSys), "CoordSys");
    if (cs) vis_CoordSys_Reset(cs, VIS_COORDSYS_RECTANGULAR);
    return cs;
}

void vis_CoordSysDelete(vis_CoordSys* cs)
{
    if (!cs) return;
    vsy_Free(cs->name);
    vsy_Free(cs);
}

int vis_CoordSysError(vis_CoordSys* cs)
{
    return vis_Model_TakeError(cs ? &cs->ierr : nullptr);
}

void vis_CoordSysDef(vis_CoordSys* cs, int type)
{
    if (vis_Model_IsNull(cs, "vis_CoordSysDef")) return;
    if (type < VIS_COORDSYS_RECTANGULAR || type > VIS_COORDSYS_SPHERICAL2) {
        vsy_ErrorRecord(&cs->ierr, "vis_CoordSysDef", SYS_ERROR_ENUM, "type= %d", type);
        return;
    }
    vis_CoordSys_Reset(cs, type);
}

void vis_CoordSysSetId(vis_CoordSys* cs, int id)
{
    if (!vis_Model_IsNull(cs, "vis_CoordSysSetId")) cs->id = id;
}

void vis_CoordSysGetId(vis_CoordSys* cs, int* id)
{
    if (!vis_Model_IsNull(cs, "vis_CoordSysGetId")) *id = cs->id;
}

void vis_CoordSysSetName(vis_CoordSys* cs, const char* name)
{
    if (vis_Model_IsNull(cs, "vis_CoordSysSetName")) return;
    char* copy = vis_Model_StrDup(name);
    if (name && !copy) {
        vsy_ErrorRecord(&cs->ierr, "vis_CoordSysSetName", SYS_ERROR_MEMORY, "name= %s", name);
        return;
    }
    vsy_Free(cs->name);
    cs->name = copy;
}

void vis_CoordSysGetName(vis_CoordSys* cs, char* name)
{
    if (!vis_Model_IsNull(cs, "vis_CoordSysGetName")) std::strcpy(name, cs->name ? cs->name : "");
}

/* Scales v to unit length; 0 when it is (nearly) zero. */
static int vis_CoordSys_Unit(double* v)
{
    double len = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    if (len < VIS_COORDSYS_TINY) return 0;
    for (int i = 0; i < 3; ++i) v[i] /= len;
    return 1;
}

void vis_CoordSysSetOriginVectorsdv(vis_CoordSys* cs, const double origin[3], const double xaxis[3],
                                    const double xyplane[3])
{
    static const char* name = "vis_CoordSysSetOriginVectorsdv";
    if (vis_Model_IsNull(cs, name)) return;
    double t[9];
    std::memcpy(t, xaxis, 3 * sizeof(double));
    int ok = vis_CoordSys_Unit(t);
    if (ok) {
        vis_Model_Cross(t, xyplane, t + 6);
        ok = vis_CoordSys_Unit(t + 6);
    }
    if (!ok) {
        vsy_ErrorRecord(&cs->ierr, name, SYS_ERROR_COMPUTE, "Degenerate vectors");
        return;
    }
    vis_Model_Cross(t + 6, t, t + 3);
    std::memcpy(cs->origin, origin, 3 * sizeof(double));
    std::memcpy(cs->triad, t, sizeof(t));
}

void vis_CoordSysSetOriginVectors(vis_CoordSys* cs, const float origin[3], const float xaxis[3], const float xyplane[3])
{
    double o[3], x[3], p[3];
    vis_Model_ToDouble(3, origin, o);
    vis_Model_ToDouble(3, xaxis, x);
    vis_Model_ToDouble(3, xyplane, p);
    vis_CoordSysSetOriginVectorsdv(cs, o, x, p);
}

void vis_CoordSysSetOriginTriaddv(vis_CoordSys* cs, const double origin[3], const double triad[9])
{
    if (vis_Model_IsNull(cs, "vis_CoordSysSetOriginTriaddv")) return;
    std::memcpy(cs->origin, origin, sizeof(cs->origin));
    std::memcpy(cs->triad, triad, sizeof(cs->triad));
}

/* Index (0 to 2) of the global axis least aligned with n, the first of equals. */
static int vis_CoordSys_LeastAxis(const double* n)
{
    int best = 0;
    for (int i = 1; i < 3; ++i)
        if (std::fabs(n[i]) < std::fabs(n[best])) best = i;
    return best;
}

/* Unit x' in the plane of unit normal z: d without its part along z. */
static int vis_CoordSys_Tangent(const double* z, const double* d, double* x)
{
    double along = vis_Model_Dot(d, z);
    for (int i = 0; i < 3; ++i) x[i] = d[i] - along * z[i];
    return vis_CoordSys_Unit(x);
}

void vis_CoordSysSetSurfacedv(vis_CoordSys* cs, const double origin[3], const double normal[3], const double xdir[3])
{
    static const char* name = "vis_CoordSysSetSurfacedv";
    if (vis_Model_IsNull(cs, name)) return;
    double t[9];
    std::memcpy(t + 6, normal, 3 * sizeof(double));
    if (!vis_CoordSys_Unit(t + 6)) {
        vsy_ErrorRecord(&cs->ierr, name, SYS_ERROR_COMPUTE, "Degenerate vectors");
        return;
    }
    if (!vis_CoordSys_Tangent(t + 6, xdir, t))
        vis_CoordSys_Tangent(t + 6, vis_CoordSysIdentity + 3 * vis_CoordSys_LeastAxis(t + 6), t);
    vis_Model_Cross(t + 6, t, t + 3);
    std::memcpy(cs->origin, origin, 3 * sizeof(double));
    std::memcpy(cs->triad, t, sizeof(t));
}

void vis_CoordSysSetSurface(vis_CoordSys* cs, const float origin[3], const float normal[3], const float xdir[3])
{
    double o[3], n[3], d[3];
    vis_Model_ToDouble(3, origin, o);
    vis_Model_ToDouble(3, normal, n);
    vis_Model_ToDouble(3, xdir, d);
    vis_CoordSysSetSurfacedv(cs, o, n, d);
}

void vis_CoordSysSetObject(vis_CoordSys* cs, int objecttype, void* object)
{
    if (vis_Model_ObjectType(cs, "vis_CoordSysSetObject", objecttype, SYS_COORDSYS)) cs->ref = (vis_CoordSys*)object;
}

void vis_CoordSysGetObject(vis_CoordSys* cs, int objecttype, void** object)
{
    if (vis_Model_ObjectType(cs, "vis_CoordSysGetObject", objecttype, SYS_COORDSYS)) *object = cs->ref;
}

/* Cartesian components in a system of the coordinates c of its type (angles in degrees). */
static void vis_CoordSys_Cartesian(int type, const double* c, double* p)
{
    const double deg = std::acos(-1.0) / 180.0;
    if (type == VIS_COORDSYS_CYLINDRICAL) {
        p[0] = c[0] * std::cos(c[1] * deg);
        p[1] = c[0] * std::sin(c[1] * deg);
        p[2] = c[2];
    } else if (type >= VIS_COORDSYS_SPHERICAL) {
        double s = std::sin(c[1] * deg);
        p[0] = c[0] * s * std::cos(c[2] * deg);
        p[1] = c[0] * s * std::sin(c[2] * deg);
        p[2] = c[0] * std::cos(c[1] * deg);
    } else {
        std::memcpy(p, c, 3 * sizeof(double));
    }
}

/* out = sum over k of v[k] times row k of the matrix m (v in m's directions, out global). */
static void vis_CoordSys_Rows(const double* v, const double* m, double* out)
{
    for (int i = 0; i < 3; ++i) out[i] = v[0] * m[i] + v[1] * m[3 + i] + v[2] * m[6 + i];
}

void vis_CoordSysResolve(vis_CoordSys* cs)
{
    if (vis_Model_IsNull(cs, "vis_CoordSysResolve") || !cs->ref) return;
    vis_CoordSys* ref = cs->ref;
    if (ref->ref) {
        vsy_ErrorRecord(&cs->ierr, "vis_CoordSysResolve", SYS_ERROR_OPERATION, "Reference system not resolved");
        return;
    }
    double p[3], g[3], basis[9], t[9];
    vis_CoordSys_Cartesian(ref->type, cs->origin, p);
    vis_CoordSys_Rows(p, ref->triad, g);
    for (int i = 0; i < 3; ++i) g[i] += ref->origin[i];
    vis_CoordSysTriad(ref, g, basis);
    for (int r = 0; r < 3; ++r) vis_CoordSys_Rows(cs->triad + 3 * r, basis, t + 3 * r);
    std::memcpy(cs->origin, g, sizeof(g));
    std::memcpy(cs->triad, t, sizeof(t));
    cs->ref = nullptr;
}

void vis_CoordSysGetType(vis_CoordSys* cs, int* type)
{
    if (!vis_Model_IsNull(cs, "vis_CoordSysGetType")) *type = cs->type;
}

void vis_CoordSysOriginTriad(vis_CoordSys* cs, double origin[3], double triad[9])
{
    if (vis_Model_IsNull(cs, "vis_CoordSysOriginTriad")) return;
    if (origin) std::memcpy(origin, cs->origin, sizeof(cs->origin));
    if (triad) std::memcpy(triad, cs->triad, sizeof(cs->triad));
}

/* Cylindrical rows at a point: radial (the point's offset without its part along z'),
 * tangential z' x r, and z'. */
static void vis_CoordSys_Cylinder(const vis_CoordSys* cs, const double* d, double* t)
{
    const double* z = cs->triad + 6;
    if (!vis_CoordSys_Tangent(z, d, t)) std::memcpy(t, cs->triad, 3 * sizeof(double));
    vis_Model_Cross(z, t, t + 3);
    std::memcpy(t + 6, z, 3 * sizeof(double));
}

/* Spherical rows at a point: radial, polar (growing away from z') and azimuthal z' x r. */
static void vis_CoordSys_Sphere(const vis_CoordSys* cs, const double* d, double* t)
{
    const double* z = cs->triad + 6;
    std::memcpy(t, d, 3 * sizeof(double));
    if (!vis_CoordSys_Unit(t)) std::memcpy(t, z, 3 * sizeof(double));
    vis_Model_Cross(z, t, t + 6);
    if (!vis_CoordSys_Unit(t + 6)) std::memcpy(t + 6, cs->triad + 3, 3 * sizeof(double));
    vis_Model_Cross(t + 6, t, t + 3);
}

void vis_CoordSysTriad(vis_CoordSys* cs, const double x[3], double triad[9])
{
    if (vis_Model_IsNull(cs, "vis_CoordSysTriad")) return;
    double d[3] = {x[0] - cs->origin[0], x[1] - cs->origin[1], x[2] - cs->origin[2]};
    if (cs->type == VIS_COORDSYS_CYLINDRICAL) vis_CoordSys_Cylinder(cs, d, triad);
    else if (cs->type >= VIS_COORDSYS_SPHERICAL) vis_CoordSys_Sphere(cs, d, triad);
    else std::memcpy(triad, cs->triad, sizeof(cs->triad));
}
