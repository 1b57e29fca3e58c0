/* vis_ASurf: an analytic contact surface, stored and returned for the caller; no writer of
 * this system reads it.
 *
 * A surface is one of: a profile of points and segments swept along a direction (ruled) or
 * revolved about an axis, a plane, a box, a cylinder, a cone or a sphere. Setting a primitive
 * makes the surface that kind; a Get of another kind than the surface's is code 8
 * "Surface type= %d" (with the surface's kind) and leaves the destinations alone.
 *
 * Profile: points 1 to npts and segments 1 to nseg from Def; a segment is a line (kind 1, two
 * points) or a circular arc (kind 2: start, end, centre). Errors: npts or nseg below 0 code 1
 * "nument= %d"; a point or segment index outside its range code 1 "index= %d"; a segment kind
 * other than 1 and 2 code 2 "type= %d"; a segment point outside 1 to npts code 1 "ix[%d]= %d";
 * a failed allocation code 4 "nument= %d".
 */
#ifndef VIS_ASURF_H
#define VIS_ASURF_H

#define VIS_ASURF_NONE 0
#define VIS_ASURF_RULED 1
#define VIS_ASURF_REVOLVED 2
#define VIS_ASURF_PLANE 3
#define VIS_ASURF_BOX 4
#define VIS_ASURF_CYLINDER 5
#define VIS_ASURF_CONE 6
#define VIS_ASURF_SPHERE 7

#define VIS_ASURF_LINE 1
#define VIS_ASURF_ARC 2

typedef struct vis_ASurfSeg {
    int kind;   /* 0 unset, VIS_ASURF_LINE or VIS_ASURF_ARC */
    int pts[3]; /* start, end, centre (arcs) */
} vis_ASurfSeg;

typedef struct vis_ASurf {
    int ierr;            /* last error */
    int type;            /* VIS_ASURF_NONE ... VIS_ASURF_SPHERE */
    int npts;
    int nseg;
    double* pts;         /* 3 * (npts + 1), point i at 3 * i; owned */
    vis_ASurfSeg* segs;  /* nseg + 1, entry 0 unused; owned */
    double data[8];      /* the kind's values, in the order of its Set call */
} vis_ASurf;

/* Creates an empty surface of kind none; null with "ASurf" code 4 "Creation Failure". */
vis_ASurf* vis_ASurfNew(void);
void vis_ASurfDelete(vis_ASurf* as);
int vis_ASurfError(vis_ASurf* as);
/* Releases the profile, makes npts points at the origin and nseg unset segments, kind none. */
void vis_ASurfDef(vis_ASurf* as, int npts, int nseg);

void vis_ASurfSetPoint(vis_ASurf* as, int index, const float x[3]);
void vis_ASurfSetPointdv(vis_ASurf* as, int index, const double x[3]);
void vis_ASurfGetPoint(vis_ASurf* as, int index, float x[3]);
void vis_ASurfGetPointdv(vis_ASurf* as, int index, double x[3]);
void vis_ASurfSegSegment(vis_ASurf* as, int index, int kind, const int pts[]);
void vis_ASurfGetSegment(vis_ASurf* as, int index, int* kind, int pts[3]);

/* The profile swept along a direction, or revolved about an axis through a point. */
void vis_ASurfSetSegmentRule(vis_ASurf* as, const float dir[3]);
void vis_ASurfSetSegmentRuledv(vis_ASurf* as, const double dir[3]);
void vis_ASurfGetSegmentRule(vis_ASurf* as, float dir[3]);
void vis_ASurfGetSegmentRuledv(vis_ASurf* as, double dir[3]);
void vis_ASurfSetSegmentRev(vis_ASurf* as, const float origin[3], const float axis[3]);
void vis_ASurfSetSegmentRevdv(vis_ASurf* as, const double origin[3], const double axis[3]);
void vis_ASurfGetSegmentRev(vis_ASurf* as, float origin[3], float axis[3]);
void vis_ASurfGetSegmentRevdv(vis_ASurf* as, double origin[3], double axis[3]);

/* A plane through a point with its normal. */
void vis_ASurfSetPlane(vis_ASurf* as, const float origin[3], const float normal[3]);
void vis_ASurfSetPlanedv(vis_ASurf* as, const double origin[3], const double normal[3]);
void vis_ASurfGetPlane(vis_ASurf* as, float origin[3], float normal[3]);
void vis_ASurfGetPlanedv(vis_ASurf* as, double origin[3], double normal[3]);
/* A box between two opposite corners. */
void vis_ASurfSetBox(vis_ASurf* as, const float lower[3], const float upper[3]);
void vis_ASurfSetBoxdv(vis_ASurf* as, const double lower[3], const double upper[3]);
void vis_ASurfGetBox(vis_ASurf* as, float lower[3], float upper[3]);
void vis_ASurfGetBoxdv(vis_ASurf* as, double lower[3], double upper[3]);
/* A cylinder from the centre of one end to the centre of the other, with its radius. */
void vis_ASurfSetCylinder(vis_ASurf* as, const float base[3], const float top[3], float radius);
void vis_ASurfSetCylinderdv(vis_ASurf* as, const double base[3], const double top[3], double radius);
void vis_ASurfGetCylinder(vis_ASurf* as, float base[3], float top[3], float* radius);
void vis_ASurfGetCylinderdv(vis_ASurf* as, double base[3], double top[3], double* radius);
/* A cone (or frustum) between two end centres with the radius at each end. */
void vis_ASurfSetCone(vis_ASurf* as, const float base[3], const float top[3], float rbase, float rtop);
void vis_ASurfSetConedv(vis_ASurf* as, const double base[3], const double top[3], double rbase, double rtop);
void vis_ASurfGetCone(vis_ASurf* as, float base[3], float top[3], float* rbase, float* rtop);
void vis_ASurfGetConedv(vis_ASurf* as, double base[3], double top[3], double* rbase, double* rtop);
/* A sphere by centre and radius. */
void vis_ASurfSetSphere(vis_ASurf* as, const float centre[3], float radius);
void vis_ASurfSetSpheredv(vis_ASurf* as, const double centre[3], double radius);
void vis_ASurfGetSphere(vis_ASurf* as, float centre[3], float* radius);
void vis_ASurfGetSpheredv(vis_ASurf* as, double centre[3], double* radius);

/* The kind of the surface. */
void vis_ASurfGetType(vis_ASurf* as, int* type);

#endif
