// The loft operation, a two-click line under other prompts, driven by real mouse events: the
// band, the edge, no closing prompts, start-over, the 1e-6 threshold and Escape.
#include "DrawLoftOp.h"
#include "SweepOpTest.h"

using tevtest::Lines;

namespace {

using DrawLoftOpTest = tevtest::SweepOpTest;

TEST_F(DrawLoftOpTest, TwoClicksMakeAnEdgeWithoutClosingPromptsAndItStartsOver)
{
    tevtest::PromptLog log;
    DrawLoftOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Line : Input First point:"}));
    Click(gp_Pnt(-30, 10, 0));
    EXPECT_EQ(log.lines.back(), "Line : Input Second point:");
    Move(gp_Pnt(50, -20, 0));
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(band));
    log.Clear();
    Click(gp_Pnt(50, -20, 0));
    // Unlike the line, no closing prompts follow the edge.
    EXPECT_TRUE(log.lines.empty());
    EXPECT_FALSE(Shown(band));
    ASSERT_EQ(All().size(), 1u);
    gp_Pnt a, b;
    Ends(All()[0], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(-30, 10, 0), 0));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(50, -20, 0), 0));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_FALSE(op.IsActionFinished());

    // It starts over: the next two clicks make the next edge.
    EXPECT_EQ(Current(), &op);
    Move(gp_Pnt(0, 0, 0));
    EXPECT_FALSE(Shown(DrawOpTestPeer::TempActor(op)));
    Click(gp_Pnt(0, 40, 0));
    Click(gp_Pnt(30, 40, 0));
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(op.GetPointList().size(), 4u);
    log.Clear();
    Escape();
    EXPECT_EQ(Current(), nullptr);
    EXPECT_EQ(log.lines, (Lines{"Line : Cancel"}));
}

TEST_F(DrawLoftOpTest, TwoClicksOnOnePointMakeNothing)
{
    DrawLoftOp op;
    Start(&op);
    Click(gp_Pnt(20, 20, 0));
    Click(gp_Pnt(20, 20, 0));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
    EXPECT_EQ(Current(), &op);
}

}  // namespace
