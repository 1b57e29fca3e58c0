// The edge operation driven by real mouse events: edges go into the document without a
// transaction and are remembered in order, the band, the raw z dropped, and two clicks on one
// point.
#include "DrawEdgeOp.h"
#include "FreeFormOpTest.h"

using tevtest::Lines;

namespace {

using DrawEdgeOpTest = tevtest::FreeFormOpTest;

TEST_F(DrawEdgeOpTest, TwoClicksMakeAnEdgeWithoutATransactionAndNoPrompt)
{
    tevtest::PromptLog log;
    DrawEdgeOp op;
    Start(&op);
    Move(gp_Pnt(-30, 10, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);
    Click(gp_Pnt(-30, 10, 0));
    Move(gp_Pnt(50, -20, 0));
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(band));
    Click(gp_Pnt(50, -20, 0));
    EXPECT_TRUE(log.lines.empty());
    EXPECT_FALSE(Shown(band));

    ASSERT_EQ(All().size(), 1u);
    gp_Pnt a, b;
    Ends(All()[0], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(-30, 10, 0), 0));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(50, -20, 0), 0));
    // No transaction: the document gained the edge, and no undo step covers it.
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    ASSERT_EQ(op.GetAllEdges().size(), 1u);
    EXPECT_TRUE(op.GetAllEdges()[0].IsSame(All()[0]));
    // It starts over: the next move shows no band.
    EXPECT_EQ(Current(), &op);
    Move(gp_Pnt(0, 0, 0));
    EXPECT_FALSE(Shown(DrawOpTestPeer::TempActor(op)));
}

TEST_F(DrawEdgeOpTest, GetAllEdgesHoldsTwoEdgesInCreationOrderAlsoAfterEscape)
{
    DrawEdgeOp op;
    Start(&op);
    Click(gp_Pnt(0, 0, 0));
    Click(gp_Pnt(40, 0, 0));
    Click(gp_Pnt(-20, 30, 0));
    Click(gp_Pnt(-20, 70, 0));
    Escape();
    EXPECT_EQ(Current(), nullptr);
    const std::vector<TopoDS_Edge> edges = op.GetAllEdges();
    ASSERT_EQ(edges.size(), 2u);
    gp_Pnt a, b;
    Ends(edges[0], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(0, 0, 0), 0));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(40, 0, 0), 0));
    Ends(edges[1], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(-20, 30, 0), 0));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(-20, 70, 0), 0));
    EXPECT_EQ(op.GetPointList().size(), 4u);
}

TEST_F(DrawEdgeOpTest, PointsArePickedFromTheRawPointAtZero)
{
    UseRaisedPlaneInIsoView();
    DrawEdgeOp op;
    Start(&op);
    // (x + 5 - 0, y + 5 - 0, 5) whatever the raw z: (15, 25, 5) and (35, 5, 5).
    Release(10, 20, 40);
    Release(30, 0, -60);
    ASSERT_EQ(op.GetAllEdges().size(), 1u);
    gp_Pnt a, b;
    Ends(op.GetAllEdges()[0], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(15, 25, 5), 1e-9));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(35, 5, 5), 1e-9));
}

TEST_F(DrawEdgeOpTest, TwoClicksOnOnePointAreReportedAndKeepTheFirstPoint)
{
    tevtest::PromptLog log;
    DrawEdgeOp op;
    Start(&op);
    Click(gp_Pnt(20, 20, 0));
    Click(gp_Pnt(20, 20, 0));
    // No segment joins a point to itself: the boundary reports it at level 2 under the
    // operation's name, and the operation still holds its first point.
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_EQ(log.levels[0], 2);
    EXPECT_TRUE(log.lines[0].startsWith("DrawEdgeOp : ")) << log.lines[0].toStdString();
    EXPECT_TRUE(All().empty());
    EXPECT_TRUE(op.GetAllEdges().empty());
    EXPECT_EQ(op.GetPointList().size(), 1u);
    Click(gp_Pnt(60, 20, 0));
    ASSERT_EQ(All().size(), 1u);
    gp_Pnt a, b;
    Ends(All()[0], a, b);
    EXPECT_TRUE(a.IsEqual(gp_Pnt(20, 20, 0), 0));
    EXPECT_TRUE(b.IsEqual(gp_Pnt(60, 20, 0), 0));
}

}  // namespace
