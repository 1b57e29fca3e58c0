// The pipe operation driven by real mouse events: a circle and a line drawn by clicks on two work
// planes, the path and the profile selected by clicks during the two picking children, which end
// by Escape or "Confirm", and the three ways the selection can be wrong.
#include "DrawCircleByCenterRadiusOp.h"
#include "DrawPipeOp.h"
#include "PickPointGeneral.h"
#include "SweepOpTest.h"

#include <BRepAdaptor_Surface.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeSolid.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRepBuilderAPI_Sewing.hxx>
#include <TopExp_Explorer.hxx>
#include <gp_Cylinder.hxx>

#include <cmath>

using tevtest::Lines;

namespace {

class DrawPipeOpTest : public tevtest::SweepOpTest
{
protected:
    // A circle of radius 20 about the origin in the XY plane, and a line from the origin to
    // (0, 0, 60) drawn on the XZ plane, which is then the work plane, seen from the front. There
    // the circle shows edge on through (20, 0, 0) and the line along x = 0.
    void DrawCircleAndLine()
    {
        DrawCircleByCenterRadiusOp circle;
        Start(&circle);
        Click(gp_Pnt(0, 0, 0));
        Click(gp_Pnt(20, 0, 0));
        Escape();
        viewer->EnableXZPlane();
        viewer->SetXZ();
        viewer->UpdateViewer();
        DrawLine(gp_Pnt(0, 0, 0), gp_Pnt(0, 0, 60));
        ASSERT_EQ(All().size(), 2u);
        SelectionMgr::GetInstance()->ClearSelList();
    }
    // The volume that `wall` bounds once each of its circular edges is closed by a disc.
    static double CappedVolume(const TopoDS_Shape& wall)
    {
        BRepBuilderAPI_Sewing sewing;
        sewing.Add(wall);
        for (TopExp_Explorer e(wall, TopAbs_EDGE); e.More(); e.Next()) {
            const TopoDS_Edge edge = TopoDS::Edge(e.Current());
            if (BRepAdaptor_Curve(edge).GetType() != GeomAbs_Circle) continue;
            sewing.Add(BRepBuilderAPI_MakeFace(BRepBuilderAPI_MakeWire(edge).Wire(), Standard_True).Face());
        }
        sewing.Perform();
        TopExp_Explorer shell(sewing.SewedShape(), TopAbs_SHELL);
        if (!shell.More()) return 0.0;
        return std::abs(Volume(BRepBuilderAPI_MakeSolid(TopoDS::Shell(shell.Current())).Solid()));
    }
    const gp_Pnt onCircle = gp_Pnt(20, 0, 0);
    const gp_Pnt onLine = gp_Pnt(0, 0, 30);
    const gp_Pnt empty = gp_Pnt(-60, 0, -40);
};

TEST_F(DrawPipeOpTest, ACircleSweptAlongALineGivesTheCylinder)
{
    DrawCircleAndLine();
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    tevtest::PromptLog log;
    DrawPipeOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Pick Object:", "Sweep : Select path:"}));
    Click(onLine);
    ASSERT_EQ(Sel().size(), 1u);
    // Escape during the path pick with a selection moves on to the profile pick.
    Escape();
    ASSERT_NE(dynamic_cast<PickPointGeneral*>(Current()), nullptr);
    EXPECT_EQ(log.lines.back(), "Extrude : Select object to be sweeped:");
    Click(onCircle);
    ASSERT_EQ(Sel().size(), 1u);
    ASSERT_EQ(Sel()[0]->ShapeType(), TopAbs_EDGE);
    Confirm();

    // An edge profile sweeps the cylinder's wall: radius 20 along the 60 of the line, a
    // cylindrical face about the z axis of area 2 pi * 20 * 60 = 2400 pi. Capped by the discs on
    // its two circles it bounds the cylinder of pi * 20^2 * 60 = 24000 pi.
    ASSERT_EQ(All().size(), 3u);
    const TopoDS_Shape pipe = All()[2];
    EXPECT_NEAR(Area(pipe), 2400.0 * M_PI, 1e-6);
    TopExp_Explorer faces(pipe, TopAbs_FACE);
    ASSERT_TRUE(faces.More());
    BRepAdaptor_Surface surface(TopoDS::Face(faces.Current()));
    ASSERT_EQ(surface.GetType(), GeomAbs_Cylinder);
    EXPECT_NEAR(surface.Cylinder().Radius(), 20.0, 1e-9);
    EXPECT_TRUE(surface.Cylinder().Axis().Direction().IsParallel(gp_Dir(0, 0, 1), 1e-9));
    EXPECT_NEAR(CappedVolume(pipe), 24000.0 * M_PI, 1e-3);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    ExpectUndoRedo(before, Snapshot());

    // The operation stays, inert; Escape cancels and finishes it.
    EXPECT_EQ(Current(), &op);
    log.Clear();
    Escape();
    EXPECT_EQ(Current(), nullptr);
    EXPECT_EQ(log.lines, (Lines{"Sweep : Cancel", "Sweep : Done"}));
}

TEST_F(DrawPipeOpTest, ConfirmStartsTheProfilePickAndTheSecondConfirmEndsTheOperationToo)
{
    DrawCircleAndLine();
    tevtest::PromptLog log;
    DrawPipeOp op;
    Start(&op);
    Click(onLine);
    // First showing of the menu, one run: the path child ends and the profile child is on top.
    Confirm();
    ASSERT_NE(dynamic_cast<PickPointGeneral*>(Current()), nullptr);
    Click(onCircle);
    log.Clear();
    // Second showing, two runs: the first ends the profile child and sweeps, the second ends
    // the operation itself, which cancels nothing and only finishes.
    Confirm();
    EXPECT_EQ(Current(), nullptr);
    EXPECT_EQ(log.lines, (Lines{"Pick Done:", "Sweep : Done"}));
    ASSERT_EQ(All().size(), 3u);
    EXPECT_NEAR(Area(All()[2]), 2400.0 * M_PI, 1e-6);
}

TEST_F(DrawPipeOpTest, NothingSelectedForTheProfileIsToldAndLeavesTheOperationInert)
{
    DrawCircleAndLine();
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    DrawPipeOp op;
    Start(&op);
    Click(onLine);
    Escape();
    Click(empty);
    ASSERT_TRUE(Sel().empty());
    tevtest::BoxSeen box;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
    Escape();
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "Warning");
    EXPECT_EQ(box.text, "No Entity is selected");
    EXPECT_EQ(Current(), &op);
    ExpectSameDocument(before, Snapshot());
}

