// The line operation driven by real mouse events on a shown viewer, on the three principal
// planes and on a face made the work plane; the closed polyline; the picking child.
#include "BoxShapeParaCreator.h"
#include "DrawLineOp.h"
#include "DrawOpTestPeer.h"
#include "GuiTestSupport.h"
#include "PickPointGeneral.h"
#include "PromptLog.h"
#include "RecordingOp.h"
#include "SelectionMgr.h"
#include "ShapeDocMgr.h"
#include "ShapeLabelMgr.h"
#include "TevBasicViewerTestPeer.h"
#include "TevPreference.h"
#include "ViewerFixture.h"
#include "ViewerPixels.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRep_Tool.hxx>
#include <QSignalSpy>
#include <TopExp.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Vertex.hxx>
#include <vtkCamera.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

using tevtest::WorldToWidget;
using Lines = std::vector<QString>;

namespace {

class DrawLineOpTest : public tevtest::ViewerTest
{
protected:
    void SetUp() override
    {
        ViewerTest::SetUp();
        ShapeDocMgr::GetInstance()->NewDocument();
        SelectionMgr::GetInstance()->ClearSelList();
        TevPreference::GetInstance()->Reset();
        viewer->RefreshViewer();
    }
    void TearDown() override
    {
        SelectionMgr::GetInstance()->ClearSelList();
        TevPreference::GetInstance()->Reset();
        ViewerTest::TearDown();
    }

    void Start(IDrawOp* op) { DrawOpMgr::GetInstance()->StartOp(op, viewer.get()); }
    void Click(const gp_Pnt& p) { QTest::mouseClick(viewer.get(), Qt::LeftButton, Qt::NoModifier, WorldToWidget(viewer.get(), p)); }
    void Move(const gp_Pnt& p) { tevtest::MouseMove(viewer.get(), WorldToWidget(viewer.get(), p)); }
    bool Shown(vtkActor* a) { return a && viewer->GetDefaultRender()->HasViewProp(a); }
    std::vector<TopoDS_Shape> All() { return ShapeLabelMgr::GetInstance()->GetAllShapes(); }

    // The end points of an edge shape.
    static void Ends(const TopoDS_Shape& edge, gp_Pnt& a, gp_Pnt& b)
    {
        TopoDS_Vertex v0, v1;
        TopExp::Vertices(TopoDS::Edge(edge), v0, v1);
        a = BRep_Tool::Pnt(v0);
        b = BRep_Tool::Pnt(v1);
    }

    // Two clicks at grid points a and b (in the current view) must give one edge from a to b.
    void DrawAndCheck(const gp_Pnt& a, const gp_Pnt& b)
    {
        DrawLineOp op;
        Start(&op);
        Click(a);
        Move(b);
        ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
        Click(b);
        EXPECT_FALSE(Shown(DrawOpTestPeer::TempActor(op)));
        ASSERT_EQ(All().size(), 1u);
        ASSERT_EQ(All()[0].ShapeType(), TopAbs_EDGE);
        gp_Pnt p, q;
        Ends(All()[0], p, q);
        EXPECT_TRUE(p.IsEqual(a, 0)) << p.X() << " " << p.Y() << " " << p.Z();
        EXPECT_TRUE(q.IsEqual(b, 0)) << q.X() << " " << q.Y() << " " << q.Z();
    }
};

TEST_F(DrawLineOpTest, TwoClicksOnGridPointsInTheXYViewMakeThatEdge)
{
    tevtest::PromptLog log;
    DrawLineOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Line : Input start point"}));
    Move(gp_Pnt(-20, 30, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);  // no band before the first point
    Click(gp_Pnt(-20, 30, 0));
    EXPECT_EQ(log.lines, (Lines{"Line : Input start point", "Line : Input end point"}));
    Move(gp_Pnt(40, -10, 0));
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(band));
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetOpacity(), 0.8);
    Click(gp_Pnt(40, -10, 0));
    EXPECT_EQ(log.lines, (Lines{"Line : Input start point", "Line : Input end point", "Line: Done",
                                "Line : Input start point"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);
    EXPECT_FALSE(Shown(band));
    ASSERT_EQ(All().size(), 1u);
    gp_Pnt p, q;
    Ends(All()[0], p, q);
    EXPECT_TRUE(p.IsEqual(gp_Pnt(-20, 30, 0), 0));
    EXPECT_TRUE(q.IsEqual(gp_Pnt(40, -10, 0), 0));
    // The picture shows it, and the operation waits for the next line.
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 1u);
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), &op);
    EXPECT_FALSE(DrawOpTestPeer::IsStartTaken(op));
    EXPECT_TRUE(op.IsActionFinished());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
}

