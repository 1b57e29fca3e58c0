// The ellipse operation driven by real mouse events: centre and two axis points, the ellipse
// band through the cursor, the longer semi-axis first, the repeated last step, and Escape
// without a prompt.
#include "DrawEllipseOp.h"
#include "DrawOpTestPeer.h"
#include "PlanarOpTest.h"

#include <GeomAbs_CurveType.hxx>
#include <gp_Elips.hxx>

#include <cmath>

using tevtest::Lines;

namespace {

using DrawEllipseOpTest = tevtest::PlanarOpTest;

// The measures of an ellipse edge of the document.
static void ExpectEllipse(const TopoDS_Shape& s, const gp_Pnt& centre, double major, double minor, const gp_Dir& majorDir)
{
    ASSERT_EQ(s.ShapeType(), TopAbs_EDGE);
    BRepAdaptor_Curve curve(TopoDS::Edge(s));
    ASSERT_EQ(curve.GetType(), GeomAbs_Ellipse);
    const gp_Elips e = curve.Ellipse();
    EXPECT_TRUE(e.Location().IsEqual(centre, 1e-9));
    EXPECT_NEAR(e.MajorRadius(), major, 1e-9);
    EXPECT_NEAR(e.MinorRadius(), minor, 1e-9);
    EXPECT_TRUE(e.XAxis().Direction().IsParallel(majorDir, 1e-9));
}

TEST_F(DrawEllipseOpTest, CentreAndTwoAxisPointsMakeTheEllipseAndEachFurtherClickAnother)
{
    tevtest::PromptLog log;
    DrawEllipseOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Ellipse : Input center point of ellipse"}));
    Click(gp_Pnt(0, 0, 0));
    EXPECT_EQ(log.lines, (Lines{"Ellipse : Input center point of ellipse", "Ellipse : Input first axis point"}));
    // Between the centre and the first axis point nothing follows the mouse.
    Move(gp_Pnt(20, 0, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), nullptr);
    Click(gp_Pnt(20, 0, 0));
    EXPECT_EQ(log.lines, (Lines{"Ellipse : Input center point of ellipse", "Ellipse : Input first axis point",
                                "Ellipse : Input second axis point"}));
    Move(gp_Pnt(0, 10, 0));
    vtkActor* band = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(band));
    // Drawn by the shape tool, in its colour and width.
    ExpectColour(band, 0.8, 0.0, 0.8);
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetLineWidth(), 2.0);
    double b[6];
    Data(band)->GetBounds(b);
    EXPECT_NEAR(b[0], -20, 0.05);
    EXPECT_NEAR(b[1], 20, 0.05);
    EXPECT_NEAR(b[2], -10, 0.05);
    EXPECT_NEAR(b[3], 10, 0.05);
    EXPECT_TRUE(All().empty());

    Click(gp_Pnt(0, 10, 0));
    EXPECT_EQ(log.lines.size(), 3u);  // the last step prints nothing
    EXPECT_FALSE(Shown(band));
    ASSERT_EQ(All().size(), 1u);
    ExpectEllipse(All()[0], gp_Pnt(0, 0, 0), 20, 10, gp::DX());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);

    // The flags stay set: the cursor shows the next ellipse on the same centre and first axis.
    // Farther from the first axis than that axis is long, the cursor is the major-axis point.
    Move(gp_Pnt(0, 30, 0));
    vtkActor* next = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(next));
    Data(next)->GetBounds(b);
    EXPECT_NEAR(b[0], -20, 0.05);
    EXPECT_NEAR(b[1], 20, 0.05);
    EXPECT_NEAR(b[2], -30, 0.05);
    EXPECT_NEAR(b[3], 30, 0.05);
    Click(gp_Pnt(0, 30, 0));
    ASSERT_EQ(All().size(), 2u);
    ExpectEllipse(All()[1], gp_Pnt(0, 0, 0), 30, 20, gp::DY());
    EXPECT_EQ(log.lines.size(), 3u);
    EXPECT_EQ(Current(), &op);
    EXPECT_EQ(op.GetPointList().size(), 4u);
}

TEST_F(DrawEllipseOpTest, AFirstAxisPointOnTheCentreShowsNoBand)
{
    tevtest::PromptLog log;
    DrawEllipseOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 0));
    Click(gp_Pnt(10, 10, 0));
    Move(gp_Pnt(30, 40, 0));
    // The shape tool receives a null shape: an actor without anything to draw.
    vtkActor* band = DrawOpTestPeer::TempActor2(op);
    ASSERT_NE(band, nullptr);
    EXPECT_EQ(Data(band)->GetNumberOfPoints(), 0);
    log.Clear();
    // The creator refuses such an ellipse.
    Click(gp_Pnt(30, 40, 0));
    EXPECT_TRUE(All().empty());
    ASSERT_EQ(log.levels.size(), 1u);
    EXPECT_EQ(log.levels[0], 2);
}

TEST_F(DrawEllipseOpTest, EscapePrintsNothingAndLeavesNothingBehind)
{
    DrawEllipseOp op;
    Start(&op);
    Click(gp_Pnt(0, 0, 0));
    Click(gp_Pnt(30, 0, 0));
    Move(gp_Pnt(0, 10, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    tevtest::PromptLog log;
    Escape();
    EXPECT_TRUE(log.lines.empty());
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

}  // namespace
