// The box operation driven by real mouse events, with its height typed into the dialog: the box
// on the XY plane and on a face plane turned about Z, the green band, the refused height,
// Cancel, sides of zero length, Escape and a failure inside the creation.
#include "SolidOpTest.h"

#include "BoxShapeParaCreator.h"

#include <BRepAdaptor_Surface.hxx>
#include <TopExp_Explorer.hxx>
#include <gp_Pln.hxx>

using tevtest::Lines;

namespace {

class DrawBoxOpTest : public tevtest::SolidOpTest
{
protected:
    // The face of `solid` whose plane has the normal `n` (either sense) and passes through `p`.
    static TopoDS_Face FaceOn(const TopoDS_Shape& solid, const gp_Dir& n, const gp_Pnt& p)
    {
        for (TopExp_Explorer e(solid, TopAbs_FACE); e.More(); e.Next()) {
            const gp_Pln pln = BRepAdaptor_Surface(TopoDS::Face(e.Current())).Plane();
            if (pln.Axis().Direction().IsParallel(n, 1e-9) && pln.Distance(p) < 1e-9) return TopoDS::Face(e.Current());
        }
        return TopoDS_Face();
    }
};

TEST_F(DrawBoxOpTest, TwoCornersAndAHeightMakeTheBoxAndEndTheOperation)
{
    tevtest::PromptLog log;
    DrawBoxOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Box : Input base point:"}));
    Move(gp_Pnt(-60, -50, 0));
    EXPECT_EQ(DrawOpTestPeer::TempActor(op), nullptr);
    Click(gp_Pnt(-60, -50, 0));
    EXPECT_EQ(log.lines.back(), "Box : Input second corner point:");
    Move(gp_Pnt(-20, -30, 0));
    vtkActor* band = DrawOpTestPeer::TempActor(op);
    ASSERT_TRUE(Shown(band));
    ExpectColour(band, 0.0, 0.9, 0.2);
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetLineWidth(), 3.0);
    EXPECT_DOUBLE_EQ(band->GetProperty()->GetOpacity(), 0.8);
    // Both corners lie in the plane, so their mirror images through the plane's normal at the
    // middle (-40, -40) are each other: the quad (p1, p2, p2, p1) shows as the diagonal.
    vtkDataSet* quad = Data(band);
    ASSERT_EQ(quad->GetNumberOfPoints(), 4);
    const gp_Pnt corners[4] = {gp_Pnt(-60, -50, 0), gp_Pnt(-20, -30, 0), gp_Pnt(-20, -30, 0), gp_Pnt(-60, -50, 0)};
    for (int i = 0; i < 4; ++i) {
        const double* q = quad->GetPoint(i);
        EXPECT_TRUE(gp_Pnt(q[0], q[1], q[2]).IsEqual(corners[i], 1e-4)) << i;
    }
    // A quarter and three quarters along the diagonal, away from the snap ring at the cursor.
    const std::vector<gp_Pnt> onBand{gp_Pnt(-50, -45, 0), gp_Pnt(-30, -35, 0)};
    EXPECT_TRUE(BandShownAt(onBand, Band::Green));
    EXPECT_TRUE(All().empty());

    log.Clear();
    AnswerHeight("15");
    Click(gp_Pnt(-20, -30, 0));
    EXPECT_TRUE(dialog.shown);
    EXPECT_FALSE(dialog.fieldEnabled["lineEdit_Angle"]);
    EXPECT_EQ(log.lines, (Lines{"Box : Input height:", "Box: Done"}));
    // Base at the componentwise minimum (-60, -50, 0); dx = |(40, 20, 0) . X| = 40 and
    // dy = |(40, 20, 0) . Y| = 20 on the XY plane; height 15 along Z: 40 * 20 * 15 = 12000.
    ExpectOneSolid(0, 12000.0, gp_Pnt(-60, -50, 0), gp_Pnt(-20, -30, 15));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::Height(op), 15.0);
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onBand, Band::Green));
}

TEST_F(DrawBoxOpTest, TheBoxStandsOnTheComponentwiseMinimumOfTheCorners)
{
    DrawBoxOp op;
    Start(&op);
    Click(gp_Pnt(-20, -30, 0));
    AnswerHeight("5");
    Click(gp_Pnt(-60, -70, 0));
    // From the upper right to the lower left: the base is still (-60, -70, 0), 40 by 40 by 5.
    ExpectOneSolid(0, 8000.0, gp_Pnt(-60, -70, 0), gp_Pnt(-20, -30, 5));
}

