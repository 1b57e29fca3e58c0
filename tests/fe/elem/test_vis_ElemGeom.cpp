// Element geometry: normals, curvature on cylinder and sphere patches, segment against
// triangle.
#include "vis_Elem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

void ExpectVec(const float* v, double x, double y, double z, double tol = 1e-6)
{
    EXPECT_NEAR(v[0], x, tol);
    EXPECT_NEAR(v[1], y, tol);
    EXPECT_NEAR(v[2], z, tol);
}

TEST(ElemNormal, FlatQuadrilateralsHaveOneNormal)
{
    // A skewed planar quadrilateral in the plane z = 2 x, linear and quadratic.
    for (int maxi : {0, 3, 4}) {
        int num = 0;
        vis_ElemNum(SYS_SHAPE_QUAD, maxi, 0, 0, &num);
        float nat[3 * 12], xyz[3 * 12], n[3 * 12];
        vis_ElemNodeNatural(SYS_SHAPE_QUAD, maxi, 0, 0, nat);
        for (int p = 0; p < num; p++) {
            float r = nat[3 * p], s = nat[3 * p + 1];
            xyz[3 * p] = 2 * r + 0.3f * s;
            xyz[3 * p + 1] = 1.5f * s + 0.1f * r * s;
            xyz[3 * p + 2] = 2 * xyz[3 * p];
        }
        vis_ElemNormal(SYS_SHAPE_QUAD, maxi, 0, xyz, n);
        double k = 1 / std::sqrt(5.0);
        for (int p = 0; p < num; p++) ExpectVec(n + 3 * p, -2 * k, 0, k);
    }
}

TEST(ElemNormal, LinearTriangleZeroesTinyComponents)
{
    float xyz[9] = {0, 0, 0, 1, 0, 0, 0, 1, 0}, n[9];
    vis_ElemNormal(SYS_SHAPE_TRI, 0, 0, xyz, n);
    for (int p = 0; p < 3; p++) {
        EXPECT_EQ(n[3 * p], 0.0f);
        EXPECT_EQ(n[3 * p + 1], 0.0f);
        EXPECT_EQ(n[3 * p + 2], 1.0f);
    }
}

TEST(ElemNormal, CollapsedNodeMovesTowardsTheCentre)
{
    // A quadratic quadrilateral with edge 3 collapsed into corner 0: corners 0 and 3 and the
    // mid node of edge 3 coincide; their tangent cross product vanishes there.
    float nat[24], xyz[24], n[24];
    vis_ElemNodeNatural(SYS_SHAPE_QUAD, 3, 0, 0, nat);
    for (int p = 0; p < 8; p++) {
        float r = nat[3 * p], s = nat[3 * p + 1];
        float u = (r + 1) / 2, v = (s + 1) / 2;
        xyz[3 * p] = u;
        xyz[3 * p + 1] = u * v;
        xyz[3 * p + 2] = 0;
    }
    vis_ElemNormal(SYS_SHAPE_QUAD, 3, 0, xyz, n);
    for (int p = 0; p < 8; p++) ExpectVec(n + 3 * p, 0, 0, 1);
}

