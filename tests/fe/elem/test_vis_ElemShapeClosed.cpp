// The unrolled closed forms against the generic forward-derivative evaluator (the reference):
// values and derivatives at many random points inside and around each element, in the three
// modes and both precisions, plus hand-derived values at chosen points.
#include "vis_Elem.h"
#include "vis_ElemShapeClosed.h"
#include "vis_ElemShapeGeneric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Form {
    int shape, maxi, maxj, maxk, nodes;
};

// Every tuple that has a closed form, with its node count worked out by hand.
const std::vector<Form>& ClosedForms()
{
    static const std::vector<Form> f = {
        {SYS_SHAPE_LINE, 0, 0, 0, 2},  {SYS_SHAPE_LINE, 2, 0, 0, 2},  {SYS_SHAPE_LINE, 3, 0, 0, 3},
        {SYS_SHAPE_TRI, 0, 0, 0, 3},   {SYS_SHAPE_TRI, 2, 0, 0, 3},   {SYS_SHAPE_TRI, 3, 0, 0, 6},
        {SYS_SHAPE_TRI, 3, 3, 0, 6},   {SYS_SHAPE_QUAD, 0, 0, 0, 4},  {SYS_SHAPE_QUAD, 2, 0, 0, 4},
        {SYS_SHAPE_QUAD, 3, 0, 0, 8},  {SYS_SHAPE_QUAD, 4, 0, 0, 12}, {SYS_SHAPE_QUAD, 3, 3, 0, 9},
        {SYS_SHAPE_TET, 0, 0, 0, 4},   {SYS_SHAPE_TET, 2, 0, 0, 4},   {SYS_SHAPE_TET, 3, 0, 0, 10},
        {SYS_SHAPE_TET, 3, 3, 3, 10},  {SYS_SHAPE_PYR, 0, 0, 0, 5},   {SYS_SHAPE_PYR, 2, 0, 0, 5},  {SYS_SHAPE_PYR, 3, 0, 0, 13},
        {SYS_SHAPE_PYR, 3, 3, 3, 14},  {SYS_SHAPE_WED, 0, 0, 0, 6},
        {SYS_SHAPE_WED, 2, 0, 0, 6},   {SYS_SHAPE_WED, 3, 0, 0, 15},  {SYS_SHAPE_WED, 3, 3, 3, 18},
        {SYS_SHAPE_HEX, 0, 0, 0, 8},   {SYS_SHAPE_HEX, 2, 0, 0, 8},   {SYS_SHAPE_HEX, 3, 0, 0, 20},
        {SYS_SHAPE_HEX, 4, 0, 0, 32},  {SYS_SHAPE_HEX, 3, 3, 3, 27},
    };
    return f;
}

std::string Name(const Form& f)
{
    return "shape " + std::to_string(f.shape) + " tuple " + std::to_string(f.maxi) + "," +
           std::to_string(f.maxj) + "," + std::to_string(f.maxk);
}

int Dim(int shape)
{
    return shape == SYS_SHAPE_LINE ? 1 : shape <= SYS_SHAPE_QUAD ? 2 : 3;
}