TEST_F(DrawLineOpTest, OnTheXZPlane)
{
    viewer->EnableXZPlane();
    viewer->SetXZ();
    viewer->UpdateViewer();
    DrawAndCheck(gp_Pnt(-30, 0, 20), gp_Pnt(50, 0, -40));
}

TEST_F(DrawLineOpTest, OnTheYZPlane)
{
    viewer->EnableYZPlane();
    viewer->SetYZ();
    viewer->UpdateViewer();
    DrawAndCheck(gp_Pnt(0, -30, 20), gp_Pnt(0, 50, -40));
}

TEST_F(DrawLineOpTest, OnAFaceMadeTheWorkPlane)
{
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 100, 100, 7);
    viewer->RefreshViewer();
    viewer->SetXY();
    viewer->UpdateViewer();
    viewer->m_Slot_SetSelectionFace();
    Click(gp_Pnt(50, 50, 7));
    ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList().size(), 1u);
    tevtest::BoxSeen seen;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &seen);
    viewer->m_Slot_SetFaceAsWorkPlane();
    ASSERT_NEAR(viewer->GetCurrentPlane()->Pln().Distance(gp_Pnt(1, 2, 7)), 0.0, 1e-9);

    DrawLineOp op;
    Start(&op);
    Click(gp_Pnt(30, 40, 7));
    Click(gp_Pnt(60, 70, 7));
    std::vector<TopoDS_Shape> all = All();
    ASSERT_EQ(all.size(), 2u);
    gp_Pnt p, q;
    Ends(all[1], p, q);
    // On the face's plane, within the pixel rounding (and the widget's one-row offset) of where
    // the clicks were.
    const double pixel = 1.5 * 2.0 * viewer->GetDefaultRender()->GetActiveCamera()->GetParallelScale() / viewer->height();
    EXPECT_NEAR(p.Z(), 7.0, 1e-9);
    EXPECT_NEAR(q.Z(), 7.0, 1e-9);
    EXPECT_NEAR(p.X(), 30, pixel);
    EXPECT_NEAR(p.Y(), 40, pixel);
    EXPECT_NEAR(q.X(), 60, pixel);
    EXPECT_NEAR(q.Y(), 70, pixel);
}

TEST_F(DrawLineOpTest, TwoClicksOnOneSnappedPointMakeNothingButStillPrompt)
{
    tevtest::PromptLog log;
    DrawLineOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 0));
    Click(gp_Pnt(10, 10, 0));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(log.lines, (Lines{"Line : Input start point", "Line : Input end point", "Line: Done",
                                "Line : Input start point"}));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
}

TEST_F(DrawLineOpTest, LengthThresholdIsOneMillionth)
{
    // Points given to the operation directly: sub-pixel distances cannot come from a mouse.
    TevPreference* pref = TevPreference::GetInstance();
    pref->snapGrid = pref->snapEndPoint = pref->snapMiddle = pref->snapOnLine = false;
    DrawLineOp op;
    Start(&op);
    DrawOpMgr* mgr = DrawOpMgr::GetInstance();
    double a[3] = {3, 4, 0}, b[3] = {3 + 1e-7, 4, 0}, c[3] = {3 + 1e-5, 4, 0};
    mgr->ProcessMouseEvent(viewer.get(), DrawOpMgr::EnLButtonUp, a);
    mgr->ProcessMouseEvent(viewer.get(), DrawOpMgr::EnLButtonUp, b);
    EXPECT_TRUE(All().empty());
    mgr->ProcessMouseEvent(viewer.get(), DrawOpMgr::EnLButtonUp, a);
    mgr->ProcessMouseEvent(viewer.get(), DrawOpMgr::EnLButtonUp, c);
    ASSERT_EQ(All().size(), 1u);
}

TEST_F(DrawLineOpTest, ThePointListGrowsByTwoPerLine)
{
    DrawLineOp op;
    Start(&op);
    for (int k = 1; k <= 3; ++k) {
        Click(gp_Pnt(0, 10 * k, 0));
        Click(gp_Pnt(30, 10 * k, 0));
        EXPECT_EQ(op.GetPointList().size(), 2u * k);
    }
    EXPECT_EQ(All().size(), 3u);
    EXPECT_TRUE(op.GetPointList()[4].IsEqual(gp_Pnt(0, 30, 0), 0));
}

TEST_F(DrawLineOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    tevtest::PromptLog log;
    DrawLineOp op;
    Start(&op);
    Click(gp_Pnt(0, 0, 0));
    Move(gp_Pnt(30, 20, 0));
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(band));
    QTest::keyClick(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(log.lines.back(), "Line : Cancel");
    EXPECT_FALSE(Shown(band));
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), nullptr);
    EXPECT_TRUE(All().empty());
}

