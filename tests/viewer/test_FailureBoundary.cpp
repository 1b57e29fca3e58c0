// The failure policy of the viewer (TevBasicViewer.h), through real mouse events: a step whose
// geometry raises leaves the document as it was, tells the user in one exact level-2 line, and
// leaves the operation running in the step it was in, so that the next valid clicks work.
#include "BoxShapeParaCreator.h"
#include "DrawArcOp.h"
#include "DrawCircleOp.h"
#include "DrawEllipseOp.h"
#include "DrawLineOp.h"
#include "DrawOpTestPeer.h"
#include "PlanarOpTest.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <GeomAbs_CurveType.hxx>
#include <Geom_Line.hxx>
#include <Geom_SurfaceOfRevolution.hxx>
#include <gp_Circ.hxx>
#include <gp_Elips.hxx>

#include <cmath>

using tevtest::Lines;

// An operation whose click makes a box inside a transaction of its own and then fails in the
// geometry kernel, as a step that raises after it changed the document does. With `leaveOpen`
// the click makes its box and returns with the transaction still open, as an error path may.
class FailingBoxOp : public DrawOpCommon
{
public:
    bool leaveOpen = false;
    bool LButtonUp(TevBasicViewer*, const double[3]) override
    {
        ShapeDocMgr::GetInstance()->StartTransaction();
        BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 10, 10, 10);
        if (leaveOpen) return false;
        gp_Vec none(0, 0, 0);
        none.Normalize();  // raises: a vector of zero length has no direction
        return false;
    }
};

namespace {

class FailureBoundaryTest : public tevtest::PlanarOpTest
{
protected:
    // The document is as before: no shape, nothing to undo, no change left open.
    static void ExpectEmptyDocument()
    {
        EXPECT_TRUE(ShapeLabelMgr::GetInstance()->GetAllShapes().empty());
        EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
        EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    }
    // The fault lines of `log`, level 2 only.
    static Lines Faults(const tevtest::PromptLog& log)
    {
        Lines out;
        for (size_t i = 0; i < log.lines.size(); ++i)
            if (log.levels[i] == 2) out.push_back(log.lines[i]);
        return out;
    }
    // Clicks (-30, 0) and (0, 0), moves to (30, 0), and clicks there after clearing `log`.
    void ThreeCollinearClicks(tevtest::PromptLog& log)
    {
        Click(gp_Pnt(-30, 0, 0));
        Click(gp_Pnt(0, 0, 0));
        Move(gp_Pnt(30, 0, 0));
        log.Clear();
        Click(gp_Pnt(30, 0, 0));
    }
    static gp_Circ CircleOf(const TopoDS_Shape& edge)
    {
        BRepAdaptor_Curve curve(TopoDS::Edge(edge));
        EXPECT_EQ(curve.GetType(), GeomAbs_Circle);
        return curve.Circle();
    }
};

TEST_F(FailureBoundaryTest, CollinearCirclePointsKeepTheDocumentAndTheThirdStep)
{
    tevtest::PromptLog log;
    DrawCircleOp op;
    Start(&op);
    // The third point on the line of the first two: no circle passes through them, and the
    // circle construction's failure is what the user reads. No "Circle: Done" follows.
    ThreeCollinearClicks(log);
    EXPECT_EQ(log.lines, (Lines{"DrawCircleOp : GC_MakeCircle::Value() - no result"}));
    EXPECT_EQ(log.levels, (std::vector<int>{2}));
    ExpectEmptyDocument();
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), &op);
    // The failed point is taken back: the two points of the first steps remain.
    ASSERT_EQ(op.GetPointList().size(), 2u);
    EXPECT_TRUE(op.GetPointList()[1].IsEqual(gp_Pnt(0, 0, 0), 1e-9));

    // Still in the third step: one more click closes the circle through (-30, 0), (0, 0) and
    // (-30, 30). The bisectors x = -15 and y = 15 meet in the centre (-15, 15); the radius is
    // the distance to (0, 0), 15 * sqrt(2).
    log.Clear();
    Click(gp_Pnt(-30, 30, 0));
    EXPECT_TRUE(Faults(log).empty());
    ASSERT_EQ(All().size(), 1u);
    const gp_Circ circle = CircleOf(All()[0]);
    EXPECT_TRUE(circle.Location().IsEqual(gp_Pnt(-15, 15, 0), 1e-9));
    EXPECT_NEAR(circle.Radius(), 15.0 * std::sqrt(2.0), 1e-9);
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
}

