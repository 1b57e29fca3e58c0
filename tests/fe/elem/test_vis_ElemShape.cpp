// Shape functions of every element form: partition of unity, Kronecker property at the nodes
// from vis_ElemNodeNatural, derivatives against finite differences, float against double,
// node natural coordinates against the topology, masks, the polygon fan and the mid-side fill.
#include "vis_Elem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

struct Tuple {
    int shape, maxi, maxj, maxk;
};

std::string Name(const Tuple& t)
{
    return "shape " + std::to_string(t.shape) + " tuple " + std::to_string(t.maxi) + "," +
           std::to_string(t.maxj & 0xffff) + "," + std::to_string(t.maxk) + " mask " +
           std::to_string((unsigned)t.maxj >> 16);
}

int Dim(int shape)
{
    return shape <= SYS_SHAPE_QUAD ? 2 : 3;
}

// Every unmasked form the topology tables describe, line excluded.
std::vector<Tuple> BaseForms()
{
    std::vector<Tuple> f;
    for (int s = SYS_SHAPE_TRI; s <= SYS_SHAPE_HEX; s++)
        for (int i : {0, 2, 3, 4}) f.push_back({s, i, 0, 0});
    for (int i = 2; i <= 4; i++) {
        f.push_back({SYS_SHAPE_TRI, i, i, 0});                       // Lagrange
        f.push_back({SYS_SHAPE_TRI, i, i == 2 ? 3 : 2, 0});          // line plus apex
        f.push_back({SYS_SHAPE_TET, i, 0, 1});                       // serendipity base + apex
        f.push_back({SYS_SHAPE_TET, i, i, i});                       // Lagrange
        f.push_back({SYS_SHAPE_TET, i, i, 0});                       // Lagrange base + apex
        f.push_back({SYS_SHAPE_PYR, i, 0, 1});
        f.push_back({SYS_SHAPE_PYR, i, i, i});
        for (int j = 2; j <= 4; j++) {
            f.push_back({SYS_SHAPE_QUAD, i, j, 0});
            f.push_back({SYS_SHAPE_PYR, i, j, j == i ? 1 : 0});
            for (int k = 2; k <= 4; k++) f.push_back({SYS_SHAPE_HEX, i, j, k});
        }
        for (int k = 2; k <= 4; k++) {
            f.push_back({SYS_SHAPE_WED, i, 0, k});  // layered
            f.push_back({SYS_SHAPE_HEX, i, 0, k});
            f.push_back({SYS_SHAPE_WED, i, i, k});  // Lagrange
        }
    }
    return f;
}

// Base forms plus every single-edge mask that removes nodes.
std::vector<Tuple> AllForms()
{
    std::vector<Tuple> f = BaseForms(), out = f;
    for (const Tuple& t : f) {
        int ne = 0, num = 0;
        vis_ElemEdgeCount(t.shape, 0, &ne);
        vis_ElemNum(t.shape, t.maxi, t.maxj, t.maxk, &num);
        for (int e = 0; e < ne; e++) {
            Tuple m = t;
            m.maxj = t.maxj | (1 << (16 + e));
            int mnum = 0;
            vis_ElemNum(m.shape, m.maxi, m.maxj, m.maxk, &mnum);
            if (mnum < num) out.push_back(m);
        }
    }
    return out;
}

void Eval(const Tuple& t, int mode, const double* x, double* N, double* dN)
{
    if (Dim(t.shape) == 2) vis_ElemShape2Ddv(mode, t.shape, t.maxi, t.maxj, x, N, dN);
    else vis_ElemShape3Ddv(mode, t.shape, t.maxi, t.maxj, t.maxk, x, N, dN);
}

void Evalf(const Tuple& t, const float* x, float* N, float* dN)
{
    if (Dim(t.shape) == 2) vis_ElemShape2D(0, t.shape, t.maxi, t.maxj, x, N, dN);
    else vis_ElemShape3D(0, t.shape, t.maxi, t.maxj, t.maxk, x, N, dN);
}