TEST_F(DrawBoxOpTest, AHeightOfZeroIsRefusedAndTheNextCornerAsksAgain)
{
    DrawBoxOp op;
    Start(&op);
    Click(gp_Pnt(-60, -50, 0));
    AnswerHeight("0");
    ExpectHeightRefusedAt(gp_Pnt(-20, -30, 0));
    EXPECT_TRUE(dialog.shown);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    // Still waiting for the corner: the next one asks for the height again and makes the box
    // from the same base, 30 by 20 by 10.
    AnswerHeight("10");
    Click(gp_Pnt(-30, -30, 0));
    EXPECT_TRUE(dialog.shown);
    ExpectOneSolid(0, 6000.0, gp_Pnt(-60, -50, 0), gp_Pnt(-30, -30, 10));
}

TEST_F(DrawBoxOpTest, CancelTakesTheBandAwayAndTheNextCornerAsksAgain)
{
    DrawBoxOp op;
    Start(&op);
    Click(gp_Pnt(-60, -50, 0));
    Move(gp_Pnt(-20, -30, 0));
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    AnswerHeight("15", false);
    Click(gp_Pnt(-20, -30, 0));
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    Move(gp_Pnt(-30, -40, 0));
    EXPECT_TRUE(Shown(DrawOpTestPeer::TempActor(op)));
    AnswerHeight("2");
    Click(gp_Pnt(-30, -40, 0));
    // 30 by 10 by 2.
    ExpectOneSolid(0, 600.0, gp_Pnt(-60, -50, 0), gp_Pnt(-30, -40, 2));
}

TEST_F(DrawBoxOpTest, CornersOnALineAlongThePlanesXAxisHandTheCreatorASideOfZero)
{
    tevtest::PromptLog log;
    DrawBoxOp op;
    Start(&op);
    Click(gp_Pnt(-60, -50, 0));
    AnswerHeight("10");
    Click(gp_Pnt(-20, -50, 0));
    // dy = |(40, 0, 0) . Y| = 0.0 reaches the creator, which refuses it in its own words; the
    // operation ends as after any box.
    EXPECT_EQ(Faults(log), (Lines{"CreateBox : the sizes must not be 0 (dx 40, dy 0, height 10)"}));
    EXPECT_EQ(log.lines.back(), "Box: Done");
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
    EXPECT_EQ(Current(), nullptr);
}

// A block turned by -30 degrees about Z: its local axes are Xl = (c, -s, 0) and Yl = (s, c, 0)
// with c = cos 30, s = sin 30. Its face at local x = 40 is the work plane: vertical, normal
// +-Xl, running along Yl. The plane's own axes follow from its normal alone: for a normal +Xl
// (larger x than y component) the X axis is (-Ny, Nx, 0) = (s, c, 0) = Yl and the Y axis is
// N x X = (0, 0, 1), so the plane's axes are turned about Z against the world's.
TEST_F(DrawBoxOpTest, OnAFacePlaneTurnedAboutZTheSidesRunAlongThePlaneAxesAndTheBoxStandsOnTheFace)
{
    const double c = std::cos(M_PI / 6), s = std::sin(M_PI / 6);
    const gp_Pnt o(-80, -60, 0);
    const gp_Dir xl(c, -s, 0), yl(s, c, 0);
    BoxShapeParaCreator().CreateBox(gp_Ax2(o, gp_Dir(0, 0, 1), xl), 40, 30, 20);
    viewer->RefreshViewer();
    // Corners of the face at local x = 40: q at the bottom, r at the top diagonally opposite.
    const gp_Pnt q = o.Translated(gp_Vec(xl) * 40);
    const gp_Pnt r = q.Translated(gp_Vec(yl) * 30 + gp_Vec(0, 0, 20));
    TopoDS_Face face = FaceOn(All()[0], xl, q);
    ASSERT_FALSE(face.IsNull());
    SelectionMgr::GetInstance()->AddToSelectionList(&face);
    tevtest::BoxSeen notice;
    tevtest::AnswerNextMessageBox(QMessageBox::Ok, &notice);
    viewer->m_Slot_SetFaceAsWorkPlane();
    ASSERT_TRUE(notice.shown);
    SelectionMgr::GetInstance()->ClearSelList();
    const gp_Pln plane = viewer->GetCurrentPlane()->Pln();
    ASSERT_NEAR(plane.Distance(q), 0.0, 1e-9);
    ASSERT_TRUE(plane.Axis().Direction().IsEqual(xl, 1e-9)) << "the face's surface gives the other normal";
    EXPECT_TRUE(plane.XAxis().Direction().IsEqual(yl, 1e-9));
    EXPECT_TRUE(plane.YAxis().Direction().IsEqual(gp_Dir(0, 0, 1), 1e-9));
    // Seen from +X the face is in full view; with vertices the only snap kind left (the edges'
    // points would win, being found first), the clicks land on its two corners exactly.
    TevPreference::GetInstance()->snapOnLine = false;
    TevPreference::GetInstance()->snapMiddle = false;
    viewer->SetYZ();
    viewer->UpdateViewer();
    QTest::qWait(20);

    DrawBoxOp op;
    Start(&op);
    Click(q);
    AnswerHeight("10");
    Click(r);
    EXPECT_EQ(Current(), nullptr);
    // d = r - q = 30 Yl + 20 Z: dx = |d . X| = 30 and dy = |d . Y| = 20 (world axes would give
    // |dx| = 30 s = 15 and |dy| = 30 c). The base is the componentwise minimum of q and r, which
    // is q since Yl and Z have no negative component; the box runs 30 along Yl, 20 up and 10
    // along the normal Xl: volume 30 * 20 * 10 = 6000.
    const TopoDS_Shape made = ExpectOneSolid(1, 6000.0, gp_Pnt(q.X(), q.Y() - 10 * s, 0),
                                             gp_Pnt(q.X() + 30 * s + 10 * c, q.Y() + 30 * c, 20));
    // It stands on the face: four corners on the face's plane, the others 10 in front of it,
    // and those on the plane are the face's own corners.
    int onFace = 0;
    for (const gp_Pnt& v : Vertices(made)) {
        const double d = plane.Distance(v);
        EXPECT_TRUE(std::abs(d) < 1e-9 || std::abs(d - 10.0) < 1e-9) << d;
        if (std::abs(d) < 1e-9) {
            ++onFace;
            EXPECT_TRUE(HasVertex(All()[0], v, 1e-9));
        }
    }
    EXPECT_EQ(onFace, 4);
}

