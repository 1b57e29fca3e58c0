// The snap engine on a viewer with an exact camera (one world unit per pixel unless said):
// kinds, pixel radii at their bounds, preference switches, order of hits and the plane filter.
#include "BrepSnapMgr.h"
#include "BoxShapeParaCreator.h"
#include "GuiTestSupport.h"
#include "LineShapeParaCreator.h"
#include "ShapeDocMgr.h"
#include "SnapScene.h"
#include "TevPreference.h"

#include <cmath>

namespace {

class BrepSnapMgrTest : public tevtest::SnapDocumentTest
{
protected:
    static void Line(gp_Pnt a, gp_Pnt b) { LineShapeParaCreator().CreateLine(a, b); }

    static void Only(bool endPoint, bool middle, bool grid, bool onLine)
    {
        TevPreference* p = TevPreference::GetInstance();
        p->snapEndPoint = endPoint;
        p->snapMiddle = middle;
        p->snapGrid = grid;
        p->snapOnLine = onLine;
    }

    // Overload C with the viewer's grid points, as the point picker calls it.
    bool SnapC(double x, double y, double z, std::vector<sSnapResult>& results, double tol = 10.0)
    {
        BrepSnapMgr snap;
        snap.InitGridData(viewer->GetCurrentPlanePoints());
        double p[3] = {x, y, z};
        return snap.PerformSnap(p, gp_Dir(0, 0, -1), results, tol, viewer.get());
    }
};

TEST_F(BrepSnapMgrTest, TheCameraMapsWorldToDisplayExactly)
{
    double d[2];
    Display(10, 10, 0, d);
    EXPECT_EQ(d[0], 266.0);
    EXPECT_EQ(d[1], 266.0);
    Display(13, 14, 5, d);
    EXPECT_EQ(d[0], 269.0);
    EXPECT_EQ(d[1], 270.0);
}

TEST_F(BrepSnapMgrTest, AllPreferencesOffGiveNothing)
{
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 10, 10, 10);
    Only(false, false, false, false);
    std::vector<sSnapResult> results;
    EXPECT_FALSE(SnapC(0, 0, 0, results));
    EXPECT_TRUE(results.empty());
}

TEST_F(BrepSnapMgrTest, GridRadiusIsFivePixelsInclusiveWhateverTheTolerance)
{
    std::vector<sSnapResult> results;
    // (13, 14) is exactly 5 pixels from the grid point (10, 10): 3^2 + 4^2 = 25.
    EXPECT_TRUE(SnapC(13, 14, 0, results, 1000.0));
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].type, SNAP_GRID);
    EXPECT_TRUE(results[0].point.IsEqual(gp_Pnt(10, 10, 0), 0));
    EXPECT_EQ(results[0].distance, 5.0);
    results.clear();
    EXPECT_FALSE(SnapC(13, 14.25, 0, results, 1000.0));
    EXPECT_TRUE(results.empty());
}

TEST_F(BrepSnapMgrTest, GridPointsWithinFivePixelsComeInListOrder)
{
    ExactCamera(1024.0);  // four world units per pixel: grid points 2.5 pixels apart
    std::vector<sSnapResult> results;
    EXPECT_TRUE(SnapC(1, 1, 0, results));
    std::vector<gp_Pnt> expected;
    for (const gp_Pnt& g : viewer->GetCurrentPlanePoints())
        if (std::hypot(g.X() - 1, g.Y() - 1) / 4.0 <= 5.0) expected.push_back(g);
    ASSERT_EQ(results.size(), expected.size());
    ASSERT_GE(results.size(), 9u);
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(results[i].type, SNAP_GRID);
        EXPECT_TRUE(results[i].point.IsEqual(expected[i], 0)) << i;
    }
    EXPECT_TRUE(results[0].point.IsEqual(gp_Pnt(-10, -10, 0), 0));
}

