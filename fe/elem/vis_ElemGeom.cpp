/* vis_ElemGeom: mid-side fill, normals, curvature and the segment against triangle test; see
 * vis_ElemGeom.h. Everything is computed in double on local arrays. */
#include "vis_ElemGeom.h"

#include "vis_ElemForm.h"
#include "vis_ElemShape.h"
#include "vis_ElemTables.h"
#include "vis_ElemTopology.h"
#include "vsy_Sort.h"

#include <cmath>

namespace {

/* ------------------------------------------------------------------- midside ---- */

int IsIn(const int* sorted, int n, int v)
{
    int lo = 0, hi = n - 1;
    while (lo <= hi) {
        int mid = (lo + hi) / 2;
        if (sorted[mid] == v) return 1;
        if (sorted[mid] < v) lo = mid + 1;
        else hi = mid - 1;
    }
    return 0;
}

template <class T>
void Midside(int shape, int maxi, int maxj, int maxk, int components, T* data)
{
    if (!data || components < 1) return;
    if (shape == SYS_SHAPE_POINT || shape == SYS_SHAPE_POLYGON || shape == SYS_SHAPE_POLYHED) return;
    if (shape < SYS_SHAPE_LINE || shape > SYS_SHAPE_HEX || maxi == 0 || maxi == 2) return;
    vis_ElemForm f;
    if (!vis_ElemForm_Parse(shape, maxi, maxj, maxk, &f)) return;
    int num = vis_ElemForm_Count(&f), nc = 0;
    if (num <= 0 || num > VIS_ELEM_MAXNODE) return;
    const vis_ElemShapeDef* d = &vis_ElemShapeDefs[shape];
    if (shape != SYS_SHAPE_LINE && f.form == VIS_ELEMFORM_SER && f.i == 3 && f.mask == 0) {
        /* Quick path: corners first, then one mid node per edge in edge order. */
        for (int e = 0; e < d->numedge; e++) {
            const T* a = data + components * d->edges[e][0];
            const T* b = data + components * d->edges[e][1];
            T* m = data + components * (d->numcorner + e);
            for (int c = 0; c < components; c++) m[c] = T(0.5) * (a[c] + b[c]);
        }
        return;
    }
    vis_ElemCornerCount(shape, 0, &nc);
    int corners[VIS_ELEM_MAXCORNER], sorted[VIS_ELEM_MAXCORNER];
    vis_ElemCorners(shape, maxi, maxj, maxk, corners);
    for (int q = 0; q < nc; q++) sorted[q] = corners[q];
    vsy_HeapSortInt(nc, sorted);
    double nat[3 * VIS_ELEM_MAXNODE];
    vis_ElemNodeNaturaldv(shape, maxi, maxj, maxk, nat);
    for (int p = 0; p < num; p++) {
        if (IsIn(sorted, nc, p)) continue;
        double N[VIS_ELEM_MAXCORNER];
        const double* x = nat + 3 * p;
        if (shape == SYS_SHAPE_LINE) {
            N[0] = 0.5 * (1 - x[0]);
            N[1] = 0.5 * (1 + x[0]);
        } else if (d->dim == 2) {
            vis_ElemShape2Ddv(VIS_SHAPE_FUNC, shape, 2, 0, x, N, nullptr);
        } else {
            vis_ElemShape3Ddv(VIS_SHAPE_FUNC, shape, 2, 0, 0, x, N, nullptr);
        }
        for (int c = 0; c < components; c++) {
            double v = 0;
            for (int q = 0; q < nc; q++) v += N[q] * (double)data[components * corners[q] + c];
            data[components * p + c] = (T)v;
        }
    }
}

/* ------------------------------------------------------------------- vectors ---- */

void Cross(const double* a, const double* b, double* c)
{
    c[0] = a[1] * b[2] - a[2] * b[1];
    c[1] = a[2] * b[0] - a[0] * b[2];
    c[2] = a[0] * b[1] - a[1] * b[0];
}

double Dot(const double* a, const double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

double Norm(const double* a)
{
    return std::sqrt(Dot(a, a));
}

/* Normalises in place; returns 0 (and leaves zeros) for a zero vector. */
int Unit(double* a)
{
    double n = Norm(a);
    if (!(n > 0.0)) {
        a[0] = a[1] = a[2] = 0;
        return 0;
    }
    for (int c = 0; c < 3; c++) a[c] /= n;
    return 1;
}

void ZeroTiny(double* a)
{
    for (int c = 0; c < 3; c++)
        if (std::fabs(a[c]) <= 1e-12) a[c] = 0;
}

void Sub(const float* x, int p, int q, double* v)
{
    for (int c = 0; c < 3; c++) v[c] = (double)x[3 * p + c] - (double)x[3 * q + c];
}

void Store(float* out, int p, const double* n)
{
    for (int c = 0; c < 3; c++) out[3 * p + c] = (float)n[c];
}

/* Tangents dx/dr and dx/ds of a plane form at natural point x; returns 0 for no element. */
int Tangents(int shape, int maxi, int maxj, const float* coords, const double* x, double* a1, double* a2)
{
    int num = 0;
    vis_ElemNum(shape, maxi, maxj, 0, &num);
    if (num <= 0 || num > VIS_ELEM_MAXNODE) return 0;
    double dN[2 * VIS_ELEM_MAXNODE];
    vis_ElemShape2Ddv(VIS_SHAPE_DERIV, shape, maxi, maxj, x, nullptr, dN);
    for (int c = 0; c < 3; c++) a1[c] = a2[c] = 0;
    for (int p = 0; p < num; p++)
        for (int c = 0; c < 3; c++) {
            a1[c] += dN[2 * p] * coords[3 * p + c];
            a2[c] += dN[2 * p + 1] * coords[3 * p + c];
        }
    return num;
}

/* A line's direction is from its first end to its second, or, if they meet, from the first end
 * to the next node along the line; the ends and the order come from the edge's node list. */
void LineNormal(int maxi, int maxj, int num, const float* coords, float* normals)
{
    double v[3], n[3] = {1, 0, 0};
    int run[VIS_ELEM_MAXSIDE], m = 0;
    vis_ElemEdgeNodes(SYS_SHAPE_LINE, maxi, maxj, 0, 0, &m, run);
    if (m < 2) return;
    Sub(coords, run[m - 1], run[0], v);
    if (!(Norm(v) > 0) && m > 2) Sub(coords, run[1], run[0], v);
    if (Unit(v)) {
        ZeroTiny(v);
        double ref[3] = {0, 0, 0};
        ref[std::fabs(v[0]) < 0.9 ? 0 : 1] = 1;
        Cross(v, ref, n);
        Unit(n);
    }
    for (int p = 0; p < num; p++) Store(normals, p, n);
}

void PolygonNormal(int maxi, const float* coords, float* normals)
{
    double n[3] = {0, 0, 0};
    int nc = maxi - 1;
    for (int p = 0; p < nc; p++) {
        const float* a = coords + 3 * p;
        const float* b = coords + 3 * ((p + 1) % nc);
        n[0] += ((double)a[1] - b[1]) * ((double)a[2] + b[2]);
        n[1] += ((double)a[2] - b[2]) * ((double)a[0] + b[0]);
        n[2] += ((double)a[0] - b[0]) * ((double)a[1] + b[1]);
    }
    Unit(n);
    for (int p = 0; p < maxi; p++) Store(normals, p, n);
}

/* The normal at a node by the tangents, moved towards the centre where it vanishes. */
void TangentNormal(int shape, int maxi, int maxj, const float* coords, const double* nat, double* n)
{
    double a1[3] = {0, 0, 0}, a2[3] = {0, 0, 0}, x[2] = {nat[0], nat[1]};
    double cx = shape == SYS_SHAPE_TRI ? 1.0 / 3.0 : 0.0;
    for (int attempt = 0; attempt < 2; attempt++) {
        Tangents(shape, maxi, maxj, coords, x, a1, a2);
        Cross(a1, a2, n);
        if (Unit(n)) return;
        x[0] = cx + 0.999 * (nat[0] - cx);
        x[1] = cx + 0.999 * (nat[1] - cx);
    }
}

}  // namespace

void vis_ElemMidside(int shape, int maxi, int maxj, int maxk, int components, float* data)
{
    Midside(shape, maxi, maxj, maxk, components, data);
}

void vis_ElemMidsidedv(int shape, int maxi, int maxj, int maxk, int components, double* data)
{
    Midside(shape, maxi, maxj, maxk, components, data);
}

void vis_ElemNormal(int shape, int maxi, int maxj, const float* coords, float* normals)
{
    if (!coords || !normals) return;
    int num = 0;
    if (shape == SYS_SHAPE_POLYGON) {
        if (maxi >= 4) PolygonNormal(maxi, coords, normals);
        return;
    }
    if (shape != SYS_SHAPE_LINE && shape != SYS_SHAPE_TRI && shape != SYS_SHAPE_QUAD) return;
    vis_ElemNum(shape, maxi, maxj, 0, &num);
    if (num <= 0 || num > VIS_ELEM_MAXNODE) return;
    if (shape == SYS_SHAPE_LINE) {
        LineNormal(maxi, maxj, num, coords, normals);
        return;
    }
    int j = maxj & 0xffff;
    if (shape == SYS_SHAPE_TRI && maxi < 3) {
        double a[3], b[3], n[3];
        Sub(coords, 1, 0, a);
        Sub(coords, 2, 0, b);
        Cross(a, b, n);
        Unit(n);
        ZeroTiny(n);
        for (int p = 0; p < num; p++) Store(normals, p, n);
        return;
    }
    double nat[3 * VIS_ELEM_MAXNODE];
    vis_ElemNodeNaturaldv(shape, maxi, maxj, 0, nat);
    for (int p = 0; p < num; p++) {
        double n[3];
        if (shape == SYS_SHAPE_QUAD && maxi < 3 && j == 0) {
            double a[3], b[3];
            Sub(coords, (p + 1) % 4, p, a);
            Sub(coords, (p + 3) % 4, p, b);
            Cross(a, b, n);
            if (Unit(n)) {
                Store(normals, p, n);
                continue;
            }
        }
        TangentNormal(shape, maxi, maxj, coords, nat + 3 * p, n);
        Store(normals, p, n);
    }
}

void vis_ElemCurvature(int shape, int maxi, int maxj, const float* coords, const float* normals,
                       const float* point, float* curv, float* dirs)
{
    if (curv) curv[0] = curv[1] = 0;
    if (dirs)
        for (int c = 0; c < 6; c++) dirs[c] = 0;
    if (!coords || !normals || !point) return;
    if (shape != SYS_SHAPE_TRI && shape != SYS_SHAPE_QUAD) return;
    int num = 0;
    vis_ElemNum(shape, maxi, maxj, 0, &num);
    if (num <= 0 || num > VIS_ELEM_MAXNODE) return;
    double x[2] = {point[0], point[1]}, dN[2 * VIS_ELEM_MAXNODE];
    double a1[3] = {0, 0, 0}, a2[3] = {0, 0, 0}, nr[3] = {0, 0, 0}, ns[3] = {0, 0, 0};
    vis_ElemShape2Ddv(VIS_SHAPE_DERIV, shape, maxi, maxj, x, nullptr, dN);
    for (int p = 0; p < num; p++)
        for (int c = 0; c < 3; c++) {
            a1[c] += dN[2 * p] * coords[3 * p + c];
            a2[c] += dN[2 * p + 1] * coords[3 * p + c];
            nr[c] += dN[2 * p] * normals[3 * p + c];
            ns[c] += dN[2 * p + 1] * normals[3 * p + c];
        }
    double n0[3], e1[3] = {a1[0], a1[1], a1[2]}, e2[3];
    Cross(a1, a2, n0);
    if (!Unit(n0) || !Unit(e1)) return;
    Cross(n0, e1, e2);
    /* J maps natural steps to local tangent steps; its inverse turns dn/dr, dn/ds into
     * derivatives along e1 and e2. */
    double J00 = Dot(a1, e1), J01 = Dot(a2, e1), J10 = Dot(a1, e2), J11 = Dot(a2, e2);
    double det = J00 * J11 - J01 * J10;
    if (!(std::fabs(det) > 0)) return;
    double I00 = J11 / det, I01 = -J01 / det, I10 = -J10 / det, I11 = J00 / det;
    double du[3], dv[3];
    for (int c = 0; c < 3; c++) {
        du[c] = nr[c] * I00 + ns[c] * I10;
        dv[c] = nr[c] * I01 + ns[c] * I11;
    }
    double p = Dot(e1, du), r = Dot(e2, dv), q = 0.5 * (Dot(e1, dv) + Dot(e2, du));
    double m = 0.5 * (p + r), h = std::sqrt(0.25 * (p - r) * (p - r) + q * q);
    double lo = m - h, hi = m + h;
    if (curv) {
        curv[0] = (float)-lo;
        curv[1] = (float)-hi;
    }
    if (!dirs) return;
    double v[2];
    if (h <= 1e-14 * (std::fabs(m) + 1e-300)) {
        v[0] = 1;
        v[1] = 0;
    } else if (std::fabs(p - lo) > std::fabs(r - lo)) {
        v[0] = -q;
        v[1] = p - lo;
    } else {
        v[0] = r - lo;
        v[1] = -q;
    }
    double len = std::sqrt(v[0] * v[0] + v[1] * v[1]);
    if (!(len > 0)) {
        v[0] = 1;
        v[1] = 0;
        len = 1;
    }
    v[0] /= len;
    v[1] /= len;
    for (int c = 0; c < 3; c++) {
        dirs[c] = (float)(v[0] * e1[c] + v[1] * e2[c]);
        dirs[3 + c] = (float)(-v[1] * e1[c] + v[0] * e2[c]);
    }
}

namespace {

/* Squared distance between point p and segment ab. */
double PointSeg2(const double* p, const double* a, const double* b)
{
    double ab[3], ap[3];
    for (int c = 0; c < 3; c++) {
        ab[c] = b[c] - a[c];
        ap[c] = p[c] - a[c];
    }
    double l2 = Dot(ab, ab), t = l2 > 0 ? Dot(ap, ab) / l2 : 0;
    if (t < 0) t = 0;
    if (t > 1) t = 1;
    double d[3];
    for (int c = 0; c < 3; c++) d[c] = ap[c] - t * ab[c];
    return Dot(d, d);
}

/* Squared distance between segments pq and ab. */
double SegSeg2(const double* p, const double* q, const double* a, const double* b)
{
    double d1[3], d2[3], r[3];
    for (int c = 0; c < 3; c++) {
        d1[c] = q[c] - p[c];
        d2[c] = b[c] - a[c];
        r[c] = p[c] - a[c];
    }
    double A = Dot(d1, d1), E = Dot(d2, d2), F = Dot(d2, r);
    double best = PointSeg2(p, a, b);
    double v = PointSeg2(q, a, b);
    if (v < best) best = v;
    v = PointSeg2(a, p, q);
    if (v < best) best = v;
    v = PointSeg2(b, p, q);
    if (v < best) best = v;
    if (A > 0 && E > 0) {
        double B = Dot(d1, d2), C = Dot(d1, r), den = A * E - B * B;
        if (den > 0) {
            double s = (B * F - C * E) / den, t = (A * F - B * C) / den;
            if (s >= 0 && s <= 1 && t >= 0 && t <= 1) {
                double d[3];
                for (int c = 0; c < 3; c++) d[c] = p[c] + s * d1[c] - a[c] - t * d2[c];
                v = Dot(d, d);
                if (v < best) best = v;
            }
        }
    }
    return best;
}

/* Whether the foot of p in the plane of the triangle lies inside it; *h2 gets the squared
 * height of p over the plane. */
int InsideFoot(const double* p, const double* a, const double* b, const double* c, const double* n,
               double* h2)
{
    double ap[3];
    for (int k = 0; k < 3; k++) ap[k] = p[k] - a[k];
    double h = Dot(ap, n);
    *h2 = h * h;
    double f[3];
    for (int k = 0; k < 3; k++) f[k] = p[k] - h * n[k];
    const double* v[3] = {a, b, c};
    for (int e = 0; e < 3; e++) {
        double ed[3], fp[3], x[3];
        for (int k = 0; k < 3; k++) {
            ed[k] = v[(e + 1) % 3][k] - v[e][k];
            fp[k] = f[k] - v[e][k];
        }
        Cross(ed, fp, x);
        if (Dot(x, n) < 0) return 0;
    }
    return 1;
}

}  // namespace

void vis_ElemSegTri(const double* tri, const double* seg, double tol2, int* flag)
{
    if (!flag) return;
    *flag = 0;
    if (!tri || !seg) return;
    const double *a = tri, *b = tri + 3, *c = tri + 6, *p = seg, *q = seg + 3;
    double ab[3], ac[3], n[3];
    for (int k = 0; k < 3; k++) {
        ab[k] = b[k] - a[k];
        ac[k] = c[k] - a[k];
    }
    Cross(ab, ac, n);
    if (Unit(n)) {
        double dp = 0, dq = 0;
        for (int k = 0; k < 3; k++) {
            dp += (p[k] - a[k]) * n[k];
            dq += (q[k] - a[k]) * n[k];
        }
        /* A crossing of the plane inside the triangle is distance 0. */
        if ((dp <= 0 && dq >= 0) || (dp >= 0 && dq <= 0)) {
            double t = dp != dq ? dp / (dp - dq) : 0, x[3], h2;
            for (int k = 0; k < 3; k++) x[k] = p[k] + t * (q[k] - p[k]);
            if (InsideFoot(x, a, b, c, n, &h2) && h2 <= tol2) {
                *flag = 1;
                return;
            }
        }
        double h2;
        if (InsideFoot(p, a, b, c, n, &h2) && h2 <= tol2) {
            *flag = 1;
            return;
        }
        if (InsideFoot(q, a, b, c, n, &h2) && h2 <= tol2) {
            *flag = 1;
            return;
        }
    }
    const double* v[3] = {a, b, c};
    for (int e = 0; e < 3; e++)
        if (SegSeg2(p, q, v[e], v[(e + 1) % 3]) <= tol2) {
            *flag = 1;
            return;
        }
}