TEST_F(DrawBoxOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    DrawBoxOp op;
    Start(&op);
    Click(gp_Pnt(-60, -50, 0));
    Move(gp_Pnt(-20, -30, 0));
    tevtest::PromptLog log;
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Box : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(All().empty());
}

// A creator that raises inside the creation (simulated by turning its refusal into a raise):
// the step's transaction is taken back, the viewer names the operation and the failure, and the
// operation waits for another corner.
TEST_F(DrawBoxOpTest, AFailureInsideTheCreationKeepsTheDocumentAndTheStep)
{
    DrawBoxOp op;
    Start(&op);
    Click(gp_Pnt(-60, -50, 0));
    Move(gp_Pnt(-20, -50, 0));
    tevtest::PromptLog log;
    {
        tevtest::RaiseOnFault raise("CreateBox");
        AnswerHeight("10");
        Click(gp_Pnt(-20, -50, 0));
    }
    // The creator's own lines come first (the raise replaces its refusal); the viewer's is last.
    ASSERT_FALSE(Faults(log).empty());
    EXPECT_EQ(Faults(log).back(), "DrawBoxOp : injected failure");
    EXPECT_TRUE(Doc() == tevtest::DocState());
    EXPECT_EQ(Current(), &op);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    EXPECT_TRUE(NothingLeft(op));
    AnswerHeight("10");
    Click(gp_Pnt(-20, -40, 0));
    ExpectOneSolid(0, 4000.0, gp_Pnt(-60, -50, 0), gp_Pnt(-20, -40, 10));
}

// A bare mesh view ("CAE-TevViewer") has no work plane. The band and the box need one: the step
// raises, the viewer reports it, and nothing else happens.
class DrawBoxOpInMeshViewTest : public DrawBoxOpTest
{
protected:
    std::string ViewerName() const override { return "CAE-TevViewer"; }
};

TEST_F(DrawBoxOpInMeshViewTest, WithoutAWorkPlaneTheStepIsReportedAndNothingIsMade)
{
    ASSERT_TRUE(viewer->GetCurrentPlane().IsNull());
    // Without grid points the grid snap would stop every pick with its "No Snap Data" box.
    TevPreference::GetInstance()->snapGrid = false;
    DrawBoxOp op;
    Start(&op);
    Click(gp_Pnt(-60, -50, 0));
    tevtest::PromptLog log;
    Move(gp_Pnt(-20, -30, 0));
    EXPECT_EQ(Faults(log), (Lines{"DrawBoxOp : the viewer has no work plane"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), &op);
    EXPECT_TRUE(Doc() == tevtest::DocState());
}

}  // namespace
