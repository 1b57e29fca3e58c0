// The revolve operation on a shown viewer: the profile drawn and selected by clicks before the
// operation starts, the axis typed into the dialog that opens at once, Cancel that does not
// cancel, and the two refusals, which leave an empty transaction open.
#include "BoxShapeParaCreator.h"
#include "DrawRevolveOp.h"
#include "SweepOpTest.h"

#include <cmath>

using tevtest::Lines;

namespace {

class DrawRevolveOpTest : public tevtest::SweepOpTest
{
protected:
    // Starts a revolution with the current selection, OK in the dialog, and expects the box
    // `title`, `text` and a document as before, the operation still on the stack.
    void ExpectRefused(const char* title, const char* text)
    {
        const std::vector<tevtest::ShapeRecord> before = Snapshot();
        const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();
        tevtest::DialogAnswer dialog("rotateInputDlg", {}, true);
        tevtest::BoxSeen box;
        tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
        DrawRevolveOp op;
        Start(&op);
        EXPECT_TRUE(dialog.shown);
        ASSERT_TRUE(box.shown);
        EXPECT_EQ(box.title, title);
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(Current(), &op);
        // The transaction is left open holding no change (the box's own events may already have
        // let the widget commit it): closing it adds no undo step.
        ShapeDocMgr::GetInstance()->EndTransaction();
        EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos);
        ExpectSameDocument(before, Snapshot());
        Escape();
    }
};

TEST_F(DrawRevolveOpTest, ATriangleTurnedFullyAboutATypedAxisHasPappusVolume)
{
    // Triangle (10, 0), (30, 0), (10, 20): area 20 * 20 / 2 = 200, centroid y = 20 / 3. The typed
    // axis runs along x through (0, -10, 0), so the centroid is 20 / 3 + 10 = 50 / 3 from it, and
    // by Pappus the full turn sweeps 2 pi * 50 / 3 * 200 = 20000 pi / 3.
    DrawTriangle(gp_Pnt(10, 0, 0), gp_Pnt(30, 0, 0), gp_Pnt(10, 20, 0));
    ASSERT_EQ(All().size(), 1u);
    Click(gp_Pnt(15, 5, 0));
    ASSERT_EQ(Sel().size(), 1u);
    const std::vector<tevtest::ShapeRecord> before = Snapshot();

    tevtest::PromptLog log;
    tevtest::DialogAnswer dialog("rotateInputDlg",
                                 {{"lineEdit_PointX", "0"}, {"lineEdit_PointY", "-10"}, {"lineEdit_PointZ", "0"},
                                {"lineEdit_DirX", "1"}, {"lineEdit_DirY", "0"}, {"lineEdit_DirZ", "0"},
                                {"lineEdit_Angle", "360"}},
                               true);
    DrawRevolveOp op;
    Start(&op);
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(log.lines, (Lines{"Revolve : "}));
    ASSERT_EQ(All().size(), 2u);
    EXPECT_EQ(Count(All()[1], TopAbs_SOLID), 1);
    EXPECT_NEAR(Volume(All()[1]), 20000.0 * M_PI / 3.0, 1e-6);
    EXPECT_FALSE(ShapeDocMgr::GetInstance()->HasOpenTransaction());
    ExpectUndoRedo(before, Snapshot());

    // The operation stays without reacting to the mouse; Escape takes it away.
    EXPECT_EQ(Current(), &op);
    Click(gp_Pnt(-40, -40, 0));
    EXPECT_EQ(All().size(), 2u);
    log.Clear();
    Escape();
    EXPECT_EQ(Current(), nullptr);
    EXPECT_EQ(log.lines, (Lines{"Revolve : Cancel"}));
}

TEST_F(DrawRevolveOpTest, CancelRevolvesAboutTheDefaultAxisByAFullTurn)
{
    // Cancel keeps the fields: the axis through the origin along (1, 0, 0), and 360 degrees, the
    // angle this operation starts with. Triangle (10, 10), (30, 10), (10, 30): area 200, centroid
    // y = 50 / 3 from the x axis, so the volume is 2 pi * 50 / 3 * 200 = 20000 pi / 3.
    DrawTriangle(gp_Pnt(10, 10, 0), gp_Pnt(30, 10, 0), gp_Pnt(10, 30, 0));
    Click(gp_Pnt(15, 15, 0));
    ASSERT_EQ(Sel().size(), 1u);
    tevtest::DialogAnswer dialog("rotateInputDlg", {{"lineEdit_PointY", "50"}, {"lineEdit_Angle", "90"}},
                                 false);
    DrawRevolveOp op;
    Start(&op);
    EXPECT_TRUE(dialog.shown);
    ASSERT_EQ(All().size(), 2u);
    EXPECT_NEAR(Volume(All()[1]), 20000.0 * M_PI / 3.0, 1e-6);
}

TEST_F(DrawRevolveOpTest, NothingSelectedIsToldVerbatimAndChangesNothing)
{
    DrawTriangle(gp_Pnt(10, 0, 0), gp_Pnt(30, 0, 0), gp_Pnt(10, 20, 0));
    SelectionMgr::GetInstance()->ClearSelList();
    ExpectRefused("Title", "Nothing is Selected");
}

TEST_F(DrawRevolveOpTest, ASolidIsRefusedVerbatimAndChangesNothing)
{
    ShapeDocMgr::GetInstance()->StartTransaction();
    BoxShapeParaCreator().CreateBox(gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(0, 0, 1)), 40, 40, 10);
    ShapeDocMgr::GetInstance()->EndTransaction();
    viewer->RefreshViewer();
    Click(gp_Pnt(20, 20, 10));
    ASSERT_EQ(Sel().size(), 1u);
    ASSERT_EQ(Sel()[0]->ShapeType(), TopAbs_SOLID);
    ExpectRefused("Error", "Solid can't be revolved");
}

}  // namespace