// A random point inside the natural domain, kept a little off the boundary and the apex.
void RandomPoint(int shape, unsigned& seed, double* x)
{
    auto u = [&seed]() {
        seed = seed * 1664525u + 1013904223u;
        return 0.05 + 0.9 * ((seed >> 8) & 0xFFFF) / 65535.0;
    };
    x[0] = x[1] = x[2] = 0;
    switch (shape) {
    case SYS_SHAPE_TRI:
    case SYS_SHAPE_WED: {
        double a = u(), b = u();
        if (a + b > 1) a = 1 - a, b = 1 - b;
        x[0] = a * 0.95, x[1] = b * 0.95, x[2] = 2 * u() - 1;
        break;
    }
    case SYS_SHAPE_TET: {
        double a = u(), b = u(), c = u();
        while (a + b + c > 0.95) a *= 0.7, b *= 0.7, c *= 0.7;
        x[0] = a, x[1] = b, x[2] = c;
        break;
    }
    case SYS_SHAPE_PYR: {
        double t = -1 + 1.7 * u(), w = (1 - t) / 2;
        x[0] = w * (2 * u() - 1), x[1] = w * (2 * u() - 1), x[2] = t;
        break;
    }
    default:
        for (int a = 0; a < 3; a++) x[a] = 2 * u() - 1;
    }
}

TEST(ElemShape, OneDimensionalFunctions)
{
    float N[4], dN[4];
    vis_ElemShape1D(0, 4, 1.0f / 3.0f, N, dN);
    EXPECT_NEAR(N[2], 1.0f, 1e-6);
    EXPECT_NEAR(N[0] + N[1] + N[3], 0.0f, 1e-6);
    EXPECT_NEAR(dN[0] + dN[1] + dN[2] + dN[3], 0.0f, 1e-5);
    double Nd[3], dNd[3];
    vis_ElemShape1Ddv(0, 3, 0.5, Nd, dNd);
    EXPECT_DOUBLE_EQ(Nd[0], 0.5 * -0.5 / 2);
    EXPECT_DOUBLE_EQ(Nd[1], 0.75);
    EXPECT_DOUBLE_EQ(dNd[1], -1.0);
    vis_ElemShape1Ddv(0, 2, 0.0, Nd, dNd);
    EXPECT_DOUBLE_EQ(dNd[0], -0.5);
    EXPECT_DOUBLE_EQ(dNd[1], 0.5);
    double keep[5] = {7, 7, 7, 7, 7};
    vis_ElemShape1Ddv(0, 5, 0.0, keep, nullptr);  // no such order: nothing written
    EXPECT_EQ(keep[0], 7);
}

TEST(ElemShape, LinearTriangleAtAQuarter)
{
    float x[2] = {0.25f, 0.25f}, N[3], dN[6];
    vis_ElemShape2D(0, SYS_SHAPE_TRI, 0, 0, x, N, dN);
    EXPECT_FLOAT_EQ(N[0], 0.5f);
    EXPECT_FLOAT_EQ(N[1], 0.25f);
    EXPECT_FLOAT_EQ(N[2], 0.25f);
    const float want[6] = {-1, -1, 1, 0, 0, 1};
    for (int c = 0; c < 6; c++) EXPECT_FLOAT_EQ(dN[c], want[c]);
}

TEST(ElemShape, LinearPyramidClosedForm)
{
    double x[3] = {0.2, -0.4, 0.3}, N[5];
    vis_ElemShape3Ddv(1, SYS_SHAPE_PYR, 0, 0, 0, x, N, nullptr);
    EXPECT_DOUBLE_EQ(N[0], (1 - 0.2) * (1 + 0.4) * (1 - 0.3) / 8);
    EXPECT_DOUBLE_EQ(N[4], (1 + 0.3) / 2);
}