TEST_F(BrepSnapMgrTest, AVertexExactlyAtTheToleranceHits)
{
    Line(gp_Pnt(50, 50, 0), gp_Pnt(90, 50, 0));
    Only(true, false, false, false);
    std::vector<sSnapResult> results;
    EXPECT_TRUE(SnapC(56, 58, 0, results, 10.0));  // 6-8-10 pixels from (50, 50)
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].type, SNAP_END_POINT);
    EXPECT_TRUE(results[0].point.IsEqual(gp_Pnt(50, 50, 0), 1e-12));
    EXPECT_EQ(results[0].distance, 10.0);
    results.clear();
    EXPECT_FALSE(SnapC(56, 58, 0, results, 9.999));
}

TEST_F(BrepSnapMgrTest, AVertexAboveThePlaneIsFilteredButStillCounts)
{
    Line(gp_Pnt(50, 50, 10), gp_Pnt(90, 50, 10));
    Only(true, true, false, true);
    std::vector<sSnapResult> results;
    EXPECT_TRUE(SnapC(50, 50, 0, results));
    EXPECT_TRUE(results.empty());
    // Overload A has no plane filter.
    BrepSnapMgr snap;
    sSnapResult hit;
    double p[3] = {50, 50, 0};
    EXPECT_TRUE(snap.PerformSnap(p, gp_Dir(0, 0, -1), hit, viewer.get()));
    EXPECT_EQ(hit.type, SNAP_END_POINT);
    EXPECT_NEAR(hit.point.Z(), 10.0, 1e-12);
}

TEST_F(BrepSnapMgrTest, GridAndVertexAtOnePlaceGridFirstInCLastWinsInAAndB)
{
    Line(gp_Pnt(10, 10, 0), gp_Pnt(60, 10, 0));
    std::vector<sSnapResult> results;
    EXPECT_TRUE(SnapC(10, 10, 0, results));
    ASSERT_GE(results.size(), 2u);
    EXPECT_EQ(results[0].type, SNAP_GRID);

    BrepSnapMgr snap;
    snap.InitGridData(viewer->GetCurrentPlanePoints());
    sSnapResult a, b;
    double p[3] = {10, 10, 0};
    EXPECT_TRUE(snap.PerformSnap(p, gp_Dir(0, 0, -1), a, viewer.get()));
    EXPECT_EQ(a.type, SNAP_END_POINT);
    // B on the same object: geometry, then the grid, which wins.
    EXPECT_TRUE(snap.PerformSnap(p, gp_Dir(0, 0, -1), b, 10.0));
    EXPECT_EQ(b.type, SNAP_GRID);
}

TEST_F(BrepSnapMgrTest, WithinOneShapeLineHitsComeBeforeMiddlesBeforeVertices)
{
    Line(gp_Pnt(-45, 35, 0), gp_Pnt(-5, 35, 0));  // middle (-25, 35), 20 pixels from the ends
    Only(true, true, false, true);
    std::vector<sSnapResult> results;
    EXPECT_TRUE(SnapC(-23, 35, 0, results));
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(results[0].type, SNAP_ON_LINE);
    EXPECT_TRUE(results[0].point.IsEqual(gp_Pnt(-23, 35, 0), 1e-9));
    EXPECT_EQ(results[1].type, SNAP_MIDDLE);
    EXPECT_TRUE(results[1].point.IsEqual(gp_Pnt(-25, 35, 0), 1e-9));
    EXPECT_EQ(results[1].distance, 2.0);
    results.clear();
    EXPECT_TRUE(SnapC(-44, 36, 0, results));
    ASSERT_EQ(results.size(), 2u);
    EXPECT_EQ(results[0].type, SNAP_ON_LINE);
    EXPECT_EQ(results[1].type, SNAP_END_POINT);
    EXPECT_TRUE(results[1].point.IsEqual(gp_Pnt(-45, 35, 0), 1e-9));
}

TEST_F(BrepSnapMgrTest, OnLineUsesTheWorldDistanceAndReportsPixels)
{
    Line(gp_Pnt(-45, 35, 0), gp_Pnt(-25, 35, 0));
    Only(false, false, false, true);
    std::vector<sSnapResult> results;
    // 3 world units off the edge: within the world tolerance 10.
    EXPECT_TRUE(SnapC(-40, 38, 0, results));
    ASSERT_EQ(results.size(), 1u);
    EXPECT_TRUE(results[0].point.IsEqual(gp_Pnt(-40, 35, 0), 1e-9));
    EXPECT_NEAR(results[0].distance, 3.0, 1e-9);
    results.clear();
    EXPECT_FALSE(SnapC(-40, 46, 0, results));
}

