// The three-point arc operation driven by real mouse events: the arc through the third click,
// its two rubber bands, the side of the chord the band takes, start-over and Escape.
#include "DrawArcOp.h"
#include "DrawOpTestPeer.h"
#include "PlanarOpTest.h"

#include <GeomAbs_CurveType.hxx>
#include <gp_Circ.hxx>

#include <algorithm>

using tevtest::Lines;

namespace {

class DrawArcOpTest : public tevtest::PlanarOpTest
{
protected:
    // Lowest and highest y of the band's points.
    static void YRange(vtkActor* band, double& lo, double& hi)
    {
        vtkDataSet* data = Data(band);
        lo = 1e30;
        hi = -1e30;
        for (vtkIdType i = 0; i < data->GetNumberOfPoints(); ++i) {
            lo = std::min(lo, data->GetPoint(i)[1]);
            hi = std::max(hi, data->GetPoint(i)[1]);
        }
    }
};

TEST_F(DrawArcOpTest, ThreeClicksMakeTheArcThroughTheThirdClick)
{
    tevtest::PromptLog log;
    DrawArcOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Arc: Input first point on arc:"}));
    Move(gp_Pnt(-30, 0, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);
    Click(gp_Pnt(-30, 0, 0));
    Move(gp_Pnt(30, 0, 0));
    vtkActor* line = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(line));
    ExpectColour(line, 0.3, 0.0, 0.6);
    EXPECT_DOUBLE_EQ(line->GetProperty()->GetOpacity(), 0.8);
    EXPECT_EQ(line->GetProperty()->GetRepresentation(), VTK_WIREFRAME);
    Click(gp_Pnt(30, 0, 0));
    EXPECT_EQ(log.lines, (Lines{"Arc: Input first point on arc:", "Arc: Input second point on arc:",
                                "Arc: Input third point on arc:"}));
    Move(gp_Pnt(0, 10, 0));
    vtkActor* arc = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(arc));
    ExpectColour(arc, 0.8, 0.0, 0.8);
    EXPECT_DOUBLE_EQ(arc->GetProperty()->GetOpacity(), 0.6);
    EXPECT_DOUBLE_EQ(arc->GetProperty()->GetLineWidth(), 1.0);
    EXPECT_EQ(Data(arc)->GetNumberOfPoints(), 65);
    // The line of the second step is not taken away by the arc.
    EXPECT_TRUE(Shown(line));
    EXPECT_TRUE(All().empty());

    Click(gp_Pnt(0, 30, 0));
    EXPECT_EQ(log.lines, (Lines{"Arc: Input first point on arc:", "Arc: Input second point on arc:",
                                "Arc: Input third point on arc:", "Arc: Done", "Arc: Input first point on arc:"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);
    EXPECT_FALSE(Shown(line));
    EXPECT_FALSE(Shown(arc));
    ASSERT_EQ(All().size(), 1u);
    const TopoDS_Shape arcShape = All()[0];
    ASSERT_EQ(arcShape.ShapeType(), TopAbs_EDGE);
    BRepAdaptor_Curve curve(TopoDS::Edge(arcShape));
    ASSERT_EQ(curve.GetType(), GeomAbs_Circle);
    EXPECT_NEAR(curve.Circle().Radius(), 30.0, 1e-9);
    EXPECT_TRUE(curve.Circle().Location().IsEqual(gp_Pnt(0, 0, 0), 1e-9));
    gp_Pnt a, b;
    Ends(arcShape, a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(-30, 0, 0), 1e-9));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(30, 0, 0), 1e-9));
    // It passes through the third click, the top of the half circle.
    const gp_Pnt mid = curve.Value(0.5 * (curve.FirstParameter() + curve.LastParameter()));
    EXPECT_TRUE(mid.IsEqual(gp_Pnt(0, 30, 0), 1e-9));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_EQ(op.GetPointList().size(), 3u);

    // It starts over: three more clicks make a second arc.
    EXPECT_EQ(Current(), &op);
    Click(gp_Pnt(-20, -10, 0));
    Click(gp_Pnt(20, -10, 0));
    Click(gp_Pnt(0, -30, 0));
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(op.GetPointList().size(), 6u);
    BRepAdaptor_Curve second(TopoDS::Edge(All()[1]));
    ASSERT_EQ(second.GetType(), GeomAbs_Circle);
    EXPECT_NEAR(second.Circle().Radius(), 20.0, 1e-9);
    EXPECT_TRUE(second.Circle().Location().IsEqual(gp_Pnt(0, -10, 0), 1e-9));
}

TEST_F(DrawArcOpTest, TheBandBendsToTheSideOfTheCursor)
{
    DrawArcOp op;
    Start(&op);
    Click(gp_Pnt(-30, 0, 0));
    Click(gp_Pnt(30, 0, 0));
    // Above the chord and close to it: the obtuse angle at the cursor gives the short arc above.
    Move(gp_Pnt(0, 10, 0));
    double lo, hi;
    YRange(DrawOpTestPeer::TempActor2(op), lo, hi);
    EXPECT_NEAR(lo, 0.0, 1e-4);
    EXPECT_NEAR(hi, 10.0, 1e-4);
    // Far below: the acute angle gives the long arc through the cursor, circle centre (0, -22.5).
    Move(gp_Pnt(0, -60, 0));
    YRange(DrawOpTestPeer::TempActor2(op), lo, hi);
    EXPECT_NEAR(lo, -60.0, 1e-3);
    EXPECT_NEAR(hi, 0.0, 1e-4);
    Click(gp_Pnt(0, -60, 0));
    ASSERT_EQ(All().size(), 1u);
    BRepAdaptor_Curve curve(TopoDS::Edge(All()[0]));
    EXPECT_NEAR(curve.Circle().Radius(), 37.5, 1e-9);
    EXPECT_TRUE(curve.Value(0.5 * (curve.FirstParameter() + curve.LastParameter())).IsEqual(gp_Pnt(0, -60, 0), 1e-9));
}

TEST_F(DrawArcOpTest, TheCursorOnTheFirstPointRemovesTheLineAndTheNextMoveRestoresIt)
{
    DrawArcOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 0));
    Move(gp_Pnt(40, 20, 0));
    vtkActor* first = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(first));
    Move(gp_Pnt(10, 10, 0));
    EXPECT_FALSE(Shown(first));
    EXPECT_FALSE(Shown(DrawOpTestPeer::TempActor(op)));
    Move(gp_Pnt(40, 30, 0));
    EXPECT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    EXPECT_NE(DrawOpTestPeer::TempActor(op), first);
}

TEST_F(DrawArcOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    tevtest::PromptLog log;
    DrawArcOp op;
    Start(&op);
    Click(gp_Pnt(-30, 0, 0));
    Move(gp_Pnt(30, 0, 0));
    Click(gp_Pnt(30, 0, 0));
    Move(gp_Pnt(0, 20, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    log.Clear();
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Arc : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

}  // namespace
