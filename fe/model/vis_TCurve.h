/* vis_TCurve: a tabulated curve: npts points, each an independent value with nval dependent
 * values, and a factor (1 after New). Points count from 1.
 *
 * Evaluation interpolates linearly between the points, which must be in ascending order of the
 * independent value, holds the end values outside them and multiplies by the factor.
 *
 * Errors: npts below 0 code 1 "npts= %d"; nval below 1 code 1 "nval= %d"; a point count below
 * 0 code 1 "num= %d"; a listed point outside 1 to npts code 1 "pts[%d]= %d" (nothing is
 * read or written then); a parameter option other than VIS_TCURVE_TYPE code 2 "type= %d"; a
 * failed allocation code 4 "npts= %d" and the curve keeps what it held.
 */
#ifndef VIS_TCURVE_H
#define VIS_TCURVE_H

#define VIS_TCURVE_TYPE 1   /* integer option: the kind of curve, free for the caller */
#define VIS_TCURVE_FACTOR 2 /* double option: the factor, as vis_TCurveSetFactord */

typedef struct vis_TCurve {
    int ierr;      /* last error */
    int type;      /* kind of curve (VIS_TCURVE_TYPE) */
    int npts;      /* points */
    int nval;      /* dependent values per point */
    double* indep; /* npts + 1 values, entry 0 unused; owned */
    double* dep;   /* (npts + 1) * nval values, point i at i * nval; owned */
    double factor; /* scale of the dependent values */
} vis_TCurve;

/* Creates an empty curve; null with "TCurve" code 4 "Creation Failure". */
vis_TCurve* vis_TCurveNew(void);
void vis_TCurveDelete(vis_TCurve* tc);
int vis_TCurveError(vis_TCurve* tc);
/* Releases earlier points and makes npts zero points of nval dependent values. */
void vis_TCurveDef(vis_TCurve* tc, int npts, int nval);

void vis_TCurveSetFactor(vis_TCurve* tc, float factor);
void vis_TCurveSetFactord(vis_TCurve* tc, double factor);
void vis_TCurveGetFactor(vis_TCurve* tc, float* factor);
void vis_TCurveGetFactord(vis_TCurve* tc, double* factor);
void vis_TCurveSetParami(vis_TCurve* tc, int type, int value);
void vis_TCurveGetParami(vis_TCurve* tc, int type, int* value);
/* Double options: only VIS_TCURVE_FACTOR; any other code 2 "type= %d". */
void vis_TCurveSetParamd(vis_TCurve* tc, int type, double value);
void vis_TCurveGetParamd(vis_TCurve* tc, int type, double* value);

/* Defines the curve as npts points with one dependent value each: x[i], y[i]. */
void vis_TCurveSetPWLinear(vis_TCurve* tc, int npts, const float* x, const float* y);
void vis_TCurveSetPWLineardv(vis_TCurve* tc, int npts, const double* x, const double* y);
/* Defines the curve as npts points with nval dependent values (components) each: x[i] and
 * y[i * nval + k] for component k. */
void vis_TCurveSetCompPWLinear(vis_TCurve* tc, int npts, int nval, const float* x, const float* y);
void vis_TCurveSetCompPWLineardv(vis_TCurve* tc, int npts, int nval, const double* x, const double* y);

/* Makes tc the curve of the components of tca followed by those of tcb (nval the sum), over the
 * merged ascending independent values of both: a value of both curves gives one point, a
 * repeated value within one curve (a step) is kept. Each component is its curve's value there,
 * times its factor (points of the curve as they stand, other values interpolated and held
 * beyond the ends as Evaldv does), so tc's factor becomes 1. tc may be tca or tcb; a curve
 * without points gives zeros. Both curves must be in ascending order. */
void vis_TCurveMerge(vis_TCurve* tc, vis_TCurve* tca, vis_TCurve* tcb);

/* Independent values of n listed points, and their setter. */
void vis_TCurveIndep(vis_TCurve* tc, int n, const int* pts, float* values);
void vis_TCurveIndepdv(vis_TCurve* tc, int n, const int* pts, double* values);
void vis_TCurveSetIndepdv(vis_TCurve* tc, int n, const int* pts, const double* values);
/* Dependent values (nval per point) of n listed points, and their setter. */
void vis_TCurveDep(vis_TCurve* tc, int n, const int* pts, float* values);
void vis_TCurveDepdv(vis_TCurve* tc, int n, const int* pts, double* values);
void vis_TCurveSetDep(vis_TCurve* tc, int n, const int* pts, const float* values);
void vis_TCurveSetDepdv(vis_TCurve* tc, int n, const int* pts, const double* values);

/* The nval dependent values at an independent value x, times the factor. A curve without
 * points gives zeros. */
void vis_TCurveEvaldv(vis_TCurve* tc, double x, double* values);

#endif