// maxi 0 and maxi 2 are the same linear pyramid: base corner c (natural rc, sc) has
// (1 + rc r)(1 + sc s)(1 - t) / 8 with derivatives rc (1 + sc s)(1 - t) / 8,
// sc (1 + rc r)(1 - t) / 8 and -(1 + rc r)(1 + sc s) / 8; the apex (1 + t) / 2 with 0, 0, 1/2.
TEST(ElemShape, LinearPyramidIsTheSameForMaxiZeroAndTwo)
{
    const double rc[4] = {-1, 1, 1, -1}, sc[4] = {-1, -1, 1, 1};
    const double pts[5][3] = {{0.2, -0.4, 0.3}, {0, 0, -1}, {-0.9, 0.7, -0.95}, {0.01, -0.02, 0.9},
                              {0.5, 0.5, 0}};
    for (const auto& x : pts) {
        double N0[5], d0[15], N2[5], d2[15];
        vis_ElemShape3Ddv(0, SYS_SHAPE_PYR, 0, 0, 0, x, N0, d0);
        vis_ElemShape3Ddv(0, SYS_SHAPE_PYR, 2, 0, 0, x, N2, d2);
        double r = x[0], s = x[1], t = x[2];
        for (int c = 0; c < 4; c++) {
            EXPECT_NEAR(N2[c], (1 + rc[c] * r) * (1 + sc[c] * s) * (1 - t) / 8, 1e-15);
            EXPECT_NEAR(d2[3 * c], rc[c] * (1 + sc[c] * s) * (1 - t) / 8, 1e-15);
            EXPECT_NEAR(d2[3 * c + 1], sc[c] * (1 + rc[c] * r) * (1 - t) / 8, 1e-15);
            EXPECT_NEAR(d2[3 * c + 2], -(1 + rc[c] * r) * (1 + sc[c] * s) / 8, 1e-15);
        }
        EXPECT_NEAR(N2[4], (1 + t) / 2, 1e-15);
        EXPECT_NEAR(d2[12], 0, 1e-15);
        EXPECT_NEAR(d2[13], 0, 1e-15);
        EXPECT_NEAR(d2[14], 0.5, 1e-15);
        for (int p = 0; p < 5; p++) EXPECT_EQ(N0[p], N2[p]) << p;
        for (int p = 0; p < 15; p++) EXPECT_EQ(d0[p], d2[p]) << p;
        float xf[3] = {(float)x[0], (float)x[1], (float)x[2]}, Nf0[5], df0[15], Nf2[5], df2[15];
        vis_ElemShape3D(0, SYS_SHAPE_PYR, 0, 0, 0, xf, Nf0, df0);
        vis_ElemShape3D(0, SYS_SHAPE_PYR, 2, 0, 0, xf, Nf2, df2);
        for (int p = 0; p < 5; p++) EXPECT_EQ(Nf0[p], Nf2[p]) << p;
        for (int p = 0; p < 15; p++) EXPECT_EQ(df0[p], df2[p]) << p;
    }
}

TEST(ElemShape, ModesWriteOnlyWhatIsAsked)
{
    double x[3] = {0.1, 0.2, 0.3}, N[20], dN[60];
    for (double& v : dN) v = 42;
    vis_ElemShape3Ddv(1, SYS_SHAPE_HEX, 3, 0, 0, x, N, dN);
    EXPECT_EQ(dN[0], 42);
    for (double& v : N) v = 42;
    vis_ElemShape3Ddv(2, SYS_SHAPE_HEX, 3, 0, 0, x, N, dN);
    EXPECT_EQ(N[0], 42);
    EXPECT_NE(dN[0], 42);
    vis_ElemShape3Ddv(1, SYS_SHAPE_HEX, 3, 0, 0, x, nullptr, nullptr);  // harmless
}

