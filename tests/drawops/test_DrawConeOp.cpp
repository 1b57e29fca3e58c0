// The cone operation driven by real mouse events, with its height (and angle) typed into the
// dialog: the whole cone and a half, the finish that runs twice, the refused height, Cancel and
// Escape.
#include "SolidOpTest.h"

using tevtest::Lines;

namespace {

class DrawConeOpTest : public tevtest::SolidOpTest
{
protected:
    // Centre (-50, -40) and rim (-50, -10): radius 30.
    const gp_Pnt centre{-50, -40, 0};
    const gp_Pnt rim{-50, -10, 0};
    const std::vector<gp_Pnt> onCircle{gp_Pnt(-20, -40, 0), gp_Pnt(-80, -40, 0)};
};

// After the cone the operation finishes itself and once more through EndOp: the second finish
// does no harm, the bands are gone, the operation has left the stack and the last prompt is
// "Cone: Done".
TEST_F(DrawConeOpTest, CentreRimAndHeightMakeTheConeAndTheDoubleFinishDoesNoHarm)
{
    tevtest::PromptLog log;
    DrawConeOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    EXPECT_TRUE(BandShownAt(onCircle, Band::Red));
    AnswerHeight("30");
    Click(rim);
    EXPECT_FALSE(dialog.fieldEnabled["lineEdit_Angle"]);
    EXPECT_EQ(log.lines, (Lines{"Cone : Input bottom center point:", "Cone : Input bottom circle point:",
                                "Cone : Input Height:", "Cone: Done"}));
    EXPECT_TRUE(Faults(log).empty());
    // pi * 30^2 * 30 / 3 = 9000 pi; the base circle spans the square of side 60 at z = 0, the
    // apex is at z = 30.
    ExpectOneSolid(0, 9000.0 * M_PI, gp_Pnt(-80, -70, 0), gp_Pnt(-20, -10, 30));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onCircle, Band::Red));
    EXPECT_EQ(ShapeDocMgr::GetInstance()->GetAvailableUndos(), 1);
}

TEST_F(DrawConeOpTest, WithParameterInputTheTypedAngleMakesAHalfCone)
{
    DrawConeOp op(true);
    Start(&op);
    Click(centre);
    AnswerHeight("30", true, "180");
    Click(rim);
    EXPECT_TRUE(dialog.fieldEnabled["lineEdit_Angle"]);
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::Angle(op), 180.0);
    // Half a turn from the world X axis through Y: 9000 pi / 2 = 4500 pi, on the side y >= -40.
    ExpectOneSolid(0, 4500.0 * M_PI, gp_Pnt(-80, -40, 0), gp_Pnt(-20, -10, 30));
}

TEST_F(DrawConeOpTest, AHeightOfZeroIsRefusedAndTheNextRimPointAsksAgain)
{
    DrawConeOp op;
    Start(&op);
    Click(centre);
    AnswerHeight("0");
    ExpectHeightRefusedAt(rim);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    // Radius 10, height 30: pi * 100 * 30 / 3 = 1000 pi.
    AnswerHeight("30");
    Click(gp_Pnt(-40, -40, 0));
    ExpectOneSolid(0, 1000.0 * M_PI, gp_Pnt(-60, -50, 0), gp_Pnt(-40, -30, 30));
}

TEST_F(DrawConeOpTest, CancelTakesTheBandAwayAndTheNextRimPointAsksAgain)
{
    DrawConeOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    AnswerHeight("30", false);
    Click(rim);
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    AnswerHeight("30");
    Click(rim);
    ExpectOneSolid(0, 9000.0 * M_PI, gp_Pnt(-80, -70, 0), gp_Pnt(-20, -10, 30));
}

TEST_F(DrawConeOpTest, EscapeCancelsAndLeavesNothingBehind)
{
    DrawConeOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    tevtest::PromptLog log;
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Cone : Cancel"}));
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_EQ(Current(), nullptr);
}

}  // namespace
