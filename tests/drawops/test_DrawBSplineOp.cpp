// The B-spline operation driven by real mouse events: clicks and a double click make the curve
// through exactly the clicked points, its band, the finished state, the one-point double click
// and the clicked z kept.
#include "DrawBSplineOp.h"
#include "FreeFormOpTest.h"

#include <Geom_BSplineCurve.hxx>
#include <vtkDataSet.h>

using tevtest::Lines;

namespace {

using DrawBSplineOpTest = tevtest::FreeFormOpTest;

TEST_F(DrawBSplineOpTest, ClicksAndADoubleClickMakeTheCurveThroughThosePoints)
{
    tevtest::PromptLog log;
    DrawBSplineOp op;
    Start(&op);
    const gp_Pnt p0(-40, -20, 0), p1(-10, 20, 0), p2(20, -20, 0), p3(50, 20, 0);
    Click(p0);
    Click(p1);
    Click(p2);
    DoubleClick(p3);
    // "BSpline: Done" follows the creation.
    EXPECT_EQ(log.lines, (Lines{"BSpline: Input First Point", "BSpline: Input Next Point", "BSpline: Input Next Point",
                                "BSpline: Input Next Point", "BSpline: Input Next Point", "BSpline: Done"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);

    ASSERT_EQ(All().size(), 1u);
    double first = 0, last = 0;
    auto curve = opencascade::handle<Geom_BSplineCurve>::DownCast(CurveOf(All()[0], first, last));
    ASSERT_FALSE(curve.IsNull());
    // Interpolation parameters are the accumulated chord lengths: each step is (30, +-40), 50
    // long, so the clicked points lie at u = 0, 50, 100, 150.
    EXPECT_NEAR(first, 0.0, 1e-9);
    EXPECT_NEAR(last, 150.0, 1e-9);
    const gp_Pnt clicked[4] = {p0, p1, p2, p3};
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(curve->Value(50.0 * i).IsEqual(clicked[i], 1e-7)) << i;
    // Between them it is not the polyline: at u = 25 it leaves the chord p0-p1, whose middle is
    // (-25, 0, 0).
    EXPECT_GT(curve->Value(25.0).Distance(gp_Pnt(-25, 0, 0)), 1.0);

    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(op.IsActionFinished());
    EXPECT_EQ(Current(), &op);
}

TEST_F(DrawBSplineOpTest, TheBandGoesThroughTheListAndTheCursorAndEscapeTakesItAway)
{
    DrawBSplineOp op;
    Start(&op);
    Click(gp_Pnt(-40, 0, 0));
    Move(gp_Pnt(0, 40, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), nullptr);
    Click(gp_Pnt(0, 40, 0));
    Move(gp_Pnt(40, 0, 0));
    vtkActor* band = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(band));
    // Through (-40, 0), (0, 40), (40, 0), symmetric about x = 0: it spans x from -40 to 40 and
    // is highest at the middle point, y = 40 (to the tessellation's accuracy), where a Bezier on
    // the same points would reach 20 only.
    const double* bounds = Data(band)->GetBounds();
    EXPECT_NEAR(bounds[0], -40.0, 1e-6);
    EXPECT_NEAR(bounds[1], 40.0, 1e-6);
    EXPECT_NEAR(bounds[3], 40.0, 0.5);
    Move(gp_Pnt(0, 40, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), band);

    DoubleClick(gp_Pnt(40, 0, 0));
    ASSERT_EQ(All().size(), 1u);
    Move(gp_Pnt(60, 60, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    Escape();
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
}

TEST_F(DrawBSplineOpTest, ADoubleClickOnTheFirstPositionCallsTheCreatorWithOnePoint)
{
    tevtest::PromptLog log;
    DrawBSplineOp op;
    Start(&op);
    DoubleClick(gp_Pnt(10, 10, 0));
    EXPECT_EQ(op.GetPointList().size(), 1u);
    // The creator's refusal comes before "BSpline: Done".
    ASSERT_EQ(log.lines.size(), 4u);
    EXPECT_EQ(log.levels[2], 2);
    EXPECT_TRUE(log.lines[2].startsWith("CreateSpline : ")) << log.lines[2].toStdString();
    EXPECT_EQ(log.lines[3], "BSpline: Done");
    EXPECT_TRUE(All().empty());
    EXPECT_TRUE(op.IsActionFinished());
}

TEST_F(DrawBSplineOpTest, AClickedPointKeepsTheRawZOnARaisedPlane)
{
    UseRaisedPlaneInIsoView();
    DrawBSplineOp op;
    Start(&op);
    // Raw (10, 20, 40) as it is: (10 + 5 - 40, 20 + 5 - 40, 5) = (-25, -15, 5).
    Release(10, 20, 40);
    ASSERT_EQ(op.GetPointList().size(), 1u);
    EXPECT_TRUE(op.GetPointList()[0].IsEqual(gp_Pnt(-25, -15, 5), 1e-9));
}

}  // namespace