TEST_F(BrepSnapMgrTest, EachPreferenceSwitchesItsKindOff)
{
    Line(gp_Pnt(-45, 35, 0), gp_Pnt(-25, 35, 0));
    auto kinds = [this](double x, double y) {
        std::vector<sSnapResult> results;
        SnapC(x, y, 0, results);
        std::vector<int> k;
        for (const sSnapResult& r : results) k.push_back(r.type);
        return k;
    };
    auto has = [](const std::vector<int>& k, int t) { return std::find(k.begin(), k.end(), t) != k.end(); };
    EXPECT_TRUE(has(kinds(-35, 35), SNAP_MIDDLE));
    EXPECT_TRUE(has(kinds(-45, 35), SNAP_END_POINT));
    EXPECT_TRUE(has(kinds(-40, 35), SNAP_ON_LINE));
    EXPECT_TRUE(has(kinds(-30, 30), SNAP_GRID));
    TevPreference::GetInstance()->snapMiddle = false;
    EXPECT_FALSE(has(kinds(-35, 35), SNAP_MIDDLE));
    TevPreference::GetInstance()->snapEndPoint = false;
    EXPECT_FALSE(has(kinds(-45, 35), SNAP_END_POINT));
    TevPreference::GetInstance()->snapOnLine = false;
    EXPECT_FALSE(has(kinds(-40, 35), SNAP_ON_LINE));
    TevPreference::GetInstance()->snapGrid = false;
    EXPECT_FALSE(has(kinds(-30, 30), SNAP_GRID));
}

TEST_F(BrepSnapMgrTest, EmptyDocumentLeavesGridHits)
{
    std::vector<sSnapResult> results;
    EXPECT_TRUE(SnapC(20, 20, 0, results));
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].type, SNAP_GRID);
    results.clear();
    EXPECT_FALSE(SnapC(25, 25, 0, results));
}

TEST_F(BrepSnapMgrTest, EdgesAlongTheViewRayAreSkippedAndTheirEndsStillSnap)
{
    // Seen from +Z the vertical edges of the box are points on the screen.
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(-45, 25, 0), gp_Dir(0, 0, 1)), 10, 10, 10);
    TevPreference::GetInstance()->snapGrid = false;
    std::vector<sSnapResult> results;
    EXPECT_TRUE(SnapC(-45, 25, 0, results));
    bool corner = false;
    for (const sSnapResult& r : results)
        if (r.type == SNAP_END_POINT && r.point.IsEqual(gp_Pnt(-45, 25, 0), 1e-9)) corner = true;
    EXPECT_TRUE(corner);
}

TEST_F(BrepSnapMgrTest, NoGridDataShowsTheNoticeAndGeometryStillSnaps)
{
    Line(gp_Pnt(-45, 35, 0), gp_Pnt(-25, 35, 0));
    std::vector<tevtest::BoxSeen> boxes;
    tevtest::AnswerMessageBoxes(1, QMessageBox::Ok, &boxes);
    BrepSnapMgr snap;  // no InitGridData
    std::vector<sSnapResult> results;
    double p[3] = {-35, 35, 0};
    EXPECT_TRUE(snap.PerformSnap(p, gp_Dir(0, 0, -1), results, 10.0, viewer.get()));
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].title, "Title");
    EXPECT_EQ(boxes[0].text, "No Snap Data");
    EXPECT_FALSE(results.empty());
}

TEST_F(BrepSnapMgrTest, AViewWithoutAPlaneOffersNothing)
{
    auto bare = tevtest::MakeShownViewer("CAE-TevViewer");
    Line(gp_Pnt(-45, 35, 0), gp_Pnt(-25, 35, 0));
    TevPreference::GetInstance()->snapGrid = false;
    BrepSnapMgr snap;
    std::vector<sSnapResult> results;
    double p[3] = {-35, 35, 0};
    snap.PerformSnap(p, gp_Dir(0, 0, -1), results, 1e6, bare.get());
    EXPECT_TRUE(results.empty());
}

}  // namespace
