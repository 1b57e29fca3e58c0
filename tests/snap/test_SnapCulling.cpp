// Culling by the shapes' boxes changes only the cost of a snap query: on random scenes (fixed
// seeds) the culled engine gives the same hits, in the same order, as the exhaustive passes, for
// overloads A and C, with a parallel and a perspective camera. Also the two reach tests on their
// own, at their bounds.
#include "ArcShapeParaCreator.h"
#include "BSplineShapeParaCreator.h"
#include "BoxShapeParaCreator.h"
#include "BrepSnapMgr.h"
#include "CircleShapeParaCreator.h"
#include "DisplayProjection.h"
#include "LineShapeParaCreator.h"
#include "ShapeBounds.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "SnapScene.h"
#include "TevPreference.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRep_Tool.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <gp_Circ.hxx>
#include <vtkCamera.h>

#include <algorithm>

#include <random>

namespace {

class SnapCullingTest : public tevtest::SnapDocumentTest
{
protected:
    void TearDown() override
    {
        ShapeBounds::EnableCulling(true);
        SnapDocumentTest::TearDown();
    }

    double U(double lo, double hi) { return std::uniform_real_distribution<double>(lo, hi)(m_rng); }
    gp_Pnt P(double z) { return gp_Pnt(U(-220, 220), U(-220, 220), z); }
    // Most shapes on the work plane, some above it, as a user's drawing has them.
    double Z() { return U(0, 1) < 0.7 ? 0.0 : U(-30, 30); }

    // `count` shapes of mixed kinds, each made through its creator in a transaction.
    void RandomScene(int count)
    {
        for (int i = 0; i < count; ++i) {
            ShapeDocMgr::GetInstance()->StartTransaction();
            const double z = Z();
            gp_Pnt a = P(z);
            gp_Pnt b(a.X() + U(-60, 60), a.Y() + U(-60, 60), z + (U(0, 1) < 0.2 ? U(-20, 20) : 0.0));
            switch (i % 5) {
            case 0: LineShapeParaCreator().CreateLine(a, b); break;
            case 1: CircleShapeParaCreator().CreateCircle(a, U(3, 40)); break;
            case 2: ArcShapeParaCreator().CreateArc(a, gp_Pnt(a.X() + U(5, 30), a.Y() + U(5, 30), z), b); break;
            case 3:
                BoxShapeParaCreator().CreateBox(gp_Ax2(a, gp_Dir(0, 0, 1)), U(5, 40), U(5, 40), U(5, 40));
                break;
            default:
                BSplineShapeParaCreator().CreateSpline({a, gp_Pnt(a.X() + U(-40, 40), a.Y() + U(-40, 40), z), b},
                                                       false);
            }
            ShapeDocMgr::GetInstance()->EndTransaction();
        }
        viewer->RefreshViewer();
    }

    // Query points: near a vertex of some shape (within 25 pixels at one unit per pixel) or
    // anywhere, so that both hits and misses are common.
    std::vector<gp_Pnt> Queries(int count)
    {
        std::vector<gp_Pnt> vertices;
        for (const TopoDS_Shape& s : ShapeLabelMgr::GetInstance()->GetAllShapes())
            for (TopExp_Explorer e(s, TopAbs_VERTEX); e.More(); e.Next())
                vertices.push_back(BRep_Tool::Pnt(TopoDS::Vertex(e.Current())));
        std::vector<gp_Pnt> points;
        for (int i = 0; i < count; ++i) {
            if (i % 3 == 2 || vertices.empty()) {
                points.push_back(P(0.0));
                continue;
            }
            const gp_Pnt& v = vertices[static_cast<size_t>(U(0, vertices.size() - 0.5))];
            points.push_back(gp_Pnt(v.X() + U(-25, 25), v.Y() + U(-25, 25), 0.0));
        }
        return points;
    }