TEST(ElemShape, EveryFormIsAPartitionOfUnityWithKroneckerNodes)
{
    int forms = 0;
    for (const Tuple& t : AllForms()) {
        SCOPED_TRACE(Name(t));
        int num = 0, dim = Dim(t.shape);
        vis_ElemNum(t.shape, t.maxi, t.maxj, t.maxk, &num);
        ASSERT_GT(num, 0);
        ASSERT_LE(num, VIS_ELEM_MAXNODE);
        forms++;
        double nat[3 * VIS_ELEM_MAXNODE];
        vis_ElemNodeNaturaldv(t.shape, t.maxi, t.maxj, t.maxk, nat);
        for (int q = 0; q < num; q++) {
            double N[VIS_ELEM_MAXNODE];
            Eval(t, 1, nat + 3 * q, N, nullptr);
            for (int p = 0; p < num; p++) ASSERT_NEAR(N[p], p == q ? 1.0 : 0.0, 1e-9) << "node " << q << " fn " << p;
        }
        unsigned seed = 17u + (unsigned)forms;
        for (int trial = 0; trial < 8; trial++) {
            double x[3], N[VIS_ELEM_MAXNODE], dN[3 * VIS_ELEM_MAXNODE];
            RandomPoint(t.shape, seed, x);
            Eval(t, 0, x, N, dN);
            double sum = 0, dsum[3] = {0, 0, 0};
            for (int p = 0; p < num; p++) {
                sum += N[p];
                for (int c = 0; c < dim; c++) dsum[c] += dN[dim * p + c];
            }
            ASSERT_NEAR(sum, 1.0, 1e-11);
            for (int c = 0; c < dim; c++) ASSERT_NEAR(dsum[c], 0.0, 1e-9);
            // Central differences.
            for (int c = 0; c < dim; c++) {
                const double h = 1e-6;
                double xp[3] = {x[0], x[1], x[2]}, xm[3] = {x[0], x[1], x[2]};
                xp[c] += h;
                xm[c] -= h;
                double Np[VIS_ELEM_MAXNODE], Nm[VIS_ELEM_MAXNODE];
                Eval(t, 1, xp, Np, nullptr);
                Eval(t, 1, xm, Nm, nullptr);
                for (int p = 0; p < num; p++) {
                    double fd = (Np[p] - Nm[p]) / (2 * h);
                    ASSERT_NEAR(dN[dim * p + c], fd, 1e-5 * (1 + std::fabs(fd))) << "fn " << p << " dir " << c;
                }
            }
            // Float twin.
            float xf[3] = {(float)x[0], (float)x[1], (float)x[2]}, Nf[VIS_ELEM_MAXNODE], dNf[3 * VIS_ELEM_MAXNODE];
            Evalf(t, xf, Nf, dNf);
            for (int p = 0; p < num; p++) {
                ASSERT_NEAR(Nf[p], N[p], 2e-5);
                for (int c = 0; c < dim; c++) ASSERT_NEAR(dNf[dim * p + c], dN[dim * p + c], 1e-4 * (1 + std::fabs(dN[dim * p + c])));
            }
        }
    }
    EXPECT_GT(forms, 300);
}

TEST(ElemShape, NodeNaturalAgreesWithTheTopology)
{
    for (const Tuple& t : AllForms()) {
        SCOPED_TRACE(Name(t));
        int num = 0, nc = 0, ne = 0;
        vis_ElemNum(t.shape, t.maxi, t.maxj, t.maxk, &num);
        vis_ElemCornerCount(t.shape, 0, &nc);
        vis_ElemEdgeCount(t.shape, 0, &ne);
        double nat[3 * VIS_ELEM_MAXNODE], corner[3 * VIS_ELEM_MAXCORNER];
        int pos[VIS_ELEM_MAXCORNER];
        vis_ElemNodeNaturaldv(t.shape, t.maxi, t.maxj, t.maxk, nat);
        vis_ElemNaturaldv(t.shape, corner);
        vis_ElemCorners(t.shape, t.maxi, t.maxj, t.maxk, pos);
        for (int c = 0; c < nc; c++)
            for (int a = 0; a < 3; a++) ASSERT_NEAR(nat[3 * pos[c] + a], corner[3 * c + a], 1e-12) << "corner " << c;
        for (int e = 0; e < ne; e++) {
            int ep[VIS_ELEM_MAXSIDE], m = 0;
            vis_ElemEdgeNodes(t.shape, t.maxi, t.maxj, t.maxk, e, &m, ep);
            ASSERT_GE(m, 2);
            for (int q = 0; q < m; q++)
                for (int a = 0; a < 3; a++) {
                    double want = nat[3 * ep[0] + a] + (nat[3 * ep[m - 1] + a] - nat[3 * ep[0] + a]) * q / (m - 1);
                    ASSERT_NEAR(nat[3 * ep[q] + a], want, 1e-12) << "edge " << e << " node " << q;
                }
        }
        // No two nodes share a place.
        for (int p = 0; p < num; p++)
            for (int q = p + 1; q < num; q++) {
                double d = 0;
                for (int a = 0; a < 3; a++) d += std::fabs(nat[3 * p + a] - nat[3 * q + a]);
                ASSERT_GT(d, 1e-9) << p << " " << q;
            }
    }
}

