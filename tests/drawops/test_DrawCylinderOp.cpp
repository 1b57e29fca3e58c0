// The cylinder operation driven by real mouse events, with its height (and angle) typed into
// the dialog: the whole cylinder and a sector, the red circle band, the empty angle, the refused
// height, Cancel, a radius of zero, Escape and a failure inside the creation.
#include "SolidOpTest.h"

using tevtest::Lines;

namespace {

class DrawCylinderOpTest : public tevtest::SolidOpTest
{
protected:
    // Centre (-50, -40) and rim (-20, -40): radius 30, away from the axes and the corner text.
    const gp_Pnt centre{-50, -40, 0};
    const gp_Pnt rim{-20, -40, 0};
    // Two points of the band's circle away from the cursor at the rim.
    const std::vector<gp_Pnt> onCircle{gp_Pnt(-50, -10, 0), gp_Pnt(-80, -40, 0)};
};

TEST_F(DrawCylinderOpTest, CentreRimAndHeightMakeTheCylinderAndEndTheOperation)
{
    tevtest::PromptLog log;
    DrawCylinderOp op;
    EXPECT_FALSE(SolidOpTestPeer::ParamInput(op));
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Cylinder : Input bottom center point:"}));
    Move(centre);
    EXPECT_EQ(DrawOpTestPeer::TempActor2(op), nullptr);
    Click(centre);
    EXPECT_EQ(log.lines.back(), "Cylinder : Input bottom circle point:");
    EXPECT_TRUE(BandGoneAt(onCircle, Band::Red));
    Move(rim);
    vtkActor* band = DrawOpTestPeer::TempActor2(op);
    ASSERT_TRUE(Shown(band));
    ExpectColour(band, 1.0, 0.2, 0.2);
    EXPECT_TRUE(BandShownAt(onCircle, Band::Red));

    log.Clear();
    AnswerHeight("25");
    Click(rim);
    EXPECT_TRUE(dialog.shown);
    EXPECT_FALSE(dialog.fieldEnabled["lineEdit_Angle"]);
    EXPECT_EQ(log.lines, (Lines{"Cylinder : Input height:", "Cylinder: Done"}));
    // Radius 30, height 25, the whole turn: pi * 30^2 * 25 = 22500 pi, over the square of side
    // 60 about the centre.
    ExpectOneSolid(0, 22500.0 * M_PI, gp_Pnt(-80, -70, 0), gp_Pnt(-20, -10, 25));
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::Angle(op), 360.0);
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onCircle, Band::Red));
}

TEST_F(DrawCylinderOpTest, WithParameterInputTheTypedAngleMakesASector)
{
    DrawCylinderOp op(true);
    Start(&op);
    Click(centre);
    AnswerHeight("20", true, "90");
    Click(rim);
    EXPECT_TRUE(dialog.fieldEnabled["lineEdit_Angle"]);
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::Angle(op), 90.0);
    // A quarter turn from the world X axis towards Y: pi * 30^2 * 20 / 4 = 4500 pi, in the
    // quadrant x >= -50, y >= -40 of the centre.
    ExpectOneSolid(0, 4500.0 * M_PI, gp_Pnt(-50, -40, 0), gp_Pnt(-20, -10, 20));
}

TEST_F(DrawCylinderOpTest, WithParameterInputAnEmptyAngleIsZeroAndHandedOn)
{
    tevtest::PromptLog log;
    DrawCylinderOp op(true);
    Start(&op);
    Click(centre);
    AnswerHeight("20", true, "");
    Click(rim);
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::Angle(op), 0.0);
    // The creator refuses it in its own words; the operation ends as after any cylinder.
    EXPECT_EQ(Faults(log), (Lines{"CreateCylinder : the angle must be greater than 0 and at most 360 degrees, not 0"}));
    EXPECT_EQ(log.lines.back(), "Cylinder: Done");
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(Current(), nullptr);
}

TEST_F(DrawCylinderOpTest, AHeightOfZeroIsRefusedAndTheNextRimPointAsksAgain)
{
    DrawCylinderOp op;
    Start(&op);
    Click(centre);
    AnswerHeight("0");
    ExpectHeightRefusedAt(rim);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    // Radius 10 now: pi * 10^2 * 5 = 500 pi.
    AnswerHeight("5");
    Click(gp_Pnt(-50, -30, 0));
    ExpectOneSolid(0, 500.0 * M_PI, gp_Pnt(-60, -50, 0), gp_Pnt(-40, -30, 5));
}

TEST_F(DrawCylinderOpTest, CancelTakesTheBandAwayUntilTheNextMoveAndTheNextClickTakesANewRim)
{
    DrawCylinderOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    AnswerHeight("25", false);
    Click(rim);
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onCircle, Band::Red));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 0);
    Move(rim);
    EXPECT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    EXPECT_TRUE(BandShownAt(onCircle, Band::Red));
    // The new rim (-50, -20): radius 20, pi * 20^2 * 10 = 4000 pi.
    AnswerHeight("10");
    Click(gp_Pnt(-50, -20, 0));
    ExpectOneSolid(0, 4000.0 * M_PI, gp_Pnt(-70, -60, 0), gp_Pnt(-30, -20, 10));
}

TEST_F(DrawCylinderOpTest, ASecondClickOnTheCentreHandsTheCreatorARadiusOfZero)
{
    tevtest::PromptLog log;
    DrawCylinderOp op;
    Start(&op);
    Click(centre);
    AnswerHeight("10");
    Click(centre);
    EXPECT_EQ(Faults(log), (Lines{"CreateCylinder : the radius must be greater than 0"}));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(Current(), nullptr);
}

// A creator that raises inside the creation (simulated by turning its refusal into a raise):
// the step's transaction is taken back, the viewer names the operation and the failure, and the
// operation waits for another rim point.
TEST_F(DrawCylinderOpTest, AFailureInsideTheCreationKeepsTheDocumentAndTheStep)
{
    DrawCylinderOp op;
    Start(&op);
    Click(centre);
    tevtest::PromptLog log;
    {
        tevtest::RaiseOnFault raise("CreateCylinder");
        AnswerHeight("10");
        Click(centre);
    }
    ASSERT_FALSE(Faults(log).empty());
    EXPECT_EQ(Faults(log).back(), "DrawCylinderOp : injected failure");
    EXPECT_TRUE(Doc() == tevtest::DocState());
    EXPECT_EQ(Current(), &op);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    EXPECT_TRUE(NothingLeft(op));
    AnswerHeight("10");
    Click(rim);
    ExpectOneSolid(0, 9000.0 * M_PI, gp_Pnt(-80, -70, 0), gp_Pnt(-20, -10, 10));
}

TEST_F(DrawCylinderOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    DrawCylinderOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    tevtest::PromptLog log;
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Cylinder : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
}

}  // namespace
