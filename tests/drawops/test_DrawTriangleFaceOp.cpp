// The triangle face operation driven by real mouse events: three points, the red line and
// triangle bands, the face, its deaf state after the face, coinciding points and Escape.
#include "DrawTriangleFaceOp.h"
#include "DrawOpTestPeer.h"
#include "PlanarOpTest.h"

using tevtest::Lines;

namespace {

using DrawTriangleFaceOpTest = tevtest::PlanarOpTest;

TEST_F(DrawTriangleFaceOpTest, ThreeClicksMakeTheFaceThenNothingReactsUntilEscape)
{
    tevtest::PromptLog log;
    DrawTriangleFaceOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Triangle : Input First point"}));
    Click(gp_Pnt(0, 0, 0));
    Move(gp_Pnt(40, 0, 0));
    vtkActor* line = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(line));
    ExpectColour(line, 1.0, 0.2, 0.2);
    EXPECT_EQ(Data(line)->GetNumberOfPoints(), 2);
    Click(gp_Pnt(40, 0, 0));
    Move(gp_Pnt(0, 30, 0));
    vtkActor* triangle = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(triangle));
    EXPECT_FALSE(Shown(line));
    ExpectColour(triangle, 1.0, 0.2, 0.2);
    EXPECT_DOUBLE_EQ(triangle->GetProperty()->GetOpacity(), 0.8);
    EXPECT_EQ(triangle->GetProperty()->GetRepresentation(), VTK_WIREFRAME);
    EXPECT_EQ(Data(triangle)->GetNumberOfPoints(), 3);
    EXPECT_TRUE(All().empty());

    Click(gp_Pnt(0, 30, 0));
    // After the third point the prompt is the line operation's.
    EXPECT_EQ(log.lines, (Lines{"Triangle : Input First point", "Triangle : Input Second point",
                                "Triangle : Input Third point", "Line : Input end point"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);
    EXPECT_TRUE(NothingLeft(op));
    ASSERT_EQ(All().size(), 1u);
    const TopoDS_Shape face = All()[0];
    EXPECT_EQ(face.ShapeType(), TopAbs_FACE);
    EXPECT_EQ(Count(face, TopAbs_EDGE), 3);
    EXPECT_NEAR(Area(face), 600.0, 1e-6);
    for (const gp_Pnt& c : {gp_Pnt(0, 0, 0), gp_Pnt(40, 0, 0), gp_Pnt(0, 30, 0)}) EXPECT_TRUE(HasVertex(face, c));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_FALSE(op.IsActionFinished());

    // Clicks and moves do nothing any more.
    log.Clear();
    Move(gp_Pnt(-30, -30, 0));
    Click(gp_Pnt(-30, -30, 0));
    Move(gp_Pnt(-10, -40, 0));
    Click(gp_Pnt(-10, -40, 0));
    Move(gp_Pnt(-40, 20, 0));
    Click(gp_Pnt(-40, 20, 0));
    EXPECT_TRUE(log.lines.empty());
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(All().size(), 1u);
    EXPECT_EQ(op.GetPointList().size(), 3u);
    EXPECT_EQ(Current(), &op);

    // Escape still cancels it.
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Triangle : Cancel"}));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(op.IsActionFinished());
    EXPECT_EQ(All().size(), 1u);
}

TEST_F(DrawTriangleFaceOpTest, CoincidingPointsMakeNothing)
{
    DrawTriangleFaceOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 0));
    Click(gp_Pnt(30, 10, 0));
    Click(gp_Pnt(30, 10, 0));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
    EXPECT_TRUE(NothingLeft(op));
}

TEST_F(DrawTriangleFaceOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    tevtest::PromptLog log;
    DrawTriangleFaceOp op;
    Start(&op);
    Click(gp_Pnt(0, 0, 0));
    Click(gp_Pnt(40, 0, 0));
    Move(gp_Pnt(0, 30, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    log.Clear();
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Triangle : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

}  // namespace