TEST(ElemNormal, LinesAndPolygons)
{
    float line[6] = {0, 0, 0, 0, 0, 2}, n[6];
    vis_ElemNormal(SYS_SHAPE_LINE, 0, 0, line, n);
    ExpectVec(n, 0, 1, 0);  // (0,0,1) x (1,0,0)
    ExpectVec(n + 3, 0, 1, 0);
    float xline[6] = {0, 0, 0, 3, 0, 0};
    vis_ElemNormal(SYS_SHAPE_LINE, 0, 0, xline, n);
    ExpectVec(n, 0, 0, 1);  // (1,0,0) x (0,1,0)
    float zero[6] = {1, 1, 1, 1, 1, 1};
    vis_ElemNormal(SYS_SHAPE_LINE, 0, 0, zero, n);
    ExpectVec(n, 1, 0, 0);
    // A quadratic line lists its ends first: the direction is node 1 - node 0 = (0,0,2), not
    // towards the bent mid node 2 at (0,1,1); (0,0,1) x (1,0,0) = (0,1,0) at all three nodes.
    float bent[9] = {0, 0, 0, 0, 0, 2, 0, 1, 1}, bn[9];
    vis_ElemNormal(SYS_SHAPE_LINE, 3, 0, bent, bn);
    for (int p = 0; p < 3; p++) ExpectVec(bn + 3 * p, 0, 1, 0);
    // Ends that meet: the direction is from the first end to the next node along the line,
    // the first interior node 2 at (3,0,0): (1,0,0) x (0,1,0) = (0,0,1).
    float closed[12] = {0, 0, 0, 0, 0, 0, 3, 0, 0, 3, 3, 0}, cn[12];
    vis_ElemNormal(SYS_SHAPE_LINE, 4, 0, closed, cn);
    for (int p = 0; p < 4; p++) ExpectVec(cn + 3 * p, 0, 0, 1);
    float poly[15] = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 0}, pn[15];
    vis_ElemNormal(SYS_SHAPE_POLYGON, 5, 0, poly, pn);
    for (int p = 0; p < 5; p++) ExpectVec(pn + 3 * p, 0, 0, 1);
}

// Curvature at (0.3, -0.2) of a quadratic quadrilateral cut from a surface of radius R, with
// patch size h. inward chooses the node order so that the element normal points to the axis.
void PatchCurvature(bool sphere, bool inward, double R, double h, double* k)
{
    float nat[24], xyz[24], n[24];
    vis_ElemNodeNatural(SYS_SHAPE_QUAD, 3, 0, 0, nat);
    for (int p = 0; p < 8; p++) {
        double th = (inward ? -h : h) * nat[3 * p], ph = h * nat[3 * p + 1];
        if (sphere) {
            xyz[3 * p] = (float)(R * std::cos(ph) * std::cos(th));
            xyz[3 * p + 1] = (float)(R * std::cos(ph) * std::sin(th));
            xyz[3 * p + 2] = (float)(R * std::sin(ph));
        } else {
            xyz[3 * p] = (float)(R * std::cos(th));
            xyz[3 * p + 1] = (float)(R * std::sin(th));
            xyz[3 * p + 2] = (float)(R * ph);
        }
    }
    vis_ElemNormal(SYS_SHAPE_QUAD, 3, 0, xyz, n);
    float pt[2] = {0.3f, -0.2f}, curv[2], dirs[6];
    vis_ElemCurvature(SYS_SHAPE_QUAD, 3, 0, xyz, n, pt, curv, dirs);
    k[0] = curv[0];
    k[1] = curv[1];
    // The directions are unit and orthogonal.
    EXPECT_NEAR(dirs[0] * dirs[0] + dirs[1] * dirs[1] + dirs[2] * dirs[2], 1.0, 1e-5);
    EXPECT_NEAR(dirs[0] * dirs[3] + dirs[1] * dirs[4] + dirs[2] * dirs[5], 0.0, 1e-5);
    if (!sphere) {
        // On the cylinder the zero curvature runs along the axis.
        int axial = std::fabs(curv[0]) < std::fabs(curv[1]) ? 0 : 3;
        EXPECT_NEAR(std::fabs(dirs[axial + 2]), 1.0, 0.05);
    }
}

TEST(ElemCurvature, CylinderPatchGivesOneOverR)
{
    const double R = 2.0;
    double coarse[2], fine[2], out[2];
    PatchCurvature(false, true, R, 0.4, coarse);
    PatchCurvature(false, true, R, 0.1, fine);
    EXPECT_NEAR(coarse[0], 1 / R, 0.02);
    EXPECT_NEAR(coarse[1], 0.0, 0.02);
    EXPECT_NEAR(fine[0], 1 / R, 0.002);
    EXPECT_NEAR(fine[1], 0.0, 0.002);
    EXPECT_LT(std::fabs(fine[0] - 1 / R), std::fabs(coarse[0] - 1 / R) + 1e-6);
    PatchCurvature(false, false, R, 0.1, out);  // seen from outside: negative
    EXPECT_NEAR(out[1], -1 / R, 0.002);
    EXPECT_NEAR(out[0], 0.0, 0.002);
}