// The closed form through the entry of its dimension; lines, which no public entry takes,
// through the closed dispatch itself.
template <class T>
void Closed(const Form& f, int mode, const T* x, T* N, T* dN)
{
    if constexpr (sizeof(T) == 8) {
        if (f.shape == SYS_SHAPE_LINE) vis_ElemShapeCloseddv(mode, f.shape, f.maxi, f.maxj, 0, 1, x, N, dN);
        else if (Dim(f.shape) == 2) vis_ElemShape2Ddv(mode, f.shape, f.maxi, f.maxj, x, N, dN);
        else vis_ElemShape3Ddv(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
    } else {
        if (f.shape == SYS_SHAPE_LINE) vis_ElemShapeClosed(mode, f.shape, f.maxi, f.maxj, 0, 1, x, N, dN);
        else if (Dim(f.shape) == 2) vis_ElemShape2D(mode, f.shape, f.maxi, f.maxj, x, N, dN);
        else vis_ElemShape3D(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
    }
}

// The generic evaluator in the closed form's node order. The generic 3-node line is still
// ordered -1, 0, 1 while the closed one is -1, 1, 0 (the ends, then the middle); the generic
// order is being changed to match in parallel, and until that lands functions 1 and 2 of the
// generic line swap here.
template <class T>
void Reference(const Form& f, int mode, const T* x, T* N, T* dN)
{
    if constexpr (sizeof(T) == 8) vis_ElemShapeGenericdv(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
    else vis_ElemShapeGeneric(mode, f.shape, f.maxi, f.maxj, f.maxk, x, N, dN);
}

// A point in the box around the natural domain, reaching 20 % beyond it; pyramids stay below
// t = 0.9, where the collapsed forms have a well-scaled section.
void AroundPoint(int shape, unsigned& seed, double* x)
{
    auto u = [&seed](double lo, double hi) {
        seed = seed * 1664525u + 1013904223u;
        return lo + (hi - lo) * ((seed >> 8) & 0xFFFFFF) / 16777215.0;
    };
    x[0] = x[1] = x[2] = 0;
    switch (shape) {
    case SYS_SHAPE_TRI:
    case SYS_SHAPE_TET:
        for (int a = 0; a < Dim(shape); a++) x[a] = u(-0.2, 1.2);
        break;
    case SYS_SHAPE_WED: x[0] = u(-0.2, 1.2), x[1] = u(-0.2, 1.2), x[2] = u(-1.2, 1.2); break;
    case SYS_SHAPE_PYR: {
        double t = u(-1.2, 0.9), w = (1 - t) / 2;
        x[0] = u(-1.2, 1.2) * w, x[1] = u(-1.2, 1.2) * w, x[2] = t;
        break;
    }
    default:
        for (int a = 0; a < Dim(shape); a++) x[a] = u(-1.2, 1.2);
    }
}

// Agreement to tol, relative to the size of the reference value (at least 1).
::testing::AssertionResult Near(double got, double want, double tol)
{
    if (std::fabs(got - want) <= tol * (1 + std::fabs(want))) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << got << " against " << want;
}

// Compares the closed form with the reference at x in mode 0, all functions and derivatives.
template <class T>
void Compare(const Form& f, const T* x, double tolN, double tolD)
{
    const int dim = Dim(f.shape);
    T N[VIS_ELEM_MAXNODE], dN[3 * VIS_ELEM_MAXNODE], Nr[VIS_ELEM_MAXNODE], dNr[3 * VIS_ELEM_MAXNODE];
    Closed<T>(f, 0, x, N, dN);
    Reference<T>(f, 0, x, Nr, dNr);
    for (int p = 0; p < f.nodes; p++) {
        ASSERT_TRUE(Near(N[p], Nr[p], tolN)) << "function " << p << " at " << x[0] << " " << x[1] << " " << (dim == 3 ? x[2] : 0);
        for (int c = 0; c < dim; c++)
            ASSERT_TRUE(Near(dN[dim * p + c], dNr[dim * p + c], tolD)) << "function " << p << " direction " << c;
    }
}

TEST(ElemShapeClosed, EveryClosedFormIsTakenForItsTuple)
{
    for (const Form& f : ClosedForms()) {
        SCOPED_TRACE(Name(f));
        int num = 0;
        vis_ElemNum(f.shape, f.maxi, f.maxj, f.maxk, &num);
        EXPECT_EQ(num, f.nodes);
        double x[3] = {0.1, 0.2, 0.3}, N[VIS_ELEM_MAXNODE];
        EXPECT_EQ(vis_ElemShapeCloseddv(1, f.shape, f.maxi, f.maxj, f.maxk, Dim(f.shape), x, N, nullptr), 1);
        float xf[3] = {0.1f, 0.2f, 0.3f}, Nf[VIS_ELEM_MAXNODE];
        EXPECT_EQ(vis_ElemShapeClosed(1, f.shape, f.maxi, f.maxj, f.maxk, Dim(f.shape), xf, Nf, nullptr), 1);
    }
}

TEST(ElemShapeClosed, OtherTuplesKeepTheGenericPath)
{
    double x[3] = {0.1, 0.2, 0.3}, N[VIS_ELEM_MAXNODE];
    for (double& v : N) v = 5;
    // A mask half in maxj, forms without a closed form, a line asked for as a plane element,
    // a shape outside the fixed ones, an unknown mode and no coordinates.
    EXPECT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_QUAD, 3, 1 << 16, 0, 2, x, N, nullptr), 0);
    EXPECT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_HEX, 3, 0, 2, 3, x, N, nullptr), 0);
    EXPECT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_TRI, 4, 0, 0, 2, x, N, nullptr), 0);
    EXPECT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_LINE, 3, 0, 0, 2, x, N, nullptr), 0);
    EXPECT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_TRI, 0, 0, 0, 3, x, N, nullptr), 0);
    EXPECT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_POLYGON, 5, 0, 0, 2, x, N, nullptr), 0);
    EXPECT_EQ(vis_ElemShapeCloseddv(3, SYS_SHAPE_HEX, 0, 0, 0, 3, x, N, nullptr), 0);
    EXPECT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_HEX, 0, 0, 0, 3, nullptr, N, nullptr), 0);
    for (double v : N) EXPECT_EQ(v, 5);
}