    std::vector<sSnapResult> SnapC(const gp_Pnt& q, double tol)
    {
        BrepSnapMgr snap;
        snap.InitGridData(viewer->GetCurrentPlanePoints());
        double p[3] = {q.X(), q.Y(), q.Z()};
        std::vector<sSnapResult> results;
        snap.PerformSnap(p, Dir(), results, tol, viewer.get());
        return results;
    }

    sSnapResult SnapA(const gp_Pnt& q, bool& snapped)
    {
        BrepSnapMgr snap;
        snap.InitGridData(viewer->GetCurrentPlanePoints());
        double p[3] = {q.X(), q.Y(), q.Z()};
        sSnapResult hit;
        snapped = snap.PerformSnap(p, Dir(), hit, viewer.get());
        return hit;
    }

    gp_Dir Dir()
    {
        const double* d = viewer->GetDefaultRender()->GetActiveCamera()->GetDirectionOfProjection();
        return gp_Dir(d[0], d[1], d[2]);
    }

    static bool Same(const sSnapResult& a, const sSnapResult& b)
    {
        return a.type == b.type && a.point.IsEqual(b.point, 0.0) && a.distance == b.distance;
    }

    // Runs every query with and without culling and compares; returns the number of hits seen.
    size_t CompareOn(const std::vector<gp_Pnt>& queries, double tol)
    {
        size_t hits = 0;
        for (size_t i = 0; i < queries.size(); ++i) {
            ShapeBounds::EnableCulling(false);
            const std::vector<sSnapResult> all = SnapC(queries[i], tol);
            bool allSnapped = false;
            const sSnapResult allA = SnapA(queries[i], allSnapped);
            ShapeBounds::EnableCulling(true);
            const std::vector<sSnapResult> culled = SnapC(queries[i], tol);
            bool culledSnapped = false;
            const sSnapResult culledA = SnapA(queries[i], culledSnapped);

            EXPECT_EQ(culled.size(), all.size()) << "query " << i;
            for (size_t k = 0; k < std::min(all.size(), culled.size()); ++k)
                EXPECT_TRUE(Same(culled[k], all[k])) << "query " << i << " hit " << k;
            EXPECT_EQ(culledSnapped, allSnapped) << "query " << i;
            if (allSnapped) {
                EXPECT_TRUE(Same(culledA, allA)) << "query " << i;
            }
            hits += all.size();
        }
        return hits;
    }

