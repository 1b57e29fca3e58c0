// The extrude operation driven by real mouse events on a shown viewer: shapes drawn by clicks,
// selected by clicks while the picking child is on top, the pick ended by "Confirm" or Escape,
// the height typed into the dialog.
#include "DrawExtrudeOp.h"
#include "PickPointGeneral.h"
#include "SweepOpTest.h"

#include <Bnd_Box.hxx>
#include <BRepBndLib.hxx>

using tevtest::Lines;

namespace {

using DrawExtrudeOpTest = tevtest::SweepOpTest;

const std::vector<std::pair<QString, QString>> Height(const QString& h)
{
    return {{"lineEdit_Height", h}};
}

TEST_F(DrawExtrudeOpTest, ThreeSelectedLinesGiveThreeFacesInOneTransaction)
{
    DrawLine(gp_Pnt(0, 0, 0), gp_Pnt(40, 0, 0));
    DrawLine(gp_Pnt(0, 20, 0), gp_Pnt(30, 20, 0));
    DrawLine(gp_Pnt(0, 40, 0), gp_Pnt(20, 40, 0));
    ASSERT_EQ(All().size(), 3u);
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();

    tevtest::PromptLog log;
    DrawExtrudeOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Pick Object:", "Extrude : Select object to be extruded:"}));
    ASSERT_NE(dynamic_cast<PickPointGeneral*>(Current()), nullptr);
    Click(gp_Pnt(20, 0, 0));
    CtrlClick(gp_Pnt(15, 20, 0));
    CtrlClick(gp_Pnt(10, 40, 0));
    ASSERT_EQ(Sel().size(), 3u);

    tevtest::DialogAnswer dialog("ExtrudInputDlg", Height("15"), true);
    Confirm();
    EXPECT_TRUE(dialog.shown);

    // Each line of length L along the default direction (0, 0, 1) over 15 sweeps a face of area
    // 15 L: 600, 450 and 300, in selection order after the three lines.
    const std::vector<TopoDS_Shape> all = All();
    ASSERT_EQ(all.size(), 6u);
    const double areas[3] = {600, 450, 300};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(all[3 + i].ShapeType(), TopAbs_FACE);
        EXPECT_NEAR(Area(all[3 + i]), areas[i], 1e-6);
    }
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos + 1);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    // The operation stays, inert, after its work.
    EXPECT_EQ(Current(), &op);
    Click(gp_Pnt(-50, -50, 0));
    EXPECT_EQ(All().size(), 6u);

    ExpectUndoRedo(before, Snapshot());
}

TEST_F(DrawExtrudeOpTest, EscapeDuringThePickOpensTheDialogWithTheSelection)
{
    // The triangle (0, 0), (40, 0), (0, 30) has area 40 * 30 / 2 = 600; over 12.5 along z its
    // prism holds 600 * 12.5 = 7500 between z = 0 and z = 12.5.
    DrawTriangle(gp_Pnt(0, 0, 0), gp_Pnt(40, 0, 0), gp_Pnt(0, 30, 0));
    ASSERT_EQ(All().size(), 1u);
    DrawExtrudeOp op;
    Start(&op);
    Click(gp_Pnt(10, 10, 0));
    ASSERT_EQ(Sel().size(), 1u);
    tevtest::DialogAnswer dialog("ExtrudInputDlg", Height("12.5"), true);
    Escape();
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(Current(), &op);
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(Count(All()[1], TopAbs_SOLID), 1);
    EXPECT_NEAR(Volume(All()[1]), 7500.0, 1e-6);
    Bnd_Box box;
    BRepBndLib::Add(All()[1], box);
    double x0, y0, z0, x1, y1, z1;
    box.Get(x0, y0, z0, x1, y1, z1);
    EXPECT_NEAR(z0, 0.0, 1e-6);
    EXPECT_NEAR(z1, 12.5, 1e-6);
}

TEST_F(DrawExtrudeOpTest, ARectangleWireGivesTheSideWallsAndANegativeHeightGoesDown)
{
    // The rectangle's wire (0, 0) to (40, 30) has perimeter 140; over -10 its walls have area
    // 140 * 10 = 1400 and lie between z = -10 and z = 0.
    DrawRectangle(gp_Pnt(0, 0, 0), gp_Pnt(40, 30, 0));
    ASSERT_EQ(All().size(), 1u);
    DrawExtrudeOp op;
    Start(&op);
    Click(gp_Pnt(20, 0, 0));
    ASSERT_EQ(Sel().size(), 1u);
    tevtest::DialogAnswer dialog("ExtrudInputDlg", Height("-10"), true);
    Confirm();
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(Count(All()[1], TopAbs_FACE), 4);
    EXPECT_NEAR(Area(All()[1]), 1400.0, 1e-6);
    Bnd_Box box;
    BRepBndLib::Add(All()[1], box);
    double x0, y0, z0, x1, y1, z1;
    box.Get(x0, y0, z0, x1, y1, z1);
    EXPECT_NEAR(z0, -10.0, 1e-6);
    EXPECT_NEAR(z1, 0.0, 1e-6);
}

TEST_F(DrawExtrudeOpTest, ZeroHeightIsRefusedVerbatimAndChangesNothing)
{
    DrawLine(gp_Pnt(0, 0, 0), gp_Pnt(40, 0, 0));
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();
    DrawExtrudeOp op;
    Start(&op);
    Click(gp_Pnt(20, 0, 0));
    tevtest::DialogAnswer dialog("ExtrudInputDlg", Height("0"), true);
    tevtest::BoxSeen box;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
    Confirm();
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "Error");
    EXPECT_EQ(box.text, "Height error input");
    ExpectSameDocument(before, Snapshot());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    EXPECT_EQ(Current(), &op);
}

TEST_F(DrawExtrudeOpTest, CancelMakesNothingAndEscapeThenLeavesWithoutAPrompt)
{
    DrawLine(gp_Pnt(0, 0, 0), gp_Pnt(40, 0, 0));
    DrawExtrudeOp op;
    Start(&op);
    Click(gp_Pnt(20, 0, 0));
    tevtest::DialogAnswer dialog("ExtrudInputDlg", Height("15"), false);
    Escape();
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(All().size(), 1u);
    EXPECT_EQ(Current(), &op);
    tevtest::PromptLog log;
    Escape();
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(DrawExtrudeOpTest, WithNothingSelectedTheDialogStillOpensAndNothingIsMade)
{
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();
    DrawExtrudeOp op;
    Start(&op);
    tevtest::DialogAnswer dialog("ExtrudInputDlg", Height("15"), true);
    Confirm();
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(All().empty());
    // An empty transaction leaves no undo step.
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos);
    EXPECT_EQ(Current(), &op);
}

}  // namespace
