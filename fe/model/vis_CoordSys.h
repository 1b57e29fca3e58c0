/* vis_CoordSys: a local coordinate system: type, id, name, origin and the direction matrix by
 * rows, each row a unit axis (x', y', z' in global components).
 *
 * Types: 1 rectangular, 2 cylindrical (r, theta, z about the local z axis), 3 and 4 spherical
 * (r, theta, phi with theta from the local z axis; the two differ only in the deck formats
 * that name them). The system at a point (vis_CoordSysTriad) is the matrix itself for a
 * rectangular system and the local curvilinear directions otherwise; on the axis (or at the
 * origin) the undefined directions fall back on the matrix rows.
 *
 * A system may be given relative to a reference system (SetObject with SYS_COORDSYS): its
 * origin is then in the reference's coordinates (r, theta, z or r, theta, phi with angles in
 * degrees for a curvilinear reference) and its axes in the reference's directions at that
 * origin, until vis_CoordSysResolve turns both into global terms and drops the reference. The
 * writers read origin and matrix only, so a model hands them resolved systems.
 */
#ifndef VIS_COORDSYS_H
#define VIS_COORDSYS_H

#define VIS_COORDSYS_RECTANGULAR 1
#define VIS_COORDSYS_CYLINDRICAL 2
#define VIS_COORDSYS_SPHERICAL 3
#define VIS_COORDSYS_SPHERICAL2 4

typedef struct vis_CoordSys {
    int ierr;          /* last error */
    int type;          /* 1 to 4 */
    int id;            /* the id the model's table keys it by, free for the caller */
    char* name;        /* owned, null when unnamed */
    double origin[3];
    double triad[9];   /* rows: local x, y, z axes */
    struct vis_CoordSys* ref; /* reference system until resolved, not owned; null: global */
} vis_CoordSys;

/* Creates a rectangular system at the global origin with the global axes; null with
 * "CoordSys" code 4 "Creation Failure". */
vis_CoordSys* vis_CoordSysNew(void);
void vis_CoordSysDelete(vis_CoordSys* cs);
int vis_CoordSysError(vis_CoordSys* cs);
/* Sets the type and resets to the global origin and axes. A type outside 1 to 4: code 2
 * "type= %d", nothing changes. */
void vis_CoordSysDef(vis_CoordSys* cs, int type);
void vis_CoordSysSetId(vis_CoordSys* cs, int id);
void vis_CoordSysGetId(vis_CoordSys* cs, int* id);
/* Name; an unnamed system reads as an empty text. A failed copy: code 4 "name= %s". */
void vis_CoordSysSetName(vis_CoordSys* cs, const char* name);
void vis_CoordSysGetName(vis_CoordSys* cs, char* name);

/* Origin, a vector along the local x axis and a vector in the local x-y plane: x' is the first
 * made unit, z' = x' x v2 made unit, y' = z' x x'. A zero or parallel pair: code 7
 * "Degenerate vectors", nothing changes. */
void vis_CoordSysSetOriginVectors(vis_CoordSys* cs, const float origin[3], const float xaxis[3],
                                  const float xyplane[3]);
void vis_CoordSysSetOriginVectorsdv(vis_CoordSys* cs, const double origin[3], const double xaxis[3],
                                    const double xyplane[3]);
/* Origin and direction matrix given as they are (rows are taken to be unit axes). */
void vis_CoordSysSetOriginTriaddv(vis_CoordSys* cs, const double origin[3], const double triad[9]);

/* A system on a surface: origin at a surface point, z' along the surface normal, x' the part
 * of xdir in the tangent plane; a zero or normal xdir falls back on the global axis least
 * aligned with the normal (the first of equals), so a shell always gets a system. The type is
 * kept. A zero normal: code 7 "Degenerate vectors", nothing changes. */
void vis_CoordSysSetSurface(vis_CoordSys* cs, const float origin[3], const float normal[3], const float xdir[3]);
void vis_CoordSysSetSurfacedv(vis_CoordSys* cs, const double origin[3], const double normal[3],
                              const double xdir[3]);

/* Attaches (null: detaches) or reads the reference system; objecttype must be SYS_COORDSYS,
 * otherwise code 3 "objecttype= %d" and nothing is set or read. The caller keeps it. */
void vis_CoordSysSetObject(vis_CoordSys* cs, int objecttype, void* object);
void vis_CoordSysGetObject(vis_CoordSys* cs, int objecttype, void** object);
/* Turns origin and matrix given relative to the reference into global terms and drops the
 * reference; without one nothing changes. A reference that has a reference of its own must be
 * resolved first: code 8 "Reference system not resolved", nothing changes. */
void vis_CoordSysResolve(vis_CoordSys* cs);

void vis_CoordSysGetType(vis_CoordSys* cs, int* type);
void vis_CoordSysOriginTriad(vis_CoordSys* cs, double origin[3], double triad[9]);
/* The local directions at a global point, rows as in the matrix. */
void vis_CoordSysTriad(vis_CoordSys* cs, const double x[3], double triad[9]);

#endif