TEST(ElemShapeClosed, AgreesWithTheGenericEvaluatorInDouble)
{
    for (const Form& f : ClosedForms()) {
        SCOPED_TRACE(Name(f));
        unsigned seed = 1234u + 7u * (unsigned)f.shape + (unsigned)f.maxi;
        for (int trial = 0; trial < 500; trial++) {
            double x[3];
            AroundPoint(f.shape, seed, x);
            Compare<double>(f, x, 1e-13, 1e-13);
            if (HasFatalFailure()) return;
        }
        // The corners themselves, where the closed forms meet their nodal values.
        double nat[3 * VIS_ELEM_MAXNODE];
        vis_ElemNodeNaturaldv(f.shape, f.maxi, f.maxj, f.maxk, nat);
        for (int q = 0; q < f.nodes; q++) {
            Compare<double>(f, nat + 3 * q, 1e-13, 1e-13);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(ElemShapeClosed, PyramidApexIsGuardedAsInTheGenericForms)
{
    // At the apex and just beside it the section divisor w = (1 - t) / 2 reaches 0 and is held
    // at 1e-12; the closed forms must give the same (finite) functions and derivatives.
    const double pts[4][3] = {{0, 0, 1}, {1e-13, -1e-13, 1}, {0, 0, 1 - 1e-14}, {2e-13, 1e-13, 1 - 1e-13}};
    for (const Form& f : ClosedForms()) {
        if (f.shape != SYS_SHAPE_PYR || f.maxi != 3) continue;
        SCOPED_TRACE(Name(f));
        for (const auto& x : pts) {
            Compare<double>(f, x, 1e-13, 1e-13);
            double N[VIS_ELEM_MAXNODE], dN[3 * VIS_ELEM_MAXNODE];
            Closed<double>(f, 0, x, N, dN);
            for (int p = 0; p < 3 * f.nodes; p++) EXPECT_TRUE(std::isfinite(dN[p]));
        }
        // At the apex itself only the apex function is 1 (the layer functions in t vanish at
        // t = 1 for layers 0 and 1): apex node 4 of 13, 13 of 14.
        double N[VIS_ELEM_MAXNODE];
        Closed<double>(f, 1, pts[0], N, (double*)nullptr);
        const int apex = f.nodes == 13 ? 4 : 13;
        for (int p = 0; p < f.nodes; p++) EXPECT_NEAR(N[p], p == apex ? 1.0 : 0.0, 1e-15) << p;
    }
}

TEST(ElemShapeClosed, AgreesWithTheGenericEvaluatorInFloat)
{
    for (const Form& f : ClosedForms()) {
        SCOPED_TRACE(Name(f));
        unsigned seed = 99u + 5u * (unsigned)f.shape + (unsigned)f.maxi;
        for (int trial = 0; trial < 200; trial++) {
            double x[3];
            AroundPoint(f.shape, seed, x);
            const float xf[3] = {(float)x[0], (float)x[1], (float)x[2]};
            Compare<float>(f, xf, 2e-6, 2e-5);
            if (HasFatalFailure()) return;
        }
    }
}

TEST(ElemShapeClosed, ModesWriteOnlyWhatIsAsked)
{
    const double sentinel = 1234.5;
    for (const Form& f : ClosedForms()) {
        SCOPED_TRACE(Name(f));
        const int dim = Dim(f.shape), n = f.nodes;
        double x[3] = {0.21, 0.17, -0.33}, N0[VIS_ELEM_MAXNODE], dN0[3 * VIS_ELEM_MAXNODE];
        Closed<double>(f, 0, x, N0, dN0);
        double N[VIS_ELEM_MAXNODE + 1], dN[3 * VIS_ELEM_MAXNODE + 3];
        auto fill = [&]() {
            for (double& v : N) v = sentinel;
            for (double& v : dN) v = sentinel;
        };
        // Mode 1: the functions, and not one derivative.
        fill();
        Closed<double>(f, 1, x, N, dN);
        for (int p = 0; p < n; p++) EXPECT_EQ(N[p], N0[p]) << p;
        EXPECT_EQ(N[n], sentinel);
        for (double v : dN) ASSERT_EQ(v, sentinel);
        // Mode 2: the derivatives, and not one function.
        fill();
        Closed<double>(f, 2, x, N, dN);
        for (int p = 0; p < dim * n; p++) EXPECT_EQ(dN[p], dN0[p]) << p;
        EXPECT_EQ(dN[dim * n], sentinel);
        for (double v : N) ASSERT_EQ(v, sentinel);
        // Mode 0 with one array missing writes the other.
        fill();
        Closed<double>(f, 0, x, (double*)nullptr, dN);
        for (int p = 0; p < dim * n; p++) EXPECT_EQ(dN[p], dN0[p]) << p;
        fill();
        Closed<double>(f, 0, x, N, (double*)nullptr);
        for (int p = 0; p < n; p++) EXPECT_EQ(N[p], N0[p]) << p;
        EXPECT_EQ(N[n], sentinel);
        // And each mode agrees with the reference in that mode.
        double Nr[VIS_ELEM_MAXNODE], dNr[3 * VIS_ELEM_MAXNODE];
        Reference<double>(f, 0, x, Nr, dNr);
        for (int p = 0; p < n; p++) EXPECT_TRUE(Near(N0[p], Nr[p], 1e-13)) << p;
        for (int p = 0; p < dim * n; p++) EXPECT_TRUE(Near(dN0[p], dNr[p], 1e-13)) << p;
        // Float: mode 1 leaves dN alone, mode 2 leaves N alone.
        float xf[3] = {0.21f, 0.17f, -0.33f}, Nf[VIS_ELEM_MAXNODE], dNf[3 * VIS_ELEM_MAXNODE];
        for (float& v : dNf) v = 7.f;
        Closed<float>(f, 1, xf, Nf, dNf);
        for (float v : dNf) ASSERT_EQ(v, 7.f);
        for (float& v : Nf) v = 7.f;
        Closed<float>(f, 2, xf, Nf, dNf);
        for (float v : Nf) ASSERT_EQ(v, 7.f);
    }
}

// ---------------------------------------------------------------- hand-derived values ----

TEST(ElemShapeClosed, Hex8AtAPoint)
{
    // (r, s, t) = (0.5, -0.5, 0.25). N0 = (1 - r)(1 - s)(1 - t) / 8 = 0.5 * 1.5 * 0.75 / 8
    // = 0.0703125; N6 = (1 + r)(1 + s)(1 + t) / 8 = 1.5 * 0.5 * 1.25 / 8 = 0.1171875.
    // dN0/dr = -(1 - s)(1 - t) / 8 = -0.140625, dN0/ds = -(1 - r)(1 - t) / 8 = -0.046875,
    // dN0/dt = -(1 - r)(1 - s) / 8 = -0.09375.
    double x[3] = {0.5, -0.5, 0.25}, N[8], dN[24];
    vis_ElemShape3Ddv(0, SYS_SHAPE_HEX, 0, 0, 0, x, N, dN);
    EXPECT_DOUBLE_EQ(N[0], 0.0703125);
    EXPECT_DOUBLE_EQ(N[6], 0.1171875);
    EXPECT_DOUBLE_EQ(dN[0], -0.140625);
    EXPECT_DOUBLE_EQ(dN[1], -0.046875);
    EXPECT_DOUBLE_EQ(dN[2], -0.09375);
}

TEST(ElemShapeClosed, QuadraticSerendipityAtTheCentre)
{
    // Quad8 corner (1 + r0 r)(1 + s0 s)(r0 r + s0 s - 1) / 4 at (0, 0): 1 * 1 * (-1) / 4 = -1/4;
    // mid node (1 - r^2)(1 + s0 s) / 2 at (0, 0): 1/2. Four of each sum to 1.
    double x[3] = {0, 0, 0}, N[20];
    vis_ElemShape2Ddv(1, SYS_SHAPE_QUAD, 3, 0, x, N, nullptr);
    for (int p = 0; p < 4; p++) EXPECT_DOUBLE_EQ(N[p], -0.25);
    for (int p = 4; p < 8; p++) EXPECT_DOUBLE_EQ(N[p], 0.5);
    // Hex20 corner (1 + r0 r)(1 + s0 s)(1 + t0 t)(r0 r + s0 s + t0 t - 2) / 8 at the centre:
    // -2 / 8 = -1/4; mid node (1 - r^2)(1 + s0 s)(1 + t0 t) / 4: 1/4. 8 (-1/4) + 12 (1/4) = 1.
    vis_ElemShape3Ddv(1, SYS_SHAPE_HEX, 3, 0, 0, x, N, nullptr);
    for (int p = 0; p < 8; p++) EXPECT_DOUBLE_EQ(N[p], -0.25);
    for (int p = 8; p < 20; p++) EXPECT_DOUBLE_EQ(N[p], 0.25);
}

TEST(ElemShapeClosed, CubicSerendipityAtTheCentre)
{
    // Quad12 corner (1 + r0 r)(1 + s0 s)(9 (r^2 + s^2) - 10) / 32 at (0, 0): -10/32 = -0.3125;
    // edge node 9 (1 - r^2)(1 + 3 k r)(1 + s0 s) / 32: 9/32 = 0.28125.
    double x[3] = {0, 0, 0}, N[32];
    vis_ElemShape2Ddv(1, SYS_SHAPE_QUAD, 4, 0, x, N, nullptr);
    for (int p = 0; p < 4; p++) EXPECT_DOUBLE_EQ(N[p], -0.3125);
    for (int p = 4; p < 12; p++) EXPECT_DOUBLE_EQ(N[p], 0.28125);
    // Hex32 corner ... (9 (r^2 + s^2 + t^2) - 19) / 64: -19/64; edge node: 9/64.
    vis_ElemShape3Ddv(1, SYS_SHAPE_HEX, 4, 0, 0, x, N, nullptr);
    for (int p = 0; p < 8; p++) EXPECT_DOUBLE_EQ(N[p], -19.0 / 64.0);
    for (int p = 8; p < 32; p++) EXPECT_DOUBLE_EQ(N[p], 9.0 / 64.0);
}

TEST(ElemShapeClosed, QuadraticLineInSerendipityOrder)
{
    // r = 0.5: N0 = r (r - 1) / 2 = -0.125 (node at -1), N1 = r (r + 1) / 2 = 0.375 (at +1),
    // N2 = 1 - r^2 = 0.75 (middle); derivatives r - 1/2 = 0, r + 1/2 = 1, -2 r = -1.
    double x[1] = {0.5}, N[3], dN[3];
    ASSERT_EQ(vis_ElemShapeCloseddv(0, SYS_SHAPE_LINE, 3, 0, 0, 1, x, N, dN), 1);
    EXPECT_DOUBLE_EQ(N[0], -0.125);
    EXPECT_DOUBLE_EQ(N[1], 0.375);
    EXPECT_DOUBLE_EQ(N[2], 0.75);
    EXPECT_DOUBLE_EQ(dN[0], 0.0);
    EXPECT_DOUBLE_EQ(dN[1], 1.0);
    EXPECT_DOUBLE_EQ(dN[2], -1.0);
}

TEST(ElemShapeClosed, LinearPyramid)
{
    // (1 +- r)(1 +- s)(1 - t) / 8 at the base centre (0, 0, -1): 2 / 8 = 1/4 per corner, apex
    // (1 + t) / 2 = 0. At (0, 0, 0): 1/8 per corner, apex 1/2; d(apex)/dt = 1/2.
    double b[3] = {0, 0, -1}, m[3] = {0, 0, 0}, N[5], dN[15];
    vis_ElemShape3Ddv(0, SYS_SHAPE_PYR, 0, 0, 0, b, N, dN);
    for (int p = 0; p < 4; p++) EXPECT_DOUBLE_EQ(N[p], 0.25);
    EXPECT_DOUBLE_EQ(N[4], 0.0);
    vis_ElemShape3Ddv(0, SYS_SHAPE_PYR, 0, 0, 0, m, N, dN);
    for (int p = 0; p < 4; p++) EXPECT_DOUBLE_EQ(N[p], 0.125);
    EXPECT_DOUBLE_EQ(N[4], 0.5);
    EXPECT_DOUBLE_EQ(dN[14], 0.5);
    // Corner 1 (+r, -s): d/dr = (1 - s)(1 - t) / 8 = 1/8, d/dt = -(1 + r)(1 - s) / 8 = -1/8.
    EXPECT_DOUBLE_EQ(dN[3], 0.125);
    EXPECT_DOUBLE_EQ(dN[5], -0.125);
}

TEST(ElemShapeClosed, QuadraticPyramidAtTheBaseCentre)
{
    // At (0, 0, -1) the section is the whole base (w = 1) and the layer functions in t are
    // P0 = t (t - 1) / 2 = 1, P1 = 1 - t^2 = 0, P2 = t (t + 1) / 2 = 0: the base carries the
    // 8-node square at its centre (corners -1/4, mid nodes 1/2), apex and slant nodes 0.
    double x[3] = {0, 0, -1}, N[13];
    vis_ElemShape3Ddv(1, SYS_SHAPE_PYR, 3, 0, 0, x, N, nullptr);
    for (int p = 0; p < 4; p++) EXPECT_DOUBLE_EQ(N[p], -0.25);
    EXPECT_DOUBLE_EQ(N[4], 0.0);
    for (int p = 5; p < 9; p++) EXPECT_DOUBLE_EQ(N[p], 0.5);
    for (int p = 9; p < 13; p++) EXPECT_DOUBLE_EQ(N[p], 0.0);
}

TEST(ElemShapeClosed, SimplexAndWedgeAtTheirCentres)
{
    // Tet10 at the centroid, L = 1/4 each: corners L (2 L - 1) = -1/8, edges 4 La Lb = 1/4.
    double c[3] = {0.25, 0.25, 0.25}, N[18];
    vis_ElemShape3Ddv(1, SYS_SHAPE_TET, 3, 0, 0, c, N, nullptr);
    for (int p = 0; p < 4; p++) EXPECT_DOUBLE_EQ(N[p], -0.125);
    for (int p = 4; p < 10; p++) EXPECT_DOUBLE_EQ(N[p], 0.25);
    // Wed15 at (1/3, 1/3, 0): corners L (1 -+ t)(2 L - 2 -+ t) / 2 = (1/3)(-4/3) / 2 = -2/9,
    // triangle mid nodes 4 (1/9)(1/2) = 2/9, vertical mid nodes L (1 - t^2) = 1/3.
    double w[3] = {1.0 / 3.0, 1.0 / 3.0, 0};
    vis_ElemShape3Ddv(1, SYS_SHAPE_WED, 3, 0, 0, w, N, nullptr);
    for (int p = 0; p < 6; p++) EXPECT_NEAR(N[p], -2.0 / 9.0, 1e-15);
    for (int p = 6; p < 12; p++) EXPECT_NEAR(N[p], 2.0 / 9.0, 1e-15);
    for (int p = 12; p < 15; p++) EXPECT_NEAR(N[p], 1.0 / 3.0, 1e-15);
    // Lagrange triangle at (1/4, 1/4), L0 = 1/2: lexical order corner 0 (L0 (2 L0 - 1) = 0),
    // mid 0-1 (4 L0 r = 1/2), corner 1 (r (2 r - 1) = -1/8), mid 2-0 (1/2), mid 1-2 (4 r s =
    // 1/4), corner 2 (-1/8).
    double t[2] = {0.25, 0.25};
    vis_ElemShape2Ddv(1, SYS_SHAPE_TRI, 3, 3, t, N, nullptr);
    const double want[6] = {0, 0.5, -0.125, 0.5, 0.25, -0.125};
    for (int p = 0; p < 6; p++) EXPECT_DOUBLE_EQ(N[p], want[p]) << p;
}

TEST(ElemShapeClosed, LagrangeHexahedronAlongTheRAxis)
{
    // At (0.5, 0, 0) the factors in s and t are (0, 1, 0), so only the row i + 3 + 9 is
    // non-zero: A(0.5) = (r (r - 1) / 2, 1 - r^2, r (r + 1) / 2) = (-0.125, 0.75, 0.375) at
    // positions 12, 13, 14.
    double x[3] = {0.5, 0, 0}, N[27];
    vis_ElemShape3Ddv(1, SYS_SHAPE_HEX, 3, 3, 3, x, N, nullptr);
    for (int p = 0; p < 27; p++) {
        double want = p == 12 ? -0.125 : p == 13 ? 0.75 : p == 14 ? 0.375 : 0.0;
        EXPECT_DOUBLE_EQ(N[p], want) << p;
    }
}

}  // namespace