TEST_F(FailureBoundaryTest, CollinearArcPointsAreRefusedByTheCreatorAndTheArcStartsOver)
{
    tevtest::PromptLog log;
    DrawArcOp op;
    Start(&op);
    // The arc's construction is the creator's, which raises nothing: it refuses the points with
    // its own "<operation> : <reason>" line, and the operation ends the step as usual.
    ThreeCollinearClicks(log);
    EXPECT_EQ(Faults(log), (Lines{"CreateArc : the three points are collinear"}));
    ExpectEmptyDocument();
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), &op);

    // A valid arc follows: the creator gets (first, third, second) click, so the arc starts at
    // (-30, 0), passes (0, 30) and ends at (30, 0): the upper half of the circle of radius 30
    // about the origin.
    log.Clear();
    Click(gp_Pnt(-30, 0, 0));
    Click(gp_Pnt(30, 0, 0));
    Click(gp_Pnt(0, 30, 0));
    EXPECT_TRUE(Faults(log).empty());
    ASSERT_EQ(All().size(), 1u);
    const gp_Circ circle = CircleOf(All()[0]);
    EXPECT_TRUE(circle.Location().IsEqual(gp_Pnt(0, 0, 0), 1e-9));
    EXPECT_NEAR(circle.Radius(), 30.0, 1e-9);
    EXPECT_TRUE(HasVertex(All()[0], gp_Pnt(-30, 0, 0)));
    EXPECT_TRUE(HasVertex(All()[0], gp_Pnt(30, 0, 0)));
}

TEST_F(FailureBoundaryTest, ACursorOnTheFirstAxisSpansAZeroLengthAxisAndTheEllipseWaits)
{
    tevtest::PromptLog log;
    DrawEllipseOp op;
    Start(&op);
    Click(gp_Pnt(0, 0, 0));
    Click(gp_Pnt(30, 0, 0));
    Move(gp_Pnt(0, 10, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    log.Clear();
    // On the first axis the second axis has length zero: the band's ellipse cannot be made.
    Move(gp_Pnt(10, 0, 0));
    EXPECT_EQ(log.lines, (Lines{"DrawEllipseOp : GC_MakeEllipse::Value() - no result"}));
    EXPECT_EQ(log.levels, (std::vector<int>{2}));
    EXPECT_TRUE(NothingLeft(op));
    ExpectEmptyDocument();
    EXPECT_EQ(Current(), &op);

    // Centre and first axis are kept: the next point off the axis gives the band again, and
    // its click the ellipse about the origin with semi-axes 30 (along x) and 10.
    log.Clear();
    Move(gp_Pnt(0, 10, 0));
    EXPECT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    Click(gp_Pnt(0, 10, 0));
    EXPECT_TRUE(Faults(log).empty());
    ASSERT_EQ(All().size(), 1u);
    BRepAdaptor_Curve curve(TopoDS::Edge(All()[0]));
    ASSERT_EQ(curve.GetType(), GeomAbs_Ellipse);
    EXPECT_TRUE(curve.Ellipse().Location().IsEqual(gp_Pnt(0, 0, 0), 1e-9));
    EXPECT_NEAR(curve.Ellipse().MajorRadius(), 30.0, 1e-9);
    EXPECT_NEAR(curve.Ellipse().MinorRadius(), 10.0, 1e-9);
}

TEST_F(FailureBoundaryTest, ADegenerateFaceMadeTheWorkPlaneKeepsPlaneDocumentAndOperation)
{
    // A disc swept by a segment from its axis: S(1, 0) is the centre again, like S(0, 0), so
    // the plane's first direction has length zero.
    opencascade::handle<Geom_Line> radius = new Geom_Line(gp_Pnt(0, 0, 5), gp_Dir(1, 0, 0));
    opencascade::handle<Geom_SurfaceOfRevolution> sweep =
        new Geom_SurfaceOfRevolution(radius, gp_Ax1(gp_Pnt(0, 0, 5), gp_Dir(0, 0, 1)));
    ASSERT_TRUE(sweep->Value(1, 0).IsEqual(sweep->Value(0, 0), 1e-12));
    const TopoDS_Shape disc = BRepBuilderAPI_MakeFace(sweep, 0, 2 * M_PI, 0, 10, 1e-7).Shape();
    ShapeDocMgr::GetInstance()->StartTransaction();
    ShapeLabelMgr::GetInstance()->AddShapeToDoc(ShapeDocMgr::GetInstance()->GetDoc(), disc, "Face");
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
    QTest::qWait(30);
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();

    // The face is picked at face level by a real click inside the disc.
    viewer->m_Slot_SetSelectionFace();
    Click(gp_Pnt(3, 4, 5));
    ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList().size(), 1u);
    ASSERT_EQ(SelectionMgr::GetInstance()->GetshapeList()[0]->ShapeType(), TopAbs_FACE);

    DrawLineOp line;
    Start(&line);
    const opencascade::handle<Geom_Plane> before = viewer->GetCurrentPlane();
    tevtest::PromptLog log;
    tevtest::BoxSeen notice;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &notice);
    viewer->m_Slot_SetFaceAsWorkPlane();
    EXPECT_TRUE(notice.shown);
    EXPECT_EQ(log.lines, (Lines{"Set Face as work plane : gp_Vec::Normalize() - vector has zero norm"}));
    EXPECT_EQ(log.levels, (std::vector<int>{2}));
    EXPECT_EQ(viewer->GetCurrentPlane(), before);
    EXPECT_EQ(All().size(), 1u);
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos);
    EXPECT_EQ(Current(), &line);

    // The running line goes on, on the XY plane that stayed: its ends have z = 0.
    Click(gp_Pnt(-30, -20, 0));
    Click(gp_Pnt(30, -20, 0));
    ASSERT_EQ(All().size(), 2u);
    gp_Pnt a, b;
    Ends(All()[1], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(-30, -20, 0), 1e-9));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(30, -20, 0), 1e-9));
}

