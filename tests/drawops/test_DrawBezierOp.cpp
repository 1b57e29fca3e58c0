// The Bezier operation driven by real mouse events: clicks and a double click make the curve on
// exactly the clicked poles, the rubber band, the finished state, the one-point double click and
// the clicked z dropped before picking.
#include "DrawBezierOp.h"
#include "FreeFormOpTest.h"

#include <Geom_BezierCurve.hxx>
#include <vtkDataSet.h>

using tevtest::Lines;

namespace {

using DrawBezierOpTest = tevtest::FreeFormOpTest;

TEST_F(DrawBezierOpTest, ClicksAndADoubleClickMakeTheCurveOnThoseControlPoints)
{
    tevtest::PromptLog log;
    DrawBezierOp op;
    Start(&op);
    const gp_Pnt p0(-40, -20, 0), p1(0, 60, 0), p2(40, -20, 0);
    Click(p0);
    Click(p1);
    DoubleClick(p2);
    // Each release prompts before it takes its point; the double click adds no point, and the
    // release after it finds the operation finished.
    EXPECT_EQ(log.lines, (Lines{"Bezier: Input First Point", "Bezier: Input Next Point", "Bezier: Input Next Point",
                                "Bezier: Input Next Point", "Bezier: Done"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);
    ASSERT_EQ(op.GetPointList().size(), 3u);

    ASSERT_EQ(All().size(), 1u);
    ASSERT_EQ(All()[0].ShapeType(), TopAbs_EDGE);
    double first = 0, last = 0;
    opencascade::handle<Geom_BezierCurve> curve = opencascade::handle<Geom_BezierCurve>::DownCast(CurveOf(All()[0], first, last));
    ASSERT_FALSE(curve.IsNull());
    // The poles are the clicked grid points, exactly.
    ASSERT_EQ(curve->NbPoles(), 3);
    EXPECT_TRUE(curve->Pole(1).IsEqual(p0, 0));
    EXPECT_TRUE(curve->Pole(2).IsEqual(p1, 0));
    EXPECT_TRUE(curve->Pole(3).IsEqual(p2, 0));
    EXPECT_DOUBLE_EQ(first, 0.0);
    EXPECT_DOUBLE_EQ(last, 1.0);
    // Controlled by the middle point, not through it: at u = 1/2 the quadratic Bezier is
    // p0/4 + p1/2 + p2/4 = (-10 + 0 + 10, -5 + 30 - 5, 0) = (0, 20, 0).
    EXPECT_TRUE(curve->Value(0.5).IsEqual(gp_Pnt(0, 20, 0), 1e-12));
    EXPECT_TRUE(curve->Value(0.0).IsEqual(p0, 1e-12));
    EXPECT_TRUE(curve->Value(1.0).IsEqual(p2, 1e-12));

    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(op.IsActionFinished());
    EXPECT_EQ(Current(), &op);
}

TEST_F(DrawBezierOpTest, TheBandShowsFromTwoPointsAndStaysWhenTheMouseIsOnAListedPoint)
{
    DrawBezierOp op;
    Start(&op);
    Click(gp_Pnt(-40, -20, 0));
    Move(gp_Pnt(0, 60, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), nullptr);  // one point listed: no band
    Click(gp_Pnt(0, 60, 0));
    Move(gp_Pnt(40, -20, 0));
    vtkActor* band = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(band));
    // The band is the Bezier on the two points and the cursor: from x = -40 to 40, and its
    // highest point is the curve's at u = 1/2, y = 20 (see above), well below the pole's 60.
    const double* bounds = Data(band)->GetBounds();
    EXPECT_NEAR(bounds[0], -40.0, 1e-6);
    EXPECT_NEAR(bounds[1], 40.0, 1e-6);
    EXPECT_NEAR(bounds[2], -20.0, 1e-6);
    EXPECT_NEAR(bounds[3], 20.0, 0.5);
    EXPECT_TRUE(All().empty());

    // On a listed point (the grid snaps the cursor exactly onto it) the last band stays.
    Move(gp_Pnt(0, 60, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), band);
    EXPECT_TRUE(Shown(band));
    Move(gp_Pnt(-40, -20, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), band);
}

TEST_F(DrawBezierOpTest, FinishedItIgnoresClicksFollowsTheMouseAndMakesTheCurveAgainUntilEscape)
{
    tevtest::PromptLog log;
    DrawBezierOp op;
    Start(&op);
    Click(gp_Pnt(-40, -20, 0));
    Click(gp_Pnt(0, 60, 0));
    DoubleClick(gp_Pnt(40, -20, 0));
    ASSERT_EQ(All().size(), 1u);
    ASSERT_TRUE(NothingLeft(op));

    // The band comes back and follows the mouse.
    Move(gp_Pnt(60, 30, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    // A click is ignored: no point, no prompt.
    log.Clear();
    Click(gp_Pnt(70, 70, 0));
    EXPECT_EQ(op.GetPointList().size(), 3u);
    EXPECT_TRUE(log.lines.empty());
    // A double click makes the same curve again: its press and release are ignored.
    DoubleClick(gp_Pnt(80, 80, 0));
    EXPECT_EQ(log.lines, (Lines{"Bezier: Done"}));
    ASSERT_EQ(All().size(), 2u);
    double f, l;
    auto again = opencascade::handle<Geom_BezierCurve>::DownCast(CurveOf(All()[1], f, l));
    ASSERT_FALSE(again.IsNull());
    EXPECT_EQ(again->NbPoles(), 3);
    EXPECT_TRUE(again->Pole(3).IsEqual(gp_Pnt(40, -20, 0), 0));

    // Escape takes the band away and the operation off the stack.
    Move(gp_Pnt(60, 30, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    Escape();
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);

    // Started again, it goes on from the old points.
    Start(&op);
    EXPECT_FALSE(op.IsActionFinished());
    Click(gp_Pnt(90, 0, 0));
    EXPECT_EQ(op.GetPointList().size(), 4u);
}

TEST_F(DrawBezierOpTest, ADoubleClickOnTheFirstPositionCallsTheCreatorWithOnePoint)
{
    tevtest::PromptLog log;
    DrawBezierOp op;
    Start(&op);
    DoubleClick(gp_Pnt(10, 10, 0));
    EXPECT_EQ(op.GetPointList().size(), 1u);
    // The creator refuses one point with its own level-2 line; nothing is made.
    ASSERT_EQ(log.lines.size(), 4u);
    EXPECT_EQ(log.lines[2], "Bezier: Done");
    EXPECT_EQ(log.levels[3], 2);
    EXPECT_EQ(log.lines[3], "CreateBeizer : a Bezier curve needs at least 2 distinct points, 1 given");
    EXPECT_TRUE(All().empty());
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    EXPECT_TRUE(op.IsActionFinished());
    EXPECT_EQ(Current(), &op);
}

TEST_F(DrawBezierOpTest, AClickedPointIsPickedFromTheRawPointAtZeroOnARaisedPlane)
{
    UseRaisedPlaneInIsoView();
    DrawBezierOp op;
    Start(&op);
    // Raw (10, 20, 40) is picked as (10, 20, 0): (10 + 5 - 0, 20 + 5 - 0, 5) = (15, 25, 5).
    Release(10, 20, 40);
    ASSERT_EQ(op.GetPointList().size(), 1u);
    EXPECT_TRUE(op.GetPointList()[0].IsEqual(gp_Pnt(15, 25, 5), 1e-9));
}

}  // namespace
