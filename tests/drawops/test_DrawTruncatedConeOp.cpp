// The truncated cone operation driven by real mouse events, with its parameters typed into the
// TruncatedConeInputDlg: the whole solid and a sector, the refused height that leaves it inert,
// Cancel that starts it over, Escape and a failure inside the creation.
#include "SolidOpTest.h"

using tevtest::Lines;

namespace {

class DrawTruncatedConeOpTest : public tevtest::SolidOpTest
{
protected:
    // Centre (-50, -40) and rim (-20, -40): bottom radius 30.
    const gp_Pnt centre{-50, -40, 0};
    const gp_Pnt rim{-20, -40, 0};
    const std::vector<gp_Pnt> onCircle{gp_Pnt(-50, -10, 0), gp_Pnt(-80, -40, 0)};

    void AnswerCone(const char* height, const char* top, const char* angle = nullptr, bool ok = true)
    {
        std::vector<tevtest::FieldText> fields{{"lineEdit_Height", height}, {"lineEdit_TopRadius", top}};
        if (angle) fields.push_back({"lineEdit_Angle", angle});
        Answer("TruncatedConeInputDlg", fields, ok);
    }
};

TEST_F(DrawTruncatedConeOpTest, CentreRimHeightAndTopRadiusMakeTheSolidAndEndTheOperation)
{
    tevtest::PromptLog log;
    DrawTruncatedConeOp op;
    Start(&op);
    EXPECT_EQ(log.lines, (Lines{"Truncated Cone : Input bottom center point"}));
    Click(centre);
    EXPECT_EQ(log.lines.back(), "Truncated Cone : Input bottom circle point");
    Move(rim);
    ASSERT_TRUE(Shown(DrawOpTestPeer::TempActor2(op)));
    EXPECT_TRUE(BandShownAt(onCircle, Band::Red));
    log.Clear();
    AnswerCone("20", "10");
    Click(rim);
    EXPECT_FALSE(dialog.fieldEnabled["lineEdit_Angle"]);
    EXPECT_EQ(log.lines, (Lines{"Truncated Cone: Done"}));
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::TopRadius(op), 10.0);
    // pi * h / 3 * (R^2 + R r + r^2) = pi * 20 / 3 * (900 + 300 + 100) = 26000 pi / 3.
    ExpectOneSolid(0, 26000.0 * M_PI / 3.0, gp_Pnt(-80, -70, 0), gp_Pnt(-20, -10, 20));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(BandGoneAt(onCircle, Band::Red));
}

TEST_F(DrawTruncatedConeOpTest, WithParameterInputTheTypedAngleMakesASector)
{
    DrawTruncatedConeOp op(true);
    Start(&op);
    Click(centre);
    AnswerCone("20", "10", "90");
    Click(rim);
    EXPECT_TRUE(dialog.fieldEnabled["lineEdit_Angle"]);
    EXPECT_DOUBLE_EQ(SolidOpTestPeer::Angle(op), 90.0);
    // A quarter of 26000 pi / 3, in the quadrant x >= -50, y >= -40 of the centre.
    ExpectOneSolid(0, 6500.0 * M_PI / 3.0, gp_Pnt(-50, -40, 0), gp_Pnt(-20, -10, 20));
}

TEST_F(DrawTruncatedConeOpTest, AHeightOfZeroIsRefusedAndLeavesTheOperationInertUntilEscape)
{
    DrawTruncatedConeOp op;
    Start(&op);
    Click(centre);
    const tevtest::DocState before = Doc();
    AnswerCone("0", "10");
    ExpectHeightRefusedAt(rim);
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, true}));
    // Clicks open no dialog and make nothing now.
    AnswerCone("20", "10");
    Click(gp_Pnt(-30, -40, 0));
    QTest::qWait(60);
    EXPECT_FALSE(dialog.shown);
    EXPECT_TRUE(Doc() == before);
    EXPECT_EQ(Current(), &op);
    tevtest::PromptLog log;
    Escape();
    EXPECT_EQ(log.lines, (Lines{"Truncated Cone: Cancel"}));
    EXPECT_EQ(Current(), nullptr);
    EXPECT_TRUE(NothingLeft(op));
}

TEST_F(DrawTruncatedConeOpTest, CancelTakesTheBandAwayAndStartsOverAtTheCentre)
{
    DrawTruncatedConeOp op;
    Start(&op);
    Click(centre);
    Move(rim);
    AnswerCone("20", "10", nullptr, false);
    Click(rim);
    EXPECT_TRUE(dialog.shown);
    EXPECT_TRUE(NothingLeft(op));
    EXPECT_TRUE(All().empty());
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{false, false}));
    // The next click is a new centre (-50, -50), the one after its rim: radius 10, height 30,
    // top 0 gives a pointed cone, pi * 30 / 3 * 100 = 1000 pi.
    Click(gp_Pnt(-50, -50, 0));
    AnswerCone("30", "0");
    Click(gp_Pnt(-40, -50, 0));
    ExpectOneSolid(0, 1000.0 * M_PI, gp_Pnt(-60, -60, 0), gp_Pnt(-40, -40, 30));
}

// The second click sets its flag before the dialog; a step that fails inside the creation
// (simulated by turning the creator's refusal of the radius 0 into a raise) gives it back, so
// the operation waits for another rim point instead of going inert.
TEST_F(DrawTruncatedConeOpTest, AFailureInsideTheCreationKeepsTheDocumentAndTheStep)
{
    DrawTruncatedConeOp op;
    Start(&op);
    Click(centre);
    tevtest::PromptLog log;
    {
        tevtest::RaiseOnFault raise("CreateCone");
        AnswerCone("20", "10");
        Click(centre);
    }
    ASSERT_FALSE(Faults(log).empty());
    EXPECT_EQ(Faults(log).back(), "DrawTruncatedConeOp : injected failure");
    EXPECT_TRUE(Doc() == tevtest::DocState());
    EXPECT_EQ(SolidOpTestPeer::Steps(op), (std::array<bool, 2>{true, false}));
    EXPECT_TRUE(NothingLeft(op));
    AnswerCone("20", "10");
    Click(rim);
    ExpectOneSolid(0, 26000.0 * M_PI / 3.0, gp_Pnt(-80, -70, 0), gp_Pnt(-20, -10, 20));
}

}  // namespace