TEST_F(DrawLineOpTest, AClickDuringTheOperationStillSelects)
{
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 20, 20, 20);
    viewer->RefreshViewer();
    DrawLineOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 0));
    EXPECT_TRUE(DrawOpTestPeer::IsStartTaken(op));
    ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList().size(), 1u);
    EXPECT_EQ(SelectionMgr::GetInstance()->GetshapeList()[0]->ShapeType(), TopAbs_SOLID);
}

TEST_F(DrawLineOpTest, PolylineOfNoneOrOnePointMakesNothingButRefreshes)
{
    DrawLineOp op;
    for (size_t n : {0u, 1u}) {
        std::vector<gp_Pnt> points(n, gp_Pnt(1, 2, 3));
        QSignalSpy updated(viewer.get(), &TevBasicViewer::m_signal_ViewerUpdated);
        op.PerformDrawLineList(points, viewer.get());
        EXPECT_EQ(updated.count(), 1);
        EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
        EXPECT_TRUE(All().empty());
    }
}

TEST_F(DrawLineOpTest, PolylineOfTwoAndOfThreePoints)
{
    DrawLineOp op;
    std::vector<gp_Pnt> two = {gp_Pnt(0, 0, 0), gp_Pnt(10, 0, 0)};
    op.PerformDrawLineList(two, viewer.get());
    EXPECT_EQ(All().size(), 1u);
    ShapeDocMgr::GetInstance()->NewDocument();
    std::vector<gp_Pnt> three = {gp_Pnt(0, 0, 0), gp_Pnt(10, 0, 0), gp_Pnt(10, 10, 0)};
    op.PerformDrawLineList(three, viewer.get());
    std::vector<TopoDS_Shape> all = All();
    ASSERT_EQ(all.size(), 3u);
    gp_Pnt p, q;
    Ends(all[2], p, q);
    EXPECT_TRUE(p.IsEqual(gp_Pnt(10, 10, 0), 0));
    EXPECT_TRUE(q.IsEqual(gp_Pnt(0, 0, 0), 0));
    EXPECT_EQ(TevBasicViewerTestPeer::ActorByShape(*viewer).size(), 3u);
    // One transaction for the whole polyline.
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    // Repeated points make no segment.
    ShapeDocMgr::GetInstance()->NewDocument();
    std::vector<gp_Pnt> repeated = {gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 0), gp_Pnt(10, 0, 0)};
    op.PerformDrawLineList(repeated, viewer.get());
    EXPECT_EQ(All().size(), 2u);
}

TEST_F(DrawLineOpTest, CreateBy2PointsNeedsTheCallersBracket)
{
    DrawLineOp op;
    gp_Pnt a(0, 0, 0), b(5, 0, 0), c(1e-7, 0, 0);
    op.CreateBy2Points(a, c);
    EXPECT_TRUE(All().empty());
    op.CreateBy2Points(a, b);
    EXPECT_EQ(All().size(), 1u);
}

TEST_F(DrawLineOpTest, PickingChildHoldsTheStackAndReportsToItsParentEitherWay)
{
    tevtest::PromptLog log;
    RecordingOp parent("parent");
    PickPointGeneral child;
    parent.childToStart = &child;
    Start(&parent);
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), &child);
    EXPECT_EQ(log.lines, (Lines{"Pick Object:"}));
    double p[3] = {0, 0, 0};
    EXPECT_TRUE(child.LButtonUp(viewer.get(), p));
    EXPECT_TRUE(child.MovePoint(viewer.get(), p));
    EXPECT_FALSE(child.IsActionFinished());
    // Escape does not cancel the parent: it hears of the child as after OK.
    QTest::keyClick(viewer.get(), Qt::Key_Escape);
    EXPECT_EQ(log.lines.back(), "Pick Done:");
    EXPECT_EQ(parent.CountOf("ChildActionFinished"), 1);
    EXPECT_EQ(parent.CountOf("ActionCancelled"), 0);
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), &parent);
    // "Confirm" ends a second child the same way.
    PickPointGeneral second;
    DrawOpMgr::GetInstance()->StartChildOp(&second, viewer.get());
    QMetaObject::invokeMethod(viewer.get(), "m_Slot_OKCurrentOp");
    EXPECT_EQ(parent.CountOf("ChildActionFinished"), 2);
    EXPECT_EQ(DrawOpMgr::GetInstance()->GetCurrentOp(), &parent);
}

}  // namespace