TEST(ElemShape, MaskedQuadraticQuadHasSevenFunctions)
{
    int maxj = 1 << 16, num = 0;
    vis_ElemNum(SYS_SHAPE_QUAD, 3, maxj, 0, &num);
    EXPECT_EQ(num, 7);
    double x[2] = {0.3, -0.6}, N[8], dN[16];
    for (double& v : N) v = 99;
    vis_ElemShape2Ddv(0, SYS_SHAPE_QUAD, 3, maxj, x, N, dN);
    double sum = 0;
    for (int p = 0; p < 7; p++) sum += N[p];
    EXPECT_NEAR(sum, 1.0, 1e-14);
    EXPECT_EQ(N[7], 99);  // only seven written
    // Along the masked edge (s = -1) the interpolation is linear between corners 0 and 1.
    double e[2] = {0.5, -1}, Ne[7];
    vis_ElemShape2Ddv(1, SYS_SHAPE_QUAD, 3, maxj, e, Ne, nullptr);
    EXPECT_NEAR(Ne[0], 0.25, 1e-14);
    EXPECT_NEAR(Ne[1], 0.75, 1e-14);
}

TEST(ElemShape, DropMidsideOnCubicEdgeSharesByDistance)
{
    // A cubic line as the edge of a quadrilateral: folding keeps linear interpolation.
    double N[12] = {0}, dN[24] = {0};
    N[4] = 3;   // first interior node of edge 0 (one third from corner 0)
    N[5] = 6;   // second
    vis_ElemDropMidsidedv(1, SYS_SHAPE_QUAD, 4, 1 << 16, 0, N, 2, dN);
    EXPECT_DOUBLE_EQ(N[0], 2.0 / 3.0 * 3 + 1.0 / 3.0 * 6);
    EXPECT_DOUBLE_EQ(N[1], 1.0 / 3.0 * 3 + 2.0 / 3.0 * 6);
}

TEST(ElemShape, PolygonFan)
{
    // A square as a polygon of 4 corners, list of 5 with the first repeated.
    const int maxi = 5;
    double nat[15];
    vis_ElemNodeNaturaldv(SYS_SHAPE_POLYGON, maxi, 0, 0, nat);
    for (int q = 0; q < 4; q++) {
        double N[5];
        vis_ElemShape2Ddv(1, SYS_SHAPE_POLYGON, maxi, 0, nat + 3 * q, N, nullptr);
        for (int p = 0; p < 5; p++) EXPECT_NEAR(N[p], p == q ? 1.0 : 0.0, 1e-14) << q << " " << p;
    }
    double x[2] = {0.0, 25.0}, N[5], dN[10];  // the centre of fan triangle 2
    vis_ElemShape2Ddv(0, SYS_SHAPE_POLYGON, maxi, 0, x, N, dN);
    for (int p = 0; p < 4; p++) EXPECT_DOUBLE_EQ(N[p], 0.25);
    EXPECT_EQ(N[4], 0.0);
    double y[2] = {0.5, 30.5};  // last fan triangle: corners 3 and 0
    vis_ElemShape2Ddv(0, SYS_SHAPE_POLYGON, maxi, 0, y, N, dN);
    double sum = 0, ds[2] = {0, 0};
    for (int p = 0; p < 5; p++) sum += N[p], ds[0] += dN[2 * p], ds[1] += dN[2 * p + 1];
    EXPECT_NEAR(sum, 1.0, 1e-14);
    EXPECT_NEAR(ds[0], 0.0, 1e-14);
    EXPECT_NEAR(ds[1], 0.0, 1e-14);
    EXPECT_NEAR(N[3], 0.125 + 0.25, 1e-14);
    EXPECT_NEAR(N[0], 0.125 + 0.25, 1e-14);
    // Derivatives by differences.
    for (int c = 0; c < 2; c++) {
        double h = 1e-6, yp[2] = {y[0], y[1]}, ym[2] = {y[0], y[1]}, Np[5], Nm[5];
        yp[c] += h, ym[c] -= h;
        vis_ElemShape2Ddv(1, SYS_SHAPE_POLYGON, maxi, 0, yp, Np, nullptr);
        vis_ElemShape2Ddv(1, SYS_SHAPE_POLYGON, maxi, 0, ym, Nm, nullptr);
        for (int p = 0; p < 5; p++) EXPECT_NEAR(dN[2 * p + c], (Np[p] - Nm[p]) / (2 * h), 1e-7);
    }
}