TEST_F(DrawPipeOpTest, SeveralSelectedForTheProfileWarnsAndSweepsTheFirst)
{
    DrawCircleAndLine();
    DrawPipeOp op;
    Start(&op);
    Click(onLine);
    Escape();
    Click(onCircle);
    CtrlClick(onLine);
    ASSERT_EQ(Sel().size(), 2u);
    tevtest::BoxSeen box;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
    Escape();
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "Warning");
    EXPECT_EQ(box.text, "More than 1 Item are selected, Get first");
    // The circle, selected first, is swept: the wall of area 2400 pi as above.
    ASSERT_EQ(All().size(), 3u);
    EXPECT_NEAR(Area(All()[2]), 2400.0 * M_PI, 1e-6);
}

TEST_F(DrawPipeOpTest, NothingSelectedForThePathIsAnOutOfRangeErrorThatChangesNothing)
{
    DrawCircleAndLine();
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    DrawPipeOp op;
    Start(&op);
    tevtest::PromptLog log;
    Escape();
    // The vector access raises before anything changed; the widget reports it at level 2.
    ASSERT_FALSE(log.levels.empty());
    EXPECT_EQ(log.levels.back(), 2);
    EXPECT_TRUE(log.lines.back().contains("range")) << log.lines.back().toStdString();
    EXPECT_EQ(Current(), &op);
    ExpectSameDocument(before, Snapshot());
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
}

}  // namespace