TEST(ElemCurvature, SpherePatchGivesOneOverR)
{
    const double R = 3.0;
    double coarse[2], fine[2];
    PatchCurvature(true, true, R, 0.4, coarse);
    PatchCurvature(true, true, R, 0.1, fine);
    for (int c = 0; c < 2; c++) {
        EXPECT_NEAR(coarse[c], 1 / R, 0.05);
        EXPECT_NEAR(fine[c], 1 / R, 0.004);
        // The discretisation error falls roughly with the square of the patch size.
        EXPECT_LT(std::fabs(fine[c] - 1 / R), 0.2 * std::fabs(coarse[c] - 1 / R));
    }
}

TEST(ElemCurvature, FlatAndDegenerateGiveZero)
{
    float xyz[12] = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0}, n[12], pt[2] = {0, 0}, curv[2] = {9, 9}, dirs[6];
    vis_ElemNormal(SYS_SHAPE_QUAD, 0, 0, xyz, n);
    vis_ElemCurvature(SYS_SHAPE_QUAD, 0, 0, xyz, n, pt, curv, dirs);
    EXPECT_NEAR(curv[0], 0, 1e-7);
    EXPECT_NEAR(curv[1], 0, 1e-7);
    float same[12] = {0};
    vis_ElemCurvature(SYS_SHAPE_QUAD, 0, 0, same, n, pt, curv, dirs);
    EXPECT_EQ(curv[0], 0);
    EXPECT_EQ(dirs[0], 0);
}

TEST(ElemSegTri, PiercingTouchingAndMissing)
{
    const double tri[9] = {0, 0, 0, 1, 0, 0, 0, 1, 0};
    int flag = -1;
    const double pierce[6] = {0.2, 0.2, -1, 0.2, 0.2, 1};
    vis_ElemSegTri(tri, pierce, 1e-12, &flag);
    EXPECT_EQ(flag, 1);
    const double miss[6] = {0.8, 0.8, -1, 0.8, 0.8, 1};  // crosses the plane outside
    vis_ElemSegTri(tri, miss, 1e-12, &flag);
    EXPECT_EQ(flag, 0);
    const double above[6] = {0.2, 0.2, 0.1, 0.3, 0.2, 0.5};
    vis_ElemSegTri(tri, above, 1e-12, &flag);
    EXPECT_EQ(flag, 0);
    vis_ElemSegTri(tri, above, 0.011, &flag);  // within the tolerance of 0.1 squared
    EXPECT_EQ(flag, 1);
    const double corner[6] = {1, 0, 0, 2, 1, 1};  // touches at a corner
    vis_ElemSegTri(tri, corner, 1e-12, &flag);
    EXPECT_EQ(flag, 1);
    const double inplane[6] = {-1, 0.3, 0, 2, 0.3, 0};  // through the triangle in its plane
    vis_ElemSegTri(tri, inplane, 1e-12, &flag);
    EXPECT_EQ(flag, 1);
    const double skew[6] = {-1, -1, 0.5, 2, -1, 0.5};  // passes over edge 0 at height 0.5 and 1 away
    vis_ElemSegTri(tri, skew, 1.0, &flag);
    EXPECT_EQ(flag, 0);
    vis_ElemSegTri(tri, skew, 1.26, &flag);
    EXPECT_EQ(flag, 1);
    const double flat[9] = {0, 0, 0, 1, 0, 0, 2, 0, 0};  // degenerate triangle
    vis_ElemSegTri(flat, pierce, 1e-12, &flag);
    EXPECT_EQ(flag, 0);
    const double cross[6] = {0.5, -1, 0, 0.5, 1, 0};
    vis_ElemSegTri(flat, cross, 1e-12, &flag);
    EXPECT_EQ(flag, 1);
}

}  // namespace