    std::mt19937 m_rng{20261123};
};

TEST_F(SnapCullingTest, RandomScenesGiveTheSameHitsInTheSameOrder)
{
    for (int scene = 0; scene < 3; ++scene) {
        ShapeDocMgr::GetInstance()->NewDocument();
        RandomScene(60);
        TevPreference::GetInstance()->Reset();
        const std::vector<gp_Pnt> queries = Queries(120);
        const size_t hits = CompareOn(queries, 10.0);
        // The scenes are dense enough that the comparison covers many hits of each kind.
        EXPECT_GT(hits, queries.size()) << "scene " << scene;
        // A larger tolerance reaches more shapes, and the grid off: only geometry.
        TevPreference::GetInstance()->snapGrid = false;
        EXPECT_GT(CompareOn(queries, 25.0), 0u) << "scene " << scene;
    }
}

TEST_F(SnapCullingTest, APerspectiveViewFromAsideGivesTheSameHits)
{
    RandomScene(60);
    vtkCamera* cam = viewer->GetDefaultRender()->GetActiveCamera();
    cam->ParallelProjectionOff();
    cam->SetFocalPoint(0, 0, 0);
    cam->SetPosition(150, -250, 400);
    cam->SetViewUp(0, 0, 1);
    viewer->GetDefaultRender()->ResetCameraClippingRange();
    TevPreference::GetInstance()->snapGrid = false;
    EXPECT_GT(CompareOn(Queries(150), 15.0), 0u);
}

TEST_F(SnapCullingTest, AShapeTheViewerDoesNotShowIsStillTested)
{
    RandomScene(5);
    // Added after the rebuild: no box yet, so the passes must test it.
    gp_Pnt a(100, 100, 0), b(140, 100, 0);
    LineShapeParaCreator().CreateLine(a, b);
    TevPreference::GetInstance()->snapGrid = false;
    const std::vector<sSnapResult> hits = SnapC(gp_Pnt(103, 104, 0), 10.0);  // 5 pixels from (100, 100)
    ASSERT_FALSE(hits.empty());
    bool end = false;
    for (const sSnapResult& h : hits) end = end || (h.type == SNAP_END_POINT && h.point.IsEqual(a, 1e-9));
    EXPECT_TRUE(end);
}

TEST(ShapeBoundsTest, TheBoxHoldsCurvesAndVerticesAndTheLineTestStopsAtTheTolerance)
{
    // A circle of radius 10 about the origin in the XY plane: its box is [-10, 10]^2 x [0, 0].
    TopoDS_Edge circle = BRepBuilderAPI_MakeEdge(gp_Circ(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 10.0));
    const Bnd_Box box = ShapeBounds::Of(circle);
    double x0, y0, z0, x1, y1, z1;
    box.Get(x0, y0, z0, x1, y1, z1);
    EXPECT_NEAR(x0, -10.0, 1e-6);
    EXPECT_NEAR(x1, 10.0, 1e-6);
    EXPECT_NEAR(y1, 10.0, 1e-6);
    EXPECT_NEAR(z1, 0.0, 1e-6);
    // A vertical line at x = 13 is 3 units from the box: reached with tolerance 3.01, not 2.99.
    EXPECT_TRUE(ShapeBounds::LineMayReach(box, gp_Pnt(13, 0, 50), gp_Dir(0, 0, -1), 3.01));
    EXPECT_FALSE(ShapeBounds::LineMayReach(box, gp_Pnt(13, 0, 50), gp_Dir(0, 0, -1), 2.99));
    // A slanted line through the box always reaches it.
    EXPECT_TRUE(ShapeBounds::LineMayReach(box, gp_Pnt(0, 0, 5), gp_Dir(1, 1, -1), 0.0));
    EXPECT_FALSE(ShapeBounds::LineMayReach(Bnd_Box(), gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1), 1e9));
    // A B-spline stays inside the hull of its poles.
    const Bnd_Box solid = ShapeBounds::Of(BRepPrimAPI_MakeBox(gp_Pnt(1, 2, 3), 4, 5, 6).Shape());
    solid.Get(x0, y0, z0, x1, y1, z1);
    EXPECT_NEAR(x0, 1.0, 1e-6);
    EXPECT_NEAR(z1, 9.0, 1e-6);
}

TEST_F(SnapCullingTest, TheProjectionAgreesWithTheRendererAndTheReachTestStopsAtTheRadius)
{
    const DisplayProjection projection(viewer->GetDefaultRender());
    double d[2], x = 0, y = 0;
    for (const gp_Pnt& p : {gp_Pnt(10, 10, 0), gp_Pnt(-100, 37, 5), gp_Pnt(200, -150, -40)}) {
        Display(p.X(), p.Y(), p.Z(), d);
        ASSERT_TRUE(projection.Project(p, x, y));
        EXPECT_NEAR(x, d[0], 1e-9);
        EXPECT_NEAR(y, d[1], 1e-9);
    }
    // One unit per pixel: the box [0, 10]^2 shows as [256, 266]^2. The cursor 20 pixels right
    // of it is reached with a radius of 20 (the test allows one more pixel for rounding) and
    // not with 18.9.
    Bnd_Box box;
    box.Update(0, 0, 0, 10, 10, 0);
    EXPECT_TRUE(projection.MayReach(box, 286, 260, 20.0));
    EXPECT_TRUE(projection.MayReach(box, 286, 260, 19.0));
    EXPECT_FALSE(projection.MayReach(box, 286, 260, 18.9));
    EXPECT_TRUE(projection.MayReach(box, 260, 260, 0.0));  // inside
    EXPECT_FALSE(projection.MayReach(Bnd_Box(), 260, 260, 1e9));
}

}  // namespace
