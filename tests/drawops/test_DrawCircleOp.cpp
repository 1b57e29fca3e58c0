// The three-point circle operation driven by real mouse events: the circle through the three
// clicks, its bands (the base's line, then the arc), start-over and Escape.
#include "DrawCircleOp.h"
#include "DrawOpTestPeer.h"
#include "PlanarOpTest.h"

#include <GeomAbs_CurveType.hxx>
#include <gp_Circ.hxx>

using tevtest::Lines;

namespace {

using DrawCircleOpTest = tevtest::PlanarOpTest;

TEST_F(DrawCircleOpTest, ThreeClicksMakeTheCircleThroughThem)
{
    tevtest::PromptLog log;
    DrawCircleOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Circle : Input first point on cirlce"}));
    Click(gp_Pnt(-30, 0, 0));
    Move(gp_Pnt(30, 0, 0));
    vtkActor* line = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(line));
    ExpectColour(line, 1.0, 0.2, 0.2);
    EXPECT_DOUBLE_EQ(line->GetProperty()->GetOpacity(), 0.8);
    Click(gp_Pnt(30, 0, 0));
    Move(gp_Pnt(0, 10, 0));
    vtkActor* arc = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(arc));
    // The band of a circle is the arc the third point closes, in the arc operation's violet.
    ExpectColour(arc, 0.8, 0.0, 0.8);
    EXPECT_DOUBLE_EQ(arc->GetProperty()->GetOpacity(), 0.6);
    EXPECT_DOUBLE_EQ(arc->GetProperty()->GetLineWidth(), 1.0);
    double bounds[6];
    Data(arc)->GetBounds(bounds);
    EXPECT_NEAR(bounds[2], 0.0, 1e-4);
    EXPECT_NEAR(bounds[3], 10.0, 1e-4);
    EXPECT_TRUE(All().empty());

    Click(gp_Pnt(0, 30, 0));
    EXPECT_EQ(log.lines, (Lines{"Circle : Input first point on cirlce", "Circle : Input second point on cirlce",
                                "Circle : Input third point on cirlce", "Circle: Done",
                                "Circle : Input first point on cirlce"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);
    EXPECT_TRUE(NothingLeft(op));
    ASSERT_EQ(All().size(), 1u);
    ASSERT_EQ(All()[0].ShapeType(), TopAbs_EDGE);
    BRepAdaptor_Curve curve(TopoDS::Edge(All()[0]));
    ASSERT_EQ(curve.GetType(), GeomAbs_Circle);
    EXPECT_NEAR(curve.Circle().Radius(), 30.0, 1e-9);
    EXPECT_TRUE(curve.Circle().Location().IsEqual(gp_Pnt(0, 0, 0), 1e-9));
    EXPECT_TRUE(BRep_Tool::IsClosed(All()[0]));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);

    // It starts over.
    EXPECT_EQ(Current(), &op);
    Click(gp_Pnt(10, 40, 0));
    Click(gp_Pnt(50, 40, 0));
    Click(gp_Pnt(30, 20, 0));
    ASSERT_EQ(All().size(), 2u);
    BRepAdaptor_Curve second(TopoDS::Edge(All()[1]));
    EXPECT_NEAR(second.Circle().Radius(), 20.0, 1e-9);
    EXPECT_TRUE(second.Circle().Location().IsEqual(gp_Pnt(30, 40, 0), 1e-9));
}

TEST_F(DrawCircleOpTest, TheCursorOnTheFirstPointRemovesTheLine)
{
    DrawCircleOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 0));
    Move(gp_Pnt(40, 20, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    Move(gp_Pnt(10, 10, 0));
    EXPECT_FALSE(Shown(DrawOpTestPeer::TempActor(op)));
    Move(gp_Pnt(40, 30, 0));
    EXPECT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
}

TEST_F(DrawCircleOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    tevtest::PromptLog log;
    DrawCircleOp op;
    Start(&op);
    Click(gp_Pnt(-30, 0, 0));
    Move(gp_Pnt(30, 0, 0));
    Click(gp_Pnt(30, 0, 0));
    Move(gp_Pnt(0, 20, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    log.Clear();
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Circle : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

}  // namespace
