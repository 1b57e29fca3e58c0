// The centre-and-radius circle operation driven by real mouse events: the circle, the base's
// red band around the centre, the radius threshold, start-over and Escape.
#include "DrawCircleByCenterRadiusOp.h"
#include "DrawOpTestPeer.h"
#include "LineShapeParaCreator.h"
#include "PlanarOpTest.h"

#include <GeomAbs_CurveType.hxx>
#include <gp_Circ.hxx>

#include <cmath>

using tevtest::Lines;

namespace {

using DrawCircleByCenterRadiusOpTest = tevtest::PlanarOpTest;

TEST_F(DrawCircleByCenterRadiusOpTest, CentreAndRimMakeTheCircle)
{
    tevtest::PromptLog log;
    DrawCircleByCenterRadiusOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Circle : Input center point"}));
    Move(gp_Pnt(10, 20, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), nullptr);
    Click(gp_Pnt(10, 20, 0));
    EXPECT_EQ(log.lines, (Lines{"Circle : Input center point", "Circle : Input point on Circle"}));
    Move(gp_Pnt(40, 60, 0));
    vtkActor* band = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(band));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);
    ExpectColour(band, 1.0, 0.2, 0.2);
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetOpacity(), 0.6);
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetLineWidth(), 1.0);
    vtkDataSet* data = Data(band);
    ASSERT_GT(data->GetNumberOfPoints(), 0);
    for (vtkIdType i = 0; i < data->GetNumberOfPoints(); ++i) {
        const double* q = data->GetPoint(i);
        EXPECT_NEAR(std::hypot(q[0] - 10, q[1] - 20), 50.0, 1e-4);
    }
    EXPECT_TRUE(All().empty());

    Click(gp_Pnt(40, 60, 0));
    EXPECT_EQ(log.lines, (Lines{"Circle : Input center point", "Circle : Input point on Circle", "Circle: Done",
                                "Circle : Input center point"}));
    for (int level : log.levels) EXPECT_EQ(level, 0);
    EXPECT_FALSE(Shown(band));
    ASSERT_EQ(All().size(), 1u);
    ASSERT_EQ(All()[0].ShapeType(), TopAbs_EDGE);
    BRepAdaptor_Curve curve(TopoDS::Edge(All()[0]));
    ASSERT_EQ(curve.GetType(), GeomAbs_Circle);
    EXPECT_NEAR(curve.Circle().Radius(), 50.0, 1e-9);
    EXPECT_TRUE(curve.Circle().Location().IsEqual(gp_Pnt(10, 20, 0), 1e-9));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);

    // It starts over with the next click.
    EXPECT_EQ(Current(), &op);
    Click(gp_Pnt(-40, -30, 0));
    Click(gp_Pnt(-40, -20, 0));
    ASSERT_EQ(All().size(), 2u);
    BRepAdaptor_Curve second(TopoDS::Edge(All()[1]));
    EXPECT_NEAR(second.Circle().Radius(), 10.0, 1e-9);
    EXPECT_TRUE(second.Circle().Location().IsEqual(gp_Pnt(-40, -30, 0), 1e-9));
    EXPECT_EQ(op.GetPointList().size(), 4u);
}

TEST_F(DrawCircleByCenterRadiusOpTest, ARimClickOneTenMillionthFromTheCentreMakesNothingButIsDone)
{
    // A vertex 1e-7 beside the grid point (10, 20): the centre snaps to the grid point, the rim
    // to the vertex.
    gp_Pnt a(10 + 1e-7, 20, 0), b(50, 20, 0);
    LineShapeParaCreator().CreateLine(a, b);
    viewer->RefreshViewer();
    ASSERT_EQ(All().size(), 1u);
    TevPreference* pref = TevPreference::GetInstance();
    pref->snapEndPoint = pref->snapMiddle = pref->snapOnLine = false;

    tevtest::PromptLog log;
    DrawCircleByCenterRadiusOp op;
    Start(&op);
    Click(gp_Pnt(10, 20, 0));
    pref->snapGrid = false;
    pref->snapEndPoint = true;
    Click(gp_Pnt(10, 20, 0));
    ASSERT_EQ(op.GetPointList().size(), 2u);
    EXPECT_NEAR(op.GetPointList()[0].Distance(op.GetPointList()[1]), 1e-7, 1e-12);
    EXPECT_EQ(All().size(), 1u);
    EXPECT_EQ(log.lines, (Lines{"Circle : Input center point", "Circle : Input point on Circle", "Circle: Done",
                                "Circle : Input center point"}));
    EXPECT_TRUE(NothingLeft(op));
}

TEST_F(DrawCircleByCenterRadiusOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    tevtest::PromptLog log;
    DrawCircleByCenterRadiusOp op;
    Start(&op);
    Click(gp_Pnt(0, 0, 0));
    Move(gp_Pnt(30, 0, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    log.Clear();
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Circle : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

}  // namespace