TEST(ElemShape, InvalidTuplesWriteNothing)
{
    double x[3] = {0, 0, 0}, N[4] = {5, 5, 5, 5};
    vis_ElemShape3Ddv(0, SYS_SHAPE_HEX, 5, 0, 0, x, N, nullptr);
    vis_ElemShape3Ddv(0, SYS_SHAPE_TRI, 0, 0, 0, x, N, nullptr);
    vis_ElemShape2Ddv(0, 12, 0, 0, x, N, nullptr);
    vis_ElemShape2Ddv(0, SYS_SHAPE_QUAD, -1, 0, x, N, nullptr);
    vis_ElemShape2Ddv(7, SYS_SHAPE_QUAD, 0, 0, x, N, nullptr);
    EXPECT_EQ(N[0], 5);
}

// ------------------------------------------------------------------ mid-side fill ----

TEST(ElemMidside, ReproducesALinearField)
{
    std::vector<Tuple> forms = AllForms();
    for (int i = 3; i <= 4; i++) forms.push_back({SYS_SHAPE_LINE, i, 0, 0});
    for (const Tuple& t : forms) {
        if (t.maxi == 0 || t.maxi == 2) continue;
        SCOPED_TRACE(Name(t));
        int num = 0;
        vis_ElemNum(t.shape, t.maxi, t.maxj, t.maxk, &num);
        double nat[3 * VIS_ELEM_MAXNODE], data[2 * VIS_ELEM_MAXNODE];
        float dataf[2 * VIS_ELEM_MAXNODE];
        vis_ElemNodeNaturaldv(t.shape, t.maxi, t.maxj, t.maxk, nat);
        // The linear pyramid reproduces constants and t everywhere, but r and s only on its
        // base ((1 - t) / 2 scales them), so pyramids are checked with fields of t alone.
        double kr = t.shape == SYS_SHAPE_PYR ? 0 : 1;
        auto f0 = [&](int p) {
            return 1.5 + kr * (2 * nat[3 * p] - 3 * nat[3 * p + 1]) + 0.5 * nat[3 * p + 2];
        };
        auto f1 = [&](int p) { return -kr * nat[3 * p] + 4 * nat[3 * p + 2]; };
        int nc = 0, pos[VIS_ELEM_MAXCORNER];
        vis_ElemCornerCount(t.shape, 0, &nc);
        vis_ElemCorners(t.shape, t.maxi, t.maxj, t.maxk, pos);
        for (int p = 0; p < 2 * num; p++) data[p] = 1e9, dataf[p] = 1e9f;
        for (int c = 0; c < nc; c++) {
            data[2 * pos[c]] = f0(pos[c]);
            data[2 * pos[c] + 1] = f1(pos[c]);
            dataf[2 * pos[c]] = (float)f0(pos[c]);
            dataf[2 * pos[c] + 1] = (float)f1(pos[c]);
        }
        vis_ElemMidsidedv(t.shape, t.maxi, t.maxj, t.maxk, 2, data);
        vis_ElemMidside(t.shape, t.maxi, t.maxj, t.maxk, 2, dataf);
        for (int p = 0; p < num; p++) {
            ASSERT_NEAR(data[2 * p], f0(p), 1e-12) << p;
            ASSERT_NEAR(data[2 * p + 1], f1(p), 1e-12) << p;
            ASSERT_NEAR(dataf[2 * p], f0(p), 1e-5) << p;
        }
    }
}

