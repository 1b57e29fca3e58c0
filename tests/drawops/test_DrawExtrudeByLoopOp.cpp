// The loop extrude driven by real mouse events: loops drawn by clicks and selected by clicks
// while the operation itself waits on top, the extrusion run by "Confirm" or by Escape alike,
// the loop and closed-wire checks, and the removal of the loop's shapes in the same undo step.
#include "DrawExtrudeByLoopOp.h"
#include "SweepOpTest.h"

using tevtest::Lines;

namespace {

class DrawExtrudeByLoopOpTest : public tevtest::SweepOpTest
{
protected:
    // Draws the four sides of the rectangle (0, 0) to (40, 30) as separate lines, bottom, right,
    // top, left.
    void DrawFourLines()
    {
        DrawLine(gp_Pnt(0, 0, 0), gp_Pnt(40, 0, 0));
        DrawLine(gp_Pnt(40, 0, 0), gp_Pnt(40, 30, 0));
        DrawLine(gp_Pnt(40, 30, 0), gp_Pnt(0, 30, 0));
        DrawLine(gp_Pnt(0, 30, 0), gp_Pnt(0, 0, 0));
        ASSERT_EQ(All().size(), 4u);
    }
    // Selects by a click and then Ctrl clicks at `points`, in order.
    void Select(const std::vector<gp_Pnt>& points)
    {
        Click(points[0]);
        for (size_t i = 1; i < points.size(); ++i) CtrlClick(points[i]);
    }
    // Runs the operation with the current selection and ends it by Escape, answering the height
    // dialog with `height` if it opens; tells whether it opened.
    bool ExtrudeWith(const QString& height)
    {
        tevtest::DialogAnswer dialog("ExtrudInputDlg", {{"lineEdit_Height", height}}, true);
        Start(&op);
        Escape();
        EXPECT_EQ(Current(), nullptr);
        return dialog.shown;
    }
    // Extrudes the current selection as ExtrudeWith(height) does and expects the error box
    // `text`, the height dialog shown or not as `dialogExpected` says, and the document and the
    // selection as they were.
    void ExpectRefused(const QString& height, const char* text, bool dialogExpected)
    {
        const std::vector<tevtest::ShapeRecord> before = Snapshot();
        const size_t selected = Sel().size();
        tevtest::BoxSeen box;
        tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
        EXPECT_EQ(ExtrudeWith(height), dialogExpected);
        ASSERT_TRUE(box.shown);
        EXPECT_EQ(box.title, "Error");
        EXPECT_EQ(box.text, text);
        ExpectSameDocument(before, Snapshot());
        EXPECT_EQ(Sel().size(), selected);
    }
    // Midpoints of the rectangle's sides.
    const gp_Pnt bottom = gp_Pnt(20, 0, 0), right = gp_Pnt(40, 15, 0), top = gp_Pnt(20, 30, 0),
                 left = gp_Pnt(0, 15, 0);
    DrawExtrudeByLoopOp op;
};

TEST_F(DrawExtrudeByLoopOpTest, ARectangleDrawnByClicksExtrudesIntoASolidAndLeaves)
{
    // The rectangle (0, 0) to (40, 30) over the typed height 12: 40 * 30 * 12 = 14400.
    DrawRectangle(gp_Pnt(0, 0, 0), gp_Pnt(40, 30, 0));
    ASSERT_EQ(All().size(), 1u);
    Click(bottom);
    ASSERT_EQ(Sel().size(), 1u);
    ASSERT_EQ(Sel()[0]->ShapeType(), TopAbs_WIRE);
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    const int undos = ShapeDocMgr::GetInstance()->GetAvailableUndos();

    tevtest::PromptLog log;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Extrude : Select closed loop:"}));
    EXPECT_EQ(Current(), &op);
    tevtest::DialogAnswer dialog("ExtrudInputDlg", {{"lineEdit_Height", "12"}}, true);
    Confirm();
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(log.lines.back(), "Extrude : Input height:");
    EXPECT_EQ(Current(), nullptr);

    const std::vector<TopoDS_Shape> all = All();
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(Count(all[0], TopAbs_SOLID), 1);
    EXPECT_NEAR(Volume(all[0]), 14400.0, 1e-6);
    // One undo step holds both the solid and the wire's removal.
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), undos + 1);
    ExpectUndoRedo(before, Snapshot());
}

