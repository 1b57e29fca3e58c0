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

TEST(ElemMidside, ReproducesALinearFieldEverywhere)
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
        auto f0 = [&](int p) { return 1.5 + 2 * nat[3 * p] - 3 * nat[3 * p + 1] + 0.5 * nat[3 * p + 2]; };
        auto f1 = [&](int p) { return -nat[3 * p] + 4 * nat[3 * p + 2]; };
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