// Corner values 1, 10, 100, 1000, 10000 of a pyramid, one component.
const double kPyrCorners[5] = {1, 10, 100, 1000, 10000};

// Sum over the corners of the linear pyramid function times the corner value, with the
// weights given in 1/den (base corners 0 to 3, apex).
double PyrWeighted(const double* w, double den)
{
    double v = 0;
    for (int c = 0; c < 5; c++) v += w[c] * kPyrCorners[c];
    return v / den;
}

TEST(ElemMidside, CubicPyramidTakesAllFiveCorners)
{
    // Serendipity pyramid of maxi 4: 21 nodes, edge e's run at 5 + 2 e, 6 + 2 e. Edge 4 runs
    // from corner 0 (-1,-1,-1) to the apex (0,0,1): position 13 one third along it at
    // (-2/3,-2/3,-1/3), position 14 two thirds along at (-1/3,-1/3,1/3).
    double data[21];
    for (double& v : data) v = -1;
    for (int c = 0; c < 5; c++) data[c] = kPyrCorners[c];
    vis_ElemMidsidedv(SYS_SHAPE_PYR, 4, 0, 0, 1, data);
    // At (-2/3,-2/3,-1/3): corner 0 (5/3)(5/3)(4/3)/8 = 25/54, corners 1 and 3
    // (1/3)(5/3)(4/3)/8 = 5/54, corner 2 (1/3)(1/3)(4/3)/8 = 1/54, apex (2/3)/2 = 18/54.
    const double w13[5] = {25, 5, 1, 5, 18};
    EXPECT_NEAR(data[13], PyrWeighted(w13, 54), 1e-9);
    // At (-1/3,-1/3,1/3): (4/3)(4/3)(2/3)/8 = 4/27, (2/3)(4/3)(2/3)/8 = 2/27,
    // (2/3)(2/3)(2/3)/8 = 1/27, apex (4/3)/2 = 18/27.
    const double w14[5] = {4, 2, 1, 2, 18};
    EXPECT_NEAR(data[14], PyrWeighted(w14, 27), 1e-9);
    // Not the mean of the edge's two ends: 2/3 of corner 0 and 1/3 of the apex is 3334.
    EXPECT_GT(std::fabs(data[13] - (2.0 / 3 * 1 + 1.0 / 3 * 10000)), 1.0);
    // Base edge 0 one third along (-1/3,-1,-1): s = -1 leaves corners 0 and 1 only,
    // (4/3)(2)(2)/8 = 2/3 and (2/3)(2)(2)/8 = 1/3.
    EXPECT_NEAR(data[5], 2.0 / 3 * 1 + 1.0 / 3 * 10, 1e-12);
    float dataf[21];
    for (int p = 0; p < 21; p++) dataf[p] = p < 5 ? (float)kPyrCorners[p] : -1.0f;
    vis_ElemMidside(SYS_SHAPE_PYR, 4, 0, 0, 1, dataf);
    EXPECT_NEAR(dataf[13], PyrWeighted(w13, 54), 1e-3);
}