TEST_F(DrawExtrudeByLoopOpTest, AClosedLoopOfEdgesExtrudesByEscapeAndTheEdgesLeave)
{
    // The four sides in chained order close the rectangle: 40 * 30 * 5 = 6000.
    DrawFourLines();
    Select({bottom, right, top, left});
    ASSERT_EQ(Sel().size(), 4u);
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    const bool dialogShown = ExtrudeWith("5");
    EXPECT_TRUE(dialogShown);
    const std::vector<TopoDS_Shape> all = All();
    ASSERT_EQ(all.size(), 1u);
    EXPECT_NEAR(Volume(all[0]), 6000.0, 1e-6);
    ExpectUndoRedo(before, Snapshot());
}

TEST_F(DrawExtrudeByLoopOpTest, EdgesInANonChainedOrderAreNotALoop)
{
    DrawFourLines();
    // The top side does not touch the bottom one selected before it.
    Select({bottom, top, right, left});
    ExpectRefused("5", "Edges are not a loop or connected", false);
}

TEST_F(DrawExtrudeByLoopOpTest, AnOpenWireBuildsButIsNotClosed)
{
    DrawFourLines();
    Select({bottom, right, top});
    ExpectRefused("5", "Edges are not closed", false);
}

TEST_F(DrawExtrudeByLoopOpTest, NothingSelectedIsToldAndTheOperationLeaves)
{
    DrawFourLines();
    SelectionMgr::GetInstance()->ClearSelList();
    const std::vector<tevtest::ShapeRecord> before = Snapshot();
    tevtest::BoxSeen box;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &box);
    Start(&op);
    Confirm();
    ASSERT_TRUE(box.shown);
    EXPECT_EQ(box.title, "Warning");
    EXPECT_EQ(box.text, "No Entity is selected");
    EXPECT_EQ(Current(), nullptr);
    ExpectSameDocument(before, Snapshot());
}

TEST_F(DrawExtrudeByLoopOpTest, AHeightOfZeroOrLessIsRefused)
{
    DrawFourLines();
    Select({bottom, right, top, left});
    ExpectRefused("-5", "Height error input", true);
}

TEST_F(DrawExtrudeByLoopOpTest, EdgesOfAWireAreNoDocumentShapesAndAreToldOncePerEdge)
{
    // The rectangle's own edges, picked at the edge level, chain into its loop and extrude
    // (40 * 30 * 5 = 6000), but none of them is a shape of the document: four boxes, and the
    // wire stays.
    DrawRectangle(gp_Pnt(0, 0, 0), gp_Pnt(40, 30, 0));
    viewer->m_Slot_SetSelectionEdge();
    Select({bottom, right, top, left});
    ASSERT_EQ(Sel().size(), 4u);
    std::vector<tevtest::BoxSeen> boxes;
    tevtest::AnswerMessageBoxes(4, QMessageBox::Ok, &boxes);
    const bool dialogShown = ExtrudeWith("5");
    EXPECT_TRUE(dialogShown);
    ASSERT_EQ(boxes.size(), 4u);
    for (const tevtest::BoxSeen& box : boxes) {
        EXPECT_EQ(box.title, "Title");
        EXPECT_EQ(box.text, "Find no edges ");
    }
    const std::vector<TopoDS_Shape> all = All();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].ShapeType(), TopAbs_WIRE);
    EXPECT_NEAR(Volume(all[1]), 6000.0, 1e-6);
}

}  // namespace