// The one guard kept: in the top view the vertical edges of a box are parallel to the view ray.
// Taken as the plain steps take them, such an edge has no single nearest point and raises, and
// every point of every operation in that view would be refused; skipped, its ends still snap as
// vertices and the line is drawn.
TEST_F(FailureBoundaryTest, EdgesParallelToTheViewDoNotStopPointPicking)
{
    ShapeDocMgr::GetInstance()->StartTransaction();
    ShapeLabelMgr::GetInstance()->AddShapeToDoc(ShapeDocMgr::GetInstance()->GetDoc(),
                                                BRepPrimAPI_MakeBox(gp_Pnt(40, 40, 0), 10, 10, 10).Shape(), "Box");
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
    QTest::qWait(30);
    tevtest::PromptLog log;
    DrawLineOp line;
    Start(&line);
    Move(gp_Pnt(-30, 0, 0));
    Click(gp_Pnt(-30, 0, 0));
    Move(gp_Pnt(20, 0, 0));
    Click(gp_Pnt(20, 0, 0));
    EXPECT_TRUE(Faults(log).empty());
    ASSERT_EQ(All().size(), 2u);
    gp_Pnt a, b;
    Ends(All()[1], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(-30, 0, 0), 1e-9));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(20, 0, 0), 1e-9));
}

// The failing step's change is taken back; a change an earlier step left open is kept.
TEST_F(FailureBoundaryTest, AFailureAfterTheStepChangedTheDocumentTakesTheChangeBack)
{
    tevtest::PromptLog log;
    FailingBoxOp op;
    Start(&op);
    op.leaveOpen = true;
    Click(gp_Pnt(-30, 0, 0));
    ASSERT_EQ(All().size(), 1u);
    EXPECT_TRUE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    op.leaveOpen = false;
    Click(gp_Pnt(30, 0, 0));
    EXPECT_EQ(Faults(log), (Lines{"FailingBoxOp : gp_Vec::Normalize() - vector has zero norm"}));
    // The first box stays, committed as the undo step of its own click; the second is gone.
    EXPECT_EQ(All().size(), 1u);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_EQ(Current(), &op);
}

}  // namespace