TEST(ElemMidside, QuadraticPyramidQuickAndGeneralForms)
{
    // The plain quadratic pyramid takes the quick form: the mid node of edge 4 (position
    // 5 + 4 = 9) is the mean of corner 0 and the apex.
    double data[13];
    for (double& v : data) v = -1;
    for (int c = 0; c < 5; c++) data[c] = kPyrCorners[c];
    vis_ElemMidsidedv(SYS_SHAPE_PYR, 3, 0, 0, 1, data);
    EXPECT_DOUBLE_EQ(data[9], 0.5 * (1 + 10000));
    // With edge 0 masked it takes the general form; edge 4's mid node moves to position 8 and
    // sits at (-1/2,-1/2,0): corner 0 (3/2)(3/2)(1)/8 = 9/32, corners 1 and 3 (1/2)(3/2)/8 =
    // 3/32, corner 2 (1/2)(1/2)/8 = 1/32, apex 1/2 = 16/32.
    double masked[12];
    for (double& v : masked) v = -1;
    for (int c = 0; c < 5; c++) masked[c] = kPyrCorners[c];
    vis_ElemMidsidedv(SYS_SHAPE_PYR, 3, 1 << 16, 0, 1, masked);
    const double w[5] = {9, 3, 1, 3, 16};
    EXPECT_NEAR(masked[8], PyrWeighted(w, 32), 1e-9);
    // Edge 1 (1-2) keeps its mid node at position 5: the mean of corners 1 and 2 (s = 0
    // halves, r = 1 drops corners 0 and 3, t = -1 drops the apex).
    EXPECT_NEAR(masked[5], 0.5 * (10 + 100), 1e-12);
}

TEST(ElemMidside, LinesReadEndsFirst)
{
    // Serendipity lines: ends at positions 0 and 1, interior nodes after them. A cubic line
    // has node 2 at r = -1/3 (2/3 of the first end, 1/3 of the second) and node 3 at 1/3.
    double nat[12];
    vis_ElemNodeNaturaldv(SYS_SHAPE_LINE, 4, 0, 0, nat);
    const double want[4] = {-1, 1, -1.0 / 3, 1.0 / 3};
    for (int p = 0; p < 4; p++) EXPECT_NEAR(nat[3 * p], want[p], 1e-15) << p;
    double data[8] = {3, 30, 6, 60, -1, -1, -1, -1};
    vis_ElemMidsidedv(SYS_SHAPE_LINE, 4, 0, 0, 2, data);
    EXPECT_NEAR(data[4], 2.0 / 3 * 3 + 1.0 / 3 * 6, 1e-12);
    EXPECT_NEAR(data[5], 2.0 / 3 * 30 + 1.0 / 3 * 60, 1e-12);
    EXPECT_NEAR(data[6], 1.0 / 3 * 3 + 2.0 / 3 * 6, 1e-12);
    EXPECT_NEAR(data[7], 1.0 / 3 * 30 + 2.0 / 3 * 60, 1e-12);
    // Quadratic line: node 2 in the middle, the mean of the ends.
    float line3[3] = {4, 8, -1};
    vis_ElemMidside(SYS_SHAPE_LINE, 3, 0, 0, 1, line3);
    EXPECT_FLOAT_EQ(line3[2], 6);
    // A line of low maxj not 0 is a lattice: nodes in order from -1 to 1.
    vis_ElemNodeNaturaldv(SYS_SHAPE_LINE, 4, 4, 0, nat);
    const double lat[4] = {-1, -1.0 / 3, 1.0 / 3, 1};
    for (int p = 0; p < 4; p++) EXPECT_NEAR(nat[3 * p], lat[p], 1e-15) << p;
}

TEST(ElemMidside, LinearTuplesAndFreeShapesAreLeftAlone)
{
    float data[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    vis_ElemMidside(SYS_SHAPE_QUAD, 2, 0, 0, 2, data);
    vis_ElemMidside(SYS_SHAPE_QUAD, 0, 0, 0, 2, data);
    vis_ElemMidside(SYS_SHAPE_POLYGON, 3, 0, 0, 2, data);
    vis_ElemMidside(SYS_SHAPE_POINT, 3, 0, 0, 2, data);
    for (int p = 0; p < 8; p++) EXPECT_EQ(data[p], p + 1);
}

}  // namespace
